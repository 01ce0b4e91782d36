#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/launcher_call.h"
#include "tests/simulation/call_recorder.h"

namespace tarvo {

/// The lines that other programs of the machine have laid, by their addresses, and what the
/// launcher has sent on each.
class SimAnswerLines final : public AnswerLines {
 public:
  explicit SimAnswerLines(CallRecorder& recorder) : recorder_(recorder) {}

  void Lay(const std::string& address) { lines_[address] = std::nullopt; }
  /// What came on that line; nothing when nothing came.
  std::optional<std::string> Came(const std::string& address) const { return lines_.at(address); }
  bool callersHaveLessRights = false;

  std::unique_ptr<AnswerLine> Open(const std::string& address) override {
    recorder_.Note("lines.open()");
    const auto line = lines_.find(address);
    if (line == lines_.end()) return nullptr;
    return std::make_unique<Line>(*this, line->second);
  }

 private:
  class Line final : public AnswerLine {
   public:
    Line(SimAnswerLines& all, std::optional<std::string>& came) : all_(all), came_(came) {}
    bool CallerHasLessRights() override { return all_.callersHaveLessRights; }
    void Send(const std::string& answer) override {
      all_.recorder_.Note("lines.send()");
      came_ = answer;
    }

   private:
    SimAnswerLines& all_;
    std::optional<std::string>& came_;
  };

  CallRecorder& recorder_;
  std::map<std::string, std::optional<std::string>> lines_;
};

}  // namespace tarvo
