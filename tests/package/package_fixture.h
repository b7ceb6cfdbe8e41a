// package_fixture.h - the installed files of the package in a folder of the test, for the tests of the package.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <regex>
#include <set>
#include <string>

#include "support/temp_folder.h"
#include "support/tool_run.h"

namespace sondera::test {

inline const std::string kId = SONDERA_APP_ID;

#ifdef SONDERA_HAS_GUI
inline constexpr bool kWindows = true;
#else
inline constexpr bool kWindows = false;
#endif
#ifdef SONDERA_HAS_PAGES
inline constexpr bool kPages = true;
#else
inline constexpr bool kPages = false;
#endif

/// The installed files, once for all tests of a process.
class Package : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder = new TempFolder;
    const ToolRun run =
        RunTool("DESTDIR='" + folder->Path() +
                "' cmake --install '" SONDERA_BINARY_DIR "' --component Unspecified --prefix /usr");
    ASSERT_EQ(run.status, 0) << run.output;
  }
  static void TearDownTestSuite() {
    delete folder;
    folder = nullptr;
  }

  static std::string In(const std::string& name) { return folder->File("usr/" + name); }
  static std::string Whole(const std::string& name) { return ReadWhole(In(name)); }
  static ToolRun Sondera(const std::string& arguments) {
    return RunTool("'" + In("bin/sondera") + "' " + arguments);
  }
  static void SkipUnless(bool there, const std::string& what) {
    if (!there) GTEST_SKIP() << what << " is not there";
  }

  inline static TempFolder* folder = nullptr;
};

/// Each option in the text once, without its value.
inline std::set<std::string> OptionsIn(const std::string& text) {
  static const std::regex option("--[a-z]+(-[a-z]+)*");
  std::set<std::string> options;
  for (std::sregex_iterator it(text.begin(), text.end(), option), end; it != end; ++it)
    options.insert(it->str());
  return options;
}

/// A folder that other users may enter: lintian does not run as root.
class OpenFolder : public TempFolder {
 public:
  OpenFolder() { std::filesystem::permissions(Path(), std::filesystem::perms(0755)); }
};

/// lintian on packages, with its options.
inline ToolRun Lintian(const std::string& debs, const std::string& options = "--fail-on warning,error") {
  const std::string check = "lintian " + options + " " + debs;
  return RunTool(geteuid() == 0 ? "runuser -u nobody -- env HOME=/tmp " + check : check);
}

/// Makes the Debian package of the build in a folder. @return its path, for a shell
inline std::string MakeDebianPackage(const OpenFolder& place) {
  const ToolRun packed = RunTool("umask 022; cpack --config '" SONDERA_BINARY_DIR "/CPackConfig.cmake' -B '" +
                                 place.Path() + "'");
  EXPECT_EQ(packed.status, 0) << packed.output;
  return "'" + place.Path() + "'/*.deb";
}

}  // namespace sondera::test
