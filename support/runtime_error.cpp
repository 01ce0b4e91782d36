#include "support/runtime_error.h"

namespace tarvo {

RuntimeError::RuntimeError(Fault fault, std::string source)
    : RuntimeError(static_cast<int>(fault), std::move(source), DescriptionOf(fault)) {}

const char* DescriptionOf(Fault fault) {
  switch (fault) {
    case Fault::InvalidProcedureCall:
      return "Invalid procedure call or argument";
    case Fault::Overflow:
      return "Overflow";
    case Fault::OutOfMemory:
      return "Out of memory";
    case Fault::TypeMismatch:
      return "Type mismatch";
    case Fault::InternalError:
      return "Internal error";
    case Fault::FileNotFound:
      return "File not found";
    case Fault::DiskFull:
      return "Disk full";
    case Fault::PermissionDenied:
      return "Permission denied";
    case Fault::PathFileAccess:
      return "Path/File access error";
    case Fault::InvalidPropertyValue:
      return "Invalid property value";
  }
  return "Unknown fault";
}

}  // namespace tarvo
