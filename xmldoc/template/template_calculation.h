#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// A calculation of "cal": numbers, + - * / ^, "mod", signs and parentheses, with operands whose
/// values come later. "^" goes from right to left and before a sign, then signs, then "* / mod",
/// then "+ -", each from left to right. It needs no stack in proportion to its nesting.
///
/// It is put together from its parts in order, then finished once, then asked as often as wanted.
class Calculation {
 public:
  /// A part of the text, with the blanks, tabs and line ends that may be anywhere between the
  /// words. Raises the fault of a malformed field for a text that is no calculation, and overflow
  /// (6) for a number beyond the range of a double.
  void AddText(std::string_view text);
  /// The next operand, counted from 0.
  void AddOperand();
  /// Raises the fault of a malformed field when something is missing.
  void Finish();

  std::size_t OperandCount() const { return operands_; }

  /// The result for these operands, one for each. Raises RuntimeError 11 "Division by zero",
  /// overflow (6), and invalid procedure call (5) for a root of a negative number; all with source
  /// "parse.calculation".
  double Result(const std::vector<double>& operands) const;

 private:
  enum class Action {
    Negate,
    Add,
    Subtract,
    Multiply,
    Divide,
    Modulo,
    Power,
    Open,
    Number,
    Operand
  };
  struct Step {
    Action action;
    double number;
    std::size_t operand;
  };

  static int RankOf(Action action);
  static double Applied(Action action, double left, double right);
  std::string_view TakeNumber(std::string_view text);
  std::size_t AddWord(std::string_view text);
  void AddOperator(Action action);
  void Close();
  void PopOperator();

  std::vector<Step> steps_;      // in the order in which they are done
  std::vector<Action> waiting_;  // operators and parentheses that are open
  std::size_t operands_ = 0;
  bool wantsOperand_ = true;
};

}  // namespace tarvo
