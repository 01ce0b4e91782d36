// Any calendar: it loads, ticks through the days, and every line of it can be removed.
// corpus: xml
#include "fuzz/randomizer_rig.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto rig = std::make_unique<RandomizerRig>();
  rig->files[RandomizerRig::kCalendar] = RandomizerRig::TextOf(data, size);
  rig->randomizer.LoadRandomizerFiles();
  for (int tick = 0; tick < 50; ++tick) {
    rig->now += std::chrono::minutes(211);
    rig->randomizer.TheCalendar().Tick();
  }
  rig->page.lstDay.Choose(0);
  rig->page.cmdCalendar[0].Click();
  for (int left = 10; left > 0 && !rig->page.lstDTRands.Items().empty(); --left) {
    rig->page.lstDTRands.Choose(0);
    rig->page.cmdCalendar[1].Click();
  }
  return 0;
}
