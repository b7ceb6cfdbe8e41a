// report_fixture.cpp - see report_fixture.h.
#include "report_fixture.h"

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
  return MarksOfPage(TraceOfReport(kind), page);
}

std::vector<std::string> ReportTest::TextsOf(ReportKind kind, int page) {
  std::vector<std::string> texts;
  for (const test::TraceMark& mark : TraceOfReport(kind).marks)
    if (mark.page == page && mark.kind == test::TraceMark::text) texts.push_back(mark.string);
  return texts;
}

}  // namespace sondera::testing
