// result_files.h - curves, model and profile of a run in text files beside the project, for people and for
// other programs; nothing here reads them.
//
// Callers: drivers of forward runs and inversions, between FS_OpenFiles and FS_CloseFiles (run_files.h). A
// file name is run.switches.baseName plus an extension; every call adds a block, so the iterations of a run
// follow each other. A block that cannot be written is reported to the listener, and the run continues.
// Statistics are in result_statistics.h. Owned state: none.
#pragma once

#include <string>

#include "numeric/offset_array.h"
#include "run/system_state.h"
#include "runtime/listener.h"

namespace sondera {

/// ".fdp": observed and computed curves. Global curve: one row for each point. Array curves: velocities by
/// frequency, wavelengths, amplitudes.
/// @param velocity, amplitude  computed values by row (global: by set-up slot and point, too)
/// Also updates course.timeText.
void FS_SaveDspCurve(Run& run, int iteration, const OffsetVector<double>& velocity,
                     const OffsetVector<double>& amplitude, double rmsVel, double rmsAmp, Listener& listener);

/// ".fmp": table of the model, from the entry of this number (FS_RefreshModelPar comes first), with the Vs
/// two posterior deviations below and above.
void FS_SaveModelPar(const Run& run, int iteration, double rmsVel, double rmsAmp, Listener& listener);

/// ".pfl": Vs over depth as steps, the half-space only by its top.
void FS_SaveProfile(const Run& run, int iteration, double rmsVel, double rmsAmp, Listener& listener);

/// ".fsp": the layers of the run as columns of a forward model, 0 where a value is to be derived. Also
/// updates course.timeText.
void FS_SaveSMPfile(Run& run, int iteration, double rmsVel, double rmsAmp, Listener& listener);

/// Row of the model table: depth, H, Vp, Vs, two limits of Vs, density, nu, damping of layer i (from 0).
std::string ModelTableRow(int index, int i, double firstLimit, double secondLimit);

/// Marks of an empty point in the two kinds of array blocks.
inline constexpr const char* kNoVelocities = "-           -";
inline constexpr const char* kNoWavelengths = "-          -           -            -";

}  // namespace sondera
