// Str() and CStr(): numbers rounded to the runtime's significant digits and written in
// fixed or exponent form.
#include <algorithm>
#include <charconv>
#include <cmath>
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

RoundedDecimal Round(double value, int significant) {
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value),
                                    std::chars_format::scientific, significant - 1);
  const std::string_view text(buffer, result.ptr - buffer);  // "d.ddde+XX", or "de+XX"
  const auto e = text.find('e');
  RoundedDecimal rounded;
  // The digit before the point, then those after it.
  const std::string_view mantissa = text.substr(0, e);
  const std::string_view fraction = mantissa.substr(std::min<std::size_t>(2, mantissa.size()));
  rounded.digitBuffer[0] = mantissa[0];
  const std::size_t copied = fraction.copy(rounded.digitBuffer + 1, kDoubleDigits - 1);
  rounded.digitCount = 1 + static_cast<int>(copied);
  while (rounded.digitCount > 1 && rounded.digitBuffer[rounded.digitCount - 1] == '0') {
    --rounded.digitCount;
  }
  const char* exponentStart = text.data() + e + 2;  // past "e" and its sign
  std::from_chars(exponentStart, text.data() + text.size(), rounded.exponent);
  if (text[e + 1] == '-') rounded.exponent = -rounded.exponent;
  return rounded;
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
  const RoundedDecimal d = Round(value, significant);
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
