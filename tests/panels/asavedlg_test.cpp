// Tests of the automatic save.
#include "panels/asavedlg.h"

#include "project/project_file.h"
#include "records/session.h"
#include "runtime/catalogue/asavedlg.h"
#include "support/project_bytes.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

class AutoSave : public SessionTest {
 protected:
  void SetUp() override {
    StartEmptyProject();
    MakeSmallProject();
    session.projectFileName = folder.File("site.da");
  }
  std::string NameAfter(const std::string& last) {
    SetCtrlVal(asavedlg::AUTOFILE, last);
    AutoSaveDlg();
    EXPECT_EQ(GetCtrlVal(asavedlg::FILENAME), GetCtrlVal(asavedlg::AUTOFILE));
    return GetCtrlVal(asavedlg::AUTOFILE);
  }
  test::TempFolder folder;
};

TEST_F(AutoSave, TheDialogCountsTheNameUpAndStartsInTheFolderOfTheProject) {
  AutoSaveDlgCallback(Panel::MEASPANEL, nullptr, Event::Commit, 0);
  EXPECT_EQ(GetCtrlVal(asavedlg::AUTOFILE), "Trace_2");
  EXPECT_EQ(GetCtrlVal(asavedlg::FILENAME), "Trace_2");
  EXPECT_EQ(GetCtrlVal(asavedlg::PATHNAME), folder.Path() + "/");
  EXPECT_TRUE(IsPanelShown(Panel::ASAVEDLG));
  AutoSaveCloseCallback(Panel::ASAVEDLG, nullptr, Event::Commit, 0);
  EXPECT_FALSE(IsPanelShown(Panel::ASAVEDLG));
}

TEST_F(AutoSave, ANameWithoutNumberCountsAsZero) {
  EXPECT_EQ(NameAfter("Trace"), "Trace_1");
  EXPECT_EQ(NameAfter("Trace_9"), "Trace_10");
  EXPECT_EQ(NameAfter("My_Site_4"), "My_1") << "only the second part is looked at";
  EXPECT_EQ(NameAfter(""), "_1");
  EXPECT_EQ(NameAfter("T_2147483647"), "T_2147483648");
}

TEST_F(AutoSave, WritesTheWholeProjectWithoutQuestionOrCopyAndKeepsItsName) {
  AutoSaveDlg();
  test::WriteWhole(folder.File("Trace_2.da"), "old");
  EXPECT_EQ(AutoSaveCallback(Panel::ASAVEDLG, nullptr, Event::Commit, 0), 0);
  EXPECT_EQ(test::ReadWhole(folder.File("Trace_2.da")), ProjectBytes().bytes);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"Trace_2.da"}) << "no .bkup";
  EXPECT_EQ(session.projectFileName, folder.File("site.da"));
  EXPECT_EQ(GetPanelTitle(Panel::PANEL), session.appTitle + " - " + folder.File("Trace_2.da"));
  EXPECT_TRUE(frontEnd.questions.empty());
}

TEST_F(AutoSave, AddsTheSeparatorOnlyWhereItIsMissing) {
  SetCtrlVal(asavedlg::AUTOFILE, "x");
  for (const std::string& path : {folder.Path(), folder.Path() + "/"}) {
    SetCtrlVal(asavedlg::PATHNAME, path);
    EXPECT_EQ(AutoSaveMeasurements(), 0);
  }
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"x.da"});
}

TEST_F(AutoSave, AFolderThatIsNotThereIsOneMessage) {
  SetCtrlVal(asavedlg::PATHNAME, folder.File("none"));
  const std::string title = GetPanelTitle(Panel::PANEL);
  EXPECT_EQ(AutoSaveMeasurements(), -1);
  EXPECT_TRUE(OnlyMessage().starts_with("The project could not be saved. "));
  EXPECT_EQ(GetPanelTitle(Panel::PANEL), title);
}

TEST_F(AutoSave, ChangeTakesFolderAndNameFromItsDialog) {
  frontEnd.fileAnswers = {{FileAnswer::IsNew, "/sites/oysand/Line_7.da"}, {}};
  EXPECT_EQ(ChangePathCallback(Panel::ASAVEDLG, nullptr, Event::Commit, 0), 0);
  EXPECT_EQ(frontEnd.files[0].title, "AutoSave ...");
  EXPECT_EQ(GetCtrlVal(asavedlg::PATHNAME), "/sites/oysand/");
  EXPECT_EQ(GetCtrlVal(asavedlg::FILENAME), "Line_7");
  EXPECT_EQ(GetCtrlVal(asavedlg::AUTOFILE), "Line_7");
  EXPECT_EQ(ChangePathCallback(Panel::ASAVEDLG, nullptr, Event::Commit, 0), -1);
  EXPECT_EQ(GetCtrlVal(asavedlg::AUTOFILE), "Line_7") << "a cancel leaves everything";
}

}  // namespace
}  // namespace sondera::testing
