// The condition language: blocks, GetChilds and SearchChild.
#include <gtest/gtest.h>

#include <string>

#include "tests/xmldoc/template_outcome.h"
#include "xmldoc/template/condition.h"

namespace tarvo {
namespace {

constexpr const char* kNode =
    "<n><name>Arya Stark</name><level>42</level><half>1.50</half><empty/><neg>-3</neg>"
    "<op>a&gt;=b or c=d</op><deep><x>7</x><more><y>z</y></more></deep></n>";
constexpr const char* kNoCondition =
    "10103 parse.condition: No se ha encontrado una condici\xF3n v\xE1lida";

std::string Verdict(const char* condition) {
  return OutcomeOf([&] { return Condition(condition).Holds(*DocumentOf(kNode)) ? "yes" : "no"; });
}

TEST(Conditions, CompareTheirSides) {
  const TemplateCase cases[] = {
      {"var(level)=42", "yes"},
      {"var(level)=42.0", "yes"},
      {"var(level)=4.2e1", "yes"},
      {"var(level)=+42", "yes"},
      {"var(level)=042", "yes"},
      {"var(level)<>42", "no"},
      {"var(level)>=42", "yes"},
      {"var(level)>=43", "no"},
      {"var(level)<=42", "yes"},
      {"var(level)<=41", "no"},
      {"var(level)>9", "yes"},  // as numbers: as texts "42" comes before "9"
      {"var(level)>9x", "no"},  // as texts
      {"var(level)<100", "yes"},
      {"var(level)<42", "no"},
      {"var(level)>42", "no"},
      {"var(half)=1.5", "yes"},
      {"var(neg)<0", "yes"},
      {"var(neg)=-3", "yes"},
      {"var(name)=arya stark", "yes"},
      {"VAR(NAME)=ARYA STARK", "yes"},
      {"  var( name )  =  arya stark  ", "yes"},
      {"var(name)>aaa", "yes"},
      {"var(name)<b", "yes"},
      {"var(name)->STARK", "yes"},
      {"var(name)->lannister", "no"},
      {"var(level)->2", "yes"},
      {"var(name)->", "yes"},
      {"var(name)->var(empty)", "yes"},
      {"var(empty)=", "yes"},
      {"var(missing)=", "yes"},
      {"var(missing)=0", "no"},
      {"var(deep.x)=7", "yes"},
      {"var(deep.more.y)=Z", "yes"},
      {"var(nowhere.x)=", "yes"},
      {"x-var(level)-y=x-42-y", "yes"},
      {"var(level)var(level)=4242", "yes"},
      {"1=1", "yes"},
      {"inf=nan", "no"},
      {"1e999=1e999", "yes"},  // beyond any number, and so texts
      {"'arya stark'=\"arya stark\"", "yes"},
  };
  for (const TemplateCase& one : cases) EXPECT_EQ(Verdict(one.source), one.outcome) << one.source;
}

TEST(Conditions, LookForTheirOperatorInAFixedOrder) {
  const TemplateCase cases[] = {
      {"a=b>=a", "yes"},    // ">=" splits first: "a=b" is not below "a"
      {"a<b<=a<c", "yes"},  // "<=" before "<"
      {"a=b<>a=b", "no"},   // "<>" before "="
      {"x=y->=", "yes"},    // "->" before "=": "x=y" contains "="
      {"a>b=a>b", "yes"},   // "=" before ">"
      {"a<b>a<a", "yes"},   // ">" before "<"
      {"a=a=a", "no"},
      {"b>a>c", "yes"},        // the first ">" splits: "b" is above "a>c"
      {"var(op)->>=", "yes"},  // ">=" goes first: the value and "->" against nothing
      {"var(op)<>var(level)", "yes"},
  };
  for (const TemplateCase& one : cases) EXPECT_EQ(Verdict(one.source), one.outcome) << one.source;
}

TEST(Conditions, NeverFindOperatorsInValues) {
  EXPECT_EQ(Verdict("var(op)=var(op)"), "yes");
  EXPECT_EQ(Verdict("var(op)->b"), "yes");
  EXPECT_EQ(Verdict("var(op)=x"), "no");
}

TEST(Conditions, NeverFindOperatorsInNames) {
  EXPECT_TRUE(Condition("var(a=b)<2").Holds(*DocumentOf("<r><a=b>1</a=b></r>")));
}

TEST(Conditions, CombineFromLeftToRight) {
  const TemplateCase cases[] = {
      {"1=1 or 1=2", "yes"},
      {"1=2 or 1=1", "yes"},
      {"1=2 or 1=2", "no"},
      {"1=1 and 1=1", "yes"},
      {"1=1 and 1=2", "no"},
      {"1=1 or 1=1 and 1=2", "no"},   // (yes or yes) and no
      {"1=2 and 1=1 or 1=1", "yes"},  // (no and yes) or yes
      {"1=2 and 1=1 or 1=2 and 1=1", "no"},
      {"1=1 OR 1=2 AND 1=1", "yes"},
      {"x=a or b", kNoCondition},
      {"1=1 and ", kNoCondition},
      {" or 1=1", kNoCondition},
      {"1=1 or  or 1=1", kNoCondition},
      {"1=1or 1=2", "no"},  // no blank before "or": one term, "1" and "1or 1=2"
  };
  for (const TemplateCase& one : cases) EXPECT_EQ(Verdict(one.source), one.outcome) << one.source;
}

TEST(Conditions, WithoutAnOperatorAreErrors) {
  for (const char* condition : {"x", "var(level)", "var(level", "var(a=1", "1=1 and x", "-"}) {
    EXPECT_EQ(Verdict(condition), kNoCondition) << condition;
  }
  EXPECT_EQ(Verdict(""), "yes");
  EXPECT_EQ(Verdict("   "), "yes");
}

TEST(Conditions, TakeManyTerms) {
  std::string condition = "1=2";
  for (int i = 0; i < 50000; ++i) condition += " or 1=2";
  EXPECT_EQ(Verdict(condition.c_str()), "no");
  EXPECT_EQ(Verdict((condition + " or 1=1").c_str()), "yes");
}

constexpr const char* kFamily = "<r><a><v>1</v></a><b><v>2</v></b><a><v>3</v></a><c><w/></c></r>";

TEST(GetChilds, GivesTheChildrenForWhichTheConditionHolds) {
  const Ref<Document> root = DocumentOf(kFamily);
  const Documents found = root->GetChilds("var(v)>1");
  ASSERT_EQ(found.Count(), 2);
  EXPECT_EQ(found.Child(0), root->Childs().Child(1));
  EXPECT_EQ(found.Child(1), root->Childs().Child(2));
  EXPECT_EQ(root->Childs().Count(), 4);
  found.Child(0)->SetName("changed");
  EXPECT_EQ(root->Childs().Child(1)->Name(), "changed");
}

TEST(GetChilds, GivesAllForTheEmptyConditionAndNoneWhereNoneHolds) {
  const Ref<Document> root = DocumentOf(kFamily);
  EXPECT_EQ(root->GetChilds("").Count(), 4);
  EXPECT_EQ(root->GetChilds("var(v)=99").Count(), 0);
  EXPECT_EQ(Document::Create()->GetChilds("var(v)=1").Count(), 0);
}

TEST(GetChilds, CanBeHandedOn) {
  Documents found = DocumentOf(kFamily)->GetChilds("var(v)>1");
  const Documents taken(std::move(found));
  EXPECT_EQ(taken.Count(), 2);
  EXPECT_EQ(taken.Child(1)->Fields().Field("v")->Value(), "3");
}

TEST(GetChilds, KeepsItsNodesWhenTheTreeGoes) {
  Ref<Document> root = DocumentOf(kFamily);
  const Documents found = root->GetChilds("var(v)='3'");
  root = nullptr;
  EXPECT_EQ(found.Child(0)->Fields().Field("v")->Value(), "3");
}

TEST(SearchChild, GivesTheFirstOfThem) {
  const Ref<Document> root = DocumentOf(kFamily);
  EXPECT_EQ(root->SearchChild("var(v)>1"), root->Childs().Child(1));
  EXPECT_EQ(root->SearchChild("var(v)=")->Name(), "c");
  const Ref<Document> none = root->SearchChild("var(v)=99");
  EXPECT_EQ(none->Name(), "");
  EXPECT_EQ(root->Childs().Count(), 4);
}

TEST(SearchChild, RaisesTheErrorsOfConditions) {
  const Ref<Document> root = DocumentOf(kFamily);
  EXPECT_EQ(OutcomeOf([&] { return root->SearchChild("v")->Name(); }), kNoCondition);
  EXPECT_EQ(OutcomeOf([&] { return std::to_string(root->GetChilds("v").Count()); }), kNoCondition);
}

}  // namespace
}  // namespace tarvo
