#include "xmldoc/nodes/compact_text.h"

#include <cstring>
#include <limits>
#include <stdexcept>

namespace tarvo {

void CompactText::Assign(std::string_view text) {
  if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
    throw std::length_error("text of a node too long");
  }
  char* copy = nullptr;
  if (!text.empty()) {
    copy = new char[text.size()];
    std::memcpy(copy, text.data(), text.size());
  }
  FreeOwned();
  characters_ = copy;
  size_ = static_cast<std::uint32_t>(text.size());
  owned_ = copy != nullptr ? 1 : 0;
}

void CompactText::FreeCharacters() {
  delete[] characters_;
  owned_ = 0;
}

}  // namespace tarvo
