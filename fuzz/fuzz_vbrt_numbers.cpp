// The runtime's number conversions and the code page on arbitrary text. The first byte
// picks the locale (decimal point or decimal comma); the rest is the text.
//  - IsNumeric and CDbl agree: numeric text converts; other text is a type mismatch, or
//    an overflow when it is a number beyond the Double range, for CDbl and CInt alike.
//  - CInt of numeric text either fits or overflows.
//  - Str() of the converted value is numeric again and converts back to within its
//    15 significant digits (away from the ends of the Double range).
//  - Code page: once text has been through FromAnsi, ToAnsi and FromAnsi return it.
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "vbrt/codepage.h"
#include "vbrt/error.h"
#include "vbrt/numbers.h"

namespace {

int ErrorOf(void (*call)(std::string_view, const vbrt::NumberFormat&), std::string_view text,
            const vbrt::NumberFormat& format) {
  try {
    call(text, format);
    return 0;
  } catch (const vbrt::VbError& e) {
    return e.Number();
  }
}

void CheckNumbers(std::string_view text, const vbrt::NumberFormat& format) {
  const bool numeric = vbrt::IsNumeric(text, format);
  const int dblError = ErrorOf([](std::string_view t, const vbrt::NumberFormat& f) {
    vbrt::CDbl(t, f);
  }, text, format);
  const int intError = ErrorOf([](std::string_view t, const vbrt::NumberFormat& f) {
    vbrt::CInt(t, f);
  }, text, format);
  if (numeric != (dblError == 0)) std::abort();
  // Text that is no number is a type mismatch for both; a number beyond the Double range
  // is no number to IsNumeric but an overflow to both conversions.
  if (!numeric && (dblError != vbrt::kTypeMismatch && dblError != vbrt::kOverflow)) std::abort();
  if (!numeric && intError != dblError) std::abort();
  if (numeric && intError != 0 && intError != vbrt::kOverflow) std::abort();
  if (!numeric) return;

  const double value = vbrt::CDbl(text, format);
  const std::string str = vbrt::StrDouble(value);
  const vbrt::NumberFormat point;
  if (!vbrt::IsNumeric(str, point)) std::abort();
  // Near the ends of the Double range 15 digits do not lead back (rounding may even go
  // beyond the largest Double), so the comparison keeps to the range between.
  const double magnitude = std::fabs(value);
  if (magnitude < 1e300 && (magnitude > 1e-300 || value == 0)) {
    const double back = vbrt::CDbl(str, point);
    if (std::fabs(back - value) > magnitude * 1e-14) std::abort();
  }
  vbrt::CStr(value, format);
  vbrt::StrSingle(static_cast<float>(value));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const vbrt::NumberFormat comma{",", "."};
  const vbrt::NumberFormat& format = data[0] & 1 ? comma : vbrt::NumberFormat{};
  const std::string_view text(reinterpret_cast<const char*>(data + 1), size - 1);
  CheckNumbers(text, format);

  // The same bytes as the bits of a Double and a Single, when they are finite.
  if (text.size() >= sizeof(double)) {
    double value;
    std::memcpy(&value, text.data(), sizeof value);
    if (std::isfinite(value)) {
      const std::string str = vbrt::StrDouble(value);
      // The 15 digits of the largest Doubles round beyond the range: no number to read back.
      if (std::fabs(value) < 1e308 && !vbrt::IsNumeric(str, vbrt::NumberFormat{})) std::abort();
      vbrt::CStr(value, format);
      float single;
      std::memcpy(&single, text.data(), sizeof single);
      if (std::isfinite(single)) vbrt::StrSingle(single);
    }
  }

  const std::string utf8 = vbrt::FromAnsi(text);
  if (vbrt::FromAnsi(vbrt::ToAnsi(utf8)) != utf8) std::abort();
  vbrt::ToAnsi(text);
  return 0;
}
