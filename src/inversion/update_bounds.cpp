// update_bounds.cpp - see update_bounds.h.
#include "inversion/update_bounds.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <string>

#include "run/layer_table.h"
#include "run/model_numbers.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr const char* kTrapTitle = "Sondera 2";
constexpr int kMostClamps = 3;
constexpr double kFactorIsZero = 1e-12;

int QuantityOf(const Run& run, int p) {
  int layer = 1, quantity = 1;
  FS_ModelNoToLayerNo(run, p, layer, quantity);
  return quantity;
}

double Base(const Run& run, int p) {
  return run.switches.iInvScheme == kPrior ? run.parameters.rModelPrior[p] : run.parameters.rModel[p];
}

/// Fraction of the step that keeps every parameter inside; counts those outside at the full step.
double StepFactor(const Run& run, int& violations) {
  double factor = 1.0;
  violations = 0;
  const auto shorten = [&](double room, double step) {
    ++violations;
    const double part = room / step;
    if (part < factor) factor = part;
  };
  for (int p = 1; p <= run.parameters.nModelParm; ++p) {
    const auto q = static_cast<std::size_t>(QuantityOf(run, p));
    const double step = run.update.deltaModel[p], moved = Base(run, p) - step;
    if (moved <= run.parameters.parmMin[q]) shorten(Base(run, p) - run.parameters.parmMin[q], step);
    if (moved >= run.parameters.parmMax[q]) shorten(Base(run, p) - run.parameters.parmMax[q], step);
  }
  return std::fabs(factor) < kFactorIsZero ? 0.0 : factor;
}

/// Names of the quantities. Kept: the fourth one, density, has the name of the first.
const char* NameOf(int quantity) {
  if (quantity == kQuantityVs) return "shear wave velocity";
  return quantity == kQuantityVp ? "mass density" : "thickness";
}

Refusal Trapped(int quantity, bool atMinimum, double unclamped) {
  const char* name = NameOf(quantity);
  std::printf("\n\n\n*** Warning ***\nInversion analysis is trapped. Please %s constraint for %s.\n",
              atMinimum ? "increase the minimum" : "decrease the maximum", name);
  std::fflush(stdout);
  return Refusal::Titled(
      kTrapTitle, atMinimum
                      ? FormatText("Warning: Reduce the uncertainty factor for %s.", name)
                      : FormatText("Warning: Increase the uncertainty factor for %s: %lf", name, unclamped));
}

/// Full step; parameters outside are set to their bound. Refused when that happens too often.
Refusal ClampModel(Run& run) {
  for (int p = 1; p <= run.parameters.nModelParm; ++p) {
    const int quantity = QuantityOf(run, p);
    const auto q = static_cast<std::size_t>(quantity);
    const double moved = Base(run, p) - run.update.deltaModel[p];
    double held = moved;
    if (moved <= run.parameters.parmMin[q] || moved >= run.parameters.parmMax[q]) {
      const bool atMinimum = moved <= run.parameters.parmMin[q];
      held = atMinimum ? run.parameters.parmMin[q] : run.parameters.parmMax[q];
      if (++run.course.iTrapCount >= kMostClamps) return Trapped(quantity, atMinimum, moved);
    }
    run.parameters.rModel[p] = held;
  }
  return {};
}

/// The same fraction of the step for all parameters. Refused, with the model unchanged, when a value would
/// not be finite: a start outside its bounds with a very small step makes the factor extremely large.
Refusal StepModel(Run& run, double factor) {
  const auto moved = [&run, factor](int p) { return Base(run, p) - run.update.deltaModel[p] * factor; };
  for (int p = 1; p <= run.parameters.nModelParm; ++p) {
    if (std::isfinite(moved(p))) continue;
    return "The step of the model is not finite: a value of the starting model lies outside its bounds "
           "and has no influence on the curve. The model stays as it is.";
  }
  for (int p = 1; p <= run.parameters.nModelParm; ++p) run.parameters.rModel[p] = moved(p);
  run.course.iTrapCount = 0;
  return {};
}

void WriteToLayers(const Parameters& parameters, LayeredGround& ground) {
  for (int l = 1; l <= ground.nLayersCur; ++l) {
    double* const values[] = {&ground.layerH[l], &ground.layerVs[l], &ground.layerVp[l], &ground.layerRho[l]};
    for (int q = 1; q <= kQuantities; ++q) {
      const int p = parameters.MapEntry(q, l);
      if (p > 0) *values[q - 1] = parameters.rModel[p];
    }
  }
}

void CompleteLayers(LayeredGround& ground) {
  for (int l = 1; l <= ground.nLayersCur; ++l) {
    if (ground.iPoissonGiven[l] == 1) {
      ground.layerVp[l] = VpFromPoisson(ground.layerVs[l], ground.layerNu[l]);
      continue;
    }
    const double nu = PoissonFromVelocities(ground.layerVp[l], ground.layerVs[l]);
    ground.layerNu[l] = nu >= 0.5 ? kGuardedNu : nu;
    if (nu >= 0.5) ground.layerVs[l] = GuardedVs(ground.layerVp[l]);
  }
}

}  // namespace

void LayersFromModel(const Parameters& parameters, LayeredGround& ground) {
  WriteToLayers(parameters, ground);
  CompleteLayers(ground);
}

bool CorrectionIsFinite(const Run& run) {
  return std::all_of(run.update.deltaModel.begin(), run.update.deltaModel.end(),
                     [](double x) { return std::isfinite(x); });
}

MoveResult MoveModel(Run& run, Listener& listener) {
  if (!CorrectionIsFinite(run)) return {Move::kNotFinite, {}, 0};
  if (run.course.iCurIterNo == 1) run.course.iTrapCount = 0;
  MoveResult result;
  const double factor = StepFactor(run, result.violations);
  const bool dataSpace = run.update.GActive.rows() < run.parameters.nModelParm;  // nothing is truncated there
  if (run.switches.iUseSVD == 1 && !dataSpace && result.violations >= 1) {
    result.move = Move::kViolated;
    return result;
  }
  result.refusal = factor != 0.0 ? StepModel(run, factor) : ClampModel(run);
  if (result.refusal) {
    result.move = factor != 0.0 ? Move::kNotFinite : Move::kTrapped;
    return result;
  }
  listener.Process("Updating model parameters...");
  LayersFromModel(run.parameters, run.ground);
  return result;
}

}  // namespace sondera
