#pragma once

#include <fstream>
#include <string>
#include <vector>

#include "tests/xmldoc/template_ports_fake.h"

namespace tarvo {

/// A template of docs/templates.md, and what the page says of it.
struct TemplateExample {
  int line = 0;
  std::string document;
  std::string source;
  std::string expected;
  bool isError = false;
};

/// The page is UTF-8; texts of the library are in the ANSI code page.
inline std::string InAnsi(const std::string& utf8) {
  std::string ansi;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    if (byte != 0xC3) {
      ansi += utf8[i];
    } else {
      ansi += static_cast<char>(static_cast<unsigned char>(utf8[++i]) + 0x40);
    }
  }
  return ansi;
}

/// Reads the examples of the page.
class TemplatePage {
 public:
  std::vector<TemplateExample> Read() {
    std::ifstream file(TARVO_TEMPLATE_PAGE, std::ios::binary);
    std::string text;
    while (std::getline(file, text)) {
      ++line_;
      if (text.starts_with("```")) TakeFence(file, text.substr(3));
    }
    return examples_;
  }

 private:
  void TakeFence(std::istream& file, const std::string& kind) {
    std::string body;
    std::string text;
    const int start = line_;
    for (; ++line_, std::getline(file, text) && text != "```";) body += text + "\n";
    if (!body.empty()) body.pop_back();
    if (kind == "document") {
      (mainDocument_.empty() ? mainDocument_ : ownDocument_) = body;
    } else if (kind == "template") {
      examples_.push_back({start, ownDocument_.empty() ? mainDocument_ : ownDocument_, body, {}});
      ownDocument_.clear();
    } else {
      examples_.back().expected = InAnsi(body);
      examples_.back().isError = kind == "error";
    }
  }

  int line_ = 0;
  std::string mainDocument_;
  std::string ownDocument_;
  std::vector<TemplateExample> examples_;
};

/// The one component of the page.
class GuildEmblem : public ComponentCalls {
 public:
  ComponentAnswer Call(const std::string& programId, const std::string& method,
                       const std::vector<std::string>& arguments) override {
    if (programId != "Guild.Emblem" || method != "Url") return {false, "Invalid class string"};
    return {true, "http://example.com/" + arguments.at(0) + ".png"};
  }
};

}  // namespace tarvo
