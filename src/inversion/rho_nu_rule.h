// rho_nu_rule.h - density and Poisson's ratio from a shear-wave velocity, for layers without other data.
//
// Callers: the sensitivity matrix, where both follow the velocity at each iteration, and the copying of a
// stored profile to the panel (UPDATERHONU of the inversion panel, on in both cases). Owned state: none.
#pragma once

namespace sondera {

struct DensityAndNu {
  double density;  ///< mass density, in the unit that belongs to the unit of length
  double nu;       ///< Poisson's ratio
};

/// Rule of thumb with two kinds of ground: soil up to 420 m/s (1800 kg/m3, 0.3333333), stiffer ground above
/// (2400 kg/m3, 0.2).
/// @param Vs            shear-wave velocity, units of length/s; NaN counts as stiff
/// @param lengthFactor  metres per unit of length: value of meassetup::LENGTHUNIT
/// @param unitIndex     position of that unit in the ring: 0 m, 1 cm, 2 ft, 3 in; any other counts as 0
/// The densities are divided by 1.0, 0.0018, 16.019 or 27080.0 by unit. Kept: the divisors of cm and in are
/// not those of a conversion (1800/0.0018 is a million), so densities in these units cannot be compared with
/// other data; curves depend only on their ratios, which are right.
DensityAndNu RuleForVs(double Vs, double lengthFactor, int unitIndex);

}  // namespace sondera
