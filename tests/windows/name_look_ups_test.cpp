#include "platform/windows/name_look_ups.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <memory>
#include <string>

#include "platform/windows/handle_windows.h"

namespace tarvo {
namespace {

/// The name server behind the look-ups of a test. "game" and "quick" have an address, all other
/// names none; "quick" is answered even while the server is silent.
struct NameServer {
  KernelHandle answers{CreateEventA(nullptr, TRUE, TRUE, nullptr)};
  DWORD delay = 0;
  HWND window = nullptr;  ///< Gets messages from the thread of each look-up.
  LONG asked = 0;
  LONG done = 0;
};
std::unique_ptr<NameServer> server;

constexpr UINT kPosted = WM_APP + 1;
constexpr UINT kSent = WM_APP + 2;

int Find(const char* host, std::uint8_t* address) {
  InterlockedIncrement(&server->asked);
  if (server->window != nullptr) {
    PostMessageA(server->window, kPosted, 0, 0);
    SendNotifyMessageA(server->window, kSent, 0, 0);
  }
  const std::string name(host);
  Sleep(server->delay);
  if (name != "quick") WaitForSingleObject(server->answers.Get(), INFINITE);
  const std::uint8_t loopback[] = {127, 0, 0, 1};
  const bool known = name == "game" || name == "quick";
  if (known) std::copy_n(loopback, 4, address);
  InterlockedIncrement(&server->done);
  return known ? 4 : 0;
}

class NameLookUpsTest : public testing::Test {
 protected:
  NameLookUpsTest() { server = std::make_unique<NameServer>(); }
  ~NameLookUpsTest() override {
    SetEvent(server->answers.Get());
    EXPECT_TRUE(AllDone());
    server.reset();
  }
  static void Silence() { ResetEvent(server->answers.Get()); }
  /// The server answers all that is open.
  static bool AnswerAll() {
    SetEvent(server->answers.Get());
    const bool done = AllDone();
    Sleep(50);  // From the end of `Find` to the event.
    return done;
  }
  static bool AllDone() {
    for (int i = 0; i < 1000 && server->done != server->asked; ++i) Sleep(10);
    return server->done == server->asked;
  }
  /// Whether it gets as many questions as that in all; a thread of its own puts each.
  static bool IsAsked(LONG times) {
    for (int i = 0; i < 1000 && server->asked < times; ++i) Sleep(10);
    return server->asked == times;
  }
  LookUp Ask(const std::string& host, std::uint32_t milliseconds) {
    return lookUps_.FirstAddressOf(host, milliseconds).outcome;
  }

  NameLookUps lookUps_{&Find};
};

TEST_F(NameLookUpsTest, AnAnswerInTimeCountsEitherWay) {
  const HostAnswer answer = lookUps_.FirstAddressOf("game", 5000);
  EXPECT_EQ(answer.outcome, LookUp::Found);
  EXPECT_EQ(answer.address, (std::vector<std::uint8_t>{127, 0, 0, 1}));
  EXPECT_EQ(Ask("nobody", 5000), LookUp::Unknown);
}

TEST_F(NameLookUpsTest, AnUnansweredQuestionIsWaitedForAndNotPutTwice) {
  Silence();
  const DWORD start = GetTickCount();
  EXPECT_EQ(Ask("game", 200), LookUp::NotAnswered);
  EXPECT_GE(GetTickCount() - start, 150u);
  EXPECT_LE(GetTickCount() - start, 1500u);
  for (int i = 0; i < 20; ++i) EXPECT_EQ(Ask("game", 10), LookUp::NotAnswered);
  EXPECT_TRUE(IsAsked(1));
}

TEST_F(NameLookUpsTest, ALateAddressAnswersTheNextQuestion) {
  Silence();
  EXPECT_EQ(Ask("game", 10), LookUp::NotAnswered);
  ASSERT_TRUE(AnswerAll());
  Silence();
  EXPECT_EQ(Ask("game", 10), LookUp::Found);
  EXPECT_TRUE(IsAsked(1));
  EXPECT_EQ(Ask("game", 10), LookUp::NotAnswered);
  EXPECT_TRUE(IsAsked(2));
}

TEST_F(NameLookUpsTest, ALateFailureAnswersNothing) {
  Silence();
  EXPECT_EQ(Ask("nobody", 10), LookUp::NotAnswered);
  ASSERT_TRUE(AnswerAll());
  server->delay = 200;
  EXPECT_EQ(Ask("nobody", 20), LookUp::NotAnswered);  // Asked anew.
  EXPECT_TRUE(IsAsked(2));
  EXPECT_EQ(Ask("nobody", 5000), LookUp::NotAnswered);  // Failed while it was waited for again.
  EXPECT_EQ(Ask("nobody", 5000), LookUp::Unknown);
}

TEST_F(NameLookUpsTest, ASilentNameHoldsNoOther) {
  Silence();
  EXPECT_EQ(Ask("nobody", 10), LookUp::NotAnswered);
  EXPECT_EQ(Ask("quick", 5000), LookUp::Found);
  EXPECT_EQ(Ask("nobody", 10), LookUp::NotAnswered);
}

TEST_F(NameLookUpsTest, AnAnswerMayComeWhenNobodyIsThereAnyMore) {
  Silence();
  for (int i = 0; i < 20; ++i) {
    NameLookUps gone(&Find);
    EXPECT_EQ(gone.FirstAddressOf("game", 0).outcome, LookUp::NotAnswered);
    EXPECT_EQ(gone.FirstAddressOf("nobody", 0).outcome, LookUp::NotAnswered);
    gone.Forget();
    EXPECT_EQ(gone.FirstAddressOf("game", 0).outcome, LookUp::NotAnswered);
  }
  for (int i = 0; i < 500 && server->asked < 60; ++i) Sleep(10);
  EXPECT_EQ(server->asked, 60);
  EXPECT_TRUE(AnswerAll());
}

int handled = 0;

LRESULT CALLBACK CountMessages(HWND window, UINT message, WPARAM w, LPARAM l) {
  if (message == kPosted || message == kSent || message == WM_TIMER) ++handled;
  return DefWindowProcA(window, message, w, l);
}

TEST_F(NameLookUpsTest, NoMessageIsHandledMeanwhile) {
  WNDCLASSA record{};
  record.lpfnWndProc = CountMessages;
  record.hInstance = GetModuleHandleA(nullptr);
  record.lpszClassName = "TarvoLookUpTest";
  RegisterClassA(&record);
  server->window = CreateWindowExA(0, record.lpszClassName, "", 0, 0, 0, 0, 0, HWND_MESSAGE,
                                   nullptr, record.hInstance, nullptr);
  ASSERT_NE(server->window, nullptr);
  SetTimer(server->window, 1, 10, nullptr);
  handled = 0;
  Silence();
  EXPECT_EQ(Ask("game", 300), LookUp::NotAnswered);
  EXPECT_EQ(handled, 0);
  MSG message{};
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
  EXPECT_GE(handled, 3);
  DestroyWindow(server->window);
}

}  // namespace
}  // namespace tarvo
