#include "core/server_configuration.h"

#include <functional>
#include <string_view>

#include "core/whole_file.h"
#include "support/number_text.h"
#include "support/runtime_error.h"
#include "support/text.h"

namespace tarvo {
namespace {

void ForEachLine(std::string_view text, const std::function<void(std::string_view)>& visit) {
  for (;;) {
    const std::size_t end = text.find("\r\n");
    visit(text.substr(0, end));
    if (end == std::string_view::npos) return;
    text.remove_prefix(end + 2);
  }
}

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

}  // namespace

ConfigurationResult ReadServerConfiguration(FileReader& files, const ServerRoot& root) {
  const std::string folder = root.WithSeparator();
  ConfigurationResult result;
  if (!files.Exists(folder + "conf\\login_athena.conf")) {
    result.refusal =
        "Please, copy and start this application inside your eAthena / Freya Server Root!";
    return result;
  }
  using LineReader = void (*)(std::string_view, ServerConfiguration&);
  const std::pair<const char*, LineReader> sources[] = {{"char_athena.conf", ReadCharLine},
                                                        {"map_athena.conf", ReadMapLine}};
  for (const auto& [name, readLine] : sources) {
    std::string text;
    if (!ReadWholeFile(files, folder + "conf\\" + name, text)) {
      result.refusal = folder + name + " file can't be loaded";
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
