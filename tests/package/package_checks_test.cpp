// Each check of the package on a bad file: a check is worth something only if it finds what it is for, and several of the
// tools end with status 0 by default. Where a tool is missing, its test is reported as skipped.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "package/package_fixture.h"

namespace sondera {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

using test::kId;
using test::kWindows;
using test::RunTool;

class PackageChecks : public test::Package {
 protected:
  /// A file of the test's folder, quoted for a shell.
  std::string Put(const std::string& name, const std::string& text) {
    test::WriteWhole(place.File(name), text);
    return "'" + place.File(name) + "'";
  }
  /// An installed file with one place changed; the test fails when there is no such place.
  static std::string Changed(const std::string& name, const std::string& pattern, const std::string& to) {
    const std::string text = Whole(name), changed = std::regex_replace(text, std::regex(pattern), to);
    EXPECT_NE(changed, text) << pattern;
    return changed;
  }
  test::OpenFolder place;
};

TEST_F(PackageChecks, ACategoryThatIsNotRegisteredFailsDesktopFileValidate) {
  SkipUnless(kWindows && test::HaveTool("desktop-file-validate"),
             "the build with windows, or desktop-file-validate");
  if (IsSkipped()) return;
  const std::string bad = Put("bad.desktop", Changed("share/applications/" + kId + ".desktop",
                                                     "Categories=.*", "Categories=Seismics;"));
  EXPECT_NE(RunTool("desktop-file-validate " + bad).status, 0);
}

TEST_F(PackageChecks, AMissingContentRatingFailsTheStrictCheckOfMetainfoAlone) {
  SkipUnless(kWindows && test::HaveTool("appstreamcli"), "the build with windows, or appstreamcli");
  if (IsSkipped()) return;
  const std::string bad = Put(
      "bad.metainfo.xml", Changed("share/metainfo/" + kId + ".metainfo.xml", "<content_rating[^>]*/>", ""));
  EXPECT_EQ(RunTool("appstreamcli validate --no-net " + bad).status, 0) << "the reason for --strict";
  EXPECT_NE(RunTool("appstreamcli validate --no-net --strict " + bad).status, 0);
}

TEST_F(PackageChecks, AnOpenElementFailsXmllint) {
  SkipUnless(test::HaveTool("xmllint"), "xmllint");
  if (IsSkipped()) return;
  EXPECT_NE(RunTool("xmllint --noout " + Put("bad.xml", "<mime-info>")).status, 0);
}

TEST_F(PackageChecks, AFileThatIsNoPictureFailsRsvgConvert) {
  SkipUnless(test::HaveTool("rsvg-convert"), "rsvg-convert");
  if (IsSkipped()) return;
  EXPECT_NE(RunTool("rsvg-convert -w 64 -o /dev/null " + Put("bad.svg", "no picture")).status, 0);
}

TEST_F(PackageChecks, AWarningOfManIsOnStandardErrorAndNotInTheStatus) {
  SkipUnless(test::HaveTool("man"), "man");
  if (IsSkipped()) return;
  const auto set =
      RunTool("man --warnings -E UTF-8 -l -Tutf8 -Z " +
              Put("bad.1", ".TH BAD 1\n.SH NAME\nbad \\- bad\n.unknownrequest\n") + " >/dev/null");
  EXPECT_EQ(set.status, 0) << "the reason for looking at standard error";
  EXPECT_THAT(set.output, HasSubstr("unknownrequest"));
}

TEST_F(PackageChecks, ACompletionWithAnotherOptionIsFoundByCallingItAndNotByItsSyntax) {
  const std::string options = "--log=", name = "share/bash-completion/completions/sondera";
  const std::string bad = Put("completion", Changed(name, options, "--lag="));
  EXPECT_EQ(RunTool("bash -n '" + In(name) + "'").status, 0);
  EXPECT_EQ(RunTool("bash -n " + bad).status, 0) << "the reason for calling it";
  const auto offered = RunTool("bash -c '. \"" + place.File("completion") +
                               "\"; COMP_WORDS=(sondera --); COMP_CWORD=1; _sondera; "
                               "printf \"%s\\n\" \"${COMPREPLY[@]}\"'");
  EXPECT_THAT(offered.output, HasSubstr("--lag=")) << "it was called";
  EXPECT_NE(test::OptionsIn(offered.output), test::OptionsIn(Sondera("--help").output));
}

TEST_F(PackageChecks, AnotherPatternOfNamesIsFoundByAskingForTheTypeOfAProject) {
  SkipUnless(kWindows && test::HaveTool("update-mime-database") && test::HaveTool("gio"),
             "the build with windows, update-mime-database or gio");
  if (IsSkipped()) return;
  fs::create_directories(place.File("share/mime/packages"));
  Put("share/mime/packages/" + kId + ".xml",
      Changed("share/mime/packages/" + kId + ".xml", "\\*\\.da\"", "*.dax\""));
  EXPECT_EQ(RunTool("update-mime-database '" + place.File("share/mime") + "'").status, 0)
      << "it is well-formed";
  const auto asked =
      RunTool("XDG_DATA_HOME='" + place.File("share") + "' gio info -a standard::content-type " +
              Put("small.da", std::string("\x01\x00\x02", 3)));
  EXPECT_THAT(asked.output, HasSubstr("standard::content-type"));
  EXPECT_THAT(asked.output, Not(HasSubstr("application/x-sondera-project")));
}

TEST_F(PackageChecks, DebugInformationNamesTheFolderUnlessItIsMapped) {
  SkipUnless(test::HaveTool("g++"), "g++");
  if (IsSkipped()) return;
  std::vector<std::string> plain, mapped;
  for (const std::string top : {"one", "another"}) {
    fs::create_directories(place.File(top));
    const std::string source = Put(top + "/a.cpp", "int Answer() { return 42; }\n");
    for (auto* objects : {&plain, &mapped}) {
      const std::string map = objects == &mapped ? " '-ffile-prefix-map=" + place.File(top) + "=.'" : "";
      const auto built =
          RunTool("cd '" + place.File(top) + "' && g++ -g -c" + map + " " + source + " -o a.o");
      ASSERT_EQ(built.status, 0) << built.output;
      objects->push_back(test::ReadWhole(place.File(top + "/a.o")));
    }
  }
  EXPECT_FALSE(plain[0] == plain[1]) << "the comparison can fail";
  EXPECT_TRUE(mapped[0] == mapped[1]);
}

/// Names of ours below a folder.
std::vector<std::string> LeftIn(const std::string& root) {
  std::vector<std::string> left;
  for (const auto& entry : fs::recursive_directory_iterator(root))
    if (entry.path().filename().string().find("sondera") != std::string::npos) left.push_back(entry.path());
  return left;
}

TEST_F(PackageChecks, ADebianPackageIsPurgedWithoutRestAndARestIsFound) {
  SkipUnless(geteuid() == 0 && test::HaveTool("dpkg") && test::HaveTool("dpkg-shlibdeps"), "root, or dpkg");
  if (IsSkipped()) return;
  const test::OpenFolder root;
  const std::string deb = test::MakeDebianPackage(place);
  fs::create_directories(root.File("var/lib/dpkg/info"));
  fs::create_directories(root.File("var/lib/dpkg/updates"));
  for (const char* name : {"status", "available"})
    test::WriteWhole(root.File("var/lib/dpkg/" + std::string(name)), "");
  const std::string dpkg =
      "dpkg --root='" + root.Path() + "' --force-depends --force-script-chrootless --log=/dev/null ";
  const auto install = [&] {
    const auto run = RunTool(dpkg + "--install " + deb);
    EXPECT_EQ(run.status, 0) << run.output;
    EXPECT_EQ(RunTool("'" + root.File("usr/bin/sondera") + "' --version").status, 0);
  };
  install();
  EXPECT_GT(LeftIn(root.Path()).size(), 5u);
  EXPECT_EQ(RunTool(dpkg + "--purge sondera").status, 0);
  EXPECT_THAT(LeftIn(root.Path()), IsEmpty());
  install();
  test::WriteWhole(root.File("usr/share/sondera.cache"), "left");
  EXPECT_EQ(RunTool(dpkg + "--purge sondera").status, 0);
  EXPECT_EQ(LeftIn(root.Path()), std::vector<std::string>{root.File("usr/share/sondera.cache")});
}

TEST_F(PackageChecks, ADebianPackageWithABadDescriptionFailsLintianWithFailOnAlone) {
  SkipUnless(test::HaveTool("lintian") && test::HaveTool("dpkg-shlibdeps"), "lintian or dpkg-shlibdeps");
  if (IsSkipped()) return;
  const std::string deb = test::MakeDebianPackage(place), tree = place.File("tree"),
                    bad = place.File("bad.deb");
  ASSERT_EQ(RunTool("dpkg-deb -R " + deb + " '" + tree + "'").status, 0);
  std::string control = test::ReadWhole(tree + "/DEBIAN/control");
  const std::string line = "\n Sondera takes";
  ASSERT_NE(control.find(line), std::string::npos) << control;
  control.replace(control.find(line), line.size(), "\n   Sondera takes");
  test::WriteWhole(tree + "/DEBIAN/control", control);
  const auto built =
      RunTool("umask 022; dpkg-deb --root-owner-group -Zgzip -z1 -b '" + tree + "' '" + bad + "'");
  ASSERT_EQ(built.status, 0) << built.output;
  const auto lenient = test::Lintian("'" + bad + "'", "");
  EXPECT_THAT(lenient.output, HasSubstr("description-starts-with-leading-spaces"));
  EXPECT_EQ(lenient.status, 0) << "the reason for --fail-on";
  EXPECT_NE(test::Lintian("'" + bad + "'").status, 0);
}

}  // namespace
}  // namespace sondera
