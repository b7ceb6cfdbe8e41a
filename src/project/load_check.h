// load_check.h - what a project that was just read has wrong with its numbers, one sentence each.
//
// Callers: the load of a project, once all sections are in the database. Nothing is changed here: the values
// stay as the file has them, and what computes with them refuses (measurement_rules.h).
#pragma once

#include <string>
#include <vector>

#include "project/section_io.h"

namespace sondera {

/// Takes the lines of measurements without raw data: they have none, and whatever is sized by them must not
/// follow a number that no data stand behind. Noted as damage, since a save writes another number.
void DropLinesWithoutData(SectionReader& file);

/// Sentences on the project in MeasDB: measurements with data that break the rules of sampling and places,
/// pairs, masks and curves on channels that their measurement does not have, curves with points that are not
/// finite, and numbers of the file that are not. At most kMostDoubts, the last of which then tells
/// how many there are more.
inline constexpr std::size_t kMostDoubts = 12;
std::vector<std::string> ProjectDoubts(const SectionReader& file);

/// How a load ended.
struct LoadOutcome {
  bool whole = true;
  std::string message;  ///< what to show, "" for nothing
};
/// `notWhole` where the reading met trouble, and the doubts, which go to the findings too.
LoadOutcome OutcomeOf(const std::string& notWhole, const SectionReader& file);

}  // namespace sondera
