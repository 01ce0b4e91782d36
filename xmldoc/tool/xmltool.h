#pragma once

#include <string>
#include <vector>

namespace tarvo {

/// What a run of the tool leaves: its exit code, and the texts for the two outputs.
struct XmlToolRun {
  int exitCode = 0;  ///< 0; 1 for a file that cannot be read or written out; 2 for wrong use.
  std::string output;
  std::string complaint;
};

/// Runs the tool with the words behind its name. It reads files and changes nothing.
XmlToolRun RunXmlTool(const std::vector<std::string>& words);

}  // namespace tarvo
