#include "core/path_text.h"

namespace tarvo {

std::vector<std::size_t> SeparatorsIn(const std::string& path, CodePage& codePage) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < path.size(); ++i) {
    if (path[i] == '\\') places.push_back(i);
    if (codePage.IsLeadByte(static_cast<unsigned char>(path[i]))) ++i;
  }
  return places;
}

}  // namespace tarvo
