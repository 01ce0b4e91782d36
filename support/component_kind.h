#pragma once

#include <array>
#include <cstddef>

namespace tarvo {

/// One of the three server programs; the index of every array that holds one thing for each.
enum class ComponentKind : std::size_t { Login = 0, Char = 1, Map = 2 };

inline constexpr std::size_t kComponentCount = 3;

/// The fixed order of every loop over the components.
inline constexpr std::array<ComponentKind, kComponentCount> kComponents = {
    ComponentKind::Login, ComponentKind::Char, ComponentKind::Map};

constexpr std::size_t IndexOf(ComponentKind kind) { return static_cast<std::size_t>(kind); }

/// "Login", "Char", "Map": what the component is called in the window, in the log and in the names
/// of its settings.
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

/// "login", "char", "map": what it is called in commands, in a script's environment, in what is
/// written for other programs, and within a sentence.
constexpr const char* WordOf(ComponentKind kind) {
  switch (kind) {
    case ComponentKind::Login:
      return "login";
    case ComponentKind::Char:
      return "char";
    case ComponentKind::Map:
      break;
  }
  return "map";
}

/// One thing for each component, indexed by `ComponentKind`.
template <class Thing>
struct PerComponent : std::array<Thing, kComponentCount> {
  using Base = std::array<Thing, kComponentCount>;
  using Base::operator[];
  Thing& operator[](ComponentKind kind) { return Base::operator[](IndexOf(kind)); }
  const Thing& operator[](ComponentKind kind) const { return Base::operator[](IndexOf(kind)); }
};

}  // namespace tarvo
