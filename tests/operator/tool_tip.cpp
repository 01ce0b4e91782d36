#include <windows.h>

#include <commctrl.h>

#include "report.h"

namespace tarvo {
namespace {

/// What is asked and answered, laid into the launcher's memory: its tool tips read and write there.
struct Question {
  TOOLINFOA tool;
  char text[1024];
};

/// A piece of another process's memory.
class ForeignMemory {
 public:
  ForeignMemory(DWORD pid, std::size_t size)
      : process_(
            OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, pid)),
        place_(VirtualAllocEx(process_, nullptr, size, MEM_COMMIT, PAGE_READWRITE)) {
    if (!place_) throw OperatorError("the launcher's tool tips cannot be read");
  }
  ~ForeignMemory() {
    VirtualFreeEx(process_, place_, 0, MEM_RELEASE);
    CloseHandle(process_);
  }
  ForeignMemory(const ForeignMemory&) = delete;
  ForeignMemory& operator=(const ForeignMemory&) = delete;

  void* Place() const { return place_; }
  void Write(const Question& question) const {
    WriteProcessMemory(process_, place_, &question, sizeof question, nullptr);
  }
  void Read(Question& question) const {
    ReadProcessMemory(process_, place_, &question, sizeof question, nullptr);
  }

 private:
  HANDLE process_;
  void* place_;
};

std::string Ask(HWND tips, const ForeignMemory& memory, HWND panel, HWND control) {
  Question question{};
  question.tool.cbSize = sizeof question.tool;
  question.tool.uFlags = TTF_IDISHWND;
  question.tool.hwnd = panel;
  question.tool.uId = reinterpret_cast<UINT_PTR>(control);
  auto* const there = static_cast<char*>(memory.Place());
  question.tool.lpszText = there + offsetof(Question, text);
  memory.Write(question);
  Send(tips, TTM_GETTEXTA, sizeof question.text, reinterpret_cast<LPARAM>(there));
  memory.Read(question);
  question.text[sizeof question.text - 1] = '\0';
  return question.text;
}

}  // namespace

std::string ReadToolTip(HWND launcher, const FoundControl& control) {
  const ForeignMemory memory(ProcessOf(launcher), sizeof(Question));
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
