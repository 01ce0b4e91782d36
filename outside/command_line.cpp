#include "outside/command_line.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "core/restart_state.h"
#include "support/text.h"

namespace tarvo {
namespace {

using Words = std::span<const std::string>;

template <class Meaning>
struct Word {
  const char* text;
  Meaning meaning;
};

constexpr Word<CommandVerb> kVerbs[] = {
    {"--state", CommandVerb::State},     {"--start", CommandVerb::Start},
    {"--stop", CommandVerb::Stop},       {"--restart", CommandVerb::Restart},
    {"--wait", CommandVerb::Wait},       {"--randomize", CommandVerb::Randomize},
    {"--upgrade", CommandVerb::Upgrade}, {"--close", CommandVerb::Close},
    {"--unload", CommandVerb::Unload},   {"--check", CommandVerb::Check},
    {"--help", CommandVerb::Help},       {"--version", CommandVerb::Version},
};
constexpr Word<StateForm> kForms[] = {
    {"text", StateForm::Text}, {"json", StateForm::Json}, {"prometheus", StateForm::Prometheus}};
constexpr Word<AwaitedState> kAwaited[] = {{"listening", AwaitedState::Listening},
                                           {"stopped", AwaitedState::Stopped}};
constexpr Word<std::optional<ComponentKind>> kComponentWords[] = {
    {WordOf(ComponentKind::Login), ComponentKind::Login},
    {WordOf(ComponentKind::Char), ComponentKind::Char},
    {WordOf(ComponentKind::Map), ComponentKind::Map},
    {"all", std::nullopt}};

constexpr std::size_t kMostDigits = 6;

/// Sets the meaning of a word of the list; false for any other word.
template <class Meaning, std::size_t kCount>
bool Read(const std::string& text, const Word<Meaning> (&words)[kCount], Meaning& meaning) {
  for (const Word<Meaning>& word : words) {
    if (text != word.text) continue;
    meaning = word.meaning;
    return true;
  }
  return false;
}

/// The word of a meaning that is in the list.
template <class Meaning, std::size_t kCount>
const char* TextOf(const Word<Meaning> (&words)[kCount], const Meaning& meaning) {
  const auto found =
      std::find_if(std::begin(words), std::end(words),
                   [&](const Word<Meaning>& word) { return word.meaning == meaning; });
  return found == std::end(words) ? "" : found->text;
}

/// The object of a verb: the words that follow it. The complaint about them, "" for none.
std::string ReadForm(Words words, Command& command) {
  if (words.empty() || (words.size() == 1 && Read(words[0], kForms, command.form))) return {};
  return "--state takes text, json or prometheus, or nothing.";
}

std::string ReadComponent(const std::string& verb, Words words, Command& command) {
  if (words.size() == 1 && Read(words[0], kComponentWords, command.component)) return {};
  return verb + " takes login, char, map or all.";
}

bool ReadSeconds(const std::string& text, std::uint32_t& seconds) {
  if (text.empty() || text.size() > kMostDigits) return false;
  if (!std::all_of(text.begin(), text.end(), IsDigit)) return false;
  seconds = static_cast<std::uint32_t>(std::stoul(text));
  return seconds <= kLongestWaitSeconds;
}

std::string ReadWait(Words words, Command& command) {
  if (words.size() == 3 && Read(words[0], kAwaited, command.awaited) &&
      Read(words[1], kComponentWords, command.component) &&
      ReadSeconds(words[2], command.seconds)) {
    return {};
  }
  return "--wait takes listening or stopped, then login, char, map or all, then the seconds to "
         "wait, at most " +
         std::to_string(kLongestWaitSeconds) + ".";
}

std::string ReadCheck(Words words, Command& command) {
  command.json = words.size() == 1 && words[0] == "--json";
  return words.empty() || command.json ? std::string() : "--check takes --json, or nothing.";
}

std::string ReadObject(const std::string& verb, Words words, Command& command) {
  switch (command.verb) {
    case CommandVerb::State:
      return ReadForm(words, command);
    case CommandVerb::Start:
    case CommandVerb::Stop:
    case CommandVerb::Restart:
      return ReadComponent(verb, words, command);
    case CommandVerb::Wait:
      return ReadWait(words, command);
    case CommandVerb::Check:
      return ReadCheck(words, command);
    default:
      return words.empty() ? std::string() : verb + " takes nothing after it.";
  }
}

}  // namespace

CommandLine ReadCommandLine(const std::vector<std::string>& arguments) {
  if (arguments.empty() || !arguments[0].starts_with("--") || arguments[0] == kResumeArgument) {
    return {};
  }
  Command command;
  if (!Read(arguments[0], kVerbs, command.verb)) {
    return {std::nullopt, "There is no command " + arguments[0] + "."};
  }
  std::string complaint = ReadObject(arguments[0], Words(arguments).subspan(1), command);
  if (!complaint.empty()) return {std::nullopt, std::move(complaint)};
  return {command, {}};
}

std::vector<std::string> ArgumentsOf(const Command& command) {
  std::vector<std::string> arguments{TextOf(kVerbs, command.verb)};
  switch (command.verb) {
    case CommandVerb::State:
      arguments.emplace_back(TextOf(kForms, command.form));
      break;
    case CommandVerb::Start:
    case CommandVerb::Stop:
    case CommandVerb::Restart:
      arguments.emplace_back(TextOf(kComponentWords, command.component));
      break;
    case CommandVerb::Wait:
      arguments.emplace_back(TextOf(kAwaited, command.awaited));
      arguments.emplace_back(TextOf(kComponentWords, command.component));
      arguments.push_back(std::to_string(command.seconds));
      break;
    case CommandVerb::Check:
      if (command.json) arguments.emplace_back("--json");
      break;
    default:
      break;
  }
  return arguments;
}

std::string UsageText() {
  return "Commands to the launcher that runs in the same folder:\n"
         "  tarvo-launcher.exe --state [text|json|prometheus]\n"
         "  tarvo-launcher.exe --start login|char|map|all\n"
         "  tarvo-launcher.exe --stop login|char|map|all\n"
         "  tarvo-launcher.exe --restart login|char|map|all\n"
         "  tarvo-launcher.exe --wait listening|stopped login|char|map|all SECONDS\n"
         "  tarvo-launcher.exe --randomize\n"
         "  tarvo-launcher.exe --upgrade\n"
         "  tarvo-launcher.exe --close\n"
         "  tarvo-launcher.exe --unload\n"
         "Without one:\n"
         "  tarvo-launcher.exe --check [--json]\n"
         "  tarvo-launcher.exe --help\n"
         "  tarvo-launcher.exe --version\n"
         "Exit codes: 0 done, 1 refused, 2 wrong usage, 3 no launcher runs here, 4 the time is "
         "over;\n"
         "of --check: 0 nothing but notes, 1 warnings, 2 errors.\n";
}

}  // namespace tarvo
