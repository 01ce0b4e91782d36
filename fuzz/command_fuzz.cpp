// Any bytes that come to the window as a command, or to its sender as an answer: what is taken for
// one means one thing, and is written again as it came.
// corpus: command
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "outside/command_record.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (const auto command = tarvo::CommandOf(bytes)) {
    if (tarvo::RecordOf(*command) != bytes || !tarvo::IsForLauncher(command->verb)) std::abort();
    if (command->seconds > tarvo::kLongestWaitSeconds) std::abort();
  }
  if (const auto answer = tarvo::AnswerOf(bytes)) {
    if (tarvo::BytesOf(*answer) != bytes) std::abort();
  }
  return 0;
}
