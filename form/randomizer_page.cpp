#include "form/randomizer_page.h"

namespace tarvo {
namespace {

constexpr std::size_t kLongestBound = 9;
constexpr int kLastHour = 23;
constexpr int kLastMinute = 59;

void PrepareCalendar(RandomizerPage& page) {
  page.lstDay.AddItems({"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"});
  page.ScrollTime[0].SetRange(0, kLastHour);
  page.ScrollTime[1].SetRange(0, kLastMinute);
  for (TextBox& box : page.txt_Time) {
    box.SetText("00");
    box.SetMaxLength(2);
  }
  page.cmbRstrt.AddItems({"Yes", "No"});
  page.lstDay.SetToolTip("The day of the week on which the settings are drawn anew");
  for (std::size_t i = 0; i < page.txt_Time.size(); ++i) {
    const char* const part = i == 0 ? "The hour, 00 to 23" : "The minute, 00 to 59";
    page.txt_Time[i].SetToolTip(part);
    page.ScrollTime[i].SetToolTip(part);
  }
  page.cmbRstrt.SetToolTip("Restart the running servers, so that they read the new values?");
  page.cmdCalendar[0].SetToolTip("Add this day and time to the calendar");
  page.cmdCalendar[1].SetToolTip("Remove the selected entry from the calendar");
  page.lstDTRands.SetToolTip("The days and times of the calendar");
}

}  // namespace

RandomizerPage::RandomizerPage() {
  cmdParam.SetToolTip("A setting of conf\\battle_athena.conf that holds a number");
  rIni.SetMaxLength(kLongestBound);
  rIni.SetToolTip("The smallest value that the setting can get");
  rEnd.SetMaxLength(kLongestBound);
  rEnd.SetToolTip("The greatest value that the setting can get");
  rAdd[0].SetCaption("Update");
  rAdd[0].SetToolTip("Give the setting this range");
  rAdd[1].SetCaption("Remove");
  rAdd[1].SetToolTip("Take the selected range off the list");
  lstRnd.SetToolTip("The settings that get random values, each with its range");
  Command2.SetCaption("Randomize Now!");
  Command2.SetToolTip("Draw every setting of the list anew, at once");
  opt_Rnd[0].SetToolTip("Draw them at each start of the map server, within the two limits");
  opt_Rnd[1].SetToolTip("Draw them with \"Randomize Now!\" only");
  opt_Rnd[2].SetToolTip("Draw them at the days and times of the calendar");
  for (TextBox& box : txtMxD) box.SetText("1");
  txtMxD[0].SetToolTip("How many map starts draw new values within an hour of the day");
  txtMxD[1].SetToolTip("How many map starts draw new values on a day of the week");
  PrepareCalendar(*this);
}

}  // namespace tarvo
