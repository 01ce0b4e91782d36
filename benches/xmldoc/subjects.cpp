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

 private:
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

 private:
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

 private:
  tinyxml2::XMLDocument document_;
};

}  // namespace

std::unique_ptr<Subject> MakeOwn() { return std::make_unique<Own>(); }
std::unique_ptr<Subject> MakePugixml() { return std::make_unique<Pugixml>(); }
std::unique_ptr<Subject> MakeTinyxml2() { return std::make_unique<Tinyxml2>(); }

}  // namespace bench
