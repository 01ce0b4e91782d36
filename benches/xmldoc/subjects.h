#pragma once

#include <memory>
#include <string>

namespace bench {

/// A document library under measurement, holding one document.
class Subject {
 public:
  virtual ~Subject() = default;
  /// Reads the text, which the caller keeps unchanged. False when it was refused.
  virtual bool Parse(const std::string& text) = 0;
  /// The document as text.
  virtual std::string Write() = 0;
};

std::unique_ptr<Subject> MakeOwn();
std::unique_ptr<Subject> MakePugixml();
std::unique_ptr<Subject> MakeTinyxml2();

}  // namespace bench
