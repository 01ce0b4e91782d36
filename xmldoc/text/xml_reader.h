#pragma once

#include <string>
#include <string_view>

#include "xmldoc/document.h"
#include "xmldoc/nodes/packed_attributes.h"
#include "xmldoc/text/node_maker.h"

namespace tarvo {

/// Reads one text into a document: a scanner that looks for "<" and ">" and one tag ahead. It keeps
/// a position in the text and the open node, so time is in proportion to the text, whatever its
/// depth. See docs/xml-library.md for the dialect and Document::XMLImport for the result.
class XmlReader {
 public:
  /// Both have to outlive the reader. The text is shorter than 1 GiB.
  XmlReader(Document& root, std::string_view text);
  ~XmlReader();
  XmlReader(const XmlReader&) = delete;
  XmlReader& operator=(const XmlReader&) = delete;

  /// To be called once. Raises RuntimeError for a name that the root refuses, and std::bad_alloc;
  /// what was read before is in the tree.
  bool Read();
  /// How the text ended, when it has been read.
  TextEnd End() const;

 private:
  enum class Step { Next, EndOfText, Fault };
  /// What the end of the text holds that did not come into the tree.
  enum class Rest { Nothing, Words, Element };

  struct Tag {
    std::string_view name;        ///< From after "<" to the first blank, or to ">".
    std::string_view attributes;  ///< After the first blank, without ">" and a "/" before it.
    bool hasBlank = false;        ///< Whether there was one.
    bool packed = false;          ///< The attributes are in packer_ already.
    bool closesItself = false;    ///< Ends in "/>".
    const char* end = nullptr;    ///< After the closer in the text.
  };

  inline Step ReadTag();
  /// Scans a tag as the writer writes them, which most are: its attributes are in packer_ then.
  /// False for any other tag, sound or not.
  inline bool ScanPlainTag(const char* open, Tag& tag);
  /// False when the tag has no closer. The parts of `tag` are in the text, or in `repaired` when
  /// the tag has line breaks.
  bool ScanTag(const char* open, Tag& tag, std::string& repaired) const;
  bool ScanComment(const char* open, Tag& tag) const;
  /// The end of the closing tag at `next` when that bears this name, else nothing.
  inline const char* EndOfClosing(std::string_view name, const char* next);
  /// The text ends with what begins at `words` and holds no tag.
  Step EndAtWords(const char* words);
  /// It ends with what does not come into the tree.
  Step EndAt(Rest rest);
  /// It ends with a tag that no other follows.
  Step EndAtLastTag(const Tag& tag);

  /// Whatever the name of the closing tag at `open`.
  inline Step CloseNode(const char* open);
  Step ReadDeclaration(const Tag& tag, const char* next);
  inline Step ReadLeaf(const Tag& tag, const char* next, const char* closingEnd);
  inline Step ReadElement(const Tag& tag, const char* next);
  /// Gives the node being filled its name and attributes. Raises what the setters raise.
  Step NameNode(const Tag& tag);
  /// Gathers the attributes in packer_. False at a name that the setter refuses; those before it
  /// stay.
  bool ReadAttributes(const Tag& tag);
  std::string_view KeptForm(std::string_view value);
  template <typename Node>
  void SetCipher(Node& node) const {
    node.SetEncodePassword(encodePassword_);
    node.SetCryptType(cryptType_);
  }

  Document& root_;
  Document* node_;    // the one being filled
  Document* around_;  // its parent, see NodeMaker::Enter; the root's is the root
  const char* at_;
  const char* end_;
  NodeMaker maker_;
  AttributePacker packer_;
  std::string repairedTag_;
  std::string repairedNext_;
  std::string escapedValue_;
  const std::string encodePassword_;
  const std::int32_t cryptType_;
  const bool hasCipher_;
  const bool tolerant_;
  const int fieldsBefore_;
  const int childsBefore_;
  std::size_t openElements_ = 0;  // start tags without their closing tag
  bool rootClosed_ = false;
  Rest rest_ = Rest::Nothing;
};

}  // namespace tarvo
