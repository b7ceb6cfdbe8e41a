// model_numbers.h - which layer values are free parameters, and their numbers.
//
// Callers: the set-up of an inversion, the covariance of the model, the writers of results. Owned state: none.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "run/system_state.h"
#include "runtime/listener.h"

namespace sondera {

inline constexpr int kMaxConstraints = 100;      ///< layers of one list
inline constexpr int kMaxConstraintText = 1024;  ///< bytes of one list

/// Layer numbers of a list: tokens between blanks, commas, tabs and line ends; a token that is no number is
/// 0.
/// @param[out] count  tokens in the text; more than numbers.size() when some were left out
/// @return the first kMaxConstraints numbers
std::vector<int> RetrieveLayerNoFromStr(std::string_view text, int& count);

/// Lists of the layers whose Vs and whose thickness are fixed in an inversion, as the panel has them.
struct ConstrainedLayers {
  std::string CONST_MP_VS, CONST_MP_H;
};

/// Numbers the free parameters of the run in ModelMap, from 1, layer after layer and H before Vs, and sets
/// nModelParm: by the parameter choice (1 Vs, 2 H, 3 both), without the half-space's thickness and without
/// the fixed layers. Listed layers that do not exist are reported and skipped. Vp and density are never free.
void NumberModelParameters(int nLayers, Parameters& parameters, int modelParm, const ConstrainedLayers& fixed,
                           Listener& listener);

/// Layer and quantity (1 H, 2 Vs, 3 Vp, 4 density) of a parameter. Kept: both are 1 for a number that does
/// not exist.
void FS_ModelNoToLayerNo(const Run& run, int number, int& layer, int& quantity);

}  // namespace sondera
