#include <windows.h>

#include <commctrl.h>

#include <iterator>
#include <string>

#include "foreign_memory.h"
#include "report.h"

namespace tarvo {
namespace {

/// What is asked and answered, laid into the launcher's memory: its tool tips read and write there.
struct Question {
  TOOLINFOW tool;
  wchar_t text[1024];
};

std::string InAnsi(const wchar_t* text) {
  std::string ansi(sizeof Question::text, '\0');
  const int size = WideCharToMultiByte(CP_ACP, 0, text, -1, ansi.data(),
                                       static_cast<int>(ansi.size()), nullptr, nullptr);
  ansi.resize(size > 0 ? static_cast<std::size_t>(size) - 1 : 0);
  return ansi;
}

std::string Ask(HWND tips, const ForeignMemory<Question>& memory, HWND panel, HWND control) {
  Question question{};
  question.tool.cbSize = sizeof question.tool;
  question.tool.uFlags = TTF_IDISHWND;
  question.tool.hwnd = panel;
  question.tool.uId = reinterpret_cast<UINT_PTR>(control);
  char* const there = memory.Place();
  question.tool.lpszText = reinterpret_cast<wchar_t*>(there + offsetof(Question, text));
  memory.Write(question);
  // The ANSI message gives 80 bytes at most.
  Send(tips, TTM_GETTEXTW, std::size(question.text), reinterpret_cast<LPARAM>(there));
  memory.Read(question);
  question.text[std::size(question.text) - 1] = L'\0';
  return InAnsi(question.text);
}

}  // namespace

std::string ReadToolTip(HWND launcher, const FoundControl& control) {
  const ForeignMemory<Question> memory(ProcessOf(launcher));
  const HWND panel = GetParent(control.window);
  HWND tips = nullptr;
  while ((tips = FindWindowExA(nullptr, tips, TOOLTIPS_CLASSA, nullptr)) != nullptr) {
    if (ProcessOf(tips) != ProcessOf(launcher)) continue;
    const std::string text = Ask(tips, memory, panel, control.window);
    if (!text.empty()) return text;
  }
  return {};
}

}  // namespace tarvo
