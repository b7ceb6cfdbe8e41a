// The log of a session by the menu: begun on a saved project, ended, and run again.
#include <fstream>

#include "gui/dispatch.h"
#include "panels/mainmenu_project.h"
#include "records/session.h"
#include "runtime/catalogue/gaborpnl.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/project_hooks.h"
#include "window_session.h"

namespace sondera {
namespace {

using LogMenu = test::WindowSession;

std::string Saved(const std::string& file) {
  return test::ReadWhole(file);
}

TEST_F(LogMenu, ALogHoldsTheProjectAndWhatWasDoneAndRunsAgain) {
  const std::string project = folder.File("site.da"), log = folder.File("day.txt");
  Run([&] {
    Answer("file:" + project);
    DispatchPress(mainmenu::SAVE_RAW_DATA);
    ASSERT_EQ(session.projectFileName, project);
    Answer("file:" + log);
    DispatchPress(mainmenu::LOG_BEGIN);
    EXPECT_TRUE(DispatchNumber(gaborpnl::BETA, 2.25));
    EXPECT_TRUE(DispatchNumber(meassetup::SRCLOC, 4.5));
    DispatchPress(mainmenu::LOG_END);
    const std::string text = Saved(log);
    EXPECT_TRUE(text.starts_with("*sondera 2\n# log of a session")) << text;
    EXPECT_NE(text.find("\nopen " + project), std::string::npos) << text;
    EXPECT_NE(text.find("GABORPNL.BETA 2.25"), std::string::npos) << text;
    EXPECT_NE(text.find("4.5"), std::string::npos) << text;
    EXPECT_EQ(text.find("LOG_"), std::string::npos) << "the items of the log are no part of it: " << text;

    SetCtrlVal(gaborpnl::BETA, 3.0);
    SetCtrlVal(meassetup::SRCLOC, 0.0);
    TakeProjectAsSaved();  // the log opens its project
    Answer("file:" + log);
    DispatchPress(mainmenu::LOG_RUN);
    EXPECT_EQ(GetCtrlVal(gaborpnl::BETA), 2.25);
    EXPECT_EQ(GetCtrlVal(meassetup::SRCLOC), 4.5);
    EXPECT_FALSE(QuitRequested()) << "the windows stay";
    EXPECT_TRUE(PersonAnswers());
  });
}

TEST_F(LogMenu, RefusalsAreOneMessageEach) {
  const std::string script = folder.File("wrong.txt"), foreign = folder.File("notes.txt");
  std::ofstream(script) << "*sondera 2\nset GABORPNL.BETA 7\nno such word\n";
  std::ofstream(foreign) << "my notes\n";
  Run([&] {
    DispatchPress(mainmenu::LOG_END);
    Answer("file:" + script);
    DispatchPress(mainmenu::LOG_RUN);
    EXPECT_EQ(GetCtrlVal(gaborpnl::BETA), 7.0) << "up to the fault it was done";
    Answer("file:" + foreign);
    DispatchPress(mainmenu::LOG_BEGIN);
    EXPECT_EQ(Saved(foreign), "my notes\n") << "no file that is not a log is written over";
    EXPECT_TRUE(DispatchNumber(meassetup::SRCLOC, 1.5));
    ASSERT_TRUE(HasUnsavedChanges());
    DispatchPress(mainmenu::LOG_BEGIN);
    TakeProjectAsSaved();
    Answer("file:" + folder.File("log.txt"));
    DispatchPress(mainmenu::LOG_BEGIN);
    DispatchPress(mainmenu::LOG_BEGIN);
    DispatchPress(mainmenu::LOG_RUN);
    DispatchPress(mainmenu::LOG_END);
  });
  std::vector<std::string> texts;
  for (const std::string& text : asked)
    if (text != "Begin a Log" && text != "Run a Log or Script") texts.push_back(text);
  ASSERT_EQ(texts.size(), 6u);
  EXPECT_EQ(texts[0], "No log is written.");
  EXPECT_TRUE(texts[1].starts_with("wrong.txt:3: no: ")) << texts[1];
  EXPECT_NE(texts[2].find("exists and is not a log"), std::string::npos) << texts[2];
  EXPECT_EQ(texts[3], "Save the project first: the log begins with it.");
  EXPECT_EQ(texts[4], "A log is written already. End it first.");
  EXPECT_EQ(texts[5], "End the log first: it cannot hold the lines of another script.");
}

}  // namespace
}  // namespace sondera
