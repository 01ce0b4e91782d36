#pragma once

#include "tests/randomizer/randomizer_story.h"

namespace tarvo {

/// A story of the group "Server Configuration".
class Panel : public RandomizerStory {
 protected:
  void Update() { Page().rAdd[0].Click(); }
  void Remove() { Page().rAdd[1].Click(); }
  std::string Box() { return machine.boxes.NewTexts(); }
};

}  // namespace tarvo
