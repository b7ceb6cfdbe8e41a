// curve_labels.h - the names under which lists and legends show a dispersion curve. No state.
#pragma once

#include <string>

#include "records/measdb.h"

namespace sondera {

/// "id[1:2]" with channels (from 0) counted from 1; "CSW-id[1:2]" for continuous surface waves.
std::string DispCurveLabel(const std::string& measID, long long refChan, long long dspChan, bool csw = false);

/// "MeasID[ref:dsp]" of a pair, with its channels (given from 0) counted from base. An unknown key gives an
/// empty MeasID.
std::string RepCurveLabel(int key, int refChan, int dspChan, int base);

/// Takes such a label apart; channels count from 0. The id is the text before the last bracket. Kept: an id
/// that begins with "CSW" loses its first four characters, also where they are its own. -1, with the results
/// left alone, without a bracket or without two numbers behind it.
int RetrieveChnlInfo(const std::string& label, int& chan1, int& chan2, std::string& measID);

/// Pair that a label of the current project stands for; null when there is none.
PMeasInfo* PairOfLabel(const std::string& label);

}  // namespace sondera
