#include "platform/windows/launcher_call_windows.h"

#include <ntsecapi.h>

#include <algorithm>
#include <array>

#include "platform/windows/handle_windows.h"
#include "platform/windows/instance_lock_windows.h"
#include "platform/windows/process_rights.h"

namespace tarvo {
namespace {

constexpr char kDigits[] = "0123456789abcdef";
constexpr DWORD kBetweenLooks = 100;   // Milliseconds between two looks at the launcher.
constexpr DWORD kLongestStart = 3000;  // Until the window of a launcher that starts is there.

std::string PipeName(const std::string& address) {
  return "\\\\.\\pipe\\TarvoLauncherAnswer_" + address;
}

/// Nothing when the system has no random numbers, which it always has.
std::string RandomAddress() {
  std::array<unsigned char, kAddressLength / 2> bytes{};
  if (!RtlGenRandom(bytes.data(), static_cast<ULONG>(bytes.size()))) return {};
  std::string address;
  for (const unsigned char byte : bytes) address += {kDigits[byte >> 4], kDigits[byte & 15]};
  return address;
}

bool IsAddress(const std::string& text) {
  return text.size() == kAddressLength &&
         text.find_first_not_of(kDigits, 0, sizeof kDigits - 1) == text.npos;
}

/// An operation of a pipe that goes on beside the program. It is called off at the end.
class Pending {
 public:
  explicit Pending(HANDLE pipe) : pipe_(pipe), event_(CreateEventA(nullptr, TRUE, FALSE, nullptr)) {
    record_.hEvent = event_.Get();
  }
  ~Pending() { CallOff(); }
  Pending(const Pending&) = delete;
  Pending& operator=(const Pending&) = delete;

  OVERLAPPED* Record() { return &record_; }
  /// To be told the result of the system's call that begins the operation.
  void Begun(BOOL done) { pending_ = !done && GetLastError() == ERROR_IO_PENDING; }
  bool Wait(DWORD milliseconds) const {
    return !pending_ || WaitForSingleObject(event_.Get(), milliseconds) == WAIT_OBJECT_0;
  }
  /// The bytes of an operation that has ended; 0 of one that failed.
  DWORD Bytes() {
    DWORD bytes = 0;
    const bool done = GetOverlappedResult(pipe_, &record_, &bytes, FALSE) != FALSE;
    if (done || GetLastError() != ERROR_IO_INCOMPLETE) pending_ = false;
    return done ? bytes : 0;
  }
  /// The record belongs to the system until the operation has ended, which it does at once now.
  void CallOff() {
    if (!pending_) return;
    DWORD bytes = 0;
    CancelIo(pipe_);
    GetOverlappedResult(pipe_, &record_, &bytes, TRUE);
    pending_ = false;
  }

 private:
  HANDLE pipe_;
  KernelHandle event_;
  OVERLAPPED record_{};
  bool pending_ = false;
};

/// The caller's side of one call.
class OpenCall {
 public:
  OpenCall(HWND window, DWORD longestWait)
      : window_(window),
        begun_(GetTickCount()),
        longestWait_(longestWait),
        address_(RandomAddress()),
        pipe_(CreateNamedPipeA(
            PipeName(address_).c_str(),
            PIPE_ACCESS_INBOUND | FILE_FLAG_FIRST_PIPE_INSTANCE | FILE_FLAG_OVERLAPPED,
            PIPE_TYPE_BYTE | PIPE_READMODE_BYTE | PIPE_WAIT | PIPE_REJECT_REMOTE_CLIENTS, 1, 0,
            static_cast<DWORD>(kLongestAnswer), 0, OpenToOwnUser().Attributes())),
        connection_(pipe_.Get()) {
    if (pipe_.Valid()) connection_.Begun(ConnectNamedPipe(pipe_.Get(), connection_.Record()));
  }

  CallResult Make(const std::string& record) {
    if (!pipe_.Valid()) return {CallEnd::LineBroken, {}};
    const CallEnd sent = Send(address_ + record);
    if (sent != CallEnd::Answered) return {sent, {}};
    const CallEnd connected = Await(connection_);
    if (connected != CallEnd::Answered) return {connected, {}};
    return Read();
  }

 private:
  DWORD Left() const { return longestWait_ - std::min(longestWait_, GetTickCount() - begun_); }

  CallEnd Send(std::string message) {
    COPYDATASTRUCT data{kCallMark, static_cast<DWORD>(message.size()), message.data()};
    DWORD_PTR taken = FALSE;
    SetLastError(ERROR_SUCCESS);
    if (SendMessageTimeoutA(window_, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data), SMTO_NORMAL,
                            std::max<DWORD>(Left(), 1), &taken) != 0) {
      return taken ? CallEnd::Answered : CallEnd::LineBroken;
    }
    if (IsWindow(window_) == FALSE) return CallEnd::LineBroken;
    return GetLastError() == ERROR_ACCESS_DENIED ? CallEnd::NotReached : CallEnd::TimeOver;
  }

  CallEnd Await(const Pending& operation) const {
    for (;;) {
      const DWORD left = Left();
      const bool there = IsWindow(window_) != FALSE;
      if (operation.Wait(std::min(left, kBetweenLooks))) return CallEnd::Answered;
      // Looked at before the wait: what the launcher did last counts still.
      if (!there) return CallEnd::LineBroken;
      if (left == 0) return CallEnd::TimeOver;
    }
  }

  /// Until the launcher closes its end.
  CallResult Read() {
    std::string answer;
    std::array<char, 4096> piece{};
    for (;;) {
      Pending reading(pipe_.Get());
      reading.Begun(ReadFile(pipe_.Get(), piece.data(), static_cast<DWORD>(piece.size()), nullptr,
                             reading.Record()));
      const CallEnd ready = Await(reading);
      if (ready != CallEnd::Answered) return {ready, {}};
      const DWORD size = reading.Bytes();
      if (size == 0) break;
      answer.append(piece.data(), size);
      if (answer.size() > kLongestAnswer) return {CallEnd::LineBroken, {}};
    }
    return {answer.empty() ? CallEnd::LineBroken : CallEnd::Answered, std::move(answer)};
  }

  HWND window_;
  DWORD begun_;
  DWORD longestWait_;
  std::string address_;
  KernelHandle pipe_;
  Pending connection_;
};

class PipeLine final : public AnswerLine {
 public:
  explicit PipeLine(KernelHandle pipe) : pipe_(std::move(pipe)) {}

  bool CallerHasLessRights() override {
    return HasLessRights(CallersIntegrity(), IntegrityOf(GetCurrentProcess()));
  }

  void Send(const std::string& answer) override {
    Pending writing(pipe_.Get());
    writing.Begun(WriteFile(pipe_.Get(), answer.data(), static_cast<DWORD>(answer.size()), nullptr,
                            writing.Record()));
  }

 private:
  std::optional<DWORD> CallersIntegrity() const {
    ULONG id = 0;
    if (!GetNamedPipeServerProcessId(pipe_.Get(), &id)) return std::nullopt;
    const KernelHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id));
    return process.Valid() ? IntegrityOf(process.Get()) : std::nullopt;
  }

  KernelHandle pipe_;
};

}  // namespace

CallResult WindowsLauncherCall::Call(const std::string& instanceName, const std::string& record,
                                     std::uint32_t longestWait) {
  if (record.size() + kAddressLength > kLongestMessage) return {CallEnd::LineBroken, {}};
  HWND window = PublishedWindow(instanceName);
  for (DWORD waited = 0; window == nullptr; waited += kBetweenLooks) {
    if (!IsLockHeld(instanceName)) return {CallEnd::NoLauncher, {}};
    if (waited >= std::min<DWORD>(kLongestStart, longestWait)) return {CallEnd::NotReached, {}};
    Sleep(kBetweenLooks);
    window = PublishedWindow(instanceName);
  }
  return OpenCall(window, longestWait).Make(record);
}

std::unique_ptr<AnswerLine> WindowsAnswerLines::Open(const std::string& address) {
  if (!IsAddress(address)) return nullptr;
  KernelHandle pipe(CreateFileA(PipeName(address).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                FILE_FLAG_OVERLAPPED | SECURITY_SQOS_PRESENT | SECURITY_ANONYMOUS,
                                nullptr));
  if (!pipe.Valid()) return nullptr;
  return std::make_unique<PipeLine>(std::move(pipe));
}

}  // namespace tarvo
