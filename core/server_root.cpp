#include "core/server_root.h"

#include "support/md5.h"
#include "support/text.h"

namespace tarvo {

ServerRoot::ServerRoot(const std::string& executablePath) {
  const std::size_t separator = executablePath.rfind('\\');
  if (separator == std::string::npos) {
    executableName_ = executablePath;
  } else {
    appFolder_ = executablePath.substr(0, separator);
    executableName_ = executablePath.substr(separator + 1);
  }
  if (appFolder_.ends_with('\\')) appFolder_.pop_back();
  if (LowerCase(executableName_).ends_with(".exe")) {
    executableName_.resize(executableName_.size() - 4);
  }
}

std::string ServerRoot::RootHash() const {
  std::string root = WithSeparator();
  for (char& c : root) {
    if (c == ':' || c == '\\') c = '_';
  }
  return clsMD5().DigestStrToHexStr(root);
}

}  // namespace tarvo
