#include "desktop/status_icons.h"

namespace tarvo {

IconHandle StatusIcons::For(const AlarmStates& states) {
  const int size = icons_.NotificationSize();
  if (shown_ != 0 && states == states_ && size == size_) return shown_;
  icons_.Destroy(before_);
  before_ = shown_;
  states_ = states;
  size_ = size;
  shown_ = icons_.Create(DrawStatusPicture(states, size));
  return shown_;
}

StatusIcons::~StatusIcons() {
  icons_.Destroy(before_);
  icons_.Destroy(shown_);
}

}  // namespace tarvo
