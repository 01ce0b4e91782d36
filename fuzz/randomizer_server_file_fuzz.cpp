// Any server file: it loads, a run keeps its number of lines, and a second run changes no more.
// corpus: server_file
#include <cstdlib>

#include "fuzz/randomizer_rig.h"
#include "support/text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto rig = std::make_unique<RandomizerRig>();
  const std::string before = RandomizerRig::TextOf(data, size);
  std::string& file = rig->files[RandomizerRig::kServerFile];
  file = before;
  rig->randomizer.LoadRandomizerFiles();
  rig->randomizer.RunRandomizer();
  const std::string after = file;
  std::size_t difference = 0;
  tarvo::ForEachLine(before, [&](std::string_view) { ++difference; });
  tarvo::ForEachLine(after, [&](std::string_view) { --difference; });
  rig->randomizer.RunRandomizer();
  if (difference != 0 || file != after) std::abort();
  return 0;
}
