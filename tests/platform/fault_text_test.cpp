// What a dying launcher leaves in the day's file and in the event log.
#include "platform/fault_text.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvo {
namespace {

FaultFacts AnAccessViolation() {
  FaultFacts facts;
  facts.code = 0xC0000005;
  facts.address = 0x1400012AB;
  facts.offset = 0x12AB;
  facts.version = "1.0.0";
  facts.startsAgain = true;
  return facts;
}

std::string TextOf(const FaultFacts& facts) {
  FixedText text;
  AddFaultText(text, facts);
  return text.Text();
}

TEST(FaultText, TellsVersionCodeAndAddress) {
  EXPECT_EQ(TextOf(AnAccessViolation()),
            "Tarvo Launcher v.1.0.0 crashed! [0xC0000005 at 0x1400012AB, launcher + 0x12AB], "
            "restarting...");
}

TEST(FaultText, TellsWhatIsNotKnownAndThatItStaysDown) {
  FaultFacts facts = AnAccessViolation();
  facts.code = 0x17;
  facts.address = facts.offset = 0;
  facts.startsAgain = false;
  EXPECT_EQ(TextOf(facts),
            "Tarvo Launcher v.1.0.0 crashed! [0x00000017 at an unknown address], not restarted!");
}

TEST(FaultText, AnAddressOutsideTheLauncherHasNoOffset) {
  FaultFacts facts = AnAccessViolation();
  facts.address = 0x77;
  facts.offset = 0;
  EXPECT_EQ(TextOf(facts),
            "Tarvo Launcher v.1.0.0 crashed! [0xC0000005 at 0x00000077], restarting...");
}

TEST(FaultText, TheLineIsStampedLikeAnyLineOfTheLog) {
  FixedText line;
  AddFaultLine(line, {2026, 1, 2, 3, 4, 5}, AnAccessViolation());
  EXPECT_EQ(std::string(line.Text(), line.Length()),
            "2026-01-02 03:04:05: " + TextOf(AnAccessViolation()) + "\r\n");
}

TEST(FaultText, TheFileIsThatOfTheMoment) {
  FixedText file;
  AddDayFile(file, "C:\\srv", {2026, 1, 2, 23, 59, 59});
  EXPECT_STREQ(file.Text(), "C:\\srv\\20260102.log");
}

TEST(FaultText, ZeroHasADigitAndTheLargestNumberAll) {
  FixedText text;
  text.AddNumber(0).Add(" ").AddNumber(4294967295U).Add(" ").AddHex(0xFFFFFFFFFFFFFFFFU, 1);
  EXPECT_STREQ(text.Text(), "0 4294967295 0xFFFFFFFFFFFFFFFF");
}

TEST(FaultText, WhatDoesNotFitIsLeftAway) {
  FixedText text;
  for (int i = 0; i < 1000; ++i) text.Add("0123456789");
  EXPECT_EQ(text.Length(), 2047U);
  EXPECT_EQ(std::string(text.Text()).size(), 2047U);
}

}  // namespace
}  // namespace tarvo
