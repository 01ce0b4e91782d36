#include "captions.h"

#include <commctrl.h>

#include <algorithm>
#include <cstddef>
#include <string>

#include "foreign_memory.h"
#include "launcher.h"

namespace tarvo {
namespace {

/// What is asked of the tab view and answered, laid into the launcher's memory.
struct Question {
  TCITEMA item;
  char text[256];
};

void AddPages(HWND tabs, std::vector<std::string>& captions) {
  const ForeignMemory<Question> memory(ProcessOf(tabs));
  for (LRESULT page = 0; page < Send(tabs, TCM_GETITEMCOUNT); ++page) {
    Question question{};
    question.item.mask = TCIF_TEXT;
    question.item.pszText = memory.Place() + offsetof(Question, text);
    question.item.cchTextMax = sizeof question.text;
    memory.Write(question);
    Send(tabs, TCM_GETITEMA, static_cast<WPARAM>(page), reinterpret_cast<LPARAM>(memory.Place()));
    memory.Read(question);
    captions.emplace_back(question.text);
  }
}

BOOL CALLBACK AddCaption(HWND window, LPARAM list) {
  char name[64] = "";
  GetClassNameA(window, name, sizeof name);
  const bool hasCaption = lstrcmpiA(name, "STATIC") == 0 || lstrcmpiA(name, "BUTTON") == 0;
  RECT place{};
  GetWindowRect(window, &place);
  if (!hasCaption || !IsWindowVisible(window) || IsRectEmpty(&place)) return TRUE;
  std::string text = TextOf(window);
  text.erase(std::remove(text.begin(), text.end(), '&'), text.end());
  if (!text.empty()) reinterpret_cast<std::vector<std::string>*>(list)->push_back(text);
  return TRUE;
}

}  // namespace

std::vector<std::string> CaptionsOf(HWND launcher) {
  std::vector<std::string> captions;
  AddPages(NeedControl(launcher, "SSTab1", -1).window, captions);
  EnumChildWindows(launcher, AddCaption, reinterpret_cast<LPARAM>(&captions));
  return captions;
}

}  // namespace tarvo
