// Loops over the catalogue: a script can set, print and press every control; refusals name line and word.
#include <cmath>
#include <set>

#include "app/script/control_values.h"
#include "app/script/names.h"
#include "app/script/values.h"
#include "app/script_fixture.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/graphs.h"

namespace sondera {
namespace {

using script::NameOf;

class ScriptControls : public testing::ScriptTest {};

std::vector<ControlId> AllControls() {
  std::vector<ControlId> all;
  for (int p = 0; p < kPanelCount; ++p)
    for (ControlId c : ControlsOf(static_cast<Panel>(p))) all.push_back(c);
  return all;
}

/// A value that the control does not have now, as a word of a script; empty when there is none.
std::string OtherValue(const Control& c) {
  if (c.kind == ControlKind::Text || c.kind == ControlKind::Label) return "other";
  if (c.kind == ControlKind::Numeric || c.kind == ControlKind::Int) return "7";
  if (c.kind == ControlKind::Toggle) return script::ValueOf(c) == "1" ? "0" : "1";
  const int count = items::Count(c);
  if (count == 0) return "";
  return script::TextOf(items::Value(c, count - 1));
}

TEST_F(ScriptControls, EveryValueCanBeSetAndPrinted) {
  int set = 0;
  for (ControlId c : AllControls()) {
    if (!script::HasValue(*c)) continue;
    const std::string value = OtherValue(*c);
    if (value.empty()) {
      EXPECT_EQ(Run("print " + NameOf(*c)), 0) << err;
      continue;
    }
    EXPECT_EQ(Run("set " + NameOf(*c) + " " + value + " commit=no\nprint " + NameOf(*c)), 0) << err;
    EXPECT_EQ(out, value + "\n") << NameOf(*c);
    ++set;
  }
  EXPECT_GT(set, 200);
}

TEST_F(ScriptControls, EveryCellOfEveryTableCanBeSetAndWritten) {
  for (ControlId c : AllControls()) {
    if (c->kind != ControlKind::Table) continue;
    EXPECT_EQ(Run("cell " + NameOf(*c) + " 1 1 2.5\ntable " + NameOf(*c) + " table.txt"), 0) << err;
    const std::string text = Read("table.txt");
    EXPECT_EQ(text.substr(text.find('\n') + 1, 3), "2.5") << NameOf(*c);
  }
}

TEST_F(ScriptControls, ABlockOfCellsIsWrittenAtOnce) {
  EXPECT_EQ(Run("cells FMODELING.SOILPROFILE 2 1 2.5,,210;;3,400\ntable FMODELING.SOILPROFILE t.txt"), 0)
      << err;
  std::istringstream lines(Read("t.txt"));
  std::vector<std::string> rows;
  for (std::string row; std::getline(lines, row);) rows.push_back(row);
  ASSERT_GE(rows.size(), 5u);
  EXPECT_TRUE(rows[2].starts_with("2.5\t")) << rows[2];
  EXPECT_NE(rows[2].find("\t210\t"), std::string::npos) << rows[2];
  EXPECT_FALSE(rows[3].starts_with("3\t")) << rows[3];
  EXPECT_TRUE(rows[4].starts_with("3\t400\t")) << rows[4];
}

TEST_F(ScriptControls, ABlockThatDoesNotFitChangesNothing) {
  const std::string before = [&] {
    EXPECT_EQ(Run("table FMODELING.SOILPROFILE t.txt"), 0);
    return Read("t.txt");
  }();
  EXPECT_EQ(Run("cells FMODELING.SOILPROFILE 10 1 7;8"), 1);
  EXPECT_EQ(err, "job:2: cells: FMODELING.SOILPROFILE has 10 rows now\n");
  EXPECT_EQ(Run("cells FMODELING.SOILPROFILE 2147483647 1 7;8;9"), 1);
  EXPECT_EQ(Check("cells FMODELING.SOILPROFILE 1 6 7,8"), 1);
  EXPECT_EQ(err, "job:2: cells: FMODELING.SOILPROFILE has the columns 1 to 6\n");
  EXPECT_EQ(Check("cells FMODELING.SOILPROFILE 1 1 7,x"), 1);
  EXPECT_EQ(err, "job:2: cells: VALUES: \"x\" is not a number\n");
  EXPECT_EQ(Check("cells FMODELING.SOILPROFILE 1 1 ,;"), 1);
  EXPECT_EQ(err, "job:2: cells: VALUES has no number\n");
  EXPECT_EQ(Check("cells FMODELING.SOILPROFILE 0 1 7"), 1);
  EXPECT_EQ(Run("table FMODELING.SOILPROFILE t.txt"), 0);
  EXPECT_EQ(Read("t.txt"), before);
}

/// A press reaches the callback: a counting function replaces the real one.
int presses = 0;
ControlId pressed = nullptr;
Event sent{};
int Count(Panel, ControlId control, Event event, long) {
  ++presses;
  pressed = control;
  sent = event;
  return 0;
}

TEST_F(ScriptControls, EveryCallbackCanBePressedEveryMenuItemToo) {
  int menus = 0;
  for (ControlId c : AllControls()) {
    const Callback real = CallbackOf(*c);
    if (!real) {
      EXPECT_EQ(Run("press " + NameOf(*c)), 1) << NameOf(*c);
      EXPECT_EQ(err, "job:2: press: " + NameOf(*c) + " does nothing when it is pressed\n");
      continue;
    }
    InstallCallback(*c, Count);
    presses = 0;
    EXPECT_EQ(Run("press " + NameOf(*c)), 0) << err;
    EXPECT_EQ(presses, 1) << NameOf(*c);
    EXPECT_EQ(pressed, c);
    EXPECT_EQ(sent, Event::Commit);
    InstallCallback(*c, real);
    if (c->kind == ControlKind::Menu) ++menus;
  }
  EXPECT_GT(menus, 25);
}

/// With the real callbacks, each in a fresh session without data: a line is done, or it is refused with its line
/// and its word; nothing else is possible.
TEST_F(ScriptControls, EveryControlIsSetAndPressedForReal) {
  int done = 0, refused = 0;
  const auto take = [&](const std::string& line) {
    StartSession();
    const int status = Run(line) % 3;
    ++(status == 0 ? done : refused);
    const std::string word = line.substr(0, line.find(' '));
    std::istringstream told(err);
    for (std::string text; std::getline(told, text);)
      EXPECT_TRUE(text.starts_with("job:2: " + word + ": ") || text.starts_with("job:2: halt"))
          << line << text;
    EXPECT_EQ(err.empty(), status == 0) << line << ": " << err;
  };
  for (ControlId c : AllControls()) {
    if (script::HasValue(*c))
      if (const std::string value = OtherValue(*c); !value.empty()) take("set " + NameOf(*c) + " " + value);
    if (CallbackOf(*c)) take("press " + NameOf(*c));
  }
  EXPECT_GT(done, 400);
  EXPECT_GT(refused, 20);
}

TEST_F(ScriptControls, APressMaySendAnyEvent) {
  const Callback real = CallbackOf(sasw::MASKINGNEW);
  InstallCallback(sasw::MASKINGNEW, Count);
  const std::pair<const char*, Event> kEvents[] = {
      {"commit", Event::Commit},          {"changed", Event::ValChanged},
      {"left", Event::LeftClick},         {"right", Event::RightClick},
      {"double", Event::LeftDoubleClick}, {"focus", Event::GotFocus},
      {"blur", Event::LostFocus},         {"close", Event::Close}};
  for (const auto& [name, event] : kEvents) {
    EXPECT_EQ(Run(std::string("press SASW.MASKINGNEW event=") + name), 0) << err;
    EXPECT_EQ(sent, event) << name;
  }
  InstallCallback(sasw::MASKINGNEW, real);
}

TEST_F(ScriptControls, EveryGraphCanBeWritten) {
  for (ControlId c : AllControls())
    if (c->kind == ControlKind::Graph) {
      EXPECT_EQ(Run("graph " + NameOf(*c) + " graph.json"), 0) << err;
      EXPECT_EQ(Read("graph.json").substr(0, 9), "{\"title\":");
    }
}

TEST_F(ScriptControls, KindsWithoutAValueAreRefused) {
  for (ControlId c : AllControls()) {
    if (script::HasValue(*c)) continue;
    const std::string kind(script::KindName(c->kind));
    EXPECT_EQ(Run("set " + NameOf(*c) + " 1"), 1);
    EXPECT_EQ(err, "job:2: set: " + NameOf(*c) + " is a " + kind + ", which does not fit here\n");
    EXPECT_EQ(Check("set " + NameOf(*c) + " 1"), 1);
  }
}

TEST_F(ScriptControls, WrongValuesAreRefusedAndChangeNothing) {
  EXPECT_EQ(Run("set INVERSION.UF_VS fast"), 1);
  EXPECT_EQ(err, "job:2: set: INVERSION.UF_VS takes a number, and \"fast\" is none\n");
  EXPECT_EQ(Run("set INVERSION.NITER 2.5"), 1);
  EXPECT_EQ(err, "job:2: set: INVERSION.NITER takes a whole number, and \"2.5\" is none\n");
  EXPECT_EQ(Run("set INVERSION.MODELPARM 17"), 1);
  EXPECT_EQ(err, "job:2: set: unknown item of INVERSION.MODELPARM \"17\"\n");
  EXPECT_EQ(Run("item SASW.DISPATYPE \"Coherense\""), 1);
  EXPECT_EQ(err, "job:2: item: unknown item of SASW.DISPATYPE \"Coherense\"; did you mean \"Coherence\"?\n");
  EXPECT_EQ(Run("cell FMODELING.SOILPROFILE 11 1 3"), 1);
  EXPECT_EQ(err, "job:2: cell: FMODELING.SOILPROFILE has 10 rows now\n");
  EXPECT_EQ(Run("cell FMODELING.SOILPROFILE 1 7 3"), 1);
  EXPECT_EQ(err, "job:2: cell: FMODELING.SOILPROFILE has the columns 1 to 6\n");
  EXPECT_EQ(GetCtrlVal(inversion::NITER), 5);
  EXPECT_EQ(GetCtrlVal(inversion::MODELPARM), 1);
}

TEST_F(ScriptControls, UnknownNamesGetTheNearestOne) {
  EXPECT_EQ(Run("set INVERSION.NITR 3"), 1);
  EXPECT_EQ(err, "job:2: set: unknown control \"INVERSION.NITR\"; did you mean \"INVERSION.NITER\"?\n");
  EXPECT_EQ(Run("press SAWS.MASKINGNEW"), 1);
  EXPECT_EQ(err, "job:2: press: unknown control \"SAWS.MASKINGNEW\"; did you mean \"SASW.MASKINGNEW\"?\n");
  EXPECT_EQ(Run("press QQQQ.ZZZZZZZZZ"), 1);
  EXPECT_EQ(err, "job:2: press: unknown panel \"QQQQ\"\n");
  EXPECT_EQ(Run("press MASKINGNEW"), 1);
  EXPECT_EQ(err, "job:2: press: \"MASKINGNEW\" is not a PANEL.CONTROL, like SASW.MASKINGNEW\n");
}

TEST_F(ScriptControls, ARingTakesValueOrLabelAndASwitchYesOrNo) {
  EXPECT_EQ(Run("set SASW.DISPATYPE Coherence commit=no\nprint SASW.DISPATYPE\n"
                "set INVERSION.UPDATERHONU no\nprint INVERSION.UPDATERHONU\n"
                "set LOADTXDATA.LENGTHUNIT ft\nprint LOADTXDATA.LENGTHUNIT\n"
                "cell FMODELING.SOILPROFILE 2 \"S-Wave Vel.\" 210\n"),
            0)
      << err;
  EXPECT_EQ(out, "8\n0\n0.3048\n");
}

TEST_F(ScriptControls, SetDoesWhatAPersonDoes) {
  std::vector<Event> events;
  static std::vector<Event>* seen;
  seen = &events;
  const Callback real = CallbackOf(hmsetup::PROJID);
  InstallCallback(hmsetup::PROJID, [](Panel, ControlId, Event event, long) {
    seen->push_back(event);
    return 0;
  });
  EXPECT_EQ(Run("set HMSETUP.PROJID site"), 0) << err;
  EXPECT_EQ(events, (std::vector<Event>{Event::GotFocus, Event::LeftClick, Event::Commit}));
  events.clear();
  EXPECT_EQ(Run("set HMSETUP.PROJID other commit=no"), 0) << err;
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(GetCtrlVal(hmsetup::PROJID), "other");
  InstallCallback(hmsetup::PROJID, real);
}

TEST_F(ScriptControls, TheModelOfAGraphIsWritten) {
  const int handle =
      PlotXY(sasw::DISPLAY_A, {1.0, 2.0, NAN}, {3.0, -4.0, 5.0}, PlotStyle::Scatter, 2, 0xFF8000, "a \"b\"");
  ASSERT_GT(handle, 0);
  PlotRectangle(sasw::DISPLAY_A, 5, 180, 6, -180, 0, 0, "3", true);
  SetAxisRange(sasw::DISPLAY_A, false, -10, 20);
  SetAxisLabel(sasw::DISPLAY_A, true, "Frequency", "Hz");
  SetAxisPrefix(sasw::DISPLAY_A, true, "k", 1000.0);
  SetAxisDivisions(sasw::DISPLAY_A, true, 5);
  SetGraphTitle(sasw::DISPLAY_A, "site");
  SetGraphCursor(sasw::DISPLAY_A, 1, 1.5, 2.5);
  SetCursorColor(sasw::DISPLAY_A, 1, 0xFF0000);
  EXPECT_EQ(Run("graph SASW.DISPLAY_A a.json"), 0) << err;
  EXPECT_EQ(
      Read("a.json"),
      R"({"title":"site","plots":[{"x":[1.0,2.0,null],"y":[3.0,-4.0,5.0],"style":"scatter","marker":2,)"
      R"("color":"#ff8000","width":1.0,"dash":"solid","legend":"a \"b\"","visible":true}],)"
      R"("rectangles":[{"x1":5.0,"y1":180.0,"x2":6.0,"y2":-180.0,"label":"3","selected":true}],)"
      R"("cursors":[{"x":1.5,"y":2.5,"plot":0,"index":0,"color":"#ff0000"}],)"
      R"("axes":{"x":{"min":1.0,"max":6.0,"log":false,"reversed":false,"label":"Frequency","unit":"Hz",)"
      R"("prefix":"k","factor":1000.0,"divisions":5},)"
      R"("y":{"min":-10.0,"max":20.0,"log":false,"reversed":false,"label":"","unit":"","prefix":"",)"
      R"("factor":1.0,"divisions":0}},"intensity":null})"
      "\n");
}

}  // namespace
}  // namespace sondera
