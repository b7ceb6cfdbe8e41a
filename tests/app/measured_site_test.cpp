// The complete workflow on the simulated site: boards, blows, masks, curves, inversion; found compared with
// true.
#include <cmath>

#include "acquisition/daq_driver.h"
#include "forward/synthetic_site.h"
#include "records/inv_records.h"
#include "records/measdb.h"
#include "script_fixture.h"

namespace sondera {
namespace {

class MeasuredSite : public testing::ScriptTest {};

TEST_F(MeasuredSite, FromTheBlowsToTheProfileOfTheGround) {
  ASSERT_EQ(Run("board sim:seed=1,pace=0,noise=0.002,hum=0.001\n"
                "project unit=m site=geotechnical id=site\n"
                "setup freqspan=256 freqlines=1024 nchannels5=0 triggerlevel=100 naverage=20 source=0 "
                "at=10,15,25,45\n"
                "configure\n"
                "measure\n"
                "pair measID 1 2\nphase original\nmask 0 6\nmask 90 500\ndisperse\n"
                "pair measID 2 3\nphase original\nmask 0 5\nmask 70 500\ndisperse\n"
                "pair measID 3 4\nphase original\nmask 0 4\nmask 45 500\ndisperse\n"
                "condense points=40\n"
                "layers 2,4,8,100\n"
                "load global\n"
                "set FMODELING.ANALYSISTYPE 2\n"
                "start analytic ratios=0.35,0.65,10\n"
                "invert iterations=6\n"),
            3)
      << err;  // the smoothed global curve contains little about each layer, and the program says so
  const SiteSimulator site{SyntheticSite()};
  int compared = 0;
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    const auto& at = MeasDB.measSetupList.at(1)->recLoc;
    const double spacing =
        at[static_cast<std::size_t>(pair.dspChan)] - at[static_cast<std::size_t>(pair.refChan)];
    for (int i = 0; i < pair.nDispPoints; ++i) {
      const auto k = static_cast<std::size_t>(i);
      if (pair.dispWlen[k] < 0.3 * spacing || pair.dispWlen[k] > 3.0 * spacing) continue;
      EXPECT_NEAR(pair.dispVel[k] / site.PhaseVelocity(pair.dispFreq[k]), 1.0, 0.03)
          << pair.refChan << ':' << pair.dspChan << " at " << pair.dispFreq[k] << " Hz";
      ++compared;
    }
  }
  EXPECT_GT(compared, 400);
  const double truth[] = {150.0, 220.0, 300.0, 400.0};
  for (int layer = 0; layer < 4; ++layer)
    EXPECT_NEAR(InvParam.Vs(6, layer) / truth[layer], 1.0, 0.03) << layer;
}

}  // namespace
}  // namespace sondera
