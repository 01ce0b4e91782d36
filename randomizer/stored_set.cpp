#include "randomizer/stored_set.h"

#include <utility>

#include "randomizer/server_lines.h"

namespace tarvo {
namespace {

/// Remembers whether the file was missing, which the import does not distinguish from a fault.
class NotingReader final : public FileReader {
 public:
  explicit NotingReader(FileReader& reader) : reader_(reader) {}

  bool Exists(const std::string& path) override {
    missing_ = !reader_.Exists(path);
    return !missing_;
  }
  ReadResult ReadText(const std::string& path, std::string& text) override {
    const ReadResult result = reader_.ReadText(path, text);
    missing_ = result == ReadResult::Missing;
    return result;
  }

  bool Missing() const { return missing_; }

 private:
  FileReader& reader_;
  bool missing_ = false;
};

}  // namespace

StoredSet::StoredSet(Document& root, std::string name, std::string path, FileReader& reader,
                     FileReplacer& replacer, EventLog& log)
    : root_(root),
      name_(std::move(name)),
      path_(std::move(path)),
      reader_(reader),
      replacer_(replacer),
      log_(log) {}

void StoredSet::Load() {
  Ref<Document> child = Document::Create();
  ready_ = Read(*child) != Found::Bad;
  Place(std::move(child));
}

bool StoredSet::ReadyForChange(StatusLog& statusLog, const std::function<void()>& show) {
  if (ready_) return true;
  Ref<Document> child = Document::Create();
  const Found found = Read(*child);
  ready_ = found != Found::Bad;
  if (!ready_) {
    statusLog.LogStatus(path_ + " file can't be loaded", kAlert);
  } else if (found == Found::Good || root_.Childs().SearchChild2(name_) < 0) {
    Place(std::move(child));
    show();
  }
  return ready_;
}

StoredSet::Found StoredSet::Read(Document& child) {
  NotingReader reader(reader_);
  TextEnd end = TextEnd::CutOff;
  child.XMLImportFile(path_, reader, log_, end);
  if (child.NameView().empty()) {
    // An emptied set is a root without content, which reads as a field of that name.
    const int root = IndexOfField(child.Fields(), name_);
    if (root >= 0) child.Fields().RemoveField(root);
  }
  child.SetName(name_);
  if (reader.Missing()) return Found::Gone;
  return end == TextEnd::Whole ? Found::Good : Found::Bad;
}

void StoredSet::Place(Ref<Document> child) {
  int index = root_.Childs().SearchChild2(name_);
  if (index < 0) index = root_.Childs().AddChild(name_);
  root_.Childs().SetChild(index, std::move(child));
}

void StoredSet::Save() { Child()->XMLExportFile(path_, replacer_, log_); }

}  // namespace tarvo
