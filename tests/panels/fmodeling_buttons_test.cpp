// Tests of the buttons and controls of the forward-model panel.
#include <gtest/gtest.h>

#include <limits>

#include "panels/fmodeling.h"
#include "panels/fmodeling_fixture.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/mainmenu.h"

namespace sondera {
namespace {

using namespace fmodeling;
using testing::ModelParameters;
using testing::PutLayer;

constexpr const char* kDensity = "Invalid value of mass density !";

class ModelPanel : public ModelParameters {};

TEST_F(ModelPanel, OpensWithTheRecordsValuesFromMenuAndResultsPage) {
  FModelParam.nLayers = 4;
  EXPECT_EQ(Commit(exdthd::FMODELPARAM), 0);
  EXPECT_TRUE(IsPanelShown(Panel::FMODELING));
  EXPECT_EQ(GetNumTableRows(SOILPROFILE), 4);
  EXPECT_EQ(Commit(CLOSE), 0);
  EXPECT_FALSE(IsPanelShown(Panel::FMODELING));
  EXPECT_EQ(Commit(mainmenu::FMODEL_PARAM), 0);
  EXPECT_TRUE(IsPanelShown(Panel::FMODELING));
}

TEST_F(ModelPanel, TablesFollowTheirNumbers) {
  SetCtrlVal(NLAYERS, 400);
  EXPECT_EQ(Commit(NLAYERS), 0);
  EXPECT_EQ(GetNumTableRows(SOILPROFILE), 400);
  EXPECT_EQ(GetTableRowLabel(SOILPROFILE, 400), "L400");
  SetCtrlVal(NRECEIVERS, 3);
  EXPECT_EQ(Commit(NRECEIVERS), 0);
  EXPECT_EQ(GetNumTableRows(RECEIVERLOC), 3);
}

TEST_F(ModelPanel, NumbersThatCannotBeArePutBackWithAMessage) {
  for (const IntControl* c : {&NLAYERS, &NRECEIVERS, &NDISPCURVES})
    for (int n : {-3, 100000000}) {
      const int before = GetCtrlVal(*c);
      frontEnd.messages.clear();
      SetCtrlVal(*c, n);
      EXPECT_EQ(Commit(*c), -1);
      EXPECT_NE(OnlyMessage().find(std::to_string(n)), std::string::npos);
      EXPECT_EQ(GetCtrlVal(*c), before);
    }
}

TEST_F(ModelPanel, RowsOfPairsComeFromTheRecordWhoseTableDoubles) {
  FModelParam.pairMin[1] = 2.5;
  SetCtrlVal(NDISPCURVES, 25);
  EXPECT_EQ(Commit(NDISPCURVES), 0);
  EXPECT_EQ(GetNumTableRows(DISPCURVINFO), 25);
  EXPECT_EQ(FModelParam.capPairs, 40);
  EXPECT_EQ(FModelParam.pairMax.size(), 40u);
  EXPECT_EQ(GetTableCellVal(DISPCURVINFO, 2, 3), 2.5);
  EXPECT_EQ(GetTableCellVal(DISPCURVINFO, 25, 1), 25.0);
  EXPECT_EQ(GetTableCellVal(DISPCURVINFO, 25, 2), 26.0);
  EXPECT_EQ(FModelParam.nDispCurves, 7);
}

TEST_F(ModelPanel, KindOfCurvesGoesToTheRecordAndItsValuesToThePanel) {
  FModelParam.nDispPointsG = 21;
  SetCtrlVal(GLOBAL_ARRAY, 1);
  EXPECT_EQ(Commit(GLOBAL_ARRAY), 0);
  EXPECT_EQ(FModelParam.dispCurvType, 1);
  EXPECT_EQ(GetCtrlVal(NDISPPOINTS), 21);
  EXPECT_TRUE(IsVisible(GLOBAL_REC_TYPE));
}

TEST_F(ModelPanel, UpdateTakesThePanelAndSetsTheUncertaintyByTheKindOfCurves) {
  PutLayers(3);
  EXPECT_EQ(Commit(UPDATE), 0);
  EXPECT_EQ(FModelParam.nLayers, 3);
  EXPECT_EQ(GetCtrlVal(inversion::UF_VS), 0.05);
  EXPECT_EQ(GetCtrlVal(inversion::UF_H), 0.2);
  SetCtrlVal(GLOBAL_ARRAY, 1);
  EXPECT_EQ(Commit(UPDATE), 0);
  EXPECT_EQ(GetCtrlVal(inversion::UF_VS), 0.005);
  EXPECT_EQ(GetCtrlVal(inversion::UF_H), 0.04);
}

TEST_F(ModelPanel, UpdateOfARefusedPanelLeavesTheUncertainty) {
  PutLayers(3);
  SetTableCellVal(SOILPROFILE, 1, 4, 0.0);
  SetCtrlVal(inversion::UF_VS, 0.77);
  EXPECT_EQ(Commit(UPDATE), -1);
  EXPECT_EQ(OnlyMessage(), kDensity);
  EXPECT_EQ(GetCtrlVal(inversion::UF_VS), 0.77);
}

TEST_F(ModelPanel, ReceiversOfAGlobalCurveGoToTheRecordAtOnce) {
  SetCtrlVal(R1_LOC, 5.0);
  SetCtrlVal(R2_LOC, 6.0);
  Commit(GLOBAL_REC_TYPE);
  EXPECT_EQ(FModelParam.GlobalRec1Loc, 1.0);
  SetCtrlVal(GLOBAL_REC_TYPE, 4);
  Commit(GLOBAL_REC_TYPE);
  EXPECT_EQ(FModelParam.GlobalRecType, 4);
  EXPECT_EQ(FModelParam.GlobalRec1Loc, 5.0);
  EXPECT_EQ(FModelParam.GlobalRec2Loc, 6.0);
}

TEST_F(ModelPanel, LabelsOfTheRangeFollowTheDomain) {
  SetCtrlVal(XDOMAIN_TYPE, 2);
  SetCtrlVal(XMIN, 2.0);
  Commit(XDOMAIN_TYPE);
  EXPECT_EQ(FModelParam.xDomainType, 2);
  EXPECT_EQ(FModelParam.xMinGlobal, 2.0);
  EXPECT_EQ(GetCtrlLabel(XMIN), "Min. Freq. : ");
  EXPECT_EQ(GetCtrlLabel(XMAX), "Max. Freq. : ");
  SetCtrlVal(XDOMAIN_TYPE, 1);
  Commit(XDOMAIN_TYPE);
  EXPECT_EQ(GetCtrlLabel(XMIN), "Min. WaveL : ");
  EXPECT_EQ(GetCtrlLabel(XMAX), "Max. WaveL : ");
}

TEST_F(ModelPanel, EachApplyAllFillsItsColumn) {
  const ButtonControl* buttons[] = {&UPDATE_PROFILE1, &UPDATE_PROFILE2, &UPDATE_PROFILE3,
                                    &UPDATE_PROFILE4, &UPDATE_PROFILE5, &UPDATE_PROFILE6};
  AdjustTableSize(SOILPROFILE, 3, "L");
  for (int k = 0; k < 6; ++k) {
    SetTableCellVal(SOILPROFILE_DFLT, 1, k + 1, 10.0 + k);
    EXPECT_EQ(Commit(*buttons[k]), 0);
    for (int row = 1; row <= 3; ++row) {
      EXPECT_EQ(GetTableCellVal(SOILPROFILE, row, k + 1), 10.0 + k);
      if (k < 5) {
        EXPECT_EQ(GetTableCellVal(SOILPROFILE, row, k + 2), 0.0);
      }
    }
  }
}

TEST_F(ModelPanel, LayersAreInsertedBeforeARowAndDeleted) {
  PutLayers(3);
  SetCtrlVal(NLAYERS, 3);
  SetCtrlVal(EDITLAYERNO, 2);
  EXPECT_EQ(Commit(INSERTLAYER), 0);
  EXPECT_EQ(GetCtrlVal(NLAYERS), 4);
  EXPECT_EQ(GetTableCellVal(SOILPROFILE, 2, 1), 0.0);
  EXPECT_EQ(GetTableCellVal(SOILPROFILE, 3, 1), 2.5);
  EXPECT_EQ(GetTableRowLabel(SOILPROFILE, 4), "L4");
  EXPECT_EQ(Commit(DELETEROW), 0);
  EXPECT_EQ(GetCtrlVal(NLAYERS), 3);
  EXPECT_EQ(GetTableCellVal(SOILPROFILE, 2, 1), 2.5);
  EXPECT_EQ(Commit(CLEARROW), 0);
  for (int k = 1; k <= 6; ++k) EXPECT_EQ(GetTableCellVal(SOILPROFILE, 3, k), 0.0);
}

TEST_F(ModelPanel, ALayerThatIsNotThereIsNeitherDeletedNorMoved) {
  PutLayers(3);
  for (int row : {0, -1, 5, std::numeric_limits<int>::max()}) {
    SetCtrlVal(EDITLAYERNO, row);
    frontEnd.messages.clear();
    EXPECT_EQ(Commit(DELETEROW), -1);
    EXPECT_EQ(OnlyMessage(), "There is no layer " + std::to_string(row) + ".");
    EXPECT_EQ(Commit(INSERTLAYER), -1);
    EXPECT_EQ(GetNumTableRows(SOILPROFILE), 3);
  }
}

TEST_F(ModelPanel, LayeringNeedsADepthOrTheTable) {
  SetCtrlVal(MAXDEPTH, 0.0);
  SetCtrlVal(AUTOLAYERTYPE, 0);
  EXPECT_EQ(Commit(SETUPLAYERING), -1);
  EXPECT_EQ(OnlyMessage(), "Please fill in the required max. depth.");
}

long pressedWith = 0;
int RememberPress(Panel, ControlId, Event, long data) {
  pressedWith = data;
  return 0;
}

TEST_F(ModelPanel, LayeringAsksForLayersToTheDepthOfThePanel) {
  const Callback former = CallbackOf(inversion::AUTOSETUPSMP);
  InstallCallback(inversion::AUTOSETUPSMP, RememberPress);
  for (bool byDepth : {true, false}) {
    SetCtrlVal(MAXDEPTH, byDepth ? 10.0 : 0.0);
    SetCtrlVal(AUTOLAYERTYPE, byDepth ? 0 : 1);
    pressedWith = 0;
    EXPECT_EQ(Commit(SETUPLAYERING), 0);
    EXPECT_EQ(pressedWith, kDepthOfPanel);
  }
  InstallCallback(inversion::AUTOSETUPSMP, former);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(ModelPanel, ButtonsActOnAPressOnly) {
  for (const Control* c : ControlsOf(Panel::FMODELING)) {
    const Callback callback = CallbackOf(*c);
    if (callback) {
      EXPECT_EQ(SendEvent(*c, Event::GotFocus), 0);
    }
  }
  EXPECT_TRUE(frontEnd.messages.empty());
  EXPECT_TRUE(frontEnd.files.empty());
}

}  // namespace
}  // namespace sondera
