#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "xmldoc/template/template_path.h"

namespace tarvo {

/// The values of one field of many nodes, beside each other.
class TemplateColumn {
 public:
  void Add(Document& node, const TemplatePath& path) {
    path.AppendValue(node, text_);
    ends_.push_back(text_.size());
  }
  std::string_view At(std::size_t row) const {
    const std::size_t start = row == 0 ? 0 : ends_[row - 1];
    return std::string_view(text_).substr(start, ends_[row] - start);
  }

 private:
  std::string text_;
  std::vector<std::size_t> ends_;
};

/// The children of one name of one node, and the values that the conditions of several blocks ask
/// of them: what is scattered over a large tree is gathered once, and not for each block. The nodes
/// must neither be destroyed nor change meanwhile.
class TemplateSiblings {
 public:
  TemplateSiblings(Document& parent, std::string_view name);

  std::size_t Count() const { return nodes_.size(); }
  Document* Node(std::size_t row) const { return nodes_[row]; }
  /// Made when it is first asked for; stays where it is.
  const TemplateColumn& ColumnOf(const TemplatePath& path);

 private:
  std::vector<Document*> nodes_;
  std::deque<std::pair<std::string, TemplateColumn>> columns_;
};

}  // namespace tarvo
