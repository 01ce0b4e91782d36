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

[[noreturn]] void Raise(const std::string& what, const CopyFault& fault) {
  throw RuntimeError(NumberFor(fault.trouble), what + ": " + fault.reason.description +
                                                   " (system error " +
                                                   std::to_string(fault.reason.number) + ")");
}

}  // namespace

void PatientCopies::CopyOver(const std::string& source, const std::string& target) {
  const std::uint32_t begun = clock_.Milliseconds();
  for (;;) {
    const auto fault = copies_.CopyOver(source, target);
    if (!fault) return;
    const bool patient =
        fault->trouble == FileTrouble::Held && clock_.Milliseconds() - begun < kLongestHold;
    if (!patient) Raise("Copying " + source + " to " + target, *fault);
    clock_.Pause(kBetweenTries);
  }
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
