#pragma once

#include "form/randomizer_page.h"
#include "toolkit/windows/panel.h"

namespace tarvo {

/// The randomizer's page: a warning on top; at the left the settings with their ranges, and under
/// them when to draw; at the right the calendar.
class RandomizerPanel : public Panel {
 public:
  RandomizerPanel(Stage& stage, HWND parent, RandomizerPage& page);

 private:
  void AddRanges(RandomizerPage& page);
  void AddMode(RandomizerPage& page);
  void AddCalendar(RandomizerPage& page);
  void AddTime(RandomizerPage& page);
};

}  // namespace tarvo
