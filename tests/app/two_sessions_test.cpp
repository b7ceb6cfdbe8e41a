// A session has no effect on the next one: the same work in a second session of one process gives the same
// bytes.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>

#include "app/commands.h"
#include "app/startup.h"
#include "panels/mainmenu_project.h"
#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/controls.h"
#include "runtime/events.h"
#include "support/app_fixture.h"
#include "support/session_fixture.h"
#include "support/site_records.h"

namespace sondera::testing {
namespace {

namespace fs = std::filesystem;

/// Import, mask, curve, starting model, inversion, save: what a person does to get a profile.
constexpr char kWork[] =
    "import H31 pair 20 50\nmasking pair 0 600 450 110 80\ncalcVel\npreInversion 1 0 2 0.5 3 4 6 100\n"
    "inversion\nexport out pair 1 2 3\n";

class TwoSessions : public AppTest {
 protected:
  /// The work in its own session and folder; then the project is opened and saved again.
  /// @return the bytes of all files, by name
  std::map<std::string, std::string> Work(const std::string& name) {
    const fs::path place = fs::path(folder.Path()) / name;
    fs::create_directory(place);
    fs::current_path(place);
    StartSession();
    test::WriteSitePair((place / "H31.hyx").string(), 20.0, 50.0);
    session.projectFileName = "site.da";
    ProcessScriptText(kWork);
    EXPECT_EQ(RunUserInterface(), 0) << name;
    StartSession();
    EXPECT_EQ(OpenFileProc("site.da"), 0) << name;
    session.projectFileName = "again.da";
    EXPECT_EQ(SaveRawData(), 0) << name;
    fs::current_path(folder.Path());
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(place))
      files[entry.path().filename().string()] = test::ReadWhole(entry.path().string());
    return files;
  }
};

/// Everything that a person can see of the controls.
std::string AllControls() {
  std::string text;
  for (int p = 0; p < kPanelCount; ++p) {
    const Panel panel = static_cast<Panel>(p);
    text += GetPanelTitle(panel) + (IsPanelShown(panel) ? " shown\n" : "\n");
    for (ControlId control : ControlsOf(panel)) {
      text += std::string(control->name) + " " + GetCtrlLabel(*control) +
              (IsDimmed(*control) ? " dimmed" : "") + (IsVisible(*control) ? "" : " hidden");
      if (control->kind == ControlKind::Numeric)
        text += " " + std::to_string(GetCtrlVal(static_cast<const NumericControl&>(*control)));
      if (control->kind == ControlKind::Text)
        text += " " + GetCtrlVal(static_cast<const TextControl&>(*control));
      if (control->kind == ControlKind::Ring) {
        const auto& ring = static_cast<const RingControl&>(*control);
        for (int i = 0; i < GetNumListItems(ring); ++i) text += " " + GetLabelFromIndex(ring, i);
        text += " at " + std::to_string(GetCtrlIndex(ring));
      }
      text += "\n";
    }
  }
  return text;
}

/// Uses everything that keeps state between two events.
void LeaveTraces() {
  SetCtrlVal(hmsetup::PROJID, "other");
  SendEvent(hmsetup::PROJID, Event::GotFocus);
  SendEvent(hmsetup::MEASID, Event::GotFocus);
  SetCtrlIndex(sasw::TRACE_ONOFF, 1);
  SendEvent(sasw::DISPACHNL, Event::GotFocus);
  SendEvent(sasw::DISPBID, Event::GotFocus);
  Commit(sasw::PHASE_ENHANCED);
  Commit(sasw::MASKINGNEW);
  session.nextCurveColor = 5;
  InvParam.nEntries = 3;
}

TEST_F(TwoSessions, GiveTheSameBytes) {
  const auto first = Work("first");
  LeaveTraces();
  const auto second = Work("second");
  ASSERT_GT(first.size(), 8u);
  EXPECT_GT(first.at("site.da").size(), 10000u);
  EXPECT_TRUE(first.at("again.da") == first.at("site.da")) << "a load and a save change the project";
  ASSERT_EQ(first.size(), second.size());
  for (const auto& [name, bytes] : first) {
    ASSERT_TRUE(second.count(name)) << name;
    EXPECT_TRUE(second.at(name) == bytes) << name;
  }
}

TEST_F(TwoSessions, AFixtureStartsFromTheSameControlsAndRecordsAfterAWholeSession) {
  ResetEverything();
  const std::string fresh = AllControls();
  ASSERT_GT(fresh.size(), 5000u);
  const int entries = InvParam.nEntries;
  Work("first");
  LeaveTraces();
  EXPECT_NE(AllControls(), fresh);
  ResetEverything();
  EXPECT_EQ(AllControls(), fresh);
  EXPECT_EQ(MeasDB.idList.count(), 0);
  EXPECT_EQ(MeasDB.maskingList.count(), 0);
  EXPECT_EQ(InvParam.nEntries, entries);
  EXPECT_EQ(session.nextCurveColor, 0);
}

}  // namespace
}  // namespace sondera::testing
