// tmgrafpnl_stations.h - the stations of the section: the global curves of the project with their places on the line,
// and those that a person adds. No state.
#pragma once

#include <string>
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

/// Appends the global curves of a file (project/station_file.h) at a location, each labelled "name@location". Wavelengths
/// and velocities of a project in another unit of length are converted. 0; -1 after a message.
int AddStation(const std::string& path, double location);

/// SRCPOS on commit: stores the location of the selected included curve and takes the ranges anew. -1 without a
/// selected curve.
int StationLocationCallback(Panel panel, ControlId control, Event event, long data);
/// ADDSTATION: asks for the file and the location. -1 when nothing was added.
int AddStationCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
