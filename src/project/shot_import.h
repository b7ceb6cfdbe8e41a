// shot_import.h - shots of one place as the accepted records of a measurement: one measurement for each pair
// of the plan, or one for all planned receivers.
//
// Auto and cross spectra are the means over the shots, in the order of the files and with equal weights; the
// last shot gives the time record. No window is applied. Each channel is padded to a power of two with its
// last value, as an import of time histories does. Channel 0 of a measurement is its receiver nearest to the
// source: so the coherence of a pair with a measurement of its own is measured directly, and that of two
// others of one common measurement passes through channel 0.
//
// Everything is read and checked before the project changes. Nothing here asks: a measurement that is there
// already is a reason to refuse unless the choices say otherwise.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "project/shot.h"
#include "project/shot_plan.h"

namespace sondera {

struct ShotRequest {
  std::vector<std::string> files;  ///< of equal geometry, interval and length
  ReadShot read;
  ShotChoices choices;
  std::string projID;  ///< project text of the measurements; empty: the current one
  /// Called with the id of each measurement that was stored; empty: nobody is told.
  std::function<void(const std::string& measID)> stored;
};

/// Plan of the first file. Empty, or the reason, which names the file.
std::string PlanShots(const ShotRequest& request, ShotPlan& plan);

/// Reads the files and makes the measurements of the plan. Empty, or the reason: a file that cannot be read
/// or differs from the first, named with what differs; an id that exists; no pair left in use. Nothing has
/// changed then. Findings are reported (findings.h).
/// @param[out] ids  of the measurements, in order; may be null
std::string ImportShots(const ShotRequest& request, const ShotPlan& plan, std::vector<std::string>* ids);

/// Both. For callers that do not show the plan.
std::string ImportShots(const ShotRequest& request, std::vector<std::string>* ids = nullptr);

/// Ids that the plan would make and that the project has already.
std::vector<std::string> MeasurementsThatExist(const ShotRequest& request, const ShotPlan& plan);

}  // namespace sondera
