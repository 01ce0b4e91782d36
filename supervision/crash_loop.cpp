#include "supervision/crash_loop.h"

namespace tarvo {

bool CrashLoop::Died(std::uint32_t now) {
  deaths_.push_back(now);
  if (deaths_.size() > kDeaths) deaths_.pop_front();
  if (deaths_.size() < kDeaths || now - deaths_.front() > kWithin) {
    toldAt_.reset();
    return false;
  }
  if (toldAt_ && now - *toldAt_ < kToldAgainAfter) return false;
  toldAt_ = now;
  return true;
}

}  // namespace tarvo
