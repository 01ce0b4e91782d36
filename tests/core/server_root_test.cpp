#include "core/server_root.h"

#include <gtest/gtest.h>

#include "support/md5.h"

namespace tarvo {
namespace {

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
      {"C:\\srv\\l.exe.exe", "C:\\srv", "C:\\srv\\", "l.exe"},
      {"C:\\srv\\launcher", "C:\\srv", "C:\\srv\\", "launcher"},
  };
  for (const auto& c : cases) {
    const ServerRoot root(c.path);
    EXPECT_EQ(root.AppFolder(), c.appFolder) << c.path;
    EXPECT_EQ(root.WithSeparator(), c.withSeparator) << c.path;
    EXPECT_EQ(root.ExecutableName(), c.executableName) << c.path;
  }
}

TEST(RootHash, DigestsTheRootWithItsMarksReplaced) {
  EXPECT_EQ(ServerRoot("C:\\srv\\l.exe").RootHash(), clsMD5().DigestStrToHexStr("C__srv_"));
  EXPECT_EQ(ServerRoot("C:\\Servers\\eA\\l.exe").RootHash(),
            clsMD5().DigestStrToHexStr("C__Servers_eA_"));
  EXPECT_EQ(ServerRoot("C:\\l.exe").RootHash(), clsMD5().DigestStrToHexStr("C__"));
}

TEST(RootHash, IsSharedByFoldersThatDifferInTheirMarksAlone) {
  EXPECT_EQ(ServerRoot("C:\\a\\b\\l.exe").RootHash(), ServerRoot("C:\\a_b\\l.exe").RootHash());
  EXPECT_NE(ServerRoot("C:\\a\\b\\l.exe").RootHash(), ServerRoot("C:\\a b\\l.exe").RootHash());
  EXPECT_NE(ServerRoot("C:\\a\\l.exe").RootHash(), ServerRoot("C:\\A\\l.exe").RootHash());
}

TEST(SettingsKey, IsThePrefixWithTheHashBehindIt) {
  const ServerRoot root("C:\\srv\\l.exe");
  EXPECT_EQ(root.SettingsKey(), "Software\\TarvoLab\\Servers\\" + root.RootHash());
}

}  // namespace
}  // namespace tarvo
