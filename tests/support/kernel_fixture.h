// kernel_fixture.h - runs of an inversion prepared up to the sensitivities or the update, and the texts of
// the progress boxes.
#pragma once

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "run/observations.h"
#include "run/receiver_setups.h"
#include "run/run_sizes.h"
#include "run/run_state.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/inversion.h"
#include "support/dense_update.h"
#include "support/named_runs.h"
#include "support/run_fixture.h"

namespace sondera::testing {

class KernelTest : public RunTest {
 protected:
  void SetUp() override {
    RunTest::SetUp();
    observer_ = AddWatcher([this](const Change& change) {
      if (change.control == &exdthd::PROCESSMSG) process.push_back(GetCtrlVal(exdthd::PROCESSMSG));
      if (change.control == &exdthd::STATUSMSG) status.push_back(GetCtrlVal(exdthd::STATUSMSG));
    });
  }
  void TearDown() override {
    RemoveObserver(observer_);
    RunTest::TearDown();
  }

  /// The driver's work before the first sweep, on the present records. dataFactor: deviation of the
  /// data over their value.
  void Prepare(int analysis, double dataFactor = 0.05) {
    FModelParam.analysis = TheoDispInfo.analysis = analysis;
    run.switches.cdMode = 1;
    run.switches.ufVph = dataFactor;
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
    ASSERT_EQ(FS_RetrieveSystemPM(kInversionRun, 0), 0);
    ASSERT_EQ(FS_GetStartMP(), 0);
    std::fill(run.observations.iNoVelocity.begin(), run.observations.iNoVelocity.end(), 0);
    if (run.switches.iDispSource == 1) FS_SearchReceivers(run.observations, run.receivers);
    ASSERT_EQ(FS_SetUpObsData(run.switches.iDispSource), 0);
    run.course.iCurIterNo = 1;
  }

  static bool Shown(const std::vector<std::string>& texts, const std::string& part) {
    for (const std::string& t : texts)
      if (t.find(part) != std::string::npos) return true;
    return false;
  }
  static int Count(const std::string& text, const std::string& part) {
    int n = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; ++at) ++n;
    return n;
  }

  RunBoxes boxes;
  std::vector<std::string> process, status;  ///< every text of the two boxes, in order

 private:
  int observer_ = 0;
};

/// An update on sensitivities and velocities of the test's own: no solver is asked.
class UpdateTest : public KernelTest {
 protected:
  /// Layers of Vs 100, 120, ... and `points` observations on a global curve; factors of the prior below 1.
  void Start(int layers, int points, int modelParm = 1, double factor = 0.3) {
    SetPlainLayers(layers);
    SetGlobalCurve(points);
    InvParam.MODELPARM = modelParm;
    InvParam.ufVs = InvParam.ufH = factor;
    Prepare(2);
    computed = OffsetVector<double>(1, run.observations.runVel.size());
    amplitude = computed;
    for (int i = 1; i <= run.observations.nObsRows; ++i) computed[i] = run.observations.runVel[i];
  }

  /// Sensitivities between -1 and 1 with a strong diagonal, velocities some 5 % off the observed ones, and a
  /// model that has left its start.
  void Randomize(unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    for (int p = 1; p <= run.parameters.nModelParm; ++p) {
      for (int i = 1; i <= run.observations.ldObs; ++i)
        run.update.GMatrix(i, p) = u(random) + ((i - p) % run.parameters.nModelParm == 0 ? 1.5 : 0.0);
      run.parameters.rModel[p] *= 1.0 + 0.05 * u(random);
    }
    for (int i = 1; i <= run.observations.nObsRows; ++i) {
      computed[i] = run.observations.runVel[i] * (1.0 + 0.05 * u(random));
      amplitude[i] = run.observations.runAmp[i] + 0.1 * u(random);
    }
  }

  /// The same problem for the plain algebra, from the state before the update.
  plain::Problem Plain() const {
    plain::Problem p;
    p.scheme = run.switches.iInvScheme;
    std::vector<int> rows;
    for (int i = 1; i <= run.observations.nObsRows; ++i)
      if (run.observations.iNoVelocity[i] == 0 && run.observations.Cd.diag(i) > 0.0) rows.push_back(i);
    const std::size_t n = rows.size(), blocks = run.switches.iUseAmplitude == 1 ? 2 : 1;
    const std::size_t m = static_cast<std::size_t>(run.parameters.nModelParm);
    p.G = plain::Matrix(n * blocks, m);
    p.cd.assign(n * blocks, 0.0L);
    p.delta.assign(n * blocks, 0.0L);
    for (std::size_t b = 0; b < blocks; ++b) {
      for (std::size_t k = 0; k < n; ++k) {
        const int row = rows[k] + static_cast<int>(b) * run.observations.nObsRows;
        p.cd[b * n + k] = run.observations.Cd.diag(row);
        for (std::size_t j = 0; j < m; ++j)
          p.G(b * n + k, j) = run.update.GMatrix(row, static_cast<int>(j) + 1);
      }
    }
    std::size_t next = 0;  // by computed velocity, whatever the rows of G are
    for (int i = 1; i <= run.observations.nObsRows && next < n; ++i) {
      if (computed[i] == 0.0) continue;
      p.delta[next] = static_cast<plain::Real>(computed[i]) - run.observations.runVel[i];
      if (blocks == 2)
        p.delta[n + next] = static_cast<plain::Real>(amplitude[i]) - run.observations.runAmp[i];
      ++next;
    }
    plain::Vector variance(m);
    for (std::size_t j = 0; j < m; ++j) {
      const int i = static_cast<int>(j) + 1;
      p.model.push_back(run.parameters.rModel[i]);
      p.prior.push_back(run.parameters.rModelPrior[i]);
      const plain::Real u = run.parameters.UFModel[i], d = u < 1.0L ? u * run.parameters.rModel[i] : u;
      variance[j] = d * d;
    }
    p.Cm = plain::Diagonal(variance);
    return p;
  }

  /// Bounds by parameter, from the bounds by quantity.
  plain::Vector Bounds(bool upper) const {
    plain::Vector b;
    for (int p = 1; p <= run.parameters.nModelParm; ++p) {
      for (int l = 1; l <= run.ground.nLayersCur; ++l)
        for (const std::size_t q : {1u, 2u})
          if (run.parameters.MapEntry(static_cast<int>(q), l) == p)
            b.push_back((upper ? run.parameters.parmMax : run.parameters.parmMin)[q]);
    }
    return b;
  }

  static double Largest(const plain::Vector& v) {
    plain::Real most = 0.0L;
    for (plain::Real x : v) most = std::max(most, std::fabs(x));
    return static_cast<double>(most);
  }
  static void ExpectVector(const OffsetVector<double>& got, const plain::Vector& expected, double scale,
                           const char* what) {
    ASSERT_GE(got.size(), static_cast<int>(expected.size())) << what;
    for (std::size_t k = 0; k < expected.size(); ++k)
      EXPECT_NEAR(got[static_cast<int>(k) + 1], static_cast<double>(expected[k]), scale) << what << ' ' << k;
  }
  static void ExpectMatrix(const ColumnMatrix& got, const plain::Matrix& expected, const char* what) {
    ASSERT_EQ(got.rows(), static_cast<int>(expected.rows)) << what;
    ASSERT_EQ(got.cols(), static_cast<int>(expected.cols)) << what;
    const double scale = 1e-10 * Largest(expected.a);
    for (std::size_t i = 0; i < expected.rows; ++i)
      for (std::size_t j = 0; j < expected.cols; ++j)
        EXPECT_NEAR(got(static_cast<int>(i) + 1, static_cast<int>(j) + 1),
                    static_cast<double>(expected(i, j)), scale)
            << what << ' ' << i << ' ' << j;
  }

  OffsetVector<double> computed, amplitude;
};

}  // namespace sondera::testing
