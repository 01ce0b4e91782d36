#pragma once

#include <array>
#include <string>

#include "core/launcher_events.h"
#include "core/server_root.h"
#include "core/settings_store.h"
#include "core/status_log.h"
#include "platform/clock.h"
#include "platform/message_boxes.h"
#include "platform/random_source.h"
#include "randomizer/calendar.h"
#include "randomizer/engine.h"
#include "randomizer/map_start_gate.h"
#include "randomizer/parameter_panel.h"
#include "randomizer/stored_set.h"
#include "toolkit/timer_queue.h"
#include "xmldoc/document.h"

namespace tarvo {

/// The randomizer's page and timer.
struct RandomizerControls {
  ParameterControls parameters;
  std::array<CommandButton, 2>& rangeButtons;  ///< 0 gives a range, 1 removes it.
  CommandButton& now;
  OptionGroup& mode;
  std::array<TextBox, 2>& limits;
  CalendarControls calendar;
  std::array<CommandButton, 2>& calendarButtons;  ///< 0 adds an entry, 1 removes one.
  Timer& calendarTimer;
};

/// What the randomizer needs of the machine.
struct RandomizerPorts {
  FileReader& fileReader;
  FileReplacer& fileReplacer;
  EventLog& eventLog;
  SettingsStore& settings;
  LocalClock& localClock;
  RandomSource& random;
  MessageBoxes& messageBoxes;
};

/// The randomizer: chosen settings of the map server's `conf\battle_athena.conf` get random values
/// within their ranges, by hand, at the starts of the map server or by a calendar of the week.
///
/// It owns `RandomizerDocument`, the tree of all its data, with up to three children:
/// "Battle_Athena", the settings of the server's file as they were at start-up; "Randomize", the
/// ranges, kept in `randomize.xml`; "Calendar", kept in `rndcalendar.xml`, both beside the
/// launcher. Everything works with absent children too.
class Randomizer {
 public:
  /// All references must outlive the randomizer.
  Randomizer(const RandomizerControls& controls, StatusLog& log, const LauncherEvents& events,
             const ServerRoot& root, const RandomizerPorts& ports);
  Randomizer(const Randomizer&) = delete;
  Randomizer& operator=(const Randomizer&) = delete;

  /// Joins the events of the page and the timer to their operations; before the settings are
  /// loaded, since the stored mode decides whether the calendar's timer runs.
  void WireControls();

  /// Fills the tree and the page, once at start-up. A server file that cannot be read is reported
  /// in the log, and neither of the other two files is read then.
  void LoadRandomizerFiles();

  /// One run of the engine, by hand: it counts against no limit.
  void RunRandomizer() { engine_.RunRandomizer(); }

  ParameterPanel& ThePanel() { return panel_; }
  MapStartGate& TheGate() { return gate_; }
  RandomizerCalendar& TheCalendar() { return calendar_; }
  Document& RandomizerDocument() { return *document_; }

 private:
  void WireParameters();
  void WireCalendar();

  RandomizerControls controls_;
  StatusLog& log_;
  FileReader& fileReader_;
  const std::string serverFile_;
  const Ref<Document> document_ = Document::Create();
  StoredSet parameters_;
  StoredSet entries_;
  RandomizerEngine engine_;
  ParameterPanel panel_;
  MapStartGate gate_;
  RandomizerCalendar calendar_;
};

}  // namespace tarvo
