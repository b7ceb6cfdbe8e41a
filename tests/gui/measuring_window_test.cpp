// A measuring run at a window: preview, pause, stop, and a window that is closed during the run.
#include <cmath>
#include <filesystem>

#include "acquisition/acquisition_state.h"
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

TEST_F(MeasuringWindow, TheRecordStandsBehindTheQuestionOfThePreview) {
  session.measOptions.previewOn = 1;
  Hw().nAverage = 2;
  Answer("Yes");
  Answer("No");
  Answer("Yes");
  std::size_t points = 0;
  std::string title;
  inRun = [&] {
    if (!QApplication::activeModalWidget()) return;
    const auto& plots = GraphOf(measpanel::DISPLAY_A).plots;
    points = plots.empty() ? 0 : plots[0].x.size();
    title = GraphOf(measpanel::DISPLAY_A).title;
  };
  Run([&] {
    EXPECT_TRUE(WidgetOf(measpanel::SASWSTART)->isEnabled());
    Click(measpanel::SASWSTART);
    EXPECT_EQ(GetCtrlVal(measpanel::DISPA_AVGCOUNT), "Averages: 2");
    EXPECT_FALSE(GraphOf(measpanel::DISPLAY_A).plots.empty());
  });
  EXPECT_EQ(asked, std::vector<std::string>(3, "Accept the current measurements ?"));
  EXPECT_EQ(points, 1024u);
  EXPECT_EQ(title, "measID[1] Time Trace");
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
