// run_report.h - the report of an unattended run at its end, on standard error, and its exit status.
//
// Lines of the summary begin with "pair ID REF CHANNEL:", "inversion:", "profile:" or "file:", those of the
// findings with "note:" or "doubt:". Other programs read them, so the beginnings do not change.
#pragma once

#include <string>

namespace sondera {

struct RunReportOptions {
  bool quiet = false;            ///< doubts only
  bool strict = false;           ///< doubts change the status
  std::string figuresFile = {};  ///< file for the numbers of a script's run (run_figures.h); empty: none
};
/// Kept across StartSession(): they come from the command line.
void SetRunReportOptions(const RunReportOptions& options);

/// Statuses of an unattended run.
inline constexpr int kAllDone = 0, kNotAllDone = 1, kDoneWithDoubts = 3;

/// Checks the results of the run (run_doubts.h), prints summary and findings, and returns the status:
/// kNotAllDone unless all was done; else kDoneWithDoubts where there are doubts and they count (strict, or
/// doubtsCount).
int ReportRun(bool allDone, bool doubtsCount = false);

/// The same with the present findings, without summary and checks: for a run that computes nothing.
int ReportFindings(bool allDone, bool doubtsCount = false);

}  // namespace sondera
