#include "xmldoc/template/template_tokens.h"

#include <algorithm>
#include <string>

#include "support/text.h"
#include "xmldoc/rules/letter_case.h"
#include "xmldoc/rules/text_rules.h"
#include "xmldoc/template/template_error.h"
#include "xmldoc/template/template_functions.h"

namespace tarvo {
namespace {

bool IsWordPart(char c) { return IsLetter(c) || IsDigit(c) || c == '_'; }

class Tokenizer {
 public:
  using Kind = TemplateToken::Kind;

  explicit Tokenizer(std::string_view text) : text_(text) {}

  std::vector<TemplateToken> Run() {
    while (at_ < text_.size()) TakeCharacter();
    FlushText(at_);
    for (const Open& open : open_) {
      if (open.call == kParenthesis) continue;
      RaiseMalformedField("Missing \")\" of " + std::string(tokens_[open.call].text) + "(");
    }
    Add(Kind::End, {});
    return std::move(tokens_);
  }

 private:
  static constexpr std::size_t kParenthesis = static_cast<std::size_t>(-1);
  struct Open {
    std::size_t call;      // its token, or kParenthesis
    bool isInCalculation;  // the innermost call is "cal"
  };

  void TakeCharacter() {
    switch (text_[at_]) {
      case '"':
        return TakeQuoted();
      case '(':
        return TakeOpen();
      case ')':
        return TakeClose();
      case ',':
      case ';':
        return TakeMark(Kind::Separator);
      case '|':
        return TakeMark(Kind::Bar);
      default:
        TakePlain();
    }
  }

  /// A character that means nothing by itself; a word may begin behind it unless it is of one.
  void TakePlain() {
    const bool isWordPart = IsWordPart(text_[at_]);
    at_ += CharacterLength(text_, at_);
    if (!isWordPart) wordStart_ = at_;
  }

  void TakeQuoted() {
    FlushText(at_);
    const auto end = text_.find('"', at_ + 1);
    if (end == std::string_view::npos) RaiseMalformedTag();
    Add(Kind::Quoted, text_.substr(at_ + 1, end - at_ - 1));
    SkipTo(end + 1);
  }

  void TakeOpen() {
    std::size_t word = std::max(wordStart_, textStart_);
    while (word < at_ && !IsLetter(text_[word])) ++word;
    const std::string_view name = text_.substr(word, at_ - word);
    const bool inCalculation = !open_.empty() && open_.back().isInCalculation;
    if (name.empty() || (inCalculation && IsKeyword(name, "mod"))) {
      open_.push_back({kParenthesis, inCalculation});
      TakePlain();
      return;
    }
    FlushText(word);
    if (IsKeyword(name, "var")) {
      const auto end = text_.find(')', at_);
      if (end == std::string_view::npos) RaiseMalformedField("Missing \")\" of VAR(");
      Add(Kind::Value, text_.substr(at_ + 1, end - at_ - 1));
      SkipTo(end + 1);
    } else {
      const TemplateFunctionRule* rule = FindTemplateFunction(name);
      open_.push_back(
          {tokens_.size(), rule != nullptr && rule->function == TemplateFunction::Calculate});
      Add(Kind::Call, name);
      SkipTo(at_ + 1);
    }
  }

  void TakeClose() {
    if (!open_.empty() && open_.back().call != kParenthesis) {
      FlushText(at_);
      tokens_[open_.back().call].close = tokens_.size();
      Add(Kind::Close, {});
      SkipTo(at_ + 1);
    } else {
      TakePlain();
    }
    if (!open_.empty()) open_.pop_back();
  }

  void TakeMark(Kind kind) {
    if (open_.empty() || open_.back().call == kParenthesis) return TakePlain();
    FlushText(at_);
    Add(kind, text_.substr(at_, 1));
    SkipTo(at_ + 1);
  }

  void Add(Kind kind, std::string_view text) { tokens_.push_back({kind, text}); }
  void FlushText(std::size_t end) {
    if (end > textStart_) Add(Kind::Text, text_.substr(textStart_, end - textStart_));
  }
  void SkipTo(std::size_t position) { at_ = textStart_ = position; }

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t textStart_ = 0;
  std::size_t wordStart_ = 0;  // of the word that ends at at_; at_ when there is none
  std::vector<TemplateToken> tokens_;
  std::vector<Open> open_;  // calls and other parentheses
};

}  // namespace

std::vector<TemplateToken> TemplateTokens(std::string_view text) { return Tokenizer(text).Run(); }

}  // namespace tarvo
