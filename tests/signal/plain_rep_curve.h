// plain_rep_curve.h - the condensing of dispersion points in its plain form, every output scanning every
// point, and two least-squares solutions that share no code with the program's.
//
// The tests compare the fast form with PlainCompact, to the last bit. The two solutions in long double are
// independent methods for the fit itself: Householder QR where nothing is suppressed, and the eigenvectors of
// the normal equations where small singular values are.
#pragma once

#include <vector>

namespace sondera::test {

/// Vectors count from 1 (element 0 unused), as the arguments of CompactDsp_f and CompactDsp_w.
struct PlainResult {
  std::vector<double> x, v, sd;
  int counted = 0;
  /// Points of the window of each output, log10 of the abscissa and value; and whether a fit was made.
  std::vector<std::vector<double>> windowLogX, windowV;
  std::vector<bool> fitted;
};

struct PlainInput {
  double xMin = 0.0, xMax = 0.0;
  int nPts = 0, nSpan = 1, polyOrder = 4;
  std::vector<double> x, v;  // from 1
  int mode = 1;
  double incRatio = 1.0;
  std::vector<double> grid;  // from 1
};

/// @param wavelength  the rules of CompactDsp_w
/// @param fill        what the output vectors hold at first
PlainResult PlainCompact(const PlainInput& in, bool wavelength, double fill = 0.0);

/// Value at x of the least-squares polynomial of as many terms, by QR. Points from 0.
double QrValue(const std::vector<double>& xs, const std::vector<double>& ys, int terms, double at);

struct SuppressedFit {
  double value = 0.0;
  int dropped = 0;         ///< directions whose singular value is below 1e-5 of the largest
  double margin = 0.0;     ///< least distance of a singular value from that limit, as a share of the limit
  double steepness = 0.0;  ///< sum of the sizes of the terms that make the value
};
/// The same, where directions with small singular values get no share.
SuppressedFit EigenValue(const std::vector<double>& xs, const std::vector<double>& ys, int terms, double at);

}  // namespace sondera::test
