#pragma once

#include <span>
#include <stdexcept>
#include <string>

namespace tarvo::acceptance {

class Desk;

/// What a story says of a launcher that does not do as it should.
class DidNotHold : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Why a story cannot be played on this machine.
class Skipped : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Something that an operator does and sees. It is given a server root of its own in which nothing
/// runs.
struct Story {
  const char* name;
  const char* tells;  ///< One sentence for the report.
  void (*play)(Desk& desk);
  bool elsewhere = false;  ///< Played as `Surroundings` says, whatever those of the run are.
};

/// All of them, in the order in which they are played.
std::span<const Story> Stories();

}  // namespace tarvo::acceptance
