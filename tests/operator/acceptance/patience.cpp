#include "tests/operator/acceptance/patience.h"

namespace tarvo::acceptance {
namespace {

const ULONGLONG kBegin = GetTickCount64();
/// Of the time in all, so much is for taking things down.
constexpr std::chrono::seconds kReserve{20};

}  // namespace

std::chrono::milliseconds TimeLeft() {
  const std::chrono::milliseconds spent(GetTickCount64() - kBegin);
  const std::chrono::milliseconds all = kTimeInAll - kReserve;
  return spent < all ? all - spent : std::chrono::milliseconds(0);
}

}  // namespace tarvo::acceptance
