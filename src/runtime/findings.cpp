// findings.cpp - the session's list of notes and doubts. Owns it.
#include "runtime/findings.h"

#include <algorithm>

namespace sondera {
namespace {

std::vector<Finding> findings;

void AddOnce(Finding finding) {
  if (std::find(findings.begin(), findings.end(), finding) == findings.end())
    findings.push_back(std::move(finding));
}

}  // namespace

void AddNote(const std::string& text) {
  AddOnce({FindingKind::Note, text});
}
void AddDoubt(const std::string& text) {
  AddOnce({FindingKind::Doubt, text});
}

const std::vector<Finding>& Findings() {
  return findings;
}
int DoubtCount() {
  return static_cast<int>(std::count_if(findings.begin(), findings.end(),
                                        [](const Finding& f) { return f.kind == FindingKind::Doubt; }));
}
void ClearFindings() {
  findings.clear();
}

}  // namespace sondera
