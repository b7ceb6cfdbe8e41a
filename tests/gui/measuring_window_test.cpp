// A measuring run at a window: preview, pause, stop, and a window that is closed during the run.
#include <cmath>

#include "acquisition/acquisition_state.h"
#include "panels/mainmenu_project.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/measpanel.h"
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
