#include "vbrt/line_end.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace vbrt {

std::size_t FindLineEnd(std::string_view text) {
  // Session files and generated modules pass through here line by line: the bytes are
  // looked at eight at a time.
  std::size_t i = 0;
  if constexpr (std::endian::native == std::endian::little) {
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    constexpr std::uint64_t kHighs = 0x8080808080808080;
    // The high bit set in the lowest zero byte; bytes above it may be marked wrongly,
    // the lowest marked one never is.
    const auto zeroBytes = [](std::uint64_t v) { return (v - kOnes) & ~v & kHighs; };
    for (; text.size() - i >= sizeof(std::uint64_t); i += sizeof(std::uint64_t)) {
      std::uint64_t eight;
      std::memcpy(&eight, text.data() + i, sizeof eight);
      const std::uint64_t ends = zeroBytes(eight ^ (kOnes * '\r')) | zeroBytes(eight ^ (kOnes * '\n'));
      if (ends) return i + std::countr_zero(ends) / 8;
    }
  }
  for (; i < text.size(); ++i) {
    if (text[i] == '\r' || text[i] == '\n') return i;
  }
  return text.size();
}

}  // namespace vbrt
