#include "platform/windows/name_look_ups.h"

#include <winsock2.h>

#include <algorithm>
#include <utility>

namespace tarvo {

int NameLookUps::FindHost(const char* host, std::uint8_t* address) {
  const hostent* entry = gethostbyname(host);
  if (entry == nullptr || entry->h_addr_list == nullptr || entry->h_addr_list[0] == nullptr) {
    return 0;
  }
  const int length = std::min<int>(entry->h_length, kAddressSize);
  std::copy_n(entry->h_addr_list[0], length, address);
  return length;
}

NameLookUps::Question NameLookUps::Ask(const std::string& host) const {
  return {LateAnswer<Address>([find = find_, host] {
    std::uint8_t address[kAddressSize] = {};
    const int length = find(host.c_str(), address);
    return Address(address, address + length);
  })};
}

HostAnswer NameLookUps::FirstAddressOf(const std::string& host, std::uint32_t milliseconds) {
  Question& question = open_[host];
  const bool gaveUp = question.answer.CameWithin(0) && question.answer.Value().empty();
  if (!question.answer.Asked() || gaveUp) question = Ask(host);
  if (!question.answer.CameWithin(milliseconds)) {
    question.waitedFor = true;
    return {};
  }
  Question done = std::move(question);
  open_.erase(host);
  if (!done.answer.Value().empty()) return {LookUp::Found, std::move(done.answer.Value())};
  return {done.waitedFor ? LookUp::NotAnswered : LookUp::Unknown, {}};
}

}  // namespace tarvo
