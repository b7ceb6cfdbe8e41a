// Keys in the windows of panels: Enter and Escape.
#include "gui/panel_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QTest>

#include "gui/binder.h"
#include "gui/fields.h"
#include "gui/refresh.h"
#include "runtime/catalogue/dsp_mscale.h"
#include "runtime/catalogue/inversion.h"

namespace sondera {
namespace {

int pressed = 0;
int CountPress(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) ++pressed;
  return 0;
}
int HideOnPress(Panel panel, ControlId, Event event, long) {
  if (event == Event::Commit) HidePanel(panel);
  return 0;
}

class PanelWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    ResetControls();
    pressed = 0;
    StartRefresh();
  }
  void TearDown() override {
    DropPanelWindows();
    StopRefresh();
    for (const Control* c : installed_) InstallCallback(*c, nullptr);
  }
  void Install(const Control& c, Callback callback) {
    InstallCallback(c, callback);
    installed_.push_back(&c);
  }
  /// The window of a panel, shown and with the focus.
  QWidget* Open(Panel panel) {
    DisplayPanel(panel);
    FollowPanel(panel, nullptr);
    QWidget* window = BinderOf(panel)->WidgetOf(*ControlsOf(panel)[0])->window();
    QApplication::setActiveWindow(window);
    return window;
  }
  template <class Widget>
  Widget* Get(const Control& c) {
    return qobject_cast<Widget*>(BinderOf(c.panel)->WidgetOf(c));
  }

 private:
  std::vector<const Control*> installed_;
};

TEST_F(PanelWindowTest, EnterTakesTheFieldAndThenTheButtonThatTheFormNames) {
  Install(dsp_mscale::OK, CountPress);
  SetDimmed(dsp_mscale::DSP_XMIN, false);
  Open(Panel::DSP_MSCALE);
  auto* field = Get<NumberField>(dsp_mscale::DSP_XMIN);
  field->setFocus();
  field->selectAll();
  QTest::keyClicks(field, "2.5");
  QTest::keyClick(field, Qt::Key_Return);
  EXPECT_EQ(GetCtrlVal(dsp_mscale::DSP_XMIN), 2.5);
  EXPECT_EQ(pressed, 1);

  field->selectAll();
  QTest::keyClicks(field, "abc");
  QTest::keyClick(field, Qt::Key_Return);  // not a number: no action may silently use the former one
  EXPECT_EQ(GetCtrlVal(dsp_mscale::DSP_XMIN), 2.5);
  EXPECT_EQ(pressed, 1);
}

TEST_F(PanelWindowTest, EnterInAFieldStartsNoRun) {
  for (const Control* button : {static_cast<const Control*>(&inversion::PERFORMINV),
                                static_cast<const Control*>(&inversion::ONECLICK_RUN),
                                static_cast<const Control*>(&inversion::AUTOSETUPSMP)})
    Install(*button, CountPress);
  Open(Panel::INVERSION);
  auto* field = Get<NumberField>(inversion::NITER);
  field->setFocus();
  field->selectAll();
  QTest::keyClicks(field, "7");
  QTest::keyClick(field, Qt::Key_Return);
  EXPECT_EQ(GetCtrlVal(inversion::NITER), 7);
  EXPECT_EQ(pressed, 0);

  Get<QPushButton>(inversion::PERFORMINV)->setFocus();
  QTest::keyClick(Get<QPushButton>(inversion::PERFORMINV), Qt::Key_Return);
  EXPECT_EQ(pressed, 1);
}

TEST_F(PanelWindowTest, EscapePressesClose) {
  Install(inversion::CLOSE, HideOnPress);
  QWidget* window = Open(Panel::INVERSION);
  EXPECT_TRUE(window->isVisible());
  QTest::keyClick(window, Qt::Key_Escape);
  FlushViews();
  FollowPanel(Panel::INVERSION, nullptr);
  EXPECT_FALSE(IsPanelShown(Panel::INVERSION));
  EXPECT_FALSE(window->isVisible());
}

}  // namespace
}  // namespace sondera
