#include "tests/operator/acceptance/machine.h"

#include <windows.h>

namespace tarvo::acceptance {
namespace {

template <typename Call>
Call Find(const char* library, const char* name) {
  const HMODULE module = GetModuleHandleA(library);
  return reinterpret_cast<Call>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

/// The system's own answer; the usual call tells a program what it was made for.
std::string Version() {
  OSVERSIONINFOW version{};
  version.dwOSVersionInfoSize = sizeof version;
  const auto call = Find<LONG(WINAPI*)(OSVERSIONINFOW*)>("ntdll.dll", "RtlGetVersion");
  if (call) call(&version);
  return std::to_string(version.dwMajorVersion) + "." + std::to_string(version.dwMinorVersion) +
         " build " + std::to_string(version.dwBuildNumber);
}

std::string Kind() {
  const auto wine = Find<const char*(CDECL*)()>("ntdll.dll", "wine_get_version");
  return wine ? std::string(" (Wine ") + wine() + ")" : std::string();
}

std::string Bits() {
  BOOL emulated = FALSE;
  IsWow64Process(GetCurrentProcess(), &emulated);
  if (sizeof(void*) == 8) return "64 bits";
  return emulated ? "32 bits on a system of 64" : "32 bits";
}

std::string Scale() {
  const HDC screen = GetDC(nullptr);
  const int dots = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return std::to_string(dots * 100 / 96) + " %";
}

std::string Screens() {
  return std::to_string(GetSystemMetrics(SM_CXSCREEN)) + " x " +
         std::to_string(GetSystemMetrics(SM_CYSCREEN)) + ", " + Scale() +
         "; screens: " + std::to_string(GetSystemMetrics(SM_CMONITORS));
}

bool HighContrastIsOn() {
  HIGHCONTRASTA contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

bool HasAdministratorsRights() {
  HANDLE token = nullptr;
  TOKEN_ELEVATION elevation{};
  DWORD size = 0;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token)) return false;
  GetTokenInformation(token, TokenElevation, &elevation, sizeof elevation, &size);
  CloseHandle(token);
  return elevation.TokenIsElevated != 0;
}

}  // namespace

std::vector<std::string> DescribeMachine() {
  return {"Windows " + Version() + Kind() + ", this program: " + Bits(),
          "code page: " + std::to_string(GetACP()) +
              ", language: " + std::to_string(GetUserDefaultUILanguage()),
          "screen: " + Screens(),
          std::string("high contrast: ") + (HighContrastIsOn() ? "on" : "off"),
          std::string("rights: ") + (HasAdministratorsRights() ? "an administrator's" : "usual")};
}

}  // namespace tarvo::acceptance
