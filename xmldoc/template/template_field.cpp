#include "xmldoc/template/template_field.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "xmldoc/rules/text_rules.h"
#include "xmldoc/template/template_error.h"
#include "xmldoc/template/template_tokens.h"

namespace tarvo {
namespace {

using Action = TemplateStep::Action;
using Kind = TemplateToken::Kind;

/// Turns tokens into steps. An open call is a frame, so nesting needs no stack of the processor.
class FieldReader {
 public:
  FieldReader(std::string_view text, TemplateProgram& program)
      : tokens_(TemplateTokens(text)), marks_(tokens_.size()), program_(program) {}

  /// Leaves one text on the program's stack.
  void Run() {
    frames_.push_back({});
    for (at_ = 0; tokens_[at_].kind != Kind::End; ++at_) TakeToken();
    EndSide();
  }

 private:
  /// The operator that splits a token of a comparison.
  struct Mark {
    std::size_t position;
    std::size_t length;
    Comparison comparison;
  };

  /// A call that is open, or the directive itself.
  struct Frame {
    const TemplateFunctionRule* rule = nullptr;
    std::size_t arguments = 0;     // complete ones
    std::size_t items = 0;         // texts of the current argument, or side of a comparison
    std::size_t alternatives = 0;  // complete ones of the current condition
    bool inCondition = false;
    Comparison comparison = Comparison::Equal;
    std::optional<std::size_t> jumpUnless;  // of the last condition, until its target is known
    std::vector<std::size_t> jumpsToEnd;
    Calculation calculation;

    bool Is(TemplateFunction function) const {
      return rule != nullptr && rule->function == function;
    }
  };

  Frame& Top() { return frames_.back(); }
  const TemplateToken& Next() const { return tokens_[at_ + 1]; }

  void TakeToken() {
    const TemplateToken& token = tokens_[at_];
    switch (token.kind) {
      case Kind::Text:
        return TakeText(token);
      case Kind::Quoted:
        return AddItem(LiteralStep(token.text));
      case Kind::Value:
        return AddItem(PathStep(Action::Value, token.text));
      case Kind::Call:
        return OpenCall(token);
      case Kind::Separator:
        return EndArgument(false);
      case Kind::Bar:
        return TakeBar(token);
      case Kind::Close:
        return CloseCall();
      case Kind::End:
        break;
    }
  }

  static TemplateStep LiteralStep(std::string_view text) {
    return {Action::Literal, 0, 0, std::string(text)};
  }
  TemplateStep PathStep(Action action, std::string_view path) {
    program_.paths.emplace_back(path);
    return {action, program_.paths.size() - 1, 0, {}};
  }

  std::size_t Add(TemplateStep step) {
    program_.steps.push_back(std::move(step));
    return program_.steps.size() - 1;
  }

  void AddItem(TemplateStep step) {
    if (Top().Is(TemplateFunction::Calculate)) Top().calculation.AddOperand();
    ++Top().items;
    Add(std::move(step));
  }

  /// Blanks at both ends of an argument do not count, unless they are quoted.
  void AddLiteral(std::string_view text, bool isLast) {
    if (Top().items == 0) text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (isLast) text = text.substr(0, text.find_last_not_of(' ') + 1);
    if (!text.empty()) AddItem(LiteralStep(text));
  }

  void TakeText(const TemplateToken& token) {
    if (Top().Is(TemplateFunction::Calculate)) return Top().calculation.AddText(token.text);
    std::string_view text = token.text;
    if (const auto& mark = marks_[at_]) {
      AddLiteral(text.substr(0, mark->position), true);
      EndSide();
      Top().comparison = mark->comparison;
      text.remove_prefix(mark->position + mark->length);
    }
    const Kind next = Next().kind;
    AddLiteral(text, next == Kind::Separator || next == Kind::Close || next == Kind::End);
  }

  void TakeBar(const TemplateToken& token) {
    if (Top().inCondition) return EndAlternative();
    if (Top().Is(TemplateFunction::Calculate)) return Top().calculation.AddText(token.text);
    AddItem(LiteralStep(token.text));
  }

  void OpenCall(const TemplateToken& token) {
    const TemplateFunctionRule* rule = FindTemplateFunction(token.text);
    if (rule == nullptr) RaiseMalformedField("Unknown function: " + std::string(token.text));
    const TemplateFunction function = rule->function;
    if (function == TemplateFunction::Set || function == TemplateFunction::Random ||
        function == TemplateFunction::External) {
      program_.hasEffects = true;
    }
    frames_.push_back({});
    Top().rule = rule;
    BeginArgument();
  }

  /// The argument that begins after the current token. In "con" it is a condition when it is the
  /// first one, or when its turn is that of a condition and another argument follows.
  void BeginArgument() {
    Frame& frame = Top();
    frame.inCondition = false;
    if (!frame.Is(TemplateFunction::Condition) || frame.arguments % 2 != 0) return;
    std::vector<std::size_t> bars;
    std::size_t end = at_ + 1;
    for (; tokens_[end].kind != Kind::Separator && tokens_[end].kind != Kind::Close; ++end) {
      if (tokens_[end].kind == Kind::Call) end = tokens_[end].close;
      if (tokens_[end].kind == Kind::Bar) bars.push_back(end);
    }
    if (frame.arguments > 0 && tokens_[end].kind == Kind::Close) return;
    frame.inCondition = true;
    bars.push_back(end);
    std::size_t start = at_ + 1;
    for (const std::size_t bar : bars) {
      MarkComparison(start, bar);
      start = bar + 1;
    }
  }

  void MarkComparison(std::size_t start, std::size_t end) {
    for (std::size_t order = 0; order < kComparisonCount; ++order) {
      const std::string_view sign = ComparisonSign(order, DiffersSign::ExclamationMark);
      for (std::size_t i = start; i < end; ++i) {
        if (tokens_[i].kind == Kind::Call) i = tokens_[i].close;
        if (tokens_[i].kind != Kind::Text) continue;
        const auto found = tokens_[i].text.find(sign);
        if (found == std::string_view::npos) continue;
        marks_[i] = Mark{found, sign.size(), ComparisonAt(order)};
        return;
      }
    }
    RaiseNoComparison();
  }

  /// Makes one text of the items of an argument or side.
  void EndSide() {
    const std::size_t items = std::exchange(Top().items, 0);
    if (items == 0) Add(LiteralStep({}));
    if (items > 1) Add({Action::Join, 0, items, {}});
  }

  void EndAlternative() {
    EndSide();
    TemplateStep compare{Action::Compare, 0, 0, {}};
    compare.comparison = Top().comparison;
    Add(std::move(compare));
    ++Top().alternatives;
  }

  void EndArgument(bool isLast) {
    Frame& frame = Top();
    if (frame.Is(TemplateFunction::Calculate)) {
      if (!isLast) RaiseMalformedField("Too many arguments: " + std::string(frame.rule->start));
      return;
    }
    if (frame.inCondition) {
      EndAlternative();
      const std::size_t alternatives = std::exchange(frame.alternatives, 0);
      if (alternatives > 1) Add({Action::AnyOf, 0, alternatives, {}});
      if (!isLast) frame.jumpUnless = Add({Action::JumpUnless, 0, 0, {}});
    } else {
      EndSide();
      if (frame.jumpUnless) EndChoice(frame);
    }
    ++frame.arguments;
    if (!isLast) BeginArgument();
  }

  /// Behind the text of a condition: leave the choice, or go on here when the condition failed.
  void EndChoice(Frame& frame) {
    frame.jumpsToEnd.push_back(Add({Action::Jump, 0, 0, {}}));
    program_.steps[*frame.jumpUnless].index = program_.steps.size();
    frame.jumpUnless.reset();
  }

  void CloseCall() {
    EndArgument(true);
    Frame frame = std::move(frames_.back());
    frames_.pop_back();
    if (Top().Is(TemplateFunction::Calculate)) Top().calculation.AddOperand();
    ++Top().items;
    if (frame.Is(TemplateFunction::Calculate)) return AddCalculation(std::move(frame.calculation));
    CheckArguments(frame);
    if (frame.Is(TemplateFunction::Condition)) return EndCondition(frame);
    TemplateStep call{Action::Call, 0, frame.arguments, {}};
    call.function = frame.rule->function;
    Add(std::move(call));
  }

  static void CheckArguments(const Frame& frame) {
    const std::string name(frame.rule->start);
    if (frame.arguments < frame.rule->leastArguments) {
      RaiseMalformedField("Too few arguments: " + name);
    }
    if (frame.arguments > frame.rule->mostArguments) {
      RaiseMalformedField("Too many arguments: " + name);
    }
  }

  void AddCalculation(Calculation calculation) {
    calculation.Finish();
    program_.calculations.push_back(std::move(calculation));
    Add({Action::Calculate, program_.calculations.size() - 1, 0, {}});
  }

  void EndCondition(const Frame& frame) {
    const bool hasElse = frame.arguments % 2 != 0;
    if (!hasElse) Add(LiteralStep({}));
    for (const std::size_t jump : frame.jumpsToEnd) {
      program_.steps[jump].index = program_.steps.size();
    }
  }

  std::vector<TemplateToken> tokens_;
  std::vector<std::optional<Mark>> marks_;  // one for each token
  TemplateProgram& program_;
  std::vector<Frame> frames_;
  std::size_t at_ = 0;
};

bool IsBareName(std::string_view text) { return text.find_first_of("(\"") == std::string::npos; }

/// "LET " path "=" text
void ReadLet(std::string_view text, TemplateProgram& program) {
  const auto equals = text.find('=');
  if (equals == std::string_view::npos) RaiseMalformedField("Missing \"=\" of LET");
  const std::string_view path = WithoutOuterBlanks(text.substr(0, equals));
  if (path.empty()) RaiseMalformedField("Missing name of LET");
  FieldReader(WithoutOuterBlanks(text.substr(equals + 1)), program).Run();
  program.paths.emplace_back(path);
  program.steps.push_back({Action::Store, program.paths.size() - 1, 0, {}});
  program.hasEffects = true;
}

}  // namespace

TemplateProgram ReadTemplateField(std::string_view text) {
  constexpr std::string_view kLet = "let ";
  TemplateProgram program;
  text = WithoutOuterBlanks(text);
  if (IsKeyword(text.substr(0, kLet.size()), kLet)) {
    ReadLet(text.substr(kLet.size()), program);
  } else if (IsBareName(text)) {
    program.isPlainValue = true;
    program.paths.emplace_back(text);
  } else {
    FieldReader(text, program).Run();
  }
  return program;
}

}  // namespace tarvo
