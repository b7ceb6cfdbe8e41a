// run_clock.h - how long a run has taken, as text. Callers: drivers of runs, writers of results. The start is
// kept in the course of the run.
#pragma once

#include <array>
#include <string>

#include "run/system_state.h"

namespace sondera {

/// "[%dhr %dmin %dsec]" between two readings of a clock (hours, minutes, seconds). An end before the start
/// lies on the next day. Kept: whole days are not seen, so a run of more than 24 hours shows too little.
std::string ElapsedText(const std::array<int, 3>& start, const std::array<int, 3>& end);

/// Stage 0 reads the start into course.startClock and clears course.timeText; stage 1 puts the time since then into
/// course.timeText.
void FS_ReportTime(Course& course, int stage);

}  // namespace sondera
