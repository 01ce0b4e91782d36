#pragma once

#include <optional>
#include <string>

namespace tarvo::sample {

/// "login", "char" or "map", by the beginning of this program's own file name; nothing when it
/// begins otherwise.
std::optional<std::string> OwnRole();

/// The role's own port from its conf file under the current folder (`login_port:` in
/// conf/login_athena.conf and so on; the last one counts). Nothing when file or port are missing.
std::optional<unsigned short> OwnPort(const std::string& role);

/// How a server behaves for as long as it runs: the lines of `<role>-server.behaviour` in the
/// current folder. No file: an honest server. Lines that are none of these are ignored.
struct Behaviour {
  bool dieAtStart = false;   ///< `die-at-start`: crashes before it opens window or port.
  bool refuseToDie = false;  ///< `refuse-to-die`: denies other programs the right to end it.
  unsigned startDelay = 0;   ///< `start-delay N`: N milliseconds pass before it listens.
};
Behaviour ReadBehaviour(const std::string& role);

/// Leaves `text` as a line in `<role>-server.err` in the current folder.
void ReportFault(const std::string& role, const std::string& text);

}  // namespace tarvo::sample
