// What befalls the executable of a server, at each moment of the launcher.

#include "tests/app/fault_cell.h"

namespace tarvo {
namespace {

using enum Moment;

TEST(FaultTable, SameNameElsewhere) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) { c.machine.processes.StartForeign(kMap, "D:\\other\\"); }},
             NothingNew({
                 {{StartUp},
                  "Attention!, server components found in memory.\n"
                  "= login char map\n"},
             }));
}

TEST(FaultTable, ExecutableLocked) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) {
                       c.machine.processes.Program(kMap).launchFault = FileInUse();
                       c.machine.files.Hold("C:\\srv\\map-server.exe", SimFiles::kForGood);
                     }},
             NothingNew({
                 {{StartUp, Restarting},
                  "[map-server.exe] can't be started: The process cannot access the file because "
                  "it is being used by another process (system error 32) x19\n"
                  "Map Server crashed, restarting... x18\n"
                  "= login char\n"},
                 {{Frozen},
                  "Shuting down Map...\n"
                  "Map Server crashed, restarting... x14\n"
                  "[map-server.exe] can't be started: The process cannot access the file because "
                  "it is being used by another process (system error 32) x14\n"
                  "= login char\n"},
                 {{BeforeSwap},
                  "box: Run-time error '70':||Permission denied||Copying C:\\new\\map-server.exe "
                  "to C:\\srv\\map-server.exe: The file is in use (system error 32)\n"
                  "= ended 1\n"},
                 {{DuringSwap},
                  "Starting Login Server...\n"
                  "Starting Char Server...\n"
                  "Starting Map Server...\n"
                  "[map-server.exe] can't be started: The process cannot access the file because "
                  "it is being used by another process (system error 32) x19\n"
                  "Map Server crashed, restarting... x18\n"
                  "box: Upgrade was succesfull!\n"
                  "= login char\n"},
                 {{AfterSwap},
                  "[map-server.exe] can't be started: The process cannot access the file because "
                  "it is being used by another process (system error 32) x19\n"
                  "Map Server crashed, restarting... x18\n"
                  "box: Upgrade was succesfull!\n"
                  "= login char\n"},
             }));
}

TEST(FaultTable, ExecutableMissing) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) { c.machine.files.Remove("C:\\srv\\map-server.exe"); }},
             NothingNew({
                 {{StartUp},
                  "box: Please, select the right servers from the list\n"
                  "=\n"},
                 {{Frozen},
                  "Shuting down Map...\n"
                  "Map Server crashed, restarting...\n"
                  "box: Run-time error '53':||File not found||C:\\srv\\map-server.exe\n"
                  "= ended 1\n"},
                 {{Restarting, AfterSwap},
                  "box: Run-time error '53':||File not found||C:\\srv\\map-server.exe\n"
                  "= ended 1\n"},
                 {{BeforeSwap},
                  "box: Run-time error '53':||File not found||Copying C:\\srv\\map-server.exe to "
                  "C:\\srv\\LBackup\\202611211000_map-server.exe: File not found (system error 2)\n"
                  "= ended 1\n"},
             }));
}

TEST(FaultTable, ExecutableCutOff) {
  ExpectTold(FaultAt{FaultAt::TheRest, nullptr,
                     [](FaultCell& c) {
                       c.machine.processes.Program(kMap).launchFault =
                           FileFault{193, "%1 is not a valid Win32 application"};
                     }},
             {
                 {{StartUp, Restarting},
                  "[map-server.exe] can't be started: %1 is not a valid Win32 application (system "
                  "error 193) x19\n"
                  "Map Server crashed, restarting... x18\n"
                  "= login char\n"},
                 {{Grace, Watching, RandomizerWrite}, kAsEver},
                 {{Frozen},
                  "Shuting down Map...\n"
                  "Map Server crashed, restarting... x14\n"
                  "[map-server.exe] can't be started: %1 is not a valid Win32 application (system "
                  "error 193) x14\n"
                  "= login char\n"},
                 {{Stopping}, kStopped},
                 {{BeforeSwap, DuringSwap},
                  "Starting Login Server...\n"
                  "Starting Char Server...\n"
                  "Starting Map Server...\n"
                  "[map-server.exe] can't be started: %1 is not a valid Win32 application (system "
                  "error 193) x19\n"
                  "Map Server crashed, restarting... x18\n"
                  "box: Upgrade was succesfull!\n"
                  "= login char\n"},
                 {{AfterSwap},
                  "[map-server.exe] can't be started: %1 is not a valid Win32 application (system "
                  "error 193) x19\n"
                  "Map Server crashed, restarting... x18\n"
                  "box: Upgrade was succesfull!\n"
                  "= login char\n"},
                 {{Close}, kClosed},
             });
}

}  // namespace
}  // namespace tarvo
