// Tests of a run line by line: where it stops, dialogs and their answers, continuing after errors, projects.
#include "app/script/run.h"

#include "app/run_report.h"
#include "app/script/script_files.h"
#include "app/script_fixture.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/findings.h"

namespace sondera {
namespace {

class ScriptRun : public testing::ScriptTest {
 protected:
  void TearDown() override {
    for (const auto& [control, callback] : replaced_) InstallCallback(*control, callback);
    ScriptTest::TearDown();
  }
  /// Another callback for a control until the end of the test.
  void Replace(const Control& control, Callback callback) {
    replaced_.emplace_back(&control, CallbackOf(control));
    InstallCallback(control, callback);
  }

 private:
  std::vector<std::pair<ControlId, Callback>> replaced_;
};

TEST_F(ScriptRun, AnEmptyScriptIsDone) {
  EXPECT_EQ(Run(""), 0);
  EXPECT_EQ(err, "");
  EXPECT_EQ(out, "");
}

TEST_F(ScriptRun, TheHeaderIsWanted) {
  script::Source source = script::Source::OfText("* comment\n*sondera 2\n");
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(script::Run("job", {}).run(source), 1);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "job:1: line: the first line has to be \"*sondera 2\"\n");
}

TEST_F(ScriptRun, AHeaderInTheSecondLineIsACommentOfTheFirstDialect) {
  const std::string line = "print \"the second dialect\"\n";
  Write("first.txt", "* a comment\n*sondera 2\n" + line);
  Write("second.txt", "*sondera 2\n" + line);
  ::testing::internal::CaptureStdout();
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(script::RunFile("first.txt", {}), 0);  // the first dialect skips a word that it does not know
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  ResetEvents();
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(script::RunFile("second.txt", {}), 0);
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "the second dialect\n");
  ::testing::internal::GetCapturedStderr();
}

TEST_F(ScriptRun, BlankLinesAndCommentsAreNothing) {
  EXPECT_EQ(Run("\n   \n# a comment\n* another\nprint \"a\"\n\nprint \"b\""), 0) << err;
  EXPECT_EQ(out, "a\nb\n");
}

TEST_F(ScriptRun, StopsAtTheFirstLineThatCannotBeDone) {
  EXPECT_EQ(Run("print \"a\"\nprnt \"b\"\nprint \"c\""), 1);
  EXPECT_EQ(out, "a\n");
  EXPECT_EQ(err, "job:3: prnt: unknown word \"prnt\"; did you mean \"print\"?\n");
}

TEST_F(ScriptRun, GoesOnAfterErrorsAndCountsThem) {
  EXPECT_EQ(Run("onerror continue\nprnt\nprint \"c\"\nonerror stop\nprnt\nprint \"d\""), 1);
  EXPECT_EQ(out, "c\n");
  EXPECT_EQ(Run("onerror continue\nprnt\nprint \"c\"\nprnt\n"), 1);
  EXPECT_EQ(err,
            "job:3: prnt: unknown word \"prnt\"; did you mean \"print\"?\n"
            "job:5: prnt: unknown word \"prnt\"; did you mean \"print\"?\n"
            "sondera: 2 lines of job could not be done.\n");
}

TEST_F(ScriptRun, ALineTooLongIsToldAndPassedOver) {
  EXPECT_EQ(Run("onerror continue\nprint \"" + std::string(5000, 'x') + "\"\nprint \"c\"\n"), 1);
  EXPECT_EQ(err,
            "job:3: line: the line is longer than 4096 bytes\n"
            "sondera: 1 line of job could not be done.\n");
  EXPECT_EQ(out, "c\n");
}

TEST_F(ScriptRun, ARefusedPressAndAMessageStopIt) {
  Replace(sasw::MASKINGNEW, [](Panel, ControlId, Event, long) { return -1; });
  EXPECT_EQ(Run("press SASW.MASKINGNEW\nprint \"b\""), 1);
  EXPECT_EQ(err, "job:2: press: SASW.MASKINGNEW refused\n");
  Replace(sasw::MASKINGDEL, [](Panel, ControlId, Event, long) {
    MessagePopup("title", "First trouble.\n");
    MessagePopup("title", "Second trouble.");
    return 0;
  });
  EXPECT_EQ(Run("press SASW.MASKINGDEL"), 1);
  EXPECT_EQ(err, "job:2: press: First trouble.\njob:2: press: Second trouble.\n");
}

bool answered = false;
std::string given;
int AskTwice(Panel, ControlId, Event, long) {
  answered = ConfirmPopup("title", "Really ?");
  given = PromptPopup("title", "Which name ?", 80).value_or("(none)");
  return 0;
}

TEST_F(ScriptRun, AnswersAreUsedOnceAndInOrder) {
  Replace(sasw::MASKINGNEW, AskTwice);
  EXPECT_EQ(Run("answer yes\nanswer text \"the name\"\nprint \"looks come between\"\npress SASW.MASKINGNEW"),
            0)
      << err;
  EXPECT_TRUE(answered);
  EXPECT_EQ(given, "the name");
  EXPECT_EQ(Run("answer no\nanswer cancel\npress SASW.MASKINGNEW"), 0) << err;
  EXPECT_FALSE(answered);
  EXPECT_EQ(given, "(none)");
}

TEST_F(ScriptRun, AQuestionWithoutAnAnswerStopsIt) {
  Replace(sasw::MASKINGNEW, AskTwice);
  EXPECT_EQ(Run("answer yes\npress SASW.MASKINGNEW"), 1);
  EXPECT_EQ(err, "job:3: press: a question without an answer: \"Which name ?\"\n");
  EXPECT_EQ(Run("answer text \"x\"\nanswer yes\npress SASW.MASKINGNEW"), 1);
  EXPECT_EQ(err,
            "job:4: press: the answer does not fit the question: \"Really ?\"\n"
            "job:4: press: the answer does not fit the question: \"Which name ?\"\n");
}

TEST_F(ScriptRun, AnAnswerThatIsNotAskedForIsAnError) {
  EXPECT_EQ(Run("answer yes\nset INVERSION.NITER 4\n"), 1);
  EXPECT_EQ(err, "job:3: set: 1 of the answers before it was not asked for\n");
  EXPECT_EQ(Run("set INVERSION.NITER 4\nanswer yes\nanswer no\n"), 1);
  EXPECT_EQ(err, "job:4: answer: no line follows that could ask for it\n");
  EXPECT_EQ(Run("answer file x.da\nprint \"a\""), 1);
}

TEST_F(ScriptRun, AnswersOfALineThatFailedDoNotReachTheNext) {
  Replace(sasw::MASKINGNEW, AskTwice);
  EXPECT_EQ(Run("onerror continue\nanswer yes\nanswer yes\nanswer yes\npress SASW.MASKINGNEW\nset "
                "INVERSION.NITER 3"),
            1);
  EXPECT_EQ(err.find("job:7"), std::string::npos) << err;
}

TEST_F(ScriptRun, AFileAnswerIsRelativeToTheCurrentFolder) {
  EXPECT_EQ(Run("answer file site.da\npress MEASPANEL.F7"), 0) << err;
  EXPECT_TRUE(Exists("site.da"));
  EXPECT_EQ(session.projectFileName, std::filesystem::current_path().string() + "/site.da");
}

TEST_F(ScriptRun, TheFrontEndThatStoodBeforeComesBack) {
  EXPECT_EQ(Run("print \"a\""), 0);
  MessagePopup("title", "seen");
  EXPECT_EQ(frontEnd.messages, std::vector<std::string>{"seen"});
}

TEST_F(ScriptRun, SavesAndOpensByItsOwnAnswers) {
  EXPECT_EQ(Run("save"), 1);
  EXPECT_EQ(err, "job:2: save: the project has no file yet; name one\n");
  EXPECT_EQ(Run("save a.da\nsave\nsave a.da\nopen a.da\nassert file a.da"), 0) << err;
  EXPECT_EQ(Run("save b.da\nopen a.da\nsave b.da"), 1);
  EXPECT_EQ(err, "job:4: save: \"b.da\" exists; overwrite=yes replaces it\n");
  EXPECT_EQ(Run("open a.da\nsave b.da overwrite=yes\nsave"), 0) << err;
  EXPECT_EQ(Run("open none.da"), 1);
  EXPECT_EQ(err, "job:2: open: there is no file \"none.da\"\n");
  EXPECT_EQ(MeasDB.idList.count(), 1);  // nothing was emptied for it
}

TEST_F(ScriptRun, UnsavedChangesAreDroppedOnlyOnDemand) {
  ASSERT_EQ(Run("save a.da"), 0) << err;
  for (const std::string word : {"new", "open a.da"}) {
    const std::string id = word.substr(0, 3);
    EXPECT_EQ(Run("open a.da discard=yes\nproject id=" + id + "\n" + word), 1);
    EXPECT_EQ(err, "job:4: " + word.substr(0, word.find(' ')) +
                       ": there are changes that are not saved; save them, or drop them with discard=yes\n");
    EXPECT_EQ(Run("open a.da discard=yes\nproject id=" + id + "\n" + word + " discard=yes"), 0) << err;
    EXPECT_EQ(Run("open a.da discard=yes\nproject id=" + id + "\nsave\n" + word), 0) << err;
    EXPECT_EQ(Run("open a.da discard=yes\nprint INVERSION.NITER\n" + word), 0) << err;
  }
}

TEST_F(ScriptRun, ADamagedProjectIsADoubtOnlyOnDemand) {
  ASSERT_EQ(Run("save a.da"), 0) << err;
  const std::string whole = Read("a.da");
  Write("cut.da", whole.substr(0, whole.size() / 2));
  EXPECT_EQ(Run("open cut.da\nprint \"b\""), 1);
  EXPECT_EQ(out, "");
  EXPECT_EQ(Run("open cut.da damaged=yes\nprint \"b\""), kDoneWithDoubts) << err;
  EXPECT_EQ(out, "b\n");
  EXPECT_EQ(Run("open cut.da damaged=yes\nsave"), 1);
  EXPECT_EQ(err,
            "job:3: save: the project is damaged and was read in part; save it under another name, or with "
            "force=yes\n");
  EXPECT_EQ(Run("open cut.da damaged=yes\nsave other.da"), kDoneWithDoubts) << err;
}

TEST_F(ScriptRun, DoubtsMakeTheStatusThree) {
  AddNote("something to know");
  EXPECT_EQ(Run("print \"a\""), 0);
  AddDoubt("something to look at");
  EXPECT_EQ(Run("print \"a\""), 3);
  EXPECT_EQ(Run("prnt"), 1);
}

TEST_F(ScriptRun, TheProjectIdGoesToItsMeasurements) {
  EXPECT_EQ(Run("project id=site unit=ft site=pavement\nprint HMSETUP.PROJID\nprint LOADTXDATA.LENGTHUNIT\n"
                "print MEASSETUP.LENGTHUNIT\nprint LOADTXDATA.SITECAT\nprint IRFSETPNL.SITECAT"),
            0)
      << err;
  EXPECT_EQ(out, "site\n0.3048\n0.3048\n2\n2\n");
  EXPECT_EQ(MeasDB.idList.at(1)->ProjID, "site");
}

TEST_F(ScriptRun, AssertsCompareNumbersAndTexts) {
  EXPECT_EQ(Run("assert INVERSION.NITER = 5\nassert INVERSION.NITER >= 5\nassert INVERSION.NITER != 4\n"
                "assert INVERSION.UF_VS = 0.06 within=0.02\nassert HMSETUP.PROJID contains roj\n"
                "assert SASW.DISPATYPE = \"Freq Resp (Phase)\"\nassert SASW.DISPATYPE = 3\nassert "
                "INVERSION.NITER < 6"),
            0)
      << err;
  EXPECT_EQ(Run("assert INVERSION.NITER = 4"), 1);
  EXPECT_EQ(err, "job:2: assert: INVERSION.NITER is 5\n");
  EXPECT_EQ(Run("assert INVERSION.UF_VS = 0.06 within=0.001"), 1);
  EXPECT_EQ(Run("assert HMSETUP.PROJID < x"), 1);
  EXPECT_EQ(err, "job:2: assert: HMSETUP.PROJID is \"ProjID\", which has no order\n");
  EXPECT_EQ(Run("assert file none.txt"), 1);
}

TEST_F(ScriptRun, QuittingEndsTheScript) {
  EXPECT_EQ(Run("answer yes\npress MAINMENU.QUIT\nprint \"after\""), 0) << err;
  EXPECT_EQ(out, "");
  EXPECT_TRUE(QuitRequested());
}

TEST_F(ScriptRun, AHaltWithoutARunIsAnError) {
  EXPECT_EQ(Run("halt after=3\nset INVERSION.NITER 4\n"), 1);
  EXPECT_EQ(err, "job:3: halt: no run follows that could be halted\n");
}

TEST_F(ScriptRun, AnInterruptHaltsIt) {
  Replace(sasw::MASKINGNEW, [](Panel, ControlId, Event, long) {
    RequestInterrupt();
    return 0;
  });
  EXPECT_EQ(Run("onerror continue\npress SASW.MASKINGNEW\nprint \"after\""), 1);
  EXPECT_EQ(out, "");
  EXPECT_NE(err.find("job:3: press: halted here"), std::string::npos) << err;
}

TEST_F(ScriptRun, ACheckTellsAllFaultsAndDoesNothing) {
  EXPECT_EQ(Check("set INVERSION.NITER 9\nprnt\nset INVERSION.NITR 3\nprint \"a"), 1);
  EXPECT_EQ(err,
            "job:3: prnt: unknown word \"prnt\"; did you mean \"print\"?\n"
            "job:4: set: unknown control \"INVERSION.NITR\"; did you mean \"INVERSION.NITER\"?\n"
            "job:5: print: a quotation mark is not closed\n");
  EXPECT_EQ(GetCtrlVal(inversion::NITER), 5);
  EXPECT_EQ(Check("open none.da\nmask 1 2\ninvert"), 0) << err;
}

}  // namespace
}  // namespace sondera
