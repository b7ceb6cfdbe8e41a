// Tests of the built program as a person or a job runner starts it: exit status, standard error, files.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "support/temp_folder.h"

namespace sondera {
namespace {

const std::string kExample = std::filesystem::absolute(SONDERA_SOURCE_DIR "/examples/oysand/").string();

struct Outcome {
  int status = -1;
  std::string out, err;
};

class Program : public ::testing::Test {
 protected:
  Outcome Run(const std::string& arguments) {
    const std::string command =
        "cd '" + folder.Path() + "' && '" SONDERA_PROGRAM "' " + arguments + " >out.log 2>err.log </dev/null";
    const int raw = std::system(command.c_str());
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, Read("out.log"), Read("err.log")};
  }
  std::string Read(const std::string& name) {
    std::ifstream in(folder.File(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  void FetchExample() {
    for (const char* name : {"H31.hyx", "job.txt"})
      std::filesystem::copy_file(kExample + name, folder.File(name));
  }
  void Write(const std::string& name, const std::string& text) { std::ofstream(folder.File(name)) << text; }

  test::TempFolder folder;
};

TEST_F(Program, HelpAndVersionGoToStandardOutput) {
  Outcome o = Run("--help");
  EXPECT_EQ(o.status, 0);
  EXPECT_NE(o.out.find("sondera auto new"), std::string::npos);
  o = Run("--version");
  EXPECT_EQ(o.status, 0);
  EXPECT_EQ(o.out, "Sondera 4.1\n");
}

TEST_F(Program, AnUnknownOptionIsRefusedWithOneLine) {
  const Outcome o = Run("--yse auto new x job.txt");
  EXPECT_EQ(o.status, 1);
  EXPECT_EQ(o.err, "sondera: unknown option --yse; sondera --help lists the options.\n");
}

TEST_F(Program, WithoutADisplayAnInteractiveSessionEndsAndSaysWhy) {
  const Outcome o = Run("");
  EXPECT_EQ(o.status, 1);
  EXPECT_NE(o.err.find("no display"), std::string::npos) << o.err;
}

TEST_F(Program, TheExampleRunsFromImportToCurve) {
  FetchExample();
  const Outcome o = Run("auto new oysand job.txt");
  EXPECT_EQ(o.status, 0) << o.err;
  EXPECT_TRUE(std::filesystem::exists(folder.File("oysand.da")));
  EXPECT_TRUE(std::filesystem::exists(folder.File("oysand.da.bkup")));
}

TEST_F(Program, ExportsThePairOfTheExample) {
  FetchExample();
  ASSERT_EQ(Run("auto new oysand job.txt").status, 0);
  const Outcome o = Run("export oysand.da out H31 1 2 3");
  EXPECT_EQ(o.status, 0) << o.err;
  EXPECT_EQ(o.err, "");
  for (const char* name : {"out.TFp", "out.TFa", "out.hyxSM", "out.hyx"})
    EXPECT_GE(std::filesystem::file_size(folder.File(name)), 1024u * 3 * 13) << name;
}

TEST_F(Program, AFailedCommandGivesStatusOneAndAClosingLineWithItsName) {
  Write("job.txt", "import none none 20 50\n");
  const Outcome o = Run("auto new site job.txt");
  EXPECT_EQ(o.status, 1);
  EXPECT_EQ(o.err,
            "Sondera 4.1: Error in reading the file.\nsondera: not everything was done: line 1 import.\n");
}

TEST_F(Program, AMissingProjectGivesStatusOne) {
  Write("job.txt", "* nothing\n");
  const Outcome o = Run("--batch auto old none.da job.txt");
  EXPECT_EQ(o.status, 1);
  EXPECT_EQ(o.err, "Sondera 4.1: File does not exist.\n");
}

TEST_F(Program, AQuestionIsPrintedWithTheAnswerThatItGot) {
  FetchExample();
  Write("twice.txt", "import H31 a 20 50\nimport H31 a 20 50\n");
  Outcome o = Run("auto new site twice.txt");
  EXPECT_EQ(o.status, 1);
  EXPECT_NE(o.err.find("The same measurement ID is in the list. Overwrite it ? No\n"), std::string::npos)
      << o.err;
  o = Run("--yes auto new site twice.txt");
  EXPECT_EQ(o.status, 0) << o.err;
  EXPECT_NE(o.err.find("Overwrite it ? Yes\n"), std::string::npos) << o.err;
}

TEST_F(Program, AScriptThatStopsEarlyWithoutADisplayEndsWithStatusOne) {
  Write("job.txt", "export out measID 1 2\n");
  const Outcome o = Run("auto new site job.txt");
  EXPECT_EQ(o.status, 1);
  EXPECT_NE(o.err.find("the run stopped at line 1 export"), std::string::npos) << o.err;
}

}  // namespace
}  // namespace sondera
