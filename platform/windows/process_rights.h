#pragma once

#include <windows.h>

#include <optional>

namespace tarvo {

/// The integrity level of a process: SECURITY_MANDATORY_MEDIUM_RID for an operator's usual program,
/// SECURITY_MANDATORY_HIGH_RID for one that runs as administrator. Nothing when it may not be
/// asked.
std::optional<DWORD> IntegrityOf(HANDLE process);

/// Whether this program runs with more rights than the usual ones.
bool HasMoreRightsThanUsual();

/// Whether a process of that level has less rights than one of this level. The usual programs are
/// guarded by the system: nothing from below reaches them. To more than these a process that may
/// not be asked counts as one with less.
bool HasLessRights(std::optional<DWORD> other, std::optional<DWORD> own);

}  // namespace tarvo
