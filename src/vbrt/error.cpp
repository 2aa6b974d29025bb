#include "vbrt/error.h"

namespace vbrt {
namespace {

const char* StandardDescription(int number) {
  switch (number) {
    case kOverflow: return "Overflow";
    case kSubscriptOutOfRange: return "Subscript out of range";
    case kDivisionByZero: return "Division by zero";
    case kTypeMismatch: return "Type mismatch";
    case kBadFileNameOrNumber: return "Bad file name or number";
    case kFileNotFound: return "File not found";
    case kBadFileMode: return "Bad file mode";
    case kFileAlreadyOpen: return "File already open";
    case kDeviceIoError: return "Device I/O error";
    case kFileAlreadyExists: return "File already exists";
    case kDiskFull: return "Disk full";
    case kInputPastEndOfFile: return "Input past end of file";
    case kPermissionDenied: return "Permission denied";
    case kPathFileAccessError: return "Path/File access error";
    case kPathNotFound: return "Path not found";
    case kResourceNotFound: return "Resource with identifier not found";
    case kInvalidPropertyValue: return "Invalid property value";
    case kKeyNotUnique: return "Key is not unique in collection";
    default: return "Application-defined or object-defined error";
  }
}

}  // namespace

void Raise(int number) { throw VbError(number, StandardDescription(number)); }

}  // namespace vbrt
