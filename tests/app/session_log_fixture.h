// session_log_fixture.h - a session with its log, a person at the windows, and the replay of a log.
#pragma once

#include <string>

#include "app/script/session_log.h"
#include "app/script_fixture.h"
#include "records/session.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/input_scope.h"
#include "support/site_records.h"

namespace sondera::testing {

inline const std::string kRead = "read hyx id=ID files=H31.hyx source=0 at=14,30\n";
/// A pair with its curve, representative curves and a model of the ground.
inline const std::string kModel = kRead +
                                  "pair ID 1 2\nphase original\nmask 0 7\nmask 48 500\ndisperse\n"
                                  "condense points=12\nlayers 2,3,4,6,80\nload global\nproject id=site\n";

class SessionLogTest : public ScriptTest {
 protected:
  void SetUp() override {
    ScriptTest::SetUp();
    test::WriteSitePair(folder.File("H31.hyx"), 14.0, 30.0);
  }
  void TearDown() override {
    script::EndLog();
    ScriptTest::TearDown();
  }
  std::string LinesOf(const std::string& log) {
    const std::string text = Read(log);
    EXPECT_TRUE(text.starts_with("*sondera 2\n# log of a session, Sondera ")) << text.substr(0, 80);
    return text.substr(text.find('\n', 12) + 1);
  }
  /// Begins a fresh session with a log.
  void Begin(const std::string& log) {
    StartSession();
    ASSERT_EQ(script::BeginLog(log), "");
  }
  /// Bytes of the present project.
  std::string ProjectNow() {
    session.projectFileName = folder.File("now.da");
    EXPECT_EQ(Commit(measpanel::F6), 0);
    return Read("now.da");
  }
  /// The project after running a log in a fresh session. Refused lines are refused again, so its status may
  /// be 1.
  std::string Replayed(const std::string& log) {
    InstallDaqDriver(&daqNone);
    StartSession();
    const std::string lines = Read(log);
    EXPECT_EQ(Check(lines.substr(lines.find('\n') + 1)), 0) << err;
    Run(lines.substr(lines.find('\n') + 1));
    return ProjectNow();
  }

  // A person at the windows: the events that a field and a button send.
  static void Press(const Control& c) {
    InputScope scope({.kind = Input::Kind::Press, .control = &c});
    scope.note(SendEvent(c, Event::Commit));
  }
  template <class Write>
  static void EnterBy(const Control& c, Write write) {
    InputScope scope({.kind = Input::Kind::Value, .control = &c});
    SendEvent(c, Event::GotFocus);
    SendEvent(c, Event::LeftClick);
    if (!write()) return;
    scope.entered();
    if (c.kind == ControlKind::List) SendEvent(c, Event::ValChanged);
    scope.note(SendEvent(c, Event::Commit));
  }
  static void Enter(const Control& c, double value) {
    EnterBy(c, [&] { return EnterValue(c, value); });
  }
  static void EnterText(const Control& c, const std::string& text) {
    EnterBy(c, [&] { return EnterValue(c, text); });
  }
  static void Choose(const Control& c, int index) {
    EnterBy(c, [&] { return EnterIndex(c, index); });
  }
  static void Paste(const TableControl& c, const std::vector<std::pair<int, int>>& cells,
                    const std::vector<double>& values) {
    InputScope scope({.kind = Input::Kind::Cells, .control = &c, .cells = cells});
    SendEvent(c, Event::GotFocus);
    SendEvent(c, Event::LeftClick);
    for (std::size_t i = 0; i < cells.size(); ++i)
      EXPECT_TRUE(EnterCell(c, cells[i].first, cells[i].second, values[i]));
    scope.entered();
    scope.note(SendEvent(c, Event::Commit));
  }
  static void Mouse(const GraphControl& c, Event event, const GraphPlace& place) {
    InputScope scope({.kind = Input::Kind::Point, .control = &c, .event = event, .place = place});
    scope.note(SendGraphEvent(c, event, place));
  }
};

}  // namespace sondera::testing
