// pulse_record.h - the settings of a computed field record: source, frequency grid and length.
//
// Callers: the panel of the waveforms, scripts, and the computation of a record. Times in s, frequencies in
// Hz.
#pragma once

#include <string>

namespace sondera {

/// Shapes of the force.
enum PulseShape : int { kPulseFile = 0, kPulseHammer = 1, kPulseRicker = 2 };

struct PulseRecord {
  int shape = kPulseRicker;
  std::string fileName;        ///< time function of the force; used with kPulseFile
  double centerFreq = 1280.0;  ///< of the two other shapes
  double freqSpan = 51200.0;   ///< highest frequency of the grid, which lies between its lines
  int nPoints = 6;             ///< samples of a record
  double deltaT = 0.0;         ///< derived: 0.5 / freqSpan
  double timeLength = 0.0;     ///< derived: nPoints * deltaT; lines are 1 / timeLength apart

  void Derive() {
    deltaT = 0.5 / freqSpan;
    timeLength = nPoints * deltaT;
  }
};

}  // namespace sondera
