#pragma once
// The program's numbered string table (language 1033).
#include <optional>
#include <string>
#include <string_view>

namespace resources {

// The text of string `number`, or nullopt when the table holds no such number. List
// fillers try consecutive numbers and skip the misses.
std::optional<std::string_view> FindString(int number);

// The text of string `number`; throws vbrt::VbError(kResourceNotFound) for a miss, as
// the runtime's LoadResString does.
std::string LoadResString(int number);

}  // namespace resources
