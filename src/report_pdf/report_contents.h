// report_contents.h - all that the PDF report shows, as plain structures.
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
  /// The last profile is the one that the report is of; those before it are its iterations.
  ProjectTables tables;
  /// What the run was to match, and what the profile gives, curve by curve; empty without a run.
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
