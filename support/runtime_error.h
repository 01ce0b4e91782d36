#pragma once

#include <stdexcept>
#include <string>

namespace tarvo {

/// Numbers of the faults that the program's run time knows by itself.
/// Sources of the texts: the classic run-time error list of Windows Basic programs, which operators
/// of such servers recognise and search the web for.
enum class Fault : int {
  InvalidProcedureCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  TypeMismatch = 13,
  InternalError = 51,
  FileNotFound = 53,
  DiskFull = 61,
  PermissionDenied = 70,
  PathFileAccess = 75,
  InvalidPropertyValue = 380,
};

/// A fault of the run time: a text that is no number, an overflow, a missing file at launch, a name
/// that a setter refuses. It carries a number, a source (the object or operation that raised it,
/// may be empty) and a description. It is caught in one place, at the top of the event dispatch,
/// which shows it and ends the program; whoever catches it elsewhere says why.
class RuntimeError : public std::runtime_error {
 public:
  RuntimeError(int number, std::string source, const std::string& description)
      : std::runtime_error(description), number_(number), source_(std::move(source)) {}

  /// A fault with the run time's own description.
  explicit RuntimeError(Fault fault, std::string source = {});

  int Number() const { return number_; }
  const std::string& Source() const { return source_; }
  std::string Description() const { return what(); }

 private:
  int number_;
  std::string source_;
};

/// Runs the work; a fault that it raises names as its source what the operator has to correct: a
/// setting, a line of a file.
template <class Work>
auto NamingSource(const std::string& source, Work work) {
  try {
    return work();
  } catch (const RuntimeError& fault) {
    throw RuntimeError(fault.Number(), source, fault.Description());
  }
}

/// The run time's own description of a fault, for example "Type mismatch".
const char* DescriptionOf(Fault fault);

}  // namespace tarvo
