// section_stations.h - the stations of the section: the global curves of the project with their places on the line, and
// which of them a list of the panel shows as selected. No state.
#pragma once

#include <vector>

#include "records/measdb.h"
#include "runtime/controls.h"
#include "signal/section.h"

namespace sondera {

/// All global curves, in the order of the list: points as far as their arrays go.
std::vector<SectionStation> SectionStations();

/// The curve behind the selected item of a list of the panel: that of the item's position where label and `valid` still
/// fit, else the first whose label and `valid` do. Null without one.
DispInfo* SelectedStation(const ListControl& list);

}  // namespace sondera
