#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/instance_lock.h"
#include "platform/memory_status.h"
#include "platform/message_boxes.h"
#include "tests/simulation/call_recorder.h"

namespace tarvo {

/// Message boxes that are answered from a script and remembered. Without a script a box is answered
/// by Enter on "OK", or by "No".
class SimMessageBoxes final : public MessageBoxes {
 public:
  explicit SimMessageBoxes(CallRecorder& recorder) : recorder_(recorder) {}

  Answer Ask(const MessageBoxRequest& request) override;

  /// The answer to the next box that has none yet.
  void AnswerNext(Answer answer) { answers_.push_back(answer); }
  /// What happens while the next box is open, time passing included.
  std::function<void()> whileNextIsOpen;

  const std::vector<MessageBoxRequest>& Shown() const { return shown_; }
  /// The texts of the boxes since the last call, one a line.
  std::string NewTexts();

 private:
  CallRecorder& recorder_;
  std::vector<MessageBoxRequest> shown_;
  std::size_t told_ = 0;
  std::deque<Answer> answers_;
};

/// The machine's memory figures: 1,500 MB of 4,000 MB free until a test says otherwise.
class SimMemory final : public MemoryStatus {
 public:
  explicit SimMemory(CallRecorder& recorder) : recorder_(recorder) {}

  std::int64_t AvailablePhysical() override { return Told("memory.availablePhysical()", free_); }
  std::int64_t TotalPhysical() override { return Told("memory.totalPhysical()", total_); }
  std::int64_t AvailablePagingFile() override {
    return Told("memory.availablePagingFile()", freePaging_);
  }
  std::int64_t TotalPagingFile() override { return Told("memory.totalPagingFile()", paging_); }

  void Set(std::int64_t freePhysical, std::int64_t physical, std::int64_t freePaging,
           std::int64_t paging);

 private:
  std::int64_t Told(const char* call, std::int64_t figure) {
    recorder_.Note(call);
    return figure;
  }
  static constexpr std::int64_t kMegabyte = 1024 * 1024;

  CallRecorder& recorder_;
  std::int64_t free_ = 500 * kMegabyte;
  std::int64_t total_ = 1000 * kMegabyte;
  std::int64_t freePaging_ = 1000 * kMegabyte;
  std::int64_t paging_ = 3000 * kMegabyte;
};

/// The machine-wide locks: name to the window that their holder has published, 0 for none yet.
struct SimLockTable {
  std::map<std::string, std::intptr_t> held;
  /// The holders run with more rights than whoever asks for them: their windows take no order.
  bool holdersHaveMoreRights = false;
  std::vector<std::intptr_t> broughtToFront;
};

/// The lock of one running program, let go when that program is gone.
class SimInstanceLock final : public InstanceLock {
 public:
  SimInstanceLock(CallRecorder& recorder, SimLockTable& table)
      : recorder_(recorder), table_(table) {}
  ~SimInstanceLock() override;
  SimInstanceLock(const SimInstanceLock&) = delete;
  SimInstanceLock& operator=(const SimInstanceLock&) = delete;

  bool Acquire(const std::string& name) override;
  HolderShown ShowHolder(const std::string& name) override;
  void Publish(const std::string& name, std::intptr_t window) override;

 private:
  CallRecorder& recorder_;
  SimLockTable& table_;
  std::string mine_;
};

}  // namespace tarvo
