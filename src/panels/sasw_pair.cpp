// sasw_pair.cpp - see sasw_pair.h. Owns no state.
#include "panels/sasw_pair.h"

#include "panels/event_listener.h"
#include "panels/trace_selection.h"
#include "runtime/catalogue/sasw.h"
#include "signal/gabor.h"
#include "signal/irf.h"
#include "signal/pair_data.h"

namespace sondera {
namespace {

PairFinder PairOfPage(Panel panel) {
  return [panel] { return FindCurrentPair(panel); };
}

}  // namespace

int CalcIRF(int reset, Panel panel) {
  return CalcIRF(reset, FindCurrentPair(panel));
}

void CalcGabor(Panel panel) {
  EventListener listener;
  CalcGabor(PairOfPage(panel), listener);
}

void CalcGaborMaps(Panel panel) {
  EventListener listener;
  CalcGaborMaps(PairOfPage(panel), listener);
}

void IdentifyWaveGroup(int nF, int nT, double tInit, double tFinal, Panel panel, double threshold,
                       double spacing, WaveGroups& found) {
  found = WaveGroups{};
  if (!IsMapSize(nF, nT)) return;
  CalcIRF(0, panel);
  CalcGabor(panel);
  PMeasInfo* pair = FindCurrentPair(panel).pair;
  if (!pair) return;
  IdentifyWaveGroup(nF, nT, tInit, tFinal, pair->gaborMap(pair->phaseOption).data(), threshold, spacing,
                    found);
}

void SetupPMeasDataNode(const std::string& projID, const std::string& measID, int chanA, int chanB,
                        const HWSetup& hwSetup, PMeasInfo*& pair) {
  PMeasInfo* made = MakePairRecord(projID, measID, chanA, chanB, hwSetup, GetCtrlVal(sasw::DISPCURV_OPTION));
  if (!made) return;
  pair = made;
  CalcIRF(0, Panel::SASW);
}

void UpdatePMeasDataNode(const std::string& projID, const std::string& measID, int chanA, int chanB,
                         const HWSetup& hwSetup, PMeasInfo* pair) {
  if (RefreshPairRecord(projID, measID, chanA, chanB, hwSetup, pair)) CalcIRF(0, Panel::SASW);
}

std::vector<CycleMask> CycleMasksFor(Panel panel, int n, double fStart, double deltaF) {
  const bool lookUp = panel == Panel::SASW || panel == Panel::HMSETUP || panel == Panel::HWSETUP;
  const CurrentPair current = FindCurrentPair(lookUp ? Panel::SASW : panel);
  return CycleMasksOf(current.key, current.refChan, current.dspChan, n, fStart, deltaF);
}

void UnWrap(Panel panel, int n, double fStart, double deltaF, const double* re, const double* im,
            double* wrapped, double* unwrapped, int* maskFlag) {
  UnWrapLines(n, re, im, CycleMasksFor(panel, n, fStart, deltaF), wrapped, unwrapped, maskFlag);
}

}  // namespace sondera
