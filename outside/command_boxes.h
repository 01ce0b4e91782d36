#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/message_boxes.h"

namespace tarvo {

/// The launcher's message boxes. While a command from outside is carried out no box comes up: its
/// text is kept for who gave the command, and a question counts as answered with Yes, since whoever
/// gives the command means it.
class CommandBoxes final : public MessageBoxes {
 public:
  explicit CommandBoxes(MessageBoxes& shown) : shown_(shown) {}

  Answer Ask(const MessageBoxRequest& request) override;

  /// The text of the box that the operator sees now, the newest of several; nothing for none.
  std::optional<std::string> OpenText() const;

  void BeginCommand();
  /// Whether such a box would have come up since.
  bool HasKept() const { return !kept_.empty(); }
  /// The texts of the boxes, but not of the questions, that did not come up since.
  std::vector<std::string> EndCommand();

 private:
  MessageBoxes& shown_;
  std::vector<std::string> open_;
  bool commandRuns_ = false;
  std::vector<std::string> kept_;
};

}  // namespace tarvo
