// Tests of one update of the model: against plain dense algebra for every scheme and both forms, identities
// of the estimate, and which rows take part.
#include "inversion/max_likelihood.h"

#include <cmath>
#include <filesystem>
#include <sstream>

#include "records/inv_records.h"
#include "support/kernel_fixture.h"

namespace sondera::testing {
namespace {

class FS_MaxLiklihoodTest : public UpdateTest {
 protected:
  /// Runs the update and compares all its results with the plain solution. The bounds are far away.
  void ExpectPlainUpdate() {
    const plain::Problem problem = Plain();
    const plain::Update expected = plain::Solve(problem);
    const plain::Real f = plain::StepFactor(expected, Bounds(false), Bounds(true));
    ASSERT_EQ(f, 1.0L) << "the example is meant to stay within its bounds";
    const OffsetVector<double> formerH = run.ground.layerH, formerVs = run.ground.layerVs;
    ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
    const double largest = Largest(expected.correction);
    ASSERT_GT(largest, 0.01);
    ExpectVector(run.update.deltaModel, expected.correction, 1e-10 * largest, "correction");
    ExpectVector(run.parameters.rModel, plain::Stepped(expected, f), 1e-10 * Largest(problem.model), "model");
    ExpectMatrix(run.update.Weight, expected.weight, "weight");
    if (problem.G.rows >= problem.model.size())
      ExpectMatrix(run.update.InvH, expected.posterior, "posterior");
    ExpectLayersOfModel(formerH, formerVs);
  }

  /// The layers follow the parameters; all other values are those from before the update.
  void ExpectLayersOfModel(const OffsetVector<double>& formerH, const OffsetVector<double>& formerVs) {
    for (int l = 1; l <= run.ground.nLayersCur; ++l) {
      const int pH = run.parameters.MapEntry(kQuantityH, l), pVs = run.parameters.MapEntry(kQuantityVs, l);
      EXPECT_EQ(run.ground.layerH[l], pH > 0 ? run.parameters.rModel[pH] : formerH[l]);
      EXPECT_EQ(run.ground.layerVs[l], pVs > 0 ? run.parameters.rModel[pVs] : formerVs[l]);
      EXPECT_NEAR(run.ground.layerVp[l], run.ground.layerVs[l] * std::sqrt(3.5),
                  1e-9 * run.ground.layerVp[l]);  // ratio 0.3
    }
  }

  plain::Matrix Resolution() const { return ToPlain(run.update.Weight) * ToPlain(run.update.GActive); }
  static plain::Matrix ToPlain(const ColumnMatrix& m) {
    plain::Matrix x(static_cast<std::size_t>(m.rows()), static_cast<std::size_t>(m.cols()));
    for (int i = 1; i <= m.rows(); ++i)
      for (int j = 1; j <= m.cols(); ++j)
        x(static_cast<std::size_t>(i - 1), static_cast<std::size_t>(j - 1)) = m(i, j);
    return x;
  }
  /// One column (from 0) of the rows after the line with the head.
  std::vector<double> Column(const char* extension, const std::string& head, int column) const {
    std::istringstream text(File(extension));
    std::vector<double> found;
    bool inside = false;
    for (std::string line; std::getline(text, line);) {
      if (line.find(head) != std::string::npos) {
        inside = true;
        continue;
      }
      std::istringstream words(line);
      double number = 0.0;
      int k = 0;
      for (; inside && k <= column && words >> number; ++k) {
      }
      if (k > column) found.push_back(number);
    }
    return found;
  }
};

// --- Against dense algebra ---

TEST_F(FS_MaxLiklihoodTest, ModelSpaceAgreesWithDenseAlgebraForEachScheme) {
  for (const int scheme : {1, 2, 3, 4}) {
    SCOPED_TRACE(scheme);
    Start(5, 12);
    run.switches.iInvScheme = scheme;
    Randomize(static_cast<unsigned>(scheme));
    ExpectPlainUpdate();
  }
}

TEST_F(FS_MaxLiklihoodTest, ThicknessAndVsTogetherAgreeWithDenseAlgebra) {
  for (const int scheme : {1, 2, 3}) {
    SCOPED_TRACE(scheme);
    Start(4, 15, 3, 0.1);
    run.switches.iInvScheme = scheme;
    Randomize(40u + static_cast<unsigned>(scheme));
    ExpectPlainUpdate();
  }
}

TEST_F(FS_MaxLiklihoodTest, RandomSizesAgreeWithDenseAlgebraInBothForms) {
  std::mt19937 random(2026);
  int modelSpace = 0, dataSpace = 0;
  for (unsigned trial = 0; trial < 60; ++trial) {
    const int layers = std::uniform_int_distribution<int>(1, 12)(random);
    const int points = std::uniform_int_distribution<int>(1, 25)(random);
    const int scheme = std::uniform_int_distribution<int>(1, 3)(random);
    SCOPED_TRACE(::testing::Message() << layers << " layers, " << points << " points, scheme " << scheme);
    Start(layers, points, 1, 0.2);
    run.switches.iInvScheme = scheme;
    Randomize(1000 + trial);
    ++(points < layers ? dataSpace : modelSpace);
    ExpectPlainUpdate();
  }
  EXPECT_GT(modelSpace, 10);
  EXPECT_GT(dataSpace, 10);
}

TEST_F(FS_MaxLiklihoodTest, FewerRowsThanParametersAreSolvedInDataSpaceWithThePriorTerm) {
  Start(6, 3);
  ASSERT_EQ(run.switches.iInvScheme, 1);
  Randomize(5);
  const plain::Problem problem = Plain();
  const plain::Update expected = plain::DataSpace(problem);
  const plain::Update without = plain::ModelSpace(problem, plain::Inverse(plain::HessianOf(problem)));
  ExpectPlainUpdate();
  // The prior term matters in this example: scheme 1 of the model-space form would give something else.
  double apart = 0.0;
  for (std::size_t k = 0; k < 6; ++k)
    apart = std::max(apart, static_cast<double>(std::fabs(expected.correction[k] - without.correction[k])));
  EXPECT_GT(apart, 1e-3 * Largest(expected.correction));
  EXPECT_EQ(run.update.InvHData.rows(), 3);
}

TEST_F(FS_MaxLiklihoodTest, DataSpaceFormServesEverySchemeButTheBaseIsTheSchemes) {
  for (const int scheme : {1, 2, 3}) {
    SCOPED_TRACE(scheme);
    Start(5, 2);
    run.switches.iInvScheme = scheme;
    Randomize(77);
    ExpectPlainUpdate();
  }
}

TEST_F(FS_MaxLiklihoodTest, DataSpaceEqualsModelSpaceWithThePriorTermWhereTheModelHasNotMoved) {
  // The two forms are one estimate by the matrix inversion lemma.
  Start(4, 3);
  Randomize(9);
  for (int p = 1; p <= 4; ++p) run.parameters.rModel[p] = run.parameters.rModelPrior[p];
  const plain::Problem problem = Plain();
  const plain::Update other = plain::ModelSpace(problem, plain::Inverse(plain::HessianOf(problem)));
  ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
  ExpectVector(run.update.deltaModel, other.correction, 1e-10 * Largest(other.correction), "correction");
}

TEST_F(FS_MaxLiklihoodTest, AsManyRowsAsParametersAreSolvedInModelSpace) {
  Start(4, 4);
  Randomize(3);
  ExpectPlainUpdate();
  EXPECT_TRUE(Shown(process, "Calculating Hessian matrix..."));
}

TEST_F(FS_MaxLiklihoodTest, AnyOtherSchemeMakesNoCorrection) {
  for (const int scheme : {5, 9, -3}) {
    Start(4, 9);
    run.switches.iInvScheme = scheme;
    Randomize(6);
    const OffsetVector<double> before = run.parameters.rModel;
    ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
    for (int p = 1; p <= 4; ++p) EXPECT_EQ(run.parameters.rModel[p], before[p]);
  }
}

TEST_F(FS_MaxLiklihoodTest, SchemeOneHasNoPriorTermAndSchemeThreeHas) {
  // Perfect fit away from the prior: scheme 1 stays, scheme 3 goes back towards the prior.
  for (const int scheme : {1, 3}) {
    Start(3, 8);
    run.switches.iInvScheme = scheme;
    Randomize(8);
    for (int i = 1; i <= run.observations.nObsRows; ++i) computed[i] = run.observations.runVel[i];
    run.parameters.rModel[2] = 1.1 * run.parameters.rModelPrior[2];
    const OffsetVector<double> before = run.parameters.rModel;
    ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
    if (scheme == 1) {
      for (int p = 1; p <= 3; ++p) EXPECT_EQ(run.parameters.rModel[p], before[p]);
    } else {
      EXPECT_LT(run.parameters.rModel[2], before[2]);
    }
  }
}

TEST_F(FS_MaxLiklihoodTest, CorrelatedPriorAgreesWithDenseAlgebra) {
  for (const int points : {10, 3}) {
    SCOPED_TRACE(points);
    Start(5, points);
    for (int l = 1; l <= 5; ++l) run.parameters.CorrLength(kQuantityVs, l) = 12.0;
    Randomize(12);
    plain::Problem problem = Plain();
    for (std::size_t i = 0; i < 5; ++i) {
      for (std::size_t j = 0; j < 5; ++j) {  // layers of 2, so that mid-depths are 2 apart
        const plain::Real x =
            3.0L * 2.0L * (static_cast<plain::Real>(i) - static_cast<plain::Real>(j)) / 12.0L;
        problem.Cm(i, j) = 0.09L * problem.model[i] * problem.model[j] * std::exp(-0.5L * x * x);
      }
    }
    const plain::Update expected = plain::Solve(problem);
    ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
    ExpectVector(run.update.deltaModel, expected.correction, 1e-9 * Largest(expected.correction),
                 "correction");
  }
}

TEST_F(FS_MaxLiklihoodTest, AbsoluteFactorsAgreeWithDenseAlgebra) {
  Start(4, 9, 1, 25.0);
  Randomize(14);
  ExpectPlainUpdate();
}

TEST_F(FS_MaxLiklihoodTest, AmplitudesDoubleTheRows) {
  for (const int layers : {3, 11}) {  // model space, data space
    SCOPED_TRACE(layers);
    SetPlainLayers(layers);
    SetArrayCurves(4, 2, {120, 130, 0, 125, 110, 0, 115, 118});
    InvParam.ufVs = 0.2;
    Prepare(3);
    run.switches.iUseAmplitude = 1;
    for (int i = 1; i <= run.observations.nObs; ++i) {
      run.observations.arrayAmp[i] = 1.0 + 0.1 * i;
      run.observations.arrayAmpDev[i] = 0.05 * i;
    }
    ASSERT_EQ(FS_SetUpObsData(2), 0);
    ASSERT_EQ(run.observations.ldObs, 2 * run.observations.nObsRows);
    computed = amplitude = OffsetVector<double>(1, run.observations.runVel.size());
    Randomize(15);
    run.observations.Cd.diag(2) = 0.0;  // drops both halves of this row
    computed[2] = 0.0;
    ASSERT_EQ(Plain().G.rows, 10u);
    ExpectPlainUpdate();
    EXPECT_EQ(run.observations.ldObs, 12);
    EXPECT_EQ(run.observations.nObsRows, 6);
  }
}

// --- Identities ---

TEST_F(FS_MaxLiklihoodTest, TracesOfDataAndModelResolutionAreEqual) {
  for (const int layers : {4, 9}) {
    Start(layers, 7);
    Randomize(21);
    ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
    const plain::Matrix W = ToPlain(run.update.Weight), G = ToPlain(run.update.GActive);
    EXPECT_NEAR(static_cast<double>(plain::Trace(G * W)), static_cast<double>(plain::Trace(W * G)), 1e-12);
    double traceN = 0.0, traceR = 0.0;
    for (double x : Column(".n", "Iteration no.", 3)) traceN += x;
    for (double x : Column(".r", "Backus-Gilbert\t", 4)) traceR += x;
    EXPECT_NEAR(traceN, traceR, 1e-6);
    EXPECT_GT(traceR, 0.5);
    EXPECT_LT(traceR, std::min(layers, 7));
    double stored = 0.0;
    for (int l = 0; l < layers; ++l) stored += InvParam.resolution(1, l);
    EXPECT_NEAR(stored, traceR, 1e-6);
  }
}

TEST_F(FS_MaxLiklihoodTest, PosteriorOverPriorVarianceIsOneLessTheResolution) {
  Start(5, 12, 3, 0.2);
  Randomize(22);
  const plain::Problem problem = Plain();
  ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
  const plain::Matrix R = Resolution();
  for (std::size_t k = 0; k < problem.model.size(); ++k) {
    const int p = static_cast<int>(k) + 1;
    const double ratio = run.update.InvH(p, p) / static_cast<double>(problem.Cm(k, k));
    EXPECT_NEAR(ratio, 1.0 - static_cast<double>(R(k, k)), 1e-11) << p;
    EXPECT_NEAR(run.parameters.Cm(p, p), static_cast<double>(problem.Cm(k, k)),
                1e-11 * run.parameters.Cm(p, p));
  }
}

TEST_F(FS_MaxLiklihoodTest, PriorVarianceFollowsThePresentModel) {
  Start(3, 8);
  Randomize(23);
  run.parameters.rModel[2] = 240.0;
  ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
  EXPECT_NEAR(run.parameters.Cm(2, 2), 0.09 * 240.0 * 240.0, 1e-9);
}

// --- Rows ---

TEST_F(FS_MaxLiklihoodTest, RowWithoutVelocityOrWithoutDeviationDropsOutForGood) {
  Start(4, 9);
  Randomize(31);
  run.observations.iNoVelocity[3] = 1;
  computed[3] = 0.0;
  run.observations.Cd.diag(7) = 0.0;
  computed[7] = 0.0;
  ASSERT_EQ(Plain().G.rows, 7u);
  ExpectPlainUpdate();
  EXPECT_EQ(run.observations.iNoVelocity[3], 1);
  EXPECT_EQ(run.observations.iNoVelocity[7], 1);
  EXPECT_EQ(run.observations.iNoVelocity[1], 0);
  EXPECT_EQ(run.update.GActive.rows(), 7);
  run.observations.Cd.diag(7) = 25.0;  // comes too late
  computed[7] = 0.0;
  ExpectPlainUpdate();
  EXPECT_EQ(run.update.GActive.rows(), 7);
}

TEST_F(FS_MaxLiklihoodTest, DifferencesAreTakenByComputedVelocityNotByFlag) {
  // Row 2 failed in an earlier iteration and has a velocity again: it is in the differences and not in the
  // rows, so all later differences are shifted by one row, and the last has no row.
  Start(3, 6);
  Randomize(32);
  run.observations.iNoVelocity[2] = 1;
  const plain::Problem problem = Plain();
  ASSERT_EQ(problem.G.rows, 5u);
  ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
  for (int k = 1; k <= 5; ++k)
    EXPECT_DOUBLE_EQ(run.update.deltaVel[k], computed[k] - run.observations.runVel[k]) << k;
  const plain::Update expected = plain::Solve(problem);
  ExpectVector(run.update.deltaModel, expected.correction, 1e-10 * Largest(expected.correction),
               "correction");
}

TEST_F(FS_MaxLiklihoodTest, DifferencesThatAreNotReachedAreZero) {
  Start(3, 6);
  Randomize(33);
  computed[4] = 0.0;  // in use, without a velocity this time
  ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
  EXPECT_DOUBLE_EQ(run.update.deltaVel[4], computed[5] - run.observations.runVel[5]);
  EXPECT_DOUBLE_EQ(run.update.deltaVel[5], computed[6] - run.observations.runVel[6]);
  EXPECT_EQ(run.update.deltaVel[6], 0.0);
}

TEST_F(FS_MaxLiklihoodTest, NoRowInUseIsToldAndEndsTheRun) {
  Start(3, 4);
  Randomize(34);
  for (int i = 1; i <= 4; ++i) {
    if (i % 2 == 0) run.observations.iNoVelocity[i] = 1;
    if (i % 2 == 1) run.observations.Cd.diag(i) = 0.0;
  }
  const OffsetVector<double> before = run.parameters.rModel;
  EXPECT_EQ(FS_MaxLiklihood(computed, amplitude), -1);
  EXPECT_EQ(OnlyMessage(), "Warning: No velocities are calculated at all the given frequencies.\n");
  EXPECT_EQ(frontEnd.messageTitles.back(), "Sondera 4");
  for (int p = 1; p <= 3; ++p) EXPECT_EQ(run.parameters.rModel[p], before[p]);
  EXPECT_EQ(run.observations.nObsRows, 4);
}

TEST_F(FS_MaxLiklihoodTest, CountsOfRowsAreBackAfterAnUpdate) {
  Start(3, 6);
  Randomize(35);
  run.observations.iNoVelocity[2] = 1;
  computed[2] = 0.0;
  ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
  EXPECT_EQ(run.observations.nObsRows, 6);
  EXPECT_EQ(run.observations.ldObs, 6);
}

// --- What is shown and written ---

TEST_F(FS_MaxLiklihoodTest, ProgressNamesTheSteps) {
  Start(3, 6);
  Randomize(36);
  ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
  EXPECT_TRUE(Shown(process, "Calculating Hessian matrix..."));
  EXPECT_TRUE(Shown(process, "Calculating Weight matrix..."));
  EXPECT_TRUE(Shown(process, "Updating model parameters..."));
  process.clear();
  Start(6, 2);
  Randomize(37);
  ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
  EXPECT_FALSE(Shown(process, "Calculating Hessian matrix..."));
  EXPECT_TRUE(Shown(process, "Calculating Weight matrix..."));
}

TEST_F(FS_MaxLiklihoodTest, EventsArePolledAroundTheInverses) {
  Start(3, 6);
  Randomize(38);
  int polls = 0;
  frontEnd.onProcessEvents = [&polls] { ++polls; };
  ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
  EXPECT_GT(polls, 0);
}

TEST_F(FS_MaxLiklihoodTest, MatricesAreNotDumped) {
  Start(3, 6);
  Randomize(39);
  run.switches.iDumpMatrices = 1;
  ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
  EXPECT_EQ(run.switches.iDumpMatrices, 0);
  for (const char* name : {"compvel_obsvel.dat", "Cm", "DeltaVel", "Hessian", "DeltaModel"})
    EXPECT_FALSE(std::filesystem::exists(name)) << name;
}

TEST_F(FS_MaxLiklihoodTest, ResolutionIsWrittenBeforeTheModelMoves) {
  Start(3, 6);
  Randomize(40);
  run.course.iCurIterNo = 2;
  ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
  EXPECT_EQ(Count(File(".r"), "Iteration no. :  2"), 1);
  EXPECT_EQ(Count(File(".n"), "Iteration no. :  2"), 1);
  const plain::Matrix R = Resolution();
  for (int l = 0; l < 3; ++l)
    EXPECT_NEAR(InvParam.resolution(2, l),
                static_cast<double>(R(static_cast<std::size_t>(l), static_cast<std::size_t>(l))), 1e-12);
}

// --- Layers after the update ---

TEST_F(FS_MaxLiklihoodTest, RatioFollowsTheVelocitiesWhereItIsNotGiven) {
  SetLayers({{2.0, 300.0, 120.0, 2.0, 0.0, 0.02}, {2.0, 0.0, 150.0, 2.0, 0.3, 0.02}});
  SetGlobalCurve(5);
  Prepare(2);
  ASSERT_EQ(run.ground.iPoissonGiven[1], 0);
  computed = amplitude = OffsetVector<double>(1, run.observations.runVel.size());
  Randomize(41);
  ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
  const double r2 = std::pow(300.0 / run.ground.layerVs[1], 2);
  EXPECT_EQ(run.ground.layerVp[1], 300.0);
  EXPECT_NEAR(run.ground.layerNu[1], (r2 - 2.0) / (r2 - 1.0) / 2.0, 1e-12);
  EXPECT_EQ(run.ground.layerVs[1], run.parameters.rModel[1]);
  EXPECT_NEAR(run.ground.layerVp[2], run.ground.layerVs[2] * std::sqrt(3.5), 1e-9);
}

TEST_F(FS_MaxLiklihoodTest, UnphysicalRatioIsPulledBackThroughVsAndTheModelKeepsItsOwn) {
  SetLayers({{2.0, 300.0, 120.0, 2.0, 0.0, 0.02}, {2.0, 0.0, 150.0, 2.0, 0.3, 0.02}});
  SetGlobalCurve(5);
  Prepare(2);
  computed = amplitude = OffsetVector<double>(1, run.observations.runVel.size());
  for (int i = 1; i <= 5; ++i) computed[i] = run.observations.runVel[i];  // no correction
  for (int i = 1; i <= 5; ++i)
    run.update.GMatrix(i, 1) = run.update.GMatrix(i, 2) = 0.1 * i + (i == 2 ? 1.0 : 0.0);
  run.parameters.rModel[1] = 310.0;  // faster than Vp: the ratio comes out above one half
  ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
  EXPECT_DOUBLE_EQ(run.ground.layerNu[1], 0.497);
  EXPECT_DOUBLE_EQ(run.ground.layerVs[1], 300.0 * std::sqrt(0.005964214711729627));
  EXPECT_DOUBLE_EQ(run.parameters.rModel[1], 310.0);
}

TEST_F(FS_MaxLiklihoodTest, NegativeRatioStays) {
  SetLayers({{2.0, 300.0, 120.0, 2.0, 0.0, 0.02}, {2.0, 0.0, 150.0, 2.0, 0.3, 0.02}});
  SetGlobalCurve(5);
  Prepare(2);
  computed = amplitude = OffsetVector<double>(1, run.observations.runVel.size());
  for (int i = 1; i <= 5; ++i) computed[i] = run.observations.runVel[i];
  run.parameters.rModel[1] = 250.0;  // Vp over Vs is 1.2, below the root of two
  ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
  EXPECT_NEAR(run.ground.layerNu[1], (1.44 - 2.0) / (1.44 - 1.0) / 2.0, 1e-12);
  EXPECT_DOUBLE_EQ(run.ground.layerVs[1], 250.0);
}

}  // namespace
}  // namespace sondera::testing
