// parameters_fixture.h - a session with fresh model records, the callbacks installed, and layers for the
// panel.
#pragma once

#include "app/callbacks.h"
#include "panels/fmodeling_records.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "run/run_state.h"
#include "run/system_state.h"
#include "runtime/catalogue/fmodeling.h"
#include "support/session_fixture.h"

namespace sondera::testing {

/// A row of the soil table.
inline void PutLayer(int row, double h, double vp, double vs, double density, double nu, double damping) {
  const double values[] = {h, vp, vs, density, nu, damping};
  for (int k = 0; k < 6; ++k) SetTableCellVal(fmodeling::SOILPROFILE, row, k + 1, values[k]);
}

class ModelParameters : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    InitializeFModel();
    InitializeTheoDispInfo();
    InitializeInvAnal();
    ResetRunState();
    InstallCallbacks();
  }
  /// A table of n good layers.
  static void PutLayers(int n) {
    AdjustTableSize(fmodeling::SOILPROFILE, n, "L");
    for (int row = 1; row <= n; ++row) PutLayer(row, 0.5 + row, 0.0, 100.0 + row, 1.8, 0.3, 0.02);
  }
};

}  // namespace sondera::testing
