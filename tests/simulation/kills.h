#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace tarvo {

/// What came of launchers that were killed.
struct KillCount {
  std::size_t calls = 0;          ///< Port calls of the life.
  std::size_t kills = 0;          ///< So many of them were a launcher's last.
  std::vector<std::string> lost;  ///< What was not as it should be after a kill, one text a kill.
  std::map<std::string, std::size_t> happened;  ///< In the life: see `BusyLife::Happened`.
};

/// Lives the busy life of that seed (see `BusyLife`), and at `kills` of its port calls or a few
/// more, spread evenly, or at every single one, kills the launcher before the call does anything.
/// Each kill happens in a forked copy of the program, so that nothing of the dead launcher ever
/// runs again, no destructor and no handler; the life itself goes on.
///
/// After each, every file must be an old whole one or a new whole one, and every stored setting a
/// value that it had at the end of some event; an upgrade that is remembered was done. Then a new
/// launcher is started on the same machine: after 90 seconds each server is under control, once,
/// and no second copy was ever started; what was stored is still stored when the session ends.
KillCount KillInLife(unsigned seed, std::size_t kills);
KillCount KillAtEveryCall(unsigned seed);

}  // namespace tarvo
