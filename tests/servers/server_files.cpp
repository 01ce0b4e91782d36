#include "tests/servers/server_files.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

namespace tarvo::sample {
namespace {

std::vector<std::string> LinesOf(const std::string& path) {
  std::vector<std::string> lines;
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) return lines;
  std::string line;
  for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) {
    if (c == '\n') {
      lines.push_back(std::exchange(line, {}));
    } else if (c != '\r') {
      line += static_cast<char>(c);
    }
  }
  lines.push_back(line);
  std::fclose(file);
  return lines;
}

/// The rest of the last line that begins with `key`; nothing when no line does.
std::optional<std::string> LastValue(const std::vector<std::string>& lines,
                                     const std::string& key) {
  std::optional<std::string> value;
  for (const std::string& line : lines) {
    if (line.starts_with(key)) value = line.substr(key.size());
  }
  return value;
}

std::string OwnFileName() {
  char path[1024] = {};
  const DWORD length = GetModuleFileNameA(nullptr, path, sizeof(path));
  std::string name(path, length);
  name.erase(0, name.rfind('\\') + 1);
  CharLowerBuffA(name.data(), static_cast<DWORD>(name.size()));
  return name;
}

}  // namespace

std::optional<std::string> OwnRole() {
  const std::string name = OwnFileName();
  for (const char* role : {"login", "char", "map"}) {
    if (name.starts_with(role)) return role;
  }
  return std::nullopt;
}

std::optional<unsigned short> OwnPort(const std::string& role) {
  const auto value = LastValue(LinesOf("conf\\" + role + "_athena.conf"), role + "_port:");
  if (!value) return std::nullopt;
  const long port = std::strtol(value->c_str(), nullptr, 10);
  if (port < 1 || port > 65535) return std::nullopt;
  return static_cast<unsigned short>(port);
}

Behaviour ReadBehaviour(const std::string& role) {
  const auto lines = LinesOf(role + "-server.behaviour");
  Behaviour behaviour;
  behaviour.dieAtStart = LastValue(lines, "die-at-start").has_value();
  behaviour.refuseToDie = LastValue(lines, "refuse-to-die").has_value();
  const std::string delay = LastValue(lines, "start-delay").value_or("0");
  behaviour.startDelay = static_cast<unsigned>(std::strtoul(delay.c_str(), nullptr, 10));
  return behaviour;
}

void ReportFault(const std::string& role, const std::string& text) {
  std::FILE* file = std::fopen((role + "-server.err").c_str(), "ab");
  if (file == nullptr) return;
  std::fprintf(file, "%s\r\n", text.c_str());
  std::fclose(file);
}

}  // namespace tarvo::sample
