#pragma once

#include <optional>
#include <string>

namespace tarvo::acceptance {

/// The settings of one server root, as they lie in the registry. Those that a launcher without
/// administrator's rights has kept for its user count first.
class Settings {
 public:
  /// `root` without a separator at its end. Nothing is made yet.
  explicit Settings(const std::string& root);

  /// Nothing for a setting that is missing or is no text.
  std::optional<std::string> Read(const std::string& name) const;
  void Write(const std::string& name, const std::string& text) const;
  /// Whether nothing of this root is there.
  bool Empty() const;
  /// Removes all of them, and the folders of the registry that were not there before.
  void Remove() const;

 private:
  std::string key_;
  bool hadMaker_[2];  ///< Per hive: other roots of this user's or machine's have settings.
  bool hadServers_[2];
};

/// An entry of the machine's programs that start with Windows.
std::optional<std::string> StartUpEntryOf(const std::string& name);
/// Whether this program may write one.
bool MayWriteStartUpEntries();
void RemoveStartUpEntry(const std::string& name);

}  // namespace tarvo::acceptance
