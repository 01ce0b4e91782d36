// What befalls the registry and the clocks, at each moment of the launcher.

#include <chrono>

#include "tests/app/fault_cell.h"

namespace tarvo {
namespace {

using enum Moment;
using namespace std::chrono_literals;

constexpr const char* kRead[] = {"MapPri",        "MapExe",     "MapTimeout", "MapChkInterval",
                                 "LastRandomize", "UpdateMode", "MDATE"};

FaultAt ClockMoves(std::chrono::hours by) {
  return {FaultAt::TheRest, nullptr,
          [by](FaultCell& c) { c.machine.clock.SetLocal(c.machine.clock.Now() + by); }};
}

TEST(FaultTable, RegistryRefused) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) {
                       c.machine.registry.Deny(Hive::LocalMachine);
                       c.machine.registry.Deny(Hive::CurrentUser);
                     }},
             NothingNew());
}

TEST(FaultTable, RegistryGarbage) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) {
                       for (const char* name : kRead) {
                         c.machine.SetSetting(name, "garbage");
                       }
                     }},
             NothingNew({
                 {{StartUp},
                  "box: Run-time error '13':||Type mismatch||MapPri\n"
                  "= ended 1\n"},
             }));
}

TEST(FaultTable, RegistryOtherType) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) {
                       for (const char* name : kRead) {
                         c.machine.registry.Put(Hive::LocalMachine, c.machine.SettingsKey(), name,
                                                {4, std::string("\1\0\0\0", 4)});
                       }
                     }},
             NothingNew());
}

TEST(FaultTable, ClockForward) { ExpectTold(ClockMoves(30h), NothingNew()); }

TEST(FaultTable, ClockBack) { ExpectTold(ClockMoves(-30h), NothingNew()); }

TEST(FaultTable, SummerTimeBegins) { ExpectTold(ClockMoves(1h), NothingNew()); }

TEST(FaultTable, SummerTimeEnds) { ExpectTold(ClockMoves(-1h), NothingNew()); }

TEST(FaultTable, TickCountWraps) {
  ExpectTold(
      FaultAt{FaultAt::TheRest, [](FaultCell& c) { c.machine.clock.SetTicks(0x100000000 - 24000); },
              [](FaultCell&) {}},
      NothingNew({
          {{Frozen}, "= login char map?\n"},
      }));
}

}  // namespace
}  // namespace tarvo
