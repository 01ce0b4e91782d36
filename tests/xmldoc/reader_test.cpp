// What the reader makes of a text: the tree, and the result with and without StopOnLoadError.
#include <gtest/gtest.h>

#include "tree_text.h"
#include "xmldoc/document.h"

namespace tarvo {
namespace {

struct Reading {
  const char* behaviour;
  std::string text;
  std::string tree;
  bool result;        ///< While StopOnLoadError is not set.
  bool strictResult;  ///< While it is.
};

void Check(const std::vector<Reading>& readings) {
  for (const Reading& reading : readings) {
    for (const bool strict : {false, true}) {
      SCOPED_TRACE(std::string(reading.behaviour) + (strict ? ", strict: " : ": ") + reading.text);
      const Ref<Document> document = Document::Create();
      document->SetStopOnLoadError(strict);
      EXPECT_EQ(document->XMLImport(reading.text), strict ? reading.strictResult : reading.result);
      EXPECT_EQ(TreeText(*document), reading.tree);
    }
  }
}

TEST(Reader, LeavesAndContainers) {
  Check({
      {"leaves of both forms", "<r><a>1</a><b x=\"2\"/></r>", "r{a=1,b(x=2)=}", true, true},
      {"a container is a child", "<r><g><a>1</a></g></r>", "r{|g{a=1}}", true, true},
      {"an empty element is a leaf", "<r><a></a></r>", "r{a=}", true, true},
      {"another closing name makes a container, its text is dropped", "<r><a>x</b></r>", "r{|a{}}",
       true, true},
      {"any closing tag closes the node", "<r><g><a/></x><b/></y>", "r{b=|g{a=}}", true, true},
      {"names compare exactly for a leaf", "<r><a>1</A></r>", "r{|a{}}", true, true},
      {"and up to their end", "<r><a>1</a~></a></r>", "r{|a{}}", true, true},
      {"a blank in the closing tag ends its name", "<r><a>1</a ></r>", "r{a=1}", true, true},
      {"a leaf's text is kept as it stands", "<r><a> \r\n\t1 \n</a></r>", "r{a= \\r\\n\\t1 \\n}",
       true, true},
      {"text before the first child is dropped", "<r>drop<a/></r>", "r{a=}", true, true},
      {"text behind a field is dropped", "<r><a/>drop<b/>drop</r>", "r{a=,b=}", true, true},
      {"children of one name stay apart, in order", "<r><g><a/></g><g><b/></g></r>",
       "r{|g{a=}|g{b=}}", true, true},
      {"a field after a child belongs to the outer node", "<r><g><a/></g><b/></r>", "r{b=|g{a=}}",
       true, true},
      {"the text of an element that has children is dropped", "<r><g>x<a/>y</g>z<b/></r>",
       "r{b=|g{a=}}", true, true},
      {"leading and trailing blanks around the text", "   <r><a/></r>   ", "r{a=}", true, true},
      {"text in front of the first tag is dropped", "junk<r><a/></r>", "r{a=}", true, true},
  });
}

TEST(Reader, SelfClosingTags) {
  Check({
      {"a blank before the slash stays in the last value", "<r><a x=\"1\" /></r>", "r{a(x=1\")=}",
       true, true},
      {"without attributes a blank before the slash is nothing", "<r><a /></r>", "r{a=}", true,
       true},
      {"only one slash is dropped", "<r><a//></r>", "r{a/=}", true, true},
      {"a slash inside the name stays when attributes follow", "<r><a/ b=\"1\"/></r>",
       "r{a/(b=1)=}", true, true},
      {"a slash, a blank: no self-closing tag", "<r><a/ ><b/></x></r>", "r{|a/{b=}}", true, true},
      {"an unquoted value before the slash", "<r><a x=1/></r>", "r{a(x=1)=}", true, true},
      {"a name alone is an attribute without a value", "<r><a b/></r>", "r{a(b=)=}", true, true},
      {"a sign behind the attributes is part of the last value", "<r><a b=\"1\"~>x</a></r>",
       "r{a(b=1\")=x}", true, true},
  });
}

TEST(Reader, Declarations) {
  Check({
      {"a comment ends at its own closer", "<r><!-- a > b --><a/></r>", "r{a=}", true, true},
      {"a comment without blanks", "<r><!--x><b/>--><a/></r>", "r{a=}", true, true},
      {"the shortest comment", "<!--><r><a/></r>", "r{a=}", true, true},
      {"a comment may hold tags", "<r><!-- <b/> </r> --><a/></r>", "r{a=}", true, true},
      {"a document type is skipped", "<!DOCTYPE r SYSTEM \"x\"><r><a/></r>", "r{a=}", true, true},
      {"a processing instruction is skipped", "<?go a b c?><r><a/></r>", "r{a=}", true, true},
      {"self-closing does not make a question a leaf", "<r><?a/><b/></r>", "r{b=}", true, true},
      {"nor an exclamation", "<r><!a/><b/></r>", "r{b=}", true, true},
      {"nor does a matching closing tag", "<r><?a></?a><b/></r>", "r{b=}", true, true},
      {"a comment inside an element makes it a container", "<r><a><!-- c -->1</a></r>", "r{|a{}}",
       true, true},
      {"a comment that is the last tag counts as never closed", "<r><a/></r><!-- c -->", "r{a=}",
       true, false},
      {"a comment without its closer counts as never closed", "<r><a/><!-- c > </r>", "r{a=}", true,
       false},
  });
}

TEST(Reader, DeclarationSetsVersionAndEncodingOfTheRoot) {
  struct Declared {
    const char* text;
    const char* version;
    const char* encoding;
  };
  for (const Declared& declared : std::vector<Declared>{
           {"<?xml version=\"1.0\" encoding=\"UTF-8\"?><r><a/></r>", "1.0", "UTF-8"},
           {"<?XML VERSION='2' Encoding='x'?><r><a/></r>", "2", "x"},
           {"<r><g><?xml version=\"3\"?><a/></g></r>", "3", "ISO-8859-1"},
           {"<?xml version=\"1.1\" standalone=\"no\" encoding=\"E\"?><r><a/></r>", "1.1", "E"},
           {"<?xml\r\nversion=\"1.2\"\r\nencoding=\"F\"?><r><a/></r>", "1.2", "F"},
           {"<?xml-x version=\"9\"?><r><a/></r>", "1.0", "ISO-8859-1"},
           {"<?xml?><r><a/></r>", "1.0", "ISO-8859-1"},
           {"<?xml version=\"2\" encoding=\"x\" version=\"3\" encoding=\"y\"?><r><a/></r>", "3",
            "y"},
           {"<?xml version=\"2\"?><?xml version=\"3\"?><r><a/></r>", "3", "ISO-8859-1"},
           {"<?xml version=\"\"?><r><a/></r>", "1.0", "ISO-8859-1"},
           {"<?xml a b version=\"9\"?><r><a/></r>", "1.0", "ISO-8859-1"},
           {"<?xml version=\"9\"?>", "1.0", "ISO-8859-1"}}) {
    SCOPED_TRACE(declared.text);
    const Ref<Document> document = Imported(declared.text);
    EXPECT_EQ(document->Version(), declared.version);
    EXPECT_EQ(document->Encoding(), declared.encoding);
  }
}

TEST(Reader, LineBreaksInsideTags) {
  Check({
      {"a CR LF pair is a blank", "<r><a\r\nx=\"1\">v</a></r>", "r{a(x=1)=v}", true, true},
      {"in one tag after another", "<r><a\r\nx=\"1\"/><b\r\ny=\"2\"/></r>", "r{a(x=1)=,b(y=2)=}",
       true, true},
      {"a lone line feed is nothing", "<r><a\nx=\"1\">v</a></r>", "r{|ax=\"1\"{}}", true, true},
      {"a lone line feed in a self-closing tag", "<r><a\nx=\"1\"/></r>", "r{ax=\"1\"=}", true,
       true},
      {"a lone carriage return is nothing", "<r><a\r/></r>", "r{a=}", true, true},
      {"a name of carriage returns is empty", "<r><\r>1</></r>", "r{=1}", true, true},
      {"a name of line feeds is empty", "<r><\n\n>1</></r>", "r{=1}", true, true},
      {"CR CR LF is a blank", "<r><a\r\r\nb=\"1\"/></r>", "r{a(b=1)=}", true, true},
      {"a line break before the slash", "<r><a/\n></r>", "r{a=}", true, true},
      {"a line break in a closing tag", "<r><a>1</\na></r>", "r{a=1}", true, true},
      {"a line break before the slash of a closing tag", "<r><a>1<\n/a></r>", "r{a=1}", true, true},
      {"a lone carriage return there", "<r><a>1<\r/a></r>", "r{a=1}", true, true},
      {"a pair there makes it a tag without a name", "<r><a>1<\r\n/a></r>", "r{|a{|(/a=){}}}", true,
       true},
      {"a lone carriage return in a value", "<r><a x=\"1\r2\"/></r>", "r{a(x=12)=}", true, true},
      {"a lone line feed in a value", "<r><a x=\"1\n2\"/></r>", "r{a(x=12)=}", true, true},
      {"a pair at the end of a name", "<r><a\r\n/></r>", "r{a=}", true, true},
      {"a tab is part of a name", "<r><a\tx=\"1\"/></r>", "r{a\\tx=\"1\"=}", true, true},
      {"up to the first blank", "<r><a\tb x='1'/></r>", "r{a\\tb(x=1)=}", true, true},
      {"line breaks in an attribute value", "<r><a x=\"1\r\n2\n3\"/></r>", "r{a(x=1 23)=}", true,
       true},
  });
}

TEST(Reader, Root) {
  Check({
      {"the first element names the root and gives it its attributes",
       "<r a=\"1\" b=\"2\"><f/></r>", "r(a=1;b=2){f=}", true, true},
      {"a second top-level element becomes a child", "<r><a/></r><s><b/></s>", "r{a=|s{b=}}", true,
       true},
      {"a top-level leaf behind the root becomes a field", "<r><a/></r><b>1</b><c/></d>",
       "r{a=,b=1,c=}", true, true},
      {"closing tags too many end nothing", "</x></y><r><a/></r></r></r><b/></z>", "r{a=,b=}", true,
       true},
      {"a root that is a leaf stays a field", "<r></r>", "{r=}", true, true},
      {"with text as well", "<r>1</r>", "{r=1}", true, true},
      {"one self-closing tag alone has no later tag", "<a/>", "{}", true, false},
      {"one start tag alone", "<a>", "{}", true, false},
      {"an element without a name leaves the node to the next one", "< a=\"1\"><r b=\"2\"><f/></r>",
       "r(a=1;b=2){f=}", true, true},
      {"an unnamed child is named by the next element", "<r>< a=\"1\"><x><b/></x></r>",
       "r{|x(a=1){b=}}", true, true},
      {"a leaf without a name", "<r><></></r>", "r{=}", true, true},
      {"and with a blank", "<r>< >1</></r>", "r{=1}", true, true},
      {"the sign behind an empty name ends its tag", "<r><> a=\"1\"></></r>", "r{= a=\"1\">}", true,
       true},
  });
}

TEST(Reader, EndOfText) {
  Check({
      {"the empty text", "", "{}", true, false},
      {"blanks alone are the empty text", "   ", "{}", true, false},
      {"line ends alone are no stray text", "\r\n\t", "{}", true, true},
      {"text without a tag", "junk", "{}", true, false},
      {"stray text behind the root", "<r><a>1</a></r>junk", "r{a=1}", true, false},
      {"line ends and tabs behind the root", "<r><a>1</a></r>\r\n\t\t\r\n", "r{a=1}", true, true},
      {"blanks behind the root", "<r><a>1</a></r>  ", "r{a=1}", true, true},
      {"a blank before the last line end", "<r><a>1</a></r> \r\n", "r{a=1}", true, false},
      {"stray text behind a child's end", "<r><g><a/></g>junk", "r{|g{a=}}", true, false},
      {"text behind the last field is dropped, not stray", "<r><a>1</a>junk", "r{a=1}", true, true},
      {"an element that is never closed", "<r><a/><b>", "r{a=}", true, false},
      {"a tag without its closer", "<r><a/><b x=\"1\"", "r{a=}", true, false},
      {"a closing tag without its closer", "<r><a/></r", "r{a=}", true, false},
      {"it does not close a leaf either", "<r><a>1</a", "r{|a{}}", true, false},
      {"an opening sign alone", "<", "{}", true, false},
      {"an opening sign at the end", "<r><a/></r><", "r{a=}", true, false},
      {"the fault of a child ends the parent", "<r><g><h><a/><b>", "r{|g{|h{a=}}}", true, false},
  });
}

TEST(Reader, Entities) {
  Check({
      {"only the two signs come back", "<r><a>a &lt; b &amp; c &gt;</a></r>",
       "r{a=a < b &amp; c >}", true, true},
      {"a plain > in a value", "<r><a>a > b</a></r>", "r{a=a > b}", true, true},
      {"attributes are not decoded", "<r><a x=\"&lt;\"/></r>", "r{a(x=&lt;)=}", true, true},
      {"the second > in a value is text", "<r><a x=\"1>></a></r>", "r{a(x=)=>}", true, true},
      {"> ends a tag, within quotes too", "<r><a x=\"1>2\"/></r>", "r{|a(x=){}}", true, true},
      {"bytes above 127 stay", "<r><\xE1>\xFF\x80</\xE1></r>", "r{\xE1=\xFF\x80}", true, true},
      {"a NUL stays", std::string("<r><a>x\0y</a></r>", 17), std::string("r{a=x\0y}", 8), true,
       true},
  });
}

TEST(Reader, AttributesOfTags) {
  Check({
      {"quotes of both kinds and none", "<r><f a=\"1\" b='x y' c=3/></r>", "r{f(a=1;b=x y;c=3)=}",
       true, true},
      {"two blanks between attributes", "<r><f a=\"1\"  b=\"2\"/></r>", "r{f(a=1\";b=2)=}", true,
       true},
      {"two blanks behind the name", "<r><f  a=\"1\"/></r>", "r{f(a=1)=}", true, true},
      {"a repeated name is kept twice", "<r><f a=\"1\" a=\"2\"/></r>", "r{f(a=1;a=2)=}", true,
       true},
      {"a first name that is empty leaves none", "<r><f =\"2\" c=\"3\"/></r>", "r{f=}", true, true},
      {"an only name that is empty leaves none", "<r><f =\"2\"/></r>", "r{f=}", true, true},
      {"signs in a name", "<r><f a<b=\"1\" c'd=\"2\" e/f=\"3\" g~h=\"4\"/></r>",
       "r{f(a<b=1;c'd=2;e/f=3;g~h=4)=}", true, true},
      {"signs in a value", "<r><f a=\"<=/'~ x\"/></r>", "r{f(a=<=/'~ x)=}", true, true},
      {"attributes that touch each other", "<r><f a=\"1\"b=\"2\"/></r>", "r{f(a=1\"b=\"2)=}", true,
       true},
      {"empty values", "<r><f a=\"\" b=\"\"/></r>", "r{f(a=;b=)=}", true, true},
      {"a value that ends in a slash", "<r><f a=\"1/\"/></r>", "r{f(a=1/)=}", true, true},
      {"an empty name ends the attributes", "<r><f a=\"1\" =\"2\" c=\"3\"/></r>", "r{f(a=1)=}",
       true, true},
      {"a child's attributes", "<r><g a=\"1\"><f/></g></r>", "r{|g(a=1){f=}}", true, true},
      {"blanks alone are an attribute without a name", "<r><f  /></r>", "r{f(=)=}", true, true},
  });
}

// Only the first name of a tag can hold a blank: later ones begin behind the last blank before
// their "=".
TEST(Reader, ARefusedAttributeNameEndsTheReadingAndWhatWasReadStays) {
  Check({
      {"of a field", "<r><a/><f b c=\"2\"/><d/></r>", "r{a=,f=}", false, false},
      {"of a field, no value at all", "<r><f b c/></r>", "r{f=}", false, false},
      {"with a good one behind it", "<r><f b c=\"2\" d=\"3\"/><g/></r>", "r{f=}", false, false},
      {"of a child", "<r><a/><g b c=\"2\"><d/></g></r>", "r{a=|g{}}", false, false},
      {"of a field, a value without its sign", "<r><f a \"x\"/></r>", "r{f=}", false, false},
      {"of the root", "<r b c=\"2\"><d/></r>", "r{}", false, false},
      {"a blank behind a value goes to the value", "<r><f x=\"1\" b c=\"2\"/></r>",
       "r{f(x=1\" ;c=2)=}", true, true},
  });
}

TEST(Reader, AppendsToWhatIsThere) {
  const Ref<Document> document = Imported("<r><a>1</a></r>");
  EXPECT_TRUE(document->XMLImport("<s><b>2</b></s>"));
  EXPECT_EQ(TreeText(*document), "r{a=1|s{b=2}}");
  EXPECT_TRUE(document->XMLImport("<c>3</c>"));
  EXPECT_EQ(TreeText(*document), "r{a=1,c=3|s{b=2}}");
}

TEST(Reader, CopiesTheCipherHooksAndStopOnLoadErrorOfTheRootDown) {
  const Ref<Document> document = Document::Create();
  document->SetEncodePassword("secret");
  document->SetCryptType(-7);
  document->SetStopOnLoadError(true);
  ASSERT_TRUE(document->XMLImport("<r><g><h><a>1</a></h></g></r>"));
  const Ref<Document> inner = document->SelectSingleNode("g.h");
  EXPECT_EQ(inner->EncodePassword(), "secret");
  EXPECT_EQ(inner->CryptType(), -7);
  EXPECT_TRUE(inner->StopOnLoadError());
  EXPECT_EQ(inner->Fields().Field(0)->EncodePassword(), "secret");
  EXPECT_EQ(inner->Fields().Field(0)->CryptType(), -7);
  EXPECT_EQ(inner->Fields().Field(0)->Value(), "1");
}

TEST(Reader, CopiesEitherCipherHookAlone) {
  for (const bool password : {false, true}) {
    const Ref<Document> document = Document::Create();
    if (password) document->SetEncodePassword("secret");
    if (!password) document->SetCryptType(5);
    ASSERT_TRUE(document->XMLImport("<r><g><a>1</a></g></r>"));
    const Ref<Document> inner = document->SelectSingleNode("g");
    EXPECT_EQ(inner->EncodePassword(), password ? "secret" : "");
    EXPECT_EQ(inner->CryptType(), password ? 0 : 5);
    EXPECT_EQ(inner->Fields().Field(0)->EncodePassword(), password ? "secret" : "");
    EXPECT_EQ(inner->Fields().Field(0)->CryptType(), password ? 0 : 5);
  }
}

}  // namespace
}  // namespace tarvo
