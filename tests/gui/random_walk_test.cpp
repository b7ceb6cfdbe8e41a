// Clicks and keys at random, from a fixed seed, on the example: no crash, and the windows answer at the end. A minute or
// more of it: SONDERA_WALK_SECONDS=1800 gui_test --gtest_filter='RandomWalk.*'; it then also holds the memory and the
// longest time without an event against limits.
#include <unistd.h>

#include <QAction>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

#include "app/script/run.h"
#include "gui/dispatch.h"
#include "gui/graph_view.h"
#include "one_pair_road.h"
#include "records/session.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/pulse.h"
#include "runtime/control_lock.h"
#include "support/site_records.h"
#include "window_session.h"

namespace sondera {
namespace {

namespace fs = std::filesystem;

/// Resident memory, MB.
double Memory() {
  std::ifstream file("/proc/self/statm");
  double whole = 0.0, resident = 0.0;
  file >> whole >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

class RandomWalk : public test::WindowSession {
 protected:
  RandomWalk() : former_(fs::current_path()) {
    fs::current_path(folder.Path());
    test::WriteSiteRecords(".");
    script::Source source = script::Source::OfText(test::kOnePairRoad);
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    script::Run("road", {}).run(source);
    ::testing::internal::GetCapturedStdout();
    const std::string said = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(session.projectFileName, "") << said;
    ResetEvents();
    EXPECT_TRUE(InstallWindows());
  }
  ~RandomWalk() override { fs::current_path(former_); }

  int Number(int below) { return static_cast<int>(random_() % static_cast<unsigned>(std::max(below, 1))); }

  QWidget* AnyWidget() {
    QList<QWidget*> found;
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (!window->isVisible() || qobject_cast<QMenu*>(window)) continue;
      for (QWidget* widget : window->findChildren<QWidget*>())
        if (widget->isVisible() && widget->isEnabled() && FindControlOf(widget)) found.push_back(widget);
    }
    return found.isEmpty() ? nullptr : found[Number(static_cast<int>(found.size()))];
  }
  /// Widgets with the name of a control, and graphs.
  static bool FindControlOf(const QWidget* widget) {
    const std::string name = widget->objectName().toStdString();
    if (name.empty() || name == "HALT") return false;
    for (int p = 0; p < kPanelCount; ++p)
      if (FindControl(static_cast<Panel>(p), name)) return true;
    return false;
  }

  void Step() {
    if (Number(6) == 0) {
      const auto items = ControlsOf(Panel::MAINMENU);
      const Control& item = *items[static_cast<std::size_t>(Number(static_cast<int>(items.size())))];
      if (&item != &mainmenu::QUIT) DispatchPress(item);
      return;
    }
    const QPointer<QWidget> widget = AnyWidget();
    if (!widget) return;
    const QPoint at(Number(widget->width()), Number(widget->height()));
    const Qt::MouseButton button = Number(5) == 0 ? Qt::RightButton : Qt::LeftButton;
    if (qobject_cast<QComboBox*>(widget)) {
      QTest::keyClick(widget, Number(2) == 0 ? Qt::Key_Down : Qt::Key_Up);
    } else if (qobject_cast<QLineEdit*>(widget)) {
      static const char* const kTexts[] = {"0", "1", "2.5", "-3", "1e300", "abc", "7", "0,5", "", "40"};
      widget->setFocus();
      static_cast<QLineEdit*>(widget.data())->selectAll();
      QTest::keyClicks(widget, kTexts[Number(static_cast<int>(std::size(kTexts)))]);
      if (widget) QTest::keyClick(widget, Qt::Key_Return);
    } else if (qobject_cast<GraphView*>(widget) && Number(2) == 0) {
      QTest::mousePress(widget, button, {}, at);
      if (widget)
        QTest::mouseRelease(widget, button, {}, QPoint(Number(widget->width()), Number(widget->height())));
    } else {
      QTest::mouseClick(widget, button, {}, at);
    }
    static const Qt::Key kKeys[] = {Qt::Key_Tab, Qt::Key_Escape, Qt::Key_Space, Qt::Key_Left, Qt::Key_F5};
    if (Number(8) == 0 && QApplication::focusWidget())
      QTest::keyClick(QApplication::focusWidget(), kKeys[Number(5)]);
  }

 private:
  std::mt19937 random_{20261122};
  fs::path former_;
};

TEST_F(RandomWalk, LeavesWindowsThatAnswer) {
  const char* wanted = std::getenv("SONDERA_WALK_SECONDS");
  const qint64 most = wanted ? 1000LL * std::atoi(wanted) : 8000;
  const int steps = wanted ? 1 << 30 : 250;
  int done = 0;
  double before = 0.0;
  qint64 longest = 0;
  Run([&] {
    QElapsedTimer time, event, locked;
    time.start();
    event.start();
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
      longest = std::max(longest, event.restart());
      // A run that was begun is halted after a second.
      if (!IsLocked())
        locked.invalidate();
      else if (!locked.isValid())
        locked.start();
      else if (locked.elapsed() > 1000 && EndingControl() && answers.empty() &&
               !QApplication::activeModalWidget()) {
        Answer("Yes");
        DispatchPress(*EndingControl());
        answers.clear();
        locked.restart();
      }
    });
    watch.start(50);
    for (; done < steps && time.elapsed() < most && !QuitRequested(); ++done) {
      Step();
      QTest::qWait(1);
      if (done == 200) before = Memory();
    }
    ASSERT_FALSE(QuitRequested());
    SetActiveTabPage(Panel::PANEL, 1);
    QTest::qWait(50);
    EXPECT_TRUE(MainWindowWidget()->isVisible());
    EXPECT_FALSE(IsLocked());
    EXPECT_FALSE(InEvent());
  });
  std::printf("%d steps, longest time without an event %lld ms, memory %.0f MB, at first %.0f MB\n", done,
              static_cast<long long>(longest), Memory(), before);
  EXPECT_GT(done, 20);
  if (!wanted) return;
  EXPECT_LT(longest, 2000);
  EXPECT_LT(Memory(), before + 200.0);
}

TEST_F(RandomWalk, EachMenuItemAndButtonOfAnEmptyProjectIsOneMessageAtMost) {
  StartSession();
  EXPECT_TRUE(InstallWindows());
  Run([&] {
    Answer("Yes");
    Answer("Yes");
    DispatchPress(mainmenu::NEW_MEASUREMENT);
    EXPECT_EQ(asked.size(), 2u);
    for (int page = 0; page < 4; ++page) EXPECT_TRUE(DispatchTab(Panel::PANEL, page));
    EXPECT_EQ(asked.size(), 2u) << asked.back();
    for (int p = 0; p < kPanelCount; ++p) {
      for (ControlId c : ControlsOf(static_cast<Panel>(p))) {
        const bool isPress = c->kind == ControlKind::Button || c->kind == ControlKind::Menu;
        if (!isPress || !CallbackOf(*c) || IsDimmed(*c) || c == &mainmenu::QUIT) continue;
        const std::size_t before = asked.size();
        DispatchPress(*c);
        QTest::qWait(1);
        std::string said;
        for (std::size_t i = before; i < asked.size(); ++i) said += asked[i] + " | ";
        // New asks twice; three file dialogs say after a Cancel that there is no file; a chain of presses has what
        // each of them says.
        const bool twice = c == &mainmenu::NEW_MEASUREMENT || c->name == "F1" || c == &pulse::BROWSE ||
                           c == &cdisppnl::SAVEGCD || c == &cdisppnl::SAVEICD;
        const bool chain = c == &inversion::PERFORMINVSAVE || c == &inversion::ONECLICK_RUN;
        EXPECT_LE(asked.size() - before, chain   ? 3u
                                         : twice ? 2u
                                                 : 1u)
            << PanelName(c->panel) << "." << c->name << ": " << said;
        ASSERT_FALSE(QuitRequested()) << c->name;
        ASSERT_FALSE(IsLocked()) << c->name;
      }
    }
  });
}

}  // namespace
}  // namespace sondera
