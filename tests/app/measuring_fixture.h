// measuring_fixture.h - a session with the board of tests, and the buttons of a measurement.
#pragma once

#include <chrono>
#include <string>

#include "acquisition/acquisition_state.h"
#include "app/devices.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/hwsetup.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/meassetup.h"
#include "support/app_fixture.h"
#include "support/test_board.h"

namespace sondera::testing {

class MeasuringTest : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    testBoard = TestBoard{};
    Begin();
  }
  /// A session with the board that the test has prepared.
  void Begin() {
    InstallDaqDriver(&daqTestBoard);
    StartSession();
    testBoard.log.clear();
  }
  /// What a person enters into a field.
  template <class C, class V>
  int Enter(const C& control, V value) {
    SendEvent(control, Event::GotFocus);
    SetCtrlVal(control, value);
    return Commit(control);
  }
  int Start() { return Commit(measpanel::SASWSTART); }
  HWSetup& Hw() { return *MeasDB.hwSetupList.at(1); }
  MeasSetup& Places() { return *MeasDB.measSetupList.at(1); }
  RawData& Raw() { return *MeasDB.rawDataList.at(1); }
  /// A small free run: few lines, so that records are short.
  void Plan(int channels, int lines, int averages, double span = 100.0) {
    Enter(hwsetup::NCHANNELS1, channels);
    Hw().nLines = lines;
    Hw().freqSpan = span;
    Hw().nAverage = averages;
  }
  std::string OnlyMessage() const {
    return frontEnd.messages.size() == 1 ? frontEnd.messages.front()
                                         : std::to_string(frontEnd.messages.size()) + " messages";
  }
  /// No task, flag or buffer of a run is left.
  void ExpectIdle() {
    EXPECT_EQ(measRun.measRunning, 0);
    EXPECT_EQ(measRun.measPaused, 0);
    EXPECT_EQ(measRun.daqTask, 0);
    EXPECT_EQ(testBoard.task, 0);
    EXPECT_EQ(GetCtrlVal(measpanel::MEAS_ARM_LED), 0);
    EXPECT_EQ(GetCtrlVal(measpanel::SASWPAUSECONT), 0);
    EXPECT_EQ(GetCtrlVal(measpanel::MSGBOX), "");
    EXPECT_FALSE(WaitCursorShown());
    EXPECT_FALSE(IsLocked());
    EXPECT_EQ(session.measBuffer.capacity(), 0u);
  }
  static double SecondsOf(const std::function<void()>& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  }
};

}  // namespace sondera::testing
