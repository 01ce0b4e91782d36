// The three passes: blocks, fields, mails. Which of several faults is raised shows their order.
#include <gtest/gtest.h>

#include <string>

#include "allocated_bytes.h"
#include "tests/xmldoc/template_outcome.h"

namespace tarvo {
namespace {

constexpr const char* kOrderDocument =
    "<r><x>0</x><b><x>1</x><c><x>11</x></c></b><b><x>2</x><c><x>21</x></c></b></r>";

constexpr const char* kMalformed = "10101 VemtoParser.Maker: Tag mal formado";
constexpr const char* kNoCondition =
    "10103 parse.condition: No se ha encontrado una condici\xF3n v\xE1lida";
constexpr const char* kUnknown = "10105 parse.field: Unknown function: shout";
constexpr const char* kNoBlockEnd =
    "10102 Vemto.Parser: Falta el final de bloque:\r\n<@close ID=\"b\">";
constexpr const char* kNoMailEnd = "10102 Vemto.Parser: Falta el final de bloque:\r\n</sendmail>";
constexpr const char* kByZero = "11 parse.calculation: Division by zero";

// Once filled in the order of the text when nothing in it changed the document, so that another
// fault was raised than with a LET at its end.
TEST(TemplateOrder, OfFaultsIsThatOfThePasses) {
  const TemplateCase cases[] = {
      // Blocks before the fields in front of them.
      {"<@field shout(x)><@open ID=\"b\" when=\"x\">.<@close ID=\"b\">", kNoCondition},
      {"<@field shout(x)><@open ID=\"b\"><@field cal(1/0)><@close ID=\"b\">", kByZero},
      {"<@field shout(x)><@open ID=\"b\">", kNoBlockEnd},
      {"<@field ID=x><@open ID=\"b\" when=\"x\">.<@close ID=\"b\">", kNoCondition},
      {"<@field x<@open ID=\"b\" when=\"x\">.<@close ID=\"b\">", kNoCondition},
      {"<@field x<@open ID=\"b\">.<@close ID=\"b\">", kMalformed},
      // The same within a body.
      {"<@open ID=\"b\"><@field shout(x)><@open ID=\"c\" when=\"x\">.<@close ID=\"c\">"
       "<@close ID=\"b\">",
       kNoCondition},
      {"<@open ID=\"b\"><@field shout(x)><@open ID=\"c\"><@field cal(1/0)><@close ID=\"c\">"
       "<@close ID=\"b\">",
       kByZero},
      {"<@open ID=\"b\"><@field x<@open ID=\"c\"><@field cal(1/0)><@close ID=\"c\">"
       "<@close ID=\"b\">",
       kByZero},
      // A block with its body before the next one, and its fields with it.
      {"<@open ID=\"b\"><@field shout(x)><@close ID=\"b\"><@open ID=\"b\" when=\"x\">."
       "<@close ID=\"b\">",
       kUnknown},
      // All block tags are matched before the first block is produced.
      {"<@open ID=\"c\" when=\"x\">.<@close ID=\"c\"><@open ID=\"b\">", kNoBlockEnd},
      {"<@open ID=\"b\" when=\"x\">.<@close ID=\"b\"><@open ID=\"c\"", kMalformed},
      // Fields from the first to the last.
      {"<@field shout(x)><@field cal(1/0)>", kUnknown},
      {"<@field cal(1/0)><@field shout(x)>", kByZero},
      {"<@field shout(x)><@field x", kUnknown},
      {"<@field shout(x)><@open ID=\"b\">.<@close ID=\"b\"><@field cal(1/0)>", kUnknown},
      // Mails last.
      {"<sendmail TO=\"a\"><@field shout(x)>", kUnknown},
      {"<sendmail <@open ID=\"b\" when=\"x\">.<@close ID=\"b\">", kNoCondition},
      {"<sendmail TO=\"a\"><@open ID=\"b\">.<@close ID=\"b\">", kNoMailEnd},
  };
  for (const TemplateCase& one : cases) {
    EXPECT_EQ(Filled(kOrderDocument, one.source), one.outcome) << one.source;
    if (!std::string(one.outcome).starts_with("10101")) {
      const std::string stores = std::string("<@field LET y=1>") + one.source;
      EXPECT_EQ(Filled(kOrderDocument, stores), one.outcome) << stores;
    }
  }
}

TEST(TemplateOrder, FillsFieldsInFrontOfABlockBehindIt) {
  EXPECT_EQ(Filled(kOrderDocument,
                   "<@field x>(<@open ID=\"b\"><@field x>[<@open ID=\"c\"><@field x><@close "
                   "ID=\"c\">]<@field x><@close ID=\"b\">)<@field x>"),
            "0(1[11]12[21]2)0");
  EXPECT_EQ(Filled(kOrderDocument,
                   "<@field seen><@open ID=\"b\"><@field n>,<@open ID=\"c\"><@field LET "
                   "y=VAR(x)><@field y>;<@close ID=\"c\"><@field LET n=VAR(x)><@close ID=\"b\">"
                   "<@field LET seen=!><@field b.c.y><@field seen>"),
            ",11;,21;21!");
  EXPECT_EQ(Filled(kOrderDocument,
                   "<@open ID=\"b\"><@field set(z, VAR(c.z))><@open ID=\"c\"><@field set(z, "
                   "VAR(x))>;<@close ID=\"c\"><@field z>|<@close ID=\"b\">"),
            "1111;11|2121;21|");
}

TEST(TemplateOrder, KnowsEveryValueInAMailWhereverItWasFilled) {
  const std::string evil = "x\"></sendmail><sendmail Server=\"evil\">";
  const std::string document =
      "<r><e>x\"&gt;&lt;/sendmail&gt;&lt;sendmail Server=\"evil\"&gt;</e>"
      "<b><e>x\"&gt;&lt;/sendmail&gt;&lt;sendmail Server=\"evil\"&gt;</e></b></r>";
  FakePorts fakes;
  EXPECT_EQ(Filled(document,
                   "<@field e><@field none><@open ID=\"b\"><@field e><@close ID=\"b\"><@field e>"
                   "<sendmail Server=\"s\" TO=\"<@field e>\" SUBJECT=\"<@open ID=\"b\"><@field e>"
                   "<@close ID=\"b\">\"><@field e><@open ID=\"b\"><@field e><@close ID=\"b\">"
                   "<@field e></sendmail><@field e>",
                   fakes.All()),
            evil + evil + evil + evil);
  ASSERT_EQ(fakes.mailer.mails.size(), 1U);
  EXPECT_EQ(fakes.mailer.mails[0].server, "s");
  EXPECT_EQ(fakes.mailer.mails[0].to, evil);
  EXPECT_EQ(fakes.mailer.mails[0].subject, evil);
  EXPECT_EQ(fakes.mailer.mails[0].body, evil + evil + evil);
}

// The one that is open longest is named: it is the first whose end is missing.
TEST(TemplateOrder, NamesTheOutermostOfTheBlocksWithoutAnEnd) {
  const std::string missing = "10102 Vemto.Parser: Falta el final de bloque:\r\n<@close ID=\"";
  const std::pair<const char*, const char*> cases[] = {
      {"<@open ID=\"b\"><@open ID=\"c\"><@open ID=\"d\">", "b"},
      {"<@open ID=\"b\"><@close ID=\"b\"><@open ID=\"c\"><@open ID=\"d\">", "c"},
      {"<@open ID=\"b\"><@open ID=\"c\"><@close ID=\"c\"><@open ID=\"d\">", "b"},
      // Within a block that ends, of those that it leaves open.
      {"<@open ID=\"b\"><@open ID=\"c\"><@open ID=\"d\"><@close ID=\"b\">", "c"},
      {"<@open ID=\"a\"><@open ID=\"b\"><@open ID=\"c\"><@open ID=\"d\"><@close ID=\"b\">", "c"},
      {"<@open ID=\"b\"><@open ID=\"c\"><@open ID=\"b\"><@open ID=\"d\"><@close ID=\"b\">", "d"},
  };
  for (const auto& [source, named] : cases) {
    EXPECT_EQ(Filled(kOrderDocument, source), missing + named + "\">") << source;
  }
}

/// Notes what memory is in use when it is asked.
class MemoryAtTheEnd : public RandomSource {
 public:
  void Reseed() override {}
  double Fraction() override { return 0; }
  std::uint32_t Below(std::uint32_t) override {
    bytes = AllocatedBytes();
    return 0;
  }
  std::size_t bytes = 0;
};

/// Bytes that the engine holds when blocks and fields are filled.
std::size_t MemoryFor(const std::string& body) {
  constexpr int kRows = 100000;
  const Ref<Document> row = DocumentOf("<row><x>1</x><c/></row>");
  const Ref<Document> root = Document::Create();
  for (int i = 0; i < kRows; ++i) {
    root->Childs().AddChild("row");
    root->Childs().SetChild(i, row);
  }
  MemoryAtTheEnd memory;
  TemplatePorts ports;
  ports.random = &memory;
  const std::size_t before = AllocatedBytes();
  const std::string source =
      "<@open ID=\"row\">" + body + "<@close ID=\"row\"><@field LET y=RANDOM(1)>";
  root->HTMLExport(source, nullptr, ports);
  return memory.bytes - before;
}

TEST(TemplateOrder, CostsNoMemoryForEmptyResults) {
  constexpr std::size_t kWithoutRows = 64 * 1024;
  EXPECT_LT(MemoryFor("<@field none>"), kWithoutRows);
  EXPECT_LT(MemoryFor("<@field none><@open ID=\"c\"><@field none><@close ID=\"c\">"), kWithoutRows);
  // A value that had to wait costs its place as well as itself.
  EXPECT_LT(MemoryFor("<@field x><@open ID=\"c\"><@close ID=\"c\">"), 100000 * 32);
}

}  // namespace
}  // namespace tarvo
