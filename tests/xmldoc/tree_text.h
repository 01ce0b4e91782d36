#pragma once

#include <string>

#include "xmldoc/document.h"

namespace tarvo {

/// A tree in short, for comparing whole trees:
/// name(attribute=value;...){field(attribute=value)=value,
/// ...|child{...}...}. Line ends and tabs are shown as \r, \n and \t.
std::string TreeText(Document& root);

/// A new document into which `text` has been imported.
Ref<Document> Imported(std::string_view text);

/// Nodes, fields and attributes of a tree, for telling whether it grew or shrank.
int CountNodes(Document& root);

}  // namespace tarvo
