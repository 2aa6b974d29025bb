#include "wizard/model/basic_files_picture.h"

#include <exception>

#include "resources/string_ids.h"
#include "resources/string_table.h"

namespace wizard {
namespace {

// Room around the model for the numbers and labels beside it.
constexpr double kMargin = 28;
// How far from an edge a click still picks it.
constexpr double kClickTolerance = 6;

}  // namespace

void BasicFilesPicture::Update(const session::FormState& form,
                               platform::AnalysisApplication* application,
                               const platform::FileSystem& fs) {
  const std::optional<std::string> wanted =
      form.optModelCode.value ? std::optional<std::string>(form.edModel) : std::nullopt;
  if (wanted == readPath_ && !stale_) return;
  // The window handles its events while it waits for the model: a repaint among them
  // finds this read under way; a read asked for meanwhile comes with the next repaint.
  if (reading_) return;
  readPath_ = wanted;
  stale_ = false;
  picture_.reset();
  reason_.clear();
  selected_.reset();
  // The form is never on view without its application.
  if (!wanted || application == nullptr) return;
  reading_ = true;
  try {
    const auto model = application->OpenModel(fs.ToNative(*wanted).string());
    picture_ = std::make_shared<const ModelPicture>(*model);
    model->Close();
  } catch (const std::exception& e) {
    picture_.reset();
    reason_ = resources::LoadResString(resources::kModelPictureRefused) + "\n" + e.what();
  }
  reading_ = false;
}

Drawing BasicFilesPicture::Draw(CanvasSize canvas) const {
  return picture_->Draw(canvas, kMargin, selected_);
}

void BasicFilesPicture::Click(Point2 at, CanvasSize canvas) {
  if (picture_) selected_ = EdgeAt(Draw(canvas), at, kClickTolerance);
}

std::string BasicFilesPicture::EdgeText() const {
  return selected_ ? picture_->EdgeText(*selected_)
                   : resources::LoadResString(resources::kModelPictureHint);
}

}  // namespace wizard
