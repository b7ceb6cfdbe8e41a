// system_state.h - the working state of one analysis run: the layered ground, the points and observations,
// the receivers, the model parameters and their matrices, and the switches of the run.
//
// Callers: everything from the solvers' drivers up to the inversion. One run at a time:
// functions take the parts they need, and drivers know the one instance, `run` of run_state.h.
// SizeRun of run_sizes.h allocates the vectors and matrices of ground, parameters, observations, receivers
// and update anew, with zeros; the comments of switches and course say who sets them. All vectors count from
// 1. Lengths, velocities and densities are in the project's units; nothing here converts.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "forward/layered_ground.h"
#include "numeric/column_matrix.h"
#include "numeric/offset_array.h"
#include "records/mesh_depth.h"
#include "runtime/linked_list.h"

namespace sondera {

/// Physical quantities of a layer that can be model parameters; rows of ModelMap and corrLength.
inline constexpr int kQuantityH = 1, kQuantityVs = 2, kQuantityVp = 3, kQuantityDensity = 4;
inline constexpr int kQuantities = 4;

/// Update formulas of an inversion, values of Switches::iInvScheme. An inversion uses kDamped; nothing
/// selects the others. The step starts from the present model; with kPrior, from the prior one.
inline constexpr int kDamped = 1;        ///< Cm as damping only, no pull to the prior model
inline constexpr int kPrior = 2;         ///< total step from the prior model
inline constexpr int kDampedPrior = 3;   ///< as kDamped, with a pull to the prior model
inline constexpr int kLeastSquares = 4;  ///< no prior, unit deviations

/// Array curves of a run as one item. Points and curves count from 1.
struct ObsCurve {
  int nFreq = 0;                     ///< frequency points of every curve
  int nCurves = 0;                   ///< curves, one per receiver pair
  int nReceivers = 0;                ///< entries of recLoc
  OffsetVector<int> rec1, rec2;      ///< [nCurves] numbers of a pair's receivers, from 1
  OffsetVector<double> recLoc;       ///< [nReceivers] distance from the source
  OffsetVector<double> freq;         ///< [nFreq] Hz
  OffsetVector<double> vel, dev;     ///< [nFreq * nCurves] velocity (0: no point here) and its deviation
  OffsetVector<double> amp, ampDev;  ///< the same of amplitudes; empty unless iUseAmplitude is 1

  /// Place of curve c at point p in vel, dev, amp, ampDev: point by point, curve within point.
  int At(int p, int c) const { return (p - 1) * nCurves + c; }
};

/// Layer tables of the strata for layer-strata constraints: nine columns of doubles, two of integers.
struct StrataTables {
  int nStrata = 0;
  OffsetVector<double> top, H, Vs, Vp, G, E, rho, nu, damp;
  OffsetVector<int> iPoissonGiven, iDensityDerived;
  OffsetVector<int> modelMap;  ///< StrataModelInfo: four entries per stratum
};

/// Frequency of a velocity at a wavelength, or wavelength of a velocity at a frequency; 0 where `by` is not
/// above 0.
inline double RatioOrZero(double velocity, double by) {
  return by > 0.0 ? velocity / by : 0.0;
}

/// The model parameters of an inversion: the free quantities of each layer, and the prior assumptions.
struct Parameters {
  int modelMapStride = 0;                    ///< layers of a row of ModelMap
  OffsetVector<int> ModelMap;                ///< see MapEntry: 0 fixed, otherwise the parameter's number
  int nModelParm = 0;                        ///< free parameters
  OffsetVector<double> rModel, rModelPrior;  ///< [nModelParm] model, and its copy at the start
  OffsetVector<double> UFModel;              ///< [nModelParm] uncertainty factors
  OffsetVector<double> uncH, uncVp, uncVs,
      uncRho;                       ///< [nLayersCur] the same by layer; only H and Vs are filled
  OffsetVector<double> corrLength;  ///< [4 * nLayersCur], see CorrLength
  std::array<double, kQuantities + 1> parmMin{};  ///< bounds by quantity; only H and Vs are set
  std::array<double, kQuantities + 1> parmMax{};
  ColumnMatrix Cm;  ///< prior covariance, nModelParm square

  /// Parameter number of quantity q (1 to 4) of layer l, 0 when it is fixed.
  int& MapEntry(int q, int l) { return ModelMap[(q - 1) * modelMapStride + l]; }
  int MapEntry(int q, int l) const { return ModelMap[(q - 1) * modelMapStride + l]; }
  /// Correlation length of quantity q at layer l, 0: not correlated.
  double& CorrLength(int q, int l) { return corrLength[(q - 1) * (corrLength.size() / kQuantities) + l]; }
  double CorrLength(int q, int l) const {
    return corrLength[(q - 1) * (corrLength.size() / kQuantities) + l];
  }
};

/// The points of the measured curves, and the rows that a run compares.
struct Observations {
  // Points of the global curve [nDispPoints].
  int nDispPoints = 0;
  OffsetVector<double> globalVel, globalFreq, globalLambda, globalDev;
  OffsetVector<int> globalRecCount;  ///< receiver types of a point (1 in every run)
  OffsetVector<int> globalRecType;   ///< entry (slot k, point i) at (k - 1) * nDispPoints + i

  // Points of the array curves, without the empty ones [nObs].
  int nObs = 0;
  LList<ObsCurve> obsCurves;  ///< one item in a run on array curves, else none
  OffsetVector<double> arrayVel, arrayFreq, arrayDev;
  OffsetVector<double> arrayAmp, arrayAmpDev;  ///< filled when iUseAmplitude is 1
  OffsetMatrix<int> iArrayIndex;               ///< (curve, point) -> place in the flat vectors, 0: no point

  // Rows of the run [nObsRows]; vectors of computed values have the size of runVel.
  int nObsRows = 0;
  int ldObs = 0;  ///< nObsRows, twice that when iUseAmplitude is 1
  OffsetVector<double> runVel, runAmp, runFreq, runLambda;
  OffsetVector<double> runLambda2;  ///< a second copy of runLambda
  DiagonalMatrix Cd;                ///< data covariance [ldObs]
  OffsetVector<int> iNoVelocity;    ///< 1: the solver found no velocity at this row
};

/// Receiver set-ups. 1 to 3 are built in (see point_load.h), explicit pairs start at 4.
struct Receivers {
  int nRecSetups = 0;                     ///< number of the last set-up
  OffsetVector<double> rec1Loc, rec2Loc;  ///< by set-up number: distances from the source; 0 for 1 to 3
  OffsetVector<int> nRecCfgPerPoint;      ///< set-ups of each dispersion point
  OffsetVector<int> recCfgOfPoint;        ///< set-up at (slot k, point i): (k - 1) * points + i
  OffsetVector<int> recSetupList;         ///< set-ups in use, ascending
  int nRecSetupsUsed = 0;                 ///< entries of recSetupList
  OffsetVector<double> stackRecX;         ///< distinct receiver distances of a waveform run, sorted
  int nStackRec = 0;
};

/// Matrices of the last update of the model.
struct Update {
  ColumnMatrix GMatrix;               ///< ldObs by nModelParm, sized by FS_SetUpObsData
  ColumnMatrix Hessian, InvH, InvCm;  ///< nModelParm square; InvH is the posterior covariance
  ColumnMatrix Weight;                ///< nModelParm by active rows
  ColumnMatrix GActive;               ///< active rows by nModelParm
  ColumnMatrix InvHData;              ///< inverse of the data-space form
  DiagonalMatrix CdActive, InvCd;     ///< active rows
  OffsetVector<double> deltaVel;      ///< active rows: computed minus observed
  OffsetVector<double> deltaModel;    ///< [nModelParm] correction, subtracted from the model
};

/// Settings of a run. Set by FS_RetrieveSystemPM, except the last four.
struct Switches {
  int runKind = 0;                 ///< 1 forward modelling, 2 inversion, 3 full waveform
  int iInvScheme = 0;              ///< update formula (kDamped ...); 0: not an inversion
  int iHaveData = 0;               ///< 1: points from stored curves
  int preliminaryProfileType = 0;  ///< 0 layers as given, 1 empirical profile, 2 analytic profile
  int iProfileShape = 1;           ///< 1: the preliminary profile keeps the given layering
  int nSubLayers = 16;
  double fDispBulb = kFirstMeshDepth;
  int iDispSource = 1;                                            ///< 1 global curve, 2 array curves
  int xDomain = 1;                                                ///< 1 wavelength, 2 frequency
  double epsConverge = 1e-5;                                      ///< RMS that ends an inversion
  double dThickness = 0.0, dVs = 0.0, dVp = 0.0, dDensity = 0.0;  ///< relative steps of the derivatives
  double alphaDepth = 0.0;      ///< depth-to-wavelength ratio of the analytic profile
  int iDumpMatrices = 0;        ///< 1: the matrices of an update go to text files
  int iUseAmplitude = 0;        ///< 1: amplitudes are observations too. Kept: 0 in every kind of run
  double wlTolerance = 0.2;     ///< relative tolerance of the point-load solver's wavelength
  int stackOn = 0;              ///< 1: spectra at the receivers are collected
  int iAnalysis = 0;            ///< 2 plane waves, 3 or 4 point load; negative in a run without iInvScheme
  bool withoutResults = false;  ///< a trial: updates write no files and entries
  bool iMeshGraded = false;     ///< analysis 4
  int GlobalRecType = 3;        ///< receivers of a global curve: 3 at 2L and 4L, 4 a fixed pair
  std::string baseName;         ///< result files are this text plus an extension
  std::array<bool, 7> reportSwitch{};  ///< kReportExtensions, all off, set by no control

  // Kept from run to run.
  int cdMode = 0;       ///< data covariance: 0 deviations of the data, 1 ufVph * velocity, -1 unity
  double ufVph = 0.0;   ///< uncertainty factor of velocities: 0 until the panel of the inversion sets it
  int iUseSVD = 0;      ///< 1: truncated singular value solve. Set by no control
  double epsSVD = 0.0;  ///< limit of its singular value ratio
};

/// Progress of a run. Written by its drivers.
struct Course {
  int iHaltRequest = 0;             ///< 1: end at the next poll; the code that ends resets it to 0
  int iCurIterNo = 0;               ///< iteration of an inversion, 0 for the starting model
  int iTrapCount = 0;               ///< consecutive clamps at a bound
  std::string runTitle;             ///< "2-D", "3-D Inversion", ... in the head lines of result files
  std::array<int, 3> startClock{};  ///< hours, minutes, seconds at the start (FS_ReportTime)
  std::string timeText;             ///< "[%dhr %dmin %dsec]"
  int iPriorIter = 0;               ///< reset by FS_InitVars
  double ampScale = 1.0;            ///< scale of amplitudes, set by FS_InitVars
};

/// One analysis run, in its parts.
struct Run {
  LayeredGround ground;
  Observations observations;
  Receivers receivers;
  Parameters parameters;
  Update update;
  Switches switches;
  Course course;
  StrataTables strata;  ///< allocated separately
};

/// File extensions of the reports of Switches::reportSwitch, in its order.
inline constexpr std::array<const char*, 7> kReportExtensions = {".svd", ".N",   ".R0", ".R1",
                                                                 ".G",   ".rms", ".mdf"};

}  // namespace sondera
