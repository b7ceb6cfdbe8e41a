// sasw_pair.h - the routines that work on the pair of a page: filtration, Gabor maps, masks for the
// unwrapper, and the pair record itself. signal/ computes the numbers; this file determines the pair. No
// state.
//
// In each of them panel SASW means the pair on display (LookupID), and another page means the project of the
// setup dialog with measurement and channels last selected in the session (FindCurrentPair).
#pragma once

#include <string>
#include <vector>

#include "records/measdb.h"
#include "runtime/controls.h"
#include "signal/phase_unwrap.h"
#include "signal/wave_groups.h"

namespace sondera {

/// CalcIRF of signal/irf.h for the pair of a page.
int CalcIRF(int reset, Panel panel);

/// CalcGabor and CalcGaborMaps of signal/gabor.h for the pair of a page, with the wait cursor while rows are made.
void CalcGabor(Panel panel);
void CalcGaborMaps(Panel panel);

/// IdentifyWaveGroup of signal/wave_groups.h after making the map: filtration and map of the pair of a page.
void IdentifyWaveGroup(int nF, int nT, double tInit, double tFinal, Panel panel, double threshold,
                       double spacing, WaveGroups& found);

/// Makes the record of a pair (channels from 0) with the phase of DISPCURV_OPTION, then runs CalcIRF(0,
/// Panel::SASW), which updates the pair on display: normally this one. pair gets the record. If none can be
/// made (MakePairRecord), pair is unchanged.
void SetupPMeasDataNode(const std::string& projID, const std::string& measID, int chanA, int chanB,
                        const HWSetup& hwSetup, PMeasInfo*& pair);

/// Computes the arrays of an existing record again and runs CalcIRF(0, Panel::SASW). Nothing happens where
/// RefreshPairRecord refuses.
void UpdatePMeasDataNode(const std::string& projID, const std::string& measID, int chanA, int chanB,
                         const HWSetup& hwSetup, PMeasInfo* pair);

/// CycleMasksOf the pair that a page has selected: panels SASW, HMSETUP and HWSETUP ask the masking page
/// (LookupID); for any other the measurement and channels last selected in the session are used.
std::vector<CycleMask> CycleMasksFor(Panel panel, int n, double fStart, double deltaF);

/// UnWrapLines with the masks of CycleMasksFor.
void UnWrap(Panel panel, int n, double fStart, double deltaF, const double* re, const double* im,
            double* wrapped, double* unwrapped, int* maskFlag);

}  // namespace sondera
