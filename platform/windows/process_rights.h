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

/// Opens what is made with it to this program's user, whatever rights he runs a program with, to
/// administrators and to the system. By itself what an administrator's program makes is closed to
/// the programs that the same user runs with the usual rights.
class OpenToOwnUser {
 public:
  OpenToOwnUser();
  OpenToOwnUser(const OpenToOwnUser&) = delete;
  OpenToOwnUser& operator=(const OpenToOwnUser&) = delete;

  /// Null when the user cannot be asked for: the system's own choice.
  SECURITY_ATTRIBUTES* Attributes() { return made_ ? &attributes_ : nullptr; }

 private:
  bool Make();
  bool LetIn(PSID sid);
  bool LetInKnown(WELL_KNOWN_SID_TYPE known);

  alignas(ACL) BYTE list_[sizeof(ACL) + 3 * (sizeof(ACCESS_ALLOWED_ACE) + SECURITY_MAX_SID_SIZE)]{};
  SECURITY_DESCRIPTOR descriptor_{};
  SECURITY_ATTRIBUTES attributes_{};
  bool made_ = false;
};

/// Whether a process of that level has less rights than one of this level. The usual programs are
/// guarded by the system: nothing from below reaches them. To more than these a process that may
/// not be asked counts as one with less.
bool HasLessRights(std::optional<DWORD> other, std::optional<DWORD> own);

}  // namespace tarvo
