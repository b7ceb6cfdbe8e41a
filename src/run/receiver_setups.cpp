// receiver_setups.cpp - see receiver_setups.h.
#include "run/receiver_setups.h"

#include <cstddef>
#include <string>

namespace sondera {
namespace {

constexpr int kSetupsBuiltIn = 3;

void SetupGlobalReceivers() {
  const int n = run.observations.nDispPoints;
  for (int i = 1; i <= n; ++i) {
    run.receivers.nRecCfgPerPoint[i] = run.observations.globalRecCount[i];
    for (int k = 1; k <= run.observations.globalRecCount[i]; ++k)
      run.receivers.recCfgOfPoint[(k - 1) * n + i] = run.observations.globalRecType[(k - 1) * n + i];
  }
}

void SetupArrayReceivers(const ObsCurve& curve) {
  for (int p = 1; p <= curve.nFreq; ++p) {
    run.receivers.nRecCfgPerPoint[p] = curve.nCurves;
    for (int k = 1; k <= curve.nCurves; ++k)
      run.receivers.recCfgOfPoint[(k - 1) * curve.nFreq + p] = kSetupsBuiltIn + k;
  }
}

}  // namespace

void FS_SetupReceivers(int curveId) {
  if (curveId == 0) SetupGlobalReceivers();
  int id = 0;
  for (const ObsCurve& curve : run.observations.obsCurves)
    if (++id == curveId) SetupArrayReceivers(curve);
}

void FS_SearchReceivers(OffsetVector<int>& list) {
  std::string used(static_cast<std::size_t>(list.size()) + 1, '0');
  for (int i = 1; i <= run.observations.nDispPoints; ++i) {
    for (int k = 1; k <= run.observations.globalRecCount[i]; ++k) {
      const int setup = run.observations.globalRecType[(k - 1) * run.observations.nDispPoints + i];
      if (setup >= 1 && setup <= list.size()) used[static_cast<std::size_t>(setup)] = '1';
    }
  }
  run.receivers.nRecSetupsUsed = 0;
  for (int setup = 1; setup <= list.size(); ++setup) {
    if (used[static_cast<std::size_t>(setup)] == '1') list[++run.receivers.nRecSetupsUsed] = setup;
  }
}

double FS_CheckRecNo(int iPoint, int iRec, const OffsetVector<double>& table) {
  for (int k = 1; k <= run.receivers.nRecCfgPerPoint[iPoint]; ++k) {
    const int at = (k - 1) * run.observations.nDispPoints + iPoint;
    if (run.receivers.recCfgOfPoint[at] == iRec) return at <= table.hi() ? table[at] : 0.0;
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
