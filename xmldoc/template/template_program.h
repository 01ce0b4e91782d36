#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "support/runtime_error.h"
#include "xmldoc/template/condition_comparison.h"
#include "xmldoc/template/template_calculation.h"
#include "xmldoc/template/template_functions.h"
#include "xmldoc/template/template_path.h"

namespace tarvo {

/// A step of a field directive's program. Steps work on a stack of texts; "takes" says how many
/// they take off its top, and all but Jump and Store leave one.
struct TemplateStep {
  enum class Action {
    Literal,     ///< Leaves `text`.
    Value,       ///< Leaves the value of the field at paths[index].
    Join,        ///< Takes `count`, leaves them as one.
    Compare,     ///< Takes the two sides, leaves "1" or "0".
    AnyOf,       ///< Takes `count`, leaves "1" when one of them is "1", else "0".
    JumpUnless,  ///< Takes one, and goes on at step `index` unless it is "1"; leaves nothing.
    Jump,        ///< Goes on at step `index`.
    Call,        ///< Takes `count` arguments of `function`.
    Calculate,   ///< Takes the operands of calculations[index].
    Store,       ///< Takes a value and stores it in the field at paths[index].
  };
  Action action;
  std::size_t index = 0;
  std::size_t count = 0;
  std::string text;
  Comparison comparison = Comparison::Equal;
  TemplateFunction function = TemplateFunction::Upper;
};

/// A field directive, ready to be filled for one node after the other.
struct TemplateProgram {
  std::vector<TemplateStep> steps;
  std::vector<TemplatePath> paths;
  std::vector<Calculation> calculations;
  /// Whether filling it changes the document or reaches outside, so that the order shows.
  bool hasEffects = false;
  /// Whether it is nothing but the value of paths[0], without any steps.
  bool isPlainValue = false;
  /// What is wrong with the directive's text, raised when it is filled: a body that is produced for
  /// no child raises nothing.
  std::optional<RuntimeError> fault;
};

}  // namespace tarvo
