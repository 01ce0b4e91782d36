#include "xmldoc/text/xml_reader.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "xmldoc/rules/text_rules.h"
#include "xmldoc/text/attribute_scanner.h"

namespace tarvo {
namespace {

/// About how many bytes the nodes of a text take: two for a byte, in small ones perhaps four.
std::size_t NodeBytes([[maybe_unused]] std::size_t textBytes) {
#ifdef TARVO_NODES_APART
  return 0;
#else
  return textBytes * 2 + std::min(textBytes * 2, std::size_t{4096});
#endif
}

constexpr std::array<bool, 256> kEndsTagName = [] {
  std::array<bool, 256> ends{};
  for (const char c : {' ', '>', '\r', '\n'}) ends[static_cast<unsigned char>(c)] = true;
  return ends;
}();

/// Most signs are near: only beyond the first few bytes does a search in blocks pay.
const char* Find(const char* from, const char* end, char wanted) {
  for (int near = 16; near > 0 && from != end; --near, ++from) {
    if (*from == wanted) return from;
  }
  if (from == end) return nullptr;
  return static_cast<const char*>(std::memchr(from, wanted, static_cast<std::size_t>(end - from)));
}

std::string_view Between(const char* begin, const char* end) {
  return {begin, static_cast<std::size_t>(end - begin)};
}

/// Every CR LF pair as one blank, every other CR and LF removed.
void RepairLineBreaks(std::string_view tag, std::string& repaired) {
  repaired.clear();
  for (std::size_t i = 0; i < tag.size(); ++i) {
    if (tag[i] == '\r' && i + 1 < tag.size() && tag[i + 1] == '\n') {
      repaired += ' ';
      ++i;
    } else if (tag[i] != '\r' && tag[i] != '\n') {
      repaired += tag[i];
    }
  }
}

/// Drops the last character when it is this one.
void DropLast(std::string_view& text, char last) {
  if (!text.empty() && text.back() == last) text.remove_suffix(1);
}

template <typename Take>
void ForEachAttribute(std::string_view text, Take take) {
  for (std::string_view name, value; TakeAttribute(text, name, value), !name.empty();) {
    take(name, value);
  }
}

bool IsDeclarationOrComment(std::string_view name) {
  return !name.empty() && (name.front() == '?' || name.front() == '!');
}

bool HasOnly(std::string_view signs, std::string_view text) {
  return text.find_first_not_of(signs) == std::string_view::npos;
}

}  // namespace

XmlReader::XmlReader(Document& root, std::string_view text)
    : root_(root),
      node_(&root),
      around_(&root),
      maker_(NodeBytes(text.size())),
      encodePassword_(root.EncodePassword()),
      cryptType_(root.CryptType()),
      hasCipher_(cryptType_ != 0 || !encodePassword_.empty()),
      tolerant_(!root.StopOnLoadError()),
      fieldsBefore_(root.Fields().Count()),
      childsBefore_(root.Childs().Count()) {
  text = WithoutOuterBlanks(text);
  at_ = text.data();
  end_ = at_ + text.size();
}

XmlReader::~XmlReader() {
  while (node_ != &root_) NodeMaker::Leave(node_, around_);
}

bool XmlReader::Read() {
  if (at_ == end_) return tolerant_;
  Step step = Step::Next;
  while (step == Step::Next) step = ReadTag();
  if (step == Step::Fault && rest_ == Rest::Nothing) rest_ = Rest::Element;
  const int tops = root_.Fields().Count() + root_.Childs().Count() - fieldsBefore_ - childsBefore_;
  maker_.Pool().Finish(static_cast<std::size_t>(tops));
  return step == Step::EndOfText;
}

TextEnd XmlReader::End() const {
  const bool hasFields = root_.Fields().Count() > fieldsBefore_;
  const bool wordsAlone = rest_ == Rest::Words && !hasFields;
  const bool rootless = !rootClosed_ && (rest_ == Rest::Element || wordsAlone);
  return openElements_ > 0 || rootless ? TextEnd::CutOff : TextEnd::Whole;
}

XmlReader::Step XmlReader::ReadTag() {
  const char* open = Find(at_, end_, '<');
  if (open == nullptr)
    return HasOnly("\r\n\t", Between(at_, end_)) ? Step::EndOfText : EndAtWords(at_);
  if (Between(open + 1, end_).starts_with('/')) return CloseNode(open);
  Tag tag;
  if (!ScanPlainTag(open, tag) && !ScanTag(open, tag, repairedTag_)) return EndAt(Rest::Element);
  if (tag.name.starts_with('/')) return CloseNode(open);
  const char* next = Find(tag.end, end_, '<');
  if (next == nullptr) return EndAtLastTag(tag);
  if (IsDeclarationOrComment(tag.name)) return ReadDeclaration(tag, next);
  const char* closingEnd = tag.closesItself ? tag.end : EndOfClosing(tag.name, next);
  return closingEnd != nullptr ? ReadLeaf(tag, next, closingEnd) : ReadElement(tag, next);
}

XmlReader::Step XmlReader::EndAt(Rest rest) {
  rest_ = rest;
  return tolerant_ ? Step::EndOfText : Step::Fault;
}

XmlReader::Step XmlReader::EndAtWords(const char* words) {
  return EndAt(HasOnly(" \t\r\n", Between(words, end_)) ? rest_ : Rest::Words);
}

XmlReader::Step XmlReader::EndAtLastTag(const Tag& tag) {
  if (IsDeclarationOrComment(tag.name)) return EndAtWords(tag.end);
  const bool rootWithoutContent =
      tag.closesItself && openElements_ == 0 && root_.Fields().Count() == fieldsBefore_;
  rootClosed_ = rootClosed_ || rootWithoutContent;
  return EndAt(Rest::Element);
}

bool XmlReader::ScanPlainTag(const char* open, Tag& tag) {
  const char* name = open + 1;
  if (name == end_ || *name == '!') return false;
  const char* at = name;
  while (at != end_ && !kEndsTagName[static_cast<unsigned char>(*at)]) ++at;
  const char* nameEnd = at;
  const char* attributesEnd = packer_.TakeWritten(at, end_);
  at = attributesEnd;
  const bool slash = at != nameEnd && at != end_ && *at == '/';
  if (slash) ++at;
  if (at == end_ || *at != '>') return false;
  tag.name = Between(name, nameEnd);
  tag.packed = true;
  tag.hasBlank = attributesEnd != nameEnd;
  if (tag.hasBlank) tag.attributes = Between(nameEnd + 1, attributesEnd);
  tag.closesItself = slash || (nameEnd == at && nameEnd[-1] == '/');
  tag.end = at + 1;
  return true;
}

bool XmlReader::ScanTag(const char* open, Tag& tag, std::string& repaired) const {
  if (Between(open + 1, end_).starts_with("!--")) return ScanComment(open, tag);
  const char* close = Find(open, end_, '>');
  if (close == nullptr) return false;
  tag.end = close + 1;
  std::string_view inner = Between(open + 1, close);
  if (inner.find_first_of("\r\n") != std::string_view::npos) {
    RepairLineBreaks(inner, repaired);
    inner = repaired;
  }
  tag.closesItself = inner.ends_with('/');
  tag.name = inner.substr(0, inner.find(' '));
  tag.hasBlank = tag.name.size() < inner.size();
  if (!tag.hasBlank) return true;
  tag.attributes = inner.substr(tag.name.size() + 1);
  DropLast(tag.attributes, '/');
  return true;
}

bool XmlReader::ScanComment(const char* open, Tag& tag) const {
  constexpr std::string_view kCloser = "-->";
  const auto closer = Between(open, end_).find(kCloser);
  if (closer == std::string_view::npos) return false;
  tag.name = Between(open + 1, open + 4);
  tag.end = open + closer + kCloser.size();
  return true;
}

const char* XmlReader::EndOfClosing(std::string_view name, const char* next) {
  const std::string_view ahead = Between(next + 1, end_);
  if (ahead.starts_with('/') && ahead.substr(1).starts_with(name) &&
      ahead.substr(1 + name.size()).starts_with('>')) {
    return ahead.data() + name.size() + 2;
  }
  // Another name, or one that a line break in the tag hides.
  if (ahead.empty() || (ahead[0] != '/' && ahead[0] != '\r' && ahead[0] != '\n')) return nullptr;
  Tag closing;
  if (!ScanTag(next, closing, repairedNext_) || !closing.name.starts_with('/')) return nullptr;
  return closing.name.substr(1) == name ? closing.end : nullptr;
}

XmlReader::Step XmlReader::CloseNode(const char* open) {
  const char* end = Find(open, end_, '>');
  if (end == nullptr) return EndAt(Rest::Element);
  at_ = end + 1;
  if (openElements_ > 0 && --openElements_ == 0) rootClosed_ = true;
  if (node_ != &root_) NodeMaker::Leave(node_, around_);
  return Step::Next;
}

XmlReader::Step XmlReader::ReadDeclaration(const Tag& tag, const char* next) {
  at_ = next;
  if (!IsKeyword(tag.name, "?xml")) return Step::Next;
  std::string_view rest = tag.attributes;
  DropLast(rest, '?');
  ForEachAttribute(rest, [this](std::string_view name, std::string_view value) {
    if (IsKeyword(name, "version")) root_.SetVersion(value);
    if (IsKeyword(name, "encoding")) root_.SetEncoding(value);
  });
  return Step::Next;
}

bool XmlReader::ReadAttributes(const Tag& tag) {
  if (tag.packed) return true;
  packer_.Clear();
  bool accepted = true;
  ForEachAttribute(tag.attributes, [&](std::string_view name, std::string_view value) {
    name = WithoutOuterBlanks(name);
    accepted = accepted && name.find(' ') == std::string_view::npos;
    if (accepted) packer_.Add(name, value);
  });
  return accepted;
}

std::string_view XmlReader::KeptForm(std::string_view value) {
  if (value.find('>') == std::string_view::npos) return value;
  escapedValue_ = Escaped(value);
  return escapedValue_;
}

XmlReader::Step XmlReader::ReadLeaf(const Tag& tag, const char* next, const char* closingEnd) {
  std::string_view name = tag.name;
  std::string_view value;
  if (tag.closesItself) {
    if (!tag.hasBlank) DropLast(name, '/');
  } else {
    value = KeptForm(Between(tag.end, next));
    next = Find(closingEnd, end_, '<');
  }
  const bool accepted = ReadAttributes(tag);
  Field& field = maker_.AddField(*node_, name, value, packer_);
  if (hasCipher_) SetCipher(field);
  at_ = next == nullptr ? end_ : next;
  return accepted ? Step::Next : Step::Fault;
}

XmlReader::Step XmlReader::ReadElement(const Tag& tag, const char* next) {
  at_ = next;
  ++openElements_;
  if (node_->NameView().empty()) return NameNode(tag);
  const bool accepted = ReadAttributes(tag);
  Document& child = maker_.AddChild(*node_, tag.name, packer_);
  if (hasCipher_) SetCipher(child);
  if (!tolerant_) child.SetStopOnLoadError(true);
  NodeMaker::Enter(node_, around_);
  return accepted ? Step::Next : Step::Fault;
}

XmlReader::Step XmlReader::NameNode(const Tag& tag) {
  node_->SetName(tag.name);
  ForEachAttribute(tag.attributes, [this](std::string_view name, std::string_view value) {
    node_->Parameters().AddParameter(name, value);
  });
  return Step::Next;
}

}  // namespace tarvo
