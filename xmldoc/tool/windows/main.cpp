// xmltool on Windows: with the system's components and the letters of its code page.
#include <fcntl.h>
#include <io.h>

#include <cstdio>

#include "platform/windows/code_page_windows.h"
#include "platform/windows/component_calls_windows.h"
#include "xmldoc/rules/letter_case.h"
#include "xmldoc/tool/xmltool.h"

int main(int argc, char** argv) {
  tarvo::WindowsCodePage codePage;
  const tarvo::LettersInUse letters(codePage);
  tarvo::WindowsComponentCalls components;
  const tarvo::XmlToolRun run = tarvo::RunXmlTool({argv + 1, argv + argc}, components);
  _setmode(_fileno(stdout), _O_BINARY);  // line ends as the text has them
  std::fwrite(run.output.data(), 1, run.output.size(), stdout);
  std::fputs(run.complaint.c_str(), stderr);
  return run.exitCode;
}
