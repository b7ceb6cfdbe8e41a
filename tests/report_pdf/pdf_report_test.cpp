// The PDF report as other programs read it: pages, texts, fonts, and the parts that a report leaves out.
#include "report_pdf/pdf_report.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <string>

#include "report_pdf/pdf_pages.h"
#include "support/comma_locale.h"
#include "support/failing_file_driver.h"
#include "support/temp_folder.h"
#include "support/tool_run.h"

namespace sondera {
namespace {

ProfileLayer Layer(double top, double thickness, double vs) {
  ProfileLayer l;
  l.top = top;
  l.thickness = thickness;
  l.vs = vs;
  l.low = vs - 10.0;
  l.high = vs + 10.0;
  l.sd = 5.0;
  l.resolution = 0.75;
  l.vp = 2.0 * vs;
  l.poisson = 0.333;
  l.density = 1.9;
  return l;
}

/// Three layers down to 40 m, seen to 50 m.
PdfReport WholeReport() {
  PdfReport report;
  report.projectFile = "/data/site.da";
  report.texts = {"Report of a test", "Green field", "A client", "An office", ""};
  report.longestWavelength = 100.0;
  MeasurementTable m;
  m.id = "A1";
  m.origin = "measured";
  m.receivers = {2.0, 4.0};
  m.averages = 5;
  SpectrumTable s;
  for (int i = 0; i < 20; ++i) {
    s.frequency.push_back(5.0 * i);
    s.wrapped.push_back(100.0 * std::sin(i));
    s.coherence.push_back(0.9);
  }
  m.spectra = {s};
  m.masks = {{1, 2, 10.0, 20.0, 3}};
  report.tables.measurements = {m};
  CurveTable curve;
  curve.kind = "pair";
  curve.measurement = "A1";
  curve.reference = 1;
  curve.channel = 2;
  curve.frequency = {10.0, 20.0};
  curve.velocity = {300.0, 200.0};
  curve.wavelength = {30.0, 10.0};
  curve.velocitySd = {NAN, NAN};
  report.tables.curves = {curve};
  ProfileTable start, last;
  start.kind = "starting";
  start.iteration = 0;
  start.rms = 9.0;
  last.kind = "inverted";
  last.iteration = 1;
  last.rms = 4.25;
  last.layers = {Layer(0.0, 10.0, 150.0), Layer(10.0, 30.0, 300.0), Layer(40.0, NAN, 600.0)};
  last.layers[1].isFixed = true;
  start.layers = last.layers;
  const SiteProfile site = SiteProfileOf(last, 1.0, report.longestWavelength);
  EXPECT_EQ(FiguresOf(site, false, last.figures), "");
  last.classes = ClassesOf(site, last.figures);
  report.tables.profiles = {start, last};
  report.measured = {{"", {300.0, 200.0}, {10.0, 20.0}, {30.0, 10.0}}};
  report.computed = {{"", {310.0, 195.0}, {10.0, 20.0}, {31.0, 9.75}}};
  report.making = {{"Program", "Sondera"}, {"Solver", "plane waves"}};
  report.doubts = {"the weighted misfit ends at 12"};
  return report;
}

class PdfReportTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!HavePdfAndPng()) GTEST_SKIP() << "built without PDF";
    setenv("SOURCE_DATE_EPOCH", "1000000000", 1);
  }
  void TearDown() override { unsetenv("SOURCE_DATE_EPOCH"); }

  std::string Write(const PdfReport& report, Paper paper = Paper::A4) {
    const std::string name = folder.File("report.pdf");
    const Refusal refusal = WritePdfReport(name, report, paper);
    EXPECT_FALSE(refusal) << refusal.reason();
    return name;
  }
  std::string TextOf(const PdfReport& report) {
    const test::ToolRun run = test::RunTool("pdftotext -layout " + Write(report) + " -");
    EXPECT_EQ(run.status, 0) << run.output;
    return run.output;
  }
  test::TempFolder folder;
};

#define SKIP_WITHOUT(tool) \
  if (!test::HaveTool(tool)) GTEST_SKIP() << "no program " tool

bool Has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST_F(PdfReportTest, PagesAreNumberedOnBothPapers) {
  SKIP_WITHOUT("pdfinfo");
  const PdfReport report = WholeReport();
  for (const Paper paper : {Paper::A4, Paper::Letter}) {
    const std::string info = test::RunTool("pdfinfo " + Write(report, paper)).output;
    EXPECT_TRUE(Has(info, paper == Paper::A4 ? "595.276 x 841.89 pts (A4)" : "612 x 792 pts (letter)"))
        << info;
    EXPECT_TRUE(Has(info, "Report of a test")) << info;
    EXPECT_TRUE(Has(info, "An office")) << info;
    EXPECT_TRUE(Has(info, "Pages:           7")) << info;
  }
  const std::string text = TextOf(report);
  for (int page = 1; page <= 7; ++page)
    EXPECT_TRUE(Has(text, "Page " + std::to_string(page) + " of 7")) << text;
  EXPECT_TRUE(Has(text, "Green field, site.da"));
  EXPECT_TRUE(Has(text, "2001-09-09"));
}

TEST_F(PdfReportTest, ContentsLabelsAndFontsAreInTheFile) {
  SKIP_WITHOUT("pdffonts");
  const std::string name = Write(WholeReport());
  const std::string bytes = test::ReadWhole(name);
  EXPECT_TRUE(Has(bytes, "/Outlines")) << "the reader's table of contents";
  EXPECT_TRUE(Has(bytes, "/PageLabels"));
  for (const char* page :
       {"Summary", "Set-up", "Phases", "Dispersion curves", "Fit", "Profile", "How it was made"})
    EXPECT_TRUE(Has(bytes, std::string("(") + page + ")")) << page;
  const test::ToolRun fonts =
      test::RunTool("pdffonts " + name + " | tail -n +3 | awk '{print $(NF-4)}' | sort -u");
  EXPECT_EQ(fonts.output, "yes\n") << "each font is embedded";
}

TEST_F(PdfReportTest, TextsHaveTheFiguresAndEachLayer) {
  SKIP_WITHOUT("pdftotext");
  const PdfReport report = WholeReport();
  const std::string text = TextOf(report);
  // 30 m: 10 m at 150 m/s and 20 m at 300 m/s.
  const double vs30 = 30.0 / (10.0 / 150.0 + 20.0 / 300.0);
  const ProfileTable& profile = *ReportedProfile(report);
  ASSERT_TRUE(profile.figures.figures.front().value.has_value());
  EXPECT_NEAR(*profile.figures.figures.front().value, vs30, 1e-9);
  EXPECT_TRUE(Has(text, "Vs30: " + FigureDigits(vs30) + " m/s")) << text;
  EXPECT_TRUE(Has(text, ClassText(profile.classes.front()))) << text;
  EXPECT_TRUE(Has(text, "Sondera")) << text;
  EXPECT_TRUE(Has(text, "RMS 4.25 m/s, iteration 1")) << text;
  for (const char* part :
       {"150.0", "140.0 to 160.0", "300.0", "290.0 to 310.0", "600.0", "half-space", "fixed", "free", "0.75",
        "1.9", "A client", "A1 [1:2], spacing 2 m", "plane waves", "the weighted misfit ends at 12"})
    EXPECT_TRUE(Has(text, part)) << part << "\n" << text;
}

TEST_F(PdfReportTest, WhatIsMissingIsNamedOnTheFirstPage) {
  SKIP_WITHOUT("pdftotext");
  PdfReport report = WholeReport();
  report.measured.clear();
  report.tables.profiles.clear();
  std::string text = TextOf(report);
  EXPECT_TRUE(Has(text, "the project does not have it: fit and profile.")) << text;
  EXPECT_TRUE(Has(text, "Page 1 of 5")) << text;
  EXPECT_TRUE(Has(text, "Vs30: not available")) << text;
  text = TextOf(PdfReport{});
  EXPECT_TRUE(Has(text, "Page 1 of 1")) << text;
  EXPECT_FALSE(Has(text, "Client")) << text;
}

TEST_F(PdfReportTest, AShallowProfileHasNoBareFigure) {
  SKIP_WITHOUT("pdftotext");
  PdfReport report = WholeReport();
  ProfileTable& profile = report.tables.profiles.back();
  report.longestWavelength = 20.0;
  EXPECT_EQ(FiguresOf(SiteProfileOf(profile, 1.0, 20.0), false, profile.figures), "");
  const std::string text = TextOf(report);
  EXPECT_TRUE(Has(text, "Vs30: not available")) << text;
  EXPECT_TRUE(Has(text, "half the")) << text;
  EXPECT_FALSE(Has(text, "Vs30: 2")) << text;
}

TEST_F(PdfReportTest, DepthsThatWereNotSeenAreShaded) {
  PdfReport report = WholeReport();
  for (const ProfileQuantity quantity : {ProfileQuantity::Vs, ProfileQuantity::Resolution})
    EXPECT_TRUE(ProfileGraph(report, quantity).rectangles.empty()) << "all of it was seen";
  report.longestWavelength = 30.0;
  const GraphModel graph = ProfileGraph(report, ProfileQuantity::Vs);
  ASSERT_EQ(graph.rectangles.size(), 1u);
  EXPECT_EQ(graph.rectangles[0].y1, 15.0);
  EXPECT_EQ(graph.rectangles[0].y2, graph.yAxis.max);
  // Two points a layer, the last one down to the end of the axis.
  EXPECT_EQ(graph.plots[0].x, (std::vector<double>{150, 150, 300, 300, 600, 600}));
  EXPECT_EQ(graph.plots[0].y, (std::vector<double>{0, 10, 10, 40, 40, 50}));
  EXPECT_EQ(graph.plots[1].x[0], 140.0);
  EXPECT_EQ(graph.plots[2].x[0], 160.0);
}

TEST_F(PdfReportTest, OneRecordHasNoCoherenceAndIsNoAverage) {
  SKIP_WITHOUT("pdftotext");
  PdfReport report = WholeReport();
  EXPECT_FALSE(Has(TextOf(report), "one record"));
  Column& coherence = report.tables.measurements[0].spectra[0].coherence;
  for (const double value : {1.0, static_cast<double>(NAN)}) {
    coherence.assign(coherence.size(), value);
    const std::string text = TextOf(report);
    EXPECT_TRUE(Has(text, "not known: one record, or a transfer function")) << text;
    const std::size_t averages = text.find_first_not_of(' ', text.find("0 to 95") + 7);
    ASSERT_NE(averages, std::string::npos) << text;
    EXPECT_EQ(text.substr(averages, 2), "1 ") << "five were wanted" << text;
  }
}

TEST_F(PdfReportTest, NoTitleOfAColumnIsCut) {
  SKIP_WITHOUT("pdftotext");
  const std::string text = TextOf(WholeReport());
  EXPECT_FALSE(Has(text, "…")) << text;
  for (const char* title : {"Averages", "Resolution", "Density", "Held"})
    EXPECT_TRUE(Has(text, title)) << text;
}

TEST_F(PdfReportTest, ReceiversAreListedOrCountedButNotCut) {
  SKIP_WITHOUT("pdftotext");
  PdfReport report = WholeReport();
  Column& receivers = report.tables.measurements[0].receivers;
  receivers = {10.0, 14.0, 22.0, 30.0, 42.0, 54.0};
  std::string text = TextOf(report);
  EXPECT_TRUE(Has(text, "10, 14, 22, 30, 42, 54")) << text;
  EXPECT_TRUE(Has(text, "4, 8, 8, 12, 12")) << text;
  receivers.clear();
  for (int i = 0; i < 24; ++i) receivers.push_back(2.0 * i);
  text = TextOf(report);
  EXPECT_TRUE(Has(text, "0 to 46 (24)")) << text;
  receivers.back() += 3.0;
  text = TextOf(report);
  EXPECT_TRUE(Has(text, "0 to 49 (24)")) << text;
  EXPECT_TRUE(Has(text, "2 to 5")) << text;
  EXPECT_FALSE(Has(text, "…")) << text;
}

TEST_F(PdfReportTest, TheNoteSpeaksOfGreyWhereThereIsSome) {
  PdfReport report = WholeReport();
  EXPECT_FALSE(Has(ProfileNote(report), "Grey"));
  report.longestWavelength = 30.0;
  EXPECT_TRUE(Has(ProfileNote(report), "Grey"));
}

TEST_F(PdfReportTest, EqualContentsAreEqualBytes) {
  const PdfReport report = WholeReport();
  const std::string first = test::ReadWhole(Write(report));
  EXPECT_TRUE(first == test::ReadWhole(Write(report)));
}

TEST_F(PdfReportTest, ADecimalCommaChangesNoByte) {
  const PdfReport report = WholeReport();
  const std::string point = test::ReadWhole(Write(report));
  const test::CommaLocale comma;
  if (!comma.Available()) GTEST_SKIP() << "no locale with a decimal comma";
  EXPECT_TRUE(point == test::ReadWhole(Write(report)));
}

TEST_F(PdfReportTest, HostileTextsAndValuesMakeASoundFile) {
  SKIP_WITHOUT("pdftotext");
  PdfReport report = WholeReport();
  report.texts.title =
      "Site (A b)\\c %d %s <tag> Gr\xF6\xDF"
      "e \x01";
  report.texts.site = std::string(5000, 'M');
  report.tables.measurements[0].id = std::string(300, 'W');
  const double values[] = {NAN, INFINITY, -INFINITY, 1e308, 0.0, -5.0};
  for (std::size_t i = 0; i < 6; ++i) {
    report.tables.measurements[0].spectra[0].wrapped[i] = values[i];
    report.tables.profiles[1].layers.push_back(Layer(values[i], values[i], values[i]));
    report.measured[0].vel.push_back(values[i]);
    report.measured[0].freq.push_back(values[i]);
    report.measured[0].wlen.push_back(values[i]);
  }
  const std::string text = TextOf(report);
  EXPECT_TRUE(Has(text, "Site (A b)\\c %d %s <tag> Größe")) << text;
  EXPECT_FALSE(Has(text, "nan")) << text;
}

TEST_F(PdfReportTest, ManyLayersAndDoubtsGoOn) {
  SKIP_WITHOUT("pdftotext");
  PdfReport report = WholeReport();
  for (int i = 0; i < 100; ++i) {
    report.tables.profiles[1].layers.push_back(Layer(40.0 + i, 1.0, 1000.5 + i));
    report.doubts.push_back("doubt number " + std::to_string(i) +
                            " with a number of words behind it that fill the line");
  }
  const std::string text = TextOf(report);
  EXPECT_TRUE(Has(text, "Profile: iteration 1, continued"));
  EXPECT_TRUE(Has(text, "How it was made, continued"));
  for (int i = 0; i < 100; ++i) {
    EXPECT_TRUE(Has(text, NumberText(1000.5 + i, 1))) << i;
    EXPECT_TRUE(Has(text, "doubt number " + std::to_string(i) + " ")) << i;
  }
}

TEST_F(PdfReportTest, AFullDiskLeavesTheFormerReport) {
  const PdfReport report = WholeReport();
  const std::string name = folder.File("report.pdf");
  test::WriteWhole(name, "former");
  {
    test::FilePlan plan;
    plan.failWrite = 1;
    plan.everAfter = true;
    plan.error = ENOSPC;
    const test::FailingFileDriver driver(plan);
    const Refusal refusal = WritePdfReport(name, report, Paper::A4);
    EXPECT_TRUE(refusal);
    EXPECT_TRUE(Has(refusal.reason(), "No space")) << refusal.reason();
  }
  EXPECT_EQ(test::ReadWhole(name), "former");
  EXPECT_EQ(folder.Names().size(), 1u);
  EXPECT_TRUE(WritePdfReport(folder.File("no/report.pdf"), report, Paper::A4));
}

TEST(SiteTexts, AreKeptBesideTheProject) {
  const test::TempFolder folder;
  const std::string project = folder.File("site.da");
  EXPECT_EQ(SiteTextsFile(project), folder.File("site.report.txt"));
  EXPECT_EQ(SiteTextsFile(""), "");
  EXPECT_EQ(ReadSiteTexts(project).title, "") << "no file yet";
  EXPECT_TRUE(WriteSiteTexts("", {}));
  ASSERT_FALSE(WriteSiteTexts(project, {"A: title", "two\nlines", "Größe", "", std::string(300, 'x')}));
  const SiteTexts texts = ReadSiteTexts(project);
  EXPECT_EQ(texts.title, "A: title");
  EXPECT_EQ(texts.site, "two lines");
  EXPECT_EQ(texts.client, "Größe");
  EXPECT_EQ(texts.operatorName, "");
  EXPECT_EQ(texts.date.size(), 200u);
  test::WriteWhole(folder.File("site.report.txt"), "Title : x \r\nnonsense\nCLIENT: y");
  EXPECT_EQ(ReadSiteTexts(project).title, "x");
  EXPECT_EQ(ReadSiteTexts(project).client, "y");
}

TEST(SiteTexts, CutAtASpaceEndWithoutIt) {
  const SiteTexts texts =
      SiteTextsIn("site: " + std::string(199, 'x') + " behind\nsite\n: y\nDATE:\t\x01 May \x7f\r\n");
  EXPECT_EQ(texts.site, std::string(199, 'x'));
  EXPECT_EQ(texts.date, "May");
  EXPECT_EQ(SiteTextsIn(SiteTextsLines(texts)).site, texts.site);
}

TEST(SiteTexts, AFileOfAnotherKindIsNotRead) {
  const test::TempFolder folder;
  const std::string project = folder.File("site.da");
  ASSERT_EQ(mkfifo(SiteTextsFile(project).c_str(), S_IRUSR | S_IWUSR), 0);
  EXPECT_EQ(ReadSiteTexts(project).title, "") << "and nobody waits for what comes out of a pipe";
  const std::string other = folder.File("other.da");
  ASSERT_EQ(mkdir(SiteTextsFile(other).c_str(), S_IRWXU), 0);
  EXPECT_EQ(ReadSiteTexts(other).title, "");
}

}  // namespace
}  // namespace sondera
