#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvo {

/// Writes one JSON text, value by value, without blanks between them:
///
///     JsonWriter json;
///     json.BeginObject().Name("ports").BeginArray().Number(6900).EndArray().EndObject();
///     json.Text()  // {"ports":[6900]}
///
/// The caller keeps the order that JSON asks for: a name before each value of an object and nowhere
/// else, an end for each beginning. Texts and names are UTF-8; each byte that is not part of a
/// well-formed character becomes U+FFFD, so that the result is JSON whatever comes in.
class JsonWriter {
 public:
  JsonWriter& BeginObject() { return Open('{'); }
  JsonWriter& EndObject() { return Shut('}'); }
  JsonWriter& BeginArray() { return Open('['); }
  JsonWriter& EndArray() { return Shut(']'); }
  /// The name of the object's next value.
  JsonWriter& Name(std::string_view name);

  JsonWriter& String(std::string_view text);
  JsonWriter& Number(std::int64_t number) { return Value(std::to_string(number)); }
  /// At most 15 digits; null for what is no number, or an infinite one.
  JsonWriter& Decimal(double number);
  JsonWriter& Truth(bool truth) { return Value(truth ? "true" : "false"); }
  JsonWriter& Null() { return Value("null"); }

  const std::string& Text() const { return text_; }

 private:
  JsonWriter& Open(char sign);
  JsonWriter& Shut(char sign);
  JsonWriter& Value(std::string_view text);
  void Separate();
  void AddQuoted(std::string_view text);

  std::string text_;
  bool needsComma_ = false;
};

/// The bytes of the well-formed UTF-8 character at the beginning of a text, 1 to 4; 0 when there is
/// none: overlong forms, surrogates and what is beyond U+10FFFF are none.
std::size_t Utf8CharacterLength(std::string_view text);

}  // namespace tarvo
