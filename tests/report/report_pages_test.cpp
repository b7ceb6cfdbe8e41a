// The pages of the reports: every mark compared with a prediction, and the contents of each kind of page for
// each project.
#include <algorithm>
#include <cmath>

#include "records/inv_records.h"
#include "records/model_records.h"
#include "report/dispersion_pages.h"
#include "report/unit_labels.h"
#include "report_fixture.h"
#include "support/comma_locale.h"
#include "support/odd_numbers.h"

namespace sondera::testing {
namespace {

/// Half the length that a page computes for a text.
double Half(const std::string& text, double size) {
  return 0.5 * static_cast<double>(text.size()) * size / 37.5;
}

bool Has(const std::vector<std::string>& texts, const std::string& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

long Count(const std::vector<std::string>& texts, const std::string& text) {
  return std::count(texts.begin(), texts.end(), text);
}

class ReportPages : public ReportTest {};

TEST_F(ReportPages, PhasesHaveEachMarkOnce) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  PMeasInfo& pair = AddPair("A1");
  for (std::size_t k = 0; k < 9; ++k) {
    pair.hPhase[k] = k % 2 ? 90.0 : -45.0;
    pair.phaseOrig[k] = 100.0 * static_cast<double>(k);  // folds to 0, -100, 160, 60, -40, -140, 120, 20, -80
  }
  AddMask(pair, 20.0, 35.0, 7);
  AddMask(pair, 90.0, 95.0, 8);  // above the last frequency
  Prediction page(2.0, 18.0, 15.0, 4.0);
  const double folded[] = {0, -100, 160, 60, -40, -140, 120, 20, -80};
  const auto x = [](int k) { return 15.0 * k / 8.0; };
  const auto y = [](double phase) { return (phase + 180.0) * 4.0 / 360.0; };
  for (int k = 1; k < 9; ++k) {
    page.Line(x(k - 1), y(pair.hPhase[static_cast<std::size_t>(k - 1)]), x(k),
              y(pair.hPhase[static_cast<std::size_t>(k)]), 0.5);
    page.Line(x(k - 1), y(folded[k - 1]), x(k), y(folded[k]), 0.1);
  }
  page.Area({{x(2), 4.0}, {x(2), 0.0}, {15.0 * 3.5 / 8.0, 0.0}, {15.0 * 3.5 / 8.0, 4.0}}, 0.8);
  page.Text(15.0 * (35.0 - 0.8) / 80.0, y(185.0), "7");
  std::vector<double> placesX, placesY;
  for (int i = 0; i <= 5; ++i) {
    placesX.push_back(3.0 * i);
    const std::string number = std::to_string(16 * i);
    page.Text(3.0 * i - Half(number, 10), -1.4 * 10 / 37.5, number);
  }
  const char* numbers[] = {"  -180", "   -90", "     0", "    90", "   180"};
  for (int j = 0; j <= 4; ++j) {
    placesY.push_back(j);
    page.Text(-1.4, j - 0.5 * 10 / 37.5, numbers[j]);
  }
  page.Ticks(placesX, true);
  page.Ticks(placesY, false);
  page.Frame();
  page.Text(7.5 - Half("Frequency, Hz", 12), -0.7, "Frequency, Hz");
  page.Text(-1.7, 4.2, "ProjID:A1 [Included in Disp. Curve]");
  page.Text(-2.0, -18.0, "/data/site.da");
  ExpectSameMarks(page.marks, MarksOf(ReportKind::phases, 1));
}

TEST_F(ReportPages, DispersionHasEachMarkOnce) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  // Triangles and squares are recognised by their corners: the second curve.
  SetCurve(AddPair("A1"), {10.0}, {200.0});               // 20 m
  SetCurve(AddPair("B2"), {40.0, 20.0}, {120.0, 160.0});  // 3 m, 8 m: right of the middle
  const auto draw = [](double bottom, double min, double max, bool wavelength) {
    Prediction page(2.0, bottom, 15.0, 9.0);
    const auto x = [=](double v) { return 15.0 * std::log10(v / min) / std::log10(max / min); };
    const auto y = [](double v) { return 9.0 * (v - 120.0) / (210.0 - 120.0); };
    const auto square = [&](double cx, double cy) {
      page.Area(
          {{cx - 0.05, cy - 0.05}, {cx - 0.05, cy + 0.05}, {cx + 0.05, cy + 0.05}, {cx + 0.05, cy - 0.05}},
          0.0);
    };
    square(x(wavelength ? 3.0 : 40.0), y(120.0));
    square(x(wavelength ? 8.0 : 20.0), y(160.0));
    square(1.0, 7.5);
    page.Text(1.22, 7.725, "A1[1:2]");
    page.Text(1.22, 7.425, "B2[1:2]");
    std::vector<double> placesX;
    for (const double decade : {1.0, 10.0})
      for (int m = 1; m <= 9; ++m)
        if (m * decade >= min && m * decade <= max) placesX.push_back(x(m * decade));
    page.Ticks(placesX, true);
    // Fewer than two powers of ten: 2 and 5 have numbers, too.
    for (const double v : {5.0, 10.0, 20.0, 50.0}) {
      if (v < min || v > max) continue;
      const std::string number = std::to_string(static_cast<int>(v));
      page.Text(x(v) - Half(number, 10), -1.4 * 10 / 37.5, number);
    }
    page.Ticks({0.0, 4.5, 9.0}, false);
    page.Text(-1.4, -0.5 * 10 / 37.5, "   120");
    page.Text(-1.4, 4.5 - 0.5 * 10 / 37.5, "   165");
    page.Text(-1.4, 9.0 - 0.5 * 10 / 37.5, "   210");
    page.Frame();
    const std::string label = wavelength ? "Wavelength, m" : "Frequency, Hz";
    page.Text(7.5 - Half(label, 12), -0.7, label);
    page.Text(-1.7, 4.5 - Half("Phase Velocity, m/sec", 12), "Phase Velocity, m/sec");
    page.Text(-1.7, 9.2,
              std::string("Phase-Velocity Dispersion Curve in ") + (wavelength ? "Wavelength" : "Frequency") +
                  " Domain");
    if (wavelength) page.Text(-2.0, -bottom, "/data/site.da");
    return page.marks;
  };
  // Ranges: velocities 120..200 round to 120..210, wavelengths 3..20 to 3..30, frequencies 10..40 to 10..50.
  std::vector<Mark> expected = draw(14.0, 3.0, 30.0, true), lower = draw(2.5, 10.0, 50.0, false);
  expected.insert(expected.end(), lower.begin(), lower.end());
  std::vector<Mark> found = MarksOf(ReportKind::dispersion, 1);
  // Curves have their end points in a trace: circles are recognised by their width of line.
  const auto circle = [](const Mark& mark) { return mark.kind == 'l' && mark.width == 0.25; };
  EXPECT_GT(std::count_if(found.begin(), found.end(), circle), 0);
  std::erase_if(found, circle);
  ExpectSameMarks(expected, found);
}

TEST_F(ReportPages, CirclesAreTwiceAsWideAsSquares) {
  SetCurve(AddPair("A1"), {10.0, 20.0}, {200.0, 150.0});
  EXPECT_NE(BytesOf(ReportKind::dispersion).find(" 2.8 0 360 arc stroke"), std::string::npos);
}

TEST_F(ReportPages, AStripHasEachMarkOnce) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  AddEntries(1, 1);
  const std::vector<Mark> found = MarksOf(ReportKind::results, 3);  // entry 1
  // Vs 100, 150, 200 with s = sqrt(0.25) * 0.1 * Vs: band of a tenth. Upper band 220, axis to 300; end depth 8, bottom
  // 8 + 1.5 = 9.5, axis to 10.
  Prediction strip(2.0, 2.5, 4.8, 18.0);
  const double tops[] = {0.0, 2.0, 5.0, 8.0}, Vs[] = {100.0, 150.0, 200.0};
  const auto y = [](double depth) { return 18.0 * (1.0 - depth / 10.0); };
  for (const double factor : {1.0, 0.9, 1.1}) {
    const auto x = [=](int i) { return 4.8 * factor * Vs[i] / 300.0; };
    const double width = factor == 1.0 ? 0.5 : 0.1;
    for (int i = 0; i < 3; ++i) {
      strip.Line(x(i), y(tops[i]), x(i), y(tops[i + 1]), width, factor != 1.0);
      if (i > 0) strip.Line(x(i - 1), y(tops[i]), x(i), y(tops[i]), width, factor != 1.0);
    }
  }
  std::vector<double> placesX, placesY;
  const char* numbers[] = {"0", "75", "150", "225", "300"};
  for (int i = 0; i <= 4; ++i) {
    placesX.push_back(1.2 * i);
    strip.Text(1.2 * i - Half(numbers[i], 6), 18.4 - 1.4 * 6 / 37.5, numbers[i]);
  }
  // Two divisions of depth by the leading digit of 10: one.
  strip.Text(-1.4, -0.5 * 10 / 37.5, "    10");
  strip.Text(-1.4, 18.0 - 0.5 * 10 / 37.5, "     0");
  strip.Ticks(placesX, true);
  strip.Ticks({0.0, 18.0}, false);
  strip.Frame();
  strip.Text(2.4 - Half("S-Wave Vel., m/sec", 5), 18.7, "S-Wave Vel., m/sec");
  strip.Text(-1.7, 9.0 - Half("Depth, m", 12), "Depth, m");
  std::vector<Mark> left;
  const double edge = OnSheetX(2.0 + 4.8 + 0.05);
  // Outside the strip: the head and footer, and the strip beside it, whose first number extends beyond it.
  std::copy_if(found.begin(), found.end(), std::back_inserter(left), [&](const Mark& m) {
    return m.x1 < edge && m.x2 < edge && m.y1 > OnSheetY(1.0) && m.y1 < OnSheetY(22.0);
  });
  ExpectSameMarks(strip.marks, left);
  EXPECT_TRUE(Has(TextsOf(ReportKind::results, 3), "Iteration No. : 1 ....... [RMS Error = 2.5]"));
}

TEST_F(ReportPages, TheSheetOfStripsHasEachMarkOnce) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  AddEntries(1, 1);
  const double tops[] = {0.0, 2.0, 5.0, 8.0};
  const auto y = [](double depth) { return 18.0 * (1.0 - depth / 10.0); };
  std::vector<Mark> expected;
  const auto strip = [&](double left, double width, double min, double max, const std::vector<double>& values,
                         const std::vector<double>& bands, const std::vector<std::string>& numbers,
                         const std::string& label) {
    Prediction page(left, 2.5, width, 18.0);
    const auto x = [&](double v) { return width * (v - min) / (max - min); };
    const auto stairs = [&](double side) {
      const auto at = [&](std::size_t i) { return x(values[i] + side * (bands.empty() ? 0.0 : bands[i])); };
      for (std::size_t i = 0; i < 3; ++i) {
        page.Line(at(i), y(tops[i]), at(i), y(tops[i + 1]), side == 0.0 ? 0.5 : 0.1, side != 0.0);
        if (i > 0 && at(i) != at(i - 1))
          page.Line(at(i - 1), y(tops[i]), at(i), y(tops[i]), side == 0.0 ? 0.5 : 0.1, side != 0.0);
      }
    };
    stairs(0.0);
    if (!bands.empty()) {
      stairs(-1.0);
      stairs(1.0);
    }
    std::vector<double> places;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      places.push_back(width * static_cast<double>(i) / static_cast<double>(numbers.size() - 1));
      page.Text(places.back() - Half(numbers[i], 6), 18.4 - 1.4 * 6 / 37.5, numbers[i]);
    }
    page.Ticks(places, true);
    page.Ticks({0.0, 18.0}, false);
    page.Frame();
    page.Text(width / 2.0 - Half(label, 5), 18.7, label);
    expected.insert(expected.end(), page.marks.begin(), page.marks.end());
  };
  // Vs 100, 150, 200 with 2 s a tenth of it; Vp twice as much, its band wider by the root of 3 (nu = 0.25).
  const double root3 = std::sqrt(3.0);
  strip(2.0, 4.8, 0, 300, {100, 150, 200}, {10, 15, 20}, {"0", "75", "150", "225", "300"},
        "S-Wave Vel., m/sec");
  strip(7.0, 4.8, 0, 500, {200, 300, 400}, {10 * root3, 15 * root3, 20 * root3},
        {"0", "125", "250", "375", "500"}, "P-Wave Vel., m/sec");
  strip(12.0, 1.3, 0, 0.8, {0.75, 0.75, 0.75}, {}, {"0", "0.8"}, "Resol.");
  strip(13.5, 1.3, 1.8, 2.1, {1.8, 1.9, 2.0}, {}, {"1.8", "2.1"}, "Mass D.");
  strip(15.0, 1.3, 0, 0.5, {0.25, 0.25, 0.25}, {}, {"0", "0.5"}, "P.Ratio");
  // Numbers of the depth stand beside the first strip only.
  Prediction first(2.0, 2.5, 4.8, 18.0);
  first.Text(-1.4, -0.5 * 10 / 37.5, "    10");
  first.Text(-1.4, 18.0 - 0.5 * 10 / 37.5, "     0");
  first.Text(-1.7, 9.0 - Half("Depth, m", 12), "Depth, m");
  first.Text(-2.0, -2.5, "/data/site.da");
  first.Text(-2.0, 20.5, "Iteration No. : 1 ....... [RMS Error = 2.5]");
  expected.insert(expected.end(), first.marks.begin(), first.marks.end());
  ExpectSameMarks(expected, MarksOf(ReportKind::results, 3));
}

TEST_F(ReportPages, TheFitHasEachMarkOnce) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  AddEntries(0, 0);  // computed: 120 m/s at 10 Hz and 12 m, a square
  // Ranges: velocities 100..200 round to 100..300, wavelengths 5..40 to 5..50, frequencies 5..20 to 5..30.
  SetCurve(AddPair("A1"), {5.0, 20.0}, {200.0, 100.0});
  TheoDispInfo.dispCurvType = 1;
  FModelParam.nDispPointsG = 1;  // measured: a circle
  FModelParam.globalVel = {130.0};
  FModelParam.globalFreq = {11.0};
  FModelParam.globalWlen = {130.0 / 11.0};
  const auto draw = [](double bottom, double min, double max, bool wavelength) {
    Prediction page(2.0, bottom, 15.0, 9.0);
    const auto x = [=](double v) { return 15.0 * std::log10(v / min) / std::log10(max / min); };
    const auto square = [&](double cx, double cy) {
      page.Area(
          {{cx - 0.05, cy - 0.05}, {cx - 0.05, cy + 0.05}, {cx + 0.05, cy + 0.05}, {cx + 0.05, cy - 0.05}},
          0.0);
    };
    // Recognised by the ends of its quarters. Its radius is the 0.1 cm that other shapes are wide.
    const auto circle = [&](double cx, double cy) {
      const double ends[][2] = {{0.1, 0}, {0, 0.1}, {-0.1, 0}, {0, -0.1}, {0.1, 0}};
      for (int i = 0; i < 4; ++i)
        page.Line(cx + ends[i][0], cy + ends[i][1], cx + ends[i + 1][0], cy + ends[i + 1][1], 0.25);
    };
    circle(x(wavelength ? 130.0 / 11.0 : 11.0), 9.0 * (130.0 - 100.0) / 200.0);
    circle(12.0, 7.9);
    square(x(wavelength ? 12.0 : 10.0), 9.0 * (120.0 - 100.0) / 200.0);
    // The last point of the curve has the shortest wavelength: the legend is on the right.
    square(12.0, 7.6);
    page.Text(12.22, 7.825, "Experimental");
    page.Text(12.22, 7.525, "Theoretical");
    std::vector<double> placesX;
    for (const double decade : {1.0, 10.0})
      for (int m = 1; m <= 9; ++m)
        if (m * decade >= min && m * decade <= max) placesX.push_back(x(m * decade));
    page.Ticks(placesX, true);
    for (const double v : {5.0, 10.0, 20.0, 50.0}) {
      if (v < min || v > max) continue;
      const std::string number = std::to_string(static_cast<int>(v));
      page.Text(x(v) - Half(number, 10), -1.4 * 10 / 37.5, number);
    }
    const char* numbers[] = {"   100", "166.667", "233.333", "   300"};
    for (int i = 0; i < 4; ++i) page.Text(-1.4, 3.0 * i - 0.5 * 10 / 37.5, numbers[i]);
    page.Ticks({0.0, 3.0, 6.0, 9.0}, false);
    page.Frame();
    const std::string label = wavelength ? "Wavelength, m" : "Frequency, Hz";
    page.Text(7.5 - Half(label, 12), -0.7, label);
    page.Text(-1.7, 4.5 - Half("Phase Velocity, m/sec", 12), "Phase Velocity, m/sec");
    page.Text(-1.7, 9.2, "Experimental vs. Theoretical Dispersion Curves");
    if (wavelength) page.Text(-2.0, -bottom, "/data/site.da");
    return page.marks;
  };
  std::vector<Mark> expected = draw(14.0, 5.0, 50.0, true);
  const std::vector<Mark> lower = draw(2.5, 5.0, 30.0, false);
  expected.insert(expected.end(), lower.begin(), lower.end());
  ExpectSameMarks(expected, MarksOf(ReportKind::results, 2));
}

TEST_F(ReportPages, FourPairsAPage) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  const std::pair<int, int> pages[] = {{1, 1}, {4, 1}, {5, 2}, {8, 2}, {9, 3}};
  int pairs = 0;
  for (const auto& [count, wanted] : pages) {
    while (pairs < count) AddPair("M" + std::to_string(++pairs));
    EXPECT_EQ(TraceOfReport(ReportKind::phases).pages, wanted) << count;
  }
}

TEST_F(ReportPages, APairWithoutAMeasurementTakesNoPlace) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  for (int i = 1; i <= 4; ++i) AddPair("M" + std::to_string(i));
  const std::string before = BytesOf(ReportKind::phases);
  PMeasInfo& stray = AddPair("M1");
  stray.key = 99;
  EXPECT_TRUE(BytesOf(ReportKind::phases) == before);
}

TEST_F(ReportPages, EqualDataDrawNothingAndLeaveTheNextGraphWhereItWas) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  AddPair("A1");
  AddPair("B2").hPhase[3] = 20.0;
  std::vector<Mark> whole = MarksOf(ReportKind::phases, 1);
  MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(MeasDB.pMeasList.at(1)->key))->deltaF = 0.0;
  const std::vector<Mark> rest = MarksOf(ReportKind::phases, 1);
  const double field = OnSheetY(12.5 + 4.0 + 0.75);  // above the second graph
  EXPECT_GT(std::count_if(whole.begin(), whole.end(), [&](const Mark& m) { return m.y1 > field; }), 10);
  std::erase_if(whole, [&](const Mark& m) { return m.y1 > field; });
  ExpectSameMarks(whole, rest);
}

TEST_F(ReportPages, EqualVelocitiesDrawNoDispersionGraph) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  SetCurve(AddPair("A1"), {10.0, 20.0}, {200.0, 200.0});
  EXPECT_EQ(MarksOf(ReportKind::dispersion, 1).size(), 1u);  // the foot
}

TEST_F(ReportPages, ArrayAndGlobalCurvesHaveAPage) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  PMeasInfo& pair = AddPair("A1");
  SetCurve(pair, {10.0, 20.0}, {200.0, 150.0});
  EXPECT_EQ(TraceOfReport(ReportKind::dispersion).pages, 1);
  const auto add = [](RecordList<DispInfo>& list, int key, double vel) {
    DispInfo& d = *list.append();
    SetupDispArrays(d, 1);
    d.nPoints = 1;
    d.key = key;
    d.dspChan = 1;
    d.freq[1] = 12.0;
    d.vel[1] = vel;
    d.wlen[1] = vel / 12.0;
  };
  add(MeasDB.gDispList, 0, 180.0);
  add(MeasDB.aDispList, pair.key, 170.0);
  std::vector<std::string> texts = TextsOf(ReportKind::dispersion, 2);
  EXPECT_TRUE(Has(texts, "Array Representative Dispersion Curve"));
  EXPECT_TRUE(Has(texts, "Global Representative Dispersion Curve"));
  EXPECT_TRUE(Has(texts, "A1[1:2]"));
  // An array curve whose first pair is not included is left out.
  pair.included = 0;
  EXPECT_EQ(CheckADisp(pair.key), 0);
  EXPECT_EQ(CheckADisp(77), 0);
  SetCurve(AddPair("B2"), {10.0, 20.0}, {200.0, 150.0});
  texts = TextsOf(ReportKind::dispersion, 2);
  EXPECT_FALSE(Has(texts, "Array Representative Dispersion Curve"));
  EXPECT_TRUE(Has(texts, "Global Representative Dispersion Curve"));
}

TEST_F(ReportPages, AHaltedRunHasItsStoredEntries) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  AddEntries(2, 5);
  EXPECT_EQ(TraceOfReport(ReportKind::results).pages, 6);
  input.entries.push_back(9);  // never stored
  EXPECT_EQ(TraceOfReport(ReportKind::results).pages, 6);
}

TEST_F(ReportPages, AConstantDensityLeavesItsStripOut) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  AddEntries(1, 1);
  std::vector<Mark> whole = MarksOf(ReportKind::results, 3);
  for (int i = 0; i < 3; ++i) InvParam.density(1, i) = 2.0;
  EXPECT_FALSE(Has(TextsOf(ReportKind::results, 3), "Mass D."));
  const auto inStrip = [](const Mark& m) {
    // Its numbers are above its edges.
    const double from = OnSheetX(13.5), to = OnSheetX(14.8), reach = m.kind == 't' ? 9.5 : 0.1;
    return m.x1 > from - reach && m.x1 < to + 0.1 && m.y1 > OnSheetY(2.0) && m.y1 < OnSheetY(22.0);
  };
  std::erase_if(whole, inStrip);
  ExpectSameMarks(whole, MarksOf(ReportKind::results, 3));
}

TEST_F(ReportPages, TheFitHasMeasuredAndComputedCurves) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  AddEntries(0, 0);
  SetCurve(AddPair("A1"), {5.0, 20.0}, {200.0, 100.0});
  TheoDispInfo.dispCurvType = 1;
  FModelParam.nDispPointsG = 1;
  FModelParam.globalVel = {130.0};
  FModelParam.globalFreq = {11.0};
  FModelParam.globalWlen = {130.0 / 11.0};
  const std::vector<std::string> texts = TextsOf(ReportKind::results, 2);
  EXPECT_EQ(Count(texts, "Experimental vs. Theoretical Dispersion Curves"), 2);
  EXPECT_EQ(Count(texts, "Experimental"), 2);
  EXPECT_EQ(Count(texts, "Theoretical"), 2);
}

TEST_F(ReportPages, UnitsHaveTheirLabels) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  struct Labels {
    double unit;
    const char *wavelength, *velocity, *sWave, *pWave, *depth;
  };
  const Labels units[] = {
      {1.0, "Wavelength, m", "Phase Velocity, m/sec", "S-Wave Vel., m/sec", "P-Wave Vel., m/sec", "Depth, m"},
      {0.01, "Wavelength, cm", "Phase Velocity, cm/sec", "S-Wave Vel., cm/sec", "P-Wave Vel., cm/sec",
       "Depth, cm"},
      {0.3048, "Wavelength, ft", "Phase Velocity, ft/sec", "S-Wave Vel., ft/sec", "P-Wave Vel., ft/sec",
       "Depth, ft"},
      {0.0254, "Wavelength, in", "Phase Velocity, in/sec", "S-Wave Vel, in/sec", "P-Wave Vel., in/sec",
       "Depth, in"}};
  SetCurve(AddPair("A1"), {10.0, 20.0}, {200.0, 150.0});
  AddEntries(0, 0);
  for (const Labels& labels : units) {
    MeasDB.measSetupList.at(1)->lengthUnit = labels.unit;
    input.unitFactor = ProjectUnit();
    const std::vector<std::string> curves = TextsOf(ReportKind::dispersion, 1),
                                   strips = TextsOf(ReportKind::results, 1);
    EXPECT_EQ(Count(curves, labels.wavelength), 1);
    EXPECT_EQ(Count(curves, labels.velocity), 2);
    EXPECT_EQ(Count(strips, labels.sWave), 1);
    EXPECT_EQ(Count(strips, labels.pWave), 1);
    EXPECT_EQ(Count(strips, labels.depth), 1);
  }
}

TEST_F(ReportPages, EverythingLiesOnBothSheets) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  PMeasInfo& pair = AddPair(std::string(250, 'M'));
  for (std::size_t k = 0; k < 9; ++k) pair.hPhase[k] = 20.0 * static_cast<double>(k);
  SetCurve(pair, {10.0, 20.0}, {200.0, 150.0});
  AddEntries(1, 1);
  input.projectFile = "/" + std::string(280, 'W') + "/site.da";
  std::vector<test::TraceMark> marks;
  for (const double unit : {1.0, 0.01, 0.3048, 0.0254}) {
    MeasDB.measSetupList.at(1)->lengthUnit = unit;
    input.unitFactor = ProjectUnit();
    for (test::TraceMark& mark : TraceOfReport(ReportKind::whole).marks) marks.push_back(std::move(mark));
  }
  for (const test::TraceMark& mark : marks) {
    for (const auto& path : mark.paths) {
      for (const test::TracePoint& p : path) {
        // Letters of Courier have 0.6 of their size; of Helvetica none has more than 1.02.
        const double length =
            mark.kind == test::TraceMark::text && mark.string.find("WWW") == std::string::npos
                ? 0.6 * mark.size * static_cast<double>(mark.string.size())
            : mark.kind == test::TraceMark::text ? 0.944 * 11 * static_cast<double>(mark.string.size() - 10)
                                                 : 0.0;
        const bool upright = mark.string.starts_with("Phase Velocity") || mark.string.starts_with("Depth");
        EXPECT_GE(p.x, 0.0);
        EXPECT_LE(p.x + (upright ? 0.0 : length), 595.0) << mark.string;
        EXPECT_GE(p.y, 0.0);
        EXPECT_LE(p.y + (upright ? length : 0.0), 792.0) << mark.string;
      }
    }
  }
}

TEST_F(ReportPages, ValuesThatAreNoNumbersStayOutOfTheFile) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  AddPair("A1").hPhase[2] = 50.0;
  PMeasInfo& bad = AddPair("B2");
  SetCurve(*MeasDB.pMeasList.at(1), {10.0, 20.0}, {200.0, 150.0});
  AddEntries(1, 1);
  bad.included = 0;
  const std::vector<Mark> phases = MarksOf(ReportKind::phases, 1);
  const std::vector<Mark> curves = MarksOf(ReportKind::dispersion, 1);
  bad.included = 1;
  const double values[] = {kNaN, kInf, -kInf, 1e308, 0.0, -5.0};
  for (std::size_t i = 0; i < 6; ++i) bad.hPhase[i] = bad.phaseOrig[i] = values[i];
  for (int i = 0; i < 3; ++i) InvParam.Vs(1, i) = InvParam.Vp(1, i) = InvParam.resolution(1, i) = values[i];
  InvParam.depth(1, 1) = kNaN;
  InvParam.nu(1, 1) = 0.5;
  InvParam.rms[1] = 3.0;
  bad.nDispPoints = 6;
  for (std::size_t i = 0; i < 6; ++i) bad.dispVel[i] = bad.dispFreq[i] = bad.dispWlen[i] = values[i];
  const std::string bytes = BytesOf(ReportKind::whole);
  EXPECT_EQ(bytes.find("nan"), std::string::npos);
  EXPECT_EQ(bytes.find("inf"), std::string::npos);
  EXPECT_EQ(bytes.find("e+308"), std::string::npos);
  TraceOfReport(ReportKind::whole);  // Ghostscript takes it
  const auto upper = [](std::vector<Mark> marks) {
    std::erase_if(marks, [](const Mark& m) { return m.y1 < OnSheetY(17.2); });
    return marks;
  };
  ExpectSameMarks(upper(phases), upper(MarksOf(ReportKind::phases, 1)));
  // Of the curves there is one row of the legend more, without a point.
  std::vector<Mark> found = MarksOf(ReportKind::dispersion, 1);
  EXPECT_EQ(std::count_if(found.begin(), found.end(), [](const Mark& m) { return m.text == "B2[1:2]"; }), 2);
  std::erase_if(found, [](const Mark& m) { return m.text == "B2[1:2]" || m.kind == 'a'; });
  ExpectSameMarks(curves, found);
}

TEST_F(ReportPages, HostileNamesAreReadBack) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  AddPair("Site (A");
  AddPair("b)\\c");
  AddPair("%d %s");
  AddPair("Größe – 5 µm");
  input.projectFile = "C:\\data\\Site (A.da";
  const std::vector<std::string> texts = TextsOf(ReportKind::phases, 1);
  EXPECT_TRUE(Has(texts, "ProjID:Site (A [Included in Disp. Curve]"));
  EXPECT_TRUE(Has(texts, "ProjID:b)\\c [Included in Disp. Curve]"));
  EXPECT_TRUE(Has(texts, "ProjID:%d %s [Included in Disp. Curve]"));
  EXPECT_TRUE(Has(texts,
                  "ProjID:Gr\xF6\xDF"
                  "e - 5 \xB5m [Included in Disp. Curve]"));
  EXPECT_TRUE(Has(texts, "C:\\data\\Site (A.da"));
  EXPECT_NE(BytesOf(ReportKind::phases).find("(C:\\\\data\\\\Site \\(A.da) S"), std::string::npos);
}

TEST_F(ReportPages, PlainDocumentsHaveNoFontCode) {
  AddPair("A1");
  EXPECT_EQ(BytesOf(ReportKind::phases).find("Latin1"), std::string::npos);
  AddPair("é");
  EXPECT_NE(BytesOf(ReportKind::phases).find("/Courier UseLatin1"), std::string::npos);
}

TEST_F(ReportPages, BytesDoNotHangOnTheTimeOrTheLocale) {
  SetCurve(AddPair("A1"), {10.5, 20.0}, {200.0, 150.0});
  AddEntries(1, 1);
  const std::string first = BytesOf(ReportKind::whole);
  EXPECT_TRUE(first == BytesOf(ReportKind::whole));
  const test::CommaLocale comma;
  if (!comma.Available()) GTEST_SKIP() << "no locale with a decimal comma";
  EXPECT_TRUE(first == BytesOf(ReportKind::whole));
}

}  // namespace
}  // namespace sondera::testing
