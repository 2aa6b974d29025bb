#pragma once
// Number <-> text conversions with the classic runtime's rules.
#include <cstdint>
#include <string>
#include <string_view>

namespace vbrt {

// The separators of the user's numeric locale. Captured once at start-up, before any
// library can change the process locale, and passed around explicitly.
struct NumberFormat {
  std::string decimal = ".";
  std::string group = ",";
};

// Reads LC_NUMERIC as the environment sets it (setlocale(LC_NUMERIC, "")) and restores
// the process locale afterwards. A locale without a group separator (such as "C") gets
// "," (or "." beside a decimal comma), as the classic runtime always has one.
NumberFormat CaptureUserNumberFormat();
// The format used by the defaulted arguments below; "." and "," until set.
const NumberFormat& UserNumberFormat();
void SetUserNumberFormat(NumberFormat format);

// Str(): the locale-independent classic text of a number. Non-negative values get one
// leading blank, the decimal point is ".", a zero before the point is dropped (" .5",
// "-.25"), 7 (Single) or 15 (Double) significant digits, exponent form "1E-05"/"1E+16"
// outside the fixed range.
std::string StrSingle(float value);
std::string StrDouble(double value);
std::string StrInteger(long long value);  // " 2", "-3"

// CStr() of a Double: the standard text, no leading blank, the locale's decimal
// separator, a zero before it kept ("1.5", "1000", "0.25", "-0.25"), 15 digits.
std::string CStr(double value, const NumberFormat& format = UserNumberFormat());

// IsNumeric(): accepts what the classic runtime accepts as a number under the locale:
// surrounding blanks, a sign, group separators after the first digit of the integer
// part, a decimal separator, an exponent ("E" or "D", optional sign), "&H"/"&O" forms.
// The empty text is not numeric, nor is a number beyond the Double range.
// "&H"/"&O" values are two's complement 16-bit when they fit ("&HFFFF" is -1), else
// 32-bit.
bool IsNumeric(std::string_view text, const NumberFormat& format = UserNumberFormat());

// CDbl(): the number IsNumeric accepts; throws VbError(kTypeMismatch) otherwise and
// VbError(kOverflow) beyond the Double range.
double CDbl(std::string_view text, const NumberFormat& format = UserNumberFormat());

// CInt(): 16-bit conversion with banker's rounding; kTypeMismatch for non-numeric text,
// kOverflow outside -32768..32767.
int16_t CInt(std::string_view text, const NumberFormat& format = UserNumberFormat());
int16_t CInt(double value);

// 16-bit Integer arithmetic whose overflow is an error (kOverflow).
int16_t AddInteger(int16_t a, int16_t b);

}  // namespace vbrt
