// What befalls the registry and the clocks, at each moment of the launcher.

#include "tests/app/fault_cell.h"

namespace tarvo {
namespace {

using enum Moment;

TEST(FaultTable, RegistryRefused) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) {
                       c.machine.registry.Deny(Hive::LocalMachine);
                       c.machine.registry.Deny(Hive::CurrentUser);
                     }},
             {
                 {{StartUp, Grace, Watching, Restarting, RandomizerWrite}, kAsEver},
                 {{Frozen}, kKilledAndRestarted},
                 {{Stopping}, kStopped},
                 {{BeforeSwap, DuringSwap}, kUpgraded},
                 {{AfterSwap}, kUpgradedNow},
                 {{Close}, kClosed},
             });
}

TEST(FaultTable, RegistryGarbage) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) {
                       for (const char* name : {"MapPri", "MapExe", "MapTimeout", "MapChkInterval",
                                                "LastRandomize", "UpdateMode", "MDATE"}) {
                         c.machine.SetSetting(name, "garbage");
                       }
                     }},
             {
                 {{StartUp},
                  "box: Run-time error '13':||Type mismatch||MapPri\n"
                  "= ended 1\n"},
                 {{Grace, Watching, Restarting, RandomizerWrite}, kAsEver},
                 {{Frozen}, kKilledAndRestarted},
                 {{Stopping}, kStopped},
                 {{BeforeSwap, DuringSwap}, kUpgraded},
                 {{AfterSwap}, kUpgradedNow},
                 {{Close}, kClosed},
             });
}

TEST(FaultTable, RegistryOtherType) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) {
                       for (const char* name : {"MapPri", "MapExe", "MapTimeout", "MapChkInterval",
                                                "LastRandomize", "UpdateMode", "MDATE"}) {
                         c.machine.registry.Put(Hive::LocalMachine, c.machine.SettingsKey(), name,
                                                {4, std::string("\1\0\0\0", 4)});
                       }
                     }},
             {
                 {{StartUp, Grace, Watching, Restarting, RandomizerWrite}, kAsEver},
                 {{Frozen}, kKilledAndRestarted},
                 {{Stopping}, kStopped},
                 {{BeforeSwap, DuringSwap}, kUpgraded},
                 {{AfterSwap}, kUpgradedNow},
                 {{Close}, kClosed},
             });
}

TEST(FaultTable, ClockForward) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) {
                       c.machine.clock.SetLocal(c.machine.clock.Now() + std::chrono::hours(30));
                     }},
             {
                 {{StartUp, Grace, Watching, Restarting, RandomizerWrite}, kAsEver},
                 {{Frozen}, kKilledAndRestarted},
                 {{Stopping}, kStopped},
                 {{BeforeSwap, DuringSwap}, kUpgraded},
                 {{AfterSwap}, kUpgradedNow},
                 {{Close}, kClosed},
             });
}

TEST(FaultTable, ClockBack) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) {
                       c.machine.clock.SetLocal(c.machine.clock.Now() - std::chrono::hours(30));
                     }},
             {
                 {{StartUp, Grace, Watching, Restarting, RandomizerWrite}, kAsEver},
                 {{Frozen}, kKilledAndRestarted},
                 {{Stopping}, kStopped},
                 {{BeforeSwap, DuringSwap}, kUpgraded},
                 {{AfterSwap}, kUpgradedNow},
                 {{Close}, kClosed},
             });
}

TEST(FaultTable, SummerTimeBegins) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) {
                       c.machine.clock.SetLocal(c.machine.clock.Now() + std::chrono::hours(1));
                     }},
             {
                 {{StartUp, Grace, Watching, Restarting, RandomizerWrite}, kAsEver},
                 {{Frozen}, kKilledAndRestarted},
                 {{Stopping}, kStopped},
                 {{BeforeSwap, DuringSwap}, kUpgraded},
                 {{AfterSwap}, kUpgradedNow},
                 {{Close}, kClosed},
             });
}

TEST(FaultTable, SummerTimeEnds) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) {
                       c.machine.clock.SetLocal(c.machine.clock.Now() - std::chrono::hours(1));
                     }},
             {
                 {{StartUp, Grace, Watching, Restarting, RandomizerWrite}, kAsEver},
                 {{Frozen}, kKilledAndRestarted},
                 {{Stopping}, kStopped},
                 {{BeforeSwap, DuringSwap}, kUpgraded},
                 {{AfterSwap}, kUpgradedNow},
                 {{Close}, kClosed},
             });
}

TEST(FaultTable, TickCountWraps) {
  ExpectTold(
      FaultAt{FaultAt::TheRest, [](FaultCell& c) { c.machine.clock.SetTicks(0x100000000 - 24000); },
              [](FaultCell&) {}},
      {
          {{StartUp, Grace, Watching, Restarting, RandomizerWrite}, kAsEver},
          {{Frozen}, "= login char map?\n"},
          {{Stopping}, kStopped},
          {{BeforeSwap, DuringSwap}, kUpgraded},
          {{AfterSwap}, kUpgradedNow},
          {{Close}, kClosed},
      });
}

}  // namespace
}  // namespace tarvo
