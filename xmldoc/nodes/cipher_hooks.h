#pragma once

#include <cstdint>
#include <string>

namespace tarvo {

/// The hooks for an external cipher, which nothing here calls: kept, copied down by the reader, and
/// never applied to a value. Most documents leave them empty, so nodes hold them only when they do
/// not.
struct CipherHooks {
  std::string encodePassword;
  std::int32_t cryptType = 0;
};

}  // namespace tarvo
