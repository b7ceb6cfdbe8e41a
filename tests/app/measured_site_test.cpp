// The complete workflow on the simulated site by the script of the example: boards, blows, masks, curves, inversion;
// found compared with true.
#include <cmath>

#include "acquisition/daq_driver.h"
#include "forward/synthetic_site.h"
#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/text_format.h"
#include "script_fixture.h"

namespace sondera {
namespace {

const std::string kJob = std::filesystem::absolute(SONDERA_SOURCE_DIR "/examples/measuring/job.txt").string();

class MeasuredSite : public testing::ScriptTest {
 protected:
  /// The example's lines after the header, with another seed or without some of their text.
  static std::string Example(const std::string& text, const std::string& instead) {
    std::string lines = test::ReadWhole(kJob);
    lines.erase(0, lines.find('\n') + 1);
    const std::size_t at = lines.find(text);
    EXPECT_NE(at, std::string::npos) << text;
    return lines.replace(at, text.size(), instead);
  }
  static double Spacing(const PMeasInfo& pair) {
    const auto& at = MeasDB.measSetupList.at(1)->recLoc;
    return at[static_cast<std::size_t>(pair.dspChan)] - at[static_cast<std::size_t>(pair.refChan)];
  }
  void Measure(const std::string& lines) {
    InstallDaqDriver(&daqNone);
    StartSession();
    ASSERT_EQ(Run(lines), 0) << err << report;
    EXPECT_EQ(report.find("doubt"), std::string::npos) << report;
  }
  /// Within 3 %, and within a band that is narrow enough to be useful.
  static void ExpectTheProfileOfTheGround() {
    constexpr int kLast = 6;
    const double truth[] = {150.0, 220.0, 300.0, 400.0};
    for (int layer = 0; layer < 4; ++layer) {
      SCOPED_TRACE(layer);
      const double found = InvParam.Vs(kLast, layer);
      EXPECT_NEAR(found / truth[layer], 1.0, 0.03);
      EXPECT_NEAR(found, truth[layer], HalfBand(kLast, layer));
      EXPECT_LT(HalfBand(kLast, layer), 0.07 * found);
      EXPECT_GT(InvParam.resolution(kLast, layer), 0.5);
    }
  }
  /// Half of the 95 % band of a layer.
  static double HalfBand(int entry, int layer) {
    return 2.0 * InvParam.ufVs * InvParam.Vs(entry - 1, layer) *
           std::sqrt(1.0 - InvParam.resolution(entry, layer));
  }
};

TEST_F(MeasuredSite, FromTheBlowsToTheProfileOfTheGround) {
  const SiteSimulator site{SyntheticSite()};
  for (int seed = 1; seed <= 4; ++seed) {
    SCOPED_TRACE(seed);
    Measure(Example("seed=1", FormatText("seed=%d", seed)));
    int compared = 0;
    for (const PMeasInfo& pair : MeasDB.pMeasList) {
      for (int i = 0; i < pair.nDispPoints; ++i) {
        const auto k = static_cast<std::size_t>(i);
        if (pair.dispWlen[k] < 0.3 * Spacing(pair) || pair.dispWlen[k] > 3.0 * Spacing(pair)) continue;
        EXPECT_NEAR(pair.dispVel[k] / site.PhaseVelocity(pair.dispFreq[k]), 1.0, 0.03)
            << pair.refChan << ':' << pair.dspChan << " at " << pair.dispFreq[k] << " Hz";
        ++compared;
      }
    }
    EXPECT_GT(compared, 400);
    ExpectTheProfileOfTheGround();
  }
}

/// Single lines scatter by more than 3 % there, and one of them has the hum; the profile comes from many.
TEST_F(MeasuredSite, ASiteWithTheUsualNoiseGivesTheSameProfile) {
  for (int seed = 1; seed <= 4; ++seed) {
    SCOPED_TRACE(seed);
    Measure(Example("seed=1,pace=0,noise=0.002,hum=0.001", FormatText("seed=%d,pace=0", seed)));
    ExpectTheProfileOfTheGround();
  }
}

/// Effect of the factor of a global curve on the band, and the program's note about it.
TEST_F(MeasuredSite, AFactorThatHoldsTheModelBackIsNamedWithTheResolution) {
  EXPECT_EQ(Run(Example(" uf_vs=0.05", "")), 3) << err;
  EXPECT_NE(report.find("doubt: the resolution is below 0.3 in layer 1, 2, 3, 4"), std::string::npos)
      << report;
  EXPECT_NE(report.find("the uncertainty factor of Vs, 0.005, holds the model back: invert again with 0.05"),
            std::string::npos)
      << report;
}

}  // namespace
}  // namespace sondera
