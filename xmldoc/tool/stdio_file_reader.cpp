#include "xmldoc/tool/stdio_file_reader.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>

namespace tarvo {
namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

}  // namespace

bool StdioFileReader::Exists(const std::string& path) {
  return File(std::fopen(path.c_str(), "rb")) != nullptr || errno != ENOENT;
}

ReadResult StdioFileReader::ReadText(const std::string& path, std::string& text) {
  const File file(std::fopen(path.c_str(), "rb"));
  if (!file) return errno == ENOENT ? ReadResult::Missing : ReadResult::Failed;
  std::string whole;
  std::array<char, 65536> part;
  while (const std::size_t got = std::fread(part.data(), 1, part.size(), file.get())) {
    whole.append(part.data(), got);
  }
  if (std::ferror(file.get()) != 0) return ReadResult::Failed;
  text = std::move(whole);
  return ReadResult::Ok;
}

}  // namespace tarvo
