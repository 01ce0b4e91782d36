// What the watches' states look like: the lights with their code, the memory read-out, the last
// failure.

#include "desktop/status_picture.h"
#include "form/status_colours.h"
#include "supervision/memory_watch.h"
#include "supervision/status_lights.h"
#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

AlarmState StateOfNumber(int number) { return static_cast<AlarmState>(number); }

TEST(StatusCode, HasOneNumberForEachCombinationButOne) {
  const struct {
    int login, charServer, map, code;
  } cases[] = {{0, 0, 0, 0},  {1, 0, 0, 1},  {0, 1, 0, 2},  {0, 0, 1, 3},  {1, 1, 0, 4},
               {0, 1, 1, 5},  {1, 0, 1, 6},  {1, 1, 1, 7},  {2, 2, 2, 8},  {2, 2, 1, 9},
               {2, 1, 2, 10}, {1, 2, 2, 11}, {2, 2, 0, 12}, {2, 0, 2, 13}, {0, 2, 2, 14},
               {0, 0, 2, 15}, {2, 0, 0, 16}, {2, 1, 1, 17}, {0, 1, 2, 18}, {1, 0, 2, 19},
               {2, 0, 1, 20}, {2, 1, 0, 21}, {1, 2, 0, 22}, {0, 2, 1, 23}, {1, 1, 2, 24},
               {0, 2, 0, 25}};
  static_assert(std::size(cases) == 26);
  for (const auto& c : cases) {
    EXPECT_EQ(
        StatusCodeFor(StateOfNumber(c.login), StateOfNumber(c.charServer), StateOfNumber(c.map)),
        c.code)
        << c.login << c.charServer << c.map;
  }
  EXPECT_FALSE(StatusCodeFor(StateOfNumber(1), StateOfNumber(2), StateOfNumber(1)));
}

TEST(StatusCode, StandsForItsStatesAndAnyOtherNumberForNothingWatched) {
  for (int code = 0; code <= 25; ++code) {
    const PerComponent<AlarmState> states = StatesOfCode(code);
    EXPECT_EQ(StatusCodeFor(states[ComponentKind::Login], states[ComponentKind::Char],
                            states[ComponentKind::Map]),
              code);
  }
  for (int code : {-1, 26, 1000}) {
    for (AlarmState state : StatesOfCode(code)) EXPECT_EQ(state, AlarmState::NotWatched) << code;
  }
}

TEST(StatusLightsShown, AreRedGreenAndGrey) {
  EXPECT_EQ(ColourOf(LightStateOf(AlarmState::Trouble)), 255u);
  EXPECT_EQ(ColourOf(LightStateOf(AlarmState::Healthy)), 49152u);
  EXPECT_EQ(ColourOf(LightStateOf(AlarmState::NotWatched)), 0xC0C0C0u);
  EXPECT_EQ(ColourOf(LightStateOf(StateOfNumber(7))), 0xC0C0C0u);
}

TEST(StatusLightsShown, TheOneCombinationWithoutACodeKeepsTheLastOne) {
  PerComponent<Light> Sem;
  ComponentTable components;
  StatusLights lights(Sem, components);
  EXPECT_EQ(lights.StatusCode(), 8);
  components[ComponentKind::Login].AlarmState = AlarmState::Healthy;
  components[ComponentKind::Map].AlarmState = AlarmState::Trouble;
  lights.Combine();
  EXPECT_EQ(lights.StatusCode(), 23);
  components[ComponentKind::Login].AlarmState = AlarmState::Trouble;
  lights.Combine();
  EXPECT_EQ(lights.StatusCode(), 23);
  lights.Show();
  EXPECT_EQ(ColourOf(Sem[ComponentKind::Login].State()), 0x0000FFu);
  EXPECT_EQ(ColourOf(Sem[ComponentKind::Char].State()), 0xC0C0C0u);
  EXPECT_EQ(ColourOf(Sem[ComponentKind::Map].State()), 0x0000FFu);
}

TEST(FreeMemory, IsAShareOfAtLeastTwoDigitsAndMegabytesWithTwoDecimals) {
  constexpr std::int64_t kMegabyte = 1024 * 1024;
  const struct {
    MemoryFigures figures;  // Free and total physical, free and total paging file.
    const char* text;
  } cases[] = {
      {{500 * kMegabyte, 1000 * kMegabyte, 1000 * kMegabyte, 3000 * kMegabyte},
       "38% (1,500.00 MB)"},
      {{5 * kMegabyte, 100 * kMegabyte, 0, 0}, "05% (5.00 MB)"},
      {{5 * kMegabyte, 8 * kMegabyte, 0, 0}, "63% (5.00 MB)"},
      {{kMegabyte, 200 * kMegabyte, 0, 0}, "01% (1.00 MB)"},
      {{131072, kMegabyte, 0, 0}, "13% (0.13 MB)"},
      {{0, 100 * kMegabyte, 0, 100 * kMegabyte}, "00% (0.00 MB)"},
      {{kMegabyte, kMegabyte, kMegabyte, kMegabyte}, "100% (2.00 MB)"},
      {{kMegabyte + 5243, kMegabyte * 2, 0, 0}, "50% (1.01 MB)"},
      {{1048575, kMegabyte, 0, 0}, "100% (1.00 MB)"},
      {{999 * kMegabyte + 1048000, 2000 * kMegabyte, 0, 0}, "50% (1,000.00 MB)"},
      {{-2 * kMegabyte, -1, 0, 0}, "100% (4,094.00 MB)"},
      {{-1073741824, -1073741824, -1073741824, -1073741824}, "100% (6,144.00 MB)"},
      {{8589934592, 17179869184, 8589934592, 17179869184}, "50% (16,384.00 MB)"},
      {{1099511627776, 1099511627776, 0, 0}, "100% (1,048,576.00 MB)"},
      {{0, 0, 0, 0}, "00% (0.00 MB)"},
      {{kMegabyte, 0, 0, 0}, "00% (1.00 MB)"},
      {{0, 1, 0, 0}, "00% (0.00 MB)"},
      {{1, 1, 0, 0}, "100% (0.00 MB)"},
  };
  for (const auto& c : cases) EXPECT_EQ(MemoryText(c.figures), c.text);
}

TEST(LastFailure, NamesTheComponentAndTheMoment) {
  const LocalTime moment = std::chrono::local_days(std::chrono::year(2026) / 1 / 2) + 3h + 4min;
  Label label;
  const char* const texts[] = {"Login: 2026-01-02 03:04:00", "Char: 2026-01-02 03:04:00",
                               "Map: 2026-01-02 03:04:00"};
  for (ComponentKind kind : kComponents) {
    ShowLastFailure(label, kind, moment);
    EXPECT_EQ(label.Caption(), texts[IndexOf(kind)]);
  }
}

class Displays : public LauncherStory {
 protected:
  Colour Lit(ComponentKind kind) { return ColourOf(launcher->TheForm().frame.Sem[kind].State()); }
  bool IconShows(int code) const {
    return machine.icons.last.pixels == DrawStatusPicture(StatesOfCode(code), 16).pixels;
  }
};

TEST_F(Displays, BeforeAnythingIsWatchedAllLightsAreGreyAndTheCodeIsEight) {
  StartLauncher();
  launcher->Pass(1min);
  for (ComponentKind kind : kComponents) EXPECT_EQ(Lit(kind), 0xC0C0C0u);
  EXPECT_TRUE(IconShows(8));
}

TEST_F(Displays, LightsAndCodeFollowEveryTwoSeconds) {
  StartLauncher();
  launcher->Click("bStart", 0);
  launcher->Pass(3999ms);
  EXPECT_EQ(Lit(ComponentKind::Login), 0xC0C0C0u);
  launcher->Pass(1ms);
  EXPECT_EQ(Lit(ComponentKind::Login), 0x00C000u);
  EXPECT_TRUE(IconShows(14));
}

TEST_F(Displays, TheMemoryReadOutIsRefreshedEveryFiveSecondsEachFigureByItsOwnCall) {
  StartLauncher();
  machine.recorder.Forget();
  machine.memory.Set(1048576, 2097152, 0, 0);
  launcher->Pass(4999ms);
  EXPECT_EQ(launcher->TheForm().frame.lblMemory.Caption(), "38% (1,500.00 MB)");
  launcher->Pass(1ms);
  EXPECT_EQ(launcher->TheForm().frame.lblMemory.Caption(), "50% (1.00 MB)");
  EXPECT_EQ(machine.recorder.CountOf("memory."), 4u);
}

}  // namespace
}  // namespace tarvo
