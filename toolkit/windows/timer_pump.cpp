#include "toolkit/windows/timer_pump.h"

#include <algorithm>

namespace tarvo {
namespace {

constexpr UINT_PTR kTimer = 1;
constexpr UINT kShortest = 10;  ///< Milliseconds; the system rounds less up to this.

}  // namespace

TimerPump::TimerPump(Stage& stage, TimerQueue& queue, HWND window)
    : stage_(stage), queue_(queue), window_(window) {
  queue_.onChange = [this] { Rearm(); };
  Rearm();
}

TimerPump::~TimerPump() {
  queue_.onChange = nullptr;
  KillTimer(window_, kTimer);
}

void TimerPump::Rearm() {
  const auto until = queue_.UntilNext();
  if (until && !stage_.window.Ended()) {
    SetTimer(window_, kTimer, std::max<UINT>(*until, kShortest), nullptr);
  } else {
    KillTimer(window_, kTimer);
  }
}

void TimerPump::Tick() {
  queue_.RunNext([this](const std::function<void()>& tick) { stage_.Happens(tick); });
  Rearm();
}

}  // namespace tarvo
