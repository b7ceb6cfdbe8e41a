// field_site.h - inversions of the published sites in a person's steps: six time records, a mask for each
// pair, representative curves, starting profiles, and the panel of the inversion.
#pragma once

#include <string>
#include <vector>

#include "support/app_fixture.h"

namespace sondera::testing {

/// A pair (receivers from 1) and its masks: from 0 Hz to the beginning of the band, with the number of cycles
/// there, and from its end on.
struct MaskedPair {
  int reference, display;
  double bandBegin;
  int jumps;
  double bandEnd;
};

/// A site of the field data: its folder, the source and the receivers, the pairs that are taken.
struct FieldSite {
  std::string folder;
  double source;
  std::vector<double> locations;
  std::vector<MaskedPair> pairs;
};

extern const FieldSite kWghsThreePairs, kWghsFivePairs, kOysandFivePairs;

/// Layers of the ground, in metres; the last one is the half-space.
extern const std::vector<double> kSixLayers, kSevenLayers;

class FieldSiteTest : public AppTest {
 protected:
  /// From the records to the panel of the inversion, with first values throughout: the starting model is the
  /// best starting profile. The records must be there.
  /// bulb: displacement bulb for all of it, unless it is 0.
  void Take(const FieldSite& site, const std::vector<double>& layers, double bulb = 0.0);
  /// All layers of the given model to one Vs.
  void StartFromUniform(double Vs);
  /// Every velocity gets this fraction of itself as its deviation.
  void SetDeviation(double part);
  /// Five iterations from the given model, with the options that are on.
  void Invert();

  /// Vs of an iteration, by layer.
  static std::vector<double> Profile(int iteration);
  /// RMS, chi and rows in use of the listed iterations, the starting model first.
  static std::vector<double> Rms();
  static std::vector<double> Chi();
  static std::vector<int> Rows();
  static int LastIteration();

  /// Complaints in the status at the ends of iterations: the sweeps' points and the run's note, and only the
  /// note.
  std::vector<std::string> complaints, notes;

 private:
  void Import(const FieldSite& site);
  void ComputeCurve(const MaskedPair& pair);
};

}  // namespace sondera::testing
