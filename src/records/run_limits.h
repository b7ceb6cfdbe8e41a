// run_limits.h - finds settings that no run can work with, and gives one message.
//
// Callers: FS_AllocMemoryBlocks and the set-up of observations. A settings record may come from a damaged
// file: its values are checked against these limits before anything is allocated or computed. Owned state:
// none.
#pragma once

#include <string>

#include "records/model_records.h"

namespace sondera {

/// Largest settings that a run takes.
inline constexpr int kMaxRunLayers = 1000;
inline constexpr int kMaxRunPoints = 20000;                   ///< points of a curve
inline constexpr int kMaxRunCurves = 1000;                    ///< curves, receivers
inline constexpr double kMaxRunDoubles = 64.0 * 1024 * 1024;  ///< of one run or result record (512 MB)

/// Message for the first setting of a record that no run can work with; "" when there is none. Checks counts,
/// columns shorter than their counters, the solver's settings, and the layers; not the wanted points.
std::string CheckRunSettings(const ModelRecord& record);

/// The part of the check that concerns layers.
std::string CheckRunLayers(const ModelRecord& record);

}  // namespace sondera
