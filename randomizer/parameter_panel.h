#pragma once

#include <cstddef>
#include <string>

#include "core/status_log.h"
#include "platform/message_boxes.h"
#include "randomizer/stored_set.h"
#include "toolkit/controls.h"
#include "xmldoc/document.h"

namespace tarvo {

/// The settings that can have a range, the bounds of the one that is chosen, and all ranges.
struct ParameterControls {
  DropDownList& settings;
  TextBox& least;
  TextBox& greatest;
  ListBox& ranges;
};

/// The group "Server Configuration" of the page: the settings of the server's file, each of which
/// can be given a range, and the list of the ranges.
///
/// Names are compared exactly. Of two settings of one name the panel means the first, of two ranges
/// of one name (hand-edited) the last. Of a hand-edited range the numbers change and nothing else;
/// a bound that it lacks is added at its end. Choosing a setting never changes data.
class ParameterPanel {
 public:
  /// `document` is the randomizer's tree, whose child "Battle_Athena" holds the settings with their
  /// present values, and the bounds of those that have a range.
  ParameterPanel(const ParameterControls& controls, Document& document, StoredSet& set,
                 MessageBoxes& messageBoxes, StatusLog& log)
      : controls_(controls),
        document_(document),
        set_(set),
        messageBoxes_(messageBoxes),
        log_(log) {}

  /// Shows what was loaded: the ranges in `lstRnd` and in their settings, the settings in
  /// `cmdParam`, the first one selected.
  void Fill();

  /// Lists one line for each range: "name:min to max".
  void RefillRandomizeList();

  /// Selects the first line of that name in `lstRnd`, without effect on `cmdParam`. Without such a
  /// line the selection stays as it is.
  void SelectRandomizeListEntry(const std::string& name);

  /// A setting was selected: the boxes show its bounds, or its present value when it has none.
  void cmdParam_Click();
  /// A range was selected: its setting is selected too, if there is one.
  void lstRnd_Click();
  /// 0 gives the selected setting the range in the boxes, 1 removes the selected range; both write
  /// the set to its file. Without a selection they do nothing. Bounds that are no numbers, or the
  /// same number when rounded, are refused in a message box. A set that is not ready for a change
  /// (see StoredSet) is reported in the log, and nothing changes.
  void rAdd_Click(std::size_t index);

 private:
  Ref<Field> Setting(const std::string& name) const;
  bool SetIsReady();
  void CopyBounds();
  void Update();
  void Remove();
  bool RefuseBounds();
  void StoreRange(const std::string& name);
  void ShowAndSave();

  ParameterControls controls_;
  Document& document_;
  StoredSet& set_;
  MessageBoxes& messageBoxes_;
  StatusLog& log_;
  bool listSelecting_ = false;
};

/// Whether a key reaches a box of a bound: Backspace, digits, and a first "-" before the text.
bool BoundTakesKey(const TextBox& box, char key);

/// The operator leaves a box of a bound: it shows the number that its text starts with. The caret
/// stays where it was, but moves after the 0 of an empty box.
void TidyBound(TextBox& box);

}  // namespace tarvo
