// status-pictures FOLDER SIZE...: writes the picture of each status code in each size into the
// folder, as "code-size.pam". 0: all are written. 1: one could not be. 2: wrong arguments.

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "desktop/status_picture.h"
#include "supervision/status_lights.h"

namespace {

using tarvo::Picture;

bool Write(const Picture& picture, const std::string& path) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"),
                                                             std::fclose);
  if (!file) return false;
  std::string text = "P7\nWIDTH " + std::to_string(picture.size) + "\nHEIGHT " +
                     std::to_string(picture.size) +
                     "\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n";
  for (std::uint32_t pixel : picture.pixels) {
    for (int shift : {16, 8, 0, 24}) text += static_cast<char>(pixel >> shift & 0xFF);
  }
  return std::fwrite(text.data(), 1, text.size(), file.get()) == text.size();
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) {
    std::fputs("status-pictures FOLDER SIZE...\n", stderr);
    return 2;
  }
  const std::string folder = arguments[1];
  for (int i = 2; i < count; ++i) {
    for (int code = 0; code <= 25; ++code) {
      const Picture picture =
          tarvo::DrawStatusPicture(tarvo::StatesOfCode(code), std::atoi(arguments[i]));
      const std::string name = std::to_string(code) + "-" + std::to_string(picture.size) + ".pam";
      if (!Write(picture, folder + "/" + name)) return 1;
    }
  }
  return 0;
}
