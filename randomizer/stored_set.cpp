#include "randomizer/stored_set.h"

#include <utility>

#include "randomizer/server_settings.h"
#include "support/text.h"

namespace tarvo {
namespace {

/// Remembers the text that was read, and whether the file was missing, which the import does not
/// tell from a fault.
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
    text_ = text;
    return result;
  }

  bool Missing() const { return missing_; }
  const std::string& Text() const { return text_; }

 private:
  FileReader& reader_;
  bool missing_ = false;
  std::string text_;
};

/// The text from its first tag on that is no declaration and no comment.
std::string_view SkipRemarks(std::string_view text) {
  constexpr std::pair<std::string_view, std::string_view> kRemarks[] = {{"<?", "?>"},
                                                                        {"<!--", "-->"}};
  for (bool skipped = true; skipped;) {
    skipped = false;
    text = Trimmed(text, " \t\r\n");
    for (const auto& [begin, end] : kRemarks) {
      const std::size_t found = text.starts_with(begin) ? text.find(end) : std::string_view::npos;
      if (found == std::string_view::npos) continue;
      text.remove_prefix(found + end.size());
      skipped = true;
    }
  }
  return text;
}

/// Whether there is nothing, or one tag of this name without attributes and content.
bool HoldsNothing(std::string_view text, std::string_view name) {
  text = SkipRemarks(text);
  if (text.empty()) return true;
  if (!text.starts_with('<') || !text.substr(1).starts_with(name)) return false;
  text = Trimmed(text.substr(1 + name.size()), " \t\r\n");
  return text.starts_with("/>") && SkipRemarks(text.substr(2)).empty();
}

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
  const bool imported = child->XMLImportFile(path_, reader, log_);
  loaded_ = reader.Missing() || (imported && IsWhole(reader.Text()));
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

/// The import passes over a tag that is never closed, and the entries behind it would be lost with
/// the next press. A strict one does not, but refuses a file without content, too.
bool StoredSet::IsWhole(const std::string& text) const {
  if (HoldsNothing(text, name_)) return true;
  const Ref<Document> strict = Document::Create();
  strict->SetStopOnLoadError(true);
  return strict->XMLImport(text);
}

void StoredSet::Save() { Child()->XMLExportFile(path_, replacer_, log_); }

}  // namespace tarvo
