#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "form/bindings.h"

/// The randomizer between ports of memory, for targets that give it arbitrary files.
class RandomizerRig final : public tarvo::FileReader,
                            public tarvo::FileReplacer,
                            public tarvo::EventLog,
                            public tarvo::Registry,
                            public tarvo::LocalClock,
                            public tarvo::TickClock,
                            public tarvo::RandomSource,
                            public tarvo::MessageBoxes,
                            public tarvo::CodePage {
 public:
  static constexpr char kServerFile[] = "C:\\srv\\conf\\battle_athena.conf";
  static constexpr char kRanges[] = "C:\\srv\\randomize.xml";
  static constexpr char kCalendar[] = "C:\\srv\\rndcalendar.xml";

  RandomizerRig() {
    files[kServerFile] = "base_exp_rate: 100\r\na: 1\r\na: 2\r\n// b: 3\r\n";
    files[kRanges] =
        "<Randomize>\r\n\t<base_exp_rate Min=\"5\" Max=\"9\"/>\r\n"
        "\t<a Min=\"7\" Max=\"7\"/>\r\n</Randomize>\r\n";
    randomizer.WireControls();
  }

  /// The text of a target's input.
  static std::string TextOf(const std::uint8_t* data, std::size_t size) {
    return std::string(reinterpret_cast<const char*>(data), size);
  }

  std::map<std::string, std::string> files;
  tarvo::LocalTime now{};
  tarvo::TimerQueue timers{*this};
  tarvo::RandomizerPage page;
  tarvo::Timer calendarTimer{timers, "tmr_Calendar", 15000};
  tarvo::StatusLog log{*this};
  tarvo::LauncherEvents events;
  tarvo::SettingsStore store{*this, "Settings"};
  tarvo::Randomizer randomizer{tarvo::BindRandomizer(page, calendarTimer),
                               log,
                               events,
                               tarvo::ServerRoot("C:\\srv\\tarvo-launcher.exe", *this),
                               {*this, *this, *this, store, *this, *this, *this}};

 private:
  bool Exists(const std::string& path) override { return files.count(path) != 0; }
  tarvo::ReadResult ReadText(const std::string& path, std::string& text) override {
    if (!Exists(path)) return tarvo::ReadResult::Missing;
    text = files[path];
    return tarvo::ReadResult::Ok;
  }
  std::optional<tarvo::FileFault> ReplaceText(const std::string& path,
                                              const std::string& text) override {
    files[path] = text;
    return std::nullopt;
  }
  void WriteError(const std::string&) override {}
  void WriteUnicodeError(std::u16string_view) override {}
  std::optional<tarvo::RegistryData> Query(tarvo::Hive, const std::string&,
                                           const std::string&) override {
    return std::nullopt;
  }
  bool WriteText(tarvo::Hive, const std::string&, const std::string&, const std::string&) override {
    return true;
  }
  void Erase(tarvo::Hive, const std::string&, const std::string&) override {}
  tarvo::LocalTime Now() override { return now; }
  std::uint32_t Milliseconds() override { return 0; }
  void Pause(std::uint32_t) override {}
  bool HasOneByteCharacters() override { return true; }
  bool IsLeadByte(unsigned char) override { return false; }
  std::string Lowered(std::string text) override { return text; }
  std::string Raised(std::string text) override { return text; }
  std::string ToUtf8(std::string_view text) override { return std::string(text); }
  void Reseed() override {}
  double Fraction() override { return 0.5; }
  tarvo::Answer Ask(const tarvo::MessageBoxRequest&) override { return tarvo::Answer::Ok; }
};
