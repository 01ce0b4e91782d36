#include "randomizer/randomizer.h"

#include "core/whole_file.h"
#include "randomizer/server_settings.h"

namespace tarvo {

Randomizer::Randomizer(RandomizerPage& page, Timer& calendarTimer, StatusLog& log,
                       const ServerRoot& root, const RandomizerPorts& ports)
    : page_(page),
      calendarTimer_(calendarTimer),
      log_(log),
      fileReader_(ports.fileReader),
      serverFile_(root.AppFolder() + "\\conf\\battle_athena.conf"),
      parameters_(*document_, "Randomize", root.AppFolder() + "\\randomize.xml", ports.fileReader,
                  ports.fileReplacer, ports.eventLog),
      entries_(*document_, "Calendar", root.AppFolder() + "\\rndcalendar.xml", ports.fileReader,
               ports.fileReplacer, ports.eventLog),
      engine_(*document_, serverFile_, ports.fileReader, ports.fileReplacer, ports.eventLog,
              ports.random, log),
      panel_(page, *document_, parameters_, ports.messageBoxes, log),
      gate_(page, engine_, ports.registry, root.SettingsKey(), ports.localClock),
      calendar_(page, entries_, engine_, ports.registry, root.SettingsKey(), ports.localClock,
                log) {}

void Randomizer::WireControls() {
  WireParameters();
  WireCalendar();
  for (std::size_t i = 0; i < OptionGroup::Size(); ++i) {
    page_.opt_Rnd[i].onChange = [this] { calendarTimer_.SetEnabled(page_.opt_Rnd[2].Selected()); };
  }
}

void Randomizer::WireParameters() {
  page_.cmdParam.onSelect = [this] { panel_.cmdParam_Click(); };
  page_.lstRnd.onSelect = [this] { panel_.lstRnd_Click(); };
  for (std::size_t i = 0; i < page_.rAdd.size(); ++i) {
    page_.rAdd[i].onClick = [this, i] { panel_.rAdd_Click(i); };
  }
  for (TextBox* box : {&page_.rIni, &page_.rEnd}) {
    box->onKeyPress = [box](char key) { return BoundTakesKey(*box, key); };
    box->onGotFocus = [box] { box->SelectAll(); };
    box->onLostFocus = [box] { TidyBound(*box); };
  }
  page_.Command2.onClick = [this] { RunRandomizer(); };
}

void Randomizer::WireCalendar() {
  for (std::size_t i = 0; i < page_.ScrollTime.size(); ++i) {
    page_.ScrollTime[i].onChange = [this, i] { calendar_.ScrollTime_Change(i); };
    page_.txt_Time[i].onKeyPress = TimeTakesKey;
    page_.txt_Time[i].onLostFocus = [this, i] { calendar_.txt_Time_LostFocus(i); };
  }
  for (std::size_t i = 0; i < page_.cmdCalendar.size(); ++i) {
    page_.cmdCalendar[i].onClick = [this, i] { calendar_.cmdCalendar_Click(i); };
  }
  calendarTimer_.onTick = [this] { calendar_.Tick(); };
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
