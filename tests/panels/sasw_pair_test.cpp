// Which pair the routines of a page work on.
#include "panels/sasw_pair.h"

#include <cmath>
#include <vector>

#include "records/session.h"
#include "support/session_fixture.h"

namespace sondera::testing {
namespace {

class UnWrapOfSelection : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    MeasurementPlan plan;
    plan.nChannels = 3;
    m = AddMeasurement(plan);
    *MeasDB.maskingList.append() = {m.key, 0, 1, 10.0, 20.0, 3};
    *MeasDB.maskingList.append() = {m.key, 1, 2, 10.0, 20.0, 5};
    *MeasDB.maskingList.append() = {m.key + 1, 0, 1, 10.0, 30.0, 8};
  }
  double Level(Panel panel) {
    std::vector<double> re, im, wrapped(40), unwrapped(40);
    for (int i = 0; i < 40; ++i) {
      re.push_back(std::cos(-5.0 * i * std::acos(-1.0) / 180.0));
      im.push_back(std::sin(-5.0 * i * std::acos(-1.0) / 180.0));
    }
    std::vector<int> flag(40);
    UnWrap(panel, 40, 0.0, 1.0, re.data(), im.data(), wrapped.data(), unwrapped.data(), flag.data());
    return (unwrapped[15] + wrapped[15]) / 360.0;
  }
  TestMeasurement m;
};

TEST_F(UnWrapOfSelection, MaskingPageTakesThePairOnDisplay) {
  SelectPair(m, 0, 1);
  session.refChan = 1;
  session.dspChan = 2;
  EXPECT_EQ(Level(Panel::SASW), 3.0);
  SelectPair(m, 1, 2);
  EXPECT_EQ(Level(Panel::HMSETUP), 5.0);
}

TEST_F(UnWrapOfSelection, OtherPanelsTakeTheChannelsLastSelected) {
  SelectPair(m, 0, 1);
  session.refChan = 1;
  session.dspChan = 2;
  EXPECT_EQ(Level(Panel::IRFSETPNL), 5.0);
  session.dspChan = 0;
  EXPECT_EQ(Level(Panel::IRFSETPNL), 0.0);
}

}  // namespace
}  // namespace sondera::testing
