#include "desktop/status_icons.h"

#include <utility>

namespace tarvo {

IconHandle StatusIcons::For(const AlarmStates& states) {
  const int size = icons_.NotificationSize();
  if (shown_ != 0 && states == states_ && size == size_) return shown_;
  icons_.Destroy(std::exchange(before_, 0));
  const IconHandle drawn = icons_.Create(DrawStatusPicture(states, size));
  if (drawn == 0) return shown_;
  before_ = std::exchange(shown_, drawn);
  states_ = states;
  size_ = size;
  return shown_;
}

StatusIcons::~StatusIcons() {
  icons_.Destroy(before_);
  icons_.Destroy(shown_);
}

}  // namespace tarvo
