#include "randomizer/server_lines.h"

#include <gtest/gtest.h>

#include "xmldoc/document.h"

namespace tarvo {
namespace {

class Settings : public ::testing::Test {
 protected:
  void Add(std::initializer_list<const char*> names) {
    for (const char* name : names) fields.AddField(name);
  }
  std::string Names() const {
    std::string names;
    for (int i = 0; i < fields.Count(); ++i) names += fields.Field(i)->Name() + ";";
    return names;
  }

  const Ref<Document> document = Document::Create();
  Fields& fields = document->Fields();
};

TEST_F(Settings, AreFoundByTheirExactNameTheFirstOfSeveral) {
  Add({"rate", "Rate", "rate", "other"});
  const std::pair<const char*, int> cases[] = {{"rate", 0},  {"Rate", 1}, {"other", 3},
                                               {"RATE", -1}, {"rat", -1}, {"", -1}};
  for (const auto& [name, index] : cases) EXPECT_EQ(IndexOfField(fields, name), index) << name;
  const auto first = FirstFields(fields);
  EXPECT_EQ(first.size(), 3u);
  EXPECT_EQ(first.at("rate"), 0);
  EXPECT_EQ(first.at("Rate"), 1);
  EXPECT_EQ(first.at("other"), 3);
}

TEST_F(Settings, WithoutANameAreFoundLikeOthers) {
  EXPECT_EQ(IndexOfField(fields, ""), -1);
  Add({"rate", ""});
  EXPECT_EQ(IndexOfField(fields, ""), 1);
}

TEST_F(Settings, AreRemovedWhereTheListHasThemElseTheFirstOfThatName) {
  const struct {
    const char* name;
    int line;
    const char* left;
  } cases[] = {
      {"a", 0, "b;a;;"},   {"a", 2, "a;b;;"},   {"a", 1, "b;a;;"}, {"a", 4, "b;a;;"},
      {"b", 0, "a;a;;"},   {"", 3, "a;b;a;"},   {"", 4, "a;b;a;"}, {"", 9, "a;b;a;"},
      {"c", 0, "a;b;a;;"}, {"A", 0, "a;b;a;;"},
  };
  for (const auto& c : cases) {
    while (fields.Count() > 0) fields.RemoveField(0);
    Add({"a", "b", "a", ""});
    RemoveFieldOfLine(fields, c.name, c.line);
    EXPECT_EQ(Names(), c.left) << c.name << " " << c.line;
  }
}

}  // namespace
}  // namespace tarvo
