#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "xmldoc/condition_comparison.h"
#include "xmldoc/template_path.h"

namespace tarvo {

/// A condition on a node: the "when" of a block, and what GetChilds and SearchChild ask.
///
/// Terms are joined by " or " and " and " and combine from left to right, neither before the other.
/// A term is two sides with an operator of condition_comparison.h between them: the operators are
/// looked for in their order, and the first one found splits the term where it first stands. In a
/// side, "var(" name ")" stands for the value of the node's field of that name, or of the field at
/// the end of a path; everything else stands for itself. What a value holds is never taken for an
/// operator. See docs/templates.md.
///
/// Chosen where the language leaves it open: quotes are dropped, as they are in a "when"; a
/// condition of nothing but blanks holds for every node; "var(" without its ")" is no valid term.
class Condition {
 public:
  /// Raises the fault of a term without an operator.
  explicit Condition(std::string_view text);

  bool Holds(Document& node) const;
  bool HoldsForAll() const { return terms_.empty(); }

 private:
  /// A literal text followed by the value that a path names.
  struct Piece {
    std::string literal;
    std::vector<TemplatePath> value;  ///< One, or none behind the last literal.
  };
  using Side = std::vector<Piece>;
  struct Term {
    bool joinedByAnd;
    Comparison comparison;
    Side left;
    Side right;
  };

  static Side ReadSide(std::string_view text);
  static Term ReadTerm(std::string_view text, bool joinedByAnd);
  static void Fill(const Side& side, Document& node, std::string& text);

  std::vector<Term> terms_;
};

}  // namespace tarvo
