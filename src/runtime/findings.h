// findings.h - messages of the program about its own results: notes that inform, and doubts.
//
// A finding is one sentence with its number and, for a doubt, what to do about it. The code that notices it
// reports it here; the end of an unattended run prints the findings, and with --strict doubts change the exit
// status. The list belongs to the session: StartSession() empties it.
#pragma once

#include <string>
#include <vector>

namespace sondera {

enum class FindingKind {
  Note,   ///< informs: "coherence is unknown", "wavelengths reach beyond twice the spacing"
  Doubt,  ///< a result may be wrong: "the RMS rose in iteration 3"
};

struct Finding {
  FindingKind kind;
  std::string text;  ///< one sentence without a prefix and without a line end

  bool operator==(const Finding&) const = default;
};

/// Reports a finding. The same sentence of the same kind is kept once.
void AddNote(const std::string& text);
void AddDoubt(const std::string& text);

/// All findings since the session started or the list was emptied, in the order in which they were reported.
const std::vector<Finding>& Findings();
int DoubtCount();
void ClearFindings();

}  // namespace sondera
