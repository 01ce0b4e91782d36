#include "xmldoc/template/template_parser.h"

#include <limits>
#include <map>
#include <optional>
#include <utility>

#include "support/number_text.h"
#include "xmldoc/rules/text_rules.h"
#include "xmldoc/template/template_error.h"
#include "xmldoc/template/template_field.h"
#include "xmldoc/template/template_tag.h"

namespace tarvo {
namespace {

constexpr std::string_view kDirective = "<@";
constexpr std::string_view kOpen = "<@open ";
constexpr std::string_view kClose = "<@close id=\"";
constexpr std::string_view kField = "<@field ";
constexpr std::string_view kMail = "<sendmail ";

bool StartsIgnoringCase(std::string_view text, std::string_view start) {
  return IsKeyword(text.substr(0, start.size()), start);
}

/// Whether a mail directive is in the text, or may begin at its end: what follows comes closer
/// when a directive between them produces nothing.
bool MayBeginMail(std::string_view text) {
  if (FindIgnoringCase(text, kMail) != std::string_view::npos) return true;
  for (std::size_t length = 1; length < kMail.size() && length <= text.size(); ++length) {
    const std::string_view end = text.substr(text.size() - length);
    if (IsKeyword(end, kMail.substr(0, length))) return true;
  }
  return false;
}

std::string CloseTag(const std::string& id) { return "<@close ID=\"" + id + "\">"; }

double Bound(std::string_view tag, std::string_view name, double otherwise) {
  const auto text = TemplateAttribute(tag, name);
  return !text || WithoutOuterBlanks(*text).empty() ? otherwise : NumericValue(*text);
}

class Parser {
 public:
  using Kind = TemplatePart::Kind;

  explicit Parser(std::string_view text) : text_(text) {}

  ParsedTemplate Run() {
    SplitIntoBlocks();
    if (!open_.empty()) RaiseMissingBlockEnd(CloseTag(open_.front()));
    FillWithFields();
    NoteWhatBlocksFollow();
    for (const TemplatePart& part : result_.parts) {
      result_.mayHaveMail |= part.kind == Kind::Text && MayBeginMail(part.text);
    }
    return std::move(result_);
  }

 private:
  void SplitIntoBlocks() {
    std::size_t at = text_.find(kDirective);
    for (; at != std::string_view::npos; at = text_.find(kDirective, at)) {
      const std::string_view rest = text_.substr(at);
      if (StartsIgnoringCase(rest, kOpen)) {
        at = TakeOpen(at);
      } else if (StartsIgnoringCase(rest, kClose)) {
        at = TakeClose(at);
      } else {
        at += kDirective.size();
      }
    }
    AddText(text_.size());
  }

  std::size_t TakeOpen(std::size_t at) {
    const std::size_t end = TemplateTagEnd(text_, at);
    const std::string_view tag = text_.substr(at, end - at);
    std::string id = TemplateAttribute(tag, "id").value_or(std::string());
    AddText(at);
    textStart_ = end + 1;
    blocks_.push_back({TemplatePath(id), Bound(tag, "start", 1),
                       Bound(tag, "stop", std::numeric_limits<double>::infinity()), Condition({}),
                       std::nullopt, false});
    ReadWhen(TemplateAttribute(tag, "when").value_or(std::string()), blocks_.back());
    if (open_.empty()) NoteOutermost(blocks_.size() - 1);
    ++openOf_[id];
    open_.push_back(std::move(id));
    outline_.push_back({Kind::Open, {}, blocks_.size() - 1});
    return textStart_;
  }

  static void ReadWhen(const std::string& text, TemplateBlock& block) {
    try {
      block.when = Condition(text);
    } catch (const RuntimeError& fault) {
      block.whenFault = fault;
    }
  }

  void NoteOutermost(std::size_t block) {
    const auto [first, isNew] = outermost_.emplace(blocks_[block].path.Key(), block);
    if (!isNew) blocks_[first->second].isShared = blocks_[block].isShared = true;
  }

  std::size_t TakeClose(std::size_t at) {
    // An id holds no quotes, so the next one ends it.
    const std::size_t start = at + kClose.size();
    const auto quote = text_.find('"', start);
    if (quote == std::string_view::npos || text_.substr(quote, 2) != "\">") return start;
    const std::string id(text_.substr(start, quote - start));
    const auto open = openOf_.find(id);
    if (open == openOf_.end() || open->second == 0) return start;
    if (open_.back() != id) RaiseMissingBlockEnd(CloseTag(FirstUnclosedWithin(id)));
    --open->second;
    AddText(at);
    textStart_ = quote + 2;
    outline_.push_back({Kind::Close, {}});
    open_.pop_back();
    return textStart_;
  }

  /// The outermost block that the block of this id, which ends, leaves open.
  const std::string& FirstUnclosedWithin(const std::string& id) const {
    std::size_t at = open_.size() - 1;
    while (open_[at] != id) --at;
    return open_[at + 1];
  }

  void AddText(std::size_t end) {
    if (end > textStart_) {
      outline_.push_back({Kind::Text, text_.substr(textStart_, end - textStart_)});
    }
  }

  /// Takes the texts between the blocks apart, and lets opening and closing parts know where the
  /// other one is now.
  void FillWithFields() {
    result_.blocks = std::move(blocks_);
    std::vector<std::size_t> openers;
    for (const TemplatePart& part : outline_) {
      if (part.kind == Kind::Text) {
        SplitIntoFields(part.text);
        continue;
      }
      const std::size_t here = result_.parts.size();
      result_.parts.push_back(part);
      if (part.kind == Kind::Open) {
        openers.push_back(here);
      } else {
        result_.parts[here].other = openers.back();
        result_.parts[openers.back()].other = here;
        openers.pop_back();
      }
    }
  }

  void SplitIntoFields(std::string_view text) {
    std::size_t done = 0;
    std::size_t at = text.find(kDirective);
    for (; at != std::string_view::npos; at = text.find(kDirective, at)) {
      if (!StartsIgnoringCase(text.substr(at), kField)) {
        at += kDirective.size();
        continue;
      }
      if (at > done) result_.parts.push_back({Kind::Text, text.substr(done, at - done)});
      at = done = TakeField(text, at);
    }
    if (done < text.size()) result_.parts.push_back({Kind::Text, text.substr(done)});
  }

  /// Returns where the text goes on.
  std::size_t TakeField(std::string_view text, std::size_t at) {
    std::size_t next = text.size();
    try {
      const std::size_t end = TemplateTagEnd(text, at);
      next = end + 1;
      const std::string_view tag = text.substr(at, end - at);
      const std::optional<std::string> id = TemplateAttribute(tag, "id");
      AddField(ReadTemplateField(id ? *id : tag.substr(kField.size())));
    } catch (const RuntimeError& fault) {
      TemplateProgram faulty;
      faulty.fault = fault;
      AddField(std::move(faulty));
    }
    return next;
  }

  void AddField(TemplateProgram field) {
    result_.hasEffects = result_.hasEffects || field.hasEffects;
    result_.fields.push_back(std::move(field));
    result_.parts.push_back({Kind::Field, {}, result_.fields.size() - 1});
  }

  void NoteWhatBlocksFollow() {
    std::vector<bool> blockFollows{false};  // in the bodies around the part
    for (auto part = result_.parts.rbegin(); part != result_.parts.rend(); ++part) {
      part->blockFollows = blockFollows.back();
      if (part->kind == Kind::Close) {
        blockFollows.back() = true;
        blockFollows.push_back(false);
      }
      if (part->kind == Kind::Open) blockFollows.pop_back();
    }
  }

  std::string_view text_;
  std::size_t textStart_ = 0;
  std::vector<TemplatePart> outline_;
  std::vector<TemplateBlock> blocks_;
  std::vector<std::string> open_;  // the ids of those that are open
  std::map<std::string, std::size_t> openOf_;
  std::map<std::string, std::size_t> outermost_;  // the first block of each path
  ParsedTemplate result_;
};

}  // namespace

ParsedTemplate ParseTemplate(std::string_view text) { return Parser(text).Run(); }

}  // namespace tarvo
