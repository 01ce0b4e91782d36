#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/code_page.h"

namespace tarvo {

/// A code page of one byte a character: A to Z, and pairs of a capital and a small letter.
class OneBytePage : public CodePage {
 public:
  explicit OneBytePage(std::vector<std::pair<char, char>> pairs) : pairs_(std::move(pairs)) {}

  bool HasOneByteCharacters() override { return true; }
  bool IsLeadByte(unsigned char) override { return false; }
  std::string Lowered(std::string text) override {
    for (char& c : text) {
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ' ');
      for (const auto& [capital, small] : pairs_) {
        if (c == capital) c = small;
      }
    }
    return text;
  }
  std::string Raised(std::string text) override {
    for (char& c : text) {
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - ' ');
      for (const auto& [capital, small] : pairs_) {
        if (c == small) c = capital;
      }
    }
    return text;
  }
  std::string ToUtf8(std::string_view text) override { return std::string(text); }

 private:
  std::vector<std::pair<char, char>> pairs_;
};

/// Of page 1252: A with acute, E with acute, N with tilde.
inline OneBytePage WesternPage() {
  return OneBytePage({{'\xC1', '\xE1'}, {'\xC9', '\xE9'}, {'\xD1', '\xF1'}});
}

/// Of page 1253: sigma has two small letters, the second one at the end of words.
inline OneBytePage GreekPage() { return OneBytePage({{'\xD3', '\xF3'}, {'\xD3', '\xF2'}}); }

/// Page 932: pairs of bytes, the wide Latin letters among them; counts what it is asked.
class JapanesePage : public CodePage {
 public:
  bool HasOneByteCharacters() override { return false; }
  bool IsLeadByte(unsigned char byte) override {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
  }
  std::string Lowered(std::string text) override { return Cased(std::move(text), false); }
  std::string Raised(std::string text) override { return Cased(std::move(text), true); }
  std::string ToUtf8(std::string_view text) override { return std::string(text); }

  int asked = 0;

 private:
  std::string Cased(std::string text, bool upper) {
    ++asked;
    for (std::size_t i = 0; i < text.size(); ++i) {
      const bool isPair = IsLeadByte(static_cast<unsigned char>(text[i])) && i + 1 < text.size();
      const char first = upper ? 'a' : 'A';
      if (!isPair && text[i] >= first && text[i] < first + 26) {
        text[i] = static_cast<char>(text[i] ^ ' ');
      } else if (isPair && text[i++] == '\x82') {
        const auto trail = static_cast<unsigned char>(text[i]);
        if (upper && trail >= 0x81 && trail <= 0x9A) text[i] = static_cast<char>(trail - 0x21);
        if (!upper && trail >= 0x60 && trail <= 0x79) text[i] = static_cast<char>(trail + 0x21);
      }
    }
    return text;
  }
};

}  // namespace tarvo
