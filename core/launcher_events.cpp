#include "core/launcher_events.h"

#include <utility>

namespace tarvo {

const char* NameOf(LauncherEvent event) {
  switch (event) {
    case LauncherEvent::Started:
      return "started";
    case LauncherEvent::Listening:
      return "listening";
    case LauncherEvent::Crashed:
      return "crashed";
    case LauncherEvent::Frozen:
      return "frozen";
    case LauncherEvent::Back:
      return "back";
    case LauncherEvent::Killed:
      return "killed";
    case LauncherEvent::Stopped:
      return "stopped";
    case LauncherEvent::RefusedToEnd:
      return "refused-to-end";
    case LauncherEvent::CrashLoop:
      return "crash-loop";
    case LauncherEvent::Randomized:
      return "randomized";
    case LauncherEvent::Upgraded:
      return "upgraded";
    case LauncherEvent::UpgradeFailed:
      break;
  }
  return "upgrade-failed";
}

void LauncherEvents::Report(LauncherEvent event, std::optional<ComponentKind> component,
                            std::string text) const {
  const EventReport report{event, component, std::move(text)};
  for (const auto& listener : listeners) listener(report);
}

}  // namespace tarvo
