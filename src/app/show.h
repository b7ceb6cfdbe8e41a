// show.h - the contents of a project, as text for a person: curves, profile and masks; `sondera show`. Owned
// state: none.
#pragma once

#include <string>

#include "app/known_ground.h"
#include "project/export_tables.h"

namespace sondera {

struct ShowChoices {
  bool curves = true, profile = true, masks = true;
};

/// Measurements first, then the chosen parts. Known ground is shown beside the results: the ratio of each
/// curve to the known one, and the known Vs of each layer.
std::string ShowText(const ProjectTables& tables, const ShowChoices& choices, const KnownGround& known);

/// Points of a curve that have a velocity.
std::vector<GroundPoint> PointsOf(const CurveTable& curve);
/// "six[1:2]" of a pair, "global" and so on of the others.
std::string NameOf(const CurveTable& curve);

}  // namespace sondera
