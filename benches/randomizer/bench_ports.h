#pragma once

#include <unistd.h>

#include <cstdio>
#include <map>
#include <optional>
#include <string>

#include "form/bindings.h"

namespace tarvo {

/// Ports of the bench: files of this system, by the last part of their path; a registry in memory;
/// clocks that the bench moves.
class BenchPorts final : public FileReader,
                         public FileReplacer,
                         public EventLog,
                         public Registry,
                         public LocalClock,
                         public TickClock,
                         public MessageBoxes,
                         public CodePage {
 public:
  explicit BenchPorts(std::string folder) : folder_(std::move(folder)) {}

  std::string PathOf(const std::string& path) const {
    return folder_ + "/" + path.substr(path.rfind('\\') + 1);
  }

  bool HasOneByteCharacters() override { return true; }
  bool IsLeadByte(unsigned char) override { return false; }
  std::string Lowered(std::string text) override { return text; }
  std::string Raised(std::string text) override { return text; }
  std::string ToUtf8(std::string_view text) override { return std::string(text); }

  bool Exists(const std::string& path) override { return access(PathOf(path).c_str(), F_OK) == 0; }
  ReadResult ReadText(const std::string& path, std::string& text) override {
    std::FILE* file = std::fopen(PathOf(path).c_str(), "rb");
    if (!file) return ReadResult::Missing;
    std::fseek(file, 0, SEEK_END);
    text.resize(static_cast<std::size_t>(std::ftell(file)));
    std::rewind(file);
    const bool whole = std::fread(text.data(), 1, text.size(), file) == text.size();
    std::fclose(file);
    return whole ? ReadResult::Ok : ReadResult::Failed;
  }
  /// Beside, flushed and swapped in, as on Windows. Without `flushes` the disk's own time is left
  /// out.
  std::optional<FileFault> ReplaceText(const std::string& path, const std::string& text) override {
    const std::string target = PathOf(path);
    const std::string beside = target + ".writing";
    std::FILE* file = std::fopen(beside.c_str(), "wb");
    if (!file) return FileFault{1, "cannot be written"};
    std::fwrite(text.data(), 1, text.size(), file);
    std::fflush(file);
    if (flushes) fsync(fileno(file));
    std::fclose(file);
    std::rename(beside.c_str(), target.c_str());
    return std::nullopt;
  }
  void WriteError(const std::string&) override {}
  void WriteUnicodeError(std::u16string_view) override {}
  std::optional<RegistryData> Query(Hive, const std::string&, const std::string& name) override {
    const auto found = values.find(name);
    if (found == values.end()) return std::nullopt;
    return RegistryData{kRegistryText, found->second};
  }
  bool WriteText(Hive, const std::string&, const std::string& name,
                 const std::string& text) override {
    values[name] = text;
    return true;
  }
  void Erase(Hive, const std::string&, const std::string& name) override { values.erase(name); }
  LocalTime Now() override { return now; }
  std::uint32_t Milliseconds() override { return 0; }
  void Pause(std::uint32_t) override {}
  Answer Ask(const MessageBoxRequest&) override { return Answer::Ok; }

  std::map<std::string, std::string> values;
  LocalTime now{};
  bool flushes = false;

 private:
  const std::string folder_;
};

}  // namespace tarvo
