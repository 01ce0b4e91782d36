#include "tests/windows/test_folder.h"

#include <windows.h>

#include <cstdio>

#include "platform/windows/handle_windows.h"

namespace tarvo::test {
namespace {

void RemoveTree(const std::string& folder) {
  WIN32_FIND_DATAA entry{};
  const HANDLE search = FindFirstFileA((folder + "\\*").c_str(), &entry);
  if (search != INVALID_HANDLE_VALUE) {
    do {
      const std::string name = entry.cFileName;
      if (name == "." || name == "..") continue;
      const std::string path = folder + "\\" + name;
      if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        RemoveTree(path);
      } else {
        SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        DeleteFileA(path.c_str());
      }
    } while (FindNextFileA(search, &entry) != 0);
    FindClose(search);
  }
  RemoveDirectoryA(folder.c_str());
}

std::string FreshName() {
  static unsigned count = 0;
  char temporary[MAX_PATH] = {};
  GetTempPathA(MAX_PATH, temporary);
  return std::string(temporary) + "tarvo-test-" + std::to_string(GetCurrentProcessId()) + "-" +
         std::to_string(++count);
}

}  // namespace

TestFolder::TestFolder() : path_(FreshName()) {
  char former[MAX_PATH] = {};
  GetCurrentDirectoryA(MAX_PATH, former);
  formerFolder_ = former;
  CreateDirectoryA(path_.c_str(), nullptr);
  SetCurrentDirectoryA(path_.c_str());
}

TestFolder::~TestFolder() {
  SetCurrentDirectoryA(formerFolder_.c_str());
  RemoveTree(path_);
}

std::string TestFolder::Write(const std::string& name, const std::string& bytes) const {
  std::FILE* file = std::fopen(File(name).c_str(), "wb");
  if (file != nullptr) {
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fclose(file);
  }
  return File(name);
}

std::string TestFolder::MakeFolder(const std::string& name) const {
  CreateDirectoryA(File(name).c_str(), nullptr);
  return File(name);
}

bool MakeLink(const std::string& link, const std::string& target) {
  const DWORD kind = GetFileAttributesA(target.c_str()) & FILE_ATTRIBUTE_DIRECTORY;
  CreateSymbolicLinkA(link.c_str(), target.c_str(), kind != 0 ? SYMBOLIC_LINK_FLAG_DIRECTORY : 0);
  const auto isThere = [&] { return GetFileAttributesA(link.c_str()) != INVALID_FILE_ATTRIBUTES; };
  if (isThere()) return true;
  // Wine's call says that it did and makes none, so the host's own program is asked there.
  std::string command = "Z:\\bin\\ln -s " + target + " " + link;
  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION process{};
  if (CreateProcessA("Z:\\bin\\ln", command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                     &startup, &process) == 0) {
    return false;
  }
  const KernelHandle handle(process.hProcess);
  const KernelHandle thread(process.hThread);
  return Within(5000, isThere);
}

std::string BytesOf(const std::string& path) {
  std::string bytes;
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) return bytes;
  char block[4096];
  for (std::size_t count = 1; count > 0;) {
    count = std::fread(block, 1, sizeof(block), file);
    bytes.append(block, count);
  }
  std::fclose(file);
  return bytes;
}

std::string OwnPath() {
  char path[1024] = {};
  const DWORD length = GetModuleFileNameA(nullptr, path, sizeof(path));
  return std::string(path, length);
}

std::string SampleServerPath(const std::string& role) {
  std::string folder = OwnPath();
  for (int level = 0; level < 3; ++level) folder.erase(folder.rfind('\\'));
  return folder + "\\servers\\" + role + "-server.exe";
}

bool Within(unsigned milliseconds, const std::function<bool()>& holds) {
  const DWORD start = GetTickCount();
  do {
    if (holds()) return true;
    Sleep(10);
  } while (GetTickCount() - start < milliseconds);
  return holds();
}

}  // namespace tarvo::test
