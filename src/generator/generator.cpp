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

// The run's own messages, for the failures that the string table has no text for. Each
// names what failed; `reason` is the error as Describe gives it.
namespace messages {

std::string RefusedPath(const std::string& refusal) { return "Error: " + refusal; }
std::string NoApplication(const std::string& model) {
  return "Error: The basic model '" + model +
         "' cannot be converted into code: the analysis application is not available.";
}
std::string PreparingFailed(const std::string& project, const std::string& reason) {
  return "Error: Preparing the files of project '" + project + "' failed: " + reason;
}
std::string CopyingFailed(const std::string& reason) {
  return "Error: Copying the basic files failed: " + reason;
}
std::string CreatingFailed(const std::string& project, const std::string& reason) {
  return "Error: Creating project '" + project +
         "' in the development environment failed: " + reason;
}
std::string CountingFailed(const std::string& reason) {
  return "Error: Counting the geometrical input parameters failed: " + reason;
}
std::string ModelNotOpened(const std::string& model, const std::string& reason) {
  return "Error: The basic model '" + model + "' could not be opened: " + reason;
}
std::string ModelNotRead(const std::string& model) {
  return "Error: The basic model '" + model + "' could not be read.";
}
std::string GeneratingFailed(const std::string& project, const std::string& reason) {
  return "Error: Generating the code of project '" + project + "' failed: " + reason;
}
std::string SavingFailed(const std::string& reason) {
  return "Error: Saving the project failed: " + reason;
}

}  // namespace messages

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
  run_ = Run{};
  run_.form = &form;
  run_.title = LoadResString(kAppTitle);

  // A NUL would cut the names short where the files are opened: the project's three files
  // would all go to one file nobody was asked about.
  if (const std::string refused = session::RefusedPathField(form); !refused.empty()) {
    Tell(messages::RefusedPath(refused), MsgIcon::Critical);
    return false;
  }
  if (!form.optModelLink.value && application_ == nullptr) {
    Tell(messages::NoApplication(form.edModel), MsgIcon::Critical);
    return false;
  }
  run_.hostLibrary = FindHostTypeLibrary();
  if (run_.hostLibrary.empty()) {
    Tell(LoadResString(kHostLibraryMissing) + "\n" + LoadResString(kHostLibraryHint),
         MsgIcon::Critical);
    return false;
  }

  try {
    if (!PrepareFilesFolder()) return false;
    if (!ChooseFileName(".vbp", kProjectFileExistsBefore,
                        kProjectFileExistsAfter, run_.project)) return false;
    if (!ChooseFileName(".cls", kClassFileExistsBefore,
                        kClassFileExistsAfter, run_.classFile)) return false;
    if (!ChooseFileName(".bas", kModuleFileExistsBefore,
                        kModuleFileExistsAfter, run_.module)) return false;
    PlanSaves();
  } catch (const std::exception& e) {
    Tell(messages::PreparingFailed(form.theName, Describe(e)), MsgIcon::Critical);
    return false;
  }

  progress_.Load(LoadResString(kProgressCaption));
  progress_.SetBarVisible(false);
  progress_.Show();
  try {
    CopyBasicFiles();
  } catch (const std::exception& e) {
    return Abandon(messages::CopyingFailed(Describe(e)));
  }

  if (!CreateProject() || !SetUpProgress() || !WriteSections()) return false;

  try {
    progress_.SetBarVisible(false);
    progress_.SetState(LoadResString(kStateSavingProject));
    SaveAll();
    if (regeneration_ != nullptr) regeneration_->Complete();
  } catch (const std::exception& e) {
    return Abandon(messages::SavingFailed(Describe(e)));
  }

  progress_.Unload();
  if (!Merges() && (regeneration_ == nullptr || !regeneration_->DryRun())) {
    // The box carries the exclamation icon; it is a success all the same.
    prompter_.Show({LoadResString(kGenerationSucceeded), MsgButtons::OK, MsgIcon::Exclamation,
                    run_.title, /*success=*/true});
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
  platform::CodeModule& code = run_.classComponent->GetCodeModule();
  code.InsertLines(code.CountOfLines() + 1, text);
}

void Generator::AddModuleLine(std::string_view text) {
  platform::CodeModule& code = run_.moduleComponent->GetCodeModule();
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
  session::FormState& form = *run_.form;
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
  const std::string& project = run_.form->theName;
  std::string path = PathOf(project, extension);
  if (!fs_.FileExists(path)) {
    file = {path, SaveChoice::Create};
    return true;
  }
  switch (AskOverwrite(path, LoadResString(questionBefore) + path + LoadResString(questionAfter))) {
    case MsgAnswer::Cancel:
      return false;
    case MsgAnswer::Merge:
      file = {path, SaveChoice::Merge};
      return true;
    case MsgAnswer::Yes:
      fs_.DeleteFile(path);
      file = {path, SaveChoice::Overwrite};
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
      file = {PathOf(project + vbrt::StrInteger(i), extension), SaveChoice::NewName};
      return true;
    }
    case MsgAnswer::OK:
      break;  // not offered: taken as Cancel, so that no file is left without a name
  }
  return false;
}

platform::MsgAnswer Generator::AskOverwrite(const std::string& path, std::string question) {
  platform::Message message{std::move(question), MsgButtons::YesNoCancel, MsgIcon::Exclamation,
                            run_.title};
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
  for (const PlannedFile* file : {&run_.project, &run_.classFile, &run_.module}) {
    regeneration_->Plan(file->path, file->choice);
  }
}

bool Generator::Merges() const {
  for (const PlannedFile* file : {&run_.project, &run_.classFile, &run_.module}) {
    if (file->choice == SaveChoice::Merge) return true;
  }
  return false;
}

void Generator::NoteSaved(const PlannedFile& file) {
  if (file.choice != SaveChoice::Merge) run_.saved.push_back(file.path);
}

void Generator::CopyBasicFiles() {
  const session::FormState& form = *run_.form;
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
    run_.written.push_back(to);
  } catch (const vbrt::VbError&) {
    // A basic file that cannot be copied is left out; the others are still copied.
  }
}

int16_t Generator::CountGeometricalInputs() const {
  int16_t count = 0;
  const std::string geometrical = TypeCaption(InputType::Geometrical);
  for (const InputRow& row : InputRows(*run_.form)) {
    if (row.type == geometrical) count = vbrt::AddInteger(count, 1);
  }
  return count;
}

std::string Generator::PathOf(const std::string& base, const char* extension) const {
  return platform::JoinPath(run_.form->theLocation, base + extension);
}

std::string Generator::FilesFolderPath() const {
  // FilesFolder keeps the "\\" that the generated code needs; on the disk the folder
  // takes the separator of the location the user gave.
  return platform::JoinPath(run_.form->theLocation,
                            std::string_view(run_.form->FilesFolder).substr(1));
}

bool Generator::CreateProject() {
  const std::string caption = LoadResString(kProgressCaption);
  const std::string& name = run_.form->theName;
  try {
    progress_.SetState(LoadResString(kStateCreatingProject));
    platform::VBProject& project =
        environment_.GetVBProjects().Add(platform::ProjectType::ActiveXDll, true);
    run_.vbProject = &project;
    project.SetName(session::kGeneratedProjectName);
    project.SetDescription(name + LoadResString(kProjectDescriptionSuffix));
    project.GetReferences().AddFromGuid(kAnalysisLibrary, 5, 2);
    project.GetReferences().AddFromGuid(run_.hostLibrary, 2, 0);

    environment_.ActivateWindow(session::kGeneratedProjectName);
    project.SaveAs(run_.project.path);
    NoteSaved(run_.project);
    environment_.ActivateWindow(caption);

    run_.classComponent = &project.GetVBComponents().Item("Class1");
    run_.classComponent->SetName(name);
    run_.moduleComponent = &project.GetVBComponents().Add(platform::ComponentKind::StdModule);
    run_.moduleComponent->SetName(kModuleName);
    environment_.ActivateWindow(session::kGeneratedProjectName);
    run_.classComponent->SaveAs(run_.classFile.path);
    NoteSaved(run_.classFile);
    run_.moduleComponent->SaveAs(run_.module.path);
    NoteSaved(run_.module);
    environment_.ActivateWindow(caption);
    progress_.Repaint();
  } catch (const std::exception& e) {
    return Abandon(messages::CreatingFailed(name, Describe(e)));
  }
  return true;
}

bool Generator::SetUpProgress() {
  const session::FormState& form = *run_.form;
  progress_.SetState(LoadResString(kStateGeneratingCode));
  progress_.SetMin(0);
  // The maximum is the count the wizard has always set, not the number of steps taken:
  // the section writers step the bar three times (WriteDeclarations, WriteBuildContour,
  // WriteResultNames) and five more when the model is converted into code
  // (WriteBuildModelGenerate), so the bar ends below its maximum and is never refused.
  float maximum = 0;
  try {
    maximum = vbrt::AddInteger(25, CountGeometricalInputs());
  } catch (const std::exception& e) {
    return Abandon(messages::CountingFailed(Describe(e)));
  }
  if (!form.edData.empty()) maximum += 1;
  if (form.optModelLink.value) {
    maximum += 2;
  } else {
    try {
      run_.model = application_->OpenModel(fs_.ToNative(form.edModel).string());
      maximum += 6 + static_cast<float>(run_.model->EdgeCount());
    } catch (const std::exception& e) {
      return Abandon(messages::ModelNotOpened(form.edModel, Describe(e)));
    }
  }
  if (IsAsynchronous(form)) maximum += 6;
  progress_.SetMax(maximum);
  progress_.SetValue(0);
  progress_.SetBarVisible(true);
  return true;
}

bool Generator::WriteSections() {
  const session::FormState& form = *run_.form;
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
    WriteValidate(*this);
    WriteGetMinMax(*this);
    WriteDescriptiveProperties(form, *this);
    WriteSetInputValues(*this);
    if (form.optModelLink.value) {
      WriteBuildModelLoad(form, *this);
    } else {
      // The writer reads the model and closes it, whatever the outcome.
      const std::unique_ptr<platform::BasicModel> model = std::move(run_.model);
      if (!WriteBuildModelGenerate(*model, *this)) {
        return Abandon(messages::ModelNotRead(form.edModel));
      }
    }
    WriteMeshModel(*this);
    WriteSaveModel(*this);
    WriteSolveProblem(*this);
    WriteGetResult(*this);
    WriteClassTerminate(*this);
    if (IsAsynchronous(form)) {
      WriteAsyncSolveAndLoaded(form, *this);
      WriteAsyncChain(*this);
    }
  } catch (const std::exception& e) {
    return Abandon(messages::GeneratingFailed(form.theName, Describe(e)));
  }
  return true;
}

void Generator::SaveAll() {
  run_.classComponent->SaveAs(run_.classFile.path);
  run_.moduleComponent->SaveAs(run_.module.path);
  run_.vbProject->SaveAs(run_.project.path);
  run_.written.insert(run_.written.end(),
                      {run_.classFile.path, run_.module.path, run_.project.path});
}

platform::MsgAnswer Generator::Ask(const std::string& text) {
  return prompter_.Show({text, MsgButtons::YesNoCancel, MsgIcon::Exclamation, run_.title});
}

void Generator::Tell(const std::string& text, platform::MsgIcon icon) {
  prompter_.Show({text, MsgButtons::OK, icon, run_.title});
}

bool Generator::Abandon(const std::string& message) {
  Tell(message, MsgIcon::Critical);
  if (regeneration_ != nullptr) regeneration_->Abandon();
  if (run_.model) {
    try {
      run_.model->Close();
    } catch (const std::exception&) {
      // The model is dropped anyway.
    }
    run_.model.reset();
  }
  if (run_.vbProject != nullptr) {
    try {
      environment_.GetVBProjects().Remove(*run_.vbProject);
    } catch (const std::exception&) {
      // Nothing more can be done about a project the environment keeps.
    }
    run_.vbProject = nullptr;
  }
  run_.classComponent = run_.moduleComponent = nullptr;
  for (const std::string& path : run_.saved) {
    try {
      if (fs_.FileExists(path)) fs_.DeleteFile(path);
    } catch (const std::exception&) {
      // A file that cannot be deleted stays; the message has said the run failed.
    }
  }
  run_.saved.clear();
  progress_.Unload();
  return false;
}

}  // namespace generator
