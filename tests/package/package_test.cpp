// Tests of the installed files: the files of the package, put into a folder of the test, checked with the
// tools of desktop, man and bash. Where a tool is missing, its test is reported as skipped.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "package/package_fixture.h"

namespace sondera {
namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

using test::kId;
using test::kPages;
using test::kWindows;
using test::OpenFolder;
using test::OptionsIn;
using test::Package;

/// Value of a key in a .desktop file; empty when it is not there.
std::string KeyOf(const std::string& desktop, const std::string& key) {
  std::istringstream lines(desktop);
  for (std::string line; std::getline(lines, line);)
    if (line.starts_with(key + "=")) return line.substr(key.size() + 1);
  return {};
}

TEST_F(Package, HoldsTheProgramAndWhatBelongsToItAndNothingElse) {
  std::set<std::string> found;
  for (const auto& entry : fs::recursive_directory_iterator(folder->Path()))
    if (!entry.is_directory()) found.insert(fs::relative(entry.path(), folder->Path()).string());
  std::set<std::string> outside;
  for (const std::string& name : found)
    if (!name.starts_with("usr/share/doc/sondera/")) outside.insert(name);

  std::set<std::string> expected = {"usr/bin/sondera", "usr/share/bash-completion/completions/sondera"};
  expected.insert("usr/libexec/sondera/make_records");  // of the examples
  if (kPages) expected.insert({"usr/share/man/man1/sondera.1.gz", "usr/share/man/man5/sondera-script.5.gz"});
  if (kWindows)
    expected.insert({"usr/libexec/sondera/sondera-windows.so", "usr/share/applications/" + kId + ".desktop",
                     "usr/share/metainfo/" + kId + ".metainfo.xml", "usr/share/mime/packages/" + kId + ".xml",
                     "usr/share/icons/hicolor/scalable/apps/" + kId + ".svg"});
  EXPECT_EQ(outside, expected);
  for (const char* name : {"copyright", "changelog.gz", "manual.md", "script.md",
                           "examples/six_receivers/job.txt", "sondera-export-1.schema.json"})
    EXPECT_THAT(found, Contains("usr/share/doc/sondera/" + std::string(name)));
  EXPECT_THAT(found, Not(Contains("usr/share/doc/sondera/developer.md")));
}

TEST_F(Package, TheInstalledProgramRunsAndTheChangelogIsOfItsVersion) {
  const test::ToolRun run = Sondera("--version");
  EXPECT_EQ(run.status, 0);
  const test::ToolRun log = test::RunTool("gzip -dc '" + In("share/doc/sondera/changelog.gz") + "'");
  const std::string version =
      run.output.substr(run.output.find(' ') + 1, run.output.size() - run.output.find(' ') - 2);
  EXPECT_THAT(log.output, HasSubstr("sondera (" + version + ")"));
}

TEST_F(Package, TheDesktopEntryStartsTheProgramWithAProject) {
  SkipUnless(kWindows, "the build with windows");
  if (IsSkipped()) return;
  const std::string name = "share/applications/" + kId + ".desktop", desktop = Whole(name);
  EXPECT_EQ(KeyOf(desktop, "Exec"), "sondera %f");
  EXPECT_TRUE(fs::exists(In("share/icons/hicolor/scalable/apps/" + KeyOf(desktop, "Icon") + ".svg")));
  const std::string type = KeyOf(desktop, "MimeType");
  ASSERT_TRUE(type.ends_with(";")) << type;
  EXPECT_THAT(Whole("share/mime/packages/" + kId + ".xml"),
              HasSubstr("type=\"" + type.substr(0, type.size() - 1) + "\""));
  EXPECT_THAT(Whole("share/metainfo/" + kId + ".metainfo.xml"), HasSubstr(">" + kId + ".desktop<"));
  SkipUnless(test::HaveTool("desktop-file-validate"), "desktop-file-validate");
  if (IsSkipped()) return;
  const test::ToolRun check = test::RunTool("desktop-file-validate '" + In(name) + "'");
  EXPECT_EQ(check.status, 0);
  EXPECT_EQ(check.output, "");
}

TEST_F(Package, XmlFilesAreWellFormedAndTheIconCanBeScaled) {
  SkipUnless(kWindows && test::HaveTool("xmllint"), "the build with windows, or xmllint");
  if (IsSkipped()) return;
  const std::string icon = "share/icons/hicolor/scalable/apps/" + kId + ".svg";
  for (const std::string& name :
       {"share/mime/packages/" + kId + ".xml", "share/metainfo/" + kId + ".metainfo.xml", icon}) {
    const test::ToolRun check = test::RunTool("xmllint --noout '" + In(name) + "'");
    EXPECT_EQ(check.status, 0) << check.output;
  }
  EXPECT_THAT(Whole(icon), HasSubstr("viewBox="));
}

TEST_F(Package, TheIconIsPaintedInTheSizeOfAMenu) {
  SkipUnless(kWindows && test::HaveTool("rsvg-convert"), "the build with windows, or rsvg-convert");
  if (IsSkipped()) return;
  const test::TempFolder place;
  const test::ToolRun painted =
      test::RunTool("rsvg-convert -w 64 '" + In("share/icons/hicolor/scalable/apps/" + kId + ".svg") +
                    "' -o '" + place.File("icon.png") + "'");
  ASSERT_EQ(painted.status, 0) << painted.output;
  const std::string png = test::ReadWhole(place.File("icon.png"));
  ASSERT_GT(png.size(), 24u);
  EXPECT_EQ(png.substr(16, 8), std::string("\0\0\0\x40\0\0\0\x40", 8)) << "64 by 64";
  EXPECT_GT(png.size(), 500u) << "an empty picture is smaller";
}

/// A copy of the tree that is configured in a folder of its own.
void Configure(const std::string& top, const std::string& options) {
  fs::create_directories(top);
  for (const char* part : {"src", "examples", "packaging", "docs", "CMakeLists.txt", "README.md", "LICENSE"})
    fs::copy(fs::path(SONDERA_SOURCE_DIR) / part, fs::path(top) / part, fs::copy_options::recursive);
  const test::ToolRun run =
      test::RunTool("cmake -S '" + top + "' -B '" + top +
                    "/build' -G Ninja -DSONDERA_TESTS=OFF -DSONDERA_ALSA=OFF " + options);
  ASSERT_EQ(run.status, 0) << run.output;
}

TEST_F(Package, TwoFoldersGiveTheSameBytesWithDebugInformationToo) {
  SkipUnless(test::HaveTool("ninja"), "ninja");
  if (IsSkipped()) return;
  const std::string object = "CMakeFiles/sondera_core.dir/src/runtime/text_format.cpp.o";
  const test::TempFolder place;
  std::vector<std::string> bytes;
  for (const std::string& top : {place.File("one"), place.File("another/place")}) {
    ASSERT_NO_FATAL_FAILURE(
        Configure(top, "-DSONDERA_GUI=OFF -DSONDERA_FIGURES=OFF -DCMAKE_BUILD_TYPE=RelWithDebInfo"));
    const test::ToolRun built = test::RunTool("ninja -C '" + top + "/build' " + object);
    ASSERT_EQ(built.status, 0) << built.output;
    bytes.push_back(test::ReadWhole(top + "/build/" + object));
    EXPECT_THAT(bytes.back(), Not(HasSubstr(top)));
  }
  EXPECT_GT(bytes[0].size(), 1000u);
  EXPECT_TRUE(bytes[0] == bytes[1]);
}

TEST_F(Package, WithoutWindowsADesktopIsToldNothing) {
  const test::TempFolder place;
  ASSERT_NO_FATAL_FAILURE(Configure(place.File("tree"), "-DSONDERA_GUI=OFF"));
  const std::string without = test::ReadWhole(place.File("tree/build/packaging/cmake_install.cmake"));
  const std::string here = test::ReadWhole(SONDERA_BINARY_DIR "/packaging/cmake_install.cmake");
  EXPECT_THAT(without, HasSubstr("bash-completion/completions"));
  for (const char* kind : {".desktop", ".metainfo.xml", "share/mime", "share/icons"}) {
    EXPECT_THAT(without, Not(HasSubstr(kind)));
    EXPECT_EQ(here.find(kind) != std::string::npos, kWindows) << kind;
  }
}

TEST_F(Package, TheMetainfoPassesTheStrictCheck) {
  SkipUnless(kWindows && test::HaveTool("appstreamcli"), "the build with windows, or appstreamcli");
  if (IsSkipped()) return;
  const test::ToolRun check = test::RunTool("appstreamcli validate --no-net --strict '" +
                                            In("share/metainfo/" + kId + ".metainfo.xml") + "'");
  EXPECT_EQ(check.status, 0) << check.output;
}

TEST_F(Package, AProjectFileIsKnownByItsType) {
  SkipUnless(kWindows && test::HaveTool("update-mime-database") && test::HaveTool("gio"),
             "the build with windows, update-mime-database or gio");
  if (IsSkipped()) return;
  // On a copy, with only our own data and those of the machine: what is installed stays as it is.
  const test::TempFolder place;
  fs::create_directories(place.File("share/mime/packages"));
  fs::copy(In("share/mime/packages"), place.File("share/mime/packages"));
  const test::ToolRun update = test::RunTool("update-mime-database '" + place.File("share/mime") + "'");
  ASSERT_EQ(update.status, 0) << update.output;
  test::WriteWhole(place.File("small.da"), std::string("\x01\x00\x02", 3));
  const test::ToolRun asked =
      test::RunTool("XDG_DATA_HOME='" + place.File("share") + "' gio info -a standard::content-type '" +
                    place.File("small.da") + "'");
  EXPECT_THAT(asked.output, HasSubstr("standard::content-type: application/x-sondera-project\n"));
}

TEST_F(Package, ThePageHasTheOptionsOfTheHelpAndNoOther) {
  SkipUnless(kPages, "scdoc");
  if (IsSkipped()) return;
  std::string page = test::RunTool("gzip -dc '" + In("share/man/man1/sondera.1.gz") + "'").output;
  page = std::regex_replace(page, std::regex(R"(\\f[A-Z])"), "");
  page = std::regex_replace(page, std::regex(R"(\\-)"), "-");
  const std::set<std::string> options = OptionsIn(Sondera("--help").output);
  EXPECT_GT(options.size(), 15u);
  EXPECT_EQ(OptionsIn(page), options);
}

TEST_F(Package, ThePagesAreSetWithoutAWarning) {
  SkipUnless(kPages && test::HaveTool("man"), "scdoc, or man");
  if (IsSkipped()) return;
  for (const char* name : {"man1/sondera.1.gz", "man5/sondera-script.5.gz"}) {
    // The status is 0 also with warnings.
    const test::ToolRun set = test::RunTool("man --warnings -E UTF-8 -l -Tutf8 -Z '" +
                                            In("share/man/" + std::string(name)) + "' >/dev/null");
    EXPECT_EQ(set.output, "");
  }
}

TEST_F(Package, TheDebianPackageIsUnpackedAndRuns) {
  SkipUnless(test::HaveTool("dpkg-shlibdeps") && test::HaveTool("file"), "dpkg-shlibdeps or file");
  if (IsSkipped()) return;
  const OpenFolder place;
  const std::string deb = test::MakeDebianPackage(place);
  const std::string control = test::RunTool("dpkg-deb -I " + deb).output;
  EXPECT_THAT(control, HasSubstr("Section: science\n"));
  EXPECT_THAT(control, HasSubstr("libfftw3-double3"));  // found in the program, not written down here
  EXPECT_EQ(control.find("qt6-qpa-plugins") != std::string::npos, kWindows);
  for (const char* script : {"preinst", "postinst", "prerm", "postrm"})
    EXPECT_THAT(control, Not(HasSubstr(script)));

  ASSERT_EQ(test::RunTool("dpkg-deb -x " + deb + " '" + place.File("root") + "'").status, 0);
  const test::ToolRun run = test::RunTool("'" + place.File("root/usr/bin/sondera") + "' --version");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, Sondera("--version").output);
  if (kWindows) {
    // The windows are found where they are installed: the session goes on until it is ended.
    const std::string session = "QT_QPA_PLATFORM=offscreen XDG_STATE_HOME='" + place.Path() +
                                "' timeout 3 '" + place.File("root/usr/bin/sondera") +
                                "' >/dev/null 2>&1; test $? = 124";
    EXPECT_EQ(test::RunTool(session).status, 0);
  }
  EXPECT_TRUE(fs::exists(place.File("root/usr/share/doc/sondera/copyright")));

  SkipUnless(test::HaveTool("lintian"), "lintian");
  if (IsSkipped()) return;
  const test::ToolRun check = test::Lintian(deb);
  EXPECT_EQ(check.status, 0) << check.output;
}

TEST_F(Package, TheCompletionOffersTheOptionsOfTheHelpAndNoOther) {
  const auto offered = [](const std::string& word) {
    return test::RunTool("bash -c '. \"" + In("share/bash-completion/completions/sondera") +
                         "\"; COMP_WORDS=(sondera \"" + word +
                         "\"); COMP_CWORD=1; _sondera; printf \"%s\\n\" \"${COMPREPLY[@]}\"'")
        .output;
  };
  const std::string options = offered("--");
  EXPECT_EQ(OptionsIn(options), OptionsIn(Sondera("--help").output));
  EXPECT_THAT(options, HasSubstr("--log=\n"));
  EXPECT_THAT(options, HasSubstr("--yes\n"));
  EXPECT_EQ(offered("che"), "check\n");
}

}  // namespace
}  // namespace sondera
