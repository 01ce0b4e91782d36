#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "report.h"

namespace tarvo {
namespace {

/// The lines that are ended; one that is still being written waits for its end.
std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find("\r\n", start)) != std::string::npos; start = end + 2) {
    lines.push_back(text.substr(start, end - start));
  }
  return lines;
}

bool ReadLines(const LauncherChoice& choice, const std::string& name, int index,
               std::vector<std::string>& lines) {
  try {
    const HWND launcher = FindLauncher(choice);
    if (!launcher) return false;
    lines = LinesOf(ReadText(NeedControl(launcher, name, index)));
    return true;
  } catch (const OperatorError&) {
    // The launcher may go between any two looks; one that is alive is an error worth telling.
    if (FindLauncher(choice)) throw;
    return false;
  }
}

/// How many lines at the beginning of `now` were there already when the text was `before`: lines
/// may have been taken off the front and others added behind.
std::size_t KnownLines(const std::vector<std::string>& before,
                       const std::vector<std::string>& now) {
  for (std::size_t gone = 0; gone <= before.size(); ++gone) {
    const std::size_t kept = before.size() - gone;
    if (kept > now.size()) continue;
    const auto first = before.begin() + static_cast<std::ptrdiff_t>(gone);
    if (std::equal(first, before.end(), now.begin())) return kept;
  }
  return 0;
}

}  // namespace

void Follow(const LauncherChoice& choice, const std::string& name, int index, DWORD time) {
  NeedControl(NeedLauncher(choice), name, index);
  const DWORD start = GetTickCount();
  std::vector<std::string> before;
  std::vector<std::string> now;
  while (ReadLines(choice, name, index, now)) {
    for (std::size_t i = KnownLines(before, now); i < now.size(); ++i) {
      std::printf("%s\n", now[i].c_str());
    }
    before = now;
    if (GetTickCount() - start >= time) return;
    Sleep(50);
  }
}

}  // namespace tarvo
