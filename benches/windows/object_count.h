#pragma once

#include <windows.h>

namespace tarvo {

/// GDI objects of a process, counted in its own table of them: Wine answers the plain question with
/// 0.
int CountGdiObjects(DWORD process);

/// Windows of a process, the children included.
int CountWindows(DWORD process);

/// Windows, menus, icons and cursors of this process; all there are of the latter three, since
/// every handle that there can be is tried.
int CountUserObjects();

}  // namespace tarvo
