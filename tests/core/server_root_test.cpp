#include "core/server_root.h"

#include <gtest/gtest.h>

#include "support/md5.h"
#include "tests/simulation/sim_code_page.h"

namespace tarvo {
namespace {

ServerRoot RootOf(const std::string& executablePath, int codePage = 1252) {
  SimCodePage its;
  its.Use(codePage);
  return ServerRoot(executablePath, its);
}

TEST(ServerRootNames, FollowFromTheLaunchersPath) {
  const struct {
    const char* path;
    const char* appFolder;
    const char* withSeparator;
    const char* executableName;
  } cases[] = {
      {"C:\\srv\\tarvo-launcher.exe", "C:\\srv", "C:\\srv\\", "tarvo-launcher"},
      {"C:\\Launcher.EXE", "C:", "C:\\", "Launcher"},
      {"C:\\my servers\\e A\\run.exe", "C:\\my servers\\e A", "C:\\my servers\\e A\\", "run"},
      {"\\\\host\\share\\root\\l.exe", "\\\\host\\share\\root", "\\\\host\\share\\root\\", "l"},
      {"C:\\srv\\\\l.exe", "C:\\srv", "C:\\srv\\", "l"},
      {"C:\\srv\\\\\\l.exe", "C:\\srv\\", "C:\\srv\\\\", "l"},
      {"C:\\srv\\l.exe.exe", "C:\\srv", "C:\\srv\\", "l.exe"},
      {"C:\\srv\\launcher", "C:\\srv", "C:\\srv\\", "launcher"},
      {"launcher.exe", "", "\\", "launcher"},
  };
  for (const auto& c : cases) {
    const ServerRoot root = RootOf(c.path);
    EXPECT_EQ(root.AppFolder(), c.appFolder) << c.path;
    EXPECT_EQ(root.WithSeparator(), c.withSeparator) << c.path;
    EXPECT_EQ(root.ExecutableName(), c.executableName) << c.path;
  }
}

TEST(RootHash, DigestsTheRootWithItsMarksReplaced) {
  EXPECT_EQ(RootOf("C:\\srv\\l.exe").RootHash(), clsMD5().DigestStrToHexStr("C__srv_"));
  EXPECT_EQ(RootOf("C:\\Servers\\eA\\l.exe").RootHash(),
            clsMD5().DigestStrToHexStr("C__Servers_eA_"));
  EXPECT_EQ(RootOf("C:\\l.exe").RootHash(), clsMD5().DigestStrToHexStr("C__"));
  EXPECT_EQ(RootOf("\\\\host\\srv\\l.exe").RootHash(), clsMD5().DigestStrToHexStr("__host_srv_"));
}

TEST(RootHash, IsSharedByFoldersThatDifferInTheirMarksAlone) {
  EXPECT_EQ(RootOf("C:\\a\\b\\l.exe").RootHash(), RootOf("C:\\a_b\\l.exe").RootHash());
  EXPECT_NE(RootOf("C:\\a\\b\\l.exe").RootHash(), RootOf("C:\\a b\\l.exe").RootHash());
  EXPECT_NE(RootOf("C:\\a\\l.exe").RootHash(), RootOf("C:\\A\\l.exe").RootHash());
}

// The second byte of these characters is a "\\": such a folder was refused as no server root.
TEST(ServerRootNames, AreCutByCharactersOfTheCodePage) {
  const struct {
    int codePage;
    const char* path;
    const char* appFolder;
    const char* executableName;
  } cases[] = {
      {932, "C:\\\x95\x5C\\l.exe", "C:\\\x95\x5C", "l"},
      {932, "C:\\\xE0\x5C\\\x83\x5C.exe", "C:\\\xE0\x5C", "\x83\x5C"},
      {932, "C:\\\xB1\\l.exe", "C:\\\xB1", "l"},  // A half-width letter stands alone.
      {936, "C:\\\x81\x5C\\l.exe", "C:\\\x81\x5C", "l"},
      {949, "C:\\\xB0\xA1\\l.exe", "C:\\\xB0\xA1", "l"},
      {950, "C:\\\xA5\x5C\x81\x81\\l.exe", "C:\\\xA5\x5C\x81\x81", "l"},
      {950, "C:\\\xA5\x5Cl.exe", "C:", "\xA5\x5Cl"},
      {1251, "C:\\\xD0\x5Cl.exe", "C:\\\xD0", "l"},
      {1252, "C:\\\x95\x5Cl.exe", "C:\\\x95", "l"},
  };
  for (const auto& c : cases) {
    const ServerRoot root = RootOf(c.path, c.codePage);
    EXPECT_EQ(root.AppFolder(), c.appFolder) << c.codePage << c.path;
    EXPECT_EQ(root.ExecutableName(), c.executableName) << c.codePage << c.path;
  }
}

TEST(RootHash, ReplacesCharactersAndNoHalves) {
  const char* path = "C:\\\x95\x5C\x5Cl.exe";
  EXPECT_EQ(RootOf(path, 932).RootHash(), clsMD5().DigestStrToHexStr("C__\x95\x5C_"));
  EXPECT_EQ(RootOf("\x95\x5C\x5Cl.exe", 932).RootHash(), clsMD5().DigestStrToHexStr("\x95\x5C_"));
  EXPECT_EQ(RootOf("C:\\\xD1\\l.exe", 1252).RootHash(), clsMD5().DigestStrToHexStr("C__\xD1_"));
  EXPECT_EQ(RootOf("C:\\\x95\x5Cl.exe", 1251).RootHash(), clsMD5().DigestStrToHexStr("C__\x95_"));
}

TEST(InstanceName, IsTheSameInAnyLetterCaseOfTheCodePage) {
  const struct {
    int codePage;
    const char* capital;
    const char* small;
    bool same;
  } cases[] = {{1252, "\xD1", "\xF1", true},        {1252, "\xD7", "\xF7", false},
               {1251, "\xD7", "\xF7", true},        {1251, "\xA8", "\xB8", true},
               {932, "\x82\x60", "\x82\x81", true}, {932, "\x83\x41", "\x83\x61", false},
               {936, "\xA7\xA1", "\xA7\xD1", true}, {949, "\xA5\xC1", "\xA5\xE1", true},
               {950, "\xA2\xCF", "\xA2\xE9", true}, {950, "\xA5\x41", "\xA5\x61", false},
               {949, "\xD1\xA1", "\xF1\xA1", false}};
  for (const auto& c : cases) {
    const auto nameOf = [&c](const std::string& folder) {
      SimCodePage its;
      its.Use(c.codePage);
      return InstanceNameOf("C:\\srv" + folder, its);
    };
    EXPECT_EQ(nameOf(c.capital) == nameOf(c.small), c.same) << c.codePage << ' ' << c.capital;
  }
  SimCodePage western;
  EXPECT_EQ(InstanceNameOf("C:\\SRV", western), InstanceNameOf("c:\\srv", western));
  EXPECT_NE(InstanceNameOf("C:\\SRV", western), InstanceNameOf("C:\\SRV2", western));
}

TEST(SettingsKey, IsThePrefixWithTheHashBehindIt) {
  const ServerRoot root = RootOf("C:\\srv\\l.exe");
  EXPECT_EQ(root.SettingsKey(), "Software\\TarvoLab\\Servers\\" + root.RootHash());
}

}  // namespace
}  // namespace tarvo
