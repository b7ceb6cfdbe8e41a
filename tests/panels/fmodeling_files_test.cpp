// Tests of the parameter file of a forward run: layout, round trip, damage.
#include "panels/fmodeling_files.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "app/callbacks.h"
#include "panels/fmodeling_records.h"
#include "project/parameters_file.h"
#include "records/model_records.h"
#include "records/session.h"
#include "records/settings_capacity.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/files.h"
#include "support/comma_locale.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera {
namespace {

using test::ReadWhole;
using test::WriteWhole;

std::string GoldenText() {
  return ReadWhole(std::string(SONDERA_TEST_DATA) + "/golden/parameters/two_layers.fmd");
}

/// The record of the golden file: two layers, three global points, two array curves with two points.
ModelRecord GoldenRecord() {
  ModelRecord m = FirstModel();
  m.analysis = 4;
  m.nSubLayers = 12;
  m.fDispBulb = 2.25;
  m.nLayers = 2;
  const double layers[2][6] = {{1.5, 0, 180, 1.8, 0.3333333, 0.02}, {1000, 900.25, 350.5, 2.1, 0, 0.015}};
  for (std::size_t l = 0; l < 2; ++l)
    for (std::size_t k = 0; k < 6; ++k) (m.*kLayerColumns[k])[l] = layers[l][k];
  m.incRatio = -1.0;
  m.nDispPointsG = 3;
  const double global[3][3] = {{180, 60, 3}, {200.5, 40.1, 5}, {1500000, 2000000, 0.75}};
  for (std::size_t p = 0; p < 3; ++p)
    for (std::size_t k = 0; k < 3; ++k) (m.*kGlobalColumns[k])[p] = global[p][k];
  m.GlobalRecType = 4;
  m.GlobalRec1Loc = 2.5;
  m.GlobalRec2Loc = 7.125;
  m.xDomainType = 2;
  m.xMinGlobal = 4.0;
  m.xMaxGlobal = 88.5;
  m.nReceivers = 3;
  m.nDispPoints = 2;
  m.nDispCurves = 2;
  m.freq[0] = 50.0;
  m.freq[1] = 25.0;
  const double vel[4] = {200.0, 0.0, 250.0, 275.5}, wlen[4] = {4.0, 0.0, 10.0, 11.02};
  std::copy_n(vel, 4, m.vel.begin());
  std::copy_n(wlen, 4, m.wlen.begin());
  m.pairMin = {25.0, 25.0};
  m.pairMax = {50.0, 25.0};
  m.pairMin.resize(20);
  m.pairMax.resize(20);
  return m;
}

void ExpectSame(const ModelRecord& a, const ModelRecord& b, double decimals) {
  EXPECT_EQ(a.analysis, b.analysis);
  EXPECT_EQ(a.nSubLayers, b.nSubLayers);
  EXPECT_NEAR(a.fDispBulb, b.fDispBulb, 5e-7);
  ASSERT_EQ(a.nLayers, b.nLayers);
  const double layerDecimals[] = {5e-5, 5e-3, 5e-3, 5e-5, 5e-8, 5e-5};
  for (std::size_t k = 0; k < 6; ++k)
    for (std::size_t l = 0; l < static_cast<std::size_t>(a.nLayers); ++l)
      EXPECT_NEAR((a.*kLayerColumns[k])[l], (b.*kLayerColumns[k])[l], 1.0001 * layerDecimals[k]);
  EXPECT_EQ(a.DispCurvInfo, b.DispCurvInfo);
  EXPECT_NEAR(a.incRatio, b.incRatio, 5e-7);
  EXPECT_EQ(a.dispCurvType, b.dispCurvType);
  ASSERT_EQ(a.nDispPointsG, b.nDispPointsG);
  for (auto column : kGlobalColumns)
    for (std::size_t p = 0; p < static_cast<std::size_t>(a.nDispPointsG); ++p)
      EXPECT_NEAR((a.*column)[p], (b.*column)[p], decimals);
  EXPECT_EQ(a.GlobalRecType, b.GlobalRecType);
  EXPECT_NEAR(a.GlobalRec1Loc, b.GlobalRec1Loc, 5e-7);
  EXPECT_NEAR(a.GlobalRec2Loc, b.GlobalRec2Loc, 5e-7);
  EXPECT_EQ(a.xDomainType, b.xDomainType);
  EXPECT_NEAR(a.xMinGlobal, b.xMinGlobal, 5e-7);
  EXPECT_NEAR(a.xMaxGlobal, b.xMaxGlobal, 5e-7);
  ASSERT_EQ(a.nReceivers, b.nReceivers);
  for (std::size_t r = 0; r < static_cast<std::size_t>(a.nReceivers); ++r)
    EXPECT_NEAR(a.recLoc[r], b.recLoc[r], decimals);
  ASSERT_EQ(a.nDispPoints, b.nDispPoints);
  ASSERT_EQ(a.nDispCurves, b.nDispCurves);
  for (std::size_t p = 0; p < static_cast<std::size_t>(a.nDispPoints); ++p)
    EXPECT_NEAR(a.freq[p], b.freq[p], decimals);
  const std::size_t cells = static_cast<std::size_t>(a.nDispPoints) * static_cast<std::size_t>(a.nDispCurves);
  for (std::size_t i = 0; i < cells; ++i) EXPECT_NEAR(a.vel[i], b.vel[i], decimals);
  for (std::size_t c = 0; c < static_cast<std::size_t>(a.nDispCurves); ++c) {
    EXPECT_EQ(a.pairRec1[c], b.pairRec1[c]);
    EXPECT_EQ(a.pairRec2[c], b.pairRec2[c]);
    EXPECT_NEAR(a.pairMin[c], b.pairMin[c], decimals);
    EXPECT_NEAR(a.pairMax[c], b.pairMax[c], decimals);
  }
}

std::string Replaced(std::string text, const std::string& what, const std::string& by) {
  const std::size_t at = text.find(what);
  EXPECT_NE(at, std::string::npos) << what;
  return at == std::string::npos ? text : text.replace(at, what.size(), by);
}

class ParameterFile : public testing::SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    InitializeFModel();
    InstallCallbacks();
  }
  int Read(const std::string& text) {
    TextReader file;
    file.OpenMemory(text);
    return ReadParametersFrom(file, FModelParam) ? 0 : -1;
  }
  std::string Saved() {
    const std::string path = folder.File("saved.fmd");
    EXPECT_EQ(SaveFModelParam(path), 0);
    return ReadWhole(path);
  }
  /// The text is refused and changes nothing.
  void ExpectRefused(const std::string& text, const std::string& what) {
    FModelParam = GoldenRecord();
    FModelParam.Vs[0] = 77.0;
    const ModelRecord before = FModelParam;
    EXPECT_EQ(Read(text), -1) << what;
    const ModelRecord& m = FModelParam;
    for (auto count : {&ModelRecord::nLayers, &ModelRecord::analysis, &ModelRecord::nDispPointsG,
                       &ModelRecord::nReceivers, &ModelRecord::nDispPoints, &ModelRecord::nDispCurves,
                       &ModelRecord::capLayers, &ModelRecord::capPoints, &ModelRecord::capCurve})
      EXPECT_EQ(m.*count, before.*count) << what;
    for (auto column : kLayerColumns) EXPECT_EQ(m.*column, before.*column) << what;
    for (auto column : kGlobalColumns) EXPECT_EQ(m.*column, before.*column) << what;
    for (auto column : {&ModelRecord::recLoc, &ModelRecord::freq, &ModelRecord::vel, &ModelRecord::wlen,
                        &ModelRecord::pairMin, &ModelRecord::pairMax})
      EXPECT_EQ(m.*column, before.*column) << what;
  }

  test::TempFolder folder;
};

TEST_F(ParameterFile, IsWrittenAsTheGoldenFileHasIt) {
  FModelParam = GoldenRecord();
  EXPECT_EQ(Saved(), GoldenText());
}

TEST_F(ParameterFile, ADesktopWithDecimalCommasChangesNothing) {
  FModelParam = GoldenRecord();
  test::CommaLocale comma;
  EXPECT_EQ(Saved(), GoldenText());
  EXPECT_EQ(Read(GoldenText()), 0);
  EXPECT_EQ(FModelParam.fDispBulb, 2.25);
}

TEST_F(ParameterFile, IsReadBackToThePrintedDecimals) {
  ASSERT_EQ(Read(GoldenText()), 0);
  ExpectSame(FModelParam, GoldenRecord(), 5e-5);
}

TEST_F(ParameterFile, WavelengthsOfArrayCurvesAreMadeAnew) {
  ASSERT_EQ(Read(Replaced(GoldenText(), "     50.0000    200.0000", "      0.0000    200.0000")), 0);
  EXPECT_EQ(FModelParam.wlen[0], 0.0);
  EXPECT_EQ(FModelParam.wlen[2], 10.0);
  EXPECT_NEAR(FModelParam.wlen[3], 11.02, 1e-12);
}

TEST_F(ParameterFile, NumbersThatStandCloseAreToldApartByTheirDecimals) {
  ASSERT_NE(GoldenText().find("1500000.00002000000.0000"), std::string::npos);
  ASSERT_EQ(Read(GoldenText()), 0);
  EXPECT_EQ(FModelParam.globalVel[2], 1500000.0);
  EXPECT_EQ(FModelParam.globalFreq[2], 2000000.0);
  EXPECT_EQ(FModelParam.globalWlen[2], 0.75);
}

TEST_F(ParameterFile, RandomRecordsComeBackToThePrintedDecimals) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> real(-20.0, 9000.0);
  for (int trial = 0; trial < 40; ++trial) {
    const auto count = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); };
    InitializeFModel();
    ModelRecord m = FModelParam;
    m.nLayers = count(130);
    m.nDispPointsG = count(450);
    m.nReceivers = count(40);
    m.nDispPoints = count(450);
    m.nDispCurves = count(45);
    ReserveLayers(m, m.nLayers);
    ReservePoints(m, std::max(m.nDispPoints, m.nDispPointsG));
    ReserveReceivers(m, m.nReceivers);
    ReservePairs(m, m.nDispCurves);
    ReserveCurves(m, m.nDispPoints, m.nDispCurves);
    for (auto column : kLayerColumns)
      for (double& x : m.*column) x = real(random);
    for (auto column : kGlobalColumns)
      for (double& x : m.*column) x = real(random);
    for (auto* v : {&m.recLoc, &m.freq, &m.vel, &m.pairMin, &m.pairMax})
      for (double& x : *v) x = real(random);
    FModelParam = m;
    const std::string text = Saved();
    InitializeFModel();
    ASSERT_EQ(Read(text), 0) << trial;
    ExpectSame(FModelParam, m, 1.0001 * 5e-5);
    EXPECT_EQ(Saved(), text);
  }
}

TEST_F(ParameterFile, SpacingRatiosOneAndMinusOneSurvive) {
  for (double ratio : {1.0, -1.0}) {
    FModelParam.incRatio = ratio;
    const std::string text = Saved();
    FModelParam.incRatio = 0.0;
    ASSERT_EQ(Read(text), 0);
    EXPECT_EQ(FModelParam.incRatio, ratio);
  }
}

TEST_F(ParameterFile, TablesAreEnlargedByDoublingOrToTheNeed) {
  FModelParam = GoldenRecord();
  FModelParam.nLayers = 60;
  FModelParam.nDispPoints = 900;
  FModelParam.nDispCurves = 25;
  ReserveLayers(FModelParam, 60);
  ReservePoints(FModelParam, 900);
  ReservePairs(FModelParam, 25);
  ReserveCurves(FModelParam, 900, 25);
  const std::string text = Saved();
  InitializeFModel();
  ASSERT_EQ(Read(text), 0);
  EXPECT_EQ(FModelParam.capLayers, 100);
  EXPECT_EQ(FModelParam.capPoints, 900);
  EXPECT_EQ(FModelParam.capPairs, 40);
  EXPECT_EQ(FModelParam.capCurve, 900 * 25);
  EXPECT_EQ(FModelParam.capRec, 16);
  EXPECT_EQ(FModelParam.globalVel.size(), 900u);
  EXPECT_EQ(FModelParam.wlen.size(), 22500u);
}

TEST_F(ParameterFile, SpacesAndLineEndsOfOtherEditorsDoNotMatter) {
  std::string text = GoldenText();
  for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 2) text.insert(at, "\r");
  ASSERT_EQ(Read(text), 0);
  ExpectSame(FModelParam, GoldenRecord(), 5e-5);
  ASSERT_EQ(Read(Replaced(Replaced(GoldenText(), "*nLayers          : 2", "\n\n  *nLayers:2"),
                          " - nReceivers     : 3", "-   nReceivers : 3")),
            0);
}

TEST_F(ParameterFile, EveryCutIsRefusedAndLeavesTheRecord) {
  const std::string text = GoldenText();
  for (std::size_t n = 0; n + 1 < text.size(); ++n) ExpectRefused(text.substr(0, n), std::to_string(n));
  FModelParam = GoldenRecord();
  EXPECT_EQ(Read(text.substr(0, text.size() - 1)), 0) << "all but the last line end";
}

TEST_F(ParameterFile, EveryMissingLineIsRefused) {
  const std::string text = GoldenText();
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t next = text.find('\n', at) + 1;
    ExpectRefused(text.substr(0, at) + text.substr(next), text.substr(at, next - at));
    at = next;
  }
}

TEST_F(ParameterFile, WrongCountsAreRefusedWithoutTakingMemory) {
  for (const char* counter : {"*nLayers          : ", " - nDispPointsG   : ", " - nReceivers     : ",
                              " - nDispPoints    : ", " - nDispCurves    : "}) {
    const std::size_t at = GoldenText().find(counter) + std::string(counter).size();
    for (const char* n : {"-1", "1", "4", "9", "1000000", "2147483647", "99999999999999", "x", ""}) {
      std::string text = GoldenText();
      text.replace(at, 1, n);
      if (text == GoldenText()) continue;
      ExpectRefused(text, std::string(counter) + n);
    }
  }
}

TEST_F(ParameterFile, ManyPointsOfNoCurvesAreBoundedByTheFile) {
  std::string text = GoldenText();
  text = Replaced(text, " - nDispPoints    : 2", " - nDispPoints    : 2147483647");
  text = Replaced(text, " - nDispCurves    : 2", " - nDispCurves    : 0");
  ExpectRefused(text, "no curves");
}

TEST_F(ParameterFile, ALineWithoutEndIsRefused) {
  ExpectRefused("*analysis : 3" + std::string(3u << 20, ' ') + "\n", "blanks");
  ExpectRefused(std::string(3u << 20, '*'), "stars");
}

TEST_F(ParameterFile, ExtremeValuesAreTakenAsTheyAre) {
  ASSERT_EQ(Read(Replaced(GoldenText(), "*fDispBulb        : 2.250000", "*fDispBulb        : 1e999")), 0);
  EXPECT_TRUE(std::isinf(FModelParam.fDispBulb));
  ASSERT_EQ(Read(Replaced(GoldenText(), "*analysis         : 4", "*analysis         : -99999999999")), 0);
  EXPECT_EQ(FModelParam.analysis, std::numeric_limits<int>::min());
}

TEST_F(ParameterFile, AFileThatCannotBeOpenedIsOneMessage) {
  const std::string path = folder.File("nothing.fmd");
  EXPECT_EQ(ReadFModelParam(path), -1);
  EXPECT_EQ(OnlyMessage(), "Error in reading the forward modeling param. into file " + path + ".");
  EXPECT_EQ(frontEnd.messageTitles.back(), session.appTitle);
}

TEST_F(ParameterFile, ADamagedFileIsOneMessage) {
  const std::string path = folder.File("cut.fmd");
  WriteWhole(path, GoldenText().substr(0, 200));
  EXPECT_EQ(ReadFModelParam(path), -1);
  EXPECT_EQ(OnlyMessage(), "Error in reading the forward modeling param. into file " + path + ".");
}

TEST_F(ParameterFile, AFileThatCannotBeWrittenIsOneMessage) {
  const std::string path = folder.File("no/such/folder.fmd");
  EXPECT_EQ(SaveFModelParam(path), -1);
  EXPECT_EQ(OnlyMessage(), "Error in writing the forward modeling param. into file " + path + ".");
}

TEST_F(ParameterFile, ARecordThatIsNotWholeIsNotWritten) {
  const std::string path = folder.File("kept.fmd");
  WriteWhole(path, "before");
  FModelParam.pairMin.clear();
  EXPECT_EQ(SaveFModelParam(path), -1);
  InitializeFModel();
  FModelParam.nDispPoints = -1;
  EXPECT_EQ(SaveFModelParam(path), -1);
  EXPECT_EQ(ReadWhole(path), "before");
}

// ---- buttons ----------------------------------------------------------------------------------------

TEST_F(ParameterFile, SaveTakesThePanelAndAsksForAName) {
  using namespace fmodeling;
  const std::string path = folder.File("a.fmd");
  FModelParam = GoldenRecord();
  SetFModelParam();
  SetTableCellVal(SOILPROFILE, 1, 3, 199.0);
  frontEnd.fileAnswers.push_back({FileAnswer::IsNew, path});
  EXPECT_EQ(Commit(SAVE), 0);
  ASSERT_EQ(frontEnd.files.size(), 1u);
  EXPECT_EQ(frontEnd.files[0].title, "Save the Forward Modeling Parameters.");
  EXPECT_EQ(frontEnd.files[0].filter, "*.fmd");
  EXPECT_TRUE(frontEnd.files[0].forSaving);
  EXPECT_EQ(ReadWhole(path), Replaced(GoldenText(), "180.00\t", "199.00\t"));
}

TEST_F(ParameterFile, SaveOfARefusedPanelOrAfterCancelWritesNothing) {
  EXPECT_EQ(Commit(mainmenu::SAVE_FMODEL_PARAM_MENU), 0);
  EXPECT_TRUE(frontEnd.messages.empty());
  frontEnd.fileAnswers.push_back({FileAnswer::IsNew, folder.File("a.fmd")});
  EXPECT_EQ(Commit(mainmenu::SAVE_FMODEL_PARAM_MENU), -1);
  EXPECT_EQ(OnlyMessage(), "Invalid value of thickness !");
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(ParameterFile, ReadShowsWhatTheFileHas) {
  using namespace fmodeling;
  const std::string path = folder.File("a.fmd");
  WriteWhole(path, GoldenText());
  frontEnd.fileAnswers.push_back({FileAnswer::Exists, path});
  EXPECT_EQ(Commit(READ), 0);
  ASSERT_EQ(frontEnd.files.size(), 1u);
  EXPECT_EQ(frontEnd.files[0].title, "Read the Forward Modeling Parameters.");
  EXPECT_FALSE(frontEnd.files[0].forSaving);
  EXPECT_EQ(GetCtrlVal(ANALYSISTYPE), 4);
  EXPECT_EQ(GetCtrlVal(NLAYERS), 2);
  EXPECT_EQ(GetTableCellVal(SOILPROFILE, 2, 3), 350.5);
  EXPECT_EQ(GetTableCellVal(DISPCURVINFO, 1, 4), 50.0);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(ParameterFile, ReadOfAMissingFileSaysSo) {
  frontEnd.fileAnswers.push_back({FileAnswer::IsNew, folder.File("a.fmd")});
  EXPECT_EQ(Commit(mainmenu::READ_FMODEL_PARAM_MENU), -1);
  EXPECT_EQ(OnlyMessage(), "File does not exist.");
  EXPECT_EQ(Commit(mainmenu::READ_FMODEL_PARAM_MENU), 0);
}

TEST_F(ParameterFile, ReadOfSettingsThatNoRunTakesNamesOneOfThem) {
  const std::string path = folder.File("a.fmd");
  const std::pair<const char*, const char*> damages[] = {
      {"*analysis         : 4", "*analysis         : 7"},
      {"*nSubLayers       : 12", "*nSubLayers       : 1000000"},
      {"*fDispBulb        : 2.250000", "*fDispBulb        : 1000000000"},
      {"      180.00\t", "     -180.00\t"}};
  for (const auto& [what, by] : damages) {
    WriteWhole(path, Replaced(GoldenText(), what, by));
    frontEnd.fileAnswers.push_back({FileAnswer::Exists, path});
    frontEnd.messages.clear();
    EXPECT_EQ(Commit(fmodeling::READ), 0);
    EXPECT_NE(OnlyMessage().find("It must be from"), std::string::npos) << by;
  }
}

}  // namespace
}  // namespace sondera
