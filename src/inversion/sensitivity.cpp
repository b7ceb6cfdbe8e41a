// sensitivity.cpp - see sensitivity.h.
#include "inversion/sensitivity.h"

#include <string>

#include "inversion/rho_nu_rule.h"
#include "run/report_file.h"
#include "run/sweep.h"
#include "run/system_state.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kSwitchG = 4;  // place in Switches::reportSwitch

/// A quantity of the layers that may be free, in the order of computation.
struct Quantity {
  int number;
  const char* name;
  OffsetVector<double> LayeredGround::*values;
  double Switches::*step;
};
constexpr Quantity kQuantityOrder[] = {
    {kQuantityH, " H", &LayeredGround::layerH, &Switches::dThickness},
    {kQuantityVs, " Vs", &LayeredGround::layerVs, &Switches::dVs},
    {kQuantityVp, " Vp", &LayeredGround::layerVp, &Switches::dVp},
    {kQuantityDensity, " Rho", &LayeredGround::layerRho, &Switches::dDensity},
};

/// Curves of the two sweeps of a difference, reused for the whole matrix.
struct Sweeps {
  OffsetVector<double> plusVel, minusVel, plusAmp, minusAmp;
};

/// Column p by a central difference. Refused when halted: the value stays perturbed.
Refusal FillColumn(Run& run, double& value, double step, int p, Sweeps& sweeps, RunListener& listener) {
  value += step;
  if (Refusal halt = FS_rWave3D(PartsOfSweep(run), listener, sweeps.plusVel, sweeps.plusAmp)) return halt;
  value += -2.0 * step;
  if (Refusal halt = FS_rWave3D(PartsOfSweep(run), listener, sweeps.minusVel, sweeps.minusAmp)) return halt;
  for (int r = 1; r <= run.observations.nObsRows; ++r) {
    run.update.GMatrix(r, p) = (sweeps.plusVel[r] - sweeps.minusVel[r]) / (2.0 * step);
    if (run.switches.iUseAmplitude == 1)
      run.update.GMatrix(r + run.observations.nObsRows, p) =
          (sweeps.plusAmp[r] - sweeps.minusAmp[r]) / (2.0 * step);
  }
  value += step;
  return {};
}

Refusal FillColumnsOfLayer(Run& run, int l, Sweeps& sweeps, RunListener& listener) {
  // All steps use the layer's original values; columns of other quantities may change them by rounding.
  double steps[kQuantities] = {};
  for (int q = 0; q < kQuantities; ++q)
    steps[q] = (run.ground.*kQuantityOrder[q].values)[l] * run.switches.*kQuantityOrder[q].step;
  std::string message = FormatText("Calculating G matrix: Layer %d * Deriv. of ", l);
  for (int q = 0; q < kQuantities; ++q) {
    const Quantity& quantity = kQuantityOrder[q];
    const int p = run.parameters.MapEntry(quantity.number, l);
    if (p == 0) continue;
    message += quantity.name;
    listener.Process(message);
    if (quantity.number == kQuantityH && l >= run.ground.nLayersCur) continue;
    if (Refusal halt = FillColumn(run, (run.ground.*quantity.values)[l], steps[q], p, sweeps, listener))
      return halt;
  }
  return {};
}

/// Derivatives by one quantity, a line for each row of the observations.
void ReportQuantity(const Run& run, ReportFile& file, const char* head, int quantity, int firstRow) {
  file.Put(head);
  for (int r = 1; r <= run.observations.nObsRows; ++r) {
    bool any = false;
    for (int l = 1; l <= run.ground.nLayersCur; ++l) {
      const int p = run.parameters.MapEntry(quantity, l);
      if (p == 0) continue;
      file.Printf("%12.7le ", run.update.GMatrix(firstRow + r, p));
      any = true;
    }
    if (any) file.Put("\n");
  }
}

/// Kept: the third and fourth block hold rows 3 and 4 of the map, which are Vp and density, in spite of their
/// heads.
/// heads say.
void ReportMatrix(const Run& run, Listener& listener) {
  ReportFile file(run.switches, ".G");
  ReportQuantity(run, file, "pdf of Velocity wrt Thickness\n", 1, 0);
  ReportQuantity(run, file, "pdf of Velocity wrt Shear Wave Velocity\n", 2, 0);
  ReportQuantity(run, file, "pdf of Velocity wrt Unit Weight\n", 3, 0);
  ReportQuantity(run, file, "pdf of Velocity wrt Poisson's Ratio\n", 4, 0);
  if (run.switches.iUseAmplitude == 1) {
    ReportQuantity(run, file, "pdf of Amplitude wrt Thickness\n", 1, run.observations.nObsRows);
    ReportQuantity(run, file, "pdf of Amplitude wrt Shear Wave Velocity\n", 2, run.observations.nObsRows);
    ReportQuantity(run, file, "pdf of Amplitude wrt Unit Weight\n", 3, run.observations.nObsRows);
    ReportQuantity(run, file, "pdf of Amplitude wrt Poisson's Ratio\n", 4, run.observations.nObsRows);
  }
  file.Append(listener);
}

}  // namespace

void RenewDensityAndNu(const InversionSettings& settings, LayeredGround& ground) {
  if (!settings.UPDATERHONU) return;
  for (int l = 1; l <= ground.nLayersCur; ++l) {
    const DensityAndNu rule = RuleForVs(ground.layerVs[l], settings.unit.LENGTHUNIT, settings.unit.index);
    ground.layerRho[l] = rule.density;
    ground.layerNu[l] = rule.nu;
  }
}

Refusal FS_Gmatrix(Run& run, const InversionSettings& settings, RunListener& listener) {
  listener.Process("Calculating G matrix");
  RenewDensityAndNu(settings, run.ground);
  Sweeps sweeps;
  for (int l = 1; l <= run.ground.nLayersCur; ++l)
    if (Refusal halt = FillColumnsOfLayer(run, l, sweeps, listener)) return halt;
  if (run.switches.reportSwitch[kSwitchG]) ReportMatrix(run, listener);
  return {};
}

}  // namespace sondera
