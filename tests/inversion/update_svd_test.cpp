// Tests of the truncated solve: compared with eigenvectors by Jacobi rotations; how it drops singular values
// and changes its limit, its output, and its end.
#include <unistd.h>

#include <cmath>

#include "inversion/max_likelihood.h"
#include "numeric/svd.h"
#include "support/kernel_fixture.h"

namespace sondera::testing {
namespace {

class UpdateSvd : public UpdateTest {
 protected:
  /// Parameters seen by columns of falling size, so that the Hessian has singular values well apart.
  void StartGraded(int layers, double fall, unsigned seed = 61) {
    Start(layers, layers + 5, 1, 25.0);
    Randomize(seed);
    for (int p = 1; p <= layers; ++p)
      for (int i = 1; i <= run.observations.ldObs; ++i)
        run.update.GMatrix(i, p) *= 8.0 * std::pow(fall, p - 1);
    run.switches.iUseSVD = 1;
  }

  /// Eigenpairs of the Hessian by Jacobi rotations, in the order in which the decomposition of the system
  /// leaves the values, which it does not sort.
  static plain::Eigen EigenpairsOf(const plain::Problem& problem) {
    const plain::Matrix H = plain::HessianOf(problem);
    const int n = static_cast<int>(H.rows);
    ColumnMatrix u(n, n), v(n, n);
    for (int i = 1; i <= n; ++i)
      for (int j = 1; j <= n; ++j)
        u(i, j) = static_cast<double>(H(static_cast<std::size_t>(i - 1), static_cast<std::size_t>(j - 1)));
    OffsetVector<double> w(1, n);
    FS_svdcmp(n, n, u.shifted(), w.shifted(), v.shifted());
    const plain::Eigen sorted = plain::Jacobi(H);
    plain::Eigen e = sorted;
    for (std::size_t k = 0; k < H.rows; ++k) {
      std::size_t nearest = 0;
      const auto apart = [&](std::size_t s) {
        return std::fabs(sorted.value[s] - w[static_cast<int>(k) + 1]);
      };
      for (std::size_t s = 1; s < H.rows; ++s)
        if (apart(s) < apart(nearest)) nearest = s;
      e.value[k] = sorted.value[nearest];
      for (std::size_t i = 0; i < H.rows; ++i) e.vector(i, k) = sorted.vector(i, nearest);
    }
    return e;
  }

  /// Singular values that stand before the first ratio at or above the limit. At least the first.
  static std::size_t Kept(const plain::Eigen& e, double eps) {
    for (std::size_t k = 1; k < e.value.size(); ++k)
      if (e.value[0] / e.value[k] >= eps) return k;
    return e.value.size();
  }

  int CallPrinting(std::string& printed) {
    ::testing::internal::CaptureStdout();
    const int result = FS_MaxLiklihood(computed, amplitude);
    printed = ::testing::internal::GetCapturedStdout();
    return result;
  }
  static std::string CountLine(std::size_t n) {
    return "*** No. of singular values for Hessian matrix ... " + std::to_string(n) + "\n";
  }
};

TEST_F(UpdateSvd, WithAllSingularValuesItIsThePlainSolution) {
  StartGraded(4, 0.5);
  run.switches.epsSVD = 1e30;
  const plain::Update expected = plain::Solve(Plain());
  std::string printed;
  ASSERT_EQ(CallPrinting(printed), 0);
  EXPECT_EQ(printed, CountLine(4));
  ExpectVector(run.update.deltaModel, expected.correction, 1e-9 * Largest(expected.correction), "correction");
  ExpectMatrix(run.update.InvH, expected.posterior, "posterior");
}

TEST_F(UpdateSvd, TruncationAgreesWithEigenvectors) {
  for (const double eps : {2.0, 10.0, 100.0, 1000.0, 1e5}) {
    SCOPED_TRACE(eps);
    StartGraded(5, 0.4);
    run.switches.epsSVD = eps;
    const plain::Problem problem = Plain();
    const plain::Eigen e = EigenpairsOf(problem);
    const std::size_t kept = Kept(e, eps);
    const plain::Update expected = plain::ModelSpace(problem, plain::TruncatedInverse(e, kept));
    ASSERT_EQ(plain::StepFactor(expected, Bounds(false), Bounds(true)), 1.0L);
    std::string printed;
    ASSERT_EQ(CallPrinting(printed), 0);
    EXPECT_EQ(printed, CountLine(kept));
    ExpectVector(run.update.deltaModel, expected.correction, 1e-8 * Largest(expected.correction),
                 "correction");
    EXPECT_EQ(run.switches.epsSVD, eps);
  }
}

TEST_F(UpdateSvd, LimitOfZeroKeepsOneSingularValue) {
  StartGraded(4, 0.5);
  ASSERT_EQ(run.switches.epsSVD, 0.0);  // where a run begins
  std::string printed;
  ASSERT_EQ(CallPrinting(printed), 0);
  EXPECT_EQ(printed, CountLine(1));
}

TEST_F(UpdateSvd, OneParameterKeepsItsOnlyValue) {
  Start(1, 4, 1, 25.0);
  Randomize(62);
  run.switches.iUseSVD = 1;
  const plain::Update expected = plain::Solve(Plain());
  std::string printed;
  ASSERT_EQ(CallPrinting(printed), 0);
  EXPECT_EQ(printed, CountLine(1));
  ExpectVector(run.update.deltaModel, expected.correction, 1e-10 * Largest(expected.correction),
               "correction");
}

/// An example in which one parameter passes a bound with all singular values, and none with one less.
TEST_F(UpdateSvd, ViolationDropsOneSingularValueForEachParameterPastItsBound) {
  for (unsigned seed = 61; seed < 161; ++seed) {
    StartGraded(4, 0.6, seed);
    run.switches.epsSVD = 1e30;
    const plain::Problem problem = Plain();
    const plain::Eigen e = EigenpairsOf(problem);
    const plain::Update full = plain::ModelSpace(problem, plain::TruncatedInverse(e, 4));
    const plain::Update less = plain::ModelSpace(problem, plain::TruncatedInverse(e, 3));
    const plain::Vector wanted = plain::Stepped(full, 1.0L), held = plain::Stepped(less, 1.0L);
    if (wanted[3] < held[3] + 0.5L) continue;
    run.parameters.parmMax[kQuantityVs] = static_cast<double>(0.5L * (wanted[3] + held[3]));
    int violations = 0, after = 0;
    plain::StepFactor(full, Bounds(false), Bounds(true), &violations);
    plain::StepFactor(less, Bounds(false), Bounds(true), &after);
    if (violations != 1 || after != 0) continue;
    std::string printed;
    ASSERT_EQ(CallPrinting(printed), 0);
    EXPECT_EQ(printed, CountLine(4) + "*** 1 layer(s) violated layer property constraints.\n" + CountLine(3));
    ExpectVector(run.update.deltaModel, less.correction, 1e-8 * Largest(less.correction), "correction");
    EXPECT_EQ(run.switches.epsSVD, 1e30);
    return;
  }
  FAIL() << "no example found";
}

TEST_F(UpdateSvd, LimitIsLoosenedWhereNoMoreCanBeDroppedAndComesBackAfterwards) {
  // Only one value is kept by the limit and the parameters pass their bound: the limit shrinks by the root of
  // ten until it is below 1, unless the violation ends.
  StartGraded(4, 0.3);
  run.switches.epsSVD = 10.0;
  const plain::Eigen e = EigenpairsOf(Plain());
  ASSERT_EQ(Kept(e, 10.0), 1u + (e.value[0] / e.value[1] < 10.0L ? 1u : 0u));
  run.parameters.parmMin[kQuantityVs] = 1000.0;  // all are below it
  EXPECT_EXIT(
      {
        dup2(2, 1);
        FS_MaxLiklihood(computed, amplitude);
      },
      ::testing::ExitedWithCode(1),
      "\\*\\*\\* epsSVD is adjusted to 3.16228.\n(.*\n)*\\*\\*\\* epsSVD is less than 1.0. Inversion "
      "Stopped.\n");
}

TEST_F(UpdateSvd, RetriesThatDoNotHelpLoosenTheLimitToo) {
  StartGraded(3, 0.5);
  run.switches.epsSVD = 1e8;                     // all values kept, so that dropping is tried first
  run.parameters.parmMin[kQuantityVs] = 1000.0;  // and never helps
  EXPECT_EXIT(
      {
        dup2(2, 1);
        FS_MaxLiklihood(computed, amplitude);
      },
      ::testing::ExitedWithCode(1), "violated layer property constraints.\n(.*\n)*.*Inversion Stopped.\n");
}

TEST_F(UpdateSvd, ResolutionOfTheTruncatedSolutionIsBelowThatOfTheFullOne) {
  double stored[2] = {0.0, 0.0};
  for (int k = 0; k < 2; ++k) {
    StartGraded(4, 0.5);
    run.switches.epsSVD = k == 0 ? 1e30 : 3.0;
    std::string printed;
    ASSERT_EQ(CallPrinting(printed), 0);
    for (int l = 0; l < 4; ++l) stored[k] += InvParam.resolution(1, l);
  }
  EXPECT_LT(stored[1], stored[0]);
}

TEST_F(UpdateSvd, DataSpaceFormHasNoTruncation) {
  Start(6, 3);
  Randomize(63);
  run.switches.iUseSVD = 1;
  const plain::Update expected = plain::Solve(Plain());
  std::string printed;
  ASSERT_EQ(CallPrinting(printed), 0);
  EXPECT_EQ(printed, "");
  ExpectVector(run.update.deltaModel, expected.correction, 1e-10 * Largest(expected.correction),
               "correction");
}

TEST_F(UpdateSvd, BoundsOfTheDataSpaceFormShortenTheStepAsEver) {
  // Nothing can be dropped there: the bound acts as in the plain solve.
  Start(6, 3);
  Randomize(64);
  run.switches.iUseSVD = 1;
  const plain::Update full = plain::Solve(Plain());
  const plain::Vector target = plain::Stepped(full, 1.0L);
  ASSERT_GT(target[5], full.base[5] + 0.1L);  // the fastest layer gets faster
  run.parameters.parmMax[kQuantityVs] = static_cast<double>(0.5L * (target[5] + full.base[5]));
  const plain::Real f = plain::StepFactor(full, Bounds(false), Bounds(true));
  ASSERT_LT(f, 1.0L);
  ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
  ExpectVector(run.parameters.rModel, plain::Stepped(full, f), 1e-8, "model");
}

}  // namespace
}  // namespace sondera::testing
