// Tests of the program without its windows, as it is built where there is no Qt.
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "support/temp_folder.h"
#include "support/tool_run.h"

namespace sondera {
namespace {

/// The same library as that of the program, and no door to windows.
const std::string kProgram = SONDERA_WITHOUT_WINDOWS;

TEST(WithoutWindows, TheProgramRunsScriptsAndSaysThatItHasNone) {
  const test::TempFolder folder;
  std::ofstream(folder.File("job.txt")) << "*sondera 2\nnew\n";
  EXPECT_EQ(test::RunTool("'" + kProgram + "' run '" + folder.File("job.txt") + "' 2>&1").status, 0);
  const test::ToolRun session = test::RunTool("DISPLAY=:99 '" + kProgram + "' 2>&1 </dev/null");
  EXPECT_NE(session.status, 0);
  EXPECT_TRUE(session.output.starts_with("sondera: this build has no windows; give a command script"))
      << session.output;
}

TEST(WithoutWindows, TheProgramNeedsNoLibraryOfQt) {
  const test::ToolRun libraries = test::RunTool("ldd '" + kProgram + "'");
  ASSERT_EQ(libraries.status, 0) << libraries.output;
  EXPECT_NE(libraries.output.find("libfftw3"), std::string::npos) << libraries.output;
  EXPECT_EQ(libraries.output.find("Qt"), std::string::npos) << libraries.output;
}

TEST(WithoutWindows, ABuildThatWantsNoneCompilesNothingOfThemAndSeesNoHeaderOfQt) {
  const test::TempFolder folder;
  const auto commands = [&](const std::string& build, const std::string& option) {
    const test::ToolRun run =
        test::RunTool("cmake -S . -B '" + folder.File(build) + "' -G Ninja -DSONDERA_TESTS=OFF " + option +
                      " -DCMAKE_EXPORT_COMPILE_COMMANDS=ON 2>&1");
    EXPECT_EQ(run.status, 0) << run.output;
    return test::ReadWhole(folder.File(build + "/compile_commands.json"));
  };
  const std::string without = commands("without", "-DSONDERA_GUI=OFF");
  EXPECT_NE(without.find("src/app/main.cpp"), std::string::npos);
  EXPECT_EQ(without.find("src/gui/"), std::string::npos);
  EXPECT_EQ(without.find("QtCore"), std::string::npos);
  EXPECT_EQ(without.find("SONDERA_HAS_GUI"), std::string::npos);
#ifdef SONDERA_HAS_GUI
  const std::string with = commands("with", "");
  EXPECT_NE(with.find("src/gui/"), std::string::npos);
  EXPECT_NE(with.find("QtCore"), std::string::npos);
  EXPECT_NE(with.find("SONDERA_HAS_GUI"), std::string::npos);
#endif
}

}  // namespace
}  // namespace sondera
