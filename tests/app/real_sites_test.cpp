// From real records to profiles: two sites, unattended and with masks, compared with published results.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <vector>

#include "app/commands.h"
#include "app/profile_fixture.h"
#include "panels/one_click.h"
#include "project/project_file.h"
#include "records/inv_records.h"
#include "records/session.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/text_format.h"
#include "support/field_data.h"

namespace sondera {
namespace {

/// A pair (receivers from 1) and its masks: from 0 Hz to the beginning of the band, with the number of cycles
/// there, and from its end on.
struct MaskedPair {
  int reference, display;
  double bandBegin;
  int jumps;
  double bandEnd;
};

class RealSite : public testing::ProfileTest {
 protected:
  void SetUp() override {
    ProfileTest::SetUp();
    SKIP_WITHOUT_FIELD_DATA("wghs_src-10m");
  }
  /// The first lines of a transfer function of the data, as "<name>.hyx".
  void FetchLines(const std::string& from, const std::string& name, int lines) {
    std::ifstream in(test::FieldFile(from));
    std::ofstream out(folder.File(name + ".hyx"));
    std::string line;
    for (int i = 0; i < lines && std::getline(in, line); ++i) out << line << "\n";
  }
  void ImportSix(const std::string& site, double source, const std::vector<double>& locations) {
    using namespace loadtxdata;
    Commit(mainmenu::LOAD_TWO_CHNL_DATA);
    SetCtrlVal(DATATYPE, 0);
    SetCtrlVal(NCHANS, 6);
    Commit(NCHANS);
    SetCtrlVal(MEASID, "six");
    const TextControl* const files[] = {&FNAMESRC, &FNAMECH1, &FNAMECH2, &FNAMECH3, &FNAMECH4, &FNAMECH5};
    const NumericControl* const places[] = {&LOC_REC1, &LOC_REC2, &LOC_REC3, &LOC_REC4, &LOC_REC5, &LOC_REC6};
    SetCtrlVal(LOC_SRC, source);
    for (std::size_t i = 0; i < 6; ++i) {
      SetCtrlVal(*files[i], test::FieldFile(site + FormatText("/rec%zu.tim", i + 1)));
      SetCtrlVal(*places[i], locations[i]);
    }
    ASSERT_EQ(Commit(LOAD), 0);
    Commit(CANCEL);
    SetCtrlIndex(hmsetup::MEASIDLISTBOX, FindListItem(hmsetup::MEASIDLISTBOX, "six"));
    Commit(hmsetup::MEASIDLISTBOX);
  }
  void ComputeCurve(const MaskedPair& pair) {
    using namespace sasw;
    SetCtrlVal(DISPA_REFCHNL, pair.reference - 1);
    SetCtrlVal(DISPACHNL, pair.display - 1);
    Commit(DISPACHNL);
    SetCtrlIndex(TRACE_ONOFF, 0);
    SetCtrlVal(DISPCURV_OPTION, 0);
    AddMask(0.0, pair.bandBegin, pair.jumps);
    AddMask(pair.bandEnd, 500.0, 0);
    ASSERT_EQ(Commit(MASKINGCALCDISP), 0);
  }
  void AddMask(double from, double to, int jumps) {
    using namespace sasw;
    SetCtrlVal(MASKING_FREQINIT, from);
    SetCtrlVal(MASKING_FREQFINAL, to);
    SetCtrlVal(MASKING_JUMPNO, jumps);
    ASSERT_EQ(Commit(MASKINGNEW), 0);
  }
  /// Representative curves, starting profiles and inversion, with fewer points, ratios and iterations than
  /// usual.
  void InvertShort(const std::vector<double>& layers) {
    session.projectFileName = "site.da";
    SMPParam.nEntries = 3;
    InvParam.nEntries = 3;
    SetCtrlVal(inversion::ALPHA_POINT, 3);
    const Press press = [](const Control& control, long data) { EXPECT_EQ(Commit(control, data), 0); };
    SetCtrlVal(cdisppnl::GLOBAL_NPOINTS, 20);
    RunCalcVel(press);
    RunPreInversion(layers, press);
    RunInversionAndSave(press);
    EXPECT_EQ(frontEnd.messages, std::vector<std::string>{});
    for (const char* name : {"site.da", "site_f.results", "ProjID.fmp"}) EXPECT_TRUE(Exists(name)) << name;
  }
};

// A fit of plane waves to the published curve of Oysand has 110, 133, 172, 186 and 176 m/s down to 0.8, 1.8,
// 3.8, 6.8 and 10.8 m: 117 m/s on average over the first 1.8 m, 178 m/s from there to 10.8 m.

TEST_F(RealSite, OysandUnattendedGivesTheProfileOfThePublishedCurve) {
  FetchLines("oysand_src20m/H21.Hyx", "H21", 129);
  EXPECT_EQ(RunScript("import H21 H21 20 40\nmasking H21 0 400 180 90 40\ncalcVel\n"
                      "preInversion 1 0 2 0.5 7 1 1 2 2 3 4 100\ninversion\nexport out H21 1 2 3\n"),
            0);
  EXPECT_EQ(frontEnd.messages, std::vector<std::string>{});
  EXPECT_NEAR(MeanVs(5, 0.0, 1.8), 118.0, 10.0);
  EXPECT_NEAR(MeanVs(5, 1.8, 9.0), 178.0, 15.0);
  EXPECT_LT(InvParam.rms[5], 7.0);
  for (int k = 1; k <= 5; ++k) EXPECT_LT(InvParam.rms[k], InvParam.rms[k - 1]) << k;
  EXPECT_GT(InvParam.resolution(5, 0), 0.6);
  for (const char* name : {"site.da", "site_f.results", "ProjID.fdp", "ProjID.fmp", "ProjID.pfl",
                           "ProjID.fsp", "ProjID.pcm", "ProjID.n", "ProjID.r", "out.hyx"})
    EXPECT_TRUE(Exists(name)) << name;
}

// The publishers' curve of WGHS runs from 176 m/s at 3.5 m of wavelength over 200 at 10 m to 252 at 49 m; Vs
// of such ground is some 8 % higher.

TEST_F(RealSite, WghsUnattendedGivesAProfileOfThePublishedRange) {
  FetchLines("wghs_src-10m/H21.Hyx", "H21", 129);
  SetCtrlVal(cdisppnl::GLOBAL_NPOINTS, 30);
  EXPECT_EQ(RunScript("import H21 H21 10 20\nmasking H21 0 400 220 150 100\ncalcVel\n"
                      "preInversion 1 0 2 0.5 6 1 2 2 4 4 100\ninversion\nexport out H21 1 2 3\n"),
            0);
  EXPECT_EQ(frontEnd.messages, std::vector<std::string>{});
  EXPECT_NEAR(MeanVs(5, 0.0, 5.0), 200.0, 20.0);
  EXPECT_NEAR(MeanVs(5, 5.0, 13.0), 230.0, 30.0);
  EXPECT_LT(InvParam.rms[5], 8.0);
  for (const char* name : {"site.da", "site_f.results", "ProjID.fdp", "ProjID.r"})
    EXPECT_TRUE(Exists(name)) << name;
}

TEST_F(RealSite, OysandFivePairsWithMasksGiveTheProfileOfThePublishedCurve) {
  ImportSix("oysand_src20m", 0.0, {20, 24, 34, 40, 50, 66});
  for (const MaskedPair& pair :
       {MaskedPair{1, 4, 7.324, 1, 51.5}, MaskedPair{1, 5, 9.766, 2, 24.6}, MaskedPair{2, 5, 9.766, 2, 27.5},
        MaskedPair{3, 6, 8.789, 2, 27.5}, MaskedPair{4, 6, 7.324, 1, 27.5}})
    ComputeCurve(pair);
  InvertShort({1, 1.5, 2.5, 3, 4, 100});
  EXPECT_NEAR(MeanVs(3, 0.0, 1.8), 120.0, 12.0);
  EXPECT_NEAR(MeanVs(3, 1.8, 10.8), 178.0, 13.0);
  EXPECT_LT(InvParam.rms[3], 8.0);
}

TEST_F(RealSite, WghsFivePairsWithMasksGiveAProfileOfThePublishedRange) {
  ImportSix("wghs_src-10m", -10.0, {0, 4, 10, 20, 30, 46});
  for (const MaskedPair& pair : {MaskedPair{1, 3, 9.277, 0, 54.3}, MaskedPair{2, 4, 16.113, 1, 48.0},
                                 MaskedPair{3, 5, 16.113, 2, 51.0}, MaskedPair{4, 6, 9.277, 1, 27.5},
                                 MaskedPair{5, 6, 10.254, 1, 46.5}})
    ComputeCurve(pair);
  InvertShort({2, 3, 4, 5, 100});
  EXPECT_NEAR(MeanVs(3, 0.0, 5.0), 200.0, 20.0);
  EXPECT_NEAR(MeanVs(3, 5.0, 12.0), 225.0, 30.0);
  EXPECT_LT(InvParam.rms[3], 25.0);  // the pairs scatter by 10 to 15 % about the site's curve
}

// The presses of the manual: load, choose the global curve, update, open the inversion, run.
TEST_F(RealSite, GlobalCurveIsInvertedByPlaneWavesAsTheManualSays) {
  using namespace fmodeling;
  FetchLines("oysand_src20m/H21.Hyx", "H21", 129);
  session.projectFileName = "site.da";
  ProcessScriptText("import H21 H21 20 40\nmasking H21 0 400 180 90 40\ncalcVel\nexport x H21 1 2 -1\n");
  Commit(exdthd::FMODELPARAM);
  ASSERT_EQ(Commit(LOADDISPCURV), 0);
  SetCtrlVal(GLOBAL_ARRAY, 1);
  Commit(GLOBAL_ARRAY);
  SetCtrlVal(ANALYSISTYPE, 2);
  SetCtrlVal(NLAYERS, 5);
  Commit(NLAYERS);
  constexpr double kH[] = {1.0, 1.0, 2.0, 5.0, 100.0};
  for (int row = 1; row <= 5; ++row) {
    const double cells[] = {kH[row - 1], 0.0, 160.0, 1800.0, 0.3333, 0.02};
    for (int c = 1; c <= 6; ++c) SetTableCellVal(SOILPROFILE, row, c, cells[c - 1]);
  }
  ASSERT_EQ(Commit(UPDATE), 0);
  ASSERT_EQ(Commit(CLOSE), 0);
  ASSERT_EQ(Commit(exdthd::RUN_INVERSION), 0);
  EXPECT_EQ(GetCtrlVal(inversion::UF_VS), 0.05);
  SetCtrlVal(inversion::UF_VS, 0.2);
  ASSERT_EQ(Commit(inversion::PERFORMINV), 0);
  EXPECT_EQ(frontEnd.messages, std::vector<std::string>{});
  EXPECT_EQ(GetNumListItems(exdthd::ITERNO), 6);
  EXPECT_NEAR(MeanVs(5, 0.0, 1.8), 118.0, 12.0);
  EXPECT_NEAR(MeanVs(5, 1.8, 9.0), 178.0, 20.0);
}

TEST_F(RealSite, AnInterruptKeepsTheLastFinishedIterationAndSavesIt) {
  FetchLines("oysand_src20m/H21.Hyx", "H21", 129);
  SetCtrlVal(inversion::ALPHA_POINT, 1);
  SMPParam.nEntries = 1;
  bool asked = false;
  frontEnd.onProcessEvents = [&asked] {
    if (asked || GetNumListItems(exdthd::ITERNO) < 3) return;
    const std::string label = GetLabelFromIndex(exdthd::ITERNO, 2);
    if (label != "INV 2") return;  // two iterations are there, the third is in progress
    asked = true;
    RequestInterrupt();
  };
  EXPECT_EQ(RunScript("import H21 H21 20 40\nmasking H21 0 400 180 90 40\ncalcVel\n"
                      "preInversion 1 0 2 0.5 4 2 3 5 100\ninversion\nexport out H21 1 2 3\n"),
            1);
  ASSERT_TRUE(asked);
  ASSERT_FALSE(frontEnd.messages.empty());
  EXPECT_EQ(frontEnd.messages[0],
            "The inversion was halted. Iteration 2 is the last finished one and is kept.");
  EXPECT_TRUE(Exists("site_f.results"));
  EXPECT_FALSE(Exists("out.hyx"));  // the script ended there
  EXPECT_GT(Vs(2, 0), 50.0);
  EXPECT_GT(InvParam.rms[2], 0.0);
}

}  // namespace
}  // namespace sondera
