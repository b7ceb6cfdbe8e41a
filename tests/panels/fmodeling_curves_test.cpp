// Tests of the curves that a forward run takes from memory and from a file of representative curves.
#include <gtest/gtest.h>

#include <cmath>

#include "app/callbacks.h"
#include "panels/fmodeling_files.h"
#include "panels/fmodeling_fixture.h"
#include "panels/fmodeling_records.h"
#include "project/curve_file.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "records/session.h"
#include "run/run_state.h"
#include "run/system_state.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/text_format.h"
#include "runtime/text_reader.h"
#include "signal/rep_curves.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera {
namespace {

using test::ReadWhole;
using test::WriteWhole;

std::string GoldenCurves(const char* name) {
  return ReadWhole(std::string(SONDERA_TEST_DATA) + "/golden/rep_curve/" + name);
}

struct Row {
  double freq, vel;
};

class CurveImport : public testing::ModelParameters {
 protected:
  void SetUp() override {
    ModelParameters::SetUp();
    testing::MeasurementPlan plan;
    plan.nChannels = 3;
    site = testing::AddMeasurement(plan);
    site.setup->recLoc = {10.0, 20.0, 40.0};
  }

  static void Fill(DispInfo& d, const std::vector<Row>& rows) {
    SetupDispArrays(d, static_cast<int>(rows.size()));
    d.nPoints = static_cast<int>(rows.size());
    for (int i = 1; i <= d.nPoints; ++i) {
      d.freq[i] = rows[static_cast<std::size_t>(i - 1)].freq;
      d.vel[i] = rows[static_cast<std::size_t>(i - 1)].vel;
      d.wlen[i] = d.vel[i] / d.freq[i];
    }
  }
  static DispInfo& Global(const std::vector<Row>& rows) {
    DispInfo& d = *MeasDB.gDispList.append();
    d.refChan = d.dspChan = 1;
    Fill(d, rows);
    return d;
  }
  PMeasInfo& Pair(int refChan, int dspChan, int included = 1) {
    PMeasInfo& pair = *MeasDB.pMeasList.append();
    SetupPairMeasArrays(pair, 4);
    pair.key = site.key;
    pair.refChan = refChan;
    pair.dspChan = dspChan;
    pair.included = included;
    pair.nDispPoints = 3;
    return pair;
  }
  /// Array curve of an included pair.
  DispInfo& Array(int refChan, int dspChan, const std::vector<Row>& rows) {
    Pair(refChan, dspChan);
    DispInfo& d = *MeasDB.aDispList.append();
    d.key = site.key;
    d.refChan = refChan;
    d.dspChan = dspChan;
    Fill(d, rows);
    return d;
  }
  void TwoArrays() {
    Global({{60, 180}, {40, 200}, {20, 240}});
    Array(0, 1, {{10, 0}, {20, 240}, {40, 200}});
    Array(1, 2, {{10, 300}, {20, 250}, {40, 0}});
  }
  static double Vel(int point, int curve) {
    return FModelParam.vel[static_cast<std::size_t>(point * FModelParam.nDispCurves + curve)];
  }
  static double Wlen(int point, int curve) {
    return FModelParam.wlen[static_cast<std::size_t>(point * FModelParam.nDispCurves + curve)];
  }

  testing::TestMeasurement site;
  test::TempFolder folder;
};

TEST_F(CurveImport, WithoutAGlobalCurveThereIsNothingToTake) {
  EXPECT_EQ(RetrieveDispCurvInfoFromMemory(), -1);
  EXPECT_EQ(OnlyMessage(), "No dispersion curves available in memory.");
  EXPECT_EQ(frontEnd.messageTitles.back(), session.appTitle);
}

TEST_F(CurveImport, AGlobalCurveAloneIsTakenButIsNoSuccess) {
  Global({{60, 180}, {40, 200}, {20, 240}});
  FModelParam.DispCurvInfo = 0;
  FModelParam.xDomainType = 2;
  EXPECT_EQ(RetrieveDispCurvInfoFromMemory(), -1);
  EXPECT_TRUE(frontEnd.messages.empty());
  EXPECT_EQ(FModelParam.nDispPointsG, 3);
  EXPECT_EQ(FModelParam.globalVel[1], 200.0);
  EXPECT_EQ(FModelParam.globalFreq[2], 20.0);
  EXPECT_EQ(FModelParam.globalWlen[0], 3.0);
  EXPECT_EQ(FModelParam.xMinGlobal, 3.0);
  EXPECT_EQ(FModelParam.xMaxGlobal, 12.0);
  EXPECT_EQ(FModelParam.xDomainType, 1);
  EXPECT_EQ(FModelParam.DispCurvInfo, 0);
}

TEST_F(CurveImport, ArrayCurvesComeWithTheirReceiversFromTheLastPointToTheFirst) {
  TwoArrays();
  FModelParam.DispCurvInfo = 0;
  ASSERT_EQ(RetrieveDispCurvInfoFromMemory(), 0);
  const ModelRecord& m = FModelParam;
  EXPECT_EQ(m.nReceivers, 3);
  EXPECT_EQ(m.recLoc[0], 10.0);
  EXPECT_EQ(m.recLoc[2], 40.0);
  EXPECT_EQ(m.nDispCurves, 2);
  EXPECT_EQ(m.pairRec1[0], 1);
  EXPECT_EQ(m.pairRec2[0], 2);
  EXPECT_EQ(m.pairRec1[1], 2);
  EXPECT_EQ(m.pairRec2[1], 3);
  EXPECT_EQ(m.nDispPoints, 3);
  EXPECT_EQ(m.freq[0], 40.0);
  EXPECT_EQ(m.freq[2], 10.0);
  EXPECT_EQ(Vel(0, 0), 200.0);
  EXPECT_EQ(Vel(0, 1), 0.0);
  EXPECT_EQ(Vel(1, 1), 250.0);
  EXPECT_EQ(Wlen(2, 1), 30.0);
  EXPECT_EQ(Wlen(2, 0), 0.0);
  EXPECT_DOUBLE_EQ(m.incRatio, 2.0);
  EXPECT_EQ(m.DispCurvInfo, 1);
  EXPECT_EQ(run.switches.iHaveData, 1);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(CurveImport, LimitsOfAPairAreThoseOfItsPositiveVelocities) {
  TwoArrays();
  ASSERT_EQ(RetrieveDispCurvInfoFromMemory(), 0);
  EXPECT_EQ(FModelParam.pairMin[0], 20.0);
  EXPECT_EQ(FModelParam.pairMax[0], 40.0);
  EXPECT_EQ(FModelParam.pairMin[1], 10.0);
  EXPECT_EQ(FModelParam.pairMax[1], 20.0);
}

TEST_F(CurveImport, APairWithNoPositiveVelocityKeepsItsLimits) {
  Global({{60, 180}});
  Array(0, 1, {{10, 210}, {20, 240}});
  Array(1, 2, {{10, 0}, {20, 0}});
  FModelParam.pairMin[1] = 3.5;
  FModelParam.pairMax[1] = 77.0;
  ASSERT_EQ(RetrieveDispCurvInfoFromMemory(), 0);
  EXPECT_EQ(FModelParam.pairMin[1], 3.5);
  EXPECT_EQ(FModelParam.pairMax[1], 77.0);
  EXPECT_EQ(FModelParam.pairMin[0], 10.0);
}

TEST_F(CurveImport, CurvesOfExcludedPairsStayOut) {
  TwoArrays();
  MeasDB.pMeasList.at(1)->included = 0;
  ASSERT_EQ(RetrieveDispCurvInfoFromMemory(), 0);
  EXPECT_EQ(FModelParam.nDispCurves, 1);
  EXPECT_EQ(FModelParam.nReceivers, 2);
  EXPECT_EQ(FModelParam.recLoc[0], 20.0);
  EXPECT_EQ(Vel(1, 0), 250.0);
}

TEST_F(CurveImport, APairWithoutACurveKeepsItsColumnSoThatOthersKeepTheirReceivers) {
  Global({{60, 180}});
  Pair(0, 2);
  Array(1, 2, {{10, 300}, {20, 250}});
  ASSERT_EQ(RetrieveDispCurvInfoFromMemory(), 0);
  EXPECT_EQ(FModelParam.nDispCurves, 2);
  EXPECT_EQ(FModelParam.pairRec1[1], 2);
  EXPECT_EQ(FModelParam.pairRec2[1], 3);
  EXPECT_EQ(Vel(0, 0), 0.0);
  EXPECT_EQ(Vel(0, 1), 250.0);
  EXPECT_EQ(Vel(1, 1), 300.0);
}

TEST_F(CurveImport, VelocitiesAreOnlyPutAtTheirOwnFrequency) {
  Global({{60, 180}});
  Array(0, 1, {{10, 300}, {20, 250}, {40, 200}});
  Array(1, 2, {{10, 310}, {40, 210}});             // a row dropped out
  Array(0, 2, {{15, 280}, {20, 260}, {41, 190}});  // another grid
  ASSERT_EQ(RetrieveDispCurvInfoFromMemory(), 0);
  const double expected[3][3] = {{200, 210, 0}, {250, 0, 260}, {300, 310, 0}};
  for (int p = 0; p < 3; ++p)
    for (int c = 0; c < 3; ++c) EXPECT_EQ(Vel(p, c), expected[p][c]) << p << " " << c;
  EXPECT_EQ(OnlyMessage(),
            "2 points of the array curves are left out: the first curve has no point at their frequencies.");
}

TEST_F(CurveImport, ALineShotInReverseComesAsItsMirrorImage) {
  TwoArrays();
  ASSERT_EQ(RetrieveDispCurvInfoFromMemory(), 0);
  const ModelRecord forward = FModelParam;
  for (double& location : site.setup->recLoc) location = -location;
  FModelParam.recLoc[1] = 0.0;
  ASSERT_EQ(RetrieveDispCurvInfoFromMemory(), 0);
  EXPECT_EQ(FModelParam.recLoc, forward.recLoc);
  EXPECT_EQ(FModelParam.pairRec1, forward.pairRec1);
  EXPECT_EQ(FModelParam.pairRec2, forward.pairRec2);
  EXPECT_EQ(FModelParam.vel, forward.vel);
}

TEST_F(CurveImport, ASourceBetweenItsReceiversIsRefusedWithTheReason) {
  TwoArrays();
  site.setup->srcLoc = 30.0;
  EXPECT_EQ(RetrieveDispCurvInfoFromMemory(), -1);
  EXPECT_EQ(OnlyMessage(), ReceiverLinesFault());
  EXPECT_NE(OnlyMessage().find("[2:3] is between its receivers"), std::string::npos) << OnlyMessage();
}

TEST_F(CurveImport, AReceiverAtTheSourceIsRefused) {
  TwoArrays();
  site.setup->recLoc = {0.0, 0.0, 40.0};  // table 0 0 0 40: the number of the receivers at 0 is below 0
  EXPECT_EQ(RetrieveDispCurvInfoFromMemory(), -1);
  EXPECT_EQ(OnlyMessage(), "Please configure the receiver setup properly.");
}

TEST_F(CurveImport, ArrayCurvesOfNoIncludedPairAreRefused) {
  TwoArrays();
  for (PMeasInfo& pair : MeasDB.pMeasList) pair.included = 0;
  EXPECT_EQ(RetrieveDispCurvInfoFromMemory(), -1);
  EXPECT_EQ(OnlyMessage(), "Please configure the receiver setup.");
}

TEST_F(CurveImport, OnePointGivesNoRatioToDivideBy) {
  Global({{60, 180}});
  Array(0, 1, {{10, 210}});
  ASSERT_EQ(RetrieveDispCurvInfoFromMemory(), 0);
  EXPECT_EQ(FModelParam.incRatio, 1.0);
}

TEST_F(CurveImport, ManyPointsGrowTheRecord) {
  std::vector<Row> rows;
  for (int i = 1; i <= 3000; ++i) rows.push_back({0.1 * i, 200.0 + i});
  Global(rows);
  Array(0, 1, rows);
  Array(1, 2, rows);
  ASSERT_EQ(RetrieveDispCurvInfoFromMemory(), 0);
  EXPECT_EQ(FModelParam.globalVel[2999], 3200.0);
  EXPECT_EQ(Vel(2999, 1), 201.0);
  EXPECT_EQ(Vel(0, 1), 3200.0);
  EXPECT_GE(FModelParam.capCurve, 6000);
}

TEST_F(CurveImport, TooManyPointsForARunAreRefusedInOneMessage) {
  std::vector<Row> rows;
  for (int i = 1; i <= 20001; ++i) rows.push_back({0.1 * i, 200.0});
  Global({{60, 180}});
  Array(0, 1, rows);
  EXPECT_EQ(RetrieveDispCurvInfoFromMemory(), -1);
  EXPECT_EQ(OnlyMessage(), "The number of points of the array curves is 20001. It must be from 0 to 20000.");
}

TEST_F(CurveImport, ACountBeyondTheCurveIsHeldToIt) {
  TwoArrays();
  MeasDB.gDispList.at(1)->nPoints = 1000000;
  MeasDB.aDispList.at(2)->nPoints = 1000000;
  ASSERT_EQ(RetrieveDispCurvInfoFromMemory(), 0);
  EXPECT_EQ(FModelParam.nDispPointsG, 3);
  EXPECT_EQ(FModelParam.nDispPoints, 3);
}

// ---- buttons ----------------------------------------------------------------------------------------

TEST_F(CurveImport, TheButtonsStartTheRecordAfreshAndShowTheCurves) {
  using namespace fmodeling;
  for (const ButtonControl* button : {&DISPCURVINFOIN, &LOADDISPCURV}) {
    MeasDB.gDispList.clear();
    MeasDB.aDispList.clear();
    MeasDB.pMeasList.clear();
    TwoArrays();
    FModelParam.dispCurvType = 1;
    FModelParam.pairMin[4] = 9.0;
    InsertListItem(exdthd::ITERNO, -1, "INV 1", 1);
    SetTableCellVal(SOILPROFILE, 1, 3, 222.0);
    EXPECT_EQ(Commit(*button), 0);
    EXPECT_EQ(GetCtrlVal(GLOBAL_ARRAY), 2);
    EXPECT_EQ(FModelParam.dispCurvType, 2);
    EXPECT_EQ(GetCtrlVal(NRECEIVERS), 3);
    EXPECT_EQ(GetTableCellVal(RECEIVERLOC, 3, 1), 40.0);
    EXPECT_EQ(GetCtrlVal(NDISPCURVES), 2);
    EXPECT_EQ(GetCtrlVal(NDISPPOINTS), 3);
    EXPECT_EQ(GetTableCellVal(DISPCURVINFO, 1, 4), 40.0);
    EXPECT_TRUE(IsVisible(DISPCURVINFO));
    EXPECT_FALSE(IsVisible(XMIN));
    EXPECT_EQ(FModelParam.pairMin[4], 0.0);
    EXPECT_EQ(GetNumListItems(exdthd::ITERNO), 0);
    EXPECT_EQ(GetTableCellVal(SOILPROFILE, 1, 3), 222.0);
  }
}

TEST_F(CurveImport, TheButtonsFailWithoutCurvesAndShowTheFirstValues) {
  using namespace fmodeling;
  FModelParam.nReceivers = 5;
  EXPECT_EQ(Commit(LOADDISPCURV), -1);
  EXPECT_EQ(OnlyMessage(), "No dispersion curves available in memory.");
  EXPECT_EQ(GetCtrlVal(NRECEIVERS), 8);
  EXPECT_EQ(FModelParam.DispCurvInfo, 0);
}

// ---- file -------------------------------------------------------------------------------------------

TEST_F(CurveImport, AFileOfRepresentativeCurvesGivesTheSameAsTheMemory) {
  TwoArrays();
  ASSERT_EQ(RetrieveDispCurvInfoFromMemory(), 0);
  const ModelRecord fromMemory = FModelParam;
  std::string text = "*GCD\nProjID:a, MeasID: b\n3\n";
  for (int p = 0; p < 3; ++p) {
    const std::size_t i = static_cast<std::size_t>(p);
    text += FormatText("%12.7lf %12.7lf %12.7lf %12.7lf 1 3 \n", fromMemory.globalVel[i],
                       fromMemory.globalFreq[i], fromMemory.globalWlen[i], 0.0);
  }
  text += "\n\n*ICD\n1\n3\t10.000000\t20.000000\t40.000000\t\n2\t1  2\t2  3\t\n3\n\n[Velocity]\n";
  for (int p = 0; p < 3; ++p)
    text += FormatText("%12.7lf %12.7lf %12.7lf \n", fromMemory.freq[static_cast<std::size_t>(p)], Vel(p, 0),
                       Vel(p, 1));
  WriteWhole(folder.File("site.red"), text);

  InitializeFModel();
  ASSERT_EQ(RetrieveDispCurvInfoFromFile(folder.File("site")), 0);
  const ModelRecord& m = FModelParam;
  EXPECT_EQ(m.nDispPointsG, 3);
  EXPECT_EQ(m.globalWlen, fromMemory.globalWlen);
  EXPECT_EQ(m.xMaxGlobal, fromMemory.xMaxGlobal);
  EXPECT_EQ(m.recLoc[2], 40.0);
  EXPECT_EQ(m.nReceivers, 3);
  EXPECT_EQ(m.pairRec2, fromMemory.pairRec2);
  EXPECT_EQ(m.freq, fromMemory.freq);
  EXPECT_EQ(m.vel, fromMemory.vel);
  EXPECT_EQ(m.wlen, fromMemory.wlen);
  EXPECT_EQ(m.pairMin, fromMemory.pairMin);
  EXPECT_EQ(m.incRatio, fromMemory.incRatio);
  EXPECT_EQ(m.DispCurvInfo, 1);
}

TEST_F(CurveImport, FilesAsTheDispersionPageWritesThemAreRead) {
  for (const char* name : {"all_points.red", "constant.red"}) {
    WriteWhole(folder.File("x.red"), GoldenCurves(name));
    EXPECT_EQ(RetrieveDispCurvInfoFromFile(folder.File("x")), 0) << name;
  }
  WriteWhole(folder.File("x.red"), GoldenCurves("all_points.red"));
  ASSERT_EQ(RetrieveDispCurvInfoFromFile(folder.File("x")), 0);
  EXPECT_EQ(FModelParam.nDispPointsG, 5);
  EXPECT_EQ(FModelParam.freq[0], 30.0);
  EXPECT_EQ(Vel(1, 0), 240.0);
  EXPECT_EQ(Vel(1, 1), 160.0);
  EXPECT_EQ(FModelParam.pairRec1[0], 2);
}

TEST_F(CurveImport, CutsOfAFileBeforeTheEndOfItsVelocitiesAreRefused) {
  const std::string text = GoldenCurves("all_points.red");
  const std::size_t end = text.find("  10.0000000  300.0000000  200.0000000");
  ASSERT_NE(end, std::string::npos);
  FModelParam.vel[0] = 5.5;
  for (std::size_t n = 0; n <= end; ++n) {
    TextReader file;
    const std::string cut = text.substr(0, n);
    file.OpenMemory(cut);
    EXPECT_FALSE(ReadCurvesFrom(file, FModelParam, run.switches)) << n;
    EXPECT_EQ(FModelParam.vel[0], 5.5);
    EXPECT_EQ(FModelParam.nDispCurves, 7);
  }
}

TEST_F(CurveImport, AMissingFileIsOneMessage) {
  const std::string path = folder.File("none");
  EXPECT_EQ(RetrieveDispCurvInfoFromFile(path), -1);
  EXPECT_EQ(OnlyMessage(), "Error in reading the array rep. disp. curve into file " + path + ".red.");
}

TEST_F(CurveImport, WrongCountsOfAFileAreRefused) {
  const std::string text = GoldenCurves("all_points.red");
  const std::pair<const char*, const char*> damages[] = {{"\n5\n", "\n500000000\n"},
                                                         {"\n5\n", "\n-5\n"},
                                                         {"\n3\n\n[V", "\n4\n\n[V"},
                                                         {"\n3\t10", "\n4\t10"},
                                                         {"\n3\t10", "\n2147483647\t10"},
                                                         {"\n2\t2  3", "\n3\t2  3"},
                                                         {"2  3", "-2  3"},
                                                         {"10.000000\t", "70.000000\t"},
                                                         {"[Velocity]", "[Amplitude]"}};
  for (const auto& [what, by] : damages) {
    std::string damaged = text;
    const std::size_t at = damaged.find(what);
    ASSERT_NE(at, std::string::npos) << what;
    damaged.replace(at, std::string(what).size(), by);
    TextReader file;
    file.OpenMemory(damaged);
    EXPECT_FALSE(ReadCurvesFrom(file, FModelParam, run.switches)) << by;
  }
}

TEST_F(CurveImport, FilePointerStopsBehindTheLineWithTheKey) {
  const std::string text = "ICD\n *ICD\n*GCD,x\nfirst\n***\t ,ICD\n*,ICD\tmore\nsecond\n";
  TextReader file;
  file.OpenMemory(text);
  std::string line;
  ASSERT_TRUE(FS_FilePointer(file, "ICD"));
  file.ReadLine(line);
  EXPECT_EQ(line, "second\n");
  ASSERT_TRUE(FS_FilePointer(file, "GCD"));
  file.ReadLine(line);
  EXPECT_EQ(line, "first\n");
  EXPECT_FALSE(FS_FilePointer(file, "GC"));
  EXPECT_FALSE(FS_FilePointer(file, ""));
}

TEST_F(CurveImport, TheTableRouteTakesNothing) {
  FModelParam.vel[0] = 5.5;
  RetrieveDispCurvInfoFromTable();
  EXPECT_EQ(FModelParam.vel[0], 5.5);
  EXPECT_TRUE(frontEnd.messages.empty());
}

}  // namespace
}  // namespace sondera
