#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "xmldoc/document.h"

namespace tarvo {

/// A tree in short, for comparing whole trees:
/// name(attribute=value;...){field(attribute=value)=value,
/// ...|child{...}...}. Line ends and tabs are shown as \r, \n and \t.
std::string TreeText(Document& root);

/// A new document into which `text` has been imported.
Ref<Document> Imported(std::string_view text);

/// A new document with children of these names.
Ref<Document> WithChilds(const std::vector<std::string>& names);

/// Nodes, fields and attributes of a tree, to see whether it grew or shrank.
int CountNodes(Document& root);

}  // namespace tarvo
