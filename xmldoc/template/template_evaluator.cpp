#include "xmldoc/template/template_evaluator.h"

#include <cstdint>
#include <limits>
#include <utility>

#include "support/number_text.h"
#include "xmldoc/rules/letter_case.h"
#include "xmldoc/rules/text_rules.h"
#include "xmldoc/template/template_error.h"

namespace tarvo {
namespace {

using Action = TemplateStep::Action;

constexpr const char* kYes = "1";
constexpr const char* kNo = "0";
constexpr std::string_view kNow = "now";
constexpr std::string_view kDefaultRandom = "1000";

/// Stores a value in the last field of that name, or in a new one after the others. A path whose
/// nodes are not there stores nothing.
void StoreValue(const TemplatePath& path, Document& node, std::string_view value) {
  if (Field* field = path.FindField(node)) {
    field->SetValue(value);
  } else if (Document* owner = path.Owner(node)) {
    owner->Fields().AddField(path.LastName(), value);
  }
}

std::int32_t WholeNumber(std::string_view text) {
  try {
    return ToInteger(text);
  } catch (const RuntimeError& fault) {
    const bool tooLarge = fault.Number() == static_cast<int>(Fault::Overflow);
    RaiseTemplateFault(tooLarge ? TemplateFault::FieldOverflow : TemplateFault::NoNumber,
                       fault.Description());
  }
}

std::string Middle(const std::vector<std::string>& arguments) {
  const std::string& text = arguments[0];
  std::size_t start = arguments.size() > 1 ? CountArgument(arguments[1]) : 1;
  if (start > 0) --start;
  if (start >= text.size()) return {};
  const bool toEnd = arguments.size() < 3;
  return text.substr(start, toEnd ? std::string::npos : CountArgument(arguments[2]));
}

std::string Side(const std::vector<std::string>& arguments, bool right) {
  const std::string& text = arguments[0];
  const std::size_t count = arguments.size() > 1 ? CountArgument(arguments[1]) : 1;
  if (count >= text.size()) return text;
  return right ? text.substr(text.size() - count) : text.substr(0, count);
}

}  // namespace

void TemplateEvaluator::Fill(const TemplateProgram& program, Document& node, std::string& text) {
  if (program.fault) throw RuntimeError(*program.fault);
  if (program.isPlainValue) {
    program.paths.front().AppendValue(node, text);
    return;
  }
  stack_.clear();
  if (Run(program, node) && !stack_.empty()) text += stack_.back();
}

void TemplateEvaluator::Push(std::string text) {
  if (text.size() > ports_.mostOutput) {
    RaiseBeyondBounds("A value of the template passes " + std::to_string(ports_.mostOutput) +
                      " bytes");
  }
  stack_.push_back(std::move(text));
}

std::string TemplateEvaluator::Pop() {
  std::string text = std::move(stack_.back());
  stack_.pop_back();
  return text;
}

bool TemplateEvaluator::Run(const TemplateProgram& program, Document& node) {
  for (std::size_t at = 0; at < program.steps.size();) {
    const TemplateStep& step = program.steps[at++];
    if (step.action == Action::Jump) {
      at = step.index;
    } else if (step.action == Action::JumpUnless) {
      if (Pop() != kYes) at = step.index;
    } else if (step.action == Action::Call) {
      if (!Call(step, node)) return false;
    } else {
      RunPlain(program, step, node);
    }
  }
  return true;
}

void TemplateEvaluator::RunPlain(const TemplateProgram& program, const TemplateStep& step,
                                 Document& node) {
  switch (step.action) {
    case Action::Literal:
      return Push(step.text);
    case Action::Value: {
      std::string value;
      program.paths[step.index].AppendValue(node, value);
      return Push(std::move(value));
    }
    case Action::Join:
      return Join(step.count);
    case Action::Compare: {
      const std::string right = Pop();
      const std::string left = Pop();
      return Push(Holds(step.comparison, left, right) ? kYes : kNo);
    }
    case Action::AnyOf: {
      bool any = false;
      for (std::size_t i = 0; i < step.count; ++i) any = (Pop() == kYes) || any;
      return Push(any ? kYes : kNo);
    }
    case Action::Calculate:
      return Calculate(program.calculations[step.index]);
    default:
      return StoreValue(program.paths[step.index], node, Pop());
  }
}

void TemplateEvaluator::Join(std::size_t count) {
  const std::size_t first = stack_.size() - count;
  std::string joined = std::move(stack_[first]);
  for (std::size_t i = first + 1; i < stack_.size(); ++i) joined += stack_[i];
  stack_.resize(first);
  Push(std::move(joined));
}

void TemplateEvaluator::Calculate(const Calculation& calculation) {
  std::vector<double> operands;
  const std::size_t first = stack_.size() - calculation.OperandCount();
  for (std::size_t i = first; i < stack_.size(); ++i) operands.push_back(NumericValue(stack_[i]));
  stack_.resize(first);
  Push(ShortestDecimal(calculation.Result(operands)));
}

bool TemplateEvaluator::Call(const TemplateStep& step, Document& node) {
  const auto first = stack_.end() - static_cast<std::ptrdiff_t>(step.count);
  const Texts arguments(std::make_move_iterator(first), std::make_move_iterator(stack_.end()));
  stack_.erase(first, stack_.end());
  std::string result;
  bool done = true;
  switch (step.function) {
    case TemplateFunction::Format:
      done = Format(arguments, result);
      break;
    case TemplateFunction::Random:
      done = Random(arguments, result);
      break;
    case TemplateFunction::External:
      done = External(arguments, result);
      break;
    case TemplateFunction::Sentence:
      result = SentenceCased(arguments[0]);
      break;
    case TemplateFunction::Title:
      result = TitleCased(arguments[0]);
      break;
    case TemplateFunction::Upper:
      result = UpperCased(arguments[0]);
      break;
    case TemplateFunction::Lower:
      result = LowerCased(arguments[0]);
      break;
    case TemplateFunction::Left:
    case TemplateFunction::Right:
      result = Side(arguments, step.function == TemplateFunction::Right);
      break;
    case TemplateFunction::Middle:
      result = Middle(arguments);
      break;
    case TemplateFunction::Set:
      result = Set(arguments, node);
      break;
    case TemplateFunction::Calculate:
    case TemplateFunction::Condition:
      break;  // steps of their own
  }
  if (done) Push(std::move(result));
  return done;
}

bool TemplateEvaluator::Format(const Texts& arguments, std::string& result) {
  std::string format;
  for (std::size_t i = 1; i < arguments.size(); ++i) {
    if (i > 1) format += ',';
    format += arguments[i];
  }
  if (IsMomentFormat(format) && IsKeyword(arguments[0], kNow)) {
    if (ports_.clock == nullptr) return false;
    result = FormatMoment(ports_.clock->Now(), format);
  } else {
    result = FormatValue(arguments[0], format);
  }
  return true;
}

bool TemplateEvaluator::Random(const Texts& arguments, std::string& result) {
  const std::string_view given = WithoutOuterBlanks(arguments[0]);
  const std::int32_t most = WholeNumber(given.empty() ? kDefaultRandom : given);
  if (most < 1) {
    RaiseTemplateFault(TemplateFault::InvalidArgument, Fault::InvalidProcedureCall);
  }
  if (ports_.random == nullptr) return false;
  result = std::to_string(ports_.random->Below(static_cast<std::uint32_t>(most)) + 1);
  return true;
}

bool TemplateEvaluator::External(const Texts& arguments, std::string& result) {
  if (ports_.components == nullptr) return false;
  const Texts given(arguments.begin() + 2, arguments.end());
  ComponentAnswer answer = ports_.components->Call(arguments[0], arguments[1], given);
  if (!answer.done) {
    RaiseTemplateFault(TemplateFault::ExternalCall,
                       arguments[0] + "." + arguments[1] + ": " + answer.text);
  }
  result = std::move(answer.text);
  return true;
}

std::string TemplateEvaluator::Set(const Texts& arguments, Document& node) {
  const TemplatePath path(arguments[0]);
  if (arguments.size() == 1) {
    std::string value;
    path.AppendValue(node, value);
    return value;
  }
  StoreValue(path, node, arguments[1]);
  return arguments[1];
}

}  // namespace tarvo
