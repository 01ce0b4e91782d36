#pragma once

#include <cstddef>
#include <string>

#include "xmldoc/document.h"

namespace tarvo {

inline constexpr const char* kDefaultVersion = "1.0";
inline constexpr const char* kDefaultEncoding = "ISO-8859-1";

struct Document::Rare {
  std::string version;
  std::string encoding;
  CipherHooks cipher;
  std::size_t textLength = 0;  ///< Of the long text that was last read: as much is written again.
};

}  // namespace tarvo
