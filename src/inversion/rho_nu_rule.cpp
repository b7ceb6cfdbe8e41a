// rho_nu_rule.cpp - see rho_nu_rule.h.
#include "inversion/rho_nu_rule.h"

namespace sondera {
namespace {

constexpr double kSoilUpTo = 420.0;  // m/s, the limit itself is soil
constexpr double kSoilDensity = 1800.0, kSoilNu = 0.3333333;
constexpr double kStiffDensity = 2400.0, kStiffNu = 0.2;

constexpr int kUnits = 4;
constexpr double kDensityDivisor[kUnits] = {1.0, 0.0018, 16.019, 27080.0};  // Kept: see the header

}  // namespace

DensityAndNu RuleForVs(double Vs, double lengthFactor, int unitIndex) {
  const double divisor = kDensityDivisor[unitIndex >= 0 && unitIndex < kUnits ? unitIndex : 0];
  if (lengthFactor * Vs <= kSoilUpTo) return {kSoilDensity / divisor, kSoilNu};
  return {kStiffDensity / divisor, kStiffNu};
}

}  // namespace sondera
