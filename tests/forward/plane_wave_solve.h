// plane_wave_solve.h - velocity of the plane-wave solver for a ground of the plain references.
#pragma once

#include <vector>

#include "forward/plane_wave.h"

namespace sondera {

/// @param ground  columns h, Vs, rho, nu from the surface down
template <class Ground>
double PlaneWaveVelocity(const Ground& ground, double wavelength) {
  const int n = static_cast<int>(ground.h.size()), one = 1;
  std::vector<double> columns[4];
  const std::vector<double>* from[] = {&ground.h, &ground.Vs, &ground.rho, &ground.nu};
  for (int i = 0; i < 4; ++i) {
    columns[i].assign(1, 0.0);
    columns[i].insert(columns[i].end(), from[i]->begin(), from[i]->end());
  }
  const double L[] = {0.0, wavelength};
  double c[] = {0.0, 0.0};
  FS_SASW2D(&n, columns[0].data(), columns[1].data(), nullptr, nullptr, columns[2].data(), nullptr,
            columns[3].data(), &one, L, c);
  return c[1];
}

}  // namespace sondera
