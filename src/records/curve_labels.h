// curve_labels.h - names of the dispersion curves in lists and legends. No state.
#pragma once

#include <string>

#include "records/measdb.h"

namespace sondera {

/// "id[1:2]" with channels (from 0) counted from 1; "CSW-id[1:2]" for continuous surface waves.
std::string DispCurveLabel(const std::string& measID, long long refChan, long long dspChan, bool csw = false);

/// "MeasID[ref:dsp]" of a pair, with its channels (given from 0) counted from base. An unknown key gives an
/// empty MeasID.
std::string RepCurveLabel(int key, int refChan, int dspChan, int base);

/// Splits such a label; channels count from 0. The id is the text before the last bracket. Kept: an id that
/// begins with "CSW" loses its first four characters, also when they belong to it. Without a bracket or
/// without two numbers behind it: -1, and the results are unchanged.
int RetrieveChnlInfo(const std::string& label, int& chan1, int& chan2, std::string& measID);

/// Pair of such a label in the current project; null when there is none.
PMeasInfo* PairOfLabel(const std::string& label);

}  // namespace sondera
