#include "xmldoc/packed_attributes.h"

namespace tarvo {
namespace {

char* Put(char* to, std::string_view text) {
  if (!text.empty()) std::memcpy(to, text.data(), text.size());
  return to + text.size();
}

}  // namespace

void AttributePacker::Reserve(std::size_t tagBytes) {
  // Each attribute takes at least a letter and a sign of the tag, the last one perhaps just a
  // letter, and comes out with its quoting added.
  const std::size_t most = tagBytes + (tagBytes / 2 + 1) * PackedAttributes::kQuoting;
  if (text_.size() < most) text_.resize(most);
}

void AttributePacker::Add(std::string_view name, std::string_view value) {
  char* to = text_.data() + textSize_;
  *to++ = ' ';
  to = Put(to, name);
  *to++ = '=';
  *to++ = '"';
  to = Put(to, value);
  *to++ = '"';
  textSize_ = static_cast<std::size_t>(to - text_.data());
  lengths_.push_back(
      {static_cast<std::uint32_t>(name.size()), static_cast<std::uint32_t>(value.size())});
}

void AttributePacker::CopyTo(char* bytes) const {
  if (lengths_.empty()) return;
  const PackedAttributes::Head head{static_cast<std::uint32_t>(lengths_.size()),
                                    static_cast<std::uint32_t>(textSize_)};
  std::memcpy(bytes, &head, sizeof head);
  bytes += sizeof head;
  const std::size_t lengthBytes = lengths_.size() * sizeof(PackedAttributes::Lengths);
  std::memcpy(bytes, lengths_.data(), lengthBytes);
  std::memcpy(bytes + lengthBytes, text_.data(), textSize_);
}

}  // namespace tarvo
