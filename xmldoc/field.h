#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "xmldoc/nodes/compact_text.h"
#include "xmldoc/nodes/counted_node.h"
#include "xmldoc/parameters.h"

namespace tarvo {

/// The hooks for an external cipher, which nothing here calls: kept, copied down by the reader, and
/// never applied to a value. Most documents leave them empty, so nodes hold them only when they do
/// not.
struct CipherHooks {
  std::string encodePassword;
  std::int32_t cryptType = 0;
};

/// A leaf element: a name without blanks, a text value, and attributes.
class Field : public CountedNode<Field> {
 public:
  std::string Name() const { return std::string(name_.View()); }
  /// Trims blanks at both ends. Raises RuntimeError 1 ("Name", "Spaces found in the name") when a
  /// blank is left, and keeps the old name then.
  void SetName(std::string_view name);

  /// The value. It is kept with "<" and ">" as "&lt;" and "&gt;", and those two are turned back
  /// here, so a value set as "&lt;" reads "<". No other entity is touched.
  std::string Value() const;
  void SetValue(std::string_view value);

  /// Stored, and copied by the reader; nothing is encrypted.
  std::string EncodePassword() const { return cipher_ ? cipher_->encodePassword : std::string(); }
  void SetEncodePassword(std::string_view password);
  std::int32_t CryptType() const { return cipher_ ? cipher_->cryptType : 0; }
  void SetCryptType(std::int32_t type);

  tarvo::Parameters& Parameters() { return Changed(parameters_); }
  const tarvo::Parameters& Parameters() const { return parameters_; }

  /// The texts in place, valid until they are set or the node is destroyed; the value in its kept
  /// form.
  std::string_view NameView() const { return name_.View(); }
  std::string_view EscapedValueView() const { return value_.View(); }

 private:
  friend class CountedNode<Field>;
  friend class NodeMaker;  // puts a field and its texts into one block of memory

  Field() = default;
  ~Field() = default;
  CipherHooks& Cipher();

  CompactText name_;
  CompactText value_;
  tarvo::Parameters parameters_;
  std::unique_ptr<CipherHooks> cipher_;
};

}  // namespace tarvo
