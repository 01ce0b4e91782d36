#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// Attributes as an import leaves them, in one run of bytes: how many, the bytes of the text, the
/// two lengths of each, and the text as the writer writes it: ` name="value" name="value"`. Most
/// attributes are only ever read and written again; objects are made of them when one is asked for.
/// The bytes belong to somebody else, and have to outlive the view.
class PackedAttributes {
 public:
  static constexpr std::size_t kQuoting = 4;  // blank, equals sign and two quotes
  struct Lengths {
    std::uint32_t name;
    std::uint32_t value;
  };
  struct Head {
    std::uint32_t count;
    std::uint32_t textSize;
  };

  /// `bytes` as AttributePacker::CopyTo left them; nothing for no attributes.
  explicit PackedAttributes(const char* bytes = nullptr) : bytes_(bytes) {}

  int Count() const { return bytes_ != nullptr ? static_cast<int>(ReadHead().count) : 0; }
  /// The attributes as the writer writes them.
  std::string_view Text() const {
    if (bytes_ == nullptr) return {};
    const Head head = ReadHead();
    return {bytes_ + sizeof(Head) + head.count * sizeof(Lengths), head.textSize};
  }
  /// Calls visit(name, value) for each, in order.
  template <typename Visit>
  void ForEach(Visit visit) const {
    const auto count = static_cast<std::size_t>(Count());
    std::string_view text = Text();
    for (std::size_t i = 0; i < count; ++i) {
      Lengths one;
      std::memcpy(&one, bytes_ + sizeof(Head) + i * sizeof one, sizeof one);
      visit(text.substr(1, one.name), text.substr(one.name + std::size_t{3}, one.value));
      text.remove_prefix(kQuoting + one.name + one.value);
    }
  }

 private:
  Head ReadHead() const {
    Head head;
    std::memcpy(&head, bytes_, sizeof head);
    return head;
  }

  const char* bytes_;
};

/// Gathers the attributes of one tag.
class AttributePacker {
 public:
  void Clear() {
    lengths_.clear();
    text_.clear();
    written_ = {};
  }
  /// Takes attributes as the writer writes them, ` name="value"` with nothing else in between, from
  /// `from` on, as long as there are any and they hold no sign that ends a tag or breaks its line.
  /// Returns where they end. The text has to stay until CopyTo.
  const char* TakeWritten(const char* from, const char* end) {
    Clear();
    return from != end && *from == ' ' ? TakeFirstWritten(from, end) : from;
  }
  /// The name is trimmed already.
  void Add(std::string_view name, std::string_view value);

  /// Bytes that CopyTo writes; 0 without attributes.
  std::size_t Size() const {
    if (lengths_.empty()) return 0;
    return sizeof(PackedAttributes::Head) + lengths_.size() * sizeof(PackedAttributes::Lengths) +
           written_.size();
  }
  void CopyTo(char* bytes) const;  ///< Of one attribute at least.

 private:
  const char* TakeFirstWritten(const char* from, const char* end);

  std::vector<PackedAttributes::Lengths> lengths_;
  std::string text_;
  std::string_view written_;  // in text_, or where TakeWritten found it
};

}  // namespace tarvo
