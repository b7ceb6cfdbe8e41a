// sublayers.h - cuts the layered ground into the thin sublayers of the point-load solver.
//
// Type 3 cuts each layer evenly for the wavelength; type 4 grades the mesh: zones of growing thickness,
// measured from the surface, each cut into the same number of sublayers. Both end at the depth wavelength *
// fDispBulb. The point-load solver calls it; owns no state. Depths and thicknesses are in the unit of the
// layer table.
#pragma once

#include <vector>

#include "records/mesh_depth.h"

namespace sondera {

/// The columns of a LayeredGround for the solver, borrowed: pointers p with p[1] the surface layer,
/// p[nLayersCur] the half-space (with its thickness from the table: a thin last row ends the mesh early).
/// Owns nothing.
struct GroundColumns {
  int nLayersCur = 0;
  const double* layerH = nullptr;     ///< thickness
  const double* layerVs = nullptr;    ///< shear-wave velocity
  const double* layerG = nullptr;     ///< shear modulus, rho * Vs * Vs
  const double* layerRho = nullptr;   ///< mass density
  const double* layerNu = nullptr;    ///< Poisson's ratio, below 0.5
  const double* layerDamp = nullptr;  ///< damping ratio
};

struct MeshSettings {
  int nSubLayers = 16;                 ///< sublayers per wavelength (type 3) or per zone (type 4)
  double fDispBulb = kFirstMeshDepth;  ///< depth of the mesh over the wavelength
  bool iMeshGraded = false;            ///< type 4
};

/// Most sublayers of one mesh. A larger mesh is refused: the eigenproblem grows with the square.
constexpr int kMaxSubLayers = 1000;

/// The mesh: vectors over the sublayers, indices 1..count used. The storage only grows.
struct SubLayerMesh {
  int count = 0;
  double depth = 0.0;  ///< bottom of the last sublayer
  std::vector<double> thick, G, rho, nu, damp, Vs, bottom, lambda, bulk, top;

  /// Clears the mesh and allocates n sublayers.
  void Start(int n);
};

/// Number of sublayers for a ratio x of thickness to target thickness: the next integer above, at least 1; an
/// excess of up to 1e-9 over an integer counts as rounding error. At most 2 billion, also for a NaN.
int SubLayerCount(double x);

/// Thickness of zone k (from 1) of the graded mesh: t0, then t0 doubling from zone 3, never more than nSub *
/// t0.
double ZoneThickness(int k, int nSub, double t0);

/// Position of one layer relative to the zones of the graded mesh.
/// @param[in]  layer     1..nLayersCur
/// @param[in]  nSub, t0  sublayers per zone; thickness of the first zone
/// @param[in]  maxDepth  depth where the mesh ends
/// @param[out] nTop, hTop      sublayers and their thickness in the zone that holds the layer's top
/// @param[out] nBot, hBot      the same for the zone that holds its bottom (or maxDepth)
/// @param[out] zoneTop, zoneBot  numbers of these zones
/// All six are 0 for a layer that starts at maxDepth or below. A part of at most 1e-9 of its zone counts as
/// nothing. Beyond zone 100 the outputs are not written: callers clear them first. Kept: the part in the top
/// zone is limited by the layer's whole thickness, not by maxDepth; the filling cuts the mesh.
void FS_GetSubLParm(const GroundColumns& layers, int layer, int nSub, double t0, double maxDepth, int& nTop,
                    double& hTop, int& nBot, double& hBot, int& zoneTop, int& zoneBot);

/// Adds up to nSub sublayers of one thickness to a count, ending as soon as cumDepth reaches maxDepth (after
/// the sublayer that reaches it) or the count exceeds kMaxSubLayers.
void FS_CountNLA(const int* nSub, double* cumDepth, const double* thick, int* nSublayers,
                 const double* maxDepth);

/// The same walk as FS_CountNLA, but it appends up to nSub sublayers of one thickness with the properties of
/// a layer.
void FS_SetMesh(const GroundColumns& layers, int layer, const int* nSub, double* cumDepth,
                const double* thick, SubLayerMesh& mesh, const double* maxDepth);

/// Sublayers of the even mesh for the wavelength x[iNode] / 4; halfSpace adds the element below.
int FS_CalcNLA(const GroundColumns& layers, const MeshSettings& settings, const double* x, int iNode,
               bool halfSpace);

/// Fills the even mesh for wavelength L (no half-space element).
void FillEvenMesh(const GroundColumns& layers, const MeshSettings& settings, double L, SubLayerMesh& mesh);

/// Graded mesh for wavelength L: mode 1 returns the count, one more with halfSpace; mode 0 fills the mesh (no
/// half-space element) and returns 0.
int FS_DiscritizLayers(int mode, const GroundColumns& layers, const MeshSettings& settings, double L,
                       bool halfSpace, SubLayerMesh* mesh);

}  // namespace sondera
