// The tool's verb that fills templates, and the example of the docs.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/xmldoc/template_ports_fake.h"
#include "xmldoc/tool/template_render.h"

namespace tarvo {
namespace {

std::string Kept(const std::string& name, const std::string& text) {
  const std::string path = std::string(TARVO_SCRATCH "/render_") +
                           testing::UnitTest::GetInstance()->current_test_info()->name() + "_" +
                           name;
  std::ofstream(path, std::ios::binary) << text;
  return path;
}

std::string ReadWhole(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(XmlToolRender, PrintsTheFilledTemplate) {
  const XmlToolRun run =
      RunXmlTool({"render", Kept("t", "a<@field f>z\n"), Kept("x", "<r><f>1</f></r>")});
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.output, "a1z\n");
  EXPECT_EQ(run.complaint, "");
}

TEST(XmlToolRender, TellsErrorsWithNumberSourceAndDescription) {
  const XmlToolRun run = RunXmlTool({"render", Kept("t", "a<@field f"), Kept("x", "<r/>")});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.complaint, "xmltool: 10101 VemtoParser.Maker: Tag mal formado\n");
}

TEST(XmlToolRender, TellsWhichFileCannotBeRead) {
  const std::string kept = Kept("t", "x");
  EXPECT_EQ(RunXmlTool({"render", kept, "/nowhere/x"}).complaint,
            "xmltool: cannot read /nowhere/x\n");
  EXPECT_EQ(RunXmlTool({"render", "/nowhere/t", kept}).complaint,
            "xmltool: cannot read /nowhere/t\n");
  EXPECT_EQ(RunXmlTool({"render", "/nowhere/t", kept}).exitCode, 1);
}

TEST(XmlToolRender, IsUsedWithATemplateAndAFile) {
  EXPECT_EQ(RunXmlTool({"render", "t"}).exitCode, 2);
  EXPECT_EQ(RunXmlTool({"render", "t", "--rows"}).exitCode, 2);
  EXPECT_EQ(RunXmlTool({"render", "t", "a", "b"}).exitCode, 2);
}

TEST(XmlToolRender, HasAClockAndChance) {
  const XmlToolRun run = RunXmlTool(
      {"render", Kept("t", "<@field RANDOM(1)><@field for(now,date,yyyy)>"), Kept("x", "<r/>")});
  EXPECT_EQ(run.output.size(), 5U);
  EXPECT_TRUE(run.output.starts_with("120") || run.output.starts_with("121")) << run.output;
}

TEST(XmlToolRender, TellsWhereThereAreNoComponents) {
  const XmlToolRun run =
      RunXmlTool({"render", Kept("t", "a<@field ext(Some.Thing,Do)>"), Kept("x", "<r/>")});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(
      run.complaint,
      "xmltool: 10107 parse.external: Some.Thing.Do: This system has no component registry\n");
}

TEST(XmlToolRender, CallsTheComponentsThatItIsGiven) {
  RecordedComponents components;
  const XmlToolRun run = RunXmlTool(
      {"render", Kept("t", "a<@field ext(Some.Thing,Do,VAR(f))>"), Kept("x", "<r><f>1</f></r>")},
      components);
  EXPECT_EQ(run.output, "acalled");
  EXPECT_EQ(components.calls, std::vector<std::string>{"Some.Thing.Do(1)"});
}

TEST(XmlToolRender, ShowsTheFieldsOfSeveralFilesAsRows) {
  const XmlToolRun run = RunXmlTool(
      {"render",
       Kept("t",
            "<@open ID=\"a.row\">[<@field name>=<@field value>:<@field k>]<@close ID=\"a.row\">"
            "<@open ID=\"b.row\">(<@field name>)<@close ID=\"b.row\">"),
       "--rows", Kept("a", "<a><x k=\"1\">v</x><y/></a>"), Kept("b", "<b><z/></b>")});
  EXPECT_EQ(run.output, "[x=v:1][y=:](z)");
}

TEST(XmlToolRender, MakesThePageOfTheDocs) {
  const std::string folder = TARVO_TEMPLATE_EXAMPLES;
  const XmlToolRun run = RunXmlTool({"render", folder + "/randomizer.tpl", "--rows",
                                     folder + "/randomize.xml", folder + "/rndcalendar.xml"});
  EXPECT_EQ(run.complaint, "");
  EXPECT_EQ(run.output, ReadWhole(folder + "/randomizer.html"));
}

}  // namespace
}  // namespace tarvo
