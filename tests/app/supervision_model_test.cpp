// A launcher at work beside a model of its supervision: whatever operator and servers do, both must
// come to the same.

#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <memory>
#include <random>

#include "tests/app/supervision_comparison.h"
#include "tests/app/supervision_model.h"
#include "tests/simulation/launcher.h"

namespace tarvo {
namespace {

constexpr unsigned kLives = 60;
constexpr std::size_t kActs = 150;
constexpr std::size_t kRemembered = 40;  ///< Last acts, ticks and log lines, for a complaint.
/// Last-modified dates of builds, in seconds after 1970.
constexpr std::int64_t kFirstBuild = 1767225600;
constexpr std::int64_t kBetweenBuilds = 86400;

constexpr const char* kPrograms[] = {kLogin, kChar, kMap, "other.exe"};
constexpr const char* kBuilt[] = {"C:\\new\\a.exe", "C:\\new\\b.exe", "C:\\new\\c.exe"};
/// What stands in the operator's boxes of new executables beside those.
constexpr const char* kNotBuilt[] = {"C:\\new\\A.exe ", ""};

/// Settings of the time between two probes, and the milliseconds that they mean.
constexpr struct {
  const char* text;
  std::uint64_t milliseconds;
} kIntervals[] = {{"10000", 10000}, {"500", 1000},   {"1e4", 10000},         {"2500.5", 2500},
                  {"&H7D0", 2000},  {"-3", 1000},    {"99999999999", 60000}, {"abc", 1000},
                  {"3000x", 3000},  {"60000", 60000}};

/// Autokill times as they are typed and as they are cleaned; the last two end the launcher once it
/// needs them.
constexpr struct {
  const char* typed;
  const char* cleaned;
} kTimes[] = {{"5", "5"},
              {"6", "6"},
              {"7", "7"},
              {"8", "8"},
              {"10", "10"},
              {"15", "15"},
              {"300", "300"},
              {"2147483647", "2147483647"},
              {"12a", "12"},
              {"abc", "0"},
              {"-5", "-5"},
              {"1.5", "1.5"},
              {"5.5", "5.5"},
              {"4.5", "4.5"},
              {"007", "007"},
              {" 9", "9"},
              {"7 ", "7"},
              {"&H6", "6"},
              {"6e0", "6"},
              {"", ""},
              {"99999999999", "99999999999"}};
constexpr std::size_t kFatalTimes = 2;

std::string InRoot(const std::string& executable) { return "C:\\srv\\" + executable; }

/// How often it happened, so that a life that held nothing is no proof.
struct Tally {
  std::size_t events = 0;
  std::size_t crashes = 0;
  std::size_t kills = 0;
  std::size_t upgrades = 0;
  std::size_t faults = 0;
};

/// Some minutes or an hour of a launcher, its operator and its servers, drawn from a seed.
class SupervisionLife {
 public:
  explicit SupervisionLife(unsigned seed) : random_(seed) {
    ArrangeMachine();
    for (ComponentKind kind : kComponents) ArrangeComponent(kind);
    launcher_ = std::make_unique<Launcher>(machine_);
    launcher_->Start();
    launcher_->ForgetLog();
    machine_.boxes.NewTexts();
    for (ComponentKind kind : kComponents) {
      for (ModelWatch watch : kModelWatches) Accompany(kind, watch);
    }
    Timers& timers = launcher_->TheForm().timers;
    for (Timer* other : {&timers.Mem, &timers.tmrAlarma, &timers.tmr_Calendar, &timers.tmrEvents,
                         &timers.tmrCheckUp}) {
      Synchronize(*other);
    }
    launcher_->onEventOver = [this] { EventOver(); };
  }

  /// Lives it to its end: all acts, a fault that ends the launcher, or a difference.
  void Play() {
    for (std::size_t i = 0; i < kActs && difference_.empty() && !model_.Ended(); ++i) Act();
  }

  /// The first difference between launcher and model; "" when there was none.
  const std::string& Difference() const { return difference_; }
  /// What happened last, one a line.
  std::string Remembered() const {
    std::string text;
    for (const std::string& line : remembered_) text += line + '\n';
    return text;
  }
  void AddTo(Tally& all) const {
    all.events += tally_.events;
    all.crashes += tally_.crashes;
    all.kills += tally_.kills;
    all.upgrades += tally_.upgrades;
    if (model_.Ended()) ++all.faults;
  }

 private:
  using Time = std::chrono::milliseconds;

  struct Weighted {
    std::size_t weight;
    const char* name;
    void (SupervisionLife::*act)();
  };
  static const Weighted kWeighted[];

  std::size_t Draw(std::size_t below) { return random_() % below; }
  bool OneIn(std::size_t times) { return Draw(times) == 0; }
  ComponentKind AnyComponent() { return kComponents[Draw(kComponentCount)]; }

  void ArrangeMachine() {
    machine_.recorder.CountOnly();
    machine_.SetSetting("AutoRandomize", "1");
    machine_.files.Put(InRoot("other.exe"), "other");
    // An ordinary age, shortly before the tick count begins anew, or just started.
    if (OneIn(4)) {
      machine_.clock.SetTicks(SimClock::kWrap - Draw(100000));
    } else if (OneIn(5)) {
      machine_.clock.SetTicks(Draw(3000));
    }
    model_.machine.age = model_.machine.beginning = machine_.clock.Age();
    model_.machine.lastId = machine_.processes.Running().back().id;
    for (const char* program : kPrograms) {
      model_.machine.files[InRoot(program)].text = machine_.files.TextOf(InRoot(program));
      model_.machine.programs[program].port = machine_.processes.Program(program).port;
    }
    for (std::size_t i = 0; i < kComponentCount; ++i) Build(kBuilt[i]);
  }

  void ArrangeComponent(ComponentKind kind) {
    ModelComponent& component = model_.components[kind];
    const std::string name = NameOf(kind);
    component.executable = kServers[IndexOf(kind)];
    component.port = model_.machine.programs[component.executable].port;
    component.autokill = !OneIn(3);
    component.autokillTime = "5";
    if (!OneIn(4)) component.newFile = kBuilt[IndexOf(kind)];
    const auto& interval = kIntervals[Draw(std::size(kIntervals))];
    component.TimerOf(ModelWatch::Crash).interval = 5000;
    component.TimerOf(ModelWatch::Preparation).interval = kind == ComponentKind::Login  ? 3000
                                                          : kind == ComponentKind::Char ? 5000
                                                                                        : 10000;
    component.TimerOf(ModelWatch::Probe).interval = interval.milliseconds;
    component.TimerOf(ModelWatch::Reprobe).interval = 2000;
    machine_.SetSetting(name + "ChkInterval", interval.text);
    machine_.SetSetting(name + "AutoKillEnabled", component.autokill ? "1" : "0");
    machine_.SetSetting(name + "Timeout", component.autokillTime);
    machine_.SetSetting(name + "From", component.newFile);
  }

  /// From now on the model is told of each tick, and that it was the timer's turn is checked.
  void Accompany(ComponentKind kind, ModelWatch watch) {
    Timer& timer = TimerOf(launcher_->TheForm().timers, kind, watch);
    timer.onTick = [this, kind, watch, name = timer.Name(), tick = timer.onTick] {
      Synchronize();
      Remember("tick of " + name);
      const std::string reason = model_.WhyNotDue(kind, watch);
      if (difference_.empty() && !reason.empty()) difference_ = name + ' ' + reason;
      model_.Tick(kind, watch);
      tick();
    };
  }

  /// Ticks of other timers are no business of the model's; none of them may take time.
  void Synchronize(Timer& other) {
    other.onTick = [this, tick = other.onTick] {
      Synchronize();
      tick();
    };
  }

  void Synchronize() { model_.machine.age = machine_.clock.Age(); }

  void Remember(const std::string& what) {
    if (!difference_.empty()) return;
    remembered_.push_back(GeneralDate(machine_.clock.Now()).substr(11) + ' ' + what);
    if (remembered_.size() > kRemembered) remembered_.pop_front();
  }

  void EventOver() {
    if (!difference_.empty()) return;
    const Told told{launcher_->NewLog(), machine_.boxes.NewTexts()};
    if (!told.log.empty()) Remember("log:\n" + told.log);
    if (!told.boxes.empty()) Remember("boxes: " + ::testing::PrintToString(told.boxes));
    ++tally_.events;
    tally_.crashes += Count(told.log, " crashed, restarting...");
    tally_.kills += Count(told.log, " Shuting down ");
    tally_.upgrades += Count(told.log, " Upgrade complete!");
    difference_ = FirstDifference(*launcher_, machine_, model_, told);
    model_.log.clear();
    model_.boxes.clear();
  }

  static std::size_t Count(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
  }

  void Act();
  void LetTimePass() {
    const std::size_t longest = OneIn(5) ? 60000 : 7000;
    launcher_->Pass(Time(Draw(longest)));
  }

  void Press(std::size_t button) {
    model_.ClickButton(button);
    launcher_->Click("bStart", button);
  }
  void StartAll() { Press(3); }
  void PressAny() { Press(Draw(5)); }

  void SwitchAutokill() {
    const std::size_t box = Draw(kAutokillOfAll + 1);
    const bool checked = !OneIn(4);
    if (box == kAutokillOfAll) {
      model_.mapRestartsAll = checked;
    } else {
      model_.components[box].autokill = checked;
    }
    launcher_->Check("chkAK", box, checked);
  }

  void TypeAutokillTime() {
    const ComponentKind kind = AnyComponent();
    const std::size_t times = std::size(kTimes) - (OneIn(3) ? 0 : kFatalTimes);
    const auto& time = kTimes[Draw(times)];
    if (!model_.components[kind].autokill) return;  // The box takes nothing then.
    model_.components[kind].autokillTime = time.cleaned;
    launcher_->Type("TTO", IndexOf(kind), time.typed);
  }

  ModelProcess* AnyProcess() {
    auto& processes = model_.machine.processes;
    return processes.empty() ? nullptr : &processes[Draw(processes.size())];
  }

  void ChangeAnswer() {
    ModelProcess* const process = AnyProcess();
    if (!process || machine_.processes.Named(process->executable).size() > 1) return;
    const PortAnswer answers[] = {PortAnswer::Listens, PortAnswer::Refuses, PortAnswer::TimesOut};
    process->answer = answers[Draw(3)];
    machine_.processes.TheOne(process->executable).answer = process->answer;
  }

  void Crash() {
    const ModelProcess* const process = AnyProcess();
    if (!process) return;
    machine_.processes.Crash(process->id);
    model_.machine.End(process->id);
  }

  void CloseWindow() {
    ModelProcess* const process = AnyProcess();
    if (!process) return;
    machine_.processes.CloseWindows(process->id);
    process->window = false;
  }

  void ChangeProgram() {
    const char* const program = kPrograms[Draw(std::size(kPrograms))];
    ModelProgram& model = model_.machine.programs[program];
    model.diesAtOnce = OneIn(8);
    model.opensWindow = !OneIn(8);
    machine_.processes.Program(program).diesAtOnce = model.diesAtOnce;
    machine_.processes.Program(program).opensWindow = model.opensWindow;
  }

  void StartByHand() {
    if (!OneIn(3)) return;
    const char* const program = kPrograms[Draw(std::size(kPrograms))];
    machine_.processes.StartForeign(program);
    model_.machine.Add(program);
  }

  void ChooseExecutable() {
    const ComponentKind kind = AnyComponent();
    const std::size_t program = OneIn(3) ? Draw(std::size(kPrograms)) : IndexOf(kind);
    if (!model_.components[kind].choosable) return;
    model_.components[kind].executable = kPrograms[program];
    launcher_->Choose("Exes", IndexOf(kind), kPrograms[program]);
  }

  void ChooseTrigger() {
    const std::size_t mode = Draw(3);
    model_.ChooseTrigger(static_cast<int>(mode));
    launcher_->Click("optMode", mode);
  }

  void ClickOption() {
    const std::size_t option = Draw(3);
    model_.ClickOption(option);
    launcher_->TheProgram().Dispatch().Run(
        [&] { launcher_->TheForm().upgrade.chk_Opts[option].Click(); });
  }

  void TypeNewFile() {
    const ComponentKind kind = AnyComponent();
    std::string path = kBuilt[IndexOf(kind)];
    if (OneIn(3)) path = OneIn(2) ? kNotBuilt[Draw(2)] : kBuilt[Draw(3)];
    model_.components[kind].newFile = path;
    launcher_->TheProgram().Dispatch().Run(
        [&] { launcher_->TheForm().upgrade.nPath[kind].Type(path); });
  }

  void BuildAnother() {
    const std::string path = kBuilt[Draw(3)];
    if (!OneIn(6)) return Build(path);
    machine_.files.Remove(path);
    model_.machine.files.erase(path);
  }

  void Build(const std::string& path) {
    ModelFile& file = model_.machine.files[path];
    file.text = "build " + std::to_string(Draw(1000));
    file.date = kFirstBuild + static_cast<std::int64_t>(Draw(5)) * kBetweenBuilds;
    machine_.files.Put(path, file.text);
    machine_.copies.SetDate(path, file.date);
  }

  void UpgradeByHand() {
    if (!model_.AnyKnown()) {
      model_.UpgradeByHand();
      return launcher_->Click("UpdateNow");
    }
    const bool agrees = !OneIn(6);
    const Time thinks(OneIn(3) ? Draw(8000) : 0);
    model_.AskBeforeUpgrade();
    machine_.boxes.AnswerNext(agrees ? Answer::Yes : Answer::No);
    machine_.boxes.whileNextIsOpen = [this, agrees, thinks] {
      launcher_->Pass(thinks);
      Synchronize();
      if (agrees) model_.UpgradeByHand();
    };
    launcher_->Click("UpdateNow");
  }

  SimMachine machine_;
  std::mt19937 random_;
  SupervisionModel model_;
  std::unique_ptr<Launcher> launcher_;
  std::deque<std::string> remembered_;
  Tally tally_;
  std::string difference_;
};

const SupervisionLife::Weighted SupervisionLife::kWeighted[] = {
    {8, "time passes", &SupervisionLife::LetTimePass},
    {3, "all are started", &SupervisionLife::StartAll},
    {2, "a button is pressed", &SupervisionLife::PressAny},
    {3, "a check box is clicked", &SupervisionLife::SwitchAutokill},
    {2, "an autokill time is typed", &SupervisionLife::TypeAutokillTime},
    {4, "a server answers otherwise", &SupervisionLife::ChangeAnswer},
    {2, "a server crashes", &SupervisionLife::Crash},
    {1, "a server's window closes", &SupervisionLife::CloseWindow},
    {1, "a program changes", &SupervisionLife::ChangeProgram},
    {1, "somebody else starts a server", &SupervisionLife::StartByHand},
    {1, "an executable is chosen", &SupervisionLife::ChooseExecutable},
    {1, "a trigger is chosen", &SupervisionLife::ChooseTrigger},
    {1, "an option is clicked", &SupervisionLife::ClickOption},
    {1, "a new file is chosen", &SupervisionLife::TypeNewFile},
    {1, "a new file is built or lost", &SupervisionLife::BuildAnother},
    {2, "an upgrade by hand", &SupervisionLife::UpgradeByHand},
};

void SupervisionLife::Act() {
  std::size_t all = 0;
  for (const Weighted& one : kWeighted) all += one.weight;
  std::size_t drawn = Draw(all);
  const Weighted* chosen = kWeighted;
  while (drawn >= chosen->weight) drawn -= chosen++->weight;
  Synchronize();
  Remember(chosen->name);
  (this->*chosen->act)();
}

unsigned Seed() {
  const char* given = std::getenv("TARVO_SEED");
  return given != nullptr ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : 1;
}

TEST(SupervisionModel, ALauncherDoesAsTheModelDoesAfterEveryEventOfRandomLives) {
  const unsigned seed = Seed();
  Tally all;
  for (unsigned life = 0; life < kLives; ++life) {
    SupervisionLife one(seed * 100003 + life);
    one.Play();
    one.AddTo(all);
    ASSERT_EQ(one.Difference(), "") << "TARVO_SEED=" << seed << ", life " << life << ", after:\n"
                                    << one.Remembered();
  }
  // Less than half of what the lives of other seeds hold.
  EXPECT_GT(all.events, 10000u) << "TARVO_SEED=" << seed;
  EXPECT_GT(all.crashes, 400u) << "TARVO_SEED=" << seed;
  EXPECT_GT(all.kills, 40u) << "TARVO_SEED=" << seed;
  EXPECT_GT(all.upgrades, 20u) << "TARVO_SEED=" << seed;
  EXPECT_GT(all.faults, 2u) << "TARVO_SEED=" << seed;
}

}  // namespace
}  // namespace tarvo
