#pragma once
// Run-time errors as the classic runtime raises them: a number and a description.
#include <stdexcept>
#include <string>
#include <utility>

namespace vbrt {

// Error numbers used across the program (the classic runtime's own numbers).
enum ErrorNumber : int {
  kOverflow = 6,
  kSubscriptOutOfRange = 9,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kBadFileNameOrNumber = 52,
  kFileNotFound = 53,
  kBadFileMode = 54,
  kFileAlreadyOpen = 55,
  kDeviceIoError = 57,
  kFileAlreadyExists = 58,
  kDiskFull = 61,
  kInputPastEndOfFile = 62,
  kPermissionDenied = 70,
  kPathFileAccessError = 75,
  kPathNotFound = 76,
  kInvalidPropertyValue = 380,
  kResourceNotFound = 326,
  kKeyNotUnique = 35602,
};

// The equivalent of the runtime's Err object; thrown by every operation that can fail
// the way the classic runtime or a platform object model fails.
class VbError : public std::runtime_error {
 public:
  VbError(int number, std::string description)
      : std::runtime_error(description), number_(number), description_(std::move(description)) {}
  int Number() const noexcept { return number_; }
  const std::string& Description() const noexcept { return description_; }

 private:
  int number_;
  std::string description_;
};

// Throws VbError with the runtime's standard description for `number` (numbers without
// one get "Application-defined or object-defined error").
[[noreturn]] void Raise(int number);

}  // namespace vbrt
