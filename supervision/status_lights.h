#pragma once

#include <functional>
#include <optional>
#include <string>

#include "core/component.h"
#include "platform/clock.h"
#include "toolkit/controls.h"

namespace tarvo {

/// The code of a combination of alarm states, 0 to 25; nothing for the one combination without a
/// code (login in trouble, char not watched, map in trouble).
std::optional<int> StatusCodeFor(AlarmState login, AlarmState charServer, AlarmState map);

/// The alarm states that a code means. A code outside 0 to 25 counts as 8, nothing watched.
PerComponent<AlarmState> StatesOfCode(int code);

/// Shows the components' alarm states as lights, and keeps their combined code.
class StatusLights {
 public:
  /// The tool tip of each light says how its component is at the moment, and on a line of its own
  /// why the last probe failed.
  StatusLights(PerComponent<Light>& Sem, const ComponentTable& components);

  /// Takes over the code of the present states; keeps the last one when they have none.
  void Combine();
  /// Sets the lights.
  void Show();

  /// How a component is, in one sentence; without this hook the tool tips say nothing of it.
  std::function<std::string(ComponentKind)> sentenceOf;

  /// The code that was taken over last; 8, nothing watched, before the first.
  int StatusCode() const { return statusCode_; }

 private:
  std::string ToolTipOf(ComponentKind kind) const;

  PerComponent<Light>& Sem_;
  const ComponentTable& components_;
  int statusCode_ = 8;
};

/// Shows after "Last failure:" which component failed last, and when: "Map: 2026-11-21 10:32:07".
void ShowLastFailure(Label& lblErr, ComponentKind kind, LocalTime time);

}  // namespace tarvo
