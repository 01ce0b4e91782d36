#include "xmldoc/nodes/packed_attributes.h"

#include <array>

namespace tarvo {
namespace {

/// What a byte may not be in a plain name or in a plain value.
constexpr std::uint8_t kEndsName = 1;
constexpr std::uint8_t kEndsValue = 2;

constexpr std::array<std::uint8_t, 256> kEnds = [] {
  std::array<std::uint8_t, 256> ends{};
  for (const char c : {'"', '>', '\r', '\n'})
    ends[static_cast<unsigned char>(c)] = kEndsName | kEndsValue;
  for (const char c : {' ', '='}) ends[static_cast<unsigned char>(c)] = kEndsName;
  return ends;
}();

const char* EndOf(const char* from, const char* end, std::uint8_t kind) {
  while (from != end && (kEnds[static_cast<unsigned char>(*from)] & kind) == 0) ++from;
  return from;
}

std::uint32_t Length(const char* begin, const char* end) {
  return static_cast<std::uint32_t>(end - begin);
}

}  // namespace

const char* AttributePacker::TakeFirstWritten(const char* from, const char* end) {
  const char* at = from;
  while (at != end && *at == ' ') {
    const char* name = at + 1;
    const char* nameEnd = EndOf(name, end, kEndsName);
    if (nameEnd == name || end - nameEnd < 3 || nameEnd[0] != '=' || nameEnd[1] != '"') break;
    const char* value = nameEnd + 2;
    const char* valueEnd = EndOf(value, end, kEndsValue);
    if (valueEnd == end || *valueEnd != '"') break;
    lengths_.push_back({Length(name, nameEnd), Length(value, valueEnd)});
    at = valueEnd + 1;
  }
  written_ = {from, static_cast<std::size_t>(at - from)};
  return at;
}

void AttributePacker::Add(std::string_view name, std::string_view value) {
  text_.append(" ").append(name).append("=\"").append(value).append("\"");
  written_ = text_;
  lengths_.push_back(
      {static_cast<std::uint32_t>(name.size()), static_cast<std::uint32_t>(value.size())});
}

void AttributePacker::CopyTo(char* bytes) const {
  const PackedAttributes::Head head{static_cast<std::uint32_t>(lengths_.size()),
                                    static_cast<std::uint32_t>(written_.size())};
  std::memcpy(bytes, &head, sizeof head);
  bytes += sizeof head;
  const std::size_t lengthBytes = lengths_.size() * sizeof(PackedAttributes::Lengths);
  std::memcpy(bytes, lengths_.data(), lengthBytes);
  std::memcpy(bytes + lengthBytes, written_.data(), written_.size());
}

}  // namespace tarvo
