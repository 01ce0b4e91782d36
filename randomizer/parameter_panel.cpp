#include "randomizer/parameter_panel.h"

#include <algorithm>

#include "randomizer/server_lines.h"
#include "support/number_text.h"

namespace tarvo {
namespace {

std::string NameInLine(const std::string& line) { return line.substr(0, line.find(':')); }

std::string LineOf(Field& range) {
  Parameters& bounds = range.Parameters();
  return range.Name() + ":" + bounds.Parameter("Min")->Value() + " to " +
         bounds.Parameter("Max")->Value();
}

void SetBound(Parameters& bounds, const char* name, const std::string& text) {
  if (bounds.Holds(name)) {
    bounds.Parameter(name)->SetValue(text);
  } else {
    bounds.AddParameter(name, text);
  }
}

std::string BoundOrValue(Field& setting, const char* name) {
  const std::string bound = setting.Parameters().Parameter(name)->Value();
  return bound.empty() ? setting.Value() : bound;
}

}  // namespace

void ParameterPanel::Fill() {
  RefillRandomizeList();
  CopyBounds();
  const Ref<Document> settings = document_.Childs().Child("Battle_Athena");
  std::vector<std::string> names;
  for (int i = 0; i < settings->Fields().Count(); ++i) {
    names.push_back(settings->Fields().Field(i)->Name());
  }
  controls_.settings.AddItems(std::move(names));
  if (!controls_.settings.Items().empty()) controls_.settings.SetListIndex(0);
}

void ParameterPanel::CopyBounds() {
  const Ref<Document> settings = document_.Childs().Child("Battle_Athena");
  const auto first = FirstFields(settings->Fields());
  const Ref<Document> set = set_.Child();
  for (int i = 0; i < set->Fields().Count(); ++i) {
    const Ref<Field> range = set->Fields().Field(i);
    const auto found = first.find(range->NameView());
    if (found == first.end()) continue;
    Parameters& bounds = settings->Fields().Field(found->second)->Parameters();
    for (const char* name : {"Min", "Max"}) {
      SetBound(bounds, name, range->Parameters().Parameter(name)->Value());
    }
  }
}

void ParameterPanel::RefillRandomizeList() {
  const Ref<Document> set = set_.Child();
  std::vector<std::string> lines;
  for (int i = 0; i < set->Fields().Count(); ++i) {
    lines.push_back(LineOf(*set->Fields().Field(i)));
  }
  controls_.ranges.SetItems(std::move(lines));
}

void ParameterPanel::SelectRandomizeListEntry(const std::string& name) {
  listSelecting_ = true;
  const auto& lines = controls_.ranges.Items();
  const auto found = std::find_if(lines.begin(), lines.end(), [&](const std::string& line) {
    return NameInLine(line) == name;
  });
  if (found != lines.end()) controls_.ranges.SetListIndex(static_cast<int>(found - lines.begin()));
  listSelecting_ = false;
}

Ref<Field> ParameterPanel::Setting(const std::string& name) const {
  const Ref<Document> settings = document_.Childs().Child("Battle_Athena");
  return settings->Fields().Field(IndexOfField(settings->Fields(), name));
}

void ParameterPanel::cmdParam_Click() {
  if (controls_.settings.ListIndex() < 0) return;
  const Ref<Field> setting = Setting(controls_.settings.Text());
  controls_.least.SetText(BoundOrValue(*setting, "Min"));
  controls_.greatest.SetText(BoundOrValue(*setting, "Max"));
}

void ParameterPanel::lstRnd_Click() {
  if (listSelecting_ || controls_.ranges.ListIndex() < 0) return;
  const auto& names = controls_.settings.Items();
  const auto found = std::find(names.begin(), names.end(), NameInLine(controls_.ranges.Text()));
  if (found == names.end()) return;
  controls_.settings.SetListIndex(static_cast<int>(found - names.begin()));
  cmdParam_Click();  // A setting that was selected already has raised no event.
}

void ParameterPanel::rAdd_Click(std::size_t index) {
  if (index == 0) {
    Update();
  } else {
    Remove();
  }
}

void ParameterPanel::Update() {
  if (controls_.settings.ListIndex() < 0 || RefuseBounds() || !SetIsReady()) return;
  StoreRange(controls_.settings.Text());
  ShowAndSave();
}

bool ParameterPanel::RefuseBounds() {
  const std::string min = controls_.least.Text();
  const std::string max = controls_.greatest.Text();
  if (!IsNumeric(min) || !IsNumeric(max)) {
    messageBoxes_.Ask({"Please, use numeric values!", BoxIcon::Exclamation});
    return true;
  }
  if (RoundedToEven(NumericValue(min)) == RoundedToEven(NumericValue(max))) {
    messageBoxes_.Ask({"Please, enter different values!", BoxIcon::Exclamation});
    return true;
  }
  return false;
}

void ParameterPanel::StoreRange(const std::string& name) {
  const std::string min = controls_.least.Text();
  const std::string max = controls_.greatest.Text();
  const Ref<Field> setting = Setting(name);
  SetBound(setting->Parameters(), "Max", ShortestDecimal(NumericValue(max)));
  SetBound(setting->Parameters(), "Min", ShortestDecimal(NumericValue(min)));
  Fields& ranges = set_.Child()->Fields();
  if (IndexOfField(ranges, name) < 0) ranges.AddField(name);
  Parameters& bounds = ranges.SearchField(name)->Parameters();
  SetBound(bounds, "Min", min);
  SetBound(bounds, "Max", max);
}

void ParameterPanel::Remove() {
  const int selected = controls_.ranges.ListIndex();
  if (selected < 0 || !SetIsReady()) return;
  const auto& lines = controls_.ranges.Items();
  const std::string name = NameInLine(lines[static_cast<std::size_t>(selected)]);
  RemoveFieldOfLine(set_.Child()->Fields(), name, selected);
  ShowAndSave();
}

bool ParameterPanel::SetIsReady() {
  return set_.ReadyForChange(log_, [this] { CopyBounds(); });
}

void ParameterPanel::ShowAndSave() {
  RefillRandomizeList();
  SelectRandomizeListEntry(controls_.settings.Text());
  set_.Save();
}

bool BoundTakesKey(const TextBox& box, char key) {
  if (key == '-') return box.Caret() == 0 && box.Text().find('-') == std::string::npos;
  return IsDigitOrBackspace(key);
}

void TidyBound(TextBox& box) {
  const std::size_t caret = box.Caret();
  const double value = NumericValue(box.Text());
  box.SetText(ShortestDecimal(value));
  box.SetCaret(value == 0 ? 1 : caret);
}

}  // namespace tarvo
