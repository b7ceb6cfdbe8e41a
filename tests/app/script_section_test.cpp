// The words station and section: files of the section and stations from other projects.
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "panels/panels_state.h"
#include "records/session.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/tmgrafpnl.h"
#include "script_fixture.h"
#include "support/plain_kriging.h"
#include "support/section_lines.h"
#include "support/section_records.h"

namespace sondera::testing {
namespace {

using test::MakeLine;
using test::PutStations;
using test::SmoothVelocity;

class ScriptSection : public ScriptTest {
 protected:
  struct Row {
    double x, y, value;
    bool empty;
  };
  std::vector<Row> Rows(const std::string& name) {
    std::istringstream in(Read(name));
    std::string line;
    std::getline(in, line);
    EXPECT_EQ(line, "distance,wavelength,velocity");
    std::vector<Row> rows;
    while (std::getline(in, line)) {
      const std::size_t first = line.find(','), second = line.find(',', first + 1);
      const std::string last = line.substr(second + 1);
      rows.push_back({std::atof(line.c_str()), std::atof(line.c_str() + first + 1), std::atof(last.c_str()),
                      last.empty()});
    }
    return rows;
  }
  static plain::PlainSamples PlainOf(const std::vector<SectionStation>& line) {
    plain::PlainSamples s;
    for (const SectionStation& station : line) {
      s.x.insert(s.x.end(), station.wlen.size(), station.location);
      s.y.insert(s.y.end(), station.wlen.begin(), station.wlen.end());
      s.z.insert(s.z.end(), station.vel.begin(), station.vel.end());
    }
    return s;
  }
  static std::size_t Count(const std::string& text, const std::string& what) {
    std::size_t n = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
    return n;
  }
};

TEST_F(ScriptSection, TheGridOfAProjectFileIsThePlainImageWithTheSameEmptyNodes) {
  const auto line = MakeLine(9, 25, true, SmoothVelocity);
  PutStations(line);
  EXPECT_EQ(Run("save line.da\nnew\nopen line.da\nsection grid.csv\n"), 0) << err;
  EXPECT_NE(report.find("94 of 231 nodes have no value."), std::string::npos) << report;
  const std::vector<Row> rows = Rows("grid.csv");
  const std::vector<double> expected = plain::PlainImage(PlainOf(line), {0.0, 40.0, 1.0, 30.0}, 20, 10);
  ASSERT_EQ(rows.size(), 231u);
  int empty = 0;
  for (std::size_t k = 0; k < rows.size(); ++k) {
    EXPECT_DOUBLE_EQ(rows[k].x, 2.0 * static_cast<double>(k % 21));
    ASSERT_EQ(rows[k].empty, std::isnan(expected[k])) << k;
    empty += rows[k].empty;
    if (!rows[k].empty) {
      EXPECT_NEAR(rows[k].value, expected[k], 1e-6 * expected[k]) << k;
    }
  }
  EXPECT_EQ(empty, 94);
}

TEST_F(ScriptSection, OneStationGivesEqualColumnsAndNoTextThatIsNoNumber) {
  PutStations(MakeLine(1, 25, true, SmoothVelocity));
  EXPECT_EQ(Run("section grid.csv\nsection a.svg\n"), 0) << err;
  EXPECT_EQ(Read("grid.csv").find("nan"), std::string::npos);
  const std::vector<Row> rows = Rows("grid.csv");
  ASSERT_EQ(rows.size(), 231u);
  for (std::size_t k = 0; k < rows.size(); ++k) {
    const Row& first = rows[k - k % 21];
    EXPECT_EQ(rows[k].empty, first.empty);
    EXPECT_EQ(rows[k].value, first.value);
  }
}

TEST_F(ScriptSection, OptionsHoldForOneLine) {
  PutStations(MakeLine(9, 50, false, SmoothVelocity));
  EXPECT_EQ(Run("section a.csv nx=4 ny=3 wlmin=2 wlmax=20 dmin=5 dmax=35 fill=yes\nsection b.csv\n"), 0)
      << err;
  const std::vector<Row> rows = Rows("a.csv");
  ASSERT_EQ(rows.size(), 20u);
  EXPECT_DOUBLE_EQ(rows[0].x, 5.0);
  EXPECT_DOUBLE_EQ(rows[19].x, 35.0);
  EXPECT_DOUBLE_EQ(rows[0].y, 2.0);
  EXPECT_DOUBLE_EQ(rows[19].y, 20.0);
  EXPECT_EQ(Rows("b.csv").size(), 231u);
  EXPECT_FALSE(panelsState.section.fill);
  EXPECT_FALSE(IsPanelShown(Panel::TMGRAFPNL)) << "it was not shown before";
}

TEST_F(ScriptSection, APictureHasMarksContoursBarNamesAndTheLineBeneath) {
  PutStations(MakeLine(9, 25, true, SmoothVelocity));
  EXPECT_EQ(Run("section a.svg\nsection b.svg contours=no vmin=100 vmax=500 depth=half\n"), 0) << err;
  const std::string svg = Read("a.svg"), plainSvg = Read("b.svg");
  for (const char* text : {">S1<", ">S9<", "Distance", "Wavelength", "Phase Velocity, m/s",
                           "94 of 231 nodes have no value.", "Contour lines every"})
    EXPECT_NE(svg.find(text), std::string::npos) << text;
  EXPECT_EQ(Count(svg, "<circle"), 225u) << "a mark for each point";
  EXPECT_GT(Count(svg, "<polyline") + Count(svg, "<path"),
            Count(plainSvg, "<polyline") + Count(plainSvg, "<path"))
      << "contour lines";
  EXPECT_NE(plainSvg.find("Pseudo-depth = wavelength / 2"), std::string::npos);
  EXPECT_NE(plainSvg.find(">500<"), std::string::npos) << "the bar has the ends that were asked for";
  EXPECT_EQ(plainSvg.find("Contour lines every"), std::string::npos);
}

TEST_F(ScriptSection, StackAndPointsAreFilesToo) {
  PutStations(MakeLine(3, 4, false, SmoothVelocity));
  EXPECT_EQ(Run("section stacked s.svg\nsection points p.csv\n"), 0) << err;
  EXPECT_NE(Read("s.svg").find("#0000ff"), std::string::npos);
  EXPECT_NE(Read("s.svg").find("#c0c0c0"), std::string::npos);
  const std::string points = Read("p.csv");
  EXPECT_EQ(Count(points, "\n"), 13u);
  EXPECT_TRUE(points.starts_with("station,distance,wavelength,velocity\nS1,0,1,")) << points;
}

TEST_F(ScriptSection, FaultsAreToldBeforeAnythingIsWritten) {
  EXPECT_EQ(Check("section a.jpg\n"), 1);
  EXPECT_NE(err.find(".pdf, .svg or .png"), std::string::npos) << err;
  EXPECT_EQ(Check("section points a.svg\n"), 1);
  EXPECT_EQ(Check("section a.csv contours=yes\n"), 1);
  EXPECT_EQ(Check("station a.gcd\n"), 1);
  EXPECT_EQ(Run("section a.csv\n"), 1);
  EXPECT_NE(err.find("no global curve is included"), std::string::npos) << err;
  PutStations(MakeLine(3, 4, false, SmoothVelocity));
  EXPECT_EQ(Run("section a.csv nx=501\n"), 1);
  EXPECT_NE(err.find("NX is 501"), std::string::npos) << err;
  EXPECT_FALSE(Exists("a.csv"));
  Write("a.csv", "mine");
  EXPECT_EQ(Run("section a.csv\n"), 1);
  EXPECT_NE(err.find("overwrite=yes"), std::string::npos) << err;
  EXPECT_EQ(Read("a.csv"), "mine");
  EXPECT_EQ(Run("section a.csv overwrite=yes\n"), 0) << err;
}

// ---- stations -------------------------------------------------------------------------------------------

TEST_F(ScriptSection, StationsComeFromOtherProjectsAndTexts) {
  PutStations(MakeLine(1, 5, false, SmoothVelocity));
  EXPECT_EQ(Run("save one.da\nnew\n"), 0) << err;
  PutStations(MakeLine(1, 7, false, SmoothVelocity));
  MeasDB.gDispList.at(1)->label = "Home";
  EXPECT_EQ(
      Run("curves write home.gcd\nstation one.da at=12.5\nstation home.gcd at=-3\nsection points p.csv\n"), 0)
      << err;
  ASSERT_EQ(MeasDB.gDispList.count(), 3);
  const DispInfo &added = *MeasDB.gDispList.at(2), &text = *MeasDB.gDispList.at(3);
  EXPECT_EQ(added.label, "S1@12.5");
  EXPECT_EQ(added.wlenMax, 12.5);
  EXPECT_EQ(added.valid, 1);
  EXPECT_EQ(added.nPoints, 5);
  EXPECT_EQ(added.wlen[5], 30.0);
  EXPECT_EQ(text.label, "Home@-3");
  EXPECT_EQ(text.nPoints, 7);
  EXPECT_NEAR(text.vel[3], MeasDB.gDispList.at(1)->vel[3], 1e-7);
  EXPECT_NE(Read("p.csv").find("S1@12.5,12.5,1,"), std::string::npos);
}

TEST_F(ScriptSection, AStationLeavesTheOpenProjectAsItIs) {
  PutStations(MakeLine(1, 5, false, SmoothVelocity));
  EXPECT_EQ(Run("save one.da\nnew\n"), 0) << err;
  const std::string id = session.curProjID, measID = session.curMeasID;
  const IDInfo* first = MeasDB.idList.at(1);
  const int measurements = MeasDB.idList.count();
  EXPECT_EQ(Run("station one.da at=1\n"), 0) << err;
  EXPECT_EQ(session.curProjID, id);
  EXPECT_EQ(session.curMeasID, measID);
  EXPECT_EQ(MeasDB.idList.at(1), first);
  EXPECT_EQ(MeasDB.idList.count(), measurements);
}

TEST_F(ScriptSection, AStationInAnotherUnitIsConvertedAndSaidSo) {
  PutStations(MakeLine(1, 5, false, [](double, double) { return 100.0; }));
  for (MeasSetup& setup : MeasDB.measSetupList) setup.lengthUnit = 0.3048;
  session.lengthUnit = 0.3048;
  EXPECT_EQ(Run("save feet.da\nnew\n"), 0) << err;
  session.lengthUnit = 1.0;
  EXPECT_EQ(Run("station feet.da at=1\n"), 0) << err;
  ASSERT_EQ(MeasDB.gDispList.count(), 1);
  EXPECT_NEAR(MeasDB.gDispList.at(1)->vel[1], 30.48, 1e-9);
  EXPECT_NEAR(MeasDB.gDispList.at(1)->wlen[5], 30.0 * 0.3048, 1e-9);
  EXPECT_NE(report.find("converted"), std::string::npos) << report;
}

TEST_F(ScriptSection, AFileWithoutAUsableCurveIsRefused) {
  Write("bad.gcd", "ProjID:A, MeasID: B\n3\n1 2 3 0 1 3\n");
  EXPECT_EQ(Run("station bad.gcd at=1\n"), 1);
  EXPECT_NE(err.find("was not read whole"), std::string::npos) << err;
  Write("empty.gcd", "");
  EXPECT_EQ(Run("station empty.gcd at=1\n"), 1);
  EXPECT_NE(err.find("has no global curve"), std::string::npos) << err;
  EXPECT_EQ(Run("station none.da at=1\n"), 1);
  Write("junk.da", "this is no project");
  EXPECT_EQ(Run("station junk.da at=1\n"), 1);
  EXPECT_TRUE(MeasDB.gDispList.empty());
}

TEST_F(ScriptSection, AHaltIsHeardByAScriptToo) {
  PutStations(MakeLine(9, 25, true, SmoothVelocity));
  EXPECT_EQ(Run("press MAINMENU.DRAW_TOMO_GRAF\nset TMGRAFPNL.NX 500\nset TMGRAFPNL.NY 500\n"
                "halt after=1\npress TMGRAFPNL.DRAWTOMOGRAF\n"),
            0)
      << err;
  EXPECT_TRUE(panelsState.section.grid.Empty());
}

}  // namespace
}  // namespace sondera::testing
