// What befalls the files of the root, at each moment of the launcher.

#include "tests/app/fault_cell.h"

namespace tarvo {
namespace {

using enum Moment;

TEST(FaultTable, DiskFull) {
  ExpectTold(FaultAt{FaultAt::TheRest, [](FaultCell& c) { c.machine.SetSetting("WriteLog", "1"); },
                     [](FaultCell& c) { c.machine.files.FillDisk(); }},
             NothingNew({
                 {{BeforeSwap},
                  "box: Run-time error '61':||Disk full||Copying C:\\srv\\map-server.exe to "
                  "C:\\srv\\LBackup\\202611211000_map-server.exe: There is not enough space on the "
                  "disk (system error 112)\n"
                  "= ended 1\n"},
                 {{RandomizerWrite},
                  "Can't write C:\\srv\\conf\\battle_athena.conf file.\n"
                  "= login char map\n"},
             }));
}

TEST(FaultTable, ReadOnlyRoot) {
  ExpectTold(
      FaultAt{FaultAt::TheRest, [](FaultCell& c) { c.machine.SetSetting("WriteLog", "1"); },
              [](FaultCell& c) {
                c.machine.copies.DenyWriting("C:\\srv");
                c.machine.files.RefuseAppends(true);
                for (const char* name :
                     {"conf\\battle_athena.conf", "randomize.xml", "rndcalendar.xml"}) {
                  c.machine.files.ProtectFromWriting(std::string("C:\\srv\\") + name);
                }
              }},
      NothingNew({
          {{BeforeSwap},
           "box: Run-time error '75':||Path/File access error||Copying C:\\srv\\map-server.exe to "
           "C:\\srv\\LBackup\\202611211000_map-server.exe: Access is denied (system error 5)\n"
           "= ended 1\n"},
          {{RandomizerWrite},
           "Can't write C:\\srv\\conf\\battle_athena.conf file.\n"
           "= login char map\n"},
      }));
}

TEST(FaultTable, LogLocked) {
  ExpectTold(FaultAt{FaultAt::TheRest, [](FaultCell& c) { c.machine.SetSetting("WriteLog", "1"); },
                     [](FaultCell& c) { c.machine.files.RefuseAppends(true); }},
             NothingNew());
}

TEST(FaultTable, ConfGone) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) {
                       c.machine.files.Remove("C:\\srv\\conf\\map_athena.conf");
                       c.machine.files.Remove("C:\\srv\\conf\\battle_athena.conf");
                     }},
             NothingNew({
                 {{StartUp},
                  "box: C:\\srv\\map_athena.conf file can't be loaded\n"
                  "= ended 2\n"},
                 {{Frozen},
                  "Shuting down Map...\n"
                  "Map Server crashed, restarting... x14\n"
                  "= login char map?\n"},
                 {{Restarting},
                  "Map Server crashed, restarting... x18\n"
                  "= login char map?\n"},
                 {{BeforeSwap, DuringSwap},
                  "Starting Login Server...\n"
                  "Starting Char Server...\n"
                  "Starting Map Server...\n"
                  "Map Server crashed, restarting... x18\n"
                  "box: Upgrade was succesfull!\n"
                  "= login char map?\n"},
                 {{AfterSwap},
                  "Map Server crashed, restarting... x18\n"
                  "box: Upgrade was succesfull!\n"
                  "= login char map?\n"},
             }));
}

TEST(FaultTable, ConfBeingWritten) {
  ExpectTold(
      FaultAt{FaultAt::TheRest, nullptr,
              [](FaultCell& c) {
                for (const char* name : {"map_athena.conf", "battle_athena.conf"}) {
                  c.machine.files.LockForReading(std::string("C:\\srv\\conf\\") + name);
                  c.machine.files.Hold(std::string("C:\\srv\\conf\\") + name, 3000);
                }
              }},
      NothingNew({
          {{StartUp},
           "box: C:\\srv\\map_athena.conf file can't be loaded|C:\\srv\\conf\\map_athena.conf "
           "can't be read: Access is denied (system error 5)\n"
           "= ended 2\n"},
      }));
}

TEST(FaultTable, SetCutOff) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) {
                       c.machine.files.Put("C:\\srv\\randomize.xml", "<Randomize><base");
                     }},
             NothingNew());
}

}  // namespace
}  // namespace tarvo
