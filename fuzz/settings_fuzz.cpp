// Any arguments as those that a launcher is restarted with, and any settings in them: what is taken
// for such arguments means the same when it is written again, and settings load or end with their
// own error; what is saved then is loaded and saved again unchanged.
// corpus: arguments
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "core/handed_settings.h"
#include "core/launcher_settings.h"
#include "form/bindings.h"
#include "platform/self_restart.h"
#include "randomizer/randomizer_settings.h"
#include "support/runtime_error.h"

namespace {

using Settings = std::vector<tarvo::SettingText>;

void Require(bool held) {
  if (!held) std::abort();
}

/// The settings of the servers, the launcher and the randomizer between a form and given values.
class Desk final : public tarvo::TickClock, public tarvo::LocalClock {
 public:
  explicit Desk(Settings given) {
    registry_.Take(std::move(given));
    for (tarvo::DropDownList& chooser : form_.servers.Exes) {
      chooser.AddItems(
          {"login-server.exe", "char-server.exe", "map-server.exe", "map-server_sql.exe"});
    }
  }

  /// False when a value is a fault.
  bool Load() {
    try {
      settings_.LoadServers();
      settings_.LoadAutokill();
      randomizer_.Load();
      settings_.LoadWindow();
      return true;
    } catch (const tarvo::RuntimeError& fault) {
      Require(!fault.Source().empty());
      return false;
    }
  }

  /// What a save writes, once the controls hold nothing but what they may hold.
  Settings Save() {
    for (tarvo::ComponentKind kind : tarvo::kComponents) {
      const std::uint32_t interval = form_.timers.Probe[kind].Interval();
      Require(interval >= 1000 && interval <= 60000);
      Require(form_.servers.TTO[kind].Enabled() ==
              form_.servers.chkAK[tarvo::IndexOf(kind)].Checked());
    }
    tarvo::CollectedSettings saved;
    tarvo::SettingsStore store(saved, kKey);
    settings_.SaveServers(store);
    settings_.SaveAutokill(store);
    randomizer_.Save(store);
    return saved.Settings();
  }

 private:
  static constexpr char kKey[] = "Software\\Settings";

  std::uint32_t Milliseconds() override { return 0; }
  void Pause(std::uint32_t) override {}
  tarvo::LocalTime Now() override { return {}; }

  tarvo::CollectedSettings nothing_;
  tarvo::HandedSettings registry_{nothing_, kKey};
  tarvo::SettingsStore store_{registry_, kKey};
  tarvo::TimerQueue timers_{*this};
  tarvo::Form form_{timers_};
  tarvo::ComponentTable components_;
  tarvo::LauncherSettings settings_{tarvo::BindSettings(form_), components_, store_};
  tarvo::RandomizerSettings randomizer_{form_.randomizer.opt_Rnd, form_.randomizer.txtMxD, store_,
                                        *this};
};

Settings LoadedAndSaved(const Settings& settings) {
  const auto desk = std::make_unique<Desk>(settings);
  Require(desk->Load());
  return desk->Save();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto state = tarvo::RestartStateOf({reinterpret_cast<const char*>(data), size});
  if (!state) return 0;
  const std::string written = tarvo::ArgumentsOf(*state);
  const auto again = tarvo::RestartStateOf(written);
  Require(written.size() <= tarvo::kLongestArguments && again.has_value());
  if (!again->settings.empty() || state->settings.empty()) Require(again == state);

  const auto desk = std::make_unique<Desk>(state->settings);
  if (!desk->Load()) return 0;
  // No selection is saved as the empty text, which the next start finds in the first of the
  // executables.
  const Settings second = LoadedAndSaved(desk->Save());
  Require(LoadedAndSaved(second) == second);
  return 0;
}
