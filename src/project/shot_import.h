// shot_import.h - shots at one place as the accepted records of a measurement: one measurement for each pair
// of the plan, or one for all planned receivers.
//
// Auto and cross spectra are the means over the shots, in the order of the files and with equal weights; the
// last shot gives the time record. No window is applied. Each channel is padded to a power of two with its
// last value, as in the import of time histories. Channel 0 of a measurement is its receiver nearest to the
// source: so the coherence of a pair with its own measurement is measured directly, and that of two other
// channels of one common measurement is computed through channel 0.
//
// Everything is read and checked before the project changes. Nothing here asks: an existing measurement is a
// reason to refuse unless the choices allow replacing it.
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
  /// Called with the id of each measurement that was stored; may be empty.
  std::function<void(const std::string& measID)> stored;
};

/// Plan of the first file. Empty, or the reason, which names the file.
std::string PlanShots(const ShotRequest& request, ShotPlan& plan);

/// Reads the files and makes the measurements of the plan. Empty, or the reason: a file that cannot be read
/// or differs from the first (with the difference); an id that exists; no pair left in use. Then nothing has
/// changed. Findings are reported (findings.h).
/// @param[out] ids  of the measurements, in order; may be null
std::string ImportShots(const ShotRequest& request, const ShotPlan& plan, std::vector<std::string>* ids);

/// Both. For callers that do not show the plan.
std::string ImportShots(const ShotRequest& request, std::vector<std::string>* ids = nullptr);

/// Ids of the plan that the project already has.
std::vector<std::string> MeasurementsThatExist(const ShotRequest& request, const ShotPlan& plan);

}  // namespace sondera
