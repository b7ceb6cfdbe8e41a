// sublayers.cpp - cutting layers into sublayers, evenly or by zones.
//
// The point-load solver calls it once per pass. Owns no state. Counting and filling use the same loop with
// the same additions, so both always agree on the number of sublayers.
#include "forward/sublayers.h"

#include <algorithm>
#include <cmath>

namespace sondera {
namespace {

constexpr int kMaxZones = 100;
constexpr int kMostSubLayers = 2'000'000'000;  // of one thick layer; the mesh then uses those above its end
constexpr double kRoundingNoise = 1e-9;
constexpr double kTwoThirds = 0.6666667;  // Kept: seven digits, in the bulk modulus (no result depends on it)

/// First layer whose bottom lies below the depth, the last layer if none does.
int LastLayerDownTo(const GroundColumns& layers, double depth) {
  double cum = 0.0;
  for (int l = 1; l < layers.nLayersCur; ++l) {
    cum += layers.layerH[l];
    if (cum > depth) return l;
  }
  return layers.nLayersCur;
}

/// Runs add(layer, nSub, thickness) over the even mesh for wavelength L.
template <class Add>
void WalkEvenMesh(const GroundColumns& layers, const MeshSettings& settings, double L, Add add) {
  const double t = L / settings.nSubLayers;
  const int last = LastLayerDownTo(layers, L * settings.fDispBulb);
  for (int l = 1; l <= last; ++l) {
    const int n = SubLayerCount(layers.layerH[l] / t);
    add(l, n, layers.layerH[l] / n);
  }
}

/// Runs add(layer, nSub, thickness) over the graded mesh for wavelength L.
template <class Add>
void WalkGradedMesh(const GroundColumns& layers, const MeshSettings& settings, double L, Add add) {
  const int nSub = settings.nSubLayers;
  const double t0 = L / nSub, maxDepth = L * settings.fDispBulb;
  for (int l = 1; l <= layers.nLayersCur; ++l) {
    int nTop = 0, nBot = 0, zoneTop = 0, zoneBot = 0;
    double hTop = 0.0, hBot = 0.0;
    FS_GetSubLParm(layers, l, nSub, t0, maxDepth, nTop, hTop, nBot, hBot, zoneTop, zoneBot);
    if (nTop > 0) add(l, nTop, hTop);
    for (int k = zoneTop + 1; k < zoneBot; ++k) add(l, nSub, ZoneThickness(k, nSub, t0) / nSub);
    if (zoneTop < zoneBot && nBot > 0) add(l, nBot, hBot);
  }
}

double TopOf(const GroundColumns& layers, int layer) {
  double top = 0.0;
  for (int l = 1; l < layer; ++l) top += layers.layerH[l];
  return top;
}

/// Sublayers of the part of a layer that lies in one zone.
struct ZonePart {
  int n = 0;
  double thickness = 0.0;
};

/// Sublayers no thicker than those of a whole zone of thickness T; none for a remainder from rounding.
ZonePart PartOfZone(double part, double T, int nSub) {
  if (!(part > kRoundingNoise * T)) return {};
  const int n = SubLayerCount(part / (T / nSub));
  return {n, part / n};
}

}  // namespace

void SubLayerMesh::Start(int n) {
  count = 0;
  depth = 0.0;
  const std::size_t size = static_cast<std::size_t>(std::max(n, 0)) + 2;
  for (std::vector<double>* v : {&thick, &G, &rho, &nu, &damp, &Vs, &bottom, &lambda, &bulk, &top}) {
    if (v->size() < size) v->resize(size);
  }
}

int SubLayerCount(double x) {
  const double n = std::ceil(x - kRoundingNoise);
  if (!(n <= kMostSubLayers)) return kMostSubLayers;
  return n < 1.0 ? 1 : static_cast<int>(n);
}

double ZoneThickness(int k, int nSub, double t0) {
  if (k <= 2) return t0;
  return std::min(std::ldexp(t0, k - 2), nSub * t0);
}

void FS_GetSubLParm(const GroundColumns& layers, int layer, int nSub, double t0, double maxDepth, int& nTop,
                    double& hTop, int& nBot, double& hBot, int& zoneTop, int& zoneBot) {
  const double top = TopOf(layers, layer), thickness = layers.layerH[layer];
  if (top >= maxDepth) {
    nTop = nBot = zoneTop = zoneBot = 0;
    hTop = hBot = 0.0;
    return;
  }
  const double bottom = std::min(top + thickness, maxDepth);
  double a = 0.0;  // top of the zone
  for (int k = 1; k <= kMaxZones; ++k) {
    const double T = ZoneThickness(k, nSub, t0);
    const auto holds = [&](double depth) { return a <= depth && depth < a + T; };
    if (holds(top)) {
      const ZonePart part = PartOfZone(std::min(a + T - top, thickness), T, nSub);
      nTop = part.n;
      hTop = part.thickness;
      zoneTop = k;
    }
    if (holds(bottom)) {
      const ZonePart part = PartOfZone(std::min(bottom - a, thickness), T, nSub);
      nBot = part.n;
      hBot = part.thickness;
      zoneBot = k;
      return;
    }
    a += T;
  }
}

void FS_CountNLA(const int* nSub, double* cumDepth, const double* thick, int* nSublayers,
                 const double* maxDepth) {
  for (int i = 1; i <= *nSub && *nSublayers <= kMaxSubLayers; ++i) {
    ++*nSublayers;
    *cumDepth += *thick;
    if (*cumDepth >= *maxDepth) return;
  }
}

void FS_SetMesh(const GroundColumns& layers, int layer, const int* nSub, double* cumDepth,
                const double* thick, SubLayerMesh& mesh, const double* maxDepth) {
  const double G = layers.layerG[layer], nu = layers.layerNu[layer];
  for (int i = 1; i <= *nSub && mesh.count < kMaxSubLayers; ++i) {
    const auto j = static_cast<std::size_t>(++mesh.count);
    mesh.thick[j] = *thick;
    mesh.G[j] = G;
    mesh.rho[j] = layers.layerRho[layer];
    mesh.nu[j] = nu;
    mesh.damp[j] = layers.layerDamp[layer];
    mesh.Vs[j] = layers.layerVs[layer];
    mesh.bulk[j] = kTwoThirds * G * (1.0 + nu) / (1.0 - 2.0 * nu);
    mesh.lambda[j] = 2.0 * nu * G / (1.0 - 2.0 * nu);
    *cumDepth += *thick;
    mesh.bottom[j] = mesh.depth = *cumDepth;
    if (*cumDepth >= *maxDepth) return;
  }
}

int FS_CalcNLA(const GroundColumns& layers, const MeshSettings& settings, const double* x, int iNode,
               bool halfSpace) {
  const double L = x[iNode] / 4.0, maxDepth = L * settings.fDispBulb;
  int count = 0;
  double depth = 0.0;
  WalkEvenMesh(layers, settings, L,
               [&](int, int n, double h) { FS_CountNLA(&n, &depth, &h, &count, &maxDepth); });
  return halfSpace ? count + 1 : count;
}

void FillEvenMesh(const GroundColumns& layers, const MeshSettings& settings, double L, SubLayerMesh& mesh) {
  const double maxDepth = L * settings.fDispBulb;
  double depth = 0.0;
  WalkEvenMesh(layers, settings, L,
               [&](int l, int n, double h) { FS_SetMesh(layers, l, &n, &depth, &h, mesh, &maxDepth); });
}

int FS_DiscritizLayers(int mode, const GroundColumns& layers, const MeshSettings& settings, double L,
                       bool halfSpace, SubLayerMesh* mesh) {
  const double maxDepth = L * settings.fDispBulb;
  double depth = 0.0;
  if (mode == 1) {
    int count = 0;
    WalkGradedMesh(layers, settings, L,
                   [&](int, int n, double h) { FS_CountNLA(&n, &depth, &h, &count, &maxDepth); });
    return halfSpace ? count + 1 : count;
  }
  WalkGradedMesh(layers, settings, L,
                 [&](int l, int n, double h) { FS_SetMesh(layers, l, &n, &depth, &h, *mesh, &maxDepth); });
  return 0;
}

}  // namespace sondera
