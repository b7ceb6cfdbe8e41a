// starting_model.h - the first layered profile of an inversion: a table of layers for a depth, one analytic
// profile for each depth-to-wavelength ratio, and the choice of the best one.
//
// Callers: panels/inversion_start. Results of the evaluation go to a record like SMPParam: slot k is the profile of
// ratio k, and runs and lists name it -k. Owned state: none.
#pragma once

#include <functional>
#include <vector>

#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "runtime/listener.h"
#include "runtime/refusal.h"

namespace sondera {

// --- Table of layers ---

/// First thickness and properties of new layers, in the units of the project.
struct LayerDefaults {
  double thickness, Vs, density;
};
/// By the index of LENGTHUNIT: 0 m, 1 cm, 2 ft, 3 in; the nearest of these for any other index.
const LayerDefaults& DefaultsOfUnit(int index);
inline constexpr double kDefaultPoisson = 0.3333, kDefaultDamping = 0.02;

/// Thicknesses of layers from the surface down, and the depth of the half-space.
struct Layering {
  std::vector<double> thickness;
  double depth = 0.0;
};

/// Thicknesses for a depth: four layers of t, four of 2 t, four of 4 t, ..., until their sum exceeds the
/// depth; at most 100 groups. sum is the total.
std::vector<double> DoublingThicknesses(double t, double depth, double& sum);

/// Half the longest wavelength of the curves whose pairs are included; 0 when there is none.
double DepthOfCurves(const RecordList<DispInfo>& curves);

/// Thickness of the first layer: at most 0.3 times the depth, in one figure.
double FirstThickness(double t, double depth);

/// Layers by DoublingThicknesses; with halfSpace one more below them, with a thousand times their total
/// thickness.
Layering LayersForDepth(double t, double depth, bool halfSpace);

// --- Evaluation ---

inline constexpr int kMostRatios = 1000;  ///< depth-to-wavelength ratios of one evaluation

/// Settings of an evaluation, named like their controls.
struct RatioSettings {
  int ALPHA_POINT = 0;  ///< number of ratios
  double ALPHA_FROM = 0.0, ALPHA_TO = 0.0;
};

/// Ratio k from 1 to ALPHA_POINT, evenly spaced; ALPHA_FROM where there is one only.
double RatioOf(const RatioSettings& ratios, int k);

/// Functions that an evaluation calls.
struct EvaluationSteps {
  /// One forward run with the analytic profile of a ratio, into slot k. Below 0: failed or halted; the reason
  /// was shown.
  std::function<int(int k, double ratio)> run;
  /// From now on the slots belong to this evaluation.
  std::function<void()> begun;
  /// Slot k has its profile. @return false: the next run would fail for the same reason
  std::function<bool(int k)> done;
};

struct EvaluationEnd {
  Refusal refusal;       ///< why it did not start
  bool started = false;  ///< whether the slots belong to this evaluation
  bool whole = false;    ///< all ratios are done
};

/// One run for each ratio into the slots of `profiles`. Slots without a result have the misfit -1. A run that
/// fails or is halted ends the loop; finished slots remain.
/// @param settings  must contain a global curve, since the profiles are made from it
EvaluationEnd EvaluateRatios(const RatioSettings& ratios, const ModelRecord& settings, InvRecord& profiles,
                             const EvaluationSteps& steps, Listener& listener);

/// Slot with the smallest misfit among 1..count, the first of equals; 0 when none has one (a negative misfit
/// means a run without a velocity).
int BestProfile(const InvRecord& profiles, int count);

}  // namespace sondera
