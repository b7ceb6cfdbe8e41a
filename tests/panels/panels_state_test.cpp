// The state of panels/ between two events ends with the session.
#include "panels/panels_state.h"

#include "panels/hmsetup.h"
#include "panels/sasw_traces.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/redraw.h"
#include "support/session_fixture.h"

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

}  // namespace
}  // namespace sondera::testing
