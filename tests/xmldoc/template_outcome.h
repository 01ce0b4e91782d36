#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "tests/xmldoc/template_ports_fake.h"
#include "xmldoc/document.h"

namespace tarvo {

inline Ref<Document> DocumentOf(std::string_view text) {
  Ref<Document> document = Document::Create();
  document->XMLImport(text);
  return document;
}

/// What a call gives, or "number source: description" of the error that it raises.
template <typename Action>
std::string OutcomeOf(Action action) {
  try {
    return action();
  } catch (const RuntimeError& error) {
    return std::to_string(error.Number()) + " " + error.Source() + ": " + error.Description();
  }
}

inline std::string Filled(std::string_view document, std::string_view source,
                          const TemplatePorts& ports = {}) {
  return OutcomeOf([&] { return DocumentOf(document)->HTMLExport(source, nullptr, ports); });
}

/// A template and what comes of it.
struct TemplateCase {
  const char* source;
  const char* outcome;
};

/// What fields give in a document of one value, `n`, each field by itself and without its tag.
template <std::size_t kCount>
void ExpectFields(const TemplateCase (&cases)[kCount], const TemplatePorts& ports = {}) {
  for (const TemplateCase& one : cases) {
    EXPECT_EQ(Filled("<r><n>7</n></r>", std::string("<@field ") + one.source + ">", ports),
              one.outcome)
        << one.source;
  }
}

}  // namespace tarvo
