// What is played, in this order. The build of the tests under Wine reads the names from here.
#include "tests/operator/acceptance/stories.h"
#include "tests/operator/acceptance/story.h"

namespace tarvo::acceptance {
namespace {

// clang-format off
constexpr Story kStories[] = {
    {"first_run", "defaults everywhere at the first start, and nothing started", FirstRun},
    {"settings_kept", "what was chosen is there again after a restart of the launcher", SettingsKept},
    {"start_stop", "one server started and stopped, then all, by the buttons", StartStop},
    {"start_elsewhere", "the same from another folder, below one with foreign letters", StartStop, true},
    {"crash_restart", "a server that crashes is back, again and again, and the others are left alone", CrashRestart},
    {"server_fault", "so is one that dies of an access violation", ServerFault},
    {"dies_at_start", "one that dies at each start is started until the operator stops it", DiesAtStart},
    {"refuses_to_die", "a server that cannot be ended is told, and the window lives", RefusesToDie},
    {"no_numbers", "a port, a setting or a time that is no number is a fault that is told", NoNumbers},
    {"start_refused", "what the start button refuses, and what it then does not start", StartRefused},
    {"console_window", "a console program as a server: hidden, and watched as any other", ConsoleServer},
    {"freeze_killed", "a server that has closed its port is killed after its seconds and started anew", FreezeKilled},
    {"freeze_returns", "one that answers again in time is left alone", FreezeReturns},
    {"freeze_queue_full", "a server with a full queue is noticed and replaced in time", FreezeQueueFull},
    {"late_listener", "one that listens later than expected is told, and left alone", LateListener},
    {"silent_address", "the tool tips tell why a probe failed: closed, silent, unknown", SilentAddress},
    {"auto_start", "servers start with the launcher; the next one adopts them and starts none twice", AutoStart},
    {"unload_and_adopt", "the launcher is unloaded alone, and a new one takes the servers under control", UnloadAndAdopt},
    {"second_launcher", "a second launcher shows the first one's window and ends", SecondLauncher},
    {"start_minimized", "a launcher that starts hidden works, and is shown by a second one", StartMinimized},
    {"log_file", "the day's file holds the lines of the chosen level; one that cannot be written stops nothing", LogFile},
    {"start_up_entry", "\"Start with Windows\" writes its entry and takes it away", StartUpEntry},
    {"tray_icon", "the icon hides and shows the window, by a double click and by its menu", TrayIcon},
    {"pages_by_keyboard", "every page is reached by the keyboard", PagesByKeyboard},
    {"texts_whole", "nothing is cut, overlaps or lacks a name in this machine's font and scale", TextsWhole},
    {"high_contrast", "high contrast shows the system's colours", HighContrast},
    {"randomizer_now", "\"Randomize Now!\" draws what has a range and leaves every other byte", RandomizerNow},
    {"randomizer_map_start", "a map server's start randomizes, as often as was chosen", RandomizerMapStart},
    {"randomizer_calendar", "an entry that falls due randomizes once and restarts what runs", RandomizerCalendar},
    {"upgrade_by_hand", "new builds, chosen, dropped and typed, replace the running servers", UpgradeByHand},
    {"upgrade_on_crash", "a crash is the moment of an upgrade, at the chosen server's and no other", UpgradeOnCrash},
    {"upgrade_held", "an executable that is held for a moment is waited for", UpgradeHeld},
};
// clang-format on

}  // namespace

std::span<const Story> Stories() { return kStories; }

}  // namespace tarvo::acceptance
