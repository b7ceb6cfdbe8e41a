// model_records.h - the settings of a forward run (FModelParam) and a record of the same form with the
// theoretical curves (TheoDispInfo), as plain records.
//
// Callers: start-up and shutdown, the project file, and everything that computes theoretical curves. Owned
// here: the two records. Both have the same layout, which is also that of the project file; the solvers
// explain the meaning of the values. Lengths, velocities and densities are in the project's units; nothing is
// converted.
#pragma once

#include <array>
#include <vector>

namespace sondera {

/// Settings of a forward run. All vectors count from 0 and hold at least as many entries as their counter;
/// the capacities cap... are the sizes that the project file stores.
struct ModelRecord {
  int capLayers = 0;  ///< entries of the six layer columns; 0: no model
  int capPairs = 0;   ///< entries of the pair table
  int capRec = 0;     ///< entries of recLoc
  int capPoints = 0;  ///< entries of the global curve, and of freq
  int capCurve = 0;   ///< entries of vel and wlen

  int analysis = 0;        ///< 2 plane waves, 3 point load, 4 point load on a graded mesh
  int nSubLayers = 0;      ///< sublayers per zone of the graded mesh
  double fDispBulb = 0.0;  ///< depth of the graded mesh, wavelengths

  int nLayers = 0;                ///< layers in use; the last one is the half-space
  std::vector<double> thickness;  ///< [capLayers] length
  std::vector<double> Vp, Vs;     ///< [capLayers] wave velocities, length/s
  std::vector<double> density;    ///< [capLayers] mass density
  std::vector<double> nu;         ///< [capLayers] Poisson's ratio
  std::vector<double> damping;    ///< [capLayers] damping ratio

  int dispCurvType = 0;   ///< 1 global curve, 2 array curves
  int DispCurvInfo = 0;   ///< 0: points from the range below; otherwise those of the stored curves
  double incRatio = 0.0;  ///< step of generated points: 1.0 even, -1.0 logarithmic, else a ratio

  // Global curve
  int nDispPointsG = 0;
  std::vector<double> globalVel, globalFreq, globalWlen;  ///< [capPoints] length/s, Hz, length
  int GlobalRecType = 0;                            ///< 3 receivers at 2 and 4 wavelengths, 4 fixed ones
  double GlobalRec1Loc = 0.0, GlobalRec2Loc = 0.0;  ///< fixed receivers, distance from the source
  int xDomainType = 0;                              ///< 1 wavelength, 2 frequency
  double xMinGlobal = 0.0, xMaxGlobal = 0.0;        ///< range, in the unit of xDomainType

  // Array curves
  int nReceivers = 0;
  std::vector<double> recLoc;  ///< [capRec] distance from the source
  int nDispPoints = 0;         ///< points of each curve
  int nDispCurves = 0;
  std::vector<double> freq;              ///< [capPoints] Hz
  std::vector<double> vel, wlen;         ///< [capCurve] entry point * nDispCurves + curve; 0: no data there
  std::vector<int> pairRec1, pairRec2;   ///< [capPairs] numbers of a pair's receivers, from 1
  std::vector<double> pairMin, pairMax;  ///< [capPairs] Hz, range of a pair's curve

  int closingWord1 = 0, closingWord2 = 0;  ///< stored, otherwise unused
};

/// The six layer columns, and the three of the global curve, in the order of the project file.
inline constexpr std::array<std::vector<double> ModelRecord::*, 6> kLayerColumns = {
    &ModelRecord::thickness, &ModelRecord::Vp, &ModelRecord::Vs,
    &ModelRecord::density,   &ModelRecord::nu, &ModelRecord::damping};
inline constexpr std::array<std::vector<double> ModelRecord::*, 3> kGlobalColumns = {
    &ModelRecord::globalVel, &ModelRecord::globalFreq, &ModelRecord::globalWlen};

extern ModelRecord FModelParam;   ///< shown on the panel of the forward model
extern ModelRecord TheoDispInfo;  ///< settings of the last run, and its curves

/// Allocates all vectors of a record anew, zero, for its capacities (below 0 counts as 0) and its counters.
void AllocateModelRecord(ModelRecord& record);

/// Initial state of both records.
ModelRecord FirstModel();
/// First values.
void InitializeFModel();
/// First values of TheoDispInfo: those of FModelParam except dispCurvType 1 and the last words.
void InitializeTheoDispInfo();
/// Empties the record.
void FinalizeFModel();
void FinalizeTheoDispInfo();

}  // namespace sondera
