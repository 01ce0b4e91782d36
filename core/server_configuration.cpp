#include "core/server_configuration.h"

#include <string_view>

#include "core/configuration_keys.h"
#include "core/whole_file.h"
#include "support/number_text.h"
#include "support/runtime_error.h"
#include "support/text.h"

namespace tarvo {
namespace {

std::int32_t PortOnLine(std::string_view line, std::string_view rest) {
  return NamingSource(std::string(line.substr(0, 200)), [&rest] { return ToInteger(rest); });
}

void TakeLine(std::string_view line, const ConfigurationKey& key,
              ServerConfiguration& configuration) {
  const auto rest = RestAfterKey(line, key.key);
  if (!rest) return;
  ComponentEndpoint& endpoint = configuration.endpoints[key.component];
  switch (key.says) {
    case ConfigurationKey::Says::Port:
      endpoint.port = PortOnLine(line, *rest);
      break;
    case ConfigurationKey::Says::Host:
      endpoint.host = *rest;
      break;
    case ConfigurationKey::Says::ServerName:
      configuration.serverName = Trimmed(*rest);
      break;
  }
}

void ReadLines(std::string_view text, std::string_view file, ServerConfiguration& configuration) {
  ForEachLine(text, [&](std::string_view line) {
    for (const ConfigurationKey& key : kConfigurationKeys) {
      if (key.file == file) TakeLine(line, key, configuration);
    }
  });
}

constexpr char kNoServerRoot[] =
    "Please, copy and start this application inside your eAthena / Freya Server Root!";

/// The system's calls accept no longer path.
constexpr std::size_t kLongestPath = 259;

/// What a refusal says about its cause, on a line of its own; nothing when the file merely does not
/// exist.
std::string CauseLine(FileDiagnosis& diagnosis, const std::string& path) {
  if (path.size() > kLongestPath) return "\r\nThe path of this folder is too long.";
  const auto fault = diagnosis.WhyUnreadable(path);
  if (!fault) return {};
  return "\r\n" + path + " can't be read: " + WordsOf(*fault);
}

}  // namespace

ConfigurationResult RefuseFolderOutsideCodePage() {
  ConfigurationResult result;
  result.refusal = std::string(kNoServerRoot) +
                   "\r\nThe path of this folder has letters that the system's code page does not "
                   "have.";
  return result;
}

ConfigurationResult ReadServerConfiguration(FileReader& files, FileDiagnosis& diagnosis,
                                            const ServerRoot& root) {
  const std::string folder = root.WithSeparator();
  ConfigurationResult result;
  const std::string conf = folder + "conf\\";
  if (!files.Exists(conf + "login_athena.conf")) {
    result.refusal = kNoServerRoot + CauseLine(diagnosis, conf + "login_athena.conf");
    return result;
  }
  for (const char* name : kConfigurationFiles) {
    std::string text;
    if (!ReadWholeFile(files, conf + name, text)) {
      result.refusal = folder + name + " file can't be loaded" + CauseLine(diagnosis, conf + name);
      return result;
    }
    ReadLines(text, name, result.configuration);
  }
  return result;
}

void ListExecutables(FolderLister& folders, const ServerRoot& root,
                     PerComponent<DropDownList>& Exes) {
  for (const std::string& name : folders.FilesEndingWith(root.AppFolder(), ".exe")) {
    for (DropDownList& chooser : Exes) chooser.AddItem(name);
  }
}

}  // namespace tarvo
