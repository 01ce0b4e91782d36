#pragma once

#include <cstdio>
#include <string>

#include "tests/operator/acceptance/root.h"
#include "tests/operator/acceptance/story.h"

namespace tarvo::acceptance {

/// Tells what happens line by line, on the console and in acceptance-report.txt beside the program,
/// or in the temporary folder where it may not be written.
class Report {
 public:
  Report();
  ~Report();
  Report(const Report&) = delete;
  Report& operator=(const Report&) = delete;

  void Say(const std::string& line);
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
  std::FILE* file_;
};

/// Plays stories one after the other and counts what did not hold.
class Runner {
 public:
  Runner(Report& report, const Surroundings& surroundings);

  void Play(const Story& story);
  /// How many stories did not hold.
  int Finish();

 private:
  std::string Outcome(const Story& story);

  Report& report_;
  Surroundings surroundings_;
  int held_ = 0;
  int failed_ = 0;
  int skipped_ = 0;
};

}  // namespace tarvo::acceptance
