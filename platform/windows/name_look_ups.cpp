#include "platform/windows/name_look_ups.h"

#include <winsock2.h>

#include <algorithm>
#include <utility>

#include "platform/windows/handle_windows.h"

namespace tarvo {

struct NameLookUps::Question {
  std::string host;
  Find find = nullptr;
  KernelHandle answered;
  LONG owners = 2;
  bool waitedFor = false;  ///< A wait for it has ended without an answer; the caller's alone.
  int length = 0;
  std::uint8_t address[kAddressSize] = {};
};

void NameLookUps::Release::operator()(Question* question) const {
  if (InterlockedDecrement(&question->owners) == 0) delete question;
}

int NameLookUps::FindHost(const char* host, std::uint8_t* address) {
  const hostent* entry = gethostbyname(host);
  if (entry == nullptr || entry->h_addr_list == nullptr || entry->h_addr_list[0] == nullptr) {
    return 0;
  }
  const int length = std::min<int>(entry->h_length, kAddressSize);
  std::copy_n(entry->h_addr_list[0], length, address);
  return length;
}

unsigned long __stdcall NameLookUps::Run(void* argument) {
  const Shared question(static_cast<Question*>(argument));
  question->length = question->find(question->host.c_str(), question->address);
  SetEvent(question->answered.Get());
  return 0;
}

NameLookUps::Shared NameLookUps::Ask(const std::string& host) const {
  Shared question(new Question);
  question->host = host;
  question->find = find_;
  question->answered = KernelHandle(CreateEventA(nullptr, TRUE, FALSE, nullptr));
  if (question->answered.Valid()) {
    const KernelHandle thread(CreateThread(nullptr, 0, Run, question.get(), 0, nullptr));
    if (thread.Valid()) return question;
  }
  question->owners = 1;
  return nullptr;
}

bool NameLookUps::Answered(const Question& question, std::uint32_t milliseconds) {
  return WaitForSingleObject(question.answered.Get(), milliseconds) == WAIT_OBJECT_0;
}

HostAnswer NameLookUps::FirstAddressOf(const std::string& host, std::uint32_t milliseconds) {
  Shared& question = open_[host];
  const bool gaveUp = question && Answered(*question, 0) && question->length == 0;
  if (!question || gaveUp) question = Ask(host);
  if (!question) return {};
  if (!Answered(*question, milliseconds)) {
    question->waitedFor = true;
    return {};
  }
  const Shared done = std::move(question);
  open_.erase(host);
  if (done->length > 0) {
    return {LookUp::Found, {done->address, done->address + done->length}};
  }
  return {done->waitedFor ? LookUp::NotAnswered : LookUp::Unknown, {}};
}

}  // namespace tarvo
