// report_document.h - a report as a file: one kind of pages, or all of them in one document.
#pragma once

#include <string>

#include "report/report_input.h"
#include "runtime/refusal.h"

namespace sondera {

enum class ReportKind { phases, dispersion, results, whole };

// Message when a kind of pages has nothing to show.
inline constexpr const char* kNoPhases = "No phase spectra are available for plotting.";
inline constexpr const char* kNoDispersionCurves = "No dispersion curves are available for plotting.";
inline constexpr const char* kNoResults = "No results of the inv. analysis are available for plotting.";

/// Whether there is a pair for the pages of phases.
bool HavePhases();

/// Message for a report that has nothing to show; "" when it has. The whole report needs phases.
std::string NothingToShow(ReportKind kind, const ReportInput& input);

/// Writes the file and prints nothing. A new file replaces the old one only when it is complete; after a
/// refusal the old one is unchanged. Pages without contents have only their footer.
Refusal WriteReport(const std::string& path, ReportKind kind, const ReportInput& input);

}  // namespace sondera
