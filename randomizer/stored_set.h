#pragma once

#include <string>

#include "platform/event_log.h"
#include "platform/files.h"
#include "xmldoc/document.h"

namespace tarvo {

/// A child of the randomizer's document tree that is kept in a file of its own: the parameter set
/// or the calendar. Its entries are its fields.
class StoredSet {
 public:
  /// `root` is the tree, `name` that of the child, `path` that of the file. All references outlive
  /// the set.
  StoredSet(Document& root, std::string name, std::string path, FileReader& reader,
            FileReplacer& replacer, EventLog& log);

  /// Makes the child of what the file holds, up to its first fault; of nothing, when it is missing
  /// or cannot be read. The event log is told of the last two.
  void Load();

  /// Whether the child holds all that was on the disk. A missing file counts; one that is there and
  /// cannot be read, has a fault or is cut off does not, and neither does one that nobody has tried
  /// to load.
  bool Loaded() const { return loaded_; }

  /// The fields of the child; an empty list that belongs to nothing while there is no child.
  Ref<Document> Child() const { return root_.Childs().Child(name_); }

  /// Replaces the file by the child; the event log is told of a fault. Call it with a loaded set
  /// only, for otherwise what is on the disk is lost.
  void Save();

  const std::string& Path() const { return path_; }

 private:
  bool IsWhole(const std::string& text) const;

  Document& root_;
  const std::string name_;
  const std::string path_;
  FileReader& reader_;
  FileReplacer& replacer_;
  EventLog& log_;
  bool loaded_ = false;
};

}  // namespace tarvo
