// Tests of the words on a record: from the files to masks, curves and a profile; and that different words for
// the same step give the same project.
#include <cmath>

#include "app/script/values.h"
#include "app/script_fixture.h"
#include "figure/canvas.h"
#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "records/session.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/findings.h"
#include "support/site_records.h"

namespace sondera {
namespace {

const std::string kRead = "read hyx id=ID files=H31.hyx source=0 at=14,30\n";
const std::string kPair = kRead + "pair ID 1 2\nphase original\n";
const std::string kCurve = kPair + "mask 0 7\nmask 48 500\ndisperse\n";
/// Cheap to solve: five layers, few points.
const std::string kModel = kCurve + "condense points=12\nlayers 2,3,4,6,80\nload global\nproject id=site\n";

class ScriptSite : public testing::ScriptTest {
 protected:
  void SetUp() override {
    ScriptTest::SetUp();
    test::WriteSitePair(folder.File("H31.hyx"), 14.0, 30.0);
  }
  /// Bytes of the project after these lines, in a fresh session.
  std::string ProjectOf(const std::string& lines) {
    StartSession();
    EXPECT_NE(Run(lines + "\nsave project.da overwrite=yes"), 1) << err;
    return Read("project.da");
  }
  static PMeasInfo& Pair() { return *FindPair(GetKeyFromID(session.curProjID, "ID"), 0, 1); }
  static std::vector<std::pair<double, double>> Masks() {
    std::vector<std::pair<double, double>> masks;
    for (const MaskingInfo& mask : MeasDB.maskingList) masks.emplace_back(mask.freqInit, mask.freqFinal);
    return masks;
  }
};

TEST_F(ScriptSite, AMaskByItsWordAndByPressesGivesTheSameProject) {
  const std::string byWord = ProjectOf(kPair + "mask 5 12.5 jumps=1\ndisperse");
  ASSERT_EQ(Masks().size(), 1u);
  const std::string byPress =
      ProjectOf(kPair +
                "set SASW.MASKING_FREQINIT 5\nset SASW.MASKING_FREQFINAL 12.5\n"
                "set SASW.MASKING_JUMPNO 1\npress SASW.MASKINGNEW\npress SASW.MASKINGCALCDISP");
  EXPECT_TRUE(byWord == byPress);
  EXPECT_FALSE(byWord == ProjectOf(kPair + "mask 5 12.5 jumps=2\ndisperse"));
}

TEST_F(ScriptSite, AMaskByTheMouseGivesTheProjectOfItsWord) {
  const std::string byMouse = ProjectOf(kPair +
                                        "point SASW.DISPLAY_A drag 12.5 0 5 0\n"
                                        "set SASW.MASKING_JUMPNO 1\npress SASW.MASKINGNEW\n"
                                        "press SASW.MASKINGCALCDISP");
  ASSERT_EQ(Masks().size(), 1u);
  const auto [from, to] = Masks()[0];  // the drag ends on lines of the spectrum
  EXPECT_NEAR(from, 5.0, 0.5);
  EXPECT_NEAR(to, 12.5, 0.5);
  const std::string ends = script::TextOf(from) + " " + script::TextOf(to);
  EXPECT_TRUE(byMouse == ProjectOf(kPair + "mask " + ends + " jumps=1\ndisperse"));
  EXPECT_TRUE(byMouse == ProjectOf(kPair + "set SASW.MASKING_FREQINIT " + script::TextOf(from) +
                                   "\nset SASW.MASKING_FREQFINAL " + script::TextOf(to) +
                                   "\nset SASW.MASKING_JUMPNO 1\npress SASW.MASKINGNEW\n"
                                   "press SASW.MASKINGCALCDISP"));
}

TEST_F(ScriptSite, AMaskIsPickedAndMovedWithTheMouse) {
  ASSERT_EQ(Run(kPair + "mask 5 12.5 jumps=1\n"
                        "point SASW.DISPLAY_A right 7.3 0\n"
                        "assert SASW.MASKING_FREQINIT = 5\nassert SASW.MASKING_JUMPNO = 1\n"
                        "assert SASW.MARKERS_ONOFF = 2\n"
                        "point SASW.DISPLAY_A move 20 0 cursor=2\n"
                        "assert SASW.MASKING_FREQFINAL = 20 within=0.3\n"
                        "assert SASW.DISPAMARKER2COORD contains \"(X2, Y2)=\"\n"
                        "press SASW.MASKINGUPDATE\n"
                        "point SASW.DISPLAY_A right 200 0\n"
                        "assert SASW.MASKING_FREQFINAL = 0"),
            0)
      << err;
  ASSERT_EQ(Masks().size(), 1u);
  EXPECT_NEAR(Masks()[0].second, 20.0, 0.3);
  EXPECT_EQ(Run("point SASW.DISPLAY_A move 20 0 cursor=1"), 1);
  EXPECT_EQ(err, "job:2: point: SASW.DISPLAY_A has 0 cursors now\n");
  EXPECT_EQ(Run("point PULSE.DISPLAY_A left 1 1"), 1);
  EXPECT_EQ(err, "job:2: point: PULSE.DISPLAY_A takes no events of the mouse\n");
}

TEST_F(ScriptSite, MasksAreMadeChangedAndRemoved) {
  ASSERT_EQ(Run(kPair + "mask 5 10\nmask 20 30 jumps=2\nmask 40 50"), 0) << err;
  EXPECT_EQ(Masks().size(), 3u);
  EXPECT_EQ(Run("mask update 25 21 31 jumps=3\nmask delete 7"), 0) << err;
  EXPECT_EQ(Masks(), (std::vector<std::pair<double, double>>{{21, 31}, {40, 50}}));
  EXPECT_EQ(Run("mask delete 7"), 1);
  EXPECT_EQ(err, "job:2: mask: the pair has no mask at 7 Hz\n");
  EXPECT_EQ(Run("mask 45 60"), 1);  // overlaps
  EXPECT_EQ(Masks().size(), 2u);
  EXPECT_EQ(Run("mask clear"), 0) << err;
  EXPECT_TRUE(Masks().empty());
}

TEST_F(ScriptSite, PairsAreNamedFromOneAndHaveToBeThere) {
  EXPECT_EQ(Run(kRead + "pair ID 1 2 display=Coherence"), 0) << err;
  EXPECT_EQ(GetCtrlVal(sasw::DISPACHNL), 1);
  EXPECT_EQ(GetCtrlVal(sasw::DISPA_REFCHNL), 0);
  EXPECT_EQ(GetCtrlVal(sasw::DISPATYPE), 8);
  EXPECT_EQ(Run("pair ID 1 2 trace=B display=4"), 0) << err;
  EXPECT_EQ(GetCtrlVal(sasw::DISPBTYPE), 4);
  EXPECT_EQ(GetCtrlVal(sasw::TRACE_ONOFF), 1);
  EXPECT_EQ(Run("mask 5 10"), 0) << err;  // returns to trace A
  EXPECT_EQ(Run("pair IT 1 2"), 1);
  EXPECT_EQ(err, "job:2: pair: unknown measurement \"IT\"; did you mean \"ID\"?\n");
  EXPECT_EQ(Run("pair ID 1 3"), 1);
  EXPECT_EQ(err, "job:2: pair: the measurement \"ID\" has the channels 1 to 2\n");
  EXPECT_EQ(Run("pair ID 1 2 display=Colour"), 1);
}

TEST_F(ScriptSite, AMeasurementIsReplacedOnlyOnDemand) {
  ASSERT_EQ(Run(kRead), 0) << err;
  EXPECT_EQ(Run(kRead), 1);
  EXPECT_EQ(err, "job:2: read: the measurement \"ID\" exists; overwrite=yes replaces it\n");
  EXPECT_EQ(Run("read hyx id=ID files=H31.hyx source=0 at=14,31 overwrite=yes"), 0) << err;
  MeasRecords records;
  GetInfoFromKey(GetKeyFromID(session.curProjID, "ID"), records);
  EXPECT_EQ(Run("read hyx id=other files=none.hyx source=0 at=20,40"), 1);
  EXPECT_EQ(Run("read hyx id=other files=H31.hyx source=0 at=30,14,20"), 1);
}

TEST_F(ScriptSite, WindowsByTimesAndByVelocities) {
  ASSERT_EQ(Run(kPair + "window enhanced bandpass times=0.05,0.1,0.2,0.4"), 0) << err;
  for (std::size_t k = 1; k <= 4; ++k) EXPECT_EQ(Pair().enT[k], 0.05 * (1 << (k - 1)));
  ASSERT_EQ(Run("window enhanced bandpass velocities=320,160,80,40"), 0) << err;  // 16 m apart
  for (std::size_t k = 1; k <= 4; ++k) EXPECT_NEAR(Pair().enT[k], 0.05 * (1 << (k - 1)), 1e-12);
  ASSERT_EQ(Run("window backbone bandpass times=0.04,0.08,0.25,0.5"), 0) << err;
  EXPECT_NEAR(Pair().bbT[1], 0.04, 1e-12);
  EXPECT_NEAR(Pair().bbT[4], 0.5, 1e-12);
  EXPECT_NEAR(Pair().enT[4], 0.4, 1e-12);
  ASSERT_EQ(Run("window enhanced lowpass times=0.1,0.2,0,0"), 1);
  ASSERT_EQ(Run("window enhanced lowpass times=0.1,0.2,0.3,0.4"), 0) << err;
  EXPECT_EQ(Pair().irfMode, 1);
  EXPECT_NEAR(Pair().enT[3] + 0.2, Pair().enT[4] + 0.1, 1e-12);  // symmetric in the record
  EXPECT_EQ(Run("window enhanced bandpass times=0,1,2,1000"), 1);
  EXPECT_EQ(err.substr(0, 37), "job:2: window: times=: the record is ");
}

TEST_F(ScriptSite, CurvesAreComputedIncludedAndChecked) {
  ASSERT_EQ(Run(kCurve), 0) << err;
  ASSERT_GT(Pair().nDispPoints, 10);
  EXPECT_EQ(Run("assert velocity ID 1 2 at=20 within=190,197"), 0) << err;
  EXPECT_EQ(Run("assert velocity ID 1 2 at=20 within=300,400"), 1);
  EXPECT_EQ(Run("assert velocity ID 1 2 at=2000 within=300,400"), 1);
  EXPECT_EQ(err, "job:2: assert: the curve of the pair does not reach 2000 Hz\n");
  EXPECT_EQ(Run("exclude ID 1 2"), 0) << err;
  EXPECT_EQ(Pair().included, 0);
  EXPECT_EQ(Run("exclude ID 1 2\ninclude ID 1 2"), 0) << err;
  EXPECT_EQ(Pair().included, 1);
  EXPECT_EQ(Run("exclude ID 2 1"), 1);
  EXPECT_EQ(err, "job:2: exclude: nothing has been computed of the channels 2 and 1 of \"ID\"\n");
  const int points = Pair().nDispPoints;
  EXPECT_EQ(Run("disperse alpha=3"), 0) << err;  // source close to the first receiver for every wavelength
  EXPECT_LT(Pair().nDispPoints, points);
}

TEST_F(ScriptSite, CurvesGoToFilesByTheirExtension) {
  ASSERT_EQ(
      Run(kCurve + "condense points=20 by=wavelength ratio=1.2\ncurves write c.gcd\ncurves write c.icd\n"
                   "curves write c.RED\ncurves write c.exd"),
      0)
      << err;
  for (const char* name : {"c.gcd", "c.icd", "c.RED", "c.exd"}) EXPECT_GT(Read(name).size(), 100u) << name;
  EXPECT_EQ(Run("curves write c.gcd"), 1);
  EXPECT_EQ(err, "job:2: curves: \"c.gcd\" exists; overwrite=yes replaces it\n");
  EXPECT_EQ(Run("curves write c.gcd overwrite=yes"), 0) << err;
  StartSession();
  EXPECT_EQ(Run("curves read c.exd"), 0) << err;
  EXPECT_EQ(MeasDB.idList.count() > 1, true);
  EXPECT_EQ(Run("curves read none.exd"), 1);
}

TEST_F(ScriptSite, TheGaborMapIsComputed) {
  ASSERT_EQ(Run(kPair + "gabor timediv=20 freqdiv=20\nmask auto"), 0) << err;
  EXPECT_EQ(Pair().timeDiv, 20);
}

TEST_F(ScriptSite, LayersComeFromAListOrAFile) {
  ASSERT_EQ(Run("layers 1,2,3.5\nlayer 2 Vs=220 nu=0.4 fix=both\nlayer 3 density=2.1 fix=H"), 0) << err;
  EXPECT_EQ(FModelParam.nLayers, 3);
  EXPECT_EQ(FModelParam.thickness[2], 3.5);
  EXPECT_EQ(FModelParam.Vs[0], 180.0);
  EXPECT_EQ(FModelParam.Vs[1], 220.0);
  EXPECT_EQ(FModelParam.nu[1], 0.4);
  EXPECT_EQ(FModelParam.density[2], 2.1);
  EXPECT_EQ(GetCtrlVal(inversion::CONST_MP_H), "2,3");
  EXPECT_EQ(GetCtrlVal(inversion::CONST_MP_VS), "2");
  ASSERT_EQ(Run("layer 2 fix=none"), 0) << err;
  EXPECT_EQ(GetCtrlVal(inversion::CONST_MP_H), "3");
  EXPECT_EQ(GetCtrlVal(inversion::CONST_MP_VS), "");
  EXPECT_EQ(Run("layer 4 Vs=100"), 1);
  EXPECT_EQ(err, "job:2: layer: there are 3 layers\n");
  Write("layers.txt", "# H Vp Vs\n4 400 150\n\n90 0 300 2.0\n");
  ASSERT_EQ(Run("layers layers.txt"), 0) << err;
  EXPECT_EQ(FModelParam.nLayers, 2);
  EXPECT_EQ(FModelParam.Vp[0], 400.0);
  EXPECT_EQ(FModelParam.Vs[1], 300.0);
  EXPECT_EQ(FModelParam.density[1], 2.0);
  EXPECT_EQ(FModelParam.damping[1], 0.02);
  Write("bad.txt", "4 400 x\n");
  EXPECT_EQ(Run("layers bad.txt"), 1);
  EXPECT_EQ(err, "job:2: layers: bad.txt:1: \"x\" is not a number\n");
  EXPECT_EQ(Run("layers none.txt"), 1);
  EXPECT_EQ(Run("receivers 1,2,4,8"), 0) << err;
  EXPECT_EQ(GetNumTableRows(fmodeling::RECEIVERLOC), 4);
  EXPECT_EQ(GetTableCellVal(fmodeling::RECEIVERLOC, 4, 1), 8.0);
}

TEST_F(ScriptSite, LoadTakesTheCurvesThatItNames) {
  EXPECT_NE(Run(kModel), 1) << err;
  EXPECT_EQ(GetCtrlVal(fmodeling::GLOBAL_ARRAY), 1);
  EXPECT_EQ(FModelParam.dispCurvType, 1);
  EXPECT_NE(Run("forward type=2\ninvert iterations=1"), 1) << err;  // plane waves have the global curve alone
  EXPECT_NE(Run("load array"), 1) << err;
  EXPECT_EQ(GetCtrlVal(fmodeling::GLOBAL_ARRAY), 2);
  EXPECT_EQ(FModelParam.dispCurvType, 2);
}

TEST_F(ScriptSite, AProfileByForwardRunStartAndInversion) {
  EXPECT_NE(
      Run(kModel +
          "forward type=3\nstart analytic ratios=0.4,0.6,3\nselect smp:2\ninvert iterations=1 from=smp:2"),
      1)
      << err;
  EXPECT_EQ(SMPParam.nEntries, 3);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(InvParam.Vs(0, i), SMPParam.Vs(2, i)) << i;
  EXPECT_NE(Run("invert iterations=2 ub_vs=900 from=given\nselect inv:1\nselect inv:2\nsave site.da"), 1)
      << err;
  EXPECT_EQ(InvParam.nEntries, 2);
  EXPECT_EQ(InvParam.maxVs, 900.0);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(InvParam.Vs(0, i), FModelParam.Vs[static_cast<std::size_t>(i)]) << i;
  EXPECT_TRUE(Exists("site.fmp"));
  EXPECT_EQ(Run("select inv:7"), 1);
  EXPECT_EQ(err, "job:2: select: unknown item of EXDTHD.ITERNO \"7\"\n");
}

TEST_F(ScriptSite, AnOpenedProjectShowsItsOwnResultsAndNoneOfTheFormerOne) {
  ASSERT_NE(Run(kModel + "forward type=3\ninvert iterations=1\nselect inv:1\nsave run.da"), 1) << err;
  const double last = GetCtrlVal(exdthd::RMSERROR);
  ASSERT_GT(last, 0.0);
  ASSERT_FALSE(GraphOf(exdthd::PROFILE).plots.empty());
  StartSession();
  ASSERT_NE(Run(kCurve + "save plain.da"), 1) << err;
  const auto count = [](const GraphControl& graph) { return GraphOf(graph).plots.size(); };

  StartSession();
  ASSERT_NE(Run("open run.da"), 1) << err;
  const std::size_t profile = count(exdthd::PROFILE);
  EXPECT_GT(profile, 0u);
  EXPECT_EQ(GetCtrlVal(exdthd::ITERNO), 0);
  EXPECT_EQ(GetCtrlVal(exdthd::RMSERROR), InvParam.rms[0]);
  ASSERT_NE(Run("page PANEL 4\nselect inv:1\npress EXDTHD.RESULTBOX"), 1) << err;
  EXPECT_EQ(GetCtrlVal(exdthd::RMSERROR), last);

  ASSERT_NE(Run("open plain.da"), 1) << err;
  EXPECT_EQ(count(exdthd::PROFILE), 0u);
  EXPECT_EQ(GetCtrlVal(exdthd::RMSERROR), 0.0);
  EXPECT_EQ(GetCtrlVal(exdthd::STATUSMSG), "");
  EXPECT_EQ(GetCtrlVal(exdthd::PROCESSMSG), "");
  EXPECT_FALSE(IsPanelShown(Panel::ANALRESULT));
  ASSERT_NE(Run("page PANEL 3\nopen plain.da"), 1) << err;
  EXPECT_EQ(count(dispcurv::DISPGRAPH), 1u);
  EXPECT_EQ(count(exdthd::CURVES), 0u) << "drawn when its page comes to the front";

  for (const int page : {3, 4}) {
    StartSession();
    ASSERT_NE(Run("page PANEL " + std::to_string(page) + "\nopen run.da\nsave again.da overwrite=yes"), 1)
        << err;
    EXPECT_EQ(count(exdthd::PROFILE), profile);
    EXPECT_GT(count(page == 3 ? dispcurv::DISPGRAPH : exdthd::CURVES), 0u)
        << "the page in front is drawn at once";
    EXPECT_TRUE(Read("again.da") == Read("run.da")) << "a look changes nothing, page " << page;
  }
}

/// The panel of the first run would hand its own settings on.
TEST_F(ScriptSite, AnOpenedProjectIsInvertedWithItsOwnSettings) {
  ASSERT_NE(Run(kModel + "forward type=3\ninvert iterations=1 ub_vs=700\nsave a.da"), 1) << err;
  StartSession();
  ASSERT_NE(Run(kModel + "forward type=3\ninvert iterations=2 ub_vs=900\nsave b.da"), 1) << err;
  StartSession();
  ASSERT_NE(Run("open a.da\ninvert\npress DISPCURV.COMPDISPCURV\npress SASW.MASKINGLIST"), 1) << err;
  EXPECT_EQ(InvParam.maxVs, 700.0);
  ASSERT_NE(Run("open b.da"), 1) << err;
  for (const Panel panel : {Panel::INVERSION, Panel::CDISPPNL, Panel::IRFSETPNL})
    EXPECT_FALSE(IsPanelShown(panel));
  ASSERT_NE(Run("invert"), 1) << err;
  EXPECT_EQ(InvParam.maxVs, 900.0);
  EXPECT_EQ(InvParam.nEntries, 2);
}

TEST_F(ScriptSite, AHaltComesInTheMiddleOfARun) {
  ASSERT_NE(Run(kModel + "forward type=3\nhalt after=5\ninvert iterations=3"), 1) << err;
  ASSERT_FALSE(Findings().empty());
  bool told = false;
  for (const Finding& finding : Findings()) told = told || finding.text.find("halted") != std::string::npos;
  EXPECT_TRUE(told);
  EXPECT_EQ(Run("halt after=1000000\ninvert iterations=1"), 1);
  EXPECT_NE(err.find("before the halt after 1000000"), std::string::npos) << err;
}

TEST_F(ScriptSite, TheSixWordsAreStrict) {
  EXPECT_NE(
      Run("save site.da\nimport H31 ID 14 30\nmasking ID 0 600 450 110 80\ncalcVel\nexport out ID 1 2 3"), 1)
      << err;
  EXPECT_TRUE(Exists("out.hyx"));
  EXPECT_EQ(Run("masking IT 0 600 450 110 80"), 1);
  EXPECT_EQ(err, "job:2: masking: unknown measurement \"IT\"; did you mean \"ID\"?\n");
  EXPECT_EQ(Run("export out ID 1 9 3"), 1);
  EXPECT_EQ(Run("import H31 ID 14 30"), 1);
  EXPECT_NE(err.find("a question without an answer"), std::string::npos) << err;
  EXPECT_NE(Run("answer yes\nimport H31 ID 14 30"), 1) << err;
}

TEST_F(ScriptSite, TheReportHasThePagesOfTheProject) {
  FreePMeasInfoList();
  EXPECT_EQ(Run("report out.ps"), 1);
  EXPECT_EQ(err, "job:2: report: No phase spectra are available for plotting.\n");
  EXPECT_EQ(Run(kPair + "report out.doc"), 1);
  EXPECT_NE(err.find("report: the report is PostScript or PDF"), std::string::npos) << err;
  // Pages without contents are notes.
  EXPECT_EQ(Run("report out.ps"), 0) << err;
  EXPECT_NE(report.find("note: No dispersion curves are available for plotting."), std::string::npos)
      << report;
  EXPECT_NE(report.find("note: No results of the inv. analysis are available for plotting."),
            std::string::npos);
  EXPECT_NE(Read("out.ps").find("%%Pages: 3\n"), std::string::npos);
  EXPECT_EQ(Check("report out.ps paper=a4"), 1);
  if (HavePdfAndPng()) {
    EXPECT_NE(Run("report out.pdf paper=letter"), 1) << err;
    EXPECT_EQ(Read("out.pdf").substr(0, 5), "%PDF-");
    EXPECT_EQ(Run("report out.pdf entry=9"), 1);
    EXPECT_NE(err.find("The project has no iteration 9."), std::string::npos) << err;
  }
  EXPECT_NE(Run("mask 0 7\nmask 48 500\ndisperse\nreport out.ps"), 1) << err;
  EXPECT_NE(Read("out.ps").find("(Phase-Velocity Dispersion Curve in Wavelength Domain) S"),
            std::string::npos);
}

}  // namespace
}  // namespace sondera
