#include "xmldoc/fields.h"

#include <algorithm>

#include "xmldoc/node_key.h"
#include "xmldoc/rules/letter_case.h"

namespace tarvo {

int Fields::Count(std::optional<std::string_view> name,
                  std::optional<std::string_view> value) const {
  return static_cast<int>(std::count_if(list_.begin(), list_.end(), [&](const tarvo::Field* field) {
    return (!name || EqualIgnoringCase(field->NameView(), *name)) &&
           (!value || EqualIgnoringCase(field->Value(), *value));
  }));
}

Ref<Field> Fields::Field(int index) const {
  return list_.Has(index) ? Ref<tarvo::Field>(list_.At(index)) : tarvo::Field::Create();
}

Ref<Field> Fields::Field(std::string_view key) const { return Field(LastOfKey(list_, key)); }

Ref<Field> Fields::SearchField(std::string_view name, bool ignoreCase) const {
  return Field(LastOfName(list_, name, ignoreCase));
}

int Fields::AddField(std::string_view name, std::string_view value, std::string_view encodePassword,
                     std::int32_t cryptType) {
  auto field = tarvo::Field::Create();
  field->SetEncodePassword(encodePassword);
  field->SetCryptType(cryptType);
  field->SetName(name);
  field->SetValue(value);
  list_.Append(std::move(field));
  return list_.Size() - 1;
}

Ref<Field> Fields::RemoveField(int index) {
  return list_.Has(index) ? list_.Remove(index) : tarvo::Field::Create();
}

Ref<Field> Fields::RemoveField(std::string_view key) { return RemoveField(LastOfKey(list_, key)); }

void Fields::Sort(bool ascending) {
  std::stable_sort(list_.begin(), list_.end(),
                   [ascending](const tarvo::Field* a, const tarvo::Field* b) {
                     if (!ascending) std::swap(a, b);
                     return LessIgnoringCase(a->NameView(), b->NameView());
                   });
}

}  // namespace tarvo
