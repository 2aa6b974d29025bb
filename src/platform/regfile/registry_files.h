#pragma once
// The registry read from files: Wine hive files (system.reg, user.reg) and the registry
// editor's export files (REGEDIT4, and "Windows Registry Editor Version 5.00" in UTF-16 LE
// with a byte-order mark or in plain text).
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "platform/registry.h"

namespace platform {

class RegistryFiles : public Registry {
 public:
  // The Wine prefix's ($WINEPREFIX, or ~/.wine) system.reg and user.reg when present,
  // then every file named in EOWIZARD_REGISTRY (colon-separated). Throws
  // std::runtime_error for a named file that cannot be read or parsed.
  static RegistryFiles FromEnvironment();

  // Adds the keys of one file; a later file's values replace earlier ones. A Wine hive
  // holds the root its ";; All keys relative to" line names (\\User: HKEY_CURRENT_USER,
  // otherwise HKEY_LOCAL_MACHINE); without that line a file named user.reg holds
  // HKEY_CURRENT_USER and any other HKEY_LOCAL_MACHINE. Throws std::runtime_error naming the file (and the line, for a
  // malformed one) when it cannot be read or parsed; the registry is unchanged then.
  void AddFile(const std::filesystem::path& file);

  // HKEY_CLASSES_ROOT is Software\Classes of HKEY_CURRENT_USER over that of
  // HKEY_LOCAL_MACHINE.
  RegistryValue QueryRegValue(RegistryRoot root, std::string_view keyPath,
                              std::string_view valueName) const override;

  // Keys: full path from the root ("HKLM\Software\Classes\..."), folded to lower case.
  // Values: name folded to lower case ("" = default value).
  using Values = std::map<std::string, RegistryValue>;
  using Keys = std::map<std::string, Values>;

 private:
  Keys keys_;
};

}  // namespace platform
