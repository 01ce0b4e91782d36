#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace tarvo::acceptance {

/// The processes whose executable lies in the folder, of that file name or of all.
std::vector<DWORD> ProcessesIn(const std::string& folder, const std::string& name = {});

/// A process that this program has started.
class OwnProcess {
 public:
  /// Starts `executable` with the words of `arguments` behind it, in the folder `from`.
  OwnProcess(const std::string& executable, const std::string& from,
             const std::string& arguments = {});
  ~OwnProcess();
  OwnProcess(OwnProcess&& other) noexcept;
  OwnProcess& operator=(OwnProcess&&) = delete;

  DWORD Id() const { return id_; }
  /// Its exit code, or nothing as long as it runs.
  std::optional<DWORD> ExitCode() const;
  void Kill() const;

 private:
  HANDLE handle_;
  DWORD id_;
};

/// Ends a process, or tries to.
void Terminate(DWORD id);

}  // namespace tarvo::acceptance
