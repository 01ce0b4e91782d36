#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <memory>

#include "tests/simulation/launcher.h"

namespace tarvo {

/// A test as a story: arrange the machine, start the launcher, act, let time pass, compare what the
/// operator would see.
class LauncherStory : public ::testing::Test {
 protected:
  /// The randomizer works by hand only, so that no server's start is told by it.
  LauncherStory() { machine.SetSetting("AutoRandomize", "1"); }

  /// Starts a launcher; one that ran before is killed.
  void StartLauncher() {
    launcher.reset();
    launcher = std::make_unique<Launcher>(machine);
    launcher->Start();
  }

  /// Starts the launcher and all servers, and lets their grace times pass; the log is empty then.
  void StartWithAllServers() {
    StartLauncher();
    launcher->Click("bStart", 3);
    launcher->Pass(std::chrono::seconds(11));
    launcher->ForgetLog();
  }

  void KillLauncher() { launcher.reset(); }

  SimProcess& Process(const std::string& executable) {
    return machine.processes.TheOne(executable);
  }
  void Crash(const std::string& executable) { machine.processes.Crash(Process(executable).id); }
  void Freeze(const std::string& executable) { Process(executable).answer = PortAnswer::Refuses; }
  void Thaw(const std::string& executable) { Process(executable).answer = PortAnswer::Listens; }

  SimMachine machine;
  std::unique_ptr<Launcher> launcher;
};

}  // namespace tarvo
