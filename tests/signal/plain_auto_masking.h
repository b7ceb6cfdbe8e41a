// plain_auto_masking.h - the Gauss filter, a Gabor map and the steps of the automatic masking in plain form,
// one after the other over whole tables; they share only transform, sort and peak finder with the library.
// The tests compare the library with them on random data.
#pragma once

#include <vector>

namespace sondera::plain {

std::vector<double> GaussFilter(double f, double band, double beta, double f1, double f2, double deltaT,
                                int N, int mode);

struct MapSettings {
  double initTime, finalTime;
  int timeDiv;
  double initFreq, finalFreq;
  int freqDiv;
  double band, beta;
};
/// Rows of timeDiv values. re and im hold N / 2 values.
std::vector<double> GaborRows(const MapSettings& s, const double* re, const double* im, double deltaT, int N);

/// Entry 0 of each is unused.
struct Extremes {
  int n = 0;
  std::vector<double> loc, amp, curv, vel;
};
struct Ridge {
  std::vector<double> Z, peakV, peakT;
  Extremes extremes;
};
Ridge WaveGroup(int nF, int nT, double tInit, double tFinal, const double* grid, double threshold,
                double spacing, double vMax, double vMin);

struct Noise {
  int n = 0;
  std::vector<double> loc, amp, curv;
};
/// Removed energy of a response of M2 samples after a band-pass window with the sample numbers t3, t4.
Noise BackgroundNoise(const std::vector<double>& response, int t3, int t4, int nLines);

void RejectByNoise(const Noise& noise, double deltaF, double dFg, double finalFreq, Extremes& e);

std::vector<int> GridMask(const Extremes& e, const std::vector<double>& peakV, int nF, double threshold);

std::vector<int> LineMask(const std::vector<int>& gridMask, int nF, double dFg, double deltaF,
                          const std::vector<double>& hAmp, const std::vector<double>& bbAmp, int nL);

struct MaskRange {
  double freqInit, freqFinal;
  int lineInit, lineFinal;
};
std::vector<MaskRange> Masks(const std::vector<int>& lineMask, double deltaF, double bandEnd);

}  // namespace sondera::plain
