#include "platform/windows/process_rights.h"

#include "platform/windows/handle_windows.h"

namespace tarvo {
namespace {

/// A SID has one sub-authority here, and 15 at most.
constexpr std::size_t kLabelRoom = sizeof(TOKEN_MANDATORY_LABEL) + SECURITY_MAX_SID_SIZE;

}  // namespace

std::optional<DWORD> IntegrityOf(HANDLE process) {
  KernelHandle token;
  if (!OpenProcessToken(process, TOKEN_QUERY, token.Receive())) return std::nullopt;
  alignas(TOKEN_MANDATORY_LABEL) BYTE room[kLabelRoom] = {};
  DWORD size = 0;
  if (!GetTokenInformation(token.Get(), TokenIntegrityLevel, room, sizeof room, &size)) {
    return std::nullopt;
  }
  PSID sid = reinterpret_cast<const TOKEN_MANDATORY_LABEL*>(room)->Label.Sid;
  const DWORD count = *GetSidSubAuthorityCount(sid);
  if (count == 0) return std::nullopt;
  return *GetSidSubAuthority(sid, count - 1);
}

bool HasMoreRightsThanUsual() {
  const auto own = IntegrityOf(GetCurrentProcess());
  return own && *own > SECURITY_MANDATORY_MEDIUM_RID;
}

OpenToOwnUser::OpenToOwnUser() : made_(Make()) {
  attributes_ = {sizeof attributes_, &descriptor_, FALSE};
}

bool OpenToOwnUser::Make() {
  KernelHandle token;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.Receive())) return false;
  alignas(TOKEN_USER) BYTE room[sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE] = {};
  DWORD size = 0;
  return GetTokenInformation(token.Get(), TokenUser, room, sizeof room, &size) &&
         InitializeAcl(reinterpret_cast<ACL*>(list_), sizeof list_, ACL_REVISION) &&
         LetIn(reinterpret_cast<const TOKEN_USER*>(room)->User.Sid) &&
         LetInKnown(WinBuiltinAdministratorsSid) && LetInKnown(WinLocalSystemSid) &&
         InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION) &&
         SetSecurityDescriptorDacl(&descriptor_, TRUE, reinterpret_cast<ACL*>(list_), FALSE);
}

bool OpenToOwnUser::LetIn(PSID sid) {
  return AddAccessAllowedAce(reinterpret_cast<ACL*>(list_), ACL_REVISION, FILE_ALL_ACCESS, sid);
}

bool OpenToOwnUser::LetInKnown(WELL_KNOWN_SID_TYPE known) {
  BYTE sid[SECURITY_MAX_SID_SIZE] = {};
  DWORD size = sizeof sid;
  return CreateWellKnownSid(known, nullptr, sid, &size) && LetIn(sid);
}

bool HasLessRights(std::optional<DWORD> other, std::optional<DWORD> own) {
  if (!own || *own <= SECURITY_MANDATORY_MEDIUM_RID) return false;
  return !other || *other < *own;
}

}  // namespace tarvo
