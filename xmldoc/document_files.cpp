// The tree to and from files and URLs.
#include <cstdlib>
#include <exception>

#include "xmldoc/document.h"

namespace tarvo {
namespace {

constexpr std::u16string_view kStringtoFileFailed = u"Error en funci\u00F3n StringtoFile";
constexpr int kHttp = 4;  // and HTTPS is the next one

void WriteIoError(const std::string& source, EventLog& log) {
  std::string entry = "I/O error";
  try {
    entry = "I/O error: " + source;
  } catch (const std::exception&) {
    // An entry without the name is better than none.
  }
  log.WriteError(entry);
}

}  // namespace

bool Document::XMLImportFile(const std::string& fileName, FileReader& files, EventLog& log,
                             TextEnd& end) {
  end = TextEnd::CutOff;
  try {
    if (!files.Exists(fileName)) {
      log.WriteError("File not found: " + fileName);
      return false;
    }
    std::string text;
    if (files.ReadText(fileName, text) == ReadResult::Ok) return ReadText(text, end);
  } catch (const std::exception&) {
    // Whatever went wrong, a lack of memory above all, is a fault of reading the file.
  }
  WriteIoError(fileName, log);
  return false;
}

bool Document::XMLImportHTM(std::string& url, std::int16_t protocol, const std::string& userName,
                            const std::string& password, const std::string& proxy,
                            std::int32_t requestTimeout, UrlFetch& fetch, EventLog& log) {
  std::string source;
  TextEnd end = TextEnd::CutOff;
  try {
    source = WithoutCredentials(url);
    FetchRequest request;
    request.url = url;
    request.requestTimeout = requestTimeout;
    request.protocol = std::abs(int{protocol}) + kHttp;
    request.userName = userName;
    request.password = password;
    request.proxy = proxy;
    if (std::optional<std::string> body = fetch.Fetch(request)) {
      url = std::move(*body);
      return ReadText(url, end);
    }
  } catch (const std::exception&) {
    // As for a file.
  }
  WriteIoError(source, log);
  return false;
}

bool Document::XMLExportFile(const std::string& fileName, FileReplacer& files, EventLog& log) {
  std::string text;
  try {
    text = XMLExport();
  } catch (const std::exception&) {
    // A text too long to be put together is a fault of writing the file, which raises nothing.
    log.WriteUnicodeError(kStringtoFileFailed);
    return false;
  }
  return StringtoFile(text, fileName, files, log);
}

bool Document::StringtoFile(const std::string& text, const std::string& fileName,
                            FileReplacer& files, EventLog& log) {
  try {
    if (!files.ReplaceText(fileName, text)) return true;
  } catch (const std::exception&) {
    // Whoever replaces the file may need memory for it, to try again above all.
  }
  log.WriteUnicodeError(kStringtoFileFailed);
  return false;
}

bool StringToFile(const std::string& fileName, const std::string& text, bool overwrite,
                  FileReader& reader, FileReplacer& replacer, EventLog& log) {
  try {
    if (!overwrite && reader.Exists(fileName)) {
      log.WriteError("StringToFile: File already exists (" + fileName + ")");
      return false;
    }
    const std::optional<FileFault> fault = replacer.ReplaceText(fileName, text);
    if (!fault) return true;
    log.WriteError("StringToFile: Error " + std::to_string(fault->number) + "\r\n" +
                   fault->description);
  } catch (const std::exception&) {
    // Whoever replaces the file needs memory for it, and so does the text of a fault.
    log.WriteUnicodeError(u"StringToFile: Error 7\r\nOut of memory");
  }
  return false;
}

}  // namespace tarvo
