// What befalls the ports of a server and its name, at each moment of the launcher.

#include <functional>
#include <utility>

#include "tests/app/fault_cell.h"

namespace tarvo {
namespace {

using enum Moment;

/// What is told of every way in which a server that lives does not answer.
void ExpectAFreeze(std::function<void(FaultCell&, SimProcess&)> fault) {
  ExpectTold(FaultAt{FaultAt::TheServer, nullptr, AtTheMapServer(std::move(fault))},
             {
                 {{StartUp, Grace, Watching, Restarting, RandomizerWrite}, kFrozenAndRestarted},
                 {{Frozen}, kKilledAndRestarted},
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

TEST(FaultTable, PortClosed) {
  ExpectAFreeze([](FaultCell&, SimProcess& map) { map.answer = PortAnswer::Refuses; });
}

TEST(FaultTable, QueueFull) {
  ExpectAFreeze([](FaultCell&, SimProcess& map) { map.answer = PortAnswer::NobodyAccepts; });
}

TEST(FaultTable, SilentHost) {
  ExpectAFreeze([](FaultCell&, SimProcess& map) { map.answer = PortAnswer::TimesOut; });
}

TEST(FaultTable, DeadNameServer) {
  ExpectTold(FaultAt{FaultAt::TheRest,
                     [](FaultCell& c) {
                       c.machine.PutConf("C:\\srv", UsualCharConf(),
                                         "map_ip: game.example\r\nmap_port: 5121\r\n");
                       c.machine.network.AddServedName("game.example", {127, 0, 0, 1});
                     },
                     [](FaultCell& c) {
                       c.machine.network.SetNameServerDelay(SimNetwork::kDeadNameServer);
                     }},
             NothingNew({
                 {{StartUp, Grace},
                  "Map server is freeze!... waiting... x3\n"
                  "Shuting down Map... x2\n"
                  "Map Server crashed, restarting... x2\n"
                  "= login char map\n"},
             }));
}

TEST(FaultTable, LateListener) {
  ExpectTold(
      FaultAt{FaultAt::TheRest, nullptr,
              [](FaultCell& c) { c.machine.processes.Program(kMap).portOpensAfter = 15000; }},
      {
          {{StartUp, Restarting},
           "Map server is freeze!... waiting...\n"
           "= login char map\n"},
          {{Grace, Watching, RandomizerWrite}, kAsEver},
          {{Frozen},
           "Shuting down Map...\n"
           "Map Server crashed, restarting...\n"
           "Map server is freeze!... waiting...\n"
           "= login char map\n"},
          {{Stopping}, kStopped},
          {{BeforeSwap, DuringSwap},
           "Starting Login Server...\n"
           "Starting Char Server...\n"
           "Starting Map Server...\n"
           "Map server is freeze!... waiting...\n"
           "box: Upgrade was succesfull!\n"
           "= login char map\n"},
          {{AfterSwap},
           "Map server is freeze!... waiting...\n"
           "box: Upgrade was succesfull!\n"
           "= login char map\n"},
          {{Close}, kClosed},
      });
}

}  // namespace
}  // namespace tarvo
