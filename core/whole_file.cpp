#include "core/whole_file.h"

namespace tarvo {

bool ReadWholeFile(FileReader& files, const std::string& path, std::string& text) {
  return files.ReadText(path, text) == ReadResult::Ok;
}

}  // namespace tarvo
