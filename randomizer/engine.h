#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/launcher_events.h"
#include "core/status_log.h"
#include "platform/event_log.h"
#include "platform/files.h"
#include "platform/random_source.h"
#include "xmldoc/document.h"

namespace tarvo {

/// Gives the settings of the server's file that have a range new random values.
///
/// Each field of the set "Randomize" is a setting's name with its bounds `Min` and `Max`, in any
/// order; a bound that is no number counts as 0. Every line that has the name is replaced by the
/// name, ": " and a whole number of the range, each line with a draw of its own, in the order of
/// the fields and then of the lines; the rest of the line is lost. All other lines keep every byte.
/// The cost grows with lines plus settings.
class RandomizerEngine {
 public:
  /// `document` is the randomizer's tree, which may lack the set. `path` is the server's file.
  RandomizerEngine(Document& document, std::string path, FileReader& reader, FileReplacer& replacer,
                   EventLog& eventLog, RandomSource& random, StatusLog& log,
                   const LauncherEvents& events)
      : document_(document),
        path_(std::move(path)),
        reader_(reader),
        replacer_(replacer),
        eventLog_(eventLog),
        random_(random),
        log_(log),
        events_(events) {}

  /// One run. Its outcome goes to the status log: nothing to do, the file that cannot be read or
  /// written (it is as it was then), or each draw and the number of settings in the set, whether
  /// the file has them or not.
  void RunRandomizer();

 private:
  std::string DrawAll(std::string_view text, Fields& parameters);
  std::int64_t DrawFor(Field& parameter, const std::string& name);

  Document& document_;
  const std::string path_;
  FileReader& reader_;
  FileReplacer& replacer_;
  EventLog& eventLog_;
  RandomSource& random_;
  StatusLog& log_;
  const LauncherEvents& events_;
};

/// The whole numbers from `low` to `high`, both included; `low` is not above `high`.
struct WholeRange {
  std::int64_t low = 0;
  std::int64_t high = 0;

  bool operator==(const WholeRange&) const = default;
};

/// The range that two bounds as texts mean: the number that each starts with, 0 for none, rounded
/// to the nearest whole number, halves to even. Bounds in the wrong order are swapped. A bound
/// beyond 2^53, where fractions of 53 bits no longer reach each number, counts as 2^53.
WholeRange RangeOf(std::string_view minText, std::string_view maxText);

/// One number of the range, each with equal probability, from one fraction.
std::int64_t DrawWhole(RandomSource& random, const WholeRange& range);

}  // namespace tarvo
