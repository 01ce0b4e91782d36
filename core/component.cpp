#include "core/component.h"

namespace tarvo {

const char* NameOf(ComponentKind kind) {
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
