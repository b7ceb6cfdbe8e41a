// section_records.h - stations as the global curves of the project that is open, for tests of the section's panel.
#pragma once

#include <string>
#include <vector>

#include "records/measdb.h"
#include "signal/section.h"

namespace sondera::test {

/// Appends each station as a global curve.
inline void PutStations(const std::vector<SectionStation>& stations) {
  for (const SectionStation& s : stations) {
    DispInfo& curve = *MeasDB.gDispList.append();
    SetupDispArrays(curve, static_cast<int>(s.wlen.size()));
    curve.refChan = curve.dspChan = 1;
    curve.valid = s.valid ? 1 : 0;
    curve.label = s.label;
    curve.wlenMax = s.location;
    for (int i = 1; i <= curve.nPoints; ++i) {
      const auto k = static_cast<std::size_t>(i - 1);
      curve.wlen[i] = s.wlen[k];
      curve.vel[i] = s.vel[k];
      curve.freq[i] = s.vel[k] / s.wlen[k];
    }
  }
}

}  // namespace sondera::test
