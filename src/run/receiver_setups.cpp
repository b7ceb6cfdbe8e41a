// receiver_setups.cpp - see receiver_setups.h.
#include "run/receiver_setups.h"

#include <cstddef>
#include <string>

#include "forward/point_load.h"

namespace sondera {
namespace {

void SetupGlobalReceivers(const Observations& o, Receivers& r) {
  const int n = o.nDispPoints;
  for (int i = 1; i <= n; ++i) {
    r.nRecCfgPerPoint[i] = o.globalRecCount[i];
    for (int k = 1; k <= o.globalRecCount[i]; ++k)
      r.recCfgOfPoint[(k - 1) * n + i] = o.globalRecType[(k - 1) * n + i];
  }
}

void SetupArrayReceivers(const ObsCurve& curve, Receivers& r) {
  for (int p = 1; p <= curve.nFreq; ++p) {
    r.nRecCfgPerPoint[p] = curve.nCurves;
    for (int k = 1; k <= curve.nCurves; ++k) r.recCfgOfPoint[(k - 1) * curve.nFreq + p] = kBuiltInSetups + k;
  }
}

}  // namespace

void FS_SetupReceivers(int curveId, const Observations& observations, Receivers& receivers) {
  if (curveId == 0) SetupGlobalReceivers(observations, receivers);
  int id = 0;
  for (const ObsCurve& curve : observations.obsCurves)
    if (++id == curveId) SetupArrayReceivers(curve, receivers);
}

void FS_SearchReceivers(const Observations& observations, Receivers& receivers) {
  OffsetVector<int>& list = receivers.recSetupList;
  std::string used(static_cast<std::size_t>(list.size()) + 1, '0');
  for (int i = 1; i <= observations.nDispPoints; ++i) {
    for (int k = 1; k <= observations.globalRecCount[i]; ++k) {
      const int setup = observations.globalRecType[(k - 1) * observations.nDispPoints + i];
      if (setup >= 1 && setup <= list.size()) used[static_cast<std::size_t>(setup)] = '1';
    }
  }
  receivers.nRecSetupsUsed = 0;
  for (int setup = 1; setup <= list.size(); ++setup) {
    if (used[static_cast<std::size_t>(setup)] == '1') list[++receivers.nRecSetupsUsed] = setup;
  }
}

double FS_CheckRecNo(const Receivers& receivers, int nPoints, int iPoint, int iRec,
                     const OffsetVector<double>& table) {
  for (int k = 1; k <= receivers.nRecCfgPerPoint[iPoint]; ++k) {
    const int at = (k - 1) * nPoints + iPoint;
    if (receivers.recCfgOfPoint[at] == iRec) return at <= table.hi() ? table[at] : 0.0;
  }
  return 0.0;
}

void FS_GetFreqIDAndRecPairID(const ObsCurve& curve, int iRow, int* iFreq, int* iPair) {
  *iFreq = *iPair = 0;
  int row = 0;
  for (int p = 1; p <= curve.nFreq; ++p) {
    for (int c = 1; c <= curve.nCurves; ++c) {
      if (curve.vel[curve.At(p, c)] == 0.0 || ++row != iRow) continue;
      *iFreq = p;
      *iPair = c;
      return;
    }
  }
}

}  // namespace sondera
