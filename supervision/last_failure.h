#pragma once

#include "core/component.h"
#include "platform/clock.h"
#include "toolkit/controls.h"

namespace tarvo {

/// Shows after "Last failure:" which component failed last, and when: "Map: 2026-11-21 10:32:07".
void ShowLastFailure(Label& lblErr, ComponentKind kind, LocalTime time);

}  // namespace tarvo
