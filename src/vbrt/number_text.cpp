// Str() and CStr(): numbers rounded to the runtime's significant digits and written in
// fixed or exponent form.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "vbrt/numbers.h"

namespace vbrt {
namespace {

constexpr int kSingleDigits = 7;
constexpr int kDoubleDigits = 15;

// The magnitude of a finite number rounded to `significant` digits: d1.d2d3... times ten
// to `exponent`, trailing zeros removed. Kept in place: generation formats a number for
// every coordinate of a model.
struct RoundedDecimal {
  char digitBuffer[kDoubleDigits];
  int digitCount = 0;
  int exponent = 0;

  std::string_view Digits() const { return {digitBuffer, static_cast<std::size_t>(digitCount)}; }
};

// The exact rounding, from the binary value's full decimal expansion.
void RoundExactly(double magnitude, int significant, RoundedDecimal& rounded) {
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, magnitude,
                                    std::chars_format::scientific, significant - 1);
  const std::string_view text(buffer, result.ptr - buffer);  // "d.ddde+XX", or "de+XX"
  const auto e = text.find('e');
  // The digit before the point, then those after it.
  const std::string_view mantissa = text.substr(0, e);
  const std::string_view fraction = mantissa.substr(std::min<std::size_t>(2, mantissa.size()));
  rounded.digitBuffer[0] = mantissa[0];
  const std::size_t copied = fraction.copy(rounded.digitBuffer + 1, kDoubleDigits - 1);
  rounded.digitCount = 1 + static_cast<int>(copied);
  const char* exponentStart = text.data() + e + 2;  // past "e" and its sign
  std::from_chars(exponentStart, text.data() + text.size(), rounded.exponent);
  if (text[e + 1] == '-') rounded.exponent = -rounded.exponent;
}

// Powers of ten that a double holds exactly.
constexpr int kExactPowers = 22;
constexpr std::array<double, kExactPowers + 1> kPowersOfTen = [] {
  std::array<double, kExactPowers + 1> powers{};
  double power = 1;
  for (double& p : powers) {
    p = power;
    power *= 10;
  }
  return powers;
}();

// The rounding by one scaling in double, used for up to nine digits: the scaled value is
// then below 1e9 and off by less than 1e-6 from the exact one, so its rounding is exact
// unless it lies that close to a tie. False there, and where the power of ten is inexact.
// The digits are written in place: this runs for every coordinate of a generated model.
bool RoundByScaling(double magnitude, int significant, RoundedDecimal& rounded) {
  if (significant > 9) return false;
  if (magnitude == 0) {
    rounded.digitBuffer[0] = '0';
    rounded.digitCount = 1;
    rounded.exponent = 0;
    return true;
  }
  constexpr double kTieMargin = 1e-6;
  // The decimal exponent from the binary one: right or one too small.
  int binaryExponent = 0;
  std::frexp(magnitude, &binaryExponent);
  constexpr double kLog10Of2 = 0.30102999566398120;
  int exponent = static_cast<int>(std::floor((binaryExponent - 1) * kLog10Of2));
  const double low = kPowersOfTen[significant - 1];
  const double high = kPowersOfTen[significant];
  double scaled = 0;
  for (int attempt = 0; attempt < 2; ++attempt) {
    const int shift = significant - 1 - exponent;
    if (shift > kExactPowers || shift < -kExactPowers) return false;
    scaled = shift >= 0 ? magnitude * kPowersOfTen[shift] : magnitude / kPowersOfTen[-shift];
    if (scaled < high) break;
    ++exponent;
  }
  if (scaled < low || scaled >= high) return false;
  const double whole = std::floor(scaled);
  const double fraction = scaled - whole;
  if (std::fabs(fraction - 0.5) < kTieMargin) return false;
  auto digits = static_cast<std::uint64_t>(whole) + (fraction > 0.5 ? 1 : 0);
  if (digits == static_cast<std::uint64_t>(high)) {  // 9.9999996 became 10.000000
    digits = static_cast<std::uint64_t>(low);
    ++exponent;
  }
  rounded.digitCount = static_cast<int>(
      std::to_chars(rounded.digitBuffer, rounded.digitBuffer + kDoubleDigits, digits).ptr -
      rounded.digitBuffer);
  rounded.exponent = exponent;
  return true;
}

void Round(double value, int significant, RoundedDecimal& rounded) {
  const double magnitude = std::fabs(value);
  if (!RoundByScaling(magnitude, significant, rounded)) RoundExactly(magnitude, significant, rounded);
  while (rounded.digitCount > 1 && rounded.digitBuffer[rounded.digitCount - 1] == '0') {
    --rounded.digitCount;
  }
}

struct Style {
  std::string_view positivePrefix;  // " " for Str, "" for CStr
  bool keepLeadingZero;
  std::string_view decimal;
};

void AppendZeros(std::string& text, int count) {
  for (int i = 0; i < count; ++i) text += '0';
}

void AppendExponentForm(std::string& text, const RoundedDecimal& d, std::string_view decimal) {
  const std::string_view digits = d.Digits();
  text += digits[0];
  if (digits.size() > 1) {
    text += decimal;
    text += digits.substr(1);
  }
  const int magnitude = std::abs(d.exponent);
  text += d.exponent < 0 ? "E-" : "E+";
  if (magnitude < 10) text += '0';
  text += std::to_string(magnitude);
}

void AppendFixedForm(std::string& text, const RoundedDecimal& d, const Style& style) {
  const std::string_view digits = d.Digits();
  if (d.exponent < 0) {
    if (style.keepLeadingZero) text += '0';
    text += style.decimal;
    AppendZeros(text, -d.exponent - 1);
    text += digits;
    return;
  }
  const std::size_t integerDigits = d.exponent + 1;
  if (digits.size() <= integerDigits) {
    text += digits;
    AppendZeros(text, static_cast<int>(integerDigits - digits.size()));
    return;
  }
  text += digits.substr(0, integerDigits);
  text += style.decimal;
  text += digits.substr(integerDigits);
}

std::string Format(double value, int significant, const Style& style) {
  std::string text;
  if (std::isnan(value)) {
    text += "-1";
    text += style.decimal;
    text += "#IND";
    return text;
  }
  text += std::signbit(value) && value != 0 ? "-" : style.positivePrefix;
  if (std::isinf(value)) {
    text += "1";
    text += style.decimal;
    text += "#INF";
    return text;
  }
  RoundedDecimal d;
  Round(value, significant, d);
  if (d.exponent >= significant || d.exponent < -4) {
    AppendExponentForm(text, d, style.decimal);
  } else {
    AppendFixedForm(text, d, style);
  }
  return text;
}

constexpr std::string_view kPoint = ".";

}  // namespace

std::string StrSingle(float value) {
  return Format(value, kSingleDigits, Style{" ", false, kPoint});
}

std::string StrDouble(double value) {
  return Format(value, kDoubleDigits, Style{" ", false, kPoint});
}

std::string StrInteger(long long value) {
  return (value < 0 ? "" : " ") + std::to_string(value);
}

std::string CStr(double value, const NumberFormat& format) {
  return Format(value, kDoubleDigits, Style{"", true, format.decimal});
}

}  // namespace vbrt
