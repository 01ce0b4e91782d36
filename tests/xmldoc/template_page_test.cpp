// docs/templates.md cannot lie: each of its examples is filled here.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "tests/xmldoc/template_ports_fake.h"
#include "xmldoc/document.h"
#include "xmldoc/template/template_error.h"

namespace tarvo {
namespace {

struct Example {
  int line = 0;
  std::string document;
  std::string source;
  std::string expected;
  bool isError = false;
};

/// The page is UTF-8; texts of the library are in the ANSI code page.
std::string InAnsi(const std::string& utf8) {
  std::string ansi;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    if (byte != 0xC3) {
      ansi += utf8[i];
    } else {
      ansi += static_cast<char>(static_cast<unsigned char>(utf8[++i]) + 0x40);
    }
  }
  return ansi;
}

class Page {
 public:
  std::vector<Example> Read() {
    std::ifstream file(TARVO_TEMPLATE_PAGE, std::ios::binary);
    std::string text;
    while (std::getline(file, text)) {
      ++line_;
      if (text.starts_with("```")) TakeFence(file, text.substr(3));
    }
    return examples_;
  }

 private:
  void TakeFence(std::istream& file, const std::string& kind) {
    std::string body;
    std::string text;
    const int start = line_;
    for (; ++line_, std::getline(file, text) && text != "```";) body += text + "\n";
    if (!body.empty()) body.pop_back();
    if (kind == "document") {
      (mainDocument_.empty() ? mainDocument_ : ownDocument_) = body;
    } else if (kind == "template") {
      examples_.push_back({start, ownDocument_.empty() ? mainDocument_ : ownDocument_, body, {}});
      ownDocument_.clear();
    } else {
      examples_.back().expected = InAnsi(body);
      examples_.back().isError = kind == "error";
    }
  }

  int line_ = 0;
  std::string mainDocument_;
  std::string ownDocument_;
  std::vector<Example> examples_;
};

std::string WithoutCarriageReturns(std::string text) {
  std::erase(text, '\r');
  return text;
}

/// The one component of the page.
class GuildEmblem : public ComponentCalls {
 public:
  ComponentAnswer Call(const std::string& programId, const std::string& method,
                       const std::vector<std::string>& arguments) override {
    if (programId != "Guild.Emblem" || method != "Url") return {false, "Invalid class string"};
    return {true, "http://example.com/" + arguments.at(0) + ".png"};
  }
};

std::string Outcome(const Example& example) {
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
  const std::vector<Example> examples = Page().Read();
  ASSERT_GE(examples.size(), 41U) << "the page was not read whole";
  for (const Example& example : examples) {
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
  for (const Example& one : Page().Read()) {
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
