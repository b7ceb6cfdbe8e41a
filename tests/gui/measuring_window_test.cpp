// A measuring run at a window: preview, pause, stop, and a window that is closed during the run.
#include <QFrame>
#include <QLabel>
#include <cmath>
#include <filesystem>

#include "acquisition/acquisition_state.h"
#include "gui/dispatch.h"
#include "panels/mainmenu_project.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/devpanel.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/hwsetup.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/graphs.h"
#include "support/test_board.h"
#include "window_session.h"

namespace sondera {
namespace {

using testing::testBoard;

class MeasuringWindow : public test::WindowSession {
 protected:
  MeasuringWindow() {
    testBoard = testing::TestBoard{};
    testBoard.volts = [](int r, int c, int i) { return std::sin(0.05 * i * (c + 1)) + 0.1 * r; };
    testBoard.seconds = 0.03;
    InstallDaqDriver(&testing::daqTestBoard);
    StartSession();
    EXPECT_TRUE(InstallWindows());
    SetActiveTabPage(Panel::PANEL, 0);
    QObject::connect(&watch_, &QTimer::timeout, [this] {
      if (measRun.measRunning && inRun) inRun();
    });
    watch_.start(0);
  }
  ~MeasuringWindow() override { InstallDaqDriver(&daqNone); }

  HWSetup& Hw() { return *MeasDB.hwSetupList.at(1); }

  std::function<void()> inRun;

 private:
  QTimer watch_;
};

/// The strip with the question of the preview, while it is there.
QFrame* Strip() {
  auto* strip = MainWindowWidget()->findChild<QFrame*>("questionStrip");
  return strip && strip->isVisible() ? strip : nullptr;
}

TEST_F(MeasuringWindow, ThePreviewAsksBelowTheRecord) {
  session.measOptions.previewOn = 1;
  Hw().nAverage = 3;
  std::size_t points = 0;
  std::string title, text;
  int question = 0;
  inRun = [&] {
    QFrame* strip = Strip();
    if (!strip || QApplication::activeModalWidget()) return;
    const auto& plots = GraphOf(measpanel::DISPLAY_A).plots;
    points = plots.empty() ? 0 : plots[0].x.size();
    title = GraphOf(measpanel::DISPLAY_A).title;
    text = strip->findChild<QLabel*>()->text().toStdString();
    EXPECT_LT(
        WidgetOf(measpanel::DISPLAY_A)->mapToGlobal(QPoint(0, WidgetOf(measpanel::DISPLAY_A)->height())).y(),
        strip->mapToGlobal(QPoint(0, 1)).y())
        << "it does not hide the graph";
    const QList<QPushButton*> buttons = strip->findChildren<QPushButton*>();
    ASSERT_EQ(buttons.size(), 2);
    switch (question++) {
      case 0:
        QTest::mouseClick(buttons[0], Qt::LeftButton);  // Yes
        break;
      case 1:
        QTest::mouseClick(buttons[1], Qt::LeftButton);  // No: one blow more
        break;
      case 2:
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        break;
      case 3:
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        break;
      default:
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Y);
    }
  };
  Run([&] {
    SetActiveTabPage(Panel::PANEL, 0);
    QTest::qWait(20);
    Click(measpanel::SASWSTART);
    EXPECT_EQ(GetCtrlVal(measpanel::DISPA_AVGCOUNT), "Averages: 3");
    EXPECT_FALSE(Strip());
  });
  EXPECT_EQ(question, 5) << "three were accepted, two were not";
  EXPECT_EQ(text, "Accept the current measurements ?");
  EXPECT_TRUE(asked.empty()) << "no box";
  EXPECT_EQ(points, 1024u);
  EXPECT_EQ(title, "measID[1] Time Trace");
}

TEST_F(MeasuringWindow, NothingElseTakesTheMouseWhileThePreviewAsks) {
  session.measOptions.previewOn = 1;
  Hw().nAverage = 1;
  int looks = 0;
  inRun = [&] {
    QFrame* strip = Strip();
    if (!strip) return;
    const int type = GetCtrlVal(measpanel::DISPATYPE);
    QTest::keyClick(WidgetOf(measpanel::DISPATYPE), Qt::Key_Down);
    Click(measpanel::STOPMEAS);
    MainWindowWidget()->close();
    EXPECT_EQ(GetCtrlVal(measpanel::DISPATYPE), type);
    EXPECT_EQ(measRun.measStopped, 0);
    EXPECT_TRUE(MainWindowWidget()->isVisible());
    if (++looks == 2) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  };
  Run([&] {
    SetActiveTabPage(Panel::PANEL, 0);
    QTest::qWait(20);
    Click(measpanel::SASWSTART);
    EXPECT_EQ(looks, 2);
    EXPECT_EQ(session.avgCount, 1);
  });
  EXPECT_TRUE(asked.empty());
}

TEST_F(MeasuringWindow, BehindAnotherPageThePreviewAsksByABox) {
  session.measOptions.previewOn = 1;
  Hw().nAverage = 1;
  Answer("Yes");
  Run([&] {
    SetActiveTabPage(Panel::PANEL, 1);
    QTest::qWait(20);
    DispatchPress(measpanel::SASWSTART);
    EXPECT_EQ(session.avgCount, 1);
  });
  EXPECT_EQ(asked, std::vector<std::string>{"Accept the current measurements ?"});
}

TEST_F(MeasuringWindow, PauseAndStopAreLiveAndTheRestIsNot) {
  Hw().nAverage = 1000;
  int step = 0, startsAtPause = 0, startsAtStop = 0;
  inRun = [&] {
    if (step == 0 && measRun.delivered >= 2) {
      step = 1;
      EXPECT_TRUE(WidgetOf(measpanel::STOPMEAS)->isEnabled());
      EXPECT_TRUE(WidgetOf(measpanel::DISPATYPE)->isEnabled());
      EXPECT_FALSE(WidgetOf(measpanel::F6)->isEnabled());
      EXPECT_FALSE(WidgetOf(measpanel::SASWSTART)->isEnabled());
      Click(measpanel::SASWPAUSECONT);
      EXPECT_EQ(measRun.measPaused, 1);
      startsAtPause = testBoard.starts;
      QTimer::singleShot(400, [&] { step = 2; });
    } else if (step == 2) {
      step = 3;
      EXPECT_EQ(GetCtrlVal(measpanel::MSGBOX), "Paused");
      startsAtStop = testBoard.starts;
      Click(measpanel::STOPMEAS);
    }
  };
  Run([&] {
    Click(measpanel::SASWSTART);
    EXPECT_EQ(step, 3);
    EXPECT_EQ(startsAtStop, startsAtPause) << "no record is begun in a pause";
    EXPECT_EQ(measRun.measStopped, 1);
    EXPECT_GE(session.avgCount, 2);
    EXPECT_TRUE(WidgetOf(measpanel::F6)->isEnabled());
    session.projectFileName = folder.File("site.da");
    EXPECT_EQ(SaveRawData(), 0);
  });
  EXPECT_TRUE(asked.empty());
}

TEST_F(MeasuringWindow, FromTheBoardToTheSavedFileByHand) {
  const auto type = [](QWidget* field, const char* text) {
    QApplication::setActiveWindow(field->window());
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, text);
    QTest::keyClick(field, Qt::Key_Return);
    QTest::qWait(1);
  };
  const std::string file = folder.File("class.da");
  Run([&] {
    Commit(mainmenu::SETUP_BOARDS);
    QTest::qWait(1);
    type(WidgetOf(devpanel::DRIVER), "sim:pace=0");
    Click(devpanel::FIND);
    Click(devpanel::OK);
    EXPECT_FALSE(IsPanelShown(Panel::DEVPANEL));
    Commit(mainmenu::SETUP_MEAS_SETUP);
    QTest::qWait(1);
    type(WidgetOf(meassetup::EVENSPACING), "5");
    Commit(mainmenu::SETUP_HDWARE);
    QTest::qWait(1);
    type(WidgetOf(hwsetup::FREQSPAN), "256");
    type(WidgetOf(hwsetup::NAVERAGE), "3");
    Click(hwsetup::COFIG_SETUP);
    EXPECT_EQ(session.configDone, 1);
    Click(hmsetup::OK);
    EXPECT_FALSE(IsPanelShown(Panel::HMSETUP));
    Click(measpanel::SASWSTART);
    EXPECT_EQ(GetCtrlVal(measpanel::DISPA_AVGCOUNT), "Averages: 3");
    EXPECT_FALSE(GraphOf(measpanel::DISPLAY_A).plots.empty());
    Answer("file:" + file);
    Click(measpanel::F6);
  });
  EXPECT_TRUE(std::filesystem::exists(file));
  EXPECT_EQ(Hw().freqSpan, 256.0);
  EXPECT_EQ(MeasDB.measSetupList.at(1)->recLoc, (std::vector<double>{5, 10, 15, 20}));
  EXPECT_EQ(asked.size(), 1u) << "the name of the file, and no box";
}

TEST_F(MeasuringWindow, ACloseIsNoStop) {
  Hw().nAverage = 12;
  bool closed = false;
  inRun = [&] {
    if (closed || measRun.delivered < 2) return;
    closed = true;
    QTimer::singleShot(0, [] { MainWindowWidget()->close(); });
  };
  Run([&] {
    Click(measpanel::SASWSTART);
    EXPECT_TRUE(closed);
    EXPECT_EQ(session.avgCount, 12) << "the run went on to its end";
    QTest::qWait(50);
    EXPECT_FALSE(QuitRequested());
  });
  EXPECT_EQ(asked, std::vector<std::string>{"Measurement is running..."});
}

}  // namespace
}  // namespace sondera
