#include "supervision/status_lights.h"

#include "form/status_colours.h"

namespace tarvo {
namespace {

constexpr int kNoCode = -1;

/// The code by the states of login, char (rows) and map (columns).
constexpr int kCodes[9][3] = {
    {0, 3, 15},         // login 0, char 0
    {2, 5, 18},         // login 0, char 1
    {25, 23, 14},       // login 0, char 2
    {1, 6, 19},         // login 1, char 0
    {4, 7, 24},         // login 1, char 1
    {22, kNoCode, 11},  // login 1, char 2
    {16, 20, 13},       // login 2, char 0
    {21, 17, 10},       // login 2, char 1
    {12, 9, 8},         // login 2, char 2
};

std::size_t NumberOf(AlarmState state) { return static_cast<std::size_t>(state); }

}  // namespace

std::optional<int> StatusCodeFor(AlarmState login, AlarmState charServer, AlarmState map) {
  const int code = kCodes[NumberOf(login) * 3 + NumberOf(charServer)][NumberOf(map)];
  if (code == kNoCode) return std::nullopt;
  return code;
}

PerComponent<AlarmState> StatesOfCode(int code) {
  constexpr AlarmState kStates[] = {AlarmState::Healthy, AlarmState::Trouble,
                                    AlarmState::NotWatched};
  for (AlarmState login : kStates) {
    for (AlarmState charServer : kStates) {
      for (AlarmState map : kStates) {
        if (StatusCodeFor(login, charServer, map) == code) return {{login, charServer, map}};
      }
    }
  }
  return {{AlarmState::NotWatched, AlarmState::NotWatched, AlarmState::NotWatched}};
}

Colour LightColourFor(AlarmState state) {
  switch (state) {
    case AlarmState::Trouble:
      return kTroubleLight;
    case AlarmState::Healthy:
      return kHealthyLight;
    case AlarmState::NotWatched:
      break;
  }
  return kUnwatchedLight;
}

void StatusLights::Combine() {
  const auto code = StatusCodeFor(components_[ComponentKind::Login].AlarmState,
                                  components_[ComponentKind::Char].AlarmState,
                                  components_[ComponentKind::Map].AlarmState);
  if (code) statusCode_ = *code;
}

void StatusLights::Show() {
  for (ComponentKind kind : kComponents) {
    Sem_[kind].SetFill(LightColourFor(components_[kind].AlarmState));
    Sem_[kind].SetToolTip(components_[kind].probeFailure);
  }
}

}  // namespace tarvo
