// run_fixture.h - start of every test of an analysis run: records and run state at their first values, result
// files in a folder of the test, and helpers that put layers and curves into the records.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "panels/forward_run.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "run/run_state.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {

/// One row of the layer table, in the order of the panel.
struct LayerRow {
  double thickness, Vp, Vs, density, nu, damping;
};

/// Sweeps of the present run on the boxes of the results page. @return 0; -1 after a message, or when halted
int FS_rWave3D_F(OffsetVector<double>& vel, OffsetVector<double>& amp);
int FS_rWave3D(OffsetVector<double>& vel, OffsetVector<double>& amp);

class RunTest : public SessionTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Puts layers into FModelParam and TheoDispInfo.
  void SetLayers(const std::vector<LayerRow>& rows);
  /// n layers of 2 thick, Vs 100, 120, 140, ..., Poisson's ratio 0.3, density 2, damping 0.02.
  void SetPlainLayers(int n);
  /// A global curve of n points in both records: velocity 100 + 10 i at 10 i Hz (i from 1).
  void SetGlobalCurve(int n);
  /// Array curves in both records: velocities point by point, frequency 5 p (p from 1); receivers at 1, 2, 4,
  /// ...
  void SetArrayCurves(int points, int curves, const std::vector<double>& velocities);

  /// A run as its driver has it before the solvers: everything from the sizes to the receivers.
  /// @param kind  kForwardRun, kInversionRun or kWaveformRun
  void StartRun(int kind, int analysis);
  /// Vector 1..n of the values.
  static OffsetVector<double> Values(std::initializer_list<double> list);

  /// Name of a result file, without and with extension.
  std::string Base() const { return folder.File("site"); }
  /// A result file, put in place if it is still open.
  std::string File(const char* extension) const;

  test::TempFolder folder;
};

}  // namespace sondera::testing
