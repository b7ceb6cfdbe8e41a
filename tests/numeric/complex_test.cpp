// complex_test.cpp - both families of complex arithmetic: identities, edge values, and where the two differ.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <complex>
#include <limits>
#include <random>

#include "numeric/complex_one.h"
#include "numeric/complex_two.h"
#include "numeric/pi.h"
#include "support/odd_numbers.h"

namespace sondera {
namespace {

std::complex<double> Std(dcomplex z) {
  return {z.re, z.im};
}

// |z - reference| within a few units in the last place of |reference|.
void ExpectClose(dcomplex z, std::complex<double> reference, double ulps = 8.0) {
  EXPECT_LE(std::abs(Std(z) - reference), ulps * kEps * std::abs(reference))
      << '(' << z.re << ", " << z.im << ") against " << reference;
}

// Numbers over many magnitudes, all four quadrants.
class Numbers {
 public:
  dcomplex Next() { return {Part(), Part()}; }

 private:
  double Part() { return std::ldexp(mantissa_(engine_), exponent_(engine_)); }
  std::mt19937 engine_{20240117};
  std::uniform_real_distribution<double> mantissa_{-1.0, 1.0};
  std::uniform_int_distribution<int> exponent_{-40, 40};
};

// The child process must print where the death test reads.
void ZdivWithOutputOnStderr(dcomplex a, dcomplex b) {
  dup2(STDERR_FILENO, STDOUT_FILENO);
  dcomplex r;
  Zdiv(&r, &a, &b);
}

TEST(Dsign, TakesTheSignOfItsSecondArgument) {
  EXPECT_EQ(Dsign(2.385, 4.0), 2.385);
  EXPECT_EQ(Dsign(-2.385, 4.0), 2.385);
  EXPECT_EQ(Dsign(2.385, -4.0), -2.385);
  EXPECT_EQ(Dsign(-2.385, -4.0), -2.385);
  EXPECT_EQ(Dsign(-2.385, 0.0), 2.385);
}

TEST(Dsign, NegativeZeroCountsAsNotNegative) {
  EXPECT_EQ(Dsign(2.385, -0.0), 2.385);
  EXPECT_FALSE(std::signbit(Dsign(-2.385, -0.0)));
}

TEST(Dsqr, Squares) {
  EXPECT_EQ(Dsqr(-1.5), 2.25);
}

TEST(Dabs, IsTheUnscaledModulus) {
  EXPECT_EQ(Dabs(3.0, -4.0), 5.0);
  EXPECT_EQ(Dabs(1e200, 1.0), kInf);     // overflows, where Cabs does not
  EXPECT_EQ(Dabs(1e-200, 1e-200), 0.0);  // underflows, where Cabs does not
  const dcomplex z{5.0, 12.0};
  EXPECT_EQ(Zabs(&z), 13.0);
}

TEST(DrealAndDimag, GiveTheParts) {
  const dcomplex z{2.385, -7.25};
  EXPECT_EQ(Dreal(&z), 2.385);
  EXPECT_EQ(Dimag(&z), -7.25);
}

TEST(Zcnjg, TurnsTheImaginaryPart) {
  dcomplex z{2.385, -7.25};
  Zcnjg(&z, &z);
  EXPECT_EQ(z.re, 2.385);
  EXPECT_EQ(z.im, 7.25);
}

TEST(Zdiv, AgreesWithTheLibrary) {
  Numbers numbers;
  for (int k = 0; k < 2000; ++k) {
    const dcomplex a = numbers.Next(), b = numbers.Next();
    dcomplex r;
    Zdiv(&r, &a, &b);
    ExpectClose(r, Std(a) / Std(b));
  }
}

TEST(Zdiv, ResultMayBeEitherArgument) {
  dcomplex a{1.0, 2.0}, b{3.0, -4.0};
  Zdiv(&a, &a, &b);
  ExpectClose(a, {-0.2, 0.4});
  a = {1.0, 2.0};
  Zdiv(&b, &a, &b);
  ExpectClose(b, {-0.2, 0.4});
}

TEST(Zdiv, DividesByAPureRealAndAPureImaginary) {
  const dcomplex a{3.0, -5.0}, real{-2.0, 0.0}, imaginary{0.0, 4.0};
  dcomplex r;
  Zdiv(&r, &a, &real);
  EXPECT_EQ(r.re, -1.5);
  EXPECT_EQ(r.im, 2.5);
  Zdiv(&r, &a, &imaginary);
  EXPECT_EQ(r.re, -1.25);
  EXPECT_EQ(r.im, -0.75);
}

TEST(ZdivDeathTest, ZeroDivisorPrintsItsLineAndEndsWithStatusOne) {
  EXPECT_EXIT(ZdivWithOutputOnStderr({1.0, 2.0}, {0.0, 0.0}), testing::ExitedWithCode(1),
              "^complex division by zero\n$");
  EXPECT_EXIT(ZdivWithOutputOnStderr({0.0, 0.0}, {-0.0, -0.0}), testing::ExitedWithCode(1),
              "^complex division by zero\n$");
}

TEST(ZdivDeathTest, NotANumberOverAZeroImaginaryPartEndsItToo) {
  EXPECT_EXIT(ZdivWithOutputOnStderr({1.0, 2.0}, {kNaN, 0.0}), testing::ExitedWithCode(1),
              "complex division by zero");
}

TEST(Zdiv, OtherNotANumbersRunOn) {
  const dcomplex a{1.0, 2.0}, b{1.0, kNaN};
  dcomplex r;
  Zdiv(&r, &a, &b);
  EXPECT_TRUE(std::isnan(r.re));
  EXPECT_TRUE(std::isnan(r.im));
}

TEST(Zsqrt, OfMinusOneIsPlusIForEitherSignOfZero) {
  for (const double zero : {0.0, -0.0}) {
    const dcomplex z{-1.0, zero};
    dcomplex r;
    Zsqrt(&r, &z);
    EXPECT_EQ(r.re, 0.0);
    EXPECT_EQ(r.im, 1.0);
  }
}

TEST(Zsqrt, TakesTheRootWithNonNegativeRealPart) {
  dcomplex r;
  const dcomplex below{-1.0, -1e-300};  // just below the cut
  Zsqrt(&r, &below);
  EXPECT_EQ(r.im, -1.0);
  EXPECT_GE(r.re, 0.0);
  const dcomplex z{-3.0, -4.0};
  Zsqrt(&r, &z);
  EXPECT_EQ(r.re, 1.0);
  EXPECT_EQ(r.im, -2.0);
}

TEST(Zsqrt, AgreesWithTheLibrary) {
  Numbers numbers;
  for (int k = 0; k < 2000; ++k) {
    const dcomplex z = numbers.Next();
    dcomplex r;
    Zsqrt(&r, &z);
    ExpectClose(r, std::sqrt(Std(z)));
  }
}

TEST(Zsqrt, OfZeroAndOfAnUnderflowingModulusIsZero) {
  for (const dcomplex z : {dcomplex{0.0, 0.0}, dcomplex{-0.0, -0.0}, dcomplex{1e-200, -1e-200}}) {
    dcomplex r{9.0, 9.0};
    Zsqrt(&r, &z);
    EXPECT_EQ(r.re, 0.0);
    EXPECT_EQ(r.im, 0.0);
  }
}

TEST(Zsqrt, ResultMayBeTheArgument) {
  dcomplex z{3.0, 4.0};
  Zsqrt(&z, &z);
  EXPECT_EQ(z.re, 2.0);
  EXPECT_EQ(z.im, 1.0);
}

TEST(Zexp, AgreesWithTheLibrary) {
  for (const dcomplex z :
       {dcomplex{0.0, 0.0}, dcomplex{1.25, kPi}, dcomplex{-30.5, 2.385}, dcomplex{3.0, -1e3}}) {
    dcomplex r;
    Zexp(&r, &z);
    ExpectClose(r, std::exp(Std(z)));
  }
  dcomplex inPlace{0.0, kPi / 2.0};
  Zexp(&inPlace, &inPlace);
  EXPECT_NEAR(inPlace.re, 0.0, kEps);
  EXPECT_EQ(inPlace.im, 1.0);
}

TEST(PowZI, IsTheRepeatedProduct) {
  const dcomplex a{0.75, -1.125};
  std::complex<double> product = 1.0;
  for (int n = 0; n <= 40; ++n) {
    dcomplex r;
    powZI(&r, &a, &n);
    ExpectClose(r, product, 100.0);
    const int minusN = -n;
    powZI(&r, &a, &minusN);
    ExpectClose(r, 1.0 / product, 200.0);
    product *= Std(a);
  }
}

TEST(PowZI, ZeroPowerIsOneWhateverTheBase) {
  const int zero = 0;
  for (const dcomplex a : {dcomplex{0.0, 0.0}, dcomplex{kNaN, kInf}, dcomplex{3.0, -4.0}}) {
    dcomplex r;
    powZI(&r, &a, &zero);
    EXPECT_EQ(r.re, 1.0);
    EXPECT_EQ(r.im, 0.0);
  }
}

TEST(PowZI, TakesTheMostNegativePower) {
  const dcomplex a{0.0, 1.0};  // i to a multiple of 4
  const int n = std::numeric_limits<int>::min();
  dcomplex r;
  powZI(&r, &a, &n);
  EXPECT_EQ(r.re, 1.0);
  EXPECT_EQ(r.im, 0.0);
}

TEST(PowZIDeathTest, NegativePowerOfZeroEndsTheProcess) {
  const auto powerOfZero = [] {
    dup2(STDERR_FILENO, STDOUT_FILENO);
    const dcomplex a{0.0, 0.0};
    const int n = -2;
    dcomplex r;
    powZI(&r, &a, &n);
  };
  EXPECT_EXIT(powerOfZero(), testing::ExitedWithCode(1), "^complex division by zero\n$");
}

TEST(ComplexTwo, BuildsAndTakesApart) {
  const dcomplex c = Complex(2.385, -7.25);
  EXPECT_EQ(Creal(c), 2.385);
  EXPECT_EQ(Cimag(c), -7.25);
  EXPECT_EQ(Conjg(c).re, 2.385);
  EXPECT_EQ(Conjg(c).im, 7.25);
}

TEST(ComplexTwo, FourOperationsAgreeWithTheLibrary) {
  Numbers numbers;
  for (int k = 0; k < 2000; ++k) {
    const dcomplex a = numbers.Next(), b = numbers.Next();
    EXPECT_EQ(Std(Cadd(a, b)), Std(a) + Std(b));
    EXPECT_EQ(Std(Csub(a, b)), Std(a) - Std(b));
    ExpectClose(Cmul(a, b), Std(a) * Std(b));
    ExpectClose(Cdiv(a, b), Std(a) / Std(b));
    EXPECT_EQ(Std(RCmul(-2.385, a)), -2.385 * Std(a));
  }
}

TEST(Cdiv, ByZeroRunsOn) {
  const dcomplex q = Cdiv({1.0, 2.0}, {0.0, 0.0});
  EXPECT_FALSE(std::isfinite(q.re));
  EXPECT_FALSE(std::isfinite(q.im));
}

TEST(Cdiv, DoesNotOverflowOnTheWay) {
  const dcomplex q = Cdiv({1e300, 1e300}, {1e300, 1e300});
  EXPECT_EQ(q.re, 1.0);
  EXPECT_EQ(q.im, 0.0);
}

TEST(Cabs, IsScaled) {
  EXPECT_EQ(Cabs({-3.0, 4.0}), 5.0);
  EXPECT_EQ(Cabs({4.0, -3.0}), 5.0);
  EXPECT_NEAR(Cabs({3e200, 4e200}) / 5e200, 1.0, 4 * kEps);
  EXPECT_NEAR(Cabs({3e-200, 4e-200}) / 5e-200, 1.0, 4 * kEps);
}

TEST(Cabs, GivesTheOtherPartWhenOneIsZero) {
  EXPECT_EQ(Cabs({0.0, -2.385}), 2.385);
  EXPECT_EQ(Cabs({-2.385, -0.0}), 2.385);
  EXPECT_EQ(Cabs({0.0, 0.0}), 0.0);
  EXPECT_TRUE(std::isnan(Cabs({0.0, kNaN})));
  EXPECT_EQ(Cabs({1e-310, 0.0}), 1e-310);
}

TEST(Cangle, CoversAllQuadrants) {
  EXPECT_EQ(Cangle({1.0, 0.0}), 0.0);
  EXPECT_DOUBLE_EQ(Cangle({-1.0, 1.0}), 0.75 * kPi);
  EXPECT_DOUBLE_EQ(Cangle({-1.0, -1.0}), -0.75 * kPi);
  EXPECT_DOUBLE_EQ(Cangle({0.0, -1.0}), -0.5 * kPi);
}

TEST(Csqrt, OfMinusOneIsPlusIForEitherSignOfZero) {
  for (const double zero : {0.0, -0.0}) {
    const dcomplex r = Csqrt({-1.0, zero});
    EXPECT_EQ(r.re, 0.0);
    EXPECT_EQ(r.im, 1.0);
  }
}

TEST(Csqrt, IsTheFormulaOfZsqrt) {
  Numbers numbers;
  for (int k = 0; k < 500; ++k) {
    const dcomplex z = numbers.Next();
    dcomplex one;
    Zsqrt(&one, &z);
    const dcomplex two = Csqrt(z);
    EXPECT_EQ(one.re, two.re);
    EXPECT_EQ(one.im, two.im);
  }
  EXPECT_EQ(Csqrt({1e-200, 1e-200}).re, 0.0);  // the unscaled modulus underflows
}

}  // namespace
}  // namespace sondera
