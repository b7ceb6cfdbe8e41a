// synthetic_site.h - records of a hammer blow on a known layered ground.
//
// The wave is the fundamental Rayleigh mode of the layers: its phase velocity is that of the plane-wave
// solver, its amplitude falls with 1 / sqrt(distance) and by damping. There is no near field, no body wave
// and no higher mode. Three kinds of noise are added: even over the band, strong at low frequency, and the
// hum of the mains. Callers: the examples, tests, and everything that needs records without a field test.
// Owns no state.
//
// Lengths in m, times in s, frequencies in Hz. Amplitudes are shares of the peak of an average blow 10 m from
// the source. Equal settings, seed and blow number give equal numbers.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "forward/plane_wave_table.h"

namespace sondera {

struct SiteLayer {
  double thickness = 0.0;  ///< m; the last layer's is not used
  double Vs = 0.0;         ///< m/s
  double density = 1.8;    ///< any unit: only ratios count
  double nu = 1.0 / 3.0;   ///< Poisson's ratio
};

/// 2 m of Vs 150 m/s, 4 m of 220 and 8 m of 300 on a half-space of 400.
std::vector<SiteLayer> StandardGround();

/// Ground, blow and noise.
struct SyntheticSite {
  std::vector<SiteLayer> layers = StandardGround();
  double damping = 0.02;       ///< damping ratio of all layers
  double blowTime = 0.003;     ///< length of the half-sine
  double blowSpread = 0.2;     ///< deviation of a blow's strength, as a share of it
  double geophone = 4.5;       ///< natural frequency of the receivers, damped 0.6; 0: even response
  double noise = 0.01;         ///< rms of the even noise
  double lowNoise = 0.0;       ///< rms of the noise below lowNoiseTo: wind, traffic
  double lowNoiseTo = 6.0;     ///< Hz
  double hum = 0.005;          ///< amplitude at humFrequency; a third of it at three times that
  double humFrequency = 50.0;  ///< Hz
  std::uint64_t seed = 1;
};

/// Positions of receivers and length of the record of a blow.
struct SiteRecording {
  double source = 0.0;
  std::vector<double> receivers;  ///< on either side of the source, 0.1 m from it at least
  double deltaT = 0.001;
  int nSamples = 2048;
  double firstTime = 0.0;  ///< of the first sample; the blow begins at 0
};

/// Samples, [receiver][sample].
using SiteRecord = std::vector<std::vector<double>>;

class SiteSimulator {
 public:
  explicit SiteSimulator(SyntheticSite site);

  /// Why no record is possible, "" when it is.
  const std::string& Fault() const { return fault_; }
  std::string Fault(const SiteRecording& recording) const;

  /// Record of a blow; the number of a blow may be any integer. Empty where Fault(recording) is not "".
  SiteRecord Record(const SiteRecording& recording, int blow) const;

  /// Phase velocity of the ground, m/s, within 1e-4 of the plane-wave solver's; 0 with a fault. Beyond the
  /// ends of its table (wavelengths of 100 times the depth of the half-space, and of a tenth of the first
  /// layer) it is constant.
  double PhaseVelocity(double frequency) const;

  const SyntheticSite& Site() const { return site_; }

 private:
  void MakeTable();
  double NominalPeak() const;

  SyntheticSite site_;
  std::string fault_;
  PlaneWaveTable table_;
  double scale_ = 1.0;  // makes the peak at 10 m 1
};

}  // namespace sondera
