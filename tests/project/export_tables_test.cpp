// Tests of exported tables: CSV, JSON, and curves and layers in the formats of other programs.
#include "project/export_tables.h"

#include <gmock/gmock.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>

#include "project/table_csv.h"
#include "project/table_forms.h"
#include "project/table_json.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "records/session.h"
#include "runtime/text_format.h"
#include "support/comma_locale.h"
#include "support/odd_numbers.h"
#include "support/project_bytes.h"
#include "support/session_fixture.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// A second reader of CSV, written from the rules of the format only.
std::vector<std::vector<std::string>> Rows(const std::string& text) {
  std::vector<std::vector<std::string>> rows(1, {""});
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (quoted && c == '"' && i + 1 < text.size() && text[i + 1] == '"') {
      rows.back().back() += '"';
      ++i;
    } else if (c == '"') {
      quoted = !quoted;
    } else if (c == ',' && !quoted) {
      rows.back().emplace_back();
    } else if (c == '\n' && !quoted) {
      rows.push_back({""});
    } else {
      rows.back().back() += c;
    }
  }
  rows.pop_back();
  return rows;
}

ProfileLayer Layer(double top, double h, double vs, double density = 1.8) {
  ProfileLayer l;
  l.top = top;
  l.thickness = h;
  l.vs = vs;
  l.low = 0.9 * vs;
  l.high = 1.1 * vs;
  l.sd = 0.05 * vs;
  l.resolution = 0.8;
  l.vp = 2.0 * vs;
  l.poisson = 1.0 / 3.0;
  l.density = density;
  l.damping = 0.02;
  return l;
}

ProjectTables Known() {
  ProjectTables t;
  t.name = "a, \"quoted\" site";
  t.id = "site";
  ProfileTable p;
  p.kind = "inverted";
  p.iteration = 5;
  p.rms = 0.1;
  p.analysis = 2;
  p.layers = {Layer(0, 5, 150), Layer(5, 10, 250), Layer(15, kNaN, 400)};
  const SiteProfile site = SiteProfileOf(p, 1.0, 60.0);
  FiguresOf(site, false, p.figures);
  p.classes = ClassesOf(site, p.figures);
  t.profiles.push_back(p);
  CurveTable c;
  c.kind = "global";
  c.frequency = {20.0, 10.0};
  c.velocity = {180.0, 200.0};
  c.wavelength = {9.0, 20.0};
  c.velocitySd = {9.0, 10.0};
  c.amplitude = {0.1, kNaN};
  c.state = {"ok", "ok"};
  t.curves.push_back(c);
  return t;
}

TEST(TableCsv, EveryTableHasItsColumns) {
  const ProjectTables t = Known();
  for (const char* name : kCsvTables) {
    const auto rows = Rows(CsvText(t, name));
    ASSERT_FALSE(rows.empty()) << name;
    for (const auto& row : rows) EXPECT_EQ(row.size(), rows[0].size()) << name;
  }
  EXPECT_TRUE(
      CsvText(t, "curves")
          .starts_with(
              "kind,measurement,reference,channel,frequency [Hz],velocity [m/s],velocity sd [m/s],wavelength "
              "[m],amplitude,"
              "phase,included,state\nglobal,,,,20,180,9,9,0.1,,1,ok\nglobal,,,,10,200,10,20,,,1,ok\n"));
  EXPECT_TRUE(CsvText(t, "profile")
                  .starts_with("iteration,layer,top [m],bottom [m],thickness [m],Vs [m/s],Vs low [m/s],Vs "
                               "high [m/s],Vs sd [m/s],resolution,"
                               "Vp [m/s],density [as entered],Poisson "
                               "ratio,damping,fixed\n5,1,0,5,5,150,135,165,7.5,0.8,300,1.8,"));
  EXPECT_THAT(CsvText(t, "profile"), HasSubstr("5,3,15,,,400,"));
  EXPECT_EQ(CsvText(t, "unknown"), "");
}

TEST(TableCsv, FiguresAndClassesStandInRows) {
  const auto rows = Rows(CsvText(Known(), "figures"));
  ASSERT_EQ(rows.size(), 7u);
  EXPECT_EQ(rows[1][0], "vs30");
  EXPECT_NEAR(ParseReal(rows[1][2]), 270.6767, 5e-5);
  EXPECT_NEAR(ParseReal(rows[1][3]), 243.6090, 5e-5);
  EXPECT_EQ(rows[1][5], "measured");
  EXPECT_EQ(rows[2][0], "vsz");
  EXPECT_EQ(rows[2][1], "30.48");
  EXPECT_EQ(rows[3][7], "EN1998-1:2004");
  EXPECT_EQ(rows[3][8], "C");
  EXPECT_EQ(rows[4][8], "C or F");
  EXPECT_EQ(rows[6][0], "vsz") << "the American codes go by 100 ft";
  EXPECT_EQ(rows[6][8], "D");
}

TEST(TableCsv, UnitOfLengthStandsInTheHeader) {
  ProjectTables t = Known();
  t.lengthUnit = 0.3048;
  EXPECT_THAT(CsvText(t, "profile"), HasSubstr("top [ft],bottom [ft],thickness [ft],Vs [ft/s]"));
  EXPECT_THAT(CsvText(t, "figures"), HasSubstr("depth [m],value [m/s]"));
}

TEST(TableCsv, NumbersReadBackToTheBitInAnyLocale) {
  const test::CommaLocale locale;
  std::mt19937_64 random(9);
  for (int i = 0; i < 2000; ++i) {
    const double v = std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 200) - 160);
    EXPECT_EQ(ParseReal(ShortestText(v)), v);
    EXPECT_EQ(ShortestText(v).find(','), std::string::npos);
  }
  EXPECT_EQ(ShortestText(0.1), "0.1");
  EXPECT_EQ(ShortestText(kNaN), "");
  EXPECT_EQ(ShortestText(HUGE_VAL), "");
}

TEST(TableCsv, TextsWithSeparatorsAreQuoted) {
  EXPECT_EQ(CsvCell("plain"), "plain");
  EXPECT_EQ(CsvCell("a,b"), "\"a,b\"");
  EXPECT_EQ(CsvCell("a \"b\""), "\"a \"\"b\"\"\"");
  EXPECT_EQ(Rows(CsvCell("a \"b\",\nc") + "\n")[0][0], "a \"b\",\nc");
}

TEST(TableJson, IsInSiUnitsAndInTheOrderOfTheSchema) {
  ProjectTables t = Known();
  t.lengthUnit = 0.3048;
  const std::string text = JsonText(t);
  const auto j = nlohmann::ordered_json::parse(text);
  std::vector<std::string> keys;
  for (const auto& [key, value] : j.items()) keys.push_back(key);
  EXPECT_THAT(keys, ElementsAre("format", "version", "generator", "units", "project", "measurements",
                                "curves", "profiles"));
  EXPECT_EQ(j["curves"][0]["velocity"][0].get<double>(), 180.0 * 0.3048);
  EXPECT_EQ(j["curves"][0]["frequency"][0].get<double>(), 20.0);
  EXPECT_TRUE(j["curves"][0]["amplitude"][1].is_null());
  EXPECT_EQ(j["profiles"][0]["layers"][1]["vs"].get<double>(), 250.0 * 0.3048);
  EXPECT_EQ(j["profiles"][0]["layers"][1]["density"].get<double>(), 1.8);
  EXPECT_TRUE(j["profiles"][0]["layers"][2]["thickness"].is_null());
  EXPECT_EQ(j["profiles"][0]["figures"][0]["name"], "vs30");
  EXPECT_EQ(j["profiles"][0]["site_classes"][3]["class"], "D");
  EXPECT_EQ(JsonText(t), text) << "two exports are equal bytes";
}

TEST(TableJson, NamesThatAreNoUtf8DoNoHarm) {
  ProjectTables t = Known();
  t.id = "\xff\xfe";
  EXPECT_TRUE(nlohmann::json::accept(JsonText(t)));
}

// ---- tables of a project --------------------------------------------------------------------------------

class ExportTables : public SessionTest {};

TEST_F(ExportTables, EmptyProjectGivesHeadersAndEmptyLists) {
  StartEmptyProject();
  FModelParam.nLayers = 0;
  const ProjectTables t = CollectTables({});
  for (const char* name : kCsvTables) EXPECT_EQ(Rows(CsvText(t, name)).size(), 1u) << name;
  const auto j = nlohmann::json::parse(JsonText(t));
  for (const char* list : {"measurements", "curves", "profiles"}) EXPECT_TRUE(j[list].empty()) << list;
}

TEST_F(ExportTables, SmallProjectIsWhatItsRecordsHold) {
  MakeSmallProject();
  const ProjectTables t = CollectTables({.iterations = {0, 1}, .fixedLayers = {}, .extend = false});
  ASSERT_EQ(t.measurements.size(), 1u);
  EXPECT_EQ(t.measurements[0].spectra.size(), 1u);
  EXPECT_EQ(t.measurements[0].masks.size(), 1u);
  EXPECT_EQ(t.measurements[0].masks[0].jumps, MeasDB.maskingList.at(1)->jumpNo);
  ASSERT_EQ(t.profiles.size(), 2u);
  EXPECT_EQ(t.profiles[0].kind, "starting");
  EXPECT_EQ(t.profiles[1].kind, "inverted");
  EXPECT_EQ(t.profiles[1].layers.size(), static_cast<std::size_t>(InvParam.nLayers));
  EXPECT_EQ(t.profiles[1].layers[0].vs, InvParam.Vs(1, 0));
  EXPECT_TRUE(std::isnan(t.profiles[0].layers[0].resolution));
  for (const CurveTable& c : t.curves)
    if (c.kind == "pair") {
      EXPECT_EQ(c.velocity.size(), static_cast<std::size_t>(MeasDB.pMeasList.at(1)->nDispPoints));
    }
}

TEST_F(ExportTables, RandomProjectsMakeTablesThatHoldTogether) {
  for (unsigned seed = 1; seed <= 12; ++seed) {
    MakeRandomProject(seed);
    const ProjectTables t =
        CollectTables({.iterations = {0, 1, 2, 3, 99, -1}, .fixedLayers = {1}, .extend = true});
    for (const char* name : kCsvTables) {
      const auto rows = Rows(CsvText(t, name));
      for (const auto& row : rows) ASSERT_EQ(row.size(), rows[0].size()) << name << seed;
    }
    EXPECT_TRUE(nlohmann::json::accept(JsonText(t))) << seed;
  }
}

TEST_F(ExportTables, MeasurementsInAnotherUnitAreConverted) {
  const TestMeasurement m = AddMeasurement({.measID = "feet", .lengthUnit = 0.3048});
  session.lengthUnit = 1.0;
  const ProjectTables t = CollectTables({});
  EXPECT_NEAR(t.measurements.back().receivers[0], m.setup->recLoc[0] * 0.3048, 1e-12);
  EXPECT_EQ(t.measurements.back().lengthUnit, 0.3048);
  EXPECT_EQ(t.measurements.back().origin, "curve") << "no data";
}

TEST_F(ExportTables, PointsWithoutAResultHaveNoVelocity) {
  StartEmptyProject();
  TheoDispInfo.dispCurvType = 1;
  TheoDispInfo.nDispPointsG = 2;
  TheoDispInfo.globalVel = {200.0, 0.0};
  TheoDispInfo.globalFreq = {10.0, 20.0};
  TheoDispInfo.globalWlen = {20.0, 0.0};
  const ProjectTables t = CollectTables({});
  ASSERT_EQ(t.curves.size(), 1u);
  EXPECT_THAT(t.curves[0].state, ElementsAre("ok", "none"));
  EXPECT_THAT(CsvText(t, "curves"), HasSubstr("computed,,,,20,,,,,,1,none\n"));
}

// ---- forms of other programs ------------------------------------------------------------------------------

CurvePoints Curve() {
  CurvePoints curve;
  EXPECT_TRUE(GlobalCurveOf(Known(), curve));
  return curve;
}

TEST(TableForms, SwprepostHasThreeColumnsAndItsTwoLines) {
  EXPECT_EQ(SwprepostText(Curve()),
            "#rayleigh 0,,\n#Frequency (Hz),Velocity (m/s),Velocity Standard Deviation "
            "(m/s)\n10,200,10\n20,180,9\n");
}

TEST(TableForms, DinverTextOfAKnownPoint) {
  CurvePoints curve{{12.5}, {200.0}, {10.0}};
  std::string text;
  ASSERT_EQ(DinverText(curve, DinverColumn::Geopsy3, text), "");
  EXPECT_EQ(text, "12.5\t0.005\t1.0513157894736842\n");
  ASSERT_EQ(DinverText(curve, DinverColumn::Geopsy210, text), "");
  EXPECT_NEAR(Geopsy210Slowness(200, 10), 2.506265664160398e-4, 1e-18);
  curve.sd[0] = 200.0;
  EXPECT_EQ(DinverText(curve, DinverColumn::Geopsy3, text),
            "the point at 12.5 Hz has a deviation of 200 m/s, which is not below its velocity of 200 m/s");
}

TEST(TableForms, DinverTextReadsBack) {
  for (DinverColumn column : {DinverColumn::Geopsy3, DinverColumn::Geopsy210}) {
    std::string text;
    CurvePoints back;
    ASSERT_EQ(DinverText({{10, 20, 30}, {200, 180, 170}, {10, 1e-6, 80}}, column, text), "");
    ASSERT_EQ(ReadCurvePoints(text, CurveForm::Dinver, "", back), "");
    EXPECT_NEAR(back.velocity[0], 200, 200e-12);
    EXPECT_NEAR(back.sd[0], 10, 1e-10);
    EXPECT_NEAR(back.sd[2], 80, 1e-10);
    EXPECT_NEAR(back.sd[1], 1e-6, 1e-11);
  }
}

TEST(TableForms, CurvesReadBackFromTheOtherForms) {
  const CurvePoints curve = Curve();
  CurvePoints back;
  ASSERT_EQ(ReadCurvePoints(SwprepostText(curve), CurveForm::Swprepost, "", back), "");
  EXPECT_EQ(back.velocity, curve.velocity);
  EXPECT_EQ(back.sd, curve.sd);
  ASSERT_EQ(ReadCurvePoints(GpdcText(curve), CurveForm::Named, "", back), "") << "told by its comment";
  EXPECT_EQ(back.frequency, curve.frequency);
  for (std::size_t i = 0; i < 2; ++i) EXPECT_NEAR(back.velocity[i], curve.velocity[i], 1e-12);
  EXPECT_EQ(GpdcText(curve).substr(0, 9), "# Mode 0\n");
  EXPECT_EQ(ReadCurvePoints("#rayleigh 0,,,\n10,200,10,1\n", CurveForm::Swprepost, "", back),
            "a swprepost curve has three columns, and here are 4");
}

TEST(TableForms, ColumnsAreFoundByNameAndUnit) {
  CurvePoints back;
  ASSERT_EQ(ReadCurvePoints("Std [m/s];Phase velocity [ft/s];remark;Freq (kHz)\n1,5;656,167979;0;0,01\n",
                            CurveForm::Named, "", back),
            "");
  EXPECT_NEAR(back.frequency[0], 10.0, 1e-12);
  EXPECT_NEAR(back.velocity[0], 200.0, 1e-6);
  EXPECT_EQ(back.sd[0], 1.5);
  ASSERT_EQ(ReadCurvePoints("wavelength [m],c [km/s]\n20,0.2\n", CurveForm::Named, "", back), "");
  EXPECT_EQ(back.frequency[0], 10.0);
  ASSERT_EQ(ReadCurvePoints("f slowness\n10 0.005\n", CurveForm::Named, "", back), "");
  EXPECT_EQ(back.velocity[0], 200.0);
  EXPECT_EQ(ReadCurvePoints("10,200\n20,180\n", CurveForm::Named, "", back),
            "no columns of frequency and velocity are named; say what the columns are");
  ASSERT_EQ(ReadCurvePoints("20,180\n10,200\n", CurveForm::Named, "f,v", back), "");
  EXPECT_THAT(back.frequency, ElementsAre(10.0, 20.0)) << "by frequency";
  EXPECT_EQ(ReadCurvePoints("f [h],v\n1,2\n", CurveForm::Named, "", back),
            "the column \"f [h]\" has a unit that is not known");
  EXPECT_EQ(ReadCurvePoints("f,v\n1,0\n", CurveForm::Named, "", back),
            "point 1 has a frequency of 1 Hz and a velocity of 0 m/s");
}

TEST(TableForms, LayeredModelReadBackIsTheSameTable) {
  LayeredModel model, back;
  ASSERT_EQ(LayeredModelOf(Known().profiles[0], 1.0, model), "");
  EXPECT_EQ(LayersText(model), "3\n5 300 150 1800\n10 500 250 1800\n0 800 400 1800\n");
  ASSERT_EQ(ReadLayers(LayersText(model), back), "");
  EXPECT_EQ(LayersText(back), LayersText(model));
  EXPECT_THAT(DisbaText(model), HasSubstr("\n0.005 0.3 0.15 1.8\n"));
  ASSERT_EQ(ReadDisba(DisbaText(model), back), "");
  EXPECT_EQ(DisbaText(back), DisbaText(model));
  ASSERT_EQ(ReadLayers("2\n5 300 150 1800 50 25\n0 800 400 1900 50 25\n", back), "") << "with Qp and Qs";
  EXPECT_THAT(back.vs, ElementsAre(150.0, 400.0));
}

TEST(TableForms, DensitiesHaveToBeInOneUnitThatCanBeTold) {
  LayeredModel model;
  ProfileTable p = Known().profiles[0];
  for (ProfileLayer& l : p.layers) l.density = 1900;
  ASSERT_EQ(LayeredModelOf(p, 1.0, model), "");
  EXPECT_EQ(model.density[0], 1900.0);
  p.layers[1].density = 1.9;
  EXPECT_THAT(LayeredModelOf(p, 1.0, model), HasSubstr("the densities are neither all between 0.5 and 5"));
  for (ProfileLayer& l : p.layers) l.density = 112.5;
  EXPECT_THAT(LayeredModelOf(p, 1.0, model), HasSubstr("the densities are neither"));
}

TEST(TableForms, LayersThatCannotBeAreRefused) {
  LayeredModel m;
  EXPECT_EQ(ReadLayers("5 300 150 1800\n", m), "the first line is not a number of layers");
  EXPECT_EQ(ReadLayers("3\n5 300 150 1800\n0 800 400 1800\n", m), "3 layers are announced, and there are 2");
  EXPECT_EQ(ReadLayers("2\n0 300 150 1800\n0 800 400 1800\n", m),
            "layer 1 has a thickness of 0, Vp of 300, Vs of 150 and a density of 1800");
  EXPECT_EQ(ReadLayers("1\n0 800\n", m), "a layer is thickness, Vp, Vs and density, and here are 2 numbers");
  EXPECT_EQ(ReadLayers("", m), "the first line is not a number of layers");
}

TEST(TableForms, NoGlobalCurveIsNoCurve) {
  CurvePoints curve;
  EXPECT_FALSE(GlobalCurveOf(ProjectTables{}, curve));
}

}  // namespace
}  // namespace sondera::testing
