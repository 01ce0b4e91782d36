// GetNextParameter: what comes off an attribute text, one by one.
#include <gtest/gtest.h>

#include "xmldoc/document.h"

namespace tarvo {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

Pairs TakenOff(std::string text) {
  Pairs pairs;
  for (;;) {
    std::string name;
    std::string value;
    Document::GetNextParameter(text, name, value);
    if (name.empty()) return pairs;
    pairs.emplace_back(name, value);
  }
}

TEST(GetNextParameter, TakesAttributesOffOneByOne) {
  struct Row {
    const char* text;
    Pairs pairs;
  };
  const std::vector<Row> rows{
      {"", {}},
      {"a=\"1\" b='x y' c=3", {{"a", "1"}, {"b", "x y"}, {"c", "3"}}},
      {"alone", {{"alone", ""}}},
      {"two words", {{"two words", ""}}},
      {" a=\"1\"", {{" a", "1"}}},
      {"a=\"1\"  b=\"2\"", {{"a", "1\""}, {"b", "2"}}},
      {"a=\"1\" ", {{"a", "1\""}}},
      {"a=\"x=y\" b=\"2\"", {{"a", "x=y"}, {"b", "2"}}},
      {"a=\"x =y\" b=\"2\"", {{"a", "x =y"}, {"b", "2"}}},
      {"a=\"x y=z w=v\" b=\"2\"", {{"a", "x y=z w=v"}, {"b", "2"}}},
      {"a=\"it's\" b='\"'", {{"a", "it's"}, {"b", "\""}}},
      {"a=x y b=2", {{"a", "x y"}, {"b", "2"}}},
      {"a=x=y b=2", {{"a", "x=y"}, {"b", "2"}}},
      {"a=x~y b=2", {{"a", "x~y"}, {"b", "2"}}},
      {"a= b=2", {{"a", ""}, {"b", "2"}}},
      {"a=", {{"a", ""}}},
      {"a=\"\" b=''", {{"a", ""}, {"b", ""}}},
      {"a=\"", {{"a", ""}}},
      {"a=\"1", {{"a", ""}}},
      {"a=\"12", {{"a", "1"}}},
      {"a=\"1 b=\"2\"", {{"a", "1 b=\"2"}}},
      {"a=\"1\"b=\"2\" c=\"3\"", {{"a", "1\"b=\"2"}, {"c", "3"}}},
      {"a=\"x\"y\" b=\"2\"", {{"a", "x\"y\" b=\"2"}}},
      {"a=\"p\" q b=\"2\"", {{"a", "p\" "}, {"b", "2"}}},
      {"a=\"1\" b", {{"a", "1\" "}}},
      {"a=&lt; b=\"&amp;\"", {{"a", "&lt;"}, {"b", "&amp;"}}},
      {"=\"1\" b=\"2\"", {}},
      {"a=\"1\" =\"2\" c=\"3\"", {{"a", "1"}}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(TakenOff(row.text), row.pairs);
  }
}

TEST(GetNextParameter, EndsAValueAtABlankAlone) {
  for (char sign = '!'; sign <= '~'; ++sign) {
    if (sign == '"' || sign == '=') continue;
    const std::string text = std::string("a=\"1\"") + sign + "b=\"2\" c=\"3\"";
    const Pairs pairs{{"a", std::string("1\"") + sign + "b=\"2"}, {"c", "3"}};
    EXPECT_EQ(TakenOff(text), pairs) << text;
  }
}

TEST(GetNextParameter, ShortensTheTextByNameValueAndOneBlank) {
  std::string text = "a=\"1\" b='x y' c";
  std::string name;
  std::string value;
  Document::GetNextParameter(text, name, value);
  EXPECT_EQ(text, "b='x y' c");
  Document::GetNextParameter(text, name, value);
  EXPECT_EQ(name, "b");
  EXPECT_EQ(text, "");
}

TEST(GetNextParameter, WithoutAnEqualsSignEmptiesTheText) {
  std::string text = "just words";
  std::string name;
  std::string value = "old";
  Document::GetNextParameter(text, name, value);
  EXPECT_EQ(name, "just words");
  EXPECT_EQ(value, "");
  EXPECT_EQ(text, "");
}

TEST(GetNextParameter, ComesBackWithAnEmptyNameWhenNothingIsLeft) {
  std::string text;
  std::string name = "old";
  std::string value = "old";
  Document::GetNextParameter(text, name, value);
  EXPECT_EQ(name, "");
  EXPECT_EQ(value, "");
}

TEST(GetNextParameter, TheViewFormMovesForwardOverTheSameText) {
  const std::string text = "a=\"1\" b=\"2\"";
  std::string_view rest = text;
  std::string name;
  std::string value;
  Document::GetNextParameter(rest, name, value);
  EXPECT_EQ(rest.data(), text.data() + 6);
  EXPECT_EQ(rest, "b=\"2\"");
}

/// The rule word for word, with no thought of speed: the plain case of the scanner must agree with
/// it.
std::string ValueByTheRule(const std::string& text) {
  std::size_t search = 0;
  for (;;) {
    const std::size_t equals = text.find('=', search);
    std::string candidate = text;
    if (equals != std::string::npos) {
      const std::size_t blank = text.substr(0, equals).rfind(' ');
      if (blank == std::string::npos) {
        search = equals + 1;
        continue;
      }
      candidate = text.substr(0, blank);
    }
    const char first = candidate.empty() ? '\0' : candidate[0];
    const bool quoted = first == '"' || first == '\'';
    const auto quotes = std::count(candidate.begin(), candidate.end(), first);
    if (equals != std::string::npos && quoted && quotes % 2 == 1) {
      search = equals + 1;
      continue;
    }
    return candidate;
  }
}

TEST(GetNextParameter, AgreesWithItsRuleOnEveryShortText) {
  const std::string letters = "a=\"' ";
  std::vector<std::string> texts{""};
  for (std::size_t from = 0, length = 0; length < 8; ++length) {
    const std::size_t to = texts.size();
    for (; from < to; ++from) {
      for (const char letter : letters) texts.push_back(texts[from] + letter);
    }
  }
  for (const std::string& valueText : texts) {
    std::string text = "n=" + valueText;
    std::string name;
    std::string value;
    Document::GetNextParameter(text, name, value);
    const std::string expected = ValueByTheRule(valueText);
    const bool quoted = !expected.empty() && (expected[0] == '"' || expected[0] == '\'');
    const std::string bare = !quoted               ? expected
                             : expected.size() < 2 ? ""
                                                   : expected.substr(1, expected.size() - 2);
    ASSERT_EQ(value, bare) << valueText;
    const std::size_t taken = std::min(valueText.size(), expected.size() + 1);
    ASSERT_EQ(text, valueText.substr(taken)) << valueText;
  }
}

}  // namespace
}  // namespace tarvo
