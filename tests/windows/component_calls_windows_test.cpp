// Components called by name: the system's own, and one that the test registers in its own process,
// which knows every way in which a method may end.
#include "platform/windows/component_calls_windows.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <oleauto.h>

#include <map>

#include "platform/windows/automation_windows.h"
#include "platform/windows/code_page_windows.h"

// The interfaces of COM have no virtual destructor: they end by Release.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace tarvo {
namespace {

constexpr const char* kComponent = "Tarvo.TestComponent";
constexpr const wchar_t* kClassText = L"{6F1F0C1E-6B0B-4C57-9B52-5D0C6D8E3A41}";
constexpr const char* kClassKey = "Software\\Classes\\Tarvo.TestComponent";
constexpr CLSID kClass = {
    0x6F1F0C1E, 0x6B0B, 0x4C57, {0x9B, 0x52, 0x5D, 0x0C, 0x6D, 0x8E, 0x3A, 0x41}};
constexpr IID kUnknownId = {0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr IID kDispatchId = {0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr IID kFactoryId = {1, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

const AutomationCalls& Calls() { return *LoadAutomationCalls(); }

BSTR NewText(const std::string& text) {
  const std::wstring wide = WideTextOf(text);
  return Calls().makeText(wide.data(), static_cast<UINT>(wide.size()));
}

int living = 0;  // components that nobody has released

HRESULT WINAPI FillInLate(EXCEPINFO* exception) {
  exception->bstrDescription = NewText("told late");
  return S_OK;
}

/// A component whose methods are named by what becomes of them.
class TestComponent final : public IDispatch {
 public:
  TestComponent() { ++living; }
  virtual ~TestComponent() { --living; }

  HRESULT WINAPI QueryInterface(REFIID wanted, void** found) override {
    const bool known = IsEqualGUID(wanted, kUnknownId) || IsEqualGUID(wanted, kDispatchId);
    *found = known ? this : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG WINAPI AddRef() override { return ++references_; }
  ULONG WINAPI Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT WINAPI GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT WINAPI GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT WINAPI GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* id) override {
    static const std::map<std::wstring, DISPID> kMethods = {
        {L"Join", kJoin},           {L"Number", kNumber},       {L"Flag", kFlag},
        {L"Nothing", kNothing},     {L"Itself", kItself},       {L"Raise", kRaise},
        {L"RaiseLate", kRaiseLate}, {L"RaiseBare", kRaiseBare}, {L"RaiseCode", kRaiseCode},
        {L"Refuse", kRefuse}};
    const auto method = kMethods.find(names[0]);
    if (method == kMethods.end()) return DISP_E_UNKNOWNNAME;
    *id = method->second;
    return S_OK;
  }
  HRESULT WINAPI Invoke(DISPID method, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT*) override {
    if ((flags & DISPATCH_METHOD) == 0) return DISP_E_MEMBERNOTFOUND;
    switch (method) {
      case kJoin:
        return Join(*parameters, *result);
      case kNumber:
        result->vt = VT_I4;
        result->lVal = 42;
        return S_OK;
      case kFlag:
        result->vt = VT_BOOL;
        result->boolVal = VARIANT_TRUE;
        return S_OK;
      case kItself:
        AddRef();
        result->vt = VT_UNKNOWN;
        result->punkVal = this;
        return S_OK;
      case kRaise:
        exception->bstrSource = NewText("the source");
        exception->bstrDescription = NewText("no such \xE9");
        return DISP_E_EXCEPTION;
      case kRaiseLate:
        exception->pfnDeferredFillIn = FillInLate;
        return DISP_E_EXCEPTION;
      case kRaiseBare:
        exception->scode = E_ACCESSDENIED;
        return DISP_E_EXCEPTION;
      case kRaiseCode:
        exception->wCode = 1007;
        return DISP_E_EXCEPTION;
      case kRefuse:
        return DISP_E_BADPARAMCOUNT;
      default:
        return S_OK;
    }
  }

 private:
  enum : DISPID {
    kJoin = 1,
    kNumber,
    kFlag,
    kNothing,
    kItself,
    kRaise,
    kRaiseLate,
    kRaiseBare,
    kRaiseCode,
    kRefuse
  };

  /// The arguments as the caller has written them, which is from the last to the first here.
  static HRESULT Join(const DISPPARAMS& parameters, VARIANT& result) {
    std::wstring joined;
    for (UINT i = parameters.cArgs; i-- > 0;) {
      if (parameters.rgvarg[i].vt != VT_BSTR) return DISP_E_TYPEMISMATCH;
      const BSTR text = parameters.rgvarg[i].bstrVal;
      joined.append(text, Calls().lengthOf(text)).append(L",");
    }
    result.vt = VT_BSTR;
    result.bstrVal = Calls().makeText(joined.data(), static_cast<UINT>(joined.size()));
    return S_OK;
  }

  ULONG references_ = 0;
};

class TestFactory final : public IClassFactory {
 public:
  virtual ~TestFactory() = default;
  HRESULT WINAPI QueryInterface(REFIID wanted, void** found) override {
    const bool known = IsEqualGUID(wanted, kUnknownId) || IsEqualGUID(wanted, kFactoryId);
    *found = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG WINAPI AddRef() override { return 1; }
  ULONG WINAPI Release() override { return 1; }
  HRESULT WINAPI CreateInstance(IUnknown*, REFIID wanted, void** created) override {
    TestComponent* component = new TestComponent;
    component->AddRef();
    const HRESULT result = component->QueryInterface(wanted, created);
    component->Release();
    return result;
  }
  HRESULT WINAPI LockServer(BOOL) override { return S_OK; }
};

/// The component is registered for as long as the test runs.
class ComponentCallsWindows : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto registerClass =
        reinterpret_cast<decltype(&::CoRegisterClassObject)>(reinterpret_cast<void*>(
            GetProcAddress(LoadLibraryA("ole32.dll"), "CoRegisterClassObject")));
    ASSERT_EQ(registerClass(kClass, &factory_, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_),
              S_OK);
    // Wine looks for classes in the machine's part alone; Windows lets not everybody write there.
    HKEY key = nullptr;
    const std::string path = std::string(kClassKey) + "\\CLSID";
    if (RegCreateKeyA(HKEY_LOCAL_MACHINE, path.c_str(), &key) != 0) {
      root_ = HKEY_CURRENT_USER;
      ASSERT_EQ(RegCreateKeyA(root_, path.c_str(), &key), 0);
    }
    RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(kClassText), 39 * 2);
    RegCloseKey(key);
  }
  void TearDown() override {
    const auto revokeClass = reinterpret_cast<decltype(&::CoRevokeClassObject)>(
        reinterpret_cast<void*>(GetProcAddress(LoadLibraryA("ole32.dll"), "CoRevokeClassObject")));
    revokeClass(cookie_);
    RegDeleteKeyA(root_, (std::string(kClassKey) + "\\CLSID").c_str());
    RegDeleteKeyA(root_, kClassKey);
    EXPECT_EQ(living, 0);
  }

  /// The result, or "fault: " and what is wrong.
  std::string Outcome(const std::string& method, const std::vector<std::string>& arguments = {}) {
    const ComponentAnswer answer = components_.Call(kComponent, method, arguments);
    EXPECT_EQ(living, 0) << method;
    return answer.done ? answer.text : "fault: " + answer.text;
  }

  WindowsComponentCalls components_;

 private:
  Apartment apartment_{Calls()};
  TestFactory factory_;
  DWORD cookie_ = 0;
  HKEY root_ = HKEY_LOCAL_MACHINE;
};

TEST_F(ComponentCallsWindows, GivesTheResultAsText) {
  EXPECT_EQ(Outcome("Number"), "42");
  EXPECT_EQ(Outcome("Flag"), "True");
  EXPECT_EQ(Outcome("Nothing"), "");
  EXPECT_EQ(Outcome("Join"), "");
}

TEST_F(ComponentCallsWindows, GivesUpToThirtyTextsInTheirOrder) {
  EXPECT_EQ(Outcome("Join", {"a", "", "b c"}), "a,,b c,");
  std::vector<std::string> many;
  std::string joined;
  for (std::size_t i = 0; i < ComponentCalls::kMostArguments; ++i) {
    many.push_back(std::to_string(i));
    joined += std::to_string(i) + ",";
  }
  EXPECT_EQ(Outcome("Join", many), joined);
}

TEST_F(ComponentCallsWindows, CarriesTheLettersOfTheCodePage) {
  if (GetACP() != 1252) GTEST_SKIP() << "code page " << GetACP();
  EXPECT_EQ(Outcome("Join", {"\xE9\x80\xFF"}), "\xE9\x80\xFF,");
  EXPECT_EQ(Outcome("Join", {std::string("a\0b", 3)}), std::string("a\0b,", 4));
}

TEST_F(ComponentCallsWindows, TellsTheDescriptionOfAnException) {
  EXPECT_EQ(Outcome("Raise"), "fault: no such \xE9");
  EXPECT_EQ(Outcome("RaiseLate"), "fault: told late");
  EXPECT_EQ(Outcome("RaiseCode"), "fault: Error 1007");
  const std::string bare = Outcome("RaiseBare");
  EXPECT_TRUE(bare.starts_with("fault: ") && bare.size() > 12) << bare;
}

TEST_F(ComponentCallsWindows, TellsWhatIsNotThere) {
  const std::string method = Outcome("NoSuchMethod");
  EXPECT_TRUE(method.starts_with("fault: ") && method.size() > 12) << method;
  const ComponentAnswer component = components_.Call("Tarvo.NoSuchComponent", "Do", {});
  EXPECT_FALSE(component.done);
  EXPECT_GT(component.text.size(), 5u);
  EXPECT_NE("fault: " + component.text, method);
  EXPECT_TRUE(Outcome("Refuse").starts_with("fault: "));
  EXPECT_TRUE(Outcome("Itself").starts_with("fault: ")) << "an object is no text";
}

TEST(ComponentCallsOfTheSystem, ReachFilesByTheSystemsOwnComponent) {
  WindowsComponentCalls components;
  const ComponentAnswer path =
      components.Call("Scripting.FileSystemObject", "BuildPath", {"C:\\one", "two.txt"});
  EXPECT_TRUE(path.done) << path.text;
  EXPECT_EQ(path.text, "C:\\one\\two.txt");
  const ComponentAnswer there =
      components.Call("Scripting.FileSystemObject", "FolderExists", {"C:\\windows"});
  EXPECT_EQ(there.text, "True");
  const ComponentAnswer missing =
      components.Call("Scripting.FileSystemObject", "GetFile", {"C:\\none.txt"});
  EXPECT_FALSE(missing.done);
  EXPECT_NE(missing.text, "");
}

TEST(ComponentCallsOfTheSystem, LeaveComAsItWas) {
  WindowsComponentCalls components;
  components.Call("Scripting.FileSystemObject", "BuildPath", {"a", "b"});
  EXPECT_EQ(Calls().initialize(nullptr, COINIT_MULTITHREADED), S_OK) << "no apartment is left";
  // In an apartment of another kind the call works as well, and leaves that one.
  EXPECT_EQ(components.Call("Scripting.FileSystemObject", "BuildPath", {"a", "b"}).text, "a\\b");
  EXPECT_EQ(Calls().initialize(nullptr, COINIT_MULTITHREADED), S_FALSE);
  Calls().uninitialize();
  Calls().uninitialize();
}

}  // namespace
}  // namespace tarvo
