// "Create sketch file now" on the basic-files page: the basic model drawn as a sketch for
// the host and saved as a Windows bitmap, which then becomes the sketch file.
#include <exception>
#include <utility>

#include "platform/path_parts.h"
#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "session/code_page_notice.h"
#include "wizard/model/wizard_form.h"

namespace wizard {

using platform::MsgAnswer;
using platform::MsgButtons;
using platform::MsgIcon;
using namespace resources;  // LoadResString and the string numbers

std::optional<Sketch> WizardForm::DrawSketch() {
  const std::string model = state_.edModel;
  if (model.empty()) {
    Tell(LoadResString(kSketchNoModel), MsgIcon::Exclamation, appTitle_);
    return std::nullopt;
  }
  Sketch sketch;
  try {
    // The form is never on view without its application.
    if (zx_ == nullptr) throw std::runtime_error(LoadResString(kLaunchFailed));
    const auto opened = zx_->OpenModel(services_.fs.ToNative(model).string());
    sketch.drawing = ModelPicture(*opened).DrawSketch();
    opened->Close();
  } catch (const std::exception& e) {
    Tell(LoadResString(kSketchUnreadableBefore) + model + LoadResString(kSketchReason) + e.what(),
         MsgIcon::Exclamation, appTitle_);
    return std::nullopt;
  }
  const std::string folder = platform::ParentFolder(services_.fs.AbsolutePath(model));
  sketch.saveAs.initialFolder = folder;
  sketch.saveAs.fileName = platform::JoinPath(folder, platform::BaseName(model) + ".bmp");
  sketch.saveAs.filter = LoadResString(kSketchSaveFilter);
  return sketch;
}

void WizardForm::SaveSketch(const Sketch& sketch, std::string path, const BitmapWriter& write) {
  if (const std::string refusal = session::CodePagePathRefusal(path); !refusal.empty()) {
    Tell(refusal, MsgIcon::Exclamation, appTitle_);
    return;
  }
  if (services_.fs.Exists(path)) {
    const MsgAnswer answer = services_.prompter.Show(
        {LoadResString(kSketchMissingBefore) + path + LoadResString(kSketchExistsAfter),
         MsgButtons::YesNo, MsgIcon::Exclamation, appTitle_});
    if (answer != MsgAnswer::Yes) return;
  }
  try {
    write(sketch.drawing, services_.fs.ToNative(path));
  } catch (const std::exception& e) {
    Tell(LoadResString(kSketchNotSavedBefore) + path + LoadResString(kSketchReason) + e.what(),
         MsgIcon::Exclamation, appTitle_);
    return;
  }
  Browsed(Browse::Sketch, std::move(path));
}

}  // namespace wizard
