#include "supervision/status_lights.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>

#include "support/date_time.h"

namespace tarvo {
namespace {

constexpr auto kOk = AlarmState::Healthy;
constexpr auto kBad = AlarmState::Trouble;
constexpr auto kNot = AlarmState::NotWatched;

/// The states of login, char and map, by their code, four in a row.
constexpr std::array<AlarmState, kComponentCount> kStates[] = {
    {kOk, kOk, kOk},    {kBad, kOk, kOk},   {kOk, kBad, kOk},   {kOk, kOk, kBad},
    {kBad, kBad, kOk},  {kOk, kBad, kBad},  {kBad, kOk, kBad},  {kBad, kBad, kBad},
    {kNot, kNot, kNot}, {kNot, kNot, kBad}, {kNot, kBad, kNot}, {kBad, kNot, kNot},
    {kNot, kNot, kOk},  {kNot, kOk, kNot},  {kOk, kNot, kNot},  {kOk, kOk, kNot},
    {kNot, kOk, kOk},   {kNot, kBad, kBad}, {kOk, kBad, kNot},  {kBad, kOk, kNot},
    {kNot, kOk, kBad},  {kNot, kBad, kOk},  {kBad, kNot, kOk},  {kOk, kNot, kBad},
    {kBad, kBad, kNot}, {kOk, kNot, kOk},
};
constexpr int kNothingWatched = 8;

}  // namespace

std::optional<int> StatusCodeFor(AlarmState login, AlarmState charServer, AlarmState map) {
  const auto found =
      std::find(std::begin(kStates), std::end(kStates), std::array{login, charServer, map});
  if (found == std::end(kStates)) return std::nullopt;
  return static_cast<int>(found - std::begin(kStates));
}

PerComponent<AlarmState> StatesOfCode(int code) {
  const bool known = code >= 0 && code < static_cast<int>(std::size(kStates));
  return {kStates[known ? code : kNothingWatched]};
}

StatusLights::StatusLights(PerComponent<Light>& Sem, const ComponentTable& components)
    : Sem_(Sem), components_(components) {
  for (ComponentKind kind : kComponents) {
    Sem_[kind].makeToolTip = [this, kind] { return ToolTipOf(kind); };
  }
}

void StatusLights::Combine() {
  const auto code = StatusCodeFor(components_[ComponentKind::Login].AlarmState,
                                  components_[ComponentKind::Char].AlarmState,
                                  components_[ComponentKind::Map].AlarmState);
  if (code) statusCode_ = *code;
}

void StatusLights::Show() {
  for (ComponentKind kind : kComponents) {
    Sem_[kind].SetState(LightStateOf(components_[kind].AlarmState));
  }
}

std::string StatusLights::ToolTipOf(ComponentKind kind) const {
  const std::string sentence = sentenceOf ? sentenceOf(kind) : std::string();
  const std::string& why = components_[kind].probeFailure;
  return sentence + (sentence.empty() || why.empty() ? "" : "\r\n") + why;
}

void ShowLastFailure(Label& lblErr, ComponentKind kind, LocalTime time) {
  lblErr.SetCaption(std::string(NameOf(kind)) + ": " + GeneralDate(time));
}

}  // namespace tarvo
