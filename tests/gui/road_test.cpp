// A person takes a site from files to a profile by mouse and keys; a script with the same masks comes to the same files.
#include <QComboBox>
#include <QListWidget>
#include <filesystem>

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

using RoadTest = test::Road;

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
  fs::create_directory("script");
  fs::current_path(folder.File("script"));
  for (int k = 2; k <= 5; ++k)
    fs::copy_file(folder.File(FormatText("h%d1.hyx", k)), FormatText("h%d1.hyx", k));
  script += "save Script.da\n";
  InstallFrontEnd({});
  StartSession();
  script::Source source = script::Source::OfText(script);
  ::testing::internal::CaptureStderr();
  const int status = script::Run("road", {}).run(source);
  const std::string said = ::testing::internal::GetCapturedStderr();
  EXPECT_NE(status, 1) << said << script;
  EXPECT_EQ(test::ReadWhole("ProjID.fdp"), fdp);
  EXPECT_EQ(test::ReadWhole("ProjID.pcm"), pcm);
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

}  // namespace
}  // namespace sondera
