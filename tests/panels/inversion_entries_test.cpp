// Tests of stored profiles as starting models and as settings: which record an index means, what is copied,
// density and Poisson's ratio that follow, indices and counters of a damaged project.
#include "panels/inversion_entries.h"

#include <gtest/gtest.h>

#include <climits>

#include "panels/inversion.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/meassetup.h"
#include "support/inv_fixture.h"

namespace sondera::testing {
namespace {

class InvEntries : public InversionTest {
 protected:
  void SetUp() override {
    InversionTest::SetUp();
    SetPlainLayers(2);
    StoreProfile(InvParam, 0, {101.0, 102.0, 103.0});
    StoreProfile(InvParam, 2, {201.0, 202.0, 203.0});
    StoreProfile(SMPParam, 2, {301.0, 402.0, 420.0, 421.0});
  }
  static void Select(const RingControl& list, int index) {
    InsertListItem(list, -1, "entry", index);
    SetCtrlIndex(list, GetNumListItems(list) - 1);
  }
  static int Copy() {
    return CopyFromGivenPRFCallback(Panel::FMODELING, &fmodeling::COPYFROMPRF, Event::Commit, 0);
  }
};

// ---- choice of the starting model ----------------------------------------------------------------------

using UpdateMParmTest = InvEntries;

TEST_F(UpdateMParmTest, AnIterationGoesToRecordAndPanel) {
  Select(inversion::INV_SMP, 2);
  ASSERT_EQ(UpdateMParm(), 0);
  EXPECT_EQ(InvParam.iSelected, 2);
  EXPECT_EQ(VsOf(FModelParam), (std::vector<double>{201.0, 202.0, 203.0}));
  EXPECT_EQ(VsOnPanel(), (std::vector<double>{201.0, 202.0, 203.0}));
  EXPECT_EQ(GetCtrlVal(fmodeling::NLAYERS), 3);
  EXPECT_EQ(FModelParam.thickness[1], 5.0);
  EXPECT_EQ(FModelParam.Vp[1], 404.0);
  EXPECT_EQ(FModelParam.density[2], 1702.0);
  EXPECT_EQ(FModelParam.nu[2], 0.31);
  EXPECT_EQ(FModelParam.damping[0], 0.03);
}

TEST_F(UpdateMParmTest, AStartingProfileHasItsOwnNumberOfLayers) {
  Select(inversion::INV_SMP, -2);
  ASSERT_EQ(UpdateMParm(), 0);
  EXPECT_EQ(VsOf(FModelParam), (std::vector<double>{301.0, 402.0, 420.0, 421.0}));
}

TEST_F(UpdateMParmTest, TheGivenModelStaysAndIsShown) {
  ASSERT_EQ(UpdateMParm(), 0);
  EXPECT_EQ(VsOf(FModelParam), (std::vector<double>{100.0, 120.0}));
  EXPECT_EQ(VsOnPanel(), (std::vector<double>{100.0, 120.0}));
  EXPECT_EQ(InvParam.iSelected, 0);
}

TEST_F(UpdateMParmTest, AnEntryThatIsNotStoredIsRefused) {
  Select(inversion::INV_SMP, 400);
  EXPECT_EQ(UpdateMParm(), -1);
  EXPECT_EQ(OnlyMessage(), "There is no profile INV 400.");
  EXPECT_EQ(VsOf(FModelParam), (std::vector<double>{100.0, 120.0}));
}

using UpdateTheoDispInfoForInvAnalTest = InvEntries;

TEST_F(UpdateTheoDispInfoForInvAnalTest, TakesSettingsAndTheSelectedLayers) {
  FModelParam.analysis = 4;
  FModelParam.nSubLayers = 11;
  FModelParam.nReceivers = 3;
  FModelParam.recLoc[2] = 7.25;
  FModelParam.pairMin[1] = 12.5;
  InvParam.iSelected = -2;
  ASSERT_EQ(UpdateTheoDispInfoForInvAnal(), 0);
  EXPECT_EQ(TheoDispInfo.analysis, 4);
  EXPECT_EQ(TheoDispInfo.nSubLayers, 11);
  EXPECT_EQ(TheoDispInfo.nReceivers, 3);
  EXPECT_EQ(TheoDispInfo.recLoc[2], 7.25);
  EXPECT_EQ(TheoDispInfo.pairMin[1], 12.5);
  EXPECT_EQ(VsOf(TheoDispInfo), (std::vector<double>{301.0, 402.0, 420.0, 421.0}));
  InvParam.iSelected = 2;
  ASSERT_EQ(UpdateTheoDispInfoForInvAnal(), 0);
  EXPECT_EQ(VsOf(TheoDispInfo), (std::vector<double>{201.0, 202.0, 203.0}));
  InvParam.iSelected = 0;
  ASSERT_EQ(UpdateTheoDispInfoForInvAnal(), 0);
  EXPECT_EQ(VsOf(TheoDispInfo), (std::vector<double>{100.0, 120.0}));
  EXPECT_EQ(VsOf(FModelParam), (std::vector<double>{100.0, 120.0}));
}

// ---- copies to the panel -------------------------------------------------------------------------------

using CopyFromGivenPRF = InvEntries;

TEST_F(CopyFromGivenPRF, CopiesAnEntryAsItIsWhenNothingFollowsVs) {
  SetCtrlVal(inversion::UPDATERHONU, 0);
  Select(fmodeling::COPYPRF, 2);
  ASSERT_EQ(Copy(), 0);
  EXPECT_EQ(VsOf(FModelParam), (std::vector<double>{201.0, 202.0, 203.0}));
  EXPECT_EQ(FModelParam.density[1], 1701.0);
  EXPECT_EQ(FModelParam.nu[1], 0.31);
  EXPECT_EQ(InvParam.density(2, 1), 1701.0);
  EXPECT_EQ(VsOnPanel(), (std::vector<double>{201.0, 202.0, 203.0}));
}

TEST_F(CopyFromGivenPRF, EntryZeroIsOneOfInvParam) {
  SetCtrlVal(inversion::UPDATERHONU, 0);
  Select(fmodeling::COPYPRF, 0);
  ASSERT_EQ(Copy(), 0);
  EXPECT_EQ(VsOf(FModelParam), (std::vector<double>{101.0, 102.0, 103.0}));
}

TEST_F(CopyFromGivenPRF, DensityAndPoissonsRatioFollowVsHereAndInTheEntry) {
  Select(fmodeling::COPYPRF, -2);
  ASSERT_EQ(Copy(), 0);
  const double density[] = {1800.0, 1800.0, 1800.0, 2400.0}, nu[] = {0.3333333, 0.3333333, 0.3333333, 0.2};
  for (int i = 0; i < 4; ++i) {
    const std::size_t k = static_cast<std::size_t>(i);
    EXPECT_EQ(FModelParam.density[k], density[i]) << i;
    EXPECT_EQ(FModelParam.nu[k], nu[i]) << i;
    EXPECT_EQ(SMPParam.density(2, i), density[i]) << i;
    EXPECT_EQ(SMPParam.nu(2, i), nu[i]) << i;
    EXPECT_EQ(GetTableCellVal(fmodeling::SOILPROFILE, i + 1, 4), density[i]) << i;
    EXPECT_EQ(FModelParam.Vp[k], 2.0 * FModelParam.Vs[k]) << i;  // stays
  }
}

TEST_F(CopyFromGivenPRF, TheRuleTakesTheUnitOfTheMeasurementSetup) {
  const double divisor[] = {1.0, 0.0018, 16.019, 27080.0};
  Select(fmodeling::COPYPRF, -2);
  for (int unit = 0; unit < 4; ++unit) {
    SetCtrlIndex(meassetup::LENGTHUNIT, unit);
    const double factor = GetCtrlVal(meassetup::LENGTHUNIT);
    SMPParam.Vs(2, 0) = 419.9 / factor;
    SMPParam.Vs(2, 1) = 420.1 / factor;
    ASSERT_EQ(Copy(), 0);
    EXPECT_EQ(FModelParam.density[0], 1800.0 / divisor[unit]) << unit;
    EXPECT_EQ(FModelParam.density[1], 2400.0 / divisor[unit]) << unit;
    EXPECT_EQ(FModelParam.nu[0], 0.3333333) << unit;
    EXPECT_EQ(FModelParam.nu[1], 0.2) << unit;
  }
}

TEST_F(CopyFromGivenPRF, AnEmptyListIsRefused) {
  EXPECT_EQ(Copy(), -1);
  EXPECT_EQ(OnlyMessage(), "There is no profile to copy.");
  EXPECT_EQ(VsOf(FModelParam), (std::vector<double>{100.0, 120.0}));
}

TEST_F(CopyFromGivenPRF, IndicesOfADamagedProjectAreRefused) {
  for (const int index : {51, -51, INT_MAX, INT_MIN}) {
    frontEnd.messages.clear();
    Select(fmodeling::COPYPRF, index);
    EXPECT_EQ(Copy(), -1) << index;
    EXPECT_EQ(frontEnd.messages.size(), 1u);
  }
}

TEST_F(CopyFromGivenPRF, CountersOfADamagedProjectAreRefused) {
  Select(fmodeling::COPYPRF, 2);
  for (const int layers : {0, -3, 51, INT_MAX}) {
    frontEnd.messages.clear();
    InvParam.nLayers = layers;
    EXPECT_EQ(Copy(), -1) << layers;
    EXPECT_EQ(OnlyMessage(), "There is no profile INV 2.");
  }
  InvParam = InvRecord{};
  frontEnd.messages.clear();
  EXPECT_EQ(Copy(), -1);
  EXPECT_EQ(OnlyMessage(), "There is no profile INV 2.");
}

TEST_F(CopyFromGivenPRF, OtherEventsDoNothing) {
  Select(fmodeling::COPYPRF, 2);
  EXPECT_EQ(CopyFromGivenPRFCallback(Panel::FMODELING, &fmodeling::COPYFROMPRF, Event::LostFocus, 0), 0);
  EXPECT_EQ(VsOf(FModelParam), (std::vector<double>{100.0, 120.0}));
}

// ---- room ----------------------------------------------------------------------------------------------

using RoomForEntriesTest = InvEntries;

TEST_F(RoomForEntriesTest, LeavesTablesThatSuffice) {
  EXPECT_EQ(ReserveEntries(InvParam, 49), 0);
  EXPECT_EQ(InvParam.maxEntries, 50);
}

TEST_F(RoomForEntriesTest, GrowsAndKeeps) {
  EXPECT_EQ(ReserveEntries(InvParam, 70), 0);
  EXPECT_GE(InvParam.rms.hi(), 70);
  EXPECT_EQ(InvParam.Vs(2, 1), 202.0);
  EXPECT_EQ(ReserveEntries(InvParam, -4), 0);
}

TEST_F(RoomForEntriesTest, RefusesWhatNoMemoryHolds) {
  EXPECT_EQ(ReserveEntries(InvParam, INT_MAX), -1);
  EXPECT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_EQ(InvParam.Vs(2, 1), 202.0);
}

TEST_F(RoomForEntriesTest, StartingModelHasTheLayersOfTheProfileAndLeavesTheGivenOnes) {
  ASSERT_EQ(ReserveEntries(InvParam, 1), 0);
  StoreProfile(InvParam, 1, std::vector<double>(50, 250.0));
  InvParam.nLayers = 50;
  InvParam.iSelected = 1;
  const int capacity = FModelParam.capLayers;
  ModelRecord start;
  ASSERT_EQ(TakeStartingModel(start), 0);
  EXPECT_EQ(VsOf(start), std::vector<double>(50, 250.0));
  EXPECT_EQ(start.dispCurvType, FModelParam.dispCurvType);
  EXPECT_EQ(VsOf(FModelParam), (std::vector<double>{100.0, 120.0}));
  EXPECT_EQ(FModelParam.capLayers, capacity);
  InvParam.iSelected = 0;
  ASSERT_EQ(TakeStartingModel(start), 0);
  EXPECT_EQ(VsOf(start), (std::vector<double>{100.0, 120.0}));
}

}  // namespace
}  // namespace sondera::testing
