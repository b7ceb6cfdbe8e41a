// Tests of the picture of the filter panel.
#include "plot/filter_plot.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "runtime/catalogue/irfsetpnl.h"

namespace sondera {
namespace {

TEST(FilterPlot, MarkersStayOnTheTimeAxisWhateverTheCornersAre) {
  ResetGraphs();
  const std::vector<double> response{0.0, 1.0, -0.5, 0.25};
  const double nan = std::numeric_limits<double>::quiet_NaN(), inf = std::numeric_limits<double>::infinity();
  FilterPicture picture{.response = response, .deltaT = 0.5};
  picture.enhanced[1] = nan;
  picture.enhanced[2] = -inf;
  picture.enhanced[3] = 0.5;
  picture.enhanced[4] = inf;
  PlotFilterWindows(irfsetpnl::WINDOWS, picture);
  const std::vector<CursorModel>& cursors = GraphOf(irfsetpnl::WINDOWS).cursors;
  ASSERT_EQ(cursors.size(), 8u);
  EXPECT_EQ(cursors[0].index, 0);
  EXPECT_EQ(cursors[1].index, 0);
  EXPECT_EQ(cursors[2].index, 1);
  EXPECT_EQ(cursors[3].index, 3);
  ResetGraphs();
}

}  // namespace
}  // namespace sondera
