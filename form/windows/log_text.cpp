#include "form/windows/log_text.h"

namespace tarvo {

std::string ShownOf(const std::string& piece) {
  std::string shown = piece.substr(0, kLongestShown);
  for (std::size_t i = 0; i < shown.size(); ++i) {
    if (shown.compare(i, 2, kLineEnd) == 0) {
      ++i;
    } else if (static_cast<unsigned char>(shown[i]) < ' ' && shown[i] != '\t') {
      shown[i] = ' ';
    }
  }
  if (shown.size() == piece.size()) return shown;
  return shown + (piece.ends_with(kLineEnd) ? "...\r\n" : "...");
}

LONG LettersIn(const std::string& text) {
  LONG letters =
      MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
  for (std::size_t at = 0; (at = text.find(kLineEnd, at)) != std::string::npos; at += 2) --letters;
  return letters;
}

}  // namespace tarvo
