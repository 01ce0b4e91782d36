#include "xmldoc/template/template_calculation.h"

#include <charconv>
#include <cmath>

#include "support/text.h"
#include "xmldoc/rules/text_rules.h"
#include "xmldoc/template/template_error.h"

namespace tarvo {
namespace {

[[noreturn]] void RaiseNotUnderstood(std::string_view at) {
  RaiseMalformedField("Calculation not understood" +
                      (at.empty() ? std::string() : ": " + std::string(at)));
}

[[noreturn]] void RaiseOverflow() {
  RaiseTemplateFault(TemplateFault::CalculationOverflow, Fault::Overflow);
}

bool IsNumberPart(char c) { return IsDigit(c) || c == '.'; }

}  // namespace

int Calculation::RankOf(Action action) {
  constexpr int kRanks[] = {3, 1, 1, 2, 2, 2, 4, 0};  // in the order of Action
  return kRanks[static_cast<std::size_t>(action)];
}

void Calculation::AddText(std::string_view text) {
  while (!text.empty()) {
    const char c = text.front();
    std::size_t taken = 1;
    if (IsNumberPart(c)) {
      text = TakeNumber(text);
      continue;
    }
    if (c == '(' && wantsOperand_) {
      waiting_.push_back(Action::Open);
    } else if (c == ')' && !wantsOperand_) {
      Close();
    } else if ((c == '+' || c == '-') && wantsOperand_) {
      if (c == '-') waiting_.push_back(Action::Negate);
    } else if (c != ' ' && c != '\t' && c != '\r' && c != '\n') {
      if (wantsOperand_) RaiseNotUnderstood(text);
      taken = AddWord(text);
    }
    text.remove_prefix(taken);
  }
}

std::string_view Calculation::TakeNumber(std::string_view text) {
  if (!wantsOperand_) RaiseNotUnderstood(text);
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc::result_out_of_range) RaiseOverflow();
  if (error != std::errc()) RaiseNotUnderstood(text);
  steps_.push_back({Action::Number, number, 0});
  wantsOperand_ = false;
  return text.substr(static_cast<std::size_t>(end - text.data()));
}

std::size_t Calculation::AddWord(std::string_view text) {
  constexpr std::string_view kModulo = "mod";
  constexpr std::string_view kSigns = "+-*/^";
  constexpr Action kActions[] = {Action::Add, Action::Subtract, Action::Multiply, Action::Divide,
                                 Action::Power};
  if (IsKeyword(text.substr(0, kModulo.size()), kModulo)) {
    AddOperator(Action::Modulo);
    return kModulo.size();
  }
  const auto sign = kSigns.find(text.front());
  if (sign == std::string_view::npos) RaiseNotUnderstood(text);
  AddOperator(kActions[sign]);
  return 1;
}

void Calculation::AddOperator(Action action) {
  const int rank = RankOf(action);
  while (!waiting_.empty() && (RankOf(waiting_.back()) > rank ||
                               (RankOf(waiting_.back()) == rank && action != Action::Power))) {
    PopOperator();
  }
  waiting_.push_back(action);
  wantsOperand_ = true;
}

void Calculation::AddOperand() {
  if (!wantsOperand_) RaiseNotUnderstood({});
  steps_.push_back({Action::Operand, 0, operands_++});
  wantsOperand_ = false;
}

void Calculation::Close() {
  while (!waiting_.empty() && waiting_.back() != Action::Open) PopOperator();
  if (waiting_.empty()) RaiseNotUnderstood(")");
  waiting_.pop_back();
}

void Calculation::PopOperator() {
  steps_.push_back({waiting_.back(), 0, 0});
  waiting_.pop_back();
}

void Calculation::Finish() {
  if (wantsOperand_) RaiseNotUnderstood({});
  while (!waiting_.empty()) {
    if (waiting_.back() == Action::Open) RaiseNotUnderstood("(");
    PopOperator();
  }
}

double Calculation::Applied(Action action, double left, double right) {
  switch (action) {
    case Action::Add:
      return left + right;
    case Action::Subtract:
      return left - right;
    case Action::Multiply:
      return left * right;
    case Action::Power:
      return std::pow(left, right);
    default:
      break;
  }
  if (right == 0) RaiseTemplateFault(TemplateFault::DivisionByZero, "Division by zero");
  return action == Action::Divide ? left / right : std::fmod(left, right);
}

double Calculation::Result(const std::vector<double>& operands) const {
  std::vector<double> values;
  for (const Step& step : steps_) {
    if (step.action == Action::Number || step.action == Action::Operand) {
      values.push_back(step.action == Action::Number ? step.number : operands[step.operand]);
    } else if (step.action == Action::Negate) {
      values.back() = -values.back();
    } else {
      const double right = values.back();
      values.pop_back();
      values.back() = Applied(step.action, values.back(), right);
    }
    if (std::isnan(values.back())) {
      RaiseTemplateFault(TemplateFault::InvalidCalculation, Fault::InvalidProcedureCall);
    }
    if (std::isinf(values.back())) RaiseOverflow();
  }
  return values.back() + 0.0;  // a zero without a sign
}

}  // namespace tarvo
