#include "core/server_configuration.h"

#include <string_view>

#include "core/whole_file.h"
#include "support/number_text.h"
#include "support/runtime_error.h"
#include "support/text.h"

namespace tarvo {
namespace {

/// What follows the key at the very start of the line; nothing when the line begins otherwise.
std::optional<std::string_view> RestAfter(std::string_view line, std::string_view key) {
  if (!line.starts_with(key)) return std::nullopt;
  return line.substr(key.size());
}

void TakePort(std::string_view line, std::string_view key, ComponentEndpoint& endpoint) {
  const auto rest = RestAfter(line, key);
  if (!rest) return;
  endpoint.port =
      NamingSource(std::string(line.substr(0, 200)), [&rest] { return ToInteger(*rest); });
}

void TakeHost(std::string_view line, std::string_view key, ComponentEndpoint& endpoint) {
  if (const auto rest = RestAfter(line, key)) endpoint.host = *rest;
}

void ReadCharLine(std::string_view line, ServerConfiguration& configuration) {
  ComponentEndpoint& login = configuration.endpoints[ComponentKind::Login];
  ComponentEndpoint& charServer = configuration.endpoints[ComponentKind::Char];
  TakePort(line, "login_port:", login);
  TakePort(line, "char_port:", charServer);
  TakeHost(line, "login_ip:", login);
  TakeHost(line, "char_ip:", charServer);
  if (const auto rest = RestAfter(line, "server_name:")) configuration.serverName = Trimmed(*rest);
}

void ReadMapLine(std::string_view line, ServerConfiguration& configuration) {
  ComponentEndpoint& map = configuration.endpoints[ComponentKind::Map];
  TakePort(line, "map_port:", map);
  TakeHost(line, "map_ip:", map);
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
  return "\r\n" + path + " can't be read: " + fault->description + " (system error " +
         std::to_string(fault->number) + ")";
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
  using LineReader = void (*)(std::string_view, ServerConfiguration&);
  const std::pair<const char*, LineReader> sources[] = {{"char_athena.conf", ReadCharLine},
                                                        {"map_athena.conf", ReadMapLine}};
  for (const auto& [name, readLine] : sources) {
    std::string text;
    if (!ReadWholeFile(files, conf + name, text)) {
      result.refusal = folder + name + " file can't be loaded" + CauseLine(diagnosis, conf + name);
      return result;
    }
    ForEachLine(text,
                [&, read = readLine](std::string_view line) { read(line, result.configuration); });
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
