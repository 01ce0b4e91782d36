#include "desktop/frm_sys_tray.h"

#include <gtest/gtest.h>

#include "tests/simulation/sim_code_page.h"
#include "tests/simulation/sim_notification_area.h"

namespace tarvo {
namespace {

class SysTray : public ::testing::Test {
 protected:
  SysTray() {
    tray.SysTrayMouseDown = [this](int button) { Happened("down", button); };
    tray.SysTrayMouseUp = [this](int button) { Happened("up", button); };
    tray.SysTrayMouseMove = [this] { events += "move "; };
    tray.SysTrayDoubleClick = [this](int button) { Happened("double", button); };
    tray.MenuClick = [this](std::size_t index, const std::string& key) {
      Happened("click " + key, static_cast<int>(index));
    };
  }

  void Happened(const std::string& what, int number) {
    events += what + " " + std::to_string(number) + " ";
  }
  std::string EventsOf(std::uint32_t message) {
    events.clear();
    area.Mouse(message);
    return events;
  }

  CallRecorder recorder;
  SimNotificationArea area{recorder};
  SimCodePage codePage;
  EventDispatch dispatch;
  frmSysTray tray{area, codePage, dispatch};
  std::string events;
};

using Calls = std::vector<std::string>;

constexpr std::uint32_t kLeftDoubleClickMessage = 515;

TEST_F(SysTray, LoadingOpensTheHiddenWindowAndAddsTheIcon) {
  tray.Load("tip", 8);
  EXPECT_EQ(recorder.Calls(), (Calls{"tray.openWindow(Sys Tray Interface)", "tray.add(tip)"}));
  ASSERT_TRUE(area.Shown());
  EXPECT_EQ(area.Shown()->icon, 8);
  EXPECT_EQ(tray.ToolTip(), "tip");
  EXPECT_EQ(tray.IconHandle(), 8);
}

TEST_F(SysTray, ASecondLoadChangesNothing) {
  tray.Load("tip", 8);
  recorder.Forget();
  tray.Load("other", 9);
  EXPECT_EQ(recorder.Calls(), Calls{});
  EXPECT_EQ(tray.ToolTip(), "tip");
}

TEST_F(SysTray, EverySetterStoresItsValueAndModifiesTheIcon) {
  tray.Load("tip", 8);
  recorder.Forget();
  tray.SetToolTip("new");
  tray.SetIconHandle(3);
  tray.SetIconHandle(3);
  EXPECT_EQ(recorder.Calls(), (Calls{"tray.modify(new)", "tray.modify(new)", "tray.modify(new)"}));
  EXPECT_EQ(area.Shown()->tip, "new");
  EXPECT_EQ(area.Shown()->icon, 3);
}

TEST_F(SysTray, UnloadingTakesTheIconAwayBeforeTheWindow) {
  tray.Load("tip", 8);
  recorder.Forget();
  tray.Unload();
  tray.Unload();
  EXPECT_EQ(recorder.Calls(), (Calls{"tray.delete()", "tray.closeWindow()"}));
  EXPECT_FALSE(area.Shown());
}

TEST_F(SysTray, WithoutAnIconValuesAreKeptAndNothingIsCalled) {
  tray.SetToolTip("early");
  tray.SetIconHandle(4);
  tray.AddMenuItem("&Show", "open", true);
  tray.ShowMenu();
  EXPECT_EQ(recorder.Calls(), Calls{});
  EXPECT_EQ(tray.ToolTip(), "early");
  EXPECT_EQ(tray.IconHandle(), 4);
}

TEST_F(SysTray, MouseMessagesAreRaisedAsTheRequiredMappingSays) {
  tray.Load("tip", 8);
  EXPECT_EQ(EventsOf(512), "move ");
  EXPECT_EQ(EventsOf(513), "");
  EXPECT_EQ(EventsOf(514), "down 1 ");
  EXPECT_EQ(EventsOf(515), "double 1 ");
  EXPECT_EQ(EventsOf(516), "down 2 ");
  EXPECT_EQ(EventsOf(517), "up 2 ");
  EXPECT_EQ(EventsOf(518), "double 2 ");
}

TEST_F(SysTray, EveryOtherMessageRaisesNothing) {
  tray.Load("tip", 8);
  for (std::uint32_t message = 0; message < 0x10000; ++message) {
    if (message >= 512 && message <= 518) continue;
    ASSERT_EQ(EventsOf(message), "") << message;
  }
  EXPECT_EQ(EventsOf(0xFFFFFFFF), "");
}

TEST_F(SysTray, BeforeTheLoadAndAfterTheUnloadTheMouseIsNotHeard) {
  area.onMouseMessage(kLeftDoubleClickMessage);
  tray.Load("tip", 8);
  tray.Unload();
  area.onMouseMessage(kLeftDoubleClickMessage);
  EXPECT_EQ(events, "");
}

TEST_F(SysTray, OnceItIsGoneNothingOfTheAreaReachesIt) {
  SimNotificationArea another{recorder};
  { const frmSysTray brief{another, codePage, dispatch}; }
  EXPECT_FALSE(another.onMouseMessage);
  EXPECT_FALSE(another.onShellRestarted);
}

TEST_F(SysTray, MessagesWithoutAnOwnerAreHarmless) {
  frmSysTray lonely(area, codePage, dispatch);
  lonely.Load("tip", 8);
  lonely.AddMenuItem("&Show", "open");
  for (std::uint32_t message = 512; message <= 518; ++message) area.Mouse(message);
  area.ChooseNext(0);
  lonely.ShowMenu();
  EXPECT_EQ(area.Menus().size(), 1U);
}

TEST_F(SysTray, AClosedDispatchLetsNoMouseThrough) {
  tray.Load("tip", 8);
  dispatch.Close();
  EXPECT_EQ(EventsOf(515), "");
}

TEST_F(SysTray, ARestartedShellGetsTheIconAgainAsItWasLast) {
  tray.Load("tip", 8);
  tray.SetToolTip("later");
  tray.SetIconHandle(5);
  area.RestartShell();
  ASSERT_TRUE(area.Shown());
  EXPECT_EQ(area.Shown()->tip, "later");
  EXPECT_EQ(area.Shown()->icon, 5);
}

TEST_F(SysTray, AShellThatRestartsAfterTheUnloadGetsNoIcon) {
  tray.Load("tip", 8);
  tray.Unload();
  recorder.Forget();
  area.onShellRestarted();
  EXPECT_EQ(recorder.Calls(), Calls{});
}

TEST_F(SysTray, WithoutANotificationAreaEverythingGoesOn) {
  area.TakeAway();
  tray.Load("tip", 8);
  tray.SetIconHandle(5);
  tray.SetToolTip("later");
  EXPECT_FALSE(area.Shown());
  area.TakeAway(false);
  area.RestartShell();
  ASSERT_TRUE(area.Shown());
  EXPECT_EQ(area.Shown()->tip, "later");
  tray.Unload();
  EXPECT_FALSE(area.Shown());
}

TEST_F(SysTray, ARefusedIconIsOfferedAgainAsItIsByThen) {
  area.TakeAway();
  tray.Load("tip", 8);
  tray.OfferAgain();
  EXPECT_FALSE(area.Shown());
  area.TakeAway(false);
  tray.SetToolTip("later");
  tray.SetIconHandle(5);
  tray.OfferAgain();
  ASSERT_TRUE(area.Shown());
  EXPECT_EQ(area.Shown()->tip, "later");
  EXPECT_EQ(area.Shown()->icon, 5);
  recorder.Forget();
  tray.OfferAgain();
  EXPECT_EQ(recorder.Calls(), Calls{}) << "it is there";
}

TEST_F(SysTray, AnIconThatIsNotLoadedIsNotOffered) {
  tray.OfferAgain();
  tray.Load("tip", 8);
  tray.Unload();
  recorder.Forget();
  tray.OfferAgain();
  EXPECT_EQ(recorder.Calls(), Calls{});
}

TEST_F(SysTray, AnIconThatWasTakenWithoutAnAnswerIsFoundByItsNextChange) {
  area.AnswerLate();
  tray.Load("tip", 8);
  tray.SetIconHandle(5);
  recorder.Forget();
  tray.OfferAgain();
  EXPECT_EQ(recorder.Calls(), Calls{});
  EXPECT_EQ(area.Shown()->icon, 5);
}

TEST_F(SysTray, TheMenuShowsItsEntriesAndReportsTheChosenOnesKey) {
  tray.Load("tip", 8);
  EXPECT_EQ(tray.AddMenuItem("&Show", "open", true), 0U);
  EXPECT_EQ(tray.AddMenuItem("C&lose", "close"), 1U);
  tray.EnableMenuItem(1, false);
  area.ChooseNext(1);
  tray.ShowMenu();
  EXPECT_EQ(events, "click close 1 ");
  ASSERT_EQ(area.Menus().size(), 1U);
  const std::vector<MenuEntry>& menu = area.Menus()[0];
  ASSERT_EQ(menu.size(), 2U);
  EXPECT_EQ(menu[0].caption, "&Show");
  EXPECT_TRUE(menu[0].enabled);
  EXPECT_TRUE(menu[0].isDefault);
  EXPECT_EQ(menu[1].caption, "C&lose");
  EXPECT_FALSE(menu[1].enabled);
  EXPECT_FALSE(menu[1].isDefault);
}

TEST_F(SysTray, AMenuThatIsClosedWithoutAChoiceRaisesNothing) {
  tray.Load("tip", 8);
  tray.AddMenuItem("&Show", "open");
  tray.ShowMenu();
  EXPECT_EQ(events, "");
  EXPECT_EQ(area.Menus().size(), 1U);
}

TEST_F(SysTray, AnEmptyMenuIsNotShown) {
  tray.Load("tip", 8);
  tray.ShowMenu();
  EXPECT_TRUE(area.Menus().empty());
}

TEST_F(SysTray, TheDefaultEntryIsTheLastOneNamedSoAndFollowsItsPlace) {
  EXPECT_EQ(tray.DefaultMenuIndex(), -1);
  tray.AddMenuItem("a", "a", true);
  tray.AddMenuItem("b", "b");
  tray.AddMenuItem("c", "c", true);
  EXPECT_EQ(tray.DefaultMenuIndex(), 2);
  tray.RemoveMenuItem(0);
  EXPECT_EQ(tray.DefaultMenuIndex(), 1);
  tray.SetDefaultMenuIndex(0);
  tray.RemoveMenuItem(1);
  EXPECT_EQ(tray.DefaultMenuIndex(), 0);
  tray.RemoveMenuItem(0);
  EXPECT_EQ(tray.DefaultMenuIndex(), -1);
}

TEST_F(SysTray, ARemovedEntryIsGoneFromTheMenu) {
  tray.Load("tip", 8);
  for (const char* key : {"first", "second", "third"}) tray.AddMenuItem(key, key);
  tray.RemoveMenuItem(1);
  area.ChooseNext(1);
  tray.ShowMenu();
  EXPECT_EQ(events, "click third 1 ");
  std::string captions;
  for (const MenuEntry& entry : area.Menus().back()) captions += entry.caption + " ";
  EXPECT_EQ(captions, "first third ");
}

TEST_F(SysTray, IndicesThatNoEntryHasDoNothing) {
  tray.AddMenuItem("a", "a", true);
  for (std::size_t index : {1u, 2u, 1000u}) tray.RemoveMenuItem(index);
  tray.EnableMenuItem(1, false);
  tray.Load("tip", 8);
  tray.ShowMenu();
  EXPECT_EQ(area.Menus().back().size(), 1u);
  EXPECT_EQ(tray.DefaultMenuIndex(), 0);
  for (int index : {-2, 1, 1000}) {
    tray.SetDefaultMenuIndex(0);
    tray.SetDefaultMenuIndex(index);
    EXPECT_EQ(tray.DefaultMenuIndex(), -1) << index;
  }
}

TEST_F(SysTray, AChoiceIsThatOfTheMenuThatWasShown) {
  // An entry that goes while the menu is up must not hand its choice to its neighbour.
  tray.Load("tip", 8);
  tray.AddMenuItem("a", "first");
  tray.AddMenuItem("b", "second");
  area.whileMenuIsOpen = [this] { tray.RemoveMenuItem(0); };
  area.ChooseNext(0);
  tray.ShowMenu();
  EXPECT_EQ(events, "click first 0 ");
}

TEST_F(SysTray, AChoiceOfAMenuThatOutlivedTheIconIsLost) {
  tray.Load("tip", 8);
  tray.AddMenuItem("a", "first");
  area.whileMenuIsOpen = [this] { tray.Unload(); };
  area.ChooseNext(0);
  tray.ShowMenu();
  EXPECT_EQ(events, "");
}

TEST_F(SysTray, TheTipIsCutAt63Bytes) {
  for (std::size_t length : {0U, 1U, 62U, 63U}) {
    const std::string text(length, '&');
    EXPECT_EQ(CutTip(text, codePage), text) << length;
  }
  for (std::size_t length : {64U, 65U, 300U, 100000U}) {
    EXPECT_EQ(CutTip(std::string(length, '\xE9'), codePage), std::string(63, '\xE9')) << length;
  }
}

TEST_F(SysTray, TheTipIsNeverCutInsideAPairOfBytes) {
  codePage.Use(932);
  const std::string pair = "\x82\xA0";
  std::string pairs;
  for (int i = 0; i < 40; ++i) pairs += pair;
  EXPECT_EQ(CutTip(pairs, codePage), pairs.substr(0, 62));
  EXPECT_EQ(CutTip("[" + pairs, codePage), "[" + pairs.substr(0, 62));
  // The second byte of a pair may look like a first one.
  const std::string twins(80, '\x82');
  EXPECT_EQ(CutTip(twins, codePage), twins.substr(0, 62));
  EXPECT_EQ(CutTip("x" + twins, codePage), "x" + twins.substr(0, 62));
}

TEST_F(SysTray, ALoneFirstByteAtTheEndOfTheTipStays) {
  codePage.Use(932);
  EXPECT_EQ(CutTip("name\x82", codePage), "name\x82");
  const std::string full = std::string(62, 'a') + '\x82';
  EXPECT_EQ(CutTip(full, codePage), full);
  EXPECT_EQ(CutTip(full + "\xA0", codePage), std::string(62, 'a'));
}

}  // namespace
}  // namespace tarvo
