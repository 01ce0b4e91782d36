#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/runtime_error.h"
#include "xmldoc/template/condition.h"
#include "xmldoc/template/template_program.h"

namespace tarvo {

/// A block: which children of the current node it visits.
struct TemplateBlock {
  TemplatePath path;
  double start;  ///< Bounds of the count among the children of that name, from 1.
  double stop;
  Condition when;
  std::optional<RuntimeError> whenFault;  ///< Raised when the condition is asked.
  bool isShared;  ///< Another block visits the same children, and neither is in a block.
};

/// A template taken apart, in the order of its text.
struct TemplatePart {
  enum class Kind {
    Text,   ///< `text` as it is.
    Field,  ///< fields[index].
    Open,   ///< blocks[index] begins; `other` is the part that closes it.
    Close,  ///< The block ends; `other` is the part that opens it.
  };
  Kind kind;
  std::string_view text;
  std::size_t index = 0;
  std::size_t other = 0;
  bool blockFollows = false;  ///< Of a Field and a Close: another block follows in the same body.
};

struct ParsedTemplate {
  std::vector<TemplatePart> parts;
  std::vector<TemplateBlock> blocks;
  std::vector<TemplateProgram> fields;
  bool hasEffects = false;   ///< One of the fields has.
  bool mayHaveMail = false;  ///< The filled text may hold "<sendmail " outside its values.
};

/// Takes a template apart, first its blocks, then the field directives between them; `text` must
/// outlive the result. Raises the faults of block tags and blocks without an end and of a block's
/// attributes; those of conditions and field directives are kept with them, a field tag without an
/// end being a directive up to the next block. Takes time in proportion to the text and no stack in
/// proportion to its nesting.
///
/// Blocks of one id nest: a close tag belongs to the last open block of its id. A close tag without
/// an open block is plain text.
ParsedTemplate ParseTemplate(std::string_view text);

}  // namespace tarvo
