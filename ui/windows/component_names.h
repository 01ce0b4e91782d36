#pragma once

#include "ui/component_kind.h"

namespace tarvo {

/// The component's name as it stands beside its controls.
constexpr const char* NameOf(ComponentKind kind) {
  switch (kind) {
    case ComponentKind::Login:
      return "Login";
    case ComponentKind::Char:
      return "Char";
    case ComponentKind::Map:
      break;
  }
  return "Map";
}

}  // namespace tarvo
