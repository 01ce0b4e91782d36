#include "checkup/finding.h"

#include <gtest/gtest.h>

#include "tests/simulation/sim_code_page.h"

namespace tarvo {
namespace {

Finding Of(const char* name, Severity severity) {
  return {name, severity, "about", "Wrong.", "Do."};
}

TEST(Findings, TheWorstOneDecidesTheExitCode) {
  EXPECT_EQ(ExitCodeOf({}), 0);
  EXPECT_EQ(ExitCodeOf({Of("port", Severity::Note)}), 0);
  EXPECT_EQ(ExitCodeOf({Of("port", Severity::Note), Of("port", Severity::Warning)}), 1);
  EXPECT_EQ(ExitCodeOf({Of("port", Severity::Error), Of("port", Severity::Warning)}), 2);
}

TEST(Findings, NotesWantNoAttention) {
  EXPECT_EQ(CountForAttention({Of("port", Severity::Note), Of("port", Severity::Warning),
                               Of("port", Severity::Error)}),
            2u);
}

TEST(Findings, ComeInTheOrderOfTheChecks) {
  Findings findings = {Of("upgrade", Severity::Error), Of("port", Severity::Note),
                       Of("conf-line-ends", Severity::Note), Of("port", Severity::Error)};
  PutInOrder(findings);
  EXPECT_EQ(findings[0].name, "conf-line-ends");
  EXPECT_EQ(findings[1], Of("port", Severity::Note));
  EXPECT_EQ(findings[2], Of("port", Severity::Error));
  EXPECT_EQ(findings[3].name, "upgrade");
}

TEST(Findings, AsTextAreThreeLinesEachAndASummary) {
  EXPECT_EQ(TextOf(Findings{}), "Nothing to complain about.\r\n");
  EXPECT_EQ(TextOf({Of("port", Severity::Error), Of("host", Severity::Error)}),
            "error: port: about\r\n    Wrong.\r\n    Do.\r\n"
            "error: host: about\r\n    Wrong.\r\n    Do.\r\n"
            "2 errors.\r\n");
  EXPECT_EQ(SummaryOf({Of("port", Severity::Note), Of("port", Severity::Warning)}),
            "1 warning, 1 note.");
}

TEST(Findings, AsJsonHaveTheirFieldsAndCounts) {
  SimCodePage codePage;
  EXPECT_EQ(JsonOf({}, codePage), "{\"findings\":[],\"errors\":0,\"warnings\":0,\"notes\":0}");
  EXPECT_EQ(JsonOf({{"port", Severity::Error, "C:\\srv", "Wr\xF6ng.", "D\xFF."}}, codePage),
            "{\"findings\":[{\"name\":\"port\",\"severity\":\"error\",\"about\":\"C:\\\\srv\","
            "\"wrong\":\"Wr\xC3\xB6ng.\",\"advice\":\"D\xC3\xBF.\"}],"
            "\"errors\":1,\"warnings\":0,\"notes\":0}");
}

}  // namespace
}  // namespace tarvo
