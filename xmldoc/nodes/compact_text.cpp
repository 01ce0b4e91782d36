#include "xmldoc/nodes/compact_text.h"

#include <limits>
#include <stdexcept>

namespace tarvo {

void CompactText::Assign(std::string_view text) {
  if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
    throw std::length_error("text of a node too long");
  }
  char* own = text.size() > kMostNear ? new char[text.size()] : nullptr;
  const char* old = near_.size > kMostNear && far_.owned != 0 ? far_.characters : nullptr;
  char copy[sizeof(Near::characters)];
  if (own == nullptr) text = {copy, text.copy(copy, kMostNear)};
  char* memory = own;
  Put(text, memory);
  if (own != nullptr) far_.owned = 1;
  delete[] old;
}

}  // namespace tarvo
