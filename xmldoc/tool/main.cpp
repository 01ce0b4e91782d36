// xmltool: the document library on the command line.
#include <cstdio>

#include "xmldoc/tool/xmltool.h"

int main(int argc, char** argv) {
  const tarvo::XmlToolRun run = tarvo::RunXmlTool({argv + 1, argv + argc});
  std::fwrite(run.output.data(), 1, run.output.size(), stdout);
  std::fputs(run.complaint.c_str(), stderr);
  return run.exitCode;
}
