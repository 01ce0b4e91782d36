#pragma once

#include <string>

namespace tarvo {

/// The message of a Winsock error number (10004 to 11004); "Unknown error." for any other.
std::string WinsockErrorText(int code);

}  // namespace tarvo
