#pragma once

#include <windows.h>

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <utility>

#include "platform/windows/handle_windows.h"

namespace tarvo {

/// The answer to a question over which the system may take long, and which cannot be called back.
///
/// The question runs on a thread of its own, which touches nothing but its record; the caller waits
/// for the record's event, so that no message is handled and nothing of the program runs meanwhile.
/// The record belongs to the caller and to the thread, and goes with the last of the two: an answer
/// that comes after the caller has gone is written into a record that is still there. Threads that
/// still wait at the program's end are ended by the system.
template <typename Answer>
class LateAnswer {
 public:
  LateAnswer() = default;
  /// Puts a question, which runs on any thread. One that raises has the empty answer.
  explicit LateAnswer(std::function<Answer()> question) : record_(new Record) {
    record_->question = std::move(question);
    record_->came = KernelHandle(CreateEventA(nullptr, TRUE, FALSE, nullptr));
    if (record_->came.Valid()) {
      const KernelHandle thread(CreateThread(nullptr, 0, Run, record_.get(), 0, nullptr));
      if (thread.Valid()) return;
    }
    record_->owners = 1;
    record_.reset();
  }

  /// False where nothing was asked, or the system had no thread for it.
  bool Asked() const { return record_ != nullptr; }
  /// Waits for the answer; false unless it has come in that time.
  bool CameWithin(std::uint32_t milliseconds) const {
    return Asked() && WaitForSingleObject(record_->came.Get(), milliseconds) == WAIT_OBJECT_0;
  }
  /// The answer, once it has come.
  Answer& Value() { return record_->answer; }

 private:
  struct Record {
    std::function<Answer()> question;
    KernelHandle came;
    LONG owners = 2;
    Answer answer{};
  };
  struct Release {
    void operator()(Record* record) const {
      if (InterlockedDecrement(&record->owners) == 0) delete record;
    }
  };
  using Shared = std::unique_ptr<Record, Release>;

  static DWORD WINAPI Run(void* argument) noexcept {
    const Shared record(static_cast<Record*>(argument));
    try {
      record->answer = record->question();
    } catch (const std::exception&) {
      record->answer = {};
    }
    SetEvent(record->came.Get());
    return 0;
  }

  Shared record_;
};

}  // namespace tarvo
