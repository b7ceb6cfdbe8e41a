// The state of panels/ between two events ends with the session.
#include "panels/panels_state.h"

#include <filesystem>

#include "panels/hmsetup.h"
#include "panels/mainmenu_project.h"
#include "panels/project_requests.h"
#include "panels/sasw_traces.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/events.h"
#include "runtime/redraw.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

class PanelsMemory : public SessionTest {
 protected:
  void Show() {
    m = AddMeasurement({.nChannels = 4});
    SelectPair(m, 0, 1);
  }
  TestMeasurement m;
};

TEST_F(PanelsMemory, SelectorEnteredInAnEarlierSessionDoesNotComeBack) {
  Show();
  DisplayAChanlCallback(Panel::SASW, &sasw::DISPACHNL, Event::GotFocus, 0);  // position 1
  ResetEverything();
  Show();
  RedrawHandlers handlers;
  handlers.doPlotting = [](int) { return -1; };  // nothing to draw
  InstallRedrawHandlers(handlers);
  SetCtrlVal(sasw::DISPACHNL, 3);
  DisplayAChanlCallback(Panel::SASW, &sasw::DISPACHNL, Event::Commit, 0);
  EXPECT_EQ(GetCtrlIndex(sasw::DISPACHNL), 3);
}

TEST_F(PanelsMemory, TextEditedInAnEarlierSessionRenamesNothing) {
  Show();
  UpdateProjIDCallback(Panel::HMSETUP, &hmsetup::PROJID, Event::GotFocus, 0);
  ResetEverything();
  Show();
  SetCtrlVal(hmsetup::PROJID, "other");
  UpdateProjIDCallback(Panel::HMSETUP, &hmsetup::PROJID, Event::Commit, 0);
  EXPECT_EQ(MeasDB.idList.at(1)->ProjID, m.projID);
}

TEST_F(PanelsMemory, ASaveAndALoadLetEventsInAndAProjectHalfReadIsNotKept) {
  const test::TempFolder folder;
  const std::string path = folder.File("three.da");
  for (const char* id : {"a", "b", "c"}) AddMeasurement({.measID = id, .nLines = 8});
  int polls = 0, busy = 0;
  bool loading = false;
  frontEnd.onProcessEvents = [&] {
    ++polls;
    busy += WaitCursorShown() ? 1 : 0;
    // As at the end of the screen: nobody has changed this project.
    if (loading && MeasDB.rawDataList.count() < 3) {
      EXPECT_EQ(RescueProjectFile(), "");
    }
  };
  frontEnd.fileAnswers = {{FileAnswer::IsNew, path}};
  ASSERT_EQ(SaveRawData(), 0);
  EXPECT_GE(busy, 6) << "three to write them, three for the digest";
  EXPECT_EQ(polls, busy);
  polls = busy = 0;
  loading = true;
  ASSERT_EQ(OpenFileProc(path), 0);
  EXPECT_GE(busy, 3);
  EXPECT_EQ(MeasDB.rawDataList.count(), 3);
  EXPECT_FALSE(WaitCursorShown());
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
    EXPECT_EQ(entry.path().string().find("rescued"), std::string::npos) << entry.path();
}

}  // namespace
}  // namespace sondera::testing
