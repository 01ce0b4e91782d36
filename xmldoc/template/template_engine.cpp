#include "xmldoc/template/template_engine.h"

#include <utility>

#include "xmldoc/rules/letter_case.h"
#include "xmldoc/template/template_error.h"
#include "xmldoc/template/template_mail.h"

namespace tarvo {

TemplateEngine::TemplateEngine(std::string_view text, const TemplatePorts& ports)
    : ports_(ports),
      template_(ParseTemplate(text)),
      evaluator_(ports),
      output_(ports.mostOutput, template_.mayHaveMail) {}

std::string TemplateEngine::Fill(Document& root) {
  frames_.push_back({});
  frames_.back().node = Ref<Document>(&root);
  for (std::size_t at = 0; at < template_.parts.size();) {
    const TemplatePart& part = template_.parts[at];
    switch (part.kind) {
      case TemplatePart::Kind::Text:
        output_.AddText(part.text);
        ++at;
        break;
      case TemplatePart::Kind::Field:
        AddField(part);
        ++at;
        break;
      case TemplatePart::Kind::Open:
        at = EnterBlock(at);
        break;
      case TemplatePart::Kind::Close:
        at = EndBody(at);
        break;
    }
  }
  TemplateText filled = output_.Take();
  return template_.mayHaveMail ? SendTemplateMails(filled, ports_) : std::move(filled.text);
}

void TemplateEngine::AddField(const TemplatePart& part) {
  const TemplateProgram& field = template_.fields[part.index];
  if (part.blockFollows) {
    waiting_.push_back({output_.AddHole(), &field});
  } else {
    FillField(field, TemplateOutput::kAtEnd);
  }
}

void TemplateEngine::FillField(const TemplateProgram& field, std::size_t hole) {
  Document& node = *frames_.back().node;
  output_.AddValue(hole, [&](std::string& text) { evaluator_.Fill(field, node, text); });
}

void TemplateEngine::FillWaiting() {
  const std::size_t first = frames_.back().firstWaiting;
  for (std::size_t i = first; i < waiting_.size(); ++i) {
    FillField(*waiting_[i].field, waiting_[i].hole);
  }
  waiting_.resize(first);
}

std::size_t TemplateEngine::EnterBlock(std::size_t part) {
  Frame frame;
  frame.block = &template_.blocks[template_.parts[part].index];
  frame.parent = frame.block->path.Owner(*frames_.back().node);
  frame.firstWaiting = waiting_.size();
  // Values may be gathered ahead only where nothing changes them on the way.
  if (frame.block->isShared && !template_.hasEffects) ShareSiblings(frame);
  if (!NextChild(frame)) return BehindBlock(template_.parts[part].other);
  frames_.push_back(std::move(frame));
  return part + 1;
}

std::size_t TemplateEngine::EndBody(std::size_t part) {
  if (NextChild(frames_.back())) return template_.parts[part].other + 1;
  frames_.pop_back();
  return BehindBlock(part);
}

std::size_t TemplateEngine::BehindBlock(std::size_t part) {
  if (!template_.parts[part].blockFollows) FillWaiting();
  return part + 1;
}

void TemplateEngine::ShareSiblings(Frame& frame) {
  if (frame.parent == nullptr) return;
  const TemplatePath& path = frame.block->path;
  const auto place = siblings_.try_emplace(path.Key(), *frame.parent, path.LastName()).first;
  frame.siblings = &place->second;
  for (const TemplatePath& asked : frame.block->when.Paths()) {
    frame.columns.push_back(&frame.siblings->ColumnOf(asked));
  }
}

void TemplateEngine::CountLook() {
  if (++looked_ <= ports_.mostChilds) return;
  RaiseBeyondBounds("The blocks of the template pass " + std::to_string(ports_.mostChilds) +
                    " children");
}

bool TemplateEngine::NextSibling(Frame& frame) {
  const TemplateBlock& block = *frame.block;
  values_.resize(frame.columns.size());
  while (static_cast<std::size_t>(frame.next) < frame.siblings->Count() &&
         frame.counted < block.stop) {
    CountLook();
    const auto row = static_cast<std::size_t>(frame.next++);
    frame.counted += 1;
    if (frame.counted < block.start || frame.counted > block.stop) continue;
    if (block.whenFault) throw RuntimeError(*block.whenFault);
    for (std::size_t i = 0; i < values_.size(); ++i) values_[i] = frame.columns[i]->At(row);
    if (!block.when.Holds(values_)) continue;
    frame.node = Ref<Document>(frame.siblings->Node(row));
    return true;
  }
  return false;
}

bool TemplateEngine::NextChild(Frame& frame) {
  if (frame.parent == nullptr) return false;
  if (frame.siblings != nullptr) return NextSibling(frame);
  const TemplateBlock& block = *frame.block;
  const std::string& name = block.path.LastName();
  const auto& childs = frame.parent->Childs().Nodes();
  while (frame.next < childs.Size() && frame.counted < block.stop) {
    CountLook();
    Document* child = childs.At(frame.next++);
    if (!EqualIgnoringCase(child->NameView(), name)) continue;
    frame.counted += 1;
    if (frame.counted < block.start || frame.counted > block.stop) continue;
    if (block.whenFault) throw RuntimeError(*block.whenFault);
    if (!block.when.Holds(*child)) continue;
    frame.node = Ref<Document>(child);
    return true;
  }
  return false;
}

}  // namespace tarvo
