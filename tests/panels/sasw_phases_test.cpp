// The check boxes of the phase curves, and the selector of the one that feeds the dispersion.
#include "panels/sasw_phases.h"

#include <vector>

#include "panels/panels_state.h"
#include "panels/sasw_pair.h"
#include "records/session.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/redraw.h"
#include "support/session_fixture.h"

namespace sondera::testing {
namespace {

class PhaseOption : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    RedrawHandlers handlers;
    handlers.doPlotting = [this](int page) {
      pages.push_back(page);
      return 0;
    };
    InstallRedrawHandlers(handlers);
  }
  static void SetBoxes(int original, int enhanced, int backbone) {
    SetCtrlVal(sasw::PHASE_ORIGINAL, original);
    SetCtrlVal(sasw::PHASE_ENHANCED, enhanced);
    SetCtrlVal(sasw::PHASE_BACKBONE, backbone);
  }
  static std::vector<int> Boxes() {
    return {GetCtrlVal(sasw::PHASE_ORIGINAL), GetCtrlVal(sasw::PHASE_ENHANCED),
            GetCtrlVal(sasw::PHASE_BACKBONE)};
  }
  static int Send(Event event) { return PhaseOptionCallback(Panel::SASW, &sasw::PHASE_ORIGINAL, event, 0); }
  std::vector<int> pages;
};

TEST_F(PhaseOption, CurveThatFeedsTheDispersionIsAlwaysDrawn) {
  for (int option : {0, 1, 2}) {
    SetCtrlVal(sasw::DISPCURV_OPTION, option);
    SetBoxes(option != 0, option == 0, 0);
    Send(Event::Commit);
    EXPECT_EQ(Boxes()[static_cast<std::size_t>(option)], 1) << option;
  }
  EXPECT_EQ(pages, (std::vector<int>{1, 1, 1}));
}

TEST_F(PhaseOption, AllOffTurnsOneBackOnAsRememberedAtTheClick) {
  SetCtrlVal(sasw::DISPCURV_OPTION, 2);
  SetBoxes(1, 1, 0);
  Send(Event::LeftClick);
  EXPECT_TRUE(pages.empty());
  SetBoxes(0, 0, 0);
  Send(Event::Commit);
  EXPECT_EQ(Boxes(), (std::vector<int>{1, 0, 1}));  // original came first, and backbone feeds the dispersion
  SetBoxes(0, 1, 1);
  Send(Event::LeftClick);
  SetBoxes(0, 0, 0);
  Send(Event::Commit);
  EXPECT_EQ(Boxes(), (std::vector<int>{0, 1, 1}));
  SetCtrlVal(sasw::DISPCURV_OPTION, 0);
  SetBoxes(0, 0, 1);
  Send(Event::LeftClick);
  SetBoxes(0, 0, 0);
  Send(Event::Commit);
  EXPECT_EQ(Boxes(), (std::vector<int>{1, 0, 1}));
}

TEST_F(PhaseOption, OneBoxOnNeedsNoRepair) {
  SetCtrlVal(sasw::DISPCURV_OPTION, 1);
  SetBoxes(0, 1, 0);
  EXPECT_EQ(Send(Event::Commit), 0);
  EXPECT_EQ(Boxes(), (std::vector<int>{0, 1, 0}));
}

TEST_F(PhaseOption, SelectorNeedsAPair) {
  const TestMeasurement m = AddMeasurement();
  SelectPair(m, 0, 1);
  EXPECT_EQ(DispCurveOptionCallback(Panel::SASW, &sasw::DISPCURV_OPTION, Event::Commit, 0), -1);
  EXPECT_EQ(OnlyMessage(), "Perform IRF first.");
  EXPECT_EQ(frontEnd.messageTitles[0], session.appTitle);
  EXPECT_TRUE(pages.empty());
}

TEST_F(PhaseOption, SelectorStoresTheCurveAndTurnsItsBoxOn) {
  const TestMeasurement m = AddMeasurement();
  SelectPair(m, 0, 1);
  PMeasInfo* pair = nullptr;
  SetupPMeasDataNode(m.projID, m.measID, 0, 1, *m.hw, pair);
  ASSERT_NE(pair, nullptr);
  SetBoxes(1, 0, 0);
  SetCtrlVal(sasw::DISPCURV_OPTION, 2);
  EXPECT_EQ(DispCurveOptionCallback(Panel::SASW, &sasw::DISPCURV_OPTION, Event::ValChanged, 0), 0);
  EXPECT_NE(pair->phaseOption, 2);
  EXPECT_EQ(DispCurveOptionCallback(Panel::SASW, &sasw::DISPCURV_OPTION, Event::Commit, 0), 0);
  EXPECT_EQ(pair->phaseOption, 2);
  EXPECT_EQ(Boxes(), (std::vector<int>{1, 0, 1}));
  EXPECT_EQ(pages, std::vector<int>{1});
  EXPECT_TRUE(frontEnd.messages.empty());
}

}  // namespace
}  // namespace sondera::testing
