// Memory runs out in the reader, the writer and the model of documents: each allocation in turn.

#include "core/patience.h"
#include "tests/memory/scarce_story.h"
#include "tests/simulation/sim_machine.h"
#include "tests/xmldoc/tree_text.h"
#include "xmldoc/document.h"

namespace tarvo {
namespace {

const std::string kFile = "C:\\srv\\a name that is long enough to need memory of its own.xml";

std::string TextOfAllKinds() {
  std::string text =
      "<?xml version=\"2.0 or some longer one\" encoding=\"a long name of an encoding\"?>\r\n"
      "<root a=\"1\" b=\"2\">";
  for (int i = 0; i < 12; ++i) {
    text +=
        "<group name=\"" + std::string(80, 'g') + "\"><field c='3'>" + std::string(80, 'f') +
        " &lt;</field><leaf\r\n b='2'/><deep><deeper><deepest/><f>x</f></deeper></deep></group>";
  }
  return text + "</root>";
}

/// The writer names a root that has no name.
Ref<Document> Named(const std::string& text) {
  Ref<Document> root = Imported(text);
  if (root->NameView().empty()) root->SetName("r");
  return root;
}

TEST(ScarceMemoryForDocuments, ATextThatIsReadGivesFalseAndTheTreeKeepsWhatItHad) {
  const std::string text = TextOfAllKinds();
  const std::string before = "kept{f=" + std::string(50, 'v') + "|c{g=1}}";
  const int failed = FailEachAllocation([&](ScarceRun& run) {
    const Ref<Document> root =
        Imported("<kept><f>" + std::string(50, 'v') + "</f><c><g>1</g></c></kept>");
    bool read = false;
    EXPECT_EQ(run.Act([&] { read = root->XMLImport(text); }), Ended::Whole);
    EXPECT_EQ(read, !run.Failed());
    while (root->Childs().Count() > 1) root->Childs().RemoveChild(1);
    EXPECT_EQ(TreeText(*root), before);
    EXPECT_TRUE(root->XMLImport(text));
    EXPECT_EQ(TreeText(*root->Childs().Child(1)), TreeText(*Imported(text)));
  });
  EXPECT_GT(failed, 5);  // Few, where nodes come in chunks.
}

TEST(ScarceMemoryForDocuments, AFileThatIsReadGivesFalseWithOneEntryInTheEventLog) {
  const std::string text = TextOfAllKinds();
  const int failed = FailEachAllocation([&](ScarceRun& run) {
    SimMachine machine;
    machine.recorder.CountOnly();
    machine.files.Put(kFile, text);
    const Ref<Document> root = Document::Create();
    bool read = false;
    TextEnd end = TextEnd::Whole;
    EXPECT_EQ(
        run.Act([&] { read = root->XMLImportFile(kFile, machine.files, machine.eventLog, end); }),
        Ended::Whole);
    EXPECT_EQ(read, !run.Failed());
    EXPECT_EQ(end, read ? TextEnd::Whole : TextEnd::CutOff);
    EXPECT_EQ(machine.eventLog.Entries().size(), read ? 0U : 1U);
    EXPECT_EQ(machine.files.TextOf(kFile), text);
  });
  EXPECT_GT(failed, 10);
}

TEST(ScarceMemoryForDocuments, ATextThatIsWrittenRaisesAndTheTreeIsAsItWas) {
  for (const std::string& text : {TextOfAllKinds(), std::string("<r a=\"1\"/>")}) {
    const std::string tree = TreeText(*Named(text));
    const std::string written = Named(text)->XMLExport();
    const int failed = FailEachAllocation([&](ScarceRun& run) {
      const Ref<Document> root = Named(text);
      std::string now;
      const Ended ended = run.Act([&] { now = root->XMLExport(); });
      EXPECT_EQ(ended == Ended::WithBadAlloc, run.Failed());
      EXPECT_EQ(now, run.Failed() ? "" : written);
      EXPECT_FALSE(root->Busy());
      EXPECT_EQ(TreeText(*root), tree);
      EXPECT_EQ(root->XMLExport(), written);
    });
    EXPECT_GT(failed, 0);
  }
}

// More than 1000 levels are measured first, which takes memory of its own.
TEST(ScarceMemoryForDocuments, ADeepTreeThatIsWrittenRaisesLikeAnyOther) {
  std::string deep;
  for (int i = 0; i < 1010; ++i) deep += "<a><f/>";
  for (int i = 0; i < 1010; ++i) deep += "</a>";
  const Ref<Document> root = Imported(deep);
  const std::string written = root->XMLExport();
  const int failed = FailEachAllocation([&](ScarceRun& run) {
    std::string now;
    const Ended ended = run.Act([&] { now = root->XMLExport(); });
    EXPECT_EQ(ended == Ended::WithBadAlloc, run.Failed());
    EXPECT_EQ(now.size(), run.Failed() ? 0 : written.size());
  });
  EXPECT_GT(failed, 3);
  EXPECT_EQ(root->XMLExport(), written);
}

// The launcher saves its sets in this way; trying again takes memory as well.
TEST(ScarceMemoryForDocuments, AFileThatIsWrittenIsTheOldOneOrTheNewOne) {
  const std::string old = "<r><f>as it was</f></r>";
  const std::string written = Imported(TextOfAllKinds())->XMLExport();
  const int failed = FailEachAllocation([&](ScarceRun& run) {
    SimMachine machine;
    machine.recorder.CountOnly();
    machine.files.Put(kFile, old);
    PatientReplacer replacer(machine.files, machine.clock);
    const Ref<Document> root = Imported(TextOfAllKinds());
    bool done = false;
    EXPECT_EQ(run.Act([&] { done = root->XMLExportFile(kFile, replacer, machine.eventLog); }),
              Ended::Whole);
    EXPECT_EQ(done, !run.Failed());
    EXPECT_EQ(machine.files.TextOf(kFile), done ? written : old);
  });
  EXPECT_GT(failed, 3);
}

TEST(ScarceMemoryForDocuments, ATextThatIsStoredLeavesTheOldFileOrTheNewOne) {
  const std::string old = "as it was, in a text of some length";
  const std::string text(100, 'n');
  FailEachAllocation([&](ScarceRun& run) {
    SimMachine machine;
    machine.recorder.CountOnly();
    machine.files.Put(kFile, old);
    PatientReplacer replacer(machine.files, machine.clock);
    bool done = false;
    const Ended ended = run.Act(
        [&] { done = StringToFile(kFile, text, true, machine.files, replacer, machine.eventLog); });
    EXPECT_EQ(ended, Ended::Whole);
    EXPECT_EQ(machine.eventLog.Entries().size(), done ? 0u : 1u);
    EXPECT_EQ(done, !run.Failed());
    EXPECT_EQ(machine.files.TextOf(kFile), done ? text : old);
  });
}

/// A change of a tree, by its name.
struct Change {
  const char* what;
  std::function<void(Document&)> change;
};

TEST(ScarceMemoryForDocuments, AChangeThatFailsLeavesTheTreeAsItWas) {
  const std::string name(60, 'n');
  const std::string value(60, 'v');
  const std::string text =
      "<r><f a=\"1\" b=\"2\" c=\"3\" d=\"4\">x</f><g>y</g><h>z</h><i>z</i>"
      "<c><v>1</v></c><d><v>2</v></d><e><v>3</v></e><k><v>4</v></k></r>";
  const Change changes[] = {
      {"the root's name", [&](Document& r) { r.SetName(name); }},
      {"its version", [&](Document& r) { r.SetVersion(value); }},
      {"its encoding", [&](Document& r) { r.SetEncoding(value); }},
      {"a child", [&](Document& r) { r.Childs().AddChild(name); }},
      {"a child in between", [&](Document& r) { r.Childs().AddChild(name, 1); }},
      {"a field", [&](Document& r) { r.Fields().AddField(name, value, value, 3); }},
      {"a field's name", [&](Document& r) { r.Fields().Field(0)->SetName(name); }},
      {"a field's value", [&](Document& r) { r.Fields().Field(0)->SetValue(value + "<>"); }},
      {"an attribute",
       [&](Document& r) { r.Fields().Field(0)->Parameters().AddParameter(name, value); }},
      {"an attribute's value",
       [&](Document& r) { r.Fields().Field(0)->Parameters().Parameter("B")->SetValue(value); }},
      {"an attribute less",
       [](Document& r) { r.Fields().Field(0)->Parameters().RemoveParameter("a"); }},
      {"the order of children", [](Document& r) { r.Sort(false); }},
      {"the order of fields", [](Document& r) { r.Fields().Sort(false); }},
      {"a shared child", [](Document& r) { r.Childs().Append(r.Childs().Child(0)); }},
  };
  for (const Change& one : changes) {
    SCOPED_TRACE(one.what);
    const std::string before = TreeText(*Imported(text));
    const Ref<Document> changed = Imported(text);
    one.change(*changed);
    const std::string after = TreeText(*changed);
    FailEachAllocation([&](ScarceRun& run) {
      const Ref<Document> root = Imported(text);
      const std::string version = root->Version();
      const Ended ended = run.Act([&] { one.change(*root); });
      EXPECT_EQ(TreeText(*root), ended == Ended::Whole ? after : before);
      if (ended == Ended::WithBadAlloc) {
        EXPECT_EQ(root->Version(), version);
      }
    });
  }
}

TEST(ScarceMemoryForDocuments, WhatIsLookedForRaisesAndTheTreeIsAsItWas) {
  const std::string text = TextOfAllKinds();
  const std::string tree = TreeText(*Imported(text));
  const Change questions[] = {
      {"a path that leads nowhere", [](Document& r) { r.SelectSingleNode("group.deep.nothing"); }},
      {"a key with a condition", [](Document& r) { r.Childs().Child("GROUP@name='gg'"); }},
      {"all for which a condition holds",
       [](Document& r) {
         r.GetChilds(
             "var(field) -> ffffffffffffffffffff and var(deep.deeper.f) = x or var(leaf) > 4");
       }},
      {"the first of them",
       [](Document& r) { r.SearchChild("var(deep.deeper.f) = nowhere at all, ever"); }},
      {"fields by value",
       [](Document& r) { r.Childs().Child(0)->Fields().Count("FIELD", "none"); }},
  };
  for (const Change& one : questions) {
    SCOPED_TRACE(one.what);
    const int failed = FailEachAllocation([&](ScarceRun& run) {
      const Ref<Document> root = Imported(text);
      const Ended ended = run.Act([&] { one.change(*root); });
      EXPECT_EQ(ended == Ended::WithBadAlloc, run.Failed());
      EXPECT_EQ(TreeText(*root), tree);
    });
    EXPECT_GT(failed, 0);
  }
}

}  // namespace
}  // namespace tarvo
