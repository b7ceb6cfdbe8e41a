// phase_unwrap.h - from the wrapped phase of a spectrum to a phase lag that grows with frequency.
//
// The unwrappers use properties of surface waves: phase is a lag, so the unwrapped value is a whole number of
// cycles minus the wrapped angle; masks may fix the number of cycles; the backbone curve only rises and is
// repaired afterwards. CalcIRF makes three curves per pair with them: original and enhanced by UnWrap,
// backbone by UnWrap_BackBone.
//
// Arrays count from 0, line i at fStart + i * deltaF. Phases in degrees. Jumps are steps of more than 300
// degrees between neighbouring lines. No state. panels/sasw_pair.h has UnWrap, with the masks of the pair that a page shows.
//
// Odd on purpose: a line whose real part is exactly 0 has phase 0, whatever its imaginary part; the first
// line of a mask carries the number of the mask before it.
#pragma once

#include <span>
#include <vector>

namespace sondera {

/// A run of lines, both ends included, with a given number of cycles.
struct CycleMask {
  int lineInit = 0, lineFinal = 0;
  int cycles = 0;
};

/// The masks of a pair (channels from 0) as runs of lines, in list order, cut to 0..n-1; masks outside are
/// left out. Frequencies are rounded to the nearest line, halves upward. deltaF <= 0 gives none.
std::vector<CycleMask> CycleMasksOf(int key, int refChan, int dspChan, int n, double fStart, double deltaF);

/// Unwraps n lines by counting jumps, with the number of cycles fixed inside masks.
/// A first line beyond 150 degrees counts as 0. Inside a mask no jump is counted; the number is absolute. Its
/// first line still has the number of the mask before (0 before the first mask), the other lines have its own
/// number; counting continues from there. Where masks overlap, the later one counts. Line 0 never takes a
/// number from a mask.
/// @param[in]  re, im     spectrum, n values
/// @param[in]  masks      within 0..n-1
/// @param[out] wrapped, unwrapped  n values
/// @param[out] maskFlag   n values: 1 inside a mask, else 0
void UnWrapLines(int n, const double* re, const double* im, std::span<const CycleMask> masks, double* wrapped,
                 double* unwrapped, int* maskFlag);

/// Unwraps n lines by counting upward jumps only (the second line counts from 150 degrees), then
/// AdjustCycles, then a pass that subtracts 360 degrees for each step of more than 300, up or down. The pass
/// works on corrected values: a single step disappears, a permanent one continues to the end. Masks have no
/// effect.
void UnWrap_BackBone(int n, const double* re, const double* im, double* wrapped, double* unwrapped);

/// Repairs stretches in which noise made the number of cycles wrong. A stretch begins where a step of more
/// than 0.8 cycle follows a line below -120 degrees, and ends where the curve is back within 0.8 cycle of the
/// corrected level. It is corrected if the wrapped phase rose by more than 240 degrees across it from below
/// to above 0, as in a true wrap. A stretch that is open at the last line stays. Fewer than three lines:
/// nothing happens.
void AdjustCycles(int n, double* unwrapped, const double* wrapped);

/// Unwraps along a reference curve. Lines count from 1 here: arrays have n + 1 entries, entry 0 is unused,
/// and the caller sets wrapped[1] and wrapped[2]. argA and argB have no effect. No caller at present.
/// @param[in]     re, im    spectrum, 3..n are read
/// @param[in,out] wrapped   3..n are filled
/// @param[out]    unwrapped 1..n
/// @param[in]     wrappedB  wrapped phase for AdjustCycles, 0..n-1
/// @param[in]     ref       unwrapped reference, 3..n
void UnWrap_Enhanced(int n, double argA, double argB, const double* re, const double* im, double* wrapped,
                     double* unwrapped, const double* wrappedB, const double* ref);

/// Unwraps by the whole cycles of a + b, 0..n-1, then AdjustCycles, then repairs steps and outliers by b at
/// 3..n, so unwrapped and b have n + 1 entries. No caller at present.
void UnWrap_Enhanced2(int n, const double* wrapped, double* unwrapped, const double* a, const double* b);

}  // namespace sondera
