// report_contents.h - all contents of the PDF report, as plain structures.
#pragma once

#include <string>
#include <vector>

#include "project/export_tables.h"
#include "report/curve_ranges.h"
#include "report_pdf/site_texts.h"

namespace sondera {

/// A setting of the analysis, by name.
struct Fact {
  std::string name, value;
};

struct PdfReport {
  /// The last profile is the subject of the report; those before it are its iterations.
  ProjectTables tables;
  /// Observations of the run, and the curves of the profile; empty without a run.
  std::vector<ReportCurve> measured, computed;
  double longestWavelength = 0.0;  ///< of the measured curves, in the unit of the tables; 0: not known
  std::string projectFile;         ///< empty: never saved
  SiteTexts texts;
  std::vector<Fact> making;         ///< how the profile was made
  std::vector<std::string> doubts;  ///< one sentence each
};

/// The profile of the report; null without one.
inline const ProfileTable* ReportedProfile(const PdfReport& report) {
  return FinalProfile(report.tables);
}

}  // namespace sondera
