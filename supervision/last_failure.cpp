#include "supervision/last_failure.h"

#include <string>

#include "support/date_time.h"

namespace tarvo {

void ShowLastFailure(Label& lblErr, ComponentKind kind, LocalTime time) {
  lblErr.SetCaption(std::string(NameOf(kind)) + ": " + GeneralDate(time));
}

}  // namespace tarvo
