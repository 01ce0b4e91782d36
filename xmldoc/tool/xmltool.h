#pragma once

#include <string>
#include <vector>

#include "platform/component_calls.h"

namespace tarvo {

/// What a run of the tool leaves: its exit code, and the texts for the two outputs.
struct XmlToolRun {
  int exitCode = 0;  ///< 0; 1 for a file that cannot be read or written out; 2 for wrong use.
  std::string output;
  std::string complaint;
};

/// Runs the tool with the words after its name. It reads files and changes nothing itself; a
/// template's external calls go to `components`.
XmlToolRun RunXmlTool(const std::vector<std::string>& words, ComponentCalls& components);
/// The same on a system that has no components: a call of one is an error of the template.
XmlToolRun RunXmlTool(const std::vector<std::string>& words);

}  // namespace tarvo
