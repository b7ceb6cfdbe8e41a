// Tests of the command script: frame, tokens, shared variables, import and masking of a record.
#include "app/commands.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <sstream>

#include "panels/mainmenu_project.h"
#include "records/measdb.h"
#include "records/session.h"
#include "run/sweep_state.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/irfsetpnl.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/events.h"
#include "runtime/files.h"
#include "runtime/findings.h"
#include "support/app_fixture.h"
#include "support/failing_file_driver.h"
#include "support/site_records.h"

namespace sondera {
namespace {

class CommandScript : public testing::AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    test::WriteSitePair(folder.File("H31.hyx"), 20.0, 50.0);
    session.projectFileName = folder.File("site.da");
  }
  /// Runs a script; returns the exit status it asked for, or -1 when it stopped early.
  int Run(const std::string& text) {
    Write("job.txt", text);
    ResetEvents();
    if (ProcessCommands(0, "job.txt") < 0) return -1;
    EXPECT_TRUE(QuitRequested());
    return RunUserInterface();
  }
  /// Runs a script that ends early, so that the session stays and can be checked.
  void RunAndStay(const std::string& text) { EXPECT_EQ(Run(text + "\nexport out ID 1 2 -1\n"), -1); }
};

TEST(getCommandID, KnowsItsSixWordsExactly) {
  EXPECT_EQ(getCommandID("export"), 1);
  EXPECT_EQ(getCommandID("import"), 2);
  EXPECT_EQ(getCommandID("masking"), 3);
  EXPECT_EQ(getCommandID("calcVel"), 4);
  EXPECT_EQ(getCommandID("preInversion"), 5);
  EXPECT_EQ(getCommandID("inversion"), 6);
  EXPECT_EQ(getCommandID("Import"), -1);
  EXPECT_EQ(getCommandID("calcvel"), -1);
  EXPECT_EQ(getCommandID(""), -1);
}

TEST_F(CommandScript, EndOfFileQuitsWithSuccess) {
  EXPECT_EQ(Run("* only a comment\n"), 0);
  EXPECT_EQ(Run(""), 0);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(CommandScript, ClosingLineNamesPointsThatTheSolverDoubts) {
  sweepState.noResult = {"3", "(2,1)"};
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(Run("* only a comment\n"), 0);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "doubt: in the last analysis: 2 points without a result: 3, (2,1)\n");
}

TEST_F(CommandScript, AStarBehindABlankIsAnUnknownCommandAndSkippedAllTheSame) {
  EXPECT_EQ(Run(" * import H31 H31 20 50\n"), 0);
  EXPECT_EQ(Run("unknown words here\n"), 0);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(CommandScript, ATrulyEmptyLineEndsTheScriptAtOnce) {
  EXPECT_EQ(Run("* first\n\nimport none none 1 2\n"), 0) << "the import behind the empty line is not reached";
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(CommandScript, ALineOfDelimitersOnlyEndsItToo) {
  EXPECT_EQ(Run(" ,\t \nimport none none 1 2\n"), 0);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(CommandScript, CarriageReturnsAreWhiteSpace) {
  EXPECT_EQ(Run("* comment\r\nimport H31,H31\t20, 50\r\n"), 0);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(CommandScript, ImportReadsTheRecordBehindTheInitialOne) {
  RunAndStay("import H31 shot 20 50");
  EXPECT_EQ(GetKeyFromID("ProjID", "measID"), 1);
  const int key = GetKeyFromID("ProjID", "shot");
  ASSERT_EQ(key, 2);
  MeasRecords r;
  GetInfoFromKey(key, r);
  EXPECT_EQ(r.hwSetup->nChannels, 2);
  EXPECT_EQ(r.hwSetup->nLines, 1024);
  EXPECT_EQ(r.measSetup->srcLoc, 0.0);
  EXPECT_EQ(r.measSetup->recLoc, (std::vector<double>{20.0, 50.0}));
}

TEST_F(CommandScript, AMissingDataFileFailsTheRunWhichGoesOn) {
  EXPECT_EQ(Run("import none none 20 50\n* after it\n"), 1);
  EXPECT_EQ(frontEnd.messages,
            std::vector<std::string>{"Error in reading the file.\nCannot read " + folder.File("none.hyx") +
                                     ": No such file or directory"});
}

TEST_F(CommandScript, BadLocationsFailTheRun) {
  EXPECT_EQ(Run("import H31 shot 20 -50\n"), 1);
  EXPECT_EQ(frontEnd.messages, std::vector<std::string>{"Invalid source or receiver location !"});
}

TEST_F(CommandScript, ARefusedOverwriteFailsTheRun) {
  EXPECT_EQ(Run("import H31 shot 20 50\nimport H31 shot 20 40\n"), 1);
  EXPECT_EQ(frontEnd.questions,
            std::vector<std::string>{"The same measurement ID is in the list. Overwrite it ?"});
}

TEST_F(CommandScript, ArgumentsOfAnEarlierLineStayInForce) {
  RunAndStay("import H31 one 20 50\nimport H31 two");
  MeasRecords r;
  ASSERT_NE(GetInfoFromKey(GetKeyFromID("ProjID", "two"), r), -1);
  EXPECT_EQ(r.measSetup->recLoc, (std::vector<double>{20.0, 50.0}));
}

TEST_F(CommandScript, MaskingByVelocitiesComputesTheCurveAndSaves) {
  RunAndStay("import H31 H31 20 50\nmasking H31 0 400 300 90 70");
  PMeasInfo* pair = FindPair(GetKeyFromID("ProjID", "H31"), 0, 1);
  ASSERT_NE(pair, nullptr);
  EXPECT_NEAR(pair->enT[1], 30.0 / 400, 1e-12);
  EXPECT_NEAR(pair->enT[4], 30.0 / 70, 1e-12);
  EXPECT_GT(pair->nDispPoints, 50);
  EXPECT_EQ(pair->included, 1);
  EXPECT_TRUE(Exists("site.da"));
}

TEST_F(CommandScript, MaskingWithAFirstTimeOfZeroTakesTheTimeBranch) {
  RunAndStay("import H31 H31 20 50\nmasking H31 0 0 0.1 0.3 0.4");
  const PMeasInfo* pair = FindPair(GetKeyFromID("ProjID", "H31"), 0, 1);
  ASSERT_NE(pair, nullptr);
  EXPECT_EQ(pair->enT[1], 0.000001);
  EXPECT_EQ(pair->enT[2], 0.1);
  EXPECT_EQ(pair->enT[4], 0.4);
}

TEST_F(CommandScript, MaskingWithExactlyTenTakesTheTimeBranch) {
  RunAndStay("import H31 H31 20 50\nmasking H31 0 10 0.1 0.3 0.4");
  const PMeasInfo* pair = FindPair(GetKeyFromID("ProjID", "H31"), 0, 1);
  ASSERT_NE(pair, nullptr);
  EXPECT_EQ(pair->enT[1], 10.0) << "a time, though beyond the record";
}

TEST_F(CommandScript, MaskingByTimesUsesAllFourInLowPassToo) {
  RunAndStay("import H31 H31 20 50\nmasking H31 1 0.1 0.2 1.8 1.9");
  const PMeasInfo* pair = FindPair(GetKeyFromID("ProjID", "H31"), 0, 1);
  ASSERT_NE(pair, nullptr);
  EXPECT_EQ(pair->irfMode, 1);
  EXPECT_EQ(pair->enT[3], 1.8);
  EXPECT_EQ(pair->enT[4], 1.9);
}

TEST_F(CommandScript, MaskingOfAnUnknownIdIsToldAndLeavesTheSelectedMeasurementAlone) {
  RunAndStay("import H31 H31 20 50\nmasking H3l 0 400 300 90 70");
  EXPECT_EQ(frontEnd.messages, std::vector<std::string>{"There is no measurement \"H3l\" in the project."});
  const PMeasInfo* pair = FindPair(GetKeyFromID("ProjID", "H31"), 0, 1);
  EXPECT_TRUE(pair == nullptr || pair->nDispPoints == 0);
  EXPECT_EQ(session.curMeasID, "H31");
  StartSession();
  session.projectFileName = folder.File("site.da");
  EXPECT_EQ(Run("import H31 H31 20 50\nmasking H3l 0 400 300 90 70\n"), 1);
}

TEST_F(CommandScript, ArgumentsOfARefusedMaskingStayInForceAllTheSame) {
  RunAndStay("import H31 H31 20 50\nmasking H3l 0 400 300 90 70\nmasking H31");
  const PMeasInfo* pair = FindPair(GetKeyFromID("ProjID", "H31"), 0, 1);
  ASSERT_NE(pair, nullptr);
  EXPECT_GT(pair->nDispPoints, 0);
}

TEST_F(CommandScript, AScriptThatCannotBeReadToItsEndIsAFailure) {
  // Two reads of the reader's buffer: the second begins in the middle of a command.
  constexpr std::size_t kBuffer = std::size_t{1} << 17;
  std::string text;
  while (text.size() + 24 < kBuffer) text += "* a comment\n";
  text.resize(kBuffer - 11, '*');
  const long lines = std::count(text.begin(), text.end(), '\n') + 2;
  text += "\nimport H31 half 20 50\n";
  Write("job.txt", text);
  ResetEvents();
  const test::FailingFileDriver driver({.failRead = 2, .everAfter = true});
  EXPECT_EQ(ProcessCommands(0, "job.txt"), 0);
  EXPECT_EQ(RunUserInterface(), 1);
  EXPECT_EQ(frontEnd.messages,
            std::vector<std::string>{
                FormatText("The command file cannot be read behind line %ld; the rest is not run.", lines)});
  EXPECT_EQ(GetKeyFromID("ProjID", ""), -1) << "half a command is not run";
}

TEST_F(CommandScript, AReadThatFailsBetweenTwoLinesIsAFailureToo) {
  std::string text((std::size_t{1} << 17) - 1, '*');
  Write("job.txt", text + "\nimport H31 never 20 50\n");
  ResetEvents();
  const test::FailingFileDriver driver({.failRead = 2, .everAfter = true});
  EXPECT_EQ(ProcessCommands(0, "job.txt"), 0);
  EXPECT_EQ(RunUserInterface(), 1);
  EXPECT_EQ(frontEnd.messages,
            std::vector<std::string>{"The command file cannot be read behind line 1; the rest is not run."});
}

TEST_F(CommandScript, AFolderInPlaceOfAScriptIsRefused) {
  std::filesystem::create_directory(folder.File("jobs"));
  EXPECT_EQ(ProcessCommands(0, "jobs"), -1);
  ASSERT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_TRUE(frontEnd.messages[0].ends_with("it is a folder")) << frontEnd.messages[0];
}

TEST_F(CommandScript, AZeroByteIsNoEndOfAScript) {
  const std::string zero(1, '\0');
  for (const std::string& line :
       {zero, "* comment" + zero, "import H31 " + zero + " 20 50", zero + "calcVel"}) {
    StartSession();
    session.projectFileName = folder.File("site.da");
    frontEnd.messages.clear();
    EXPECT_EQ(Run("* one\n" + line + "\nimport H31 behind 20 50\n"), 1);
    EXPECT_EQ(frontEnd.messages,
              std::vector<std::string>{
                  "The command file holds a zero byte in line 2; it is not run from there on."});
    EXPECT_EQ(GetKeyFromID("ProjID", "behind"), -1);
  }
}

TEST_F(CommandScript, CommandsBehindAnEmptyLineAreNoted) {
  EXPECT_EQ(Run("* one\n\nimport H31 a 20 50\n* comment\n\ncalcVel\n"), 0);
  ASSERT_EQ(Findings().size(), 1u);
  EXPECT_EQ(Findings()[0].kind, FindingKind::Note);
  EXPECT_EQ(Findings()[0].text, "the script ended at line 2, which is empty; lines with a word behind it: 2");
  StartSession();
  EXPECT_EQ(Run("* one\n\n\n* the end\n"), 0);
  EXPECT_TRUE(Findings().empty());
}

TEST_F(CommandScript, MaskingWithAnEmptyListStopsAndLeavesTheProgramOpen) {
  ClearListCtrl(hmsetup::MEASIDLISTBOX);
  EXPECT_EQ(Run("masking measID 0 400 300 90 70\n* never reached\n"), -1);
  EXPECT_FALSE(QuitRequested());
}

TEST_F(CommandScript, MaskingWithoutLocationsFailsWithItsMessage) {
  EXPECT_EQ(Run("masking measID 0 400 300 90 70\n"), 1);
  EXPECT_FALSE(frontEnd.messages.empty());
}

TEST_F(CommandScript, AnExportWithoutATypeEndsTheScriptAndLeavesTheProgramOpen) {
  EXPECT_EQ(Run("export out measID 1 2\nimport none none 1 2\n"), -1);
  EXPECT_FALSE(QuitRequested());
  EXPECT_TRUE(frontEnd.messages.empty());
}

/// Numbers of a text file, row by row.
std::vector<std::vector<double>> RowsOf(const std::string& path) {
  std::vector<std::vector<double>> rows;
  std::istringstream text(test::ReadWhole(path));
  for (std::string line; std::getline(text, line);) {
    std::istringstream words(line);
    rows.emplace_back();
    for (double v = 0; words >> v;) rows.back().push_back(v);
  }
  return rows;
}

/// The file has the first nLines values of each array after the frequencies, with seven digits.
void ExpectColumns(const std::string& path, double df,
                   const std::vector<const std::vector<double>*>& arrays) {
  const auto rows = RowsOf(path);
  ASSERT_EQ(rows.size(), 1024u) << path;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    ASSERT_EQ(rows[i].size(), arrays.size() + 1) << path << " row " << i;
    ASSERT_NEAR(rows[i][0], static_cast<double>(i) * df, 1e-3);
    for (std::size_t c = 0; c < arrays.size(); ++c)
      ASSERT_NEAR(rows[i][c + 1], (*arrays[c])[i], 1e-6 * std::fabs((*arrays[c])[i])) << path << " row " << i;
  }
}

class Export : public CommandScript {
 protected:
  /// The example's measurement with its curve, selected.
  void SetUp() override {
    CommandScript::SetUp();
    StartSessionWithH31();
  }
  void StartSessionWithH31() {
    StartSession();
    session.projectFileName = folder.File("site.da");
    frontEnd.messages.clear();
    RunAndStay("import H31 H31 20 50\nmasking H31 0 400 300 90 70");
    ResetEvents();
  }
  void ExpectPairFiles(const std::string& name) {
    const PMeasInfo* p = FindPair(GetKeyFromID("ProjID", "H31"), 0, 1);
    ASSERT_NE(p, nullptr);
    MeasRecords r;
    GetInfoFromKey(p->key, r);
    const double df = r.hwSetup->deltaF;
    ExpectColumns(folder.File(name + ".TFp"), df, {&p->hPhase, &p->phaseOrig, &p->enPhase, &p->phaseEn});
    ExpectColumns(folder.File(name + ".TFa"), df, {&p->hAmp, &p->enAmp});
    ExpectColumns(folder.File(name + ".hyxSM"), df, {&p->enRe, &p->enIm});
    ExpectColumns(folder.File(name + ".hyx"), df, {&p->hRe, &p->hIm});
  }
};

TEST_F(Export, OneLineWritesTheFourFilesOfThePairAndQuits) {
  EXPECT_EQ(ProcessCommands(1, "out H31 1 2 3"), 0);
  EXPECT_TRUE(QuitRequested());
  EXPECT_EQ(RunUserInterface(), 0);
  for (const char* file : {"out.TFp", "out.TFa", "out.hyxSM", "out.hyx"}) EXPECT_TRUE(Exists(file)) << file;
  EXPECT_TRUE(frontEnd.files.empty()) << "a name that is given needs no dialog";
}

TEST_F(Export, InAScriptTheNextLineFollows) {
  RunAndStay("export out H31 1 2 3\nexport ir H31 1 2 9");
  ExpectPairFiles("out");
  EXPECT_EQ(RowsOf(folder.File("ir.ir")).size(), 2048u);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(Export, FilesThatExistAreOverwrittenWithoutAQuestion) {
  Write("out.hyx", "old");
  RunAndStay("export out H31 1 2 3");
  ExpectPairFiles("out");
  EXPECT_TRUE(frontEnd.questions.empty());
}

TEST_F(Export, AnUnknownIdIsToldAndLeavesTheFilesThatExist) {
  Write("out.hyx", "a good file");
  EXPECT_EQ(Run("export out nobody 1 2 3\n"), 1);
  EXPECT_EQ(frontEnd.messages,
            std::vector<std::string>{"There is no measurement \"nobody\" in the project."});
  EXPECT_EQ(test::ReadWhole(folder.File("out.hyx")), "a good file");
  EXPECT_FALSE(Exists("out.TFp"));
}

TEST_F(Export, ASingleLineOfAnUnknownIdEndsWithStatusOne) {
  EXPECT_EQ(ProcessCommands(1, "out nobody 1 2 3"), 0);
  EXPECT_EQ(RunUserInterface(), 1);
  EXPECT_FALSE(Exists("out.TFp"));
}

TEST_F(Export, WhatATransferFunctionDoesNotHoldIsToldAndNotWritten) {
  const struct {
    int type;
    const char *missing, *file;
  } cases[] = {{0, "time records", "out.tim"},  {1, "linear spectra", "out.Hp"},
               {2, "linear spectra", "out.Ha"}, {5, "power spectra", "out.Gxx"},
               {6, "power spectra", "out.Gp"},  {7, "power spectra", "out.gyx"},
               {8, "power spectra", "out.coh"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.type);
    Write(c.file, "a good file");
    frontEnd.messages.clear();
    ResetEvents();
    EXPECT_EQ(ProcessCommands(1, FormatText("out H31 1 2 %d", c.type)), 0);
    EXPECT_EQ(RunUserInterface(), 1);
    EXPECT_EQ(frontEnd.messages,
              std::vector<std::string>{std::string("The measurement H31 has no ") + c.missing +
                                       ": there is nothing to write for this display."});
    EXPECT_EQ(test::ReadWhole(folder.File(c.file)), "a good file");
    StartSessionWithH31();
  }
}

TEST_F(Export, TheMenuItemRefusesWhatWasNeverMeasuredBeforeItAsksForAName) {
  ASSERT_TRUE(SetCtrlIndex(sasw::DISPATYPE, 8));
  EXPECT_EQ(Commit(mainmenu::SAVE_TRACE_A), -1);
  EXPECT_TRUE(frontEnd.files.empty());
  EXPECT_EQ(frontEnd.messages.size(), 1u);
}

TEST_F(Export, ChannelNumbersAtTheEndsOfTheirRangeAreRefused) {
  EXPECT_EQ(Run("export out H31 -99999999999 2 3\nexport out H31 1 99999999999 3\nexport out H31 1 -1 3\n"),
            1);
  EXPECT_EQ(frontEnd.messages.size(), 3u);
  EXPECT_FALSE(Exists("out.TFp"));
}

TEST_F(Export, ChannelsAndTypesThatDoNotExistWriteNothingAndSaySo) {
  EXPECT_EQ(Run("export out H31 1 3 3\nexport out H31 0 2 3\nexport out H31 1 2 11\n"), 1);
  EXPECT_EQ(frontEnd.messages,
            (std::vector<std::string>{"There is no display of type 3 for the channels 1 and 3.",
                                      "There is no display of type 3 for the channels 0 and 2.",
                                      "There is no display of type 11 for the channels 1 and 2."}));
  EXPECT_FALSE(Exists("out.TFp"));
}

TEST_F(Export, ASingleLineReadsItsTypeOnlyBehindTwoChannels) {
  for (const char* line : {"out H31 0 2 3", "out H31 1 0 3", "out H31 1 x 3", "out H31 1", "out", ""}) {
    EXPECT_EQ(ProcessCommands(1, line), -1) << line;
    EXPECT_FALSE(QuitRequested());
  }
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(Export, NumbersEndAtTheFirstOtherCharacter) {
  EXPECT_EQ(ProcessCommands(1, "out H31 1st 2nd 3rd"), 0);
  EXPECT_TRUE(Exists("out.TFp"));
}

TEST_F(Export, TheMenuItemsAskForAName) {
  frontEnd.fileAnswers = {{FileAnswer::IsNew, folder.File("menu.txt")}};
  EXPECT_EQ(Commit(mainmenu::SAVE_TRACE_A), 0);
  ASSERT_EQ(frontEnd.files.size(), 1u);
  EXPECT_EQ(frontEnd.files[0].title, "Save the Data on Display A");
  ExpectPairFiles("menu");
  ASSERT_TRUE(SetCtrlIndex(sasw::DISPBTYPE, 3));
  EXPECT_EQ(Commit(mainmenu::SAVE_TRACE_B), -1) << "cancelled";
  EXPECT_EQ(frontEnd.files[1].title, "Save the Data on Display B");
}

/// A ground with wave velocities of 240 m/s at low frequencies and 140 m/s at high ones.
double PhaseVelocity(double f) {
  return 140.0 + 100.0 / (1.0 + f / 17.1);
}

/// The transfer function of two receivers 20 m apart on this ground, from a frequency on.
std::string ComputedRecord(double from) {
  constexpr double kStep = 0.25, kSpacing = 20.0;
  std::string text;
  for (int i = static_cast<int>(std::lround(from / kStep)); i < 512; ++i) {
    const double f = i * kStep, phase = 2.0 * std::numbers::pi * f * kSpacing / PhaseVelocity(f);
    text += FormatText("%.4f %.9f %.9f\n", f, std::cos(phase), -std::sin(phase));
  }
  return text;
}

class LowLines : public CommandScript {
 protected:
  /// Velocity of the pair's curve at a frequency, from the phase without a window.
  double VelocityAt(const std::string& id, double f) {
    SetCtrlVal(sasw::DISPCURV_OPTION, 0);
    EXPECT_EQ(Commit(sasw::MASKINGCALCDISP), 0);
    const PMeasInfo* p = FindPair(GetKeyFromID("ProjID", id), 0, 1);
    for (int k = 0; p && k < p->nDispPoints; ++k)
      if (std::fabs(p->dispFreq[static_cast<std::size_t>(k)] - f) < 0.01)
        return p->dispVel[static_cast<std::size_t>(k)];
    return 0.0;
  }
  void Import(const std::string& id, double from) {
    Write(id + ".hyx", ComputedRecord(from));
    RunAndStay("import " + id + " " + id + " 20 40\nmasking " + id + " 0 400 300 90 70");
    ResetEvents();
  }
  /// Doubts about a band in the list.
  int DoubtsOfBand() {
    return static_cast<int>(std::count_if(Findings().begin(), Findings().end(), [](const Finding& f) {
      return f.kind == FindingKind::Doubt &&
             f.text.find("begins at 6 Hz: cycles below 6 Hz cannot be counted") != std::string::npos;
    }));
  }
};

TEST_F(LowLines, ACutAtSixHertzTakesACycleAndTurns181Into286MetresPerSecond) {
  constexpr double kFrequency = 24.5;
  ASSERT_NEAR(PhaseVelocity(kFrequency), 181.1, 0.1);
  Import("whole", 0.0);
  EXPECT_NEAR(VelocityAt("whole", kFrequency), PhaseVelocity(kFrequency), 0.5);
  EXPECT_EQ(DoubtsOfBand(), 0);
  Import("cut", 6.0);
  EXPECT_NEAR(VelocityAt("cut", kFrequency), 287.0, 1.5) << "one cycle of 2.71 is missing";
  EXPECT_EQ(DoubtsOfBand(), 1);
}

TEST_F(LowLines, AMaskOverTheCutGivesTheCycleBackAndTakesTheDoubtAway) {
  Import("cut", 6.0);
  ClearFindings();
  SetCtrlIndex(sasw::TRACE_ONOFF, 0);
  SetCtrlVal(sasw::MASKING_FREQINIT, 0.0);
  SetCtrlVal(sasw::MASKING_FREQFINAL, 8.0);
  SetCtrlVal(sasw::MASKING_JUMPNO, 1);
  ASSERT_EQ(Commit(sasw::MASKINGNEW), 0);
  EXPECT_NEAR(VelocityAt("cut", 24.5), PhaseVelocity(24.5), 0.5);
  EXPECT_EQ(DoubtsOfBand(), 0);
}

TEST_F(CommandScript, ALineThatIsTooLongIsRefusedWhole) {
  EXPECT_EQ(Run("import " + std::string(300, 'x') + " id 1 2\n"), 1);
  ASSERT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_EQ(frontEnd.messages[0], "Line 1 of the command file is longer than 256 characters.");
}

TEST_F(CommandScript, AnInterruptHaltsAtTheNextPoll) {
  Write("job.txt", "* one\nimport H31 a 20 50\nimport H31 b 20 50\n");
  ResetEvents();
  RequestInterrupt();
  EXPECT_EQ(ProcessCommands(0, "job.txt"), 0);
  EXPECT_EQ(RunUserInterface(), 1);
  EXPECT_EQ(frontEnd.messages, std::vector<std::string>{"Halted after line 2 of the command file."});
}

/// Each is refused with a message, names its line at the end, and leaves at most a complete project without
/// new measurements.
TEST_F(CommandScript, HostileScriptsEndWithoutHarm) {
  struct Hostile {
    const char* text;
    std::size_t messages;
  };
  for (const Hostile& hostile :
       {Hostile{"export out measID -2147483648 2147483647 3", 1}, Hostile{"masking", 1}, Hostile{"import", 1},
        Hostile{"import \xff\xfe", 1}, Hostile{"masking measID 99 nan inf -1e308 1e308", 1},
        Hostile{"masking measID 0 1e999 1 2 3", 2}, Hostile{"import H31 H31 1e308 -1e308", 1},
        Hostile{"import /dev/null x 1 2", 1}}) {
    SCOPED_TRACE(hostile.text);
    for (const char* name : {"site.da", "site.da.bkup"}) std::filesystem::remove(folder.File(name));
    StartSession();
    session.projectFileName = folder.File("site.da");
    frontEnd.messages.clear();
    ::testing::internal::CaptureStderr();
    EXPECT_NE(Run(std::string(hostile.text) + "\n"), 0);
    EXPECT_EQ(frontEnd.messages.size(), hostile.messages);
    EXPECT_NE(::testing::internal::GetCapturedStderr().find("not everything was done: line 1"),
              std::string::npos);
    if (!Exists("site.da")) continue;
    StartSession();
    frontEnd.messages.clear();
    EXPECT_EQ(OpenFileProc(folder.File("site.da")), 0);
    EXPECT_TRUE(frontEnd.messages.empty());
    EXPECT_EQ(MeasDB.idList.count(), 1);
    EXPECT_EQ(GetKeyFromID("ProjID", "measID"), 1);
    for (const PMeasInfo& pair : MeasDB.pMeasList) {
      EXPECT_EQ(pair.nDispPoints, 0);
      for (const double t : pair.bbT) EXPECT_TRUE(std::isfinite(t));
    }
  }
}

}  // namespace
}  // namespace sondera
