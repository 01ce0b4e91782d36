#include "checkup/choices.h"

#include "core/launcher_settings.h"

namespace tarvo {

Choices StoredChoices(SettingsStore& store, const std::vector<std::string>& executables) {
  Choices choices;
  for (ComponentKind kind : kComponents) {
    const std::string name = NameOf(kind);
    const int index = ExecutableOf(executables, store.Text(name + "Exe", UsualExecutable(kind)));
    Choices::OfComponent& of = choices.of[kind];
    if (index >= 0) of.executable = executables[static_cast<std::size_t>(index)];
    of.autokill = store.Text(name + "AutoKillEnabled", "0") != "0";
    of.autokillTime = CleanedSeconds(store.Text(name + "Timeout", UsualAutokillTime(kind)));
    of.newFile = store.Text(name + "From");
  }
  choices.writesLogFile = store.Text("WriteLog", "0") != "0";
  return choices;
}

}  // namespace tarvo
