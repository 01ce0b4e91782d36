#pragma once

#include "platform/windows/handle_windows.h"

// GoogleTest leaves its own handle class out when it is built without threads, and still uses it to
// start a process. Read before its sources.
namespace testing::internal {
using AutoHandle = tarvo::KernelHandle;
}  // namespace testing::internal
