#include "core/patience.h"

namespace tarvo {

std::optional<FileFault> Patience::Try(const Attempt& attempt) const {
  const std::uint32_t begun = clock_.Milliseconds();
  std::uint32_t waited = 0;
  for (int tries = 1;; ++tries) {
    auto fault = attempt();
    if (!fault || fault->trouble != FileTrouble::Held) return fault;
    const bool overdue = tries >= kLeastTries && clock_.Milliseconds() - begun >= kLongestWhole;
    if (overdue || waited >= kLongestHold) return fault;
    clock_.Pause(kBetweenTries);
    waited += kBetweenTries;
  }
}

}  // namespace tarvo
