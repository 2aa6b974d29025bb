#pragma once
// The program's numbered string table (language 1033).
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace resources {

// The text of string `number`, or nullopt when the table holds no such number. List
// fillers try consecutive numbers and skip the misses.
std::optional<std::string_view> FindString(int number);

// The text of string `number`; throws vbrt::VbError(kResourceNotFound) for a miss, as
// the runtime's LoadResString does.
std::string LoadResString(int number);

// The texts of base .. base+tries-1 that the table holds, in order; misses are skipped.
// This is how the choice lists are filled.
std::vector<std::string> ListFrom(int base, int tries = 10);

// LoadResString(before) + value + LoadResString(after): a message whose text is split
// around an inserted name or path. Throws like LoadResString for a missing piece.
std::string Compose(int before, std::string_view value, int after);

}  // namespace resources
