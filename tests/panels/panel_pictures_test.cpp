// Pictures that follow the fields beside them: the layers of the table, the windows of the filter, the preview of an
// import, the curve of the pair, and what the results page adds to its graphs.
#include "panels/panel_pictures.h"

#include <gmock/gmock.h>

#include <cmath>
#include <string>

#include "app/script/run.h"
#include "panels/irfsetpnl.h"
#include "panels/loadtxdata.h"
#include "panels/undo.h"
#include "project/import_preview.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "records/session.h"
#include "report/fit_curves.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/irfsetpnl.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/events.h"
#include "signal/irf.h"
#include "support/app_fixture.h"
#include "support/site_records.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kPair =
    "*sondera 2\n"
    "read tim id=site files=rec1.tim,rec2.tim,rec3.tim,rec4.tim,rec5.tim,rec6.tim source=0 "
    "at=10,14,22,30,42,54\n"
    "pair site 1 3\n";

class PanelPictures : public AppTest {
 protected:
  void RunScript(const std::string& text) {
    script::Source source = script::Source::OfText(text);
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    const int status = script::Run("script", {}).run(source);
    ::testing::internal::GetCapturedStdout();
    const std::string errors = ::testing::internal::GetCapturedStderr();
    ASSERT_NE(status, 1) << errors;
    ResetEvents();
  }
  void ReadPair() {
    test::WriteSiteRecords(".");
    RunScript(kPair);
  }
};

// ---- layers ---------------------------------------------------------------------------------------------

class LayerPicture : public PanelPictures {
 protected:
  static void Type(int row, double thickness, double Vs) {
    SetTableCellVal(fmodeling::SOILPROFILE, row, 1, thickness);
    SetTableCellVal(fmodeling::SOILPROFILE, row, 3, Vs);
    SendEvent(fmodeling::SOILPROFILE, Event::Commit);
  }
  static std::vector<double> Depths() {
    const GraphModel& g = GraphOf(fmodeling::PROFILE);
    return g.plots.empty() ? std::vector<double>() : g.plots[0].y;
  }
};

TEST_F(LayerPicture, FollowsCellsCountsAndButtons) {
  SetCtrlVal(fmodeling::NLAYERS, 2);
  Commit(fmodeling::NLAYERS);
  Type(1, 4.0, 150.0);
  Type(2, 9.0, 300.0);
  EXPECT_THAT(Depths(), ElementsAre(0, 0, 4, 4, 5, 5));
  Type(1, 8.0, 150.0);
  EXPECT_THAT(Depths(), ElementsAre(0, 0, 8, 8, 10, 10));
  SetCtrlVal(fmodeling::EDITLAYERNO, 1);
  Commit(fmodeling::DELETEROW);
  EXPECT_THAT(Depths(), ElementsAre(0, 0, 9, 9)) << "the half-space alone, as thick as its row says";
  Commit(fmodeling::CLEARROW);
  EXPECT_THAT(Depths(), IsEmpty());
  EXPECT_EQ(Undo(), 0);
  EXPECT_THAT(Depths(), ElementsAre(0, 0, 9, 9)) << "an undo is seen too";
}

// ---- filter ---------------------------------------------------------------------------------------------

class FilterPanel : public PanelPictures {
 protected:
  void SetUp() override {
    PanelPictures::SetUp();
    ReadPair();
    SetCtrlVal(irfsetpnl::IRFMODE, kBandPass);
    FindPair(Key(), 0, 2)->irfMode = kBandPass;
    Commit(sasw::MASKINGLIST);
    ASSERT_EQ(GetCtrlVal(irfsetpnl::IRFMODE), kBandPass);
  }
  static int Key() { return GetKeyFromID(session.curProjID, "site"); }
  static const GraphModel& Graph() { return GraphOf(irfsetpnl::WINDOWS); }
  static int Drag(int cursor, double time) {
    return SendGraphEvent(irfsetpnl::WINDOWS, Event::ValChanged,
                          {.x = time, .button = MouseButton::Left, .cursor = cursor});
  }
  static const PlotModel* Curve(const std::string& legend) {
    for (const PlotModel& plot : Graph().plots)
      if (plot.legend == legend) return &plot;
    return nullptr;
  }
};

TEST_F(FilterPanel, DrawsTheResponseAndBothWindowsWithTheirCorners) {
  ASSERT_TRUE(Curve("Impulse response"));
  ASSERT_TRUE(Curve("Enhanced"));
  ASSERT_TRUE(Curve("Backbone"));
  EXPECT_FALSE(Curve("Enhanced, by velocities")) << "times and velocities say the same";
  double peak = 0.0;
  for (const double v : Curve("Impulse response")->y) peak = std::max(peak, std::fabs(v));
  EXPECT_EQ(peak, 1.0);
  ASSERT_EQ(Graph().cursors.size(), 8u);
  const double deltaT = 0.002;
  EXPECT_NEAR(Graph().cursors[1].x, GetCtrlVal(irfsetpnl::SMIRF_T2), deltaT);
  // What is drawn is what the filter takes.
  const PMeasInfo& pair = *FindPair(Key(), 0, 2);
  std::vector<double> window(pair.irRe.size());
  MakeIrfWindow(kBandPass, pair.enT, Curve("Enhanced")->x[1], static_cast<int>(window.size()), window.data());
  EXPECT_EQ(Curve("Enhanced")->y, window);
}

TEST_F(FilterPanel, ADraggedCornerWritesItsTimeAndItsVelocity) {
  const double spacing = 12.0;  // receivers at 10 and 22 m
  const double before = GetCtrlVal(irfsetpnl::SMIRF_T1), next = GetCtrlVal(irfsetpnl::SMIRF_T2);
  const double middle = 0.5 * (before + next);
  EXPECT_EQ(Drag(1, middle), 0);
  EXPECT_NEAR(GetCtrlVal(irfsetpnl::SMIRF_T1), middle, 1e-3 * middle);
  EXPECT_DOUBLE_EQ(GetCtrlVal(irfsetpnl::SMIRF_V1), spacing / GetCtrlVal(irfsetpnl::SMIRF_T1));
  EXPECT_EQ(GetCtrlVal(irfsetpnl::SMIRF_T2), next) << "the others stay";
  EXPECT_FALSE(Curve("Enhanced, by velocities"));
  EXPECT_EQ(Drag(1, 1e9), 0);
  EXPECT_EQ(GetCtrlVal(irfsetpnl::SMIRF_T1), next) << "no further than its neighbour";
  EXPECT_EQ(Drag(4, 1e9), 0);
  EXPECT_LT(GetCtrlVal(irfsetpnl::SMIRF_T4), 2.1) << "nor than the record";
  // The fourth corner of the backbone window.
  const double last = GetCtrlVal(irfsetpnl::BBIRF_V4);
  EXPECT_EQ(Drag(8, 0.9 * spacing / last), 0);
  EXPECT_NE(GetCtrlVal(irfsetpnl::BBIRF_V4), last);
  // Either way the program takes it without a word.
  EXPECT_EQ(Commit(irfsetpnl::APPLY), 0);
  EXPECT_EQ(FindPair(Key(), 0, 2)->enT[1], GetCtrlVal(irfsetpnl::SMIRF_T1));
  EXPECT_EQ(Commit(irfsetpnl::OK), 0);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(FilterPanel, TypedValuesAreSeen) {
  SetCtrlVal(irfsetpnl::SMIRF_T4, 0.5);
  EXPECT_NEAR(Graph().cursors[3].x, 0.5, 0.002);
  SetCtrlVal(irfsetpnl::SMIRF_V2, 2.0 * GetCtrlVal(irfsetpnl::SMIRF_V2));
  EXPECT_TRUE(Curve("Enhanced, by velocities")) << "OK would take this one";
  SetCtrlVal(irfsetpnl::IRFMODE, kLowPass);
  EXPECT_EQ(Graph().cursors.size(), 4u) << "of a low-pass window two corners stand for themselves";
  SetCtrlVal(irfsetpnl::MEASID, "nothing");
  EXPECT_THAT(Graph().plots, IsEmpty());
  EXPECT_EQ(Drag(1, 0.1), -1) << "no corner to drag";
}

// ---- import ---------------------------------------------------------------------------------------------

TEST_F(PanelPictures, TheFirstFileOfAnImportIsShownAsItIsUnderstood) {
  using namespace loadtxdata;
  test::WriteSiteRecords(".");
  Commit(mainmenu::LOAD_TWO_CHNL_DATA);
  SetCtrlVal(DATATYPE, 0);
  SetCtrlVal(NCHANS, 2);
  Commit(NCHANS);
  EXPECT_EQ(GetCtrlVal(PREVIEW), "");
  SetCtrlVal(FNAMESRC, folder.File("rec1.tim"));
  const std::string text = GetCtrlVal(PREVIEW);
  EXPECT_THAT(text, HasSubstr("rec1.tim\n  "));
  EXPECT_THAT(text, HasSubstr(" lines of time and value, "));
  SetCtrlVal(DATATYPE, 3);
  EXPECT_THAT(GetCtrlVal(PREVIEW), HasSubstr("Not understood: no universal file"));
  SetCtrlVal(FNAMESRC, folder.File("missing.tim"));
  EXPECT_THAT(GetCtrlVal(PREVIEW), HasSubstr("Not understood: "));
  SetCtrlVal(FNAMESRC, "");
  EXPECT_EQ(GetCtrlVal(PREVIEW), "");
}

TEST_F(PanelPictures, APreviewNamesWhatIsWrongWithAFile) {
  Write("comma.tim", "0 1\n0,001 2\n0,002 3\n");
  EXPECT_THAT(PreviewOfColumns(folder.File("comma.tim"), 1, "time", "s"),
              HasSubstr("Not understood: line 2: "));
  Write("uneven.tim", "0 1\n1 2\n5 3\n");
  EXPECT_THAT(PreviewOfColumns(folder.File("uneven.tim"), 1, "time", "s"), HasSubstr("Not understood: "));
  Write("empty.tim", "");
  EXPECT_THAT(PreviewOfColumns(folder.File("empty.tim"), 1, "time", "s"), HasSubstr("Not understood: "));
  Write("good.Hyx", "0 1 0\n2.5 1 -1\n5 0.5 2\n");
  EXPECT_EQ(PreviewOfColumns(folder.File("good.Hyx"), 2, "frequency", "Hz"),
            "good.Hyx\n  0 1 0\n  2.5 1 -1\n  5 0.5 2\n"
            "Understood: 3 lines of frequency and two values, 0 to 5 Hz in steps of 2.5 Hz.");
  Write("long.tim", std::string(3000, 'x') + "\n\x1b[31m\n");
  const std::string hostile = PreviewOfColumns(folder.File("long.tim"), 1, "time", "s");
  EXPECT_LT(hostile.size(), 600u);
  EXPECT_EQ(hostile.find('\x1b'), std::string::npos);
}

// ---- curve of the pair ----------------------------------------------------------------------------------

TEST_F(PanelPictures, TheCurveOfThePairStandsOnTheMaskingPageOnceItIsCalculated) {
  ReadPair();
  EXPECT_FALSE(IsVisible(sasw::PAIRCURVE));
  Commit(sasw::MASKINGCALCDISP);
  EXPECT_TRUE(IsVisible(sasw::PAIRCURVE));
  const PMeasInfo& pair = *FindPair(GetKeyFromID(session.curProjID, "site"), 0, 2);
  ASSERT_EQ(GraphOf(sasw::PAIRCURVE).plots.size(), 1u);
  EXPECT_EQ(GraphOf(sasw::PAIRCURVE).plots[0].legend, "");
  EXPECT_EQ(GraphOf(sasw::PAIRCURVE).yAxis.label, "m/s");
  EXPECT_EQ(GraphOf(sasw::PAIRCURVE).plots[0].y,
            std::vector<double>(pair.dispVel.begin(), pair.dispVel.begin() + pair.nDispPoints));
  EXPECT_EQ(GraphOf(sasw::PAIRCURVE).title, "site[1:3]");
  RunScript("*sondera 2\npair site 1 4\n");
  EXPECT_FALSE(IsVisible(sasw::PAIRCURVE)) << "this pair has none yet";
  RunScript("*sondera 2\npair site 1 3\n");
  EXPECT_TRUE(IsVisible(sasw::PAIRCURVE));
  SetActiveTabPage(Panel::PANEL, 1);
  SendGraphEvent(sasw::PAIRCURVE, Event::Commit, {.x = 10, .y = 100, .button = MouseButton::Left});
  EXPECT_EQ(GetActiveTabPage(Panel::PANEL), 2) << "a click shows the dispersion page";
}

// ---- results page ---------------------------------------------------------------------------------------

TEST_F(PanelPictures, ResultsHaveResidualsHatchingAndResolution) {
  ReadPair();
  RunScript(
      "*sondera 2\nmask 0 7\nmask 48 500\ndisperse\nsave Site.da overwrite=yes\ncalcVel\n"
      "preInversion 1 0 2 0.5 4 2 3 4 100\ninversion\n");
  const std::vector<ReportCurve> measured = MeasuredCurves();
  ASSERT_EQ(measured.size(), 1u);
  double longest = 0.0;
  for (const double w : measured[0].wlen) longest = std::max(longest, w);
  SetCtrlVal(exdthd::ITERNO, 1);
  Commit(exdthd::ITERNO);
  const GraphModel& residuals = GraphOf(exdthd::RESIDUALS);
  ASSERT_EQ(residuals.plots.size(), 2u);
  EXPECT_EQ(residuals.plots[1].x.size(), measured[0].vel.size());
  const Residuals expected = ResidualsOf(measured[0], ComputedCurves(1)[0]);
  EXPECT_EQ(residuals.plots[1].y, expected.difference);
  double sum = 0.0;
  for (const double d : expected.difference) sum += d * d;
  EXPECT_NEAR(std::sqrt(sum / static_cast<double>(expected.difference.size())), GetCtrlVal(exdthd::RMSERROR),
              1e-6 * GetCtrlVal(exdthd::RMSERROR))
      << "the RMS error beside the page is that of these points";
  SetCtrlVal(exdthd::PLOT_INV, 0);
  Commit(exdthd::PLOT_INV);
  const GraphModel& profile = GraphOf(exdthd::PROFILE);
  EXPECT_FALSE(profile.sideNotes.empty());
  if (0.5 * longest < profile.yAxis.max) {
    ASSERT_EQ(profile.hatchings.size(), 1u);
    EXPECT_EQ(profile.hatchings[0].y1, 0.5 * longest);
  }
}

}  // namespace
}  // namespace sondera::testing
