// model_numbers.h - which layer values are free parameters, and their numbers.
//
// Callers: the set-up of an inversion, the covariance of the model, the writers of results. Works on ModelMap
// of `run`; owns no state.
#pragma once

#include <string_view>
#include <vector>

namespace sondera {

inline constexpr int kMaxConstraints = 100;      ///< layers of one list
inline constexpr int kMaxConstraintText = 1024;  ///< bytes of one list

/// Layer numbers of a list: tokens between blanks, commas, tabs and line ends; a token that is no number is
/// 0.
/// @param[out] count  tokens in the text; more than numbers.size() when some found no place
/// @return the first kMaxConstraints numbers
std::vector<int> RetrieveLayerNoFromStr(std::string_view text, int& count);

/// Numbers the free parameters of the run in ModelMap, from 1, layer after layer and H before Vs, and sets
/// nModelParm: by the parameter choice (1 Vs, 2 H, 3 both), without the half-space's thickness and without
/// the layers that CONST_MP_VS and CONST_MP_H list. Listed layers that do not exist are reported and skipped.
/// Vp and density are never free.
void NumberModelParameters(int modelParm);

/// Layer and quantity (1 H, 2 Vs, 3 Vp, 4 density) of a parameter. Kept: both are 1 for a number that does
/// not exist.
void FS_ModelNoToLayerNo(int number, int& layer, int& quantity);

}  // namespace sondera
