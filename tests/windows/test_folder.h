#pragma once

#include <functional>
#include <string>

namespace tarvo::test {

/// A folder of a test's own under the temporary folder, current while it lives; goes with all that
/// is in it.
class TestFolder {
 public:
  TestFolder();
  ~TestFolder();
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  /// Full path, without "\" at the end.
  const std::string& Path() const { return path_; }
  std::string File(const std::string& name) const { return path_ + "\\" + name; }
  /// Makes (or replaces) a file with these bytes.
  std::string Write(const std::string& name, const std::string& bytes) const;
  std::string MakeFolder(const std::string& name) const;

 private:
  std::string path_;
  std::string formerFolder_;
};

/// Makes a symbolic link in the current folder to a file or folder in it, whose path has "/" and no
/// space.
bool MakeLink(const std::string& link, const std::string& target);

/// The bytes of a file; "" when it cannot be read.
std::string BytesOf(const std::string& path);

/// Full path of the running test program, and of a sample server of the same build.
std::string OwnPath();
std::string SampleServerPath(const std::string& role);

/// Asks again and again until `holds` says yes; false when it has not after this time.
bool Within(unsigned milliseconds, const std::function<bool()>& holds);

}  // namespace tarvo::test
