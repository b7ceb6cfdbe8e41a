// The survey of the examples: the effect of noise in the low band on the count of cycles, and its correction
// by one mask for each pair. The velocities are compared with those of the ground.
#include <algorithm>
#include <cmath>

#include "panels/sasw_dispersion.h"
#include "panels/sasw_masking.h"
#include "runtime/catalogue/sasw.h"
#include "support/import_fixture.h"
#include "support/site_records.h"

namespace sondera::testing {
namespace {

struct SurveyPair {
  int refChan, dspChan;  // counted from 1, as on the page
  double maskTo;         // Hz, from 0
  int jumpNo;
  bool rightWithoutIt;
  double bandTo;  // Hz
};

class ExampleSurvey : public ImportTest {
 protected:
  void SetUp() override {
    ImportTest::SetUp();
    test::WriteSiteRecords(folder.Path());
    ImportEntries entries{.kind = ImportKind::TimeHistory, .receivers = 6, .locations = {0.0}};
    for (int i = 1; i <= 6; ++i) entries.files.push_back(folder.File("rec" + std::to_string(i) + ".tim"));
    for (double x : ExampleRecording().receivers) entries.locations.push_back(x);
    ASSERT_EQ(Import(entries), 0);
    ASSERT_TRUE(frontEnd.messages.empty()) << frontEnd.messages.front();
    SetCtrlVal(sasw::DISPCURV_OPTION, 0);
  }

  /// Ratios of the pair's velocities to those of the ground, over its band; sorted.
  std::vector<double> Ratios(const SurveyPair& p) {
    EXPECT_EQ(MaskingCalcDispCallback(Panel::SASW, &sasw::MASKINGCALCDISP, Event::Commit, 0), 0);
    const PMeasInfo* pair = FindPair(GetKeyFromID("ProjID", "new"), p.refChan - 1, p.dspChan - 1);
    std::vector<double> ratios;
    for (std::size_t i = 0; pair && i < static_cast<std::size_t>(pair->nDispPoints); ++i)
      if (pair->dispFreq[i] > p.maskTo && pair->dispFreq[i] < p.bandTo)
        ratios.push_back(pair->dispVel[i] / ground.PhaseVelocity(pair->dispFreq[i]));
    std::sort(ratios.begin(), ratios.end());
    return ratios;
  }

  const SiteSimulator ground{ExampleSite()};
};

TEST_F(ExampleSurvey, MasksPutTheCountOfCyclesRight) {
  const SurveyPair pairs[] = {{1, 2, 14.0, 0, true, 48.0},
                              {1, 3, 7.0, 0, false, 48.0},
                              {2, 4, 7.0, 0, true, 40.0},
                              {3, 5, 7.0, 1, false, 40.0},
                              {4, 6, 7.0, 1, false, 40.0}};
  for (const SurveyPair& p : pairs) {
    SCOPED_TRACE(::testing::Message() << "pair " << p.refChan << "-" << p.dspChan);
    SetCtrlIndex(sasw::DISPAID, FindListItem(sasw::DISPAID, "new"));
    SetCtrlIndex(sasw::DISPA_REFCHNL, p.refChan - 1);
    SetCtrlIndex(sasw::DISPACHNL, p.dspChan - 1);
    const std::vector<double> without = Ratios(p);
    ASSERT_GT(without.size(), 20u);
    const double middle = without[without.size() / 2];
    EXPECT_EQ(std::fabs(middle - 1.0) < 0.02, p.rightWithoutIt) << middle;

    SetCtrlVal(sasw::MASKING_FREQINIT, 0.0);
    SetCtrlVal(sasw::MASKING_FREQFINAL, p.maskTo);
    SetCtrlVal(sasw::MASKING_JUMPNO, p.jumpNo);
    ASSERT_EQ(MaskingNewCallback(Panel::SASW, &sasw::MASKINGNEW, Event::Commit, 0), 0);
    const std::vector<double> with = Ratios(p);
    ASSERT_GT(with.size(), 60u);
    EXPECT_NEAR(with[with.size() / 2], 1.0, 0.005);
    EXPECT_GT(with[with.size() / 10], 0.95);
    EXPECT_LT(with[with.size() * 9 / 10], 1.05);
  }
}

}  // namespace
}  // namespace sondera::testing
