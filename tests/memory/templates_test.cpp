// Memory runs out while a template is filled: each allocation of each example of the page in turn.

#include "tests/memory/scarce_story.h"
#include "tests/xmldoc/template_page.h"
#include "tests/xmldoc/tree_text.h"

namespace tarvo {
namespace {

/// What a template gives, or the error's number.
struct Filling {
  std::string text;
  int error = 0;
  bool operator==(const Filling&) const = default;
};

Filling Fill(Document& document, const std::string& source, const TemplatePorts& ports) {
  Filling filling;
  try {
    filling.text = document.HTMLExport(source, nullptr, ports);
  } catch (const RuntimeError& error) {
    filling.error = error.Number();
  }
  return filling;
}

bool Stores(const std::string& source) {
  return source.find("LET") != std::string::npos || source.find("set(") != std::string::npos;
}

TEST(ScarceMemoryForTemplates, EachExampleOfThePageRaisesAndTheDocumentIsAsItWas) {
  int failed = 0;
  for (const TemplateExample& example : TemplatePage().Read()) {
    SCOPED_TRACE("docs/templates.md:" + std::to_string(example.line));
    failed += FailEachAllocation([&](ScarceRun& run) {
      const Ref<Document> document = Imported(example.document);
      const std::string before = TreeText(*document);
      FakePorts fakes;
      GuildEmblem emblem;
      TemplatePorts ports = fakes.All();
      ports.components = &emblem;
      Filling filling;
      const Ended ended = run.Act([&] { filling = Fill(*document, example.source, ports); });
      EXPECT_EQ(ended == Ended::WithBadAlloc, run.Failed());
      if (Stores(example.source)) return;
      EXPECT_EQ(TreeText(*document), before);
      if (ended == Ended::Whole) return;
      // Nothing of the failed attempt is left: the next one gives what the page says.
      filling = Fill(*document, example.source, ports);
      EXPECT_EQ(filling.error != 0, example.isError);
      if (!example.isError) {
        EXPECT_EQ(filling.text, example.expected);
      }
    });
    if (HasFailure()) return;
  }
  EXPECT_GT(failed, 1000);
}

}  // namespace
}  // namespace tarvo
