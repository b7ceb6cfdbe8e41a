// Runs at the windows: no second run, Halt, a close request, and no other changes.
#include <QElapsedTimer>
#include <QLineEdit>

#include "gui/dispatch.h"
#include "gui/fields.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/control_lock.h"
#include "window_session.h"

namespace sondera {
namespace {

/// A run in the program's way: it holds a lock, polls, and ends by a halt.
struct FakeRun {
  int runs = 0;
  int milliseconds = 300;
  int depth = 0, deepest = 0;
  bool halted = false;
  std::function<void()> inTheMiddle;
};
FakeRun fake;

int RunCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  ForgetHalt();
  ++fake.runs;
  fake.deepest = std::max(fake.deepest, ++fake.depth);
  const ControlLock lock({&exdthd::HALT}, "Sondera 4.1", "An analysis is running. Please halt it first.");
  QElapsedTimer time;
  time.start();
  bool once = false;
  while (time.elapsed() < fake.milliseconds && !PressHalted()) {
    ProcessSystemEvents();
    if (!once && time.elapsed() > 50) {
      once = true;
      if (fake.inTheMiddle) fake.inTheMiddle();
    }
    QTest::qSleep(1);
  }
  fake.halted = PressHalted();
  --fake.depth;
  return 0;
}

int HaltCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit && ConfirmPopup("Sondera 4.1", "Do you want to halt the process ?")) NoteHalt();
  return 0;
}

class WindowRuns : public test::WindowSession {
 protected:
  WindowRuns() {
    fake = {};
    InstallCallback(exdthd::RUN_FMODEL, RunCallback);
    InstallCallback(exdthd::HALT, HaltCallback);
    SetDimmed(exdthd::RUN_FMODEL, false);
    SetActiveTabPage(Panel::PANEL, 3);
  }
};

/// A click as the window system delivers it: after the waiting events.
void QueueClick(QWidget* widget) {
  const QPointF at = widget->rect().center();
  const QPointF global = widget->mapToGlobal(at);
  for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
    QCoreApplication::postEvent(
        widget,
        new QMouseEvent(type, at, global, Qt::LeftButton,
                        type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier));
}

TEST_F(WindowRuns, TwoHundredQueuedClicksGiveOneRun) {
  Run([&] {
    QWidget* button = WidgetOf(exdthd::RUN_FMODEL);
    for (int i = 0; i < 200; ++i) QueueClick(button);
    QTest::qWait(600);
    EXPECT_EQ(fake.runs, 1);
    EXPECT_EQ(fake.deepest, 1);
  });
  EXPECT_TRUE(asked.empty()) << "no refusal box comes up: " << asked.front();
}

TEST_F(WindowRuns, DuringARunOnlyHaltIsLiveAndNothingIsWritten) {
  fake.inTheMiddle = [&] {
    EXPECT_TRUE(WidgetOf(exdthd::HALT)->isEnabled());
    EXPECT_FALSE(WidgetOf(exdthd::RUN_FMODEL)->isEnabled());
    EXPECT_FALSE(WidgetOf(sasw::MASKING_FREQINIT)->isEnabled());
    QTest::keyClicks(WidgetOf(sasw::MASKING_FREQINIT), "9");
    EXPECT_FALSE(DispatchNumber(sasw::MASKING_FREQINIT, 17.0));
    EXPECT_FALSE(DispatchPress(mainmenu::LOAD_RAW_DATA));
    EXPECT_TRUE(DispatchTab(Panel::PANEL, 1)) << "pages may be looked at";
    for (int i = 0; i < 5; ++i) DispatchPress(exdthd::RUN_FMODEL);
  };
  Run([&] {
    EXPECT_FALSE(WidgetOf(exdthd::HALT)->isEnabled()) << "nothing runs";
    Click(exdthd::RUN_FMODEL);
    EXPECT_EQ(fake.runs, 1);
    EXPECT_EQ(GetCtrlVal(sasw::MASKING_FREQINIT), 0.0);
    EXPECT_TRUE(WidgetOf(sasw::MASKING_FREQINIT)->isEnabled()) << "live again";
    EXPECT_FALSE(WidgetOf(exdthd::HALT)->isEnabled());
  });
  EXPECT_TRUE(asked.empty());
}

TEST_F(WindowRuns, HaltAskedAndAnsweredNoGoesOnYesEnds) {
  fake.milliseconds = 3000;
  int halts = 0;
  QTimer clicks;
  QObject::connect(&clicks, &QTimer::timeout, [&] {
    if (!IsLocked() || QApplication::activeModalWidget() || halts == 2) return;
    ++halts;
    Click(exdthd::HALT);
  });
  clicks.start(60);
  Answer("No");
  Answer("Yes");
  Run([&] {
    Click(exdthd::RUN_FMODEL);
    EXPECT_TRUE(fake.halted);
    EXPECT_EQ(halts, 2);
  });
  EXPECT_EQ(asked.size(), 2u);
}

TEST_F(WindowRuns, ClosingInMidRunHaltsLetsItUnwindAndThenAsks) {
  fake.milliseconds = 3000;
  fake.inTheMiddle = [&] { QTimer::singleShot(0, [&] { MainWindowWidget()->close(); }); };
  Answer("Yes");
  Answer("Yes");
  const int status = Run([&] {
    Click(exdthd::RUN_FMODEL);
    EXPECT_TRUE(fake.halted);
    EXPECT_EQ(fake.depth, 0);
    EXPECT_FALSE(QuitRequested()) << "not below the running callback";
    QTest::qWait(300);
    EXPECT_TRUE(QuitRequested());
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(asked, (std::vector<std::string>{"Do you want to halt the process ?",
                                             "Do you want to exit the program ?"}));
}

TEST_F(WindowRuns, ClosingInMidRunAndNoGoesOn) {
  fake.milliseconds = 400;
  fake.inTheMiddle = [&] { QTimer::singleShot(0, [&] { MainWindowWidget()->close(); }); };
  Answer("No");
  Run([&] {
    Click(exdthd::RUN_FMODEL);
    EXPECT_FALSE(fake.halted);
    QTest::qWait(100);
    EXPECT_FALSE(QuitRequested());
  });
  EXPECT_EQ(asked.size(), 1u);
}

TEST_F(WindowRuns, TheWaitCursorIsGoneWhenTheEventHasEnded) {
  fake.inTheMiddle = [] { SetWaitCursor(true); };
  Run([&] {
    Click(exdthd::RUN_FMODEL);
    EXPECT_FALSE(WaitCursorShown());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  });
}

TEST_F(WindowRuns, APollWithoutALockLetsNoClickIn) {
  Run([&] {
    QWidget* button = WidgetOf(exdthd::RUN_FMODEL);
    bool polled = false;
    DispatchAction([&] {
      for (int i = 0; i < 5; ++i) QueueClick(button);
      QTest::qSleep(20);
      ProcessSystemEvents();
      polled = true;
      EXPECT_EQ(fake.runs, 0);
    });
    EXPECT_TRUE(polled);
  });
}

}  // namespace
}  // namespace sondera
