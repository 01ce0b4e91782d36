#include "xmldoc/field.h"

#include <new>

#include "xmldoc/rules/text_rules.h"

namespace tarvo {

Ref<Field> Field::Create() {
  return Ref<Field>::Adopt(new (NodePool::AllocateAlone(sizeof(Field))) Field);
}

void Field::SetName(std::string_view name) { name_.Assign(CheckedName(name)); }

std::string Field::Value() const { return Unescaped(value_.View()); }

void Field::SetValue(std::string_view value) { value_.Assign(Escaped(value)); }

CipherHooks& Field::Cipher() {
  if (!cipher_) cipher_ = std::make_unique<CipherHooks>();
  return *cipher_;
}

void Field::SetEncodePassword(std::string_view password) {
  if (password != EncodePassword()) Cipher().encodePassword = password;
}

void Field::SetCryptType(std::int32_t type) {
  if (type != CryptType()) Cipher().cryptType = type;
}

void Field::Destroy() {
  const std::uint16_t place = header_.place;
  this->~Field();
  NodePool::Free(this, place);
}

}  // namespace tarvo
