#include "xmldoc/text/xml_reader.h"

#include <algorithm>
#include <cstring>

#include "xmldoc/rules/text_rules.h"
#include "xmldoc/text/attribute_scanner.h"

namespace tarvo {
namespace {

#ifdef TARVO_NODES_APART
constexpr std::size_t kNodeBytesForTextByte = 0;
#else
constexpr std::size_t kNodeBytesForTextByte = 3;
#endif

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

bool IsDeclarationOrComment(std::string_view name) {
  return !name.empty() && (name.front() == '?' || name.front() == '!');
}

bool IsBlankOrLineEnd(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

bool IsClosing(std::string_view name) { return !name.empty() && name.front() == '/'; }

}  // namespace

XmlReader::XmlReader(Document& root, std::string_view text)
    : root_(root),
      node_(&root),
      maker_(text.size() * kNodeBytesForTextByte),
      encodePassword_(root.EncodePassword()),
      cryptType_(root.CryptType()),
      hasCipher_(cryptType_ != 0 || !encodePassword_.empty()),
      tolerant_(!root.StopOnLoadError()),
      fieldsBefore_(root.Fields().Count()) {
  text = WithoutOuterBlanks(text);
  at_ = text.data();
  end_ = at_ + text.size();
}

bool XmlReader::Read() {
  if (at_ == end_) return tolerant_;
  Step step = Step::Next;
  while (step == Step::Next) step = ReadTag();
  if (step == Step::Fault && rest_ == Rest::Nothing) rest_ = Rest::Element;
  return step == Step::EndOfText;
}

TextEnd XmlReader::End() const {
  const bool hasFields = root_.Fields().Count() > fieldsBefore_;
  const bool wordsAlone = rest_ == Rest::Words && !hasFields;
  const bool rootless = !rootClosed_ && (rest_ == Rest::Element || wordsAlone);
  return openElements_ > 0 || rootless ? TextEnd::CutOff : TextEnd::Whole;
}

const char* XmlReader::FindOpen(const char* from) const { return Find(from, end_, '<'); }

XmlReader::Step XmlReader::ReadTag() {
  const char* open = FindOpen(at_);
  if (open == nullptr) return OnlyLineEndsLeft() ? Step::EndOfText : EndAtWords(at_);
  if (Between(open + 1, end_).starts_with('/')) return CloseNode(open);
  Tag tag;
  if (!ScanPlainTag(open, tag) && !ScanTag(open, tag, repairedTag_)) return EndAtElement();
  if (IsClosing(tag.name)) return CloseNode(open);
  const char* next = FindOpen(tag.end);
  if (next == nullptr) return EndAtLastTag(tag);
  if (IsDeclarationOrComment(tag.name)) return ReadDeclaration(tag, next);
  const char* closingEnd = tag.closesItself ? tag.end : EndOfClosing(tag.name, next);
  return closingEnd != nullptr ? ReadLeaf(tag, next, closingEnd) : ReadElement(tag, next);
}

bool XmlReader::OnlyLineEndsLeft() const {
  return std::all_of(at_, end_, [](char c) { return c == '\r' || c == '\n' || c == '\t'; });
}

XmlReader::Step XmlReader::EndAtWords(const char* words) {
  if (!std::all_of(words, end_, IsBlankOrLineEnd)) rest_ = Rest::Words;
  return tolerant_ ? Step::EndOfText : Step::Fault;
}

XmlReader::Step XmlReader::EndAtElement() {
  rest_ = Rest::Element;
  return tolerant_ ? Step::EndOfText : Step::Fault;
}

XmlReader::Step XmlReader::EndAtLastTag(const Tag& tag) {
  if (IsDeclarationOrComment(tag.name)) return EndAtWords(tag.end);
  const bool rootWithoutContent =
      tag.closesItself && openElements_ == 0 && root_.Fields().Count() == fieldsBefore_;
  rootClosed_ = rootClosed_ || rootWithoutContent;
  return EndAtElement();
}

bool XmlReader::ScanPlainTag(const char* open, Tag& tag) {
  const char* name = open + 1;
  if (name == end_ || *name == '!') return false;
  const char* at = name;
  while (at != end_ && *at != ' ' && *at != '>' && *at != '\r' && *at != '\n') ++at;
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
  const char* blank = nullptr;
  const char* at = open + 1;
  bool broken = false;
  for (; at != end_ && *at != '>'; ++at) {
    if (*at == ' ') {
      if (blank == nullptr) blank = at;
    } else if (*at == '\r' || *at == '\n') {
      broken = true;
    }
  }
  if (at == end_) return false;
  tag.end = at + 1;
  std::string_view inner = Between(open + 1, at);
  if (broken) {
    RepairLineBreaks(inner, repaired);
    inner = repaired;
    const auto found = inner.find(' ');
    blank = found == std::string_view::npos ? nullptr : inner.data() + found;
  }
  tag.closesItself = !inner.empty() && inner.back() == '/';
  const char* innerEnd = inner.data() + inner.size();
  tag.name = Between(inner.data(), blank == nullptr ? innerEnd : blank);
  if (blank != nullptr) {
    tag.hasBlank = true;
    tag.attributes = Between(blank + 1, innerEnd);
    DropLast(tag.attributes, '/');
  }
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
  if (!ScanTag(next, closing, repairedNext_) || !IsClosing(closing.name)) return nullptr;
  return closing.name.substr(1) == name ? closing.end : nullptr;
}

XmlReader::Step XmlReader::CloseNode(const char* open) {
  const char* end = Find(open, end_, '>');
  if (end == nullptr) return EndAtElement();
  at_ = end + 1;
  if (openElements_ > 0 && --openElements_ == 0) rootClosed_ = true;
  if (!open_.empty()) {
    node_ = open_.back();
    open_.pop_back();
  }
  return Step::Next;
}

XmlReader::Step XmlReader::ReadDeclaration(const Tag& tag, const char* next) {
  at_ = next;
  if (!IsKeyword(tag.name, "?xml")) return Step::Next;
  std::string_view rest = tag.attributes;
  DropLast(rest, '?');
  for (;;) {
    std::string_view name;
    std::string_view value;
    TakeAttribute(rest, name, value);
    if (name.empty()) return Step::Next;
    if (IsKeyword(name, "version")) root_.SetVersion(value);
    if (IsKeyword(name, "encoding")) root_.SetEncoding(value);
  }
}

bool XmlReader::ReadAttributes(const Tag& tag) {
  if (tag.packed) return true;
  packer_.Clear();
  std::string_view attributes = tag.attributes;
  if (attributes.empty()) return true;
  packer_.Reserve(attributes.size());
  for (;;) {
    std::string_view name;
    std::string_view value;
    TakeAttribute(attributes, name, value);
    if (name.empty()) return true;
    name = WithoutOuterBlanks(name);
    if (name.find(' ') != std::string_view::npos) return false;
    packer_.Add(name, value);
  }
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
    next = FindOpen(closingEnd);
  }
  const bool accepted = ReadAttributes(tag);
  Ref<Field> field = maker_.MakeField(name, value, packer_);
  if (hasCipher_) {
    field->SetEncodePassword(encodePassword_);
    field->SetCryptType(cryptType_);
  }
  node_->Fields().Append(std::move(field));
  at_ = next == nullptr ? end_ : next;
  return accepted ? Step::Next : Step::Fault;
}

XmlReader::Step XmlReader::ReadElement(const Tag& tag, const char* next) {
  at_ = next;
  ++openElements_;
  if (node_->NameView().empty()) return NameNode(tag);
  const bool accepted = ReadAttributes(tag);
  Ref<Document> child = maker_.MakeDocument(tag.name, packer_);
  if (hasCipher_) {
    child->SetEncodePassword(encodePassword_);
    child->SetCryptType(cryptType_);
  }
  if (!tolerant_) child->SetStopOnLoadError(true);
  open_.push_back(node_);
  Document* filled = child.get();
  node_->Childs().Append(std::move(child));
  node_ = filled;
  return accepted ? Step::Next : Step::Fault;
}

XmlReader::Step XmlReader::NameNode(const Tag& tag) {
  node_->SetName(tag.name);
  std::string_view rest = tag.attributes;
  for (;;) {
    std::string_view name;
    std::string_view value;
    TakeAttribute(rest, name, value);
    if (name.empty()) return Step::Next;
    node_->Parameters().AddParameter(name, value);
  }
}

}  // namespace tarvo
