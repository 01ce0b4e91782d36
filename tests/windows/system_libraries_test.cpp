// System libraries come from the system's folder, whatever lies nearer.
#include "platform/windows/system_libraries.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/windows/test_folder.h"

namespace tarvo {
namespace {

std::string FolderOf(HMODULE library) {
  char path[MAX_PATH] = {};
  GetModuleFileNameA(library, path, MAX_PATH);
  const std::string text = path;
  return text.substr(0, text.rfind('\\'));
}

std::string SystemFolder() {
  char path[MAX_PATH] = {};
  GetSystemDirectoryA(path, MAX_PATH);
  return path;
}

bool SameFolder(const std::string& one, const std::string& other) {
  return lstrcmpiA(one.c_str(), other.c_str()) == 0;
}

TEST(SystemLibraries, AreLoadedFromTheSystemFolder) {
  for (const auto load : {&LoadSystemLibrary, &LoadByWholePath}) {
    const HMODULE library = load("riched20.dll");
    ASSERT_NE(library, nullptr);
    EXPECT_TRUE(SameFolder(FolderOf(library), SystemFolder())) << FolderOf(library);
  }
}

TEST(SystemLibraries, OneThatTheSystemLacksIsNotLookedForElsewhere) {
  const test::TestFolder currentFolder;
  const std::string server = test::SampleServerPath("login");
  const std::string planted = server.substr(0, server.rfind('\\')) + "\\planted.dll";
  ASSERT_NE(CopyFileA(planted.c_str(), "planted.dll", TRUE), 0);
  EXPECT_EQ(LoadSystemLibrary("planted.dll"), nullptr);
  EXPECT_EQ(LoadByWholePath("planted.dll"), nullptr);
  const HMODULE library = LoadLibraryA("planted.dll");
  ASSERT_NE(library, nullptr) << "it would have been found there";
  FreeLibrary(library);
}

}  // namespace
}  // namespace tarvo
