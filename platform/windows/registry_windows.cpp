#include "platform/windows/registry_windows.h"

#include "platform/windows/handle_windows.h"

namespace tarvo {
namespace {

HKEY RootOf(Hive hive) {
  return hive == Hive::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

std::string WithoutTrailingSeparator(std::string keyPath) {
  while (!keyPath.empty() && keyPath.back() == '\\') keyPath.pop_back();
  return keyPath;
}

RegistryKey OpenKey(Hive hive, const std::string& keyPath) {
  RegistryKey key;
  const std::string path = WithoutTrailingSeparator(keyPath);
  if (RegOpenKeyA(RootOf(hive), path.c_str(), key.Receive()) != ERROR_SUCCESS) return {};
  return key;
}

}  // namespace

std::optional<RegistryData> WindowsRegistry::Query(Hive hive, const std::string& keyPath,
                                                   const std::string& valueName) {
  const RegistryKey key = OpenKey(hive, keyPath);
  if (!key.Valid()) return std::nullopt;
  // Another program may make the value longer between the two questions: ask again then.
  LSTATUS status = ERROR_MORE_DATA;
  RegistryData data;
  for (int attempt = 0; attempt < 4 && status == ERROR_MORE_DATA; ++attempt) {
    DWORD type = 0;
    DWORD size = 0;
    status = RegQueryValueExA(key.Get(), valueName.c_str(), nullptr, &type, nullptr, &size);
    if (status != ERROR_SUCCESS) return std::nullopt;
    data.bytes.resize(size);
    status = RegQueryValueExA(key.Get(), valueName.c_str(), nullptr, &type,
                              reinterpret_cast<BYTE*>(data.bytes.data()), &size);
    if (status == ERROR_SUCCESS) data.bytes.resize(size);
    data.type = type;
  }
  if (status != ERROR_SUCCESS) return std::nullopt;
  return data;
}

bool WindowsRegistry::WriteText(Hive hive, const std::string& keyPath, const std::string& valueName,
                                const std::string& text) {
  RegistryKey key;
  const std::string path = WithoutTrailingSeparator(keyPath);
  if (RegCreateKeyA(RootOf(hive), path.c_str(), key.Receive()) != ERROR_SUCCESS) return false;
  return RegSetValueExA(key.Get(), valueName.c_str(), 0, REG_SZ,
                        reinterpret_cast<const BYTE*>(text.c_str()),
                        static_cast<DWORD>(text.size())) == ERROR_SUCCESS;
}

void WindowsRegistry::Erase(Hive hive, const std::string& keyPath, const std::string& valueName) {
  const RegistryKey key = OpenKey(hive, keyPath);
  if (key.Valid()) RegDeleteValueA(key.Get(), valueName.c_str());
}

}  // namespace tarvo
