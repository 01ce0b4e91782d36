#pragma once

#include <optional>
#include <string>

#include "core/component.h"
#include "core/server_root.h"
#include "platform/files.h"
#include "toolkit/controls.h"

namespace tarvo {

/// What the servers' own configuration files say: where each component listens, and the server's
/// name.
struct ServerConfiguration {
  ServerEndpoints endpoints;
  std::optional<std::string> serverName;  ///< Nothing when no line names it.
};

/// The outcome of reading: a configuration, or the text that explains to the operator why there is
/// none.
struct ConfigurationResult {
  ServerConfiguration configuration;
  std::string refusal;  ///< Empty when all went well.
};

/// Checks that the folder is a server root and reads conf\char_athena.conf and
/// conf\map_athena.conf. A file that exists but cannot be read (locked, no access) counts as
/// missing; an extra line of the refusal then names the cause, as it does when the folder's path is
/// too long for the system.
///
/// The files are lines ended by CR LF. A line counts when it begins with a key, letter case
/// included; of several lines with one key the last counts. The login server's endpoint is the one
/// at which the char server reaches it. Hosts are kept as they follow their key; blanks around a
/// port are ignored. Raises type mismatch (13) or overflow (6) for a port that is no 32-bit number.
ConfigurationResult ReadServerConfiguration(FileReader& files, FileDiagnosis& diagnosis,
                                            const ServerRoot& root);

/// Refuses a folder whose name cannot be written in the system's code page, naming that cause.
ConfigurationResult RefuseFolderOutsideCodePage();

/// Adds every executable of the root to the three choosers, in the order of the file system.
void ListExecutables(FolderLister& folders, const ServerRoot& root,
                     PerComponent<DropDownList>& Exes);

}  // namespace tarvo
