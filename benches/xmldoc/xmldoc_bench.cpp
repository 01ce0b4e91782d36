// The document library beside pugixml and tinyxml2, on the same texts in one run. One line a
// figure: name, value, unit, limit, whether it held, and the ratio to each rival.
//
// Times are the best of several rounds, in which the libraries take turns. Sizes are compared with
// the same bytes alive in both: thirty-two documents of 1 MB beside one of 32 MB, so that the
// difference is the library's and not that of the processor's caches.
//
// GetNextParameter is measured in both of its forms. The reader and xmltool take attributes off a
// view, and that form is held to its limit; the form of a std::string moves the rest of the text at
// every call, so its time for one attribute grows with the text.
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include "heap_count.h"
#include "subjects.h"
#include "texts.h"
#include "xmldoc/document.h"

namespace bench {
namespace {

using Make = std::unique_ptr<Subject> (*)();
constexpr Make kMakers[] = {MakeOwn, MakePugixml, MakeTinyxml2};
enum Library { kOwn, kPugixml, kTinyxml2, kLibraries };
constexpr std::size_t kMega = 1 << 20;
bool allHeld = true;

/// Processor time, so that what else the machine does counts little.
double Seconds(const std::function<void()>& work) {
  const std::clock_t start = std::clock();
  work();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

struct Times {
  double parse = 1e9;
  double write = 1e9;
  double destroy = 1e9;
};

void KeepBetter(Times& best, const Times& other) {
  best.parse = std::min(best.parse, other.parse);
  best.write = std::min(best.write, other.write);
  best.destroy = std::min(best.destroy, other.destroy);
}

/// One round over `copies` documents of the text; keeps the better times, in ns for a byte of text.
void Measure(Make make, const std::string& text, int copies, bool write, Times& best) {
  ReleaseSpareHeap();
  std::vector<std::unique_ptr<Subject>> subjects;
  for (int i = 0; i < copies; ++i) subjects.push_back(make());
  const double perByte = 1e9 / (static_cast<double>(text.size()) * copies);
  bool fine = true;
  const double parse = Seconds([&] {
    for (auto& subject : subjects) fine = subject->Parse(text) && fine;
  });
  if (!fine) std::printf("a text was refused\n");
  std::vector<std::string> texts(subjects.size());
  const double writing = !write ? 0 : Seconds([&] {
    for (std::size_t i = 0; i < subjects.size(); ++i) texts[i] = subjects[i]->Write();
  });
  if (write && texts.back().size() < text.size() / 2) std::printf("a text was not written\n");
  const double destroy = Seconds([&] { subjects.clear(); });
  KeepBetter(best, {parse * perByte, writing * perByte, destroy * perByte});
}

struct AllTimes {
  Times of[kLibraries];
};

AllTimes BestOf(const std::vector<AllTimes>& runs) {
  AllTimes best;
  for (const AllTimes& run : runs) {
    for (int library = 0; library < kLibraries; ++library) {
      KeepBetter(best.of[library], run.of[library]);
    }
  }
  return best;
}

/// Keeps the better of what `times` holds and so many more rounds.
void Compare(const std::string& text, int copies, int rounds, AllTimes& times, bool write = true) {
  for (int round = 0; round < rounds; ++round) {
    for (int library = 0; library < kLibraries; ++library) {
      // tinyxml2 refuses deep trees by design: it is left out there.
      if (!write && library == kTinyxml2) continue;
      Measure(kMakers[library], text, copies, write, times.of[library]);
    }
  }
}

AllTimes Compared(const std::string& text, int copies, int rounds, bool write = true) {
  AllTimes times;
  Compare(text, copies, rounds, times, write);
  return times;
}

const char* Verdict(bool held) {
  allHeld = allHeld && held;
  return held ? "held" : "short";
}

void Line(const std::string& name, double value, const char* unit, const std::string& limit,
          const char* verdict, const std::string& rivals = "") {
  std::printf("%-34s %9.3f %-8s limit %-27s %-5s %s\n", name.c_str(), value, unit, limit.c_str(),
              verdict, rivals.c_str());
}

std::string Shown(double value) {
  char text[40];
  std::snprintf(text, sizeof text, "%.2f", value);
  return text;
}

/// A limit, without the noughts behind its last figure.
std::string Short(double value) {
  char text[40];
  std::snprintf(text, sizeof text, "%g", value);
  return text;
}

std::string SpeedBesideRivals(double own, double tinyxml2, double pugixml) {
  return "speed: " + Shown(tinyxml2 / own) + " x tinyxml2, " + Shown(pugixml / own) + " x pugixml";
}

void ReportDestroying(const std::string& what, double own, double pugixml,
                      const std::string& rivals) {
  Line("destroy " + what, own, "ns/byte", "0.5 x pugixml's speed", Verdict(own <= 2 * pugixml),
       rivals);
}

/// Reading is held to so many times the speed of each rival; none for tinyxml2 where it refuses.
void ReportReading(const std::string& what, const AllTimes& times, double leastTinyxml2,
                   double leastPugixml) {
  const double own = times.of[kOwn].parse;
  const double tinyxml2 = times.of[kTinyxml2].parse;
  const double pugixml = times.of[kPugixml].parse;
  const bool both = leastTinyxml2 > 0;
  const bool held = pugixml >= leastPugixml * own && tinyxml2 >= leastTinyxml2 * own;
  Line("read " + what, own, "ns/byte",
       (both ? Short(leastTinyxml2) + " x tinyxml2, " : "") + Short(leastPugixml) + " x pugixml",
       Verdict(held),
       both ? SpeedBesideRivals(own, tinyxml2, pugixml)
            : "speed: " + Shown(pugixml / own) + " x pugixml");
}

void Report(const std::string& what, const AllTimes& times, double leastPugixml) {
  const Times& own = times.of[kOwn];
  const Times& pugixml = times.of[kPugixml];
  const Times& tinyxml2 = times.of[kTinyxml2];
  ReportReading(what, times, 3, leastPugixml);
  Line("write " + what, own.write, "ns/byte", "ahead of both",
       Verdict(own.write < tinyxml2.write && own.write < pugixml.write),
       SpeedBesideRivals(own.write, tinyxml2.write, pugixml.write));
  ReportDestroying(what, own.destroy, pugixml.destroy,
                   SpeedBesideRivals(own.destroy, tinyxml2.destroy, pugixml.destroy));
}

/// The worst ratio of several runs.
void ReportLinear(const char* what, const std::vector<AllTimes>& small,
                  const std::vector<AllTimes>& large, double Times::*time) {
  double worst = 0;
  std::string all;
  for (std::size_t run = 0; run < small.size(); ++run) {
    const double ratio = large[run].of[kOwn].*time / (small[run].of[kOwn].*time);
    worst = std::max(worst, ratio);
    all += (all.empty() ? "runs: " : ", ") + Shown(ratio);
  }
  Line(std::string("linear ") + what + ", 32 MB to 1 MB", worst, "ratio", "1.3, the worst run",
       Verdict(worst <= 1.3), all);
}

void ReportRecords(const std::string& small, const std::string& large) {
  std::vector<AllTimes> smallRuns(3);
  std::vector<AllTimes> largeRuns(3);
  for (std::size_t run = 0; run < smallRuns.size(); ++run) {
    for (int round = 0; round < 4; ++round) {  // by turns, so that a busy moment meets both
      Compare(small, 32, 1, smallRuns[run]);
      Compare(large, 1, 1, largeRuns[run]);
    }
  }
  Report("records, 1 MB", BestOf(smallRuns), 1.3);
  Report("records, 32 MB", BestOf(largeRuns), 1.3);
  ReportLinear("read", smallRuns, largeRuns, &Times::parse);
  ReportLinear("write", smallRuns, largeRuns, &Times::write);
  ReportLinear("destroy", smallRuns, largeRuns, &Times::destroy);
}

void ReportMemory(const std::string& what, const std::string& text, double nodes) {
  double bytes[kLibraries];
  for (int library = 0; library < kLibraries; ++library) {
    const auto subject = kMakers[library]();
    const std::size_t before = HeapInUse();
    subject->Parse(text);
    bytes[library] = static_cast<double>(HeapInUse() - before) / nodes;
  }
  const double ratio = bytes[kOwn] / bytes[kPugixml];
  Line("memory for a node, " + what, bytes[kOwn], "bytes", "pugixml's", Verdict(ratio <= 1),
       Shown(bytes[kOwn] / bytes[kTinyxml2]) + " x tinyxml2's, " + Shown(ratio) + " x pugixml's");
}

/// A line on what is done to a document that has been read; `work` gives something to compare.
template <typename Work>
void ReportUse(const std::string& what, const char* unit, const std::string& text, double times,
               Work work) {
  double best[kLibraries] = {1e9, 1e9, 1e9};
  decltype(work(*MakeOwn())) results[kLibraries] = {};
  std::unique_ptr<Subject> subjects[kLibraries];
  for (int library = 0; library < kLibraries; ++library) {
    subjects[library] = kMakers[library]();
    subjects[library]->Parse(text);
  }
  for (int round = 0; round < 20; ++round) {
    for (int library = 0; library < kLibraries; ++library) {
      const double seconds = Seconds([&] { results[library] = work(*subjects[library]); });
      best[library] = std::min(best[library], seconds * 1e9 / times);
    }
  }
  if (results[kOwn] != results[kPugixml] || results[kOwn] != results[kTinyxml2]) {
    std::printf("%s: the libraries differ\n", what.c_str());
    allHeld = false;
  }
  Line(what, best[kOwn], unit, "ahead of both",
       Verdict(best[kOwn] < best[kPugixml] && best[kOwn] < best[kTinyxml2]),
       SpeedBesideRivals(best[kOwn], best[kTinyxml2], best[kPugixml]));
}

void ReportUses(const std::string& records) {
  ReportUse("find one of 10,000 by name", "ns each", SiblingsText(10000), 100.0 * 10000,
            [](Subject& subject) {
              int found = 0;
              for (int i = 0; i < 100; ++i) {
                found += subject.Find("sibling" + std::to_string(100000 + i * 100)) ? 1 : 0;
              }
              return found;
            });
  ReportUse("walk all texts, records, 1 MB", "ns/byte", records, 10.0 * kMega,
            [](Subject& subject) {
              long sum = 0;
              for (int i = 0; i < 10; ++i) sum += subject.Walk();
              return sum;
            });
  ReportUse("change and write, records, 1 MB", "ns/byte", records, 3.0 * kMega,
            [](Subject& subject) {
              bool all = true;
              for (const char* value : {"another sword", "a sword", "one more sword of iron"}) {
                subject.Change(value);
                all = all && subject.Write().find(value) < 1000;
              }
              return all;
            });
}

double ElementsIn(const std::string& text) {
  double elements = 0;
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    elements += text[i] == '<' && text[i + 1] != '/' && text[i + 1] != '?';
  }
  return elements;
}

/// ns for one attribute when all are taken off a text of so many, which is held as a `Text`: a view
/// that is moved forward, or a string of which every call moves the rest to the front.
template <typename Text>
double TakeOff(int attributes, int passes, int rounds) {
  const std::string tag = AttributesText(attributes);
  const std::string text = tag.substr(6, tag.size() - 12);
  double best = 1e9;
  for (int round = 0; round < rounds; ++round) {
    best = std::min(best, Seconds([&] {
                      for (int pass = 0; pass < passes; ++pass) {
                        Text rest = text;
                        std::string name = "-";
                        std::string value;
                        while (!name.empty()) {
                          tarvo::Document::GetNextParameter(rest, name, value);
                        }
                      }
                    }));
  }
  return best * 1e9 / (attributes * passes);
}

void ReportAttributes() {
  const double few = TakeOff<std::string_view>(1000, 100, 20);
  const double many = TakeOff<std::string_view>(10000, 10, 20);
  Line("GetNextParameter, 10,000 in one tag", many, "ns each", "1.3 x that of 1,000",
       Verdict(many / few <= 1.3), Shown(few) + " ns each of 1,000, ratio " + Shown(many / few));
  const double fewOfString = TakeOff<std::string>(1000, 10, 5);
  const double manyOfString = TakeOff<std::string>(10000, 1, 3);
  Line("the same off a std::string", manyOfString, "ns each", "-", "-",
       Shown(fewOfString) + " ns each of 1,000, ratio " + Shown(manyOfString / fewOfString));
}

int Run() {
  KeepSpareHeap();
  const std::string settings = SettingsText(10 * 1024);
  const std::string small = RecordsText(kMega);
  const std::string large = RecordsText(32 * kMega);
  const std::string deep = DeepText(200000);

  Report("settings, 10 KB", Compared(settings, 100, 20), 1.2);
  ReportRecords(small, large);

  // Its text would be 40 GB with its indentation, and tinyxml2 refuses such depth: read and
  // destroy.
  const AllTimes deepTimes = Compared(deep, 1, 5, false);
  const Times& deepOwn = deepTimes.of[kOwn];
  const Times& deepPugixml = deepTimes.of[kPugixml];
  ReportReading("200,000 levels", deepTimes, 0, 1);
  ReportDestroying("200,000 levels", deepOwn.destroy, deepPugixml.destroy,
                   "speed: " + Shown(deepPugixml.destroy / deepOwn.destroy) + " x pugixml");
  Report("90 levels", Compared(DeepText(90), 100, 20), 1);

  ReportUses(small);
  ReportMemory("settings, 10 KB", settings, ElementsIn(settings));
  ReportMemory("records, 1 MB", small, ElementsIn(small));
  ReportMemory("records, 32 MB", large, ElementsIn(large));
  ReportMemory("200,000 levels", deep, ElementsIn(deep));
  ReportAttributes();
  return allHeld ? 0 : 1;
}

}  // namespace
}  // namespace bench

int main() { return bench::Run(); }
