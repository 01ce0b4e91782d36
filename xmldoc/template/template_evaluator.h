#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "xmldoc/template/template_ports.h"
#include "xmldoc/template/template_program.h"

namespace tarvo {

/// Fills field directives. It keeps the ports and its working space from one to the next.
class TemplateEvaluator {
 public:
  explicit TemplateEvaluator(const TemplatePorts& ports) : ports_(ports) {}

  /// Appends the text of a directive for this node; nothing when it needs a port that is not given,
  /// and then nothing after that need is stored either. Raises what docs/templates.md lists.
  void Fill(const TemplateProgram& program, Document& node, std::string& text);

 private:
  using Texts = std::vector<std::string>;

  /// False when a port is missing.
  bool Run(const TemplateProgram& program, Document& node);
  void RunPlain(const TemplateProgram& program, const TemplateStep& step, Document& node);
  void Push(std::string text);
  std::string Pop();
  void Join(std::size_t count);
  void Calculate(const Calculation& calculation);
  bool Call(const TemplateStep& step, Document& node);
  bool Format(const Texts& arguments, std::string& result);
  bool Random(const Texts& arguments, std::string& result);
  bool External(const Texts& arguments, std::string& result);
  static std::string Set(const Texts& arguments, Document& node);

  const TemplatePorts& ports_;
  Texts stack_;
};

}  // namespace tarvo
