// paths_test.cpp - joining and taking apart of file names.
#include "runtime/paths.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace sondera {
namespace {

TEST(JoinPath, PutsOneSeparatorBetween) {
  EXPECT_EQ(JoinPath("/data/site", "a.da"), "/data/site/a.da");
  EXPECT_EQ(JoinPath("/data/site/", "a.da"), "/data/site/a.da");
  EXPECT_EQ(JoinPath("rel", "sub/a.da"), "rel/sub/a.da");
}

TEST(JoinPath, PutsAnAbsoluteNameBehindTheFolderToo) {
  EXPECT_EQ(JoinPath("/data", "/etc/hosts"), "/data/etc/hosts");
  EXPECT_EQ(JoinUnlessAbsolute("/data", "/etc/hosts"), "/etc/hosts");
  EXPECT_EQ(JoinUnlessAbsolute("/data", "hosts"), "/data/hosts");
}

TEST(JoinPath, EmptyPartGivesTheOther) {
  EXPECT_EQ(JoinPath("", "a.da"), "a.da");
  EXPECT_EQ(JoinPath("/data", ""), "/data");
  EXPECT_EQ(JoinPath("", ""), "");
  EXPECT_EQ(JoinPath("/", "a"), "/a");
}

TEST(FileNameOf, TakesTheTextBehindTheLastSeparator) {
  EXPECT_EQ(FileNameOf("/data/site/a.b.da"), "a.b.da");
  EXPECT_EQ(FileNameOf("a.da"), "a.da");
  EXPECT_EQ(FileNameOf("/data/"), "");
  EXPECT_EQ(DirectoryOf("/data/site/a.b.da"), "/data/site/");
  EXPECT_EQ(DirectoryOf("a.da"), "");
}

TEST(WithClosingSeparator, AddsOneOnlyWhereItIsMissing) {
  EXPECT_EQ(WithClosingSeparator("/data"), "/data/");
  EXPECT_EQ(WithClosingSeparator("/data/"), "/data/");
  EXPECT_EQ(WithClosingSeparator(""), "/");
}

TEST(FileExists, TellsFilesFromFoldersAndNothing) {
  const std::string folder = ::testing::TempDir() + "sondera_paths_test";
  std::filesystem::create_directories(folder);
  std::ofstream(folder + "/there") << "x";
  EXPECT_TRUE(FileExists(folder + "/there"));
  EXPECT_FALSE(FileExists(folder + "/missing"));
  EXPECT_FALSE(FileExists(folder));
  EXPECT_TRUE(DirectoryExists(folder));
  EXPECT_FALSE(DirectoryExists(folder + "/there"));
  std::filesystem::remove_all(folder);
}

TEST(PlainFileName, HasNoSeparatorAndIsNoFolderOfItsOwn) {
  for (const char* name : {"a", "ProjID", "...", ".a", "a.da", " "})
    EXPECT_TRUE(IsPlainFileName(name)) << name;
  for (const char* name : {"", ".", "..", "/", "a/b", "../a", "a/"})
    EXPECT_FALSE(IsPlainFileName(name)) << name;
}

TEST(CurrentDirectory, IsWhereTheProcessStands) {
  EXPECT_EQ(CurrentDirectory(), std::filesystem::current_path().string());
}

TEST(CurrentDirectory, IsADotWhenTheFolderIsGone) {
  const std::filesystem::path before = std::filesystem::current_path();
  const std::string gone = ::testing::TempDir() + "sondera_gone_test";
  std::filesystem::create_directories(gone);
  std::filesystem::current_path(gone);
  std::filesystem::remove_all(gone);
  EXPECT_EQ(CurrentDirectory(), ".");
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace sondera
