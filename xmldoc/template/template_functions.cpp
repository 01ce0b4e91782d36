#include "xmldoc/template/template_functions.h"

#include <array>
#include <limits>
#include <utility>

#include "platform/component_calls.h"
#include "support/number_text.h"
#include "xmldoc/rules/letter_case.h"
#include "xmldoc/rules/text_rules.h"

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

bool GoesOnInWord(char c) {
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '\'' ||
         static_cast<unsigned char>(c) > 127;
}

bool EndsSentence(std::string_view text, std::size_t position) {
  const char c = text[position];
  if (c != '.' && c != '!' && c != '?') return false;
  return position + 1 < text.size() &&
         std::string_view(" \t\r\n").find(text[position + 1]) != std::string_view::npos;
}

}  // namespace

const TemplateFunctionRule* FindTemplateFunction(std::string_view name) {
  if (IsKeyword(name, kRandom.start)) return &kRandom;
  for (const TemplateFunctionRule& rule : kFunctions) {
    if (IsKeyword(name.substr(0, rule.start.size()), rule.start)) return &rule;
  }
  return nullptr;
}

std::string SentenceCased(std::string_view text) {
  bool atStart = true;
  return LowerCasedBut(text, [&atStart](std::string_view lower, std::size_t i) {
    const bool capital = atStart && GoesOnInWord(lower[i]) && lower[i] != '\'';
    atStart = (atStart && !capital) || EndsSentence(lower, i);
    return capital;
  });
}

std::string TitleCased(std::string_view text) {
  bool inWord = false;
  return LowerCasedBut(text, [&inWord](std::string_view lower, std::size_t i) {
    return !std::exchange(inWord, GoesOnInWord(lower[i]));
  });
}

std::size_t CountArgument(std::string_view text) {
  const double number = NumericValue(text);
  if (!(number > 0)) return 0;
  // Beyond any text, and still an index that can be added to.
  constexpr double kMost = 4e9;
  return static_cast<std::size_t>(number < kMost ? number : kMost / 2);
}

}  // namespace tarvo
