#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/event_log.h"
#include "platform/files.h"
#include "platform/url_fetch.h"
#include "support/runtime_error.h"
#include "xmldoc/documents.h"
#include "xmldoc/fields.h"
#include "xmldoc/nodes/counted_node.h"
#include "xmldoc/parameters.h"

namespace tarvo {

struct TemplatePorts;

/// How a text ended that was read into an empty node.
enum class TextEnd {
  Whole,   ///< Its root was closed, whatever follows it; or there was nothing but remarks.
  CutOff,  ///< Elements were open at its end, or there was something, and no root.
};

/// A node of a document tree: a name, attributes, fields (leaf elements) and child nodes. The root
/// of a tree is a node like any other, and knows how to read and write the whole of it.
///
/// Nodes are made by Create or by the lists, and shared by Ref. Nothing points from a child to its
/// parent. No operation needs stack in proportion to the depth of a tree. A tree belongs to one
/// thread at a time. Unless a call says otherwise it raises nothing but std::bad_alloc.
///
/// The calls that reach outside take the ports that they use; nothing is kept of them.
class Document : public CountedNode<Document> {
 public:
  std::string Name() const { return std::string(name_.View()); }
  /// Trims blanks at both ends. Raises RuntimeError 10007 ("xDocument.Name", "Spaces found in
  /// name") when a blank is left, and keeps the old name then.
  void SetName(std::string_view name);
  /// The name in place, valid until it is set or the node is destroyed.
  std::string_view NameView() const { return name_.View(); }

  /// What the declaration line says of the document; "1.0" and "ISO-8859-1" while nothing is
  /// stored.
  std::string Version() const;
  void SetVersion(std::string_view version);
  std::string Encoding() const;
  void SetEncoding(std::string_view encoding);

  /// Stored, and copied by the reader; nothing is encrypted.
  std::string EncodePassword() const;
  void SetEncodePassword(std::string_view password);
  std::int32_t CryptType() const;
  void SetCryptType(std::int32_t type);

  /// Whether the reader reports stray text and elements that are never closed. A change goes down
  /// to the children, from each that changes by it to its own; setting the value it has does
  /// nothing.
  bool StopOnLoadError() const { return header_.stopOnLoadError != 0; }
  void SetStopOnLoadError(bool stop);

  /// True only while this node is being written.
  bool Busy() const { return header_.busy != 0; }

  tarvo::Parameters& Parameters() { return Changed(parameters_); }
  const tarvo::Parameters& Parameters() const { return parameters_; }
  tarvo::Fields& Fields() { return fields_; }
  Documents& Childs() { return childs_; }

  /// Orders the children by name, byte for byte, ascending for true, descending for false. Children
  /// of equal names stay in order.
  void Sort(bool ascending) { childs_.Sort(ascending); }

  /// Walks down from this node along keys separated by "." (see node_key.h), at each
  /// step to the child that the key names, and returns the node reached: this one for the empty
  /// path, a fresh empty document when a step finds nothing.
  Ref<Document> SelectSingleNode(std::string_view path);

  /// Adds what `text` holds to this node; see docs/xml-library.md for the dialect. Nothing is
  /// cleared before, and what was read before a fault stays. Raises nothing. False for an attribute
  /// name with a blank in it, for a text of 1 GiB and more, and, while StopOnLoadError is set, for
  /// an empty text, stray text after the last tag and an element that is never closed.
  bool XMLImport(std::string_view text) {
    TextEnd end;
    return XMLImport(text, end);
  }
  /// The same, and reports whether the text was cut off, which a tolerant import accepts. `end` is
  /// CutOff as well when the reading stopped at a fault.
  bool XMLImport(std::string_view text, TextEnd& end);

  /// XMLImport of the file's text. A missing file writes "File not found: " and the name to the
  /// event log, one that cannot be read, or for which memory runs out, "I/O error: " and the name;
  /// both give false. Raises nothing.
  bool XMLImportFile(const std::string& fileName, FileReader& files, EventLog& log) {
    TextEnd end;
    return XMLImportFile(fileName, files, log, end);
  }
  /// The same, and reports whether the text was cut off; `end` is CutOff when there was no text.
  bool XMLImportFile(const std::string& fileName, FileReader& files, EventLog& log, TextEnd& end);

  /// XMLImport of what `url` names, which `url` holds afterwards. `protocol`: 0 HTTP, 1 or -1
  /// HTTPS. `requestTimeout` in seconds. A fetch that fails, or for which memory runs out, writes
  /// "I/O error: " and the URL, without credentials, to the event log and gives false; `url` is
  /// left as it was unless the text was there. Raises nothing.
  bool XMLImportHTM(std::string& url, std::int16_t protocol, const std::string& userName,
                    const std::string& password, const std::string& proxy,
                    std::int32_t requestTimeout, UrlFetch& fetch, EventLog& log);

  /// Takes the first attribute off `attributes`; `name` is empty when none is left. The name is not
  /// trimmed, the value loses its quotes. Without any "=" the whole text is the name. Each call
  /// moves the rest of the text to its front: for long attribute texts, such as the reader may
  /// meet, take the other form.
  static void GetNextParameter(std::string& attributes, std::string& name, std::string& value);
  /// The same on a view, which is moved forward: for long attribute texts, as nothing is copied.
  static void GetNextParameter(std::string_view& attributes, std::string& name, std::string& value);

  /// The text of this node and all below it. Names an unnamed root "xml". A node is left out
  /// within itself. Raises RuntimeError "Overflow" for a text of 2 GiB and more.
  std::string XMLExport();

  /// StringtoFile of XMLExport, whose fault counts as one of writing. Raises nothing.
  bool XMLExportFile(const std::string& fileName, FileReplacer& files, EventLog& log);

  /// Makes the file hold `text`, replacing it whole. A fault leaves the file as it was, writes
  /// "Error en función StringtoFile" (in Unicode) to the event log and gives false. Raises nothing.
  static bool StringtoFile(const std::string& text, const std::string& fileName,
                           FileReplacer& files, EventLog& log);

  /// Fills a template from `document`, or from this node when none is given, and returns the text.
  /// docs/templates.md describes what a template may hold and what it raises. Without ports the
  /// directives that need one produce an empty text. The ports have to last for the call.
  std::string HTMLExport(std::string_view templateText, Document* document = nullptr);
  std::string HTMLExport(std::string_view templateText, Document* document,
                         const TemplatePorts& ports);

  /// The children for which a condition holds (see condition.h), in order; the list shares the
  /// nodes with this one. The empty condition holds for all. Raises what Condition raises.
  Documents GetChilds(std::string_view condition) const;
  /// The first of them; a fresh empty document when there is none.
  Ref<Document> SearchChild(std::string_view condition) const;

 private:
  friend class CountedNode<Document>;
  friend class NodeMaker;  // puts a node and its texts into one block of memory
  friend class BusyMark;   // the one way to set Busy

  /// What most nodes leave empty.
  struct Rare;

  Document() = default;
  ~Document() = default;
  void Die();
  void FreeWholeImport();
  Rare& RareValues();
  /// XMLImport that raises, when memory runs out, what the standard library raises.
  bool ReadText(std::string_view text, TextEnd& end);

  CompactText name_;
  tarvo::Parameters parameters_;
  tarvo::Fields fields_;
  Documents childs_;
  union {
    Rare* rare_ = nullptr;  // may be none
    Document* nextDying_;   // once the last reference has been dropped
  };
};

/// Makes the file at `fileName` hold `text`. An existing file is replaced only when `overwrite` is
/// set; otherwise "StringToFile: File already exists (" and the name and ")" goes to the event log
/// and the result is false. A fault leaves the file as it was, writes "StringToFile: Error " with
/// its number and description to the event log and gives false; memory that runs out is one, of
/// number 7. Raises nothing.
bool StringToFile(const std::string& fileName, const std::string& text, bool overwrite,
                  FileReader& reader, FileReplacer& replacer, EventLog& log);

}  // namespace tarvo
