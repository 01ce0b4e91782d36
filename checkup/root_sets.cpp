#include "checkup/root_sets.h"

#include "checkup/conf_checks.h"
#include "checkup/set_checks.h"
#include "platform/event_log.h"
#include "randomizer/server_lines.h"
#include "randomizer/stored_set.h"

namespace tarvo {
namespace {

/// Reads no more than the check-up may.
class BoundedReader final : public FileReader {
 public:
  BoundedReader(FileInspection& inspection, FileReader& files, std::size_t most)
      : inspection_(inspection), files_(files), most_(most) {}

  bool Exists(const std::string& path) override { return files_.Exists(path); }
  ReadResult ReadText(const std::string& path, std::string& text) override {
    std::string read;
    const ReadResult result = inspection_.ReadBeginning(path, most_ + 1, read);
    if (result != ReadResult::Ok) return result;
    if (read.size() > most_) return ReadResult::Failed;
    text = std::move(read);
    return ReadResult::Ok;
  }

 private:
  FileInspection& inspection_;
  FileReader& files_;
  std::size_t most_;
};

/// A check-up leaves nothing behind, in no file and in no log.
class NoReplacer final : public FileReplacer {
 public:
  std::optional<FileFault> ReplaceText(const std::string&, const std::string&) override {
    return FileFault{};
  }
};

class NoEventLog final : public EventLog {
 public:
  void WriteError(const std::string&) override {}
  void WriteUnicodeError(std::u16string_view) override {}
};

}  // namespace

Findings CheckSetsOf(const ServerRoot& root, FileInspection& inspection, FileReader& files,
                     std::size_t most) {
  SetsFacts facts;
  const Ref<Document> document = Document::Create();
  const Ref<Document> settings = Document::Create();
  BoundedReader reader(inspection, files, most);
  NoReplacer replacer;
  NoEventLog log;
  std::string text;
  facts.settingsThere = inspection.ReadBeginning(root.WithSeparator() + "conf\\battle_athena.conf",
                                                 most + 1, text) == ReadResult::Ok;
  facts.settingsRead = facts.settingsThere && text.size() <= most;
  if (text.size() > most) text.resize(most);
  ReadServerSettings(text, settings->Fields());
  StoredSet ranges(*document, "Randomize", root.WithSeparator() + "randomize.xml", reader, replacer,
                   log);
  StoredSet entries(*document, "Calendar", root.WithSeparator() + "rndcalendar.xml", reader,
                    replacer, log);
  ranges.Load();
  entries.Load();
  facts.rangesWhole = ranges.Whole();
  facts.entriesWhole = entries.Whole();
  TakeRanges(ranges.Child()->Fields(), settings->Fields(), facts);
  TakeEntries(entries.Child()->Fields(), facts);
  Findings findings = CheckSets(facts);
  for (Finding& finding :
       CheckLineEnds({"battle_athena.conf", text, !facts.settingsRead && facts.settingsThere})) {
    findings.push_back(std::move(finding));
  }
  return findings;
}

}  // namespace tarvo
