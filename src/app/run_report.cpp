// run_report.cpp - see run_report.h. Owns the options of the report.
#include "app/run_report.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "app/console.h"
#include "app/run_figures.h"
#include "inversion/run_doubts.h"
#include "records/inv_records.h"
#include "records/session.h"
#include "run/result_entries.h"
#include "run/run_history.h"
#include "runtime/atomic_writer.h"
#include "runtime/findings.h"
#include "runtime/paths.h"
#include "runtime/terminal.h"
#include "runtime/text_format.h"
#include "runtime/written_files.h"
#include "signal/pair_figures.h"

namespace sondera {
namespace {

RunReportOptions reportOptions;

void PrintLine(const std::string& line) {
  PrintError("%s\n", VisibleText(line).c_str());
}

std::string PairLine(const PairFigures& f) {
  const char* unit = UnitSign(f.unit);
  std::string line =
      FormatText("pair %s %d %d: %d points, %.4g to %.4g Hz, longest wavelength %.3g %s", f.measID.c_str(),
                 f.refChan + 1, f.dspChan + 1, f.points, f.freqFrom, f.freqTo, f.longest, unit);
  if (f.spacing > 0.0) line += FormatText(" (%.2g spacings)", f.longest / f.spacing);
  return line;
}

std::string FitText(const IterationFit& fit, int rowsOfData, const char* unit) {
  std::string text = fit.rms < 0.0 ? "no point has a velocity" : FormatText("RMS %.4g %s/s", fit.rms, unit);
  if (fit.chi >= 0.0) text += FormatText(", weighted misfit %.3g", fit.chi);
  return text + FormatText(", %d of %d points", fit.rows, rowsOfData);
}

/// The iteration with the best fit, whether the last one is worse than the one before, and the number of lost
/// points.
std::string VerdictLine(const InversionHistory& history, const char* unit) {
  const auto& fits = history.iterations;
  const auto rank = [](const IterationFit& fit) { return fit.rms < 0.0 ? 1e300 : fit.rms; };
  const IterationFit& best =
      *std::min_element(fits.begin(), fits.end(),
                        [&](const IterationFit& a, const IterationFit& b) { return rank(a) < rank(b); });
  if (best.rms < 0.0) return "no iteration has a curve";
  std::string line =
      FormatText("the lowest RMS is %.4g %s/s in iteration %d", best.rms, unit, best.iteration);
  if (fits.size() > 1)
    line += rank(fits.back()) > rank(fits[fits.size() - 2]) ? "; the last one rose"
                                                            : "; the last one fell or stayed";
  const auto chi = [](const IterationFit& fit) { return fit.chi < 0.0 ? 1e300 : fit.chi; };
  const IterationFit& lightest =
      *std::min_element(fits.begin(), fits.end(),
                        [&](const IterationFit& a, const IterationFit& b) { return chi(a) < chi(b); });
  if (lightest.chi >= 0.0)
    line +=
        FormatText("; the lowest weighted misfit is %.3g in iteration %d", lightest.chi, lightest.iteration);
  return line + FormatText("; %d points dropped", std::max(history.rowsOfData - fits.back().rows, 0));
}

void AddInversion(const InversionHistory& history, const std::string& which,
                  std::vector<std::string>& lines) {
  const char* unit = UnitSign(session.lengthUnit);
  const std::string head = "inversion: " + which;
  for (const IterationFit& fit : history.iterations)
    lines.push_back(head + FormatText("iteration %d: ", fit.iteration) +
                    FitText(fit, history.rowsOfData, unit));
  if (!history.iterations.empty()) lines.push_back(head + VerdictLine(history, unit));
}

void AddProfile(const InversionHistory& history, std::vector<std::string>& lines) {
  const int entry = LastEntry(history);
  if (entry < 0) return;
  const char* unit = UnitSign(session.lengthUnit);
  lines.push_back(
      FormatText("profile: layer  from %s    to %s  Vs %s/s   lower   upper  resolution (iteration %d)", unit,
                 unit, unit, entry));
  double top = 0.0;
  const int n = std::min(InvParam.nLayers, InvParam.Vs.colHi() + 1);
  for (int l = 0; l < n; ++l) {
    const double Vs = InvParam.Vs(entry, l), band = 2.0 * PosteriorDeviation(entry, l);
    const double bottom = top + InvParam.H(entry, l);
    const std::string to = l + 1 < n ? FormatText("%7.2f", bottom) : "       ";
    const std::string resolution = entry > 0 ? FormatText("%11.2f", InvParam.resolution(entry, l)) : "";
    lines.push_back(FormatText("profile: %5d %7.2f %s %7.1f %7.1f %7.1f", l + 1, top, to.c_str(), Vs,
                               Vs - band, Vs + band) +
                    resolution);
    top = bottom;
  }
}

/// Paths below the current folder are shown relative to it.
std::string ShownPath(const std::string& path) {
  const std::string here = CurrentDirectory() + "/";
  return path.starts_with(here) ? path.substr(here.size()) : path;
}

/// The summary, line by line.
std::vector<std::string> RunSummary(const std::vector<PairFigures>& pairs) {
  std::vector<std::string> lines;
  for (const PairFigures& f : pairs) lines.push_back(PairLine(f));
  const auto& histories = InversionHistories();
  int number = 0;
  for (const InversionHistory& history : histories) {
    ++number;
    AddInversion(history, histories.size() > 1 ? FormatText("run %d, ", number) : "", lines);
  }
  if (!histories.empty()) AddProfile(histories.back(), lines);
  for (const std::string& path : WrittenFiles()) lines.push_back("file: " + ShownPath(path));
  return lines;
}

void PrintFindings() {
  for (const Finding& f : Findings())
    if (f.kind == FindingKind::Note && !reportOptions.quiet) PrintLine("note: " + f.text);
  for (const Finding& f : Findings())
    if (f.kind == FindingKind::Doubt) PrintLine("doubt: " + f.text);
}

/// False after a sentence.
bool WriteFigures() {
  if (reportOptions.figuresFile.empty()) return true;
  TextWriter file(JoinUnlessAbsolute(CurrentDirectory(), reportOptions.figuresFile));
  file.Put(RunFiguresText());
  if (file.Close()) return true;
  PrintError("sondera: %s\n", file.Reason().c_str());
  return false;
}

int StatusOf(bool allDone, bool doubtsCount) {
  if (!allDone) return kNotAllDone;
  return DoubtCount() > 0 && (doubtsCount || reportOptions.strict) ? kDoneWithDoubts : kAllDone;
}

}  // namespace

void SetRunReportOptions(const RunReportOptions& options) {
  reportOptions = options;
}

int ReportRun(bool allDone, bool doubtsCount) {
  const std::vector<PairFigures> pairs = FiguresOfIncludedPairs();
  DoubtResults();
  FinishProgressLine();
  if (!WriteFigures()) allDone = false;
  if (!reportOptions.quiet)
    for (const std::string& line : RunSummary(pairs)) PrintLine(line);
  PrintFindings();
  return StatusOf(allDone, doubtsCount);
}

int ReportFindings(bool allDone, bool doubtsCount) {
  FinishProgressLine();
  PrintFindings();
  return StatusOf(allDone, doubtsCount);
}

}  // namespace sondera
