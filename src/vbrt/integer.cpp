// 16-bit Integer conversions and arithmetic; leaving the range is an Overflow error.
#include <cmath>
#include <cstdint>

#include "vbrt/error.h"
#include "vbrt/numbers.h"

namespace vbrt {
namespace {

constexpr double kMinInteger = -32768;
constexpr double kMaxInteger = 32767;

// Round half to even, as the runtime rounds on every conversion to an integer type.
double RoundHalfEven(double value) {
  double whole = std::floor(value);
  const double fraction = value - whole;
  if (fraction > 0.5 || (fraction == 0.5 && std::fmod(whole, 2) != 0)) whole += 1;
  return whole;
}

}  // namespace

int16_t CInt(double value) {
  const double rounded = RoundHalfEven(value);
  if (!(rounded >= kMinInteger && rounded <= kMaxInteger)) Raise(kOverflow);
  return static_cast<int16_t>(rounded);
}

int16_t CInt(std::string_view text, const NumberFormat& format) {
  return CInt(CDbl(text, format));
}

int16_t AddInteger(int16_t a, int16_t b) {
  const int sum = int{a} + int{b};
  if (sum < kMinInteger || sum > kMaxInteger) Raise(kOverflow);
  return static_cast<int16_t>(sum);
}

}  // namespace vbrt
