#pragma once

#include <cstddef>
#include <string>

namespace bench {

/// A settings file of about so many bytes: a few sections of fields with values.
std::string SettingsText(std::size_t bytes);
/// Records with attributes, some with a text and some with inner elements, about so many bytes.
std::string RecordsText(std::size_t bytes);
/// Elements within each other, one field in the innermost.
std::string DeepText(int levels);
/// So many elements side by side, each of another name, with a field each.
std::string SiblingsText(int siblings);
/// One element with so many attributes.
std::string AttributesText(int attributes);

}  // namespace bench
