// docs/templates.md cannot lie: each of its examples is filled here.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "tests/xmldoc/template_ports_fake.h"
#include "xmldoc/document.h"

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

std::string Outcome(const Example& example) {
  const Ref<Document> document = Document::Create();
  document->XMLImport(example.document);
  FakePorts fakes;
  TemplatePorts ports = fakes.All();
  ports.components = nullptr;
  try {
    return document->HTMLExport(example.source, nullptr, ports);
  } catch (const RuntimeError& error) {
    return std::to_string(error.Number()) + " " + error.Source() + ": " +
           WithoutCarriageReturns(error.Description());
  }
}

TEST(TemplatePage, EveryExampleGivesWhatThePageSays) {
  const std::vector<Example> examples = Page().Read();
  ASSERT_GE(examples.size(), 36U) << "the page was not read whole";
  for (const Example& example : examples) {
    EXPECT_EQ(Outcome(example), example.expected) << "docs/templates.md:" << example.line << "\n"
                                                  << example.source;
  }
}

TEST(TemplatePage, HasErrorsAmongItsExamples) {
  const std::vector<Example> examples = Page().Read();
  EXPECT_TRUE(std::any_of(examples.begin(), examples.end(),
                          [](const Example& one) { return one.isError; }));
}

}  // namespace
}  // namespace tarvo
