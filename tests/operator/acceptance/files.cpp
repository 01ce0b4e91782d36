#include "tests/operator/acceptance/files.h"

#include <windows.h>

#include <cstdio>
#include <memory>

#include "tests/operator/acceptance/story.h"

namespace tarvo::acceptance {
namespace {

struct Closer {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closer>;

File Open(const std::string& path, const char* mode) {
  File file(std::fopen(path.c_str(), mode));
  if (!file) throw DidNotHold(path + " cannot be opened");
  return file;
}

bool IsOneOfThem(const WIN32_FIND_DATAA& entry) {
  const std::string name = entry.cFileName;
  return name == "." || name == "..";
}

}  // namespace

std::string ReadBytes(const std::string& path) {
  const File file = Open(path, "rb");
  std::string bytes;
  char part[4096];
  while (const std::size_t got = std::fread(part, 1, sizeof part, file.get())) {
    bytes.append(part, got);
  }
  return bytes;
}

void WriteBytes(const std::string& path, const std::string& bytes) {
  const File file = Open(path, "wb");
  if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) {
    throw DidNotHold(path + " cannot be written");
  }
}

void CopyTo(const std::string& from, const std::string& to) {
  if (CopyFileA(from.c_str(), to.c_str(), FALSE)) return;
  throw DidNotHold(from + " cannot be copied to " + to + ": error " +
                   std::to_string(GetLastError()));
}

bool Exists(const std::string& path) {
  return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void RemoveTree(const std::string& folder) {
  WIN32_FIND_DATAA entry{};
  const HANDLE search = FindFirstFileA((folder + "\\*").c_str(), &entry);
  for (BOOL more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileA(search, &entry)) {
    const std::string path = folder + "\\" + entry.cFileName;
    if (IsOneOfThem(entry)) continue;
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
      RemoveTree(path);
    } else {
      DeleteFileA(path.c_str());
    }
  }
  if (search != INVALID_HANDLE_VALUE) FindClose(search);
  RemoveDirectoryA(folder.c_str());
}

std::string FindName(const std::string& pattern) {
  WIN32_FIND_DATAA entry{};
  const HANDLE search = FindFirstFileA(pattern.c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) return {};
  FindClose(search);
  return entry.cFileName;
}

std::string OwnFolder() {
  char path[MAX_PATH * 4] = "";
  GetModuleFileNameA(nullptr, path, sizeof path);
  const std::string text = path;
  return text.substr(0, text.find_last_of('\\'));
}

std::string Beside(const std::string& name) {
  const std::string path = OwnFolder() + "\\" + name;
  const std::string below = OwnFolder() + "\\servers\\" + name;
  return !Exists(path) && Exists(below) ? below : path;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  const std::size_t place = text.find(from);
  if (place == std::string::npos) throw DidNotHold("there is no \"" + from + "\" to replace");
  return text.replace(place, from.size(), to);
}

}  // namespace tarvo::acceptance
