// IsNumeric() and CDbl(): text to number under an explicit NumberFormat, independent of
// the process locale.
#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>

#include "vbrt/error.h"
#include "vbrt/numbers.h"

namespace vbrt {
namespace {

enum class Status { kOk, kNotNumeric, kOverflow };

struct Parsed {
  Status status = Status::kNotNumeric;
  double value = 0;
};

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool HasAt(std::string_view text, std::size_t pos, const std::string& token) {
  return !token.empty() && text.substr(pos, token.size()) == token;
}

std::string_view TrimBlanks(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

int DigitValue(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return 99;
}

// "&H..." / "&O..." digits: read as a 16-bit value when they fit in 16 bits and as a
// 32-bit value otherwise, two's complement, so "&HFFFF" is -1 as in the runtime.
Parsed ParseRadix(std::string_view digits, int base) {
  if (digits.empty()) return {};
  std::uint64_t value = 0;
  bool tooBig = false;
  for (char c : digits) {
    const int digit = DigitValue(c);
    if (digit >= base) return {};
    value = value * base + digit;
    if (value > 0xFFFFFFFFu) {
      tooBig = true;
      value = 0;
    }
  }
  if (tooBig) return {Status::kOverflow, 0};
  if (value <= 0xFFFF) return {Status::kOk, static_cast<double>(static_cast<std::int16_t>(value))};
  return {Status::kOk, static_cast<double>(static_cast<std::int32_t>(value))};
}

// [sign] digits [group separators after digits] [decimal separator digits]
// [E|D [sign] digits]; at least one mantissa digit.
Parsed ParseDecimal(std::string_view text, const NumberFormat& format) {
  std::size_t i = 0;
  const std::size_t n = text.size();
  bool negative = false;
  if (i < n && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';

  std::string digits;
  long long integerDigits = 0;
  while (i < n) {
    if (IsDigit(text[i])) {
      digits += text[i++];
      ++integerDigits;
    } else if (HasAt(text, i, format.decimal)) {
      break;
    } else if (integerDigits > 0 && HasAt(text, i, format.group)) {
      i += format.group.size();
    } else {
      break;
    }
  }
  if (HasAt(text, i, format.decimal)) {
    i += format.decimal.size();
    while (i < n && IsDigit(text[i])) digits += text[i++];
  }
  if (digits.empty()) return {};

  long long exponent = 0;
  if (i < n && (text[i] == 'E' || text[i] == 'e' || text[i] == 'D' || text[i] == 'd')) {
    ++i;
    bool exponentNegative = false;
    if (i < n && (text[i] == '+' || text[i] == '-')) exponentNegative = text[i++] == '-';
    if (i == n || !IsDigit(text[i])) return {};
    while (i < n && IsDigit(text[i])) {
      // Saturate: anything this large is out of range either way.
      if (exponent < 1'000'000'000) exponent = exponent * 10 + (text[i] - '0');
      ++i;
    }
    if (exponentNegative) exponent = -exponent;
  }
  if (i != n) return {};

  const long long fractionDigits = static_cast<long long>(digits.size()) - integerDigits;
  const std::string normalised = (negative ? "-" : "") + digits + "e" +
                                 std::to_string(exponent - fractionDigits);
  Parsed parsed{Status::kOk, 0};
  const auto result = std::from_chars(normalised.data(), normalised.data() + normalised.size(),
                                      parsed.value);
  if (result.ec == std::errc::result_out_of_range) {
    // Too large is an overflow; too small is zero.
    const long long firstNonZero = static_cast<long long>(digits.find_first_not_of('0'));
    if (integerDigits - firstNonZero - 1 + exponent > 0) return {Status::kOverflow, 0};
    parsed.value = negative ? -0.0 : 0.0;
  } else if (result.ec != std::errc() || result.ptr != normalised.data() + normalised.size()) {
    return {};
  }
  return parsed;
}

Parsed Parse(std::string_view text, const NumberFormat& format) {
  text = TrimBlanks(text);
  if (text.size() >= 2 && text[0] == '&') {
    if (text[1] == 'H' || text[1] == 'h') return ParseRadix(text.substr(2), 16);
    if (text[1] == 'O' || text[1] == 'o') return ParseRadix(text.substr(2), 8);
  }
  return ParseDecimal(text, format);
}

}  // namespace

bool IsNumeric(std::string_view text, const NumberFormat& format) {
  return Parse(text, format).status == Status::kOk;
}

double CDbl(std::string_view text, const NumberFormat& format) {
  const Parsed parsed = Parse(text, format);
  if (parsed.status == Status::kNotNumeric) Raise(kTypeMismatch);
  if (parsed.status == Status::kOverflow) Raise(kOverflow);
  return parsed.value;
}

}  // namespace vbrt
