// point_load.cpp - repeats the evaluation until mesh, node line and apparent wavelength agree.
//
// The sweeps call it once per dispersion point and set-up; most of its time is for the modes
// (green_modes.cpp). Owns no state. Odd on purpose: failed modes leave the caller's velocity unchanged, a
// failed repetition gives 0; a phase that does not grow between the receivers ends the repetition at once;
// the unwrapping uses signs only.
#include "forward/point_load.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "numeric/complex_two.h"
#include "numeric/pi.h"

namespace sondera {
namespace {

constexpr double kNodesPerWavelength = 0.25;  // spacing of the grid over the wavelength
constexpr double kRadiusOverWavelength = 0.0001;
constexpr int kMaxPasses = 5;
constexpr int kEndPasses = 10;          // pass counter that ends the repetition
constexpr double kNoAgreement = 999.0;  // relative change where the phase does not grow
constexpr double kMaxOverSeed = 5.0;    // largest relative change against the seed
constexpr double kMaxDepthFactor = 100.0;

bool SayWhy(std::string* why, const char* format, double value, int layer = 0) {
  if (why) {
    char text[200];
    std::snprintf(text, sizeof text, format, value, layer);
    *why = text;
  }
  return false;
}

bool InRange(double x, double above, double atMost) {
  return x > above && x <= atMost;
}

bool CheckLayer(const GroundColumns& t, int l, bool graded, std::string* why) {
  constexpr double kLarge = 1e+30;  // appears in the sentences
  const double h = t.layerH[l];
  if (!(h >= 0.0 && h <= kLarge) || (h == 0.0 && !graded)) {
    return SayWhy(why, "The thickness %g of layer %d is not above 0 and at most 1e+30.", h, l);
  }
  if (!InRange(t.layerVs[l], 0.0, kLarge)) {
    return SayWhy(why, "The S-wave velocity %g of layer %d is not above 0 and at most 1e+30.", t.layerVs[l],
                  l);
  }
  if (!InRange(t.layerRho[l], 0.0, kLarge)) {
    return SayWhy(why, "The density %g of layer %d is not above 0 and at most 1e+30.", t.layerRho[l], l);
  }
  if (!InRange(t.layerG[l], 0.0, kLarge)) {
    return SayWhy(why, "The shear modulus %g of layer %d is not above 0 and at most 1e+30.", t.layerG[l], l);
  }
  if (!(t.layerNu[l] > -1.0 && t.layerNu[l] < 0.5)) {
    return SayWhy(why, "Poisson's ratio %g of layer %d is not between -1 and 0.5.", t.layerNu[l], l);
  }
  if (!(t.layerDamp[l] >= 0.0 && t.layerDamp[l] <= 1.0)) {
    return SayWhy(why, "The damping ratio %g of layer %d is not between 0 and 1.", t.layerDamp[l], l);
  }
  return true;
}

int Columns(const PointLoadInput& in) {
  return std::max(in.nRecSetups, kBuiltInSetups);
}

/// Node of one side of a set-up, 0 if it has none.
int NodeOf(const PointLoadInput& in, const PointLoadWork& work, int side, int setup) {
  return work.recIdx[static_cast<std::size_t>((side - 1) * Columns(in) + setup)];
}

/// Set-up in a slot of a point; 0 if there is none.
int SetupOf(const PointLoadInput& in, int point, int slot) {
  if (point < 1 || point > in.nPoints || slot < 1 || slot > in.nRecCfgPerPoint[point]) return 0;
  const int id = in.recCfgOfPoint[static_cast<std::ptrdiff_t>(slot - 1) * in.nPoints + point];
  return id >= 1 && id <= Columns(in) ? id : 0;
}

template <class T>
void Grow(std::vector<T>& v, int n) {
  if (v.size() < static_cast<std::size_t>(n)) v.resize(static_cast<std::size_t>(n));
}

/// Inserts a node after all nodes with a position up to its own.
void Insert(std::vector<LineNode>& line, double x, int setup, int side) {
  line.insert(line.begin() + (FS_LocateInsertNode(line, x) + 1), LineNode{x, setup, side});
}

/// Appends node i of the grid with the built-in receivers at its place.
void AppendGridNode(std::vector<LineNode>& line, int i, double x) {
  struct Place {
    int node, setup, side;
  };
  static constexpr Place kPlaces[] = {{2, 1, 1}, {4, 1, 2}, {4, 2, 1}, {8, 2, 2}, {8, 3, 1}, {16, 3, 2}};
  bool any = false;
  for (const Place& p : kPlaces) {
    if (p.node != i) continue;
    line.push_back({x, p.setup, p.side});
    any = true;
  }
  if (!any) line.push_back({x, 0, 0});
}

}  // namespace

bool CheckPointLoadInput(const PointLoadInput& in, std::string* why) {
  if (in.layers.nLayersCur < 1) return SayWhy(why, "There is no layer (%g).", in.layers.nLayersCur);
  if (!InRange(in.mesh.nSubLayers, 0, kMaxSubLayers)) {
    return SayWhy(why, "The number of sublayers, %g, is not between 1 and 1000.", in.mesh.nSubLayers);
  }
  if (!InRange(in.mesh.fDispBulb, 0.0, kMaxDepthFactor)) {
    return SayWhy(why, "The depth factor, %g, is not above 0 and at most 100.", in.mesh.fDispBulb);
  }
  if (!(in.wlTolerance >= 0.0))
    return SayWhy(why, "The wavelength tolerance, %g, is negative.", in.wlTolerance);
  if (!(in.loadRadius >= 0.0 && in.loadRadius < HUGE_VAL)) {
    return SayWhy(why, "The load radius, %g, is negative.", in.loadRadius);
  }
  for (int l = 1; l <= in.layers.nLayersCur; ++l) {
    if (!CheckLayer(in.layers, l, in.mesh.iMeshGraded, why)) return false;
  }
  for (int id = kFirstExplicitSetup; id <= in.nRecSetups; ++id) {
    for (double r : {in.rec1Loc[id], in.rec2Loc[id]}) {
      if (!(r >= 0.0 && r < HUGE_VAL))
        return SayWhy(why, "The receiver distance %g of set-up %d is negative.", r, id);
    }
  }
  if (in.extraNodeOn && !(in.extraNodes >= 0 && in.extraSpan >= 0.0 && in.extraSpan < HUGE_VAL)) {
    return SayWhy(why, "The span of the extra nodes, %g, is negative.", in.extraSpan);
  }
  return true;
}

int FS_LocateInsertNode(const std::vector<LineNode>& line, double x) {
  const auto after = std::upper_bound(line.begin(), line.end(), x,
                                      [](double value, const LineNode& node) { return value < node.x; });
  return static_cast<int>(after - line.begin()) - 1;
}

int FS_stackRec(StackList& list, double x) {
  auto& v = list.stackRecX;
  for (int i = 1; i <= list.nStackRec; ++i) {
    if (v[static_cast<std::size_t>(i)] == x) return i;
  }
  v.resize(static_cast<std::size_t>(list.nStackRec) + 1);
  v.push_back(x);
  ++list.nStackRec;
  std::sort(v.begin() + 1, v.end());
  return 0;
}

PassOutcome JudgePass(double dif, double dif2, double wlTolerance, int passCounter) {
  if (dif <= wlTolerance && dif2 <= kMaxOverSeed) return PassOutcome::kAccept;
  if (passCounter < kMaxPasses && dif2 < kMaxOverSeed) return PassOutcome::kRepeat;
  return PassOutcome::kGiveUp;
}

void FS_PhasePlot(int, int, const double*, const double*) {}

void UnwrapLine(double* phase, int nNodes) {
  int state = 1;
  double offset = 0.0;
  for (int i = 1; i <= nNodes; ++i) {
    if (phase[i] > 0.0) {
      state = 1;
    } else if (state == 1) {
      offset += 360.0;
      state = -1;
    }
    phase[i] += offset;
  }
}

int FS_GetNoSpatialNodes(const PointLoadInput& in, double dx, double L) {
  double reach = 4.0 * L;
  for (int id = kFirstExplicitSetup; id <= in.nRecSetups; ++id) reach = std::max(reach, in.rec2Loc[id]);
  double n = std::ceil(reach / dx);
  if (in.extraNodeOn) n += in.extraNodes;
  return n <= kMaxLineNodes ? static_cast<int>(n) : kMaxLineNodes + 1;
}

int FS_SetUpNodes(const PointLoadInput& in, PointLoadWork& work, int iPoint, double dx) {
  const int point = std::abs(iPoint);
  std::vector<LineNode>& line = work.line;
  line.clear();
  const int grid = work.nSpatialNodes - (in.extraNodeOn ? in.extraNodes : 0);
  for (int i = 1; i <= grid; ++i) AppendGridNode(line, i, i * dx);
  const int slots = point <= in.nPoints ? in.nRecCfgPerPoint[point] : 0;
  for (int slot = 1; slot <= slots; ++slot) {
    const int id = SetupOf(in, point, slot);
    if (id < kFirstExplicitSetup || in.rec1Loc[id] == 0.0) continue;
    Insert(line, in.rec1Loc[id], id, 1);
    Insert(line, in.rec2Loc[id], id, 2);
  }
  if (in.extraNodeOn && in.extraNodes > 1) {
    const double d = in.extraSpan / (in.extraNodes - 1);
    for (int i = 1; i <= in.extraNodes - 1; ++i) Insert(line, i * d, 0, 0);
  }

  Grow(work.x, static_cast<int>(line.size()) + 1);
  work.recIdx.assign(static_cast<std::size_t>(2 * Columns(in) + 1), 0);
  int count = 0;
  double previous = 0.0;  // Kept: a node at exactly 0 gets no number
  for (const LineNode& node : line) {
    if (node.x != previous) work.x[static_cast<std::size_t>(++count)] = previous = node.x;
    if (node.side > 0)
      work.recIdx[static_cast<std::size_t>((node.side - 1) * Columns(in) + node.setup)] = count;
  }
  return count;
}

bool FS_PreMesh(const PointLoadInput& in, PointLoadWork& work, double L) {
  SubLayerMesh& mesh = work.mesh;
  mesh.Start(kMaxSubLayers + 1);
  if (in.mesh.iMeshGraded) {
    const int count = FS_DiscritizLayers(1, in.layers, in.mesh, L, true, nullptr);
    if (count > kMaxSubLayers) return false;
    FS_DiscritizLayers(0, in.layers, in.mesh, L, true, &mesh);
  } else {
    const double at4L[2] = {0.0, 4.0 * L};
    if (FS_CalcNLA(in.layers, in.mesh, at4L, 1, true) > kMaxSubLayers) return false;
    FillEvenMesh(in.layers, in.mesh, L, mesh);
  }
  if (mesh.count < 1) return false;

  const auto last = static_cast<std::size_t>(mesh.count);
  const auto n = static_cast<std::size_t>(++mesh.count);
  for (std::vector<double>* v : {&mesh.thick, &mesh.G, &mesh.rho, &mesh.nu, &mesh.damp, &mesh.Vs,
                                 &mesh.bottom, &mesh.lambda, &mesh.bulk}) {
    (*v)[n] = (*v)[last];
  }
  mesh.top[1] = 0.0;
  for (std::size_t i = 1; i < n; ++i) mesh.top[i + 1] = mesh.top[i] + mesh.thick[i];

  const dcomplex c{1.0, 2.0 * mesh.damp[n]};
  ThinLayerMatrices& m = work.matrices;
  m.Gstar = mesh.G[n] * c;
  m.VsStar = Csqrt(1.0 / mesh.rho[n] * m.Gstar);
  m.VpStar = Csqrt(1.0 / mesh.rho[n] * (mesh.lambda[n] * c + 2.0 * m.Gstar));
  m.Size(2 * mesh.count);
  FS_Boupro(m.M_d.data(), m.M_o.data(), m.G_d.data(), m.G_o.data(), m.B1.data(), m.B2.data(), m.A_d.data(),
            m.A_o.data(), mesh.thick.data(), mesh.G.data(), mesh.lambda.data(), mesh.damp.data(),
            mesh.rho.data(), mesh.count, m.N, 1);
  return true;
}

int FS_Chief(const PointLoadInput& in, PointLoadWork& work, double loadRadius, double freq, double Lm) {
  if (!FS_PreMesh(in, work, Lm)) return -1;
  Grow(work.u, work.nReportNodes + 1);
  const double omega = 2.0 * kPi * freq;
  if (!ModesOf(work.matrices, omega * omega, work.modes)) return 0;
  FS_Green(work.x.data(), work.nReportNodes, work.modes.k.data(), work.modes.Phi.data(), work.modes.ld,
           loadRadius, work.matrices.N, work.u.data(), work.green);
  return 1;
}

namespace {

/// Settings of one dispersion point.
struct PairQuestion {
  int point, slot, setup;
  double f, L0;   // frequency, seed wavelength
  double radius;  // of the load
};

/// Both receivers of the set-up as nodes of the line; 0 for none.
struct PairNodes {
  int near = 0, far = 0;
};

/// Builds the line for a wavelength. kResult: done.
PointLoadStatus LayOutLine(const PointLoadInput& in, PointLoadWork& work, const PairQuestion& q, double Lc,
                           PairNodes& nodes) {
  const double dx = Lc * kNodesPerWavelength;
  work.nSpatialNodes = FS_GetNoSpatialNodes(in, dx, Lc);
  if (work.nSpatialNodes > kMaxLineNodes) return PointLoadStatus::kBadInput;
  work.nReportNodes = FS_SetUpNodes(in, work, q.point, dx);
  work.node4L = NodeOf(in, work, 2, kBuiltInSetups);
  nodes = {NodeOf(in, work, 1, q.setup), NodeOf(in, work, 2, q.setup)};
  return nodes.near == 0 || nodes.far == 0 ? PointLoadStatus::kNoResult : PointLoadStatus::kResult;
}

/// Phase lags in degrees along the line, unwrapped, from the displacements.
void PhaseAlongLine(PointLoadWork& work) {
  Grow(work.phase, work.nReportNodes + 1);
  double* phi = work.phase.data();
  for (int i = 1; i <= work.nReportNodes; ++i) {
    const dcomplex u = work.u[static_cast<std::size_t>(i)];
    phi[i] = std::atan2(u.im, u.re) * (-180.0) / kPi;
  }
  FS_PhasePlot(1, work.nReportNodes, work.x.data(), phi);
  UnwrapLine(phi, work.nReportNodes);
  FS_PhasePlot(2, work.nReportNodes, work.x.data(), phi);
}

/// Result of one evaluation.
struct Pass {
  double Lnew = 0.0, V = 0.0, A = 0.0;
  double dif = 0.0, dif2 = 0.0;
  bool grows = false;  // the phase, from the nearer to the farther receiver
};

void PrintPass(const PointLoadInput& in, const PointLoadWork& work, const Pass& p, const PairQuestion& q,
               const PairNodes& nodes, bool accepted) {
  std::printf("[%2ld:%2ld(%2ld)]  V=%12.7g, F=%12.7g, L=%12.7g, A=%12.7g (R1:%g, R2:%g)\n",
              static_cast<long>(q.point), static_cast<long>(q.slot), static_cast<long>(work.passes), p.V, q.f,
              p.Lnew, p.A, work.x[static_cast<std::size_t>(nodes.near)],
              work.x[static_cast<std::size_t>(nodes.far)]);
  if (accepted) return;
  if (p.dif2 > kMaxOverSeed) {
    std::printf("......... dif2(=%g)  >  %g\n", p.dif2, kMaxOverSeed);
  } else {
    std::printf("......... dif(=%g)  >  %g\n", p.dif, in.wlTolerance);
  }
}

/// One evaluation: displacement and phase at all nodes. kResult: done.
PointLoadStatus EvaluateLine(const PointLoadInput& in, PointLoadWork& work, const PairQuestion& q, double Lc,
                             PairNodes& nodes) {
  const PointLoadStatus line = LayOutLine(in, work, q, Lc, nodes);
  if (line != PointLoadStatus::kResult) return line;
  const int good = FS_Chief(in, work, q.radius, q.f, Lc);
  if (good < 0) return PointLoadStatus::kBadInput;
  if (good == 0) return PointLoadStatus::kSeedKept;
  PhaseAlongLine(work);
  return PointLoadStatus::kResult;
}

/// Wavelength, velocity and amplitude ratio of the pair from the evaluated line, and their differences from
/// the wavelength Lc of the line and from the seed. A phase that does not grow counts as no agreement.
Pass PairResult(const PointLoadWork& work, const PairQuestion& q, const PairNodes& nodes, double Lc,
                double* recAmp) {
  const auto near = static_cast<std::size_t>(nodes.near), far = static_cast<std::size_t>(nodes.far);
  const double dX = work.x[far] - work.x[near], dPhi = work.phase[far] - work.phase[near];
  Pass p;
  p.Lnew = 360.0 * dX / dPhi;
  p.V = p.Lnew * q.f;
  p.A = Cabs(work.u[far] / work.u[near]);
  recAmp[1] = Cabs(work.u[near]);
  recAmp[2] = Cabs(work.u[far]);
  p.dif = std::fabs(p.Lnew - Lc) / Lc;
  p.dif2 = std::fabs(p.Lnew - q.L0) / q.L0;
  p.grows = dPhi > 0.0;  // not for 0 and NaN
  if (!p.grows) p.dif = kNoAgreement;
  return p;
}

}  // namespace

int FS_SASW3D(const PointLoadInput& in, PointLoadWork& work, const double* freq, double* vel, double* amp,
              const double* wavelength, int iPoint, int iSlot, dcomplex* stack, double* recAmp) {
  PairQuestion q{std::abs(iPoint), iSlot, SetupOf(in, std::abs(iPoint), iSlot), freq[1], wavelength[1], 0.0};
  q.radius = in.loadRadius != 0.0 ? in.loadRadius : kRadiusOverWavelength * q.L0;
  recAmp[1] = recAmp[2] = 0.0;
  work.passes = 0;
  const auto without = [&](PointLoadStatus status) {
    vel[1] = amp[1] = 0.0;
    work.status = status;
    return 0;
  };
  if (q.setup == 0 || !InRange(q.f, 0.0, 1e+30) || !InRange(q.L0, 0.0, 1e+30) ||
      !CheckPointLoadInput(in, nullptr)) {
    return without(PointLoadStatus::kBadInput);
  }
  if (in.trace) std::printf("*** Receiver Setup : %ld ...\n", static_cast<long>(q.setup));

  double Lc = q.L0;  // of mesh and line
  for (;;) {
    ++work.passes;
    PairNodes nodes;
    const PointLoadStatus status = EvaluateLine(in, work, q, Lc, nodes);
    if (status == PointLoadStatus::kSeedKept) {
      recAmp[1] = recAmp[2] = 0.0;
      work.status = status;
      return 0;
    }
    if (status != PointLoadStatus::kResult) return without(status);

    Pass p = PairResult(work, q, nodes, Lc, recAmp);
    PassOutcome outcome = JudgePass(p.dif, p.dif2, in.wlTolerance, p.grows ? work.passes : kEndPasses);
    if (!(p.V > 0.0 && p.V < HUGE_VAL && p.A < HUGE_VAL)) outcome = PassOutcome::kGiveUp;
    const bool accepted = outcome == PassOutcome::kAccept;
    if (in.trace) PrintPass(in, work, p, q, nodes, accepted);
    if (outcome == PassOutcome::kRepeat) {
      Lc = p.Lnew;
      continue;
    }
    vel[1] = accepted ? p.V : 0.0;
    amp[1] = accepted ? p.A : 0.0;
    work.status = accepted ? PointLoadStatus::kResult : PointLoadStatus::kNoResult;
    if (in.stackRec) {
      const auto near = static_cast<std::size_t>(nodes.near), far = static_cast<std::size_t>(nodes.far);
      stack[FS_stackRec(*in.stackRec, work.x[near])] = work.u[near];
      stack[FS_stackRec(*in.stackRec, work.x[far])] = work.u[far];
    }
    return 0;
  }
}

}  // namespace sondera
