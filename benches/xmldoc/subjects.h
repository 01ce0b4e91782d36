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
  /// Whether the root holds an element of that name.
  virtual bool Find(const std::string& name) = 0;
  /// The sum of the first characters of all elements' own texts.
  virtual long Walk() = 0;
  /// Gives the root's first element with a text of its own another one.
  virtual void Change(const std::string& value) = 0;
};

std::unique_ptr<Subject> MakeOwn();
std::unique_ptr<Subject> MakePugixml();
std::unique_ptr<Subject> MakeTinyxml2();

}  // namespace bench
