// scale_arithmetic.h - round numbers: nice limits and divisions of an axis, significant figures, unit
// prefixes, and the safe truncation of a real to an int.
//
// Callers: the impulse response windows (times of four figures), automatic masks, starting models, screen
// plots and report pages. No state. Conversions truncate towards zero; powers of ten come from std::pow.
#pragma once

#include <string>

namespace sondera {

/// Truncates towards zero. Beyond the range of int: the nearest limit; a NaN: 0.
int TruncToInt(double x);

/// Limits that end on multiples of a power of ten just below the range.
/// With P = 10^CalcPow(max - min): outMax is the next multiple of P above max (also when max is a positive
/// multiple itself). outMin is the next multiple below a min that is 0 or negative, and the multiple at or
/// below a positive min. With logFlag 1 outMin is min truncated to one significant figure; a min of 0 or less
/// has no decade and stays. max below min (or a NaN): the results are unchanged. Kept: a min of exactly 0
/// becomes -P on a linear axis.
void CalcNiceMinMax(double min, double max, int logFlag, double* outMin, double* outMax);

/// Decade of x. x >= 1: the largest k, at most 100, with x / 10^k >= 1. x < 1: minus the first k from 1 on
/// with x * 10^k > 1, at least -100 (also for 0 and negative values). Kept: an exact power of ten below 1
/// belongs to the decade below it: 0.1 gives -2.
int CalcPow(double x);

/// Number of divisions of an axis. logFlag 1: decades touched, from the truncated logarithms of both ends; 1
/// when an end is not positive. Otherwise the first n from 4 to 10 that divides the range into whole numbers,
/// else 5.
void EstimateNoDiv(double min, double max, int logFlag, int* out);

/// x rounded to that many significant figures, halves away from 0. 0, infinities and NaNs stay.
double NiceNumber(double x, int digits);

/// Unit prefix for a value of this size and its factor: "M" above 10^6, "k" above 1000, none from 1 on (and
/// for 0), "m" from 0.001 on, "u" below.
void GetUnitStr(double x, std::string* text, double* factor);

}  // namespace sondera
