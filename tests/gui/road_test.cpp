// A person takes a site from files to a profile by mouse and keys; a script with the same masks comes to the same files.
#include <QAction>
#include <QComboBox>
#include <QListWidget>
#include <QMenu>
#include <QTabBar>
#include <QTabWidget>
#include <filesystem>
#include <map>

#include "app/script/run.h"
#include "gui/dispatch.h"
#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/session.h"
#include "road.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/graphs.h"
#include "runtime/project_hooks.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

namespace fs = std::filesystem;

class RoadTest : public test::Road {
 protected:
  /// The same as `script`, by a script in a session and a folder of its own, which becomes the current one.
  void WalkByScript() {
    fs::create_directory("script");
    fs::current_path(folder.File("script"));
    for (int k = 2; k <= 5; ++k)
      fs::copy_file(folder.File(FormatText("h%d1.hyx", k)), FormatText("h%d1.hyx", k));
    InstallFrontEnd({});
    StartSession();
    script += "save Person.da\n";
    script::Source source = script::Source::OfText(script);
    ::testing::internal::CaptureStderr();
    const int status = script::Run("road", {}).run(source);
    const std::string said = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(status, 1) << said << script;
  }
};

TEST_F(RoadTest, ByMouseAndKeysEndsInTheFilesOfAScript) {
  WriteRecords(folder.Path());
  const std::string project = folder.File("Person.da");
  Run([&] {
    Walk();
    Answer("file:" + project);
    Menu(mainmenu::SAVE_RAW_DATA);
    EXPECT_EQ(session.projectFileName, project);
    Answer("Yes");
    MainWindowWidget()->close();
    QTest::qWait(200);
    EXPECT_TRUE(QuitRequested());
  });
  const std::vector<std::string> boxes = {"File Open", "File Open", "File Open",
                                          "File Open", "File Save", "Do you want to exit the program ?"};
  EXPECT_EQ(asked, boxes);
  const std::string fdp = test::ReadWhole("ProjID.fdp"), pcm = test::ReadWhole("ProjID.pcm");
  EXPECT_FALSE(fdp.empty());
  EXPECT_FALSE(pcm.empty());

  // ---- the same by a script, in a session of its own
  WalkByScript();
  EXPECT_TRUE(test::ReadWhole("ProjID.fdp") == fdp);
  EXPECT_TRUE(test::ReadWhole("ProjID.pcm") == pcm);
  std::vector<std::vector<double>> curves;
  for (const PMeasInfo& pair : MeasDB.pMeasList)
    if (pair.included == 1)
      curves.emplace_back(pair.dispVel.begin(), pair.dispVel.begin() + pair.nDispPoints);

  // ---- the saved project stands again
  StartSession();
  ASSERT_EQ(OpenProject(project), 0);
  std::vector<std::vector<double>> saved;
  for (const PMeasInfo& pair : MeasDB.pMeasList)
    if (pair.included == 1) saved.emplace_back(pair.dispVel.begin(), pair.dispVel.begin() + pair.nDispPoints);
  EXPECT_EQ(saved, curves);
  EXPECT_EQ(MeasDB.maskingList.count(), 2);
  EXPECT_EQ(InvParam.nEntries, 3);

  // ---- at the windows too
  StartSession();
  EXPECT_TRUE(InstallWindows());
  Run([&] {
    ASSERT_EQ(OpenProject(project), 0);
    QTest::qWait(30);
    EXPECT_NE(MainWindowWidget()->windowTitle().indexOf("Person.da"), -1);
    DispatchTab(Panel::PANEL, 1);
    EXPECT_EQ(The<QComboBox>(sasw::DISPAID)->currentText(), QString("site"));
    DispatchIndex(sasw::DISPACHNL, The<QComboBox>(sasw::DISPACHNL)->findText("2"));
    EXPECT_EQ(GraphOf(sasw::DISPLAY_A).rectangles.size(), 2u);
    // The tool bar chooses the measurement too.
    auto* tool = MainWindowWidget()->findChild<QComboBox*>("toolMeasurement");
    ASSERT_EQ(tool->count(), 2);
    EXPECT_EQ(tool->currentText(), QString("site"));
    tool->setFocus();
    QTest::keyClick(tool, tool->currentIndex() == 1 ? Qt::Key_Up : Qt::Key_Down);
    EXPECT_EQ(The<QComboBox>(sasw::DISPAID)->currentText(), QString("measID"));
    QTest::keyClick(tool, tool->currentIndex() == 1 ? Qt::Key_Up : Qt::Key_Down);
    EXPECT_EQ(The<QComboBox>(sasw::DISPAID)->currentText(), QString("site"));
    DispatchTab(Panel::PANEL, 2);
    QTest::qWait(20);
    auto* included = The<QListWidget>(dispcurv::LIST_INCLUDED);
    auto* excluded = The<QListWidget>(dispcurv::LIST_EXCLUDED);
    EXPECT_EQ(included->count(), 3);
    ASSERT_EQ(excluded->count(), 1);
    EXPECT_FALSE(GraphOf(dispcurv::DISPGRAPH).plots.empty());
    // A double click moves a curve and draws nothing anew.
    const std::size_t drawn = GraphOf(dispcurv::DISPGRAPH).plots.size();
    const QPoint at = excluded->visualItemRect(excluded->item(0)).center();
    QTest::mouseClick(excluded->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(excluded->viewport(), Qt::LeftButton, {}, at);
    EXPECT_EQ(included->count(), 4);
    EXPECT_EQ(excluded->count(), 0);
    EXPECT_EQ(GraphOf(dispcurv::DISPGRAPH).plots.size(), drawn);
    DispatchPress(mainmenu::UNDO);
    EXPECT_EQ(included->count(), 3);
    DispatchTab(Panel::PANEL, 3);
    EXPECT_EQ(The<QComboBox>(exdthd::ITERNO)->count(), 4);
    DispatchIndex(exdthd::ITERNO, 3);
    EXPECT_FALSE(GraphOf(exdthd::CURVES).plots.empty());
    EXPECT_FALSE(GraphOf(exdthd::PROFILE).plots.empty());
    DispatchPress(mainmenu::SAVE_RAW_DATA);
  });
}

/// The same road for a person without a mouse. Masks are typed.
class KeyRoad : public RoadTest {
 protected:
  void Menu(const Control& item) override {
    QAction* action = LiveItem(item);
    if (!action) return;
    std::string letters;
    QMenu* menu = nullptr;
    for (const QAction* at = action;; at = menu->menuAction()) {
      menu = nullptr;
      for (QObject* object : at->associatedObjects())
        if (auto* found = qobject_cast<QMenu*>(object); found && !found->title().isEmpty()) menu = found;
      letters.insert(letters.begin(), test::LetterOf(at->text()));
      if (!menu) break;
    }
    ASSERT_TRUE(test::BringToFront(*MainWindowWidget()));
    ASSERT_EQ(letters.find('\0'), std::string::npos) << item.name << " has no letter";
    test::PressLetter(letters[0], Qt::AltModifier);
    for (const char letter : letters.substr(1)) {
      ASSERT_TRUE(QApplication::activePopupWidget()) << item.name << ": " << letters;
      test::PressLetter(letter);
    }
    QTest::qWait(30);
  }
  /// Tab until the control has the focus.
  static bool GoTo(const Control& c) {
    QWidget* widget = WidgetOf(c);
    EXPECT_TRUE(widget->isEnabled()) << c.name;
    const bool there = test::BringToFront(*widget->window()) && test::TabTo(widget);
    EXPECT_TRUE(there) << c.name << " is not reached by the Tab key";
    return there;
  }
  void Click(const Control& button) override {
    if (GoTo(button)) test::PressKey(Qt::Key_Space);
  }
  void ClickForFile(const Control& button, const std::string&, const std::string& name) override {
    Answer("keys:" + folder.File(name));
    Click(button);
  }
  void Close(Panel panel) override {
    ASSERT_EQ(QApplication::activeWindow(), WidgetOf(*ControlsOf(panel)[0])->window());
    test::PressKey(Qt::Key_Escape);
    QTest::qWait(20);
    EXPECT_FALSE(IsPanelShown(panel));
  }
  void Type(const Control& field, const std::string& text) override {
    if (!GoTo(field)) return;
    test::PressKey(Qt::Key_A, Qt::ControlModifier);
    test::TypeKeys(text);
    test::PressKey(Qt::Key_Return);
  }
  void Choose(const Control& ring, const std::string& item) override {
    const int wanted = PlaceInRing(ring, item);
    ASSERT_GE(wanted, 0) << ring.name << ": " << item;
    auto* box = The<QComboBox>(ring);
    if (box->currentIndex() == wanted || !GoTo(ring)) return;
    for (int i = 0; i < 50 && box->currentIndex() != wanted; ++i)
      test::PressKey(box->currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
  }
  void Pick(const Control& list, int row) override {
    if (!GoTo(list)) return;
    const auto* box = The<QListWidget>(list);
    for (int i = 0; i < 50 && box->currentRow() != row; ++i)
      test::PressKey(box->currentRow() < row ? Qt::Key_Down : Qt::Key_Up);
    EXPECT_EQ(box->currentRow(), row);
  }
  void Tab(int page) override {
    const auto* tabs = MainWindowWidget()->findChild<QTabWidget*>("TABS");
    ASSERT_TRUE(test::BringToFront(*MainWindowWidget()));
    ASSERT_TRUE(test::TabTo(tabs->tabBar()));
    while (tabs->currentIndex() < page) test::PressKey(Qt::Key_Right);
    EXPECT_EQ(GetActiveTabPage(Panel::PANEL), page);
    QTest::qWait(30);
  }
  void Cell(const TableControl& table, int row, int column, const std::string& text) override {
    if (!GoTo(table)) return;
    test::PressKey(Qt::Key_Home, Qt::ControlModifier);
    for (int i = 1; i < row; ++i) test::PressKey(Qt::Key_Down);
    for (int i = 1; i < column; ++i) test::PressKey(Qt::Key_Right);
    test::TypeKeys(text);
    test::PressKey(Qt::Key_Return);
    QTest::qWait(1);
  }
  void Span(double from, double to) override {
    Type(sasw::MASKING_FREQINIT, FormatText("%g", from));
    Type(sasw::MASKING_FREQFINAL, FormatText("%g", to));
  }
};

TEST_F(KeyRoad, EndsInTheProjectOfAScript) {
  WriteRecords(folder.Path());
  const std::string project = folder.File("Person.da");
  iterations = 1;  // they are those of every road
  const int status = Run([&] {
    Walk();
    Answer("keys:" + project);
    ASSERT_TRUE(test::BringToFront(*MainWindowWidget()));
    test::PressKey(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(session.projectFileName, project);
    Answer("keys:");  // Enter alone: Yes
    Menu(mainmenu::QUIT);
    EXPECT_TRUE(QuitRequested());
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(asked.size(), 6u) << "four records, the project, the end: " << asked.back();
  std::map<std::string, std::string> byKeys;
  for (const char* name : {"ProjID.fdp", "ProjID.pcm", "Person.da"}) byKeys[name] = test::ReadWhole(name);
  WalkByScript();
  for (const auto& [name, bytes] : byKeys) {
    EXPECT_FALSE(bytes.empty()) << name;
    EXPECT_TRUE(bytes == test::ReadWhole(name)) << name;
  }
}

}  // namespace
}  // namespace sondera
