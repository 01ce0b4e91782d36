#include "randomizer/stored_set.h"

#include <utility>

#include "randomizer/server_settings.h"

namespace tarvo {
namespace {

/// Remembers whether a file was there and refused to be read, which the import does not tell.
class NotingReader final : public FileReader {
 public:
  explicit NotingReader(FileReader& reader) : reader_(reader) {}

  bool Exists(const std::string& path) override { return reader_.Exists(path); }
  ReadResult ReadText(const std::string& path, std::string& text) override {
    const ReadResult result = reader_.ReadText(path, text);
    refused_ = result == ReadResult::Failed;
    return result;
  }

  bool Refused() const { return refused_; }

 private:
  FileReader& reader_;
  bool refused_ = false;
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
  NotingReader reader(reader_);
  Ref<Document> child = Document::Create();
  child->XMLImportFile(path_, reader, log_);
  loaded_ = !reader.Refused();
  if (child->NameView().empty()) {
    // An emptied set is a root without content, which reads as a field of that name.
    const int root = IndexOfField(child->Fields(), name_);
    if (root >= 0) child->Fields().RemoveField(root);
  }
  child->SetName(name_);
  int index = root_.Childs().SearchChild2(name_);
  if (index < 0) index = root_.Childs().AddChild(name_);
  root_.Childs().SetChild(index, std::move(child));
}

void StoredSet::Save() { Child()->XMLExportFile(path_, replacer_, log_); }

}  // namespace tarvo
