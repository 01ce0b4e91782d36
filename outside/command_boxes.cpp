#include "outside/command_boxes.h"

#include <utility>

namespace tarvo {

Answer CommandBoxes::Ask(const MessageBoxRequest& request) {
  if (commandRuns_) {
    if (request.buttons == BoxButtons::YesNo) return Answer::Yes;
    kept_.push_back(request.text);
    return Answer::Ok;
  }
  open_.push_back(request.text);
  const Answer answer = shown_.Ask(request);
  open_.pop_back();
  return answer;
}

std::optional<std::string> CommandBoxes::OpenText() const {
  return open_.empty() ? std::nullopt : std::optional(open_.back());
}

void CommandBoxes::BeginCommand() {
  commandRuns_ = true;
  kept_.clear();
}

std::vector<std::string> CommandBoxes::EndCommand() {
  commandRuns_ = false;
  return std::exchange(kept_, {});
}

}  // namespace tarvo
