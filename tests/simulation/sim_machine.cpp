#include "tests/simulation/sim_machine.h"

#include "core/server_root.h"

namespace tarvo {

std::string UsualCharConf() {
  return "// The char server\r\n"
         "server_name: Northwind \r\n"
         "login_ip:127.0.0.1\r\n"
         "login_port: 6900\r\n"
         "char_ip:127.0.0.1\r\n"
         "char_port: 6121\r\n";
}

std::string UsualMapConf() {
  return "map_ip:127.0.0.1\r\n"
         "map_port: 5121\r\n"
         "char_ip:10.9.9.9\r\n"
         "char_port: 1\r\n";
}

std::string UsualBattleConf() {
  return "// How the world behaves\r\n"
         "base_exp_rate: 100\r\n"
         "job_exp_rate: 100 \r\n"
         "\r\n"
         "pk_mode: no\r\n"
         "// drop_rate: 500\r\n"
         "drop_rate:250\r\n";
}

SimMachine::SimMachine() {
  PutConf("C:\\srv", UsualCharConf(), UsualMapConf());
  files.Put(launcherPath, "MZ");
  for (const char* name : kServers) {
    files.Put(std::string("C:\\srv\\") + name, ProgramBytes());
  }
  processes.Program(kLogin).conf = "conf\\login_athena.conf";
  processes.Program(kChar).conf = "conf\\char_athena.conf";
  processes.Program(kMap).conf = "conf\\map_athena.conf";
  processes.Program(kLogin).port = 6900;
  processes.Program(kChar).port = 6121;
  processes.Program(kMap).port = 5121;
}

Machine SimMachine::PortsFor(InstanceLock& lock) {
  const std::string folder = ServerRoot(launcherPath, codePage).AppFolder();
  return {registry,
          files,
          files,
          files,
          processes,
          processes,
          network,
          clock,
          clock,
          memory,
          boxes,
          lock,
          tray,
          icons,
          codePage,
          copies,
          fileDialog,
          files,
          eventLog,
          random,
          documents,
          workingFolder,
          files,
          selfRestart,
          scripts,
          answerLines,
          inspection,
          inspection,
          inspection,
          clipboard,
          launcherPath,
          launcherPathInCodePage,
          launcherRealFolder.value_or(folder)};
}

void SimMachine::BuryLauncher() {
  locks.held.clear();
  network.CloseAll();
  tray.LoseWindow();
}

std::string SimMachine::SettingsKey() const {
  SimCodePage same = codePage;
  return ServerRoot(launcherPath, same).SettingsKey();
}

void SimMachine::SetSetting(const std::string& name, const std::string& text) {
  registry.Put(Hive::LocalMachine, SettingsKey(), name, {kRegistryText, text});
}

std::string SimMachine::Setting(const std::string& name) const {
  const auto data = registry.Peek(Hive::LocalMachine, SettingsKey(), name);
  return data ? data->bytes : "(none)";
}

void SimMachine::PutConf(const std::string& folder, const std::string& charConf,
                         const std::string& mapConf) {
  files.Put(folder + "\\conf\\login_athena.conf", "// never read\r\n");
  files.Put(folder + "\\conf\\battle_athena.conf", UsualBattleConf());
  files.Put(folder + "\\conf\\char_athena.conf", charConf);
  files.Put(folder + "\\conf\\map_athena.conf", mapConf);
}

}  // namespace tarvo
