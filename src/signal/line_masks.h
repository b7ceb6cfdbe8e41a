// line_masks.h - from wave groups to masks: rows of the Gabor map to mask, lines of the spectrum to mask, and
// the masks that cover these lines. Second half of the automatic masks.
#pragma once

#include <vector>

#include "records/measdb.h"
#include "signal/wave_groups.h"

namespace sondera {

/// Rows of the map to be masked: 1, others 0; entries 0..nF.
/// Masked are the band of each rejected peak, from valley to valley, where the ridge is at the threshold or
/// above; around each valley the ridge up to 90 and the lower third of both flanks; and every row whose ridge
/// is at the threshold or below.
/// Kept: the rows of bands and flanks count from 1, so a mask lies one row above the ridge's row; the upward
/// search does not see the last extreme; a valley without a peak above it gets the upper end and flank of the
/// valley before.
std::vector<int> MakeGridMask(const WaveGroups& groups, int nF, double threshold);

/// Lines of the spectrum to be masked: 1, others 0; entries 0..nLines-1.
/// Masked are lines without transfer function, those of the masked rows (runs within nF rows, rowStep Hz
/// apart from 0 Hz), the last line, the top fifth of the map, and from line 1 on those whose backbone
/// amplitude is under a quarter of the largest.
std::vector<int> MakeLineMask(const std::vector<int>& gridMask, int nF, double rowStep, const PMeasInfo& pair,
                              const HWSetup& hw);

/// Appends a mask of the pair for each run of masked lines, from the line before the run to its last line,
/// cut to the end of the analysis band; number of jumps 0. Returns their number.
/// Kept: a run that consists of the last line only makes no mask.
int AppendMasks(const std::vector<int>& lineMask, const PMeasInfo& pair, const HWSetup& hw);

}  // namespace sondera
