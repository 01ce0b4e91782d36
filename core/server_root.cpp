#include "core/server_root.h"

#include "support/md5.h"
#include "support/text.h"

namespace tarvo {

ServerRoot::ServerRoot(const std::string& executablePath, CodePage& codePage) {
  std::vector<std::size_t> separators = SeparatorsIn(executablePath, codePage);
  if (separators.empty()) {
    executableName_ = executablePath;
  } else {
    appFolder_ = executablePath.substr(0, separators.back());
    executableName_ = executablePath.substr(separators.back() + 1);
    separators.pop_back();
  }
  if (!separators.empty() && separators.back() + 1 == appFolder_.size()) appFolder_.pop_back();
  if (LowerCase(executableName_).ends_with(".exe")) {
    executableName_.resize(executableName_.size() - 4);
  }
  std::string marked = WithSeparator();
  for (const std::size_t place : SeparatorsIn(marked, codePage)) marked[place] = '_';
  // No code page has a second byte that looks like ":".
  for (char& c : marked) c = c == ':' ? '_' : c;
  rootHash_ = clsMD5().DigestStrToHexStr(marked);
}

std::string InstanceNameOf(const std::string& folder, CodePage& codePage) {
  return clsMD5().DigestStrToHexStr(codePage.Lowered(folder + "\\"));
}

std::vector<std::size_t> SeparatorsIn(const std::string& path, CodePage& codePage) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < path.size(); ++i) {
    if (path[i] == '\\') places.push_back(i);
    if (codePage.IsLeadByte(static_cast<unsigned char>(path[i]))) ++i;
  }
  return places;
}

std::size_t LettersIn(const std::string& path, CodePage& codePage) {
  std::size_t letters = 0;
  for (std::size_t i = 0; i < path.size(); ++i, ++letters) {
    if (codePage.IsLeadByte(static_cast<unsigned char>(path[i]))) ++i;
  }
  return letters;
}

}  // namespace tarvo
