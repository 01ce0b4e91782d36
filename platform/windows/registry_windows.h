#pragma once

#include "platform/registry.h"

namespace tarvo {

/// The registry by the ANSI calls of advapi32. Each call opens and closes its key.
///
/// Strings travel in the system's ANSI code page, so the bytes of a string value are those that the
/// conversion gives. `WriteText` hands over the length without a NUL; the system may keep one all
/// the same, which every reader of a string cuts off.
class WindowsRegistry : public Registry {
 public:
  std::optional<RegistryData> Query(Hive hive, const std::string& keyPath,
                                    const std::string& valueName) override;
  bool WriteText(Hive hive, const std::string& keyPath, const std::string& valueName,
                 const std::string& text) override;
  void Erase(Hive hive, const std::string& keyPath, const std::string& valueName) override;
};

}  // namespace tarvo
