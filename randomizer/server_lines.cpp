#include "randomizer/server_lines.h"

#include <bitset>

#include "support/number_text.h"
#include "support/text.h"

namespace tarvo {
namespace {

/// Rejects most of the unwanted names quickly, by their length and their last letter.
class NameSieve {
 public:
  void Add(std::string_view name) { marks_.set(PlaceOf(name)); }
  bool MayHold(std::string_view name) const { return marks_.test(PlaceOf(name)); }

 private:
  static std::size_t PlaceOf(std::string_view name) {
    const auto last = name.empty() ? 0u : static_cast<unsigned char>(name.back());
    return (name.size() * 256 + last) % kPlaces;
  }

  static constexpr std::size_t kPlaces = 64 * 256;
  std::bitset<kPlaces> marks_;
};

}  // namespace

NamedLines::NamedLines(std::string_view text, const Fields& names) : text_(text) {
  std::unordered_map<std::string_view, std::vector<std::size_t>*> wanted;
  NameSieve sieve;
  for (int i = 0; i < names.Count(); ++i) {
    const auto place = positions_.try_emplace(names.Field(i)->Name()).first;
    wanted.try_emplace(place->first, &place->second);
    sieve.Add(place->first);
  }
  ForEachLine(text, [&](std::string_view line) {
    const auto name = NameOnLine(line);
    if (!name || !sieve.MayHold(*name)) return;
    const auto found = wanted.find(*name);
    if (found == wanted.end()) return;
    found->second->push_back(lines_.size());
    lines_.push_back({line, std::string(line)});
  });
}

const std::vector<std::size_t>& NamedLines::Of(std::string_view name) const {
  static const std::vector<std::size_t> kNone;
  const auto found = positions_.find(std::string(name));
  return found == positions_.end() ? kNone : found->second;
}

std::string NamedLines::Joined() const {
  std::string joined;
  joined.reserve(text_.size() + lines_.size() * 8);
  const char* rest = text_.data();
  for (const Line& line : lines_) {
    joined.append(rest, line.old.data());
    joined += line.text;
    rest = line.old.data() + line.old.size();
  }
  joined.append(rest, text_.data() + text_.size());
  return joined;
}

void ReadServerSettings(std::string_view text, Fields& settings) {
  ForEachLine(text, [&](std::string_view line) {
    const auto name = NameOnLine(line);
    if (!name || name->find(' ') != std::string_view::npos) return;
    std::string_view value = line.substr(name->size() + 1);
    value = value.substr(0, value.find(':'));
    if (IsNumeric(value)) settings.AddField(*name, ShortestDecimal(NumericValue(value)));
  });
}

int IndexOfField(const Fields& fields, std::string_view name) {
  for (int index = 0; index < fields.Count(); ++index) {
    if (fields.Field(index)->NameView() == name) return index;
  }
  return -1;
}

void RemoveFieldOfLine(Fields& fields, std::string_view name, int line) {
  const bool stands = line < fields.Count() && fields.Field(line)->NameView() == name;
  fields.RemoveField(stands ? line : IndexOfField(fields, name));
}

std::unordered_map<std::string_view, int> FirstFields(const Fields& fields) {
  std::unordered_map<std::string_view, int> first;
  first.reserve(static_cast<std::size_t>(fields.Count()));
  for (int index = 0; index < fields.Count(); ++index) {
    first.try_emplace(fields.Field(index)->NameView(), index);
  }
  return first;
}

}  // namespace tarvo
