// Tests of the modelling section: records, early ends, lists of entries.
#include "project/modeling_section.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "panels/entry_lists.h"
#include "panels/mainmenu_project.h"
#include "project/project_file.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "records/result_capacity.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/dialogs.h"
#include "support/project_bytes.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ModelingSection : public SessionTest {
 protected:
  void SetUp() override { MakeSmallProject(); }

  int Read(const std::string& from) {
    bytes = from;
    file.OpenMemory(bytes.data(), bytes.size());
    file.BeginSection("modelling", true);
    const int status = ReadModeling(file);
    file.EndSection();
    return status;
  }
  std::string Stored() {
    AtomicWriter writer(folder.File("x"));
    StoreModeling(writer);
    EXPECT_TRUE(writer.Commit(false));
    return test::ReadWhole(folder.File("x"));
  }
  /// Behind the setups, raw data and analysis of the small project.
  int Open(const std::string& modelling) {
    const std::string path = folder.File("x.da");
    test::WriteWhole(path, SetupBytes().Add(RawBytes()).Add(AnalysisBytes()).bytes + modelling);
    StartEmptyProject();
    return OpenFileProc(path);
  }
  /// Positions of the counters of the small project's section, in file order.
  static std::size_t Position(std::size_t counter) { return ModelingBytes().counts.at(counter); }

  // Counters of one model record and of one inversion record, as the byte writer notes them.
  static constexpr std::size_t kModelCounters = 10, kInversionCounters = 9;
  static constexpr std::size_t kTwin = kModelCounters, kSMP = 2 * kModelCounters,
                               kInv = kSMP + kInversionCounters, kLists = kInv + kInversionCounters;

  SectionReader file;
  std::string bytes;
  test::TempFolder folder;
};

TEST_F(ModelingSection, ReadsWhatAnIndependentWriterWrote) {
  const std::string plain = ModelingBytes().bytes;
  EXPECT_EQ(Stored(), plain);
  StartEmptyProject();
  EXPECT_EQ(Read(plain), 0);
  EXPECT_EQ(file.Remaining(), 0);
  EXPECT_EQ(ModelingBytes().bytes, plain);
  EXPECT_EQ(file.Trouble(), "");
}

TEST_F(ModelingSection, AnEarlyEndInFrontOfTheSectionMakesAllRecordsAfresh) {
  EXPECT_EQ(Read(""), -1);
  EXPECT_EQ(file.Trouble(), "") << "an older file";
  MakeSmallProject();
  EXPECT_EQ(Open(""), 0);
  EXPECT_EQ(FModelParam.capLayers, 50);
  EXPECT_EQ(TheoDispInfo.closingWord2, 11);
  EXPECT_EQ(SMPParam.reserved, 20);
  EXPECT_EQ(InvParam.nEntries, 5);
}

TEST_F(ModelingSection, AModelOfNoLayersIsNoModel) {
  std::string b = ModelingBytes().bytes;
  PutInt(b, 0, 0);
  EXPECT_EQ(Read(b), -1);
  EXPECT_EQ(file.Remaining(), static_cast<std::int64_t>(b.size()) - 4);
}

TEST_F(ModelingSection, AnEarlyEndBehindTheModelKeepsItAndMakesTheRestAfresh) {
  const std::string b = ModelingBytes().bytes.substr(0, Position(kTwin));
  const double Vs = FModelParam.Vs[1];
  EXPECT_EQ(Read(b), -2);
  EXPECT_EQ(Open(b), -1);
  EXPECT_THAT(OnlyMessage(), HasSubstr("ends early, in the modelling section"));
  EXPECT_EQ(FModelParam.Vs[1], Vs);
  EXPECT_EQ(TheoDispInfo.capLayers, 50);
  EXPECT_EQ(TheoDispInfo.dispCurvType, 1);
  EXPECT_EQ(SMPParam.maxLayers, 50);
}

TEST_F(ModelingSection, ATwinOfNoLayersIsReadUpToItsLayerCount) {
  std::string b = ModelingBytes().bytes;
  const std::size_t twin = Position(kTwin);
  PutInt(b, twin, 0);
  EXPECT_EQ(Read(b), -2);
  EXPECT_EQ(b.size() - static_cast<std::size_t>(file.Remaining()), twin + 4 + 36);
}

TEST_F(ModelingSection, AnEarlyEndBehindTheTwinMakesTheInversionRecordsAfresh) {
  const std::string b = ModelingBytes().bytes.substr(0, Position(kSMP));
  const double wlen = TheoDispInfo.wlen[1];
  EXPECT_EQ(Read(b), -3);
  Open(b);
  EXPECT_EQ(TheoDispInfo.wlen[1], wlen);
  EXPECT_EQ(SMPParam.maxLayers, 50);
  EXPECT_EQ(InvParam.maxLayers, 50);
}

TEST_F(ModelingSection, AZeroInEitherInversionRecordEndsTheReading) {
  for (std::size_t counter : {kSMP, kInv}) {
    MakeSmallProject();
    std::string b = ModelingBytes().bytes;
    const std::size_t position = Position(counter);
    PutInt(b, position, 0);
    EXPECT_EQ(Read(b), -3);
    EXPECT_EQ(b.size() - static_cast<std::size_t>(file.Remaining()), position + 4);
  }
}

TEST_F(ModelingSection, AnEarlyEndInFrontOfTheListsKeepsAllRecords) {
  const std::string b = ModelingBytes().bytes.substr(0, Position(kLists));
  const double Vs = InvParam.Vs(2, 1), rms = SMPParam.rms[1];
  EXPECT_EQ(Read(b), -5);
  Open(b);
  EXPECT_EQ(InvParam.Vs(2, 1), Vs);
  EXPECT_EQ(SMPParam.rms[1], rms);
  EXPECT_EQ(GetNumListItems(exdthd::ITERNO), 0);
  EXPECT_EQ(GetNumListItems(inversion::INV_SMP), 1);
}

TEST_F(ModelingSection, EntriesAreNamedByTheirSign) {
  ASSERT_EQ(Read(ModelingBytes().bytes), 0);
  ASSERT_EQ(GetNumListItems(exdthd::ITERNO), 2);
  EXPECT_EQ(GetLabelFromIndex(exdthd::ITERNO, 1), "INV 2");
  ASSERT_EQ(GetNumListItems(fmodeling::COPYPRF), 1);
  EXPECT_EQ(GetLabelFromIndex(fmodeling::COPYPRF, 0), "SMP 1");
  EXPECT_EQ(GetValueFromIndex(fmodeling::COPYPRF, 0), -1);
  ASSERT_EQ(GetNumListItems(inversion::INV_SMP), 3);
  EXPECT_EQ(GetLabelFromIndex(inversion::INV_SMP, 0), "Given Model P.");
  EXPECT_EQ(GetLabelFromIndex(inversion::INV_SMP, 1), "SMP 1");
  EXPECT_EQ(GetLabelFromIndex(inversion::INV_SMP, 2), "INV 2");
}

TEST_F(ModelingSection, EntryZeroIsAnIterationInTheFirstTwoLists) {
  ClearEntryLists();
  InsertListItem(exdthd::ITERNO, -1, "INV 0", 0);
  ASSERT_EQ(Read(ModelingBytes().bytes), 0);
  EXPECT_EQ(GetLabelFromIndex(exdthd::ITERNO, 0), "INV 0");
}

TEST_F(ModelingSection, TheThirdListAlwaysReadsOneValueBehindItsCount) {
  std::string b = ModelingBytes().bytes;
  const std::size_t third = ModelingBytes().counts.back();
  b.resize(third);
  const std::string head = b;
  b += ByteStream().I(0).I(123).bytes;
  EXPECT_EQ(Read(b), 0);
  EXPECT_EQ(file.Remaining(), 0);
  EXPECT_EQ(file.Trouble(), "");
  EXPECT_EQ(GetNumListItems(inversion::INV_SMP), 1);
  EXPECT_EQ(GetValueFromIndex(inversion::INV_SMP, 0), 0) << "the value read is dropped";
  EXPECT_EQ(Read(head + ByteStream().I(0).bytes), 0);
  EXPECT_NE(file.Trouble(), "") << "the value is missing";
}

TEST_F(ModelingSection, AnEmptyThirdListIsWrittenWithItsFixedItem) {
  ClearListCtrl(inversion::INV_SMP);
  const std::string b = Stored();
  EXPECT_EQ(b.substr(b.size() - 8), ByteStream().I(1).I(0).bytes);
  EXPECT_EQ(Read(b), 0);
  EXPECT_EQ(file.Trouble(), "");
}

TEST_F(ModelingSection, PointArraysAreLeftOutOfAnEmptyTwinOnly) {
  for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) m->nDispCurves = 0;
  const std::size_t points = static_cast<std::size_t>(FModelParam.nDispPoints);
  const std::string both = Stored();
  EXPECT_EQ(both, ModelingBytes().bytes);
  TheoDispInfo.nDispPoints = 0;
  EXPECT_EQ(Stored().size(), both.size()) << "there was nothing to leave out";
  FModelParam.nDispPoints = 0;
  EXPECT_EQ(Stored().size(), both.size() - 8 * points) << "the frequencies stand in the model always";
}

TEST_F(ModelingSection, PointsOfAnEmptyTwinBeyondItsArraysAreToldAndNotKept) {
  TheoDispInfo.nDispCurves = 0;
  TheoDispInfo.nDispPoints = TheoDispInfo.capPoints + 120;
  // What stands behind the twin must not matter: the arrays of no curve are not in the file.
  EXPECT_EQ(Read(Stored() + std::string(100000, '\0')), 0);
  EXPECT_EQ(TheoDispInfo.nDispPoints, TheoDispInfo.capPoints);
  EXPECT_THAT(file.Trouble(), HasSubstr("points without a curve"));
  EXPECT_EQ(Read(Stored()), 0);
  EXPECT_EQ(file.Trouble(), "") << "what was saved is read without a message";
}

TEST_F(ModelingSection, CapacitiesMissingInTheTwinAreThoseOfTheModel) {
  std::string b = ModelingBytes().bytes;
  const std::size_t twin = Position(kTwin);
  const int capPairs = FModelParam.capPairs, capRec = FModelParam.capRec, capCurve = FModelParam.capCurve;
  PutInt(b, twin + 4, 0);   // capPairs
  PutInt(b, twin + 8, 0);   // capRec
  PutInt(b, twin + 16, 0);  // capCurve
  EXPECT_EQ(Read(b), 0);
  EXPECT_EQ(TheoDispInfo.capPairs, capPairs);
  EXPECT_EQ(TheoDispInfo.capRec, capRec);
  EXPECT_EQ(TheoDispInfo.capCurve, capCurve);
  EXPECT_EQ(TheoDispInfo.vel.size(), static_cast<std::size_t>(capCurve));
  EXPECT_EQ(file.Remaining(), 0);
}

TEST_F(ModelingSection, MoreEntriesWantedThanTheTablesHoldAreWrittenAsZeros) {
  InvParam.nEntries = 40;  // as a person may type before a run
  const std::string b = Stored();
  const double Vs = InvParam.Vs(1, 0);
  EXPECT_EQ(Read(b), 0);
  EXPECT_EQ(file.Trouble(), "");
  EXPECT_EQ(InvParam.nEntries, 40);
  EXPECT_EQ(InvParam.Vs.rowHi(), 40);
  EXPECT_EQ(InvParam.Vs(1, 0), Vs);
  EXPECT_EQ(InvParam.Vs(40, 0), 0.0);
  EXPECT_EQ(Stored(), b);
}

TEST_F(ModelingSection, MorePointsThanTheirCapacityAreKept) {
  InvParam.nPoints = 9;  // after a growth the capacity may be smaller
  InvParam.maxData = 9;
  InvParam.maxPoints = 2;
  AllocateInvRecord(InvParam);
  InvParam.freq(1, 8) = 88.0;
  const std::string b = Stored();
  EXPECT_EQ(Read(b), 0);
  EXPECT_EQ(file.Trouble(), "");
  EXPECT_EQ(InvParam.maxPoints, 2);
  EXPECT_EQ(InvParam.freq(1, 8), 88.0);
}

TEST_F(ModelingSection, ResultsOfASmallProjectAreReadAgainHoweverLargeItsTablesWereOnce) {
  // A run of 400 iterations on 28 pairs of 400 points made room; the last one was of a few points.
  InvParam.maxEntries = 400;
  InvParam.maxData = 28 * 400;
  const InvTableSizes small = UsedSizes(InvParam);
  const double Vs = InvParam.Vs(1, 0), misfit = InvParam.rms[1];
  const std::string b = Stored();
  ASSERT_EQ(Read(b), 0);
  EXPECT_EQ(file.Trouble(), "");
  EXPECT_EQ(InvParam.Vs.rowHi(), 400) << "the columns alone";
  EXPECT_EQ(InvParam.vel.colHi(), small.data);
  EXPECT_EQ(Stored(), b);
  // The next run finds its room, and the profile to begin from.
  ASSERT_EQ(ShowRefusal(FS_UpdateINVarray()), 0);
  EXPECT_EQ(InvParam.Vs.rowHi(), 400);
  EXPECT_EQ(InvParam.vel.colHi(), 28 * 400);
  EXPECT_EQ(InvParam.Vs(1, 0), Vs);
  EXPECT_EQ(InvParam.rms[1], misfit);
  EXPECT_EQ(Stored(), b);
}

TEST_F(ModelingSection, ResultsOfFewEntriesAreReadAgainAfterManyOfThatSize) {
  // 28 pairs of 400 points: first 400 iterations, then one.
  InvParam.maxEntries = 400;
  InvParam.nEntries = 1;
  InvParam.nPoints = 400;
  InvParam.nCurves = 28;
  InvParam.maxPoints = 400;
  InvParam.maxData = 28 * 400;
  ASSERT_EQ(ShowRefusal(ReserveEntry(InvParam, 1, InvParam.nLayers, 400, 28)), 0);
  InvParam.vel(1, 28 * 400 - 1) = 321.0;
  const std::string b = Stored();
  ASSERT_EQ(Read(b), 0);
  EXPECT_EQ(file.Trouble(), "");
  EXPECT_EQ(InvParam.rms.hi(), 1) << "the rows too";
  EXPECT_EQ(InvParam.vel(1, 28 * 400 - 1), 321.0);
  // Room for an entry more, as a run reserves it.
  ASSERT_EQ(ShowRefusal(ReserveEntry(InvParam, 2, InvParam.nLayers, 400, 28)), 0);
  EXPECT_EQ(InvParam.vel.rowHi(), 2);
  EXPECT_EQ(InvParam.vel(1, 28 * 400 - 1), 321.0);
  EXPECT_EQ(InvParam.maxEntries, 400);
}

TEST_F(ModelingSection, LayersThatAreNotInTheFileAreNotCounted) {
  FModelParam.nLayers = 99;
  const std::string b = Stored();
  EXPECT_EQ(Read(b), 0);
  EXPECT_EQ(FModelParam.nLayers, FModelParam.capLayers);
  EXPECT_THAT(file.Trouble(), HasSubstr("99 layers"));
}

TEST_F(ModelingSection, ARecordThatIsNotThereIsWrittenAsItsMarkAndEndsTheFile) {
  FinalizeInvAnal();
  EXPECT_EQ(Read(Stored()), -3);
  EXPECT_EQ(file.Trouble(), "");
  EXPECT_EQ(file.Remaining(), 0);
  MakeSmallProject();
  FinalizeTheoDispInfo();
  EXPECT_EQ(Read(Stored()), -2);
  EXPECT_EQ(file.Trouble(), "");
  EXPECT_EQ(file.Remaining(), 0);
  FinalizeFModel();
  EXPECT_EQ(Stored(), std::string(4, '\0'));
}

TEST_F(ModelingSection, TheDefaultRecordsAreReadAsTheyWere) {
  StartEmptyProject();
  const std::string plain = ModelingBytes().bytes;
  EXPECT_EQ(Stored(), plain);
  EXPECT_EQ(Read(plain), 0);
  EXPECT_EQ(ModelingBytes().bytes, plain);
  EXPECT_THAT(TheoDispInfo.recLoc, ::testing::SizeIs(16));
}

TEST_F(ModelingSection, ACompleteReadFillsTheCurveListsAndKeepsTheCurves) {
  FModelParam.dispCurvType = 2;
  FModelParam.pairRec1[0] = 3;
  FModelParam.pairRec2[0] = 5;
  const double velocity = TheoDispInfo.vel[1];
  const std::string plain = ModelingBytes().bytes;
  ASSERT_EQ(Read(plain), 0);
  EXPECT_EQ(GetLabelFromIndex(exdthd::THDTYPE, 0), "Not Displayed");
  EXPECT_GE(FindListItem(exdthd::THDTYPE, "Theoretical [3:5]"), 0);
  EXPECT_GE(FindListItem(exdthd::ARRAYDISPID, "Array R. [3:5]"), 0);
  EXPECT_EQ(TheoDispInfo.vel[1], velocity);
  EXPECT_TRUE(ModelingBytes().bytes == plain);
}

TEST_F(ModelingSection, ThePanelShowsTheModelOfTheFileAndNeverThatOfTheFormerProject) {
  const double Vs = FModelParam.Vs[1];
  const std::string plain = ModelingBytes().bytes;
  EXPECT_EQ(Open(plain), 0);
  EXPECT_EQ(GetCtrlVal(fmodeling::NLAYERS), 2);
  ASSERT_EQ(GetNumTableRows(fmodeling::SOILPROFILE), 2);
  EXPECT_EQ(GetTableCellVal(fmodeling::SOILPROFILE, 2, 3), Vs);
  const std::string path = folder.File("old.da");
  test::WriteWhole(path, SetupBytes().Add(RawBytes()).Add(AnalysisBytes()).bytes);
  EXPECT_EQ(OpenFileProc(path), 0);
  EXPECT_EQ(GetCtrlVal(fmodeling::NLAYERS), 10);
  EXPECT_EQ(GetTableCellVal(fmodeling::SOILPROFILE, 2, 3), 0.0);
}

TEST_F(ModelingSection, BytesBehindTheLastListAreTold) {
  EXPECT_EQ(Open(ModelingBytes().bytes + "12345"), -1);
  EXPECT_THAT(OnlyMessage(), HasSubstr("5 bytes"));
}

}  // namespace
}  // namespace sondera::testing
