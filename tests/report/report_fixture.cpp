// report_fixture.cpp - see report_fixture.h.
#include "report_fixture.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "plot_ps/plot_ps.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "records/result_capacity.h"
#include "support/ps_grammar.h"

namespace sondera::testing {

void ReportTest::SetUp() {
  SessionTest::SetUp();
  ResetPlotPs();
  InitializeFModel();
  InitializeTheoDispInfo();
  InitializeInvAnal();
  input.projectFile = "/data/site.da";
}

void ReportTest::TearDown() {
  ResetPlotPs();
  SessionTest::TearDown();
}

PMeasInfo& ReportTest::AddPair(const std::string& measID, bool included) {
  MeasurementPlan plan;
  plan.measID = measID;
  plan.nLines = 8;
  plan.deltaT = 0.5 / 80.0;
  const TestMeasurement m = AddMeasurement(plan);
  PMeasInfo& pair = *MeasDB.pMeasList.append();
  SetupPairMeasArrays(pair, 8);
  pair.key = m.key;
  pair.dspChan = 1;
  pair.included = included ? 1 : 0;
  return pair;
}

void ReportTest::SetCurve(PMeasInfo& pair, const std::vector<double>& freq, const std::vector<double>& vel) {
  pair.nDispPoints = static_cast<int>(freq.size());
  pair.dispFreq = freq;
  pair.dispVel = vel;
  pair.dispWlen.clear();
  for (std::size_t i = 0; i < freq.size(); ++i) pair.dispWlen.push_back(vel[i] / freq[i]);
}

void ReportTest::AddMask(const PMeasInfo& pair, double from, double to, int number) {
  MaskingInfo& mask = *MeasDB.maskingList.append();
  mask.key = pair.key;
  mask.refChan = pair.refChan;
  mask.dspChan = pair.dspChan;
  mask.freqInit = from;
  mask.freqFinal = to;
  mask.jumpNo = number;
}

void ReportTest::AddEntries(int last, int wanted) {
  InvParam.nEntries = wanted;
  InvParam.ufVs = 0.1;
  for (int k = 0; k <= last; ++k) {
    ASSERT_FALSE(ReserveEntry(InvParam, k, 3, 1, 1));
    InvParam.nLayers = 3;
    InvParam.nPoints = InvParam.nCurves = 1;
    const double tops[] = {0.0, 2.0, 5.0, 8.0};
    for (int i = 0; i < 4; ++i) InvParam.depth(k, i) = tops[i];
    for (int i = 0; i < 3; ++i) {
      InvParam.H(k, i) = tops[i + 1] - tops[i];
      InvParam.Vs(k, i) = 100.0 + 50.0 * i;
      InvParam.Vp(k, i) = 200.0 + 100.0 * i;
      InvParam.density(k, i) = 1.8 + 0.1 * i;
      InvParam.nu(k, i) = 0.25;
      InvParam.resolution(k, i) = k == 0 ? 0.0 : 0.75;
    }
    InvParam.freq(k, 0) = 10.0;
    InvParam.vel(k, 0) = 120.0;
    InvParam.waveL(k, 0) = 12.0;
    InvParam.rms[k] = 2.5;
    input.entries.push_back(k);
  }
}

std::string ReportTest::Report(ReportKind kind) {
  const std::string name = folder.File("report.ps");
  const Refusal refusal = WriteReport(name, kind, input);
  EXPECT_FALSE(refusal) << refusal.reason();
  EXPECT_EQ(test::GrammarFault(test::ReadWhole(name)), "");
  return name;
}

test::Trace ReportTest::TraceOfReport(ReportKind kind) {
  const std::string name = Report(kind);
  const test::GhostscriptRun plain = test::RunGhostscript(name);
  EXPECT_EQ(plain.status, 0);
  EXPECT_EQ(plain.output, "");
  test::Trace trace = test::TraceOf(name);
  EXPECT_EQ(trace.run.status, 0) << trace.run.output;
  return trace;
}

std::vector<Mark> ReportTest::MarksOf(ReportKind kind, int page) {
  std::vector<Mark> marks;
  for (const test::TraceMark& mark : TraceOfReport(kind).marks) {
    if (mark.page != page) continue;
    const bool fill = mark.kind == test::TraceMark::fill;
    for (const auto& path : mark.paths) {
      if (mark.kind == test::TraceMark::text)
        marks.push_back({'t', path[0].x, path[0].y, 0, 0, 0, 0, false, mark.string});
      for (std::size_t i = 1; mark.kind != test::TraceMark::text && i < path.size(); ++i) {
        const auto &a = path[i - 1], &b = path[i];
        if (std::hypot(a.x - b.x, a.y - b.y) < 0.3) continue;
        marks.push_back({fill ? 'a' : 'l',
                         a.x,
                         a.y,
                         b.x,
                         b.y,
                         mark.gray,
                         fill ? 0.0 : mark.width,
                         !fill && mark.dashes > 0,
                         {}});
      }
    }
  }
  return marks;
}

std::vector<std::string> ReportTest::TextsOf(ReportKind kind, int page) {
  std::vector<std::string> texts;
  for (const test::TraceMark& mark : TraceOfReport(kind).marks)
    if (mark.page == page && mark.kind == test::TraceMark::text) texts.push_back(mark.string);
  return texts;
}

namespace {

bool Close(double ax, double ay, double bx, double by) {
  return std::fabs(ax - bx) < 0.25 && std::fabs(ay - by) < 0.25;
}

bool Same(const Mark& a, const Mark& b) {
  if (a.kind != b.kind || a.text != b.text || a.dashed != b.dashed || std::fabs(a.gray - b.gray) > 1e-3 ||
      std::fabs(a.width - b.width) > 1e-3)
    return false;
  return (Close(a.x1, a.y1, b.x1, b.y1) && Close(a.x2, a.y2, b.x2, b.y2)) ||
         (Close(a.x1, a.y1, b.x2, b.y2) && Close(a.x2, a.y2, b.x1, b.y1));
}

std::string Told(const Mark& m) {
  char text[200];
  std::snprintf(text, sizeof text, "%c (%.1f %.1f) (%.1f %.1f) grey %.2f width %.2f%s ", m.kind, m.x1, m.y1,
                m.x2, m.y2, m.gray, m.width, m.dashed ? " dashed" : "");
  return text + m.text;
}

}  // namespace

void ExpectSameMarks(std::vector<Mark> expected, std::vector<Mark> found) {
  std::erase_if(expected, [&](const Mark& mark) {
    const auto partner =
        std::find_if(found.begin(), found.end(), [&](const Mark& m) { return Same(mark, m); });
    if (partner == found.end()) return false;
    found.erase(partner);
    return true;
  });
  for (const Mark& mark : expected) ADD_FAILURE() << "missing: " << Told(mark);
  for (const Mark& mark : found) ADD_FAILURE() << "without a rule: " << Told(mark);
}

void Prediction::Area(const std::vector<std::pair<double, double>>& corners, double gray) {
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const auto &a = corners[i], &b = corners[(i + 1) % corners.size()];
    marks.push_back({'a', X(a.first), Y(a.second), X(b.first), Y(b.second), gray, 0.0, false, {}});
  }
}

void Prediction::Frame() {
  Line(0, 0, 0, height_, 0.5);
  Line(0, height_, width_, height_, 0.5);
  Line(width_, height_, width_, 0, 0.5);
  Line(width_, 0, 0, 0, 0.5);
}

void Prediction::Ticks(const std::vector<double>& places, bool alongX) {
  for (const double at : places) {
    if (alongX) {
      Line(at, 0, at, 0.2, 0.1);
      Line(at, height_, at, height_ - 0.2, 0.1);
      Line(at, 0, at, height_, 0.1, true);
    } else {
      Line(0, at, 0.2, at, 0.1);
      Line(width_, at, width_ - 0.2, at, 0.1);
      Line(0, at, width_, at, 0.1, true);
    }
  }
}

}  // namespace sondera::testing
