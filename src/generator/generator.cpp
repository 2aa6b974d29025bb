// How a generation run ends when something fails:
// - A project, model, data or sketch path that holds a control character ends the run
//   before anything is asked or created, with a message naming the field.
// - A folder or file that cannot be created, probed or deleted while the files folder and
//   the three file names are chosen ends the run with a message naming the failure;
//   nothing has been created in the development environment by then.
// - Converting the basic model into code needs the analysis application, and every project
//   needs the host's type library; without either the run ends with a message before
//   anything is asked, created or copied.
// - From the moment the progress window is shown, every failure ends the run the same
//   way: a critical message that names what failed, the project removed from the
//   environment, the progress window unloaded, false. The failures are:
//   an error of the environment while the project is created and first saved; a basic
//   model that cannot be opened or counted (the message names the file and the
//   application's reason); an error raised while the code is written (a record value that
//   does not convert, an overflowing count, the environment); a basic model that cannot
//   be read for its conversion into code; a failed final save.
// - The project, class and module files that the run saved are deleted again when it
//   fails: they never held a complete project. The files folder and the basic files
//   copied into it stay, as after a cancelled question. A file answered Merge is the
//   user's until the environment's Complete writes the merge, after the last save: a
//   failed run leaves it as it was, and the environment's pristine copies with it.
// - The basic model opened for the progress count stays open for its conversion into
//   code, which reads and closes it; a run that ends before then closes it.
#include "generator/generator.h"

#include <exception>
#include <optional>
#include <variant>

#include "generator/record_values.h"
#include "generator/sections.h"
#include "platform/path_parts.h"
#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "session/record_check.h"
#include "vbrt/error.h"
#include "vbrt/numbers.h"

namespace generator {
namespace {

using platform::FileHistory;
using platform::MsgAnswer;
using platform::MsgButtons;
using platform::MsgIcon;
using platform::SaveChoice;
using resources::LoadResString;
using namespace resources;  // the string numbers

constexpr std::string_view kAnalysisLibrary = "{C0E82B4F-2FCB-11D3-BEC8-0080AD0EBF00}";
constexpr std::string_view kModuleName = "Custom";

std::string Describe(const std::exception& e) {
  if (const auto* vb = dynamic_cast<const vbrt::VbError*>(&e)) {
    return vb->Description() + " (error " + std::to_string(vb->Number()) + ")";
  }
  return e.what();
}

// The registry value as text; nullopt when it is Empty.
std::optional<std::string> RegistryText(const platform::RegistryValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* number = std::get_if<int32_t>(&value)) return std::to_string(*number);
  return std::nullopt;
}

}  // namespace

Generator::Generator(platform::DevEnvironment& environment,
                     platform::AnalysisApplication* application, platform::FileSystem& fs,
                     const platform::Registry& registry, platform::Prompter& prompter,
                     ProgressSink& progress)
    : environment_(environment),
      application_(application),
      fs_(fs),
      registry_(registry),
      prompter_(prompter),
      progress_(progress),
      regeneration_(environment.GetRegeneration()) {}

bool Generator::Generate(session::FormState& form) {
  form_ = &form;
  names_ = {};
  project_ = nullptr;
  classComponent_ = moduleComponent_ = nullptr;
  model_.reset();
  saved_.clear();
  written_.clear();
  title_ = LoadResString(kAppTitle);

  // A NUL would cut the names short where the files are opened: the project's three files
  // would all go to one file nobody was asked about.
  if (const std::string refused = session::RefusedPathField(form); !refused.empty()) {
    Tell("Error: " + refused, MsgIcon::Critical);
    return false;
  }
  if (!form.optModelLink.value && application_ == nullptr) {
    Tell("Error: The basic model '" + form.edModel +
             "' cannot be converted into code: the analysis application is not available.",
         MsgIcon::Critical);
    return false;
  }
  hostLibrary_ = FindHostTypeLibrary();
  if (hostLibrary_.empty()) {
    Tell(LoadResString(kHostLibraryMissing) + "\n" + LoadResString(kHostLibraryHint),
         MsgIcon::Critical);
    return false;
  }

  try {
    if (!PrepareFilesFolder()) return false;
    if (!ChooseFileName(".vbp", kProjectFileExistsBefore,
                        kProjectFileExistsAfter, names_.project)) return false;
    if (!ChooseFileName(".cls", kClassFileExistsBefore,
                        kClassFileExistsAfter, names_.classFile)) return false;
    if (!ChooseFileName(".bas", kModuleFileExistsBefore,
                        kModuleFileExistsAfter, names_.module)) return false;
    PlanSaves();
  } catch (const std::exception& e) {
    Tell("Error: Preparing the files of project '" + form.theName + "' failed: " + Describe(e),
         MsgIcon::Critical);
    return false;
  }

  progress_.Load(LoadResString(kProgressCaption));
  progress_.SetBarVisible(false);
  progress_.Show();
  try {
    CopyBasicFiles();
  } catch (const std::exception& e) {
    return Abandon("Error: Copying the basic files failed: " + Describe(e));
  }

  if (!CreateProject() || !SetUpProgress() || !WriteSections()) return false;

  try {
    progress_.SetBarVisible(false);
    progress_.SetState(LoadResString(kStateSavingProject));
    SaveAll();
    if (regeneration_ != nullptr) regeneration_->Complete();
  } catch (const std::exception& e) {
    return Abandon("Error: Saving the project failed: " + Describe(e));
  }

  progress_.Unload();
  if (!Merges() && (regeneration_ == nullptr || !regeneration_->DryRun())) {
    // The box carries the exclamation icon; it is a success all the same.
    prompter_.Show({LoadResString(kGenerationSucceeded), MsgButtons::OK, MsgIcon::Exclamation,
                    title_, /*success=*/true});
  }
  return true;
}

std::string Generator::FindHostTypeLibrary() const {
  using platform::RegistryRoot;
  const auto classId =
      RegistryText(registry_.QueryRegValue(RegistryRoot::ClassesRoot, "ZXBV.Messenger\\Clsid", ""));
  if (!classId) return "";
  const auto library = RegistryText(
      registry_.QueryRegValue(RegistryRoot::ClassesRoot, "CLSID\\" + *classId + "\\TypeLib", ""));
  return library.value_or("");
}

void Generator::AddClassLine(std::string_view text) {
  platform::CodeModule& code = classComponent_->GetCodeModule();
  code.InsertLines(code.CountOfLines() + 1, text);
}

void Generator::AddModuleLine(std::string_view text) {
  platform::CodeModule& code = moduleComponent_->GetCodeModule();
  code.InsertLines(code.CountOfLines() + 1, text);
}

void Generator::StepProgress(int step) {
  try {
    progress_.SetValue(progress_.Value() + static_cast<float>(step));
  } catch (const vbrt::VbError&) {
    // The bar refuses a value beyond its maximum; generation goes on.
  }
}

bool Generator::PrepareFilesFolder() {
  session::FormState& form = *form_;
  form.FilesFolder = "\\" + form.theName + "_Files";
  const std::string candidate = FilesFolderPath();
  if (!fs_.FolderExists(candidate)) {
    fs_.CreateFolder(candidate);
    return true;
  }
  switch (Ask(LoadResString(kFilesFolderExistsBefore) + candidate + LoadResString(kFilesFolderExistsAfter))) {
    case MsgAnswer::Cancel:
      return false;
    case MsgAnswer::No: {
      int16_t i = 2;
      while (fs_.FolderExists(candidate + vbrt::StrInteger(i))) {
        i = vbrt::AddInteger(i, 1);
      }
      // Str() puts a blank before the number: the folder is "<Project>_Files 2".
      form.FilesFolder += vbrt::StrInteger(i);
      fs_.CreateFolder(FilesFolderPath());
      return true;
    }
    case MsgAnswer::Yes:
      return true;
    case MsgAnswer::OK:
    case MsgAnswer::Merge:
      break;  // not offered: taken as Cancel
  }
  return false;
}

bool Generator::ChooseFileName(const char* extension, int questionBefore, int questionAfter,
                               PlannedFile& file) {
  const std::string& project = form_->theName;
  std::string path = PathOf(project, extension);
  if (!fs_.FileExists(path)) {
    file = {project, SaveChoice::Create};
    return true;
  }
  switch (AskOverwrite(path, LoadResString(questionBefore) + path + LoadResString(questionAfter))) {
    case MsgAnswer::Cancel:
      return false;
    case MsgAnswer::Merge:
      file = {project, SaveChoice::Merge};
      return true;
    case MsgAnswer::Yes:
      fs_.DeleteFile(path);
      file = {project, SaveChoice::Overwrite};
      return true;
    case MsgAnswer::No: {
      // The first probe has no blank before the 2; the chosen name and later probes
      // carry Str()'s blank.
      path = PathOf(project + "2", extension);
      int16_t i = 2;
      while (fs_.FileExists(path)) {
        i = vbrt::AddInteger(i, 1);
        path = PathOf(project + vbrt::StrInteger(i), extension);
      }
      file = {project + vbrt::StrInteger(i), SaveChoice::NewName};
      return true;
    }
    case MsgAnswer::OK:
      break;  // not offered: taken as Cancel, so that no file is left without a name
  }
  return false;
}

platform::MsgAnswer Generator::AskOverwrite(const std::string& path, std::string question) {
  platform::Message message{std::move(question), MsgButtons::YesNoCancel, MsgIcon::Exclamation,
                            title_};
  const FileHistory history =
      regeneration_ != nullptr ? regeneration_->History(path) : FileHistory::Unknown;
  if (history == FileHistory::Edited) {
    message.buttons = MsgButtons::MergeYesNoCancel;
    message.text += "\n" + LoadResString(kEditedSinceGenerated);
  } else {
    // Overwriting a file exactly as generated loses nothing; of any other file, nothing
    // is known.
    message.keepsUserWork = history == FileHistory::AsGenerated ? MsgAnswer::Yes : MsgAnswer::No;
  }
  return prompter_.Show(message);
}

void Generator::PlanSaves() {
  if (regeneration_ == nullptr) return;
  regeneration_->Plan(PathOf(names_.project.base, ".vbp"), names_.project.choice);
  regeneration_->Plan(PathOf(names_.classFile.base, ".cls"), names_.classFile.choice);
  regeneration_->Plan(PathOf(names_.module.base, ".bas"), names_.module.choice);
}

bool Generator::Merges() const {
  for (const PlannedFile* file : {&names_.project, &names_.classFile, &names_.module}) {
    if (file->choice == SaveChoice::Merge) return true;
  }
  return false;
}

void Generator::NoteSaved(const std::string& path, const PlannedFile& file) {
  if (file.choice != SaveChoice::Merge) saved_.push_back(path);
}

void Generator::CopyBasicFiles() {
  const session::FormState& form = *form_;
  progress_.SetState(LoadResString(kStateCopyingFiles));
  const std::string folder = FilesFolderPath();
  const auto target = [&](const std::string& name) { return platform::JoinPath(folder, name); };
  if (form.optModelLink.value) CopyIfNeeded(form.edModel, target(form.theName + "_Basic.mod"));
  if (form.optDataLink.value && !form.edData.empty()) {
    CopyIfNeeded(form.edData, target(form.theName + "_Basic." + DataExtension(form)));
  }
  if (!form.edSketch.empty()) {
    CopyIfNeeded(form.edSketch,
                 target(form.theName + "." + platform::ExtensionName(form.edSketch)));
  }
}

void Generator::CopyIfNeeded(const std::string& from, const std::string& to) {
  if (from.empty() || from == to) return;
  try {
    fs_.CopyFile(from, to);
    written_.push_back(to);
  } catch (const vbrt::VbError&) {
    // A basic file that cannot be copied is left out; the others are still copied.
  }
}

int16_t Generator::CountGeometricalInputs() const {
  int16_t count = 0;
  const std::string geometrical = TypeCaption(InputType::Geometrical);
  for (const InputRow& row : InputRows(*form_)) {
    if (row.type == geometrical) count = vbrt::AddInteger(count, 1);
  }
  return count;
}

std::string Generator::PathOf(const std::string& base, const char* extension) const {
  return platform::JoinPath(form_->theLocation, base + extension);
}

std::string Generator::FilesFolderPath() const {
  // FilesFolder keeps the "\\" that the generated code needs; on the disk the folder
  // takes the separator of the location the user gave.
  return platform::JoinPath(form_->theLocation, std::string_view(form_->FilesFolder).substr(1));
}

bool Generator::CreateProject() {
  const std::string caption = LoadResString(kProgressCaption);
  try {
    progress_.SetState(LoadResString(kStateCreatingProject));
    project_ = &environment_.GetVBProjects().Add(platform::ProjectType::ActiveXDll, true);
    project_->SetName(session::kGeneratedProjectName);
    project_->SetDescription(form_->theName + LoadResString(kProjectDescriptionSuffix));
    project_->GetReferences().AddFromGuid(kAnalysisLibrary, 5, 2);
    project_->GetReferences().AddFromGuid(hostLibrary_, 2, 0);

    environment_.ActivateWindow(session::kGeneratedProjectName);
    const std::string projectPath = PathOf(names_.project.base, ".vbp");
    project_->SaveAs(projectPath);
    NoteSaved(projectPath, names_.project);
    environment_.ActivateWindow(caption);

    classComponent_ = &project_->GetVBComponents().Item("Class1");
    classComponent_->SetName(form_->theName);
    moduleComponent_ = &project_->GetVBComponents().Add(platform::ComponentKind::StdModule);
    moduleComponent_->SetName(kModuleName);
    environment_.ActivateWindow(session::kGeneratedProjectName);
    const std::string classPath = PathOf(names_.classFile.base, ".cls");
    classComponent_->SaveAs(classPath);
    NoteSaved(classPath, names_.classFile);
    const std::string modulePath = PathOf(names_.module.base, ".bas");
    moduleComponent_->SaveAs(modulePath);
    NoteSaved(modulePath, names_.module);
    environment_.ActivateWindow(caption);
    progress_.Repaint();
  } catch (const std::exception& e) {
    return Abandon("Error: Creating project '" + form_->theName +
                   "' in the development environment failed: " + Describe(e));
  }
  return true;
}

bool Generator::SetUpProgress() {
  const session::FormState& form = *form_;
  progress_.SetState(LoadResString(kStateGeneratingCode));
  progress_.SetMin(0);
  float maximum = 0;
  try {
    maximum = vbrt::AddInteger(25, CountGeometricalInputs());
  } catch (const std::exception& e) {
    return Abandon("Error: Counting the geometrical input parameters failed: " + Describe(e));
  }
  if (!form.edData.empty()) maximum += 1;
  if (form.optModelLink.value) {
    maximum += 2;
  } else {
    try {
      model_ = application_->OpenModel(fs_.ToNative(form.edModel).string());
      maximum += 6 + static_cast<float>(model_->EdgeCount());
    } catch (const std::exception& e) {
      return Abandon("Error: The basic model '" + form.edModel + "' could not be opened: " +
                     Describe(e));
    }
  }
  if (IsAsynchronous(form)) maximum += 6;
  progress_.SetMax(maximum);
  progress_.SetValue(0);
  progress_.SetBarVisible(true);
  return true;
}

bool Generator::WriteSections() {
  const session::FormState& form = *form_;
  try {
    WriteDeclarations(form, *this);
    WriteInitialisation(form, *this);
    WriteParameters(form, *this);
    WriteModifyModel(form, *this);
    if (!form.edData.empty()) WriteInitLabels(form, *this);
    WriteSetLabel(form, *this);
    WritePreSolve(form, *this);
    WriteBuildContour(form, *this);
    WriteResultNames(form, *this);
    WriteCalculations(form, *this);
    WritePrmMin(form, *this);
    WritePrmMax(form, *this);
    WriteValidate(form, *this);
    WriteGetMinMax(form, *this);
    WriteDescriptiveProperties(form, *this);
    WriteSetInputValues(form, *this);
    if (form.optModelLink.value) {
      WriteBuildModelLoad(form, *this);
    } else {
      // The writer reads the model and closes it, whatever the outcome.
      const std::unique_ptr<platform::BasicModel> model = std::move(model_);
      if (!WriteBuildModelGenerate(form, *model, *this)) {
        return Abandon("Error: The basic model '" + form.edModel + "' could not be read.");
      }
    }
    WriteMeshModel(form, *this);
    WriteSaveModel(form, *this);
    WriteSolveProblem(form, *this);
    WriteGetResult(form, *this);
    WriteClassTerminate(form, *this);
    if (IsAsynchronous(form)) {
      WriteAsyncSolveAndLoaded(form, *this);
      WriteAsyncChain(form, *this);
    }
  } catch (const std::exception& e) {
    return Abandon("Error: Generating the code of project '" + form.theName +
                   "' failed: " + Describe(e));
  }
  return true;
}

void Generator::SaveAll() {
  const std::string classPath = PathOf(names_.classFile.base, ".cls");
  const std::string modulePath = PathOf(names_.module.base, ".bas");
  const std::string projectPath = PathOf(names_.project.base, ".vbp");
  classComponent_->SaveAs(classPath);
  moduleComponent_->SaveAs(modulePath);
  project_->SaveAs(projectPath);
  written_.insert(written_.end(), {classPath, modulePath, projectPath});
}

platform::MsgAnswer Generator::Ask(const std::string& text) {
  return prompter_.Show({text, MsgButtons::YesNoCancel, MsgIcon::Exclamation, title_});
}

void Generator::Tell(const std::string& text, platform::MsgIcon icon) {
  prompter_.Show({text, MsgButtons::OK, icon, title_});
}

bool Generator::Abandon(const std::string& message) {
  Tell(message, MsgIcon::Critical);
  if (regeneration_ != nullptr) regeneration_->Abandon();
  if (model_) {
    try {
      model_->Close();
    } catch (const std::exception&) {
      // The model is dropped anyway.
    }
    model_.reset();
  }
  if (project_ != nullptr) {
    try {
      environment_.GetVBProjects().Remove(*project_);
    } catch (const std::exception&) {
      // Nothing more can be done about a project the environment keeps.
    }
    project_ = nullptr;
  }
  classComponent_ = moduleComponent_ = nullptr;
  for (const std::string& path : saved_) {
    try {
      if (fs_.FileExists(path)) fs_.DeleteFile(path);
    } catch (const std::exception&) {
      // A file that cannot be deleted stays; the message has said the run failed.
    }
  }
  saved_.clear();
  progress_.Unload();
  return false;
}

}  // namespace generator
