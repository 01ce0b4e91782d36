#include "upgrade/upgrade_boxes.h"

namespace tarvo {

MessageBoxRequest UpgradeQuestion() {
  // 0xBF is the inverted question mark of the western code page.
  return {
      "\xBF"
      "Stop all to Upgrade?\r\nThe server components are running.",
      BoxIcon::Question, BoxButtons::YesNo};
}

std::optional<MessageBoxRequest> UpgradeBoxFor(int code, const PerComponent<PathBox>& newFiles) {
  switch (code) {
    case kUpgradeDone:
      return MessageBoxRequest{"Upgrade was succesfull!", BoxIcon::Information};
    case kUpgradeNothingNew:
      return MessageBoxRequest{"FROM and TO components are the same version, upgrade stopped!",
                               BoxIcon::Information};
    case kUpgradeNotAllNew:
      return MessageBoxRequest{"Some components don't have changes, upgrade stopped!",
                               BoxIcon::Information};
    case kUpgradeSeeLog:
      return MessageBoxRequest{"Error, please check log Window!", BoxIcon::Information};
    case kUpgradeNotChosen:
      return MessageBoxRequest{"Please, select the right new components (login, char, map)",
                               BoxIcon::Information};
    case kUpgradeSameFile:
      return MessageBoxRequest{"Error, please select the right components.", BoxIcon::Critical};
    case kUpgradeFirstMissing:
    case kUpgradeFirstMissing + 1:
    case kUpgradeFirstMissing + 2: {
      const auto index = static_cast<std::size_t>(code - kUpgradeFirstMissing);
      return MessageBoxRequest{"File missing: " + newFiles[index].Text(), BoxIcon::Critical};
    }
    default:
      return std::nullopt;
  }
}

}  // namespace tarvo
