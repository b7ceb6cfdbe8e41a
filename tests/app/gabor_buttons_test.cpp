// The buttons of the Gabor panel and of the automatic masking, pressed as a front end does it.
#include <cmath>

#include "records/measdb.h"
#include "runtime/catalogue/gaborpnl.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/graphs.h"
#include "runtime/redraw.h"
#include "support/app_fixture.h"

namespace sondera::testing {
namespace {

class GaborButtons : public AppTest {
 protected:
  /// A delay of 20 ms between two receivers 4 m apart in the first measurement of the session.
  void SetUp() override {
    AppTest::SetUp();
    MeasRecords r;
    ASSERT_NE(GetInfoFromKey(1, r), -1);
    r.measSetup->recLoc.assign(r.measSetup->recLoc.size(), 0.0);
    r.measSetup->recLoc.at(1) = 4.0;
    const int n = r.hwSetup->nLines;
    r.hwSetup->freqSpan = r.hwSetup->stopFreq = n * r.hwSetup->deltaF;
    for (int i = 0; i < 2 * n; ++i) {
      const auto a = static_cast<std::size_t>(i), b = static_cast<std::size_t>(2 * n + i);
      const double angle = -2.0 * M_PI * 0.02 * r.hwSetup->deltaF * (i <= n ? i : i - 2 * n);
      r.rawData->crossSpecRe.at(a) = r.rawData->powerSpec.at(a) = r.rawData->powerSpec.at(b) = 1.0;
      r.rawData->crossSpecRe.at(b) = std::cos(angle);
      r.rawData->crossSpecIm.at(b) = std::sin(angle);
    }
    SetCtrlVal(sasw::DISPA_REFCHNL, 0);
    SetCtrlVal(sasw::DISPACHNL, 1);
  }
};

TEST_F(GaborButtons, AutoMasksThePairOnDisplay) {
  EXPECT_EQ(Commit(sasw::MASKINGAUTO), 0);
  EXPECT_TRUE(frontEnd.messages.empty()) << frontEnd.messages[0];
  EXPECT_GT(MeasDB.maskingList.count(), 0);
  ASSERT_NE(FindPair(1, 0, 1), nullptr);
  EXPECT_TRUE(FindPair(1, 0, 1)->gabor);
}

TEST_F(GaborButtons, PanelShowsCalculatesAndCloses) {
  DoPlotting(1);  // the phase display makes the pair
  EXPECT_EQ(Commit(mainmenu::GABOR_SETUP), 0);
  EXPECT_TRUE(IsPanelShown(Panel::GABORPNL));
  SetCtrlVal(gaborpnl::FREQDIV, 30);
  EXPECT_EQ(Commit(gaborpnl::CALC), 0);
  EXPECT_EQ(GetCtrlVal(sasw::DISPBTYPE), 10);
  ASSERT_TRUE(GraphOf(sasw::DISPLAY_B).intensity);
  EXPECT_EQ(GraphOf(sasw::DISPLAY_B).intensity->columns, 30);
  SetCtrlVal(gaborpnl::CNTTHRESHOLD, 20.0);
  EXPECT_EQ(Commit(gaborpnl::UPDATE), 0);
  EXPECT_EQ(GraphOf(sasw::DISPLAY_B).intensity->colorMap.front().level, 20.0);
  SetCtrlVal(gaborpnl::HICOLOR, 0x123456);
  SendEvent(gaborpnl::HICOLOR, Event::ValChanged);
  Commit(sasw::REDRAW);
  EXPECT_EQ(GraphOf(sasw::DISPLAY_B).intensity->colorMap.back().color, 0x123456);
  EXPECT_EQ(Commit(gaborpnl::DEFAULTVALUE), 0);
  EXPECT_EQ(GetCtrlVal(gaborpnl::BAND), 3.0);
  EXPECT_EQ(Commit(gaborpnl::CLOSE), 0);
  EXPECT_FALSE(IsPanelShown(Panel::GABORPNL));
  EXPECT_TRUE(frontEnd.messages.empty());
}

}  // namespace
}  // namespace sondera::testing
