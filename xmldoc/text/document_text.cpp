// The tree to and from text in memory.
#include <cstdint>
#include <exception>
#include <limits>

#include "support/append_string.h"
#include "xmldoc/document.h"
#include "xmldoc/document_rare.h"
#include "xmldoc/text/attribute_scanner.h"
#include "xmldoc/text/tree_writer.h"
#include "xmldoc/text/xml_reader.h"

namespace tarvo {
namespace {

// Below this, no text of a node can outgrow its 32-bit lengths, however it is escaped.
constexpr std::size_t kTooLong = std::size_t{1} << 30;

// A node at depth d is indented by d tabs, so the text of 200,000 levels has 40 GB. Trees of more
// than so many levels are measured before any such text is put together.
constexpr std::size_t kFewLevels = 1000;

void AddDeclaration(AppendString& text, const Document& root) {
  text.AddPieces("<?xml version=\"", root.Version(), "\" encoding=\"", root.Encoding(),
                 "\" application=\"Tarvo Launcher\"?>\r\n");
}

void RefuseEndlessText(Document& root) {
  TextMeasure measure;
  TreeWriter(measure).Write(root);
  if (measure.Bytes() > std::numeric_limits<std::int32_t>::max()) {
    throw RuntimeError(Fault::Overflow);
  }
}

}  // namespace

bool Document::ReadText(std::string_view text, TextEnd& end) {
  if (text.size() >= kTooLong) return false;
  try {
    if (text.size() > AppendString::kStepCharacters) RareValues().textLength = text.size();
    XmlReader reader(Changed(*this), text);
    const bool result = reader.Read();
    end = reader.End();
    return result;
  } catch (const RuntimeError&) {
    return false;  // a name that a setter refuses: bad input like any other
  }
}

bool Document::XMLImport(std::string_view text, TextEnd& end) {
  end = TextEnd::CutOff;
  // The result is the only report of bad input, so nothing may escape, not even a lack of memory.
  try {
    return ReadText(text, end);
  } catch (const std::exception&) {
    return false;
  }
}

void Document::GetNextParameter(std::string_view& attributes, std::string& name,
                                std::string& value) {
  std::string_view nameView;
  std::string_view valueView;
  TakeAttribute(attributes, nameView, valueView);
  name = nameView;
  value = valueView;
}

void Document::GetNextParameter(std::string& attributes, std::string& name, std::string& value) {
  std::string_view rest = attributes;
  GetNextParameter(rest, name, value);
  attributes.erase(0, attributes.size() - rest.size());
}

std::string Document::XMLExport() {
  if (name_.Empty()) SetName("xml");
  if (fields_.Count() == 0 && childs_.Count() == 0) {
    AppendString bare;
    TreeWriter(bare).Write(*this);
    std::string text = bare.TakeString();
    return text == "<xml/>\r\n" ? std::string() : text;
  }
  AppendString text;
  if (rare_ != nullptr && rare_->textLength > 0) {
    text.Expect(rare_->textLength + AppendString::kStepCharacters);
  }
  AddDeclaration(text, *this);
  if (TreeWriter(text).Write(*this, kFewLevels)) return text.TakeString();
  RefuseEndlessText(*this);
  text = AppendString();
  AddDeclaration(text, *this);
  TreeWriter(text).Write(*this);
  return text.TakeString();
}

}  // namespace tarvo
