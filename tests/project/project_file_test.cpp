// Tests of opening, saving and beginning a project: dialogs, messages, titles, backup copies, names.
#include "project/project_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cmath>

#include <filesystem>

#include "panels/mainmenu_project.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "records/session.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/events.h"
#include "runtime/graphs.h"
#include "runtime/redraw.h"
#include "support/project_bytes.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class ProjectFile : public SessionTest {
 protected:
  void SetUp() override { StartEmptyProject(); }

  /// A small project on disk under this name, without any problems for a load; afterwards the database is
  /// empty.
  std::string OnDisk(const char* name) {
    MakeSmallProject();
    HWSetup& hw = *MeasDB.hwSetupList.at(1);
    hw.deltaF = hw.freqSpan / hw.nLines;
    hw.deltaT = 0.5 / hw.freqSpan;
    MeasDB.maskingList.at(1)->refChan = 0;
    MeasDB.maskingList.at(1)->dspChan = 1;
    for (double& f : MeasDB.pMeasList.at(1)->dispFreq) f = std::fabs(f) + 1.0;
    const std::string path = folder.File(name);
    test::WriteWhole(path, ProjectBytes().bytes);
    StartEmptyProject();
    return path;
  }

  void ExpectEmptyDatabase() {
    EXPECT_EQ(MeasDB.idList.count(), 0);
    EXPECT_EQ(MeasDB.hwSetupList.count(), 0);
    EXPECT_EQ(MeasDB.measSetupList.count(), 0);
    EXPECT_EQ(MeasDB.rawDataList.count(), 0);
    EXPECT_EQ(MeasDB.pMeasList.count(), 0);
    EXPECT_EQ(MeasDB.gDispList.count(), 0);
    EXPECT_EQ(MeasDB.aDispList.count(), 0);
  }

  /// All files except the lock, which exists as long as the project is open.
  std::vector<std::string> Names() {
    session.projectLock.Release();
    return folder.Names();
  }

  static void OnPlotting(std::function<int(int)> handler) {
    RedrawHandlers handlers;
    handlers.doPlotting = std::move(handler);
    InstallRedrawHandlers(handlers);
  }

  test::TempFolder folder;
};

constexpr char kRemoveAll[] = "All the measurements will be removed. Do you want to proceed ?";

// --- opening ---

TEST_F(ProjectFile, OpensAPathWithoutADialog) {
  const std::string path = OnDisk("site.da");
  EXPECT_EQ(OpenFileProc(path), 0);
  EXPECT_THAT(frontEnd.files, IsEmpty());
  EXPECT_THAT(frontEnd.messages, IsEmpty());
  EXPECT_EQ(MeasDB.idList.count(), 1);
  EXPECT_EQ(session.projectFileName, path);
  EXPECT_EQ(GetPanelTitle(Panel::PANEL), "Sondera 4.1 - " + path);
}

TEST_F(ProjectFile, OpenAsksForADaFileInTheFolderOfTheProject) {
  const std::string path = OnDisk("site.da");
  session.projectFileName = folder.File("other.da");
  frontEnd.fileAnswers.push_back({FileAnswer::Exists, path});
  EXPECT_EQ(OpenFileProc(), 0);
  ASSERT_EQ(frontEnd.files.size(), 1u);
  EXPECT_EQ(frontEnd.files[0].filter, "*.da");
  EXPECT_EQ(frontEnd.files[0].title, "File Open");
  EXPECT_EQ(frontEnd.files[0].directory, folder.Path() + "/");
  EXPECT_FALSE(frontEnd.files[0].forSaving);
  EXPECT_EQ(session.projectFileName, path);
}

TEST_F(ProjectFile, ACancelledOpenLeavesAnEmptyDatabaseAndNoRedraw) {
  MakeSmallProject();
  session.projectFileName = folder.File("old.da");
  int redraws = 0;
  OnPlotting([&](int) { return ++redraws, 0; });
  EXPECT_EQ(OpenFileProc(), -1);
  ExpectEmptyDatabase();
  EXPECT_EQ(MeasDB.maskingList.count(), 1) << "masks of the former project stay";
  EXPECT_EQ(redraws, 0);
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

TEST_F(ProjectFile, ASaveAfterACancelledOpenAsksForANameInsteadOfEmptyingTheOldFile) {
  const std::string path = OnDisk("site.da");
  ASSERT_EQ(OpenFileProc(path), 0);
  const std::string before = test::ReadWhole(path);
  OpenFileProc();
  SaveRawData();
  EXPECT_EQ(frontEnd.files.back().title, "File Save");
  EXPECT_EQ(test::ReadWhole(path), before);
}

TEST_F(ProjectFile, AnAnswerThatDoesNotExistSaysSoWithTheListsEmptied) {
  MakeSmallProject();
  frontEnd.fileAnswers.push_back({FileAnswer::IsNew, folder.File("none.da")});
  EXPECT_EQ(OpenFileProc(), -1);
  EXPECT_THAT(frontEnd.messages, ElementsAre("File does not exist."));
  EXPECT_EQ(frontEnd.messageTitles[0], session.appTitle);
  ExpectEmptyDatabase();
}

TEST_F(ProjectFile, APathThatDoesNotExistEndsAsAnEmptyProjectOfThatName) {
  const std::string path = folder.File("none.da");
  EXPECT_EQ(OpenFileProc(path), -1);
  EXPECT_THAT(frontEnd.messages, ElementsAre("File does not exist."));
  ExpectEmptyDatabase();
  EXPECT_EQ(session.projectFileName, path);
  EXPECT_EQ(GetPanelTitle(Panel::PANEL), "Sondera 4.1 - " + path);
  EXPECT_EQ(FModelParam.capLayers, 50);
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(ProjectFile, AFolderIsRefusedWithTheReason) {
  EXPECT_EQ(OpenFileProc(folder.Path()), -1);
  ASSERT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_THAT(frontEnd.messages[0], HasSubstr(folder.Path()));
  EXPECT_THAT(frontEnd.messages[0], HasSubstr("folder"));
}

TEST_F(ProjectFile, OpeningEndsWithTheRedrawOfBothTracePages) {
  const std::string path = OnDisk("site.da");
  std::vector<int> pages;
  OnPlotting([&](int page) {
    pages.push_back(page);
    EXPECT_EQ(MeasDB.pMeasList.count(), 1) << "the project is loaded by then";
    return 0;
  });
  OpenFileProc(path);
  EXPECT_THAT(pages, ElementsAre(0, 1));
}

TEST_F(ProjectFile, OpeningLetsEventsInAndTakesTheWaitCursorAwayAgain) {
  const std::string path = OnDisk("site.da");
  int polls = 0;
  frontEnd.onProcessEvents = [&] { ++polls; };
  OpenFileProc(path);
  EXPECT_GE(polls, 1);
  EXPECT_FALSE(WaitCursorShown());
}

TEST_F(ProjectFile, OpeningSelectsAndShowsTheFirstMeasurement) {
  MakeRandomProject(17);
  const std::string projID = MeasDB.idList.at(1)->ProjID, measID = MeasDB.idList.at(1)->MeasID;
  const std::string path = folder.File("site.da");
  test::WriteWhole(path, ProjectBytes().bytes);
  StartEmptyProject();
  ASSERT_EQ(OpenFileProc(path), 0);
  EXPECT_EQ(session.curProjID, projID);
  EXPECT_EQ(session.curMeasID, measID);
  EXPECT_EQ(GetCtrlVal(hmsetup::PROJID), projID);
  EXPECT_EQ(GetCtrlVal(hmsetup::MEASID), measID);
  EXPECT_EQ(session.lengthUnit, 0.3048);
  EXPECT_EQ(GetCtrlVal(meassetup::LENGTHUNIT), 0.3048);
}

TEST_F(ProjectFile, OpeningEmptiesTheListsOfTheFormerProjectButItsMasks) {
  const std::string path = OnDisk("site.da");
  MakeRandomProject(5);
  const int masks = MeasDB.maskingList.count();
  OpenFileProc(path);
  EXPECT_EQ(MeasDB.idList.count(), 1);
  EXPECT_EQ(MeasDB.maskingList.count(), masks + 1);
}

// --- saving ---

TEST_F(ProjectFile, SaveAsksForADaFileWhenThereIsNoName) {
  MakeSmallProject();
  const std::string path = folder.File("new.da");
  frontEnd.fileAnswers.push_back({FileAnswer::IsNew, path});
  EXPECT_EQ(SaveRawData(), 0);
  ASSERT_EQ(frontEnd.files.size(), 1u);
  EXPECT_EQ(frontEnd.files[0].filter, "*.da");
  EXPECT_EQ(frontEnd.files[0].title, "File Save");
  EXPECT_TRUE(frontEnd.files[0].forSaving);
  EXPECT_THAT(frontEnd.questions, IsEmpty());
  EXPECT_EQ(test::ReadWhole(path), ProjectBytes().bytes);
  EXPECT_THAT(Names(), ElementsAre("new.da"));
  EXPECT_EQ(session.projectFileName, path);
  EXPECT_EQ(GetPanelTitle(Panel::PANEL), "Sondera 4.1 - " + path);
}

TEST_F(ProjectFile, ACancelledSaveWritesNothing) {
  MakeSmallProject();
  EXPECT_EQ(SaveRawData(), -1);
  EXPECT_THAT(Names(), IsEmpty());
  EXPECT_EQ(session.projectFileName, "");
}

TEST_F(ProjectFile, SaveOverAnExistingFileAsksAndKeepsACopy) {
  MakeSmallProject();
  const std::string path = folder.File("site.da");
  test::WriteWhole(path, "old bytes");
  frontEnd.fileAnswers.push_back({FileAnswer::Exists, path});
  frontEnd.confirmAnswers.push_back(true);
  EXPECT_EQ(SaveRawData(), 0);
  EXPECT_THAT(frontEnd.questions, ElementsAre("The file exists. Do you want to overwrite it?"));
  EXPECT_EQ(test::ReadWhole(path), ProjectBytes().bytes);
  EXPECT_EQ(test::ReadWhole(path + ".bkup"), "old bytes");
}

TEST_F(ProjectFile, SaveThatMayNotOverwriteLeavesTheFileAndTheProjectWithoutAName) {
  MakeSmallProject();
  const std::string path = folder.File("site.da");
  test::WriteWhole(path, "old bytes");
  frontEnd.fileAnswers.push_back({FileAnswer::Exists, path});
  frontEnd.confirmAnswers.push_back(false);
  EXPECT_EQ(SaveRawData(), -1);
  EXPECT_EQ(test::ReadWhole(path), "old bytes");
  EXPECT_THAT(Names(), ElementsAre("site.da"));
  EXPECT_EQ(session.projectFileName, "") << "a further save has to ask again";
}

TEST_F(ProjectFile, SaveAfterOpenMakesTheBackupCopyEveryTimeWithoutAQuestion) {
  const std::string path = OnDisk("site.da");
  ASSERT_EQ(OpenFileProc(path), 0);
  for (int i = 1; i <= 3; ++i) {
    const std::string before = test::ReadWhole(path);
    MeasDB.measSetupList.at(1)->srcLoc = 100.0 + i;
    EXPECT_EQ(SaveRawData(), 0);
    EXPECT_EQ(test::ReadWhole(path + ".bkup"), before);
    EXPECT_NE(test::ReadWhole(path), before);
  }
  EXPECT_THAT(frontEnd.questions, IsEmpty());
  EXPECT_THAT(frontEnd.messages, IsEmpty());
  EXPECT_THAT(Names(), ElementsAre("site.da", "site.da.bkup"));
}

TEST_F(ProjectFile, SaveUnderANameWithoutAFileHasNothingToCopyAndSaysNothing) {
  MakeSmallProject();
  session.projectFileName = folder.File("fresh.da");
  EXPECT_EQ(SaveRawData(), 0);
  EXPECT_THAT(frontEnd.messages, IsEmpty());
  EXPECT_THAT(Names(), ElementsAre("fresh.da"));
}

TEST_F(ProjectFile, TheBackupNameIsTheWholeNameAndBkup) {
  MakeSmallProject();
  session.projectFileName = folder.File("no extension.v2");
  ASSERT_EQ(SaveRawData(), 0);
  ASSERT_EQ(SaveRawData(), 0);
  EXPECT_THAT(Names(), ElementsAre("no extension.v2", "no extension.v2.bkup"));
}

TEST_F(ProjectFile, SaveAsAlwaysAsksAndTakesTheNewName) {
  MakeSmallProject();
  session.projectFileName = folder.File("old.da");
  const std::string path = folder.File("new.da");
  frontEnd.fileAnswers.push_back({FileAnswer::IsNew, path});
  EXPECT_EQ(SaveAsRawData(), 0);
  ASSERT_EQ(frontEnd.files.size(), 1u);
  EXPECT_EQ(frontEnd.files[0].title, "File Save As");
  EXPECT_EQ(session.projectFileName, path);
  EXPECT_THAT(Names(), ElementsAre("new.da"));
}

TEST_F(ProjectFile, SaveAsKeepsTheChosenNameThoughNothingWasWritten) {
  MakeSmallProject();
  session.projectFileName = folder.File("old.da");
  const std::string path = folder.File("site.da");
  test::WriteWhole(path, "old bytes");
  frontEnd.fileAnswers.push_back({FileAnswer::Exists, path});
  frontEnd.confirmAnswers.push_back(false);
  EXPECT_EQ(SaveAsRawData(), -1);
  EXPECT_EQ(test::ReadWhole(path), "old bytes");
  EXPECT_EQ(session.projectFileName, path);
}

TEST_F(ProjectFile, ACancelledSaveAsKeepsTheFormerName) {
  MakeSmallProject();
  session.projectFileName = folder.File("old.da");
  EXPECT_EQ(SaveAsRawData(), -1);
  EXPECT_EQ(session.projectFileName, folder.File("old.da"));
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(ProjectFile, ASaveThatCannotWriteSaysWhichFileAndWhy) {
  MakeSmallProject();
  SetPanelTitle(Panel::PANEL, "as it was");
  session.projectFileName = folder.File("missing/site.da");
  EXPECT_EQ(SaveRawData(), -1);
  ASSERT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_THAT(frontEnd.messages[0], HasSubstr(session.projectFileName));
  EXPECT_THAT(frontEnd.messages[0], HasSubstr("No such file"));
  EXPECT_EQ(GetPanelTitle(Panel::PANEL), "as it was");
  EXPECT_FALSE(WaitCursorShown());
}

TEST_F(ProjectFile, ABackupThatCannotBeMadeIsToldAndTheProjectIsSaved) {
  MakeSmallProject();
  const std::string path = folder.File("site.da");
  test::WriteWhole(path, "old bytes");
  std::filesystem::create_directory(path + ".bkup");  // nothing can be copied onto a folder
  session.projectFileName = path;
  EXPECT_EQ(SaveRawData(), 0);
  ASSERT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_THAT(frontEnd.messages[0], HasSubstr(path + ".bkup"));
  EXPECT_EQ(test::ReadWhole(path), ProjectBytes().bytes);
}

TEST_F(ProjectFile, SaveLoadSaveGivesTheSameBytes) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    MakeRandomProject(seed);
    const std::string path = folder.File("site.da"), plain = ProjectBytes().bytes;
    session.projectFileName = path;
    ASSERT_EQ(SaveRawData(), 0);
    ASSERT_EQ(test::ReadWhole(path), plain) << "layout, seed " << seed;
    StartEmptyProject();
    ASSERT_EQ(OpenFileProc(path), 0) << "seed " << seed << ": " << LastMessage();
    ASSERT_EQ(ProjectBytes().bytes, plain) << "load, seed " << seed;
    ASSERT_EQ(SaveRawData(), 0);
    ASSERT_EQ(test::ReadWhole(path), plain) << "second save, seed " << seed;
  }
}

TEST_F(ProjectFile, AnEmptyProjectIsFourZeroCountsAndTheRecords) {
  session.projectFileName = folder.File("empty.da");
  ASSERT_EQ(SaveRawData(), 0);
  const std::string bytes = test::ReadWhole(session.projectFileName);
  EXPECT_EQ(bytes.substr(0, 12), std::string(12, '\0')) << "hardware, geometry, raw data";
  EXPECT_EQ(bytes.substr(12, 16), std::string(16, '\0')) << "masks, pairs, global and array curves";
  EXPECT_EQ(IntAt(bytes, 28), 50) << "first capacity of the model";
  EXPECT_EQ(bytes, ProjectBytes().bytes);
  ASSERT_EQ(OpenFileProc(session.projectFileName), 0);
  ExpectEmptyDatabase();
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

// --- callbacks ---

TEST_F(ProjectFile, MenuItemsActAtOnceAndButtonsOnAPressOnly) {
  MakeSmallProject();
  session.projectFileName = folder.File("site.da");
  EXPECT_EQ(SaveRawDataCallback(Panel::MEASPANEL, &measpanel::F6, Event::LeftClick, 0), 0);
  EXPECT_THAT(Names(), IsEmpty());
  EXPECT_EQ(SaveRawDataCallback(Panel::MEASPANEL, &measpanel::F6, Event::Commit, 0), 0);
  EXPECT_THAT(Names(), ElementsAre("site.da"));
  EXPECT_EQ(Save_RawDataCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), 0);
  EXPECT_THAT(Names(), ElementsAre("site.da", "site.da.bkup"));

  SaveAsRawDataCallback(Panel::MEASPANEL, &measpanel::F7, Event::GotFocus, 0);
  RecallCallback(Panel::MEASPANEL, &measpanel::F9, Event::GotFocus, 0);
  EXPECT_THAT(frontEnd.files, IsEmpty());
  SaveAsRawDataCallback(Panel::MEASPANEL, &measpanel::F7, Event::Commit, 0);
  SaveAs_RawDataCallback(Panel::MAINMENU, nullptr, Event::Commit, 0);
  EXPECT_EQ(frontEnd.files.size(), 2u);
  RecallCallback(Panel::MEASPANEL, &measpanel::F9, Event::Commit, 0);
  Load_RawDataCallback(Panel::MAINMENU, nullptr, Event::Commit, 0);
  ASSERT_EQ(frontEnd.files.size(), 4u);
  EXPECT_EQ(frontEnd.files[1].title, "File Save As");
  EXPECT_EQ(frontEnd.files[2].title, "File Open");
  EXPECT_EQ(frontEnd.files[3].title, "File Open");
}

int PressNew() {
  return NewMeasurementCallback(Panel::MAINMENU, nullptr, Event::Commit, 0);
}

TEST_F(ProjectFile, NewPutsItsQuestionTwiceAndTheSecondAnswerDoesNotMatter) {
  MakeSmallProject();
  session.projectFileName = folder.File("site.da");
  frontEnd.confirmAnswers = {true, false};
  EXPECT_EQ(PressNew(), 0);
  EXPECT_THAT(frontEnd.questions, ElementsAre(kRemoveAll, kRemoveAll));
  ExpectEmptyDatabase();
  EXPECT_EQ(session.projectFileName, "");
  EXPECT_EQ(GetPanelTitle(Panel::PANEL), session.appTitle);
  EXPECT_TRUE(IsPanelShown(Panel::MEASPANEL));
  EXPECT_EQ(MeasDB.maskingList.count(), 1);
}

TEST_F(ProjectFile, NewKeepsEverythingWhenTheFirstAnswerIsNo) {
  MakeSmallProject();
  session.projectFileName = folder.File("site.da");
  EXPECT_EQ(PressNew(), -1);
  EXPECT_THAT(frontEnd.questions, ElementsAre(kRemoveAll));
  EXPECT_EQ(MeasDB.idList.count(), 1);
  EXPECT_EQ(session.projectFileName, folder.File("site.da"));
}

TEST_F(ProjectFile, NewWithoutAMeasurementAsksOnce) {
  EXPECT_EQ(PressNew(), 0);
  EXPECT_THAT(frontEnd.questions, ElementsAre(kRemoveAll));
}

TEST_F(ProjectFile, NewEmptiesTheChannelListsAndTheGraphs) {
  MakeSmallProject();
  for (const RingControl* ring :
       {&sasw::DISPACHNL, &sasw::DISPA_REFCHNL, &sasw::DISPBCHNL, &sasw::DISPB_REFCHNL, &sasw::DISPAID,
        &sasw::DISPBID, &meassetup::NCHANNELS3})
    InsertListItem(*ring, -1, "1", 0);
  InsertListItem(meassetup::RECLOCLIST, -1, "Ch  1: 0", 0);
  for (const GraphControl* graph : {&sasw::DISPLAY_A, &sasw::DISPLAY_B, &dispcurv::DISPGRAPH, &exdthd::CURVES,
                                    &exdthd::PROFILE, &measpanel::DISPLAY_A})
    PlotXY(*graph, {0, 1}, {0, 1});
  frontEnd.confirmAnswers = {true};
  ASSERT_EQ(PressNew(), 0);
  for (const RingControl* ring :
       {&sasw::DISPACHNL, &sasw::DISPA_REFCHNL, &sasw::DISPBCHNL, &sasw::DISPB_REFCHNL, &sasw::DISPAID,
        &sasw::DISPBID, &meassetup::NCHANNELS3})
    EXPECT_EQ(GetNumListItems(*ring), 0) << ring->name;
  EXPECT_EQ(GetNumListItems(meassetup::RECLOCLIST), 0);
  for (const GraphControl* graph : {&sasw::DISPLAY_A, &sasw::DISPLAY_B, &dispcurv::DISPGRAPH, &exdthd::CURVES,
                                    &exdthd::PROFILE, &measpanel::DISPLAY_A})
    EXPECT_THAT(GraphOf(*graph).plots, IsEmpty()) << graph->name;
}

}  // namespace
}  // namespace sondera::testing
