#include "tests/simulation/sim_desktop.h"

#include <utility>

namespace tarvo {

Answer SimMessageBoxes::Ask(const MessageBoxRequest& request) {
  recorder_.Note("boxes.ask(" + request.text + ")");
  shown_.push_back(request);
  if (auto happens = std::exchange(whileNextIsOpen, nullptr)) happens();
  if (answers_.empty()) return request.buttons == BoxButtons::Ok ? Answer::Ok : Answer::No;
  const Answer answer = answers_.front();
  answers_.pop_front();
  return answer;
}

std::string SimMessageBoxes::NewTexts() {
  std::string texts;
  while (told_ < shown_.size()) texts += shown_[told_++].text + "\n";
  return texts;
}

void SimMemory::Set(std::int64_t freePhysical, std::int64_t physical, std::int64_t freePaging,
                    std::int64_t paging) {
  free_ = freePhysical;
  total_ = physical;
  freePaging_ = freePaging;
  paging_ = paging;
}

SimInstanceLock::~SimInstanceLock() {
  if (!mine_.empty()) table_.held.erase(mine_);
}

bool SimInstanceLock::Acquire(const std::string& name) {
  recorder_.Note("lock.acquire()");
  if (table_.held.contains(name)) return false;
  table_.held[name] = 0;
  mine_ = name;
  return true;
}

HolderShown SimInstanceLock::ShowHolder(const std::string& name) {
  recorder_.Note("lock.showHolder()");
  const auto holder = table_.held.find(name);
  if (table_.holdersHaveMoreRights) return HolderShown::NotAllowed;
  if (holder == table_.held.end() || holder->second == 0) return HolderShown::NoWindow;
  table_.broughtToFront.push_back(holder->second);
  return HolderShown::Yes;
}

void SimInstanceLock::Publish(const std::string& name, std::intptr_t window) {
  recorder_.Note("lock.publish()");
  table_.held[name] = window;
}

}  // namespace tarvo
