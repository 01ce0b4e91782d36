#pragma once

#include <windows.h>

#include <oleauto.h>

#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

/// The calls of the system's automation libraries, which are loaded when they are first asked for.
struct AutomationCalls {
  decltype(&::CoInitializeEx) initialize;
  decltype(&::CoUninitialize) uninitialize;
  decltype(&::CLSIDFromProgID) classOf;
  decltype(&::CoCreateInstance) create;
  decltype(&::SysAllocStringLen) makeText;
  decltype(&::SysFreeString) freeText;
  decltype(&::SysStringLen) lengthOf;
  decltype(&::VariantClear) clear;
  decltype(&::VariantChangeType) change;
};

/// nullptr on a system that lacks one of them.
const AutomationCalls* LoadAutomationCalls();

/// COM for as long as it lives, on this thread.
class Apartment {
 public:
  explicit Apartment(const AutomationCalls& calls);
  ~Apartment();
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;

 private:
  const AutomationCalls& calls_;
  const bool entered_;
};

/// A VARIANT that is cleared at its end.
class Variant {
 public:
  explicit Variant(const AutomationCalls& calls) : calls_(&calls) {}
  /// A text of the ANSI code page.
  Variant(const AutomationCalls& calls, std::string_view text);
  Variant(Variant&& other) noexcept;
  Variant& operator=(Variant&&) = delete;
  ~Variant();

  VARIANT& Get() { return value_; }
  /// The value as text of the ANSI code page, what that lacks as the nearest it has. Nothing when
  /// the value cannot be made text; `fault` says why then.
  std::optional<std::string> Text(HRESULT& fault);

 private:
  const AutomationCalls* calls_;
  VARIANT value_ = {};
};

/// The text of a BSTR, which may be none; it is freed.
std::string TakeText(const AutomationCalls& calls, BSTR text);

}  // namespace tarvo
