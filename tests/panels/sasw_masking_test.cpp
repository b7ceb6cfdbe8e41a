// Masks on the page: picking one by a click, the guard of the buttons, fields and markers, the drawing.
#include "panels/sasw_masking.h"

#include <algorithm>
#include <random>

#include "runtime/catalogue/measpanel.h"
#include "support/masking_fixture.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using PickUpMaskingTest = Masks;
using MaskingCallbacks = Masks;
using MarkersTest = Masks;
using DoPlotMaskingTest = Masks;

// ---- picking ----------------------------------------------------------------------------------------------

TEST_F(PickUpMaskingTest, TakesTheFirstMaskOfThePairThatHoldsTheFrequency) {
  EXPECT_EQ(PickUpMasking(15.0), -1) << "there are no masks";
  AddMask(m.key, 0, 1, 1.0, 100.0, 9);
  EXPECT_EQ(PickUpMasking(15.0), 1);
  AddOwnMask(10.0, 20.0, 1);
  AddOwnMask(15.0, 40.0, 2);
  EXPECT_EQ(PickUpMasking(15.0), 0);
  EXPECT_EQ(session.selMask.jumpNo, 1);
  EXPECT_EQ(PickUpMasking(20.0), 0) << "ends belong to the mask";
  EXPECT_EQ(session.selMask.jumpNo, 1);
  EXPECT_EQ(PickUpMasking(20.5), 0);
  EXPECT_EQ(session.selMask.jumpNo, 2);
  EXPECT_EQ(session.selMask.key, m.key);
  EXPECT_EQ(session.selMask.refChan, 0);
  EXPECT_EQ(session.selMask.dspChan, 2);
}

TEST_F(PickUpMaskingTest, ClickOutsideAnyMaskChangesNothing) {
  AddOwnMask(10.0, 20.0, 1);
  ASSERT_EQ(PickMaskOnGraph(15.0), 0);
  const auto fields = Fields();
  const int revision = GraphOf(sasw::DISPLAY_A).revision;
  for (double freq : {9.99, 20.01, -5.0, std::nan("")}) EXPECT_EQ(PickMaskOnGraph(freq), 1) << freq;
  EXPECT_EQ(Fields(), fields);
  EXPECT_EQ(session.selMask.freqInit, 10.0);
  EXPECT_EQ(GraphOf(sasw::DISPLAY_A).revision, revision);
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

TEST_F(PickUpMaskingTest, ClickShowsTheMaskAndPutsMarkersOnItsLines) {
  AddOwnMask(10.3, 20.9, 4);
  DrawCurve(sasw::DISPLAY_A, 0.0, 0.5, 100, 2.0, "Original");
  DrawCurve(sasw::DISPLAY_A, 0.0, 0.5, 100, -3.0, "Enhanced");
  ASSERT_EQ(PickMaskOnGraph(15.0), 0);
  EXPECT_THAT(Fields(), ElementsAre(10.3, 20.9, 4.0));
  EXPECT_EQ(GetCtrlVal(sasw::MARKERS_ONOFF), 2);
  EXPECT_EQ(session.display[0].markersOnOff, 2);
  ASSERT_EQ(GraphOf(sasw::DISPLAY_A).cursors.size(), 2u);
  const CursorModel one = GetGraphCursor(sasw::DISPLAY_A, 1), two = GetGraphCursor(sasw::DISPLAY_A, 2);
  EXPECT_EQ(one.x, 10.0);
  EXPECT_EQ(one.y, -30.0) << "on the curve of the phase in use";
  EXPECT_EQ(one.color, 0xFF00FF);
  EXPECT_EQ(two.x, 20.5);
  EXPECT_EQ(two.y, -61.5);
  EXPECT_EQ(two.color, 0xFF0000);
}

TEST_F(PickUpMaskingTest, MarkersBeyondTheCurveStayOnItsEnds) {
  AddOwnMask(1.0, 400.0, 4);
  DrawCurve(sasw::DISPLAY_A, 5.0, 0.5, 100, 2.0, "Enhanced");
  ASSERT_EQ(PickMaskOnGraph(15.0), 0);
  EXPECT_EQ(GetGraphCursor(sasw::DISPLAY_A, 1).x, 5.0);
  EXPECT_EQ(GetGraphCursor(sasw::DISPLAY_A, 2).x, 54.5);
}

TEST_F(PickUpMaskingTest, RandomListsGiveTheFirstHolder) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> freq(0.0, 100.0);
  for (int round = 0; round < 100; ++round) {
    FreeMaskingInfoList();
    for (int k = 0; k < 6; ++k) {
      const double lo = freq(random);
      AddMask(m.key, k % 2, 2, lo, lo + freq(random) / 4, k);
    }
    const double f = freq(random);
    const auto masks = MaskList();
    const auto holder = std::find_if(masks.begin(), masks.end(), [&](const PlainMask& p) {
      return p.refChan == 0 && !(f < p.freqInit) && !(f > p.freqFinal);
    });
    int jumpNo = -9;
    double lo = -9, hi = -9;
    const int found = GetMaskInform(m.key, 0, 2, f, jumpNo, lo, hi);
    ASSERT_EQ(found, holder == masks.end() ? 1 : 0);
    EXPECT_EQ(jumpNo, found ? -9 : holder->jumpNo);
    EXPECT_EQ(lo, found ? -9 : holder->freqInit);
    EXPECT_EQ(hi, found ? -9 : holder->freqFinal);
  }
}

// ---- guard, fields, markers -------------------------------------------------------------------------------

TEST_F(MaskingCallbacks, WindowBIsRefusedByEachButton) {
  AddOwnMask(10.0, 20.0, 1);
  ASSERT_EQ(PickUpMasking(15.0), 0);
  const auto before = MaskList();
  for (Panel page : {Panel::SASW, Panel::MEASPANEL}) {
    SetCtrlVal(sasw::TRACE_ONOFF, page == Panel::SASW ? 1 : 0);
    SetCtrlVal(measpanel::TRACE_ONOFF, page == Panel::SASW ? 0 : 1);
    for (Callback button : {MaskingNewCallback, MaskingUpdateCallback, MaskingDeleteCallback,
                            MaskingResetCallback, MaskingListCallback}) {
      frontEnd.messages.clear();
      SetFields(30.0, 40.0, 1);
      EXPECT_EQ(button(page, &sasw::MASKINGNEW, Event::Commit, 0), -1);
      EXPECT_EQ(OnlyMessage(), "Masking is enabled only on Window A.");
      EXPECT_EQ(frontEnd.messageTitles.back(), session.appTitle);
      EXPECT_THAT(Fields(), ElementsAre(30.0, 40.0, 1.0));
    }
  }
  EXPECT_EQ(MaskList(), before);
  EXPECT_THAT(redrawn, IsEmpty());
}

TEST_F(MaskingCallbacks, BothWindowsCountAsWindowA) {
  SetCtrlVal(sasw::TRACE_ONOFF, 2);
  SetCtrlVal(sasw::DISPBMARKER1COORD, "1, 2");
  EXPECT_EQ(Press(sasw::MASKINGNEW, 30.0, 40.0, 1), 0);
  EXPECT_EQ(MaskList()[0].dspChan, 2) << "the pair of trace A";
  EXPECT_EQ(GetCtrlVal(sasw::DISPBMARKER1COORD), "") << "the markers of both go";
}

TEST_F(MaskingCallbacks, OnlyTheCommitEventActs) {
  AddOwnMask(10.0, 20.0, 1);
  ASSERT_EQ(PickUpMasking(15.0), 0);
  const auto before = MaskList();
  for (Event e : {Event::ValChanged, Event::LeftClick, Event::GotFocus, Event::RightClick}) {
    SetFields(30.0, 40.0, 1);
    for (const Control* c :
         std::vector<const Control*>{&sasw::MASKINGNEW, &sasw::MASKINGUPDATE, &sasw::MASKINGDEL,
                                     &sasw::MASKINGRESET, &sasw::MASKINGSHOW})
      EXPECT_EQ(SendEvent(*c, e), 0);
  }
  EXPECT_EQ(MaskList(), before);
}

TEST_F(MaskingCallbacks, ListButtonHasTheGuardAndNothingElse) {
  EXPECT_EQ(MaskingListCallback(Panel::SASW, &sasw::MASKINGLIST, Event::Commit, 0), 0);
  EXPECT_THAT(redrawn, IsEmpty());
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

TEST_F(MaskingCallbacks, SwitchTurnsOnTheSelectedWindows) {
  session.display[0].maskingOn = session.display[1].maskingOn = 0;
  EXPECT_EQ(Commit(sasw::MASKINGSHOW), -1) << "no pair record";
  EXPECT_EQ(session.display[0].maskingOn, 0);
  EXPECT_THAT(redrawn, IsEmpty());
  PMeasInfo* pair = MeasDB.pMeasList.append();
  pair->key = m.key;
  pair->dspChan = 2;
  EXPECT_EQ(Commit(sasw::MASKINGSHOW), 0);
  EXPECT_EQ(session.display[0].maskingOn, 1);
  EXPECT_EQ(session.display[1].maskingOn, 0);
  EXPECT_THAT(redrawn, ElementsAre(1));
  SetCtrlVal(sasw::TRACE_ONOFF, 2);
  EXPECT_EQ(Commit(sasw::MASKINGSHOW), 0);
  EXPECT_EQ(session.display[1].maskingOn, 1);
}

TEST_F(MaskingCallbacks, FieldsMoveTheMarkersWhileTwoAreOn) {
  DrawCurve(sasw::DISPLAY_A, 5.0, 0.75, 100, 2.0, "Enhanced");
  SetCtrlVal(sasw::MASKING_FREQINIT, 17.9);
  SetCtrlVal(sasw::MASKING_FREQFINAL, 28.9);
  EXPECT_EQ(Commit(sasw::MASKING_FREQINIT), 0);
  EXPECT_EQ(GraphOf(sasw::DISPLAY_A).cursors.size(), 0u) << "markers are off";
  TurnOnDualMarkers(0);
  EXPECT_EQ(Commit(sasw::MASKING_FREQINIT), 0);
  EXPECT_EQ(Commit(sasw::MASKING_FREQFINAL), 0);
  EXPECT_EQ(Commit(sasw::MASKING_JUMPNO), 0);
  const CursorModel one = GetGraphCursor(sasw::DISPLAY_A, 1), two = GetGraphCursor(sasw::DISPLAY_A, 2);
  EXPECT_EQ(one.x, 17.9);
  EXPECT_DOUBLE_EQ(one.y, 2.0 * (5.0 + 16 * 0.75)) << "line int(int(17.9 - 5) / 0.75)";
  EXPECT_EQ(two.x, 28.9);
  EXPECT_DOUBLE_EQ(two.y, 2.0 * (5.0 + 37 * 0.75)) << "line int(int(28.9) / 0.75), without the origin";
  SetCtrlVal(sasw::MASKING_FREQINIT, 4000.0);
  EXPECT_EQ(Commit(sasw::MASKING_FREQINIT), 0);
  EXPECT_EQ(GetGraphCursor(sasw::DISPLAY_A, 1).x, 17.9) << "no such line: the marker stays";
}

TEST_F(MaskingCallbacks, FinalFieldIsPulledBackToTheGraph) {
  DrawCurve(sasw::DISPLAY_A, 0.0, 0.5, 101, 2.0, "Enhanced");
  TurnOnDualMarkers(0);
  SetCtrlVal(sasw::MASKING_FREQFINAL, 51.0);
  EXPECT_EQ(Commit(sasw::MASKING_FREQFINAL), 0);
  EXPECT_EQ(GetCtrlVal(sasw::MASKING_FREQFINAL), 50.0);
  EXPECT_EQ(GetGraphCursor(sasw::DISPLAY_A, 2).x, 50.0);
}

TEST_F(MaskingCallbacks, WithBothWindowsTheFinalFieldReadsTheOrdinatesOfB) {
  DrawCurve(sasw::DISPLAY_A, 0.0, 0.5, 101, 2.0, "Enhanced");
  DrawCurve(sasw::DISPLAY_B, 0.0, 0.25, 101, -8.0, "Enhanced");
  SetCtrlVal(sasw::TRACE_ONOFF, 2);
  TurnOnDualMarkers(2);
  SetCtrlVal(sasw::MASKING_FREQINIT, 7.0);
  SetCtrlVal(sasw::MASKING_FREQFINAL, 20.0);
  EXPECT_EQ(Commit(sasw::MASKING_FREQINIT), 0);
  EXPECT_EQ(GetGraphCursor(sasw::DISPLAY_A, 1).y, 14.0);
  EXPECT_EQ(GetGraphCursor(sasw::DISPLAY_B, 1).y, -56.0) << "each window by its own curve";
  SetCtrlVal(sasw::TRACE_ONOFF, 2);
  EXPECT_EQ(Commit(sasw::MASKING_FREQFINAL), 0);
  EXPECT_EQ(GetGraphCursor(sasw::DISPLAY_A, 2).y, -8.0 * 10.0) << "line 40 of B is at 10 Hz";
  EXPECT_EQ(GetGraphCursor(sasw::DISPLAY_B, 2).y, -8.0 * 10.0);
}

TEST_F(MarkersTest, TurningOffBlanksTheReadOutsOfTheWindow) {
  for (int window : {0, 1, 2}) {
    const std::vector<const TextControl*> a{&sasw::DISPAMARKER1COORD, &sasw::DISPAMARKER2COORD,
                                            &sasw::DISPADELTAX};
    const std::vector<const TextControl*> b{&sasw::DISPBMARKER1COORD, &sasw::DISPBMARKER2COORD,
                                            &sasw::DISPBDELTAX};
    for (const auto& group : {a, b})
      for (const TextControl* c : group) SetCtrlVal(*c, "12.5");
    TurnOnDualMarkers(2);
    SetFields(1.0, 2.0, 3);
    TurnOffMarkers(Panel::SASW, window);
    for (const TextControl* c : a) EXPECT_EQ(GetCtrlVal(*c), window == 1 ? "12.5" : "") << window;
    for (const TextControl* c : b) EXPECT_EQ(GetCtrlVal(*c), window == 0 ? "12.5" : "") << window;
    EXPECT_EQ(GraphOf(sasw::DISPLAY_A).cursors.size(), window == 1 ? 2u : 0u);
    EXPECT_EQ(GraphOf(sasw::DISPLAY_B).cursors.size(), window == 0 ? 2u : 0u);
    EXPECT_EQ(session.display[0].markersOnOff, window == 1 ? 2 : 0);
    EXPECT_EQ(session.display[1].markersOnOff, window == 0 ? 2 : 0);
    EXPECT_EQ(GetCtrlVal(sasw::MARKERS_ONOFF), 0);
    EXPECT_THAT(Fields(), ElementsAre(0.0, 0.0, 0.0));
  }
}

TEST_F(DoPlotMaskingTest, DrawsTheMasksOfThePairInTheWindow) {
  AddOwnMask(10.0, 20.0, 1);
  AddMask(m.key, 0, 1, 30.0, 40.0, 2);
  AddOwnMask(50.0, 60.0, 1);
  session.display[0].maskingOn = session.display[1].maskingOn = 0;
  EXPECT_EQ(DoPlotMasking(sasw::DISPLAY_A), 0) << "the switch is off";
  session.display[0].maskingOn = session.display[1].maskingOn = 1;
  EXPECT_EQ(DoPlotMasking(sasw::DISPLAY_A), 2);
  const auto& boxes = GraphOf(sasw::DISPLAY_A).rectangles;
  ASSERT_EQ(boxes.size(), 2u);
  EXPECT_EQ(boxes[1].x1, 50.0);
  EXPECT_EQ(boxes[1].y1, 180.0);
  EXPECT_EQ(boxes[1].x2, 60.0);
  EXPECT_EQ(boxes[1].y2, -180.0);
  EXPECT_EQ(boxes[1].frameColor, 0xFFFF);
  EXPECT_EQ(boxes[1].fillColor, 0xFFFF);
  EXPECT_EQ(DoPlotMasking(sasw::DISPLAY_B), 1) << "trace B shows channels 1 and 2";
  EXPECT_EQ(GraphOf(sasw::DISPLAY_B).rectangles[0].x1, 30.0);
  EXPECT_EQ(DoPlotMasking(measpanel::DISPLAY_A), 2);
  ClearListCtrl(sasw::DISPAID);
  EXPECT_EQ(DoPlotMasking(sasw::DISPLAY_A), 0);
}

}  // namespace
}  // namespace sondera::testing
