// What befalls a server, at each moment of the launcher.

#include "tests/app/fault_cell.h"

namespace tarvo {
namespace {

using enum Moment;

TEST(FaultTable, ProcessGone) {
  ExpectTold(FaultAt{FaultAt::TheServer, nullptr, AtTheMapServer([](FaultCell& c, SimProcess& map) {
                       c.machine.processes.Crash(map.id);
                     })},
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

TEST(FaultTable, AccessViolation) {
  ExpectTold(FaultAt{FaultAt::TheServer, nullptr, AtTheMapServer([](FaultCell& c, SimProcess& map) {
                       c.machine.processes.Fault(map.id);
                     })},
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

TEST(FaultTable, ProcessKilled) {
  ExpectTold(FaultAt{FaultAt::TheServer, nullptr, AtTheMapServer([](FaultCell& c, SimProcess& map) {
                       map.program.dyingTime = 300;
                       c.machine.processes.End(map.id);
                     })},
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
  ExpectTold(FaultAt{FaultAt::TheServer, nullptr, AtTheMapServer([](FaultCell& c, SimProcess& map) {
                       c.machine.processes.CloseWindows(map.id);
                     })},
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

TEST(FaultTable, ConsoleClosed) {
  ExpectTold(FaultAt{FaultAt::TheServer, nullptr, AtTheMapServer([](FaultCell& c, SimProcess& map) {
                       c.machine.processes.CloseWindows(map.id);
                       c.machine.processes.Crash(map.id);
                     })},
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
