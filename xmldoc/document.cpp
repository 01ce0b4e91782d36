#include "xmldoc/document.h"

#include <vector>

#include "xmldoc/document_rare.h"
#include "xmldoc/rules/text_rules.h"

namespace tarvo {

/// When this node's lists hold an import just as it has been read, and nobody else holds any of it,
/// its memory goes without a look at its nodes.
void Document::FreeWholeImport() {
  NodeChunk* import = childs_.Count() > 0   ? childs_.list_.At(0)->Import()
                      : fields_.Count() > 0 ? fields_.Nodes().At(0)->Import()
                                            : nullptr;
  const auto nodes = static_cast<std::uint32_t>(childs_.Count() + fields_.Count());
  if (import == nullptr || import == Import() || import->strangers > 0 || import->tops != nodes) {
    return;
  }
  fields_.list_.Abandon();
  childs_.list_.Abandon();
  NodePool::FreeAll(import);
}

void Document::Die() {
  Document* first = this;
  delete rare_;
  nextDying_ = nullptr;
  while (first != nullptr) {
    Document* node = first;
    first = node->nextDying_;
    node->FreeWholeImport();
    for (Document* child : node->childs_.list_) {
      if (--child->header_.references > 0) continue;
      delete child->rare_;
      if (child->childs_.Count() == 0) {
        child->Destroy();
      } else {
        child->nextDying_ = first;
        first = child;
      }
    }
    node->childs_.list_.Abandon();
    node->Destroy();
  }
}

Document::Rare& Document::RareValues() {
  if (rare_ == nullptr) Changed(rare_) = new Rare;
  return *rare_;
}

void Document::SetName(std::string_view name) { Changed(name_).Assign(CheckedDocumentName(name)); }

std::string Document::Version() const {
  return rare_ == nullptr || rare_->version.empty() ? kDefaultVersion : rare_->version;
}

void Document::SetVersion(std::string_view version) { RareValues().version = version; }

std::string Document::Encoding() const {
  return rare_ == nullptr || rare_->encoding.empty() ? kDefaultEncoding : rare_->encoding;
}

void Document::SetEncoding(std::string_view encoding) { RareValues().encoding = encoding; }

std::string Document::EncodePassword() const {
  return rare_ == nullptr ? std::string() : rare_->cipher.encodePassword;
}

void Document::SetEncodePassword(std::string_view password) {
  RareValues().cipher.encodePassword = password;
}

std::int32_t Document::CryptType() const { return rare_ == nullptr ? 0 : rare_->cipher.cryptType; }

void Document::SetCryptType(std::int32_t type) { RareValues().cipher.cryptType = type; }

void Document::SetStopOnLoadError(bool stop) {
  std::vector<Document*> waiting{this};
  while (!waiting.empty()) {
    Document* node = waiting.back();
    waiting.pop_back();
    if (node->StopOnLoadError() == stop) continue;
    node->header_.stopOnLoadError = stop ? 1 : 0;
    waiting.insert(waiting.end(), node->childs_.list_.begin(), node->childs_.list_.end());
  }
}

Ref<Document> Document::SelectSingleNode(std::string_view path) {
  return path.empty() ? Ref<Document>(this) : childs_.AtPath(path);
}

}  // namespace tarvo
