#include "tests/operator/acceptance/runner.h"

#include "tests/operator/acceptance/desk.h"
#include "tests/operator/acceptance/files.h"

namespace tarvo::acceptance {
namespace {

constexpr char kReport[] = "acceptance-report.txt";

std::string InTemporaryFolder() {
  char folder[MAX_PATH] = "";
  GetTempPathA(sizeof folder, folder);
  return std::string(folder) + kReport;
}

}  // namespace

Report::Report() : path_(OwnFolder() + "\\" + kReport), file_(std::fopen(path_.c_str(), "wb")) {
  if (file_) return;
  path_ = InTemporaryFolder();
  file_ = std::fopen(path_.c_str(), "wb");
}

Report::~Report() {
  if (file_) std::fclose(file_);
}

void Report::Say(const std::string& line) {
  std::printf("%s\n", line.c_str());
  std::fflush(stdout);
  if (!file_) return;
  std::fprintf(file_, "%s\r\n", line.c_str());
  std::fflush(file_);
}

Runner::Runner(Report& report, const Surroundings& surroundings)
    : report_(report), surroundings_(surroundings) {}

void Runner::Play(const Story& story) {
  const ULONGLONG begin = GetTickCount64();
  const std::string outcome = Outcome(story);
  const ULONGLONG tenths = (GetTickCount64() - begin) / 100;
  report_.Say(std::string(story.name) + ": " + outcome + " [" + std::to_string(tenths / 10) + "." +
              std::to_string(tenths % 10) + " s]");
}

std::string Runner::Outcome(const Story& story) {
  try {
    if (TimeLeft().count() == 0) throw DidNotHold("not played, the ten minutes are over");
    Surroundings surroundings = surroundings_;
    surroundings.elsewhere = surroundings.elsewhere || story.elsewhere;
    Desk desk(surroundings);
    story.play(desk);
    ++held_;
    return std::string("held: ") + story.tells;
  } catch (const Skipped& why) {
    ++skipped_;
    return std::string("skipped, ") + why.what();
  } catch (const std::exception& why) {
    ++failed_;
    return std::string("DID NOT HOLD: ") + why.what();
  }
}

int Runner::Finish() {
  const std::string left = LeftBehind();
  if (!left.empty()) ++failed_;
  if (!left.empty()) report_.Say("DID NOT HOLD: " + left);
  report_.Say(std::to_string(held_) + " held, " + std::to_string(failed_) + " did not hold, " +
              std::to_string(skipped_) + " skipped");
  return failed_;
}

}  // namespace tarvo::acceptance
