// lamb_half_space.h - Lamb's problem in closed form: a vertical point load on a half-space of nu = 0.25
// without damping. Independent method for computed records; shares no code with a solver.
#pragma once

namespace sondera::truth {

/// Vertical displacement (positive downward) at distance r, time t after a load of 1 has come on at once
/// (Pekeris, 1955). mu = rho Vs^2. Infinite just below the Rayleigh arrival.
double LambStep(double mu, double Vs, double r, double t);

/// Displacement at time t under the force whose derivative is `rate`, which is 0 before t = 0: convolution of
/// LambStep with the rate, in pieces that end at the arrivals.
template <class Rate>
double LambResponse(double mu, double Vs, double r, double t, Rate rate);

}  // namespace sondera::truth

#include <cmath>

namespace sondera::truth {

inline double LambStep(double mu, double Vs, double r, double t) {
  constexpr double kPi = 3.14159265358979323846;
  const double tau = Vs * t / r, q = tau * tau, s3 = std::sqrt(3.0);
  const double gamma = 0.5 * std::sqrt(3.0 + s3);  // Rayleigh arrival
  const double unit = 1.0 / (32.0 * kPi * mu * r);
  if (tau < 1.0 / s3) return 0.0;
  if (tau >= gamma) return 12.0 * unit;  // the static settlement
  const double a = std::sqrt(3.0 * s3 + 5.0) / std::sqrt(0.75 + 0.25 * s3 - q);
  if (tau >= 1.0) return unit * (12.0 - 2.0 * a);
  return unit *
         (6.0 - s3 / std::sqrt(q - 0.25) - a + std::sqrt(3.0 * s3 - 5.0) / std::sqrt(q + 0.25 * s3 - 0.75));
}

template <class Rate>
double LambResponse(double mu, double Vs, double r, double t, Rate rate) {
  const double s3 = std::sqrt(3.0), gamma = 0.5 * std::sqrt(3.0 + s3);
  const double ends[] = {r / Vs / s3, r / Vs, gamma * r / Vs};
  double sum = 0.0, from = ends[0];
  constexpr int kSteps = 4000;
  for (int piece = 1; piece < 3; ++piece) {
    const double to = ends[piece];
    // v = to - (to - from) w^2 takes the root out of the end of the last piece; midpoints
    for (int i = 0; i < kSteps; ++i) {
      const double w = (i + 0.5) / kSteps, v = to - (to - from) * w * w;
      if (v < t) sum += LambStep(mu, Vs, r, v) * rate(t - v) * 2.0 * (to - from) * w / kSteps;
    }
    from = to;
  }
  if (t > from) {
    for (int i = 0; i < kSteps; ++i) {
      const double v = from + (t - from) * (i + 0.5) / kSteps;
      sum += LambStep(mu, Vs, r, v) * rate(t - v) * (t - from) / kSteps;
    }
  }
  return sum;
}

}  // namespace sondera::truth
