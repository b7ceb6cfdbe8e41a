// inv_records.h - the results of inversions (InvParam) and of the evaluation of starting models (SMPParam),
// as plain records.
//
// Callers: start-up and shutdown, the project file, forward runs and inversions, and the pages and files that
// show their results. Owned here: the two records. An entry is a model with its theoretical curves: entry 0
// of InvParam is the given model and entry k the k-th iteration; an entry of SMPParam is one starting profile
// and has a negative number in lists with both kinds.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "numeric/offset_array.h"

namespace sondera {

/// Models and curves by entry. All tables have the rows (entries) 0..maxEntries; layers, points and curve
/// data count from 0 within a row. Lengths and velocities in the project's units.
struct InvRecord {
  int maxLayers = 0;   ///< capacity, layers; 0: nothing there
  int maxCurves = 0;   ///< capacity, curves
  int maxPoints = 0;   ///< capacity, points of a curve
  int maxData = 0;     ///< capacity, points times curves
  int maxEntries = 0;  ///< capacity, entries: number of the last one
  int reserved = 0;    ///< stored, otherwise unused

  int nLayers = 0;   ///< layers of the stored models; 0: none stored yet
  int nCurves = 0;   ///< curves stored
  int nEntries = 0;  ///< iterations wanted (InvParam), depth-to-wavelength ratios wanted (SMPParam)
  int nPoints = 0;   ///< points stored per curve

  double alphaFrom = 0.0, alphaTo = 0.0;  ///< range of the depth-to-wavelength ratio of starting profiles

  OffsetMatrix<double> depth, H;  ///< (entry, layer 0..maxLayers) running depth and thickness
  OffsetMatrix<double> Vp, Vs;    ///< wave velocities
  OffsetMatrix<double> density, nu, damping;
  OffsetMatrix<double> freq;        ///< (entry, point 0..maxPoints) Hz
  OffsetMatrix<double> vel, waveL;  ///< (entry, 0..maxData) point * nCurves + curve
  OffsetVector<double> rms;         ///< [0..maxEntries] RMS of the velocity residuals
  OffsetMatrix<double> resolution;  ///< (entry, layer 0..maxLayers) resolution of Vs, 0 to 1

  double ufH = 0.0, ufVs = 0.0;  ///< uncertainty factors of thickness and shear-wave velocity
  double minH = 0.0, maxH = 0.0, minVs = 0.0, maxVs = 0.0;  ///< bounds of the model
  int MODELPARM = 0;                                        ///< what is varied: 1 Vs, 2 H, 3 both
  int iSelected = 0;  ///< starting model: 0 the given one, k > 0 iteration k, below 0 a starting profile
};

/// The seven model tables in the order of the project file.
inline constexpr std::array<OffsetMatrix<double> InvRecord::*, 7> kModelTables = {
    &InvRecord::depth,   &InvRecord::H,  &InvRecord::Vp,     &InvRecord::Vs,
    &InvRecord::density, &InvRecord::nu, &InvRecord::damping};

extern InvRecord InvParam;  ///< iterations of the inversion
extern InvRecord SMPParam;  ///< evaluated starting profiles

/// Last indices of the tables of a record.
struct InvTableSizes {
  std::int64_t entries = 0, layers = 0, points = 0, data = 0;

  /// Numbers in all tables. In double: counters from a file may be of any size.
  double Doubles() const;
};
/// The sizes of what is in use: those of the counters.
InvTableSizes UsedSizes(const InvRecord& record);
/// The capacities, or the counters where one exceeds its capacity (the number of wanted entries does so before
/// a run, the number of points after a growth).
InvTableSizes TableSizes(const InvRecord& record);

/// Allocates all tables of a record anew, zero. Where memory runs out (std::bad_alloc) nothing has changed.
void AllocateInvRecord(InvRecord& record, const InvTableSizes& sizes);
/// The same in TableSizes.
void AllocateInvRecord(InvRecord& record);

/// Numbers of the entries that can be chosen, in the order of their lists: k is entry k of InvParam, -k of
/// SMPParam.
struct EntryNumbers {
  std::vector<int> iterations;      ///< to be shown on the results page
  std::vector<int> profiles;        ///< to be copied to the settings of a forward run
  std::vector<int> startingModels;  ///< to begin an inversion from, beside the given model
};

/// First values of both records.
void InitializeInvAnal();
/// Empties both records.
void FinalizeInvAnal();

}  // namespace sondera
