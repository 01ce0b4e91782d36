// What befalls the launcher itself, at each of its moments.

#include "tests/app/fault_cell.h"

namespace tarvo {
namespace {

using enum Moment;

TEST(FaultTable, SessionEnds) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) {
                       c.launcher->AskForEndOfSession();
                       c.launcher->EndSession();
                     }},
             {
                 {{Grace, Watching, Frozen}, kClosed},
             });
}

TEST(FaultTable, LauncherKilled) {
  ExpectTold(
      FaultAt{FaultAt::TheServer, nullptr, [](FaultCell&) { throw LauncherKilled{}; }},
      {
          {{StartUp, Grace, Watching, Stopping, Restarting, AfterSwap, RandomizerWrite, Close},
           "Attention!, server components found in memory.\n"
           "= login char map\n"},
          {{Frozen},
           "Attention!, server components found in memory.\n"
           "Map server is freeze!... waiting...\n"
           "Shuting down Map...\n"
           "Map Server crashed, restarting...\n"
           "= login char map\n"},
          {{BeforeSwap, DuringSwap}, kAsEver},
      });
}

TEST(FaultTable, LauncherTwice) {
  ExpectTold(FaultAt{FaultAt::TheServer, nullptr,
                     [](FaultCell& c) {
                       Launcher second(c.machine);
                       second.Start(78);
                       EXPECT_TRUE(second.Ended());
                     }},
             NothingNew({
                 {{StartUp},
                  "box: Tarvo Launcher is already running in this server root.\n"
                  "= login char map\n"},
                 {{Close},
                  "box: Please, stop servers before close this application\n"
                  "= login char map\n"},
             }));
}

}  // namespace
}  // namespace tarvo
