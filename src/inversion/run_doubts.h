// run_doubts.h - compares the results of a run in the records with the table of limits
// (runtime/doubt_limits.h) and reports notes and doubts.
//
// Callers: the summary at the end of an unattended run, the report on paper. Reads the records only; owns no state.
#pragma once

#include <vector>

#include "run/run_history.h"
#include "signal/pair_agreement.h"
#include "signal/pair_figures.h"

namespace sondera {

/// Window, coherence and longest wavelengths of each pair; then the disagreement of pairs.
void DoubtPairs(const std::vector<PairFigures>& pairs, const PairAgreement& agreement);

/// Fit, points, resolution and depth of the last inversion, whose profile is the last entry of InvParam.
/// Nothing for a history without iterations.
void DoubtInversion(const InversionHistory& history);

/// Resolution and depth of an entry of InvParam, whether it was computed in this session or read from a file.
void DoubtEntry(int entry);

/// Points of the last sweep that the solvers could not compute, or not well.
void DoubtSweep();

/// All of it: the included pairs, the last inversion of the session, the last sweep.
void DoubtResults();

/// "m", "cm", "ft" or "in" by metres per unit.
const char* UnitSign(double unit);

/// Longest wavelength among the data of the last inversion, in units of length; 0 without one.
double LongestObservedWavelength();
/// Last iteration of the history as an entry of InvParam, limited to its tables; -1 without one.
int LastEntry(const InversionHistory& history);
/// Depth of the top of the half-space of an entry of InvParam.
double HalfSpaceDepth(int entry);

}  // namespace sondera
