// Tests of the trace selection: what a choice draws, what it leaves in the records, and what a failed plot
// does.
#include "panels/sasw_traces.h"

#include "app/commands.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/graphs.h"
#include "runtime/redraw.h"
#include "support/app_fixture.h"
#include "support/site_records.h"

namespace sondera {
namespace {

class TraceSelectionTest : public testing::AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    test::WriteSiteRecords(folder.Path());
    using namespace loadtxdata;
    Commit(mainmenu::LOAD_TWO_CHNL_DATA);
    SetCtrlVal(DATATYPE, 0);
    SetCtrlVal(NCHANS, 3);
    Commit(NCHANS);
    SetCtrlVal(MEASID, "three");
    SetCtrlVal(FNAMESRC, folder.File("rec1.tim"));
    SetCtrlVal(FNAMECH1, folder.File("rec2.tim"));
    SetCtrlVal(FNAMECH2, folder.File("rec3.tim"));
    SetCtrlVal(LOC_REC1, 20.0);
    SetCtrlVal(LOC_REC2, 24.0);
    SetCtrlVal(LOC_REC3, 34.0);
    ASSERT_EQ(Commit(LOAD), 0);
    key = GetKeyFromID("ProjID", "three");
    ASSERT_NE(key, -1);
  }
  HWSetup& Hw() {
    MeasRecords r;
    GetInfoFromKey(key, r);
    return *r.hwSetup;
  }
  int key = -1;
};

TEST_F(TraceSelectionTest, ChoosingAChannelMakesItsPairAndDrawsItsPhase) {
  EXPECT_EQ(FindPair(key, 0, 2), nullptr);
  SetCtrlVal(sasw::DISPACHNL, 2);
  EXPECT_EQ(Commit(sasw::DISPACHNL), 0);
  PMeasInfo* pair = FindPair(key, 0, 2);
  ASSERT_NE(pair, nullptr);
  EXPECT_EQ(pair->nDispPoints, 0) << "it has no curve and takes part in nothing";
  const GraphModel& graph = GraphOf(sasw::DISPLAY_A);
  ASSERT_EQ(graph.plots.size(), 1u) << "the enhanced curve, whose box is on";
  EXPECT_EQ(graph.plots[0].legend, "Enhanced");
  EXPECT_EQ(graph.plots[0].x.size(), 1024u);
  EXPECT_EQ(graph.plots[0].y[100], pair->enPhase[100]);
}

TEST_F(TraceSelectionTest, AFailedPlotRestoresTheEarlierChannel) {
  SetCtrlVal(sasw::DISPACHNL, 1);
  SendEvent(sasw::DISPACHNL, Event::GotFocus);
  FreeHWSetupList();
  SetCtrlVal(sasw::DISPACHNL, 2);
  EXPECT_EQ(Commit(sasw::DISPACHNL), -1);
  EXPECT_EQ(GetCtrlVal(sasw::DISPACHNL), 1);
}

TEST_F(TraceSelectionTest, APhaseDisplayBringsTheBandLimitsOfARecordUpToDate) {
  Hw().startFreq = 7.0;
  Hw().stopFreq = 9.0;
  SetCtrlIndex(sasw::DISPATYPE, 3);
  Commit(sasw::DISPATYPE);
  EXPECT_EQ(Hw().startFreq, 0.0);
  EXPECT_EQ(Hw().stopFreq, Hw().freqSpan);
}

TEST_F(TraceSelectionTest, EveryDisplayTypeOfATraceCanBeDrawn) {
  for (int type = 0; type <= 9; ++type) {
    SetCtrlIndex(sasw::DISPATYPE, type);
    EXPECT_EQ(Commit(sasw::DISPATYPE), 0) << type;
    const GraphModel& graph = GraphOf(sasw::DISPLAY_A);
    ASSERT_FALSE(graph.plots.empty()) << type;
    EXPECT_EQ(graph.plots[0].x.size(), type == 0 || type == 9 ? 2048u : 1024u) << type;
    EXPECT_LT(graph.xAxis.min, graph.xAxis.max) << type;
  }
}

TEST_F(TraceSelectionTest, WithAllBoxesOffTheCurveInUseIsShown) {
  SetCtrlVal(sasw::PHASE_ENHANCED, 0);
  Commit(sasw::REDRAW);
  ASSERT_EQ(GraphOf(sasw::DISPLAY_A).plots.size(), 1u);
  EXPECT_EQ(GraphOf(sasw::DISPLAY_A).plots[0].legend, "Enhanced") << "phase option 1 feeds the curve";
}

TEST_F(TraceSelectionTest, SettingsStayWithTheirTrace) {
  SetCtrlIndex(sasw::TRACE_ONOFF, 1);
  Commit(sasw::TRACE_ONOFF);
  SetCtrlVal(sasw::AUTOSCALE_Y, 0);
  Commit(sasw::AUTOSCALE_Y);
  EXPECT_EQ(session.display[1].autoScaleY, 0);
  EXPECT_EQ(session.display[0].autoScaleY, 1);
  SetCtrlIndex(sasw::TRACE_ONOFF, 0);
  Commit(sasw::TRACE_ONOFF);
  EXPECT_EQ(GetCtrlVal(sasw::AUTOSCALE_Y), 1);
}

TEST_F(TraceSelectionTest, AnEmptyDatabaseDrawsNothing) {
  EmptyProjectLists();
  EXPECT_EQ(DoPlotting(1), -1);
  EXPECT_EQ(DoPlotting(0), -1);
  EXPECT_TRUE(GraphOf(sasw::DISPLAY_A).plots.empty());
}

}  // namespace
}  // namespace sondera
