// cylinder_functions_test.cpp - J0, J1, H0, H1 against tabulated high-precision values and their own
// identities.
#include "forward/cylinder_functions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

namespace sondera {
namespace {

using Complex = std::complex<double>;

Complex C(dcomplex z) {
  return {z.re, z.im};
}

struct Row {
  dcomplex z;
  Complex j0, j1, h0, h1;  // scaled: J by exp(-|Im z|), H by exp(-Im z)
};

std::vector<Row> Table() {
  std::vector<Row> rows;
  std::ifstream in(SONDERA_TEST_DATA "/cylinder_functions.txt");
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream fields(line);
    std::string word;
    double v[10];
    for (double& x : v) {
      fields >> word;
      x = std::strtod(word.c_str(), nullptr);  // hexadecimal and decimal
    }
    rows.push_back({{v[0], v[1]}, {v[2], v[3]}, {v[4], v[5]}, {v[6], v[7]}, {v[8], v[9]}});
  }
  return rows;
}

double Error(Complex value, Complex truth, double size) {
  return std::abs(value - truth) / size;
}

TEST(BesselScaled, AgreesWithHighPrecisionTable) {
  const std::vector<Row> rows = Table();
  ASSERT_GT(rows.size(), 250u);
  double worst = 0.0;
  for (const Row& row : rows) {
    dcomplex j0, j1;
    BesselScaled(row.z, j0, j1);
    // J1 goes to 0 with z, and there it has to be right relative to itself; both have zeros on the real axis
    const bool small = std::abs(C(row.z)) < 1.0;
    const double size = std::max(std::abs(row.j0), std::abs(row.j1));
    const double e =
        std::max(Error(C(j0), row.j0, size), Error(C(j1), row.j1, small ? std::abs(row.j1) : size));
    EXPECT_LT(e, 1e-12) << "z = " << row.z.re << " " << row.z.im;
    worst = std::max(worst, e);
  }
  RecordProperty("worstTimes1e15", std::to_string(worst * 1e15));
  EXPECT_LT(worst, 1e-12);
}

TEST(Hankel, AgreesWithHighPrecisionTable) {
  double worst = 0.0;
  for (const Row& row : Table()) {
    const double p = row.z.im;
    if (std::fabs(p) > 690.0) continue;  // beyond the range of a double; the scaled test has them
    dcomplex H0, H1, ratio;
    Hankel(row.z, H0, H1, ratio, 2);
    const Complex t0 = row.h0 * std::exp(p), t1 = row.h1 * std::exp(p);
    const double e = std::max({Error(C(H0), t0, std::abs(t0)), Error(C(H1), t1, std::abs(t1)),
                               Error(C(ratio), t0 / t1, std::abs(t0 / t1))});
    EXPECT_LT(e, 1e-12) << "z = " << row.z.re << " " << row.z.im;
    worst = std::max(worst, e);
  }
  RecordProperty("worstTimes1e15", std::to_string(worst * 1e15));
}

TEST(HankelScaled, AgreesWithHighPrecisionTable) {
  double worst = 0.0;
  for (const Row& row : Table()) {
    if (row.z.im > 0.0) continue;
    const Complex turn{std::cos(row.z.re), std::sin(row.z.re)};  // exp(i z) without its modulus
    dcomplex h0, h1;
    HankelScaled(row.z, h0, h1);
    const Complex only0 = C(Hankel0Scaled(row.z));
    const double e = std::max({Error(C(h0), turn * row.h0, std::abs(row.h0)),
                               Error(C(h1), turn * row.h1, std::abs(row.h1)),
                               Error(only0, turn * row.h0, std::abs(row.h0))});
    EXPECT_LT(e, 1e-12) << "z = " << row.z.re << " " << row.z.im;
    worst = std::max(worst, e);
  }
  RecordProperty("worstTimes1e15", std::to_string(worst * 1e15));
}

TEST(Bessel, SeriesAtTenMeetsTheFormBeyond) {
  for (double angle : {0.0, -0.02, -0.5, -1.2, -1.5707963}) {
    const dcomplex at{10.0 * std::cos(angle), 10.0 * std::sin(angle)};
    const dcomplex past{at.re * (1.0 + 4e-16), at.im * (1.0 + 4e-16)};
    dcomplex a0, a1, ar, b0, b1, br;
    Bessel(at, a0, a1, ar);
    Bessel(past, b0, b1, br);
    const double size = std::max(std::abs(C(a0)), std::abs(C(a1)));
    EXPECT_LT(Error(C(b0), C(a0), size), 1e-12) << angle;
    EXPECT_LT(Error(C(b1), C(a1), size), 1e-12) << angle;
  }
}

// The neighbouring methods give the same values on both sides of each limit.
TEST(CylinderFunctions, RoutesMeetAtTheirLimits) {
  for (double r : {3.0, 4.0, 8.0, 10.0, 16.0, 25.0, 40.0}) {
    for (double angle : {0.0, -0.3, -0.9, -1.4, -2.0, -3.1}) {
      const Complex in = std::polar(r * (1.0 - 2e-15), angle), out = std::polar(r * (1.0 + 2e-15), angle);
      dcomplex p0, p1, q0, q1;
      HankelScaled({in.real(), in.imag()}, p0, p1);
      HankelScaled({out.real(), out.imag()}, q0, q1);
      EXPECT_LT(Error(C(p0), C(q0), std::abs(C(q0))), 4e-13) << r << " " << angle;
      EXPECT_LT(Error(C(p1), C(q1), std::abs(C(q1))), 4e-13) << r << " " << angle;
      BesselScaled({in.real(), in.imag()}, p0, p1);
      BesselScaled({out.real(), out.imag()}, q0, q1);
      const double size = std::max(std::abs(C(q0)), std::abs(C(q1)));
      EXPECT_LT(Error(C(p0), C(q0), size), 1e-12) << r << " " << angle;
      EXPECT_LT(Error(C(p1), C(q1), size), 1e-12) << r << " " << angle;
    }
  }
}

// J1 H0 - J0 H1 = 2 i sign / (pi z) for kind 1 (sign -1) and kind 2 (sign +1), everywhere.
TEST(Hankel, BothKindsMeetTheWronskianInAllQuadrants) {
  for (double r : {0.01, 0.7, 2.9, 3.1, 6.0, 9.5, 12.0, 24.0, 31.0, 60.0}) {
    for (double angle = -3.1; angle < 3.14; angle += 0.31) {
      const Complex z = std::polar(r, angle);
      dcomplex J0, J1, H0, H1, ratio;
      Bessel({z.real(), z.imag()}, J0, J1, ratio);
      for (int kind : {1, 2}) {
        Hankel({z.real(), z.imag()}, H0, H1, ratio, kind);
        const Complex a = C(J1) * C(H0), b = C(J0) * C(H1);
        const Complex w = Complex(0.0, kind == 1 ? 2.0 : -2.0) / (3.14159265358979323846 * z);
        EXPECT_LT(std::abs(a - b - w), 1e-12 * (std::abs(a) + std::abs(b))) << kind << " " << z;
      }
    }
  }
}

TEST(Bessel, SymmetriesHoldExactly) {
  const dcomplex z{7.31, -2.62};
  dcomplex a0, a1, ar, b0, b1, br;
  Bessel(z, a0, a1, ar);
  Bessel({-z.re, -z.im}, b0, b1, br);
  EXPECT_EQ(C(a0), C(b0));
  EXPECT_EQ(C(a1), -C(b1));
  Bessel({z.re, -z.im}, b0, b1, br);
  EXPECT_EQ(C(a0), std::conj(C(b0)));
  EXPECT_EQ(C(a1), std::conj(C(b1)));
}

TEST(Bessel, RatioIsTheQuotient) {
  dcomplex J0, J1, ratio;
  Bessel({2.385, -0.41}, J0, J1, ratio);
  EXPECT_LT(std::abs(C(ratio) - C(J0) / C(J1)), 1e-15 * std::abs(C(ratio)));
}

TEST(Bessel, OriginGivesOneAndZero) {
  dcomplex J0, J1, ratio;
  Bessel({0.0, 0.0}, J0, J1, ratio);
  EXPECT_EQ(C(J0), Complex(1.0, 0.0));
  EXPECT_EQ(C(J1), Complex(0.0, 0.0));
  EXPECT_TRUE(std::isinf(ratio.re));
}

TEST(Hankel, SecondKindUnderflowsToZeroFarBelowTheAxis) {
  dcomplex H0, H1, ratio;
  Hankel({12.5, -2000.0}, H0, H1, ratio, 2);
  EXPECT_EQ(C(H0), Complex(0.0, 0.0));
  EXPECT_EQ(C(H1), Complex(0.0, 0.0));
  EXPECT_NEAR(std::abs(C(ratio)), 1.0, 1e-3);
}

TEST(Bessel, RatioStaysFiniteWhereTheFunctionsOverflow) {
  dcomplex J0, J1, ratio;
  Bessel({12.5, -2000.0}, J0, J1, ratio);
  EXPECT_TRUE(std::isinf(J0.re) || std::isinf(J0.im));
  EXPECT_NEAR(std::abs(C(ratio)), 1.0, 1e-3);
}

TEST(HankelScaled, ZeroImaginaryPartIsTheLimitFromBelow) {
  for (double x : {-0.4, -5.0, -44.0}) {
    dcomplex a0, a1, b0, b1, l0, l1;
    HankelScaled({x, 0.0}, a0, a1);
    HankelScaled({x, -0.0}, b0, b1);
    HankelScaled({x, -1e-13}, l0, l1);
    EXPECT_EQ(C(a0), C(b0));
    EXPECT_EQ(C(a1), C(b1));
    EXPECT_LT(std::abs(C(a0) - C(l0)), 1e-10 * std::abs(C(a0)));
    EXPECT_LT(std::abs(C(a1) - C(l1)), 1e-10 * std::abs(C(a1)));
  }
}

TEST(CylinderFunctions, ExtremeArgumentsReturn) {
  const double inf = std::numeric_limits<double>::infinity(), nan = std::numeric_limits<double>::quiet_NaN();
  for (double x : {0.0, 1e-308, 1e-30, 1e5, 1e160, 1e308, inf, nan}) {
    for (double y : {0.0, -1e-308, -1e5, -1e308, -inf, nan}) {
      dcomplex a, b, r;
      Bessel({x, y}, a, b, r);
      Hankel({x, y}, a, b, r, 2);
      Hankel({x, y}, a, b, r, 1);
      BesselScaled({x, y}, a, b);
      HankelScaled({x, y}, a, b);
      Hankel0Scaled({x, y});
    }
  }
  dcomplex a, b, r;
  Hankel({nan, -1.0}, a, b, r, 2);
  EXPECT_TRUE(std::isnan(a.re));
}

}  // namespace
}  // namespace sondera
