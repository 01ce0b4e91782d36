#include "desktop/status_icons.h"

namespace tarvo {

IconHandle StatusIcons::For(const AlarmStates& states) {
  const int size = icons_.NotificationSize();
  if (size != size_) Forget();
  size_ = size;
  std::size_t place = 0;
  for (AlarmState state : states) place = place * kStates + static_cast<std::size_t>(state);
  IconHandle& icon = made_[place];
  if (icon == 0) icon = icons_.Create(DrawStatusPicture(states, size));
  return icon;
}

void StatusIcons::Forget() {
  for (IconHandle& icon : made_) {
    icons_.Destroy(icon);
    icon = 0;
  }
}

}  // namespace tarvo
