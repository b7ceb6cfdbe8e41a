// masking.h - masks: frequency ranges of a receiver pair that are unfit for use, with the number of full
// phase cycles up to there. The dispersion curve leaves out lines under a mask, and the unwrapper takes its
// cycle count from the mask instead of counting through noise.
//
// The operations on MeasDB.maskingList. session.selMask, the mask last picked on the graph, identifies the
// mask to update or remove. A refusal leaves the list unchanged; it has no reason when the list is empty.
// panels/sasw_mask_list.h has the forms that work on the displayed pair and its fields.
//
// A mask takes effect at the next CalcIRF, and on the dispersion curve at the next calculation.
#pragma once

#include "records/selection.h"
#include "runtime/refusal.h"

namespace sondera {

/// Bits of CheckMaskingData.
namespace mask_check {
inline constexpr int kSameInit = 1;   ///< freqInit equals that of a mask of the pair
inline constexpr int kSameFinal = 2;  ///< freqFinal equals that of such a mask
inline constexpr int kSameJump = 4;   ///< jumpNo equals that of such a mask
inline constexpr int kBadRange = 8;   ///< no range, or it touches, overlaps or encloses such a mask
}  // namespace mask_check

/// A mask that is being entered: the pair (channels from 0) and the three fields of the masking page.
struct MaskRequest {
  int key = -1, refChan = 0, dspChan = 0;
  double freqInit = 0.0, freqFinal = 0.0;  ///< MASKING_FREQINIT, MASKING_FREQFINAL, Hz
  int jumpNo = 0;                          ///< MASKING_JUMPNO
};

/// Compares a range and its jump number with the masks of the pair. The range is bad when freqFinal is not
/// above freqInit (both 0 is allowed), when one of its ends lies in a mask, ends included, or when a mask
/// lies strictly inside it. Returns the bits, 0 when nothing coincides.
int CheckMaskingData(const MaskRequest& mask);

/// Appends a mask. Line indices come from the frequencies cut to whole hertz.
/// @param deltaF  line spacing of the measurement, Hz
Refusal NewMask(const MaskRequest& mask, double deltaF);

/// Writes range and number to the picked mask and to selMask.
/// @param current     the pair that the picked mask belongs to
/// @param pickedBits  CheckMaskingData of selMask
/// Kept: the new range is not tested against other masks and the line indices stay.
Refusal UpdateMask(const CurrentPair& current, int pickedBits, const MaskRequest& fields);

/// Removes the picked mask. Arguments as above.
Refusal DeleteMask(const CurrentPair& current, int pickedBits);

/// Removes all masks of the pair, unless selMask collides with one of its masks without equal values.
Refusal DeleteAllMaskInChannelCombination(const CurrentPair& current, int pickedBits);

/// Removes masks by their position, for all measurements. Kept: the position increases while the list
/// shrinks, so every other mask remains. No control calls it.
Refusal DeleteAllMask(int pickedBits);

/// First mask of the key and pair with freqInit <= freq <= freqFinal. Returns 0 and fills the three results;
/// 1 when there is none, -1 for an empty list, with the results left alone.
int GetMaskInform(int key, int refChan, int dspChan, double freq, int& jumpNo, double& freqInit,
                  double& freqFinal);

/// Copies the mask of a pair at a frequency (Hz) to session.selMask. Returns as GetMaskInform; without a mask
/// there selMask stays.
int PickUpMasking(const CurrentPair& current, double freq);

}  // namespace sondera
