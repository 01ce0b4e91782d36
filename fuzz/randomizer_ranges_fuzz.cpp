// Any file of ranges: it loads, every range can be chosen and removed, and runs go through.
// corpus: xml
#include "fuzz/randomizer_rig.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto rig = std::make_unique<RandomizerRig>();
  rig->files[RandomizerRig::kRanges] = RandomizerRig::TextOf(data, size);
  rig->randomizer.LoadRandomizerFiles();
  rig->randomizer.RunRandomizer();
  rig->page.rIni.Type("1");
  rig->page.rEnd.Type("2");
  rig->page.rAdd[0].Click();
  for (int left = 10; left > 0 && !rig->page.lstRnd.Items().empty(); --left) {
    rig->page.lstRnd.Choose(0);
    rig->page.rAdd[1].Click();
    rig->randomizer.RunRandomizer();
  }
  return 0;
}
