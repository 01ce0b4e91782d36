#include "upgrade/patient_copies.h"

#include "support/date_time.h"
#include "support/runtime_error.h"

namespace tarvo {
namespace {

Fault NumberFor(FileTrouble trouble) {
  switch (trouble) {
    case FileTrouble::Missing:
      return Fault::FileNotFound;
    case FileTrouble::DiskFull:
      return Fault::DiskFull;
    case FileTrouble::Held:
      return Fault::PermissionDenied;
    case FileTrouble::Refused:
      break;
  }
  return Fault::PathFileAccess;
}

[[noreturn]] void Raise(const std::string& what, const FileFault& fault) {
  throw RuntimeError(NumberFor(fault.trouble), what + ": " + WordsOf(fault));
}

}  // namespace

void PatientCopies::CopyOver(const std::string& source, const std::string& target) {
  const auto fault = patience_.Try([&] { return copies_.CopyOver(source, target); });
  if (fault) Raise("Copying " + source + " to " + target, *fault);
}

void PatientCopies::MakeFolder(const std::string& path) {
  if (const auto fault = copies_.MakeFolder(path)) Raise("Creating the folder " + path, *fault);
}

std::string PatientCopies::DateText(const std::string& path) {
  std::chrono::sys_seconds time{};
  if (const auto fault = copies_.ReadLastModified(path, time)) {
    Raise("Reading the date of " + path, *fault);
  }
  return GeneralDate(LocalTime(time.time_since_epoch()));
}

}  // namespace tarvo
