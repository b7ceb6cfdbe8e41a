// auto_masking.h - automatic masks, numbers of jumps and filter windows of a receiver pair.
//
// Follows the steps of an experienced analyst: finds in the Gabor map the bands of a coherent wave group and,
// in the energy outside the window, the bands of noise; masks everything else; tunes the windows around the
// strongest group; takes the cycle numbers from the backbone phase. The parts: wave_groups.h (bands and
// noise), line_masks.h (masks), window_tuning.h (windows). panels/sasw_auto_masking.h has the button. No
// state.
//
// Lengths count in the unit in which they are entered: velocities of the session count as length units per
// second, and the spacing is absolute.
#pragma once

#include <functional>

#include "records/selection.h"
#include "runtime/listener.h"
#include "runtime/refusal.h"
#include "signal/gabor.h"

namespace sondera {

/// Input of the automatic masking, and its questions.
struct AutoMaskRequest {
  PairFinder find;                      ///< the pair; its record may be missing
  int phaseOption = 1;                  ///< for a new record: DISPCURV_OPTION
  std::function<bool()> allowNewRange;  ///< calculate the maps over a better range? Empty: no
};

struct AutoMaskResult {
  bool masked = false;  ///< the pair has new masks with their numbers: the page must be drawn again
  Refusal refusal;      ///< why it ended early; from the second range on, masks may have been made before
};

/// Masks a pair and creates its record when there is none. The window times of an existing pair are first
/// reset to the site's velocities; the masks of the pair are replaced; at the end phases are unwrapped and
/// masks get their numbers (UpdateJumpNo). The new numbers act from the next CalcIRF on, for example when the
/// curve is calculated.
/// When the time range of the map does not suit the strongest group, it asks whether to start again with a
/// better finalTime, 16 times at most. Refused, with unchanged masks, without a measurement; refused with a
/// reason when the pair's map has no range or no divisions.
AutoMaskResult MaskPair(const AutoMaskRequest& request, Listener& listener);

/// Gives every mask of the pair's measurement the cycle number of the backbone phase at its last line: int((p
/// - 180) / 360) + 1 for a phase p of 180 degrees or more, else 0; a line outside the spectrum has phase 0.
/// Kept: also the masks of other pairs of the measurement get their numbers from this pair.
void UpdateJumpNo(const PMeasInfo& pair);

}  // namespace sondera
