// masking.h - masks: frequency ranges of a receiver pair that are unfit for use, with the number of full
// phase cycles that have passed there. Lines under a mask leave the dispersion curve, and the unwrapper takes
// its cycle count from the mask instead of counting through noise.
//
// The operations behind the buttons of the masking page, on MeasDB.maskingList. They act on the measurement
// and pair that FindCurrentPair(Panel::SASW) gives ("the current pair") and read the three fields
// MASKING_FREQINIT, MASKING_FREQFINAL (Hz) and MASKING_JUMPNO. session.selMask, the mask last picked on the
// graph, is the handle by which Update and Delete find their target. A refusal shows one message and leaves
// the list as it was. The buttons themselves, the markers and the drawing are in masking_panel.h.
//
// A mask takes effect at the next CalcIRF, and on the dispersion curve at the next calculation.
#pragma once

#include "records/selection.h"

namespace sondera {

/// Bits of CheckMaskingData.
namespace mask_check {
inline constexpr int kSameInit = 1;   ///< freqInit equals that of a mask of the pair
inline constexpr int kSameFinal = 2;  ///< freqFinal equals that of such a mask
inline constexpr int kSameJump = 4;   ///< jumpNo equals that of such a mask
inline constexpr int kBadRange = 8;   ///< no range, or it touches, overlaps or encloses such a mask
}  // namespace mask_check

/// Compares a range (Hz) and jump number with the masks of the current measurement and the given pair
/// (channels from 0). freqFinal is first cut to the upper frequency limit of the display (see
/// CutFinalFrequency). The range is bad when freqFinal is not above freqInit (both 0 is allowed), when one of
/// its ends lies in a mask, ends included, or when a mask lies strictly inside it. Returns the bits, 0 when
/// nothing coincides.
int CheckMaskingData(int refChan, int dspChan, int jumpNo, double freqInit, double freqFinal);

/// Cuts a final frequency to the upper x limit of graph A of the masking page; a frequency that is cut is
/// written to MASKING_FREQFINAL as well. A graph without plots, or one that shows time, has no such limit:
/// then the end of the measurement's analysis band counts.
double CutFinalFrequency(const CurrentPair& current, double freqFinal);

/// Appends a mask of the current measurement. Line indices come from the frequencies cut to whole hertz.
/// Returns 0; 1 when the range is refused, or without a measurement.
int NewMask(int refChan, int dspChan, int jumpNo, double freqInit, double freqFinal);

/// Tests the three fields before an update. 1: a frequency is negative or the final one is not above the
/// initial one. A negative jump number is complained about and yet passes: 0.
int CheckCurMaskingState();

/// Writes the three fields into the picked mask and into selMask. Kept: the new range is not tested against
/// other masks and the line indices stay. Returns 0; 1 when the list is empty (without a word) or the mask is
/// not in it.
int UpdateMask();

/// Removes the picked mask. Returns 0; 1 when the list is empty (without a word) or the mask is not in it.
int DeleteMask();

/// Removes all masks of the current pair, unless selMask is a range that merely collides with one of its
/// masks. Kept: returns 1 always.
int DeleteAllMaskInChannelCombination();

/// Removes masks by their position, of whatever measurement. Kept: the position walks on while the list
/// shrinks, so every other mask survives. No control calls it. Returns 0; 1 when the list is empty or selMask
/// is not in it.
int DeleteAllMask();

/// First mask of the key and pair with freqInit <= freq <= freqFinal. Returns 0 and fills the three results;
/// 1 when there is none, -1 for an empty list, with the results left alone.
int GetMaskInform(int key, int refChan, int dspChan, double freq, int& jumpNo, double& freqInit,
                  double& freqFinal);

/// Picks the mask of the current pair at a frequency (Hz) into session.selMask. Returns as GetMaskInform;
/// without a mask there selMask stays.
int PickUpMasking(double freq);

}  // namespace sondera
