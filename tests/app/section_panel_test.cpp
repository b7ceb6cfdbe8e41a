// The panel of the section: lists, ranges, drawing, the grid that is kept, halts, stations, and what another project does
// to it.
#include "panels/tmgrafpnl.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "panels/mainmenu_project.h"
#include "panels/panels_state.h"
#include "panels/section_stations.h"
#include "panels/tmgrafpnl_draw.h"
#include "records/session.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/tmgrafpnl.h"
#include "runtime/findings.h"
#include "runtime/graphs.h"
#include "support/app_fixture.h"
#include "support/section_lines.h"
#include "support/section_records.h"

namespace sondera::testing {
namespace {

using namespace tmgrafpnl;
using test::MakeLine;
using test::PutStations;
using test::SmoothVelocity;

constexpr int kImage = 1, kStack = 0;

class SectionPanel : public AppTest {
 protected:
  static SectionState& State() { return panelsState.section; }
  static void Open() { EXPECT_EQ(Commit(mainmenu::DRAW_TOMO_GRAF), 0); }
  static void OpenLine(int stations = 9, int points = 25, bool logSpaced = true) {
    PutStations(MakeLine(stations, points, logSpaced, SmoothVelocity));
    Open();
  }
  static void ChooseType(int type) {
    SetCtrlVal(TOMOGRAFTYPE, type);
    Commit(TOMOGRAFTYPE);
  }
  static void Select(const ListControl& list, int index) {
    SetCtrlIndex(list, index);
    SendEvent(list, Event::ValChanged);
  }
  void SaveAs(const std::string& name) {
    frontEnd.fileAnswers = {{FileAnswer::IsNew, folder.File(name)}};
    ASSERT_EQ(Commit(measpanel::F7), 0);
  }
  void OpenFile(const std::string& name) {
    frontEnd.fileAnswers = {{FileAnswer::Exists, folder.File(name)}};
    ASSERT_EQ(Commit(mainmenu::LOAD_RAW_DATA), 0);
  }
};

// ---- ranges and settings --------------------------------------------------------------------------------

TEST_F(SectionPanel, RangesAreThoseOfTheLineAndTheWavelengthOnlyWidens) {
  OpenLine();
  EXPECT_TRUE(IsPanelShown(Panel::TMGRAFPNL));
  EXPECT_FALSE(IsPanelShown(Panel::DISPCURV)) << "the pages are hidden";
  EXPECT_EQ(GetCtrlVal(DMIN), 0.0);
  EXPECT_EQ(GetCtrlVal(DMAX), 40.0);
  EXPECT_DOUBLE_EQ(GetCtrlVal(WLMIN), 1.0);
  EXPECT_DOUBLE_EQ(GetCtrlVal(WLMAX), 30.0);
  double low = 1e9, high = 0.0;
  for (const SectionStation& s : SectionStations()) {
    low = std::min(low, *std::min_element(s.vel.begin(), s.vel.end()));
    high = std::max(high, *std::max_element(s.vel.begin(), s.vel.end()));
  }
  EXPECT_EQ(GetCtrlVal(LOCOLORVAL), low);
  EXPECT_EQ(GetCtrlVal(HICOLORVAL), high);
  EXPECT_EQ(GetCtrlVal(NX), 20);
  EXPECT_EQ(GetCtrlVal(NY), 10);

  for (const int index : {8, 0}) {
    Select(LIST_INCLUDED, index);
    EXPECT_EQ(Commit(EXCLUDE), 0);
  }
  MeasDB.gDispList.at(2)->wlen[1] = 2.0;
  Open();
  EXPECT_EQ(GetCtrlVal(DMIN), 5.0);
  EXPECT_EQ(GetCtrlVal(DMAX), 35.0);
  EXPECT_DOUBLE_EQ(GetCtrlVal(WLMIN), 1.0);
  EXPECT_DOUBLE_EQ(GetCtrlVal(WLMAX), 30.0);
}

TEST_F(SectionPanel, ATypedWavelengthRangeIsTakenAndWidenedAtTheNextShow) {
  OpenLine();
  SetCtrlVal(WLMIN, 5.0);
  SetCtrlVal(WLMAX, 50.0);
  EXPECT_EQ(Commit(UPDATE), 0);
  EXPECT_EQ(State().limits.tmgWlMin, 5.0);
  Open();
  EXPECT_DOUBLE_EQ(GetCtrlVal(WLMIN), 1.0);
  EXPECT_EQ(GetCtrlVal(WLMAX), 50.0);
}

TEST_F(SectionPanel, WithoutACurveTheStartValuesStandAndOneLineSaysSo) {
  Open();
  EXPECT_TRUE(IsPanelShown(Panel::TMGRAFPNL));
  EXPECT_EQ(GetCtrlVal(DMIN), 100000.0);
  EXPECT_EQ(GetCtrlVal(DMAX), 0.0);
  EXPECT_EQ(GetCtrlVal(WLMIN), 100000.0);
  EXPECT_EQ(GetCtrlVal(MESSAGE), "No curve is included.");
  EXPECT_EQ(Commit(DRAWTOMOGRAF), -1);
  EXPECT_TRUE(State().grid.Empty());
  EXPECT_TRUE(GraphOf(TOMOGRAF).plots.empty());
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(SectionPanel, IntervalsOf0BecomeTheDefaultsAndOthersOutOfRangeAreRefusedWithOneMessage) {
  OpenLine();
  SetCtrlVal(NX, 0);
  SetCtrlVal(NY, 0);
  EXPECT_EQ(Commit(UPDATE), 0);
  EXPECT_EQ(GetCtrlVal(NX), 20);
  EXPECT_EQ(GetCtrlVal(NY), 10);
  EXPECT_TRUE(frontEnd.messages.empty());
  for (const int bad : {501, -1}) {
    frontEnd.messages.clear();
    SetCtrlVal(NX, bad);
    EXPECT_EQ(Commit(DRAWTOMOGRAF), -1);
    EXPECT_EQ(frontEnd.messages.size(), 1u) << bad;
    EXPECT_EQ(GetCtrlVal(NX), 20);
    EXPECT_TRUE(State().grid.Empty());
  }
  SetCtrlVal(NX, 1);
  SetCtrlVal(NY, 1);
  EXPECT_EQ(Commit(DRAWTOMOGRAF), 0);
  EXPECT_EQ(State().grid.value.size(), 4u);
}

TEST_F(SectionPanel, ARangeTheWrongWayRoundIsRefusedWithOneMessageAndTheImageStays) {
  OpenLine();
  EXPECT_EQ(Commit(DRAWTOMOGRAF), 0);
  SetCtrlVal(DMIN, 50.0);
  EXPECT_EQ(Commit(DRAWTOMOGRAF), -1);
  EXPECT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_EQ(State().grid.value.size(), 231u);
  EXPECT_TRUE(GraphOf(TOMOGRAF).intensity);
}

TEST_F(SectionPanel, SettingsAreNotTakenBeforeThereAreRanges) {
  PutStations(MakeLine(9, 25, true, SmoothVelocity));
  EXPECT_EQ(Commit(UPDATE), -1);
  EXPECT_EQ(Commit(DRAWTOMOGRAF), -1);
  EXPECT_EQ(frontEnd.messages.size(), 2u);
  Open();
  EXPECT_DOUBLE_EQ(GetCtrlVal(WLMIN), 1.0) << "0 would stand for ever";
}

TEST_F(SectionPanel, UpdateTakesTheColoursAndDrawsNothing) {
  OpenLine();
  const int revision = GraphOf(TOMOGRAF).revision;
  SetCtrlVal(LOCOLORVAL, 100.0);
  SetCtrlVal(HICOLORVAL, 400.0);
  SetCtrlVal(INT1COLOR, 0x00FF00);
  EXPECT_EQ(Commit(UPDATE), 0);
  EXPECT_EQ(GetCtrlVal(INT1COLORVAL), "200.0");
  EXPECT_EQ(GetCtrlVal(INT2COLORVAL), "300.0");
  EXPECT_EQ(session.tomoColor.int1, 0x00FF00);
  EXPECT_EQ(session.gaborColor.int1, 0xFF) << "the Gabor maps have their own";
  EXPECT_EQ(GraphOf(TOMOGRAF).revision, revision);
  const auto& strip = GraphOf(COLORSCALE).intensity;
  ASSERT_TRUE(strip);
  EXPECT_EQ(strip->rows, 4);
  EXPECT_EQ(strip->colorMap[1].color, 0x00FF00);
}

TEST_F(SectionPanel, TheEndsOfTheColoursFollowTheDataUnlessTheyAreKept) {
  OpenLine();
  const double low = GetCtrlVal(LOCOLORVAL);
  SetCtrlVal(LOCOLORVAL, 100.0);
  Commit(UPDATE);
  Open();
  EXPECT_EQ(GetCtrlVal(LOCOLORVAL), low);
  SetCtrlVal(LOCOLORVAL, 100.0);
  SetCtrlVal(KEEPCOLORS, 1);
  Commit(DRAWTOMOGRAF);
  Open();
  EXPECT_EQ(GetCtrlVal(LOCOLORVAL), 100.0);
  EXPECT_EQ(GraphOf(TOMOGRAF).intensity->colorMap.front().level, 100.0);
}

// ---- drawing --------------------------------------------------------------------------------------------

TEST_F(SectionPanel, DrawMakesTheImageAndSaysWhichNodesAreEmpty) {
  OpenLine();
  EXPECT_EQ(GetCtrlVal(TOMOGRAFTYPE), kStack);
  EXPECT_EQ(Commit(DRAWTOMOGRAF), 0);
  EXPECT_EQ(GetCtrlVal(TOMOGRAFTYPE), kImage);
  EXPECT_NE(GetCtrlVal(MESSAGE).find("94 of 231 nodes have no value."), std::string::npos)
      << GetCtrlVal(MESSAGE);
  EXPECT_EQ(GraphOf(TOMOGRAF).note, GetCtrlVal(MESSAGE));
  EXPECT_TRUE(GraphOf(TOMOGRAF).yAxis.reversed);
  EXPECT_EQ(GraphOf(TOMOGRAF).yAxis.label, "Wavelength");
  SetCtrlVal(FILL, 1);
  EXPECT_EQ(Commit(DRAWTOMOGRAF), 0);
  EXPECT_EQ(State().grid.nEmpty, 0);
  EXPECT_EQ(GetCtrlVal(MESSAGE).find("no value"), std::string::npos);
}

TEST_F(SectionPanel, ATypeSwitchReusesTheGridAndDrawRenewsIt) {
  OpenLine();
  ChooseType(kImage);
  EXPECT_EQ(State().gridsMade, 1) << "there was none";
  const std::vector<double> values = State().grid.value;
  ChooseType(kStack);
  EXPECT_FALSE(GraphOf(TOMOGRAF).intensity);
  Select(LIST_INCLUDED, 4);
  Commit(EXCLUDE);
  ChooseType(kImage);
  EXPECT_EQ(State().gridsMade, 1);
  EXPECT_EQ(State().grid.value.size(), values.size());
  EXPECT_TRUE(GetCtrlVal(MESSAGE).starts_with("The image is older than the settings: press Draw."))
      << GetCtrlVal(MESSAGE);
  EXPECT_EQ(Commit(DRAWTOMOGRAF), 0);
  EXPECT_EQ(State().gridsMade, 2);
  EXPECT_EQ(GetCtrlVal(MESSAGE).find("older"), std::string::npos);
  SetCtrlVal(NX, 7);
  Commit(UPDATE);
  ChooseType(kImage);
  EXPECT_TRUE(GetCtrlVal(MESSAGE).starts_with("The image is older")) << GetCtrlVal(MESSAGE);
}

TEST_F(SectionPanel, AnotherProjectDropsGridRangesAndLists) {
  OpenLine();
  SaveAs("line.da");
  for (const bool load : {true, false}) {
    Open();
    SetCtrlVal(WLMAX, 99.0);
    EXPECT_EQ(Commit(DRAWTOMOGRAF), 0);
    EXPECT_FALSE(State().grid.Empty());
    if (load) {
      OpenFile("line.da");
      EXPECT_DOUBLE_EQ(GetCtrlVal(WLMAX), 30.0) << "the panel is shown, so it has the new line";
    } else {
      frontEnd.confirmAnswers = {true, true};
      Commit(mainmenu::NEW_MEASUREMENT);
      EXPECT_EQ(GetNumListItems(LIST_INCLUDED), 0);
      EXPECT_EQ(State().limits.tmgWlMax, 0.0);
    }
    EXPECT_TRUE(State().grid.Empty());
    EXPECT_FALSE(GraphOf(TOMOGRAF).intensity);
  }
}

TEST_F(SectionPanel, TheStackMovesCurvesByAShareOfTheLineAndTakesItsRange) {
  OpenLine();
  const GraphModel& graph = GraphOf(TOMOGRAF);
  ASSERT_EQ(graph.plots.size(), 18u);
  EXPECT_EQ(graph.plots[0].color, 0xC0C0C0);
  EXPECT_EQ(graph.plots[0].x.size(), 4u);
  EXPECT_EQ(graph.plots[1].color, 0xFF);
  double largest = 0.0;
  for (std::size_t k = 0; k < 9; ++k)
    for (const double x : graph.plots[2 * k + 1].x)
      largest = std::max(largest, x - SectionStations()[k].location);
  EXPECT_NEAR(largest, 6.0, 1e-9);
  SetCtrlVal(DMIN, -10.0);
  Commit(UPDATE);
  ChooseType(kStack);
  EXPECT_EQ(GetCtrlVal(DMIN), 0.0) << "kept: the locations replace a typed range";
  EXPECT_EQ(State().limits.tmgDMin, 0.0);
}

TEST_F(SectionPanel, TwoStationsAtOnePlaceAreNamedAndTheProgramGoesOn) {
  auto line = MakeLine(5, 12, false, SmoothVelocity);
  line[2].location = line[1].location;
  PutStations(line);
  Open();
  ClearFindings();
  EXPECT_EQ(Commit(DRAWTOMOGRAF), 0);
  EXPECT_NE(GetCtrlVal(MESSAGE).find("S2"), std::string::npos) << GetCtrlVal(MESSAGE);
  EXPECT_NE(GetCtrlVal(MESSAGE).find("S3"), std::string::npos);
  EXPECT_GT(State().grid.nEmpty, 0);
  EXPECT_GE(DoubtCount(), 1);
  EXPECT_TRUE(frontEnd.messages.empty());
  EXPECT_EQ(Commit(DRAWTOMOGRAF), 0);
}

TEST_F(SectionPanel, AClickReadsDistanceWavelengthAndVelocity) {
  PutStations(MakeLine(9, 50, false, [](double, double) { return 217.5; }));
  Open();
  Commit(DRAWTOMOGRAF);
  SendGraphEvent(TOMOGRAF, Event::Commit, {.x = 12.3, .y = 8.0});
  EXPECT_EQ(GetCtrlVal(COORD), "distance 12.30 m, wavelength 8.00 m, velocity 217.50 m/s");
  SetCtrlVal(VERTICALAXIS, 2);
  Commit(VERTICALAXIS);
  EXPECT_EQ(GraphOf(TOMOGRAF).yAxis.label, "Pseudo-depth = wavelength / 2");
  EXPECT_DOUBLE_EQ(GraphOf(TOMOGRAF).intensity->yMax, 15.0);
  SendGraphEvent(TOMOGRAF, Event::Commit, {.x = 12.3, .y = 8.0});
  EXPECT_EQ(GetCtrlVal(COORD), "distance 12.30 m, wavelength 16.00 m, velocity 217.50 m/s");
  SendGraphEvent(TOMOGRAF, Event::Commit, {.x = -5.0, .y = 8.0});
  EXPECT_EQ(GetCtrlVal(COORD), "distance -5.00 m, wavelength 16.00 m, no value");
}

// ---- halt -----------------------------------------------------------------------------------------------

TEST_F(SectionPanel, AHaltKeepsTheFormerGridAndOnlyHaltAnswersMeanwhile) {
  OpenLine();
  Commit(DRAWTOMOGRAF);
  const std::vector<double> values = State().grid.value;
  const int made = State().gridsMade, revision = GraphOf(TOMOGRAF).revision;
  int polls = 0, refused = 0;
  frontEnd.onProcessEvents = [&] {
    ++polls;
    refused = Commit(DRAWTOMOGRAF);
    Commit(HALT);
  };
  SetCtrlVal(NX, 500);
  SetCtrlVal(NY, 500);
  EXPECT_EQ(Commit(DRAWTOMOGRAF), -1);
  frontEnd.onProcessEvents = nullptr;
  EXPECT_EQ(polls, 1) << "it ends at the poll in which it is halted";
  EXPECT_EQ(refused, -1);
  EXPECT_EQ(State().grid.value.size(), values.size());
  EXPECT_EQ(State().gridsMade, made);
  EXPECT_EQ(GraphOf(TOMOGRAF).revision, revision);
  EXPECT_EQ(GetCtrlVal(MESSAGE), "Halted; the former image stays.");
  SetCtrlVal(NX, 20);
  SetCtrlVal(NY, 10);
  EXPECT_EQ(Commit(DRAWTOMOGRAF), 0) << "a halt is not remembered";
}

// ---- lists ----------------------------------------------------------------------------------------------

TEST_F(SectionPanel, IncludeAndExcludeMoveTheLabelAndSetValid) {
  OpenLine();
  EXPECT_EQ(GetNumListItems(LIST_INCLUDED), 9);
  EXPECT_EQ(Commit(INCLUDE), -1) << "an empty list";
  Select(LIST_INCLUDED, 3);
  const int revision = GraphOf(TOMOGRAF).revision;
  EXPECT_EQ(Commit(EXCLUDE), 0);
  EXPECT_EQ(MeasDB.gDispList.at(4)->valid, 0);
  EXPECT_EQ(GetNumListItems(LIST_INCLUDED), 8);
  EXPECT_EQ(GetLabelFromIndex(LIST_EXCLUDED, 0), "S4");
  EXPECT_EQ(GraphOf(TOMOGRAF).revision, revision) << "without a redraw";
  Select(LIST_EXCLUDED, 0);
  EXPECT_EQ(SendEvent(LIST_EXCLUDED, Event::LeftDoubleClick), 0);
  EXPECT_EQ(MeasDB.gDispList.at(4)->valid, 1);
  EXPECT_EQ(GetLabelFromIndex(LIST_INCLUDED, 8), "S4");
  Select(LIST_INCLUDED, 8);
  EXPECT_EQ(SendEvent(LIST_INCLUDED, Event::LeftDoubleClick), 0);
  EXPECT_EQ(MeasDB.gDispList.at(4)->valid, 0);
}

TEST_F(SectionPanel, EveryCurveCanBeExcludedThoughTheProjectHasNoPair) {
  OpenLine();
  FreePMeasInfoList();
  while (GetNumListItems(LIST_INCLUDED) > 0) {
    Select(LIST_INCLUDED, GetNumListItems(LIST_INCLUDED) - 1);
    ASSERT_EQ(Commit(EXCLUDE), 0);
  }
  for (const DispInfo& curve : MeasDB.gDispList) EXPECT_EQ(curve.valid, 0);
}

TEST_F(SectionPanel, CurvesOfOneLabelAreToldApartByTheirPlaceInTheList) {
  auto line = MakeLine(3, 10, false, SmoothVelocity);
  for (SectionStation& s : line) s.label = "Site";
  PutStations(line);
  Open();
  Select(LIST_INCLUDED, 1);
  EXPECT_EQ(GetCtrlVal(SRCPOS), 20.0);
  Commit(EXCLUDE);
  EXPECT_EQ(MeasDB.gDispList.at(1)->valid, 1);
  EXPECT_EQ(MeasDB.gDispList.at(2)->valid, 0);
  // The list is older than the records: the first that fits.
  MeasDB.gDispList.remove(2);
  Select(LIST_INCLUDED, 1);
  EXPECT_EQ(SelectedStation(LIST_INCLUDED), MeasDB.gDispList.at(1));
}

TEST_F(SectionPanel, ALocationIsShownStoredAndSavedBitByBit) {
  OpenLine();
  Select(LIST_INCLUDED, 2);
  EXPECT_EQ(GetCtrlVal(SRCPOS), 10.0);
  SetCtrlVal(SRCPOS, 0.1 + 0.2);
  EXPECT_EQ(Commit(SRCPOS), 0);
  EXPECT_EQ(MeasDB.gDispList.at(3)->wlenMax, 0.1 + 0.2);
  EXPECT_EQ(GetCtrlIndex(LIST_INCLUDED), 2);
  Select(LIST_INCLUDED, 8);
  SetCtrlVal(SRCPOS, 55.0);
  Commit(SRCPOS);
  EXPECT_EQ(GetCtrlVal(DMAX), 55.0) << "the range follows";
  Select(LIST_INCLUDED, 0);
  Commit(EXCLUDE);
  EXPECT_TRUE(ProjectDiffersFromSaved());
  SaveAs("a.da");
  const std::string first = test::ReadWhole(folder.File("a.da"));
  OpenFile("a.da");
  EXPECT_EQ(MeasDB.gDispList.at(3)->wlenMax, 0.1 + 0.2);
  EXPECT_EQ(MeasDB.gDispList.at(1)->valid, 0);
  SaveAs("b.da");
  EXPECT_EQ(test::ReadWhole(folder.File("b.da")), first);
}

TEST_F(SectionPanel, ALocationWithoutASelectedCurveGoesNowhere) {
  OpenLine();
  while (GetNumListItems(LIST_INCLUDED) > 0) {
    Select(LIST_INCLUDED, 0);
    Commit(EXCLUDE);
  }
  SetCtrlVal(SRCPOS, 3.0);
  EXPECT_EQ(Commit(SRCPOS), -1);
}

TEST_F(SectionPanel, TheButtonOfTheDispersionPageOpensItTooAndCloseHidesIt) {
  PutStations(MakeLine(9, 25, true, SmoothVelocity));
  EXPECT_EQ(Commit(dispcurv::TOMOGRAF), 0);
  EXPECT_TRUE(IsPanelShown(Panel::TMGRAFPNL));
  EXPECT_EQ(Commit(CLOSE), 0);
  EXPECT_FALSE(IsPanelShown(Panel::TMGRAFPNL));
  EXPECT_EQ(TMGrafDefaultCallback(Panel::TMGRAFPNL, nullptr, Event::Commit, 0), 0);
}

// ---- hostile records --------------------------------------------------------------------------------------

TEST_F(SectionPanel, AHostileLineEndsInOneMessageAndNothingHangs) {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  const auto nan = std::nan("");
  auto line = MakeLine(4, 6, false, SmoothVelocity);
  line[0].location = kInf;
  line[1].location = nan;
  line[2].location = 1e308;
  line[3].location = -1e308;
  line[2].wlen = {1e308, kInf, nan, -1.0, 0.0, 5.0};
  line.push_back({"empty", 3.0, {}, {}, true});
  PutStations(line);
  SaveAs("hostile.da");
  frontEnd.fileAnswers = {{FileAnswer::Exists, folder.File("hostile.da")}};
  Commit(mainmenu::LOAD_RAW_DATA);
  frontEnd.messages.clear();
  Open();
  EXPECT_TRUE(frontEnd.messages.empty());
  EXPECT_EQ(Commit(DRAWTOMOGRAF), -1);
  ASSERT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_NE(frontEnd.messages[0].find("too large"), std::string::npos) << frontEnd.messages[0];
  SetCtrlVal(DMIN, 0.0);
  SetCtrlVal(DMAX, 10.0);
  SetCtrlVal(WLMAX, 20.0);
  frontEnd.messages.clear();
  Commit(DRAWTOMOGRAF);
  EXPECT_LE(frontEnd.messages.size(), 1u);
}

}  // namespace
}  // namespace sondera::testing
