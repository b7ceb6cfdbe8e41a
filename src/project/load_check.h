// load_check.h - faults in the numbers of a project that was just read, one sentence each.
//
// Callers: the load of a project, once all sections are in the database. Nothing is changed here: the values
// stay as in the file, and computations with them are refused (measurement_rules.h).
#pragma once

#include <string>
#include <vector>

#include "project/section_io.h"

namespace sondera {

/// Sets the number of lines to 0 for measurements without raw data, so that no array gets its size from a
/// number without data. Reported as damage, since a save writes another number.
void DropLinesWithoutData(SectionReader& file);

/// Sentences on the project in MeasDB: measurements that break the rules of sampling and positions, pairs,
/// masks and curves on channels that their measurement does not have, curves with points that are not finite,
/// and numbers in the file that are not finite. At most kMostDoubts; the last one then says how many more
/// there are.
inline constexpr std::size_t kMostDoubts = 12;
std::vector<std::string> ProjectDoubts(const SectionReader& file);

/// Result of a load.
struct LoadOutcome {
  bool whole = true;
  std::string message;  ///< text to show, "" for none
};
/// `notWhole` when the reading had problems, and the doubts, which are also added to the findings.
LoadOutcome OutcomeOf(const std::string& notWhole, const SectionReader& file);

}  // namespace sondera
