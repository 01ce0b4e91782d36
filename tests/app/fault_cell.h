#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/upgrade/upgrade_story.h"

namespace tarvo {

/// The moments of docs/faults.md.
enum class Moment {
  StartUp,
  Grace,
  Watching,
  Frozen,
  Stopping,
  Restarting,
  BeforeSwap,
  DuringSwap,
  AfterSwap,
  RandomizerWrite,
  Close,
};

/// One fault at one moment, on a machine of its own: all three servers are to run and all watches
/// are on, the map server is the one that the moment is about, and the fault strikes in the midst
/// of it. A minute and a half later the test looks at what the operator was told.
class FaultCell : public UpgradeStory {
 public:
  using Strike = std::function<void(FaultCell&)>;

  FaultCell();

  /// Something that is so before the launcher starts.
  FaultCell& With(const Strike& arrange);
  /// The fault befalls the map server itself: where one is being started, it strikes the new
  /// process, and a close is refused since servers run. Otherwise it strikes before the launch, and
  /// nothing runs at the close.
  FaultCell& OnServer();
  /// Comes to the moment, lets the fault strike and 90 seconds pass. Gives what the operator was
  /// told since then, a line each with its number when it came more than once: the log but for its
  /// everyday lines, the texts of boxes ("box: text" with "|" between their lines), and at the end
  /// who is under control ("= login char map", with "?" behind who does not listen), or with what
  /// code the launcher has ended. A launcher that was killed is started again, and the operator
  /// presses "Start" there.
  std::string Play(Moment moment, const Strike& strike);

  /// What holds at the end of each cell: no executable of this root runs twice, the launcher runs
  /// on (or has ended by itself), a server whose crash watch is on is known, and each file of the
  /// root is whole: as it was, or as it was to become. Nothing, or what is wrong.
  std::string Wrong();

  /// The map server's process; 0 when there is none.
  ProcessId MapOrNone();
  using LauncherStory::launcher;
  using LauncherStory::machine;
  using LauncherStory::Process;

 private:
  void TestBody() override {}
  void StrikeAt(const std::string& call, const Strike& strike);
  void Reach(Moment moment, const Strike& strike);

  std::string Told();
  std::string ShownBoxes();
  std::string AtTheEnd();

  bool struck_ = false;
  bool onServer_ = false;
};

/// What many cells end with; see FaultCell::Play.
inline constexpr char kUpgraded[] =
    "Starting Login Server...\n"
    "Starting Char Server...\n"
    "Starting Map Server...\n"
    "box: Upgrade was succesfull!\n"
    "= login char map\n";
inline constexpr char kUpgradedNow[] =
    "box: Upgrade was succesfull!\n"
    "= login char map\n";
inline constexpr char kFrozenAndRestarted[] =
    "Map server is freeze!... waiting...\n"
    "Shuting down Map...\n"
    "Map Server crashed, restarting...\n"
    "= login char map\n";
inline constexpr char kKilledAndRestarted[] =
    "Shuting down Map...\n"
    "Map Server crashed, restarting...\n"
    "= login char map\n";
inline constexpr char kRestarted[] =
    "Map Server crashed, restarting...\n"
    "= login char map\n";
inline constexpr char kStopped[] = "= login char\n";
inline constexpr char kAsEver[] = "= login char map\n";
inline constexpr char kClosed[] = "= ended 0\n";

/// A fault of the table: what it befalls, what is so before the launcher starts, and the fault.
struct FaultAt {
  enum Whom { TheServer, TheRest };
  Whom whom = TheRest;
  FaultCell::Strike before;
  FaultCell::Strike strike;
};

/// A fault that befalls the map server, while there is one.
FaultCell::Strike AtTheMapServer(std::function<void(FaultCell&, SimProcess&)> fault);

/// What the operator is told at these moments.
struct ToldAt {
  std::vector<Moment> moments;
  std::string told;
};

/// The row of a fault with which all goes on as it does without any, but for these cells.
std::vector<ToldAt> NothingNew(std::vector<ToldAt> others = {});

/// Plays each cell of a fault's row.
void ExpectTold(const FaultAt& fault, const std::vector<ToldAt>& row);

}  // namespace tarvo
