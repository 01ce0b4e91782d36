// The command-line tool: what it prints, and its exit codes.
#include "xmldoc/tool/xmltool.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "xmldoc/tool/stdio_file_reader.h"

namespace tarvo {
namespace {

class XmlTool : public ::testing::Test {
 protected:
  void Write(const std::string& text) const {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    ASSERT_NE(file, nullptr);
    ASSERT_EQ(std::fwrite(text.data(), 1, text.size(), file), text.size());
    std::fclose(file);
  }
  void TearDown() override { std::remove(path.c_str()); }

  const std::string path = std::string(TARVO_SCRATCH "/xmltool_") +
                           ::testing::UnitTest::GetInstance()->current_test_info()->name() + ".xml";
};

TEST_F(XmlTool, DumpPrintsTheTreeAsJson) {
  Write("<?xml version=\"1.1\"?><r a=\"1\"><f x=\"2\" y=\"\">v&lt;\"\\\n\xE9</f><g><h/></g></r>");
  const XmlToolRun run = RunXmlTool({"dump", path});
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.output,
            "{\"result\":true,\"name\":\"r\",\"version\":\"1.1\",\"encoding\":\"ISO-8859-1\","
            "\"parameters\":[[\"a\",\"1\"]],"
            "\"fields\":[{\"name\":\"f\",\"value\":\"v<\\\"\\\\\\u000a\\u00e9\","
            "\"parameters\":[[\"x\",\"2\"],[\"y\",\"\"]]}],"
            "\"childs\":[{\"name\":\"g\",\"parameters\":[],"
            "\"fields\":[{\"name\":\"h\",\"value\":\"\",\"parameters\":[]}],\"childs\":[]}]}\n");
}

TEST_F(XmlTool, DumpReportsTheResultOfAStrictReading) {
  Write("<r><a>1</a></r>junk");
  EXPECT_EQ(RunXmlTool({"dump", path}).output.substr(0, 15), "{\"result\":true,");
  const XmlToolRun strict = RunXmlTool({"dump", path, "--stop-on-load-error"});
  EXPECT_EQ(strict.output.substr(0, 16), "{\"result\":false,");
  EXPECT_EQ(strict.exitCode, 0);
}

TEST_F(XmlTool, ExportPrintsTheDocumentWrittenOutAgain) {
  Write("<r><a x='1'>2</a></r>");
  const XmlToolRun run = RunXmlTool({"export", path});
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.output,
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" application=\"Tarvo Launcher\"?>\r\n"
            "<r>\r\n\t<a x=\"1\">2</a>\r\n</r>\r\n");
}

TEST_F(XmlTool, AttributesPrintsThePairs) {
  EXPECT_EQ(RunXmlTool({"attributes", "a=\"1\" b='x y' c=3"}).output,
            "[[\"a\",\"1\"],[\"b\",\"x y\"],[\"c\",\"3\"]]\n");
  EXPECT_EQ(RunXmlTool({"attributes", ""}).output, "[]\n");
}

TEST_F(XmlTool, AFileThatCannotBeReadEndsWithOne) {
  for (const char* command : {"dump", "export"}) {
    EXPECT_EQ(RunXmlTool({command, path}).exitCode, 1) << "missing";
    EXPECT_EQ(RunXmlTool({command, TARVO_SCRATCH}).exitCode, 1) << "a folder";
  }
}

TEST_F(XmlTool, AFileOfNoBytesIsRead) {
  Write("");
  EXPECT_EQ(RunXmlTool({"export", path}).exitCode, 0);
  EXPECT_EQ(RunXmlTool({"export", path}).output, "");
}

TEST_F(XmlTool, TheReaderTellsWhatIsThereAndWhatIsMissing) {
  StdioFileReader reader;
  EXPECT_FALSE(reader.Exists(path));
  Write("");
  EXPECT_TRUE(reader.Exists(path));
  EXPECT_TRUE(reader.Exists(TARVO_SCRATCH)) << "a folder is there, and cannot be read";
}

TEST_F(XmlTool, WrongUseEndsWithTwo) {
  for (const auto& words :
       std::vector<std::vector<std::string>>{{},
                                             {"dump"},
                                             {"mend", path},
                                             {"export", path, "--stop-on-load-error"},
                                             {"dump", path, "-x"}}) {
    EXPECT_EQ(RunXmlTool(words).exitCode, 2);
  }
}

}  // namespace
}  // namespace tarvo
