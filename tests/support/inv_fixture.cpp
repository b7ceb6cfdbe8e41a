// inv_fixture.cpp - see inv_fixture.h.
#include "support/inv_fixture.h"

#include "panels/fmodeling_records.h"
#include "panels/forward_run.h"
#include "run/run_state.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/redraw.h"

namespace sondera::testing {
namespace {

constexpr double kThickness[] = {3.0, 5.0, 20.0};
constexpr int kPoints = 12;

std::vector<LayerRow> Ground(const std::vector<double>& Vs) {
  std::vector<LayerRow> rows;
  for (std::size_t i = 0; i < Vs.size(); ++i)
    rows.push_back({kThickness[i % 3], 0.0, Vs[i], 1800.0, 0.3333333, 0.02});
  return rows;
}

}  // namespace

void InversionTest::SetUp() {
  RunTest::SetUp();
  RedrawHandlers handlers;
  handlers.exdThdCurvPlot = [this] { drawn += "curves "; };
  handlers.drawProfile = [this](int entry) { drawn += "profile " + std::to_string(entry) + " "; };
  handlers.drawResolution = [this](int entry) { drawn += "resolution " + std::to_string(entry) + " "; };
  handlers.drawRMSerror = [this](int entry) { drawn += "rms " + std::to_string(entry) + " "; };
  InstallRedrawHandlers(handlers);
}

void InversionTest::TearDown() {
  InstallRedrawHandlers({});
  RunTest::TearDown();
}

void InversionTest::SetUpCase() {
  SetLayers(Ground(kTrueVs));
  ModelRecord& m = FModelParam;
  m.analysis = 2;
  m.dispCurvType = 1;
  m.DispCurvInfo = 0;
  m.xDomainType = 1;
  m.xMinGlobal = 2.0;
  m.xMaxGlobal = 40.0;
  m.nDispPointsG = kPoints;
  m.incRatio = -1.0;
  SetFModelParam();
  ASSERT_EQ(RunFModel(0, 0), 0) << Messages();
  for (auto column : kGlobalColumns) m.*column = TheoDispInfo.*column;
  InitializeInvAnal();
  ResetRunState();
  SetLayers(Ground(kStartVs));
  m.DispCurvInfo = 2;
  SetFModelParam();
  drawn.clear();
}

void InversionTest::StoreProfile(InvRecord& r, int entry, const std::vector<double>& Vs) {
  r.nLayers = static_cast<int>(Vs.size());
  double depth = 0.0;
  for (int i = 0; i < r.nLayers; ++i) {
    r.depth(entry, i) = depth;
    r.H(entry, i) = kThickness[i % 3];
    r.Vs(entry, i) = Vs[static_cast<std::size_t>(i)];
    r.density(entry, i) = 1700.0 + i;
    r.nu(entry, i) = 0.31;
    r.damping(entry, i) = 0.03;
    r.Vp(entry, i) = 2.0 * r.Vs(entry, i);
    depth += r.H(entry, i);
  }
}

std::vector<double> InversionTest::VsOf(const ModelRecord& m) {
  return {m.Vs.begin(), m.Vs.begin() + m.nLayers};
}

std::vector<double> InversionTest::VsOnPanel() {
  std::vector<double> Vs;
  for (int row = 1; row <= GetNumTableRows(fmodeling::SOILPROFILE); ++row)
    Vs.push_back(GetTableCellVal(fmodeling::SOILPROFILE, row, 3));
  return Vs;
}

std::string InversionTest::Messages() const {
  std::string all;
  for (const std::string& text : frontEnd.messages) all += text + "\n";
  return all;
}

}  // namespace sondera::testing
