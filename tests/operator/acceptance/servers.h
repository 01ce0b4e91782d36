#pragma once

#include <windows.h>

namespace tarvo::acceptance {

/// The window of a sample server by which it is told how to behave; nullptr when it has none (yet).
HWND ServerWindow(DWORD process);

/// Tells a server one of the commands of server_commands.h; whether it has obeyed.
bool TellServer(DWORD process, UINT command);

/// Asks a server to end in good order, and gives it a moment.
void AskToEnd(DWORD process);

}  // namespace tarvo::acceptance
