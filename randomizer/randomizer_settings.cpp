#include "randomizer/randomizer_settings.h"

#include <string>

#include "support/date_time.h"
#include "support/number_text.h"
#include "support/runtime_error.h"

namespace tarvo {

MapStartCounters RandomizerSettings::Load() {
  if (store_.Text("AutoRandomize", "1") == "1") mode_[1].Select();
  if (store_.Text("AutoRandomize", "0") == "0") mode_[0].Select();
  if (store_.Text("AutoRandomize", "0") == "2") mode_[2].Select();
  limits_[0].SetText(ShortestDecimal(NumericValue(store_.Text("MaxRndDay", "1"))));
  limits_[1].SetText(ShortestDecimal(NumericValue(store_.Text("MaxRndHour", "1"))));
  MapStartCounters counters;
  const std::string last = store_.Text("LastRandomize", GeneralDate(clock_.Now()));
  counters.LastRandomize = NamingSource("LastRandomize", [&last] {
    return IsNumeric(last) ? DateOfNumber(NumericValue(last)) : ParseDateTime(last);
  });
  counters.DayRndCnt = store_.Integer("DayRndCnt", "0");
  counters.HourRndCnt = store_.Integer("HourRndCnt", "0");
  return counters;
}

void RandomizerSettings::Save(SettingsStore& store) const {
  store.WriteChoice("AutoRandomize", mode_);
  store.Write("MaxRndDay", limits_[0].Text());
  store.Write("MaxRndHour", limits_[1].Text());
}

}  // namespace tarvo
