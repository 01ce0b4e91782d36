#pragma once

#include <map>
#include <set>
#include <string>
#include <tuple>

#include "platform/registry.h"
#include "tests/simulation/call_recorder.h"

namespace tarvo {

/// A registry that, as the real one, takes no notice of letter case in names, of a trailing "\" in
/// a key path, and of whether a string ends with a NUL.
class SimRegistry final : public Registry {
 public:
  explicit SimRegistry(CallRecorder& recorder) : recorder_(recorder) {}

  std::optional<RegistryData> Query(Hive hive, const std::string& keyPath,
                                    const std::string& valueName) override;
  bool WriteText(Hive hive, const std::string& keyPath, const std::string& valueName,
                 const std::string& text) override;
  void Erase(Hive hive, const std::string& keyPath, const std::string& valueName) override;

  /// From now on nobody may write into this hive, or everybody may again.
  void Deny(Hive hive, bool denied = true);

  /// What somebody else has put there, of any type.
  void Put(Hive hive, const std::string& keyPath, const std::string& valueName, RegistryData data);
  std::optional<RegistryData> Peek(Hive hive, const std::string& keyPath,
                                   const std::string& valueName) const;
  /// Names (as written) and bytes of the values of a key.
  std::map<std::string, std::string> ValuesOf(Hive hive, const std::string& keyPath) const;

 private:
  using Place = std::tuple<Hive, std::string, std::string>;
  struct Value {
    std::string name;
    RegistryData data;
  };
  static Place PlaceOf(Hive hive, const std::string& keyPath, const std::string& valueName);

  CallRecorder& recorder_;
  std::map<Place, Value> values_;
  std::set<Hive> denied_;
};

}  // namespace tarvo
