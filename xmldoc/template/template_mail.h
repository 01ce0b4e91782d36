#pragma once

#include <string>
#include <string_view>

#include "xmldoc/template/template_output.h"
#include "xmldoc/template/template_ports.h"

namespace tarvo {

/// Sends the mails that a filled template holds, in order, and gives its text without them. What a
/// value holds is never taken for a part of a directive, and keeps its quotes.
///
/// A mail that the mailer accepted leaves nothing in the text; one that it refused leaves
/// "xDocument[SENDMAIL] Error:", a blank and the reason. Without a mailer nothing is sent and
/// nothing left. Raises the faults of a malformed tag and of a missing "</sendmail>", and then no
/// mail has been sent.
std::string SendTemplateMails(const TemplateText& filled, const TemplatePorts& ports);

}  // namespace tarvo
