// pair_agreement.h - how far the curves of receiver pairs agree where they share wavelengths: the one check
// that sees a wrong count of cycles.
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
  long couples = 0;    ///< couples of included pairs with a shared wavelength
  long beyond = 0;     ///< those that are further apart than kDoubtLimits.disagreement somewhere
  Disagreement worst;  ///< where two pairs are furthest apart; empty without a couple
};

/// Compares all included pairs of known measurements on a grid of wavelengths with steps of 5 %. There each
/// curve is the straight line of velocity against ln wavelength through its points within 10 %, and only
/// where it has points on both sides. Points that are not finite do not count.
PairAgreement AgreementOfPairs();

}  // namespace sondera
