// The list of masks of the buttons, its refusals letter for letter. Random lists are compared with a
// reference that follows the rules directly, on plain vectors.
#include "panels/sasw_mask_list.h"

#include <algorithm>
#include <limits>
#include <random>

#include "runtime/catalogue/measpanel.h"
#include "support/masking_fixture.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using CheckMaskingDataTest = Masks;
using NewMaskTest = Masks;
using UpdateMaskTest = Masks;
using DeleteMaskTest = Masks;
using ResetMasks = Masks;

// ---- the bits ---------------------------------------------------------------------------------------------

TEST_F(CheckMaskingDataTest, RangeFromZeroToZeroIsARange) {
  EXPECT_EQ(CheckMaskingData(0, 2, 5, 0.0, 0.0), 0);
}

TEST_F(CheckMaskingDataTest, RangeWithoutExtentOrBackwardsIsNone) {
  EXPECT_EQ(CheckMaskingData(0, 2, 0, 5.0, 5.0), 8);
  EXPECT_EQ(CheckMaskingData(0, 2, 0, 5.0, 4.0), 8);
  EXPECT_EQ(CheckMaskingData(0, 2, 0, std::numeric_limits<double>::quiet_NaN(), 4.0), 8);
  EXPECT_EQ(CheckMaskingData(0, 2, 0, 4.0, std::numeric_limits<double>::quiet_NaN()), 8);
}

TEST_F(CheckMaskingDataTest, EachBitHasItsOwnCoincidence) {
  AddOwnMask(10.0, 20.0, 3);
  EXPECT_EQ(CheckMaskingData(0, 2, 3, 30.0, 40.0), 4);
  EXPECT_EQ(CheckMaskingData(0, 2, 0, 30.0, 40.0), 0);
  EXPECT_EQ(CheckMaskingData(0, 2, 0, 10.0, 40.0), 1 | 8);
  EXPECT_EQ(CheckMaskingData(0, 2, 0, 5.0, 20.0), 2 | 8);
  EXPECT_EQ(CheckMaskingData(0, 2, 3, 10.0, 20.0), 1 | 2 | 4 | 8);
  EXPECT_EQ(CheckMaskingData(0, 2, 0, 5.0, 10.0), 8) << "touches the lower end";
  EXPECT_EQ(CheckMaskingData(0, 2, 0, 20.0, 25.0), 8) << "touches the upper end";
  EXPECT_EQ(CheckMaskingData(0, 2, 0, 12.0, 15.0), 8) << "inside";
  EXPECT_EQ(CheckMaskingData(0, 2, 0, 5.0, 25.0), 8) << "encloses";
}

TEST_F(CheckMaskingDataTest, OtherPairsAndMeasurementsDoNotCount) {
  AddMask(m.key, 0, 1, 10.0, 20.0, 3);
  AddMask(m.key, 2, 0, 10.0, 20.0, 3);
  AddMask(m.key + 1, 0, 2, 10.0, 20.0, 3);
  EXPECT_EQ(CheckMaskingData(0, 2, 3, 10.0, 20.0), 0);
  EXPECT_EQ(CheckMaskingData(0, 1, 3, 10.0, 20.0), 15) << "the pair in hand is an argument";
}

TEST_F(CheckMaskingDataTest, CutsTheFinalFrequencyBeforeItCompares) {
  AddOwnMask(400.0, 500.0, 1);
  SetCtrlVal(sasw::MASKING_FREQFINAL, 777.0);
  EXPECT_EQ(CheckMaskingData(0, 2, 0, 450.0, 9000.0), 2 | 8);
  EXPECT_EQ(GetCtrlVal(sasw::MASKING_FREQFINAL), 500.0);
  SetCtrlVal(sasw::MASKING_FREQFINAL, 77.0);
  CheckMaskingData(0, 2, 0, 450.0, 460.0);
  EXPECT_EQ(GetCtrlVal(sasw::MASKING_FREQFINAL), 77.0) << "nothing was cut";
}

TEST_F(CheckMaskingDataTest, RandomListsGiveTheBitsOfThePlainRules) {
  std::mt19937 random(20170609);
  std::uniform_int_distribution<int> grid(0, 24), jump(-1, 4), channel(0, 1);
  const auto plain = [](const std::vector<PlainMask>& masks, int key, int ref, int dsp, int j, double lo,
                        double hi) {
    bool init = false, final = false, sameJump = false, bad = hi <= lo && !(lo == 0 && hi == 0);
    for (const PlainMask& p : masks) {
      if (p.key != key || p.refChan != ref || p.dspChan != dsp) continue;
      init = init || p.freqInit == lo;
      final = final || p.freqFinal == hi;
      sameJump = sameJump || p.jumpNo == j;
      const bool loOut = lo < p.freqInit || lo > p.freqFinal, hiOut = hi < p.freqInit || hi > p.freqFinal;
      bad = bad || !loOut || !hiOut || (lo < p.freqInit && hi > p.freqFinal);
    }
    return (init ? 1 : 0) + (final ? 2 : 0) + (sameJump ? 4 : 0) + (bad ? 8 : 0);
  };
  int seen = 0;
  for (int round = 0; round < 300; ++round) {
    FreeMaskingInfoList();
    for (int k = grid(random) / 4; k > 0; --k)
      AddMask(m.key + (grid(random) > 22), channel(random), 2, 20.5 * grid(random), 20.5 * grid(random),
              jump(random));
    for (int trial = 0; trial < 20; ++trial) {
      const double lo = 20.5 * grid(random), hi = 20.5 * grid(random);
      const int ref = channel(random), j = jump(random);
      const int bits = CheckMaskingData(ref, 2, j, lo, hi);
      ASSERT_EQ(bits, plain(MaskList(), m.key, ref, 2, j, lo, hi)) << "range " << lo << " " << hi;
      seen |= 1 << bits;
    }
  }
  for (int bits : {0, 4, 8, 9, 10, 11, 12, 15}) EXPECT_TRUE(seen & (1 << bits)) << "never met: " << bits;
}

// ---- New --------------------------------------------------------------------------------------------------

TEST_F(NewMaskTest, AppendsAndClearsTheFields) {
  SetCtrlVal(sasw::MARKERS_ONOFF, 2);
  EXPECT_EQ(Press(sasw::MASKINGNEW, 9.9, 21.7, 2), 0);
  ASSERT_EQ(MeasDB.maskingList.count(), 1);
  const MaskingInfo& made = *MeasDB.maskingList.at(1);
  EXPECT_EQ(made.key, m.key);
  EXPECT_EQ(made.refChan, 0);
  EXPECT_EQ(made.dspChan, 2);
  EXPECT_EQ(made.freqInit, 9.9);
  EXPECT_EQ(made.freqFinal, 21.7);
  EXPECT_EQ(made.jumpNo, 2);
  EXPECT_EQ(made.lineInit, 9) << "9 Hz over 0.9765625 Hz, not 9.9";
  EXPECT_EQ(made.lineFinal, 21) << "21 Hz over 0.9765625 Hz, not 21.7";
  EXPECT_THAT(Fields(), ElementsAre(0.0, 0.0, 0.0));
  EXPECT_EQ(GetCtrlVal(sasw::MARKERS_ONOFF), 0);
  EXPECT_THAT(redrawn, ElementsAre(1));
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

TEST_F(NewMaskTest, MaskThatTouchesAtOneFrequencyIsRefused) {
  AddOwnMask(10.0, 20.0, 1);
  ExpectRefused(sasw::MASKINGNEW, 20.0, 30.0, 0, "Invalid freqeuncy range !");
  ExpectRefused(sasw::MASKINGNEW, 5.0, 10.0, 0, "Invalid freqeuncy range !");
  ExpectRefused(sasw::MASKINGNEW, 10.0, 30.0, 0, "Invalid initial freq.: overlapped !");
  ExpectRefused(sasw::MASKINGNEW, 5.0, 20.0, 0, "Invalid final freq.: overlapped !");
  ExpectRefused(sasw::MASKINGNEW, 10.0, 20.0, 1, "Invalid initial freq.: overlapped !");
  EXPECT_THAT(Fields(), ElementsAre(10.0, 20.0, 1.0)) << "what was typed stays";
}

TEST_F(NewMaskTest, MaskThatEnclosesAnotherIsRefusedWithTheRangeMessage) {
  AddOwnMask(10.0, 20.0, 1);
  ExpectRefused(sasw::MASKINGNEW, 5.0, 25.0, 2, "Invalid freqeuncy range !");
}

TEST_F(NewMaskTest, EmptyOrBackwardRangeIsRefused) {
  ExpectRefused(sasw::MASKINGNEW, 7.0, 7.0, 2, "Invalid freqeuncy range !");
  ExpectRefused(sasw::MASKINGNEW, 9.0, 7.0, 2, "Invalid freqeuncy range !");
  ExpectRefused(sasw::MASKINGNEW, std::numeric_limits<double>::quiet_NaN(), 7.0, 2,
                "Invalid freqeuncy range !");
}

TEST_F(NewMaskTest, EqualJumpNumberIsNoFault) {
  AddOwnMask(10.0, 20.0, 3);
  EXPECT_EQ(Press(sasw::MASKINGNEW, 30.0, 40.0, 3), 0);
  EXPECT_EQ(MeasDB.maskingList.count(), 2);
}

TEST_F(NewMaskTest, SameRangeOnAnotherPairIsAccepted) {
  AddMask(m.key, 0, 1, 10.0, 20.0, 3);
  EXPECT_EQ(Press(sasw::MASKINGNEW, 10.0, 20.0, 3), 0);
}

TEST_F(NewMaskTest, FinalFrequencyAboveTheGraphIsPulledBackInTheFieldAsWell) {
  DrawCurve(sasw::DISPLAY_A, 0.0, 0.9765625, 101, 1.0, "Enhanced");
  AddOwnMask(90.0, 97.65625, 0);
  ExpectRefused(sasw::MASKINGNEW, 50.0, 300.0, 1, "Invalid final freq.: overlapped !");
  EXPECT_EQ(GetCtrlVal(sasw::MASKING_FREQFINAL), 97.65625) << "last abscissa of the graph";
  SetAxisRange(sasw::DISPLAY_A, true, 0.0, 80.0);
  EXPECT_EQ(Press(sasw::MASKINGNEW, 50.0, 300.0, 1), 0);
  EXPECT_EQ(MeasDB.maskingList.at(2)->freqFinal, 80.0) << "limit of a fixed axis";
}

TEST_F(NewMaskTest, WithoutAGraphTheBandEndCounts) {
  EXPECT_EQ(Press(sasw::MASKINGNEW, 50.0, 3000.0, 1), 0);
  EXPECT_EQ(MeasDB.maskingList.at(1)->freqFinal, 500.0);
  m.hw->freqSpan = -499.0;
  m.hw->stopFreq = 333.0;
  FreeMaskingInfoList();
  EXPECT_EQ(Press(sasw::MASKINGNEW, 50.0, 3000.0, 1), 0);
  EXPECT_EQ(MeasDB.maskingList.at(1)->freqFinal, 333.0) << "last frequency of imported spectra";
}

TEST_F(NewMaskTest, GraphOverTimeSetsNoFrequencyLimit) {
  DrawCurve(sasw::DISPLAY_A, 0.0, 0.001, 1024, 1.0, "");
  SetCtrlVal(sasw::DISPATYPE, 0);
  EXPECT_EQ(Press(sasw::MASKINGNEW, 50.0, 3000.0, 1), 0);
  EXPECT_EQ(MeasDB.maskingList.at(1)->freqFinal, 500.0);
}

TEST_F(NewMaskTest, NothingSelectedMakesNoMask) {
  ClearListCtrl(sasw::DISPAID);
  EXPECT_EQ(Press(sasw::MASKINGNEW, 50.0, 60.0, 1), -1);
  EXPECT_EQ(MeasDB.maskingList.count(), 0);
}

TEST_F(NewMaskTest, LinesOfAnAbsurdRangeStayNumbers) {
  m.hw->deltaF = 0.0;
  EXPECT_EQ(Press(sasw::MASKINGNEW, 0.5, 60.0, 1), 0);
  EXPECT_EQ(MeasDB.maskingList.at(1)->lineInit, 0) << "0 over 0";
  EXPECT_EQ(MeasDB.maskingList.at(1)->lineFinal, std::numeric_limits<int>::max());
}

TEST_F(NewMaskTest, RandomPressesNeverMakeMasksOfAPairMeet) {
  std::mt19937 random(11);
  std::uniform_int_distribution<int> grid(0, 40);
  int accepted = 0, refused = 0;
  for (int i = 0; i < 400; ++i) {
    SelectPair(m, 0, 1 + grid(random) % 3);
    const auto before = MaskList();
    frontEnd.messages.clear();
    const double freqInit = 12.0 * grid(random);
    const bool ok = Press(sasw::MASKINGNEW, freqInit, freqInit + 12.0 * (grid(random) % 5 - 1), 1) == 0;
    (ok ? accepted : refused) += 1;
    EXPECT_EQ(frontEnd.messages.size(), ok ? 0u : 1u);
    auto after = MaskList();
    if (ok) after.pop_back();
    ASSERT_EQ(after, before) << "only the end of the list may change";
  }
  EXPECT_GT(accepted, 20);
  EXPECT_GT(refused, 20);
  const auto masks = MaskList();
  for (std::size_t a = 0; a < masks.size(); ++a)
    for (std::size_t b = 0; b < a; ++b) {
      if (masks[a].dspChan != masks[b].dspChan) continue;
      EXPECT_TRUE(masks[a].freqFinal < masks[b].freqInit || masks[b].freqFinal < masks[a].freqInit);
    }
}

// ---- Update -----------------------------------------------------------------------------------------------

TEST_F(UpdateMaskTest, WritesTheFieldsIntoThePickedMask) {
  AddOwnMask(10.0, 20.0, 1);
  AddOwnMask(30.0, 40.0, 2);
  MeasDB.maskingList.at(2)->lineInit = 77;
  ASSERT_EQ(PickMaskOnGraph(35.0), 0);
  EXPECT_EQ(Press(sasw::MASKINGUPDATE, 15.0, 45.0, 7), 0) << "an overlap is not looked for";
  EXPECT_EQ(MaskList()[0], (PlainMask{m.key, 0, 2, 1, 10.0, 20.0}));
  EXPECT_EQ(MaskList()[1], (PlainMask{m.key, 0, 2, 7, 15.0, 45.0}));
  EXPECT_EQ(MeasDB.maskingList.at(2)->lineInit, 77) << "the line numbers stay";
  EXPECT_EQ(session.selMask.freqInit, 15.0);
  EXPECT_EQ(session.selMask.freqFinal, 45.0);
  EXPECT_EQ(session.selMask.jumpNo, 7);
  EXPECT_THAT(redrawn, ElementsAre(1));
  EXPECT_THAT(Fields(), ElementsAre(0.0, 0.0, 0.0));
  EXPECT_THAT(frontEnd.messages, IsEmpty());
  EXPECT_EQ(Press(sasw::MASKINGUPDATE, 16.0, 46.0, 7), 0)
      << "the handle follows, so a second update finds it";
}

TEST_F(UpdateMaskTest, WithoutAPickedMaskItIsRefusedUnlessTheListIsEmpty) {
  EXPECT_EQ(Press(sasw::MASKINGUPDATE, 15.0, 45.0, 7), -1);
  EXPECT_THAT(frontEnd.messages, IsEmpty()) << "an empty list is refused without a word";
  AddOwnMask(10.0, 20.0, 1);
  ExpectRefused(sasw::MASKINGUPDATE, 15.0, 45.0, 7, "Selected masking can not be updated.");
  AddMask(m.key, 0, 0, 100.0, 120.0, 0);  // shares the jump number 0 of an empty handle
  ExpectRefused(sasw::MASKINGUPDATE, 15.0, 45.0, 7, "Selected masking can not be updated.");
}

TEST_F(UpdateMaskTest, MaskChangedBehindTheHandleIsRefused) {
  AddOwnMask(10.0, 20.0, 1);
  ASSERT_EQ(PickUpMasking(15.0), 0);
  MeasDB.maskingList.at(1)->freqFinal = 21.0;
  ExpectRefused(sasw::MASKINGUPDATE, 15.0, 45.0, 7, "Selected masking can not be updated.");
}

TEST_F(UpdateMaskTest, BadMarkersAreRefused) {
  AddOwnMask(10.0, 20.0, 1);
  ASSERT_EQ(PickUpMasking(15.0), 0);
  for (const auto& [lo, hi] : std::vector<std::pair<double, double>>{
           {-1.0, 20.0}, {-2.0, -1.0}, {20.0, 20.0}, {21.0, 20.0}, {0.0, 0.0}, {std::nan(""), 20.0}})
    ExpectRefused(sasw::MASKINGUPDATE, lo, hi, 1, "Please set both markers properly.");
}

TEST_F(UpdateMaskTest, NegativeJumpNumberIsWarnedAboutAndStillTaken) {
  AddOwnMask(10.0, 20.0, 1);
  ASSERT_EQ(PickUpMasking(15.0), 0);
  EXPECT_EQ(Press(sasw::MASKINGUPDATE, 11.0, 21.0, -3), 0);
  EXPECT_EQ(OnlyMessage(), "Please enter No. of jumps properly.");
  EXPECT_THAT(frontEnd.messageTitles, ElementsAre(kWarning));
  EXPECT_EQ(MaskList()[0], (PlainMask{m.key, 0, 2, -3, 11.0, 21.0}));
}

TEST_F(UpdateMaskTest, FinalFrequencyIsPulledBackToTheLimit) {
  AddOwnMask(10.0, 20.0, 1);
  ASSERT_EQ(PickUpMasking(15.0), 0);
  EXPECT_EQ(Press(sasw::MASKINGUPDATE, 11.0, 2100.0, 1), 0);
  EXPECT_EQ(MaskList()[0].freqFinal, 500.0);
  EXPECT_EQ(session.selMask.freqFinal, 500.0);
}

TEST_F(UpdateMaskTest, RangeAboveTheLimitDoesNotRunBackwards) {
  AddOwnMask(10.0, 20.0, 1);
  ASSERT_EQ(PickUpMasking(15.0), 0);
  ExpectRefused(sasw::MASKINGUPDATE, 600.0, 700.0, 1, "Please set both markers properly.");
}

// ---- Delete -----------------------------------------------------------------------------------------------

TEST_F(DeleteMaskTest, RemovesThePickedMaskOnly) {
  AddOwnMask(10.0, 20.0, 1);
  AddOwnMask(30.0, 40.0, 2);
  AddMask(m.key, 0, 1, 30.0, 40.0, 2);
  ASSERT_EQ(PickUpMasking(35.0), 0);
  EXPECT_EQ(Commit(sasw::MASKINGDEL), 0);
  EXPECT_THAT(MaskList(),
              ElementsAre(PlainMask{m.key, 0, 2, 1, 10.0, 20.0}, PlainMask{m.key, 0, 1, 2, 30.0, 40.0}));
  EXPECT_THAT(redrawn, ElementsAre(1));
}

TEST_F(DeleteMaskTest, WithoutAPickedMaskItIsRefused) {
  EXPECT_EQ(Commit(sasw::MASKINGDEL), -1);
  EXPECT_THAT(frontEnd.messages, IsEmpty()) << "an empty list is refused without a word";
  AddOwnMask(10.0, 20.0, 1);
  ExpectRefused(sasw::MASKINGDEL, 10.0, 20.0, 1, "The selected masking can not be deleted.");
}

TEST_F(DeleteMaskTest, HandleThatFitsInPartIsNotInTheList) {
  AddOwnMask(10.0, 20.0, 1);
  ASSERT_EQ(PickUpMasking(15.0), 0);
  session.selMask.jumpNo = 2;
  ExpectRefused(sasw::MASKINGDEL, 10.0, 20.0, 1, "The selected masking is not in the list.\n");
}

TEST_F(DeleteMaskTest, SecondDeleteIsRefused) {
  AddOwnMask(10.0, 20.0, 1);
  AddOwnMask(30.0, 40.0, 2);
  ASSERT_EQ(PickUpMasking(15.0), 0);
  EXPECT_EQ(Commit(sasw::MASKINGDEL), 0);
  redrawn.clear();
  ExpectRefused(sasw::MASKINGDEL, 0.0, 0.0, 0, "The selected masking can not be deleted.");
}

TEST_F(DeleteMaskTest, DeleteAllStepsOverEveryOtherMask) {
  for (int i = 0; i < 5; ++i) AddOwnMask(10.0 * i + 1, 10.0 * i + 5, i);
  EXPECT_EQ(PickUpMasking(2.0), 0);
  EXPECT_EQ(DeleteAllMask(), 0);
  EXPECT_THAT(MaskList(),
              ElementsAre(PlainMask{m.key, 0, 2, 1, 11.0, 15.0}, PlainMask{m.key, 0, 2, 3, 31.0, 35.0}));
  EXPECT_EQ(DeleteAllMask(), 1);
  EXPECT_EQ(OnlyMessage(), "The selected masking can not be deleted.");
  EXPECT_EQ(MeasDB.maskingList.count(), 2);
}

TEST_F(DeleteMaskTest, DeleteAllOfNothingIsRefusedSilently) {
  EXPECT_EQ(DeleteAllMask(), 1);
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

// ---- Reset ------------------------------------------------------------------------------------------------

TEST_F(ResetMasks, RemovesTheMasksOfThePair) {
  AddOwnMask(10.0, 20.0, 1);
  AddMask(m.key, 0, 1, 30.0, 40.0, 2);
  AddOwnMask(50.0, 60.0, 1);
  AddMask(m.key + 1, 0, 2, 30.0, 40.0, 2);
  SetFields(1.0, 2.0, 3);
  EXPECT_EQ(Commit(sasw::MASKINGRESET), 0) << "no mask needs to be picked";
  EXPECT_THAT(MaskList(),
              ElementsAre(PlainMask{m.key, 0, 1, 2, 30.0, 40.0}, PlainMask{m.key + 1, 0, 2, 2, 30.0, 40.0}));
  EXPECT_THAT(Fields(), ElementsAre(0.0, 0.0, 0.0));
  EXPECT_THAT(redrawn, ElementsAre(1));
}

TEST_F(ResetMasks, HandleOfAListedMaskGoesAhead) {
  AddOwnMask(10.0, 20.0, 1);
  ASSERT_EQ(PickUpMasking(12.0), 0);
  EXPECT_EQ(DeleteAllMaskInChannelCombination(), 1) << "the result is 1 in any case";
  EXPECT_EQ(MeasDB.maskingList.count(), 0);
}

TEST_F(ResetMasks, HandleThatOnlyCollidesIsRefused) {
  AddOwnMask(10.0, 20.0, 1);
  session.selMask = {m.key, 0, 2, 12.0, 30.0, 5};
  EXPECT_EQ(DeleteAllMaskInChannelCombination(), 1);
  EXPECT_EQ(OnlyMessage(), "The selected masking can not be deleted.");
  EXPECT_EQ(MeasDB.maskingList.count(), 1);
}

TEST_F(ResetMasks, EmptyListDoesNothing) {
  session.selMask = {m.key, 0, 2, 12.0, 3.0, 5};
  EXPECT_EQ(DeleteAllMaskInChannelCombination(), 1);
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

}  // namespace
}  // namespace sondera::testing
