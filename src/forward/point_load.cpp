// point_load.cpp - the repetition that makes mesh, node line and apparent wavelength agree.
//
// Called by the sweeps, once per dispersion point and set-up; the modes (green_modes.cpp) are what it costs.
// Owns no state. Odd on purpose: failed modes leave the caller's velocity in place, a failed repetition gives
// 0; a phase that does not grow between the receivers ends the repetition at once; the unwrapping looks at
// signs alone.
#include "forward/point_load.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "numeric/complex_two.h"

namespace sondera {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kNodesPerWavelength = 0.25;  // spacing of the grid over the wavelength
constexpr double kRadiusOverWavelength = 0.0001;
constexpr int kMaxPasses = 5;
constexpr int kEndPasses = 10;          // pass counter that ends the repetition
constexpr double kNoAgreement = 999.0;  // relative change where the phase does not grow
constexpr double kMaxOverSeed = 5.0;    // largest relative change against the seed
constexpr double kMaxDepthFactor = 100.0;

bool Refuse(std::string* why, const char* format, double value, int layer = 0) {
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

bool CheckLayer(const LayerTable& t, int l, bool graded, std::string* why) {
  constexpr double kLarge = 1e+30;  // stands in the sentences
  const double h = t.layerH[l];
  if (!(h >= 0.0 && h <= kLarge) || (h == 0.0 && !graded)) {
    return Refuse(why, "The thickness %g of layer %d is not above 0 and at most 1e+30.", h, l);
  }
  if (!InRange(t.layerVs[l], 0.0, kLarge)) {
    return Refuse(why, "The S-wave velocity %g of layer %d is not above 0 and at most 1e+30.", t.layerVs[l],
                  l);
  }
  if (!InRange(t.layerRho[l], 0.0, kLarge)) {
    return Refuse(why, "The density %g of layer %d is not above 0 and at most 1e+30.", t.layerRho[l], l);
  }
  if (!InRange(t.layerG[l], 0.0, kLarge)) {
    return Refuse(why, "The shear modulus %g of layer %d is not above 0 and at most 1e+30.", t.layerG[l], l);
  }
  if (!(t.layerNu[l] > -1.0 && t.layerNu[l] < 0.5)) {
    return Refuse(why, "Poisson's ratio %g of layer %d is not between -1 and 0.5.", t.layerNu[l], l);
  }
  if (!(t.layerDamp[l] >= 0.0 && t.layerDamp[l] <= 1.0)) {
    return Refuse(why, "The damping ratio %g of layer %d is not between 0 and 1.", t.layerDamp[l], l);
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

struct Pass {
  double Lnew = 0.0, V = 0.0, A = 0.0;
  double dif = 0.0, dif2 = 0.0;
};

void Trace(const PointLoadInput& in, const PointLoadWork& work, const Pass& p, double f, int point, int slot,
           int n1, int n2, bool accepted) {
  std::printf("[%2ld:%2ld(%2ld)]  V=%12.7g, F=%12.7g, L=%12.7g, A=%12.7g (R1:%g, R2:%g)\n",
              static_cast<long>(point), static_cast<long>(slot), static_cast<long>(work.passes), p.V, f,
              p.Lnew, p.A, work.x[n1], work.x[n2]);
  if (accepted) return;
  if (p.dif2 > kMaxOverSeed) {
    std::printf("......... dif2(=%g)  >  %g\n", p.dif2, kMaxOverSeed);
  } else {
    std::printf("......... dif(=%g)  >  %g\n", p.dif, in.wlTolerance);
  }
}

/// Inserts a node after all with a position up to its own.
void Insert(std::vector<LineNode>& line, double x, int setup, int side) {
  line.insert(line.begin() + (FS_LocateInsertNode(line, x) + 1), LineNode{x, setup, side});
}

/// Appends the node i of the grid with the built-in receivers that stand on it.
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
  if (in.layers.nLayersCur < 1) return Refuse(why, "There is no layer (%g).", in.layers.nLayersCur);
  if (!InRange(in.mesh.nSubLayers, 0, kMaxSubLayers)) {
    return Refuse(why, "The number of sublayers, %g, is not between 1 and 1000.", in.mesh.nSubLayers);
  }
  if (!InRange(in.mesh.fDispBulb, 0.0, kMaxDepthFactor)) {
    return Refuse(why, "The depth factor, %g, is not above 0 and at most 100.", in.mesh.fDispBulb);
  }
  if (!(in.wlTolerance >= 0.0))
    return Refuse(why, "The wavelength tolerance, %g, is negative.", in.wlTolerance);
  if (!(in.loadRadius >= 0.0 && in.loadRadius < HUGE_VAL)) {
    return Refuse(why, "The load radius, %g, is negative.", in.loadRadius);
  }
  for (int l = 1; l <= in.layers.nLayersCur; ++l) {
    if (!CheckLayer(in.layers, l, in.mesh.iMeshGraded, why)) return false;
  }
  for (int id = kFirstExplicitSetup; id <= in.nRecSetups; ++id) {
    for (double r : {in.rec1Loc[id], in.rec2Loc[id]}) {
      if (!(r >= 0.0 && r < HUGE_VAL))
        return Refuse(why, "The receiver distance %g of set-up %d is negative.", r, id);
    }
  }
  if (in.extraNodeOn && !(in.extraNodes >= 0 && in.extraSpan >= 0.0 && in.extraSpan < HUGE_VAL)) {
    return Refuse(why, "The span of the extra nodes, %g, is negative.", in.extraSpan);
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

  const dcomplex c = Complex(1.0, 2.0 * mesh.damp[n]);
  work.Gstar = RCmul(mesh.G[n], c);
  work.VsStar = Csqrt(RCmul(1.0 / mesh.rho[n], work.Gstar));
  const dcomplex P = Cadd(RCmul(mesh.lambda[n], c), RCmul(2.0, work.Gstar));
  work.VpStar = Csqrt(RCmul(1.0 / mesh.rho[n], P));

  const int N = work.nModes = 2 * mesh.count;
  for (std::vector<double>* v : {&work.M_d, &work.M_o}) Grow(*v, N + 3);
  for (std::vector<dcomplex>* v :
       {&work.G_d, &work.G_o, &work.B1, &work.B2, &work.A_d, &work.A_o, &work.D_d, &work.D_o, &work.k}) {
    Grow(*v, N + 3);
  }
  FS_Boupro(work.M_d.data(), work.M_o.data(), work.G_d.data(), work.G_o.data(), work.B1.data(),
            work.B2.data(), work.A_d.data(), work.A_o.data(), mesh.thick.data(), mesh.G.data(),
            mesh.lambda.data(), mesh.damp.data(), mesh.rho.data(), mesh.count, N, 1);
  return true;
}

int FS_Chief(const PointLoadInput& in, PointLoadWork& work, double loadRadius, double freq, double Lm) {
  constexpr int kSurfaceOnly = 2;  // degrees of freedom of a mode that are kept
  if (!FS_PreMesh(in, work, Lm)) return -1;
  const int N = work.nModes;
  Grow(work.Phi, kSurfaceOnly * N + 1);
  Grow(work.u, work.nReportNodes + 1);
  const double omega = 2.0 * kPi * freq;
  int ok = 0;
  FS_Wave(work.k.data(), work.Phi.data(), kSurfaceOnly, work.M_d.data(), work.M_o.data(), work.G_d.data(),
          work.G_o.data(), work.B1.data(), work.B2.data(), work.A_d.data(), work.A_o.data(), work.D_d.data(),
          work.D_o.data(), omega * omega, N, 1, work.Gstar, work.VsStar, work.VpStar, work.modes, ok);
  if (!ok) return 0;
  FS_Green(work.x.data(), work.nReportNodes, work.k.data(), work.Phi.data(), kSurfaceOnly, loadRadius, N,
           work.u.data(), work.green);
  return 1;
}

int FS_SASW3D(const PointLoadInput& in, PointLoadWork& work, const double* freq, double* vel, double* amp,
              const double* wavelength, int iPoint, int iSlot, dcomplex* stack, double* recAmp) {
  const int point = std::abs(iPoint);
  const int setup = SetupOf(in, point, iSlot);
  const double f = freq[1], L0 = wavelength[1];
  const double radius = in.loadRadius != 0.0 ? in.loadRadius : kRadiusOverWavelength * L0;
  recAmp[1] = recAmp[2] = 0.0;
  work.passes = 0;
  const auto without = [&](PointLoadStatus status) {
    vel[1] = amp[1] = 0.0;
    work.status = status;
    return 0;
  };
  if (setup == 0 || !InRange(f, 0.0, 1e+30) || !InRange(L0, 0.0, 1e+30) ||
      !CheckPointLoadInput(in, nullptr)) {
    return without(PointLoadStatus::kBadInput);
  }
  if (in.trace) std::printf("*** Receiver Setup : %ld ...\n", static_cast<long>(setup));

  double Lc = L0, Lm = L0;
  int passCounter = 0;
  for (;;) {
    ++passCounter;
    ++work.passes;
    const double dx = Lc * kNodesPerWavelength;
    work.nSpatialNodes = FS_GetNoSpatialNodes(in, dx, Lc);
    if (work.nSpatialNodes > kMaxLineNodes) return without(PointLoadStatus::kBadInput);
    work.nReportNodes = FS_SetUpNodes(in, work, point, dx);
    work.node4L = NodeOf(in, work, 2, kBuiltInSetups);
    const int n1 = NodeOf(in, work, 1, setup), n2 = NodeOf(in, work, 2, setup);
    if (n1 == 0 || n2 == 0) return without(PointLoadStatus::kNoResult);

    const int good = FS_Chief(in, work, radius, f, Lm);
    if (good < 0) return without(PointLoadStatus::kBadInput);
    if (good < 1) {
      recAmp[1] = recAmp[2] = 0.0;
      work.status = PointLoadStatus::kSeedKept;
      return 0;
    }

    Grow(work.phase, work.nReportNodes + 1);
    double* phi = work.phase.data();
    for (int i = 1; i <= work.nReportNodes; ++i) {
      const dcomplex u = work.u[static_cast<std::size_t>(i)];
      phi[i] = std::atan2(u.im, u.re) * (-180.0) / kPi;
    }
    FS_PhasePlot(1, work.nReportNodes, work.x.data(), phi);
    UnwrapLine(phi, work.nReportNodes);
    FS_PhasePlot(2, work.nReportNodes, work.x.data(), phi);

    const dcomplex u1 = work.u[static_cast<std::size_t>(n1)], u2 = work.u[static_cast<std::size_t>(n2)];
    const double dX = work.x[n2] - work.x[n1], dPhi = phi[n2] - phi[n1];
    Pass p;
    p.Lnew = 360.0 * dX / dPhi;
    p.V = p.Lnew * f;
    p.A = Cabs(Cdiv(u2, u1));
    recAmp[1] = Cabs(u1);
    recAmp[2] = Cabs(u2);
    p.dif = std::fabs(p.Lnew - Lc) / Lc;
    p.dif2 = std::fabs(p.Lnew - L0) / L0;
    if (!(dPhi > 0.0)) {  // also 0 and not-a-number
      p.dif = kNoAgreement;
      passCounter = kEndPasses;
    }
    PassOutcome outcome = JudgePass(p.dif, p.dif2, in.wlTolerance, passCounter);
    if (!(p.V > 0.0 && p.V < HUGE_VAL && p.A < HUGE_VAL)) outcome = PassOutcome::kGiveUp;
    const bool accepted = outcome == PassOutcome::kAccept;
    if (in.trace) Trace(in, work, p, f, point, iSlot, n1, n2, accepted);
    if (outcome == PassOutcome::kRepeat) {
      Lc = Lm = p.Lnew;
      continue;
    }
    if (!accepted) p.V = p.A = 0.0;
    vel[1] = p.V;
    amp[1] = p.A;
    work.status = accepted ? PointLoadStatus::kResult : PointLoadStatus::kNoResult;
    if (in.stackRec) {
      stack[FS_stackRec(*in.stackRec, work.x[n1])] = u1;
      stack[FS_stackRec(*in.stackRec, work.x[n2])] = u2;
    }
    return 0;
  }
}

}  // namespace sondera
