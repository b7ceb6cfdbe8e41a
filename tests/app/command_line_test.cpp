// Tests of the options and of the forms of the command line.
#include "app/command_line.h"

#include <new>
#include <stdexcept>

#include "records/measdb.h"
#include "records/session.h"
#include "runtime/events.h"
#include "support/app_fixture.h"

namespace sondera {
namespace {

class CommandLineForms : public testing::AppTest {};

TEST(ParseCommandLine, OptionsDoNotCountAsArguments) {
  const CommandLine line =
      ParseCommandLine({"sondera", "--batch", "auto", "--yes", "new", "--wait", "site", "job.txt"});
  EXPECT_TRUE(line.batch);
  EXPECT_TRUE(line.assumeYes);
  EXPECT_TRUE(line.wait);
  EXPECT_EQ(line.arguments, (std::vector<std::string>{"sondera", "auto", "new", "site", "job.txt"}));
  EXPECT_TRUE(line.unknownOption.empty());
}

TEST(ParseCommandLine, ABoardIsChosenWithItsOptions) {
  EXPECT_FALSE(ParseCommandLine({"sondera"}).board);
  EXPECT_EQ(ParseCommandLine({"sondera", "--board=sim:seed=2,pace=0"}).board, "sim:seed=2,pace=0");
  EXPECT_EQ(ParseCommandLine({"sondera", "--board="}).board, "");
  EXPECT_EQ(ParseCommandLine({"sondera", "--board", "sim"}).unknownOption, "--board");
}

TEST(RunProgram, AnUnknownBoardEndsItInOneSentence) {
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(RunProgram({"sondera", "--batch", "--board=simm"}), 1);
  EXPECT_EQ(::testing::internal::GetCapturedStderr().find("sondera: There is no board driver \"simm\"; "),
            0u);
}

TEST(RunProgram, ListOfBoardsIsPrinted) {
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(RunProgram({"sondera", "--board=list"}), 0);
  EXPECT_NE(::testing::internal::GetCapturedStdout().find("Sim1: Dynamic Signal Acquisition"),
            std::string::npos);
}

TEST(ParseCommandLine, AnUnknownOptionIsNamed) {
  EXPECT_EQ(ParseCommandLine({"sondera", "--yse"}).unknownOption, "--yse");
}

TEST(ParseCommandLine, AProgramNameThatLooksLikeAnOptionIsNone) {
  EXPECT_EQ(ParseCommandLine({"--odd"}).arguments.size(), 1u);
}

TEST_F(CommandLineForms, ArgumentCountsWithoutAFormAreIgnored) {
  for (std::size_t extra : {2u, 3u, 5u, 6u}) {
    std::vector<std::string> arguments = {"sondera"};
    for (std::size_t i = 0; i < extra; ++i) arguments.push_back(i == 0 ? "auto" : "missing.da");
    EXPECT_EQ(DispatchCommandLine(arguments), 0) << arguments.size();
    EXPECT_TRUE(frontEnd.messages.empty());
    EXPECT_FALSE(QuitRequested());
    EXPECT_EQ(MeasDB.idList.count(), 1);
  }
}

TEST_F(CommandLineForms, AnotherFirstWordOpensNothing) {
  EXPECT_EQ(DispatchCommandLine({"sondera", "Auto", "old", "missing.da", "job.txt"}), 0);
  EXPECT_EQ(DispatchCommandLine({"sondera", "exporting", "missing.da", "out", "id", "1", "2", "3"}), 0);
  EXPECT_TRUE(frontEnd.messages.empty());
  EXPECT_FALSE(QuitRequested());
}

TEST_F(CommandLineForms, AProjectWithoutANameIsNotMadeAndItsScriptNotRun) {
  Write("job.txt", "import none none 20 50\n");
  for (const char* name : {"", " \t", "folder/", "/"}) {
    EXPECT_EQ(DispatchCommandLine({"sondera", "auto", "new", name, "job.txt"}), 1) << name;
    EXPECT_EQ(WrongForm({"sondera", "auto", "new", name, "job.txt"}), "the name of the new project is empty");
  }
  EXPECT_FALSE(QuitRequested());
  EXPECT_TRUE(frontEnd.messages.empty());
  EXPECT_FALSE(Exists(".da"));
  EXPECT_EQ(session.projectFileName, "");
}

TEST(WrongForm, NamesWhatNoFormHas) {
  const auto wrong = [](std::vector<std::string> words) {
    words.insert(words.begin(), "sondera");
    return WrongForm(words);
  };
  EXPECT_EQ(WrongForm({"sondera"}), "");
  EXPECT_EQ(wrong({"site.da"}), "");
  EXPECT_EQ(wrong({"auto", "new", "site", "job.txt"}), "");
  EXPECT_EQ(wrong({"auto", "other", "x", "job.txt"}), "");
  EXPECT_EQ(wrong({"export", "site.da", "out", "id", "1", "2", "3"}), "");
  EXPECT_EQ(wrong({"auto", "new", "x"}), "auto takes three words (new or old, a project, a script), not 2");
  EXPECT_EQ(wrong({"export", "site.da", "out"}), "export takes six words, not 2");
  EXPECT_EQ(wrong({"export"}), "\"export\" alone is taken for the name of a project file");
  EXPECT_EQ(wrong({"-h"}), "\"-h\" alone is taken for the name of a project file");
  EXPECT_EQ(wrong({"one", "two", "three"}), "\"one\" with 2 words after it is not a command");
}

TEST_F(CommandLineForms, AutoWithAnotherWordRunsTheScriptOnTheEmptySession) {
  Write("job.txt", "* nothing to do\n");
  EXPECT_EQ(DispatchCommandLine({"sondera", "auto", "other", "x", "job.txt"}), 0);
  EXPECT_TRUE(QuitRequested());
  EXPECT_TRUE(session.projectFileName.empty());
}

TEST_F(CommandLineForms, AutoNewOverwritesWithABackupAndWithoutAQuestion) {
  Write("x.da", "an older project");
  Write("job.txt", "");
  EXPECT_EQ(DispatchCommandLine({"sondera", "auto", "new", "x", "job.txt"}), 0);
  EXPECT_TRUE(frontEnd.questions.empty());
  std::ifstream backup(folder.File("x.da.bkup"));
  std::string text;
  std::getline(backup, text);
  EXPECT_EQ(text, "an older project");
  EXPECT_GT(std::filesystem::file_size(folder.File("x.da")), 1000u);
  EXPECT_EQ(session.projectFileName, folder.File("x") + ".da");
}

TEST_F(CommandLineForms, AutoOldOfAMissingFileSaysSoAndFails) {
  Write("job.txt", "* nothing to do\n");
  EXPECT_EQ(DispatchCommandLine({"sondera", "auto", "old", "none.da", "job.txt"}), 1);
  EXPECT_EQ(frontEnd.messages, std::vector<std::string>{"File does not exist."});
  EXPECT_EQ(MeasDB.idList.count(), 0);
}

TEST_F(CommandLineForms, AMissingScriptLeavesTheProgramOpen) {
  EXPECT_EQ(DispatchCommandLine({"sondera", "auto", "other", "x", "none.txt"}), 1);
  EXPECT_FALSE(QuitRequested());
  EXPECT_EQ(frontEnd.messages.size(), 1u);
}

TEST_F(CommandLineForms, AProjectThatWasSavedOpensAgain) {
  Write("job.txt", "");
  ASSERT_EQ(DispatchCommandLine({"sondera", "auto", "new", "site", "job.txt"}), 0);
  StartSession();
  EXPECT_EQ(DispatchCommandLine({"sondera", "site.da"}), 0);
  EXPECT_EQ(MeasDB.idList.count(), 1);
  EXPECT_EQ(GetKeyFromID("ProjID", "measID"), 1);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST(EndOnException, GivesOneSentenceAndStatusOne) {
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(EndOnException([]() -> int { throw std::bad_alloc(); }), 1);
  EXPECT_EQ(EndOnException([]() -> int { throw std::runtime_error("it broke"); }), 1);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "sondera: there is not enough memory for this. The program ends; saved files are whole.\n"
            "sondera: an error of the program: it broke. The program ends; saved files are whole.\n");
  EXPECT_EQ(EndOnException([] { return 0; }), 0);
}

}  // namespace
}  // namespace sondera
