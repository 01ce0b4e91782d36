#include "support/runtime_error.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

TEST(RuntimeError, TellsNumberSourceAndTheRunTimesDescription) {
  const struct {
    Fault fault;
    int number;
    const char* description;
  } cases[] = {
      {Fault::InvalidProcedureCall, 5, "Invalid procedure call or argument"},
      {Fault::Overflow, 6, "Overflow"},
      {Fault::OutOfMemory, 7, "Out of memory"},
      {Fault::TypeMismatch, 13, "Type mismatch"},
      {Fault::InternalError, 51, "Internal error"},
      {Fault::FileNotFound, 53, "File not found"},
      {Fault::DiskFull, 61, "Disk full"},
      {Fault::PermissionDenied, 70, "Permission denied"},
      {Fault::PathFileAccess, 75, "Path/File access error"},
      {Fault::InvalidPropertyValue, 380, "Invalid property value"},
      {static_cast<Fault>(1), 1, "Unknown fault"},
  };
  for (const auto& c : cases) {
    const RuntimeError error(c.fault, "somewhere");
    EXPECT_EQ(error.Number(), c.number);
    EXPECT_EQ(error.Source(), "somewhere");
    EXPECT_EQ(error.Description(), c.description);
    EXPECT_STREQ(DescriptionOf(c.fault), c.description);
  }
  EXPECT_EQ(RuntimeError(Fault::Overflow).Source(), "");
}

TEST(RuntimeError, IsToldAgainWithTheSourceThatTheOperatorHasToMend) {
  const auto fail = []() -> int { throw RuntimeError(9, "inside", "Broken"); };
  try {
    NamingSource("TTO 2", fail);
    FAIL() << "no fault";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 9);
    EXPECT_EQ(error.Source(), "TTO 2");
    EXPECT_EQ(error.Description(), "Broken");
  }
  EXPECT_EQ(NamingSource("TTO 2", [] { return 5; }), 5);
}

}  // namespace
}  // namespace tarvo
