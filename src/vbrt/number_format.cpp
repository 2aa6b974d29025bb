#include <clocale>
#include <string>
#include <utility>

#include "vbrt/numbers.h"

namespace vbrt {
namespace {

NumberFormat& CurrentFormat() {
  static NumberFormat format;
  return format;
}

}  // namespace

NumberFormat CaptureUserNumberFormat() {
  NumberFormat format;
  const char* previous = std::setlocale(LC_NUMERIC, nullptr);
  const std::string saved = previous ? previous : "C";
  if (std::setlocale(LC_NUMERIC, "")) {
    const std::lconv* conventions = std::localeconv();
    if (conventions->decimal_point && *conventions->decimal_point)
      format.decimal = conventions->decimal_point;
    format.group = conventions->thousands_sep ? conventions->thousands_sep : "";
  }
  std::setlocale(LC_NUMERIC, saved.c_str());
  // The classic runtime always has a group separator; the "C" locale defines none, so
  // take the usual partner of the decimal separator.
  if (format.group.empty()) format.group = format.decimal == "," ? "." : ",";
  return format;
}

const NumberFormat& UserNumberFormat() { return CurrentFormat(); }

void SetUserNumberFormat(NumberFormat format) { CurrentFormat() = std::move(format); }

}  // namespace vbrt
