#include "tiny/tiny.h"

namespace tiny {
namespace {

constexpr int kMost = 3;
constexpr char kWord[] = "hey";

void Add(std::string& said, char mark) { said += mark; }

}  // namespace

int Larger(int a, int b) { return a < b ? b : a; }

bool Ends(char mark) { return mark == '?'; }

std::string Say(int times) {
  std::string said;
  while (times > 0) {
    said += kWord;
    if (said.size() == kMost * sizeof(kWord) - kMost) break;
    --times;
  }
  Add(said, '!');
  Add(said, '?');
  return said;
}

}  // namespace tiny
