#include "platform/windows/registry_windows.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace tarvo {
namespace {

constexpr char kKey[] = "Software\\TarvoLab\\AdapterTest";

/// Each test begins and ends without the key, in both hives.
class WindowsRegistryTest : public testing::Test {
 protected:
  WindowsRegistryTest() { Clear(); }
  ~WindowsRegistryTest() override { Clear(); }

  static void Clear() {
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, kKey);
    RegDeleteKeyA(HKEY_LOCAL_MACHINE, kKey);
    RegDeleteTreeA(HKEY_CURRENT_USER, kKey);
    RegDeleteKeyA(HKEY_CURRENT_USER, kKey);
  }

  /// Puts a value there as any other program could.
  static void Put(const char* name, DWORD type, const std::string& bytes) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyA(HKEY_CURRENT_USER, kKey, &key), ERROR_SUCCESS);
    EXPECT_EQ(RegSetValueExA(key, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                             static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
    RegCloseKey(key);
  }

  std::optional<RegistryData> Query(const char* name) {
    return registry_.Query(Hive::CurrentUser, kKey, name);
  }
  /// The text of a string value up to its first NUL; a note where there is none.
  std::string TextOf(Hive hive, const std::string& key, const std::string& name) {
    const auto data = registry_.Query(hive, key, name);
    if (!data) return "(missing)";
    if (data->type != kRegistryText) return "(type " + std::to_string(data->type) + ")";
    return data->bytes.substr(0, data->bytes.find('\0'));
  }

  WindowsRegistry registry_;
};

TEST_F(WindowsRegistryTest, FindsNothingWhereKeyOrValueAreMissing) {
  EXPECT_FALSE(Query("Any").has_value());
  Put("Other", REG_SZ, "x");
  EXPECT_FALSE(Query("Any").has_value());
}

TEST_F(WindowsRegistryTest, KeepsATextInEitherHive) {
  for (const Hive hive : {Hive::LocalMachine, Hive::CurrentUser}) {
    EXPECT_TRUE(registry_.WriteText(hive, kKey, "LoginExe", "login-server.exe"));
    EXPECT_EQ(TextOf(hive, kKey, "LoginExe"), "login-server.exe");
    EXPECT_TRUE(registry_.WriteText(hive, kKey, "LoginExe", "x"));
    EXPECT_EQ(TextOf(hive, kKey, "LoginExe"), "x");
  }
}

TEST_F(WindowsRegistryTest, KeepsEmptyTextsAndBytesAbove127) {
  for (const std::string text : {"", "K\xF6nig \xA7 \xFF", "\xE9"}) {
    EXPECT_TRUE(registry_.WriteText(Hive::CurrentUser, kKey, "Name", text));
    EXPECT_EQ(TextOf(Hive::CurrentUser, kKey, "Name"), text);
  }
}

TEST_F(WindowsRegistryTest, MakesTheWholeKeyPathAndIgnoresATrailingSeparator) {
  const std::string deep = std::string(kKey) + "\\Servers\\0123456789abcdef";
  EXPECT_TRUE(registry_.WriteText(Hive::CurrentUser, deep + "\\", "Winsock", "&H202"));
  EXPECT_EQ(TextOf(Hive::CurrentUser, deep, "Winsock"), "&H202");
  EXPECT_EQ(TextOf(Hive::CurrentUser, deep + "\\", "Winsock"), "&H202");
}

TEST_F(WindowsRegistryTest, TellsTheTypeOfWhatIsNoString) {
  Put("Number", REG_DWORD, std::string("\x07\0\0\0", 4));
  Put("Bytes", REG_BINARY, std::string("\0\1\2", 3));
  Put("Expand", REG_EXPAND_SZ, std::string("%PATH%\0", 7));
  EXPECT_EQ(Query("Number").value().type, DWORD{REG_DWORD});
  EXPECT_EQ(Query("Number").value().bytes, std::string("\x07\0\0\0", 4));
  EXPECT_EQ(Query("Bytes").value().type, DWORD{REG_BINARY});
  EXPECT_EQ(Query("Bytes").value().bytes, std::string("\0\1\2", 3));
  EXPECT_EQ(Query("Expand").value().type, DWORD{REG_EXPAND_SZ});
}

TEST_F(WindowsRegistryTest, ReadsAStringThatWasStoredWithoutItsNul) {
  // The byte behind the text is no NUL either, so the system has none to add.
  Put("Short", REG_SZ, std::string("abcdef").substr(0, 3));
  EXPECT_EQ(TextOf(Hive::CurrentUser, kKey, "Short"), "abc");
  Put("Inner", REG_SZ, std::string("ab\0cd\0", 6));
  EXPECT_EQ(TextOf(Hive::CurrentUser, kKey, "Inner"), "ab");
  Put("Nothing", REG_SZ, "");
  EXPECT_EQ(TextOf(Hive::CurrentUser, kKey, "Nothing"), "");
}

TEST_F(WindowsRegistryTest, ReadsAndWritesSixtyKilobytes) {
  const std::string large(60 * 1024, 'x');
  EXPECT_TRUE(registry_.WriteText(Hive::CurrentUser, kKey, "Large", large));
  EXPECT_EQ(TextOf(Hive::CurrentUser, kKey, "Large"), large);
}

TEST_F(WindowsRegistryTest, ErasesAValueAndOverlooksAMissingOne) {
  registry_.Erase(Hive::CurrentUser, kKey, "NoKeyYet");
  EXPECT_TRUE(registry_.WriteText(Hive::CurrentUser, kKey, "Kept", "1"));
  EXPECT_TRUE(registry_.WriteText(Hive::CurrentUser, kKey, "Gone", "1"));
  registry_.Erase(Hive::CurrentUser, kKey, "Gone");
  registry_.Erase(Hive::CurrentUser, kKey, "Gone");
  EXPECT_EQ(TextOf(Hive::CurrentUser, kKey, "Gone"), "(missing)");
  EXPECT_EQ(TextOf(Hive::CurrentUser, kKey, "Kept"), "1");
}

TEST_F(WindowsRegistryTest, SaysThatAKeyCouldNotBeMade) {
  const std::string tooLong = std::string(kKey) + "\\" + std::string(300, 'k');
  EXPECT_FALSE(registry_.WriteText(Hive::CurrentUser, tooLong, "Name", "text"));
}

}  // namespace
}  // namespace tarvo
