// Tests of the step control: the criterion for a step, the halving, and the state after a refused trial.
#include "inversion/step_control.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "inversion/update_bounds.h"
#include "run/run_history.h"
#include "run/run_state.h"
#include "support/known_site.h"

namespace sondera::testing {
namespace {

class StepIsGoodTest : public UpdateTest {
 protected:
  void SetUp() override {
    UpdateTest::SetUp();
    Start(3, 40);
    for (int i = 1; i <= 40; ++i) run.observations.Cd.diag(i) = 1.0;
    out = run.observations.iNoVelocity;
    before = after = computed;
  }
  bool Good(bool huber = false) const { return StepIsGood(run.observations, before, after, out, huber); }

  OffsetVector<double> before, after;
  OffsetVector<int> out;
};

TEST_F(StepIsGoodTest, WhereChiFallsOrStays) {
  before[7] += 2.0;
  after[7] += 1.0;
  EXPECT_TRUE(Good());
  after[9] += std::sqrt(3.0) * (1.0 - 1e-9);
  EXPECT_TRUE(Good());
  after[9] += 1e-6;
  EXPECT_FALSE(Good());
}

TEST_F(StepIsGoodTest, RowsOfOneModelAloneDoNotCount) {
  before[3] += 9.0;  // lost: its misfit does not compensate the other one
  after[3] = 0.0;
  after[4] += 1.0;
  EXPECT_FALSE(Good());
  after[4] = before[4];
  EXPECT_TRUE(Good());
  out[5] = 1;  // found again, but out
  after[5] += 50.0;
  EXPECT_TRUE(Good());
}

TEST_F(StepIsGoodTest, MayLoseATwentiethOfTheRows) {
  after[1] = after[2] = 0.0;
  EXPECT_TRUE(Good());  // 2 of 40
  after[3] = 0.0;
  EXPECT_FALSE(Good());
  out[1] = 1;  // 2 of 39 rows in use
  out[2] = 1;
  EXPECT_TRUE(Good());
}

TEST_F(StepIsGoodTest, CurveWithoutAPointOrANumberIsNot) {
  for (int i = 1; i <= 40; ++i) out[i] = 1;
  EXPECT_FALSE(Good());
  out[1] = 0;
  after[1] = std::nan("");
  EXPECT_FALSE(Good());
}

/// With Huber weights the update lowers another misfit.
TEST_F(StepIsGoodTest, HuberWeightsJudgeByTheirOwnMisfit) {
  before[1] += 10.0;  // square 100, Huber 27.75
  after[1] += 9.0;    // 81, 24.75
  for (int i = 2; i <= 5; ++i) after[i] += 1.0;
  EXPECT_TRUE(Good(false));
  EXPECT_FALSE(Good(true));
}

class EvaluateControlledTest : public KnownSite {
 protected:
  /// A run up to the curve of its starting model.
  void Begin() {
    SetSite();
    InvParam.nEntries = 5;
    Prepare(2);
    e.Sweep(run, boxes);
    from = PresentModel(run.ground, run.parameters);
  }
  /// Model as an update has left it.
  static void MoveTo(std::initializer_list<double> Vs) {
    std::copy(Vs.begin(), Vs.end(), run.parameters.rModel.begin());
    LayersFromModel(run.parameters, run.ground);
  }

  Evaluation e;
  ModelState from;
};

TEST_F(EvaluateControlledTest, GoodStepIsTaken) {
  Begin();
  MoveTo({130.0, 180.0, 260.0});
  EXPECT_TRUE(EvaluateControlled(run, from, e, false, boxes));
  e.Judge(run);
  EXPECT_LT(e.rmsVel, 0.01);
  EXPECT_EQ(run.parameters.rModel[3], 260.0);
}

TEST_F(EvaluateControlledTest, StepThatGoesTooFarIsHalved) {
  Begin();
  MoveTo({80.0, 180.0, 340.0});  // twice as far as the ground
  EXPECT_TRUE(EvaluateControlled(run, from, e, false, boxes));
  EXPECT_EQ(run.parameters.rModel[1], 130.0);
  EXPECT_EQ(run.ground.layerVs[1], 130.0);
  EXPECT_EQ(run.ground.layerVs[3], 260.0);
  EXPECT_NEAR(run.ground.layerVp[3], 260.0 * std::sqrt(2.0 * 0.67 / 0.34), 1e-9);
  e.Judge(run);
  EXPECT_LT(e.rmsVel, 0.01);
}

TEST_F(EvaluateControlledTest, StepTheOtherWayIsNotTakenAndLeavesNoTrace) {
  Begin();
  const OffsetVector<double> curve = e.vel;
  run.observations.iNoVelocity[5] = 1;  // out since the sensitivities
  MoveTo({800.0, 180.0, 20.0});
  EXPECT_FALSE(EvaluateControlled(run, from, e, false, boxes));
  for (int l = 1; l <= 3; ++l) {
    EXPECT_EQ(run.ground.layerVs[l], 180.0);
    EXPECT_EQ(run.parameters.rModel[l], 180.0);
  }
  for (int i = 1; i <= kPoints; ++i) {
    EXPECT_EQ(e.vel[i], curve[i]);
    EXPECT_EQ(run.observations.iNoVelocity[i], i == 5 ? 1 : 0) << i;
  }
}

/// A sweep that finds no point for its full step, and all points for a half: the flags of the first are gone.
TEST_F(EvaluateControlledTest, FlagsOfARefusedTrialAreTakenBack) {
  Begin();
  int sweeps = 0;
  frontEnd.onProcessEvents = [&sweeps] {
    if (++sweeps == 1)
      run.observations.runFreq[2] = run.observations.runFreq[3] =
          0.0;  // no wavelength: two points of fifteen
    if (sweeps == kPoints) run.observations.runFreq[2] = run.observations.runFreq[3] = 30.0;
  };
  MoveTo({130.0, 180.0, 260.0});
  EXPECT_TRUE(EvaluateControlled(run, from, e, false, boxes));
  frontEnd.onProcessEvents = nullptr;
  EXPECT_EQ(run.parameters.rModel[1], 155.0);
  EXPECT_EQ(sweeps, 2 * kPoints);
  for (int i = 1; i <= kPoints; ++i) EXPECT_EQ(run.observations.iNoVelocity[i], 0) << i;
}

class StepControlRun : public KnownSite {};

/// Thin layers on a curve with wiggles, and long allowed steps: the plain iteration overshoots.
TEST_F(StepControlRun, ChiNeverRises) {
  const auto chi = [this](double start, int control) {
    SetSite();
    SetLayers(std::vector<LayerRow>(8, {1.0, 0.0, start, 1.8, 0.33, 0.02}));
    for (int i = 0; i < kPoints; ++i) SpoilPoint(i, i % 2 == 0 ? 1.1 : 0.9);
    SetCtrlVal(inversion::STEPCONTROL, control);
    InvParam.ufVs = 0.99;
    EXPECT_EQ(RunIterations(6), 0) << Messages();
    std::vector<double> values;
    for (const IterationFit& fit : InversionHistories().back().iterations) values.push_back(fit.chi);
    return values;
  };
  int overshoots = 0;
  for (const double start : {140.0, 180.0, 260.0}) {
    SCOPED_TRACE(start);
    const std::vector<double> plain = chi(start, 0), controlled = chi(start, 1);
    overshoots += std::is_sorted(plain.rbegin(), plain.rend()) ? 0 : 1;
    EXPECT_TRUE(std::is_sorted(controlled.rbegin(), controlled.rend()));
    EXPECT_LT(controlled.back(), controlled.front());
  }
  EXPECT_GT(overshoots, 0);
}

/// An update that goes the wrong way, since its residuals change their sign on the way to it.
TEST_F(StepControlRun, KeepsTheModelAndEndsWhereNoStepIsGood) {
  SetSite();
  SetCtrlVal(inversion::STEPCONTROL, 1);
  int polls = 0;
  frontEnd.onProcessEvents = [&polls] {
    if (++polls != kPoints * 7 + 3) return;  // after the sensitivities, at the inverse of the Hessian
    for (int r = 1; r <= run.update.deltaVel.hi(); ++r) run.update.deltaVel[r] = -run.update.deltaVel[r];
  };
  EXPECT_EQ(RunIterations(5), 0) << Messages();
  frontEnd.onProcessEvents = nullptr;
  ASSERT_EQ(Listed(), 2);
  EXPECT_GT(std::fabs(run.update.deltaModel[1]), 1.0);
  for (int l = 0; l < 3; ++l) EXPECT_EQ(InvParam.Vs(1, l), 180.0);
  EXPECT_EQ(InvParam.rms[1], InvParam.rms[0]);
  EXPECT_NE(GetCtrlVal(exdthd::STATUSMSG).find("No part of the last step lowers chi: the run has settled."),
            std::string::npos);
}

}  // namespace
}  // namespace sondera::testing
