#pragma once

#include <windows.h>

#include <chrono>
#include <string>

#include "tests/operator/acceptance/story.h"

namespace tarvo::acceptance {

using std::chrono::seconds;

/// The time that all stories have together.
inline constexpr std::chrono::minutes kTimeInAll{10};

/// What is left of it, counted from the program's start; never less than nothing.
std::chrono::milliseconds TimeLeft();

/// Waits until `holds` returns true. False after that time; `DidNotHold` when the time of all
/// stories is over.
template <typename Condition>
bool Holds(seconds patience, const Condition& holds) {
  const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(patience.count()) * 1000;
  while (!holds()) {
    if (GetTickCount64() >= end) return false;
    if (TimeLeft().count() == 0) throw DidNotHold("the ten minutes are over");
    Sleep(50);
  }
  return true;
}

/// The same; that it never holds is told as `what`.
template <typename Condition>
void Await(seconds patience, const std::string& what, const Condition& holds) {
  if (!Holds(patience, holds)) throw DidNotHold(what);
}

/// Unless `holds`, this did not.
inline void Expect(bool holds, const std::string& what) {
  if (!holds) throw DidNotHold(what);
}

inline void ExpectEqual(const std::string& seen, const std::string& wanted, const std::string& of) {
  Expect(seen == wanted, of + " is \"" + seen + "\", not \"" + wanted + "\"");
}

}  // namespace tarvo::acceptance
