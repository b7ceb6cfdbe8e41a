// Tests of tables for export and import: the word write, curves and layers of other programs, and the command
// line's export with a format.
#include "app/table_export.h"

#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "app/script_fixture.h"
#include "app/show.h"
#include "panels/analresult.h"
#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/session.h"
#include "run/posterior_covariance.h"
#include "run/result_entries.h"
#include "run/run_state.h"
#include "runtime/catalogue/analresult.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "support/site_records.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

const std::filesystem::path kTop = std::filesystem::absolute(SONDERA_SOURCE_DIR);

class TableExportTest : public ScriptTest {
 protected:
  /// A curve of a known site, condensed, and an inversion of two iterations.
  void MakeSite() {
    test::WriteSitePair(folder.File("H31.hyx"), 14.0, 30.0);
    ASSERT_NE(
        Run("read hyx id=one files=H31.hyx source=0 at=14,30\npair one 1 2\nphase original\nmask 0 7\n"
            "mask 48 500\ndisperse\ncondense points=12\nlayers 2,3,4,6,80\nload global\nproject id=site\n"
            "invert iterations=2\nsave site.da\n"),
        1)
        << err << report;
  }
  int Program(const std::string& arguments) {
    const int raw = std::system(("cd '" + folder.Path() + "' && '" SONDERA_PROGRAM "' " + arguments +
                                 " >out.log 2>err.log </dev/null")
                                    .c_str());
    return WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  }
};

TEST_F(TableExportTest, AllFormsOfAnInvertedSite) {
  MakeSite();
  ASSERT_NE(  // the coarse inversion leaves doubts
      Run("write csv t\nwrite json t.json\nwrite swprepost t.txt\nwrite dinver t.din\nwrite gpdc t.gpdc\n"
          "write layers t.lay\nwrite disba t.dis\n"),
      1)
      << err;
  EXPECT_THAT(Read("t_curves.csv"), HasSubstr("\npair,one,1,2,"));
  EXPECT_THAT(Read("t_curves.csv"), HasSubstr("\nglobal,"));
  EXPECT_THAT(Read("t_curves.csv"), HasSubstr("\ncomputed,"));
  EXPECT_THAT(Read("t_profile.csv"), HasSubstr("\n0,1,0,2,2,"));
  EXPECT_THAT(Read("t_profile.csv"), HasSubstr("\n2,5,15,,,"));
  EXPECT_THAT(Read("t_figures.csv"), HasSubstr("\nvs30,30,"));
  EXPECT_TRUE(Read("t.txt").starts_with("#rayleigh 0,,\n"));
  EXPECT_THAT(report, HasSubstr("only the global curve is written"));
  EXPECT_TRUE(Read("t.lay").starts_with("5\n2 "));
  const auto j = nlohmann::json::parse(Read("t.json"));
  ASSERT_FALSE(j["profiles"].empty());
  EXPECT_EQ(j["profiles"].back()["iteration"], 2);
  EXPECT_NEAR(j["profiles"].back()["layers"][0]["vs"].get<double>(), InvParam.Vs(2, 0), 1e-12);
}

/// Writes the script that holds files against the schema, and gives its command; empty without the checker.
class SchemaTest : public TableExportTest {
 protected:
  std::string Checker() {
    if (std::system("python3 -c 'import jsonschema' 2>/dev/null") != 0) return {};
    Write("check.py",
          "import json, sys, jsonschema\n"
          "schema = json.load(open(sys.argv[1]))\n"
          "jsonschema.Draft202012Validator.check_schema(schema)\n"
          "for name in sys.argv[2:]: jsonschema.validate(json.load(open(name)), schema, "
          "jsonschema.Draft202012Validator)\n");
    return "cd '" + folder.Path() + "' && python3 -W ignore check.py '" +
           (kTop / "docs/sondera-export-1.schema.json").string() + "' ";
  }
};

TEST_F(SchemaTest, JsonAgreesWithTheSchema) {
  const std::string command = Checker();
  if (command.empty()) GTEST_SKIP() << "no python3-jsonschema";
  ASSERT_EQ(Run("write json empty.json"), 0) << err;
  MakeSite();
  ASSERT_NE(Run("write json site.json\nwrite json extended.json extend=yes"), 1) << err;
  EXPECT_EQ(std::system((command + "empty.json site.json extended.json").c_str()), 0);
  auto wrong = nlohmann::json::parse(Read("site.json"));
  wrong["version"] = "2.0";
  Write("wrong.json", wrong.dump());
  EXPECT_NE(std::system((command + "wrong.json 2>/dev/null").c_str()), 0) << "the check can fail";
}

TEST_F(SchemaTest, ProjectsOfTheExamplesAgreeWithTheSchema) {
#ifdef SONDERA_CHECK_BOUNDS
  GTEST_SKIP() << "two whole inversions take minutes in an instrumented build";
#endif
  const std::string command = Checker();
  if (command.empty()) GTEST_SKIP() << "no python3-jsonschema";
  test::WriteSiteRecords(folder.Path());
  test::WriteSitePair(folder.File("pair.hyx"), 14, 30);
  std::filesystem::copy(kTop / "examples/six_receivers/job.txt", folder.File("six.txt"));
  std::filesystem::copy(kTop / "examples/one_pair/job.txt", folder.File("one.txt"));
  ASSERT_NE(Program("run six.txt"), 1) << Read("err.log");
  ASSERT_NE(Program("--batch auto new one one.txt"), 1) << Read("err.log");
  std::string files;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    const std::string name = entry.path().filename();
    if (!name.ends_with(".da")) continue;
    ASSERT_EQ(Program("export --format=json " + name + " " + name + ".json"), 0) << Read("err.log");
    files += name + ".json ";
    EXPECT_THAT(Read(name + ".json"), HasSubstr("\"profiles\""));
  }
  EXPECT_EQ(std::count(files.begin(), files.end(), ' '), 2) << files;
  EXPECT_EQ(std::system((command + files).c_str()), 0);
}

TEST_F(TableExportTest, CsvOpensInPython) {
  MakeSite();
  ASSERT_NE(Run("write csv t\nwrite json t.json"), 1) << err;
  Write("check.py",
        "import csv, json\n"
        "for t in 'curves profile spectra masks figures'.split():\n"
        "  rows = list(csv.reader(open('t_%s.csv' % t, newline='', encoding='utf-8')))\n"
        "  assert rows and all(len(r) == len(rows[0]) for r in rows), t\n"
        "rows = list(csv.DictReader(open('t_curves.csv', newline='')))\n"
        "assert 100 < float(rows[0]['velocity [m/s]']) < 400\n"
        "def number(cell): return float(cell) if cell else None\n"
        "ours = [(number(r['frequency [Hz]']), number(r['velocity [m/s]'])) for r in rows]\n"
        "curves = json.load(open('t.json'))['curves']\n"
        "other = [p for c in curves for p in zip(c['frequency'], c['velocity'])]\n"
        "assert ours == other and len(ours) > 20, 'the same numbers, to the bit'\n");
  EXPECT_EQ(std::system(("cd '" + folder.Path() + "' && python3 check.py").c_str()), 0);
}

TEST_F(TableExportTest, FiguresHaveTheSameDigitsEverywhere) {
  MakeSite();
  ASSERT_NE(Run("write csv t only=figures extend=yes\nwrite json t.json extend=yes\nreport t.pdf"), 1) << err;
  const ProjectTables tables = OpenProjectTables(true), measured = OpenProjectTables(false);
  SetCtrlIndex(analresult::SEL_RESULT, kFigureTable);
  SetCtrlVal(exdthd::ITERNO, 2);
  PutTextResultsInBox();
  const std::string box = GetCtrlVal(analresult::RESULTS);
  const auto json = nlohmann::json::parse(Read("t.json"));
  const auto& rows = json["profiles"].back()["figures"];
  const auto& figures = tables.profiles.back().figures.figures;
  ASSERT_EQ(rows.size(), figures.size());
  for (std::size_t i = 0; i < figures.size(); ++i) {
    ASSERT_TRUE(figures[i].value && figures[i].low && figures[i].high);
    const std::string value = FigureDigits(*figures[i].value), low = FigureDigits(*figures[i].low);
    EXPECT_THAT(Read("t_figures.csv"), HasSubstr("," + value + "," + low + ","));
    EXPECT_EQ(ShortestText(rows[i]["value"].get<double>()), value);
    EXPECT_EQ(ShortestText(rows[i]["low"].get<double>()), low);
    EXPECT_THAT(ShowText(tables, {}, {}), HasSubstr(": " + value + " m/s (" + low + " to "));
  }
  const SiteFigure& figure = measured.profiles.back().figures.figures.back();
  ASSERT_TRUE(figure.value.has_value());
  EXPECT_THAT(box, HasSubstr(": " + FigureDigits(*figure.value) + " m/s ("));
  if (std::system("pdftotext -v 2>/dev/null") != 0) GTEST_SKIP() << "no pdftotext";
  ASSERT_EQ(std::system(("cd '" + folder.Path() + "' && pdftotext -layout t.pdf").c_str()), 0);
  EXPECT_THAT(Read("t.txt"), HasSubstr(": " + FigureDigits(*figure.value) + " m/s"));
}

TEST_F(TableExportTest, TheSpreadIsThatOfTheRunInMemory) {
  MakeSite();
  const ProjectTables tables = OpenProjectTables(true);
  const SiteFigure& vs30 = tables.profiles.back().figures.figures.front();
  const std::vector<double> covariance = VelocityCovariance(run, 2);
  ASSERT_EQ(covariance.size(), 25u);
  for (int i = 0; i < 5; ++i)
    EXPECT_NEAR(std::sqrt(covariance[static_cast<std::size_t>(6 * i)]), PosteriorDeviation(2, i), 1e-6);
  ASSERT_TRUE(vs30.spread && vs30.low && vs30.high);
  EXPECT_GT(*vs30.spread, 0.0);
  EXPECT_LE(*vs30.spread, *vs30.high - *vs30.low) << "all layers at one end are the farthest";
  EXPECT_TRUE(VelocityCovariance(run, 1).empty()) << "the matrices are those of the last update";
  ASSERT_NE(Run("open site.da"), 1) << err;
  EXPECT_EQ(OpenProjectTables(true).profiles.back().figures.figures.front().value.has_value(), true);
  ResetRunState();
  EXPECT_FALSE(OpenProjectTables(true).profiles.back().figures.figures.front().spread.has_value());
}

TEST_F(TableExportTest, OnlyNarrowsAndFilesAreReplacedOnDemand) {
  EXPECT_EQ(Run("write csv t only=masks,curves"), 0) << err;
  EXPECT_TRUE(Exists("t_masks.csv") && Exists("t_curves.csv") && !Exists("t_profile.csv"));
  EXPECT_EQ(Run("write csv t only=masks"), 1);
  EXPECT_THAT(err, HasSubstr("\"t_masks.csv\" exists; overwrite=yes replaces it"));
  EXPECT_EQ(Run("write csv t only=masks overwrite=yes"), 0) << err;
  EXPECT_EQ(Check("write csv t only=mask"), 1);
  EXPECT_THAT(err, HasSubstr("only= takes curves, profile, spectra, masks and figures"));
  EXPECT_EQ(Check("write json t only=masks"), 1);
  EXPECT_EQ(Check("write target t"), 1);
  EXPECT_EQ(Check("write csv t geopsy=3"), 1);
}

TEST_F(TableExportTest, WhatIsNotThereIsSaid) {
  EXPECT_EQ(Run("write gpdc t"), 1);
  EXPECT_THAT(err, HasSubstr("there is no global curve; condense the curves of the pairs first"));
  EXPECT_FALSE(Exists("t"));
}

TEST_F(TableExportTest, LayersOfAnotherProgramBecomeTheLayerTable) {
  Write("m.txt", "2\n5 300 150 1800\n0 800 400 1900\n");
  EXPECT_EQ(Run("layers m.txt form=layers"), 1);
  EXPECT_THAT(err, HasSubstr("the half-space has no thickness there, and needs one here: halfspace="));
  ASSERT_EQ(Run("layers m.txt form=layers halfspace=30\nwrite layers back.txt"), 0) << err;
  EXPECT_EQ(Read("back.txt"), Read("m.txt"));
  Write("d.txt", "0.005 0.3 0.15 1.8\n0.03 0.8 0.4 1.9\n");
  ASSERT_EQ(Run("layers d.txt form=disba\nwrite layers back2.txt"), 0) << err;
  EXPECT_EQ(Read("back2.txt"), Read("m.txt"));
  EXPECT_EQ(Check("layers 1,2 halfspace=3"), 1);
}

TEST_F(TableExportTest, CurvesOfOtherProgramsBecomeMeasurements) {
  Write("c.txt", "# Mode 0\n10 0.005\n20 0.00625\n");
  ASSERT_EQ(Run("curves read c.txt id=g"), 0) << err;
  const int key = GetKeyFromID(session.curProjID, "g@c");
  const PMeasInfo* pair = FindPair(key, 0, 1);
  ASSERT_NE(pair, nullptr);
  ASSERT_EQ(pair->nDispPoints, 2);
  EXPECT_EQ(pair->dispVel[0], 200.0);
  EXPECT_EQ(pair->dispVel[1], 160.0);
  EXPECT_EQ(pair->included, 1);
  Write("two.txt", "10,200\n20,160\n");
  EXPECT_EQ(Run("curves read two.txt"), 1);
  EXPECT_THAT(err,
              HasSubstr("two.txt: no columns of frequency and velocity are named; say what the columns are"));
  EXPECT_EQ(Run("curves read two.txt columns=f,v"), 0) << err;
  EXPECT_EQ(Check("curves read a.exd id=x"), 1);
}

TEST_F(TableExportTest, MenuItemsImportTheCurvesOfTheWord) {
  Write("c.csv", "frequency [Hz],velocity [m/s]\n10,200\n20,160\n");
  Write("d.txt", "10\t0.005\t1.05\n20\t0.00625\t1.05\n");
  ASSERT_EQ(
      Run("new\ncurves read c.csv\ncurves read d.txt form=dinver\nwrite json word.json\nnew discard=yes\n"
          "answer file c.csv\npress MAINMENU.LOAD_CURVE\nanswer file d.txt\npress MAINMENU.LOAD_DINVER\n"
          "write json menu.json"),
      0)
      << err;
  EXPECT_TRUE(IsPanelShown(Panel::DISPCURV));
  EXPECT_GE(GetKeyFromID(session.curProjID, "curve@c"), 0);
  EXPECT_EQ(Read("menu.json"), Read("word.json"));
  EXPECT_THAT(Read("menu.json"), HasSubstr("curve@d"));
}

TEST_F(TableExportTest, AMenuItemAsksForColumnsWithoutNames) {
  Write("two.txt", "10,200\n20,160\n");
  ASSERT_EQ(Run("answer file two.txt\nanswer text \"f,v\"\npress MAINMENU.LOAD_CURVE"), 0) << err;
  const PMeasInfo* pair = FindPair(GetKeyFromID(session.curProjID, "curve@two"), 0, 1);
  ASSERT_NE(pair, nullptr);
  EXPECT_EQ(pair->dispVel[1], 160.0);
  Write("bad.txt", "10,200\n20,160\n");
  EXPECT_EQ(Run("answer file bad.txt\nanswer cancel\npress MAINMENU.LOAD_CURVE"), 1);
  EXPECT_EQ(Run("answer file bad.txt\nanswer text \"a,b\"\npress MAINMENU.LOAD_CURVE"), 1);
  EXPECT_THAT(err, HasSubstr("bad.txt: no columns of frequency and velocity are named"));
  EXPECT_LT(GetKeyFromID(session.curProjID, "curve@bad"), 0);
}

TEST_F(TableExportTest, MenuItemsImportLayersAndAskForTheHalfSpace) {
  Write("m.txt", "2\n5 300 150 1800\n0 800 400 1900\n");
  Write("d.txt", "0.005 0.3 0.15 1.8\n0.03 0.8 0.4 1.9\n");
  ASSERT_EQ(Run("answer file m.txt\nanswer text \"30\"\npress MAINMENU.LOAD_LAYERS\nwrite layers back.txt"),
            0)
      << err;
  EXPECT_EQ(Read("back.txt"), Read("m.txt"));
  EXPECT_EQ(GetTableCellVal(fmodeling::SOILPROFILE, 2, 1), 30.0);
  ASSERT_EQ(Run("layers 1,2,3\nanswer file d.txt\npress MAINMENU.LOAD_DISBA\nwrite layers back2.txt"), 0)
      << err;
  EXPECT_EQ(Read("back2.txt"), Read("m.txt"));
  ASSERT_EQ(Run("press MAINMENU.UNDO"), 0) << err;
  EXPECT_EQ(GetNumTableRows(fmodeling::SOILPROFILE), 3) << "the import is one step";
  for (const char* answer : {"0", "-1", "deep", "nan"}) {
    EXPECT_EQ(
        Run(std::string("answer file m.txt\nanswer text \"") + answer + "\"\npress MAINMENU.LOAD_LAYERS"), 1);
    EXPECT_THAT(err, HasSubstr("is no thickness above 0.")) << answer;
  }
  Write("cut.txt", "3\n5 300 150 1800\n0 800 400 1900\n");
  EXPECT_EQ(Run("answer file cut.txt\npress MAINMENU.LOAD_LAYERS"), 1);
  EXPECT_THAT(err, HasSubstr("cut.txt: 3 layers are announced, and there are 2."));
  EXPECT_EQ(GetNumTableRows(fmodeling::SOILPROFILE), 3) << "a refused file changes nothing";
}

/// A spreadsheet opens each table without a person; what its cells hold is compared with what we wrote.
TEST_F(TableExportTest, CsvOpensInASpreadsheet) {
  if (std::system("soffice --version >/dev/null 2>&1") != 0) GTEST_SKIP() << "no LibreOffice";
  MakeSite();
  ASSERT_NE(Run("write csv t"), 1) << err;
  // Commas, quotes, UTF-8, English numbers.
  const std::string convert = "cd '" + folder.Path() + "' && HOME='" + folder.Path() +
                              "' soffice --headless '--infilter=CSV:44,34,76,1,,1033' --convert-to fods "
                              "--outdir sheets t_*.csv >convert.log 2>&1";
  ASSERT_EQ(std::system(convert.c_str()), 0) << Read("convert.log");
  Write("check.py",
        "import csv, xml.etree.ElementTree as tree\n"
        "T = '{urn:oasis:names:tc:opendocument:xmlns:table:1.0}'\n"
        "O = '{urn:oasis:names:tc:opendocument:xmlns:office:1.0}'\n"
        "def times(e, what): return min(int(e.get(T + 'number-%s-repeated' % what, 1)), 100)\n"
        "def value(c): return c.get(O + 'value') or ''.join(c.itertext()).strip()\n"
        "def cells(row): return [value(c) for c in row for _ in range(times(c, 'columns'))]\n"
        "numbers = 0\n"
        "for t in 'curves profile spectra masks figures'.split():\n"
        "  ours = list(csv.reader(open('t_%s.csv' % t, newline='', encoding='utf-8')))\n"
        "  rows = list(tree.parse('sheets/t_%s.fods' % t).iter(T + 'table-row'))\n"
        "  theirs = [cells(r) for r in rows for _ in range(times(r, 'rows'))]\n"
        "  assert len(theirs) >= len(ours), t\n"
        "  for a, b in zip(ours, theirs):\n"
        "    for x, y in zip(a, b + [''] * (len(a) - len(b))):\n"
        "      if x == y: continue\n"
        "      numbers += 1\n"
        "      assert abs(float(x) - float(y)) <= 1e-14 * abs(float(x)), (t, x, y)\n"
        "print(numbers, 'numbers have other digits')\n");
  EXPECT_EQ(std::system(("cd '" + folder.Path() + "' && python3 check.py").c_str()), 0);
}

TEST_F(TableExportTest, CommandLineExportsTables) {
  MakeSite();
  ASSERT_EQ(Program("export --format=json site.da a.json"), 0) << Read("err.log");
  ASSERT_EQ(Program("export --format=json site.da b.json"), 0);
  EXPECT_EQ(Read("a.json"), Read("b.json"));
  EXPECT_EQ(nlohmann::json::parse(Read("a.json"))["project"]["name"], "site");
  ASSERT_EQ(Program("export --format=csv --only=curves,profile site.da t"), 0);
  EXPECT_TRUE(Exists("t_curves.csv") && Exists("t_profile.csv") && !Exists("t_masks.csv"));
  ASSERT_EQ(Program("export --format=swprepost site.da t.txt"), 0);
  EXPECT_THAT(Read("err.log"), HasSubstr("the form names a mode (rayleigh 0)"));
  EXPECT_EQ(Program("export --format=target site.da t2.txt"), 1);
  EXPECT_THAT(Read("err.log"), HasSubstr("\"target\" is not one of csv|json|"));
  EXPECT_EQ(Program("export --format=csv --only=all site.da t2"), 1);
  EXPECT_EQ(Program("export --format=csv none.da t2"), 1);
  EXPECT_EQ(Program("export --format=csv site.da"), 1);
  EXPECT_THAT(Read("err.log"), HasSubstr("--format= goes with export, a project and a name to write to"));
  EXPECT_EQ(Program("--only=curves --help"), 1) << "without a format there is nothing to narrow";
}

TEST_F(TableExportTest, ALocaleWithCommasChangesNoByte) {
  if (std::system(
          ("localedef -i de_DE -f UTF-8 '" + folder.File("de_DE.UTF-8") + "' >/dev/null 2>&1").c_str()) != 0)
    GTEST_SKIP() << "no sources of locales";
  MakeSite();
  Write("comma.py", "import locale\nlocale.setlocale(locale.LC_ALL, '')\nassert locale.str(0.5) == '0,5'\n");
  const std::string german = "export LOCPATH='" + folder.Path() + "' LC_ALL=de_DE.UTF-8; ";
  const auto run = [&](const std::string& command) {
    return std::system(("cd '" + folder.Path() + "'; " + command + " >/dev/null 2>&1 </dev/null").c_str());
  };
  ASSERT_EQ(run(german + "python3 comma.py"), 0) << "the locale has commas";
  const std::string program = "'" SONDERA_PROGRAM "' export --format=";
  for (const char* form : {"csv", "json", "swprepost", "dinver", "layers"}) {
    ASSERT_EQ(run("export LC_ALL=C; " + program + form + " site.da c_" + form), 0) << form;
    ASSERT_EQ(run(german + program + form + " site.da d_" + form), 0) << form;
    const std::string end = form == std::string("csv") ? "_curves.csv" : "";
    EXPECT_GT(Read("c_" + std::string(form) + end).size(), 20u);
    EXPECT_EQ(Read("d_" + std::string(form) + end), Read("c_" + std::string(form) + end)) << form;
  }
  EXPECT_EQ(Read("d_csv_profile.csv"), Read("c_csv_profile.csv"));
  EXPECT_EQ(Read("d_csv_figures.csv"), Read("c_csv_figures.csv"));
}

TEST_F(TableExportTest, ExportWithoutAFormatTakesSixWordsAlone) {
  MakeSite();
  for (const char* words : {"site.da t", "site.da t one 1 2", "site.da t one 1 2 3 4"}) {
    EXPECT_EQ(Program(std::string("export ") + words), 1);
    EXPECT_THAT(Read("err.log"), HasSubstr("export takes six words")) << words;
  }
  EXPECT_FALSE(Exists("t"));
}

}  // namespace
}  // namespace sondera::testing
