#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "xmldoc/template/condition_comparison.h"
#include "xmldoc/template/template_path.h"

namespace tarvo {

/// A condition on a node: the "when" of a block, and what GetChilds and SearchChild ask.
///
/// Terms are joined by " or " and " and " and combine from left to right, neither before the other.
/// A term is two sides with an operator of condition_comparison.h between them: the operators are
/// looked for in their order, and the first one found splits the term where it first occurs. In a
/// side, "var(" name ")" is the value of the node's field of that name, or of the field at the end
/// of a path; everything else is itself. What a value holds is never taken for an operator. See
/// docs/templates.md.
///
/// Chosen where the language leaves it open: quotes are dropped, as they are in a "when"; a
/// condition of nothing but blanks holds for every node; "var(" without its ")" is no valid term.
class Condition {
 public:
  /// Raises the fault of a term without an operator.
  explicit Condition(std::string_view text);

  bool Holds(Document& node) const;
  /// The same for given values, one for each of Paths().
  bool Holds(const std::vector<std::string_view>& values) const;
  /// What the condition asks of a node.
  const std::vector<TemplatePath>& Paths() const { return paths_; }

 private:
  static constexpr std::size_t kNoPath = static_cast<std::size_t>(-1);

  /// A literal text followed by the value of paths_[path]; none after the last literal.
  struct Piece {
    std::string literal;
    std::size_t path = kNoPath;
  };
  using Side = std::vector<Piece>;
  struct Term {
    bool joinedByAnd;
    Comparison comparison;
    Side left;
    Side right;
  };

  Side ReadSide(std::string_view text);
  Term ReadTerm(std::string_view text, bool joinedByAnd);
  template <typename AppendValue>
  bool HoldsFor(AppendValue appendValue) const;

  std::vector<Term> terms_;
  std::vector<TemplatePath> paths_;
};

}  // namespace tarvo
