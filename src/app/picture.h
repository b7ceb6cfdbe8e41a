// picture.h - a picture of a project as a graph: its curves, the fit of the computed curve, the profile, the
// phases; `sondera plot`. Owned state: none.
#pragma once

#include <string>

#include "app/known_ground.h"
#include "project/export_tables.h"
#include "runtime/graphs.h"

namespace sondera {

inline constexpr std::string_view kPictures = "curves|fit|profile|phase";

/// @param what  one of kPictures
/// @return empty, or why there is nothing to draw
std::string PictureOf(const ProjectTables& tables, const std::string& what, const KnownGround& known,
                      GraphModel& graph);

}  // namespace sondera
