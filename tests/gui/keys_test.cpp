// Function keys and shortcuts, and the menu of recent projects.
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>
#include <filesystem>
#include <map>

#include "gui/dispatch.h"
#include "gui/recent.h"
#include "gui/refresh.h"
#include "records/session.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/project_hooks.h"
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

QMenu* RecentMenu() {
  for (QMenu* menu : MainWindowWidget()->findChildren<QMenu*>())
    if (menu->title().remove(QLatin1Char('&')) == QString("Recent Projects")) return menu;
  return nullptr;
}

using RecentProjects = test::WindowSession;

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
