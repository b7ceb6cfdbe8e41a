// point_load.h - apparent phase velocity of a receiver pair under a vertical point load on layered ground.
//
// A load on a small disk excites the ground at one frequency; the vertical displacement at a line of nodes
// gives the phase lag between the two receivers of a set-up, and so the velocity that a two-receiver field
// test would measure, including body waves, higher modes and the near field. Mesh and node line depend on the
// resulting wavelength, so the evaluation is repeated until both agree. The sweeps call it. All its input is
// in PointLoadInput, all its work space in PointLoadWork, which the caller owns and reuses: from the second
// evaluation of a size on nothing is allocated.
#pragma once

#include <string>
#include <vector>

#include "forward/green_kernels.h"
#include "forward/sublayers.h"
#include "numeric/dcomplex.h"

namespace sondera {

/// Receiver set-ups 1, 2 and 3 are built in: receivers at L/2 and L, at L and 2L, at 2L and 4L. Explicit
/// pairs start at 4.
constexpr int kBuiltInSetups = 3;
constexpr int kFirstExplicitSetup = 4;

/// Distinct distances of a full-waveform run, ascending.
struct StackList {
  std::vector<double> stackRecX = {0.0};  ///< 1..nStackRec
  int nStackRec = 0;
};

struct PointLoadInput {
  GroundColumns layers;
  MeshSettings mesh;         ///< iMeshGraded for analysis type 4
  double wlTolerance = 0.2;  ///< relative change of the wavelength that ends the repetition
  double loadRadius = 0.0;   ///< 0: 0.0001 times the wavelength of the call

  int nRecSetups = kBuiltInSetups;  ///< largest set-up number
  const double* rec1Loc = nullptr;  ///< distance of the nearer receiver, 4..nRecSetups; 0: no such set-up
  const double* rec2Loc = nullptr;  ///< distance of the farther receiver, 4..nRecSetups
  int nPoints = 0;                  ///< dispersion points
  const int* nRecCfgPerPoint = nullptr;  ///< set-ups of each point, 1..nPoints
  const int* recCfgOfPoint = nullptr;    ///< set-up in slot k of point i at (k - 1) * nPoints + i

  bool extraNodeOn = false;  ///< evenly spaced nodes for a waveform
  int extraNodes = 0;
  double extraSpan = 0.0;
  StackList* stackRec = nullptr;  ///< not null: the spectra of the receivers are stacked
  bool trace = false;             ///< a line to standard output for each pass
};

enum class PointLoadStatus {
  kResult,    ///< velocity and amplitude found
  kNoResult,  ///< velocity 0: the repetition found no wavelength
  kSeedKept,  ///< the modes were incomplete: velocity and amplitude are the caller's values
  kBadInput,  ///< velocity 0: a setting, a layer or the seed is out of range, or the mesh would be too large
};

/// One node of the line.
struct LineNode {
  double x = 0.0;
  int setup = 0;
  int side = 0;  ///< 1 nearer receiver, 2 farther receiver, 0 no receiver
};

/// Work space, and the state of the last evaluation. Vectors count from 1.
struct PointLoadWork {
  PointLoadStatus status = PointLoadStatus::kNoResult;
  int passes = 0;         ///< repetitions
  int nSpatialNodes = 0;  ///< grid size
  int nReportNodes = 0;   ///< distinct nodes
  int node4L = 0;         ///< node at four wavelengths

  std::vector<LineNode> line;
  std::vector<double> x, phase;
  std::vector<dcomplex> u;
  std::vector<int> recIdx;  ///< node of (side, set-up) at (side - 1) * setups + set-up

  SubLayerMesh mesh;
  ThinLayerMatrices matrices;
  ThinLayerModes modes;  ///< the motion of the surface only
  GreenWork green;
};

/// Whether the settings and layers are valid; if not, *why (if given) gets a sentence that names the value
/// and its range.
bool CheckPointLoadInput(const PointLoadInput& in, std::string* why);

/// One dispersion point.
/// @param[in]     freq        frequency, element 1
/// @param[in,out] vel         apparent phase velocity, element 1; 0 without a result; unchanged when the
///                            modes fail
/// @param[in,out] amp         amplitude ratio of farther over nearer receiver, element 1; as vel
/// @param[in]     wavelength  seed wavelength, element 1
/// @param[in]     iPoint      minus the number of the point
/// @param[in]     iSlot       slot of the point whose set-up is evaluated
/// @param[out]    stack       0..nStackRec, written only with stackRec
/// @param[out]    recAmp      moduli of displacement at both receivers for a unit force, elements 1 and 2;
///                            unit: force over modulus times length
/// Returns 0; work.status says more.
int FS_SASW3D(const PointLoadInput& in, PointLoadWork& work, const double* freq, double* vel, double* amp,
              const double* wavelength, int iPoint, int iSlot, dcomplex* stack, double* recAmp);

/// Displacement work.u at the nodes work.x[1..nReportNodes] for one frequency and one mesh wavelength: mesh,
/// modes, sum. Returns 1 when the modes are good, 0 when not, -1 when there is no mesh.
int FS_Chief(const PointLoadInput& in, PointLoadWork& work, double loadRadius, double freq, double Lm);

/// Mesh for wavelength L with its half-space element, and its matrices; false if it would have no sublayer or
/// too many.
bool FS_PreMesh(const PointLoadInput& in, PointLoadWork& work, double L);

/// Nodes of the grid: up to four wavelengths or the farthest receiver, spacing dx. If there are too many:
/// kMaxLineNodes + 1.
int FS_GetNoSpatialNodes(const PointLoadInput& in, double dx, double L);
constexpr int kMaxLineNodes = 20000;

/// Builds the line for work.nSpatialNodes nodes of spacing dx and the set-ups of a point: work.line, work.x,
/// work.recIdx. Returns the number of distinct positions.
int FS_SetUpNodes(const PointLoadInput& in, PointLoadWork& work, int iPoint, double dx);

/// Index of the last entry with position <= x, -1 before the head.
int FS_LocateInsertNode(const std::vector<LineNode>& line, double x);

/// Index of a distance in the list by exact equality. A new distance is inserted in order, and the result is
/// 0.
int FS_stackRec(StackList& list, double x);

/// Hook after the raw phases (stage 1) and after unwrapping (stage 2). Does nothing.
void FS_PhasePlot(int stage, int nNodes, const double* x, const double* phase);

/// Next step after a pass of the repetition.
enum class PassOutcome { kAccept, kRepeat, kGiveUp };

/// Decides on the next step after a pass.
/// @param[in] dif          relative change of the wavelength against the pass before
/// @param[in] dif2         relative change against the seed; exactly 5 is still accepted, but does not repeat
/// @param[in] passCounter  passes so far, or a number above 5 to end the repetition
PassOutcome JudgePass(double dif, double dif2, double wlTolerance, int passCounter);

/// Unwraps phase lags in degrees along the line, in place: a lag at or below 0 after one above 0 (or at the
/// start of the line) begins the next cycle. Requires nodes a quarter of a wavelength apart.
void UnwrapLine(double* phase, int nNodes);

}  // namespace sondera
