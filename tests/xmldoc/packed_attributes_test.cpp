// What the packer takes as it stands, and what it leaves to the general rule.
#include "xmldoc/nodes/packed_attributes.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tarvo {
namespace {

std::size_t Taken(std::string_view text) {
  AttributePacker packer;
  const char* end = packer.TakeWritten(text.data(), text.data() + text.size());
  return static_cast<std::size_t>(end - text.data());
}

TEST(AttributePacker, TakesAttributesAsTheWriterWritesThem) {
  EXPECT_EQ(Taken(" a=\"1\" b=\"x y\">"), 14U);
  EXPECT_EQ(Taken(" a=\"\"/>"), 5U);
  EXPECT_EQ(Taken(" a=\"1\" b='2'>"), 6U);
  EXPECT_EQ(Taken(" a=\"1\"  b=\"2\">"), 6U);
  EXPECT_EQ(Taken(" =\"1\">"), 0U);
  EXPECT_EQ(Taken(" a=\"1"), 0U);
  EXPECT_EQ(Taken(" a=\"1\n\">"), 0U);
  EXPECT_EQ(Taken("a=\"1\">"), 0U);
  EXPECT_EQ(Taken(" a=\"1\"xb=\"2\">"), 6U);
}

}  // namespace
}  // namespace tarvo
