#pragma once

#include <string>

namespace tarvo::test {

/// What the test program does instead of testing, when this variable of the environment is set: it
/// is how a test starts a second process without arguments.
///
///   report FILE         writes its command line, current folder and start-up window command, one a
///                       line, into FILE (in its current folder) and ends
///   hold NAME           takes the instance lock NAME and holds it until it is ended
///   hold-window NAME    the same, with a hidden published window
///   hold-briefly NAME   holds it for 800 milliseconds and ends
///   copy SOURCE*TARGET  copies one file over the other again and again until it is ended
///   overrun LENGTH      writes so many bytes into an array of 16 and returns from that function
///   throw WHAT          raises an exception in a window's procedure, an std::bad_alloc for
///   "memory" guard FILE          writes the guard of its stack into FILE and ends
///
/// The three that hold say so by making a file NAME.held in the current folder.
inline constexpr char kRoleVariable[] = "TARVO_TEST_ROLE";

/// The exit code of this program in that role; 1 when it does not end within 10 seconds.
unsigned ExitCodeOf(const std::string& role);

/// Plays the role; returns the exit code.
int PlayRole(const std::string& role);

}  // namespace tarvo::test
