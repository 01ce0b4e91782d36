#pragma once

#include <functional>
#include <string>

#include "core/status_log.h"
#include "platform/event_log.h"
#include "platform/files.h"
#include "xmldoc/document.h"

namespace tarvo {

/// A child of the randomizer's document tree that is kept in a file of its own: the parameter set
/// or the calendar. Its entries are its fields.
///
/// The file is good when its root is closed, whatever follows that, and when there is none or
/// nothing in it. Any other one (it cannot be read, has a fault or is cut off) may hold entries
/// that nobody has seen, and is never written over.
class StoredSet {
 public:
  /// `root` is the tree, `name` that of the child, `path` that of the file. All references outlive
  /// the set.
  StoredSet(Document& root, std::string name, std::string path, FileReader& reader,
            FileReplacer& replacer, EventLog& log);

  /// Makes the child of what the file holds, up to its first fault; of nothing, when it is missing
  /// or cannot be read. The event log is told of the last two.
  void Load();

  /// To be asked before each change: whether the set may be changed and saved. Without a good file
  /// so far, it is read once more: a good one takes the place of the child, and `show` is called. A
  /// file that is gone by now leaves nothing to lose, so the child is kept as it is shown. Any
  /// other one is told in the status log, and nothing changes.
  bool ReadyForChange(StatusLog& statusLog, const std::function<void()>& show);

  /// The fields of the child; an empty list that belongs to nothing while there is no child.
  Ref<Document> Child() const { return root_.Childs().Child(name_); }

  /// Replaces the file by the child; the event log is told of a fault. Only when ready for a
  /// change.
  void Save();

 private:
  enum class Found { Good, Gone, Bad };

  Found Read(Document& child);
  void Place(Ref<Document> child);

  Document& root_;
  const std::string name_;
  const std::string path_;
  FileReader& reader_;
  FileReplacer& replacer_;
  EventLog& log_;
  bool ready_ = false;
};

}  // namespace tarvo
