// shot_places.h - where source and receivers of a shot stand on their line, out of what its file and a person
// tell. Used by shot_plan.cpp.
#pragma once

#include <string>
#include <vector>

#include "project/shot.h"
#include "project/shot_choices.h"

namespace sondera {

struct ShotPlaces {
  double source = 0.0;
  std::vector<double> receivers;  ///< by trace; NaN where nobody tells
  std::vector<Finding> findings;
};

/// Coordinates that differ in one direction only are places as they stand. Others are put on the line through
/// the first receiver and the one farthest from it, and places count from the first receiver.
/// Empty, or the key that is missing and what to do. Equal locations of all receivers count as missing, and
/// nothing that is missing counts as 0.
std::string PlaceShot(const Shot& shot, const ShotChoices& choices, ShotPlaces& places);

}  // namespace sondera
