// inversion_case.h - a small plane-wave case on the panels of a started session: the curve of known ground as
// the measured one, result files named "site" in the test's folder.
#pragma once

#include <vector>

#include "records/inv_records.h"
#include "records/model_records.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/hmsetup.h"
#include "support/app_fixture.h"

namespace sondera::testing {

class InversionCase : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    SetCtrlVal(hmsetup::PROJID, "site");
  }

  /// Soil table of the panel with these Vs, and Update pressed.
  static void EnterLayers(const std::vector<double>& Vs) {
    SetCtrlVal(fmodeling::NLAYERS, static_cast<int>(Vs.size()));
    Commit(fmodeling::NLAYERS);
    for (int row = 1; row <= static_cast<int>(Vs.size()); ++row) {
      const double cells[] = {2.0 * row, 0.0, Vs[static_cast<std::size_t>(row - 1)], 1800.0, 0.3333333, 0.02};
      for (int k = 0; k < 6; ++k) SetTableCellVal(fmodeling::SOILPROFILE, row, k + 1, cells[k]);
    }
    ASSERT_EQ(Commit(fmodeling::UPDATE), 0);
  }

  /// Plane-wave curve of known ground as the measured one, a uniform start on the panel.
  void EnterCase() {
    SetCtrlVal(fmodeling::ANALYSISTYPE, 2);
    SetCtrlVal(fmodeling::GLOBAL_ARRAY, 1);
    Commit(fmodeling::GLOBAL_ARRAY);
    SetCtrlVal(fmodeling::NDISPPOINTS, 12);
    SetCtrlVal(fmodeling::XMIN, 2.0);
    SetCtrlVal(fmodeling::XMAX, 40.0);
    SetCtrlVal(fmodeling::INCRATIO, -1.0);
    FModelParam.DispCurvInfo = 0;
    EnterLayers({160.0, 230.0, 310.0});
    ASSERT_EQ(Commit(exdthd::RUN_FMODEL), 0) << frontEnd.messages.size();
    for (auto column : kGlobalColumns) FModelParam.*column = TheoDispInfo.*column;
    InitializeInvAnal();
    EnterLayers({190.0, 190.0, 190.0});
    FModelParam.DispCurvInfo = 2;
  }
};

}  // namespace sondera::testing
