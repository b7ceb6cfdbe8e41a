// Tests of the bounds of an update: the common step factor, the clamp of parameters that sit on a bound, the
// trap, and starting values outside their bounds.
#include <cmath>

#include "inversion/max_likelihood.h"
#include "support/kernel_fixture.h"

namespace sondera::testing {
namespace {

const std::string kTrapHead = "\n\n\n*** Warning ***\n";

class UpdateBounds : public UpdateTest {
 protected:
  /// As many points as parameters, each seeing one parameter, with accurate data: the correction of a
  /// parameter is nearly the difference given for its row.
  void StartPlain(int layers, int modelParm, const std::vector<double>& differences) {
    Start(layers, static_cast<int>(differences.size()), modelParm, 0.9);
    ASSERT_EQ(run.parameters.nModelParm, static_cast<int>(differences.size()));
    run.update.GMatrix.fill(0.0);
    for (int i = 1; i <= run.parameters.nModelParm; ++i) {
      run.update.GMatrix(i, i) = 1.0;
      run.observations.Cd.diag(i) = 1e-4;
      SetDifference(i, differences[static_cast<std::size_t>(i - 1)]);
    }
  }
  void SetDifference(int row, double difference) {
    computed[row] = run.observations.runVel[row] + difference;
  }
  void SetVsBounds(double low, double high) {
    run.parameters.parmMin[kQuantityVs] = low;
    run.parameters.parmMax[kQuantityVs] = high;
  }
  int Call() { return FS_MaxLiklihood(computed, amplitude); }
  /// The call with what it printed.
  int CallPrinting(std::string& printed) {
    ::testing::internal::CaptureStdout();
    const int result = Call();
    printed = ::testing::internal::GetCapturedStdout();
    return result;
  }
};

// --- Step factor ---

TEST_F(UpdateBounds, OneParameterAtItsBoundShortensTheWholeStep) {
  StartPlain(3, 1, {40.0, 10.0, -20.0});  // from 100, 120, 140 towards 60, 110, 160
  SetVsBounds(80.0, 1000.0);
  const plain::Update plain = plain::Solve(Plain());
  const plain::Real f = plain::StepFactor(plain, Bounds(false), Bounds(true));
  ASSERT_NEAR(static_cast<double>(f), 0.5, 1e-3);
  ASSERT_EQ(Call(), 0);
  ExpectVector(run.parameters.rModel, plain::Stepped(plain, f), 1e-9, "model");
  EXPECT_NEAR(run.parameters.rModel[1], 80.0, 1e-9);
  EXPECT_EQ(run.course.iTrapCount, 0);
  EXPECT_EQ(run.ground.layerVs[3], run.parameters.rModel[3]);
}

TEST_F(UpdateBounds, UpperBoundShortensTheStepToo) {
  StartPlain(3, 1, {10.0, -10.0, -40.0});
  SetVsBounds(10.0, 150.0);
  const plain::Update plain = plain::Solve(Plain());
  const plain::Real f = plain::StepFactor(plain, Bounds(false), Bounds(true));
  ASSERT_NEAR(static_cast<double>(f), 0.25, 1e-3);
  ASSERT_EQ(Call(), 0);
  ExpectVector(run.parameters.rModel, plain::Stepped(plain, f), 1e-9, "model");
  EXPECT_NEAR(run.parameters.rModel[3], 150.0, 1e-9);
}

TEST_F(UpdateBounds, SmallestFactorOfAllCounts) {
  StartPlain(4, 1, {30.0, -60.0, 90.0, -5.0});  // 100 to 70, 120 to 180, 140 to 50
  SetVsBounds(80.0, 165.0);
  const plain::Update plain = plain::Solve(Plain());
  int violations = 0;
  const plain::Real f = plain::StepFactor(plain, Bounds(false), Bounds(true), &violations);
  ASSERT_EQ(violations, 3 + 0);
  ASSERT_EQ(Call(), 0);
  ExpectVector(run.parameters.rModel, plain::Stepped(plain, f), 1e-9, "model");
}

TEST_F(UpdateBounds, ThicknessAndVsHaveBoundsOfTheirOwn) {
  StartPlain(3, 3, {1.0, 5.0, 0.1, 5.0, 5.0});  // H 2, Vs 100, H 2, Vs 120, Vs 140
  run.parameters.parmMin[kQuantityH] = 1.5;
  run.parameters.parmMax[kQuantityH] = 50.0;
  SetVsBounds(10.0, 1000.0);
  const plain::Update plain = plain::Solve(Plain());
  const plain::Real f = plain::StepFactor(plain, Bounds(false), Bounds(true));
  ASSERT_NEAR(static_cast<double>(f), 0.5, 1e-3);
  ASSERT_EQ(Call(), 0);
  ExpectVector(run.parameters.rModel, plain::Stepped(plain, f), 1e-9, "model");
  EXPECT_NEAR(run.ground.layerH[1], 1.5, 1e-9);
}

TEST_F(UpdateBounds, RandomBoundsAgreeWithThePlainRule) {
  std::mt19937 random(99);
  int shortened = 0;
  for (unsigned trial = 0; trial < 40; ++trial) {
    const int layers = std::uniform_int_distribution<int>(2, 7)(random);
    Start(layers, layers + 4, 1, 0.3);
    run.switches.iInvScheme = 1 + static_cast<int>(trial % 3);
    Randomize(500 + trial);
    const plain::Update plain = plain::Solve(Plain());
    const plain::Vector target = plain::Stepped(plain, 1.0L);
    const auto [lowBase, highBase] = std::minmax_element(plain.base.begin(), plain.base.end());
    const auto [lowTarget, highTarget] = std::minmax_element(target.begin(), target.end());
    const plain::Real part = std::uniform_real_distribution<double>(0.1, 1.5)(random);
    SetVsBounds(static_cast<double>(*lowBase - part * std::fabs(*lowBase - *lowTarget) - 0.1L),
                static_cast<double>(*highBase + part * std::fabs(*highTarget - *highBase) + 0.1L));
    const plain::Real f = plain::StepFactor(plain, Bounds(false), Bounds(true));
    shortened += f < 1.0L;
    ASSERT_EQ(Call(), 0);
    ExpectVector(run.parameters.rModel, plain::Stepped(plain, f), 1e-8, "model");
  }
  EXPECT_GT(shortened, 5);
}

TEST_F(UpdateBounds, ValueExactlyOnABoundWithoutCorrectionDoesNotShortenTheStep) {
  StartPlain(3, 1, {0.0, 10.0, 10.0});
  SetVsBounds(100.0, 1000.0);  // the first layer's Vs
  ASSERT_EQ(Call(), 0);
  EXPECT_EQ(run.parameters.rModel[1], 100.0);
  EXPECT_NEAR(run.parameters.rModel[2], 110.0, 0.01);
  EXPECT_NEAR(run.parameters.rModel[3], 130.0, 0.01);
}

// --- Clamp ---

TEST_F(UpdateBounds, ParameterOnItsBoundThatWantsPastItIsHeldAndTheOthersMoveInFull) {
  StartPlain(3, 1, {10.0, 10.0, -20.0});
  SetVsBounds(100.0, 1000.0);
  const plain::Vector full = plain::Stepped(plain::Solve(Plain()), 1.0L);
  ASSERT_EQ(Call(), 0);
  EXPECT_EQ(run.parameters.rModel[1], 100.0);
  EXPECT_NEAR(run.parameters.rModel[2], static_cast<double>(full[1]), 1e-9);
  EXPECT_NEAR(run.parameters.rModel[3], static_cast<double>(full[2]), 1e-9);
  EXPECT_EQ(run.course.iTrapCount, 1);
}

TEST_F(UpdateBounds, ClampAtTheUpperBound) {
  StartPlain(3, 1, {10.0, 10.0, -20.0});
  SetVsBounds(10.0, 140.0);
  ASSERT_EQ(Call(), 0);
  EXPECT_EQ(run.parameters.rModel[3], 140.0);
  EXPECT_NEAR(run.parameters.rModel[1], 90.0, 0.01);
  EXPECT_EQ(run.course.iTrapCount, 1);
}

TEST_F(UpdateBounds, FactorBelowTheRoundingCountsAsZero) {
  StartPlain(3, 1, {10.0, 10.0, 10.0});
  run.parameters.rModel[1] = run.parameters.rModelPrior[1] = 100.0 + 5e-12;  // a factor of 5e-13
  SetVsBounds(100.0, 1000.0);
  ASSERT_EQ(Call(), 0);
  EXPECT_EQ(run.parameters.rModel[1], 100.0);
  EXPECT_NEAR(run.parameters.rModel[2], 110.0, 0.01);
  EXPECT_EQ(run.course.iTrapCount, 1);
}

TEST_F(UpdateBounds, FactorAboveTheRoundingIsAStep) {
  StartPlain(3, 1, {10.0, 10.0, 10.0});
  run.parameters.rModel[1] = run.parameters.rModelPrior[1] = 100.0 + 1e-9;  // a factor of 1e-10
  SetVsBounds(100.0, 1000.0);
  ASSERT_EQ(Call(), 0);
  EXPECT_NEAR(run.parameters.rModel[2], 120.0, 1e-8);
  EXPECT_EQ(run.course.iTrapCount, 0);
}

TEST_F(UpdateBounds, AnyStepResetsTheCount) {
  StartPlain(3, 1, {10.0, 10.0, 10.0});
  run.course.iCurIterNo = 4;
  run.course.iTrapCount = 2;
  SetVsBounds(10.0, 1000.0);
  ASSERT_EQ(Call(), 0);
  EXPECT_EQ(run.course.iTrapCount, 0);
}

TEST_F(UpdateBounds, FirstIterationResetsTheCount) {
  StartPlain(3, 1, {10.0, 10.0, 10.0});
  run.course.iTrapCount = 2;
  run.course.iCurIterNo = 1;
  SetVsBounds(100.0, 1000.0);
  ASSERT_EQ(Call(), 0);
  EXPECT_EQ(run.course.iTrapCount, 1);
}

// --- Trap ---

TEST_F(UpdateBounds, ThirdClampOfARunIsATrap) {
  StartPlain(3, 1, {10.0, 1.0, 1.0});
  SetVsBounds(100.0, 1000.0);
  std::string printed;
  for (const int iteration : {1, 2}) {
    run.course.iCurIterNo = iteration;
    ASSERT_EQ(CallPrinting(printed), 0);
    EXPECT_EQ(printed.find("Warning"), std::string::npos);
    EXPECT_EQ(run.course.iTrapCount, iteration);
  }
  run.course.iCurIterNo = 3;
  EXPECT_EQ(CallPrinting(printed), -1);
  EXPECT_EQ(printed, kTrapHead +
                         "Inversion analysis is trapped. Please increase the minimum constraint for "
                         "shear wave velocity.\n");
  EXPECT_EQ(OnlyMessage(), "Warning: Reduce the uncertainty factor for shear wave velocity.");
  EXPECT_EQ(frontEnd.messageTitles.back(), "Sondera 2");
}

TEST_F(UpdateBounds, ClampsOfOneCallAddUp) {
  StartPlain(5, 1, {10.0, 10.0, 10.0, 1.0, 1.0});
  for (int p = 1; p <= 5; ++p)
    run.parameters.rModel[p] = run.parameters.rModelPrior[p] = p < 4 ? 100.0 : 200.0;
  SetVsBounds(100.0, 1000.0);
  std::string printed;
  EXPECT_EQ(CallPrinting(printed), -1);
  EXPECT_EQ(run.course.iTrapCount, 3);
  EXPECT_EQ(frontEnd.messages.size(), 1u);
}

TEST_F(UpdateBounds, TwoClampsOfOneCallAreNoTrapYet) {
  StartPlain(4, 1, {10.0, 10.0, 1.0, 1.0});
  run.parameters.rModel[2] = run.parameters.rModelPrior[2] = 100.0;
  SetVsBounds(100.0, 1000.0);
  ASSERT_EQ(Call(), 0);
  EXPECT_EQ(run.course.iTrapCount, 2);
  run.course.iCurIterNo = 2;
  std::string printed;
  EXPECT_EQ(CallPrinting(printed), -1);  // the next call's first clamp is the third of the run
}

TEST_F(UpdateBounds, TrapAtAMaximumTellsTheValueItWanted) {
  StartPlain(3, 1, {1.0, 1.0, -20.0});
  SetVsBounds(10.0, 140.0);
  run.course.iCurIterNo = 3;
  run.course.iTrapCount = 2;
  const plain::Vector full = plain::Stepped(plain::Solve(Plain()), 1.0L);
  std::string printed;
  EXPECT_EQ(CallPrinting(printed), -1);
  EXPECT_EQ(printed, kTrapHead +
                         "Inversion analysis is trapped. Please decrease the maximum constraint for "
                         "shear wave velocity.\n");
  char expected[120];
  std::snprintf(expected, sizeof expected,
                "Warning: Increase the uncertainty factor for shear wave velocity: %f",
                static_cast<double>(full[2]));
  EXPECT_EQ(OnlyMessage(), expected);
  EXPECT_EQ(frontEnd.messageTitles.back(), "Sondera 2");
}

TEST_F(UpdateBounds, TrapOfAThicknessAtItsMinimum) {
  StartPlain(4, 2, {0.5, 0.1, 0.1});
  run.parameters.parmMin[kQuantityH] = 2.0;
  run.parameters.parmMax[kQuantityH] = 50.0;
  run.parameters.rModel[2] = run.parameters.rModel[3] = 3.0;
  run.course.iCurIterNo = 2;
  run.course.iTrapCount = 2;
  std::string printed;
  EXPECT_EQ(CallPrinting(printed), -1);
  EXPECT_EQ(printed, kTrapHead +
                         "Inversion analysis is trapped. Please increase the minimum constraint for "
                         "thickness.\n");
  EXPECT_EQ(OnlyMessage(), "Warning: Reduce the uncertainty factor for thickness.");
}

TEST_F(UpdateBounds, TrapOfAThicknessAtItsMaximum) {
  StartPlain(4, 2, {-0.5, 0.1, 0.1});
  run.parameters.parmMin[kQuantityH] = 0.1;
  run.parameters.parmMax[kQuantityH] = 2.0;
  run.parameters.rModel[2] = run.parameters.rModel[3] = 1.0;
  run.course.iCurIterNo = 2;
  run.course.iTrapCount = 2;
  const plain::Vector full = plain::Stepped(plain::Solve(Plain()), 1.0L);
  std::string printed;
  EXPECT_EQ(CallPrinting(printed), -1);
  EXPECT_EQ(printed, kTrapHead +
                         "Inversion analysis is trapped. Please decrease the maximum constraint for "
                         "thickness.\n");
  char expected[120];
  std::snprintf(expected, sizeof expected, "Warning: Increase the uncertainty factor for thickness: %f",
                static_cast<double>(full[0]));
  EXPECT_EQ(OnlyMessage(), expected);
}

TEST_F(UpdateBounds, TrapLeavesTheCompactCountsAndTheLayers) {
  Start(3, 6, 1, 0.9);
  run.update.GMatrix.fill(0.0);
  for (int i = 1; i <= 6; ++i) {
    run.update.GMatrix(i, (i - 1) % 3 + 1) = 1.0;
    computed[i] = run.observations.runVel[i] + 10.0;
  }
  run.observations.iNoVelocity[6] = 1;
  computed[6] = 0.0;
  SetVsBounds(100.0, 1000.0);
  run.course.iCurIterNo = 2;
  run.course.iTrapCount = 2;
  std::string printed;
  EXPECT_EQ(CallPrinting(printed), -1);
  EXPECT_EQ(run.observations.nObsRows, 5);
  EXPECT_EQ(run.observations.ldObs, 5);
  EXPECT_EQ(run.ground.layerVs[1], 100.0);
  EXPECT_EQ(run.ground.layerVs[2], 120.0);
  EXPECT_EQ(run.ground.layerVs[3], 140.0);
}

TEST_F(UpdateBounds, AllParametersOnOneBoundAreATrapInOneCall) {
  StartPlain(3, 1, {5.0, 5.0, 5.0});
  for (int p = 1; p <= 3; ++p) run.parameters.rModel[p] = run.parameters.rModelPrior[p] = 100.0;
  SetVsBounds(100.0, 1000.0);
  std::string printed;
  EXPECT_EQ(CallPrinting(printed), -1);
  EXPECT_EQ(run.course.iTrapCount, 3);
  // With two of them the clamp holds both and the run continues.
  StartPlain(2, 1, {5.0, 5.0});
  frontEnd.messages.clear();
  for (int p = 1; p <= 2; ++p) run.parameters.rModel[p] = run.parameters.rModelPrior[p] = 100.0;
  SetVsBounds(100.0, 1000.0);
  EXPECT_EQ(Call(), 0);
  EXPECT_EQ(run.parameters.rModel[1], 100.0);
  EXPECT_EQ(run.parameters.rModel[2], 100.0);
}

// --- Starting values outside their bounds ---

TEST_F(UpdateBounds, ValueOutsideItsBoundsMovesAsTheRuleSays) {
  // Below the minimum and wanting further down: the factor is negative and brings it up to the bound, the
  // others going back along the same line.
  StartPlain(3, 1, {10.0, 10.0, -10.0});
  SetVsBounds(105.0, 1000.0);
  const plain::Update plain = plain::Solve(Plain());
  const plain::Real f = plain::StepFactor(plain, Bounds(false), Bounds(true));
  ASSERT_NEAR(static_cast<double>(f), -0.5, 1e-3);
  ASSERT_EQ(Call(), 0);
  ExpectVector(run.parameters.rModel, plain::Stepped(plain, f), 1e-9, "model");
  EXPECT_NEAR(run.parameters.rModel[1], 105.0, 1e-9);
  EXPECT_NEAR(run.parameters.rModel[2], 125.0, 0.01);
}

TEST_F(UpdateBounds, ValueOutsideItsBoundsAndOnTheWayInTakesTheWholeStep) {
  StartPlain(3, 1, {-2.0, 1.0, 1.0});
  SetVsBounds(105.0, 1000.0);
  ASSERT_EQ(Call(), 0);
  EXPECT_NEAR(run.parameters.rModel[1], 102.0, 0.01);
}

TEST_F(UpdateBounds, ValueOutsideItsBoundsWithoutInfluenceEndsInAMessageAndTheModelStays) {
  StartPlain(3, 1, {0.0, 10.0, 10.0});  // the first layer's correction is 0: the factor is infinite
  SetVsBounds(105.0, 1000.0);
  EXPECT_EQ(Call(), -1);
  EXPECT_EQ(frontEnd.messages.size(), 1u);
  for (int p = 1; p <= 3; ++p) EXPECT_EQ(run.parameters.rModel[p], run.parameters.rModelPrior[p]);
  EXPECT_EQ(run.ground.layerVs[2], 120.0);
  EXPECT_EQ(run.observations.nObsRows, 3);
}

TEST_F(UpdateBounds, SchemeTwoStepsFromThePrior) {
  StartPlain(3, 1, {20.0, 5.0, 5.0});
  run.switches.iInvScheme = 2;
  for (int p = 1; p <= 3; ++p) run.parameters.rModel[p] = run.parameters.rModelPrior[p] * 1.01;
  SetVsBounds(90.0, 1000.0);
  const plain::Update plain = plain::Solve(Plain());
  const plain::Real f = plain::StepFactor(plain, Bounds(false), Bounds(true));
  ASSERT_LT(f, 1.0L);
  ASSERT_EQ(Call(), 0);
  ExpectVector(run.parameters.rModel, plain::Stepped(plain, f), 1e-9, "model");
  EXPECT_NEAR(run.parameters.rModel[1], 90.0, 1e-9);
}

TEST_F(UpdateBounds, NotANumberInTheMatrixEndsWithoutACrash) {
  StartPlain(3, 1, {5.0, 5.0, 5.0});
  run.update.GMatrix(2, 2) = NAN;
  std::string printed;
  const int result = CallPrinting(printed);
  EXPECT_TRUE(result == 0 || result == -1);
}

}  // namespace
}  // namespace sondera::testing
