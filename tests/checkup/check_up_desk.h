#pragma once

#include <gtest/gtest.h>

#include <string>

#include "app/check_up_command.h"
#include "tests/simulation/sim_machine.h"

namespace tarvo {

/// A check-up of the simulated machine's root. It is in order but for the freeze autokill, which is
/// switched on here.
class CheckUpDesk : public ::testing::Test {
 protected:
  CheckUpDesk() {
    for (const char* name : {"Login", "Char", "Map"}) {
      machine.SetSetting(std::string(name) + "AutoKillEnabled", "1");
    }
  }

  Findings Find() {
    SimInstanceLock lock(machine.recorder, machine.locks);
    const Machine ports = machine.PortsFor(lock);
    const ServerRoot root(ports.executablePath, ports.codePage);
    CheckUp checkUp(CheckUpPortsOf(ports), root, ports.executablePath, ports.pathInCodePage);
    checkUp.RunWhole();
    return checkUp.Found();
  }

  /// "severity name [about] what is wrong", a line each.
  std::string Told() {
    std::string text;
    for (const Finding& finding : Find()) {
      EXPECT_TRUE(finding.advice.ends_with('.')) << finding.advice;
      text += std::string(NameOf(finding.severity)) + " " + finding.name + " [" + finding.about +
              "] " + finding.wrong + "\n";
    }
    return text;
  }

  void PutCharConf(const std::string& text) { Put("conf\\char_athena.conf", text); }
  void PutMapConf(const std::string& text) { Put("conf\\map_athena.conf", text); }
  void Put(const std::string& name, const std::string& text) {
    machine.files.Put("C:\\srv\\" + name, text);
  }

  SimMachine machine;
};

}  // namespace tarvo
