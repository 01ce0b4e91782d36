#pragma once

#include <string_view>

#include "xmldoc/template/template_program.h"

namespace tarvo {

/// Reads the text of a field directive, from after "<@field " to before ">", or the value of its
/// "id". docs/templates.md describes what it may hold. The program keeps nothing of the text.
///
/// Raises the fault of a malformed field, or that of an alternative without a comparison. It needs
/// no stack in proportion to the nesting of functions.
TemplateProgram ReadTemplateField(std::string_view text);

}  // namespace tarvo
