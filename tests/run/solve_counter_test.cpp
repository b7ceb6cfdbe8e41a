// Tests of the count of solver calls of a run.
#include "run/solve_counter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "run/sweep_solvers.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

/// Notes the reported shares.
class Shares : public RunListener {
 public:
  void Done(double share) override { told.push_back(share); }
  bool Poll() override { return ++polls == haltAt; }
  std::vector<double> told;
  int polls = 0, haltAt = 0;
};

class SolveCount : public RunTest {};

TEST_F(SolveCount, EverySolveOfASweepIsCounted) {
  SetPlainLayers(2);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  run.switches.iAnalysis = -2;
  Shares shares;
  SolveCounter counter(shares, 4);
  SweepSolvers solvers(PartsOfSweep(run), 1, counter);
  double velocity = 0.0;
  EXPECT_TRUE(solvers.PlaneWave(10.0, velocity));
  EXPECT_TRUE(solvers.PlaneWave(10.0, velocity));
  EXPECT_EQ(shares.told, (std::vector<double>{0.0, 0.25, 0.5}));
  EXPECT_EQ(shares.polls, 2);
}

TEST_F(SolveCount, HaltGoesThroughAndNoNumberTellsNoShare) {
  Shares shares;
  shares.haltAt = 2;
  SolveCounter counter(shares, 0);
  EXPECT_FALSE(counter.Poll());
  EXPECT_TRUE(counter.Poll());
  EXPECT_TRUE(shares.told.empty());
}

/// Writes down all reports.
class Heard : public RunListener {
 public:
  void Status(const std::string& text) override { all += "status " + text + "; "; }
  void Process(const std::string& text) override { all += "process " + text + "; "; }
  void Busy(bool on) override { all += on ? "busy; " : "idle; "; }
  void ShowMessage(const std::string& title, const std::string& text) override {
    all += "message " + title + ": " + text + "; ";
  }
  void LetEventsIn() override { all += "events; "; }
  void Misfit(double rmsVel) override { all += "misfit " + std::to_string(static_cast<int>(rmsVel)) + "; "; }
  void Stored(int entry) override { all += "stored " + std::to_string(entry) + "; "; }
  std::string all;
};

TEST_F(SolveCount, WhatIsNoSolveIsPassedOnAsItIs) {
  Heard heard;
  SolveCounter counter(heard, 4);
  RunListener& listener = counter;
  listener.Status("a");
  listener.Process("b");
  listener.Busy(true);
  listener.Busy(false);
  listener.Tell(Refusal::Titled("c", "d"));
  listener.LetEventsIn();
  listener.Misfit(5.0);
  listener.Stored(2);
  EXPECT_EQ(heard.all, "status a; process b; busy; idle; message c: d; events; misfit 5; stored 2; ");
}

TEST_F(SolveCount, SolvesOfASweepFollowTheKindOfTheRun) {
  Observations& o = run.observations;
  Switches& s = run.switches;
  o.nDispPoints = 7;
  o.nObsRows = 12;
  o.globalRecCount = OffsetVector<int>(1, 7);
  for (int i = 1; i <= 7; ++i) o.globalRecCount[i] = i == 1 ? 3 : 1;
  s.iDispSource = 1;
  s.iAnalysis = 2;
  EXPECT_EQ(SolvesOfSweep(o, s), 7);
  s.iAnalysis = 3;
  EXPECT_EQ(SolvesOfSweep(o, s), 9);
  s.iDispSource = 2;
  EXPECT_EQ(SolvesOfSweep(o, s), 12);
  s.iAnalysis = 2;  // plane waves work on the global points in any case
  EXPECT_EQ(SolvesOfSweep(o, s), 7);
}

}  // namespace
}  // namespace sondera::testing
