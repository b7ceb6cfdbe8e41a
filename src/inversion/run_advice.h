// run_advice.h - summary of an inversion in a line, and advice when its result is doubtful.
//
// Callers: the run of an inversion. Reads InvParam and the history of the present run; owns no state.
#pragma once

#include <string>

#include "run/system_state.h"

namespace sondera {

/// Last iteration of the history and the lowest chi: "RMS 22.03, chi 4.86 on 86 of 88 points (lowest chi 4.37
/// in iteration 2)". "" without a run.
std::string FitOfRun();

/// Advice after the last iteration of the history: points without a result at the end (with point load and a
/// displacement bulb below 2.5, the advice is to set that), a chi above 2, layers with a resolution of Vs
/// below 0.3. "" where there is none, or no iteration was made.
std::string RunAdvice(const Run& run);

/// The same, and adds the advice on chi to the list of findings. Code that summarises a run reports the other
/// two as doubts.
std::string ReportRunAdvice(const Run& run);

}  // namespace sondera
