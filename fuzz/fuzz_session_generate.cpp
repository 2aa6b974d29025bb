// The whole road from session bytes to generated files: the bytes are loaded as the
// wizard loads them (with its page checks), then generated with the in-memory
// development environment and a fixed basic model, everything inside a jail folder. Any
// file must end without a crash. A failed generation leaves no project in the
// environment and no project, class or module file on disk; a successful one leaves all
// three.
#include <cstdlib>
#include <filesystem>

#include "fuzz_input_file.h"
#include "generator/generator.h"
#include "hardening/generation_rig.h"
#include "jail_file_system.h"
#include "platform/prompt/scripted_prompter.h"
#include "platform/merge/libgit2_merger.h"
#include "platform/vbfiles/vb_files_environment.h"
#include "session/session_file.h"
#include "wizard/model/page_checks.h"

namespace {

namespace fs = std::filesystem;

// Files of the kinds a generation saves, anywhere in the jail.
int ProjectFiles(const fs::path& root) {
  int count = 0;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const auto extension = entry.path().extension();
    if (extension == ".vbp" || extension == ".cls" || extension == ".bas") ++count;
  }
  return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static hardening::FixedApplication application(hardening::RingModel(12));
  static const hardening::HostRegistry registry;
  const fs::path root = fuzz::ProcessFolder() / "jail";
  fs::remove_all(root);
  fs::create_directories(root);
  fuzz::WriteBytes(root / "in.bvg", data, size);

  hardening::JailFileSystem files(root);
  platform::ScriptedPrompter prompter;
  wizard::PageChecks checks(files, registry, prompter);
  session::FormState form;
  form.SetFieldHandlers(&checks);
  vbrt::FileTable table;
  std::string message;
  if (!session::LoadSession(form, {table, files}, "C:\\in.bvg", message)) return 0;
  if (form.theName.empty()) return 0;  // the wizard's Finish stays disabled without a name

  // The questions about existing files and folders are answered Yes.
  for (int i = 0; i < 4; ++i) prompter.Answer(platform::MsgAnswer::Yes);
  platform::VbFilesEnvironment environment(files, registry, platform::merge::Libgit2Merger);
  hardening::QuietProgress progress;
  generator::Generator generator(environment, &application, files, registry, prompter, progress);
  const bool generated = generator.Generate(form);
  if (generated ? ProjectFiles(root) < 3 : ProjectFiles(root) != 0) std::abort();
  if (!generated && environment.GetVBProjects().Count() != 0) std::abort();
  return 0;
}
