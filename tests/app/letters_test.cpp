// The launcher's documents know the letters of the system's code page.
#include "tests/simulation/launcher_story.h"
#include "xmldoc/document.h"

namespace tarvo {
namespace {

TEST(LauncherLetters, AreThoseOfTheSystemsCodePage) {
  const Ref<Document> document = Document::Create();
  document->Fields().AddField("a\xF1o", "found");
  const auto value = [&document] {
    return document->Fields().SearchField("A\xD1O", true)->Value();
  };
  SimMachine machine;
  {
    Launcher launcher(machine);
    EXPECT_EQ(value(), "found");
  }
  EXPECT_EQ(value(), "");
}

}  // namespace
}  // namespace tarvo
