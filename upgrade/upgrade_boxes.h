#pragma once

#include <optional>

#include "platform/message_boxes.h"
#include "support/component_kind.h"
#include "toolkit/controls.h"

namespace tarvo {

/// Results of an upgrade. The codes of a missing file are `kUpgradeFirstMissing` and the two after
/// it: login, char, map.
inline constexpr int kUpgradeDone = 0;
inline constexpr int kUpgradeNothingNew = 1;
inline constexpr int kUpgradeNotAllNew = 2;
inline constexpr int kUpgradeSeeLog = 3;  ///< Reserved for callers; no upgrade returns it.
inline constexpr int kUpgradeNotChosen = 4;
inline constexpr int kUpgradeSameFile = 5;
inline constexpr int kUpgradeFirstMissing = 6;

/// Asked before servers that run are stopped by an upgrade that the operator began.
MessageBoxRequest UpgradeQuestion();

/// The box that shows the operator the result of the upgrade that he began; nothing for an unknown
/// code.
std::optional<MessageBoxRequest> UpgradeBoxFor(int code, const PerComponent<PathBox>& newFiles);

}  // namespace tarvo
