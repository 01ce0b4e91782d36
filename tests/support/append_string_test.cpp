#include "support/append_string.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

template <typename Character>
class AppendStringOf : public ::testing::Test {
 protected:
  using Builder = BasicAppendString<Character>;
  using String = std::basic_string<Character>;
  static constexpr std::size_t kStep = 196608;

  static String Filled(std::size_t size, char first = 'a') {
    String text;
    for (std::size_t i = 0; i < size; ++i)
      text += static_cast<Character>(first + static_cast<char>(i % 26));
    return text;
  }
  static std::int64_t Bytes(std::size_t characters) {
    return static_cast<std::int64_t>(characters * sizeof(Character));
  }

  Builder builder;
};

using CharacterTypes = ::testing::Types<char, char16_t>;
TYPED_TEST_SUITE(AppendStringOf, CharacterTypes);

TYPED_TEST(AppendStringOf, NewBuilderReturnsTheEmptyText) {
  EXPECT_TRUE(this->builder.ReturnString().empty());
  EXPECT_EQ(this->builder.UsedBytes(), 0);
  EXPECT_EQ(this->builder.CapacityBytes(), 0);
}

TYPED_TEST(AppendStringOf, ExpectedTextTakesItsStepsAtOnceAndIsTheSame) {
  for (const std::size_t length : {std::size_t{0}, std::size_t{5}, 2 * this->kStep - 1,
                                   2 * this->kStep, 2 * this->kStep + 1, 5 * this->kStep}) {
    typename TestFixture::Builder expecting;
    expecting.Expect(this->kStep + 1);
    EXPECT_EQ(expecting.CapacityBytes(), this->Bytes(2 * this->kStep));
    const auto text = this->Filled(length);
    expecting.AddToString(text);
    EXPECT_EQ(expecting.UsedBytes(), this->Bytes(length));
    EXPECT_EQ(expecting.ReturnString(), text);
    expecting.AddToString(this->Filled(3));
    EXPECT_EQ(expecting.TakeString(), text + this->Filled(3));
    EXPECT_EQ(expecting.CapacityBytes(), 0);
  }
}

TYPED_TEST(AppendStringOf, TakingWhatWasExpectedGivesTheTextAndLeavesNothing) {
  this->builder.Expect(10);
  this->builder.AddToString(this->Filled(7));
  EXPECT_EQ(this->builder.TakeString(), this->Filled(7));
  EXPECT_EQ(this->builder.UsedBytes(), 0);
  EXPECT_TRUE(this->builder.TakeString().empty());
}

// A long document that was emptied made its next export fill as much as the long one had taken.
TYPED_TEST(AppendStringOf, MuchIsExpectedOnlyOfATextThatProvesLong) {
  const std::size_t expected = 64 * this->kStep;
  this->builder.Expect(expected);
  EXPECT_EQ(this->builder.CapacityBytes(), 0);
  const auto step = this->Filled(this->kStep);
  this->builder.AddToString(step);
  this->builder.AddToString(step);
  EXPECT_EQ(this->builder.CapacityBytes(), this->Bytes(2 * this->kStep));
  this->builder.AddToString(this->Filled(7));
  EXPECT_EQ(this->builder.CapacityBytes(), this->Bytes(expected));
  EXPECT_EQ(this->builder.UsedBytes(), this->Bytes(2 * this->kStep + 7));
  this->builder.AddToString(this->Filled(expected));
  EXPECT_EQ(this->builder.CapacityBytes(), this->Bytes(expected + 3 * this->kStep));
  EXPECT_EQ(this->builder.TakeString(), step + step + this->Filled(7) + this->Filled(expected));
  EXPECT_EQ(this->builder.CapacityBytes(), 0);
  this->builder.AddToString(this->Filled(3));
  EXPECT_EQ(this->builder.TakeString(), this->Filled(3)) << "nothing is expected any more";
}

TYPED_TEST(AppendStringOf, SixteenStepsAreTakenOnTrustAndNoMore) {
  for (const std::size_t steps : {16u, 17u}) {
    typename TestFixture::Builder expecting;
    expecting.Expect(steps * this->kStep);
    EXPECT_EQ(expecting.CapacityBytes(), steps == 16 ? this->Bytes(steps * this->kStep) : 0);
  }
}

TYPED_TEST(AppendStringOf, AThirtySecondPartProvesThatATextIsLong) {
  for (const std::size_t short_by : {0u, 1u}) {
    typename TestFixture::Builder expecting;
    expecting.Expect(32 * this->kStep);
    const auto proof = this->Filled(this->kStep - short_by);
    const auto rest = this->Filled(1 + short_by);
    expecting.AddToString(proof);
    expecting.AddToString(rest);
    EXPECT_EQ(expecting.CapacityBytes(), this->Bytes((short_by == 0 ? 32 : 2) * this->kStep));
    EXPECT_EQ(expecting.TakeString(), proof + rest);
  }
}

TYPED_TEST(AppendStringOf, IsNotExtendedForWhatJustFits) {
  for (const bool pieces : {false, true}) {
    typename TestFixture::Builder expecting;
    expecting.Expect(17 * this->kStep);
    expecting.AddToString(this->Filled(this->kStep - 7));
    pieces ? expecting.AddPieces(this->Filled(3), this->Filled(4))
           : expecting.AddToString(this->Filled(7));
    EXPECT_EQ(expecting.CapacityBytes(), this->Bytes(this->kStep));
  }
}

TYPED_TEST(AppendStringOf, TakesWhatGoesBeyondTheExpectedBlockToo) {
  this->builder.Expect(1);
  this->builder.AddToString(this->Filled(this->kStep));
  this->builder.AddToString(this->Filled(5));
  EXPECT_EQ(this->builder.TakeString(), this->Filled(this->kStep) + this->Filled(5));
}

TYPED_TEST(AppendStringOf, NothingIsExpectedBehindATextAlreadyThere) {
  this->builder.AddToString(this->Filled(7));
  this->builder.Expect(10 * this->kStep);
  EXPECT_EQ(this->builder.CapacityBytes(), this->Bytes(this->kStep));
  EXPECT_EQ(this->builder.TakeString(), this->Filled(7));
}

TYPED_TEST(AppendStringOf, AppendingNothingChangesNothing) {
  this->builder.AddToString({});
  EXPECT_EQ(this->builder.CapacityBytes(), 0);
  this->builder.AddToString(this->Filled(3));
  this->builder.AddToString({});
  EXPECT_EQ(this->builder.ReturnString(), this->Filled(3));
}

TYPED_TEST(AppendStringOf, CountsBytesNotCharacters) {
  this->builder.AddToString(this->Filled(5));
  EXPECT_EQ(this->builder.UsedBytes(), this->Bytes(5));
}

TYPED_TEST(AppendStringOf, GrowsByOneStepAndNotBeforeItIsFull) {
  this->builder.AddToString(this->Filled(1));
  EXPECT_EQ(this->builder.CapacityBytes(), this->Bytes(this->kStep));
  this->builder.AddToString(this->Filled(this->kStep - 1));
  EXPECT_EQ(this->builder.CapacityBytes(), this->Bytes(this->kStep));
  this->builder.AddToString(this->Filled(1));
  EXPECT_EQ(this->builder.CapacityBytes(), this->Bytes(2 * this->kStep));
  EXPECT_EQ(this->builder.ReturnString(),
            this->Filled(1) + this->Filled(this->kStep - 1) + this->Filled(1));
}

TYPED_TEST(AppendStringOf, OnePieceTakesAsManyStepsAsItNeeds) {
  this->builder.AddToString(this->Filled(10));
  this->builder.AddToString(this->Filled(3 * this->kStep));
  EXPECT_EQ(this->builder.CapacityBytes(), this->Bytes(4 * this->kStep));
  EXPECT_EQ(this->builder.UsedBytes(), this->Bytes(3 * this->kStep + 10));
  EXPECT_EQ(this->builder.ReturnString(), this->Filled(10) + this->Filled(3 * this->kStep));
}

TYPED_TEST(AppendStringOf, ReturnStringTwiceGivesTheSameText) {
  this->builder.AddToString(this->Filled(7));
  EXPECT_EQ(this->builder.ReturnString(), this->Filled(7));
  EXPECT_EQ(this->builder.ReturnString(), this->Filled(7));
}

TYPED_TEST(AppendStringOf, ReturnStringDropsTheSpareCapacity) {
  this->builder.AddToString(this->Filled(7));
  this->builder.ReturnString();
  EXPECT_EQ(this->builder.CapacityBytes(), this->Bytes(7));
  this->builder.AddToString(this->Filled(2));
  EXPECT_EQ(this->builder.CapacityBytes(), this->Bytes(7 + this->kStep));
}

TYPED_TEST(AppendStringOf, AppendingGoesOnBehindAReturnedText) {
  this->builder.AddToString(this->Filled(7));
  this->builder.ReturnString();
  this->builder.AddToString(this->Filled(9, 'A'));
  EXPECT_EQ(this->builder.ReturnString(), this->Filled(7) + this->Filled(9, 'A'));
}

TYPED_TEST(AppendStringOf, ManySmallPiecesCrossTheStepsWhole) {
  std::basic_string<TypeParam> whole;
  for (int i = 0; i < 50000; ++i) {
    const auto piece =
        this->Filled(static_cast<std::size_t>(i % 11), static_cast<char>('0' + i % 7));
    this->builder.AddToString(piece);
    whole += piece;
  }
  EXPECT_EQ(this->builder.ReturnString(), whole);
}

TYPED_TEST(AppendStringOf, TakeStringLeavesTheBuilderEmpty) {
  this->builder.AddToString(this->Filled(7));
  EXPECT_EQ(this->builder.TakeString(), this->Filled(7));
  EXPECT_EQ(this->builder.UsedBytes(), 0);
  EXPECT_EQ(this->builder.CapacityBytes(), 0);
  EXPECT_TRUE(this->builder.ReturnString().empty());
}

TYPED_TEST(AppendStringOf, PiecesAreAppendedInOrderAcrossTheStepsToo) {
  const auto piece = this->Filled(this->kStep / 2);
  std::basic_string<TypeParam> whole;
  for (int i = 0; i < 4; ++i) {
    this->builder.AddPieces(piece, this->Filled(1), piece);
    whole += piece + this->Filled(1) + piece;
  }
  EXPECT_EQ(this->builder.ReturnString(), whole);
}

TYPED_TEST(AppendStringOf, ATextPastTheCountOfBytesOverflowsAndChangesNothing) {
  BasicAppendString<TypeParam, 8> small;
  const std::size_t fits = 8 / sizeof(TypeParam);
  small.AddToString(this->Filled(fits - 1));
  small.AddToString(this->Filled(1));
  EXPECT_EQ(small.UsedBytes(), 8);
  try {
    small.AddToString(this->Filled(1));
    FAIL() << "no overflow";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 6);
    EXPECT_EQ(error.Description(), "Overflow");
  }
  EXPECT_EQ(small.ReturnString(), this->Filled(fits - 1) + this->Filled(1));
}

TYPED_TEST(AppendStringOf, ATextOverflowsWithinALaterBlockToo) {
  constexpr std::size_t kFits = TestFixture::kStep + 10;
  BasicAppendString<TypeParam, static_cast<std::int32_t>(kFits * sizeof(TypeParam))> small;
  small.AddToString(this->Filled(this->kStep));
  small.AddToString(this->Filled(6));
  EXPECT_THROW(small.AddToString(this->Filled(5)), RuntimeError);
  small.AddToString(this->Filled(4));
  EXPECT_EQ(small.UsedBytes(), this->Bytes(kFits));
}

TYPED_TEST(AppendStringOf, AsMuchIsExpectedAsATextMayHold) {
  for (const std::size_t more : {0u, 1u}) {
    BasicAppendString<TypeParam, 8> small;
    small.Expect(8 / sizeof(TypeParam) + more);
    EXPECT_EQ(small.CapacityBytes(), more == 0 ? this->Bytes(this->kStep) : 0);
  }
}

}  // namespace
}  // namespace tarvo
