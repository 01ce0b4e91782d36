#include "outside/command_record.h"

#include <vector>

namespace tarvo {
namespace {

constexpr std::string_view kCommandMark = "TarvoCommand 1 ";
constexpr std::string_view kAnswerMark = "TarvoAnswer 1 ";

std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words;
  for (std::size_t end = text.find(' '); end != text.npos; end = text.find(' ')) {
    words.emplace_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  words.emplace_back(text);
  return words;
}

}  // namespace

bool IsForLauncher(CommandVerb verb) {
  return verb != CommandVerb::Check && verb != CommandVerb::Help && verb != CommandVerb::Version;
}

std::string RecordOf(const Command& command) {
  std::string record(kCommandMark);
  for (const std::string& argument : ArgumentsOf(command)) record += argument + ' ';
  record.pop_back();
  return record;
}

std::optional<Command> CommandOf(std::string_view record) {
  if (!record.starts_with(kCommandMark)) return std::nullopt;
  const auto command = ReadCommandLine(WordsOf(record.substr(kCommandMark.size()))).command;
  // Written again it is the same, so that one command has one record.
  if (!command || !IsForLauncher(command->verb) || RecordOf(*command) != record) {
    return std::nullopt;
  }
  return command;
}

std::string BytesOf(const CommandAnswer& answer) {
  return std::string(kAnswerMark) + static_cast<char>('0' + answer.exitCode) + answer.text;
}

std::optional<CommandAnswer> AnswerOf(std::string_view bytes) {
  if (!bytes.starts_with(kAnswerMark) || bytes.size() == kAnswerMark.size()) return std::nullopt;
  const char code = bytes[kAnswerMark.size()];
  if (code < '0' || code > '0' + kCommandTimeOver) return std::nullopt;
  return CommandAnswer{code - '0', std::string(bytes.substr(kAnswerMark.size() + 1))};
}

}  // namespace tarvo
