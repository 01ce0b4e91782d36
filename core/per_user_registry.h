#pragma once

#include "platform/registry.h"

namespace tarvo {

/// Lets an operator without administrator rights keep his settings.
///
/// The launcher's settings live under HKEY_LOCAL_MACHINE, where a normal operator may not write. A
/// text that is refused there is stored under the same path of HKEY_CURRENT_USER, and reading
/// prefers that copy if it is a text. A text that is accepted there removes the operator's own
/// copy, so the newest one of his always counts; it counts for him alone. Only paths below the
/// launcher's own key are treated this way: every other path is passed on unchanged.
class PerUserRegistry final : public Registry {
 public:
  explicit PerUserRegistry(Registry& system) : system_(system) {}

  std::optional<RegistryData> Query(Hive hive, const std::string& keyPath,
                                    const std::string& valueName) override;
  bool WriteText(Hive hive, const std::string& keyPath, const std::string& valueName,
                 const std::string& text) override;
  void Erase(Hive hive, const std::string& keyPath, const std::string& valueName) override;

 private:
  Registry& system_;
};

}  // namespace tarvo
