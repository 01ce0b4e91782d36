// What the operator sees at the launcher.
#include <algorithm>
#include <cstdio>

#include "tests/operator/acceptance/desk.h"
#include "tests/operator/actions.h"
#include "tests/operator/boxes.h"
#include "tests/operator/report.h"

namespace tarvo::acceptance {
namespace {

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find("\r\n", start)) != std::string::npos; start = end + 2) {
    lines.push_back(text.substr(start, end - start));
  }
  if (start < text.size()) lines.push_back(text.substr(start));
  return lines;
}

bool TellsSinceWhen(const std::string& line) {
  const std::size_t since = line.find(" since 20");
  return since != std::string::npos && line.find(' ') == since;
}

std::string TipOf(HWND launcher, const FoundControl& light) {
  std::string tip;
  for (const std::string& line : LinesOf(ReadToolTip(launcher, light))) {
    if (!TellsSinceWhen(line)) tip += (tip.empty() ? "" : "|") + line;
  }
  return tip;
}

std::string InDigits(Light light) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%06X", static_cast<unsigned>(light));
  return text;
}

/// Seconds of the day of the last line with the text.
long SecondOf(const std::vector<std::string>& lines, const std::string& part) {
  int hour = 0, minute = 0, second = 0;
  const auto line = std::find_if(lines.rbegin(), lines.rend(), [&](const std::string& one) {
    return one.find(part) != std::string::npos;
  });
  Expect(line != lines.rend(), "no line: " + part);
  const int read = std::sscanf(line->c_str(), "%*d-%*d-%*d %d:%d:%d", &hour, &minute, &second);
  Expect(read == 3, "no time in the line: " + *line);
  return (hour * 60L + minute) * 60 + second;
}

}  // namespace

std::string Desk::Text(const std::string& name, int index) const {
  return ReadText(Control(name, index));
}

std::vector<std::string> Desk::Entries(const std::string& name) const {
  const FoundControl list = Control(name, -1);
  std::vector<std::string> entries;
  for (LRESULT i = 0; i < EntryCount(list); ++i) entries.push_back(EntryOf(list, i));
  return entries;
}

void Desk::ExpectText(const std::string& name, int index, const std::string& text) const {
  const FoundControl control = Control(name, index);
  Holds(seconds(5), [&] { return ReadText(control) == text; });
  ExpectEqual(ReadText(control), text, NameOf(control));
}

void Desk::ExpectChecked(const std::string& name, int index, bool checked) const {
  const FoundControl control = Control(name, index);
  const bool is = tarvo::Send(control.window, BM_GETCHECK) == BST_CHECKED;
  Expect(is == checked, NameOf(control) + (is ? " is checked" : " is not checked"));
}

void Desk::ExpectEnabled(const std::string& name, int index, bool enabled) const {
  const FoundControl control = Control(name, index);
  const bool is = IsWindowEnabled(control.window) != FALSE;
  Expect(is == enabled, NameOf(control) + (is ? " is enabled" : " is disabled"));
}

void Desk::ExpectTipOneOf(int light, const std::vector<std::string>& tips) const {
  const HWND launcher = Window();
  const FoundControl control = Control("Sem", light);
  const auto fits = [&] {
    return std::find(tips.begin(), tips.end(), TipOf(launcher, control)) != tips.end();
  };
  if (Holds(seconds(5), fits)) return;
  ExpectEqual(TipOf(launcher, control), tips.front(), "the tool tip of " + NameOf(control));
}

void Desk::ExpectLight(seconds patience, int index, Light light) const {
  const FoundControl control = Control("Sem", index);
  const auto shown = [&] {
    const auto kept = reinterpret_cast<INT_PTR>(GetPropA(control.window, kLightColourProperty));
    return static_cast<Light>(kept - 1);
  };
  Holds(patience, [&] { return shown() == light; });
  ExpectEqual(InDigits(shown()), InDigits(light), "light " + std::to_string(index));
}

void Desk::ExpectShown() const {
  Await(seconds(10), "the window is not to be seen",
        [this] { return IsWindowVisible(Window()) && !IsIconic(Window()); });
}

void Desk::ExpectHidden() const {
  Await(seconds(5), "the window is not hidden", [this] { return !IsWindowVisible(Window()); });
}

int Desk::CountLog(const std::string& part) const {
  const std::vector<std::string> lines = LinesOf(Text("RTLog"));
  return static_cast<int>(std::count_if(lines.begin(), lines.end(), [&](const std::string& line) {
    return line.find(part) != std::string::npos;
  }));
}

void Desk::ExpectLog(seconds patience, const std::string& part) const {
  if (Holds(patience, [&] { return CountLog(part) > 0; })) return;
  throw DidNotHold("no line \"" + part + "\" in the log, which reads:\r\n" + Text("RTLog"));
}

void Desk::ExpectNoLog(const std::string& part) const {
  Expect(CountLog(part) == 0, "unexpected line: " + part);
}

void Desk::ExpectLogCount(seconds patience, const std::string& part, int times) const {
  Holds(patience, [&] { return CountLog(part) >= times; });
  ExpectEqual(std::to_string(CountLog(part)), std::to_string(times), "lines with \"" + part + "\"");
}

void Desk::ExpectWithin(seconds limit, const std::string& first, const std::string& second) const {
  const std::vector<std::string> lines = LinesOf(Text("RTLog"));
  constexpr long kDay = 24 * 60 * 60L;
  const long took = (SecondOf(lines, second) - SecondOf(lines, first) + kDay) % kDay;
  Expect(took <= limit.count(), "\"" + second + "\" came " + std::to_string(took) + " s after \"" +
                                    first + "\", not within " + std::to_string(limit.count()));
}

std::string Desk::Answer(const std::string& button) {
  const HWND box = WaitForBox(choice_, 20000);
  std::string message = MessageOf(box);
  PressInBox(box, button);
  return message;
}

void Desk::ExpectBox(const std::string& part, const std::string& button) {
  const std::string message = Answer(button);
  Expect(message.find(part) != std::string::npos,
         "the box says \"" + message + "\", not \"" + part + "\"");
}

void Desk::ExpectNoBox() const {
  const HWND box = FindBox(choice_);
  Expect(box == nullptr, "a box is up: " + (box ? MessageOf(box) : std::string()));
}

}  // namespace tarvo::acceptance
