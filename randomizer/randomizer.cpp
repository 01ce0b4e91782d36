#include "randomizer/randomizer.h"

#include "core/whole_file.h"
#include "randomizer/server_lines.h"

namespace tarvo {

Randomizer::Randomizer(const RandomizerControls& controls, StatusLog& log,
                       const LauncherEvents& events, const ServerRoot& root,
                       const RandomizerPorts& ports)
    : controls_(controls),
      log_(log),
      fileReader_(ports.fileReader),
      serverFile_(root.AppFolder() + "\\conf\\battle_athena.conf"),
      parameters_(*document_, "Randomize", root.AppFolder() + "\\randomize.xml", ports.fileReader,
                  ports.fileReplacer, ports.eventLog),
      entries_(*document_, "Calendar", root.AppFolder() + "\\rndcalendar.xml", ports.fileReader,
               ports.fileReplacer, ports.eventLog),
      engine_(*document_, serverFile_, ports.fileReader, ports.fileReplacer, ports.eventLog,
              ports.random, log, events),
      panel_(controls.parameters, *document_, parameters_, ports.messageBoxes, log),
      gate_({controls.mode, controls.limits}, engine_, ports.settings, ports.localClock),
      calendar_(controls.calendar, entries_, engine_, ports.settings, ports.localClock, log) {}

void Randomizer::WireControls() {
  WireParameters();
  WireCalendar();
  for (std::size_t i = 0; i < OptionGroup::Size(); ++i) {
    controls_.mode[i].onChange = [this] {
      controls_.calendarTimer.SetEnabled(controls_.mode[2].Selected());
    };
  }
}

void Randomizer::WireParameters() {
  controls_.parameters.settings.onSelect = [this] { panel_.cmdParam_Click(); };
  controls_.parameters.ranges.onSelect = [this] { panel_.lstRnd_Click(); };
  for (std::size_t i = 0; i < controls_.rangeButtons.size(); ++i) {
    controls_.rangeButtons[i].onClick = [this, i] { panel_.rAdd_Click(i); };
  }
  for (TextBox* box : {&controls_.parameters.least, &controls_.parameters.greatest}) {
    box->onKeyPress = [box](char key) { return BoundTakesKey(*box, key); };
    box->onGotFocus = [box] { box->SelectAll(); };
    box->onLostFocus = [box] { TidyBound(*box); };
  }
  controls_.now.onClick = [this] { RunRandomizer(); };
}

void Randomizer::WireCalendar() {
  for (std::size_t i = 0; i < controls_.calendar.scrolls.size(); ++i) {
    controls_.calendar.scrolls[i].onChange = [this, i] { calendar_.ScrollTime_Change(i); };
    controls_.calendar.times[i].onKeyPress = IsDigitOrBackspace;
    controls_.calendar.times[i].onLostFocus = [this, i] { calendar_.txt_Time_LostFocus(i); };
  }
  for (std::size_t i = 0; i < controls_.calendarButtons.size(); ++i) {
    controls_.calendarButtons[i].onClick = [this, i] { calendar_.cmdCalendar_Click(i); };
  }
  controls_.calendarTimer.onTick = [this] { calendar_.Tick(); };
}

void Randomizer::LoadRandomizerFiles() {
  if (!document_->Childs().Child("Battle_Athena")->NameView().empty()) return;
  std::string text;
  if (!ReadWholeFile(fileReader_, serverFile_, text)) {
    return log_.LogStatus(serverFile_ + " file can't be loaded", kAlert);
  }
  const int child = document_->Childs().AddChild("Battle_Athena");
  ReadServerSettings(text, document_->Childs().Child(child)->Fields());
  parameters_.Load();
  panel_.Fill();
  calendar_.Load();
}

}  // namespace tarvo
