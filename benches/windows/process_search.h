#pragma once

#include <windows.h>
// After windows.h, which it needs.
#include <tlhelp32.h>

namespace tarvo {

/// The first process of that file name whose id is not `other`; 0 when there is none.
inline DWORD FindProcess(const char* name, DWORD other = 0) {
  PROCESSENTRY32 entry{};
  entry.dwSize = sizeof entry;
  const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  DWORD found = 0;
  for (BOOL more = Process32First(snapshot, &entry); more != 0 && found == 0;
       more = Process32Next(snapshot, &entry)) {
    if (lstrcmpiA(entry.szExeFile, name) == 0 && entry.th32ProcessID != other) {
      found = entry.th32ProcessID;
    }
  }
  CloseHandle(snapshot);
  return found;
}

}  // namespace tarvo
