// The main window: pages, fields, menus, panels, projects.
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>
#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeWidget>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <map>

#include "gui/dispatch.h"
#include "gui/fields.h"
#include "gui/menus.h"
#include "gui/recent.h"
#include "gui/status_line.h"
#include "gui/table_model.h"
#include "panels/mainmenu_project.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/gaborpnl.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/panel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/project_hooks.h"
#include "support/failing_file_driver.h"
#include "window_session.h"

namespace sondera {
namespace {

using Windows = test::WindowSession;

std::vector<std::pair<ControlId, Event>> heard;

int Hear(Panel, ControlId control, Event event, long) {
  heard.emplace_back(control, event);
  return 0;
}

TEST_F(Windows, OpenWithFourTabsAndTheProgramsTitleAndEndByTheQuestion) {
  Answer("Yes");
  const int status = Run([&] {
    auto* window = qobject_cast<QMainWindow*>(MainWindowWidget());
    ASSERT_TRUE(window && window->isVisible());
    EXPECT_TRUE(window->windowTitle().startsWith("Sondera 4.1 - ProjID:measID"))
        << window->windowTitle().toStdString();
    const auto* tabs = window->findChild<QTabWidget*>("TABS");
    ASSERT_TRUE(tabs);
    ASSERT_EQ(tabs->count(), 4);
    EXPECT_EQ(tabs->tabText(1), "Interactive Masking");
    EXPECT_EQ(tabs->currentIndex(), 1) << "no board: the masking page is in front";
    window->close();
    QTest::qWait(300);
    EXPECT_TRUE(QuitRequested());
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(asked, (std::vector<std::string>{"Do you want to exit the program ?"}));
  EXPECT_EQ(MainWindowWidget(), nullptr);
}

TEST_F(Windows, AClickOnATabAndAMenuItemOfAPageBringItToTheFront) {
  Run([&] {
    auto* tabs = MainWindowWidget()->findChild<QTabWidget*>("TABS");
    tabs->setCurrentIndex(2);
    EXPECT_EQ(GetActiveTabPage(Panel::PANEL), 2);
    DispatchPress(mainmenu::PERFORM_TEST);
    EXPECT_EQ(tabs->currentIndex(), 0);
    EXPECT_TRUE(MainWindowWidget()->windowTitle().contains("[Testing]"));
  });
}

TEST_F(Windows, AFieldCommitsByEnterAndByLeavingIt) {
  Run([&] {
    auto* from = The<NumberField>(sasw::MASKING_FREQINIT);
    from->setFocus();
    from->selectAll();
    QTest::keyClicks(from, "12.5");
    EXPECT_EQ(GetCtrlVal(sasw::MASKING_FREQINIT), 0.0) << "not before it is committed";
    QTest::keyClick(from, Qt::Key_Return);
    EXPECT_EQ(GetCtrlVal(sasw::MASKING_FREQINIT), 12.5);
    auto* to = The<NumberField>(sasw::MASKING_FREQFINAL);
    to->setFocus();
    to->selectAll();
    QTest::keyClicks(to, "20");
    from->setFocus();
    EXPECT_EQ(GetCtrlVal(sasw::MASKING_FREQFINAL), 20.0);
    SetCtrlVal(sasw::MASKING_FREQFINAL, 31.0);
    QTest::qWait(200);
    EXPECT_EQ(to->text(), "31") << "what the program writes is shown";
  });
}

TEST_F(Windows, AnEventBringsFocusClickAndValueInOrder) {
  Run([&] {
    const Callback former = CallbackOf(sasw::PHASE_BACKBONE);
    InstallCallback(sasw::PHASE_BACKBONE, Hear);
    heard.clear();
    The<QCheckBox>(sasw::PHASE_BACKBONE)->click();
    InstallCallback(sasw::PHASE_BACKBONE, former);
    ASSERT_EQ(heard.size(), 3u);
    EXPECT_EQ(heard[0].second, Event::GotFocus);
    EXPECT_EQ(heard[1].second, Event::LeftClick);
    EXPECT_EQ(heard[2].second, Event::Commit);
    EXPECT_EQ(GetCtrlVal(sasw::PHASE_BACKBONE), 1);
  });
}

TEST_F(Windows, ARingTakesTheChosenItemAlsoTheSameOne) {
  Run([&] {
    auto* ring = The<QComboBox>(sasw::MARKERS_ONOFF);
    heard.clear();
    InstallCallback(sasw::MARKERS_ONOFF, Hear);
    ring->setFocus();
    Q_EMIT ring->activated(2);
    EXPECT_EQ(GetCtrlVal(sasw::MARKERS_ONOFF), 2);
    Q_EMIT ring->activated(2);
    EXPECT_EQ(heard.size(), 6u) << "three events each";
    SetCtrlVal(sasw::MARKERS_ONOFF, 0);
    QTest::qWait(200);
    EXPECT_EQ(ring->currentIndex(), 0);
    EXPECT_EQ(heard.size(), 6u) << "the program's own writing is no event";
  });
}

TEST_F(Windows, AClickInAListIsAClickAlsoOnTheChosenItem) {
  Run([&] {
    SetActiveTabPage(Panel::PANEL, 2);
    for (const char* label : {"site[1:2]", "site[1:3]"})
      InsertListItem(dispcurv::LIST_INCLUDED, -1, label, 0);
    QTest::qWait(30);
    InstallCallback(dispcurv::LIST_INCLUDED, Hear);
    auto* list = The<QListWidget>(dispcurv::LIST_INCLUDED);
    const auto eventsOfAClick = [&](int row) {
      heard.clear();
      QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
      QTest::qWait(5);
      std::vector<Event> events;
      for (const auto& [control, event] : heard) events.push_back(event);
      return events;
    };
    ASSERT_EQ(list->currentRow(), 0);
    const std::vector<Event> click = {Event::GotFocus, Event::LeftClick};
    std::vector<Event> choice = click;
    choice.insert(choice.end(), {Event::ValChanged, Event::Commit});
    EXPECT_EQ(eventsOfAClick(0), click);
    EXPECT_EQ(eventsOfAClick(1), choice);
    EXPECT_EQ(eventsOfAClick(1), click);
    QTest::keyClick(list, Qt::Key_Up);
    QTest::qWait(5);
    EXPECT_EQ(eventsOfAClick(0), click);
  });
}

/// Escape presses "Close", else "Cancel", else "OK" of the panel.
TEST_F(Windows, EveryPanelIsAWindowOnTheScreenThatEscapeHides) {
  Run([&] {
    int windows = 0;
    for (const Panel panel : WindowPanels()) {
      DisplayPanel(panel);
      QTest::qWait(5);
      QWidget* window = WindowOf(panel);
      const std::string name(PanelName(panel));
      EXPECT_TRUE(window->isVisible()) << name;
      EXPECT_FALSE(window->isModal()) << name;
      EXPECT_EQ(window->windowTitle(), QString::fromStdString(GetPanelTitle(panel)).trimmed()) << name;
      EXPECT_TRUE(window->screen()->geometry().contains(window->geometry())) << name;
      QTest::keyClick(window, Qt::Key_Escape);
      QTest::qWait(5);
      EXPECT_FALSE(IsPanelShown(panel)) << name;
      EXPECT_FALSE(window->isVisible()) << name;
      ++windows;
    }
    EXPECT_EQ(windows, 17);
    EXPECT_TRUE(asked.empty()) << asked[0];
  });
}

TEST_F(Windows, CancelInOpenKeepsTheProject) {
  Run([&] {
    session.projectFileName = folder.File("site.da");
    const std::string id = session.curMeasID;
    TakeProjectAsSaved();
    Answer("");
    DispatchPress(mainmenu::LOAD_RAW_DATA);
    EXPECT_EQ(asked, (std::vector<std::string>{"File Open"}));
    EXPECT_EQ(session.projectFileName, folder.File("site.da"));
    EXPECT_EQ(session.curMeasID, id);
  });
}

/// Missing, damaged, foreign: one message each, and the window works on.
TEST_F(Windows, AFileThatCannotBeOpenedIsOneMessageAndTheWindowStaysUsable) {
  const std::string good = folder.File("good.da");
  Run([&] {
    DispatchText(hmsetup::PROJID, "Bridge");
    Answer("file:" + good);
    DispatchPress(mainmenu::SAVE_RAW_DATA);
    const std::string bytes = test::ReadWhole(good);
    ASSERT_GT(bytes.size(), 2000u);
    std::ofstream(folder.File("half.da"), std::ios::binary) << bytes.substr(0, bytes.size() / 2);
    std::ofstream(folder.File("few.da"), std::ios::binary) << bytes.substr(0, 7);
    std::ofstream(folder.File("letter.da")) << std::string(3000, 'x') << "\n";
    std::ofstream(folder.File("picture.da"), std::ios::binary) << "\x89PNG\r\n\x1a\n"
                                                               << std::string(500, '\xff');
    std::ofstream(folder.File("empty.da"));
    std::filesystem::create_directory(folder.File("folder.da"));
    const auto open = [&](const std::string& name) {
      asked.clear();
      Answer("file:" + folder.File(name));
      DispatchPress(mainmenu::LOAD_RAW_DATA);
      return asked;
    };
    EXPECT_EQ(open("none.da"), (std::vector<std::string>{"File Open", "File does not exist."}));
    EXPECT_EQ(session.projectFileName, good) << "the present project stays";
    EXPECT_EQ(session.curProjID, "Bridge");
    for (const char* name : {"half.da", "few.da", "letter.da", "picture.da", "empty.da"}) {
      ASSERT_EQ(open(name).size(), 2u) << name << ": " << asked.back();
      EXPECT_NE(asked[1].find(name), std::string::npos) << asked[1];
      EXPECT_EQ(QApplication::overrideCursor(), nullptr);
      // Each page, a new measurement, and the good project again.
      for (int page = 0; page < 4; ++page) EXPECT_TRUE(DispatchTab(Panel::PANEL, page));
      asked.clear();
      const int before = MeasDB.measSetupList.count();
      Answer("text:another");
      DispatchPress(hmsetup::MEASADD);
      EXPECT_EQ(MeasDB.measSetupList.count(), before + 1) << name;
      Answer("Don't save");
      Answer("file:" + good);
      DispatchPress(mainmenu::LOAD_RAW_DATA);
      EXPECT_EQ(session.curProjID, "Bridge") << name;
      EXPECT_FALSE(HasUnsavedChanges());
    }
  });
  EXPECT_EQ(test::ReadWhole(folder.File("few.da")).size(), 7u) << "no file was written over";
}

TEST_F(Windows, UnsavedChangesAreAskedAboutOnceWithThreeAnswers) {
  Run([&] {
    DispatchText(hmsetup::PROJID, "Bridge");
    ASSERT_TRUE(HasUnsavedChanges());
    const std::string text = "Do you want to exit the program ?\nThe project has changes that are not saved.";
    Answer("Cancel");
    DispatchPress(mainmenu::QUIT);
    EXPECT_EQ(asked, (std::vector<std::string>{text}));
    EXPECT_FALSE(QuitRequested());
    asked.clear();
    Answer("Save");
    Answer("file:" + folder.File("kept.da"));
    DispatchPress(mainmenu::QUIT);
    EXPECT_EQ(asked, (std::vector<std::string>{text, "File Save"}));
    EXPECT_TRUE(QuitRequested());
    EXPECT_TRUE(std::ifstream(folder.File("kept.da")).good());
  });
}

/// A drop as the window system brings it.
void Drop(const std::string& path) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
  QWidget* window = MainWindowWidget();
  const QPoint at = window->rect().center();
  QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window, &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window, &drop);
  QTest::qWait(300);
}

TEST_F(Windows, ADroppedProjectOpensAnotherFileGetsOneMessage) {
  Run([&] {
    DispatchText(hmsetup::PROJID, "Bridge");
    Answer("file:" + folder.File("bridge.da"));
    DispatchPress(mainmenu::SAVE_RAW_DATA);
    DispatchText(hmsetup::PROJID, "Other");
    ASSERT_TRUE(HasUnsavedChanges());
    asked.clear();
    Answer("Don't save");
    Drop(folder.File("bridge.da"));
    EXPECT_EQ(asked.size(), 1u);
    EXPECT_EQ(session.projectFileName, folder.File("bridge.da"));
    EXPECT_FALSE(HasUnsavedChanges());
    EXPECT_TRUE(MainWindowWidget()->windowTitle().endsWith("bridge.da"));
    EXPECT_EQ(RecentFiles(), (std::vector<std::string>{folder.File("bridge.da")}));
    asked.clear();
    Drop(folder.File("picture.png"));
    EXPECT_EQ(asked, (std::vector<std::string>{
                         "This is not a project file (.da). To read measurements, choose File, Import."}));
    EXPECT_EQ(session.projectFileName, folder.File("bridge.da"));
  });
}

/// Each way out of a changed project, with each answer; a name with blanks, an apostrophe and letters of other languages.
TEST_F(Windows, OpenNewAndADropDoWhatEachAnswerSays) {
  const std::string mine = folder.File(
                        "Br\xc3\xbc"
                        "cke d'\xc3\x89t\xc3\xa9 1.da"),
                    other = folder.File("other.da");
  Run([&] {
    for (const std::string& path : {other, mine}) {
      session.projectFileName.clear();
      DispatchText(hmsetup::PROJID, path == mine ? "Mine" : "Other");
      Answer("file:" + path);
      DispatchPress(mainmenu::SAVE_RAW_DATA);
      ASSERT_EQ(session.projectFileName, path);
    }
    enum class Way { Open, New, Drop };
    for (const Way way : {Way::Open, Way::New, Way::Drop}) {
      for (const std::string answer : {"Save", "Don't save", "Cancel"}) {
        const std::string where = answer + " " + std::to_string(static_cast<int>(way));
        ASSERT_EQ(OpenProject(mine), 0);
        const std::string before = test::ReadWhole(mine), id = "Changed" + where.substr(0, 1) + where.back();
        DispatchText(hmsetup::PROJID, id);
        ASSERT_TRUE(HasUnsavedChanges());
        asked.clear();
        Answer(answer);
        if (answer != "Cancel" && way == Way::Open) Answer("file:" + other);
        if (answer != "Cancel" && way == Way::New) Answer("Yes");
        if (way == Way::Drop)
          Drop(other);
        else
          DispatchPress(way == Way::Open ? mainmenu::LOAD_RAW_DATA : mainmenu::NEW_MEASUREMENT);
        ASSERT_FALSE(asked.empty()) << where;
        EXPECT_TRUE(asked[0].ends_with("\nThe project has changes that are not saved.")) << asked[0];
        const std::string after = test::ReadWhole(mine);
        EXPECT_EQ(after != before, answer == "Save") << where;
        EXPECT_EQ(after.find(id) != std::string::npos, answer == "Save") << where;
        if (answer == "Cancel") {
          EXPECT_EQ(asked.size(), 1u) << where << ": " << asked.back();
          EXPECT_EQ(session.projectFileName, mine) << where;
          EXPECT_EQ(session.curProjID, id) << where;
          EXPECT_TRUE(HasUnsavedChanges()) << where;
        } else if (way == Way::New) {
          EXPECT_TRUE(MeasDB.measSetupList.empty()) << where;
        } else {
          EXPECT_EQ(session.projectFileName, other) << where;
          EXPECT_EQ(session.curProjID, "Other") << where;
          EXPECT_FALSE(HasUnsavedChanges()) << where;
        }
        answers.clear();
      }
    }
  });
}

TEST_F(Windows, WithoutABoardTheButtonsOfTheMeasuringRunAreDimmed) {
  Run([&] {
    for (ControlId button :
         {static_cast<ControlId>(&measpanel::SASWSTART), static_cast<ControlId>(&measpanel::SASWPAUSECONT),
          static_cast<ControlId>(&measpanel::STOPMEAS)})
      EXPECT_FALSE(WidgetOf(*button)->isEnabled()) << button->name;
  });
}

TEST_F(Windows, DontSaveLeavesWithoutASave) {
  Run([&] {
    DispatchText(hmsetup::PROJID, "Bridge");
    ASSERT_TRUE(HasUnsavedChanges());
    Answer("Don't save");
    DispatchPress(mainmenu::QUIT);
    EXPECT_TRUE(QuitRequested());
    EXPECT_EQ(asked.size(), 1u);
  });
}

TEST_F(Windows, ASaveThatFailsIsToldAndLeavesTheOldFileAndTheChanges) {
  const std::string path = folder.File("site.da");
  Run([&] {
    Answer("file:" + path);
    DispatchPress(measpanel::F7);
    const std::string before = test::ReadWhole(path);
    ASSERT_FALSE(before.empty());
    DispatchText(hmsetup::PROJID, "Bridge");
    const auto failed = [&](const std::string& reason) {
      ASSERT_FALSE(asked.empty());
      EXPECT_THAT(asked.back(), ::testing::HasSubstr("The project could not be saved. "));
      EXPECT_THAT(asked.back(), ::testing::HasSubstr(reason));
      EXPECT_TRUE(test::ReadWhole(path) == before);
      EXPECT_TRUE(HasUnsavedChanges());
      EXPECT_TRUE(WidgetOf(measpanel::F6)->isEnabled());
      asked.clear();
    };
    {
      const test::FailingFileDriver fullDisk({.failWrite = 1, .everAfter = true, .error = ENOSPC});
      Answer("OK");
      DispatchPress(measpanel::F6);
      failed("No space left on device");
    }
    // The question at the end still offers the save, and a save that fails does not end the program.
    {
      const test::FailingFileDriver fullDisk({.failWrite = 1, .everAfter = true, .error = ENOSPC});
      Answer("Save");
      Answer("OK");
      DispatchPress(mainmenu::QUIT);
      EXPECT_FALSE(QuitRequested());
      failed("No space left on device");
    }
    // Nobody may write here, the system's administrator included.
    Answer("file:/proc/site.da");
    Answer("OK");
    DispatchPress(measpanel::F7);
    failed("/proc/site.da");
    // The chosen name stays, as after a No to overwriting, until Save As chooses another.
    Answer("file:" + path);
    Answer("Yes");
    DispatchPress(measpanel::F7);
    EXPECT_FALSE(HasUnsavedChanges());
    EXPECT_FALSE(test::ReadWhole(path) == before);
  });
}

TEST_F(Windows, EveryMenuItemOfTheCatalogueIsInTheMenuBarAndDeadOnesAreDimmed) {
  Run([&] {
    auto* window = qobject_cast<QMainWindow*>(MainWindowWidget());
    std::map<std::string, const QAction*> found;
    const std::function<void(const QList<QAction*>&, const std::string&)> walk =
        [&](const QList<QAction*>& actions, const std::string& path) {
          std::map<QChar, int> letters;
          for (QAction* action : actions) {
            if (action->isSeparator()) continue;
            const qsizetype mark = action->text().indexOf(QRegularExpression("&[^&]"));
            if (mark >= 0) ++letters[action->text()[mark + 1].toLower()];
            const std::string caption = action->text().remove(QLatin1Char('&')).toStdString();
            const std::string here = path.empty() ? caption : path + "/" + caption;
            found[here] = action;
            if (action->menu()) walk(action->menu()->actions(), here);
          }
          for (const auto& [letter, count] : letters)
            EXPECT_EQ(count, 1) << path << " " << QString(letter).toStdString();
        };
    walk(window->menuBar()->actions(), "");
    for (ControlId c : ControlsOf(Panel::MAINMENU)) {
      const std::string path =
          std::string(c->text) + "/" + QString::fromStdString(std::string(c->label)).trimmed().toStdString();
      ASSERT_TRUE(found.count(path)) << path;
      EXPECT_EQ(found[path]->isEnabled(), CallbackOf(*c) != nullptr && !IsDimmed(*c)) << path;
      EXPECT_FALSE(found[path]->toolTip().isEmpty()) << path;
    }
  });
}

/// Whatever takes input or shows a value, as a screen reader finds it.
bool Speaks(QAccessible::Role role) {
  switch (role) {
    case QAccessible::Button:
    case QAccessible::CheckBox:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::List:
    case QAccessible::Table:
    case QAccessible::Chart:
      return true;
    default:
      return false;
  }
}

TEST_F(Windows, EveryControlOfEveryWindowHasANameOfItsOwn) {
  Run([&] {
    int windows = 0, graphs = 0;
    const auto check = [&](QWidget* window, const std::string& where) {
      ++windows;
      std::map<std::string, int> names;
      for (QWidget* widget : window->findChildren<QWidget*>()) {
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
        if (widget->isWindow() || !spoken || !Speaks(spoken->role())) continue;
        const QString own = widget->objectName();
        const bool chart = spoken->role() == QAccessible::Chart;
        if (!chart && (own.isEmpty() || own.startsWith(QLatin1String("qt_"))))
          continue;  // a part of Qt's widgets
        // On this system the name of a ring is that of its label.
        const auto labels = spoken->relations(QAccessible::Label);
        const bool ring = spoken->role() == QAccessible::ComboBox;
        EXPECT_FALSE(ring && labels.isEmpty()) << where << "." << own.toStdString();
        const QAccessibleInterface* owner = ring && !labels.isEmpty() ? labels[0].first : spoken;
        const std::string name = owner->text(QAccessible::Name).toStdString();
        EXPECT_FALSE(name.empty()) << where << "." << own.toStdString();
        EXPECT_EQ(++names[name], 1) << where << ": " << name;
        if (!chart) continue;
        ++graphs;
        EXPECT_FALSE(spoken->text(QAccessible::Description).isEmpty()) << where << ": " << name;
      }
      EXPECT_FALSE(names.empty()) << where;
      EXPECT_TRUE(window->accessibleName().isEmpty()) << where << ": it would replace the title";
    };
    check(MainWindowWidget(), "main window");
    const auto* more = MainWindowWidget()->findChild<QToolButton*>("qt_toolbar_ext_button");
    ASSERT_TRUE(more);
    EXPECT_EQ(more->accessibleName(), "Tool bar, more") << "seen in a narrow window";
    for (const Panel panel : WindowPanels()) {
      DisplayPanel(panel);
      QTest::qWait(5);
      check(WindowOf(panel), std::string(PanelName(panel)));
      HidePanel(panel);
    }
    EXPECT_GE(windows, 18);
    EXPECT_EQ(graphs, 17);
  });
}

TEST_F(Windows, ATableTakesACellAndAPastedBlockOfASheet) {
  Run([&] {
    DisplayPanel(Panel::FMODELING);
    QTest::qWait(50);
    auto* view = The<QTableView>(fmodeling::SOILPROFILE);
    ASSERT_TRUE(view->model()->setData(view->model()->index(0, 0), "2.5", Qt::EditRole));
    EXPECT_EQ(GetTableCellVal(fmodeling::SOILPROFILE, 1, 1), 2.5);
    Answer("OK");
    EXPECT_FALSE(view->model()->setData(view->model()->index(0, 0), "2,5", Qt::EditRole));
    EXPECT_EQ(GetTableCellVal(fmodeling::SOILPROFILE, 1, 1), 2.5);
    EXPECT_FALSE(view->tabKeyNavigation());

    auto* pairs = The<QTableView>(fmodeling::DISPCURVINFO);
    const QModelIndex receiver = pairs->model()->index(0, 0), lowest = pairs->model()->index(0, 2);
    ASSERT_TRUE(receiver.isValid());
    EXPECT_TRUE(pairs->model()->setData(receiver, "2", Qt::EditRole));
    Answer("OK");
    EXPECT_FALSE(pairs->model()->setData(receiver, "1.5", Qt::EditRole));
    EXPECT_EQ(asked.back(), "Numbers of receivers are whole numbers. The former number is kept.");
    EXPECT_EQ(GetTableCellVal(fmodeling::DISPCURVINFO, 1, 1), 2.0);
    EXPECT_TRUE(pairs->model()->setData(lowest, "1.5", Qt::EditRole)) << "a frequency";
  });
}

/// Titles of the boxes that come up.
class Titles final : public QObject {
 public:
  Titles() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* box = qobject_cast<const QMessageBox*>(watched);
    if (box && event->type() == QEvent::Show) seen.push_back(box->windowTitle().toStdString());
    return false;
  }
  std::vector<std::string> seen;
};

TEST_F(Windows, ABoxHasTheTitleOfItsCall) {
  Run([&] {
    const Titles titles;
    Answer("OK");
    MessagePopup("Sondera - Warning", "Please set both markers properly.");
    Answer("No");
    EXPECT_FALSE(ConfirmPopup("Sondera 3.0", "Go on ?"));
    EXPECT_EQ(titles.seen, (std::vector<std::string>{"Sondera - Warning", "Sondera 3.0"}));
    EXPECT_EQ(asked, (std::vector<std::string>{"Please set both markers properly.", "Go on ?"}));
  });
}

TEST(CellsFromText, TakesBlocksOfSheetsAndRefusesWhatIsAmbiguous) {
  const auto cells = CellsFromText("1\t2.5\r\n0,25\t4e2\r\n", 3, 2);
  ASSERT_TRUE(cells && cells->size() == 4);
  EXPECT_EQ(cells->at(0).row, 3);
  EXPECT_EQ(cells->at(0).column, 2);
  EXPECT_EQ(cells->at(2).row, 4);
  EXPECT_EQ(cells->at(2).value, 0.25);
  EXPECT_EQ(cells->at(3).value, 400.0);
  EXPECT_EQ(CellsFromText("1 2  3", 1, 1)->size(), 3u);
  EXPECT_EQ(CellsFromText("0,125", 1, 1)->at(0).value, 0.125);
  EXPECT_FALSE(CellsFromText("1,500", 1, 1)) << "1.5 or 1500?";
  EXPECT_FALSE(CellsFromText("1,2,3", 1, 1));
  EXPECT_FALSE(CellsFromText("1\tabc", 1, 1));
}

TEST(PartsOfStatus, ShareAndTimeLeftAreTakenOutOfTheText) {
  const StatusParts parts = PartsOfStatus("Iteration 2     37 % done, 2 min 05 s left");
  EXPECT_EQ(parts.text, "Iteration 2");
  EXPECT_EQ(parts.percent, 37);
  EXPECT_EQ(parts.timeLeft, "2 min 05 s left");
  EXPECT_EQ(PartsOfStatus("Starting profile 3").percent, -1);
  EXPECT_EQ(PartsOfStatus("Starting profile 3").text, "Starting profile 3");
  EXPECT_EQ(PartsOfStatus("     100 % done").percent, 100);
}

TEST(Recent, KeepsEightNewestFirstAndSurvivesAFolderThatCannotBeWritten) {
  const test::TempFolder folder;
  qputenv("XDG_STATE_HOME", QByteArray::fromStdString(folder.Path()));
  for (int i = 0; i < 10; ++i) NoteRecentFile("/projects/site" + std::to_string(i) + ".da");
  NoteRecentFile("/projects/site5.da");
  const std::vector<std::string> files = RecentFiles();
  ASSERT_EQ(files.size(), 8u);
  EXPECT_EQ(files[0], "/projects/site5.da");
  EXPECT_EQ(files[1], "/projects/site9.da");
  EXPECT_EQ(files[7], "/projects/site2.da");
  ForgetRecentFile("/projects/site9.da");
  EXPECT_EQ(RecentFiles()[1], "/projects/site8.da");
  qputenv("XDG_STATE_HOME", "/dev/null/no/such");
  NoteRecentFile("/projects/site1.da");
  EXPECT_TRUE(RecentFiles().empty());
}

TEST(Recent, ARescuedProjectIsFoundFromAnotherFolderToo) {
  const test::TempFolder folder;
  qputenv("XDG_STATE_HOME", QByteArray::fromStdString(folder.Path()));
  NoteRescuedProject("site.rescued.da");
  EXPECT_EQ(TakeRescuedProject(), (std::filesystem::current_path() / "site.rescued.da").string());
  EXPECT_EQ(TakeRescuedProject(), "") << "offered once";
}

/// A list that two programs read before either has written it would lose a project.
TEST(Recent, ProgramsThatNoteTheirProjectsAtTheSameTimeLoseNone) {
  constexpr int kRounds = 20;
  for (int round = 0; round < kRounds; ++round) {
    const test::TempFolder folder;
    qputenv("XDG_STATE_HOME", QByteArray::fromStdString(folder.Path()));
    int start[2];
    ASSERT_EQ(::pipe(start), 0);
    for (int program = 0; program < kRecentFiles; ++program) {
      if (::fork() != 0) continue;
      ::close(start[1]);
      char none;
      if (::read(start[0], &none, 1) == 0)  // all begin when the pipe is closed
        NoteRecentFile("/projects/site" + std::to_string(program) + ".da");
      ::_exit(0);
    }
    ::close(start[0]);
    ::close(start[1]);
    for (int program = 0; program < kRecentFiles; ++program) ::wait(nullptr);
    std::vector<std::string> files = RecentFiles(), all;
    for (int program = 0; program < kRecentFiles; ++program)
      all.push_back("/projects/site" + std::to_string(program) + ".da");
    std::sort(files.begin(), files.end());
    ASSERT_EQ(files, all) << "round " << round;
  }
}

TEST(Mnemonics, AreLettersThatAreFree) {
  QString used;
  EXPECT_EQ(WithMnemonic("File", used), "&File");
  EXPECT_EQ(WithMnemonic("F. Modeling", used), "F. &Modeling");
  EXPECT_EQ(WithMnemonic("Full Waveform", used), "Full &Waveform");
  EXPECT_EQ(WithMnemonic("New ", used), "&New");
  EXPECT_EQ(WithMnemonic("A & B", used), "&A && B");
}

}  // namespace
}  // namespace sondera
