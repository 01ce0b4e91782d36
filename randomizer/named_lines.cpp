#include "randomizer/named_lines.h"

#include "randomizer/server_lines.h"

namespace tarvo {

NamedLines::NamedLines(std::string_view text, const Fields& names) : text_(text) {
  std::unordered_map<std::string_view, std::vector<std::size_t>*> wanted;
  for (int i = 0; i < names.Count(); ++i) {
    const auto place = positions_.try_emplace(names.Field(i)->Name()).first;
    wanted.try_emplace(place->first, &place->second);
  }
  ForEachLine(text, [&](std::string_view line) {
    const auto name = NameOnLine(line);
    if (!name) return;
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

}  // namespace tarvo
