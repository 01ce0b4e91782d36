#pragma once

#include <span>
#include <string>
#include <vector>

#include "checkup/check_up.h"
#include "checkup/line_end_repair.h"
#include "platform/clipboard.h"
#include "platform/message_boxes.h"
#include "toolkit/controls.h"
#include "toolkit/side_window.h"
#include "toolkit/timer_queue.h"

namespace tarvo {

/// The check-up's button and window, its timer, and the controls that it reads.
struct CheckUpControls {
  CommandButton& button;
  SideWindow& window;
  Label& summary;
  ListBox& findings;
  CommandButton& repair;
  CommandButton& again;
  Timer& timer;
  const PerComponent<Timer>& preparation;  ///< One runs: its component is starting.
  const PerComponent<DropDownList>& executables;
  std::span<CheckBox, kComponentCount> autokill;
  const PerComponent<TextBox>& autokillTimes;
  const PerComponent<PathBox>& newFiles;
  const CheckBox& writesLogFile;
};

/// The operator's check-up of the root that the launcher runs in, with what the window shows.
///
/// It goes on by its timer, one small part a tick, so that every other tick comes between. The
/// button bears the number of findings that want attention. All references must outlive it.
class CheckUpWindow {
 public:
  CheckUpWindow(const CheckUpControls& controls, CheckUp& checkUp, LineEndRepair repair,
                MessageBoxes& messageBoxes, Clipboard& clipboard, const ServerRoot& root)
      : controls_(controls),
        checkUp_(checkUp),
        repair_(std::move(repair)),
        messageBoxes_(messageBoxes),
        clipboard_(clipboard),
        root_(root) {}

  /// Joins the events of the controls to their operations.
  void WireControls();

  /// A check-up that nobody has asked for: it begins when the start has settled, and waits while a
  /// component starts.
  void BeginByItself();

 private:
  void OpenAndCheck();
  void Check();
  void Tick();
  void Show();
  void Copy();
  void Repair();
  Choices ShownChoices() const;
  std::vector<std::string> FilesToRepair() const;

  CheckUpControls controls_;
  CheckUp& checkUp_;
  LineEndRepair repair_;
  MessageBoxes& messageBoxes_;
  Clipboard& clipboard_;
  const ServerRoot& root_;
  bool byItself_ = false;
  bool asking_ = false;
};

}  // namespace tarvo
