// tmgrafpnl_stations.h - stations that a person adds to the section, and their places on the line. The stations
// themselves: section_stations.h. No state.
#pragma once

#include <string>

#include "runtime/controls.h"

namespace sondera {

/// Appends the global curves of a file (project/station_file.h) at a location, each labelled "name@location". Wavelengths
/// and velocities of a project in another unit of length are converted. 0; -1 after a message.
int AddStation(const std::string& path, double location);

/// SRCPOS on commit: stores the location of the selected included curve and takes the ranges anew. -1 without a
/// selected curve.
int StationLocationCallback(Panel panel, ControlId control, Event event, long data);
/// ADDSTATION: asks for the file and the location. -1 when nothing was added.
int AddStationCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
