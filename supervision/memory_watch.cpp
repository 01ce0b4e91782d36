#include "supervision/memory_watch.h"

#include <cmath>

#include "support/text.h"

namespace tarvo {
namespace {

constexpr double kBytesInMegabyte = 1024.0 * 1024.0;
constexpr double kTurnedOver = 4294967296.0;

double ByteCount(std::int64_t figure) {
  const double count = static_cast<double>(figure);
  return figure < 0 ? count + kTurnedOver : count;
}

std::string WithTwoDecimals(double number) {
  const long long hundredths = std::llround(number * 100);
  return WithThousands(std::to_string(hundredths / 100)) + "." + ZeroPadded(hundredths % 100);
}

}  // namespace

std::string MemoryText(const MemoryFigures& figures) {
  const double available =
      ByteCount(figures.availablePhysical) + ByteCount(figures.availablePagingFile);
  const double total = ByteCount(figures.totalPhysical) + ByteCount(figures.totalPagingFile);
  const double percent = total > 0 ? available / total * 100 : 0;
  return ZeroPadded(std::llround(percent)) + "% (" + WithTwoDecimals(available / kBytesInMegabyte) +
         " MB)";
}

std::int64_t FreeMemory(MemoryStatus& memory) {
  return static_cast<std::int64_t>(ByteCount(memory.AvailablePhysical()) +
                                   ByteCount(memory.AvailablePagingFile()));
}

std::int64_t TotalMemory(MemoryStatus& memory) {
  return static_cast<std::int64_t>(ByteCount(memory.TotalPhysical()) +
                                   ByteCount(memory.TotalPagingFile()));
}

void ShowFreeMemory(MemoryStatus& memory, Label& label) {
  MemoryFigures figures;
  figures.availablePhysical = memory.AvailablePhysical();
  figures.availablePagingFile = memory.AvailablePagingFile();
  figures.totalPhysical = memory.TotalPhysical();
  figures.totalPagingFile = memory.TotalPagingFile();
  label.SetCaption(MemoryText(figures));
}

}  // namespace tarvo
