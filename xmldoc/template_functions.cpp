#include "xmldoc/template_functions.h"

#include <array>
#include <limits>

#include "platform/component_calls.h"
#include "support/number_text.h"
#include "xmldoc/text_rules.h"

namespace tarvo {
namespace {

constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();

constexpr std::array<TemplateFunctionRule, 12> kFunctions = {{
    {"cal", TemplateFunction::Calculate, 1, 1},
    {"for", TemplateFunction::Format, 1, kAnyNumber},
    {"sen", TemplateFunction::Sentence, 1, 1},
    {"tit", TemplateFunction::Title, 1, 1},
    {"upp", TemplateFunction::Upper, 1, 1},
    {"low", TemplateFunction::Lower, 1, 1},
    {"lef", TemplateFunction::Left, 1, 2},
    {"set", TemplateFunction::Set, 1, 2},
    {"rig", TemplateFunction::Right, 1, 2},
    {"mid", TemplateFunction::Middle, 1, 3},
    {"con", TemplateFunction::Condition, 1, kAnyNumber},
    {"ext", TemplateFunction::External, 2, 2 + ComponentCalls::kMostArguments},
}};
constexpr TemplateFunctionRule kRandom = {"random", TemplateFunction::Random, 0, 1};

bool IsLower(char c) { return c >= 'a' && c <= 'z'; }
char Raised(char c) { return IsLower(c) ? static_cast<char>(c - 'a' + 'A') : c; }

bool GoesOnInWord(char c) {
  return IsLower(c) || (c >= '0' && c <= '9') || c == '\'' || static_cast<unsigned char>(c) > 127;
}

}  // namespace

const TemplateFunctionRule* FindTemplateFunction(std::string_view name) {
  if (EqualIgnoringCase(name, kRandom.start)) return &kRandom;
  for (const TemplateFunctionRule& rule : kFunctions) {
    if (EqualIgnoringCase(name.substr(0, rule.start.size()), rule.start)) return &rule;
  }
  return nullptr;
}

std::string UpperCased(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) c = Raised(c);
  return upper;
}

std::string SentenceCased(std::string_view text) {
  std::string cased = LowerCased(text);
  bool atStart = true;
  for (std::size_t i = 0; i < cased.size(); ++i) {
    const char c = cased[i];
    if (atStart && GoesOnInWord(c) && c != '\'') {
      cased[i] = Raised(c);
      atStart = false;
    } else if (c == '.' || c == '!' || c == '?') {
      const bool blankFollows = i + 1 < cased.size() &&
                                std::string_view(" \t\r\n").find(cased[i + 1]) != std::string::npos;
      atStart = atStart || blankFollows;
    }
  }
  return cased;
}

std::string TitleCased(std::string_view text) {
  std::string cased = LowerCased(text);
  bool inWord = false;
  for (char& c : cased) {
    const bool goesOn = GoesOnInWord(c);
    if (!inWord) c = Raised(c);
    inWord = goesOn;
  }
  return cased;
}

std::size_t CountArgument(std::string_view text) {
  const double number = NumericValue(text);
  if (!(number > 0)) return 0;
  // Beyond any text, and still an index that can be added to.
  constexpr double kMost = 4e9;
  return static_cast<std::size_t>(number < kMost ? number : kMost / 2);
}

}  // namespace tarvo
