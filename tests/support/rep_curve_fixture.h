// rep_curve_fixture.h - a session with receiver pairs whose dispersion curves are given.
#pragma once

#include <vector>

#include "support/session_fixture.h"

namespace sondera::testing {

class RepCurveTest : public SessionTest {
 protected:
  /// Measurement of project "Site" with receivers at these distances from a source at 0.
  TestMeasurement Measurement(const char* measID, const std::vector<double>& receivers);

  /// Pair with a curve, included; amplitudes of lines 0.. are 0 unless given. The list of pairs may move
  /// nothing: the reference stays good.
  PMeasInfo& Pair(const TestMeasurement& m, int refChan, int dspChan, const std::vector<double>& freq,
                  const std::vector<double>& vel, const std::vector<double>& amplitude = {});

  /// Two pairs of a measurement m with three and two points, and the representative curves that take all of them.
  void AllPoints();

  static DispInfo& Global() { return *MeasDB.gDispList.at(1); }
  static DispInfo& Array(int position) { return *MeasDB.aDispList.at(position); }

  TestMeasurement m;
};

/// first, first + step, ...; n of them.
std::vector<double> Steps(double first, double step, int n);
/// Elements 1..nPoints of one quantity of a curve.
std::vector<double> Values(const DispInfo& curve, OffsetVector<double> DispInfo::*quantity);

}  // namespace sondera::testing
