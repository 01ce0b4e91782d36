#include "xmldoc/parameter.h"

#include <new>

#include "xmldoc/rules/text_rules.h"

namespace tarvo {

Ref<Parameter> Parameter::Create() {
  return Ref<Parameter>::Adopt(new (NodePool::AllocateAlone(sizeof(Parameter))) Parameter);
}

void Parameter::SetName(std::string_view name) { name_.Assign(CheckedName(name)); }

void Parameter::Destroy() {
  this->~Parameter();
  NodePool::Free(this, 0);
}

}  // namespace tarvo
