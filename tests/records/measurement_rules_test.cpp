// Tests of the rules for sampling and positions, and of the messages of a load about a project that breaks
// them.
#include "records/measurement_rules.h"

#include <gmock/gmock.h>

#include <climits>
#include <cmath>

#include "panels/mainmenu_project.h"
#include "project/load_check.h"
#include "project/project_file.h"
#include "records/session.h"
#include "runtime/findings.h"
#include "support/odd_numbers.h"
#include "support/project_bytes.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// Spectra as the imports lay them out: 8 lines of 2 Hz.
HWSetup ImportedSampling() {
  HWSetup hw;
  hw.nChannels = 2;
  hw.nLines = 8;
  hw.deltaF = 2.0;
  hw.freqSpan = -14.0;
  hw.stopFreq = 14.0;
  hw.deltaT = 0.5 / 14.0;
  return hw;
}

/// Time records: span = spacing times lines.
HWSetup TimeSampling() {
  HWSetup hw = ImportedSampling();
  hw.freqSpan = hw.stopFreq = 16.0;
  hw.deltaT = 0.5 / 16.0;
  return hw;
}

TEST(MeasurementRules, BothKindsOfImportKeepThem) {
  EXPECT_EQ(SamplingFault(ImportedSampling()), "");
  EXPECT_EQ(SamplingFault(TimeSampling()), "");
}

TEST(MeasurementRules, SamplingThatNoRecordCanHaveIsNamed) {
  for (const double bad : {0.0, -1.0, kNaN, kInf, -kInf}) {
    HWSetup hw = TimeSampling();
    hw.deltaF = bad;
    EXPECT_THAT(SamplingFault(hw), HasSubstr("line spacing")) << bad;
    hw = TimeSampling();
    hw.deltaT = bad;
    EXPECT_THAT(SamplingFault(hw), HasSubstr("sample interval")) << bad;
  }
  for (const double bad : {0.0, kNaN, kInf, -kInf}) {
    HWSetup hw = TimeSampling();
    hw.freqSpan = bad;
    EXPECT_THAT(SamplingFault(hw), HasSubstr("span")) << bad;
  }
  HWSetup hw = TimeSampling();
  hw.nLines = 1;
  EXPECT_EQ(SamplingFault(hw), "has one line only");
}

TEST(MeasurementRules, NumbersThatContradictEachOtherAreNamed) {
  HWSetup hw = TimeSampling();
  hw.deltaF = 1.0;  // a velocity at half its frequency
  EXPECT_EQ(SamplingFault(hw), "has 8 lines of 1 Hz on a span of 16 Hz");
  hw = TimeSampling();
  hw.nLines = 65536;
  EXPECT_THAT(SamplingFault(hw), HasSubstr("65536 lines"));
  hw = TimeSampling();
  hw.deltaT = 1.0;
  EXPECT_EQ(SamplingFault(hw), "has a sample interval of 1 s with a span of 16 Hz");
}

TEST(MeasurementRules, TheBandOfImportedSpectraLiesOnTheLines) {
  for (const double bad : {-1.0, 14.0, 1e300, kNaN}) {
    HWSetup hw = ImportedSampling();
    hw.startFreq = bad;
    EXPECT_THAT(SamplingFault(hw), HasSubstr("band")) << bad;
  }
  for (const double bad : {0.0, 17.0, kInf, kNaN}) {
    HWSetup hw = ImportedSampling();
    hw.stopFreq = bad;
    EXPECT_THAT(SamplingFault(hw), HasSubstr("band")) << bad;
  }
}

TEST(MeasurementRules, PlacesAreFiniteAndNear) {
  MeasSetup setup;
  setup.recLoc = {2.0, 4.0};
  EXPECT_EQ(PlacesFault(setup), "");
  for (const double bad : {kNaN, kInf, -kInf, 1e300, -2e6}) {
    setup.srcLoc = bad;
    EXPECT_THAT(PlacesFault(setup), HasSubstr("source")) << bad;
    setup.srcLoc = 0.0;
    setup.recLoc[1] = bad;
    EXPECT_THAT(PlacesFault(setup), HasSubstr("receiver 2")) << bad;
    setup.recLoc[1] = 4.0;
  }
  for (const double bad : {0.0, -1.0, kNaN, kInf}) {
    setup.lengthUnit = bad;
    EXPECT_THAT(PlacesFault(setup), HasSubstr("unit of length")) << bad;
  }
  setup.recLoc = {2.0, 4.0, 2.0};
  EXPECT_EQ(ReceiversFault(setup), "has the receivers 1 and 3 at the same place, 2");
}

// ---- a load -------------------------------------------------------------------------------------------

class LoadCheck : public SessionTest {
 protected:
  /// A measurement with data, a pair with a curve, and its file.
  void SetUp() override {
    SessionTest::SetUp();
    StartEmptyProject();
    ClearFindings();
    m = AddMeasurement({.measID = "shot", .nLines = 8});
    for (double& v : m.raw->crossSpecRe) v = 1.0;
    PMeasInfo& pair = *MeasDB.pMeasList.append();
    SetupPairMeasArrays(pair, 8);
    pair.key = m.key;
    pair.dspChan = 1;
    pair.included = 1;
    pair.nDispPoints = 2;
    for (auto* column : {&pair.dispVel, &pair.dispFreq, &pair.dispWlen}) (*column)[0] = (*column)[1] = 3.0;
  }
  /// The messages of a load of the present database.
  std::string Reload() {
    const std::string path = folder.File("site.da");
    test::WriteWhole(path, ProjectBytes().bytes);
    FreeMaskingInfoList();  // those of the open project would stay
    frontEnd.messages.clear();
    ClearFindings();
    opened = OpenFileProc(path);
    EXPECT_LE(frontEnd.messages.size(), 1u);
    return frontEnd.messages.empty() ? "" : frontEnd.messages.front();
  }
  PMeasInfo& Pair() { return *MeasDB.pMeasList.at(1); }

  test::TempFolder folder;
  TestMeasurement m;
  int opened = -1;
};

TEST_F(LoadCheck, ASoundProjectLoadsQuietly) {
  EXPECT_EQ(Reload(), "");
  EXPECT_EQ(opened, 0);
  EXPECT_EQ(DoubtCount(), 0);
  PMeasInfo* pair = nullptr;
  EXPECT_EQ(CheckifIncluded(m.key, 0, 1, pair), 1);
}

TEST_F(LoadCheck, BadSamplingIsToldOnceAndGivesNoCurve) {
  m.hw->deltaF = -1.0;
  const std::string told = Reload();
  EXPECT_THAT(told, HasSubstr("The measurement shot has a line spacing of -1 Hz: no curve is made from it."));
  EXPECT_EQ(DoubtCount(), 1);
  EXPECT_EQ(opened, 0) << "the file itself is whole";
  EXPECT_FALSE(session.readInPart);
  PMeasInfo* pair = nullptr;
  EXPECT_EQ(CheckifIncluded(m.key, 0, 1, pair), 0);
  EXPECT_FALSE(HasUsableCurve(Pair()));
}

TEST_F(LoadCheck, AnEmptyMeasurementNeedsNoPlaces) {
  for (double& v : m.raw->crossSpecRe) v = 0.0;
  m.setup->recLoc = {0.0, 0.0};
  m.hw->freqSpan = 0.0;  // no board
  EXPECT_EQ(Reload(), "");
}

TEST_F(LoadCheck, ReceiversAtOnePlaceAreTold) {
  m.setup->recLoc = {5.0, 5.0};
  EXPECT_THAT(Reload(), HasSubstr("has the receivers 1 and 2 at the same place, 5"));
}

TEST_F(LoadCheck, ChannelsBeyondTheMeasurementAreToldAndNotUsed) {
  *MeasDB.maskingList.append() = {m.key, INT_MAX, 0, 1.0, 2.0, 0, 0, 0};
  Pair().refChan = INT_MIN;
  Pair().dspChan = INT_MAX;
  const std::string told = Reload();
  EXPECT_THAT(told,
              HasSubstr("One mask is on the channels 2147483648 and 1 of the measurement shot, which has 2"));
  EXPECT_THAT(told, HasSubstr("One pair record is on the channels -2147483647 and 2147483648"));
  EXPECT_FALSE(HasUsableCurve(Pair()));
}

TEST_F(LoadCheck, PointsOfACurveThatAreNotFiniteAreTold) {
  Pair().dispVel[1] = kInf;
  EXPECT_THAT(
      Reload(),
      HasSubstr("The curve of the channels 1 and 2 of the measurement shot has points that are not finite"));
}

TEST_F(LoadCheck, ValuesThatAreNotFiniteAreCountedWithTheirSection) {
  m.raw->crossSpecRe[3] = kNaN;
  m.raw->timeHist[0] = kInf;
  EXPECT_THAT(Reload(), HasSubstr("2 values are infinite or NaN, the first in the raw data section."));
  EXPECT_EQ(opened, 0);
  EXPECT_TRUE(std::isnan(MeasDB.rawDataList.at(1)->crossSpecRe[3])) << "handed on as it stands";
}

TEST_F(LoadCheck, ManyDoubtsAreCutShort) {
  for (int i = 0; i < 40; ++i) {
    const TestMeasurement other = AddMeasurement({.measID = "m" + std::to_string(i), .nLines = 8});
    other.raw->timeHist[0] = 1.0;
    other.hw->deltaF = 0.0;
  }
  EXPECT_THAT(Reload(), HasSubstr("There are 29 more of these."));
  EXPECT_EQ(DoubtCount(), 12);
}

TEST_F(LoadCheck, AMeasurementWithoutRawDataHasNoLines) {
  const ByteStream setup = SetupBytes();
  std::string bytes = setup.bytes;
  PutInt(bytes, setup.counts[2], 1 << 24);
  const std::string path = folder.File("short.da");
  test::WriteWhole(path, bytes + ByteStream().I(0).I(0).I(0).I(0).I(0).I(0).bytes);
  ASSERT_EQ(OpenFileProc(path), -1);
  EXPECT_THAT(OnlyMessage(), HasSubstr("The measurement shot has 16777216 lines and no raw data"));
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->nLines, 0);
  EXPECT_TRUE(session.readInPart);
  std::string reason;
  const std::string saved = folder.File("saved.da");
  ASSERT_TRUE(WriteProjectFile(saved, reason)) << reason;
  EXPECT_LT(test::ReadWhole(saved).size(), 100000u);
}

}  // namespace
}  // namespace sondera::testing
