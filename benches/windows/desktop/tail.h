#pragma once

#include <windows.h>

#include <string>

namespace tarvo {

/// What a file has got since the last time that it was read.
class Tail {
 public:
  explicit Tail(const char* path)
      : file_(CreateFileA(path, GENERIC_READ,
                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)) {
    SetFilePointer(file_, 0, nullptr, FILE_END);
  }
  ~Tail() { CloseHandle(file_); }
  Tail(const Tail&) = delete;
  Tail& operator=(const Tail&) = delete;

  bool Valid() const { return file_ != INVALID_HANDLE_VALUE; }
  std::string More() {
    char text[4096];
    DWORD count = 0;
    ReadFile(file_, text, sizeof text, &count, nullptr);
    return {text, count};
  }

 private:
  HANDLE file_;
};

}  // namespace tarvo
