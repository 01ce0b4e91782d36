#pragma once

#include "checkup/check_up_window.h"
#include "core/launcher_settings.h"
#include "core/start_stop.h"
#include "events/event_script.h"
#include "form/form.h"
#include "outside/command_desk.h"
#include "outside/state_watch.h"
#include "randomizer/randomizer.h"
#include "supervision/crash_watch.h"
#include "supervision/freeze_watch.h"
#include "upgrade/component_upgrade.h"
#include "upgrade/upgrade_settings.h"

namespace tarvo {

/// Which controls and timers of the form the rooms work on. The form must outlive what is bound.
SettingsControls BindSettings(Form& form);
StartStopControls BindStartStop(Form& form);
FreezeWatchControls BindFreezeWatch(Form& form);
CrashWatchControls BindCrashWatch(Form& form);
UpgradeSettingsControls BindUpgradeSettings(Form& form);
UpgradeControls BindUpgrade(Form& form);
EventScriptControls BindEventScript(Form& form);
StateControls BindState(Form& form);
CommandControls BindCommands(Form& form);
CheckUpControls BindCheckUp(Form& form);
RandomizerControls BindRandomizer(RandomizerPage& page, Timer& calendarTimer);

}  // namespace tarvo
