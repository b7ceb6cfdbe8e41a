// Runs of the solvers at the windows: the point-load inversion tells how far it is and lets events in; a halt and a close
// end it in order; nothing that is pressed meanwhile changes its results.
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMainWindow>
#include <QProgressBar>
#include <filesystem>
#include <set>

#include "app/script/run.h"
#include "gui/dispatch.h"
#include "one_pair_road.h"
#include "records/inv_records.h"
#include "records/session.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/control_lock.h"
#include "support/site_records.h"
#include "window_session.h"

namespace sondera {
namespace {

namespace fs = std::filesystem;

class RealRuns : public test::WindowSession {
 protected:
  RealRuns() : former_(fs::current_path()) { Begin("first"); }
  ~RealRuns() override { fs::current_path(former_); }

  /// A new session in a folder of its own, up to the layers.
  void Begin(const std::string& name) {
    fs::create_directory(folder.File(name));
    fs::current_path(folder.File(name));
    StartSession();
    test::WriteSiteRecords(".");
    script::Source source = script::Source::OfText(test::kOnePairRoad);
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    EXPECT_NE(script::Run("road", {}).run(source), 1);
    ::testing::internal::GetCapturedStdout();
    ::testing::internal::GetCapturedStderr();
    ResetEvents();
    EXPECT_TRUE(InstallWindows());
  }
  /// The point-load inversion.
  static void Analysis(int iterations) {
    SetCtrlVal(fmodeling::ANALYSISTYPE, 3);
    SetCtrlVal(fmodeling::GLOBAL_ARRAY, 1);
    Commit(fmodeling::GLOBAL_ARRAY);
    Commit(fmodeling::LOADDISPCURV);
    Commit(fmodeling::UPDATE);
    DispatchPress(exdthd::RUN_INVERSION);
    SetCtrlVal(inversion::NITER, iterations);
    QTest::qWait(30);
  }
  static bool IsIteration(int number) {
    return GetCtrlVal(exdthd::STATUSMSG).find("Iter. No = " + std::to_string(number)) != std::string::npos;
  }
  std::string Results() const {
    std::string all;
    for (const char* name : {"ProjID.fdp", "ProjID.pcm"}) all += test::ReadWhole(fs::current_path() / name);
    return all;
  }

 private:
  fs::path former_;
};

/// Asks a widget again and again to be painted, and measures how long it waits.
class PaintClock final : public QObject {
 public:
  explicit PaintClock(QWidget& widget) : widget_(widget) { widget.installEventFilter(this); }
  /// The longest wait so far, milliseconds.
  qint64 Ask() {
    if (!since_.isValid()) {
      since_.start();
      widget_.update();
    }
    return longest_;
  }
  int Painted() const { return painted_; }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint && since_.isValid()) {
      longest_ = std::max(longest_, since_.elapsed());
      since_.invalidate();
      ++painted_;
    }
    return false;
  }

 private:
  QWidget& widget_;
  QElapsedTimer since_;
  qint64 longest_ = 0;
  int painted_ = 0;
};

TEST_F(RealRuns, OfPointLoadsTellTheirShareAndLetEventsIn) {
  qint64 longest = 0, longestText = 0, longestPaint = 0;
  std::set<int> shares;
  bool left = false;
  Run([&] {
    Analysis(8);
    QElapsedTimer sinceEvent, sinceText;
    std::string text;
    // A widget that another window has uncovered asks to be painted.
    PaintClock clock(*WidgetOf(exdthd::CURVES));
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
      if (!IsLocked()) return;
      longestPaint = std::max(longestPaint, clock.Ask());
      if (const std::string now = GetCtrlVal(exdthd::STATUSMSG) + GetCtrlVal(exdthd::PROCESSMSG);
          now != text) {
        if (!text.empty()) longestText = std::max(longestText, sinceText.elapsed());
        text = now;
        sinceText.start();
      }
      longest = std::max(longest, sinceEvent.restart());
      const auto* bar = MainWindowWidget()->findChild<QProgressBar*>();
      if (bar->isVisible() && bar->maximum() == 100) shares.insert(bar->value());
      left = left || GetCtrlVal(exdthd::STATUSMSG).find(" left") != std::string::npos;
    });
    watch.start(5);
    QElapsedTimer whole;
    whole.start();
    sinceEvent.start();
    Click(inversion::PERFORMINV);
    std::printf(
        "run %lld ms, longest time without an event %lld ms, with the same text %lld ms, until a repaint "
        "%lld ms, %zu shares shown\n",
        static_cast<long long>(whole.elapsed()), static_cast<long long>(longest),
        static_cast<long long>(longestText), static_cast<long long>(longestPaint), shares.size());
    EXPECT_GE(clock.Painted(), 3);
    EXPECT_EQ(InvParam.nEntries, 8);
  });
  EXPECT_TRUE(asked.empty()) << asked.front();
  EXPECT_GT(longest, 0);
  EXPECT_LT(longest, 1000);
  EXPECT_LT(longestText, 2000) << "renewed each half second";
  EXPECT_LT(longestPaint, 1000);
  EXPECT_GE(shares.size(), 3u);
  EXPECT_TRUE(left);
}

TEST_F(RealRuns, WhatIsPressedMeanwhileChangesNoResult) {
  std::string quiet, disturbed;
  int tried = 0;
  const auto run = [&](bool disturb) {
    Analysis(1);
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, [&] {
      if (!disturb || !IsLocked()) return;
      ++tried;
      QWidget* window = MainWindowWidget();
      for (const auto key : {Qt::Key_O, Qt::Key_N, Qt::Key_S, Qt::Key_Z})
        QTest::keyClick(window, key, Qt::ControlModifier);
      QTest::keyClick(window, Qt::Key_F5);
      Click(inversion::PERFORMINV);
      Click(exdthd::RUN_FMODEL);
      QTest::keyClicks(WidgetOf(inversion::NITER), "9\r");
      DispatchNumber(inversion::NITER, 9);
      DispatchPress(mainmenu::NEW_MEASUREMENT);
    });
    hand.start(20);
    Click(inversion::PERFORMINV);
    EXPECT_EQ(GetCtrlVal(inversion::NITER), 1);
    EXPECT_EQ(InvParam.nEntries, 1);
    return Results();
  };
  Run([&] { quiet = run(false); });
  CloseMainWindow();
  Begin("second");
  Run([&] { disturbed = run(true); });
  EXPECT_GT(tried, 0);
  EXPECT_TRUE(asked.empty()) << asked.front();
  EXPECT_FALSE(quiet.empty());
  EXPECT_EQ(disturbed, quiet);
}

TEST_F(RealRuns, AHaltKeepsTheFinishedIterationsAndAllIsLiveAgain) {
  Run([&] {
    Analysis(50);
    Answer("No");
    Answer("Yes");
    int halts = 0;
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, [&] {
      if (!IsLocked() || QApplication::activeModalWidget() || halts == 2) return;
      if (!IsIteration(2 + halts)) return;
      ++halts;
      Click(exdthd::HALT);
    });
    hand.start(10);
    Click(inversion::PERFORMINV);
    EXPECT_EQ(halts, 2);
    EXPECT_GE(items::Count(exdthd::ITERNO), 3) << "those of the start and of two iterations";
    EXPECT_LT(items::Count(exdthd::ITERNO), 50);
    EXPECT_TRUE(WidgetOf(inversion::PERFORMINV)->isEnabled());
    EXPECT_FALSE(WidgetOf(exdthd::HALT)->isEnabled());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  });
  ASSERT_EQ(asked.size(), 3u);
  EXPECT_EQ(asked[0], "Do you want to halt the process ?");
  EXPECT_EQ(asked[1], asked[0]);
  EXPECT_TRUE(asked[2].starts_with("The inversion was halted.")) << asked[2];
}

TEST_F(RealRuns, ACloseInMidRunHaltsAsksAndEndsWithStatusZero) {
  const std::string saved = test::ReadWhole("Site.da");
  for (const char* answer : {"Yes", "OK", "Don't save"}) Answer(answer);
  const int status = Run([&] {
    Analysis(50);
    bool closed = false;
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, [&] {
      if (closed || !IsLocked() || !IsIteration(2)) return;
      closed = true;
      MainWindowWidget()->close();
    });
    hand.start(10);
    Click(inversion::PERFORMINV);
    EXPECT_TRUE(closed);
    QTest::qWait(300);
    EXPECT_TRUE(QuitRequested());
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(test::ReadWhole("Site.da"), saved);
  for (const auto& entry : fs::directory_iterator(fs::current_path()))
    EXPECT_EQ(entry.path().string().find(".tmp"), std::string::npos) << entry.path();
}

TEST_F(RealRuns, ByButtonAndByMenuBringTheResultsPageToTheFront) {
  Run([&] {
    Analysis(1);
    for (const Control* start : {static_cast<const Control*>(&inversion::PERFORMINV),
                                 static_cast<const Control*>(&exdthd::RUN_FMODEL),
                                 static_cast<const Control*>(&mainmenu::RUN_INV_ANAL)}) {
      DispatchTab(Panel::PANEL, 1);
      QTest::qWait(20);
      DispatchPress(*start);
      QTest::qWait(20);
      EXPECT_EQ(GetActiveTabPage(Panel::PANEL), 3) << start->name;
    }
  });
}

}  // namespace
}  // namespace sondera
