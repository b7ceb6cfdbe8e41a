// auto_masking.h - masks, numbers of jumps and filter windows of a receiver pair without a person.
//
// Does what an experienced analyst does: looks at the Gabor map for bands carried by a coherent wave group,
// at the energy outside the window for bands of noise, masks everything else, tunes the windows around the
// strongest group and takes the cycle numbers from the backbone phase. The parts: wave_groups.h (bands and
// noise), line_masks.h (masks), window_tuning.h (windows). panels/sasw_auto_masking.h has the button. No state.
//
// Lengths count as they are entered: velocities of the session act as length units per second, and the
// spacing is absolute.
#pragma once

#include <functional>

#include "records/selection.h"
#include "runtime/listener.h"
#include "runtime/refusal.h"
#include "signal/gabor.h"

namespace sondera {

/// What the automatic masking works on, and whom it asks.
struct AutoMaskRequest {
  PairFinder find;                      ///< the pair; its record need not be there yet
  int phaseOption = 1;                  ///< of a record that has to be made: DISPCURV_OPTION
  std::function<bool()> allowNewRange;  ///< may the maps be made again over a better range? Empty: no
};

struct AutoMaskResult {
  bool masked = false;  ///< the pair has new masks with their numbers: the page shows something else now
  Refusal refusal;      ///< why it ended early; of a second or later range also where masks were made
};

/// Masks a pair, whose record is made when there is none. The window times of an existing pair start again
/// from the site's velocities; the masks of the pair are replaced; at the end phases are unwrapped and masks
/// get their numbers (UpdateJumpNo). The new numbers act from the next CalcIRF on, as the calculation of the
/// curve does it.
/// Where the time range of the map does not suit the strongest group it asks for leave to begin anew with a
/// better finalTime, 16 times at most. Refused, with the masks as they were, without a measurement, and with a
/// reason where the pair's map has no range or no divisions.
AutoMaskResult MaskPair(const AutoMaskRequest& request, Listener& listener);

/// Gives every mask of the pair's measurement the cycle number of the backbone phase at its last line: int((p
/// - 180) / 360) + 1 for a phase p of 180 degrees or more, else 0; a line outside the spectrum has phase 0.
/// Kept: also the masks of other pairs of the measurement get their numbers from this pair.
void UpdateJumpNo(const PMeasInfo& pair);

}  // namespace sondera
