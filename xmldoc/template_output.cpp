#include "xmldoc/template_output.h"

#include <utility>

#include "xmldoc/template_error.h"

namespace tarvo {

void TemplateOutput::RaiseTooLong() const {
  RaiseBeyondBounds("The output of the template passes " + std::to_string(mostBytes_) + " bytes");
}

void TemplateOutput::ValueAdded(std::size_t sizeBefore) {
  const std::size_t added = text_.size() - sizeBefore;
  Count(added);
  if (keepRanges_ && added > 0) values_.push_back({sizeBefore, added});
}

std::size_t TemplateOutput::AddHole() {
  holes_.push_back({text_.size(), {}});
  return holes_.size() - 1;
}

void TemplateOutput::FillHole(std::size_t hole, std::string value) {
  Count(value.size());
  holes_[hole].value = std::move(value);
}

TemplateText TemplateOutput::Take() {
  if (holes_.empty()) return {std::move(text_), std::move(values_)};
  TemplateText whole;
  whole.text.reserve(bytes_);
  std::size_t done = 0;
  for (const Hole& hole : holes_) {
    whole.text.append(text_, done, hole.position - done);
    done = hole.position;
    if (keepRanges_) whole.values.push_back({whole.text.size(), hole.value.size()});
    whole.text += hole.value;
  }
  whole.text.append(text_, done);
  return whole;
}

}  // namespace tarvo
