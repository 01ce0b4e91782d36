// What a file keeps when its content is replaced, by either way of replacing it.
#include "platform/windows/file_identity_windows.h"

#include <gtest/gtest.h>

#include "platform/windows/file_copies_windows.h"
#include "platform/windows/handle_windows.h"
#include "tests/windows/test_folder.h"

namespace tarvo {
namespace {

using test::BytesOf;
using test::TestFolder;

/// Who has which rights of a file, in the system's own bytes.
std::string RightsOf(const std::string& path) {
  char rights[1024] = {};
  DWORD size = 0;
  EXPECT_NE(
      GetFileSecurityA(path.c_str(), DACL_SECURITY_INFORMATION, rights, sizeof(rights), &size), 0);
  return std::string(rights, size);
}

/// Nobody but the owner has any right.
void KeepOthersOut(const std::string& path) {
  char read[1024] = {};
  DWORD size = 0;
  ASSERT_NE(GetFileSecurityA(path.c_str(), OWNER_SECURITY_INFORMATION, read, sizeof(read), &size),
            0);
  PSID owner = nullptr;
  BOOL byDefault = FALSE;
  ASSERT_NE(GetSecurityDescriptorOwner(read, &owner, &byDefault), 0);
  alignas(ACL) char room[256] = {};
  auto* list = reinterpret_cast<PACL>(room);
  ASSERT_NE(InitializeAcl(list, sizeof(room), ACL_REVISION), 0);
  ASSERT_NE(AddAccessAllowedAce(list, ACL_REVISION, FILE_ALL_ACCESS, owner), 0);
  SECURITY_DESCRIPTOR narrow{};
  ASSERT_NE(InitializeSecurityDescriptor(&narrow, SECURITY_DESCRIPTOR_REVISION), 0);
  ASSERT_NE(SetSecurityDescriptorDacl(&narrow, TRUE, list, FALSE), 0);
  ASSERT_NE(SetSecurityDescriptorControl(&narrow, SE_DACL_PROTECTED, SE_DACL_PROTECTED), 0);
  ASSERT_NE(SetFileSecurityA(path.c_str(), DACL_SECURITY_INFORMATION, &narrow), 0);
}

enum class Way { Text, Copy };

class KeptIdentity : public testing::TestWithParam<Way> {
 protected:
  /// Gives the file the content "new"; true when it worked.
  bool Replace(const std::string& path) {
    if (GetParam() == Way::Text) return !WindowsFileReplacer().ReplaceText(path, "new");
    return !WindowsFileCopies().CopyOver(source_, path);
  }

  TestFolder folder_;
  const std::string source_ = folder_.Write("new.exe", "new");
  const std::string path_ = folder_.Write("kept.exe", "old");
};

INSTANTIATE_TEST_SUITE_P(Files, KeptIdentity, testing::Values(Way::Text, Way::Copy),
                         [](const auto& way) {
                           return std::string(way.param == Way::Text ? "Text" : "Copy");
                         });

TEST_P(KeptIdentity, IsTheFilesAttributes) {
  constexpr DWORD kMarks = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
  ASSERT_NE(SetFileAttributesA(path_.c_str(), kMarks), 0);
  EXPECT_TRUE(Replace(path_));
  EXPECT_EQ(BytesOf(path_), "new");
  EXPECT_EQ(GetFileAttributesA(path_.c_str()) & kMarks, kMarks);
  // What a killed launcher leaves beside a hidden file is hidden as well.
  for (const char* ending : {".writing", ".tarvo-copy"}) {
    const std::string left = folder_.Write("kept.exe" + std::string(ending), "half");
    SetFileAttributesA(left.c_str(), kMarks | FILE_ATTRIBUTE_READONLY);
  }
  EXPECT_TRUE(Replace(path_));
}

TEST_P(KeptIdentity, IsNotTheSources) {
  ASSERT_NE(SetFileAttributesA(source_.c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
  EXPECT_TRUE(Replace(path_));
  EXPECT_EQ(GetFileAttributesA(path_.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0u);
}

TEST_P(KeptIdentity, IsTheFilesRights) {
  const std::string usual = RightsOf(path_);
  KeepOthersOut(path_);
  const std::string narrow = RightsOf(path_);
  ASSERT_NE(narrow, usual);
  EXPECT_TRUE(Replace(path_));
  EXPECT_EQ(BytesOf(path_), "new");
  EXPECT_TRUE(RightsOf(path_) == narrow);
}

TEST_P(KeptIdentity, IsTheLinkAndTheFileWhereItLeads) {
  folder_.MakeFolder("elsewhere");
  const std::string real = folder_.Write("elsewhere\\real.exe", "old");
  const std::string link = folder_.File("link.exe");
  ASSERT_TRUE(test::MakeLink("link.exe", "elsewhere/real.exe"));
  ASSERT_EQ(BytesOf(link), "old");
  EXPECT_TRUE(Replace(link));
  EXPECT_EQ(BytesOf(real), "new");
  EXPECT_EQ(BytesOf(link), "new");
  EXPECT_TRUE(WindowsFileCopies().SameFile(link, real)) << "the link has become a file";
}

TEST_P(KeptIdentity, OfAFileWithTwoNamesTheOtherKeepsTheOldContent) {
  const std::string other = folder_.File("other.exe");
  ASSERT_NE(CreateHardLinkA(other.c_str(), path_.c_str(), nullptr), 0);
  EXPECT_TRUE(Replace(path_));
  EXPECT_EQ(BytesOf(path_), "new");
  EXPECT_EQ(BytesOf(other), "old");
}

TEST_P(KeptIdentity, AScannerThatDoesNotShareForDeletionHoldsTheFile) {
  const KernelHandle scanner(CreateFileA(path_.c_str(), GENERIC_READ,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                         0, nullptr));
  ASSERT_TRUE(scanner.Valid());
  const auto fault = GetParam() == Way::Text ? WindowsFileReplacer().ReplaceText(path_, "new")
                                             : WindowsFileCopies().CopyOver(source_, path_);
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->trouble, FileTrouble::Held);
  EXPECT_EQ(BytesOf(path_), "old");
}

TEST(RealName, IsThePathItselfWhereThereIsNoFile) {
  EXPECT_EQ(RealName(L"C:\\none\\at all.txt"), L"C:\\none\\at all.txt");
  EXPECT_EQ(RealName(L""), L"");
}

}  // namespace
}  // namespace tarvo
