#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/operator/acceptance/patience.h"
#include "tests/operator/acceptance/processes.h"
#include "tests/operator/acceptance/root.h"
#include "tests/operator/launcher.h"
#include "tests/servers/server_commands.h"

namespace tarvo::acceptance {

/// What a light shows.
enum class Light { Off = 0xC0C0C0, Healthy = 0x00C000, Trouble = 0x0000FF };

/// The operator at one server root: what a person does with the launcher that runs there, and sees.
/// Controls go by their names, an element of an array by its index; servers by "login", "char" and
/// "map". Whatever is not as expected is `DidNotHold`; times are the longest that is waited.
class Desk {
 public:
  explicit Desk(const Surroundings& surroundings);

  /// Starts the launcher and waits for its window.
  void StartLauncher();
  /// Starts it and waits for nothing.
  void LaunchOnly();
  /// What the close button does; it ends with code 0.
  void CloseLauncher();
  /// Its exit code, once it has ended.
  DWORD AwaitEnd();
  /// Ends it as a power cut would.
  void KillLauncher();
  HWND Window() const { return NeedLauncher(choice_); }
  const LauncherChoice& Choice() const { return choice_; }

  void Click(const std::string& name, int index = -1);
  void Check(const std::string& name, int index = -1);
  void Uncheck(const std::string& name, int index = -1);
  void Set(const std::string& name, int index, const std::string& text);
  void Type(const std::string& name, int index, const std::string& keys);
  void Choose(const std::string& name, int index, const std::string& entry);
  void Scroll(const std::string& name, int index, int value);
  void Page(int number);
  void Minimize();

  std::string Text(const std::string& name, int index = -1) const;
  std::vector<std::string> Entries(const std::string& name) const;
  void ExpectText(const std::string& name, int index, const std::string& text) const;
  void ExpectChecked(const std::string& name, int index, bool checked) const;
  void ExpectEnabled(const std::string& name, int index, bool enabled) const;
  /// The whole tool tip of a light, its lines joined by "|", but for the line since when.
  void ExpectTip(int light, const std::string& tip) const { ExpectTipOneOf(light, {tip}); }
  void ExpectTipOneOf(int light, const std::vector<std::string>& tips) const;
  void ExpectLight(seconds patience, int index, Light light) const;
  void ExpectShown() const;
  void ExpectHidden() const;

  void ExpectLog(seconds patience, const std::string& part) const;
  void ExpectNoLog(const std::string& part) const;
  /// How many lines of the log hold the text.
  int CountLog(const std::string& part) const;
  void ExpectLogCount(seconds patience, const std::string& part, int times) const;
  /// Between the last lines with these texts lie at most so many seconds.
  void ExpectWithin(seconds limit, const std::string& first, const std::string& second) const;
  /// The message of the box that comes up; its button ("ok", "yes", "no") is pressed.
  std::string Answer(const std::string& button);
  /// The same; the message holds this text.
  void ExpectBox(const std::string& part, const std::string& button);
  void ExpectNoBox() const;

  void Tell(const std::string& role, UINT command) const;
  int Count(const std::string& role) const;
  void ExpectCount(const std::string& role, int count) const;
  void ExpectCountOfEach(int count) const;
  DWORD Process(const std::string& role) const;
  /// A server that the launcher has not started.
  void StartServer(const std::string& role);

  /// A stored setting.
  void ExpectSetting(const std::string& name, const std::string& text) const;
  void ExpectNoSetting(const std::string& name) const;
  void WriteSettings(std::initializer_list<std::pair<const char*, const char*>> settings) const;
  /// What the sample root's operator has chosen: all start by themselves and are watched.
  void ChooseAll() const;

  const Root& TheRoot() const { return root_; }
  const Surroundings& TheSurroundings() const { return surroundings_; }

 private:
  FoundControl Control(const std::string& name, int index) const;

  Surroundings surroundings_;
  Root root_;
  LauncherChoice choice_;
  std::optional<OwnProcess> launcher_;
};

/// Wine, and not Windows.
bool UnderWine();

}  // namespace tarvo::acceptance
