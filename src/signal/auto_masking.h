// auto_masking.h - masks, numbers of jumps and filter windows of a receiver pair without a person.
//
// Does what an experienced analyst does: looks at the Gabor map for bands carried by a coherent wave group,
// at the energy outside the window for bands of noise, masks everything else, tunes the windows around the
// strongest group and takes the cycle numbers from the backbone phase. The parts: wave_groups.h (bands and
// noise), line_masks.h (masks), window_tuning.h (windows). No state.
//
// Lengths count as they are entered: velocities of the session act as length units per second, and the
// spacing is absolute.
#pragma once

#include "records/measdb.h"
#include "runtime/controls.h"

namespace sondera {

/// Masks the pair on display, which is made when there is none. The window times of an existing pair start
/// again from the site's velocities; the masks of the pair are replaced; at the end phases are unwrapped,
/// masks get their numbers (UpdateJumpNo) and the page is redrawn. The new numbers act from the next CalcIRF
/// on, as the calculation of the curve does it.
/// Where the time range of the map does not suit the strongest group it asks "Need to recalculate Gabor
/// spectrum. Allow to do it ?"; on Yes it begins anew with a better finalTime, 16 times at most.
/// 0; -1 without a measurement, or, with a message and the masks as they were, when the pair's map has no
/// range or no divisions.
int AutoMasking();

/// Gives every mask of the pair's measurement the cycle number of the backbone phase at its last line: int((p
/// - 180) / 360) + 1 for a phase p of 180 degrees or more, else 0; a line outside the spectrum has phase 0.
/// Kept: also the masks of other pairs of the measurement get their numbers from this pair.
void UpdateJumpNo(const PMeasInfo& pair);

/// MASKINGAUTO on commit: AutoMasking, then the windows are shown in the panel of the filtration. Masking
/// works on window A only, see masking_panel.h.
int MaskingAutoCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
