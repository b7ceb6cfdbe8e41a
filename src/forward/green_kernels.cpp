// green_kernels.cpp - matrices of the thin-layer method and the sum over its modes.
//
// The point-load solver calls FS_Boupro and FS_Wave once per pass, then FS_Green. The search for the modes is
// in green_modes.cpp. Owns no state. Odd on purpose: the factor -i pi / 2 of the radial functions has seven
// digits. On the disk itself (r <= r0), where it is added to 1 / x0, a small disk therefore has an error of
// 2e-7 / (k r0).
#include "forward/green_kernels.h"

#include <algorithm>
#include <cmath>

#include "forward/cylinder_functions.h"
#include "numeric/complex_two.h"
#include "numeric/pi.h"

namespace sondera {
namespace {

constexpr double kNegligible =
    46.0;  // a term exp(46) times smaller than the largest one changes no digit of the sum
constexpr double kHalfPiTruncated =
    1.570796;  // Kept: not pi / 2; c = -kHalfPiTruncated * i in all radial functions

inline dcomplex TimesC(dcomplex z) {
  return {kHalfPiTruncated * z.im, -kHalfPiTruncated * z.re};
}

/// x times i
inline dcomplex TimesI(dcomplex z) {
  return {-z.im, z.re};
}

}  // namespace

void ThinLayerMatrices::Size(int degrees) {
  N = degrees;
  const auto entries = static_cast<std::size_t>(N) + 3;
  for (std::vector<double>* v : {&M_d, &M_o})
    if (v->size() < entries) v->resize(entries);
  for (std::vector<dcomplex>* v : {&G_d, &G_o, &B1, &B2, &A_d, &A_o, &D_d, &D_o})
    if (v->size() < entries) v->resize(entries);
}

bool ModesOf(ThinLayerMatrices& m, double omega2, ThinLayerModes& modes) {
  const auto degrees = static_cast<std::size_t>(m.N);
  if (modes.k.size() < degrees + 3) modes.k.resize(degrees + 3);
  const std::size_t entries = static_cast<std::size_t>(modes.ld) * degrees + 1;
  if (modes.Phi.size() < entries) modes.Phi.resize(entries);
  int ok = 0;
  FS_Wave(modes.k.data(), modes.Phi.data(), modes.ld, m.M_d.data(), m.M_o.data(), m.G_d.data(), m.G_o.data(),
          m.B1.data(), m.B2.data(), m.A_d.data(), m.A_o.data(), m.D_d.data(), m.D_o.data(), omega2, m.N, 1,
          m.Gstar, m.VsStar, m.VpStar, modes.work, ok);
  return ok != 0;
}

void FS_Boupro(double* M_d, double* M_o, dcomplex* G_d, dcomplex* G_o, dcomplex* B1, dcomplex* B2,
               dcomplex* A_d, dcomplex* A_o, const double* t, const double* G, const double* lambda,
               const double* damp, const double* rho, int n, int N, int hsFlag) {
  std::fill(M_d + 1, M_d + N + 3, 0.0);
  std::fill(M_o + 1, M_o + N + 3, 0.0);
  for (dcomplex* v : {G_d, G_o, B1, B2, A_d, A_o}) std::fill(v + 1, v + N + 3, dcomplex{});

  const int elements = hsFlag ? n - 1 : n;
  for (int j = 1; j <= elements; ++j) {
    const dcomplex c{1.0, 2.0 * damp[j]};
    const dcomplex S = G[j] * t[j] / 3.0 * c;
    const dcomplex P = (2.0 * G[j] + lambda[j]) * t[j] / 3.0 * c;
    const dcomplex Gs = G[j] / t[j] * c;
    const dcomplex Gp = (2.0 * G[j] + lambda[j]) / t[j] * c;
    const dcomplex Bm = (G[j] - lambda[j]) / 2.0 * c;
    const dcomplex Bp = (G[j] + lambda[j]) / 2.0 * c;
    const double m = t[j] * rho[j] / 3.0;
    const int h = 2 * j - 1, v = 2 * j;  // upper node; h + 2, v + 2 the lower one

    A_d[h] = A_d[h] + P;
    A_d[v] = A_d[v] + S;
    A_d[h + 2] = P;
    A_d[v + 2] = S;
    A_o[h] = 0.5 * P;
    A_o[v] = 0.5 * S;
    G_d[h] = G_d[h] + Gs;
    G_d[v] = G_d[v] + Gp;
    G_d[h + 2] = Gs;
    G_d[v + 2] = Gp;
    G_o[h] = -1.0 * Gs;
    G_o[v] = -1.0 * Gp;
    M_d[j] += m;
    M_d[j + 1] = m;
    M_o[j] = 0.5 * m;
    B1[h] = Bm - B1[h];
    B1[v] = -1.0 * Bp;
    B1[h + 2] = Bm;
    B2[h] = Bp;
    B2[v] = {};
  }

  // couplings beyond node n, and the part of a rigid base
  M_o[n] = 0.0;
  A_o[N - 1] = A_o[N] = {};
  B1[N] = {};
  B2[N] = B2[N - 1] = {};
  if (N > 2) B2[N - 2] = {};
  G_o[N] = G_o[N - 1] = {};
}

void FormBoundary(const double* M_d, const double* M_o, const dcomplex* G_d, const dcomplex* G_o,
                  dcomplex* B1, dcomplex* A_d, dcomplex* D_d, dcomplex* D_o, double omega2, int N, int hsFlag,
                  dcomplex Gstar, dcomplex VsStar, dcomplex VpStar) {
  const double omega = std::sqrt(omega2);
  for (int i = 1; i <= N; ++i) {
    const int m = (i + 1) / 2;
    D_d[i] = {G_d[i].re - omega2 * M_d[m], G_d[i].im};
    D_o[i] = {G_o[i].re - omega2 * M_o[m], G_o[i].im};
  }
  if (!hsFlag) return;

  const dcomplex q = VpStar / VsStar, q2 = q * q, q3 = q2 * q;
  const dcomplex shear = Gstar / VsStar;  // G / Vs = rho Vs
  const dcomplex iGV = 0.5 / omega * TimesI(Gstar * VsStar);
  D_d[N - 1] = D_d[N - 1] + omega * TimesI(shear);
  D_d[N] = D_d[N] + omega * TimesI(shear * q);
  A_d[N - 1] = A_d[N - 1] - iGV * (2.0 * q - dcomplex{1.0, 0.0});
  A_d[N] = A_d[N] + iGV * (q3 - 2.0 * q2);
  B1[N - 1] = Gstar * (dcomplex{2.0, 0.0} - q) - B1[N - 1];
}

void FS_Wave(dcomplex* k, dcomplex* Phi, int ld, const double* M_d, const double* M_o, const dcomplex* G_d,
             const dcomplex* G_o, dcomplex* B1, const dcomplex* B2, dcomplex* A_d, const dcomplex* A_o,
             dcomplex* D_d, dcomplex* D_o, double omega2, int N, int hsFlag, dcomplex Gstar, dcomplex VsStar,
             dcomplex VpStar, ModeWork& work, int& ok) {
  FormBoundary(M_d, M_o, G_d, G_o, B1, A_d, D_d, D_o, omega2, N, hsFlag, Gstar, VsStar, VpStar);
  FS_Raylgh(A_d, A_o, B1, B2, D_d, D_o, k, Phi, ld, work, N, ok);
}

void FS_evint(dcomplex& I1, dcomplex& I2, dcomplex& I3, dcomplex& I4, dcomplex k, double r, double r0) {
  const dcomplex x = r * k, x0 = r0 * k;
  const bool outside = r0 < r;
  const dcomplex& argJ = outside ? x0 : x;
  const dcomplex& argH = outside ? x : x0;
  dcomplex J0{1.0, 0.0}, J1{0.0, 0.0}, H0, H1;
  if (outside || r != 0.0) BesselScaled(argJ, J0, J1);
  HankelScaled(argH, H0, H1);
  // c times the exponentials of both scaled functions: their sum never grows
  const double decay = std::exp(std::fabs(argJ.im) + argH.im);
  const dcomplex cE = TimesC({decay * std::cos(argH.re), -decay * std::sin(argH.re)});

  const dcomplex cJ1 = cE * J1, cJ0 = cE * J0;
  const dcomplex cJ1H1 = cJ1 * H1;
  if (outside) {
    I1 = cJ1 * H0 / k;
    I3 = (cJ1H1 - dcomplex{0.5 * r0 / r, 0.0}) / (k * k);
  } else {
    I1 = (cJ0 * H1 - dcomplex{1.0, 0.0} / x0) / k;
    I3 = (cJ1H1 - dcomplex{0.5 * r / r0, 0.0}) / (k * k);
  }
  I2 = cJ1H1;
  I4 = cJ0 * H0;
}

void FS_Green(const double* x, int nNodes, const dcomplex* k, const dcomplex* Phi, int ld, double r0,
              int nModes, dcomplex* u, GreenWork& work) {
  // The terms that do not depend on the distance: the participation Phi(2,m)^2 and, outside the disk, c J1(k
  // r0) / k (scaled); and the logarithm of the term's size at distance 1 without its decay.
  work.Size(nModes);
  GreenWork::Mode* mode = work.mode.data();
  for (int m = 1; m <= nModes; ++m) {
    const dcomplex phi = Phi[static_cast<std::ptrdiff_t>(m - 1) * ld + 2];
    dcomplex J0, J1;
    BesselScaled(r0 * k[m], J0, J1);
    mode[m].phi2 = phi * phi;
    mode[m].factor = mode[m].phi2 * (TimesC(J1) / k[m]);
    mode[m].size = std::log(Cabs(mode[m].factor)) - 0.5 * std::log(Cabs(k[m]));
  }

  const double scale = 1.0 / (kPi * r0);
  for (int i = 1; i <= nNodes; ++i) {
    const double r = x[i];
    dcomplex sum{};
    if (r0 < r) {
      const double far = r - r0;
      double largest = -HUGE_VAL;
      for (int m = 1; m <= nModes; ++m) {
        // an infinite or undefined size must not hide the others
        const double size = mode[m].size + k[m].im * far;
        if (size > largest && size < HUGE_VAL) largest = size;
      }
      for (int m = 1; m <= nModes; ++m) {
        if (mode[m].size + k[m].im * far < largest - kNegligible) continue;
        const dcomplex H0 = Hankel0Scaled(r * k[m]);
        const double decay = std::exp(k[m].im * far), phase = k[m].re * r;
        sum = sum + mode[m].factor * (H0 * dcomplex{decay * std::cos(phase), -decay * std::sin(phase)});
      }
    } else {
      for (int m = 1; m <= nModes; ++m) {
        dcomplex I1, I2, I3, I4;
        FS_evint(I1, I2, I3, I4, k[m], r, r0);
        sum = sum + mode[m].phi2 * I1;
      }
    }
    u[i] = scale * sum;
  }
}

double FS_SmoothPhase(const double* x, const double* y, int i1, int i2, double xa, double xb) {
  const double n = i2 - i1 + 1;
  double mx = 0.0, my = 0.0, sxx = 0.0, sxy = 0.0;
  for (int i = i1; i <= i2; ++i) {
    mx += x[i] / n;
    my += y[i] / n;
  }
  for (int i = i1; i <= i2; ++i) {
    sxx += (x[i] - mx) * (x[i] - mx);
    sxy += (x[i] - mx) * (y[i] - my);
  }
  return sxx > 0.0 ? sxy / sxx * (xa - xb) : 0.0;
}

}  // namespace sondera
