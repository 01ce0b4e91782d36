#include "platform/windows/component_calls_windows.h"

#include <algorithm>

#include "platform/windows/automation_windows.h"
#include "platform/windows/code_page_windows.h"
#include "platform/windows/handle_windows.h"
#include "platform/windows/system_message_windows.h"

namespace tarvo {
namespace {

constexpr IID kDispatch = {0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr IID kNone = {};
constexpr DWORD kAnyProcess = CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER;

struct ComponentTraits {
  using Value = IDispatch*;
  static bool IsNone(Value value) { return value == nullptr; }
  static void Close(Value value) { value->Release(); }
};
using Component = UniqueHandle<ComponentTraits>;

ComponentAnswer Fault(HRESULT result) { return {false, SystemMessage(static_cast<DWORD>(result))}; }

/// What the component says of its exception, else the system's words for its number.
ComponentAnswer Exception(const AutomationCalls& calls, EXCEPINFO& exception) {
  if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  TakeText(calls, exception.bstrSource);
  TakeText(calls, exception.bstrHelpFile);
  const std::string description = TakeText(calls, exception.bstrDescription);
  if (!description.empty()) return {false, description};
  if (exception.scode != 0) return Fault(exception.scode);
  return {false, "Error " + std::to_string(exception.wCode)};
}

HRESULT Create(const AutomationCalls& calls, const std::string& programId, Component& component) {
  CLSID id = {};
  const HRESULT known = calls.classOf(WideTextOf(programId).c_str(), &id);
  if (FAILED(known)) return known;
  void* created = nullptr;
  const HRESULT result = calls.create(id, nullptr, kAnyProcess, kDispatch, &created);
  component.Reset(static_cast<IDispatch*>(created));
  return result;
}

ComponentAnswer Invoke(const AutomationCalls& calls, IDispatch& component, DISPID method,
                       const std::vector<std::string>& arguments) {
  std::vector<Variant> owners;
  for (const std::string& one : arguments) owners.emplace_back(calls, one);
  std::vector<VARIANT> last;  // the last one first
  std::for_each(owners.rbegin(), owners.rend(), [&](Variant& one) { last.push_back(one.Get()); });
  DISPPARAMS parameters = {last.data(), nullptr, static_cast<UINT>(last.size()), 0};
  Variant value(calls);
  EXCEPINFO exception = {};
  UINT wrongArgument = 0;
  const HRESULT result =
      component.Invoke(method, kNone, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                       &parameters, &value.Get(), &exception, &wrongArgument);
  if (result == DISP_E_EXCEPTION) return Exception(calls, exception);
  if (FAILED(result)) return Fault(result);
  HRESULT notText = S_OK;
  std::optional<std::string> text = value.Text(notText);
  return text ? ComponentAnswer{true, std::move(*text)} : Fault(notText);
}

}  // namespace

ComponentAnswer WindowsComponentCalls::Call(const std::string& programId, const std::string& method,
                                            const std::vector<std::string>& arguments) {
  const AutomationCalls* calls = LoadAutomationCalls();
  if (calls == nullptr) return Fault(static_cast<HRESULT>(ERROR_PROC_NOT_FOUND));
  const Apartment apartment(*calls);
  Component component;
  const HRESULT created = Create(*calls, programId, component);
  if (FAILED(created)) return Fault(created);
  std::wstring name = WideTextOf(method);
  wchar_t* names = name.data();
  DISPID id = 0;
  const HRESULT known = component.Get()->GetIDsOfNames(kNone, &names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(known)) return Fault(known);
  return Invoke(*calls, *component.Get(), id, arguments);
}

}  // namespace tarvo
