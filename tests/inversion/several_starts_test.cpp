// Tests of the inversion from several starts: the spread of the profiles, and that the run itself does not
// change.
#include "inversion/several_starts.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "panels/analresult.h"
#include "panels/entry_lists.h"
#include "run/run_history.h"
#include "run/run_state.h"
#include "runtime/findings.h"
#include "runtime/text_format.h"
#include "support/known_site.h"

namespace sondera::testing {
namespace {

class SeveralStartsTest : public KnownSite {
 protected:
  void SetUp() override {
    KnownSite::SetUp();
    ClearStartSpread();
    ClearFindings();
    ClearInversionHistories();
  }
  void TearDown() override {
    ClearStartSpread();
    ClearFindings();
    KnownSite::TearDown();
  }
  int Run(int iterations, int several) {
    SetSite();
    SetCtrlVal(inversion::SEVERALSTARTS, several);
    return RunIterations(iterations);
  }
  std::string Files() const {
    std::string all;
    for (const char* extension : {".fdp", ".fmp", ".pfl", ".fsp", ".pcm", ".n", ".r"}) all += File(extension);
    return all;
  }
};

TEST_F(SeveralStartsTest, SiteVelocityIsTheMeanMeasuredOneAsShearWave) {
  SetSite();
  Prepare(2);
  double sum = 0.0;
  for (int i = 0; i < kPoints; ++i) sum += MeasuredVelocity(i);
  EXPECT_NEAR(SiteVelocity(run.observations), sum / kPoints / 0.93, 1e-9);
  run.observations.runVel[1] = 0.0;
  EXPECT_NEAR(SiteVelocity(run.observations), (sum - MeasuredVelocity(0)) / (kPoints - 1) / 0.93, 1e-9);
}

TEST_F(SeveralStartsTest, RunAndItsFilesAreThoseWithoutIt) {
  ASSERT_EQ(Run(3, 0), 0) << Messages();
  const InvRecord plain = InvParam;
  const std::string files = Files();
  const OffsetVector<double> model = run.parameters.rModel;
  EXPECT_EQ(StartSpreadTable(3), "");
  ClearEntryLists();
  ASSERT_EQ(Run(3, 1), 0) << Messages();
  EXPECT_EQ(Files(), files);
  EXPECT_EQ(Listed(), 4);
  EXPECT_EQ(InversionHistories().back().iterations.size(), 4u);
  for (int k = 0; k <= 3; ++k) {
    EXPECT_EQ(InvParam.rms[k], plain.rms[k]);
    for (int l = 0; l < 3; ++l) {
      EXPECT_EQ(InvParam.Vs(k, l), plain.Vs(k, l));
      EXPECT_EQ(InvParam.resolution(k, l), plain.resolution(k, l));
    }
  }
  for (int p = 1; p <= 3; ++p) EXPECT_EQ(run.parameters.rModel[p], model[p]);
  EXPECT_FALSE(run.switches.withoutResults);
}

/// Each start, run on its own as the given model, must end inside the spread, and the outermost on its ends.
TEST_F(SeveralStartsTest, SpreadIsThatOfTheRunsOnTheirOwn) {
  ASSERT_EQ(Run(2, 1), 0) << Messages();
  const std::string table = StartSpreadTable(2);
  ASSERT_EQ(Findings().size(), 1u);
  EXPECT_EQ(Findings()[0].text.find("from 4 starts the Vs of the layers end at "), 0u) << Findings()[0].text;
  const double site = SiteVelocity(run.observations);
  std::vector<double> lowest(3, 1e9), highest(3, 0.0);
  for (const double start : {180.0, 0.8 * site, site, 1.3 * site}) {
    SetSite(start);
    SetCtrlVal(inversion::SEVERALSTARTS, 0);
    ASSERT_EQ(RunIterations(2), 0) << Messages();
    for (std::size_t l = 0; l < 3; ++l) {
      lowest[l] = std::min(lowest[l], InvParam.Vs(2, static_cast<int>(l)));
      highest[l] = std::max(highest[l], InvParam.Vs(2, static_cast<int>(l)));
    }
    EXPECT_NE(table.find(FormatText(" %7.2lf\n", InversionHistories().back().iterations.back().chi)),
              std::string::npos)
        << table;
  }
  for (std::size_t l = 0; l < 3; ++l)
    EXPECT_NE(table.find(FormatText("%5zu         %11.3lf   %11.3lf\n", l + 1, lowest[l], highest[l])),
              std::string::npos)
        << table;
}

TEST_F(SeveralStartsTest, TableStandsBelowTheModelOfItsIterationAlone) {
  ASSERT_EQ(Run(2, 1), 0) << Messages();
  std::string text;
  GetResultTextBox(kModelTable, 2, text, InvParam);
  EXPECT_NE(text.find("Spread of the profiles from several starts"), std::string::npos);
  for (const int index : {0, 1}) {
    std::string other;
    GetResultTextBox(kModelTable, index, other, InvParam);
    EXPECT_EQ(other.find("Spread"), std::string::npos) << index;
  }
  InvParam.Vs(2, 0) += 1.0;  // another run's entry by now
  EXPECT_EQ(StartSpreadTable(2), "");
}

TEST_F(SeveralStartsTest, LayerWithAFixedVsKeepsIt) {
  SetCtrlVal(inversion::CONST_MP_VS, "2");
  ASSERT_EQ(Run(2, 1), 0) << Messages();
  EXPECT_NE(StartSpreadTable(2).find(FormatText("%5d         %11.3lf   %11.3lf\n", 2, 180.0, 180.0)),
            std::string::npos)
      << StartSpreadTable(2);
}

TEST_F(SeveralStartsTest, ThicknessAloneHasNoOtherStart) {
  InvParam.MODELPARM = 2;
  EXPECT_EQ(Run(1, 1), 0) << Messages();
  EXPECT_EQ(StartSpreadTable(1), "");
}

TEST_F(SeveralStartsTest, HaltKeepsTheIterationsOfTheGivenModel) {
  int polls = 0;
  frontEnd.onProcessEvents = [&polls] {
    if (++polls == kPoints * 8 + 4 + 20)
      run.course.iHaltRequest = 1;  // after one iteration, in the next start
  };
  EXPECT_EQ(Run(1, 1), -1);
  frontEnd.onProcessEvents = nullptr;
  EXPECT_EQ(
      Messages(),
      "The inversion was halted. The other starting models were not tried to their end. Iteration 1 is the "
      "last finished one and is kept.\n");
  EXPECT_EQ(Listed(), 2);
  EXPECT_EQ(StartSpreadTable(1), "");
  EXPECT_FALSE(run.switches.withoutResults);
}

}  // namespace
}  // namespace sondera::testing
