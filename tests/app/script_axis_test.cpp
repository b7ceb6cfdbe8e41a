// The words axis and start empirical: the results in the dialogs' fields and of a forward run.
#include "app/script_fixture.h"
#include "inversion/starting_model.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/graphs.h"
#include "support/site_records.h"

namespace sondera {
namespace {

const std::string kCurve =
    "read hyx id=ID files=H31.hyx source=0 at=14,30\npair ID 1 2\nphase original\nmask 0 7\nmask 48 "
    "500\ndisperse\n"
    "condense points=12\n";

class ScriptAxis : public testing::ScriptTest {
 protected:
  void SetUp() override {
    ScriptTest::SetUp();
    test::WriteSitePair(folder.File("H31.hyx"), 14.0, 30.0);
  }
};

TEST_F(ScriptAxis, LimitsOfATraceAreTakenAndGivenBack) {
  ASSERT_EQ(Run(kCurve + "axis SASW.DISPLAY_A x=5,45\n"), 0) << err;
  const GraphLimits limits = LimitsInForce(GraphOf(sasw::DISPLAY_A));
  EXPECT_EQ(limits.x.min, 5.0);
  EXPECT_EQ(limits.x.max, 45.0);
  ASSERT_EQ(Run("axis SASW.DISPLAY_A x=auto\n"), 0) << err;
  EXPECT_NE(LimitsInForce(GraphOf(sasw::DISPLAY_A)).x.max, 45.0);
}

TEST_F(ScriptAxis, CurvesTakeQuantityScaleAndLimits) {
  ASSERT_EQ(Run(kCurve + "axis DISPCURV.DISPGRAPH xtype=frequency xscale=linear x=0,60 y=100,400\n"), 0)
      << err;
  const GraphModel& graph = GraphOf(dispcurv::DISPGRAPH);
  EXPECT_FALSE(graph.xAxis.logarithmic);
  EXPECT_EQ(graph.xAxis.label, "Frequency");
  EXPECT_EQ(LimitsInForce(graph).x.max, 60.0);
  EXPECT_EQ(LimitsInForce(graph).y.min, 100.0);
}

TEST_F(ScriptAxis, WhatHasNoSuchAxisIsRefused) {
  EXPECT_EQ(
      Check("axis SASW.DISPLAY_A xscale=log\naxis EXDTHD.PROFILE x=1,2\naxis DISPCURV.DISPGRAPH x=2,1\n"), 1);
  EXPECT_EQ(err,
            "job:2: axis: xscale= is for graphs of curves\njob:3: axis: EXDTHD.PROFILE has no axis dialog\n"
            "job:4: axis: x= is auto, or a lower and an upper limit\n");
}

TEST_F(ScriptAxis, TheEmpiricalProfileIsTheMeanVelocityOverDepth) {
  ASSERT_EQ(Run(kCurve + "layers 2,80\nload global\nproject id=site\nstart empirical\n") % 3, 0) << err;
  // By hand: points with a third of the wavelength above and below 2 m.
  double sum[2] = {0.0, 0.0};
  int count[2] = {0, 0};
  for (int i = 0; i < static_cast<int>(FModelParam.globalWlen.size()); ++i) {
    const double depth = FModelParam.globalWlen[static_cast<std::size_t>(i)] / 3.0;
    if (depth <= 0.0) continue;
    const int layer = depth <= 2.0 ? 0 : 1;
    sum[layer] += FModelParam.globalVel[static_cast<std::size_t>(i)];
    ++count[layer];
  }
  for (int layer = 0; layer < 2; ++layer) {
    ASSERT_GT(count[layer], 0);
    EXPECT_NEAR(GetTableCellVal(fmodeling::SOILPROFILE, layer + 1, 3), 1.1 * sum[layer] / count[layer],
                0.01 * sum[layer] / count[layer]);
  }
}

}  // namespace
}  // namespace sondera
