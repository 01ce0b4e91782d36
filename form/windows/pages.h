#pragma once

#include "form/form.h"
#include "toolkit/windows/panel.h"

namespace tarvo {

/// What is above the pages: the server's name, the free memory, the lights, the last failure.
void FillHeader(Panel& panel, Frame& frame);
/// The check-up's window: the findings, how many they are, and what to do with them.
void FillCheckUp(Panel& panel, CheckUpView& view);

// The pages. Each puts its widgets on an empty panel; the page must outlive the panel.

/// The log, which takes all free space, and the start buttons under it.
void FillStatus(Panel& panel, StatusPage& page);
/// A table with one row per server, and the launcher's own settings under it.
void FillServers(Panel& panel, ServersPage& page);
/// A warning on top; at the left the settings with their ranges, and under them when to draw; at
/// the right the calendar.
void FillRandomizer(Panel& panel, RandomizerPage& page);
/// One row per server, from the new executable to the one that it replaces; the trigger and the
/// options under it, and the button at the bottom.
void FillUpgrade(Panel& panel, UpgradePage& page);

}  // namespace tarvo
