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
/// The file is good when its root is closed, whatever follows that, and when it is missing or
/// empty. Any other one (it cannot be read, has a fault or is cut off) may hold entries that nobody
/// has seen, and is never overwritten.
class StoredSet {
 public:
  /// `root` is the tree, `name` that of the child, `path` that of the file. All references must
  /// outlive the set.
  StoredSet(Document& root, std::string name, std::string path, FileReader& reader,
            FileReplacer& replacer, EventLog& log);

  /// Makes the child from what the file holds, up to its first fault; from nothing, when it is
  /// missing or cannot be read, which the event log records.
  void Load();

  /// Whether the file was good when it was last read.
  bool Whole() const { return ready_; }

  /// To be called before each change: whether the set may be changed and saved. Without a good file
  /// so far, it is read once more: a good one replaces the child, and `show` is called. A file that
  /// is gone by now leaves nothing to lose, so the child is kept as it is shown. Any other one is
  /// reported in the status log, and nothing changes.
  bool ReadyForChange(StatusLog& statusLog, const std::function<void()>& show);

  /// The fields of the child; an empty list that belongs to nothing while there is no child.
  Ref<Document> Child() const { return root_.Childs().Child(name_); }

  /// Replaces the file by the child; the event log records a fault. Only when ready for a change.
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
