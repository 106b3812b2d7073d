#include "platform/RuntimeError.h"

namespace quorvel {

const char* FailureText(Failure failure) {
  switch (failure) {
    case Failure::InvalidCall:
      return "Invalid procedure call or argument";
    case Failure::Overflow:
      return "Overflow";
    case Failure::OutOfMemory:
      return "Out of memory";
    case Failure::SubscriptOutOfRange:
      return "Subscript out of range";
    case Failure::DivisionByZero:
      return "Division by zero";
    case Failure::TypeMismatch:
      return "Type mismatch";
    case Failure::FileNotFound:
      return "File not found";
    case Failure::DiskFull:
      return "Disk full";
    case Failure::PermissionDenied:
      return "Permission denied";
    case Failure::PathFileAccess:
      return "Path/File access error";
    case Failure::PathNotFound:
      return "Path not found";
    case Failure::NoSuchElement:
      return "Control array element does not exist";
    case Failure::ElementExists:
      return "Object already loaded";
    case Failure::InvalidProperty:
      return "Invalid property value";
    case Failure::PrinterError:
      return "Printer error";
    case Failure::Cancel:
      return "Cancel was selected";
  }
  return "Application-defined error";
}

}  // namespace quorvel
