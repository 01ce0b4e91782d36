#pragma once

#include <string>
#include <vector>

#include "xmldoc/document.h"
#include "xmldoc/tool/xmltool.h"

namespace tarvo {

/// `render TEMPLATE FILE`, and `render TEMPLATE --rows FILE...`: fills a template from a file, or
/// from several by rows. Clock and chance are the system's; no mail is sent. An error of the
/// template is reported as "number source: description".
XmlToolRun RenderTemplate(const std::vector<std::string>& words, ComponentCalls& components);

/// Adds a document to `pages` as a child of its name, in which each field is a child "row" with the
/// fields "name" and "value" and one for each of its attributes. So a template can go over fields
/// of any name.
void AddAsRows(Document& document, Document& pages);

}  // namespace tarvo
