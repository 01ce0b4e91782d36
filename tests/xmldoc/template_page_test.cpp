// docs/templates.md cannot lie: each of its examples is filled here.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "tests/xmldoc/template_page.h"
#include "xmldoc/document.h"
#include "xmldoc/template/template_error.h"

namespace tarvo {
namespace {

std::string WithoutCarriageReturns(std::string text) {
  std::erase(text, '\r');
  return text;
}

std::string Outcome(const TemplateExample& example) {
  const Ref<Document> document = Document::Create();
  document->XMLImport(example.document);
  FakePorts fakes;
  TemplatePorts ports = fakes.All();
  GuildEmblem emblem;
  ports.components = &emblem;
  try {
    return document->HTMLExport(example.source, nullptr, ports);
  } catch (const RuntimeError& error) {
    return std::to_string(error.Number()) + " " + error.Source() + ": " +
           WithoutCarriageReturns(error.Description());
  }
}

TEST(TemplatePage, EveryExampleGivesWhatThePageSays) {
  const std::vector<TemplateExample> examples = TemplatePage().Read();
  ASSERT_GE(examples.size(), 41U) << "the page was not read whole";
  for (const TemplateExample& example : examples) {
    EXPECT_EQ(Outcome(example), example.expected) << "docs/templates.md:" << example.line << "\n"
                                                  << example.source;
  }
}

/// "number source" of each error.
using Errors = std::multiset<std::string>;

/// What the page's table lists: rows of "| number | source | description |".
Errors ListedErrors() {
  Errors errors;
  std::ifstream file(TARVO_TEMPLATE_PAGE, std::ios::binary);
  std::string row;
  while (std::getline(file, row)) {
    const auto digits = row.find_first_not_of("0123456789", 2);
    if (!row.starts_with("| ") || digits == 2 || row.substr(digits, 3) != " | ") continue;
    const auto source = digits + 3;
    const auto end = row.find(" |", source);
    errors.insert(row.substr(2, digits - 2) + " " + row.substr(source, end - source));
  }
  return errors;
}

TEST(TemplatePage, ListsEveryErrorOfTheCode) {
  Errors raised;
  for (std::size_t i = 0; i < kTemplateFaults.size(); ++i) {
    const TemplateFaultRule& rule = kTemplateFaults[i];
    EXPECT_EQ(static_cast<std::size_t>(rule.fault), i);
    raised.insert(std::to_string(rule.number) + " " + rule.source);
  }
  EXPECT_EQ(ListedErrors(), raised);
}

TEST(TemplatePage, ShowsEachNumberInAnExample) {
  std::set<std::string> shown;
  for (const TemplateExample& one : TemplatePage().Read()) {
    if (one.isError) shown.insert(one.expected.substr(0, one.expected.find(' ')));
  }
  for (const TemplateFaultRule& rule : kTemplateFaults) {
    if (rule.fault == TemplateFault::BeyondBounds) continue;  // would take 256 MiB
    EXPECT_TRUE(shown.contains(std::to_string(rule.number))) << rule.number;
  }
}

// An error that the code raised past the table would be in no list.
TEST(TemplatePage, ListsWhatTheCodeRaisesElsewhereToo) {
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(TARVO_TEMPLATE_SOURCES)) {
    const std::string name = entry.path().filename().string();
    if (!name.ends_with(".cpp") || name == "template_error.cpp") continue;
    ++files;
    std::ifstream file(entry.path());
    std::string line;
    while (std::getline(file, line)) {
      const auto raised = line.find("throw ");
      if (raised == std::string::npos) continue;
      EXPECT_EQ(line.substr(raised, 20), "throw RuntimeError(*") << name << ": " << line;
    }
  }
  EXPECT_GE(files, 15);
}

}  // namespace
}  // namespace tarvo
