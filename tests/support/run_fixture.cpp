// run_fixture.cpp - see run_fixture.h.
#include "support/run_fixture.h"
#include "support/named_runs.h"

#include <algorithm>
#include <cmath>

#include "panels/run_boxes.h"
#include "records/session.h"
#include "run/observations.h"
#include "run/receiver_setups.h"
#include "run/run_files.h"
#include "run/run_sizes.h"
#include "run/run_state.h"
#include "run/sweep.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/dialogs.h"

namespace sondera::testing {

int FS_rWave3D_F(OffsetVector<double>& vel, OffsetVector<double>& amp) {
  RunBoxes boxes;
  return ShowRefusal(FS_rWave3D_F(PartsOfSweep(run), FModelParam, boxes, vel, amp));
}

int FS_rWave3D(OffsetVector<double>& vel, OffsetVector<double>& amp) {
  RunBoxes boxes;
  return ShowRefusal(FS_rWave3D(PartsOfSweep(run), boxes, vel, amp));
}

void RunTest::SetUp() {
  SessionTest::SetUp();
  InitializeFModel();
  InitializeTheoDispInfo();
  InitializeInvAnal();
  ResetRunState();
  session.resultFolder = folder.Path();
  SetCtrlVal(hmsetup::PROJID, "site");
}

void RunTest::TearDown() {
  ResetRunState();
  SessionTest::TearDown();
}

std::string RunTest::File(const char* extension) const {
  FS_CloseFiles(run.switches.runKind);
  return test::ReadWhole(Base() + extension);
}

void RunTest::SetLayers(const std::vector<LayerRow>& rows) {
  for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) {
    m->nLayers = static_cast<int>(rows.size());
    m->capLayers = std::max(m->capLayers, m->nLayers);
    for (auto column : kLayerColumns) (m->*column).assign(static_cast<std::size_t>(m->capLayers), 0.0);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      m->thickness[i] = rows[i].thickness;
      m->Vp[i] = rows[i].Vp;
      m->Vs[i] = rows[i].Vs;
      m->density[i] = rows[i].density;
      m->nu[i] = rows[i].nu;
      m->damping[i] = rows[i].damping;
    }
  }
}

void RunTest::SetPlainLayers(int n) {
  std::vector<LayerRow> rows;
  for (int l = 0; l < n; ++l) rows.push_back({2.0, 0.0, 100.0 + 20.0 * l, 2.0, 0.3, 0.02});
  SetLayers(rows);
}

void RunTest::SetGlobalCurve(int n) {
  for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) {
    m->dispCurvType = 1;
    m->DispCurvInfo = 2;
    m->nDispPointsG = n;
    for (auto column : kGlobalColumns) (m->*column).assign(static_cast<std::size_t>(std::max(n, 200)), 0.0);
    for (int i = 1; i <= n; ++i) {
      const std::size_t k = static_cast<std::size_t>(i - 1);
      m->globalVel[k] = 100.0 + 10.0 * i;
      m->globalFreq[k] = 10.0 * i;
      m->globalWlen[k] = m->globalVel[k] / m->globalFreq[k];
    }
  }
}

void RunTest::SetArrayCurves(int points, int curves, const std::vector<double>& velocities) {
  for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) {
    m->dispCurvType = 2;
    m->DispCurvInfo = 2;
    m->nDispPoints = points;
    m->nDispCurves = curves;
    m->nReceivers = curves + 1;
    m->recLoc.assign(static_cast<std::size_t>(curves + 1), 0.0);
    m->freq.assign(static_cast<std::size_t>(std::max(points, 200)), 0.0);
    m->vel.assign(static_cast<std::size_t>(std::max(points * curves, 4000)), 0.0);
    m->wlen = m->vel;
    m->pairRec1.assign(static_cast<std::size_t>(curves), 0);
    m->pairRec2 = m->pairRec1;
    m->pairMin.assign(static_cast<std::size_t>(curves), 0.0);
    m->pairMax = m->pairMin;
    for (std::size_t r = 0; r < m->recLoc.size(); ++r) m->recLoc[r] = std::ldexp(1.0, static_cast<int>(r));
    for (int p = 0; p < points; ++p) m->freq[static_cast<std::size_t>(p)] = 5.0 * (p + 1);
    for (int c = 0; c < curves; ++c) {
      m->pairRec1[static_cast<std::size_t>(c)] = c + 1;
      m->pairRec2[static_cast<std::size_t>(c)] = c + 2;
    }
    std::copy(velocities.begin(), velocities.end(), m->vel.begin());
  }
}

void RunTest::StartRun(int kind, int analysis) {
  FModelParam.analysis = TheoDispInfo.analysis = analysis;
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_RetrieveSystemPM(kind, 0), 0);
  ASSERT_EQ(FS_GetStartMP(), 0);
  ASSERT_EQ(FS_SetUpObsData(run.switches.iDispSource), 0);
  FS_SetupReceivers(0, run.observations, run.receivers);
  FS_SearchReceivers(run.observations, run.receivers);
}

OffsetVector<double> RunTest::Values(std::initializer_list<double> list) {
  OffsetVector<double> v(1, static_cast<int>(list.size()));
  std::copy(list.begin(), list.end(), v.begin());
  return v;
}

}  // namespace sondera::testing
