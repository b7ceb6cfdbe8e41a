// pair_agreement.h - how well the curves of receiver pairs agree at shared wavelengths: the one check that
// finds a wrong count of cycles.
//
// Callers: the doubts at the end of an unattended run. Owned state: none.
#pragma once

#include <string>

namespace sondera {

/// Two curves at one wavelength.
struct Disagreement {
  std::string first, second;                                  ///< labels of the pairs
  double wavelength = 0.0, velocity1 = 0.0, velocity2 = 0.0;  ///< m, m/s
  double share = 0.0;                                         ///< difference over the mean of both
};

struct PairAgreement {
  long couples = 0;    ///< pairs of included curves with a shared wavelength
  long beyond = 0;     ///< those whose largest difference exceeds kDoubtLimits.disagreement
  Disagreement worst;  ///< where two curves differ most; empty without a shared wavelength
};

/// Compares all included pairs of known measurements on a grid of wavelengths with steps of 5 %. At each
/// wavelength a curve is represented by the straight line of velocity against ln wavelength through its
/// points within 10 %, but only if it has points on both sides. Points that are not finite do not count.
PairAgreement AgreementOfPairs();

}  // namespace sondera
