#include "subjects.h"

#include <tinyxml2.h>

#include <pugixml.hpp>

#include "xmldoc/document.h"

namespace bench {
namespace {

class Own : public Subject {
 public:
  bool Parse(const std::string& text) override {
    document_ = tarvo::Document::Create();
    return document_->XMLImport(text);
  }
  std::string Write() override { return document_->XMLExport(); }
  bool Find(const std::string& name) override {
    return document_->Childs().SearchChild2(name) >= 0;
  }
  long Walk() override { return Sum(*document_); }
  void Change(const std::string& value) override {
    int index = 0;
    while (document_->Fields().Field(index)->EscapedValueView().empty()) ++index;
    document_->Fields().Field(index)->SetValue(value);
  }

 private:
  static long Sum(tarvo::Document& node) {
    long sum = 0;
    for (tarvo::Field* field : node.Fields().Nodes()) {
      const std::string_view value = field->EscapedValueView();
      sum += value.empty() ? 0 : value[0];
    }
    for (tarvo::Document* child : node.Childs().Nodes()) sum += Sum(*child);
    return sum;
  }

  tarvo::Ref<tarvo::Document> document_;
};

class StringWriter : public pugi::xml_writer {
 public:
  void write(const void* data, std::size_t size) override {
    text.append(static_cast<const char*>(data), size);
  }
  std::string text;
};

class Pugixml : public Subject {
 public:
  bool Parse(const std::string& text) override {
    return bool(
        document_.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8));
  }
  std::string Write() override {
    StringWriter writer;
    document_.save(writer, "\t", pugi::format_default, pugi::encoding_utf8);
    return std::move(writer.text);
  }
  bool Find(const std::string& name) override {
    return !document_.document_element().child(name.c_str()).empty();
  }
  long Walk() override { return Sum(document_.document_element()); }
  void Change(const std::string& value) override {
    pugi::xml_node node = document_.document_element().first_child();
    while (node.text().empty()) node = node.next_sibling();
    node.text().set(value.c_str());
  }

 private:
  static long Sum(pugi::xml_node node) {
    long sum = 0;
    for (pugi::xml_node child : node.children()) {
      sum += child.type() == pugi::node_element ? Sum(child) : child.value()[0];
    }
    return sum;
  }

  pugi::xml_document document_;
};

class Tinyxml2 : public Subject {
 public:
  bool Parse(const std::string& text) override {
    return document_.Parse(text.data(), text.size()) == tinyxml2::XML_SUCCESS;
  }
  std::string Write() override {
    tinyxml2::XMLPrinter printer;
    document_.Print(&printer);
    return {printer.CStr(), static_cast<std::size_t>(printer.CStrSize() - 1)};
  }
  bool Find(const std::string& name) override {
    return document_.RootElement()->FirstChildElement(name.c_str()) != nullptr;
  }
  long Walk() override { return Sum(*document_.RootElement()); }
  void Change(const std::string& value) override {
    tinyxml2::XMLElement* element = document_.RootElement()->FirstChildElement();
    while (element->GetText() == nullptr) element = element->NextSiblingElement();
    element->SetText(value.c_str());
  }

 private:
  static long Sum(const tinyxml2::XMLElement& element) {
    const char* text = element.GetText();
    long sum = text == nullptr ? 0 : text[0];
    const tinyxml2::XMLElement* child = element.FirstChildElement();
    for (; child != nullptr; child = child->NextSiblingElement()) sum += Sum(*child);
    return sum;
  }

  tinyxml2::XMLDocument document_;
};

}  // namespace

std::unique_ptr<Subject> MakeOwn() { return std::make_unique<Own>(); }
std::unique_ptr<Subject> MakePugixml() { return std::make_unique<Pugixml>(); }
std::unique_ptr<Subject> MakeTinyxml2() { return std::make_unique<Tinyxml2>(); }

}  // namespace bench
