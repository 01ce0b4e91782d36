#include "toolkit/event_dispatch.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>

namespace tarvo {
namespace {

class EventDispatchTest : public testing::Test {
 protected:
  EventDispatchTest() {
    dispatch.onFault = [this](const RuntimeError& fault) {
      faults += std::to_string(fault.Number()) + " " + fault.Description() + ";";
    };
  }
  EventDispatch dispatch;
  std::string faults;
};

TEST_F(EventDispatchTest, LetsEventsThroughAlsoNestedOnes) {
  std::string seen;
  dispatch.Run([&] {
    seen += "outer ";
    dispatch.Run([&] { seen += "inner "; });
    seen += "outer ";
  });
  EXPECT_EQ(seen, "outer inner outer ");
  EXPECT_EQ(faults, "");
}

TEST_F(EventDispatchTest, AFaultIsReportedOnceAndNothingComesThroughAfterIt) {
  bool later = false;
  dispatch.Run([] { throw RuntimeError(Fault::TypeMismatch); });
  dispatch.Run([&] { later = true; });
  dispatch.Run([] { throw RuntimeError(Fault::Overflow); });
  EXPECT_EQ(faults, "13 Type mismatch;");
  EXPECT_FALSE(later);
  EXPECT_TRUE(dispatch.Closed());
}

TEST_F(EventDispatchTest, IsClosedAlreadyWhileTheFaultIsShown) {
  bool ticked = false;
  dispatch.onFault = [&](const RuntimeError&) { dispatch.Run([&] { ticked = true; }); };
  dispatch.Run([] { throw RuntimeError(Fault::Overflow); });
  EXPECT_FALSE(ticked);
}

TEST_F(EventDispatchTest, AFaultOfANestedEventIsNotSeenByTheOuterOne) {
  bool outerWentOn = false;
  dispatch.Run([&] {
    dispatch.Run([] { throw RuntimeError(Fault::FileNotFound); });
    outerWentOn = true;
    throw RuntimeError(Fault::Overflow);
  });
  EXPECT_TRUE(outerWentOn);
  EXPECT_EQ(faults, "53 File not found;") << "the second fault must not open a second box";
}

TEST_F(EventDispatchTest, OtherExceptionsAreFaultsToo) {
  dispatch.Run([] { throw std::logic_error("broken"); });
  EXPECT_EQ(faults, "51 broken;");
  EventDispatch another;
  int number = 0;
  another.onFault = [&](const RuntimeError& fault) { number = fault.Number(); };
  another.Run([] { throw std::bad_alloc(); });
  EXPECT_EQ(number, static_cast<int>(Fault::OutOfMemory));
}

TEST_F(EventDispatchTest, AFaultOfTheProgramsOwnIsToldOnceAndWhileTheDispatchIsOpen) {
  std::string told;
  const auto tellIn = [&told](EventDispatch& of) {
    of.onOwnFault = [&told, &of](OwnFault fault) {
      told += fault == OwnFault::OutOfMemory ? "memory" : "exception";
      told += of.Closed() ? " closed;" : " open;";
    };
  };
  tellIn(dispatch);
  dispatch.Run([] { throw RuntimeError(Fault::Overflow); });
  EXPECT_EQ(told, "") << "a fault of the run time is none";
  EventDispatch another;
  tellIn(another);
  another.Run([] { throw std::bad_alloc(); });
  another.Run([] { throw std::bad_alloc(); });
  EXPECT_EQ(told, "memory open;");
  EventDispatch third;
  tellIn(third);
  third.Run([] { throw std::out_of_range("x"); });
  EXPECT_EQ(told, "memory open;exception open;");
}

TEST_F(EventDispatchTest, IsQuietWhenTheOutermostEventHasEnded) {
  std::string seen;
  dispatch.onQuiet = [&] { seen += "quiet "; };
  dispatch.Run([&] {
    dispatch.Run([&] { seen += "inner "; });
    seen += "outer ";
  });
  EXPECT_EQ(seen, "inner outer quiet ");
  dispatch.Run([] { throw RuntimeError(Fault::Overflow); });
  EXPECT_EQ(seen, "inner outer quiet quiet ");
}

TEST_F(EventDispatchTest, ClosedByHandNothingComesThrough) {
  bool ran = false;
  dispatch.Close();
  dispatch.Run([&] { ran = true; });
  EXPECT_FALSE(ran);
  EXPECT_EQ(faults, "");
}

}  // namespace
}  // namespace tarvo
