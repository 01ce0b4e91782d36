#include "xmldoc/field.h"

#include "xmldoc/rules/text_rules.h"

namespace tarvo {

void Field::SetName(std::string_view name) { Changed(name_).Assign(CheckedName(name)); }

std::string Field::Value() const { return Unescaped(value_.View()); }

void Field::SetValue(std::string_view value) { Changed(value_).Assign(Escaped(value)); }

CipherHooks& Field::Cipher() {
  if (!cipher_) Changed(cipher_) = std::make_unique<CipherHooks>();
  return *cipher_;
}

void Field::SetEncodePassword(std::string_view password) {
  if (password != EncodePassword()) Cipher().encodePassword = password;
}

void Field::SetCryptType(std::int32_t type) {
  if (type != CryptType()) Cipher().cryptType = type;
}

}  // namespace tarvo
