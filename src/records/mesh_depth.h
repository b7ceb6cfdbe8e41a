// mesh_depth.h - default depth of the mesh of the point-load solver, in wavelengths. The table "Depth of the
// mesh" in docs/method.md says why there are three rules.
//
// Callers: first values of records and of the solver, the set-up of runs. No state.
#pragma once

namespace sondera {

inline constexpr double kFirstMeshDepth = 1.75;  ///< of a new record, on the panel, of the solver itself
inline constexpr double kMeshDepthOfZero = 4.0;  ///< for 0 in the record: forward run, inversion
inline constexpr double kMeshDepthOfZeroInWaveforms = 1.7;  ///< for 0 in the record: waveform run

}  // namespace sondera
