// Every fuzz target bears every one of its seeds.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>

#define FUZZ_TARGET(name) extern "C" int name(const std::uint8_t* data, std::size_t size);
#include "fuzz_targets.inc"
#undef FUZZ_TARGET

namespace {

namespace fs = std::filesystem;

struct Target {
  const char* name;
  int (*run)(const std::uint8_t*, std::size_t);
  friend void PrintTo(const Target& target, std::ostream* out) { *out << target.name; }
};

constexpr Target kTargets[] = {
#define FUZZ_TARGET(name) {#name, name},
#include "fuzz_targets.inc"
#undef FUZZ_TARGET
};

/// The folder that a target's source names on its line "// corpus: ".
fs::path SeedsOf(const Target& target) {
  const fs::path folder = TARVO_FUZZ_FOLDER;
  std::ifstream source(folder / (std::string(target.name) + ".cpp"));
  const std::string mark = "// corpus: ";
  for (std::string line; std::getline(source, line);) {
    if (line.starts_with(mark)) return folder / "corpus" / line.substr(mark.size());
  }
  return {};
}

class FuzzTarget : public ::testing::TestWithParam<Target> {};

TEST_P(FuzzTarget, BearsItsSeeds) {
  int seeds = 0;
  for (const auto& entry : fs::directory_iterator(SeedsOf(GetParam()))) {
    SCOPED_TRACE(entry.path());
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(file)), {});
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(GetParam().run(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()), 0);
    ++seeds;
  }
  EXPECT_GT(seeds, 0);
}

INSTANTIATE_TEST_SUITE_P(All, FuzzTarget, ::testing::ValuesIn(kTargets),
                         [](const auto& target) { return std::string(target.param.name); });

}  // namespace
