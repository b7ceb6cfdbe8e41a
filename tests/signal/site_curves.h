// site_curves.h - dispersion curves of the two sites of tests/data as their surveyors published them.
#pragma once

#include <cstddef>
#include <vector>

namespace sondera::testing {

struct SitePoint {
  double freq, vel;  // Hz, m/s
};
using SiteCurve = std::vector<SitePoint>;

/// The curve of WGHS is here in eleven points, that of Oysand in full.
inline const SiteCurve kWghsCurve = {{5.1, 251.8},  {7.9, 229.0},  {10.3, 209.0}, {14.4, 205.0},
                                     {17.0, 202.7}, {19.9, 199.0}, {23.4, 195.6}, {27.1, 190.0},
                                     {31.9, 187.0}, {37.5, 185.0}, {51.0, 176.0}};
inline const SiteCurve kOysandCurve = {
    {5.8631, 173.305},  {6.3987, 172.016},  {6.9876, 170.844},  {7.6085, 169.186},  {8.2828, 167.509},
    {9.0139, 165.795},  {9.8085, 164.081},  {10.6804, 162.493}, {11.6344, 160.986}, {12.6803, 159.577},
    {13.7908, 157.843}, {15.0119, 156.266}, {16.3063, 154.377}, {17.7203, 152.579}, {19.1609, 150.049},
    {20.6699, 147.215}, {22.2540, 144.150}, {23.8693, 140.619}, {25.6312, 137.332}, {27.4866, 133.942},
    {29.5266, 130.859}, {31.7057, 127.796}, {34.0956, 124.991}, {36.7185, 122.423}, {39.6006, 120.081},
    {42.6808, 117.705}, {45.9577, 115.271}, {49.5809, 113.104}, {53.6372, 111.281}, {58.0963, 109.622}};

/// Site velocity at a frequency, straight between the points; 0 outside.
inline double SiteVelocity(const SiteCurve& curve, double freq) {
  for (std::size_t i = 1; i < curve.size(); ++i) {
    const SitePoint &a = curve[i - 1], &b = curve[i];
    if (a.freq <= freq && freq <= b.freq)
      return a.vel + (freq - a.freq) / (b.freq - a.freq) * (b.vel - a.vel);
  }
  return 0.0;
}

}  // namespace sondera::testing
