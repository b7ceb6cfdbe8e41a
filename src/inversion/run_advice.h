// run_advice.h - how an inversion went, in a line, and what to do where its result is not to be trusted as it
// stands.
//
// Callers: the run of an inversion. Reads `run`, InvParam and the history of the present run; owns no state.
#pragma once

#include <string>

namespace sondera {

/// Last iteration of the history and the lowest chi: "RMS 22.03, chi 4.86 on 86 of 88 points (lowest chi 4.37
/// in iteration 2)". "" without a run.
std::string FitOfRun();

/// Advice after the last iteration of the history: points that ended without a result (with point load and a
/// displacement bulb below 2.5, to set that), a chi above 2, layers with a resolution of Vs below 0.3. ""
/// where there is none, or no iteration was made.
std::string RunAdvice();

/// The same, with the advice on chi in the list of findings. The other two are doubts of whoever sums up a
/// run.
std::string ReportRunAdvice();

}  // namespace sondera
