// lu_test.cpp - residuals of factors, solutions and inverses, a second route, and the rules of the pivots.
#include "numeric/lu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "numeric/plain_algebra.h"
#include "support/odd_numbers.h"

namespace sondera {
namespace {

using namespace test;

constexpr double kMaxRatio = 30.0;  // of residual to n |A| eps
const int kSizes[] = {1, 2, 3, 5, 10, 50, 70};

/// |P A - L U| / (n |A| eps), the swaps of indx applied to a copy of A one after the other.
double FactorRatio(const Matrix& a, const Matrix& lu, const std::vector<int>& indx) {
  const int n = a.rows;
  Matrix permuted = a, lower = Identity(n), upper(n, n);
  for (int i = 1; i <= n; ++i) {
    for (int j = 1; j <= n; ++j) {
      std::swap(permuted(i, j), permuted(indx[i], j));
      (j < i ? lower : upper)(i, j) = lu(i, j);
    }
  }
  const double residual = Norm(Difference(permuted, Product(lower, upper)));
  return Norm(a) == 0.0 ? residual / 1e-20 / kEps : residual / (n * Norm(a) * kEps);
}

double FactorRatio(const Matrix& a) {
  Matrix lu = a;
  std::vector<int> indx(a.rows + 1, 0);
  double d = 0.0;
  ludcmp(lu.data(), a.rows, indx.data(), &d);
  int swaps = 0;
  for (int i = 1; i <= a.rows; ++i) {
    EXPECT_GE(indx[i], i);
    EXPECT_LE(indx[i], a.rows);
    swaps += indx[i] != i;
  }
  EXPECT_EQ(d, swaps % 2 == 0 ? 1.0 : -1.0);
  return FactorRatio(a, lu, indx);
}

/// Swallows and counts the lines about zero rows.
class ZeroRowMessages {
 public:
  ZeroRowMessages() { testing::internal::CaptureStdout(); }
  std::string Text() { return testing::internal::GetCapturedStdout(); }
};
const std::string kSingular = "Singular matrix in routine LUDCMP\n";

TEST(Ludcmp, RebuildsRandomMatrices) {
  for (const int n : kSizes)
    for (unsigned seed = 0; seed < 10; ++seed)
      EXPECT_LT(FactorRatio(RandomMatrix(n, n, seed)), kMaxRatio) << "n = " << n << ", seed " << seed;
}

TEST(Ludcmp, RebuildsHilbertMatrices) {
  for (const int n : kSizes) EXPECT_LT(FactorRatio(HilbertMatrix(n, n)), kMaxRatio) << "n = " << n;
}

TEST(Ludcmp, RebuildsRankDeficientMatrices) {
  for (const int n : kSizes) {
    if (n == 1) continue;  // a single zero is a zero row, see below
    EXPECT_LT(FactorRatio(RankDeficientMatrix(n, n, 4)), kMaxRatio) << "n = " << n;
  }
}

TEST(Ludcmp, RebuildsBadlyScaledRows) {
  Matrix a = RandomMatrix(10, 10, 1);
  for (int j = 1; j <= 10; ++j) {
    a(3, j) *= 1e12;
    a(7, j) *= 1e-12;
  }
  EXPECT_LT(FactorRatio(a), kMaxRatio);
}

TEST(Ludcmp, LaterRowWinsATieOfScaledPivots) {
  Matrix a(2, 2);  // both rows have the scaled pivot 1/2
  a(1, 1) = 1.0, a(1, 2) = 2.0;
  a(2, 1) = 2.0, a(2, 2) = -4.0;
  int indx[3] = {};
  double d;
  ludcmp(a.data(), 2, indx, &d);
  EXPECT_EQ(indx[1], 2);
  EXPECT_EQ(indx[2], 2);
  EXPECT_EQ(d, -1.0);
  EXPECT_EQ(a(1, 1), 2.0);
  EXPECT_EQ(a(1, 2), -4.0);
  EXPECT_EQ(a(2, 1), 0.5);
  EXPECT_EQ(a(2, 2), 4.0);
}

TEST(Ludcmp, LastOfThreeEqualPivotsWins) {
  Matrix a(3, 3);
  for (int i = 1; i <= 3; ++i) a(i, 1) = 1.0;
  a(1, 2) = 0.5, a(2, 2) = 0.25, a(3, 3) = 0.75;
  int indx[4] = {};
  double d;
  ludcmp(a.data(), 3, indx, &d);
  EXPECT_EQ(indx[1], 3);
}

TEST(Ludcmp, ScalesRowsImplicitly) {
  Matrix a(2, 2);  // the first pivot is larger, but small for its row
  a(1, 1) = 10.0, a(1, 2) = 1e6;
  a(2, 1) = 1.0, a(2, 2) = 1.0;
  int indx[3] = {};
  double d;
  ludcmp(a.data(), 2, indx, &d);
  EXPECT_EQ(indx[1], 2);
}

TEST(Ludcmp, ScaleGoesWithItsRow) {
  Matrix a(3, 3);  // the first row goes to place 3; its 5 is small beside its 100
  a(1, 1) = 1.0, a(1, 2) = 5.0, a(1, 3) = 100.0;
  a(2, 1) = 0.0, a(2, 2) = 1.0, a(2, 3) = 1.0;
  a(3, 1) = 1.0, a(3, 2) = 0.0, a(3, 3) = 0.5;
  int indx[4] = {};
  double d;
  ludcmp(a.data(), 3, indx, &d);
  EXPECT_EQ(indx[1], 3);
  EXPECT_EQ(indx[2], 2);
}

TEST(Ludcmp, EachZeroRowPrintsItsMessageAndTheWorkGoesOn) {
  for (const std::vector<int>& zeroRows :
       {std::vector<int>{2}, std::vector<int>{1, 3}, std::vector<int>{4}}) {
    Matrix a = RandomMatrix(4, 4, 8);
    std::string expected;
    for (const int row : zeroRows) {
      for (int j = 1; j <= 4; ++j) a(row, j) = 0.0;
      expected += kSingular;
    }
    ZeroRowMessages messages;
    const double ratio = FactorRatio(a);
    EXPECT_EQ(messages.Text(), expected);
    EXPECT_LT(ratio, kMaxRatio);
  }
}

TEST(Ludcmp, ZeroPivotBecomesTiny) {
  ZeroRowMessages messages;
  Matrix one(1, 1);
  int indx[3] = {};
  double d = 0.0;
  ludcmp(one.data(), 1, indx, &d);
  EXPECT_EQ(messages.Text(), kSingular);
  EXPECT_EQ(one(1, 1), 1e-20);
  EXPECT_EQ(indx[1], 1);
  EXPECT_EQ(d, 1.0);

  Matrix equalRows(2, 2);  // no zero row, no message: the second pivot vanishes
  equalRows(1, 1) = equalRows(1, 2) = equalRows(2, 1) = equalRows(2, 2) = 1.0;
  ZeroRowMessages none;
  ludcmp(equalRows.data(), 2, indx, &d);
  EXPECT_EQ(none.Text(), "");
  EXPECT_EQ(equalRows(2, 2), 1e-20);
}

TEST(Ludcmp, NotANumbersAndInfinitiesRunOn) {
  for (const double odd : {kInf, std::numeric_limits<double>::quiet_NaN()}) {
    Matrix a = RandomMatrix(5, 5, 2);
    a(2, 3) = odd;
    std::vector<int> indx(6, 0);
    double d;
    ludcmp(a.data(), 5, indx.data(), &d);
    for (int i = 1; i <= 5; ++i) {
      EXPECT_GE(indx[i], i);
      EXPECT_LE(indx[i], 5);
    }
  }
}

std::vector<double> Solve(const Matrix& a, std::vector<double> b) {
  Matrix lu = a;
  std::vector<int> indx(a.rows + 1, 0);
  double d;
  ludcmp(lu.data(), a.rows, indx.data(), &d);
  lubksb(lu.data(), a.rows, indx.data(), b.data());
  return b;
}

std::vector<double> RandomVector(int n, unsigned seed) {
  const Matrix column = RandomMatrix(n, 1, seed + 500);
  return {column.store.begin() + 1, column.store.end()};
}

/// |A x - b| / (n |A| |x| eps)
double SolutionRatio(const Matrix& a, const std::vector<double>& x, const std::vector<double>& b) {
  double residual = 0.0, size = 0.0;
  for (int i = 1; i <= a.rows; ++i) {
    long double sum = -b[i - 1];
    for (int j = 1; j <= a.cols; ++j) sum += static_cast<long double>(a(i, j)) * x[j - 1];
    residual = std::max(residual, static_cast<double>(std::fabs(sum)));
    size = std::max(size, std::fabs(x[i - 1]));
  }
  return residual / (a.rows * Norm(a) * size * kEps);
}

TEST(Lubksb, SolvesRandomAndHilbertSystems) {
  for (const int n : kSizes) {
    for (unsigned seed = 0; seed < 5; ++seed) {
      const std::vector<double> b = RandomVector(n, seed);
      for (const Matrix& a : {RandomMatrix(n, n, seed), HilbertMatrix(n, n)})
        EXPECT_LT(SolutionRatio(a, Solve(a, b), b), kMaxRatio) << "n = " << n << ", seed " << seed;
    }
  }
}

TEST(Lubksb, AgreesWithCompletePivotingInExtendedPrecision) {
  for (const int n : kSizes) {
    Matrix a = RandomMatrix(n, n, 77);
    for (int i = 1; i <= n; ++i) a(i, i) += n;  // well conditioned
    const std::vector<double> b = RandomVector(n, 3);
    const std::vector<double> x = Solve(a, b), expected = PlainSolve(a, b);
    for (int i = 0; i < n; ++i) EXPECT_NEAR(x[i], expected[i], 1e-13) << "n = " << n << ", i = " << i;
  }
}

TEST(Lubksb, RightHandSideCountsFromZero) {
  double guarded[] = {-7.5, 6.0, 8.0, -7.5};
  Matrix a(2, 2);
  a(1, 1) = 2.0, a(2, 2) = 4.0;
  int indx[3] = {};
  double d;
  ludcmp(a.data(), 2, indx, &d);
  lubksb(a.data(), 2, indx, &guarded[1]);
  EXPECT_THAT(guarded, testing::ElementsAre(-7.5, 3.0, 2.0, -7.5));
}

TEST(Lubksb, LeadingZerosOfTheRightHandSideAreSkipped) {
  Matrix lu = Identity(3);
  lu(2, 1) = lu(3, 1) = kInf;  // times a leading zero it would give NaNs
  const int indx[] = {0, 1, 2, 3};
  double b[] = {0.0, 1.5, 2.5};
  lubksb(lu.data(), 3, indx, b);
  EXPECT_EQ(b[1], 1.5);
  EXPECT_EQ(b[2], 2.5);

  lu = Identity(3);
  lu(3, 2) = kInf;  // a zero after the first other element does count
  double later[] = {1.0, 0.0, 2.5};
  lubksb(lu.data(), 3, indx, later);
  EXPECT_TRUE(std::isnan(later[2]));
}

TEST(FSInvMatrix, IsTheInverseColumnByColumn) {
  for (const int n : kSizes) {
    for (const Matrix& a : {RandomMatrix(n, n, 5), HilbertMatrix(n, n)}) {
      Matrix work = a, y(n, n);
      FS_InvMatrix(work.data(), n, y.data());
      for (int j = 1; j <= n; ++j) {
        std::vector<double> unit(n, 0.0), column(n);
        unit[j - 1] = 1.0;
        for (int i = 1; i <= n; ++i) column[i - 1] = y(i, j);
        EXPECT_LT(SolutionRatio(a, column, unit), kMaxRatio) << "n = " << n << ", column " << j;
      }
    }
  }
}

TEST(FSInvMatrix, LeavesTheFactorsInItsArgument) {
  const Matrix a = RandomMatrix(6, 6, 9);
  Matrix work = a, y(6, 6), lu = a;
  FS_InvMatrix(work.data(), 6, y.data());
  int indx[7];
  double d;
  ludcmp(lu.data(), 6, indx, &d);
  EXPECT_EQ(work.store, lu.store);
}

TEST(FSInvMatrix, InvertsAOneByOneMatrix) {
  Matrix a(1, 1), y(1, 1);
  a(1, 1) = -4.0;
  FS_InvMatrix(a.data(), 1, y.data());
  EXPECT_EQ(y(1, 1), -0.25);
}

TEST(FSInvMatrix, SingularMatrixGivesHugeValuesWithoutAWord) {
  Matrix a(2, 2), y(2, 2);
  a(1, 1) = a(1, 2) = a(2, 1) = a(2, 2) = 1.0;
  ZeroRowMessages messages;
  FS_InvMatrix(a.data(), 2, y.data());
  EXPECT_EQ(messages.Text(), "");
  EXPECT_GE(std::fabs(y(1, 1)), 1e19);
}

TEST(FSInvMatrix, ZeroRowPrintsAndGoesOn) {
  Matrix a = RandomMatrix(3, 3, 1), y(3, 3);
  for (int j = 1; j <= 3; ++j) a(2, j) = 0.0;
  ZeroRowMessages messages;
  FS_InvMatrix(a.data(), 3, y.data());
  EXPECT_EQ(messages.Text(), kSingular);
}

}  // namespace
}  // namespace sondera
