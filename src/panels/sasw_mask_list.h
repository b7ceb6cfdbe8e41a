// sasw_mask_list.h - the operations of the mask buttons, for the pair on display and the three masking
// fields.
//
// Each passes the pair of the masking page (FindCurrentPair(Panel::SASW), "the current pair") and the fields
// MASKING_FREQINIT, MASKING_FREQFINAL (Hz) and MASKING_JUMPNO to signal/masking.h, and shows the result: a
// refusal is one message, and the list is unchanged. No state.
#pragma once

#include "records/selection.h"

namespace sondera {

/// Cuts a final frequency to the upper x limit of graph A of the masking page, and then writes it to
/// MASKING_FREQFINAL too. A graph without plots, or one that shows time, has no such limit: then the end of
/// the measurement's analysis band is used.
double CutFinalFrequency(const CurrentPair& current, double freqFinal);

/// Compares a range (Hz) and jump number with the masks of the current measurement and the given pair
/// (channels from 0); freqFinal is cut first. Returns the bits of mask_check.
int CheckMaskingData(int refChan, int dspChan, int jumpNo, double freqInit, double freqFinal);

/// Appends a mask of the current measurement. Returns 0; 1 when the range is refused, or without a measurement.
int NewMask(int refChan, int dspChan, int jumpNo, double freqInit, double freqFinal);

/// Checks the three fields before an update. 1: a frequency is negative or the final one is not above the
/// initial one. Kept: a negative jump number gives a message but passes: 0.
int CheckCurMaskingState();

/// Writes the three fields to the picked mask and to selMask. Returns 0; 1 when the list is empty (without a
/// message) or the mask is not in it.
int UpdateMask();

/// Removes the picked mask. Returns 0; 1 when the list is empty (without a message) or the mask is not in it.
int DeleteMask();

/// Removes all masks of the current pair, unless selMask collides with one of them without equal values.
/// Kept: always returns 1.
int DeleteAllMaskInChannelCombination();

/// Removes every other mask. No control calls it. Returns 0; 1 when the list is empty or selMask is not in it.
int DeleteAllMask();

/// Copies the mask of the current pair at a frequency (Hz) to session.selMask. Returns as GetMaskInform.
int PickUpMasking(double freq);

}  // namespace sondera
