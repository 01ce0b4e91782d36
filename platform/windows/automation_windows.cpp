#include "platform/windows/automation_windows.h"

#include <utility>

#include "platform/windows/code_page_windows.h"
#include "platform/windows/system_libraries.h"

namespace tarvo {
namespace {

constexpr const char* kCom = "ole32.dll";
constexpr const char* kAutomation = "oleaut32.dll";

AutomationCalls LookUpCalls() {
  return {LateCall<decltype(&::CoInitializeEx)>(kCom, "CoInitializeEx"),
          LateCall<decltype(&::CoUninitialize)>(kCom, "CoUninitialize"),
          LateCall<decltype(&::CLSIDFromProgID)>(kCom, "CLSIDFromProgID"),
          LateCall<decltype(&::CoCreateInstance)>(kCom, "CoCreateInstance"),
          LateCall<decltype(&::SysAllocStringLen)>(kAutomation, "SysAllocStringLen"),
          LateCall<decltype(&::SysFreeString)>(kAutomation, "SysFreeString"),
          LateCall<decltype(&::SysStringLen)>(kAutomation, "SysStringLen"),
          LateCall<decltype(&::VariantClear)>(kAutomation, "VariantClear"),
          LateCall<decltype(&::VariantChangeType)>(kAutomation, "VariantChangeType")};
}

bool Whole(const AutomationCalls& calls) {
  return calls.initialize && calls.uninitialize && calls.classOf && calls.create &&
         calls.makeText && calls.freeText && calls.lengthOf && calls.clear && calls.change;
}

}  // namespace

const AutomationCalls* LoadAutomationCalls() {
  static const AutomationCalls calls = LookUpCalls();
  return Whole(calls) ? &calls : nullptr;
}

// Where the thread lives in another kind of apartment already, components work in that one.
Apartment::Apartment(const AutomationCalls& calls)
    : calls_(calls), entered_(SUCCEEDED(calls.initialize(nullptr, COINIT_APARTMENTTHREADED))) {}

Apartment::~Apartment() {
  if (entered_) calls_.uninitialize();
}

Variant::Variant(const AutomationCalls& calls, std::string_view text) : calls_(&calls) {
  const std::wstring wide = WideTextOf(text);
  value_.vt = VT_BSTR;
  value_.bstrVal = calls.makeText(wide.data(), static_cast<UINT>(wide.size()));
}

Variant::Variant(Variant&& other) noexcept
    : calls_(other.calls_), value_(std::exchange(other.value_, VARIANT{})) {}

Variant::~Variant() { calls_->clear(&value_); }

std::optional<std::string> Variant::Text(HRESULT& fault) {
  fault = calls_->change(&value_, &value_, VARIANT_ALPHABOOL, VT_BSTR);
  if (FAILED(fault)) return std::nullopt;
  return TakeText(*calls_, std::exchange(value_, VARIANT{}).bstrVal);
}

std::string TakeText(const AutomationCalls& calls, BSTR text) {
  const std::string ansi = text == nullptr ? std::string() : TextOf({text, calls.lengthOf(text)});
  calls.freeText(text);
  return ansi;
}

}  // namespace tarvo
