// green_kernels_test.cpp - assembly, boundary, modes and sums of the thin-layer method.
#include "forward/green_kernels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstring>
#include <limits>

#include "forward/cylinder_functions.h"
#include "forward/dense_eigen.h"
#include "forward/point_load_site.h"
#include "numeric/pi.h"

namespace sondera {
namespace {

using plain::Complex;
using test::Matrices;
using test::MatricesOf;
using test::ModeTable;
using test::PencilOf;
using test::Site;

Complex C(dcomplex z) {
  return {z.re, z.im};
}

// --- assembly ---

struct Assembled {
  std::vector<double> M_d, M_o;
  std::vector<dcomplex> G_d, G_o, B1, B2, A_d, A_o;
};

/// Two sublayers of different material; hsFlag makes the second one the half-space element.
Assembled TwoSublayers(int hsFlag) {
  const double t[3] = {0, 0.5, 0.8}, G[3] = {0, 3e4, 7e4}, lambda[3] = {0, 5e4, 9e4},
               damp[3] = {0, 0.02, 0.05}, rho[3] = {0, 1.8, 2.1};
  Assembled a;
  a.M_d.assign(7, 99.0);
  a.M_o.assign(7, 99.0);
  for (auto* v : {&a.G_d, &a.G_o, &a.B1, &a.B2, &a.A_d, &a.A_o}) v->assign(7, {99.0, 99.0});
  FS_Boupro(a.M_d.data(), a.M_o.data(), a.G_d.data(), a.G_o.data(), a.B1.data(), a.B2.data(), a.A_d.data(),
            a.A_o.data(), t, G, lambda, damp, rho, 2, 4, hsFlag);
  return a;
}

void ExpectNear(dcomplex a, Complex b) {
  EXPECT_LT(std::abs(C(a) - b), 1e-12 * (1.0 + std::abs(b)));
}

TEST(Boupro, EntriesOfARigidBaseFollowTheElementMatrices) {
  const Assembled a = TwoSublayers(0);
  const Complex c1(1.0, 0.04), c2(1.0, 0.1);
  // element 1 at the surface
  ExpectNear(a.A_d[1], (2 * 3e4 + 5e4) * 0.5 / 3 * c1);
  ExpectNear(a.A_d[2], 3e4 * 0.5 / 3 * c1);
  ExpectNear(a.A_o[1], (2 * 3e4 + 5e4) * 0.5 / 6 * c1);
  ExpectNear(a.A_o[2], 3e4 * 0.5 / 6 * c1);
  ExpectNear(a.G_d[1], 3e4 / 0.5 * c1);
  ExpectNear(a.G_d[2], (2 * 3e4 + 5e4) / 0.5 * c1);
  ExpectNear(a.G_o[1], -3e4 / 0.5 * c1);
  ExpectNear(a.G_o[2], -(2 * 3e4 + 5e4) / 0.5 * c1);
  ExpectNear(a.B1[1], (3e4 - 5e4) / 2 * c1);
  ExpectNear(a.B1[2], -(3e4 + 5e4) / 2 * c1);
  ExpectNear(a.B2[1], (3e4 + 5e4) / 2 * c1);
  // node 2 takes from both
  ExpectNear(a.A_d[3], (2 * 3e4 + 5e4) * 0.5 / 3 * c1 + (2 * 7e4 + 9e4) * 0.8 / 3 * c2);
  ExpectNear(a.G_d[4], (2 * 3e4 + 5e4) / 0.5 * c1 + (2 * 7e4 + 9e4) / 0.8 * c2);
  ExpectNear(a.B1[3], (7e4 - 9e4) / 2 * c2 - (3e4 - 5e4) / 2 * c1);
  EXPECT_NEAR(a.M_d[1], 0.5 * 1.8 / 3, 1e-15);
  EXPECT_NEAR(a.M_o[1], 0.5 * 1.8 / 6, 1e-15);
  EXPECT_NEAR(a.M_d[2], 0.5 * 1.8 / 3 + 0.8 * 2.1 / 3, 1e-15);
  // nothing couples with the rigid ground
  for (const dcomplex& z : {a.A_o[3], a.A_o[4], a.G_o[3], a.G_o[4], a.B1[4], a.B2[2], a.B2[3], a.B2[4]}) {
    EXPECT_EQ(C(z), Complex());
  }
  EXPECT_EQ(a.M_o[2], 0.0);
}

TEST(Boupro, HalfSpaceElementAddsNothingItself) {
  const Assembled a = TwoSublayers(1);
  const Complex c1(1.0, 0.04);
  ExpectNear(a.A_d[3], (2 * 3e4 + 5e4) * 0.5 / 3 * c1);
  ExpectNear(a.G_d[4], (2 * 3e4 + 5e4) / 0.5 * c1);
  ExpectNear(a.B1[3], (3e4 - 5e4) / 2 * c1);
  EXPECT_NEAR(a.M_d[2], 0.5 * 1.8 / 3, 1e-15);
  EXPECT_EQ(a.M_d[3], 0.0);
}

TEST(Wave, BoundaryEntersTheLastNodeOnly) {
  Assembled a = TwoSublayers(1);
  const Assembled before = a;
  std::vector<dcomplex> D_d(7), D_o(7);
  const double omega = 40.0;
  const dcomplex Gs{7e4, 7e3}, Vs{180.0, 9.0}, Vp{390.0, 19.0};
  FormBoundary(a.M_d.data(), a.M_o.data(), a.G_d.data(), a.G_o.data(), a.B1.data(), a.A_d.data(), D_d.data(),
               D_o.data(), omega * omega, 4, 1, Gs, Vs, Vp);
  const Complex g = C(Gs), s = C(Vs), p = C(Vp), q = p / s, i(0.0, 1.0);
  for (int d = 1; d <= 2; ++d) {
    ExpectNear(D_d[d], C(before.G_d[d]) - omega * omega * before.M_d[1]);
    ExpectNear(D_o[d], C(before.G_o[d]) - omega * omega * before.M_o[1]);
    EXPECT_EQ(C(a.A_d[d]), C(before.A_d[d]));
  }
  ExpectNear(D_d[3], C(before.G_d[3]) - omega * omega * before.M_d[2] + omega * i * g / s);
  ExpectNear(D_d[4], C(before.G_d[4]) - omega * omega * before.M_d[2] + omega * i * g * p / (s * s));
  ExpectNear(a.A_d[3], C(before.A_d[3]) - i * g * s * (0.5 / omega) * (2.0 * q - 1.0));
  ExpectNear(a.A_d[4], C(before.A_d[4]) + (0.5 / omega) * i * g * s * (q * q * q - 2.0 * q * q));
  ExpectNear(a.B1[3], g * (2.0 - q) - C(before.B1[3]));
}

// --- modes ---

/// Pairs each k with the closest of the others that is still free; returns the largest relative distance.
double Match(const std::vector<dcomplex>& k, const std::vector<Complex>& others, int N,
             std::vector<int>* partner) {
  std::vector<bool> used(others.size());
  partner->assign(N + 1, -1);
  double worst = 0.0;
  for (int j = 1; j <= N; ++j) {
    double best = HUGE_VAL;
    for (std::size_t m = 0; m < others.size(); ++m) {
      const double d = std::abs(C(k[j]) - others[m]) / std::abs(C(k[j]));
      if (!used[m] && d < best) {
        best = d;
        (*partner)[j] = static_cast<int>(m);
      }
    }
    used[(*partner)[j]] = true;
    worst = std::max(worst, best);
  }
  return worst;
}

class RandomMeshes : public testing::TestWithParam<int> {
 protected:
  /// One random site, its wavelength and its frequency near the velocity of the ground.
  void Make() {
    std::mt19937 random(1000 + GetParam());
    std::uniform_real_distribution<double> u(0.0, 1.0);
    site_ = std::make_unique<Site>(test::RandomLayers(random));
    wavelength_ = std::pow(10.0, -0.2 + 1.9 * u(random));
    site_->Type(GetParam() % 3 == 0 ? 4 : 3, 1.2 + u(random));
    if (GetParam() % 3 == 0) site_->in.mesh.nSubLayers = 6;
    freq_ = site_->Vs[1] * (0.7 + 0.5 * u(random)) / wavelength_;
    matrices_ = MatricesOf(*site_, wavelength_, freq_);
    ASSERT_GT(matrices_.N, 0);
    modes_ = test::ModesOf(matrices_, work_);
    ASSERT_EQ(modes_.ok, 1);
  }
  std::unique_ptr<Site> site_;
  double wavelength_ = 0.0, freq_ = 0.0;
  Matrices matrices_;
  ModeWork work_;
  ModeTable modes_;
};

TEST_P(RandomMeshes, FastSearchGivesTheModesOfThePlainOne) {
  ASSERT_NO_FATAL_FAILURE(Make());
  const int N = matrices_.N;
  const plain::Modes plain = plain::SolveModes(PencilOf(matrices_));
  ASSERT_TRUE(plain.ok);
  std::vector<int> partner;
  const std::vector<Complex> others(plain.k.begin() + 1, plain.k.end());
  EXPECT_LT(Match(modes_.k, others, N, &partner), 1e-9);
  for (int j = 1; j <= N; ++j) {
    const std::vector<Complex>& other = plain.phi[partner[j] + 1];
    double size = 0.0, same = 0.0, opposite = 0.0;  // a mode may have either sign
    for (int i = 1; i <= N; ++i) {
      const Complex phi = C(modes_.Phi[static_cast<std::size_t>(j - 1) * N + i]);
      size = std::max(size, std::abs(other[i]));
      same = std::max(same, std::abs(phi - other[i]));
      opposite = std::max(opposite, std::abs(phi + other[i]));
    }
    EXPECT_LT(std::min(same, opposite), 1e-9 * size) << "mode " << j;
  }
}

TEST_P(RandomMeshes, ModesAreThoseOfADenseEigenSolver) {
  ASSERT_NO_FATAL_FAILURE(Make());
  const int N = matrices_.N;
  const plain::Pencil pencil = PencilOf(matrices_);
  const std::vector<Complex> all = dense::Eigenvalues(pencil);
  std::vector<int> partner;
  EXPECT_LT(Match(modes_.k, all, N, &partner), 1e-9);

  // every second half of a pair (k, -k), and the displacement that follows from the dense vectors
  const std::vector<double> x = {0.0, 0.3 * wavelength_, wavelength_, 4.0 * wavelength_};
  const double r0 = 0.001 * wavelength_;
  std::vector<dcomplex> u(4);
  GreenWork work;
  FS_Green(x.data(), 3, modes_.k.data(), modes_.Phi.data(), N, r0, N, u.data(), work);
  for (int i = 1; i <= 3; ++i) {
    Complex sum = 0.0;
    for (int j = 1; j <= N; ++j) {
      const Complex k = all[partner[j]];
      const std::vector<Complex> z = dense::Eigenvector(pencil, k);
      dcomplex I1, I2, I3, I4;
      FS_evint(I1, I2, I3, I4, {k.real(), k.imag()}, x[i], r0);
      sum += z[2] * z[2] * C(I1);
    }
    sum /= kPi * r0;
    EXPECT_LT(std::abs(C(u[i]) - sum), 1e-9 * std::abs(sum)) << "distance " << x[i];
  }
}

TEST_P(RandomMeshes, EachModeMeetsItsEquationAndItsNorm) {
  ASSERT_NO_FATAL_FAILURE(Make());
  const int N = matrices_.N;
  const plain::Pencil P = PencilOf(matrices_);
  for (int j = 1; j <= N; ++j) {
    const Complex k = C(modes_.k[j]);
    EXPECT_LE(k.imag(), 0.0);
    std::vector<Complex> z(N + 1);  // the pairs given out belong to -B
    for (int i = 1; i <= N; ++i) z[i] = C(modes_.Phi[static_cast<std::size_t>(j - 1) * N + i]);
    Complex norm = 0.0;
    double residual = 0.0, size = 0.0;
    for (int i = 1; i <= N; ++i) {
      Complex r = 0.0;
      double s = 0.0;
      for (int c = std::max(1, i - 3); c <= std::min(N, i + 3); ++c) {
        const Complex K = P.D(i, c) - k * P.B(i, c) + k * k * P.A(i, c);
        r += K * z[c];
        s += std::abs(K * z[c]);
        norm += z[i] * (2.0 * k * P.A(i, c) - P.B(i, c)) * z[c];
      }
      residual = std::max(residual, std::abs(r));
      size = std::max(size, s);
    }
    EXPECT_LT(residual, 1e-10 * size) << "mode " << j;
    EXPECT_LT(std::abs(norm - 2.0 * k), 1e-9 * std::abs(k)) << "mode " << j;
  }
}

TEST_P(RandomMeshes, RegistersOfAnyWidthGiveTheSameBytes) {
  ASSERT_NO_FATAL_FAILURE(Make());
  ModeWork narrow;
  narrow.narrow = true;
  const ModeTable other = test::ModesOf(matrices_, narrow);
  ASSERT_EQ(other.ok, 1);
  EXPECT_EQ(narrow.passes(), work_.passes());
  EXPECT_EQ(0, std::memcmp(other.k.data(), modes_.k.data(), other.k.size() * sizeof(dcomplex)));
  EXPECT_EQ(0, std::memcmp(other.Phi.data(), modes_.Phi.data(), other.Phi.size() * sizeof(dcomplex)));
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomMeshes, testing::Range(0, 12));

TEST(Raylgh, WorkSpaceMayBeUsedForAnySizeAfterAnyOther) {
  ModeWork used;
  for (int n : {40, 3, 1, 2, 25, 4}) {
    const Matrices m = test::RigidBase(n, 0.2, 150.0, 1.8, 0.3, 0.02, 20.0);
    ModeWork fresh;
    const ModeTable a = test::ModesOf(m, used), b = test::ModesOf(m, fresh);
    ASSERT_EQ(a.ok, 1) << n;
    EXPECT_EQ(0, std::memcmp(a.k.data(), b.k.data(), a.k.size() * sizeof(dcomplex))) << n;
  }
}

TEST(Raylgh, SurfaceRowsAloneAreThoseOfTheWholeModes) {
  const Matrices m = test::RigidBase(11, 0.2, 150.0, 1.8, 0.3, 0.02, 60.0);
  ModeWork work;
  const ModeTable whole = test::ModesOf(m, work);
  std::vector<dcomplex> k(m.N + 1), Phi(2 * m.N + 1);
  int ok = 0;
  FS_Raylgh(m.A_d.data(), m.A_o.data(), m.B1.data(), m.B2.data(), m.D_d.data(), m.D_o.data(), k.data(),
            Phi.data(), 2, work, m.N, ok);
  ASSERT_EQ(ok, 1);
  for (int j = 1; j <= m.N; ++j) {
    for (int i : {1, 2}) EXPECT_EQ(C(Phi[(j - 1) * 2 + i]), C(whole.Phi[(j - 1) * m.N + i]));
  }
}

// One sublayer on rigid ground, without damping: k^4 A1 A2 + k^2 (A1 D2 + A2 D1 - B^2) + D1 D2 = 0.
TEST(Raylgh, OneSublayerHasTheRootsOfItsQuarticPolynomial) {
  const Matrices m = test::RigidBase(1, 0.5, 150.0, 1.8, 0.3, 0.0, 120.0);
  ModeWork work;
  const ModeTable t = test::ModesOf(m, work);
  ASSERT_EQ(t.ok, 1);
  const double A1 = m.A_d[1].re, A2 = m.A_d[2].re, D1 = m.D_d[1].re, D2 = m.D_d[2].re, B = m.B1[1].re;
  const double p = (A1 * D2 + A2 * D1 - B * B) / (A1 * A2), q = D1 * D2 / (A1 * A2);
  const Complex root = std::sqrt(Complex(0.25 * p * p - q));
  for (int j = 1; j <= 2; ++j) {
    const Complex k2 = C(t.k[j]) * C(t.k[j]);
    EXPECT_LT(std::min(std::abs(k2 + 0.5 * p - root), std::abs(k2 + 0.5 * p + root)), 1e-10 * std::abs(k2));
  }
}

// Without damping the propagating modes are exactly real; the sign that sends their energy outward is kept,
// and even rows are negated as for all modes with an unchanged sign.
TEST(Raylgh, UndampedPropagatingModesAreExactlyRealAndOutgoing) {
  const Matrices m = test::RigidBase(20, 0.25, 150.0, 1.8, 0.25, 0.0, 40.0);
  ModeWork work;
  const ModeTable t = test::ModesOf(m, work);
  ASSERT_EQ(t.ok, 1);
  const plain::Modes other = plain::SolveModes(PencilOf(m));
  ASSERT_TRUE(other.ok);
  int real = 0, imaginary = 0;
  for (int j = 1; j <= m.N; ++j) {
    const Complex k = C(t.k[j]);
    EXPECT_LE(k.imag(), 0.0);
    if (k.real() == 0.0) ++imaginary;
    if (k.imag() != 0.0) continue;
    ++real;
    // group velocity: Phi^T M Phi omega / k against Phi^T (2 k A - B) Phi is positive for the normalised
    // mode, and the plain search gives the same sign
    double nearest = HUGE_VAL;
    for (int q = 1; q <= m.N; ++q) nearest = std::min(nearest, std::abs(other.k[q] - k));
    EXPECT_LT(nearest, 1e-9 * std::abs(k));
    // k (x1^2 + x2^2) > 0 with x = Phi / k
    const Complex f1 = C(t.Phi[(j - 1) * m.N + 1]), f2 = C(t.Phi[(j - 1) * m.N + 2]);
    EXPECT_GT(((f1 * f1 + f2 * f2) / k).real(), 0.0) << "k = " << k;
  }
  EXPECT_GT(real, 2);
  EXPECT_GT(imaginary, 2);
}

// The shift after a complex root is its conjugate: the passes of the fast search are those of the plain one,
// which follows this rule and no other.
TEST(Raylgh, ComplexRootIsFollowedByItsConjugateAsTheNextShift) {
  for (double damp : {0.0, 0.02}) {
    const Matrices m = test::RigidBase(9, 0.3, 150.0, 1.8, 0.3, damp, 30.0);
    ModeWork work;
    const ModeTable t = test::ModesOf(m, work);
    const plain::Modes other = plain::SolveModes(PencilOf(m));
    ASSERT_EQ(t.ok, 1);
    ASSERT_TRUE(other.ok);
    EXPECT_EQ(work.passes(), other.passes);
    for (int j = 1; j <= m.N; ++j)
      EXPECT_LT(std::abs(C(t.k[j]) - other.k[j]), 1e-9 * std::abs(other.k[j])) << j;
    if (damp == 0.0) continue;
    bool found = false;  // conjugate neighbours are what the rule is for
    for (int j = 1; j < m.N; ++j) {
      const Complex a = C(t.k[j]), b = C(t.k[j + 1]);
      found = found || std::min(std::abs(b - std::conj(a)), std::abs(b + std::conj(a))) < 0.2 * std::abs(a);
    }
    EXPECT_TRUE(found);
  }
}

TEST(Raylgh, LowDampingStillFindsAllModes) {
  std::mt19937 random(5);
  for (double damp : {0.005, 0.001, 1e-5, 0.0}) {
    for (int it = 0; it < 6; ++it) {
      Site site(test::RandomLayers(random, damp));
      site.Type(it % 2 ? 3 : 4, 1.75);
      const Matrices m = MatricesOf(site, 6.0, site.Vs[1] / 6.0);
      ModeWork work;
      EXPECT_EQ(test::ModesOf(m, work).ok, 1) << damp << " " << it;
    }
  }
}

TEST(Raylgh, NotANumberEndsTheSearchWithoutModes) {
  const double bad[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                        0.0};
  for (double value : bad) {
    for (int where = 0; where < 4; ++where) {
      Matrices m = test::RigidBase(8, 0.3, 150.0, 1.8, 0.3, 0.02, 30.0);
      std::vector<dcomplex>* v[] = {&m.A_d, &m.D_d, &m.B1, &m.D_o};
      if (value == 0.0) {
        std::fill(v[where]->begin(), v[where]->end(), dcomplex{});
        if (where > 1) continue;  // still a problem with modes
      } else {
        (*v[where])[5] = {value, 0.0};
      }
      ModeWork work;
      const ModeTable t = test::ModesOf(m, work);
      EXPECT_EQ(t.ok, 0) << value << " in " << where;
      EXPECT_LE(work.passes(), 100 * 16);
    }
  }
}

// Scaling all moduli does not change the wavenumbers, however large the numbers become in between.
TEST(Raylgh, SizeOfTheModuliDoesNotMatter) {
  Matrices m = test::RigidBase(12, 0.3, 150.0, 1.8, 0.3, 0.02, 30.0);
  ModeWork work;
  const ModeTable a = test::ModesOf(m, work);
  for (double f : {0x1p-100, 0x1p100}) {
    Matrices s = m;
    for (auto* v : {&s.A_d, &s.A_o, &s.B1, &s.B2, &s.D_d, &s.D_o})
      for (dcomplex& z : *v) z = {z.re * f, z.im * f};
    const ModeTable b = test::ModesOf(s, work);
    ASSERT_EQ(b.ok, 1);
    for (int j = 1; j <= m.N; ++j) EXPECT_LT(std::abs(C(a.k[j]) - C(b.k[j])), 1e-11 * std::abs(C(a.k[j])));
  }
}

// --- radial functions ---

const Complex kC(0.0, -1.570796);

TEST(Evint, OutsideTheDiskFollowsItsColumn) {
  const dcomplex k{1.3, -0.2};
  const double r = 2.1, r0 = 0.4;
  dcomplex I1, I2, I3, I4, J0, J1, H0, H1, q;
  FS_evint(I1, I2, I3, I4, k, r, r0);
  Bessel({k.re * r0, k.im * r0}, J0, J1, q);
  Hankel({k.re * r, k.im * r}, H0, H1, q, 2);
  ExpectNear(I1, kC * C(J1) * C(H0) / C(k));
  ExpectNear(I2, kC * C(J1) * C(H1));
  ExpectNear(I3, (kC * C(J1) * C(H1) - 0.5 * r0 / r) / (C(k) * C(k)));
  ExpectNear(I4, kC * C(J0) * C(H0));
}

TEST(Evint, NodeOnTheRimBelongsToTheDisk) {
  const dcomplex k{1.3, -0.2};
  const double r0 = 0.4;
  dcomplex J0, J1, H0, H1, q;
  Hankel({k.re * r0, k.im * r0}, H0, H1, q, 2);
  for (double r : {0.4, 0.25}) {
    dcomplex I1, I2, I3, I4;
    FS_evint(I1, I2, I3, I4, k, r, r0);
    Bessel({k.re * r, k.im * r}, J0, J1, q);
    ExpectNear(I1, (kC * C(J0) * C(H1) - 1.0 / (C(k) * r0)) / C(k));
    ExpectNear(I2, kC * C(J1) * C(H1));
    ExpectNear(I3, (kC * C(J1) * C(H1) - 0.5 * r / r0) / (C(k) * C(k)));
    ExpectNear(I4, kC * C(J0) * C(H0));
  }
}

TEST(Evint, CentreUsesOneAndZeroForJ) {
  const dcomplex k{0.8, -1.1};
  const double r0 = 0.7;
  dcomplex I1, I2, I3, I4, H0, H1, q;
  FS_evint(I1, I2, I3, I4, k, 0.0, r0);
  Hankel({k.re * r0, k.im * r0}, H0, H1, q, 2);
  ExpectNear(I1, (kC * C(H1) - 1.0 / (C(k) * r0)) / C(k));
  EXPECT_EQ(C(I2), Complex());
  EXPECT_EQ(C(I3), Complex());
  ExpectNear(I4, kC * C(H0));
}

TEST(Evint, ConstantOfSevenDigitsIsNotHalfPi) {
  // c J0 H1 and 1 / x0 nearly cancel for a small disk; what is left shows the constant
  dcomplex I1, I2, I3, I4, J0, J1, H0, H1, q;
  const double x0 = 1e-3;
  FS_evint(I1, I2, I3, I4, {1.0, -0.0}, x0, x0);
  Bessel({x0, 0.0}, J0, J1, q);
  Hankel({x0, 0.0}, H0, H1, q, 2);
  const Complex exact = Complex(0.0, -0.5 * kPi) * C(J0) * C(H1) - 1.0 / x0;
  EXPECT_NEAR((C(I1) - exact).real() * x0, -2.08e-7, 1e-9);
}

TEST(Evint, ProductsStayFiniteWhereTheirFactorsDoNot) {
  dcomplex I1, I2, I3, I4;
  const dcomplex k{3.0, -2000.0};
  FS_evint(I1, I2, I3, I4, k, 1.0001, 1.0);  // J overflows, H is 0, the product is of order exp(-0.2)
  for (const dcomplex& z : {I1, I2, I3, I4}) EXPECT_TRUE(std::isfinite(z.re) && std::isfinite(z.im));
  // both by their leading asymptotic terms: |c J0 H0| is exp(Im k (r - r0)) / (2 |k| sqrt(r r0))
  EXPECT_NEAR(std::abs(C(I4)) * 2.0 * std::abs(C(k)), std::exp(-0.2), 2e-3);
  FS_evint(I1, I2, I3, I4, k, 0.9, 1.0);
  for (const dcomplex& z : {I1, I2, I3, I4}) EXPECT_TRUE(std::isfinite(z.re) && std::isfinite(z.im));
}

// --- sum over modes ---

TEST(Green, SumsParticipationTimesRadialFunctionOverAllModes) {
  const Matrices m = test::RigidBase(15, 0.3, 150.0, 1.8, 0.3, 0.02, 30.0);
  ModeWork modeWork;
  const ModeTable t = test::ModesOf(m, modeWork);
  ASSERT_EQ(t.ok, 1);
  const double r0 = 0.2;
  const std::vector<double> x = {0.0, 0.0, 0.1, 0.2, 0.2000001, 0.5, 3.0, 50.0, 400.0};
  const int nNodes = static_cast<int>(x.size()) - 1;
  std::vector<dcomplex> u(nNodes + 1);
  GreenWork work;
  FS_Green(x.data(), nNodes, t.k.data(), t.Phi.data(), m.N, r0, m.N, u.data(), work);
  for (int i = 1; i <= nNodes; ++i) {
    Complex sum = 0.0;
    for (int j = 1; j <= m.N; ++j) {
      dcomplex I1, I2, I3, I4;
      FS_evint(I1, I2, I3, I4, t.k[j], x[i], r0);
      const Complex phi = C(t.Phi[(j - 1) * m.N + 2]);
      sum += phi * phi * C(I1);
    }
    sum /= kPi * r0;
    EXPECT_LT(std::abs(C(u[i]) - sum), 1e-12 * std::abs(sum)) << "r = " << x[i];
  }
}

TEST(Green, UndefinedModeMakesTheDisplacementUndefined) {
  const double x[2] = {0.0, 2.0};
  const dcomplex k[3] = {{}, {1.0, -0.1}, {0.0, 0.0}},
                 Phi[5] = {{}, {1.0, 0.0}, {1.0, 0.0}, {1.0, 0.0}, {1.0, 0.0}};
  dcomplex u[2];
  GreenWork work;
  FS_Green(x, 1, k, Phi, 2, 0.001, 2, u, work);
  EXPECT_FALSE(std::isfinite(u[1].re) && std::isfinite(u[1].im));
}

TEST(SmoothPhase, IsTheLeastSquaresSlopeTimesTheDistance) {
  const double x[] = {99, 1.0, 2.0, 4.0, 5.0}, y[] = {99, 7.0, 3.0, 5.0, 9.0};
  // points 2..4: means 11/3 and 17/3, slope 78/42
  EXPECT_NEAR(FS_SmoothPhase(x, y, 2, 4, 10.0, 4.0), 78.0 / 42.0 * 6.0, 1e-13);
  EXPECT_EQ(FS_SmoothPhase(x, y, 3, 3, 10.0, 4.0), 0.0);
}

}  // namespace
}  // namespace sondera
