#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "xmldoc/template/template_evaluator.h"
#include "xmldoc/template/template_output.h"
#include "xmldoc/template/template_parser.h"
#include "xmldoc/template/template_siblings.h"

namespace tarvo {

/// Fills one template from one document: Document::HTMLExport. The document is changed by "LET" and
/// "set(" alone; ports must not change it meanwhile.
///
/// Blocks come first, field directives outside of them second, mail third: within the body of a
/// block, as produced for one child, likewise blocks first. So a field is filled in its place
/// only when no block follows it in its body; before that block it waits until the last block of
/// the body is done. Time is in proportion to the children looked at and the output; no stack is
/// needed in proportion to the nesting.
class TemplateEngine {
 public:
  /// Both have to outlive the engine. Raises the faults of ParseTemplate.
  TemplateEngine(std::string_view text, const TemplatePorts& ports);

  /// The filled text. To be called once. Raises what docs/templates.md lists; what "LET" and "set("
  /// stored before stays.
  std::string Fill(Document& root);

 private:
  /// A block that is being produced, or the whole template.
  struct Frame {
    const TemplateBlock* block = nullptr;
    Document* parent = nullptr;                  // whose children are visited
    int next = 0;                                // child to look at
    TemplateSiblings* siblings = nullptr;        // the children, when several blocks share them
    std::vector<const TemplateColumn*> columns;  // what the condition asks of them
    double counted = 0;                          // children of the block's name so far
    Ref<Document> node;                          // the current one
    std::size_t firstWaiting = 0;
  };
  /// A field directive whose turn comes when the blocks after it are done.
  struct Waiting {
    std::size_t hole;
    const TemplateProgram* field;
  };

  std::size_t EnterBlock(std::size_t part);
  std::size_t EndBody(std::size_t part);
  std::size_t BehindBlock(std::size_t part);
  void ShareSiblings(Frame& frame);
  bool NextChild(Frame& frame);
  bool NextSibling(Frame& frame);
  void CountLook();
  void AddField(const TemplatePart& part);
  void FillField(const TemplateProgram& field, std::size_t hole);
  void FillWaiting();

  const TemplatePorts& ports_;
  const ParsedTemplate template_;
  TemplateEvaluator evaluator_;
  TemplateOutput output_;
  std::vector<Frame> frames_;
  std::vector<Waiting> waiting_;
  std::map<std::string, TemplateSiblings> siblings_;  // by path, of outermost blocks
  std::vector<std::string_view> values_;              // of one child, for a condition
  std::uint64_t looked_ = 0;
};

}  // namespace tarvo
