#include "support/md5.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

TEST(Md5, GivesTheDigestsOfTheStandard) {
  const struct {
    const char* text;
    const char* digest;
  } cases[] = {
      {"", "D41D8CD98F00B204E9800998ECF8427E"},
      {"a", "0CC175B9C0F1B6A831C399E269772661"},
      {"abc", "900150983CD24FB0D6963F7D28E17F72"},
      {"message digest", "F96B697D7CB7938D525A2F31AAF161D0"},
      {"abcdefghijklmnopqrstuvwxyz", "C3FCD3D76192E4007DFB496CCA67E13B"},
      {"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789",
       "D174AB98D277D9F5A5611C2C9F419D9F"},
      {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
       "57EDF4A22BE3C955AC49DA2E2107B67A"},
  };
  clsMD5 md5;
  for (const auto& c : cases) EXPECT_EQ(md5.DigestStrToHexStr(c.text), c.digest) << c.text;
}

TEST(Md5, DigestsBytesAboveAsciiAsTheyStand) {
  EXPECT_EQ(clsMD5().DigestStrToHexStr("\xE4\xF6\xFC"), "768A58510FB1546C8FE8B443DEE45B37");
}

TEST(Md5, TakesAMessageInPiecesOfAnyLength) {
  const std::string text(1000, 'x');
  const std::string whole = clsMD5().DigestStrToHexStr(text);
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  for (std::size_t piece : {1u, 7u, 55u, 56u, 63u, 64u, 65u, 999u}) {
    clsMD5 md5;
    for (std::size_t done = 0; done < text.size(); done += piece) {
      md5.MD5Update(std::min(piece, text.size() - done), bytes + done);
    }
    md5.MD5Final();
    EXPECT_EQ(md5.GetValues(), whole) << piece;
  }
}

TEST(Md5, CountsTheBitsOfAMessageBeyond512Megabytes) {
  std::string block;
  for (int i = 0; i < 1024 * 1024; ++i) block += static_cast<char>(i);
  clsMD5 md5;
  for (int i = 0; i < 513; ++i) {
    md5.MD5Update(block.size(), reinterpret_cast<const std::uint8_t*>(block.data()));
  }
  md5.MD5Final();
  EXPECT_EQ(md5.GetValues(), "037724CE6DAA5B1B90E1B2A25536C1E6");
}

TEST(Md5, ShowsItsStateAsSignedDecimals) {
  clsMD5 md5;
  EXPECT_EQ(md5.RegisterA(), "1732584193");
  EXPECT_EQ(md5.RegisterB(), "-271733879");
  EXPECT_EQ(md5.RegisterC(), "-1732584194");
  EXPECT_EQ(md5.RegisterD(), "271733878");
}

TEST(Md5, RotatesBitsOutOfOneEndIntoTheOther) {
  EXPECT_EQ(clsMD5::LongLeftRotate(0x80000001, 1), 3u);
  EXPECT_EQ(clsMD5::LongLeftRotate(0x12345678, 8), 0x34567812u);
  EXPECT_EQ(clsMD5::LongLeftRotate(0x12345678, 0), 0x12345678u);
}

}  // namespace
}  // namespace tarvo
