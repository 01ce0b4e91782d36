#include "toolkit/timer_queue.h"

#include <algorithm>
#include <utility>

namespace tarvo {

Timer::Timer(TimerQueue& queue, std::string name, std::uint32_t interval, bool enabled)
    : queue_(queue), name_(std::move(name)), interval_(interval) {
  queue_.timers_.push_back(this);
  SetEnabled(enabled);
}

Timer::~Timer() { std::erase(queue_.timers_, this); }

void Timer::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  if (enabled) Arm();
  if (queue_.onChange) queue_.onChange();
}

void Timer::SetInterval(std::uint32_t milliseconds) {
  if (interval_ == milliseconds) return;
  interval_ = milliseconds;
  if (enabled_) Arm();
  if (queue_.onChange) queue_.onChange();
}

void Timer::Arm() {
  due_ = queue_.Milliseconds() + interval_;
  sequence_ = ++queue_.sequence_;
}

std::uint64_t TimerQueue::Milliseconds() {
  now_ += clock_.Milliseconds() - static_cast<std::uint32_t>(now_);
  return now_;
}

void TimerQueue::Hold(bool held) {
  if (held_ == held) return;
  held_ = held;
  if (onChange) onChange();
}

Timer* TimerQueue::Earliest() const {
  if (held_) return nullptr;
  Timer* earliest = nullptr;
  for (Timer* timer : timers_) {
    if (!timer->enabled_) continue;
    if (!earliest ||
        std::pair(timer->due_, timer->sequence_) < std::pair(earliest->due_, earliest->sequence_)) {
      earliest = timer;
    }
  }
  return earliest;
}

std::optional<std::uint32_t> TimerQueue::UntilNext() {
  const Timer* next = Earliest();
  if (!next) return std::nullopt;
  const std::uint64_t now = Milliseconds();
  return next->due_ <= now ? 0 : static_cast<std::uint32_t>(next->due_ - now);
}

bool TimerQueue::RunNext(const std::function<void(const std::function<void()>&)>& dispatch) {
  Timer* timer = Earliest();
  if (!timer || timer->due_ > Milliseconds()) return false;
  timer->Arm();
  ++ticking_;
  if (timer->onTick) dispatch(timer->onTick);
  --ticking_;
  if (onChange) onChange();
  return true;
}

}  // namespace tarvo
