// Any texts written as JSON, cut apart as their first bytes say: a known parser reads them back the
// same but for the bytes that are no UTF-8.
// corpus: json
#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "support/json_writer.h"

namespace {

/// As the writer promises it, found in another way.
std::string Repaired(std::string_view text) {
  const auto quoted = nlohmann::json(std::string(text))
                          .dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
  return nlohmann::json::parse(quoted).get<std::string>();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  tarvo::JsonWriter json;
  std::vector<std::string> texts;
  json.BeginArray();
  while (!rest.empty()) {
    const std::size_t length = static_cast<unsigned char>(rest.front());
    const std::string text(rest.substr(1, length));
    json.BeginObject().Name(text).String(text).EndObject();
    texts.push_back(text);
    rest.remove_prefix(1 + text.size());
  }
  json.EndArray();
  const auto read = nlohmann::json::parse(json.Text());
  if (read.size() != texts.size()) std::abort();
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const std::string name = read[i].begin().key();
    if (name != read[i].begin().value().get<std::string>()) std::abort();
    // How many signs stand for a run of broken bytes is a matter of taste; without any it is the
    // very text.
    if (name.find("\xEF\xBF\xBD") == name.npos && name != Repaired(texts[i])) std::abort();
  }
  return 0;
}
