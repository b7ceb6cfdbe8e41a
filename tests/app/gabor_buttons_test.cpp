// The buttons of the Gabor panel and of the automatic masking, pressed as a front end does it.
#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <vector>

#include "app/script/run.h"
#include "figure/graph_lines.h"
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

/// Colour of a share of the peak, 0 to 100: black at the threshold, then blue, red, and yellow at the peak.
std::array<double, 3> ColourOf(double value, double threshold) {
  constexpr std::array<std::array<double, 3>, 4> levels = {
      {{0, 0, 0}, {0, 0, 255}, {255, 0, 0}, {255, 255, 0}}};
  const double third = 3.0 * (std::max(value, threshold) - threshold) / (100.0 - threshold);
  const auto part = static_cast<std::size_t>(std::min(third, 2.0));
  std::array<double, 3> color = {};
  for (std::size_t k = 0; k < 3; ++k)
    color[k] =
        levels[part][k] + (third - static_cast<double>(part)) * (levels[part + 1][k] - levels[part][k]);
  return color;
}

TEST_F(GaborButtons, TheMapThatIsDrawnIsTheTableThatIsExported) {
  DoPlotting(1);
  ASSERT_EQ(Commit(mainmenu::GABOR_SETUP), 0);
  SetCtrlVal(gaborpnl::FREQDIV, 30);
  SetCtrlVal(gaborpnl::TIMEDIV, 20);
  ASSERT_EQ(Commit(gaborpnl::CALC), 0);
  const double threshold = GetCtrlVal(gaborpnl::CNTTHRESHOLD);
  script::Source source = script::Source::OfText("*sondera 2\nexport map measID 1 2 10\n");
  EXPECT_NE(script::Run("export", {}).run(source), 1);
  std::vector<double> time, freq, value;
  std::ifstream table("map.gab");
  for (double t = 0, f = 0, v = 0; table >> t >> f >> v;) {
    time.push_back(t);
    freq.push_back(f);
    value.push_back(v);
  }
  ASSERT_EQ(value.size(), 600u);
  const auto [low, high] = std::minmax_element(value.begin(), value.end());

  const GraphModel& graph = GraphOf(sasw::DISPLAY_B);
  ASSERT_TRUE(graph.intensity);
  const AxisLimits across = LimitsInForce(graph).x, up = LimitsInForce(graph).y;
  // Ten pixels from node to node, with the middle of a pixel on each.
  const double right = 10.0 * 29, bottom = 10.0 * 19;
  const MapPixels pixels =
      PixelsOf(*graph.intensity, {across.min, across.max, false, 0.5, right + 0.5},
               {up.min, up.max, false, bottom + 0.5, 0.5}, {0, 0, right + 1, bottom + 1});
  int bright = 0;
  for (std::size_t i = 0; i < value.size(); ++i) {
    const auto column = std::lround(right * (freq[i] - across.min) / (across.max - across.min));
    const auto row = std::lround(bottom * (up.max - time[i]) / (up.max - up.min));
    const std::uint32_t pixel = pixels.pixels.at(static_cast<std::size_t>(row * pixels.width + column));
    const double share = 100.0 * (value[i] - *low) / (*high - *low);
    const std::array<double, 3> wanted = ColourOf(share, threshold);
    bright += share > threshold;
    for (std::size_t k = 0; k < 3; ++k)
      EXPECT_NEAR(static_cast<double>(pixel >> (16 - 8 * k) & 0xFF), wanted[k], 3.0)
          << time[i] << " s " << freq[i] << " Hz";
  }
  EXPECT_GT(bright, 20);
  EXPECT_LT(bright, 500);
}

}  // namespace
}  // namespace sondera::testing
