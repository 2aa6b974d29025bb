#pragma once
// Read access to the registry.
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace platform {

enum class RegistryRoot { ClassesRoot, CurrentUser, LocalMachine, Users };

// Empty (monostate), a REG_SZ text or a REG_DWORD number.
using RegistryValue = std::variant<std::monostate, std::string, int32_t>;

class Registry {
 public:
  virtual ~Registry() = default;
  // The value `valueName` ("" = the key's default value) of key `keyPath` ("\"-separated,
  // matched without regard to letter case) under `root`. A missing key or value, or a
  // value of another type, gives Empty. A REG_SZ value is cut before its first NUL.
  virtual RegistryValue QueryRegValue(RegistryRoot root, std::string_view keyPath,
                                      std::string_view valueName) const = 0;
};

}  // namespace platform
