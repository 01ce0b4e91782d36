// The tree to and from files and URLs.
#include <cstdlib>
#include <exception>

#include "xmldoc/document.h"

namespace tarvo {
namespace {

// "Error en funcion StringtoFile" with the accented o of the ANSI code page.
constexpr const char* kStringtoFileFailed = "Error en funci\xF3n StringtoFile";
constexpr int kHttp = 4;  // and HTTPS is the next one

}  // namespace

bool Document::XMLImportFile(const std::string& fileName, FileReader& files, EventLog& log) {
  TextEnd end = TextEnd::CutOff;
  return XMLImportFile(fileName, files, log, end);
}

bool Document::XMLImportFile(const std::string& fileName, FileReader& files, EventLog& log,
                             TextEnd& end) {
  end = TextEnd::CutOff;
  if (!files.Exists(fileName)) {
    log.WriteError("File not found: " + fileName);
    return false;
  }
  std::string text;
  if (files.ReadText(fileName, text) != ReadResult::Ok) {
    log.WriteError("I/O error: " + fileName);
    return false;
  }
  return XMLImport(text, end);
}

bool Document::XMLImportHTM(std::string& url, std::int16_t protocol, const std::string& userName,
                            const std::string& password, const std::string& proxy,
                            std::int32_t requestTimeout, UrlFetch& fetch, EventLog& log) {
  FetchRequest request;
  request.url = url;
  request.requestTimeout = requestTimeout;
  request.protocol = std::abs(int{protocol}) + kHttp;
  request.userName = userName;
  request.password = password;
  request.proxy = proxy;
  request.accessType = 0;
  std::optional<std::string> body = fetch.Fetch(request);
  if (!body) {
    log.WriteError("I/O error: " + url);
    return false;
  }
  url = std::move(*body);
  return XMLImport(url);
}

bool Document::XMLExportFile(const std::string& fileName, FileReplacer& files, EventLog& log) {
  std::string text;
  try {
    text = XMLExport();
  } catch (const std::exception&) {
    // A text too long to be put together is a fault of writing the file, which raises nothing.
    log.WriteError(kStringtoFileFailed);
    return false;
  }
  return StringtoFile(text, fileName, files, log);
}

bool Document::StringtoFile(const std::string& text, const std::string& fileName,
                            FileReplacer& files, EventLog& log) {
  if (!files.ReplaceText(fileName, text)) return true;
  log.WriteError(kStringtoFileFailed);
  return false;
}

bool StringToFile(const std::string& fileName, const std::string& text, bool overwrite,
                  FileReader& reader, FileReplacer& replacer, EventLog& log) {
  if (!overwrite && reader.Exists(fileName)) {
    log.WriteError("StringToFile: File already exists (" + fileName + ")");
    return false;
  }
  const std::optional<FileFault> fault = replacer.ReplaceText(fileName, text);
  if (!fault) return true;
  log.WriteError("StringToFile: Error " + std::to_string(fault->number) + "\r\n" +
                 fault->description);
  return false;
}

}  // namespace tarvo
