// Blocks over the same children share what they look up, which nobody may notice.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/xmldoc/template_outcome.h"
#include "xmldoc/template/template_output.h"
#include "xmldoc/template/template_path.h"

namespace tarvo {
namespace {

constexpr const char* kRows =
    "<r><b><x>1</x><y>1</y></b><b><x>1</x><y>2</y></b><b><x>2</x><y>2</y></b></r>";

TEST(TemplateSharing, LooksAtEveryValueOfACondition) {
  const TemplateCase cases[] = {
      {"var(x)=1 and var(y)=2", "(12)"},
      {"var(y)=2 and var(x)=1", "(12)"},
      {"var(x)=var(y)", "(11)(22)"},
      {"var(x)=2 or var(y)=1", "(11)(22)"},
  };
  for (const TemplateCase& one : cases) {
    const std::string block = "<@open ID=\"b\" when=\"" + std::string(one.source) +
                              "\">(<@field x><@field y>)<@close ID=\"b\">";
    EXPECT_EQ(Filled(kRows, block), one.outcome) << block;
    EXPECT_EQ(Filled(kRows, block + block), std::string(one.outcome) + one.outcome) << block;
  }
}

TEST(TemplateSharing, CountsTheChildrenThatEachBlockLooksAt) {
  const std::string block = "<@open ID=\"b\">.<@close ID=\"b\">";
  const std::string beyond = "10106 VemtoParser.Maker: The blocks of the template pass ";
  for (const std::size_t blocks : {1U, 2U, 3U}) {
    std::string source;
    for (std::size_t i = 0; i < blocks; ++i) source += block;
    TemplatePorts ports;
    ports.mostChilds = 3 * blocks;
    EXPECT_EQ(Filled(kRows, source, ports), std::string(3 * blocks, '.'));
    ports.mostChilds = 3 * blocks - 1;
    EXPECT_EQ(Filled(kRows, source, ports), beyond + std::to_string(3 * blocks - 1) + " children");
  }
}

TEST(TemplateSharing, LooksNoFurtherThanItsStop) {
  const std::string block = "<@open ID=\"b\" stop=\"1\">.<@close ID=\"b\">";
  for (const std::size_t blocks : {1U, 2U}) {
    TemplatePorts ports;
    ports.mostChilds = blocks;
    EXPECT_EQ(Filled(kRows, blocks == 1 ? block : block + block, ports), std::string(blocks, '.'));
  }
}

TEST(TemplateSharing, TellsPathsApartThatReadAlike) {
  const char* document = "<r><a><b><x>1</x></b></a><ab><x>2</x></ab><a~b><x>3</x></a~b></r>";
  std::string source;
  for (int twice = 0; twice < 2; ++twice) {
    for (const std::string id : {"a.b", "ab", "a~b"}) {
      source += "<@open ID=\"" + id + "\" when=\"var(x)>0\"><@field x><@close ID=\"" + id + "\">";
    }
  }
  EXPECT_EQ(Filled(document, source), "123123");
}

TEST(TemplateSharing, SeesWhatSetStored) {
  EXPECT_EQ(Filled(kRows,
                   "<@open ID=\"b\" when=\"var(x)=2\">a<@field set(x,3)><@close ID=\"b\">"
                   "<@open ID=\"b\" when=\"var(x)=3\">b<@close ID=\"b\">"
                   "<@open ID=\"b\" when=\"var(x)=2\">c<@close ID=\"b\">"),
            "a3b");
}

/// A component that changes the document while it is being filled.
class MeddlingComponent : public ComponentCalls {
 public:
  explicit MeddlingComponent(Document& root) : root_(root) {}
  ComponentAnswer Call(const std::string&, const std::string&,
                       const std::vector<std::string>&) override {
    root_.Childs().Child(2)->Fields().Field("x")->SetValue("3");
    return {true, ""};
  }

 private:
  Document& root_;
};

TEST(TemplateSharing, SeesWhatAComponentChanged) {
  const Ref<Document> root = DocumentOf(kRows);
  MeddlingComponent component(*root);
  TemplatePorts ports;
  ports.components = &component;
  EXPECT_EQ(
      root->HTMLExport("<@open ID=\"b\" when=\"var(x)=2\">a<@close ID=\"b\">"
                       "<@open ID=\"b\" when=\"var(x)=2\" stop=\"3\">b<@field ext(m,e)>"
                       "<@close ID=\"b\"><@open ID=\"b\" when=\"var(x)=3\">c<@close ID=\"b\">",
                       nullptr, ports),
      "abc");
}

TEST(TemplateFields, MayHaveBlanksAroundThem) {
  EXPECT_EQ(Filled("<r/>", "<@field   LET x=1  ><@field   x  ><@field   upp(a)  >"), "1A");
}

TEST(TemplatePorts, BoundATemplateUnlessTheProgramSaysOtherwise) {
  const TemplatePorts ports;
  EXPECT_EQ(ports.mostOutput, 268435456U);
  EXPECT_EQ(ports.mostChilds, 200000000U);
  EXPECT_EQ(ports.clock, nullptr);
  EXPECT_EQ(ports.random, nullptr);
  EXPECT_EQ(ports.components, nullptr);
  EXPECT_EQ(ports.mailer, nullptr);
}

TEST(FindIgnoringCase, FindsTheFirstOneInEitherCase) {
  const struct {
    const char* text;
    const char* wanted;
    std::size_t from;
    std::size_t found;
  } cases[] = {
      {"xZoo zoo", "zoo", 0, 1},
      {"xZoo zoo", "zoo", 2, 5},
      {"xZOO", "zoo", 0, 1},
      {"ABC", "abc", 0, 0},
      {"aabc", "abc", 0, 1},
      {"<a <A ", "<a ", 1, 3},
      {"<a", "<a ", 0, std::string_view::npos},
      {"", "a", 0, std::string_view::npos},
      {"[a", "{a", 0, std::string_view::npos},
      {"@a", "`a", 0, std::string_view::npos},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FindIgnoringCase(c.text, c.wanted, c.from), c.found) << c.text << " " << c.wanted;
  }
}

TEST(TemplateOutput, KeepsItsValuesInTheirPlaces) {
  TemplateOutput output(100, true);
  const auto value = [&output](std::size_t hole, const char* text) {
    output.AddValue(hole, [text](std::string& to) { to += text; });
  };
  output.AddText("a");
  value(TemplateOutput::kAtEnd, "1");
  const std::size_t first = output.AddHole();
  value(TemplateOutput::kAtEnd, "2");
  output.AddText("b");
  const std::size_t second = output.AddHole();
  output.AddText("c");
  value(TemplateOutput::kAtEnd, "34");
  EXPECT_EQ(output.HoleCount(), 2U);
  value(first, "X");
  value(second, "YY");
  const TemplateText whole = output.Take();
  EXPECT_EQ(whole.text, "a1X2bYYc34");
  std::string ranges;
  for (const auto& range : whole.values) {
    ranges += std::to_string(range.start) + "+" + std::to_string(range.length) + " ";
  }
  EXPECT_EQ(ranges, "1+1 2+1 3+1 5+2 8+2 ");
}

}  // namespace
}  // namespace tarvo
