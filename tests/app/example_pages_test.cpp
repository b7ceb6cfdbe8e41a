// The PostScript report of the examples: every mark of every page, as Ghostscript draws it, against a prediction of it from
// the records of the project by plain arithmetic.
#include <sys/wait.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "numeric/scale_arithmetic.h"
#include "panels/entry_lists.h"
#include "panels/mainmenu_plot.h"
#include "panels/mainmenu_project.h"
#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "records/session.h"
#include "run/result_entries.h"
#include "runtime/text_format.h"
#include "support/app_fixture.h"
#include "support/no_display.h"
#include "support/page_marks.h"
#include "support/site_records.h"

namespace sondera {
namespace {

const std::string kExamples = std::filesystem::absolute(SONDERA_SOURCE_DIR "/examples").string();

using testing::Mark;
using testing::MarksOfPage;
using testing::Prediction;

/// Half the length that a page reckons for a text, cm.
double Half(const std::string& text, double size) {
  return 0.5 * static_cast<double>(text.size()) * size / 37.5;
}

struct Limits {
  double min = INFINITY, max = -INFINITY;
  void Take(double v) {
    min = std::min(min, v);
    max = std::max(max, v);
  }
};

double NiceMax(double max) {
  double low = 0.0, high = 0.0;
  CalcNiceMinMax(0.0, max, 0, &low, &high);
  return high;
}

Limits Nice(const Limits& data, int logarithmic) {
  Limits nice = data;
  CalcNiceMinMax(data.min, data.max, logarithmic, &nice.min, &nice.max);
  return nice;
}

/// Divisions of an axis: the first digit of its end.
int LeadingDigit(double v) {
  return static_cast<int>(v / std::pow(10.0, std::trunc(std::log(v) / std::log(10.0))));
}

double At(int i, int divisions, const Limits& limits) {
  return i == divisions ? limits.max : limits.min + i * (limits.max - limits.min) / divisions;
}

/// Numbers, ticks and grid of a linear axis at the left.
void LinearY(Prediction& page, double height, int divisions, const Limits& limits, bool numbers) {
  std::vector<double> places;
  for (int j = 0; j <= divisions; ++j) {
    places.push_back(height * j / divisions);
    const double value = At(j, divisions, limits);
    if (numbers)
      page.Text(-1.4, places.back() - 0.5 * 10 / 37.5,
                FormatText("%6g", std::fabs(value) < 1e-9 ? 0.0 : value));
  }
  page.Ticks(places, false);
}

void Add(std::vector<Mark>& marks, const Prediction& page) {
  marks.insert(marks.end(), page.marks.begin(), page.marks.end());
}

// ---- phases --------------------------------------------------------------------------------------------------------

struct PairOfProject {
  const PMeasInfo* pair;
  const HWSetup* hw;
  std::string id;
};

std::vector<PairOfProject> PairsOfProject() {
  std::vector<PairOfProject> pairs;
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    const IDInfo* id = MeasDB.idList.at(MeasDB.idList.findKey(pair.key));
    const HWSetup* hw = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(pair.key));
    if (id && hw) pairs.push_back({&pair, hw, id->ProjID + ":" + id->MeasID});
  }
  return pairs;
}

Prediction PhaseGraph(const PairOfProject& p, double bottom) {
  const PMeasInfo& pair = *p.pair;
  const double end = p.hw->freqSpan < 0.0 ? p.hw->stopFreq : p.hw->freqSpan;
  // The empty measurement of a new project has no band: all of its lines are drawn.
  const double line = std::round(end / p.hw->deltaF);
  const double last =
      std::min(line > 0.0 ? line : p.hw->nLines - 1.0, static_cast<double>(pair.hPhase.size()) - 1.0);
  const double max = last * p.hw->deltaF;
  Prediction page(2.0, bottom, 15.0, 4.0);
  const auto x = [&](double f) { return 15.0 * f / max; };
  const auto y = [](double phase) { return (phase + 180.0) * 4.0 / 360.0; };
  const auto folded = [&](std::size_t k) {
    const double u = pair.phaseOption == 1   ? pair.phaseEn[k]
                     : pair.phaseOption == 2 ? pair.phaseBB[k]
                                             : pair.phaseOrig[k];
    return -u - 360.0 * std::ceil((-u - 180.0) / 360.0);
  };
  for (std::size_t k = 1; k <= static_cast<std::size_t>(last); ++k) {
    const double from = static_cast<double>(k - 1) * p.hw->deltaF, to = static_cast<double>(k) * p.hw->deltaF;
    page.Line(x(from), y(pair.hPhase[k - 1]), x(to), y(pair.hPhase[k]), 0.5);
    page.Line(x(from), y(folded(k - 1)), x(to), y(folded(k)), 0.1);
  }
  for (const MaskingInfo& mask : MeasDB.maskingList) {
    if (mask.key != pair.key || mask.refChan != pair.refChan || mask.dspChan != pair.dspChan ||
        mask.freqInit > max)
      continue;
    const double to = std::min({mask.freqFinal, end, max});
    page.Area({{x(mask.freqInit), 4.0}, {x(mask.freqInit), 0.0}, {x(to), 0.0}, {x(to), 4.0}}, 0.8);
    page.Text(x(to - 0.01 * max), y(185.0), std::to_string(mask.jumpNo));
  }
  std::vector<double> places;
  for (int i = 0; i <= 5; ++i) {
    places.push_back(3.0 * i);
    const std::string number = FormatText("%g", At(i, 5, {0.0, max}));
    page.Text(3.0 * i - Half(number, 10), -1.4 * 10 / 37.5, number);
  }
  page.Ticks(places, true);
  LinearY(page, 4.0, 4, {-180.0, 180.0}, true);
  page.Frame();
  page.Text(7.5 - Half("Frequency, Hz", 12), -0.7, "Frequency, Hz");
  page.Text(-1.7, 4.2, p.id + (pair.included == 1 ? " [Included in Disp. Curve]" : ""));
  return page;
}

// ---- curves --------------------------------------------------------------------------------------------------------

struct Curve {
  std::string label;
  std::vector<double> vel, freq, wlen;
};

struct Ranges {
  Limits vel, freq, wlen;
  double legendX = 1.0;
};

Ranges RangesOf(const std::vector<Curve>& curves) {
  Limits vel, freq, wlen;
  for (const Curve& curve : curves) {
    for (const double v : curve.vel) vel.Take(v);
    for (const double v : curve.freq) freq.Take(v);
    for (const double v : curve.wlen) wlen.Take(v);
  }
  Ranges ranges{Nice(vel, 0), Nice(freq, 1), Nice(wlen, 1)};
  if (curves.back().wlen.back() < std::sqrt(wlen.min * wlen.max)) ranges.legendX = 12.0;
  return ranges;
}

std::string Label(const std::string& id, int ref, int channel) {
  return FormatText("%s[%d:%d]", id.c_str(), ref + 1, channel + 1);
}

std::vector<Curve> IncludedCurves() {
  std::vector<Curve> curves;
  for (const PairOfProject& p : PairsOfProject()) {
    const PMeasInfo& pair = *p.pair;
    if (pair.included != 1 || pair.nDispPoints < 1) continue;
    Curve curve{Label(p.id.substr(p.id.find(':') + 1), pair.refChan, pair.dspChan), pair.dispVel,
                pair.dispFreq, pair.dispWlen};
    for (auto* column : {&curve.vel, &curve.freq, &curve.wlen})
      column->resize(static_cast<std::size_t>(pair.nDispPoints));
    curves.push_back(curve);
  }
  return curves;
}

Curve CurveOf(const DispInfo& d, const std::string& label) {
  Curve curve{label, {}, {}, {}};
  for (int i = 1; i <= d.nPoints; ++i) {
    curve.vel.push_back(d.vel[i]);
    curve.freq.push_back(d.freq[i]);
    curve.wlen.push_back(d.wlen[i]);
  }
  return curve;
}

/// A graph of curves without its curves.
struct CurveGraph {
  Prediction page;
  Limits x, y;
  bool wavelength;

  CurveGraph(double bottom, bool overWavelength, const Ranges& ranges, const std::string& title)
      : page(2.0, bottom, 15.0, 9.0),
        x(overWavelength ? ranges.wlen : ranges.freq),
        y(ranges.vel),
        wavelength(overWavelength) {
    std::vector<double> places;
    int powers = 0;
    const auto within = [&](double v) { return v >= x.min * (1 - 1e-9) && v <= x.max * (1 + 1e-9); };
    for (int d = -5; d <= 5; ++d) powers += within(std::pow(10.0, d));
    for (int d = -5; d <= 5; ++d) {
      for (int m = 1; m <= 9; ++m) {
        const double v = m * std::pow(10.0, d);
        if (!within(v)) continue;
        places.push_back(X(v));
        if (m != 1 && !(powers < 2 && (m == 2 || m == 5))) continue;
        const std::string number = FormatText("%g", v);
        page.Text(X(v) - Half(number, 10), -1.4 * 10 / 37.5, number);
      }
    }
    page.Ticks(places, true);
    LinearY(page, 9.0, LeadingDigit(y.max), y, true);
    page.Frame();
    const std::string label = wavelength ? "Wavelength, m" : "Frequency, Hz";
    page.Text(7.5 - Half(label, 12), -0.7, label);
    page.Text(-1.7, 4.5 - Half("Phase Velocity, m/sec", 12), "Phase Velocity, m/sec");
    page.Text(-1.7, 9.2, title);
  }
  double X(double v) const { return 15.0 * std::log10(v / x.min) / std::log10(x.max / x.min); }
  double Y(double v) const { return 9.0 * (v - y.min) / (y.max - y.min); }
  /// Points within the frame.
  void Points(const Curve& curve, int shape, int kind) {
    const std::vector<double>& at = wavelength ? curve.wlen : curve.freq;
    for (std::size_t i = 0; i < curve.vel.size(); ++i) {
      const double px = X(at[i]), py = Y(curve.vel[i]);
      if (px > -1e-6 && px < 15.0 + 1e-6 && py > -1e-6 && py < 9.0 + 1e-6) page.Symbol(px, py, shape, kind);
    }
  }
  void Legend(double left, double row, int shape, int kind, const std::string& text) {
    page.Symbol(left, row, shape, kind);
    page.Text(left + 0.22, row - 0.075, text);
  }
};

Prediction CurvesOfPage(double bottom, bool wavelength, const Ranges& ranges, const std::string& title,
                        const std::vector<Curve>& curves) {
  if (curves.empty()) return Prediction(0, 0, 0, 0);
  CurveGraph graph(bottom, wavelength, ranges, title);
  for (std::size_t c = 0; c < curves.size(); ++c) {
    const int shape = static_cast<int>(c % 7), kind = static_cast<int>(c % 3);
    graph.Points(curves[c], shape, kind);
    graph.Legend(ranges.legendX, 7.8 - 0.3 * static_cast<double>(c), shape, kind, curves[c].label);
  }
  return graph.page;
}

// ---- entries -------------------------------------------------------------------------------------------------------

void Strips(std::vector<Mark>& marks, int entry) {
  const InvRecord& r = InvParam;
  const int n = r.nLayers;
  std::vector<double> tops, Vs, Vp, band, bandP, resolution, density, nu;
  for (int i = 0; i < n; ++i) {
    tops.push_back(r.depth(entry, i));
    Vs.push_back(r.Vs(entry, i));
    Vp.push_back(r.Vp(entry, i));
    nu.push_back(r.nu(entry, i));
    resolution.push_back(r.resolution(entry, i));
    density.push_back(r.density(entry, i));
    band.push_back(2.0 * PosteriorDeviation(entry, i));
    bandP.push_back(band.back() * std::sqrt((2.0 - 2.0 * nu.back()) / (1.0 - 2.0 * nu.back())));
  }
  double end = r.depth(entry, n);
  if (!(end > 0.0)) end = tops.back() + 0.5 * r.H(entry, n - 2);
  tops.push_back(end);
  const double last = tops[static_cast<std::size_t>(n - 1)], before = tops[static_cast<std::size_t>(n - 2)];
  const double bottom = NiceMax(end > 1.0 ? end + 0.5 * (last - before) : end);
  const auto y = [&](double depth) { return 18.0 * (1.0 - depth / bottom); };
  const auto strip = [&](double left, double width, int divisions, Limits x,
                         const std::vector<double>& values, const std::vector<double>& bands,
                         const std::string& label) {
    if (!(x.max > x.min)) return;
    Prediction page(left, 2.5, width, 18.0);
    const auto stairs = [&](double side) {
      const auto at = [&](std::size_t i) {
        const double v = values[i] + side * (bands.empty() ? 0.0 : bands[i]);
        return width * (std::max(v, side == 0.0 ? v : 0.0) - x.min) / (x.max - x.min);
      };
      for (std::size_t i = 0; i < values.size(); ++i) {
        page.Line(at(i), y(tops[i]), at(i), y(tops[i + 1]), side == 0.0 ? 0.5 : 0.1, side != 0.0);
        if (i > 0) page.Line(at(i - 1), y(tops[i]), at(i), y(tops[i]), side == 0.0 ? 0.5 : 0.1, side != 0.0);
      }
    };
    stairs(0.0);
    if (!bands.empty()) {
      stairs(-1.0);
      stairs(1.0);
    }
    std::vector<double> places;
    for (int i = 0; i <= divisions; ++i) {
      places.push_back(width * i / divisions);
      const std::string number = FormatText("%g", At(i, divisions, x));
      page.Text(places.back() - Half(number, 6), 18.4 - 1.4 * 6 / 37.5, number);
    }
    page.Ticks(places, true);
    LinearY(page, 18.0, LeadingDigit(bottom), {bottom, 0.0}, left == 2.0);
    page.Frame();
    page.Text(width / 2.0 - Half(label, 5), 18.7, label);
    if (left == 2.0) page.Text(-1.7, 9.0 - Half("Depth, m", 12), "Depth, m");
    Add(marks, page);
  };
  const auto upper = [](const std::vector<double>& v, const std::vector<double>& b) {
    double most = 0.0;
    for (std::size_t i = 0; i < v.size(); ++i) most = std::max(most, v[i] + b[i]);
    return NiceMax(most);
  };
  const auto most = [](const std::vector<double>& v) { return *std::max_element(v.begin(), v.end()); };
  strip(2.0, 4.8, 4, {0.0, upper(Vs, band)}, Vs, band, "S-Wave Vel., m/sec");
  strip(7.0, 4.8, 4, {0.0, upper(Vp, bandP)}, Vp, bandP, "P-Wave Vel., m/sec");
  strip(12.0, 1.3, 1, {0.0, most(resolution) > 0.0 ? NiceMax(most(resolution)) : 0.0}, resolution, {},
        "Resol.");
  Limits d;
  for (const double v : density) d.Take(v);
  strip(13.5, 1.3, 1, d.max > d.min ? Nice(d, 0) : d, density, {}, "Mass D.");
  strip(15.0, 1.3, 1, {0.0, 0.5}, nu, {}, "P.Ratio");
}

/// What the run was to match, and what an entry gives, curve by curve; velocities above 0.
std::vector<Curve> Fit(int entry, bool measured) {
  const ModelRecord& m = FModelParam;
  const InvRecord& r = InvParam;
  const bool global = TheoDispInfo.dispCurvType == 1;
  const int count = !measured ? std::max(r.nCurves, 1) : global ? 1 : m.nDispCurves;
  const int points = !measured ? r.nPoints : global ? m.nDispPointsG : m.nDispPoints;
  std::vector<Curve> curves(static_cast<std::size_t>(count));
  for (int i = 0; i < points; ++i) {
    for (int c = 0; c < count; ++c) {
      const int k = i * count + c;
      const auto p = static_cast<std::size_t>(i), q = static_cast<std::size_t>(k);
      const double vel = !measured ? r.vel(entry, k) : global ? m.globalVel[p] : m.vel[q];
      if (!(vel > 0.0)) continue;
      Curve& curve = curves[static_cast<std::size_t>(c)];
      curve.vel.push_back(vel);
      curve.freq.push_back(!measured ? r.freq(entry, i) : global ? m.globalFreq[p] : m.freq[p]);
      curve.wlen.push_back(!measured ? r.waveL(entry, k) : global ? m.globalWlen[p] : m.wlen[q]);
    }
  }
  return curves;
}

Prediction FitGraph(double bottom, bool wavelength, const Ranges& ranges, int entry) {
  CurveGraph graph(bottom, wavelength, ranges, "Experimental vs. Theoretical Dispersion Curves");
  for (const bool measured : {true, false}) {
    const std::vector<Curve> curves = Fit(entry, measured);
    const int first = measured ? 0 : 1, kind = measured ? 0 : 1;
    bool named = false;
    for (std::size_t c = 0; c < curves.size(); ++c) {
      const int shape = (first + static_cast<int>(c)) % 7;
      graph.Points(curves[c], shape, kind);
      if (named || curves[c].vel.empty()) continue;
      named = true;
      graph.Legend(ranges.legendX, measured ? 7.9 : 7.6, shape, kind,
                   measured ? "Experimental" : "Theoretical");
    }
  }
  return graph.page;
}

// ---- the report ----------------------------------------------------------------------------------------------------

class ExamplePages : public testing::AppTest {
 protected:
  /// Runs an example as its users do, and takes its project.
  void OpenExample(const std::string& arguments) {
    test::TakeDisplayAway();
    const std::string command = "'" SONDERA_PROGRAM "' " + arguments + " >/dev/null 2>&1 </dev/null";
    const int status = std::system(command.c_str());
    ASSERT_TRUE(WIFEXITED(status) && (WEXITSTATUS(status) == 0 || WEXITSTATUS(status) == 3)) << status;
    OpenFileProc(folder.File("site.da"));
    ASSERT_TRUE(frontEnd.messages.empty()) << frontEnd.messages.front();
  }
  static std::string Example(const std::string& name) {
    return test::ReadWhole(kExamples + "/" + name + "/job.txt");
  }

  void ExpectReport() {
    const std::string file = folder.File("report.ps");
    ASSERT_EQ(PrintReport(ReportKind::whole, file), 0);
    ASSERT_TRUE(frontEnd.messages.empty()) << frontEnd.messages.front();
    const test::Trace trace = test::TraceOf(file);
    ASSERT_EQ(trace.run.status, 0) << trace.run.output;
    int page = 0;
    const auto expect = [&](std::vector<Mark> marks) {
      Prediction foot(0.0, 0.0, 0.0, 0.0);
      foot.Text(0.0, 0.0, session.projectFileName);
      Add(marks, foot);
      SCOPED_TRACE(FormatText("page %d", ++page));
      ExpectSameMarks(std::move(marks), MarksOfPage(trace, page));
    };
    ExpectPhases(expect);
    const std::vector<Curve> pairs = IncludedCurves();
    ASSERT_FALSE(pairs.empty());
    const Ranges ranges = RangesOf(pairs);
    ExpectCurves(pairs, ranges, expect);
    ASSERT_FALSE(StoredEntries().empty());
    for (const int entry : StoredEntries()) {
      std::vector<Mark> marks;
      Prediction head(0.0, 0.0, 0.0, 0.0);
      head.Text(0.0, 23.0,
                FormatText("Iteration No. : %d ....... [RMS Error = %g]", entry, InvParam.rms[entry]));
      Add(marks, head);
      Strips(marks, entry);
      expect(marks);
      marks.clear();
      Add(marks, FitGraph(14.0, true, ranges, entry));
      Add(marks, FitGraph(2.5, false, ranges, entry));
      expect(marks);
    }
    EXPECT_EQ(trace.pages, page);
  }

 private:
  using Expect = std::function<void(std::vector<Mark>)>;

  static void ExpectPhases(const Expect& expect) {
    const std::vector<PairOfProject> pairs = PairsOfProject();
    for (std::size_t from = 0; from < pairs.size(); from += 4) {
      std::vector<Mark> marks;
      for (std::size_t i = from; i < std::min(pairs.size(), from + 4); ++i)
        Add(marks, PhaseGraph(pairs[i], 1.5 + 5.5 * static_cast<double>(3 - (i - from))));
      expect(marks);
    }
  }

  static void ExpectCurves(const std::vector<Curve>& pairs, const Ranges& ranges, const Expect& expect) {
    std::vector<Mark> marks;
    const std::string title = "Phase-Velocity Dispersion Curve in ";
    Add(marks, CurvesOfPage(14.0, true, ranges, title + "Wavelength Domain", pairs));
    Add(marks, CurvesOfPage(2.5, false, ranges, title + "Frequency Domain", pairs));
    expect(marks);
    std::vector<Curve> array, global;
    for (const DispInfo& d : MeasDB.aDispList) {
      const PMeasInfo* pair = MeasDB.pMeasList.at(MeasDB.pMeasList.findKey(d.key));
      const IDInfo* id = MeasDB.idList.at(MeasDB.idList.findKey(d.key));
      if (pair && id && pair->included == 1 && d.nPoints > 0)
        array.push_back(CurveOf(d, Label(id->MeasID, d.refChan, d.dspChan)));
    }
    for (const DispInfo& d : MeasDB.gDispList)
      if (d.nPoints > 0) global.push_back(CurveOf(d, d.label));
    if (array.empty() && global.empty()) return;
    marks.clear();
    Add(marks, CurvesOfPage(14.0, true, ranges, "Array Representative Dispersion Curve", array));
    Add(marks, CurvesOfPage(2.5, true, ranges, "Global Representative Dispersion Curve", global));
    expect(marks);
  }
};

TEST_F(ExamplePages, OfOnePairHaveEachMarkOnce) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  test::WriteSitePair(folder.File("pair.hyx"), 14.0, 30.0, 129);
  Write("job.txt", Example("one_pair"));
  OpenExample("--batch auto new site job.txt");
  ExpectReport();
}

TEST_F(ExamplePages, OfSixReceiversHaveEachMarkOnce) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  test::WriteSiteRecords(folder.Path());
  std::string job = Example("six_receivers");
  const std::size_t last = job.rfind("\ninversion\n");
  ASSERT_NE(last, std::string::npos);
  job.insert(last, "\nset INVERSION.NITER 1");
  Write("job.txt", job);
  OpenExample("run job.txt");
  ExpectReport();
}

}  // namespace
}  // namespace sondera
