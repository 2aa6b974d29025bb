#pragma once
// File-dialog filters: the program's "description|pattern|description|pattern..." form
// turned into the form Qt's file dialog takes.
#include <string>
#include <string_view>

namespace wizard {

// One Qt filter per pair, joined by ";;": "Description (pattern pattern)". Patterns
// separated by ";" become separated by blanks, and "*.*" (every file) becomes "*". A
// description that already ends with its patterns in parentheses is kept as it is. A
// trailing description without pattern is dropped.
std::string QtFileFilter(std::string_view vbFilter);

}  // namespace wizard
