// update_bounds.cpp - see update_bounds.h.
#include "inversion/update_bounds.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <string>

#include "forward/layer_table.h"
#include "forward/system_state.h"
#include "inversion/model_numbers.h"
#include "project/session.h"
#include "runtime/dialogs.h"
#include "runtime/panels/exdthd.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr const char* kTrapTitle = "Sondera 2";
constexpr int kMostClamps = 3;
constexpr double kFactorIsZero = 1e-12;

int QuantityOf(int p) {
  int layer = 1, quantity = 1;
  FS_ModelNoToLayerNo(p, layer, quantity);
  return quantity;
}

double Base(int p) {
  return run.iInvScheme == kPrior ? run.rModelPrior[p] : run.rModel[p];
}

/// Part of the step that keeps every parameter inside; counts those outside at the full step.
double StepFactor(int& violations) {
  double factor = 1.0;
  violations = 0;
  const auto shorten = [&](double room, double step) {
    ++violations;
    const double part = room / step;
    if (part < factor) factor = part;
  };
  for (int p = 1; p <= run.nModelParm; ++p) {
    const auto q = static_cast<std::size_t>(QuantityOf(p));
    const double step = run.deltaModel[p], moved = Base(p) - step;
    if (moved <= run.parmMin[q]) shorten(Base(p) - run.parmMin[q], step);
    if (moved >= run.parmMax[q]) shorten(Base(p) - run.parmMax[q], step);
  }
  return std::fabs(factor) < kFactorIsZero ? 0.0 : factor;
}

/// Names of the quantities. Kept: the fourth one, density, goes by the name of the first.
const char* NameOf(int quantity) {
  if (quantity == kQuantityVs) return "shear wave velocity";
  return quantity == kQuantityVp ? "mass density" : "thickness";
}

void TellTrap(int quantity, bool atMinimum, double unclamped) {
  const char* name = NameOf(quantity);
  std::printf("\n\n\n*** Warning ***\nInversion analysis is trapped. Please %s constraint for %s.\n",
              atMinimum ? "increase the minimum" : "decrease the maximum", name);
  std::fflush(stdout);
  MessagePopup(kTrapTitle, atMinimum ? FormatText("Warning: Reduce the uncertainty factor for %s.", name)
                                     : FormatText("Warning: Increase the uncertainty factor for %s: %lf",
                                                  name, unclamped));
}

/// Full step, parameters outside held at their bound. False when that happens too often.
bool ClampModel() {
  for (int p = 1; p <= run.nModelParm; ++p) {
    const int quantity = QuantityOf(p);
    const auto q = static_cast<std::size_t>(quantity);
    const double moved = Base(p) - run.deltaModel[p];
    double held = moved;
    if (moved <= run.parmMin[q] || moved >= run.parmMax[q]) {
      const bool atMinimum = moved <= run.parmMin[q];
      held = atMinimum ? run.parmMin[q] : run.parmMax[q];
      if (++run.iTrapCount >= kMostClamps) {
        TellTrap(quantity, atMinimum, moved);
        return false;
      }
    }
    run.rModel[p] = held;
  }
  return true;
}

/// Part of the step for all parameters alike. False, the model untouched, when a value would not be finite: a
/// start outside its bounds that the step hardly moves makes the factor as large as can be.
bool StepModel(double factor) {
  const auto moved = [factor](int p) { return Base(p) - run.deltaModel[p] * factor; };
  for (int p = 1; p <= run.nModelParm; ++p) {
    if (std::isfinite(moved(p))) continue;
    MessagePopup(session.appTitle,
                 "The step of the model is not finite: a value of the starting model lies outside its bounds "
                 "and has no influence on the curve. The model stays as it is.");
    return false;
  }
  for (int p = 1; p <= run.nModelParm; ++p) run.rModel[p] = moved(p);
  run.iTrapCount = 0;
  return true;
}

void WriteToLayers() {
  for (int l = 1; l <= run.nLayersCur; ++l) {
    double* const values[] = {&run.layerH[l], &run.layerVs[l], &run.layerVp[l], &run.layerRho[l]};
    for (int q = 1; q <= kQuantities; ++q) {
      const int p = run.MapEntry(q, l);
      if (p > 0) *values[q - 1] = run.rModel[p];
    }
  }
}

void CompleteLayers() {
  for (int l = 1; l <= run.nLayersCur; ++l) {
    if (run.iPoissonGiven[l] == 1) {
      run.layerVp[l] = VpFromPoisson(run.layerVs[l], run.layerNu[l]);
      continue;
    }
    const double nu = PoissonFromVelocities(run.layerVp[l], run.layerVs[l]);
    run.layerNu[l] = nu >= 0.5 ? kGuardedNu : nu;
    if (nu >= 0.5) run.layerVs[l] = GuardedVs(run.layerVp[l]);
  }
}

}  // namespace

void LayersFromModel() {
  WriteToLayers();
  CompleteLayers();
}

bool CorrectionIsFinite() {
  return std::all_of(run.deltaModel.begin(), run.deltaModel.end(), [](double x) { return std::isfinite(x); });
}

Move MoveModel(int& violations) {
  if (!CorrectionIsFinite()) return Move::kNotFinite;
  if (run.iCurIterNo == 1) run.iTrapCount = 0;
  const double factor = StepFactor(violations);
  const bool dataSpace = run.GActive.rows() < run.nModelParm;  // nothing is truncated there
  if (run.iUseSVD == 1 && !dataSpace && violations >= 1) return Move::kViolated;
  if (factor != 0.0) {
    if (!StepModel(factor)) return Move::kNotFinite;
  } else if (!ClampModel()) {
    return Move::kTrapped;
  }
  SetCtrlVal(exdthd::PROCESSMSG, "Updating model parameters...");
  LayersFromModel();
  return Move::kMoved;
}

}  // namespace sondera
