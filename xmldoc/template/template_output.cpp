#include "xmldoc/template/template_output.h"

#include <utility>

#include "xmldoc/template/template_error.h"

namespace tarvo {

void TemplateOutput::RaiseTooLong() const {
  RaiseBeyondBounds("The output of the template passes " + std::to_string(mostBytes_) + " bytes");
}

std::size_t TemplateOutput::AddHole() {
  holes_.push_back({text_.size()});
  return holes_.size() - 1;
}

void TemplateOutput::FillHole(std::size_t hole, std::size_t start, std::size_t length) {
  holes_[hole].start = start;
  holes_[hole].length = length;
  while (!holes_.empty() && holes_.back().start != kOpen && holes_.back().length == 0) {
    holes_.pop_back();
  }
}

TemplateText TemplateOutput::Take() {
  if (holes_.empty()) return {std::move(text_), std::move(values_)};
  TemplateText whole;
  whole.text.reserve(bytes_);
  std::size_t done = 0;
  std::size_t shift = 0;  // what the holes so far have put before the text
  auto value = values_.begin();
  for (const Hole& hole : holes_) {
    // A value at the position of a hole was added after it.
    for (; value != values_.end() && value->start < hole.position; ++value) {
      whole.values.push_back({value->start + shift, value->length});
    }
    whole.text.append(text_, done, hole.position - done);
    done = hole.position;
    if (keepRanges_) whole.values.push_back({whole.text.size(), hole.length});
    whole.text.append(lateValues_, hole.start, hole.length);
    shift += hole.length;
  }
  for (; value != values_.end(); ++value) {
    whole.values.push_back({value->start + shift, value->length});
  }
  whole.text.append(text_, done);
  return whole;
}

}  // namespace tarvo
