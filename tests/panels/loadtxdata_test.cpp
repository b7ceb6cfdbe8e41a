// The import dialog: rows and labels, the checks before a file is read, and the session afterwards.
#include "panels/loadtxdata.h"

#include <limits>

#include "panels/loadtxdata_import.h"
#include "panels/trace_selection.h"
#include "project/import_record.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/redraw.h"
#include "support/import_fixture.h"

namespace sondera::testing {
namespace {

using namespace loadtxdata;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kCannotRead[] = "Error in reading the file.";

struct Row {
  const LabelControl* label;
  const TextControl* name;
  const ButtonControl* button;
};
const std::vector<Row> kRows = {{&DFCH0, &FNAMESRC, &FILEOPEN_SRC}, {&DFCH1, &FNAMECH1, &FILEOPEN_CH1},
                                {&DFCH2, &FNAMECH2, &FILEOPEN_CH2}, {&DFCH3, &FNAMECH3, &FILEOPEN_CH3},
                                {&DFCH4, &FNAMECH4, &FILEOPEN_CH4}, {&DFCH5, &FNAMECH5, &FILEOPEN_CH5},
                                {&DFCH6, &FNAMECH6, &FILEOPEN_CH6}, {&DFCH7, &FNAMECH7, &FILEOPEN_CH7},
                                {&DFCH8, &FNAMECH8, &FILEOPEN_CH8}, {&DFCH9, &FNAMECH9, &FILEOPEN_CH9}};
const std::vector<const NumericControl*> kLocations = {&LOC_SRC,  &LOC_REC1, &LOC_REC2, &LOC_REC3, &LOC_REC4,
                                                       &LOC_REC5, &LOC_REC6, &LOC_REC7, &LOC_REC8};

class ImportDialog : public ImportTest {
 protected:
  /// Labels of the rows shown for a kind of data and n receivers. The three parts of a row go together.
  std::vector<std::string> RowsOf(ImportKind kind, int n, bool source = false) {
    SetCtrlVal(DATATYPE, static_cast<int>(kind));
    SetCtrlVal(SRCINSTRUMENT, source ? 1 : 0);
    SetCtrlVal(NCHANS, n);
    DataTypeCallback(Panel::LOADTXDATA, &DATATYPE, Event::Commit, 0);
    std::vector<std::string> labels;
    for (const Row& row : kRows) {
      EXPECT_EQ(IsVisible(*row.label), IsVisible(*row.name));
      EXPECT_EQ(IsVisible(*row.label), IsVisible(*row.button));
      if (IsVisible(*row.label)) labels.push_back(GetCtrlVal(*row.label));
    }
    return labels;
  }
  std::string GoodHyx() {
    return Write("good.Hyx", SpectrumText(0, 1, 17, [](int i) { return 1.0 + i; }));
  }
};

TEST_F(ImportDialog, RowsOfTimeHistories) {
  EXPECT_THAT(RowsOf(ImportKind::TimeHistory, 3), ElementsAre("- Ch 1: ", "- Ch 2: ", "- Ch 3: "));
  EXPECT_THAT(RowsOf(ImportKind::TimeHistory, 3, true), ElementsAre("- Ch 1: ", "- Ch 2: ", "- Ch 3: "));
  EXPECT_THAT(RowsOf(ImportKind::TimeHistory, 0), IsEmpty());
}

TEST_F(ImportDialog, RowsOfTransferFunctions) {
  for (ImportKind kind : {ImportKind::TransferFunction, ImportKind::TransferFunction58}) {
    EXPECT_THAT(RowsOf(kind, 3), ElementsAre("- H21: ", "- H31: "));
    EXPECT_THAT(RowsOf(kind, 3, true), ElementsAre("- H10: ", "- H20: ", "- H30: "));
    EXPECT_THAT(RowsOf(kind, 1), IsEmpty());
  }
}

TEST_F(ImportDialog, RowsOfCrossSpectra) {
  for (ImportKind kind : {ImportKind::CrossSpectrum, ImportKind::CrossSpectrum58}) {
    EXPECT_THAT(RowsOf(kind, 2), ElementsAre("- G11: ", "- G21: "));
    EXPECT_THAT(RowsOf(kind, 2, true), ElementsAre("- G00: ", "- G11: ", "- G10: ", "- G20: "));
    EXPECT_EQ(RowsOf(kind, 8, true).size(), 10u);
  }
}

TEST_F(ImportDialog, NoMoreRowsThanThereAre) {
  EXPECT_EQ(RowsOf(ImportKind::TimeHistory, 100).size(), 8u);
  EXPECT_EQ(RowsOf(ImportKind::CrossSpectrum, 100, true).size(), 10u);
  EXPECT_THAT(RowsOf(ImportKind::CrossSpectrum, -3), IsEmpty());
}

TEST_F(ImportDialog, LocationsOfSourceAndReceiversAreShownAndZeroed) {
  for (const NumericControl* location : kLocations) SetCtrlVal(*location, 7.5);
  RowsOf(ImportKind::TimeHistory, 3);
  for (std::size_t i = 0; i < kLocations.size(); ++i) {
    EXPECT_EQ(IsVisible(*kLocations[i]), i <= 3) << i;
    EXPECT_EQ(GetCtrlVal(*kLocations[i]), i <= 3 ? 0.0 : 7.5) << i;
  }
}

TEST_F(ImportDialog, GroupLabelNamesTheKindExceptForCrossSpectra) {
  const char* texts[] = {"  Time Histories", "  Transfer Functions", "  Transfer Functions(58 Format)",
                         "  Transfer Functions(58 Format)", "  Cross Power Spectra(58 Format)"};
  for (int kind = 0; kind < 5; ++kind) {
    RowsOf(static_cast<ImportKind>(kind), 2);
    EXPECT_EQ(GetCtrlVal(TEXTMSG_39), texts[kind]) << kind;
  }
}

TEST_F(ImportDialog, AllThreeCallbacksLayOutTheRowsOnCommitOnly) {
  const Callback callbacks[] = {DataTypeCallback, NoChannelsCallback, SRCINSTRUMENTED};
  for (Callback callback : callbacks) {
    RowsOf(ImportKind::TimeHistory, 1);
    SetCtrlVal(NCHANS, 4);
    EXPECT_EQ(callback(Panel::LOADTXDATA, &NCHANS, Event::GotFocus, 0), 0);
    EXPECT_FALSE(IsVisible(DFCH3));
    EXPECT_EQ(callback(Panel::LOADTXDATA, &NCHANS, Event::Commit, 0), 0);
    EXPECT_TRUE(IsVisible(DFCH3));
  }
}

TEST_F(ImportDialog, OpensWithTheChannelsOfAMeasurementThatIsThere) {
  SetCtrlVal(DATATYPE, 0);
  SetCtrlVal(NCHANS, 2);
  SetCtrlVal(MEASID, "measID");
  EXPECT_EQ(Load_TwoChnlDataCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), 0);
  EXPECT_TRUE(IsPanelShown(Panel::LOADTXDATA));
  EXPECT_EQ(GetCtrlVal(NCHANS), 4);
  EXPECT_TRUE(IsVisible(DFCH3));
  SetCtrlVal(MEASID, "unknown");
  SetCtrlVal(NCHANS, 2);
  Load_TwoChnlDataCallback(Panel::MAINMENU, nullptr, Event::Commit, 0);
  EXPECT_EQ(GetCtrlVal(NCHANS), 2);
  EXPECT_FALSE(IsVisible(DFCH2));
  EXPECT_EQ(LoadTxDataCancelCallback(Panel::LOADTXDATA, &CANCEL, Event::Commit, 0), 0);
  EXPECT_FALSE(IsPanelShown(Panel::LOADTXDATA));
}

TEST_F(ImportDialog, FileDialogOfARow) {
  const char* filters[] = {"*.tim", "*.Hyx", "*.Gyx", "*.*", "*.*"};
  for (int kind = 0; kind < 5; ++kind) {
    SetCtrlVal(DATATYPE, kind);
    frontEnd.fileAnswers = {{FileAnswer::Exists, "/data/chosen"}};
    const Row& row = kRows[static_cast<std::size_t>(2 * kind)];
    EXPECT_EQ(FileOpenCallback(Panel::LOADTXDATA, row.button, Event::Commit, 0), 0);
    EXPECT_EQ(frontEnd.files.back().filter, filters[kind]);
    EXPECT_FALSE(frontEnd.files.back().forSaving);
    EXPECT_EQ(GetCtrlVal(*row.name), "/data/chosen");
  }
}

TEST_F(ImportDialog, FileDialogThatIsCancelledOrNamesNoFileLeavesTheRow) {
  SetCtrlVal(FNAMECH1, "before");
  EXPECT_EQ(FileOpenCallback(Panel::LOADTXDATA, &FILEOPEN_CH1, Event::Commit, 0), 0);
  EXPECT_THAT(frontEnd.messages, IsEmpty());
  frontEnd.fileAnswers = {{FileAnswer::IsNew, "/data/new"}};
  EXPECT_EQ(FileOpenCallback(Panel::LOADTXDATA, &FILEOPEN_CH1, Event::Commit, 0), -1);
  EXPECT_EQ(OnlyMessage(), "File does not exist.");
  EXPECT_EQ(GetCtrlVal(FNAMECH1), "before");
  EXPECT_EQ(FileOpenCallback(Panel::LOADTXDATA, &LOAD, Event::Commit, 0), -1) << "no button of a row";
}

TEST_F(ImportDialog, LoadActsOnCommitOnly) {
  EXPECT_EQ(LoadTextDataCallback(Panel::LOADTXDATA, &LOAD, Event::LeftClick, 0), 0);
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

TEST_F(ImportDialog, AnEmptyIdIsRefused) {
  EXPECT_EQ(Import({.measID = "", .files = {GoodHyx()}}), -1);
  EXPECT_EQ(OnlyMessage(), "Empty ID String !");
  EXPECT_EQ(frontEnd.messageTitles.front(), session.appTitle);
  EXPECT_EQ(MeasDB.idList.count(), 1);
}

TEST_F(ImportDialog, AnEmptyRowIsRefusedExceptForCrossSpectra) {
  for (ImportKind kind :
       {ImportKind::TimeHistory, ImportKind::TransferFunction, ImportKind::TransferFunction58}) {
    frontEnd.messages.clear();
    EXPECT_EQ(Import({.kind = kind, .receivers = 3, .files = {GoodHyx(), ""}}), -1);
    EXPECT_EQ(OnlyMessageHead(), kCannotRead);
    EXPECT_FALSE(Has("new"));
  }
}

TEST_F(ImportDialog, NoReceiverIsRefused) {
  for (int kind = 0; kind < 5; ++kind) {
    for (int n : {0, -1}) {
      frontEnd.messages.clear();
      EXPECT_EQ(
          Import({.kind = static_cast<ImportKind>(kind), .receivers = n, .files = {GoodHyx(), GoodHyx()}}),
          -1);
      EXPECT_EQ(OnlyMessageHead(), kCannotRead) << kind;
    }
  }
}

TEST_F(ImportDialog, MoreReceiversThanLocationsAreRefused) {
  EXPECT_EQ(Import({.receivers = 9, .files = std::vector<std::string>(10, GoodHyx())}), -1);
  EXPECT_EQ(OnlyMessage(), "Invalid source or receiver location !");
  EXPECT_FALSE(Has("new"));
  EXPECT_EQ(Import({.receivers = 8, .files = std::vector<std::string>(10, GoodHyx())}), 0);
}

TEST_F(ImportDialog, ReceiversOnOppositeSidesOfTheSourceAreRefused) {
  EXPECT_EQ(Import({.files = {GoodHyx()}, .locations = {0, -5, 5}}), -1);
  EXPECT_EQ(OnlyMessage(), "Invalid source or receiver location !");
  EXPECT_FALSE(Has("new"));
}

TEST_F(ImportDialog, ReceiversMustMoveSteadilyAwayFromTheSource) {
  const std::vector<double> refused[] = {{0, 5, 5},
                                         {0, 0, 5},
                                         {0, 5, 4},
                                         {5, 4, 4.5},
                                         {0, 0, 0},
                                         {5, 5, 10},
                                         {0, 5, std::numeric_limits<double>::quiet_NaN()}};
  for (const auto& at : refused) {
    frontEnd.messages.clear();
    EXPECT_EQ(Import({.files = {GoodHyx()}, .locations = at}), -1) << at[1] << " " << at[2];
    EXPECT_EQ(OnlyMessage(), "Invalid source or receiver location !");
  }
  frontEnd.confirmAnswers = {true, true};
  EXPECT_EQ(Import({.files = {GoodHyx()}, .locations = {0, 5, 6}}), 0);
  EXPECT_EQ(Import({.files = {GoodHyx()}, .locations = {10, 5, -6}}), 0) << "either direction will do";
  EXPECT_EQ(Import({.receivers = 3, .files = {GoodHyx(), GoodHyx()}, .locations = {0, 5, 6, 5.5}}), -1);
}

TEST_F(ImportDialog, LocationsAreCheckedBeforeAnyFileIsOpened) {
  EXPECT_EQ(Import({.files = {folder.File("missing")}, .locations = {0, 5, 4}}), -1);
  EXPECT_EQ(OnlyMessage(), "Invalid source or receiver location !");
}

TEST_F(ImportDialog, ANegativeCriterionBecomesTheDefaultAndTheImportGoesOn) {
  SetCtrlVal(WLENGTHFILTER, -0.1);
  EXPECT_EQ(Import({.files = {GoodHyx()}}), 0);
  EXPECT_EQ(OnlyMessage(), "Invalid wavelength filter criteria ! Set to the default value.");
  EXPECT_EQ(GetCtrlVal(WLENGTHFILTER), 0.25);
  EXPECT_EQ(GetCtrlVal(meassetup::HYX_WLENFILTER), 0.25);
  EXPECT_EQ(session.alphaWlen, 0.25);
}

TEST_F(ImportDialog, TheCriterionAndTheSiteBecomeThoseOfTheSession) {
  SetCtrlVal(WLENGTHFILTER, 0.5);
  SetCtrlVal(SITECAT, 1);
  EXPECT_EQ(Import({.files = {GoodHyx()}}), 0);
  EXPECT_THAT(frontEnd.messages, IsEmpty());
  EXPECT_EQ(GetCtrlVal(meassetup::HYX_WLENFILTER), 0.5);
  EXPECT_EQ(session.alphaWlen, 0.5);
  EXPECT_EQ(session.siteCategory, 1);
  EXPECT_THAT(session.smV, ElementsAre(0, 4000, 3950, 550, 500));
  EXPECT_THAT(session.bbV, ElementsAre(0, 3000, 2950, 1550, 1500));
}

TEST_F(ImportDialog, AZeroCriterionIsValid) {
  SetCtrlVal(WLENGTHFILTER, 0.0);
  EXPECT_EQ(Import({.files = {GoodHyx()}}), 0);
  EXPECT_THAT(frontEnd.messages, IsEmpty());
  EXPECT_EQ(session.alphaWlen, 0.0);
}

TEST_F(ImportDialog, TheLengthUnitIsStoredAndShown) {
  SetCtrlVal(LENGTHUNIT, 0.3048);
  EXPECT_EQ(Import({.files = {GoodHyx()}}), 0);
  EXPECT_EQ(MeasurementSetup().lengthUnit, 0.3048);
  EXPECT_EQ(session.lengthUnit, 0.3048);
  EXPECT_EQ(GetCtrlVal(meassetup::LENGTHUNIT), 0.3048);
}

TEST_F(ImportDialog, ARefusedImportLeavesTheUnitOfTheMeasurementInHand) {
  SetCtrlVal(LENGTHUNIT, 0.0254);
  EXPECT_EQ(Import({.files = {folder.File("missing")}}), -1);
  EXPECT_EQ(session.lengthUnit, 1.0);
  EXPECT_EQ(GetCtrlVal(meassetup::LENGTHUNIT), 1.0);
  EXPECT_EQ(Import({.files = {GoodHyx()}, .locations = {0, 5, 4}}), -1);
  EXPECT_EQ(session.lengthUnit, 1.0);
}

TEST_F(ImportDialog, AnImportBecomesTheSelectedMeasurementAndIsDrawn) {
  int page = -7;
  RedrawHandlers handlers;
  handlers.doPlotting = [&](int p) {
    page = p;
    return 0;
  };
  InstallRedrawHandlers(handlers);
  EXPECT_EQ(Import({.files = {GoodHyx()}}), 0);
  EXPECT_EQ(page, 1);
  EXPECT_EQ(session.curMeasID, "new");
  EXPECT_EQ(GetCtrlVal(hmsetup::MEASID), "new");
  EXPECT_EQ(LookupID(Trace::A).measID, "new");
  EXPECT_EQ(GetNumListItems(hmsetup::MEASIDLISTBOX), 2);
  EXPECT_EQ(GetLabelFromIndex(hmsetup::MEASIDLISTBOX, GetCtrlIndex(hmsetup::MEASIDLISTBOX)), "new");
  EXPECT_EQ(GetNumListItems(sasw::DISPACHNL), 2);
}

TEST_F(ImportDialog, ADrawingThatFailsIsNoFailureOfTheImport) {
  RedrawHandlers handlers;
  handlers.doPlotting = [](int) { return -1; };
  InstallRedrawHandlers(handlers);
  EXPECT_EQ(Import({.files = {GoodHyx()}}), 0);
}

TEST_F(ImportDialog, NewRecordsGoToTheEndAndOverwrittenOnesKeepTheirPlace) {
  EXPECT_EQ(Import({.measID = "a", .files = {GoodHyx()}}), 0);
  EXPECT_EQ(Import({.measID = "b", .files = {GoodHyx()}}), 0);
  frontEnd.confirmAnswers = {true, true};
  EXPECT_EQ(Import({.measID = "a", .files = {GoodHyx()}}), 0);
  EXPECT_EQ(Import({.kind = ImportKind::TimeHistory,
                    .measID = "measID",
                    .receivers = 1,
                    .files = {Write("t", TimText(0, 0.1, {1, 2, 3}))}}),
            0);
  ASSERT_EQ(MeasDB.idList.count(), 3);
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(MeasDB.idList.at(i)->key, i);
    EXPECT_EQ(MeasDB.hwSetupList.at(i)->key, i);
    EXPECT_EQ(MeasDB.measSetupList.at(i)->key, i);
    EXPECT_EQ(MeasDB.rawDataList.at(i)->key, i);
  }
}

/// Puts a pair with results into the database.
PMeasInfo* AddPair(int key, int refChan, int dspChan, int nLines) {
  PMeasInfo* pair = MeasDB.pMeasList.append();
  SetupPairMeasArrays(*pair, nLines);
  pair->key = key;
  pair->refChan = refChan;
  pair->dspChan = dspChan;
  pair->hRe[3] = 7.0;
  pair->nDispPoints = 5;
  pair->included = 1;
  return pair;
}

TEST_F(ImportDialog, NoPairResultOfTheOldDataSurvivesAnOverwrite) {
  ASSERT_EQ(Import({.receivers = 3, .files = {GoodHyx(), GoodHyx()}}), 0);
  const int key = GetKeyFromID("ProjID", "new");
  AddPair(key, 0, 1, 16);
  AddPair(key, 1, 2, 16);
  AddPair(1, 0, 1, 512);
  frontEnd.confirmAnswers = {true};
  const std::string longer = Write("longer", SpectrumText(0, 1, 64, [](int i) { return 1.0 + i; }));
  ASSERT_EQ(Import({.receivers = 2, .files = {longer}}), 0);
  const PMeasInfo* pair = FindPair(key, 0, 1);
  ASSERT_NE(pair, nullptr);
  EXPECT_EQ(pair->capacity(), 64);
  EXPECT_EQ(pair->hRe[3], 0.0);
  EXPECT_EQ(pair->nDispPoints, 0);
  EXPECT_EQ(FindPair(key, 1, 2), nullptr) << "receiver 3 is gone";
  EXPECT_EQ(FindPair(1, 0, 1)->nDispPoints, 5) << "other measurements are left alone";
}

TEST_F(ImportDialog, APairStaysWhenTheQuestionIsAnsweredNo) {
  ASSERT_EQ(Import({.files = {GoodHyx()}}), 0);
  AddPair(GetKeyFromID("ProjID", "new"), 0, 1, 16);
  EXPECT_EQ(Import({.files = {GoodHyx()}}), -1);
  EXPECT_EQ(FindPair(GetKeyFromID("ProjID", "new"), 0, 1)->nDispPoints, 5);
}

TEST_F(ImportDialog, TheProjectIsThatOfTheSetupPanel) {
  SetCtrlVal(hmsetup::PROJID, "Other");
  EXPECT_EQ(Import({.measID = "measID", .files = {GoodHyx()}}), 0);
  EXPECT_EQ(session.curProjID, "Other");
  EXPECT_EQ(GetKeyFromID("Other", "measID"), 2);
  EXPECT_EQ(GetKeyFromID("ProjID", "measID"), 1);
}

// --- TrimDataBase ---

TEST_F(ImportDialog, TrimTakesAllRecordsOfAMeasurementAndSelectsTheOneBefore) {
  for (const char* id : {"a", "b", "c"}) ASSERT_EQ(Import({.measID = id, .files = {GoodHyx()}}), 0);
  AddPair(GetKeyFromID("ProjID", "b"), 0, 1, 16);
  AddPair(GetKeyFromID("ProjID", "c"), 0, 1, 16);
  TrimDataBase("ProjID", "b");
  EXPECT_FALSE(Has("b"));
  EXPECT_EQ(MeasDB.idList.count(), 3);
  EXPECT_EQ(MeasDB.hwSetupList.count(), 3);
  EXPECT_EQ(MeasDB.measSetupList.count(), 3);
  EXPECT_EQ(MeasDB.rawDataList.count(), 3);
  EXPECT_EQ(MeasDB.pMeasList.count(), 1);
  EXPECT_EQ(GetNumListItems(hmsetup::MEASIDLISTBOX), 3);
  EXPECT_EQ(session.curMeasID, "a");
  EXPECT_EQ(GetCtrlVal(hmsetup::MEASID), "a");
  EXPECT_EQ(GetCtrlIndex(hmsetup::MEASIDLISTBOX), 1);
  EXPECT_EQ(LookupID(Trace::A).measID, "a");
  EXPECT_EQ(GetPanelTitle(Panel::PANEL), SessionTitle());
}

TEST_F(ImportDialog, TrimOfTheFirstSelectsTheNewFirst) {
  ASSERT_EQ(Import({.measID = "a", .files = {GoodHyx()}}), 0);
  TrimDataBase("ProjID", "measID");
  EXPECT_EQ(session.curMeasID, "a");
}

TEST_F(ImportDialog, TrimOfTheOnlyMeasurementLeavesNothingSelected) {
  TrimDataBase("ProjID", "measID");
  EXPECT_EQ(MeasDB.idList.count(), 0);
  EXPECT_EQ(GetNumListItems(hmsetup::MEASIDLISTBOX), 0);
  EXPECT_EQ(session.curMeasID, "");
  EXPECT_TRUE(LookupID(Trace::A).empty());
  EXPECT_EQ(Import({.measID = "measID", .files = {GoodHyx()}}), 0) << "a new one can be imported";
  EXPECT_EQ(GetKeyFromID("ProjID", "measID"), 1);
}

TEST_F(ImportDialog, TrimOfAnUnknownMeasurementDoesNothing) {
  TrimDataBase("ProjID", "nobody");
  TrimDataBase("Nowhere", "measID");
  EXPECT_EQ(MeasDB.idList.count(), 1);
}

TEST_F(ImportDialog, AFailedImportSelectsTheLastOfTheOthers) {
  ASSERT_EQ(Import({.measID = "a", .files = {GoodHyx()}}), 0);
  EXPECT_EQ(Import({.measID = "b", .receivers = 3, .files = {GoodHyx(), folder.File("missing")}}), -1);
  EXPECT_EQ(OnlyMessageHead(), kCannotRead);
  EXPECT_EQ(session.curMeasID, "a");
  EXPECT_EQ(session.lengthUnit, 1.0);
}

}  // namespace
}  // namespace sondera::testing
