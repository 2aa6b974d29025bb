#pragma once
// String comparison by character code (Option Compare Binary).
#include <string_view>

namespace vbrt {

// <0, 0, >0 as the runtime's binary comparison orders the two texts: by the code of each
// character of the ANSI code page, a shorter text before a longer one it begins.
int CompareBinary(std::string_view a, std::string_view b);

}  // namespace vbrt
