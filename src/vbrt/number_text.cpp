// Str() and CStr(): numbers rounded to the runtime's significant digits and written in
// fixed or exponent form.
#include <charconv>
#include <cmath>
#include <string>

#include "vbrt/numbers.h"

namespace vbrt {
namespace {

constexpr int kSingleDigits = 7;
constexpr int kDoubleDigits = 15;

// The magnitude of a finite number rounded to `significant` digits: d1.d2d3... times ten to `exponent`,
// trailing zeros removed.
struct RoundedDecimal {
  std::string digits;
  int exponent = 0;
};

RoundedDecimal Round(double value, int significant) {
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value),
                                    std::chars_format::scientific, significant - 1);
  const std::string_view text(buffer, result.ptr - buffer);  // "d.ddde+XX"
  const auto e = text.find('e');
  RoundedDecimal rounded;
  for (char c : text.substr(0, e))
    if (c != '.') rounded.digits += c;
  while (rounded.digits.size() > 1 && rounded.digits.back() == '0') rounded.digits.pop_back();
  const char* exponentStart = text.data() + e + 2;  // past "e" and its sign
  std::from_chars(exponentStart, text.data() + text.size(), rounded.exponent);
  if (text[e + 1] == '-') rounded.exponent = -rounded.exponent;
  return rounded;
}

struct Style {
  const char* positivePrefix;  // " " for Str, "" for CStr
  bool keepLeadingZero;
  const std::string& decimal;
};

std::string ExponentForm(const RoundedDecimal& d, const std::string& decimal) {
  std::string text(1, d.digits[0]);
  if (d.digits.size() > 1) text += decimal + d.digits.substr(1);
  const int magnitude = std::abs(d.exponent);
  text += d.exponent < 0 ? "E-" : "E+";
  if (magnitude < 10) text += '0';
  text += std::to_string(magnitude);
  return text;
}

std::string FixedForm(const RoundedDecimal& d, const Style& style) {
  if (d.exponent < 0) {
    return (style.keepLeadingZero ? "0" : "") + style.decimal +
           std::string(-d.exponent - 1, '0') + d.digits;
  }
  const std::size_t integerDigits = d.exponent + 1;
  if (d.digits.size() <= integerDigits)
    return d.digits + std::string(integerDigits - d.digits.size(), '0');
  return d.digits.substr(0, integerDigits) + style.decimal + d.digits.substr(integerDigits);
}

std::string Format(double value, int significant, const Style& style) {
  if (std::isnan(value)) return "-1" + style.decimal + "#IND";
  const std::string sign = std::signbit(value) && value != 0 ? "-" : style.positivePrefix;
  if (std::isinf(value)) return sign + "1" + style.decimal + "#INF";
  const RoundedDecimal d = Round(value, significant);
  const bool exponentForm = d.exponent >= significant || d.exponent < -4;
  return sign + (exponentForm ? ExponentForm(d, style.decimal) : FixedForm(d, style));
}

const std::string kPoint = ".";

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
