#pragma once
// Where a line of text ends: Line Input and the code modules both take CR LF, CR and LF
// as line ends.
#include <cstddef>
#include <string_view>

namespace vbrt {

// The index of the first CR or LF in `text`, or text.size() when there is none.
std::size_t FindLineEnd(std::string_view text);

}  // namespace vbrt
