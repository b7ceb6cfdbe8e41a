// plain_signal.h - the formulas of spectra, unwrapping and filtration in their plain form: sums for
// transforms, one step after another, whole tables. Slow on purpose and without code of the library; the
// tests compare the library with them.
#pragma once

#include <complex>
#include <vector>

namespace sondera::plain {

using Cx = std::complex<double>;

/// Sum over i of x[i] exp(-j 2 pi k i / n), every k, in long double. Inverse with the factor 1/n.
std::vector<Cx> Transform(const std::vector<Cx>& x);
std::vector<Cx> InverseTransform(const std::vector<Cx>& x);

struct Mask {
  double freqInit, freqFinal;
  int jumpNo;
};

struct Unwrapped {
  std::vector<double> wrapped, unwrapped;
  std::vector<int> maskFlag;
};

/// By a table of cycle numbers, one per line, that is shifted by one line before it is used.
Unwrapped UnWrap(double fStart, double deltaF, const std::vector<Cx>& spectrum,
                 const std::vector<Mask>& masks);
Unwrapped UnWrapBackBone(const std::vector<Cx>& spectrum);
void AdjustCycles(std::vector<double>& unwrapped, const std::vector<double>& wrapped);

/// Sample by sample, by the interval that the sample lies in. Times T1 to T4 as sample numbers, ascending.
std::vector<double> Window(int mode, const int t[4], int count);

}  // namespace sondera::plain
