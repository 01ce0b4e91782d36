#pragma once

#include <windows.h>

#include <chrono>
#include <string>

#include "platform/windows/handle_windows.h"

namespace tarvo {

/// Opens a file that others may go on reading, writing, renaming and deleting.
KernelHandle OpenShared(const std::wstring& path, DWORD access, DWORD disposition = OPEN_EXISTING,
                        DWORD flags = FILE_ATTRIBUTE_NORMAL);

/// A file's time, which the system counts in 100 ns from 1601 on.
std::chrono::sys_seconds SecondsOf(const FILETIME& time);

/// The path of the file or folder itself: a symbolic link's target, otherwise the given path. What
/// is not there, and what cannot be asked, has the given path.
std::wstring RealName(const std::wstring& path);

/// Gives `fresh`, which will take the place of `old` by a rename, what belongs to the old file and
/// not to its content: rights, moment of creation, attributes, and the named streams that the fresh
/// one does not have. Its own last-modified date stays.
///
/// What the file system does not know (FAT has neither rights nor streams), or the launcher may not
/// hand on, is left out: a setting that can be saved is worth more than a stream of it.
void InheritIdentity(const std::wstring& old, const std::wstring& fresh);

}  // namespace tarvo
