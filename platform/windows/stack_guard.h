#pragma once

#include <cstdint>

/// What the compiler puts below the return address of every function that has an array
/// (-fstack-protector-strong), and compares before the function returns. The names are the
/// compiler's.
///
/// Its own library asks the system for chance, which loads the system's cryptography before the
/// launcher has said where libraries come from: a file beside it would be taken. This guard is made
/// of what differs from process to process without asking anybody. It is drawn before the first
/// constructor of the program runs; its lowest byte is 0, which ends the copying of a text.
extern "C" std::uintptr_t __stack_chk_guard;

/// Ends the process with the system's own code for it (0xC0000409), without a look at what is
/// broken.
extern "C" [[noreturn]] void __stack_chk_fail();
