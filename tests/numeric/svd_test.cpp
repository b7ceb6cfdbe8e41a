// svd_test.cpp - both decompositions: residuals, orthogonality, values by a second route, and where they
// differ on purpose; back substitution and covariance.
#include "numeric/svd.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "numeric/plain_algebra.h"
#include "support/odd_numbers.h"
#include "support/popup_recorder.h"

namespace sondera {
namespace {

using namespace test;

constexpr double kMaxRatio = 30.0;  // of residual to n |A| eps
const int kSizes[] = {1, 2, 3, 5, 10, 50, 70};

struct Factors {
  Matrix u, v;
  std::vector<double> w;  // 1..n
};

Factors BySvdcmp(const Matrix& a) {
  Factors f{a, Matrix(a.cols, a.cols), std::vector<double>(a.cols + 1, 0.0)};
  svdcmp(f.u.data(), a.rows, a.cols, f.w.data(), f.v.data());
  return f;
}

Factors ByFSSvdcmp(const Matrix& a) {
  Factors f{a, Matrix(a.cols, a.cols, a.rows), std::vector<double>(a.cols + 1, 0.0)};
  FS_svdcmp(a.rows, a.cols, f.u.data(), f.w.data(), f.v.data());
  return f;
}

/// |A - U W V^T| / (n |A| eps)
double ResidualRatio(const Matrix& a, const Factors& f) {
  Matrix scaled = f.u;
  for (int j = 1; j <= a.cols; ++j)
    for (int i = 1; i <= a.rows; ++i) scaled(i, j) *= f.w[j];
  const double residual = Norm(Difference(a, Product(scaled, Transpose(f.v))));
  return residual == 0.0 ? 0.0 : residual / (std::max(a.rows, a.cols) * Norm(a) * kEps);
}

/// |Q^T Q - 1| / (n eps)
double OrthogonalityRatio(const Matrix& q) {
  return Norm(Difference(Product(Transpose(q), q), Identity(q.cols))) / (q.rows * kEps);
}

void ExpectDecomposition(const Matrix& a, const Factors& f, const std::string& what) {
  SCOPED_TRACE(what + ", " + std::to_string(a.rows) + " x " + std::to_string(a.cols));
  EXPECT_LT(ResidualRatio(a, f), kMaxRatio);
  EXPECT_LT(OrthogonalityRatio(f.u), kMaxRatio);
  EXPECT_LT(OrthogonalityRatio(f.v), kMaxRatio);
  std::vector<double> values(f.w.begin() + 1, f.w.end());
  std::sort(values.rbegin(), values.rend());
  EXPECT_GE(values.back(), 0.0);
  const std::vector<double> expected = JacobiSingularValues(a);
  for (std::size_t k = 0; k < values.size(); ++k)
    EXPECT_NEAR(values[k], expected[k], kMaxRatio * a.rows * kEps * expected[0]) << "value " << k;
}

class BothDecompositions : public testing::TestWithParam<Factors (*)(const Matrix&)> {};

TEST_P(BothDecompositions, RebuildRandomMatrices) {
  for (const int n : kSizes) {
    for (unsigned seed = 0; seed < 5; ++seed) {
      const Matrix square = RandomMatrix(n, n, seed), tall = RandomMatrix(2 * n + 3, n, seed);
      ExpectDecomposition(square, GetParam()(square), "random");
      ExpectDecomposition(tall, GetParam()(tall), "random tall");
    }
  }
}

TEST_P(BothDecompositions, RebuildHilbertMatrices) {
  for (const int n : kSizes) {
    const Matrix square = HilbertMatrix(n, n), tall = HilbertMatrix(n + 4, n);
    ExpectDecomposition(square, GetParam()(square), "Hilbert");
    ExpectDecomposition(tall, GetParam()(tall), "Hilbert tall");
  }
}

TEST_P(BothDecompositions, RebuildRankDeficientMatrices) {
  for (const int n : kSizes) {
    const Matrix square = RankDeficientMatrix(n, n, 3), tall = RankDeficientMatrix(n + 7, n, 3);
    ExpectDecomposition(square, GetParam()(square), "rank-deficient");
    ExpectDecomposition(tall, GetParam()(tall), "rank-deficient tall");
  }
}

TEST_P(BothDecompositions, RebuildZeroAndDiagonalMatrices) {
  const Matrix zero(5, 3);
  ExpectDecomposition(zero, GetParam()(zero), "zero");
  Matrix diagonal(4, 4);
  diagonal(1, 1) = -3.0, diagonal(2, 2) = 1e-8, diagonal(4, 4) = 7.5;
  ExpectDecomposition(diagonal, GetParam()(diagonal), "diagonal");
  Matrix zeroColumn = RandomMatrix(6, 4, 2);
  for (int i = 1; i <= 6; ++i) zeroColumn(i, 2) = 0.0;
  ExpectDecomposition(zeroColumn, GetParam()(zeroColumn), "zero column");
  Matrix zeroRow = RandomMatrix(4, 4, 2);
  for (int j = 1; j <= 4; ++j) zeroRow(3, j) = 0.0;
  ExpectDecomposition(zeroRow, GetParam()(zeroRow), "zero row");
}

TEST_P(BothDecompositions, RebuildVandermondeMatricesOfSpacings) {
  Matrix a(40, 6);  // powers of log wavelengths, as the fits have them
  for (int i = 1; i <= 40; ++i) {
    a(i, 1) = 1.0;
    for (int j = 2; j <= 6; ++j) a(i, j) = a(i, j - 1) * (0.5 + 0.03 * i);
  }
  ExpectDecomposition(a, GetParam()(a), "Vandermonde");
}

INSTANTIATE_TEST_SUITE_P(Each, BothDecompositions, testing::Values(&BySvdcmp, &ByFSSvdcmp),
                         [](const auto& test) { return test.index == 0 ? "svdcmp" : "FSsvdcmp"; });

TEST(Svdcmp, LargeAndSmallElementsDoNotOverflow) {
  for (const double scale : {1e150, 1e-140}) {
    Matrix a = RandomMatrix(6, 4, 12);
    for (double& element : a.store) element *= scale;
    const Factors f = BySvdcmp(a);
    EXPECT_LT(ResidualRatio(a, f), kMaxRatio) << scale;
  }
}

TEST(Svdcmp, WideMatrixHasZeroValuesForTheMissingRows) {
  for (const int m : {1, 2, 3, 7}) {
    const Matrix a = RandomMatrix(m, m + 4, 6);
    const Factors f = BySvdcmp(a);
    EXPECT_LT(ResidualRatio(a, f), kMaxRatio) << m;
    EXPECT_LT(OrthogonalityRatio(f.v), kMaxRatio) << m;
    std::vector<double> values(f.w.begin() + 1, f.w.end());
    std::sort(values.rbegin(), values.rend());
    const std::vector<double> expected = JacobiSingularValues(Transpose(a));
    for (int k = 0; k < m; ++k) EXPECT_NEAR(values[k], expected[k], 100 * kEps * expected[0]);
    for (int k = m; k < m + 4; ++k) EXPECT_NEAR(values[k], 0.0, 100 * kEps * expected[0]);
  }
}

TEST(FSSvdcmp, VHasTheLeadingDimensionOfA) {
  const Matrix a = RandomMatrix(5, 2, 4);
  Matrix u = a;
  std::vector<double> w(3), v(5 + 2 + 1, -7.5);  // columns at 1 and at 1 + 5
  FS_svdcmp(5, 2, u.data(), w.data(), v.data());
  EXPECT_NEAR(v[1] * v[1] + v[2] * v[2], 1.0, 4 * kEps);
  EXPECT_NEAR(v[6] * v[6] + v[7] * v[7], 1.0, 4 * kEps);
  EXPECT_NEAR(v[1] * v[6] + v[2] * v[7], 0.0, 4 * kEps);
  for (const int gap : {0, 3, 4, 5}) EXPECT_EQ(v[gap], -7.5) << gap;

  std::vector<double> tight(2 + 2 + 1, -7.5);  // the other one: columns at 1 and at 1 + 2
  u = a;
  svdcmp(u.data(), 5, 2, w.data(), tight.data());
  EXPECT_EQ(tight[0], -7.5);
  EXPECT_EQ(tight[1], v[1]);
  EXPECT_EQ(tight[2], v[2]);
  EXPECT_EQ(tight[3], v[6]);
  EXPECT_EQ(tight[4], v[7]);
}

TEST(FSSvdcmp, GivesTheVeryNumbersOfSvdcmpOnAnOrdinaryMatrix) {
  const Matrix a = RandomMatrix(9, 6, 4);
  const Factors one = BySvdcmp(a), two = ByFSSvdcmp(a);
  EXPECT_EQ(one.u.store, two.u.store);
  EXPECT_EQ(one.w, two.w);
}

void TooFewRows() {
  dup2(STDERR_FILENO, STDOUT_FILENO);  // to where the death test looks
  double a[] = {0.0, 1.0, 2.0}, w[3], v[5];
  FS_svdcmp(1, 2, a, w, v);
}

TEST(FSSvdcmpDeathTest, FewerRowsThanColumnsPrintAndEndWithStatusOne) {
  EXPECT_EXIT(TooFewRows(), testing::ExitedWithCode(1), "^SVDCMP: You must augment A with extra zero rows$");
}

// The bidiagonal matrix (1 2; 0 0): the shift meets its other eigenvalue exactly, and the rotation from the
// left has to turn the vector (0, 0).
Matrix ZeroRotationMatrix() {
  Matrix a(2, 2);
  a(1, 1) = 1.0;
  a(1, 2) = 2.0;
  return a;
}

TEST(Svdcmp, RotationOfTwoZerosHasLengthZero) {
  const Factors f = BySvdcmp(ZeroRotationMatrix());
  ExpectDecomposition(ZeroRotationMatrix(), f, "zero rotation");
  EXPECT_EQ(std::min(f.w[1], f.w[2]), 0.0);
  EXPECT_DOUBLE_EQ(std::max(f.w[1], f.w[2]), std::sqrt(5.0));
}

TEST(FSSvdcmp, RotationOfTwoZerosGivesNotANumbers) {
  PopupRecorder popups;
  const Factors f = ByFSSvdcmp(ZeroRotationMatrix());
  EXPECT_TRUE(std::isnan(f.w[1]));
  EXPECT_TRUE(std::isnan(f.w[2]));
  EXPECT_EQ(popups.shown.size(), 1u);  // it never converges
}

// Elements whose squares are near the smallest numbers: the shift is lost in underflow, and the sweeps do not
// converge.
Matrix StubbornMatrix() {
  const double scale = 3e-163;
  Matrix a(2, 2);
  a(1, 1) = -4 * scale, a(1, 2) = 14 * scale;
  a(2, 1) = 14 * scale, a(2, 2) = 5 * scale;
  return a;
}

// The 2 x 2 bidiagonal form of the stubborn matrix, and QR sweeps on it written out for that size.
struct TwoByTwo {
  double w1, e, w2;

  explicit TwoByTwo(const Matrix& a) {
    const double scale = std::fabs(a(1, 1)) + std::fabs(a(2, 1));
    double x = a(1, 1) / scale, y = a(2, 1) / scale;
    const double length = std::sqrt(x * x + y * y), g = x < 0.0 ? length : -length;
    const double h = x * g - (x * x + y * y);
    x -= g;
    const double f = (x * a(1, 2) + y * a(2, 2)) / h;
    w1 = scale * g;
    e = -(a(1, 2) + f * x);
    w2 = a(2, 2) + f * y;
  }

  void Sweep() {
    const double shift = ((w1 - w2) * (w1 + w2) - e * e) / (2.0 * e * w1);
    const double root = PYTHAG(shift, 1.0);
    const double head = ((w1 - w2) * (w1 + w2) + e * (w1 / (shift + (shift < 0.0 ? -root : root)) - e)) / w1;
    double z = PYTHAG(head, e);
    double c = head / z, s = e / z;
    const double f = w1 * c + e * s, g = e * c - w1 * s, h = w2 * s, y = w2 * c;
    w1 = z = PYTHAG(f, h);
    c = f / z, s = h / z;
    e = c * g + s * y;
    w2 = c * y - s * g;
  }
};

TEST(Svdcmp, DoesThirtySweepsInSilenceAndLeavesTheValueAsItStands) {
  PopupRecorder popups;
  TwoByTwo plain(StubbornMatrix());
  for (int sweep = 1; sweep <= 29; ++sweep) plain.Sweep();
  const double afterTwentyNine = plain.w2;
  plain.Sweep();
  ASSERT_GT(std::fabs(plain.w2 - afterTwentyNine), 1e-9 * std::fabs(plain.w2));

  const Factors f = BySvdcmp(StubbornMatrix());
  EXPECT_TRUE(popups.shown.empty());
  EXPECT_DOUBLE_EQ(f.w[1], std::fabs(plain.w1));  // the next value followed
  EXPECT_DOUBLE_EQ(f.w[2], plain.w2);             // keeps its sign too
  const double true0 = JacobiSingularValues(StubbornMatrix())[0];
  EXPECT_GT(std::fabs(std::max(f.w[1], std::fabs(f.w[2])) - true0), 1e-3 * true0);
}

TEST(FSSvdcmp, CallsNrerrorOnTheThirtiethSweepAndDoesTheSweepAllTheSame) {
  const Matrix a = StubbornMatrix();
  TwoByTwo plain(a);
  for (int sweep = 1; sweep <= 29; ++sweep) plain.Sweep();

  Factors strict{a, Matrix(2, 2), {0.0, 0.0, 0.0}};
  std::vector<double> atMessage;
  FrontEnd watching;
  watching.message = [&](std::string_view, std::string_view) { atMessage = strict.w; };
  FrontEnd before = InstallFrontEnd(watching);
  FS_svdcmp(2, 2, strict.u.data(), strict.w.data(), strict.v.data());
  InstallFrontEnd(std::move(before));

  ASSERT_EQ(atMessage.size(), 3u);
  EXPECT_DOUBLE_EQ(atMessage[1], plain.w1);  // shown before the thirtieth sweep
  EXPECT_DOUBLE_EQ(atMessage[2], plain.w2);
  plain.Sweep();
  EXPECT_DOUBLE_EQ(strict.w[1], std::fabs(plain.w1));
  EXPECT_DOUBLE_EQ(strict.w[2], plain.w2);
}

TEST(FSSvdcmp, MessageIsThatOfTheKernels) {
  PopupRecorder popups;
  ByFSSvdcmp(StubbornMatrix());
  ASSERT_EQ(popups.shown.size(), 1u);
  EXPECT_EQ(popups.shown[0].first, "Sondera 2.0");
  EXPECT_EQ(popups.shown[0].second, "Numerical run-time error...\n");
}

TEST(BothSvdcmp, NotANumbersAndInfinitiesEnd) {
  for (const double odd : {kNaN, kInf, -kInf}) {
    for (const int n : {1, 2, 5}) {
      for (const int place : {1, n}) {
        Matrix a = RandomMatrix(n + 2, n, 3);
        a(place, n) = odd;
        PopupRecorder popups;
        BySvdcmp(a);
        EXPECT_TRUE(popups.shown.empty());
        ByFSSvdcmp(a);
        EXPECT_LE(popups.shown.size(), static_cast<std::size_t>(n));
      }
    }
  }
}

TEST(FSSvdcmp, OneMessageForEachValueThatDoesNotConverge) {
  Matrix a = RandomMatrix(5, 5, 3);
  a(1, 1) = kNaN;
  PopupRecorder popups;
  ByFSSvdcmp(a);
  EXPECT_EQ(popups.shown.size(), 4u);  // the last of five is alone and needs no sweep
}

TEST(Pythag, IsTheHypotenuse) {
  EXPECT_EQ(PYTHAG(3.0, -4.0), 5.0);
  EXPECT_EQ(PYTHAG(-4.0, 3.0), 5.0);
  EXPECT_EQ(PYTHAG(0.0, -2.385), 2.385);
  EXPECT_EQ(PYTHAG(2.385, 0.0), 2.385);
  EXPECT_EQ(PYTHAG(1.5, 1.5), 1.5 * std::sqrt(2.0));
  EXPECT_NEAR(PYTHAG(3e200, 4e200) / 5e200, 1.0, 4 * kEps);
  EXPECT_NEAR(PYTHAG(3e-200, 4e-200) / 5e-200, 1.0, 4 * kEps);
}

TEST(Pythag, OfTwoZerosIsNotANumber) {
  EXPECT_TRUE(std::isnan(PYTHAG(0.0, 0.0)));
  EXPECT_TRUE(std::isnan(PYTHAG(-0.0, 0.0)));
}

std::vector<double> BackSubstitute(const Factors& f, const std::vector<double>& b) {
  std::vector<double> x(f.v.cols + 1, -7.5);
  svbksb(f.u.data(), f.w.data(), f.v.data(), f.u.rows, f.u.cols, b.data(), x.data());
  return x;
}

TEST(Svbksb, SolvesASquareSystem) {
  const int n = 8;
  Matrix a = RandomMatrix(n, n, 21);
  for (int i = 1; i <= n; ++i) a(i, i) += n;
  const Matrix b = RandomMatrix(n, 1, 22);
  const std::vector<double> x = BackSubstitute(BySvdcmp(a), b.store);
  const std::vector<double> expected = PlainSolve(a, {b.store.begin() + 1, b.store.end()});
  for (int i = 1; i <= n; ++i) EXPECT_NEAR(x[i], expected[i - 1], 1e-14);
  EXPECT_EQ(x[0], -7.5);
}

TEST(Svbksb, SolvesInTheLeastSquaresSense) {
  const Matrix a = RandomMatrix(12, 4, 31), b = RandomMatrix(12, 1, 32);
  const std::vector<double> x = BackSubstitute(BySvdcmp(a), b.store);
  const Matrix normal = Product(Transpose(a), a), right = Product(Transpose(a), b);
  const std::vector<double> expected = PlainSolve(normal, {right.store.begin() + 1, right.store.end()});
  for (int i = 1; i <= 4; ++i) EXPECT_NEAR(x[i], expected[i - 1], 1e-13);
}

TEST(Svbksb, ValueOfExactlyZeroContributesNothing) {
  Factors f{Identity(2), Identity(2), {0.0, 4.0, 0.0}};
  EXPECT_THAT(BackSubstitute(f, {0.0, 6.0, 8.0}), testing::ElementsAre(-7.5, 1.5, 0.0));
  f.w[2] = -0.0;
  EXPECT_THAT(BackSubstitute(f, {0.0, 6.0, 8.0}), testing::ElementsAre(-7.5, 1.5, 0.0));
  f.w[2] = 1e-300;
  EXPECT_THAT(BackSubstitute(f, {0.0, 6.0, 8.0}), testing::ElementsAre(-7.5, 1.5, 8.0 / 1e-300));
}

TEST(Svdvar, IsTheInverseOfTheNormalMatrix) {
  const int n = 5;
  const Matrix a = RandomMatrix(20, n, 41);
  const Factors f = BySvdcmp(a);
  Matrix cvm(n, n);
  svdvar(f.v.data(), n, f.w.data(), cvm.data());
  const Matrix normal = Product(Transpose(a), a);
  for (int j = 1; j <= n; ++j) {
    std::vector<double> unit(n, 0.0);
    unit[j - 1] = 1.0;
    const std::vector<double> column = PlainSolve(normal, unit);
    for (int i = 1; i <= n; ++i) {
      EXPECT_NEAR(cvm(i, j), column[i - 1], 1e-13);
      EXPECT_EQ(cvm(i, j), cvm(j, i));
    }
  }
}

TEST(Svdvar, LeavesOutTheTermsOfZeroValues) {
  const Matrix v = Identity(3);
  const double w[] = {0.0, 2.0, 0.0, 0.5};
  Matrix cvm(3, 3);
  svdvar(v.data(), 3, w, cvm.data());
  EXPECT_EQ(cvm(1, 1), 0.25);
  EXPECT_EQ(cvm(2, 2), 0.0);
  EXPECT_EQ(cvm(3, 3), 4.0);
  EXPECT_EQ(cvm(1, 3), 0.0);
}

}  // namespace
}  // namespace sondera
