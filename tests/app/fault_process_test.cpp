// What befalls a server, at each moment of the launcher.

#include <functional>
#include <utility>

#include "tests/app/fault_cell.h"

namespace tarvo {
namespace {

using enum Moment;

/// What is told of every way in which a server is gone.
void ExpectACrash(std::function<void(FaultCell&, SimProcess&)> fault) {
  ExpectTold(FaultAt{FaultAt::TheServer, nullptr, AtTheMapServer(std::move(fault))},
             {
                 {{StartUp, Grace, Watching, Frozen, Restarting, RandomizerWrite}, kRestarted},
                 {{Stopping}, kStopped},
                 {{AfterSwap},
                  "Map Server crashed, restarting...\n"
                  "box: Upgrade was succesfull!\n"
                  "= login char map\n"},
                 {{Close},
                  "Map Server crashed, restarting...\n"
                  "box: Please, stop servers before close this application\n"
                  "= login char map\n"},
             });
}

TEST(FaultTable, ProcessGone) {
  ExpectACrash([](FaultCell& c, SimProcess& map) { c.machine.processes.Crash(map.id); });
}

TEST(FaultTable, AccessViolation) {
  ExpectACrash([](FaultCell& c, SimProcess& map) { c.machine.processes.Fault(map.id); });
}

TEST(FaultTable, ProcessKilled) {
  ExpectACrash([](FaultCell& c, SimProcess& map) {
    map.program.dyingTime = 300;
    c.machine.processes.End(map.id);
  });
}

TEST(FaultTable, ProcessSuspended) {
  ExpectTold(
      FaultAt{FaultAt::TheServer, nullptr, AtTheMapServer([](FaultCell&, SimProcess& map) {
                map.hangs = true;
                map.answer = PortAnswer::NobodyAccepts;
                map.queueRoom = 2;
              })},
      {
          {{StartUp, Grace, Watching, Frozen, Restarting, RandomizerWrite}, kFrozenAndRestarted},
          {{Stopping}, kStopped},
          {{AfterSwap},
           "Map server is freeze!... waiting...\n"
           "Shuting down Map...\n"
           "Map Server crashed, restarting...\n"
           "box: Upgrade was succesfull!\n"
           "= login char map\n"},
          {{Close},
           "Map server is freeze!... waiting...\n"
           "Shuting down Map...\n"
           "Map Server crashed, restarting...\n"
           "box: Please, stop servers before close this application\n"
           "= login char map\n"},
      });
}

TEST(FaultTable, WindowGone) {
  ExpectACrash([](FaultCell& c, SimProcess& map) { c.machine.processes.CloseWindows(map.id); });
}

TEST(FaultTable, ConsoleClosed) {
  ExpectACrash([](FaultCell& c, SimProcess& map) {
    c.machine.processes.CloseWindows(map.id);
    c.machine.processes.Crash(map.id);
  });
}

TEST(FaultTable, DiesAtOnce) {
  ExpectTold(FaultAt{FaultAt::TheServer, nullptr, AtTheMapServer([](FaultCell& c, SimProcess& map) {
                       c.machine.processes.Program(kMap).diesAtOnce = true;
                       c.machine.processes.Crash(map.id);
                     })},
             {
                 {{StartUp, Grace, Watching, Frozen, Restarting, RandomizerWrite},
                  "Map Server crashed, restarting... x18\n"
                  "= login char map?\n"},
                 {{Stopping}, kStopped},
                 {{AfterSwap},
                  "Map Server crashed, restarting... x18\n"
                  "box: Upgrade was succesfull!\n"
                  "= login char map?\n"},
                 {{Close},
                  "Map Server crashed, restarting... x18\n"
                  "box: Please, stop servers before close this application\n"
                  "= login char map?\n"},
             });
}

TEST(FaultTable, RefusesToDie) {
  ExpectTold(FaultAt{FaultAt::TheServer, nullptr, AtTheMapServer([](FaultCell&, SimProcess& map) {
                       map.program.refusesToDie = true;
                     })},
             {
                 {{StartUp, Grace, Watching, Restarting, RandomizerWrite}, kAsEver},
                 {{Frozen},
                  "Shuting down Map...\n"
                  "= login char map?\n"},
                 {{Stopping},
                  "[map-server.exe] refuses to end, still in memory!\n"
                  "= login char\n"},
                 {{AfterSwap}, kUpgradedNow},
                 {{Close},
                  "box: Please, stop servers before close this application\n"
                  "= login char map\n"},
             });
}

}  // namespace
}  // namespace tarvo
