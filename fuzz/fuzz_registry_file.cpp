// The registry-file reader on arbitrary bytes, read both as a hive and as an export file.
// A file it cannot parse must be refused with std::runtime_error and leave the registry
// unchanged; anything else that escapes is a fault.
#include <cstdlib>
#include <stdexcept>

#include "fuzz_input_file.h"
#include "platform/regfile/registry_files.h"

namespace {

using platform::RegistryRoot;

// A registry that already holds one value, to see that a refused file leaves it alone.
platform::RegistryFiles Prepared(const std::filesystem::path& folder) {
  const auto file = folder / "base.reg";
  static const char kBase[] =
      "REGEDIT4\r\n\r\n[HKEY_CLASSES_ROOT\\ZXBV.Messenger\\Clsid]\r\n@=\"{1}\"\r\n";
  fuzz::WriteBytes(file, reinterpret_cast<const uint8_t*>(kBase), sizeof kBase - 1);
  platform::RegistryFiles registry;
  registry.AddFile(file);
  return registry;
}

void Probe(const platform::RegistryFiles& registry) {
  for (const RegistryRoot root : {RegistryRoot::ClassesRoot, RegistryRoot::CurrentUser,
                                  RegistryRoot::LocalMachine, RegistryRoot::Users}) {
    registry.QueryRegValue(root, "ZXBV.Messenger\\Clsid", "");
    registry.QueryRegValue(root, "Software\\Classes\\CLSID\\{1}\\TypeLib", "");
    registry.QueryRegValue(root, "", "a");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const auto folder = fuzz::ProcessFolder();
  // The hive's root follows from the file name when the file does not say it.
  for (const char* name : {"system.reg", "user.reg"}) {
    fuzz::WriteBytes(folder / name, data, size);
    platform::RegistryFiles registry = Prepared(folder);
    try {
      registry.AddFile(folder / name);
    } catch (const std::runtime_error&) {
      const auto value = registry.QueryRegValue(RegistryRoot::ClassesRoot,
                                                "ZXBV.Messenger\\Clsid", "");
      if (value != platform::RegistryValue(std::string("{1}"))) std::abort();
    }
    Probe(registry);
  }
  return 0;
}
