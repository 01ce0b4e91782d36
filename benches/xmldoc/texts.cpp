#include "texts.h"

namespace bench {
namespace {

const std::string kHead = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n";

}  // namespace

std::string SettingsText(std::size_t bytes) {
  std::string text = kHead + "<settings>\r\n";
  for (int section = 0; text.size() < bytes; ++section) {
    text += "\t<section" + std::to_string(section) + ">\r\n";
    for (int i = 0; i < 12; ++i) {
      text += "\t\t<some_setting_" + std::to_string(i) + ">" + std::to_string(i * 7919) +
              "</some_setting_" + std::to_string(i) + ">\r\n";
    }
    text += "\t</section" + std::to_string(section) + ">\r\n";
  }
  return text + "</settings>\r\n";
}

std::string RecordsText(std::size_t bytes) {
  std::string text = kHead + "<records>\r\n";
  for (int i = 0; text.size() < bytes; ++i) {
    const std::string id = std::to_string(100000 + i);
    if (i % 3 == 0) {
      text +=
          "\t<item id=\"" + id + "\" name=\"Red_Potion_" + id + "\" type=\"0\" price=\"50\"/>\r\n";
    } else if (i % 3 == 1) {
      text +=
          "\t<item id=\"" + id + "\" name=\"Sword\" slot=\"3\">A plain sword of iron</item>\r\n";
    } else {
      text += "\t<monster id=\"" + id +
              "\" level=\"12\">\r\n\t\t<name>Poring</name>\r\n\t\t<drop item=\"" + id +
              "\" rate=\"700\"/>\r\n\t\t<hp>50</hp>\r\n\t</monster>\r\n";
    }
  }
  return text + "</records>\r\n";
}

std::string DeepText(int levels) {
  std::string text = kHead;
  for (int i = 0; i < levels; ++i) text += "<level>";
  text += "<field>1</field>";
  for (int i = 0; i < levels; ++i) text += "</level>";
  return text;
}

std::string SiblingsText(int siblings) {
  std::string text = kHead + "<root>";
  for (int i = 0; i < siblings; ++i) {
    const std::string name = "sibling" + std::to_string(100000 + i);
    text += "<" + name + "><field>1</field></" + name + ">";
  }
  return text + "</root>";
}

std::string AttributesText(int attributes) {
  std::string text = "<r><f";
  for (int i = 0; i < attributes; ++i) {
    text +=
        " attribute" + std::to_string(100000 + i) + "=\"value" + std::to_string(100000 + i) + "\"";
  }
  return text + "/></r>";
}

}  // namespace bench
