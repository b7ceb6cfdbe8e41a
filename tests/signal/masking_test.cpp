// The list of masks without a page: requests in, reasons out. The buttons are in panels/sasw_mask_list_test.cpp.
#include "signal/masking.h"

#include "records/session.h"
#include "support/session_fixture.h"

namespace sondera::testing {
namespace {

class MaskRequests : public SessionTest {
 protected:
  static constexpr int kKey = 7;
  static CurrentPair Current() {
    CurrentPair current;
    current.key = kKey;
    current.dspChan = 1;
    return current;
  }
  static MaskRequest Range(double freqInit, double freqFinal, int jumpNo = 0) {
    return {kKey, 0, 1, freqInit, freqFinal, jumpNo};
  }
  static void Pick(const MaskRequest& m) {
    session.selMask = {m.key, m.refChan, m.dspChan, m.freqInit, m.freqFinal, m.jumpNo};
  }
  static const MaskingInfo& Only() { return *MeasDB.maskingList.at(1); }
};

TEST_F(MaskRequests, ReasonOfARefusalComesBackAndNothingIsShown) {
  EXPECT_FALSE(NewMask(Range(10.0, 20.0, 3), 0.5));
  EXPECT_EQ(NewMask(Range(10.0, 30.0), 0.5).reason(), "Invalid initial freq.: overlapped !");
  EXPECT_EQ(NewMask(Range(5.0, 20.0), 0.5).reason(), "Invalid final freq.: overlapped !");
  EXPECT_EQ(NewMask(Range(15.0, 30.0), 0.5).reason(), "Invalid freqeuncy range !");
  EXPECT_EQ(MeasDB.maskingList.count(), 1);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(MaskRequests, LinesComeFromWholeHertz) {
  ASSERT_FALSE(NewMask(Range(10.9, 20.9, 3), 0.5));
  EXPECT_EQ(Only().lineInit, 20);
  EXPECT_EQ(Only().lineFinal, 40);
  EXPECT_EQ(Only().jumpNo, 3);
}

TEST_F(MaskRequests, PickedMaskTakesTheNewRange) {
  ASSERT_FALSE(NewMask(Range(10.0, 20.0, 3), 0.5));
  Pick(Range(10.0, 20.0, 3));
  const int bits = CheckMaskingData(Range(10.0, 20.0, 3));
  EXPECT_EQ(UpdateMask(Current(), bits, Range(30.0, 30.0)).reason(), "Please set both markers properly.");
  EXPECT_FALSE(UpdateMask(Current(), bits, Range(30.0, 40.0, 4)));
  EXPECT_EQ(Only().freqInit, 30.0);
  EXPECT_EQ(session.selMask.freqFinal, 40.0);
  EXPECT_EQ(UpdateMask(Current(), 0, Range(50.0, 60.0)).reason(), "Selected masking can not be updated.");
}

TEST_F(MaskRequests, EmptyListRefusesWithoutAReason) {
  for (const Refusal& refusal : {UpdateMask(Current(), 0, Range(1.0, 2.0)), DeleteMask(Current(), 0),
                                 DeleteAllMaskInChannelCombination(Current(), 0), DeleteAllMask(0)}) {
    EXPECT_TRUE(refusal);
    EXPECT_EQ(refusal.reason(), "");
  }
}

}  // namespace
}  // namespace sondera::testing
