#pragma once

#include "ui/windows/panel.h"

namespace tarvo {

/// The randomizer's page: a warning on top; at the left the settings with their ranges, and under
/// them when to draw; at the right the calendar.
class RandomizerPanel : public Panel {
 public:
  RandomizerPanel(Stage& stage, HWND parent);

 private:
  void AddRanges(Stage& stage);
  void AddMode(Stage& stage);
  void AddCalendar(Stage& stage);
  void AddTime(Stage& stage);
};

}  // namespace tarvo
