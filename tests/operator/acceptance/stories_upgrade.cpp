// New builds of the servers: by hand, on a crash, while one is in use.
#include <windows.h>

#include <cstdio>

#include "tests/operator/acceptance/desk.h"
#include "tests/operator/acceptance/files.h"
#include "tests/operator/acceptance/stories.h"
#include "tests/operator/file_dialog.h"

namespace tarvo::acceptance {
namespace {

std::string FileOf(const std::string& role) { return role + "-server.exe"; }

/// The builds of a story: those that are new, in a folder beside the root, and the bytes of the old
/// ones.
class Builds {
 public:
  explicit Builds(Desk& desk) : desk_(desk), folder_(desk.TheRoot().Beside("new")) {
    CreateDirectoryA(folder_.c_str(), nullptr);
    KeepOld();
    Make();
  }

  /// New executables of all three, a day younger than those before: the old ones with bytes behind
  /// their end.
  void Make() {
    ++day_;
    for (const char* role : kRoles) {
      WriteBytes(Path(role), ReadBytes(InRoot(role)) + "build " + std::to_string(day_));
      SetDate(Path(role));
    }
  }
  void KeepOld() {
    for (int i = 0; i < 3; ++i) old_[i] = ReadBytes(InRoot(kRoles[i]));
  }

  std::string Path(const std::string& role) const { return folder_ + "\\" + FileOf(role); }
  std::string InRoot(const std::string& role) const { return desk_.TheRoot().Path(FileOf(role)); }
  /// The date of the youngest ones, as it is stored.
  std::string Date() const { return "2026-01-" + std::to_string(day_) + " 12:34:56"; }

  void TypePaths() {
    for (int i = 0; i < 3; ++i) desk_.Set("nPath", i, Path(kRoles[i]));
  }

  void ExpectNewInRoot() const {
    for (const char* role : kRoles) {
      Expect(ReadBytes(InRoot(role)) == ReadBytes(Path(role)),
             "the root's " + FileOf(role) + " is not new");
      Expect(DateOf(InRoot(role)) == DateOf(Path(role)), "another date of " + FileOf(role));
    }
  }
  void ExpectOldInRoot() const {
    for (int i = 0; i < 3; ++i) {
      Expect(ReadBytes(InRoot(kRoles[i])) == old_[i],
             "the root's " + FileOf(kRoles[i]) + " is not old");
    }
  }
  /// Three files of one stamp.
  void ExpectOldInBackup() const {
    const std::string folder = desk_.TheRoot().Path("LBackup");
    const std::string stamp = FindName(folder + "\\*_login-server.exe").substr(0, 12);
    Expect(stamp.size() == 12 && stamp.starts_with("20") &&
               stamp.find_first_not_of("0123456789") == std::string::npos,
           "the backup's stamp is \"" + stamp + "\"");
    for (int i = 0; i < 3; ++i) {
      Expect(ReadBytes(folder + "\\" + stamp + "_" + FileOf(kRoles[i])) == old_[i],
             "the backup of " + FileOf(kRoles[i]) + " is not old");
    }
  }
  void ExpectNothingBeside() const {
    const std::string left = FindName(desk_.TheRoot().Path("*.tarvo-copy"));
    Expect(left.empty(), "left beside: " + left);
  }
  void ExpectNoBackup() const {
    Expect(!Exists(desk_.TheRoot().Path("LBackup")), "there is a backup");
  }

 private:
  void SetDate(const std::string& path) const {
    const SYSTEMTIME local{2026, 1, 0, static_cast<WORD>(day_), 12, 34, 56, 0};
    SYSTEMTIME universal{};
    FILETIME stamp{};
    TzSpecificLocalTimeToSystemTime(nullptr, const_cast<SYSTEMTIME*>(&local), &universal);
    SystemTimeToFileTime(&universal, &stamp);
    const HANDLE file =
        CreateFileA(path.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    Expect(SetFileTime(file, nullptr, nullptr, &stamp) != FALSE, "no date can be set");
    CloseHandle(file);
  }
  static ULONGLONG DateOf(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data);
    return (ULONGLONG{data.ftLastWriteTime.dwHighDateTime} << 32) |
           data.ftLastWriteTime.dwLowDateTime;
  }

  Desk& desk_;
  std::string folder_;
  std::string old_[3];
  int day_ = 10;
};

void BrowseFor(Desk& desk, const std::string& path) {
  desk.Click("cmd_nBrowse", 0);
  AnswerFileDialog(WaitForFileDialog(desk.Choice(), 20000), path);
}

void Drop(Desk& desk, const std::string& path) {
  DropFile(desk.Window(), NeedControl(desk.Window(), "nPath", 1), path);
}

/// Chosen in the dialog, dropped, and typed.
void ChooseNew(Desk& desk, const Builds& builds) {
  BrowseFor(desk, "");
  desk.ExpectText("nPath", 0, "");
  BrowseFor(desk, builds.Path("login"));
  Drop(desk, "C:\\Users\\char-server.exe.lnk");
  desk.ExpectBox("This is a shortcut.", "ok");
  Drop(desk, "C:\\builds.zip");
  desk.ExpectBox("Please, drop an executable (*.exe).", "ok");
  desk.ExpectText("nPath", 1, "");
  Drop(desk, builds.Path("char"));
  desk.Set("nPath", 2, builds.Path("map"));
  desk.ExpectText("nPath", 0, builds.Path("login"));
  desk.ExpectText("nPath", 1, builds.Path("char"));
  desk.ExpectSetting("LoginFrom", builds.Path("login"));
  desk.ExpectSetting("CharFrom", builds.Path("char"));
  desk.ExpectNoSetting("MapFrom");
}

void ExpectUpgradeLines(const Desk& desk) {
  for (const char* line :
       {"Upgrade in progress...", "Stopping Login Server...", "Login Server Stopped!",
        "Stopping Char Server...", "Stopping Map Server...", "Creating LBackup folder (first time)",
        "_login-server.exe", "Upgrading Login Server...", "Upgrading Char Server...",
        "Upgrading Map Server...", "Upgrade complete!", "Starting Login Server...",
        "Starting Char Server...", "Starting Map Server..."}) {
    desk.ExpectLog(seconds(5), line);
  }
}

void ExpectUpgraded(const Desk& desk, const Builds& builds) {
  desk.ExpectCountOfEach(1);
  builds.ExpectNewInRoot();
  builds.ExpectOldInBackup();
  builds.ExpectNothingBeside();
}

void RefuseThenUpgrade(Desk& desk, const Builds& builds) {
  const DWORD map = desk.Process("map");
  desk.Click("UpdateNow");
  desk.ExpectBox("The server components are running.", "no");
  builds.ExpectOldInRoot();
  builds.ExpectNoBackup();
  Expect(desk.Process("map") == map, "another process of map after No");
  desk.Click("UpdateNow");
  desk.ExpectBox("Stop all to Upgrade?", "yes");
  desk.ExpectBox("Upgrade was succesfull!", "ok");
  ExpectUpgradeLines(desk);
  ExpectUpgraded(desk, builds);
  Expect(desk.Process("map") != map, "the map server was not restarted");
}

}  // namespace

void UpgradeByHand(Desk& desk) {
  const Builds builds(desk);
  desk.StartLauncher();
  desk.ExpectText("oPath", 0, builds.InRoot("login"));
  desk.ExpectText("oPath", 3, "n/a");
  ChooseNew(desk, builds);
  desk.Click("bStart", 3);
  desk.ExpectLog(seconds(20), "Listening Map Server");
  RefuseThenUpgrade(desk, builds);
  desk.ExpectSetting("LDATE", builds.Date());
  desk.ExpectSetting("MDATE", builds.Date());
  desk.ExpectText("oPath", 3, desk.TheRoot().Kept().Read("LASTUPDATE").value_or("not stored"));
  desk.ExpectLight(seconds(20), 2, Light::Healthy);
  desk.ExpectNoLog("crashed");
  desk.Click("bStart", 4);
  desk.CloseLauncher();
}

namespace {

/// "Map crash": at the map server's, and at no other.
void UpgradeOnMapCrash(Desk& desk, const Builds& builds) {
  desk.Click("optMode", 1);
  desk.ExpectSetting("UpdateMode", "1");
  desk.Click("bStart", 3);
  desk.ExpectLog(seconds(20), "Listening Map Server");
  desk.Tell("login", sample::kCrash);
  desk.ExpectLog(seconds(10), "Login Server crashed, restarting...");
  desk.ExpectCount("login", 1);
  desk.ExpectNoLog("Upgrade in progress...");
  builds.ExpectOldInRoot();
  desk.Tell("map", sample::kCrash);
  desk.ExpectLog(seconds(15), "Upgrade complete!");
  desk.ExpectLog(seconds(10), "Starting Map Server...");
  ExpectUpgraded(desk, builds);
  desk.ExpectLogCount(seconds(0), "Map Server crashed", 1);
  desk.ExpectNoBox();
}

/// "Any crash", and once only.
void UpgradeOnAnyCrash(Desk& desk, Builds& builds) {
  desk.Click("optMode", 2);
  desk.Check("chk_Opts", 2);
  builds.Make();
  desk.Tell("char", sample::kCrash);
  desk.ExpectLogCount(seconds(15), "Upgrade complete!", 2);
  desk.ExpectCountOfEach(1);
  builds.ExpectNewInRoot();
  desk.ExpectChecked("optMode", 0, true);
  desk.ExpectSetting("UpdateMode", "0");
}

}  // namespace

void UpgradeOnCrash(Desk& desk) {
  Builds builds(desk);
  desk.StartLauncher();
  builds.TypePaths();
  UpgradeOnMapCrash(desk, builds);
  UpgradeOnAnyCrash(desk, builds);
  builds.KeepOld();
  builds.Make();
  desk.Tell("map", sample::kCrash);
  desk.ExpectLogCount(seconds(10), "Map Server crashed", 2);
  desk.ExpectCount("map", 1);
  desk.ExpectLogCount(seconds(0), "Upgrade complete!", 2);
  builds.ExpectOldInRoot();
  builds.ExpectNothingBeside();
  desk.Click("bStart", 4);
  desk.CloseLauncher();
}

namespace {

/// Ends the server that holds its file a second after this was made, and waits for that at its own
/// end.
class LetsGoLater {
 public:
  explicit LetsGoLater(DWORD process)
      : process_(process), thread_(CreateThread(nullptr, 0, &Run, this, 0, nullptr)) {}
  ~LetsGoLater() {
    WaitForSingleObject(thread_, INFINITE);
    CloseHandle(thread_);
  }
  LetsGoLater(const LetsGoLater&) = delete;
  LetsGoLater& operator=(const LetsGoLater&) = delete;

 private:
  static DWORD WINAPI Run(void* self) {
    Sleep(1000);
    Terminate(static_cast<LetsGoLater*>(self)->process_);
    return 0;
  }

  DWORD process_;
  HANDLE thread_;
};

}  // namespace

void UpgradeHeld(Desk& desk) {
  Builds builds(desk);
  desk.StartLauncher();
  builds.TypePaths();
  desk.StartServer("map");
  const ULONGLONG begin = GetTickCount64();
  {
    const LetsGoLater holder(desk.Process("map"));
    desk.Click("UpdateNow");
    desk.ExpectBox("Upgrade was succesfull!", "ok");
  }
  const ULONGLONG took = GetTickCount64() - begin;
  Expect(took >= 1000, "done after " + std::to_string(took) + " ms, while the file was in use");
  builds.ExpectNewInRoot();
  builds.ExpectOldInBackup();
  builds.ExpectNothingBeside();
  desk.ExpectLog(seconds(5), "Upgrade complete!");
  desk.CloseLauncher();
}

}  // namespace tarvo::acceptance
