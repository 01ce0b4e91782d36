// The freeze watch as a table: every state meets every event.

#include <gtest/gtest.h>

#include "form/bindings.h"
#include "tests/simulation/sim_machine.h"

namespace tarvo {
namespace {

enum class State { Off, Grace, Watching, Frozen };
enum class Event {
  PrepareAnswered,
  PrepareSilent,
  PrepareUnchecked,
  ProbeAnswered,
  ProbeSilent,
  ProbeUnchecked,
  AgainAnswered,
  AgainSilentAtLimit,
  AgainSilentBeyondLimit,
  AgainSilentUnchecked,
  AgainSilentWithoutStart,
};

constexpr std::int64_t kNow = 3600;
constexpr std::int64_t kLimit = 15;

struct Desk {
  Desk() : Exes(form.servers.Exes) {
    machine.files.Put("C:\\srv\\login-server.exe", "");
    Exes[ComponentKind::Login].AddItem(kLogin);
    Exes[ComponentKind::Login].SetListIndex(0);
    components[ComponentKind::Login].endpoint.port = 6900;
    form.servers.TTO[ComponentKind::Login].SetText(std::to_string(kLimit));
    machine.processes.StartForeign(kLogin);
    log.listeners.emplace_back(
        [this](const LogLine& line) { told += (told.empty() ? "" : "|") + line.pieces[1].text; });
  }

  std::string Timers() {
    std::string names;
    for (const Timer* timer :
         {&form.timers.Preparation[0], &form.timers.Probe[0], &form.timers.Reprobe[0]}) {
      if (timer->Enabled()) names += (names.empty() ? "" : " ") + timer->Name();
    }
    return names;
  }

  /// The texts of the log, without stamps, joined by "|".
  std::string Told() { return told; }

  SimMachine machine;
  TimerQueue queue{machine.clock};
  Form form{queue};
  PerComponent<DropDownList>& Exes;
  ComponentTable components;
  ProcessControl processes{machine.processes, machine.processes,     machine.clock,
                           machine.codePage,  machine.workingFolder, Exes,
                           "C:\\srv"};
  std::string told;
  StatusLog log{machine.clock};
  LauncherEvents events;
  PortProbe probe{machine.network};
  FreezeWatch watch{BindFreezeWatch(form), components,   probe, processes, log, events,
                    machine.clock,         machine.clock};
};

void Enter(Desk& desk, State state) {
  desk.form.timers.Preparation[0].SetEnabled(state == State::Grace);
  desk.form.timers.Probe[0].SetEnabled(state == State::Watching);
  desk.form.timers.Reprobe[0].SetEnabled(state == State::Frozen);
}

void Happen(Desk& desk, Event event) {
  const bool unchecked = event == Event::PrepareUnchecked || event == Event::ProbeUnchecked ||
                         event == Event::AgainSilentUnchecked;
  const bool answered = event == Event::PrepareAnswered || event == Event::ProbeAnswered ||
                        event == Event::AgainAnswered;
  desk.form.servers.chkAK[0].SetChecked(!unchecked);
  desk.machine.processes.TheOne(kLogin).answer =
      answered ? PortAnswer::Listens : PortAnswer::Refuses;
  desk.components[ComponentKind::Login].FreezeStart = event == Event::AgainSilentWithoutStart ? 0
                                                      : event == Event::AgainSilentAtLimit
                                                          ? kNow - kLimit
                                                          : kNow - kLimit - 1;
  if (event <= Event::PrepareUnchecked) return desk.watch.Prepare(ComponentKind::Login);
  if (event <= Event::ProbeUnchecked) return desk.watch.ProbePeriodically(ComponentKind::Login);
  desk.watch.ProbeAgain(ComponentKind::Login);
}

constexpr char kFreezeText[] = "Login server freeze!... waiting...";
constexpr char kListening[] = "Listening Login Server";
constexpr char kFreezeThenListening[] = "Login server freeze!... waiting...|Listening Login Server";
constexpr char kBack[] = "Login server is back!";
constexpr char kKill[] = "Shuting down Login...";

struct Cell {
  State state;
  Event event;
  const char* timers;
  const char* told;
  int probes;  ///< Connects that were tried.
};

constexpr Cell kCells[] = {
    {State::Off, Event::PrepareAnswered, "PrepL", "", 0},
    {State::Off, Event::PrepareSilent, "PrepL", "", 0},
    {State::Off, Event::PrepareUnchecked, "PrepL", "", 0},
    {State::Off, Event::ProbeAnswered, "TTL", "", 1},
    {State::Off, Event::ProbeSilent, "TLogin", kFreezeText, 2},
    {State::Off, Event::ProbeUnchecked, "", "", 0},
    {State::Off, Event::AgainAnswered, "TTL", kBack, 1},
    {State::Off, Event::AgainSilentAtLimit, "TLogin", "", 1},
    {State::Off, Event::AgainSilentBeyondLimit, "", kKill, 1},
    {State::Off, Event::AgainSilentUnchecked, "TLogin", "", 1},
    {State::Off, Event::AgainSilentWithoutStart, "TLogin", "", 1},

    {State::Grace, Event::PrepareAnswered, "TTL", kListening, 1},
    {State::Grace, Event::PrepareSilent, "TLogin", kFreezeThenListening, 2},
    {State::Grace, Event::PrepareUnchecked, "", kListening, 0},
    {State::Grace, Event::ProbeAnswered, "PrepL TTL", "", 1},
    {State::Grace, Event::ProbeSilent, "PrepL TLogin", kFreezeText, 2},
    {State::Grace, Event::ProbeUnchecked, "PrepL", "", 0},
    {State::Grace, Event::AgainAnswered, "PrepL TTL", kBack, 1},
    {State::Grace, Event::AgainSilentAtLimit, "PrepL TLogin", "", 1},
    {State::Grace, Event::AgainSilentBeyondLimit, "PrepL", kKill, 1},
    {State::Grace, Event::AgainSilentUnchecked, "PrepL TLogin", "", 1},
    {State::Grace, Event::AgainSilentWithoutStart, "PrepL TLogin", "", 1},

    {State::Watching, Event::PrepareAnswered, "PrepL TTL", "", 0},
    {State::Watching, Event::PrepareSilent, "PrepL TTL", "", 0},
    {State::Watching, Event::PrepareUnchecked, "PrepL TTL", "", 0},
    {State::Watching, Event::ProbeAnswered, "TTL", "", 1},
    {State::Watching, Event::ProbeSilent, "TLogin", kFreezeText, 2},
    {State::Watching, Event::ProbeUnchecked, "TTL", "", 0},
    {State::Watching, Event::AgainAnswered, "TTL", kBack, 1},
    {State::Watching, Event::AgainSilentAtLimit, "TTL TLogin", "", 1},
    {State::Watching, Event::AgainSilentBeyondLimit, "TTL", kKill, 1},
    {State::Watching, Event::AgainSilentUnchecked, "TTL TLogin", "", 1},
    {State::Watching, Event::AgainSilentWithoutStart, "TTL TLogin", "", 1},

    {State::Frozen, Event::PrepareAnswered, "PrepL TLogin", "", 0},
    {State::Frozen, Event::PrepareSilent, "PrepL TLogin", "", 0},
    {State::Frozen, Event::PrepareUnchecked, "PrepL TLogin", "", 0},
    {State::Frozen, Event::ProbeAnswered, "TTL TLogin", "", 1},
    {State::Frozen, Event::ProbeSilent, "TLogin", kFreezeText, 2},
    {State::Frozen, Event::ProbeUnchecked, "TLogin", "", 0},
    {State::Frozen, Event::AgainAnswered, "TTL", kBack, 1},
    {State::Frozen, Event::AgainSilentAtLimit, "TLogin", "", 1},
    {State::Frozen, Event::AgainSilentBeyondLimit, "", kKill, 1},
    {State::Frozen, Event::AgainSilentUnchecked, "TLogin", "", 1},
    {State::Frozen, Event::AgainSilentWithoutStart, "TLogin", "", 1},
};
static_assert(std::size(kCells) == 4 * 11);

TEST(FreezeCells, EveryStateMeetsEveryEvent) {
  for (const Cell& cell : kCells) {
    Desk desk;
    Enter(desk, cell.state);
    Happen(desk, cell.event);
    const std::string where = "state " + std::to_string(static_cast<int>(cell.state)) + ", event " +
                              std::to_string(static_cast<int>(cell.event));
    EXPECT_EQ(desk.Timers(), cell.timers) << where;
    EXPECT_EQ(desk.Told(), cell.told) << where;
    EXPECT_EQ(desk.machine.network.Connects().size(), static_cast<std::size_t>(cell.probes))
        << where;
    EXPECT_EQ(desk.machine.processes.Named(kLogin).empty(), std::string(kKill) == cell.told)
        << where;
  }
}

TEST(FreezeCells, AlarmAndStartFollowTheProbes) {
  const struct {
    Event event;
    AlarmState before;
    AlarmState after;
    std::int64_t start;
  } cases[] = {
      {Event::PrepareAnswered, AlarmState::NotWatched, AlarmState::Healthy, 0},
      {Event::PrepareSilent, AlarmState::NotWatched, AlarmState::Healthy, kNow},
      {Event::PrepareUnchecked, AlarmState::NotWatched, AlarmState::Healthy, kNow - kLimit - 1},
      {Event::ProbeAnswered, AlarmState::Trouble, AlarmState::Healthy, 0},
      {Event::ProbeSilent, AlarmState::Healthy, AlarmState::Trouble, kNow},
      {Event::ProbeUnchecked, AlarmState::Trouble, AlarmState::Trouble, kNow - kLimit - 1},
      {Event::AgainAnswered, AlarmState::Trouble, AlarmState::Healthy, kNow - kLimit - 1},
      {Event::AgainSilentAtLimit, AlarmState::Trouble, AlarmState::Trouble, kNow - kLimit},
      {Event::AgainSilentBeyondLimit, AlarmState::Trouble, AlarmState::Trouble, kNow - kLimit - 1},
  };
  for (const auto& c : cases) {
    Desk desk;
    Enter(desk, State::Grace);
    desk.components[ComponentKind::Login].AlarmState = c.before;
    Happen(desk, c.event);
    EXPECT_EQ(desk.components[ComponentKind::Login].AlarmState, c.after)
        << static_cast<int>(c.event);
    EXPECT_EQ(desk.components[ComponentKind::Login].FreezeStart, c.start)
        << static_cast<int>(c.event);
  }
}

TEST(AutokillTime, BecomesTheNumberThatItsTextStartsWith) {
  const struct {
    const char* text;
    const char* cleaned;
  } cases[] = {{"", ""},
               {"15", "15"},
               {"007", "007"},
               {"009", "009"},
               {"12a", "12"},
               {"abc", "0"},
               {"1 5", "15"},
               {" 20", "20"},
               {"5.", "5"},
               {"1.5x", "1.5"},
               {"1.5", "1.5"},
               {"-5", "-5"},
               {"-", "0"},
               {"1e3", "1000"},
               {"&H10", "16"},
               {"+7", "7"},
               {"\xB2", "0"},
               {"1e20", "100000000000000000000"},
               {"99999999999999999999x", "100000000000000000000"}};
  for (const auto& c : cases) EXPECT_EQ(CleanedSeconds(c.text), c.cleaned) << c.text;
}

TEST(AutokillTime, CleaningACleanedTextChangesNothingSoThatItEnds) {
  for (const char* text : {"12a", "-5x", "-1e20", "1.23456789012345678", "0.1e-20", "1e300",
                           "-1e-300", "1e999", "-.5", "123456789012345.678"}) {
    const std::string once = CleanedSeconds(text);
    EXPECT_EQ(CleanedSeconds(once), once) << text;
  }
  EXPECT_EQ(CleanedSeconds(std::string(61440, 'x')), "0");
}

TEST(AutokillTime, TheBoxShowsTheCleanedTextWithTheCaretAtItsEnd) {
  TextBox box;
  int changes = 0;
  box.onChange = [&] {
    ++changes;
    TTO_Change(box);
  };
  box.Type("120 sec");
  EXPECT_EQ(box.Text(), "120");
  EXPECT_EQ(box.Caret(), 3u);
  EXPECT_EQ(changes, 2);
  box.Type("-5");
  EXPECT_EQ(box.Text(), "-5");
  EXPECT_EQ(changes, 3);
}

TEST(AutokillTime, ANumberThatCleansToItselfTakesTheCaretToItsEndToo) {
  const struct {
    const char* typed;
    std::size_t caret;
    const char* text;
    std::size_t caretAfter;
  } cases[] = {{"-5", 1, "-5", 2},   {"1.5", 2, "1.5", 3}, {"x12", 1, "0", 1},
               {"12x3", 3, "12", 2}, {"123", 1, "123", 1}, {"", 0, "", 0}};
  for (const auto& c : cases) {
    TextBox box;
    box.SetText("9");
    box.onChange = [&] { TTO_Change(box); };
    box.Type(c.typed, c.caret);
    EXPECT_EQ(box.Text(), c.text) << c.typed;
    EXPECT_EQ(box.Caret(), c.caretAfter) << c.typed;
  }
}

}  // namespace
}  // namespace tarvo
