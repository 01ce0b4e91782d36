// Blocks: which children they go over, and how they open and close.
#include <gtest/gtest.h>

#include <string>

#include "tests/xmldoc/template_outcome.h"

namespace tarvo {
namespace {

constexpr const char* kDocument =
    "<r><a>root</a><x>0</x>"
    "<B><x>1</x><c><x>11</x></c><c><x>12</x></c></B>"
    "<other><x>9</x></other>"
    "<b><x>2</x></b>"
    "<b><x>3</x><c><x>31</x></c></b></r>";

constexpr const char* kMalformed = "10101 VemtoParser.Maker: Tag mal formado";

TEST(TemplateBlocks, GoOverTheChildrenTheyName) {
  const TemplateCase cases[] = {
      {"", ""},
      {"plain < text > <@unknown x>", "plain < text > <@unknown x>"},
      {"<@open ID=\"b\">[<@field x>]<@close ID=\"b\">", "[1][2][3]"},
      {"<@OPEN id=\"B\">[<@Field x>]<@CLOSE id=\"B\">", "[1][2][3]"},
      {"a<@open ID=\"b\">.<@close ID=\"b\">z", "a...z"},
      {"<@open ID=\"none\">.<@close ID=\"none\">", ""},
      {"<@open ID=\"b.c\">[<@field x>]<@close ID=\"b.c\">", "[31]"},
      {"<@open ID=\"none.c\">.<@close ID=\"none.c\">", ""},
      {"<@open ID=\"a\">.<@close ID=\"a\">", ""},
      {"<@open ID=\"b\">[<@field x><@open ID=\"c\"><@field x>,<@close ID=\"c\">]<@close ID=\"b\">",
       "[111,12,][2][331,]"},
      {"<@open ID=\"b\"><@close ID=\"b\">", ""},
      {"<@open ID=\"b\">.<@close ID=\"b\"><@open ID=\"other\">o<@close ID=\"other\">", "...o"},
  };
  for (const TemplateCase& one : cases)
    EXPECT_EQ(Filled(kDocument, one.source), one.outcome) << one.source;
}

TEST(TemplateBlocks, AreBoundByStartAndStop) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "123"},
      {" start=\"2\"", "23"},
      {" stop=\"2\"", "12"},
      {" stop=\"1.5\"", "1"},
      {" start=\"1.5\"", "23"},
      {" start=\"2\" stop=\"2\"", "2"},
      {" start=\"3\" stop=\"1\"", ""},
      {" START=\"2\" Stop=\"9\"", "23"},
      {" start=\"\" stop=\"\"", "123"},
      {" start=\"-5\"", "123"},
      {" stop=\"0\"", ""},
      {" start=\"1e300\"", ""},
      {" stop=\"1e300\"", "123"},
      {" start=\"'2'\"", "23"},
      {" start=\"2\" when=\"var(x)<>2\"", "3"},
      {" stop=\"2\" when=\"var(x)>1\"", "2"},
      {" when=\"VAR(X)=3\"", "3"},
      {" when=\"\"", "123"},
      {" when=\"var(c.x)=31\"", "3"},
  };
  for (const auto& [attributes, outcome] : cases) {
    const std::string source =
        std::string("<@open ID=\"b\"") + attributes + "><@field x><@close ID=\"b\">";
    EXPECT_EQ(Filled(kDocument, source), outcome) << source;
  }
}

TEST(TemplateBlocks, OfOneIdNestByDepth) {
  EXPECT_EQ(Filled("<r><n><v>1</v><n><v>2</v></n></n></r>",
                   "<@open ID=\"n\">(<@field v><@open ID=\"n\">(<@field v>)<@close ID=\"n\">)"
                   "<@close ID=\"n\">"),
            "(1(2))");
}

TEST(TemplateBlocks, ThatDoNotCloseRightAreErrors) {
  const TemplateCase cases[] = {
      {"<@open ID=\"b\">x", "10102 Vemto.Parser: Falta el final de bloque:\r\n<@close ID=\"b\">"},
      {"<@open ID=\"b\">x<@close ID=\"B\">",
       "10102 Vemto.Parser: Falta el final de bloque:\r\n<@close ID=\"b\">"},
      {"<@open ID=\"b\">x<@close ID=\"b\" >",
       "10102 Vemto.Parser: Falta el final de bloque:\r\n<@close ID=\"b\">"},
      {"<@open ID=\"b\"><@open ID=\"c\"><@close ID=\"b\"><@close ID=\"c\">",
       "10102 Vemto.Parser: Falta el final de bloque:\r\n<@close ID=\"c\">"},
      {"<@open ID=\"b\"><@open ID=\"b\"><@close ID=\"b\">",
       "10102 Vemto.Parser: Falta el final de bloque:\r\n<@close ID=\"b\">"},
      {"<@open ID=\"b\" when=\"x\">x",
       "10102 Vemto.Parser: Falta el final de bloque:\r\n<@close ID=\"b\">"},
      {"<@open when=\"a=1\">x",
       "10102 Vemto.Parser: Falta el final de bloque:\r\n<@close ID=\"\">"},
      {"<@open ID=\"none\"><@open ID=\"c\"><@close ID=\"none\">",
       "10102 Vemto.Parser: Falta el final de bloque:\r\n<@close ID=\"c\">"},
      {"<@open ID=\"b\"", kMalformed},
      {"<@open ID=\"b>x<@close ID=\"b\">", kMalformed},
      {"<@open ID=b>x<@close ID=\"b\">", kMalformed},
      {"<@open x=\" ID=b\">x<@close ID=\"b\">", kMalformed},
      {"<@open ID=\"b\" when=>x<@close ID=\"b\">", kMalformed},
      {"<@close ID=\"b\">x", "<@close ID=\"b\">x"},
      {"<@close ID=\"", "<@close ID=\""},
      {"<@open ID=\"b\" when=\"x\">x<@close ID=\"b\">",
       "10103 parse.condition: No se ha encontrado una condici\xF3n v\xE1lida"},
  };
  for (const TemplateCase& one : cases)
    EXPECT_EQ(Filled(kDocument, one.source), one.outcome) << one.source;
}

TEST(TemplateBlocks, RaiseTheFaultsOfABodyOnlyWhenItIsProduced) {
  const std::string noCondition =
      "10103 parse.condition: No se ha encontrado una condici\xF3n v\xE1lida";
  const std::string unknown = "10105 parse.field: Unknown function: shout";
  const struct {
    const char* attributes;
    const char* body;
    std::string outcome;
  } cases[] = {
      {" ID=\"none\"", "<@field shout(x)>", "[]"},
      {" ID=\"none\"", "<@field id=x>", "[]"},
      {" ID=\"none\"", "<@field con(x)>", "[]"},
      {" ID=\"none\" when=\"x\"", "", "[]"},
      {" ID=\"b\" start=\"9\" when=\"x\"", "", "[]"},
      {" ID=\"b\" when=\"1=2\"", "<@field shout(x)>", "[]"},
      {" ID=\"b\" when=\"1=2\"", "<@open ID=\"c\" when=\"x\"><@close ID=\"c\">", "[]"},
      {" ID=\"b\"", "<@open ID=\"none\" when=\"x\"><@field shout(x)><@close ID=\"none\">.",
       "[...]"},
      {" ID=\"b\"", "<@field shout(x)>", unknown},
      {" ID=\"b\"", "<@field id=x>", kMalformed},
      {" ID=\"b\" when=\"x\"", "", noCondition},
      {" ID=\"b\" start=\"3\" when=\"x\"", "<@field shout(x)>", noCondition},
      {" ID=\"none\"", "<@field x", "[]"},
      {" ID=\"b\"", "<@field x", kMalformed},
      {" ID=\"none\"", "<@open ID=\"c\">",
       "10102 Vemto.Parser: Falta el final de bloque:\r\n<@close ID=\"c\">"},
  };
  for (const auto& c : cases) {
    const std::string id =
        std::string(c.attributes).find("none") == std::string::npos ? "b" : "none";
    const std::string source =
        "[<@open" + std::string(c.attributes) + ">" + c.body + "<@close ID=\"" + id + "\">]";
    EXPECT_EQ(Filled(kDocument, source), c.outcome) << source;
    // A second block of that path shares the children with the first one.
    EXPECT_EQ(Filled(kDocument, source + "<@open ID=\"b\" stop=\"0\"><@close ID=\"b\">"), c.outcome)
        << source;
  }
}

TEST(TemplateBlocks, TakeQuotesOutOfAnId) {
  EXPECT_EQ(Filled(kDocument, "<@open ID=\"'b'\" stop=\"1\">.<@close ID=\"b\">"), ".");
  EXPECT_EQ(Filled(kDocument, "<@open ID=\"b\"\"c\">.<@close ID=\"b\">"), "...");
  EXPECT_EQ(Filled("<r><abc>1</abc><abc><x/></abc></r>", "<@open ID=ab\"c\">.<@close ID=\"abc\">"),
            ".");
}

TEST(TemplateBlocks, ThatHaveEndedLeaveALaterEndAsText) {
  EXPECT_EQ(Filled(kDocument, "<@open ID=\"b\">.<@close ID=\"b\"><@close ID=\"b\">"),
            "...<@close ID=\"b\">");
  EXPECT_EQ(Filled(kDocument,
                   "<@open ID=\"b\">.<@close ID=\"b\"><@open ID=\"b\">:<@close ID=\"b\">"
                   "<@close ID=\"b\">"),
            "...:::<@close ID=\"b\">");
}

TEST(TemplateBlocks, KnowTheirAttributesByWholeNames) {
  EXPECT_EQ(Filled(kDocument, "<@open grid=\"x\" ID=\"b\" unstop=\"1\">.<@close ID=\"b\">"), "...");
}

TEST(TemplateBlocks, TakeTheFirstPlaceForAnAttribute) {
  EXPECT_EQ(Filled(kDocument, "<@open ID=\"b\" when=\"x<>q id=c\">.<@close ID=\"b\">"), "...");
}

TEST(TemplateBlocks, MayHoldAGreaterSignInQuotes) {
  EXPECT_EQ(Filled(kDocument, "<@open ID=\"b\" when=\"var(x)>2\"><@field x><@close ID=\"b\">"),
            "3");
}

TEST(TemplateBlocks, FillAGivenDocumentInsteadOfTheirOwn) {
  const Ref<Document> own = DocumentOf("<r><x>own</x></r>");
  const Ref<Document> given = DocumentOf("<r><x>given</x></r>");
  EXPECT_EQ(own->HTMLExport("<@field x>"), "own");
  EXPECT_EQ(own->HTMLExport("<@field x>", given.get()), "given");
}

TEST(TemplateBlocks, ComeBeforeFieldsOutsideOfThem) {
  const char* document = "<r><b><x>old</x></b></r>";
  EXPECT_EQ(Filled(document,
                   "<@field LET b.x=new><@open ID=\"b\"><@field x><@close ID=\"b\"><@field b.x>"),
            "oldnew");
  EXPECT_EQ(Filled(document, "<@field b.x><@open ID=\"b\"><@field LET x=new><@close ID=\"b\">"),
            "new");
}

TEST(TemplateBlocks, FillTheirFieldsBeforeTheNextChildsTurn) {
  EXPECT_EQ(Filled("<r><b><x>1</x></b><b><x>2</x></b></r>",
                   "<@open ID=\"b\"><@field LET y=VAR(x)><@field y><@field RANDOM(VAR(x))>;"
                   "<@close ID=\"b\">",
                   FakePorts().Without()),
            "1;2;");
}

TEST(TemplateBlocks, NeverReadProducedTextAgain) {
  const char* document =
      "<r><secret>!</secret><b><x>&lt;@field secret&gt;&lt;@open ID=\"b\"&gt;</x></b></r>";
  EXPECT_EQ(Filled(document, "<@open ID=\"b\"><@field x><@close ID=\"b\">"),
            "<@field secret><@open ID=\"b\">");
  EXPECT_EQ(Filled(document, "<@field LET z=VAR(b.x)><@field z>"),
            "<@field secret><@open ID=\"b\">");
}

TEST(TemplateBlocks, OverTheSameChildrenAreAsEachAlone) {
  const std::string blocks[] = {
      "<@open ID=\"b\">(<@field x>)<@close ID=\"b\">",
      "<@open ID=\"B\" start=\"2\" when=\"var(x)>1\">(<@field x>)<@close ID=\"B\">",
      "<@open ID=\"b\" stop=\"1\" when=\"var(c.x)=12 or var(X)=3\">(<@field x>)<@close ID=\"b\">",
      "<@open ID=\"b.c\" when=\"var(x)>0\">(<@field x>)<@close ID=\"b.c\">",
      "<@open ID=\"none.c\" when=\"var(x)>0\">x<@close ID=\"none.c\">",
      "<@open ID=\"b\"><@open ID=\"c\" when=\"var(x)>11\">{<@field x>}<@close ID=\"c\"><@close "
      "ID=\"b\">",
  };
  std::string together;
  std::string alone;
  for (const std::string& one : blocks) {
    for (int twice = 0; twice < 2; ++twice) {
      together += one;
      alone += Filled(kDocument, one);
    }
  }
  EXPECT_EQ(Filled(kDocument, together), alone);
  EXPECT_NE(alone, "");
}

TEST(TemplateBlocks, OverTheSameChildrenSeeWhatOthersStored) {
  EXPECT_EQ(Filled("<r><b><x>1</x></b></r>",
                   "<@open ID=\"b\" when=\"var(x)=1\">a<@field LET x=2><@close ID=\"b\">"
                   "<@open ID=\"b\" when=\"var(x)=2\">b<@close ID=\"b\">"),
            "ab");
}

TEST(TemplateBlocks, NestTenThousandDeep) {
  std::string document;
  std::string source;
  std::string ends;
  std::string closes;
  for (int i = 0; i < 10000; ++i) {
    document += "<n>";
    ends += "</n>";
    source += "<@open ID=\"n\">";
    closes += "<@close ID=\"n\">";
  }
  const std::string whole = "<r>" + document + "<v>deep</v>" + ends + "</r>";
  EXPECT_EQ(Filled(whole, source + "<@field v>" + closes), "deep");
  EXPECT_EQ(Filled(whole, source),
            "10102 Vemto.Parser: Falta el final de bloque:\r\n<@close ID=\"n\">");
}

TEST(TemplateBlocks, EndWithinTheirBounds) {
  const Ref<Document> node = Document::Create();
  node->SetName("n");
  for (int i = 0; i < 10; ++i) {
    node->Childs().AddChild("n");
    node->Childs().SetChild(i, node);  // each child is the node itself
  }
  std::string source;
  for (int i = 0; i < 50; ++i) source += "<@open ID=\"n\">";
  source += "x";
  for (int i = 0; i < 50; ++i) source += "<@close ID=\"n\">";
  TemplatePorts ports;
  ports.mostChilds = 100000;
  EXPECT_EQ(OutcomeOf([&] { return node->HTMLExport(source, nullptr, ports); }),
            "10106 VemtoParser.Maker: The blocks of the template pass 100000 children");
  ports.mostChilds = 100'000'000;
  ports.mostOutput = 1000;
  EXPECT_EQ(OutcomeOf([&] { return node->HTMLExport(source, nullptr, ports); }),
            "10106 VemtoParser.Maker: The output of the template passes 1000 bytes");
  while (node->Childs().Count() > 0) node->Childs().RemoveChild(0);
}

TEST(TemplateBlocks, GiveTheOutputThatJustFits) {
  TemplatePorts ports;
  ports.mostOutput = 4;
  EXPECT_EQ(Filled("<r><x>34</x></r>", "12<@field x>", ports), "1234");
  EXPECT_EQ(Filled("<r><x>34</x></r>", "123<@field x>", ports),
            "10106 VemtoParser.Maker: The output of the template passes 4 bytes");
}

TEST(TemplateBlocks, EndForEveryTruncationOfATemplate) {
  const std::string source =
      "<@open ID=\"b\" start=\"1\" when=\"var(x)>1 or var(x)=1\">a<@field ID=\"con(VAR(x)>1,a,b)\">"
      "<@field upp(\"q\" VAR(x))><@close ID=\"b\"><sendmail TO=\"a@b\">x</sendmail>";
  int filled = 0;
  for (std::size_t length = 0; length <= source.size(); ++length) {
    const std::string outcome = Filled(kDocument, source.substr(0, length));
    const bool failed = outcome.starts_with("101");
    filled += failed ? 0 : 1;
  }
  EXPECT_GT(filled, 10);
  EXPECT_EQ(Filled(kDocument, source), "abQ 1aaQ 2aaQ 3");
}

}  // namespace
}  // namespace tarvo
