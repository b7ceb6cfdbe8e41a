// The road of road.h at the built program, on a screen of its own: xdotool moves the mouse and presses the keys. The same
// acts at the windows of this process say where everything is. Both come to the same project and the same result files.
#include <QAction>
#include <QElapsedTimer>
#include <QMenu>
#include <QMenuBar>
#include <filesystem>
#include <fstream>

#include "own_screen.h"
#include "records/session.h"
#include "road.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

namespace fs = std::filesystem;

/// Moves the mouse and presses the keys of a screen.
class XdotoolHand final : public test::SecondHand {
 public:
  XdotoolHand(const test::OwnScreen& screen, std::string mainWindow, std::string log)
      : screen_(screen), main_(std::move(mainWindow)), log_(std::move(log)) {}

  // After the first failure nothing more is done: each act would wait in vain.
  void Click(QWidget& widget, QPoint at) override {
    if (::testing::Test::HasFailure()) return;
    lines_ = Lines();
    Move(widget, at);
    screen_.Do("click 1");
    Rest();
  }
  void Drag(QWidget& widget, QPoint from, QPoint to) override {
    if (::testing::Test::HasFailure()) return;
    Move(widget, from);
    screen_.Do("mousedown 1");
    for (int i = 1; i <= 5; ++i) Move(widget, from + (to - from) * i / 5);
    screen_.Do("mouseup 1");
    Rest();
  }
  void Type(const std::string& text) override {
    if (::testing::Test::HasFailure()) return;
    screen_.Do("key ctrl+a");
    screen_.Do("type --delay 5 '" + text + "'");
    screen_.Do("key Return");
    Rest();
  }
  void Keys(const std::string& key, int times) override {
    if (::testing::Test::HasFailure()) return;
    screen_.Do("key --repeat " + std::to_string(times) + " --delay 30 " + key);
    Rest();
  }
  void Menu(const QAction& item) override {
    if (::testing::Test::HasFailure()) return;
    std::string keys;
    const auto letter = [](const QString& text) {
      const qsizetype at = text.indexOf(QLatin1Char('&'));
      return at < 0 ? std::string() : std::string(1, text[at + 1].toLower().toLatin1());
    };
    const QAction* at = &item;
    QMenu* menu = nullptr;
    for (QObject* object : item.associatedObjects())
      if (auto* found = qobject_cast<QMenu*>(object)) menu = found;
    ASSERT_TRUE(menu);
    while (menu) {
      keys = " key " + letter(at->text()) + " sleep 0.1" + keys;
      at = menu->menuAction();
      QMenu* above = nullptr;
      for (QObject* object : at->associatedObjects())
        if (auto* found = qobject_cast<QMenu*>(object)) above = found;
      menu = above;
    }
    screen_.Do("windowactivate --sync " + main_ + " key alt+" + letter(at->text()) + " sleep 0.2" + keys);
    Rest();
  }
  void File(const std::string& title, const std::string& name) override {
    if (::testing::Test::HasFailure()) return;
    const std::string dialog = screen_.Window(title);
    ASSERT_FALSE(dialog.empty()) << title;
    Rest();
    screen_.Do("type --delay 5 '" + name + "'");
    screen_.Do("key Return");
    for (int i = 0; i < 100 && !screen_.Window(title, 0).empty(); ++i) QTest::qWait(30);
    Rest();
  }
  void AwaitRun() override {
    if (::testing::Test::HasFailure()) return;
    QElapsedTimer time;
    time.start();
    while (Lines() == lines_ && time.elapsed() < 120000) QTest::qWait(50);
    EXPECT_GT(Lines(), lines_) << "the log tells of no run that has ended";
    Rest();
  }

 private:
  static void Rest() { QTest::qWait(120); }
  /// An act is a line of the log when it has ended.
  std::size_t Lines() const {
    std::ifstream file(log_);
    return static_cast<std::size_t>(std::count(std::istreambuf_iterator<char>(file), {}, '\n'));
  }
  void Move(QWidget& widget, QPoint at) {
    QWidget* top = widget.window();
    const std::string id =
        top == MainWindowWidget() ? main_ : screen_.Window(top->windowTitle().toStdString());
    ASSERT_FALSE(id.empty()) << top->windowTitle().toStdString();
    const QSize size = screen_.SizeOf(id);
    const QPoint inside = at - widget.rect().center();
    const bool centre = inside.isNull();
    if (size.isValid() && top->size() != size) {
      top->resize(size);
      QTest::qWait(50);
    }
    const QPoint place = widget.mapTo(top, centre ? widget.rect().center() : at);
    screen_.Do("mousemove --window " + id + " " + std::to_string(place.x()) + " " +
               std::to_string(place.y()));
  }

  const test::OwnScreen& screen_;
  std::string main_, log_;
  std::size_t lines_ = 0;
};

using OutsideRoad = test::Road;

TEST_F(OutsideRoad, FromFilesToAProfileByXdotool) {
  test::OwnScreen screen({1280, 900});
  if (!screen.Trouble().empty()) GTEST_SKIP() << screen.Trouble();
  const std::string place = folder.File("outside");
  fs::create_directory(place);
  WriteRecords(folder.Path());
  WriteRecords(place);
  const pid_t program = screen.Start(place, {"--log=day.txt"});
  const std::string window = screen.Window("Sondera", 20000);
  ASSERT_FALSE(window.empty()) << test::ReadWhole(place + "/said.txt");
  QTest::qWait(500);
  XdotoolHand hand(screen, window, place + "/day.txt");
  const std::string project = folder.File("Person.da");
  Run([&] {
    other = &hand;
    MainWindowWidget()->setWindowState(Qt::WindowNoState);
    MainWindowWidget()->resize(screen.SizeOf(window));
    QTest::qWait(50);
    Walk();
    Answer("file:" + project);
    Menu(mainmenu::SAVE_RAW_DATA);
    hand.File("File Save", "Person.da");
    EXPECT_EQ(session.projectFileName, project);
    hand.Keys("ctrl+q", 1);
    hand.Keys("alt+y", 1);
  });
  EXPECT_EQ(screen.WaitFor(program, 10000), 0) << test::ReadWhole(place + "/said.txt");
  EXPECT_TRUE(test::ReadWhole(place + "/Person.da") == test::ReadWhole(project));
  for (const char* result : {"ProjID.fdp", "ProjID.pcm"})
    EXPECT_EQ(test::ReadWhole(place + "/" + result), test::ReadWhole(folder.File(result))) << result;

  // Its log is a script that comes to the same project.
  const std::string again = folder.File("again");
  fs::create_directory(again);
  WriteRecords(again);
  std::string day = test::ReadWhole(place + "/day.txt");
  for (std::size_t at; (at = day.find(place)) != std::string::npos;) day.replace(at, place.size(), again);
  std::ofstream(again + "/day.txt") << day;
  const pid_t script = screen.Start(again, {"--batch", "run", "day.txt"});
  EXPECT_NE(screen.WaitFor(script, 120000), 1) << test::ReadWhole(again + "/said.txt");
  EXPECT_TRUE(test::ReadWhole(again + "/Person.da") == test::ReadWhole(place + "/Person.da"));
}

}  // namespace
}  // namespace sondera
