#pragma once

#include <string>

namespace tarvo {

enum class BoxIcon { Critical, Exclamation, Question, Information };
enum class BoxButtons { Ok, YesNo };
enum class Answer { Ok, Yes, No };

struct MessageBoxRequest {
  std::string text;
  BoxIcon icon = BoxIcon::Exclamation;
  BoxButtons buttons = BoxButtons::Ok;
  bool noIsDefault = false;  ///< With YesNo: Enter answers No.
};

/// Message boxes of the program; each has the title "Tarvo Launcher".
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  /// Returns when the operator has answered. Timers go on ticking meanwhile, so the caller reads
  /// every state again afterwards. A box closed by the end of the program answers No, or Ok.
  virtual Answer Ask(const MessageBoxRequest& request) = 0;
};

}  // namespace tarvo
