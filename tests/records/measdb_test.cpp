// Tests of the measurement database: keys, set-up, release, copies.
#include "records/measdb.h"
#include "records/measurement_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>

#include "support/session_fixture.h"

namespace sondera::testing {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class MeasDBTest : public SessionTest {
 protected:
  static void AddMask(int key, int refChan, int dspChan) {
    MaskingInfo& m = *MeasDB.maskingList.append();
    m.key = key;
    m.refChan = refChan;
    m.dspChan = dspChan;
  }
  static PMeasInfo& AddPair(int key, int refChan, int dspChan) {
    PMeasInfo& p = *MeasDB.pMeasList.append();
    p.key = key;
    p.refChan = refChan;
    p.dspChan = dspChan;
    return p;
  }
  static std::vector<int> Keys() {
    std::vector<int> keys;
    for (const IDInfo& id : MeasDB.idList) keys.push_back(id.key);
    return keys;
  }
};

// --- lengths ---

TEST(FullTimeLines, LeavesAPowerOfTwoUnchanged) {
  for (int e = 0; e <= 30; ++e) EXPECT_EQ(FullTimeLines(1 << e), 1 << e);
}

TEST(FullTimeLines, GoesUpToTheNextPowerOfTwo) {
  EXPECT_EQ(FullTimeLines(512), 512);
  EXPECT_EQ(FullTimeLines(513), 1024);
  EXPECT_EQ(FullTimeLines(3), 4);
  EXPECT_EQ(FullTimeLines(1000), 1024);
}

TEST(FullTimeLines, IsBoundedAtBothEnds) {
  EXPECT_EQ(FullTimeLines(0), 1);
  EXPECT_EQ(FullTimeLines(-5), 1);
  EXPECT_EQ(FullTimeLines(INT_MAX), 1 << 30);
}

// --- keys ---

TEST_F(MeasDBTest, TheFirstKeyIsOne) {
  EXPECT_EQ(InsertNewIDInfo("p", "a"), 1);
}

TEST_F(MeasDBTest, ANewKeyIsOneAboveTheHighestInTheList) {
  for (const char* id : {"a", "b", "c"}) InsertNewIDInfo("p", id);
  DeleteIDfromList(3);
  EXPECT_EQ(InsertNewIDInfo("p", "d"), 3) << "the highest was deleted: its key comes again";
}

TEST_F(MeasDBTest, AGapInTheKeysStaysAndTheCountIsNotTheHighestKey) {
  for (const char* id : {"a", "b", "c"}) InsertNewIDInfo("p", id);
  DeleteIDfromList(2);
  EXPECT_EQ(GetLastKey(), 2);
  EXPECT_EQ(InsertNewIDInfo("p", "d"), 4);
  EXPECT_THAT(Keys(), ElementsAre(1, 3, 4));
}

TEST_F(MeasDBTest, InsertingAnExistingPairOfTextsReturnsItsKeyWhateverKeyIsGiven) {
  EXPECT_EQ(InsertNewIDInfo("p", "a", 7), 7);
  EXPECT_EQ(InsertNewIDInfo("p", "a", 12), 7);
  EXPECT_EQ(InsertNewIDInfo("p", "a"), 7);
  EXPECT_THAT(Keys(), ElementsAre(7));
}

TEST_F(MeasDBTest, TextsAreComparedInPairs) {
  InsertNewIDInfo("p", "a", 1);
  InsertNewIDInfo("q", "a", 2);
  InsertNewIDInfo("p", "A", 3);
  EXPECT_EQ(GetKeyFromID("p", "a"), 1);
  EXPECT_EQ(GetKeyFromID("q", "a"), 2);
  EXPECT_EQ(GetKeyFromID("p", "A"), 3);
  EXPECT_EQ(GetKeyFromID("q", "A"), -1);
}

TEST_F(MeasDBTest, TextsOfAnUnknownKeyLeaveTheOutputsUntouched) {
  InsertNewIDInfo("p", "a", 4);
  std::string proj = "before", meas = "before";
  EXPECT_FALSE(GetIDfromKey(5, proj, meas));
  EXPECT_EQ(proj, "before");
  EXPECT_TRUE(GetIDfromKey(4, proj, meas));
  EXPECT_EQ(proj, "p");
  EXPECT_EQ(meas, "a");
}

TEST_F(MeasDBTest, LastKeyOfAnEmptyListIsZero) {
  EXPECT_EQ(GetLastKey(), 0);
}

TEST_F(MeasDBTest, DeletingReturnsThePositionOrMinusOne) {
  InsertNewIDInfo("p", "a", 4);
  InsertNewIDInfo("p", "b", 9);
  EXPECT_EQ(DeleteIDfromList(9), 2);
  EXPECT_EQ(DeleteIDfromList(9), -1);
  EXPECT_THAT(Keys(), ElementsAre(4));
}

TEST_F(MeasDBTest, InfoOfKeyMinusOneLeavesEverythingUntouched) {
  MeasRecords r;
  r.measPos = 5;
  r.projID = "before";
  EXPECT_EQ(GetInfoFromKey(-1, r), -1);
  EXPECT_EQ(r.measPos, 5);
  EXPECT_EQ(r.projID, "before");
}

TEST_F(MeasDBTest, InfoOfAnUnknownKeySetsThePositionsAndKeepsThePointers) {
  const TestMeasurement m = AddMeasurement();
  MeasRecords r;
  ASSERT_EQ(GetInfoFromKey(m.key, r), m.key);
  EXPECT_EQ(GetInfoFromKey(99, r), -1);
  EXPECT_EQ(r.measPos, -1);
  EXPECT_EQ(r.rawPos, -1);
  EXPECT_EQ(r.hwPos, -1);
  EXPECT_EQ(r.hwSetup, m.hw) << "stale, which the position tells";
}

TEST_F(MeasDBTest, InfoFindsEachRecordByItself) {
  AddMeasurement({.projID = "p", .measID = "a"});
  const int key = InsertNewIDInfo("p", "b");
  SetupHWSetupArrays(key, 3);
  MeasRecords r;
  ASSERT_EQ(GetInfoFromKey(key, r), key);
  EXPECT_EQ(r.measID, "b");
  EXPECT_EQ(r.hwPos, 2);
  EXPECT_EQ(r.hwSetup->nChannels, 3);
  EXPECT_EQ(r.measPos, -1);
  EXPECT_EQ(r.measSetup, nullptr);
  EXPECT_EQ(r.rawPos, -1);
}

TEST_F(MeasDBTest, OfTwoPairsWithOneTripleTheLaterIsFound) {
  InsertNewIDInfo("p", "a", 1);
  AddPair(1, 0, 2);
  PMeasInfo& later = AddPair(1, 0, 2);
  AddPair(1, 2, 0);
  std::string proj, meas;
  PMeasInfo* pair = nullptr;
  int pos = 0;
  EXPECT_EQ(GetPairMInfoFromKey(1, 0, 2, proj, meas, pair, pos), 1);
  EXPECT_EQ(pos, 2);
  EXPECT_EQ(pair, &later);
  EXPECT_EQ(FindPair(1, 0, 2), &later);
  EXPECT_EQ(meas, "a");
}

TEST_F(MeasDBTest, APairIsNotFoundWithoutItsMeasurement) {
  AddPair(1, 0, 1);
  AddPair(-1, 0, 1);
  std::string proj, meas;
  PMeasInfo* pair = nullptr;
  int pos = 5;
  EXPECT_EQ(GetPairMInfoFromKey(1, 0, 1, proj, meas, pair, pos), -1);
  EXPECT_EQ(pos, -1);
  pos = 5;
  EXPECT_EQ(GetPairMInfoFromKey(-1, 0, 1, proj, meas, pair, pos), -1);
  EXPECT_EQ(pos, -1);
  InsertNewIDInfo("p", "a", 1);
  EXPECT_EQ(GetPairMInfoFromKey(1, 0, 3, proj, meas, pair, pos), 1) << "the measurement is known";
  EXPECT_EQ(pos, -1);
  EXPECT_EQ(pair, nullptr);
}

TEST_F(MeasDBTest, OnlyAPairWithItsFlagAtOneIsIncluded) {
  InsertNewIDInfo("p", "a", 1);
  PMeasInfo& p = AddPair(1, 0, 1);
  PMeasInfo* found = nullptr;
  EXPECT_EQ(CheckifIncluded(1, 0, 1, found), 0);
  EXPECT_EQ(found, nullptr);
  p.included = 2;
  EXPECT_EQ(CheckifIncluded(1, 0, 1, found), 0);
  p.included = 1;
  EXPECT_EQ(CheckifIncluded(1, 0, 1, found), 1);
  EXPECT_EQ(found, &p);
}

// --- set up ---

TEST_F(MeasDBTest, HardwareArraysAreMadeAfreshInTheirRecord) {
  HWSetup* hw = SetupHWSetupArrays(3, 2);
  hw->coupling[1] = 1;
  hw->nAverage = 9;
  EXPECT_EQ(SetupHWSetupArrays(3, 4), hw);
  EXPECT_EQ(MeasDB.hwSetupList.count(), 1);
  EXPECT_EQ(hw->nChannels, 4);
  EXPECT_THAT(hw->coupling, ElementsAre(0, 0, 0, 0));
  EXPECT_THAT(hw->inputRange, SizeIs(4));
  EXPECT_EQ(hw->nAverage, 9) << "only the arrays are new";
  EXPECT_THAT(SetupHWSetupArrays(4, -1)->coupling, IsEmpty());
}

TEST_F(MeasDBTest, ReceiverLocationsFollowTheChannelsOfTheHardware) {
  EXPECT_THAT(SetupMSetupArrays(3)->recLoc, IsEmpty());
  SetupHWSetupArrays(3, 5);
  MeasSetup* m = SetupMSetupArrays(3);
  EXPECT_THAT(m->recLoc, SizeIs(5));
  EXPECT_EQ(MeasDB.measSetupList.count(), 1);
}

TEST_F(MeasDBTest, RawBlocksAreZeroAndHoldAPowerOfTwoForEachChannel) {
  SetupHWSetupArrays(3, 2)->nLines = 600;
  RawData* raw = SetupRawDataArrays(3);
  raw->powerSpec[7] = 1.0;
  EXPECT_EQ(SetupRawDataArrays(3), raw);
  for (auto block : kRawBlocks) {
    EXPECT_THAT(raw->*block, SizeIs(2 * 1024 * 2));
    EXPECT_THAT(raw->*block, Each(0.0));
  }
}

TEST_F(MeasDBTest, RawBlocksWithoutHardwareOrLinesAreEmpty) {
  EXPECT_THAT(SetupRawDataArrays(1)->timeHist, IsEmpty());
  SetupHWSetupArrays(2, 2)->nLines = 0;
  EXPECT_THAT(SetupRawDataArrays(2)->timeHist, IsEmpty());
}

TEST_F(MeasDBTest, LargeRawDataMakeTheWorkingLengthGrow) {
  SetupHWSetupArrays(3, 2)->nLines = 1024;
  SetupRawDataArrays(3);
  EXPECT_EQ(MeasDB.auxLength, 4096);
  EXPECT_EQ(MeasDB.nLinesDefault, 3000) << "0.8 * 4096 rounded to its leading digit";
}

TEST_F(MeasDBTest, TheWorkingLengthGrowsOnly) {
  EXPECT_EQ(MeasDB.auxLength, 1024);
  EXPECT_EQ(MeasDB.nLinesDefault, 512);
  SetupAuxiallyArrays(1024);
  EXPECT_EQ(MeasDB.nLinesDefault, 512) << "nothing is done at the present length";
  SetupAuxiallyArrays(2048);
  EXPECT_EQ(MeasDB.auxLength, 2048);
  EXPECT_EQ(MeasDB.nLinesDefault, 2000);
  SetupAuxiallyArrays(100);
  EXPECT_EQ(MeasDB.auxLength, 2048);
  SetupAuxiallyArrays(12000);
  EXPECT_EQ(MeasDB.nLinesDefault, 10000);
}

TEST_F(MeasDBTest, PairArraysAreMadeForAPowerOfTwoWithTheirFirstValues) {
  PMeasInfo p;
  p.key = 9;
  p.hRe = {1, 2, 3};
  p.phaseOption = 2;
  p.gaborMap(1)[0] = 4;
  SetupPairMeasArrays(p, 600);
  EXPECT_EQ(p.key, 0) << "everything that it held is gone";
  EXPECT_EQ(p.phaseOption, 0);
  EXPECT_EQ(p.capacity(), 1024);
  for (auto array : kPairArrays) {
    EXPECT_THAT(p.*array, SizeIs(2048));
    EXPECT_THAT(p.*array, Each(0.0));
  }
  EXPECT_THAT(p.dispVel, SizeIs(1024));
  EXPECT_THAT(p.dispFreq, SizeIs(1024));
  EXPECT_THAT(p.dispWlen, SizeIs(1024));
  EXPECT_EQ(p.gaborMap(1)[0], 0.0);
  EXPECT_EQ(p.initTime, 0.0);
  EXPECT_EQ(p.finalFreq, 0.0);
  EXPECT_EQ(p.timeDiv, 50);
  EXPECT_EQ(p.freqDiv, 50);
  EXPECT_EQ(p.nContLevel, 10);
  EXPECT_EQ(p.cntThreshold, 75.0);
}

TEST_F(MeasDBTest, PairArraysExchangeTheTwoGaussParameters) {
  PMeasInfo p;
  EXPECT_EQ(p.beta, 3.0);
  EXPECT_EQ(p.band, 0.5);
  SetupPairMeasArrays(p, 8);
  EXPECT_EQ(p.beta, 0.5);
  EXPECT_EQ(p.band, 3.0);
}

TEST_F(MeasDBTest, PairArraysWithoutLinesAreLeftAlone) {
  PMeasInfo p;
  p.key = 9;
  p.hRe = {1, 2, 3};
  for (int lines : {0, -8}) SetupPairMeasArrays(p, lines);
  EXPECT_EQ(p.key, 9);
  EXPECT_THAT(p.hRe, SizeIs(3));
}

TEST_F(MeasDBTest, UpdatingThePairsOfAMeasurementKeepsTheirIdentity) {
  InsertNewIDInfo("p", "a", 1);
  InsertNewIDInfo("p", "b", 2);
  for (int key : {1, 2, 1}) SetupPairMeasArrays(AddPair(key, 0, 0), 8);
  int channel = 0;
  for (PMeasInfo& p : MeasDB.pMeasList) {
    p.key = channel == 1 ? 2 : 1;
    p.refChan = 0;
    p.dspChan = ++channel;
    p.hAmp[0] = 5.0;
    p.nDispPoints = 3;
  }
  EXPECT_EQ(UpdatePairMeasArrays(1, 16), 0);
  const PMeasInfo &first = *MeasDB.pMeasList.at(1), &other = *MeasDB.pMeasList.at(2),
                  &last = *MeasDB.pMeasList.at(3);
  EXPECT_EQ(first.key, 1);
  EXPECT_EQ(first.dspChan, 1);
  EXPECT_EQ(last.dspChan, 3);
  EXPECT_EQ(first.capacity(), 16);
  EXPECT_EQ(first.nDispPoints, 0);
  EXPECT_THAT(last.hAmp, Each(0.0));
  EXPECT_EQ(other.hAmp[0], 5.0) << "of another measurement";
  EXPECT_EQ(other.capacity(), 8);
  EXPECT_EQ(UpdatePairMeasArrays(-1, 16), -1);
  EXPECT_EQ(UpdatePairMeasArrays(7, 16), -1);
}

TEST_F(MeasDBTest, AGaborMapIsZeroOnItsFirstUse) {
  PMeasInfo p;
  EXPECT_FALSE(p.gabor);
  EXPECT_THAT(p.gaborMap(2), Each(0.0));
  p.gaborMap(2)[49 * 50 + 49] = 3.5;
  EXPECT_EQ((*p.gabor)[2][2499], 3.5);
  EXPECT_EQ(&p.gaborMap(7), &p.gaborMap(2)) << "an option that does not exist is the nearest";
}

TEST_F(MeasDBTest, CurveArraysCountFromOne) {
  DispInfo d;
  SetupDispArrays(d, 3);
  EXPECT_EQ(d.nPoints, 3);
  for (auto array : kDispArrays) {
    EXPECT_EQ((d.*array).lo(), 1);
    EXPECT_EQ((d.*array).hi(), 3);
  }
  SetupDispArrays(d, -2);
  EXPECT_EQ(d.nPoints, 0);
  EXPECT_TRUE(d.stat3.empty());
}

// --- release ---

TEST_F(MeasDBTest, FreeingMasksWithBothChannelsZeroTakesAllPairsOfTheKey) {
  AddMask(1, 0, 1);
  AddMask(1, 0, 2);
  AddMask(1, 0, 0);
  AddMask(2, 0, 1);
  FreeMaskingInfo(1, 0, 0);
  ASSERT_EQ(MeasDB.maskingList.count(), 1);
  EXPECT_EQ(MeasDB.maskingList.at(1)->key, 2);
}

TEST_F(MeasDBTest, FreeingMasksOfAPairTakesThatPairOnly) {
  AddMask(1, 0, 1);
  AddMask(1, 0, 2);
  AddMask(1, 1, 0);
  AddMask(1, 0, 1);
  AddMask(2, 0, 1);
  FreeMaskingInfo(1, 0, 1);
  ASSERT_EQ(MeasDB.maskingList.count(), 3);
  EXPECT_EQ(MeasDB.maskingList.at(1)->dspChan, 2);
  EXPECT_EQ(MeasDB.maskingList.at(2)->refChan, 1);
  EXPECT_EQ(MeasDB.maskingList.at(3)->key, 2);
}

TEST_F(MeasDBTest, ANewProjectKeepsTheMasksOfTheOldOne) {
  AddMeasurement();
  AddMask(1, 0, 1);
  AddPair(1, 0, 1);
  MeasDB.gDispList.append();
  MeasDB.aDispList.append();
  EmptyProjectLists();
  EXPECT_EQ(MeasDB.idList.count(), 0);
  EXPECT_EQ(MeasDB.hwSetupList.count(), 0);
  EXPECT_EQ(MeasDB.measSetupList.count(), 0);
  EXPECT_EQ(MeasDB.rawDataList.count(), 0);
  EXPECT_EQ(MeasDB.pMeasList.count(), 0);
  EXPECT_EQ(MeasDB.gDispList.count(), 0);
  EXPECT_EQ(MeasDB.aDispList.count(), 0);
  EXPECT_EQ(MeasDB.maskingList.count(), 1) << "and apply where a new key equals theirs";
}

TEST_F(MeasDBTest, WithoutGeometryNothingIsEmptied) {
  InsertNewIDInfo("p", "a", 1);
  AddPair(1, 0, 1);
  EmptyProjectLists();
  EXPECT_EQ(MeasDB.idList.count(), 1);
  EXPECT_EQ(MeasDB.pMeasList.count(), 1);
}

TEST_F(MeasDBTest, RemovingAMeasurementKeepsItsMasksAndCurves) {
  const TestMeasurement a = AddMeasurement({.measID = "a"}), b = AddMeasurement({.measID = "b"});
  for (int key : {a.key, b.key}) {
    AddMask(key, 0, 1);
    AddPair(key, 0, 1);
    AddPair(key, 0, 2);
    MeasDB.aDispList.append()->key = key;
  }
  RemoveMeasurement(a.key);
  EXPECT_THAT(Keys(), ElementsAre(b.key));
  EXPECT_EQ(MeasDB.hwSetupList.count(), 1);
  EXPECT_EQ(MeasDB.measSetupList.count(), 1);
  EXPECT_EQ(MeasDB.rawDataList.count(), 1);
  EXPECT_EQ(MeasDB.pMeasList.count(), 2);
  EXPECT_EQ(MeasDB.pMeasList.findKey(a.key), -1);
  EXPECT_EQ(MeasDB.maskingList.count(), 2);
  EXPECT_EQ(MeasDB.aDispList.count(), 2);
}

TEST_F(MeasDBTest, EachListIsEmptiedByItself) {
  AddMeasurement();
  AddMask(1, 0, 1);
  AddPair(1, 0, 1);
  MeasDB.gDispList.append();
  MeasDB.aDispList.append();
  FreeIDList();
  EXPECT_TRUE(MeasDB.idList.empty());
  FreeMeasList();
  EXPECT_TRUE(MeasDB.measSetupList.empty());
  FreeHWSetupList();
  EXPECT_TRUE(MeasDB.hwSetupList.empty());
  FreeRawDataList();
  EXPECT_TRUE(MeasDB.rawDataList.empty());
  FreePMeasInfoList();
  EXPECT_TRUE(MeasDB.pMeasList.empty());
  FreeMaskingInfoList();
  EXPECT_TRUE(MeasDB.maskingList.empty());
  FreeDispList(MeasDB.gDispList);
  EXPECT_TRUE(MeasDB.gDispList.empty());
  EXPECT_EQ(MeasDB.aDispList.count(), 1);
  SetupAuxiallyArrays(5000);
  FreeGlobalArrays();
  EXPECT_TRUE(MeasDB.aDispList.empty());
  SetupGlobalArrays();
  EXPECT_EQ(MeasDB.auxLength, 1024);
}

// --- copies ---

HWSetup FilledHardware() {
  HWSetup hw;
  hw.key = 1;
  hw.nChannels = 2;
  hw.refChannel = 1;
  hw.nLines = 4;
  hw.freqSpan = 100;
  hw.timeLength = 0.07;
  hw.deltaF = 25;
  hw.deltaT = 0.005;
  hw.startFreq = 3;
  hw.stopFreq = 90;
  hw.spanKind = 2;
  hw.decimation = 6;
  hw.coupling = {1, 0};
  hw.grounding = {0, 1};
  hw.inputRange = {5, 10};
  hw.triggerChannel = 1;
  hw.triggerSlope = 0;
  hw.triggerDelay = 12;
  hw.triggerLevel = 34;
  hw.averageOn = 0;
  hw.nAverage = 8;
  hw.sensorType = 2;
  return hw;
}

TEST_F(MeasDBTest, ACopyOfHardwareLeavesTheGapThatIsKept) {
  const HWSetup src = FilledHardware();
  HWSetup dst;
  CopyHWSetup(dst, src, 5);
  EXPECT_EQ(dst.key, 5);
  EXPECT_EQ(dst.nChannels, 2);
  EXPECT_EQ(dst.nLines, 4);
  EXPECT_EQ(dst.freqSpan, 100);
  EXPECT_EQ(dst.timeLength, 0.07);
  EXPECT_EQ(dst.deltaT, 0.005);
  EXPECT_EQ(dst.deltaF, 25);
  EXPECT_EQ(dst.coupling, src.coupling);
  EXPECT_EQ(dst.grounding, src.grounding);
  EXPECT_EQ(dst.inputRange, src.inputRange);
  EXPECT_EQ(dst.triggerChannel, 1);
  EXPECT_EQ(dst.triggerSlope, 0);
  EXPECT_EQ(dst.triggerDelay, 12);
  EXPECT_EQ(dst.triggerLevel, 34);
  EXPECT_EQ(dst.averageOn, 0);
  EXPECT_EQ(dst.nAverage, 8);
  const HWSetup fresh;
  EXPECT_EQ(dst.refChannel, fresh.refChannel);
  EXPECT_EQ(dst.decimation, fresh.decimation);
  EXPECT_EQ(dst.sensorType, fresh.sensorType);
  EXPECT_EQ(dst.startFreq, fresh.startFreq);
  EXPECT_EQ(dst.stopFreq, fresh.stopFreq);
  EXPECT_EQ(dst.spanKind, fresh.spanKind);
}

TEST_F(MeasDBTest, ACopyOfGeometryTakesAllButTheKey) {
  MeasSetup src, dst;
  src.key = 1;
  src.srcLoc = -2;
  src.recLoc = {1, 2};
  src.wlenFilter = 3;
  src.lengthUnit = 0.3048;
  CopyMeasSetup(dst, src, 5);
  EXPECT_EQ(dst.key, 5);
  EXPECT_EQ(dst.srcLoc, -2);
  EXPECT_THAT(dst.recLoc, ElementsAre(1, 2));
  EXPECT_EQ(dst.wlenFilter, 3);
  EXPECT_EQ(dst.lengthUnit, 0.3048);
}

TEST_F(MeasDBTest, ACopyOfRawDataTakesDecimationTimesTheLinesAsFarAsTheyGo) {
  HWSetup* from = SetupHWSetupArrays(1, 1);
  from->nLines = 8;
  RawData* src = SetupRawDataArrays(1);
  for (std::size_t i = 0; i < 16; ++i) src->crossSpecRe[i] = 1.0 + static_cast<double>(i);
  HWSetup* to = SetupHWSetupArrays(2, 1);
  to->nLines = 3;
  to->decimation = 1;
  RawData* dst = SetupRawDataArrays(2);
  CopyRawData(*dst, *src, 2);
  EXPECT_THAT(dst->crossSpecRe, ElementsAre(1, 2, 3, 4, 5, 6, 0, 0));
  EXPECT_EQ(dst->key, 2);
  to->decimation = 5;
  CopyRawData(*dst, *src, 2);
  EXPECT_THAT(dst->crossSpecRe, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8)) << "no more than there is room for";
}

// --- band limits ---

TEST(BandLimits, OfAMeasuredRecordAreBroughtUpToDate) {
  HWSetup hw = FilledHardware();
  BringBandLimitsUpToDate(hw);
  EXPECT_EQ(hw.startFreq, 0);
  EXPECT_EQ(hw.stopFreq, 100);
  EXPECT_EQ(BandEnd(hw), 100);
}

TEST(BandLimits, OfImportedSpectraStayAsTheyAre) {
  HWSetup hw = FilledHardware();
  hw.freqSpan = -100;
  BringBandLimitsUpToDate(hw);
  EXPECT_EQ(hw.startFreq, 3);
  EXPECT_EQ(hw.stopFreq, 90);
  EXPECT_EQ(BandEnd(hw), 90);
}

// --- the list itself ---

TEST(RecordList, PositionsCountFromOneAndEndAtTheCount) {
  RecordList<IDInfo> list;
  EXPECT_EQ(list.at(1), nullptr);
  for (int key : {5, 6, 5}) list.append()->key = key;
  EXPECT_EQ(list.at(0), nullptr);
  EXPECT_EQ(list.at(1)->key, 5);
  EXPECT_EQ(list.at(3)->key, 5);
  EXPECT_EQ(list.at(4), nullptr);
  EXPECT_EQ(list.findKey(5), 1);
  EXPECT_EQ(list.findKey(7), -1);
  EXPECT_EQ(list.remove(0), nullptr);
  EXPECT_EQ(list.remove(1)->key, 5);
  EXPECT_EQ(list.at(1)->key, 6);
  EXPECT_EQ(list.remove(9), nullptr);
  int sum = 0;
  for (const IDInfo& id : list) sum += id.key;
  EXPECT_EQ(sum, 11);
}

}  // namespace
}  // namespace sondera::testing
