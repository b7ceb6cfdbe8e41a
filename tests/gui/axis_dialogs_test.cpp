// The axis dialogs as a person uses them: double click on the graph, type limits, Enter.
#include <QCheckBox>
#include <QPrinterInfo>
#include <cmath>
#include <filesystem>

#include "gui/fields.h"
#include "gui/graph_view.h"
#include "gui/help_window.h"
#include "gui/panel_window.h"
#include "gui/refresh.h"
#include "panels/loadtxdata.h"
#include "records/session.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/dsp_mscale.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/mscalepnl.h"
#include "runtime/catalogue/sasw.h"
#include "support/site_records.h"
#include "window_session.h"

namespace sondera {
namespace {

class AxisDialog : public test::WindowSession {
 protected:
  /// One pair of the standard ground, shown on the masking page.
  void Load() {
    test::WriteSitePair(folder.File("H31.hyx"), 14.0, 30.0);
    SetCtrlVal(loadtxdata::MEASID, "pair");
    SetCtrlVal(loadtxdata::NCHANS, 2);
    SetCtrlVal(loadtxdata::DATATYPE, 1);
    UpdateLoadTextData(2);
    SetCtrlVal(loadtxdata::FNAMESRC, folder.File("H31.hyx"));
    SetCtrlVal(loadtxdata::LOC_REC1, 14.0);
    SetCtrlVal(loadtxdata::LOC_REC2, 30.0);
    ASSERT_EQ(Commit(loadtxdata::LOAD), 0) << LastMessage();
    ASSERT_EQ(Commit(sasw::MASKINGCALCDISP), 0) << LastMessage();
  }
  static void Settle() {
    FlushViews();
    QApplication::processEvents();
  }
  void DoubleClick(const GraphControl& c) {
    auto* graph = The<GraphView>(c);
    QTest::mouseDClick(graph, Qt::LeftButton, {}, graph->PlotArea().center().toPoint());
    Settle();
  }
  static void Type(const Control& c, const char* text) {
    auto* field = The<NumberField>(c);
    QApplication::setActiveWindow(field->window());  // the screen in memory has no window manager for this
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, text);
  }
  static void Enter(const Control& c) {
    QTest::keyClick(The<NumberField>(c), Qt::Key_Return);
    Settle();
  }
  static AxisLimits Shown(const GraphControl& c, bool x) {
    Settle();
    const GraphLimits limits = The<GraphView>(c)->Shown();
    return x ? limits.x : limits.y;
  }
};

TEST_F(AxisDialog, OfTheMaskingPageSetsWhatItsGraphShows) {
  Run([&] {
    Load();
    SetActiveTabPage(Panel::PANEL, 1);
    Settle();
    DoubleClick(sasw::DISPLAY_A);
    ASSERT_TRUE(IsPanelShown(Panel::MSCALEPNL));
    EXPECT_FALSE(The<NumberField>(mscalepnl::XMIN)->isEnabled()) << "automatic at first";
    QTest::mouseClick(The<QCheckBox>(mscalepnl::AUTOSCALE_X), Qt::LeftButton, {},
                      QPoint(8, The<QCheckBox>(mscalepnl::AUTOSCALE_X)->height() / 2));
    Settle();
    ASSERT_TRUE(The<NumberField>(mscalepnl::XMIN)->isEnabled());
    Type(mscalepnl::XMIN, "50");
    Type(mscalepnl::XMAX, "5");  // the wrong way round: turned
    Enter(mscalepnl::XMAX);
    EXPECT_FALSE(IsPanelShown(Panel::MSCALEPNL));
    EXPECT_NEAR(Shown(sasw::DISPLAY_A, true).min, 5, 1e-9);
    EXPECT_NEAR(Shown(sasw::DISPLAY_A, true).max, 50, 1e-9);
    EXPECT_EQ(GetCtrlVal(sasw::AUTOSCALE_X), 0);
  });
}

TEST_F(AxisDialog, TakesFieldsWhenItIsOpenedAgain) {
  Run([&] {
    Load();
    SetActiveTabPage(Panel::PANEL, 1);
    Settle();
    DoubleClick(sasw::DISPLAY_A);
    The<QCheckBox>(mscalepnl::AUTOSCALE_X)->click();
    Settle();
    Type(mscalepnl::XMIN, "5");
    Type(mscalepnl::XMAX, "50");
    Enter(mscalepnl::XMAX);
    EXPECT_FALSE(IsPanelShown(Panel::MSCALEPNL));
    DoubleClick(sasw::DISPLAY_A);
    Type(mscalepnl::XMIN, "7");
    Type(mscalepnl::XMAX, "60");
    EXPECT_EQ(GetCtrlVal(mscalepnl::XMIN), 7.0);
    Enter(mscalepnl::XMAX);
    EXPECT_NEAR(Shown(sasw::DISPLAY_A, true).min, 7, 1e-9);
    EXPECT_NEAR(Shown(sasw::DISPLAY_A, true).max, 60, 1e-9);
  });
}

TEST_F(AxisDialog, EqualLimitsMeanAutomaticOnes) {
  Run([&] {
    Load();
    SetActiveTabPage(Panel::PANEL, 1);
    Settle();
    DoubleClick(sasw::DISPLAY_A);
    The<QCheckBox>(mscalepnl::AUTOSCALE_X)->click();
    Settle();
    Type(mscalepnl::XMIN, "7");
    Type(mscalepnl::XMAX, "7");
    EXPECT_EQ(GetCtrlVal(mscalepnl::XMIN), 7.0);
    Enter(mscalepnl::XMAX);
    EXPECT_GT(Shown(sasw::DISPLAY_A, true).max, 100);
    EXPECT_EQ(GetCtrlVal(sasw::AUTOSCALE_X), 1);
  });
}

TEST_F(AxisDialog, RefusesWhatIsNoNumberAndCancelChangesNothing) {
  Run([&] {
    Load();
    SetActiveTabPage(Panel::PANEL, 2);
    Settle();
    const AxisLimits before = Shown(dispcurv::DISPGRAPH, true);
    DoubleClick(dispcurv::DISPGRAPH);
    ASSERT_TRUE(IsPanelShown(Panel::DSP_MSCALE));
    The<QCheckBox>(dsp_mscale::DSP_XAUTO)->click();
    Settle();
    Type(dsp_mscale::DSP_XMAX, "abc");
    Enter(dsp_mscale::DSP_XMAX);
    EXPECT_TRUE(IsPanelShown(Panel::DSP_MSCALE)) << "stays, with the fault to be seen";
    EXPECT_EQ(The<NumberField>(dsp_mscale::DSP_XMAX)->text(), "abc");
    Click(dsp_mscale::CANCEL);
    Settle();
    EXPECT_FALSE(IsPanelShown(Panel::DSP_MSCALE));
    EXPECT_EQ(Shown(dispcurv::DISPGRAPH, true).min, before.min);
    EXPECT_EQ(Shown(dispcurv::DISPGRAPH, true).max, before.max);
  });
}

TEST_F(AxisDialog, ALogarithmicAxisFromZeroStillShowsTheCurve) {
  Run([&] {
    Load();
    SetActiveTabPage(Panel::PANEL, 2);
    Settle();
    DoubleClick(dispcurv::DISPGRAPH);
    The<QCheckBox>(dsp_mscale::DSP_XAUTO)->click();
    Settle();
    Type(dsp_mscale::DSP_XMIN, "0");
    Type(dsp_mscale::DSP_XMAX, "100");
    Enter(dsp_mscale::DSP_XMAX);
    const AxisLimits x = Shown(dispcurv::DISPGRAPH, true);
    EXPECT_GT(x.min, 0);
    EXPECT_LT(x.min, 20);
    EXPECT_TRUE(std::isfinite(x.max));
    EXPECT_GT(x.max, x.min);
  });
}

TEST_F(AxisDialog, OfTheResultsPageOpensByItsGraph) {
  Run([&] {
    SetActiveTabPage(Panel::PANEL, 3);
    Settle();
    DoubleClick(exdthd::CURVES);
    EXPECT_TRUE(IsPanelShown(Panel::EXD_SCALE));
  });
}

using HelpMenu = test::WindowSession;

TEST_F(HelpMenu, ContentsShowsTheManualAndAboutTheVersion) {
  Run([&] {
    EXPECT_EQ(Commit(mainmenu::HELP), 0);
    const auto windows = MainWindowWidget()->findChildren<HelpWindow*>();
    ASSERT_EQ(windows.size(), 1);
    EXPECT_TRUE(windows[0]->isVisible());
    windows[0]->close();
    EXPECT_EQ(Commit(mainmenu::ABOUT_BOX), 0);
    FlushViews();
    EXPECT_TRUE(IsPanelShown(Panel::ABOUTPNL));
  });
  EXPECT_TRUE(asked.empty());
}

TEST_F(HelpMenu, PrintPanelWithoutAPrinterWritesAFile) {
  if (!QPrinterInfo::availablePrinterNames().isEmpty()) GTEST_SKIP() << "this machine has a printer";
  const std::string path = folder.File("profile.pdf");
  Answer("file:" + path);
  Run([&] { EXPECT_EQ(Commit(mainmenu::PRINT_PROF_WIN), 0); });
  EXPECT_EQ(asked.size(), 1u);
  EXPECT_TRUE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace sondera
