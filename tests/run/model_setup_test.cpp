// Tests of layers and model parameters of a run: completion, starting layers, numbering, constraints.
#include <gtest/gtest.h>

#include <cmath>

#include "run/layer_table.h"
#include "run/observations.h"
#include "run/preliminary_profile.h"
#include "run/run_sizes.h"
#include "runtime/catalogue/inversion.h"
#include "support/named_runs.h"
#include "support/odd_numbers.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

class ObservationsModel : public RunTest {
 protected:
  /// Sizes the run for n plain layers and sets it to an inversion, layers read.
  void StartInversion(int n, int modelParm) {
    SetPlainLayers(n);
    InvParam.MODELPARM = modelParm;
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
    run.switches.iAnalysis = 3;
    run.switches.iInvScheme = 1;
    ASSERT_EQ(ShowRefusal(FS_ReadLayerProp()), 0);
  }

  std::vector<int> Row(int q) const {
    std::vector<int> row;
    for (int l = 1; l <= run.ground.nLayersCur; ++l) row.push_back(run.parameters.MapEntry(q, l));
    return row;
  }
};

using Row4 = std::vector<int>;

// --- FS_ReadLayerProp ---

TEST_F(ObservationsModel, RatioIsGivenWithoutVpOrWithAllThree) {
  SetLayers({{1, 0, 100, 2, 0.25, 0.02},    // no Vp
             {1, 500, 100, 2, 0.25, 0.02},  // all three: Vp follows the ratio
             {1, 200, 100, 2, 0.0, 0.02},   // both velocities
             {1, 200, 0, 2, 0.25, 0.02}});  // Vp without Vs: the other branch
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(ShowRefusal(FS_ReadLayerProp()), 0);
  EXPECT_EQ(run.ground.iPoissonGiven[1], 1);
  EXPECT_NEAR(run.ground.layerVp[1], 100.0 * std::sqrt(3.0), 1e-11);
  EXPECT_EQ(run.ground.iPoissonGiven[2], 1);
  EXPECT_NEAR(run.ground.layerVp[2], 100.0 * std::sqrt(3.0), 1e-11);
  EXPECT_EQ(run.ground.iPoissonGiven[3], 0);
  EXPECT_NEAR(run.ground.layerNu[3], 1.0 / 3.0, 1e-15);
  EXPECT_EQ(run.ground.iPoissonGiven[4], 0);
  EXPECT_TRUE(std::isnan(run.ground.layerNu[4]));
  EXPECT_EQ(run.ground.layerVp[4], 200.0);
}

TEST_F(ObservationsModel, DensityOfZeroIsDerivedFromVs) {
  SetLayers({{1, 0, 500, 0, 0.25, 0.02}, {1, 0, 500, 1.9, 0.25, 0.02}, {1, 0, 9000, 0, 0.25, 0.02}});
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(ShowRefusal(FS_ReadLayerProp()), 0);
  EXPECT_EQ(run.ground.iDensityDerived[1], 1);
  EXPECT_NEAR(run.ground.layerRho[1], 2.329245219926101, 1e-13);
  EXPECT_EQ(run.ground.iDensityDerived[2], 0);
  EXPECT_EQ(run.ground.layerRho[2], 1.9);
  EXPECT_EQ(run.ground.layerRho[3], 3.881987577639751);
}

TEST_F(ObservationsModel, LastThicknessIsKeptApart) {
  SetLayers({{1, 0, 100, 2, 0.3, 0.01}, {7.5, 0, 200, 2, 0.3, 0.05}});
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(ShowRefusal(FS_ReadLayerProp()), 0);
  EXPECT_EQ(run.ground.lastLayerH, 7.5);
  EXPECT_EQ(run.ground.layerH[2], 7.5);
  EXPECT_EQ(run.ground.layerDamp[2], 0.05);
}

TEST_F(ObservationsModel, LayersComeFromTheRecordOfTheRun) {
  SetPlainLayers(2);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  TheoDispInfo.Vs[0] = 77.0;
  ASSERT_EQ(ShowRefusal(FS_ReadLayerProp()), 0);
  EXPECT_EQ(run.ground.layerVs[1], 77.0);
}

TEST_F(ObservationsModel, LayersThatDoNotFitTheRunAreRefused) {
  SetPlainLayers(3);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  TheoDispInfo.nLayers = 2;
  EXPECT_EQ(ShowRefusal(FS_ReadLayerProp()), -1);
  EXPECT_EQ(OnlyMessage(), "The run has 3 layers, its model 2.");
  frontEnd.messages.clear();
  TheoDispInfo.nLayers = 3;
  TheoDispInfo.Vs[1] = kNaN;
  EXPECT_EQ(ShowRefusal(FS_ReadLayerProp()), -1);
  EXPECT_THAT(OnlyMessage(), ::testing::HasSubstr("S-wave velocity of layer 2"));
}

TEST_F(ObservationsModel, VsOfZeroGoesThroughAsItIs) {
  SetLayers({{1, 0, 100, 2, 0.3, 0.02}, {1, 0, 0, 2, 0.3, 0.02}});
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(ShowRefusal(FS_ReadLayerProp()), 0);
  EXPECT_EQ(run.ground.layerVp[2], 0.0);
}

TEST_F(ObservationsModel, PoissonHalfIsRefusedByTheLayersToo) {
  SetLayers({{1, 0, 100, 2, 0.3, 0.02}, {1, 0, 100, 2, 0.3, 0.02}});
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  TheoDispInfo.nu[0] = 0.5;
  EXPECT_EQ(ShowRefusal(FS_ReadLayerProp()), -1);
}

// --- FS_PrelimAnal and FS_PropLayer ---

TEST_F(ObservationsModel, GivenLayersGetTheirModuli) {
  SetPlainLayers(3);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  run.switches.iAnalysis = -3;
  ASSERT_EQ(FS_PrelimAnal(), 0);
  EXPECT_EQ(run.ground.layerG[2], 2.0 * 120.0 * 120.0);
  EXPECT_DOUBLE_EQ(run.ground.layerE[2], 2.0 * 2.0 * 120.0 * 120.0 * 1.3);
  EXPECT_EQ(run.ground.layerVs[2], 120.0);
}

TEST_F(ObservationsModel, UnphysicalVelocitiesAreReplacedAtTheStart) {
  SetLayers({{1, 110, 100, 2, 0, 0.02}, {1, 400, 100, 2, 0, 0.02}});
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  run.switches.iAnalysis = -3;
  ASSERT_EQ(FS_PrelimAnal(), 0);
  EXPECT_EQ(run.ground.layerNu[1], 0.497);
  EXPECT_DOUBLE_EQ(run.ground.layerVs[1], 110.0 * std::sqrt(0.005964214711729627));
  EXPECT_DOUBLE_EQ(run.ground.layerG[1],
                   2.0 * run.ground.layerVs[1] * run.ground.layerVs[1]);  // of the replaced Vs
  EXPECT_EQ(run.ground.layerVs[2], 100.0);
}

TEST_F(ObservationsModel, LayerOfAnAnalyticProfileTakesItsPropertiesFromTheDepth) {
  SetLayers({{2, 0, 100, 1.5, 0.2, 0.01}, {3, 0, 200, 0, 0.4, 0.03}, {5, 900, 300, 2.5, 0, 0.05}});
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(ShowRefusal(FS_ReadLayerProp()), 0);
  OffsetVector<double> Vs(1, 5), Vp(1, 5), G(1, 5), E(1, 5), rho(1, 5), nu(1, 5), damp(1, 5);
  const LayerColumns out{Vs.shifted(),  Vp.shifted(), G.shifted(),   E.shifted(),
                         rho.shifted(), nu.shifted(), damp.shifted()};
  run.switches.preliminaryProfileType = 2;
  FS_PropLayer(2.5, 1, 500.0, out);  // in given layer 2
  EXPECT_EQ(Vs[1], 500.0);
  EXPECT_NEAR(rho[1], 2.329245219926101, 1e-13);
  EXPECT_EQ(nu[1], 0.4);
  EXPECT_NEAR(Vp[1], 500.0 * std::sqrt(6.0), 1e-10);
  EXPECT_EQ(damp[1], 0.03);
  FS_PropLayer(99.0, 5, 300.0, out);  // the half-space, with Vp given
  EXPECT_EQ(Vp[5], 900.0);
  EXPECT_NEAR(nu[5], 0.4375, 1e-15);
  EXPECT_EQ(damp[5], 0.05);

  run.switches.preliminaryProfileType = 0;
  FS_PropLayer(2.5, 1, 500.0, out);  // by number: the depth does not matter
  EXPECT_EQ(damp[1], 0.01);
  FS_PropLayer(0.0, 5, 300.0, out);  // limited to the last layer
  EXPECT_EQ(damp[5], 0.05);
}

TEST_F(ObservationsModel, ForwardRunHasNoModelState) {
  SetPlainLayers(3);
  SetGlobalCurve(3);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_RetrieveSystemPM(kForwardRun, 0), 0);
  ASSERT_EQ(FS_GetStartMP(), 0);
  EXPECT_TRUE(run.parameters.Cm.empty());
  EXPECT_EQ(run.parameters.uncVs[1], 0.0);
}

// --- Numbering ---

TEST_F(ObservationsModel, VsAloneLeavesTheThicknessRowEmpty) {
  StartInversion(5, 1);
  SetCtrlVal(inversion::CONST_MP_VS, "2, 4");
  ASSERT_EQ(FS_ReadModelParmF(), 0);
  EXPECT_EQ(Row(kQuantityH), (Row4{0, 0, 0, 0, 0}));
  EXPECT_EQ(Row(kQuantityVs), (Row4{1, 0, 2, 0, 3}));
  EXPECT_EQ(run.parameters.nModelParm, 5 - 2);
}

TEST_F(ObservationsModel, HalfSpaceThicknessIsNeverAParameter) {
  StartInversion(4, 2);
  ASSERT_EQ(FS_ReadModelParmF(), 0);
  EXPECT_EQ(Row(kQuantityH), (Row4{1, 2, 3, 0}));
  EXPECT_EQ(Row(kQuantityVs), (Row4{0, 0, 0, 0}));
  EXPECT_EQ(run.parameters.nModelParm, 3);
}

TEST_F(ObservationsModel, BothAreNumberedLayerByLayerThicknessFirst) {
  StartInversion(3, 3);
  SetCtrlVal(inversion::CONST_MP_H, "1");
  ASSERT_EQ(FS_ReadModelParmF(), 0);
  EXPECT_EQ(Row(kQuantityH), (Row4{0, 2, 0}));
  EXPECT_EQ(Row(kQuantityVs), (Row4{1, 3, 4}));
  EXPECT_EQ(Row(kQuantityVp), (Row4{0, 0, 0}));
  EXPECT_EQ(Row(kQuantityDensity), (Row4{0, 0, 0}));
}

TEST_F(ObservationsModel, ListOfThreeFourAndFiveSplitsAtCommaAndBlank) {
  StartInversion(6, 1);
  SetCtrlVal(inversion::CONST_MP_VS, "3,4 5");
  ASSERT_EQ(FS_ReadModelParmF(), 0);
  EXPECT_EQ(Row(kQuantityVs), (Row4{1, 2, 0, 0, 0, 3}));
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(ObservationsModel, LayersThatDoNotExistAreReportedAndSkipped) {
  StartInversion(3, 3);
  SetCtrlVal(inversion::CONST_MP_VS, "0, 2, 4, x");
  SetCtrlVal(inversion::CONST_MP_H, "-1 3");
  ASSERT_EQ(FS_ReadModelParmF(), 0);
  EXPECT_EQ(frontEnd.messages,
            (std::vector<std::string>{"The layer with the constraint of Vs, 0, is not valid.",
                                      "The layer with the constraint of Vs, 4, is not valid.",
                                      "The layer with the constraint of Vs, 0, is not valid.",
                                      "The layer with the constraint of H, -1, is not valid."}));
  for (const std::string& title : frontEnd.messageTitles) EXPECT_EQ(title, "Sondera - Warning");
  EXPECT_EQ(Row(kQuantityVs), (Row4{2, 0, 4}));
  EXPECT_EQ(Row(kQuantityH), (Row4{1, 3, 0}));
}

TEST_F(ObservationsModel, ModelStartsFromTheLayersWithTheFactorsOfTheRecord) {
  StartInversion(3, 3);
  InvParam.ufH = 0.15;
  InvParam.ufVs = 25.0;
  InvParam.minH = 0.5;
  InvParam.maxVs = 800.0;
  ASSERT_EQ(FS_ReadModelParmF(), 0);
  const double value[] = {2.0, 100.0, 2.0, 120.0, 140.0}, factor[] = {0.15, 25.0, 0.15, 25.0, 25.0};
  ASSERT_EQ(run.parameters.rModel.hi(), 5);
  for (int p = 1; p <= 5; ++p) {
    EXPECT_EQ(run.parameters.rModel[p], value[p - 1]);
    EXPECT_EQ(run.parameters.rModelPrior[p], value[p - 1]);
    EXPECT_EQ(run.parameters.UFModel[p], factor[p - 1]);
  }
  EXPECT_EQ(run.parameters.parmMin[kQuantityH], 0.5);
  EXPECT_EQ(run.parameters.parmMax[kQuantityH], 50.0);
  EXPECT_EQ(run.parameters.parmMin[kQuantityVs], 10.0);
  EXPECT_EQ(run.parameters.parmMax[kQuantityVs], 800.0);
  for (int l = 1; l <= 3; ++l) {
    EXPECT_EQ(run.parameters.uncH[l], 0.15);
    EXPECT_EQ(run.parameters.uncVs[l], 25.0);
    EXPECT_EQ(run.parameters.uncVp[l], 0.0);
  }
  for (const double length : run.parameters.corrLength) EXPECT_EQ(length, 0.0);
  EXPECT_EQ(run.parameters.Cm.rows(), 5);
  EXPECT_EQ(run.update.InvH.cols(), 5);
}

TEST_F(ObservationsModel, NothingIsNumberedWithoutAPositiveAnalysis) {
  StartInversion(3, 1);
  run.switches.iAnalysis = -3;
  run.parameters.MapEntry(kQuantityVs, 2) = 9;
  ASSERT_EQ(FS_ReadModelParmF(), 0);
  EXPECT_EQ(run.parameters.MapEntry(kQuantityVs, 2), 9);
}

TEST_F(ObservationsModel, ModelWithNothingLeftToVaryIsRefused) {
  StartInversion(2, 1);
  SetCtrlVal(inversion::CONST_MP_VS, "1 2");
  EXPECT_EQ(FS_ReadModelParmF(), -1);
  EXPECT_THAT(OnlyMessage(), ::testing::HasSubstr("no model parameter"));
  frontEnd.messages.clear();
  SetCtrlVal(inversion::CONST_MP_VS, "");
  InvParam.MODELPARM = 7;
  EXPECT_EQ(FS_ReadModelParmF(), -1);
  EXPECT_EQ(frontEnd.messages.size(), 1u);
}

TEST_F(ObservationsModel, FactorsAndBoundsThatAreNoNumbersAreRefused) {
  for (double InvRecord::*value : {&InvRecord::ufH, &InvRecord::ufVs, &InvRecord::minH, &InvRecord::maxH,
                                   &InvRecord::minVs, &InvRecord::maxVs}) {
    InitializeInvAnal();
    StartInversion(2, 3);
    InvParam.*value = kNaN;
    frontEnd.messages.clear();
    EXPECT_EQ(FS_ReadModelParmF(), -1);
    EXPECT_THAT(OnlyMessage(), ::testing::HasSubstr("finite number"));
  }
}

// --- RetrieveLayerNoFromStr ---

TEST(RetrieveLayerNoFromStr, SplitsAtBlankCommaTabAndLineEnd) {
  int count = 0;
  EXPECT_EQ(RetrieveLayerNoFromStr(" 1,2\t3\n,4  5,", count), (Row4{1, 2, 3, 4, 5}));
  EXPECT_EQ(count, 5);
}

TEST(RetrieveLayerNoFromStr, TakesTheLeadingNumberOfEachToken) {
  int count = 0;
  EXPECT_EQ(RetrieveLayerNoFromStr("3-5 x7 +2 -4 1.9", count), (Row4{3, 0, 2, -4, 1}));
}

TEST(RetrieveLayerNoFromStr, EmptyTextHasNoNumbers) {
  int count = 7;
  EXPECT_TRUE(RetrieveLayerNoFromStr("", count).empty());
  EXPECT_EQ(count, 0);
  EXPECT_TRUE(RetrieveLayerNoFromStr(" , \t\n", count).empty());
  EXPECT_EQ(count, 0);
}

TEST(RetrieveLayerNoFromStr, KeepsAHundredNumbersAndTellsHowManyThereWere) {
  std::string text;
  for (int i = 1; i <= 130; ++i) text += std::to_string(i) + " ";
  int count = 0;
  const std::vector<int> numbers = RetrieveLayerNoFromStr(text, count);
  EXPECT_EQ(numbers.size(), 100u);
  EXPECT_EQ(numbers.back(), 100);
  EXPECT_EQ(count, 130);
}

TEST_F(ObservationsModel, ListsBeyondTheirLimitsAreToldAndCut) {
  StartInversion(200, 1);
  std::string text;
  for (int i = 1; i <= 130; ++i) text += std::to_string(i) + " ";
  SetCtrlVal(inversion::CONST_MP_VS, text);
  ASSERT_EQ(FS_ReadModelParmF(), 0);
  EXPECT_THAT(OnlyMessage(), ::testing::HasSubstr("130 numbers"));
  EXPECT_EQ(run.parameters.nModelParm, 100);
  frontEnd.messages.clear();
  SetCtrlVal(inversion::CONST_MP_VS, "1 " + std::string(1100, ' ') + "2");
  ASSERT_EQ(FS_ReadModelParmF(), 0);
  EXPECT_THAT(OnlyMessage(), ::testing::HasSubstr("longer than 1024"));
  EXPECT_EQ(run.parameters.nModelParm, 199);
}

// --- FS_ModelNoToLayerNo ---

TEST_F(ObservationsModel, ParameterNumberLeadsBackToLayerAndQuantity) {
  StartInversion(4, 3);
  SetCtrlVal(inversion::CONST_MP_H, "2");
  ASSERT_EQ(FS_ReadModelParmF(), 0);
  int found = 0;
  for (int q = 1; q <= 4; ++q) {
    for (int l = 1; l <= 4; ++l) {
      const int p = run.parameters.MapEntry(q, l);
      if (p == 0) continue;
      int layer = 0, quantity = 0;
      FS_ModelNoToLayerNo(p, layer, quantity);
      EXPECT_EQ(layer, l);
      EXPECT_EQ(quantity, q);
      ++found;
    }
  }
  EXPECT_EQ(found, run.parameters.nModelParm);
}

TEST_F(ObservationsModel, NumberThatDoesNotExistGivesTheFirstLayerAndQuantity) {
  StartInversion(4, 1);
  ASSERT_EQ(FS_ReadModelParmF(), 0);
  for (const int number : {0, 5, 99, -1}) {
    int layer = 8, quantity = 8;
    FS_ModelNoToLayerNo(number, layer, quantity);
    EXPECT_EQ(layer, 1);
    EXPECT_EQ(quantity, 1);
  }
}

}  // namespace
}  // namespace sondera::testing
