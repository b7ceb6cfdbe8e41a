// waveform_fixture.h - a ground in the table of the model and records of it, through panel and words.
#pragma once

#include <string>

#include "app/script_fixture.h"
#include "panels/panels_state.h"
#include "runtime/catalogue/pulse.h"
#include "runtime/controls.h"

namespace sondera::testing {

class WaveformTest : public ScriptTest {
 protected:
  /// 2 m of 150 m/s on 300 m/s.
  static constexpr const char* kTwoLayers = "2 0 150 1.8 0.25 0.02\n10 0 300 1.8 0.25 0.02\n";

  void Ground(const std::string& layers = kTwoLayers, const std::string& receivers = "2,4,8") {
    Write("ground.txt", layers);
    ASSERT_EQ(Run("layers ground.txt\nreceivers " + receivers + "\n"), 0) << err;
  }
  /// Quick settings that hold the wave of the ground above: 80 lines with force.
  void Grid(double fc = 60.0, double span = 500.0, int points = 256) {
    SetCtrlVal(pulse::CFREQ, fc);
    SetCtrlVal(pulse::FREQSPAN, span);
    SetCtrlVal(pulse::NPOINTS, points);
    Commit(pulse::NPOINTS);
  }
  const WaveformState& State() const { return panelsState.waveform; }
};

}  // namespace sondera::testing
