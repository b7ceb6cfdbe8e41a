// shot_choices.h - decisions of a person or a script about a shot before receiver pairs are made of it. Used
// by the plan (shot_plan.h) and the places (shot_places.h).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sondera {

/// Text that refuses receivers on both sides of the source, or at the same place.
inline constexpr std::string_view kInvalidLocation = "Invalid source or receiver location !";

enum class ShotSide { Unset, Left, Right };

/// Decisions of a person or a script; the rest comes from the file.
struct ShotChoices {
  std::string measID;
  std::vector<int> channels;  ///< from 1; empty: planned by the rule above
  bool pairs = true;          ///< each pair a measurement; else one measurement of all planned receivers
  ShotSide side = ShotSide::Unset;
  double nearest = 0.0;          ///< smallest first distance wanted
  std::optional<double> source;  ///< place of the source
  std::vector<double> at;        ///< places of `channels`, or of all channels of the file; empty: the file's
  double lengthUnit = 0.0;       ///< metres per unit; 0: the file's
  double placesUnit = 0.0;       ///< unit of `at` where neither lengthUnit nor the file gives one; 0: none
  double alpha = 0.25;
  bool wholeRate = false;    ///< uses ShotPlan::wholeRate
  bool correctSkew = false;  ///< corrects the spectra for unequal SKEW
  bool overwrite = false;    ///< existing measurements are replaced
};

}  // namespace sondera
