// The dialogs that ask for a file: where they begin, what they make of a name, and what they leave alone.
#include <gmock/gmock.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QFileSystemModel>
#include <filesystem>
#include <fstream>

#include "gui/dispatch.h"
#include "gui/figures.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/loadshots.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/pulse.h"
#include "window_session.h"

namespace sondera {
namespace {

using FileDialogs = test::WindowSession;

TEST_F(FileDialogs, ABareNameGetsTheFiltersExtension) {
  Run([&] {
    Answer("file:" + folder.File("new_name"));
    const FileChoice choice = AskFile({folder.Path(), "*.da", "File Save", true});
    EXPECT_EQ(choice.answer, FileAnswer::IsNew);
    EXPECT_EQ(choice.path, folder.File("new_name.da"));
    std::ofstream(folder.File("there.txt")) << "x";
    Answer("file:" + folder.File("there.txt"));
    EXPECT_EQ(AskFile({folder.Path(), "*.da", "File Open", false}).answer, FileAnswer::Exists);
    // A folder is entered; the dialog stays for a name in it. It asks nothing about a file that is there.
    std::filesystem::create_directory(folder.File("below"));
    std::ofstream(folder.File("below/old.da")) << "x";
    asked.clear();
    Answer("file:below");
    Answer("file:old.da");
    EXPECT_EQ(AskFile({folder.Path(), "*.da", "File Save", true}).path, folder.File("below/old.da"));
    EXPECT_EQ(asked, (std::vector<std::string>{"File Save", "File Save"}));
  });
}

TEST_F(FileDialogs, TheChosenKindIsTheExtensionOfABareName) {
  const FileRequest request = {
      folder.Path(), "*.ps", "File Save", true, {{"*.ps", "Pages"}, {"*.pdf", "Report"}}};
  Run([&] {
    const auto answered = [&](const std::string& kind, const std::string& name) {
      if (!kind.empty()) Answer("kind:" + kind);
      Answer("file:" + folder.File(name));
      return AskFile(request).path;
    };
    EXPECT_EQ(answered("", "a"), folder.File("a.ps")) << "the first one";
    EXPECT_EQ(answered("Report (*.pdf *.PDF)", "b"), folder.File("b.pdf"));
    EXPECT_EQ(answered("All files", "c"), folder.File("c.ps"));
    EXPECT_EQ(answered("Pages", "d.pdf"), folder.File("d.pdf")) << "an ending is kept";
    EXPECT_EQ(answered("Report", "Exp. and Theo. Curves"), folder.File("Exp. and Theo. Curves.pdf"))
        << "a point in a title begins no ending";
  });
}

TEST_F(FileDialogs, StartInTheFolderOfTheProject) {
  std::filesystem::create_directory(folder.File("site"));
  Run([&] {
    const std::string here = std::filesystem::current_path().string();
    DispatchPress(measpanel::F7);
    EXPECT_EQ(startFolders, (std::vector<std::string>{here})) << "no project yet";
    Answer("file:" + folder.File("site/bridge.da"));
    DispatchPress(measpanel::F7);
    startFolders.clear();
    DispatchPress(measpanel::F7);
    DispatchPress(measpanel::F9);
    for (const Control* c : std::initializer_list<const Control*>{
             &loadtxdata::FILEOPEN_CH1, &loadshots::ADDFILE, &cdisppnl::SAVEGCD, &fmodeling::SAVE,
             &pulse::BROWSE, &mainmenu::EXPORT_DINVER, &mainmenu::LOG_BEGIN, &mainmenu::LOG_RUN})
      SendEvent(*c, Event::Commit);
    EXPECT_EQ(startFolders, std::vector<std::string>(10, folder.File("site")));
  });
}

TEST_F(FileDialogs, DoNotReadTheFilesThatTheyShow) {
  // Without an ending that names a kind, a look into the file would tell it.
  std::ofstream(folder.File("record")) << std::string(1000, 'x');
  Run([&] {
    const int watch = inotify_init1(IN_NONBLOCK);
    ASSERT_GE(inotify_add_watch(watch, folder.Path().c_str(), IN_OPEN | IN_ACCESS), 0);
    const auto opened = [&] {
      alignas(inotify_event) char events[4096];
      const ssize_t n = read(watch, events, sizeof events);
      bool any = false;
      for (ssize_t at = 0; at < n;) {
        const auto* event = reinterpret_cast<const inotify_event*>(events + at);
        any = any || (event->len > 0 && std::string(event->name) == "record");
        at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
      }
      return any;
    };
    bool shown = false;
    QTimer::singleShot(0, qApp, [&] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_TRUE(dialog);
      auto* model = dialog->findChild<QFileSystemModel*>();
      ASSERT_TRUE(model);
      shown = QTest::qWaitFor([&] { return model->rowCount(model->index(model->rootPath())) > 0; });
      QTest::qWait(100);
    });
    AskFile({folder.Path(), "*", "File Open", false});
    EXPECT_TRUE(shown);
    EXPECT_FALSE(opened());
    (void)test::ReadWhole(folder.File("record"));
    EXPECT_TRUE(opened()) << "the watch sees a look into the file";
    close(watch);
  });
}

TEST_F(FileDialogs, EachRingHasItsLabelsName) {
  Run([&] {
    int rings = 0;
    QTimer::singleShot(0, qApp, [&] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_TRUE(dialog);
      for (QComboBox* ring : dialog->findChildren<QComboBox*>()) {
        ++rings;
        const auto labels = QAccessible::queryAccessibleInterface(ring)->relations(QAccessible::Label);
        ASSERT_EQ(labels.size(), 1) << ring->objectName().toStdString();
        EXPECT_FALSE(labels[0].first->text(QAccessible::Name).isEmpty());
      }
    });
    AskFile({folder.Path(), "*.da", "File Open", false});
    EXPECT_EQ(rings, 2);
  });
}

/// A screen reader presses an item from outside, and would wait until the dialog is closed.
TEST_F(FileDialogs, AMenuItemPressedFromOutsideReturnsBeforeItsDialogOpens) {
  Run([&] {
    QAction* open = nullptr;
    for (QAction* action : MainWindowWidget()->findChildren<QAction*>())
      if (action->text().remove(QLatin1Char('&')) == QLatin1String("Open") &&
          action->shortcut() == QKeySequence::Open)
        open = action;
    ASSERT_TRUE(open);
    open->trigger();
    EXPECT_TRUE(asked.empty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked == std::vector<std::string>{"File Open"}; }));
    // Keys that are typed ahead belong to the dialog, so a key opens it at once.
    ASSERT_TRUE(test::BringToFront(*MainWindowWidget()));
    test::PressKey(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(asked.size(), 2u);
  });
}

TEST_F(FileDialogs, APictureGoesIntoTheFolderOfTheProjectAndReplacesAnotherOnlyAfterAQuestion) {
  std::filesystem::create_directory(folder.File("site"));
  const std::string picture = folder.File("site/graph.svg");
  Run([&] {
    Answer("file:" + folder.File("site/bridge.da"));
    DispatchPress(measpanel::F7);
    QWidget& graph = *WidgetOf(exdthd::CURVES);
    Answer("keys:");  // takes the proposed name
    EXPECT_TRUE(AskAndSaveFigure(graph, QStringLiteral("Exp. and Theo. Curves")));
    EXPECT_EQ(test::ReadWhole(folder.File("site/Exp. and Theo. Curves.pdf")).substr(0, 5), "%PDF-");
    std::ofstream(picture) << "mine";
    Answer("file:" + picture);
    Answer("No");
    EXPECT_FALSE(AskAndSaveFigure(graph, QStringLiteral("Graph")));
    EXPECT_EQ(asked.back(), "File already exists. Do you want to overwrite it ?");
    EXPECT_EQ(test::ReadWhole(picture), "mine");
    Answer("file:" + picture);
    Answer("Yes");
    EXPECT_TRUE(AskAndSaveFigure(graph, QStringLiteral("Graph")));
    EXPECT_THAT(test::ReadWhole(picture), ::testing::HasSubstr("<svg"));
  });
}

}  // namespace
}  // namespace sondera
