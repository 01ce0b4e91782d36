#pragma once

#include <string>

#include "tests/app/supervision_model.h"
#include "tests/simulation/launcher.h"

namespace tarvo {

/// What the launcher has told in one event.
struct Told {
  std::string log;
  std::string boxes;
};

/// The first thing in which launcher and model differ after an event, with what each of them has;
/// "" when there is none. The log and the boxes of the model are those of the event too. Once a
/// fault has ended both, only what they leave behind counts.
std::string FirstDifference(Launcher& launcher, SimMachine& machine, const SupervisionModel& model,
                            const Told& told);

/// The launcher's timer that the model knows as this one.
Timer& TimerOf(Timers& timers, ComponentKind kind, ModelWatch watch);

}  // namespace tarvo
