#include "platform/windows/clipboard_windows.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace tarvo {
namespace {

std::string TextOnClipboard() {
  if (OpenClipboard(nullptr) == 0) return "(in use)";
  const HANDLE data = GetClipboardData(CF_TEXT);
  const auto* text = static_cast<const char*>(data ? GlobalLock(data) : nullptr);
  const std::string copy = text ? text : "(none)";
  if (text) GlobalUnlock(data);
  CloseClipboard();
  return copy;
}

TEST(WindowsClipboard, HoldsTheTextThatWasPutThereLast) {
  WindowsClipboard clipboard;
  EXPECT_TRUE(clipboard.PutText("first"));
  EXPECT_TRUE(clipboard.PutText("one\r\ntwo"));
  EXPECT_EQ(TextOnClipboard(), "one\r\ntwo");
  EXPECT_TRUE(clipboard.PutText(""));
  EXPECT_EQ(TextOnClipboard(), "");
}

}  // namespace
}  // namespace tarvo
