// Every menu item and button has a callback, or is dimmed with a reason.
#include "app/callbacks.h"

#include <set>
#include <string>

#include "runtime/catalogue/aboutpnl.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/graphs.h"
#include "support/app_fixture.h"

namespace sondera {
namespace {

using CallbackTable = testing::AppTest;

std::string NameOf(const Control& c) {
  return std::string(PanelName(c.panel)) + "." + std::string(c.name);
}

bool SaysWhyNot(const Control& c) {
  return c.facts.hint.find("not in this version") != std::string_view::npos ||
         c.facts.hint.find("in this version") != std::string_view::npos;
}

TEST_F(CallbackTable, EveryMenuItemHasACallbackOrIsDimmedWithAReason) {
  for (const ControlId item : ControlsOf(Panel::MAINMENU)) {
    EXPECT_FALSE(item->facts.hint.empty()) << item->name;
    EXPECT_TRUE(CallbackOf(*item) || (IsDimmed(*item) && SaysWhyNot(*item))) << item->name;
  }
}

/// Panels that nothing opens.
const std::set<Panel> kNeverShown = {Panel::LOAD2CHNL,  Panel::LOADEXD,    Panel::CHANGEID,
                                     Panel::CHANGEID_1, Panel::CONFIRMPNL, Panel::MESSAGEPNL,
                                     Panel::IRFSETPNL2};

TEST_F(CallbackTable, EveryButtonOfAPanelThatOpensHasACallbackOrIsDimmedWithAReason) {
  for (int p = 0; p < kPanelCount; ++p) {
    const auto panel = static_cast<Panel>(p);
    if (kNeverShown.count(panel)) continue;
    for (const ControlId c : ControlsOf(panel)) {
      if (c->kind != ControlKind::Button) continue;
      EXPECT_TRUE(CallbackOf(*c) || (IsDimmed(*c) && SaysWhyNot(*c))) << NameOf(*c);
    }
  }
}

TEST_F(CallbackTable, EachMenuItemOnAnEmptyProjectSaysAtMostOneThing) {
  frontEnd.confirmAnswers = {true, true};
  Commit(mainmenu::NEW_MEASUREMENT);
  for (const ControlId item : ControlsOf(Panel::MAINMENU)) {
    if (item == &mainmenu::QUIT) continue;
    frontEnd.messages.clear();
    Commit(*item);
    EXPECT_LE(frontEnd.messages.size(), 1u) << item->name << ": " << frontEnd.messages.front();
  }
}

TEST_F(CallbackTable, PrintingIsTheFrontEndsWork) {
  PrintRequest printed;
  FrontEnd windows;
  windows.print = [&](const PrintRequest& request) {
    printed = request;
    return true;
  };
  const FrontEnd former = InstallFrontEnd(windows);
  const struct {
    const MenuControl& item;
    Panel panel;
    std::vector<ControlId> graphs;
  } kItems[] = {
      {mainmenu::PRINT_MEAS_DISP_AB, Panel::MEASPANEL, {&measpanel::DISPLAY_A, &measpanel::DISPLAY_B}},
      {mainmenu::PRINT_DC_PANEL, Panel::DISPCURV, {&dispcurv::DISPGRAPH}},
      {mainmenu::PRINT_DCPRF_PANEL, Panel::EXDTHD, {&exdthd::CURVES, &exdthd::PROFILE}},
      {mainmenu::PRINT_DISP_CURVE, Panel::DISPCURV, {&dispcurv::DISPGRAPH}},
      {mainmenu::PRINT_FM_INV, Panel::EXDTHD, {&exdthd::CURVES}},
      {mainmenu::PRINT_PROF_WIN, Panel::EXDTHD, {&exdthd::PROFILE}}};
  for (const auto& want : kItems) {
    printed = {};
    EXPECT_EQ(Commit(want.item), 0);
    EXPECT_EQ(printed.panel, want.panel);
    EXPECT_EQ(printed.graphs, want.graphs) << want.item.name;
    EXPECT_EQ(printed.title, want.item.label);
  }
  InstallFrontEnd({});
  EXPECT_EQ(Commit(mainmenu::PRINT_FM_INV), -1) << "nobody prints, and nobody names a file";
  EXPECT_EQ(Commit(mainmenu::HELP), -1);
  InstallFrontEnd(former);
}

TEST_F(CallbackTable, WithoutAPrinterAPictureIsSaved) {
  PlotXY(exdthd::CURVES, {1.0, 2.0}, {3.0, 4.0}, PlotStyle::Line, kNoMarker, 0x123456);
  PlotXY(exdthd::PROFILE, {1.0, 2.0}, {3.0, 4.0}, PlotStyle::Line, kNoMarker, 0x654321);
  const auto saved = [&](const MenuControl& item, const std::string& name) {
    OneShotAnswers answers;
    answers.File({FileAnswer::IsNew, folder.File(name)});
    EXPECT_EQ(Commit(item), 0) << item.name;
    return test::ReadWhole(folder.File(name));
  };
  FrontEnd plain = CurrentFrontEnd();
  plain.print = nullptr;
  std::vector<FileKind> kinds;
  plain.selectFile = [&kinds](const FileRequest& request) {
    kinds = request.kinds;
    return FileChoice{};
  };
  const FrontEnd former = InstallFrontEnd(plain);
  const std::string both = saved(mainmenu::PRINT_DCPRF_PANEL, "both.svg");
  EXPECT_NE(both.find("#123456"), std::string::npos);
  EXPECT_NE(both.find("#654321"), std::string::npos);
  const std::string left = saved(mainmenu::PRINT_FM_INV, "left.svg");
  EXPECT_NE(left.find("#123456"), std::string::npos);
  EXPECT_EQ(left.find("#654321"), std::string::npos);
  EXPECT_EQ(saved(mainmenu::PRINT_PROF_WIN, "right.svg").find("#123456"), std::string::npos);
  for (const MenuControl* item :
       {&mainmenu::PRINT_MEAS_DISP_AB, &mainmenu::PRINT_DC_PANEL, &mainmenu::PRINT_DISP_CURVE})
    EXPECT_NE(saved(*item, std::string(item->name) + ".svg").find("</svg>"), std::string::npos);
  EXPECT_EQ(Commit(mainmenu::PRINT_FM_INV), -1) << "cancelled";
  std::string offered;
  for (const FileKind& kind : kinds) offered += kind.filter + " ";
  EXPECT_EQ(offered, "*.pdf *.svg *.png ");
  InstallFrontEnd(former);
}

TEST_F(CallbackTable, AboutShowsVersionAndLicence) {
  EXPECT_EQ(Commit(mainmenu::ABOUT_BOX), 0);
  EXPECT_TRUE(IsPanelShown(Panel::ABOUTPNL));
  const std::string text = GetCtrlVal(aboutpnl::ABOUTTEXT);
  EXPECT_NE(text.find(std::string(kVersion)), std::string::npos);
  EXPECT_NE(text.find("General Public License"), std::string::npos);
  EXPECT_EQ(Commit(aboutpnl::OK), 0);
  EXPECT_FALSE(IsPanelShown(Panel::ABOUTPNL));
}

// ---- pages and tabs ---------------------------------------------------------------------------------------

TEST_F(CallbackTable, ShowingAPageBringsItsTabToTheFrontWithItsWindow) {
  const struct {
    const MenuControl& item;
    Panel tabs;
    int page;
  } kItems[] = {
      {mainmenu::PERFORM_TEST, Panel::PANEL, 0},       {mainmenu::MEAS_MODE, Panel::PANEL, 1},
      {mainmenu::DISPERSION_MODE, Panel::PANEL, 2},    {mainmenu::OPEN_FMODELING_WIN, Panel::PANEL, 3},
      {mainmenu::MEAS_MODE, Panel::PANEL, 1},          {mainmenu::OPEN_INV_ANAL_WIN, Panel::PANEL, 3},
      {mainmenu::SETUP_MEAS_SETUP, Panel::HMSETUP, 1}, {mainmenu::SETUP_HDWARE, Panel::HMSETUP, 0}};
  for (const auto& want : kItems) {
    EXPECT_EQ(Commit(want.item), 0);
    EXPECT_EQ(GetActiveTabPage(want.tabs), want.page) << want.item.name;
    EXPECT_TRUE(IsPanelShown(want.tabs)) << want.item.name;
  }
  HidePanel(Panel::HMSETUP);
  DisplayPanel(Panel::MEASSETUP);
  EXPECT_TRUE(IsPanelShown(Panel::HMSETUP));
}

TEST_F(CallbackTable, NewLeavesNoIdInAnyList) {
  frontEnd.confirmAnswers = {true, true};
  EXPECT_EQ(Commit(mainmenu::NEW_MEASUREMENT), 0);
  for (const RingControl* ring : {&sasw::DISPAID, &sasw::DISPBID, &measpanel::DISPAID, &measpanel::DISPBID})
    EXPECT_EQ(GetNumListItems(*ring), 0) << ring->name;
  EXPECT_EQ(items::Count(*FindControl(Panel::HMSETUP, "MEASIDLISTBOX")), 0);
}

}  // namespace
}  // namespace sondera
