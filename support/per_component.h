#pragma once

#include <array>

#include "support/component_kind.h"

namespace tarvo {

/// One thing for each component, indexed by `ComponentKind`.
template <class Thing>
struct PerComponent : std::array<Thing, kComponentCount> {
  using Base = std::array<Thing, kComponentCount>;
  using Base::operator[];
  Thing& operator[](ComponentKind kind) { return Base::operator[](IndexOf(kind)); }
  const Thing& operator[](ComponentKind kind) const { return Base::operator[](IndexOf(kind)); }
};

}  // namespace tarvo
