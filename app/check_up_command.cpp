#include "app/check_up_command.h"

namespace tarvo {
namespace {

constexpr std::uint16_t kUsualVersion = 0x0202;

/// Keeps the sockets library started.
class SocketsInUse {
 public:
  explicit SocketsInUse(Sockets& sockets)
      : sockets_(sockets), started_(sockets.Start(kUsualVersion) == 0) {}
  ~SocketsInUse() {
    if (started_) sockets_.Stop();
  }
  SocketsInUse(const SocketsInUse&) = delete;
  SocketsInUse& operator=(const SocketsInUse&) = delete;

 private:
  Sockets& sockets_;
  bool started_;
};

}  // namespace

CheckUpPorts CheckUpPortsOf(const Machine& machine) {
  return {machine.registry,          machine.fileReader,     machine.folderLister,
          machine.fileDiagnosis,     machine.fileInspection, machine.processes,
          machine.processInspection, machine.foreignWindows, machine.networkInspection,
          machine.sockets,           machine.codePage,       machine.localClock};
}

CheckUpAnswer CheckFromOutside(const Machine& machine, bool json) {
  const ServerRoot root(machine.executablePath, machine.codePage);
  machine.workingFolder.MoveInto(root.WithSeparator());
  const SocketsInUse sockets(machine.sockets);
  CheckUp checkUp(CheckUpPortsOf(machine), root, machine.executablePath, machine.pathInCodePage);
  checkUp.RunWhole();
  const Findings& found = checkUp.Found();
  return {json ? JsonOf(found, machine.codePage) + "\n" : TextOf(found), ExitCodeOf(found)};
}

}  // namespace tarvo
