// rep_curve_fixture.cpp - see rep_curve_fixture.h.
#include "support/rep_curve_fixture.h"

#include <algorithm>

#include "records/session.h"
#include "signal/rep_curves.h"

namespace sondera::testing {

TestMeasurement RepCurveTest::Measurement(const char* measID, const std::vector<double>& receivers) {
  MeasurementPlan plan;
  plan.projID = "Site";
  plan.measID = measID;
  plan.nChannels = static_cast<int>(receivers.size());
  TestMeasurement m = AddMeasurement(plan);
  m.setup->recLoc = receivers;
  session.curProjID = "Site";
  return m;
}

PMeasInfo& RepCurveTest::Pair(const TestMeasurement& m, int refChan, int dspChan,
                              const std::vector<double>& freq, const std::vector<double>& vel,
                              const std::vector<double>& amplitude) {
  PMeasInfo& pair = *MeasDB.pMeasList.append();
  SetupPairMeasArrays(pair, std::max(2, static_cast<int>(freq.size())));
  pair.key = m.key;
  pair.refChan = refChan;
  pair.dspChan = dspChan;
  pair.included = 1;
  pair.polyOrderA = 0;
  pair.nDispPoints = static_cast<int>(freq.size());
  for (std::size_t i = 0; i < freq.size(); ++i) {
    pair.dispFreq[i] = freq[i];
    pair.dispVel[i] = vel[i];
    pair.dispWlen[i] = vel[i] / freq[i];
  }
  std::copy(amplitude.begin(), amplitude.end(), pair.enAmp.begin());
  return pair;
}

void RepCurveTest::AllPoints() {
  m = Measurement("m1", {10, 20, 40});
  Pair(m, 1, 2, {10, 20, 30}, {300, 240, 180}, {1.5, 2.5, 3.5});
  Pair(m, 0, 1, {10, 20}, {200, 160}, {4, 5});
  Listener deaf;
  ASSERT_FALSE(AverageCurves(1, 1, deaf));
}

std::vector<double> Steps(double first, double step, int n) {
  std::vector<double> values;
  for (int i = 0; i < n; ++i) values.push_back(first + i * step);
  return values;
}

std::vector<double> Values(const DispInfo& curve, OffsetVector<double> DispInfo::*quantity) {
  std::vector<double> values;
  for (int i = 1; i <= curve.nPoints; ++i) values.push_back((curve.*quantity)[i]);
  return values;
}

}  // namespace sondera::testing
