// The one-pair example on the record of a known ground: found against true.
#include <gtest/gtest.h>

#include "app/profile_fixture.h"
#include "forward/site_files.h"
#include "records/measdb.h"

namespace sondera {
namespace {

using testing::ProfileTest;

const std::string kJob = std::filesystem::absolute(SONDERA_SOURCE_DIR "/examples/one_pair/job.txt").string();

TEST_F(ProfileTest, OnePairGivesTheProfileOfTheKnownGround) {
  const SiteSpectra pair = ExamplePair(SiteSimulator(ExampleSite()));
  Write("pair.hyx", SpectrumFileText(pair.deltaF, pair.Transfer(1), kExamplePairLines));
  EXPECT_EQ(RunScript(test::ReadWhole(kJob)), 0);
  EXPECT_EQ(frontEnd.messages, std::vector<std::string>{});
  ASSERT_EQ(GetKeyFromID("ProjID", "pair"), 2);
  double top = 0.0;
  for (const SiteLayer& layer : StandardGround()) {
    const double bottom = layer.thickness > 0.0 ? top + layer.thickness : top + 1.0;
    EXPECT_NEAR(MeanVs(5, top, bottom) / layer.Vs, 1.0, 0.08) << "from " << top << " m";
    top = bottom;
  }
  for (int k = 1; k <= 5; ++k) EXPECT_LE(InvParam.rms[k], InvParam.rms[k - 1]) << k;
}

}  // namespace
}  // namespace sondera
