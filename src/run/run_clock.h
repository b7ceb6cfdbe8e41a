// run_clock.h - the duration of a run, as text. Callers: drivers of runs, writers of results. The start is
// stored in the course of the run.
#pragma once

#include <array>
#include <string>

#include "run/system_state.h"

namespace sondera {

/// "[%dhr %dmin %dsec]" between two readings of a clock (hours, minutes, seconds). An end before the start is
/// on the next day. Kept: whole days are not counted, so a run of more than 24 hours shows too little.
std::string ElapsedText(const std::array<int, 3>& start, const std::array<int, 3>& end);

/// Stage 0 stores the start in course.startClock and clears course.timeText; stage 1 writes the time since
/// then to course.timeText.
void FS_ReportTime(Course& course, int stage);

}  // namespace sondera
