#include "randomizer/engine.h"

#include <algorithm>
#include <cmath>

#include "core/whole_file.h"
#include "randomizer/server_lines.h"
#include "support/number_text.h"

namespace tarvo {

void RandomizerEngine::RunRandomizer() {
  const Ref<Document> set = document_.Childs().Child("Randomize");
  Fields& parameters = set->Fields();
  if (parameters.Count() == 0) {
    return log_.LogStatus("Randomizer Information: Nothing to do!", kExtra);
  }
  std::string text;
  if (!ReadWholeFile(reader_, path_, text)) {
    return log_.LogStatus("Randomizer Error: " + path_ + " file can't be loaded", kAlert);
  }
  log_.LogStatus("Starting Randomizer - Updating battle_athena.conf", kExtra);
  random_.Reseed();
  if (!StringToFile(path_, DrawAll(text, parameters), true, reader_, replacer_, eventLog_)) {
    return log_.LogStatus("Can't write " + path_ + " file.", kAlert);
  }
  const std::string told =
      "Randomize was succesfull, " + std::to_string(parameters.Count()) + " change(s)";
  log_.LogStatus(told, kExtra);
  events_.Report(LauncherEvent::Randomized, std::nullopt, told);
}

std::string RandomizerEngine::DrawAll(std::string_view text, Fields& parameters) {
  NamedLines lines(text, parameters);
  for (int i = 0; i < parameters.Count(); ++i) {
    const Ref<Field> parameter = parameters.Field(i);
    const std::string name = parameter->Name();
    for (std::size_t position : lines.Of(name)) {
      lines.Replace(position, name + ": " + std::to_string(DrawFor(*parameter, name)));
    }
  }
  return lines.Joined();
}

std::int64_t RandomizerEngine::DrawFor(Field& parameter, const std::string& name) {
  Parameters& bounds = parameter.Parameters();
  const WholeRange range =
      RangeOf(bounds.Parameter("Min")->ValueView(), bounds.Parameter("Max")->ValueView());
  const bool fixed = range.low == range.high;
  const std::int64_t drawn = fixed ? range.high : DrawWhole(random_, range);
  log_.LogStatus("> " + name + " (" + std::to_string(range.low) + "~" + std::to_string(range.high) +
                     "): " + std::to_string(drawn) + (fixed ? " - Nothing to calc" : ""),
                 kExtra);
  return drawn;
}

namespace {

std::int64_t Rounded(double bound) {
  constexpr double kFarthest = 0x1p53;
  return static_cast<std::int64_t>(std::clamp(RoundedToEven(bound), -kFarthest, kFarthest));
}

}  // namespace

WholeRange RangeOf(std::string_view minText, std::string_view maxText) {
  const double max = NumericValue(maxText);
  const double min = NumericValue(minText);
  return {Rounded(std::min(min, max)), Rounded(std::max(min, max))};
}

std::int64_t DrawWhole(RandomSource& random, const WholeRange& range) {
  const double count = static_cast<double>(range.high - range.low + 1);
  const auto step = static_cast<std::int64_t>(std::floor(random.Fraction() * count));
  return std::min(range.low + step, range.high);
}

}  // namespace tarvo
