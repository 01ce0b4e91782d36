#include "xmldoc/parameters.h"

#include <memory>

#include "xmldoc/node_key.h"
#include "xmldoc/rules/letter_case.h"
#include "xmldoc/rules/text_rules.h"

namespace tarvo {

namespace {

Ref<Parameter> NewParameter(std::string_view name, std::string_view value) {
  auto parameter = Parameter::Create();
  parameter->SetName(name);
  parameter->SetValue(value);
  return parameter;
}

}  // namespace

void Parameter::SetName(std::string_view name) { name_.Assign(CheckedName(name)); }

Parameters::List& Parameters::Unpacked() {
  if (Objects() != nullptr) return *Objects();
  auto unpacked = std::make_unique<List>();
  ForEach([&unpacked](std::string_view name, std::string_view value) {
    unpacked->Append(NewParameter(name, value));
  });
  held_ = reinterpret_cast<std::uintptr_t>(unpacked.release()) + 1;
  return *Objects();
}

int Parameters::IndexOf(std::string_view name) {
  return Count() == 0 ? -1 : LastOfName(Unpacked(), name, true);
}

Ref<Parameter> Parameters::Parameter(int index) {
  return Has(index) ? Ref<tarvo::Parameter>(Unpacked().At(index)) : tarvo::Parameter::Create();
}

Ref<Parameter> Parameters::Parameter(std::string_view name) { return Parameter(IndexOf(name)); }

int Parameters::AddParameter(std::string_view name, std::string_view value) {
  auto parameter = NewParameter(name, value);
  Unpacked().Append(std::move(parameter));
  return Count() - 1;
}

Ref<Parameter> Parameters::RemoveParameter(int index) {
  return Has(index) ? Unpacked().Remove(index) : tarvo::Parameter::Create();
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
