#include "toolkit/control.h"

namespace tarvo {

void Control::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Changed();
}

void Control::SetToolTip(std::string text) {
  if (toolTip_ == text) return;
  toolTip_ = std::move(text);
  Changed();
}

}  // namespace tarvo
