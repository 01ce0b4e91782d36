#include "xmldoc/parameters.h"

#include "xmldoc/node_key.h"
#include "xmldoc/rules/letter_case.h"

namespace tarvo {

void Parameters::Unpack() {
  if (!packed_.Any()) return;
  NodeList<tarvo::Parameter> unpacked;
  packed_.ForEach([&](std::string_view name, std::string_view value) {
    auto parameter = tarvo::Parameter::Create();
    parameter->SetName(name);
    parameter->SetValue(value);
    unpacked.Append(std::move(parameter));
  });
  list_.Swap(unpacked);
  packed_ = PackedAttributes();
}

int Parameters::IndexOf(std::string_view name) {
  Unpack();
  return LastOfName(list_, name, true);
}

Ref<Parameter> Parameters::Parameter(int index) {
  Unpack();
  return list_.Has(index) ? Ref<tarvo::Parameter>(list_.At(index)) : tarvo::Parameter::Create();
}

Ref<Parameter> Parameters::Parameter(std::string_view name) { return Parameter(IndexOf(name)); }

int Parameters::AddParameter(std::string_view name, std::string_view value) {
  Unpack();
  auto parameter = tarvo::Parameter::Create();
  parameter->SetName(name);
  parameter->SetValue(value);
  list_.Append(std::move(parameter));
  return list_.Size() - 1;
}

Ref<Parameter> Parameters::RemoveParameter(int index) {
  Unpack();
  return list_.Has(index) ? list_.Remove(index) : tarvo::Parameter::Create();
}

Ref<Parameter> Parameters::RemoveParameter(std::string_view name) {
  return RemoveParameter(IndexOf(name));
}

bool Parameters::Holds(std::string_view name, std::optional<std::string_view> value) const {
  bool found = false;
  ForEach([&](std::string_view itsName, std::string_view itsValue) {
    found = found || ((!value || itsValue == *value) && EqualIgnoringCase(itsName, name));
  });
  return found;
}

}  // namespace tarvo
