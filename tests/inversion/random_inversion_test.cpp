// Inversions with random settings, valid and invalid ones: every run ends, a run that fails says why, and its
// stored results are finite.
#include <cmath>
#include <iostream>
#include <limits>

#include "panels/entry_lists.h"
#include "runtime/catalogue/meassetup.h"
#include "support/run_case.h"

namespace sondera::testing {
namespace {

class RandomInversion : public RunCase {
 protected:
  double Uniform01() { return std::uniform_real_distribution<double>(0.0, 1.0)(random); }
  double Between(double low, double high) { return low + (high - low) * Uniform01(); }
  int Whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }
  bool Chance(double share) { return Uniform01() < share; }
  template <class T>
  T OneOf(std::initializer_list<T> values) {
    return values.begin()[Whole(0, static_cast<int>(values.size()) - 1)];
  }
  /// Spread evenly over the orders of magnitude.
  double Scaled(double low, double high) { return low * std::pow(high / low, Uniform01()); }

  void RandomLayers(int most) {
    std::vector<LayerRow> rows;
    const int n = Whole(1, most);
    const bool wild = Chance(0.2);
    for (int l = 0; l < n; ++l) {
      const double Vs = wild ? Scaled(1.0, 5000.0) : Between(80.0, 400.0);
      LayerRow row = {Scaled(0.2, 10.0), 0.0, Vs, 1.8, Between(0.05, 0.49), 0.02};
      if (Chance(0.2)) row.Vp = Vs * Between(wild ? 0.5 : 1.5, 8.0);
      if (Chance(0.3)) row.nu = 0.0;
      if (Chance(0.2)) row.density = 0.0;
      if (wild && Chance(0.1)) row.Vs = 0.0;
      if (wild && Chance(0.1)) row.thickness = 0.0;
      rows.push_back(row);
    }
    SetLayers(rows);
  }

  void RandomGlobalCurve(int most) {
    const bool wild = Chance(0.2);
    const int n = Whole(1, most);
    const std::vector<double> L = Wavelengths(Scaled(0.3, 3.0), Scaled(5.0, 80.0), n);
    std::vector<double> v;
    for (int i = 0; i < n; ++i) {
      double x = wild ? Scaled(1e-3, 1e5) : Between(90.0, 350.0);
      if (wild && Chance(0.1)) x = OneOf({0.0, -100.0, 1e90, std::numeric_limits<double>::infinity()});
      v.push_back(x);
    }
    SetCurve(L, v);
  }

  void RandomArrayCurves() {
    const int points = Whole(1, 4), curves = Whole(1, 2);
    std::vector<double> v;
    for (int k = 0; k < points * curves; ++k) v.push_back(Chance(0.2) ? 0.0 : Between(90.0, 300.0));
    SetArrayCurves(points, curves, v);
    for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) {
      m->nSubLayers = 4;
      m->fDispBulb = 1.5;
    }
  }

  void RandomSettings() {
    InitializeInvAnal();
    InvParam.MODELPARM = Whole(1, 3);
    InvParam.ufVs = OneOf({0.0, 1e-3, 0.05, 0.3, 0.99, 1.0, 25.0, 1e4, -0.1});
    InvParam.ufH = OneOf({0.0, 1e-3, 0.15, 0.5, 1.0, 3.0});
    if (Chance(0.4)) {
      InvParam.minVs = Between(50.0, 250.0);
      InvParam.maxVs = InvParam.minVs + Between(-50.0, 300.0);
      InvParam.minH = Between(0.1, 2.0);
      InvParam.maxH = InvParam.minH + Between(-0.5, 5.0);
    }
    run.switches.cdMode = Whole(-1, 1);
    run.switches.ufVph = OneOf({0.0, 1e-6, 0.01, 0.05, 0.5});
    SetCtrlVal(inversion::CONST_MP_VS, OneOf<const char*>({"", "", "1", "2, 3", "99", "-1 x"}));
    SetCtrlVal(inversion::CONST_MP_H, OneOf<const char*>({"", "", "1,2", "7"}));
    SetCtrlVal(inversion::UPDATERHONU, Whole(0, 1));
    SetCtrlIndex(meassetup::LENGTHUNIT, Whole(0, 3));
  }

  void SetAnalysis(int analysis) {
    for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) m->analysis = analysis;
  }

  /// First place in the entries of the list that holds no number. Vp may be infinite where Poisson's ratio is
  /// one half, and the ratio is not a number where a layer was given with Vp and without Vs.
  std::string FirstNonNumber() const {
    for (int k = 0; k < Listed(); ++k) {
      const std::string at = "entry " + std::to_string(k) + ": ";
      if (!std::isfinite(InvParam.rms[k])) return at + "rms";
      for (int l = 0; l < InvParam.nLayers; ++l) {
        for (auto table : kModelTables) {
          const bool excused = (table == &InvRecord::Vp && InvParam.nu(k, l) == 0.5) ||
                               (table == &InvRecord::nu && InvParam.Vs(k, l) == 0.0);
          if (!excused && !std::isfinite((InvParam.*table)(k, l))) return at + "layer " + std::to_string(l);
        }
        if (!std::isfinite(InvParam.resolution(k, l))) return at + "resolution " + std::to_string(l);
      }
      for (int p = 0; p < InvParam.nPoints * InvParam.nCurves; ++p)
        if (!std::isfinite(InvParam.vel(k, p)) || !std::isfinite(InvParam.waveL(k, p)))
          return at + "curve " + std::to_string(p);
    }
    return {};
  }

  struct Tally {
    int finished = 0, refused = 0, entries = 0;
  };
  void RunAndJudge(Tally& tally) {
    frontEnd.messages.clear();
    ClearEntryLists();
    ::testing::internal::CaptureStdout();
    const int result = RunIterations(Whole(0, 3));
    ::testing::internal::GetCapturedStdout();
    EXPECT_TRUE(result == 0 || !frontEnd.messages.empty()) << "a run ended without a word";
    const std::string where = FirstNonNumber();
    EXPECT_TRUE(where.empty() || !frontEnd.messages.empty()) << where << " is stored without a message";
    ++(result == 0 ? tally.finished : tally.refused);
    tally.entries += Listed();
  }

  std::mt19937 random{20260};
};

TEST_F(RandomInversion, PlaneWaveRunsEndWithNumbersOrAMessage) {
  Tally tally;
  for (int trial = 0; trial < 400; ++trial) {
    SCOPED_TRACE(trial);
    RandomSettings();
    RandomLayers(8);
    RandomGlobalCurve(20);
    SetAnalysis(2);
    RunAndJudge(tally);
  }
  std::cout << tally.finished << " finished, " << tally.refused << " ended with a message, " << tally.entries
            << " models stored\n";
  EXPECT_GT(tally.finished, 100);
  EXPECT_GT(tally.refused, 50);
  EXPECT_GT(tally.entries, 400);
}

TEST_F(RandomInversion, PointLoadRunsEndWithNumbersOrAMessage) {
  Tally tally;
  for (int trial = 0; trial < 60; ++trial) {
    SCOPED_TRACE(trial);
    RandomSettings();
    RandomLayers(4);
    RandomArrayCurves();
    SetAnalysis(Whole(3, 4));
    RunAndJudge(tally);
  }
  std::cout << tally.finished << " finished, " << tally.refused << " ended with a message, " << tally.entries
            << " models stored\n";
  EXPECT_GT(tally.finished, 10);
  EXPECT_GT(tally.refused, 5);
}

}  // namespace
}  // namespace sondera::testing
