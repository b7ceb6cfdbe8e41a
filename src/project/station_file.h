// station_file.h - the global curves of another project, for a line of stations: from its project file (.da) or from a
// .gcd text. The project that is open stays as it is. No state.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "project/section_io.h"
#include "records/measdb.h"
#include "runtime/refusal.h"
#include "runtime/text_reader.h"

namespace sondera {

struct StationCurves {
  std::vector<std::unique_ptr<DispInfo>>
      curves;               ///< those with points; wlenMax as the file has it, 0 of a text
  double lengthUnit = 0.0;  ///< metres per unit of the file; 0: the file does not tell
};

/// Most points of one curve of a text.
inline constexpr int kMostStationPoints = 100000;

/// Reads a file by the extension of its name: .gcd, else a project. Refused, with the name in the reason, for a file
/// that cannot be read whole or that has no global curve with points.
Refusal ReadStationFile(const std::string& path, StationCurves& station);

/// The same from an open reader. What was wrong; "" when all was read.
/// A text is a heading "ProjID:name, MeasID: name", the number of points, and a row for each: velocity, frequency,
/// wavelength, deviation of the velocity and any further numbers. Several curves follow one another.
std::string ReadStationText(TextReader& text, StationCurves& station);
std::string ReadStationProject(SectionReader& file, StationCurves& station);

}  // namespace sondera
