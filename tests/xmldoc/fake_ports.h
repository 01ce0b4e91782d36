#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/event_log.h"
#include "platform/files.h"
#include "platform/url_fetch.h"

namespace tarvo {

/// Files in memory.
class FilesInMemory : public FileReader, public FileReplacer {
 public:
  bool Exists(const std::string& path) override { return files.count(path) > 0; }
  ReadResult ReadText(const std::string& path, std::string& text) override {
    if (files.count(path) == 0) return ReadResult::Missing;
    text = files[path];
    return ReadResult::Ok;
  }
  std::optional<FileFault> ReplaceText(const std::string& path, const std::string& text) override {
    files[path] = text;
    return std::nullopt;
  }

  std::map<std::string, std::string> files;
};

/// The files of another adapter, none of which can be read or written: locked, no right, disk full.
class FaultyFiles : public FileReader, public FileReplacer {
 public:
  FaultyFiles(FilesInMemory& files, FileFault fault) : files_(files), fault_(std::move(fault)) {}
  bool Exists(const std::string& path) override { return files_.Exists(path); }
  ReadResult ReadText(const std::string&, std::string&) override { return ReadResult::Failed; }
  std::optional<FileFault> ReplaceText(const std::string&, const std::string&) override {
    return fault_;
  }

 private:
  FilesInMemory& files_;
  FileFault fault_;
};

class RecordedLog : public EventLog {
 public:
  void WriteError(const std::string& text) override { entries.push_back(text); }
  void WriteUnicodeError(std::u16string_view text) override { unicodeEntries.emplace_back(text); }
  std::vector<std::string> entries;
  std::vector<std::u16string> unicodeEntries;
};

/// Answers with `body` and remembers what was asked for.
class ScriptedFetch : public UrlFetch {
 public:
  std::optional<std::string> Fetch(const FetchRequest& request) override {
    requests.push_back(request);
    return body;
  }
  std::optional<std::string> body;
  std::vector<FetchRequest> requests;
};

}  // namespace tarvo
