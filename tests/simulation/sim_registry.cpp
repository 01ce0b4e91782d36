#include "tests/simulation/sim_registry.h"

#include "support/text.h"

namespace tarvo {
namespace {

std::string NormalKey(const std::string& keyPath) {
  std::string key = LowerCase(keyPath);
  if (key.ends_with('\\')) key.pop_back();
  return key;
}

}  // namespace

SimRegistry::Place SimRegistry::PlaceOf(Hive hive, const std::string& keyPath,
                                        const std::string& valueName) {
  return {hive, NormalKey(keyPath), LowerCase(valueName)};
}

std::optional<RegistryData> SimRegistry::Query(Hive hive, const std::string& keyPath,
                                               const std::string& valueName) {
  recorder_.Note("registry.query(" + valueName + ")");
  return Peek(hive, keyPath, valueName);
}

bool SimRegistry::WriteText(Hive hive, const std::string& keyPath, const std::string& valueName,
                            const std::string& text) {
  recorder_.Note("registry.write(" + valueName + ")");
  if (denied_.contains(hive)) return false;
  Put(hive, keyPath, valueName, {kRegistryText, text});
  return true;
}

void SimRegistry::Erase(Hive hive, const std::string& keyPath, const std::string& valueName) {
  recorder_.Note("registry.erase(" + valueName + ")");
  if (!denied_.contains(hive)) values_.erase(PlaceOf(hive, keyPath, valueName));
}

void SimRegistry::Deny(Hive hive, bool denied) {
  if (denied) {
    denied_.insert(hive);
  } else {
    denied_.erase(hive);
  }
}

void SimRegistry::Put(Hive hive, const std::string& keyPath, const std::string& valueName,
                      RegistryData data) {
  values_[PlaceOf(hive, keyPath, valueName)] = {valueName, std::move(data)};
}

std::optional<RegistryData> SimRegistry::Peek(Hive hive, const std::string& keyPath,
                                              const std::string& valueName) const {
  const auto found = values_.find(PlaceOf(hive, keyPath, valueName));
  if (found == values_.end()) return std::nullopt;
  return found->second.data;
}

std::map<std::string, std::string> SimRegistry::ValuesOf(Hive hive,
                                                         const std::string& keyPath) const {
  const std::string wanted = NormalKey(keyPath);
  std::map<std::string, std::string> values;
  for (const auto& [place, value] : values_) {
    if (std::get<0>(place) == hive && std::get<1>(place) == wanted) {
      values[value.name] = value.data.bytes;
    }
  }
  return values;
}

}  // namespace tarvo
