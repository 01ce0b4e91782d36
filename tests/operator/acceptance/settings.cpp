#include "tests/operator/acceptance/settings.h"

#include <windows.h>

#include "support/md5.h"
#include "tests/operator/acceptance/story.h"

namespace tarvo::acceptance {
namespace {

constexpr char kMaker[] = "Software\\TarvoLab";
constexpr char kServers[] = "Software\\TarvoLab\\Servers";
constexpr char kRun[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";
const HKEY kHives[] = {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE};

bool HasKey(HKEY hive, const std::string& path) {
  HKEY key = nullptr;
  if (RegOpenKeyExA(hive, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
  RegCloseKey(key);
  return true;
}

std::optional<std::string> ReadText(HKEY hive, const std::string& path, const std::string& name) {
  char text[4096] = "";
  DWORD size = sizeof text;
  const LSTATUS status =
      RegGetValueA(hive, path.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, text, &size);
  return status == ERROR_SUCCESS ? std::optional<std::string>(text) : std::nullopt;
}

bool WriteText(HKEY hive, const std::string& path, const std::string& name,
               const std::string& text) {
  HKEY key = nullptr;
  if (RegCreateKeyExA(hive, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key, nullptr) !=
      ERROR_SUCCESS) {
    return false;
  }
  const LSTATUS status =
      RegSetValueExA(key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                     static_cast<DWORD>(text.size() + 1));
  RegCloseKey(key);
  return status == ERROR_SUCCESS;
}

/// The folder's path with "_" for ":" and "\", and its digest.
std::string KeyOf(const std::string& root) {
  std::string path = root + "\\";
  for (char& letter : path) {
    if (letter == ':' || letter == '\\') letter = '_';
  }
  return std::string(kServers) + "\\" + clsMD5().DigestStrToHexStr(path);
}

}  // namespace

Settings::Settings(const std::string& root) : key_(KeyOf(root)) {
  for (int i = 0; i < 2; ++i) {
    hadMaker_[i] = HasKey(kHives[i], kMaker);
    hadServers_[i] = HasKey(kHives[i], kServers);
  }
}

std::optional<std::string> Settings::Read(const std::string& name) const {
  const auto own = ReadText(HKEY_CURRENT_USER, key_, name);
  return own ? own : ReadText(HKEY_LOCAL_MACHINE, key_, name);
}

void Settings::Write(const std::string& name, const std::string& text) const {
  if (WriteText(HKEY_LOCAL_MACHINE, key_, name, text)) return;
  if (!WriteText(HKEY_CURRENT_USER, key_, name, text)) {
    throw DidNotHold("the registry takes no settings");
  }
}

bool Settings::Empty() const {
  return !HasKey(HKEY_CURRENT_USER, key_) && !HasKey(HKEY_LOCAL_MACHINE, key_);
}

void Settings::Remove() const {
  for (int i = 0; i < 2; ++i) {
    RegDeleteKeyA(kHives[i], key_.c_str());
    if (!hadServers_[i]) RegDeleteKeyA(kHives[i], kServers);
    if (!hadMaker_[i]) RegDeleteKeyA(kHives[i], kMaker);
  }
}

std::optional<std::string> StartUpEntryOf(const std::string& name) {
  return ReadText(HKEY_LOCAL_MACHINE, kRun, name);
}

bool MayWriteStartUpEntries() {
  HKEY key = nullptr;
  if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, kRun, 0, KEY_SET_VALUE, &key) != ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(key);
  return true;
}

void RemoveStartUpEntry(const std::string& name) {
  HKEY key = nullptr;
  if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, kRun, 0, KEY_SET_VALUE, &key) != ERROR_SUCCESS) return;
  RegDeleteValueA(key, name.c_str());
  RegCloseKey(key);
}

}  // namespace tarvo::acceptance
