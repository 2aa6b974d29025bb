#include "vbrt/compare.h"

#include <algorithm>
#include <string>

#include "vbrt/codepage.h"

namespace vbrt {

int CompareBinary(std::string_view a, std::string_view b) {
  const std::string left = ToAnsi(a);
  const std::string right = ToAnsi(b);
  const auto byteLess = [](char x, char y) {
    return static_cast<unsigned char>(x) < static_cast<unsigned char>(y);
  };
  if (std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(), byteLess))
    return -1;
  if (std::lexicographical_compare(right.begin(), right.end(), left.begin(), left.end(), byteLess))
    return 1;
  return 0;
}

}  // namespace vbrt

