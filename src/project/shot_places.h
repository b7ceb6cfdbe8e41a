// shot_places.h - positions of source and receivers of a shot on their line, from its file and from a person.
// Used by shot_plan.cpp.
#pragma once

#include <string>
#include <vector>

#include "project/shot.h"
#include "project/shot_choices.h"

namespace sondera {

struct ShotPlaces {
  double source = 0.0;
  std::vector<double> receivers;  ///< by trace; NaN where unknown
  std::vector<Finding> findings;
};

/// If the coordinates differ in one direction only, they are the places. Others are projected on the line
/// through the first receiver and the one farthest from it, and places count from the first receiver.
/// Empty, or the missing key and what to do. Equal locations of all receivers count as missing, and a missing
/// value is never taken as 0.
std::string PlaceShot(const Shot& shot, const ShotChoices& choices, ShotPlaces& places);

}  // namespace sondera
