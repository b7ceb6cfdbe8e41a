// Function keys and shortcuts, and the menu of recent projects.
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <QTabWidget>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include "app/script/run.h"
#include "gui/dispatch.h"
#include "gui/fields.h"
#include "gui/graph_view.h"
#include "gui/recent.h"
#include "gui/refresh.h"
#include "key_hand.h"
#include "one_pair_road.h"
#include "records/session.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/project_hooks.h"
#include "support/site_records.h"
#include "window_session.h"

namespace sondera {
namespace {

std::vector<std::string> pressed;

int NotePress(Panel, ControlId control, Event event, long) {
  if (event == Event::Commit) pressed.emplace_back(control->name);
  return 0;
}

class Keys : public test::WindowSession {
 protected:
  Keys() {
    pressed.clear();
    for (const ButtonControl* button :
         {&measpanel::F1, &measpanel::F2, &measpanel::F6, &measpanel::F7, &measpanel::F9, &measpanel::F10})
      InstallCallback(*button, NotePress);
    InstallCallback(mainmenu::HELP, NotePress);
  }
  static void Page(int page) {
    DispatchTab(Panel::PANEL, page);
    QTest::qWait(30);
  }
  static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(MainWindowWidget(), key, modifiers);
    QTest::qWait(10);
  }
};

TEST_F(Keys, FunctionKeysPressTheButtonsOfTheMeasurementPageThereOnly) {
  Run([&] {
    Page(0);
    for (const Qt::Key key : {Qt::Key_F1, Qt::Key_F2, Qt::Key_F6, Qt::Key_F10}) Press(key);
    EXPECT_EQ(pressed, (std::vector<std::string>{"F1", "F2", "F6", "F10"}));
    pressed.clear();
    Page(1);
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_F6, Qt::Key_F7, Qt::Key_F9}) Press(key);
    EXPECT_TRUE(pressed.empty()) << pressed.front();
    Press(Qt::Key_F1);
    EXPECT_EQ(pressed, (std::vector<std::string>{"HELP"}));
    Press(Qt::Key_F10);
    const auto* bar = MainWindowWidget()->findChild<QMenuBar*>();
    EXPECT_TRUE(bar->activeAction()) << "the menu";
    QTest::keyClick(const_cast<QMenuBar*>(bar), Qt::Key_Escape);
  });
}

TEST_F(Keys, NoShortcutIsTakenTwice) {
  Run([&] {
    std::map<QString, int> keys;
    for (const QAction* action : MainWindowWidget()->findChildren<QAction*>())
      for (const QKeySequence& key : action->shortcuts()) ++keys[key.toString()];
    for (const char* key :
         {"Ctrl+N", "Ctrl+O", "Ctrl+S", "Ctrl+Shift+S", "Ctrl+Q", "Ctrl+Z", "Ctrl+Y", "F1", "F10"})
      EXPECT_EQ(keys[QString(key)], 1) << key;
    for (const auto& [key, count] : keys) EXPECT_EQ(count, 1) << key.toStdString();
  });
}

/// The windows on a project that has everything; each reached by the Tab key alone.
class TabKey : public test::WindowSession {
 protected:
  /// What a person can use: live controls with a place for the keyboard, in sight or behind a scroll bar.
  static std::set<QWidget*> LiveOf(QWidget& window) {
    std::set<QWidget*> live;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
      if (!widget->isVisible() || !widget->isEnabled() || !IsControl(*widget)) continue;
      if (qobject_cast<QLabel*>(widget) || qobject_cast<Lamp*>(widget)) continue;
      live.insert(widget);
    }
    return live;
  }
  static bool IsControl(const QWidget& widget) {
    const std::string name = widget.objectName().toStdString();
    for (const Binder* binder : LivingBinders()) {
      const ControlId c = name.empty() ? nullptr : FindControl(binder->panel(), name);
      if (c && binder->WidgetOf(*c) == &widget) return true;
    }
    return qobject_cast<const GraphView*>(&widget) || name == "toolMeasurement" ||
           qobject_cast<const QTabBar*>(&widget);
  }
  static std::string Text(const QWidget& widget) {
    const std::string name = widget.objectName().toStdString();
    return name.empty() ? widget.metaObject()->className() + (" " + widget.accessibleName().toStdString())
                        : name;
  }
  /// The innermost frame with a title, else the page.
  static const QWidget* GroupOf(const QWidget& widget) {
    const QWidget* at = widget.parentWidget();
    while (at->parentWidget() && !at->isWindow() && !qobject_cast<const QGroupBox*>(at))
      at = at->parentWidget();
    return at;
  }
  static std::string FaultsOfOrder(const std::vector<QWidget*>& order) {
    std::string faults;
    for (std::size_t i = 0; i < order.size(); ++i) {
      for (std::size_t k = i + 1; k < order.size(); ++k) {
        const QRect first(order[i]->mapToGlobal(QPoint(0, 0)), order[i]->size());
        const QRect second(order[k]->mapToGlobal(QPoint(0, 0)), order[k]->size());
        const bool oneColumn = second.left() <= first.right() && second.right() >= first.left();
        const bool oneRow = second.top() <= first.center().y() && second.bottom() >= first.center().y();
        const bool oneGroup = GroupOf(*order[i]) == GroupOf(*order[k]);
        const bool oneBox = oneGroup && qobject_cast<const QGroupBox*>(GroupOf(*order[i]));
        if (second.bottom() < first.top() && (oneColumn || oneBox))
          faults += Text(*order[k]) + " stands above " + Text(*order[i]) + "\n";
        if (oneRow && oneGroup && second.right() < first.left())
          faults += Text(*order[k]) + " stands left of " + Text(*order[i]) + "\n";
      }
    }
    return faults;
  }
  static void Walk(QWidget& window, const std::string& where) {
    ASSERT_TRUE(test::BringToFront(window)) << where;
    if (QApplication::focusWidget()) QApplication::focusWidget()->clearFocus();
    const std::vector<QWidget*> order = test::TabRound();
    if (std::getenv("SHOW_TABS")) {
      std::printf("%s:", where.c_str());
      for (const QWidget* w : order) std::printf(" %s", Text(*w).c_str());
      std::printf("\n");
    }
    const std::set<QWidget*> reached(order.begin(), order.end());
    std::string faults;
    for (QWidget* widget : LiveOf(window))
      if (!reached.count(widget)) faults += Text(*widget) + " is not reached\n";
    for (QWidget* widget : order)
      if (!IsControl(*widget)) faults += Text(*widget) + " is reached, and is no control\n";
    EXPECT_EQ(faults + FaultsOfOrder(order), "") << where;
  }
};

TEST_F(TabKey, ReachesEachLiveControlOfEachWindowInReadingOrder) {
  const std::filesystem::path former = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  test::WriteSiteRecords(".");
  script::Source source = script::Source::OfText(test::kOnePairRoad);
  ::testing::internal::CaptureStderr();
  EXPECT_NE(script::Run("road", {}).run(source), 1);
  ::testing::internal::GetCapturedStderr();
  ResetEvents();
  EXPECT_TRUE(InstallWindows());
  for (const Panel panel : WindowPanels()) HidePanel(panel);
  Run([&] {
    for (int page = 0; page < 4; ++page) {
      DispatchTab(Panel::PANEL, page);
      QTest::qWait(20);
      Walk(*MainWindowWidget(), "page " + std::to_string(page));
    }
    for (const Panel panel : WindowPanels()) {
      DisplayPanel(panel);
      QTest::qWait(20);
      QWidget* window = QApplication::activeWindow();
      ASSERT_NE(window, MainWindowWidget()) << PanelName(panel);
      const auto* tabs = window->findChild<QTabWidget*>();
      for (int page = 0; page < (tabs ? tabs->count() : 1); ++page) {
        if (tabs) const_cast<QTabWidget*>(tabs)->setCurrentIndex(page);
        Walk(*window, std::string(PanelName(panel)) + (tabs ? " " + std::to_string(page) : ""));
      }
      test::PressKey(Qt::Key_Escape);
      QTest::qWait(5);
      EXPECT_FALSE(window->isVisible()) << PanelName(panel);
    }
  });
  EXPECT_TRUE(asked.empty()) << asked.front();
  std::filesystem::current_path(former);
}

QMenu* RecentMenu() {
  for (QMenu* menu : MainWindowWidget()->findChildren<QMenu*>())
    if (menu->title().remove(QLatin1Char('&')) == QString("Recent Projects")) return menu;
  return nullptr;
}

using RecentProjects = test::WindowSession;

/// The state file is a folder, or holds anything: the windows come up, and a save tells of nothing.
TEST_F(RecentProjects, AStateThatCannotBeReadLeavesTheWindowsAsTheyAre) {
  namespace fs = std::filesystem;
  fs::create_directories(folder.File("as_folder/sondera/windows.ini"));
  fs::create_directories(folder.File("broken/sondera"));
  std::ofstream(folder.File("broken/sondera/windows.ini"), std::ios::binary)
      << std::string(300, '\0') << "[place]\nPANEL=@ByteArray(\x1\x2)\n[recent]\nprojects=@Variant(\\xff\n"
      << std::string(5000, '\xfe');
  std::ofstream(folder.File("file")) << "x";
  for (const char* place : {"as_folder", "broken", "file", "file/below"}) {
    qputenv("XDG_STATE_HOME", QByteArray::fromStdString(folder.File(place)));
    StartSession();
    EXPECT_TRUE(InstallWindows());
    asked.clear();
    Answer("file:" + folder.File("project.da"));
    Run([&] {
      EXPECT_TRUE(MainWindowWidget()->isVisible()) << place;
      EXPECT_GT(MainWindowWidget()->width(), 300) << place;
      DispatchPress(mainmenu::SAVE_RAW_DATA);
      QTest::qWait(10);
      EXPECT_EQ(asked.size(), 1u) << place << ": " << asked.back();
    });
    CloseMainWindow();
    fs::remove(folder.File("project.da"));
  }
}

TEST_F(RecentProjects, OpenFromTheMenuAndMissingOnesAreToldAndGo) {
  const std::string project = folder.File("a & b.da"), missing = folder.File("gone.da");
  Answer("file:" + project);
  Run([&] {
    DispatchPress(mainmenu::SAVE_RAW_DATA);
    QTest::qWait(20);
    NoteRecentFile(missing);
    QMenu* menu = RecentMenu();
    ASSERT_TRUE(menu);
    emit menu->aboutToShow();
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_NE(menu->actions()[1]->text().indexOf("a && b.da"), -1);
    menu->actions()[0]->trigger();
    QTest::qWait(20);
    ASSERT_EQ(asked.size(), 2u);
    EXPECT_EQ(asked[1], "The project " + missing + " is no longer there. It was removed from the list.");
    EXPECT_EQ(session.projectFileName, project) << "the present one stays";
    DispatchPress(mainmenu::SAVE_RAW_DATA);
    emit menu->aboutToShow();
    ASSERT_EQ(menu->actions().size(), 1);
    session.projectFileName.clear();
    menu->actions()[0]->trigger();
    QTest::qWait(20);
    EXPECT_EQ(session.projectFileName, project);
  });
}

}  // namespace
}  // namespace sondera
