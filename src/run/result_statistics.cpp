// result_statistics.cpp - see result_statistics.h.
#include "run/result_statistics.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <vector>

#include "records/inv_records.h"
#include "records/result_capacity.h"
#include "run/active_rows.h"
#include "run/report_file.h"

namespace sondera {
namespace {

constexpr int kSwitchN = 1, kSwitchR0 = 2, kSwitchR1 = 3;  // places in Switches::reportSwitch
constexpr int kInversion = 2;

/// Free parameter of a quantity.
struct Parameter {
  int layer, number;
};

std::vector<Parameter> ParametersOf(const Run& run, int quantity) {
  std::vector<Parameter> found;
  for (int l = 1; l <= run.ground.nLayersCur; ++l) {
    const int p = run.parameters.MapEntry(quantity, l);
    if (p > 0 && p <= run.parameters.nModelParm) found.push_back({l, p});
  }
  return found;
}

/// Quantities in the order of the resolution files. Kept: the row of Vp has the name of Poisson's ratio.
struct ResolutionTable {
  int quantity;
  const char* title;
};
constexpr ResolutionTable kResolutionTables[] = {
    {kQuantityH, "Model Parameter = Thickness\n"},
    {kQuantityVs, "Model Parameter = Shear Wave Velocity\n"},
    {kQuantityDensity, "Model Parameter = Unit Weight\n"},
    {kQuantityVp, "Model Parameter = Poison's Ratio\n"},
};

/// Element (i, j) of A B.
double Product(const ColumnMatrix& a, const ColumnMatrix& b, int i, int j) {
  double sum = 0.0;
  for (int k = 1; k <= a.cols(); ++k) sum += a(i, k) * b(k, j);
  return sum;
}

void WriteDataResolution(const Run& run, const ColumnMatrix& G, Listener& listener) {
  ReportFile file(run.switches, ".N");
  file.Printf("\n\nIteration no. : %2ld ...\n", static_cast<long>(run.course.iCurIterNo));
  for (int i = 1; i <= G.rows(); ++i) {
    for (int j = 1; j <= G.rows(); ++j)
      file.Printf("%3d %3d %15.7le\n", i, j, Product(G, run.update.Weight, i, j));
    file.Put("\n");
  }
  file.Put("\n\n");
  file.Append(listener);
}

void WriteDataDiagonal(const Run& run, const ColumnMatrix& G, const OffsetVector<double>& velocity,
                       Listener& listener) {
  const std::vector<int> rows = ActiveRows(run.observations, run.switches);
  const bool byWavelength = run.switches.iDispSource == 1 && std::abs(run.switches.iAnalysis) == 2;
  ReportFile file(run.switches, ".n");
  file.Printf("\n\nIteration no. : %2ld ...\n", static_cast<long>(run.course.iCurIterNo));
  for (int i = 1; i <= G.rows() && !rows.empty(); ++i) {
    // Rows of amplitudes follow those of velocities.
    const int full = rows[static_cast<std::size_t>(i - 1) % rows.size()];
    const double x = byWavelength ? run.observations.runLambda[full] : run.observations.runFreq[full];
    const double v = full <= velocity.hi() ? velocity[full] : 0.0;
    file.Printf("%4ld %15.7le %15.7le %15.7le\n", static_cast<long>(i), x, x != 0.0 ? v / x : 0.0,
                Product(G, run.update.Weight, i, i));
  }
  file.Put("\n");
  file.Append(listener);
}

/// Whole model resolution. The long form has all quantities, the short one thickness and Vs, in blocks.
void WriteModelResolution(const Run& run, const ColumnMatrix& R, bool longForm, Listener& listener) {
  ReportFile file(run.switches, longForm ? ".R0" : ".R1");
  file.Printf("\n\nIteration no. : %2ld ...", static_cast<long>(run.course.iCurIterNo));
  for (const ResolutionTable& table : kResolutionTables) {
    if (!longForm && table.quantity != kQuantityH && table.quantity != kQuantityVs) continue;
    const auto parameters = ParametersOf(run, table.quantity);
    if (parameters.empty()) continue;
    file.Put(table.title);
    for (const Parameter& row : parameters) {
      for (const Parameter& col : parameters)
        file.Printf("%ld %ld %15.7le\n", static_cast<long>(row.layer), static_cast<long>(col.layer),
                    R(row.number, col.number));
      if (!longForm) file.Put("\n");
    }
  }
  file.Append(listener);
}

double ColumnNorm(const ColumnMatrix& G, int p) {
  double sum = 0.0;
  for (int k = 1; k <= G.rows(); ++k) sum += G(k, p) * G(k, p);
  return std::sqrt(sum);
}

void WriteResolutionTable(ReportFile& file, const LayeredGround& ground, const ColumnMatrix& G,
                          const ColumnMatrix& R, const std::vector<Parameter>& parameters) {
  file.Put(
      " No.\t      Depth\t   G(maxWaveL)\t   G(diagonal)\t    Diagonal\t Backus-Gilbert\t    Dirichlet\n");
  double depth = 0.0, backusSum = 0.0, dirichletSum = 0.0;
  for (const Parameter& row : parameters) {
    const int i = row.layer, p = row.number;
    depth += ground.layerH[i];
    double backus = 0.0, dirichlet = 0.0;
    for (const Parameter& col : parameters) {
      const double r = R(p, col.number), apart = i - col.layer, delta = i == col.layer ? 1.0 : 0.0;
      backus += apart * apart * r * r;
      dirichlet += (r - delta) * (r - delta);
    }
    file.Printf("%3ld\t%15.7le\t%15.7le\t%15.7le\t%15.7le\t%15.7le\t%15.7le\n", static_cast<long>(i), depth,
                G.rows() > 0 ? G(G.rows(), p) : 0.0, ColumnNorm(G, p), R(p, p), backus, dirichlet);
    backusSum += backus;
    dirichletSum += dirichlet;
  }
  file.Printf("Backus-Gilbert spread function ... %15.7le\n", backusSum);
  file.Printf("Dirichlet spread function  ....... %15.7le\n", dirichletSum);
}

/// Resolution of Vs into the entry: a fixed Vs counts as fully resolved, so it has no band.
void StoreResolution(const Run& run, const ColumnMatrix& R, Listener& listener) {
  const int entry = run.course.iCurIterNo, n = run.ground.nLayersCur;
  if (entry < 0) return;
  if (const Refusal refusal = ReserveEntry(InvParam, entry, n, InvParam.nPoints, InvParam.nCurves)) {
    listener.Tell(refusal);
    return;
  }
  for (int l = 1; l <= n; ++l) {
    const int p = run.parameters.MapEntry(kQuantityVs, l);
    InvParam.resolution(entry, l - 1) = p > 0 && p <= R.rows() ? R(p, p) : 1.0;
  }
}

// --- Posterior statistics ---

struct PosteriorTable {
  int quantity;
  const char* title;
  OffsetVector<double> LayeredGround::*value;
};
constexpr PosteriorTable kPosteriorTables[] = {
    {kQuantityH, "Model Parameter : Thickness\n", &LayeredGround::layerH},
    {kQuantityVs, "Model Parameter : Shear Wave Velocity\n", &LayeredGround::layerVs},
    {kQuantityVp, "Model Parameter : Poisson's Ratio\n", &LayeredGround::layerNu},
    {kQuantityDensity, "Model Parameter : Mass Density\n", &LayeredGround::layerRho},
};

}  // namespace

void FS_SavePostMPar(const Run& run, int iteration, double rmsVel, Listener& listener) {
  ReportFile file(run.switches, ".pcm");
  file.Printf("Iteration no. : %2ld (%s) ... RMS error (Vel=%lg)\n", static_cast<long>(iteration),
              run.course.runTitle.c_str(), rmsVel);
  for (const PosteriorTable& table : kPosteriorTables) {
    const auto parameters = ParametersOf(run, table.quantity);
    if (parameters.empty()) continue;
    file.Put(table.title);
    file.Put("Layer   postV/priV      Var.       Std Dev. L.Bound(95%)  U.Bound(95%)\n");
    for (const auto& [l, p] : parameters) {
      const double variance = p <= run.update.InvH.rows() ? run.update.InvH(p, p) : 0.0;
      const double prior = p <= run.parameters.Cm.rows() ? run.parameters.Cm(p, p) : 0.0;
      const double deviation = std::sqrt(variance), value = (run.ground.*table.value)[l];
      file.Printf("%3ld %12.5lf %12.5lf %12.5lf %12.5lf %12.5lf\n", static_cast<long>(l),
                  prior != 0.0 ? variance / prior : 0.0, variance, deviation, value - 2.0 * deviation,
                  value + 2.0 * deviation);
    }
  }
  file.Append(listener);
}

void FS_SaveGaussParam(const Run& run, const ColumnMatrix& G, const OffsetVector<double>& velocity,
                       Listener& listener) {
  if (run.switches.withoutResults) return;
  const ColumnMatrix& W = run.update.Weight;
  if (W.cols() != G.rows() || W.rows() != G.cols()) return;
  const bool standard = run.switches.runKind == kInversion;
  if (run.switches.reportSwitch[kSwitchN]) WriteDataResolution(run, G, listener);
  if (standard) WriteDataDiagonal(run, G, velocity, listener);

  ColumnMatrix R(W.rows(), W.rows());
  for (int j = 1; j <= R.cols(); ++j)
    for (int i = 1; i <= R.rows(); ++i) R(i, j) = Product(W, G, i, j);
  if (run.switches.reportSwitch[kSwitchR0]) WriteModelResolution(run, R, true, listener);
  if (run.switches.reportSwitch[kSwitchR1]) WriteModelResolution(run, R, false, listener);
  StoreResolution(run, R, listener);
  if (!standard) return;
  ReportFile file(run.switches, ".r");
  file.Printf("\n\nIteration no. : %2ld ... \n", static_cast<long>(run.course.iCurIterNo));
  for (const ResolutionTable& table : kResolutionTables) {
    const auto parameters = ParametersOf(run, table.quantity);
    if (parameters.empty()) continue;
    file.Put(table.title);
    WriteResolutionTable(file, run.ground, G, R, parameters);
  }
  file.Append(listener);
}

}  // namespace sondera
