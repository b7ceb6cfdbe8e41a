// The results page: its two forms, lists of curves, markers and colours, and both graphs after a press.
#include "panels/exdthd.h"

#include "app/script_fixture.h"
#include "panels/panels_state.h"
#include "records/inv_records.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/mainmenu.h"
#include "support/site_records.h"

namespace sondera {
namespace {

using namespace exdthd;

class ResultsPage : public testing::ScriptTest {
 protected:
  void SetUp() override {
    ScriptTest::SetUp();
    test::WriteSitePair(folder.File("H31.hyx"), 14.0, 30.0);
    ASSERT_NE(
        Run("read hyx id=ID files=H31.hyx source=0 at=14,30\npair ID 1 2\nphase original\nmask 0 7\n"
            "mask 48 500\ndisperse\ncondense points=12\nlayers 2,3,4,6,80\nload global\nproject id=site\n"
            "invert niter=2"),
        1)
        << err;
  }
  static std::vector<std::string> Legends() {
    std::vector<std::string> legends;
    for (const PlotModel& p : GraphOf(CURVES).plots) legends.push_back(p.legend);
    return legends;
  }
};

TEST_F(ResultsPage, ARunLeavesItsCurvesAndItsProfileOnTheGraphs) {
  ASSERT_EQ(Legends().size(), 2u);
  EXPECT_EQ(Legends()[1], "Theoretical");
  EXPECT_EQ(GraphOf(CURVES).plots[1].x.size(), 12u);
  EXPECT_EQ(GraphOf(PROFILE).title, "INV 2");
  ASSERT_EQ(GraphOf(PROFILE).plots.size(), 3u) << "profile and band";
  EXPECT_EQ(GraphOf(PROFILE).plots[0].x.size(), 2u * 5u + 2u);
  EXPECT_EQ(GetActiveTabPage(Panel::PANEL), 3) << "the page came to the front";
}

TEST_F(ResultsPage, SideGraphAndIterationFollowTheirRings) {
  SetCtrlVal(PLOT_INV, 2);
  Commit(PLOT_INV);
  EXPECT_EQ(GraphOf(PROFILE).plots.at(0).x.size(), 3u) << "entries 0, 1 and 2";
  EXPECT_EQ(GraphOf(PROFILE).plots.at(0).x[2], InvParam.rms[2]);
  SetCtrlVal(PLOT_INV, 1);
  Commit(PLOT_INV);
  EXPECT_EQ(GraphOf(PROFILE).xAxis.max, 1.0);
  SetCtrlVal(PLOT_INV, 0);
  SetCtrlVal(ITERNO, 0);
  Commit(ITERNO);
  EXPECT_EQ(GraphOf(PROFILE).title, "INV 0");
  EXPECT_EQ(GraphOf(PROFILE).plots.size(), 1u);
}

TEST_F(ResultsPage, RingsChooseTheCurves) {
  SetCtrlVal(EXDTYPE, 1);
  EXPECT_EQ(Commit(EXDTYPE), 0);
  EXPECT_EQ(Legends(), (std::vector<std::string>{"ID[1:2]", "Theoretical"}));
  SetCtrlVal(THDTYPE, -2);
  EXPECT_EQ(Commit(THDTYPE), 0);
  EXPECT_EQ(Legends(), (std::vector<std::string>{"ID[1:2]"}));
}

TEST_F(ResultsPage, LooksAreStoredAtOnceAndShownByRedraw) {
  SetCtrlVal(THDTYPE, -1);
  Commit(THDTYPE);
  EXPECT_EQ(GetCtrlIndex(COLOR), panelsState.theoretical.curves.at(0).color);
  EXPECT_EQ(GetCtrlIndex(MARKER), panelsState.theoretical.curves.at(0).marker);
  SetCtrlIndex(COLOR, 6);
  SetCtrlIndex(MARKER, 9);
  EXPECT_EQ(Commit(COLOR), 0);
  EXPECT_EQ(Commit(MARKER), 0);
  EXPECT_NE(GraphOf(CURVES).plots.back().color, 0x800000) << "not yet";
  EXPECT_EQ(Commit(REDRAW), 0);
  EXPECT_EQ(GraphOf(CURVES).plots.back().color, 0x800000);
  EXPECT_EQ(GraphOf(CURVES).plots.back().marker, 9);
  SetCtrlVal(THDTYPE, -2);
  EXPECT_EQ(Commit(COLOR), -1) << "no theoretical curve is chosen";
  EXPECT_EQ(SetEXDTHDmarkercolorCallback(Panel::EXDTHD, nullptr, Event::Commit, 0), 0);
  EXPECT_EQ(panelsState.theoretical.curves.at(0).color, 0);
}

TEST_F(ResultsPage, FacesComeByMenuAndByRing) {
  EXPECT_EQ(Commit(mainmenu::OPEN_FMODELING_WIN), 0);
  EXPECT_EQ(GetCtrlVal(FMDORINV), 1);
  EXPECT_FALSE(IsVisible(ITERNO));
  EXPECT_FALSE(IsVisible(PLOT_INV));
  EXPECT_TRUE(IsDimmed(RUN_INVERSION));
  EXPECT_FALSE(IsDimmed(RUN_FMODEL));
  SetCtrlVal(FMDORINV, 2);
  Commit(FMDORINV);
  EXPECT_TRUE(IsVisible(ITERNO));
  EXPECT_TRUE(IsDimmed(RUN_FMODEL));
  EXPECT_EQ(OpenEXDTHDcallback(Panel::EXDTHD, nullptr, Event::Commit, 0), 0);
  EXPECT_TRUE(IsVisible(ITERNO)) << "the face stays";
}

TEST_F(ResultsPage, CloseGoesBackToTheDispersionPage) {
  EXPECT_EQ(Commit(exdthd::CLOSE), 0);
  EXPECT_EQ(GetActiveTabPage(Panel::PANEL), 2);
  EXPECT_FALSE(GraphOf(CURVES).plots.empty());
}

TEST_F(ResultsPage, HaltIsLiveOnlyWhileARunIsUnderWay) {
  EXPECT_TRUE(IsDimmed(HALT));
  bool live = false;
  const int watcher = AddWatcher([&](const Change& change) {
    if (change.control == &STATUSMSG && IsLocked()) live = live || !IsDimmed(HALT);
  });
  ASSERT_NE(Run("invert niter=1"), 1) << err;
  RemoveObserver(watcher);
  EXPECT_TRUE(live);
  EXPECT_TRUE(IsDimmed(HALT));
}

}  // namespace
}  // namespace sondera
