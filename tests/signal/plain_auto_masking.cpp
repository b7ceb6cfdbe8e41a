#include "plain_auto_masking.h"

#include <algorithm>
#include <cmath>

#include "numeric/analysis.h"
#include "numeric/sort.h"
#include "plain_envelope.h"

namespace sondera::plain {
namespace {}  // namespace

std::vector<double> GaussFilter(double f, double band, double beta, double f1, double f2, double deltaT,
                                int N, int mode) {
  const double w0 = 2 * M_PI * f;
  double fLow = f1;
  if (f1 == 0) fLow = 0.01;
  double dw;
  if (mode == 0)
    dw = 2 * M_PI * (f2 - f1) * 0.5 * std::log10((band + 1) / (1 - band)) / std::log10(f2 / fLow);
  else
    dw = w0 * band;
  std::vector<double> out(N);
  for (int i = 0; i <= N - 1; ++i) {
    const double w = i * 2 * M_PI / (N * deltaT);
    if (w >= w0 - dw && w <= w0 + dw) {
      const double x = band * (w - w0) / dw;
      out[i] = std::exp(-(beta / (band * band)) * (x * x));
    } else {
      out[i] = 0;
    }
  }
  return out;
}

std::vector<double> GaborRows(const MapSettings& s, const double* re, const double* im, double deltaT,
                              int N) {
  const double dt = (s.finalTime - s.initTime) / (s.timeDiv - 1);
  const double df = (s.finalFreq - s.initFreq) / (s.freqDiv - 1);
  std::vector<double> grid(s.freqDiv * s.timeDiv, 0.0);
  EnvelopeArrays work(N);
  for (int r = 0; r <= s.freqDiv - 1; ++r) {
    const double f = r * df + s.initFreq;
    CalcEnvelope(GaussFilter(f, s.band, s.beta, s.initFreq, s.finalFreq, deltaT, N, 0), re, im, N, work);
    for (int c = 0; c <= s.timeDiv - 1; ++c) {
      const double t = c * dt + s.initTime;
      const int i = static_cast<int>(t / deltaT + 0.5);
      if (i > N) continue;
      const double env = i < N ? work.env[i] : 0.0;
      grid[r * s.timeDiv + c] = env > 0 ? 20 * std::log10(env) : -100000;
    }
  }
  return grid;
}

namespace {

void Scale(std::vector<double>& z, double threshold) {
  double min = 1e300, max = -1e300;
  for (double v : z) {
    if (v <= -100000) continue;
    if (v < min) min = v;
    if (v > max) max = v;
  }
  for (double& v : z) {
    if (max <= min) {
      v = threshold;
      continue;
    }
    if (v <= -100000) v = min;
    v = (v - min) * (100 / (max - min)) + 0;
    if (v > 100) v = 100;
    if (v < threshold) v = threshold;
  }
}

}  // namespace

Ridge WaveGroup(int nF, int nT, double tInit, double tFinal, const double* grid, double threshold,
                double spacing, double vMax, double vMin) {
  Ridge r;
  r.Z.resize(nF * nT);
  for (int f = 0; f < nF; ++f)
    for (int t = 0; t < nT; ++t) r.Z[t * nF + f] = grid[f * nT + t];
  Scale(r.Z, threshold);
  for (int f = 0; f < nF; ++f) {
    double top = r.Z[f], bottom = r.Z[f];
    int at = 0;
    for (int t = 1; t < nT; ++t) {
      const double v = r.Z[t * nF + f];
      if (v > top) {
        top = v;
        at = t;
      }
      if (v < bottom) bottom = v;
    }
    r.peakV.push_back(top);
    r.peakT.push_back(top == bottom ? nT : at);
  }
  const double dTg = (tFinal - tInit) / (nT - 1);
  Extremes& e = r.extremes;
  e.loc = e.amp = e.curv = e.vel = {0.0};
  Peaks peaks = PeakDetector(r.peakV.data(), nF, threshold, 5);
  const auto strongest = [](Peaks& p) {
    sort3(p.count(), p.amplitudes.data(), p.locations.data(), p.secondDerivatives.data(), nullptr, 0);
    std::reverse(p.locations.begin(), p.locations.end());
    std::reverse(p.secondDerivatives.begin(), p.secondDerivatives.end());
    return std::min(p.count(), 10);
  };
  int n = strongest(peaks);
  for (int k = 0; k < n; ++k) {
    const int idx = static_cast<int>(peaks.locations[k] + 0.5);
    const int t = static_cast<int>(r.peakT[idx]);
    const double v = t == 0 ? 1e300 : spacing / (t * dTg);
    e.loc.push_back(idx);
    e.amp.push_back(r.peakV[idx]);
    e.curv.push_back(peaks.secondDerivatives[k]);
    e.vel.push_back(v >= vMax || v < vMin ? -v : v);
  }
  std::vector<double> inv;
  for (double v : r.peakV) inv.push_back(100 - v);
  Peaks valleys = PeakDetector(inv.data(), nF, 5.0, 3);
  n = strongest(valleys);
  for (int k = 0; k < n; ++k) {
    const int idx = static_cast<int>(valleys.locations[k] + 0.5);
    e.loc.push_back(idx);
    e.amp.push_back(-(100 - inv[idx]));
    e.curv.push_back(valleys.secondDerivatives[k]);
    e.vel.push_back(1e-5);
  }
  e.n = static_cast<int>(e.loc.size()) - 1;
  sort3(e.n, e.loc.data(), e.amp.data(), e.curv.data(), e.vel.data(), 1);
  return r;
}

Noise BackgroundNoise(const std::vector<double>& response, int t3, int t4, int nLines) {
  const int m2 = static_cast<int>(response.size());
  const int width = t4 - t3 == 0 ? 1 : t4 - t3;
  std::vector<double> re(m2), im(m2, 0.0), amp(m2 / 2);
  for (int i = 0; i < m2; ++i) {
    double w = 0.0;
    if (i < t3)
      w = 1.0;
    else if (i <= t4)
      w = 0.5 * (1 + std::cos(M_PI * (i - t3) / width));
    re[i] = response[i] * (1 - w);
  }
  FFT(re.data(), im.data(), m2);
  double max = 0.0;
  for (int i = 0; i < m2 / 2; ++i) {
    amp[i] = std::sqrt(re[i] * re[i] + im[i] * im[i]);
    if (i > 1) max = std::max(max, amp[i]);
  }
  const Peaks peaks = PeakDetector(amp.data(), m2 / 2, 0.3 * max, 3);
  Noise noise;
  noise.n = std::min(peaks.count(), 10);
  for (int k = peaks.count() - 1; k >= peaks.count() - noise.n; --k) {
    const int idx = static_cast<int>(peaks.locations[k] + 0.5);
    if (idx >= nLines) continue;
    noise.loc.push_back(idx);
    noise.amp.push_back(peaks.amplitudes[k]);
    noise.curv.push_back(peaks.secondDerivatives[k]);
  }
  for (auto* list : {&noise.loc, &noise.amp, &noise.curv}) {
    list->resize(noise.n, 0.0);
    list->insert(list->begin(), 0.0);
  }
  sort3(noise.n, noise.amp.data(), noise.loc.data(), noise.curv.data(), nullptr, 1);
  return noise;
}

void RejectByNoise(const Noise& noise, double deltaF, double dFg, double finalFreq, Extremes& e) {
  if (e.n == 0) return;
  const auto reject = [&](int k) { e.vel[k] = -std::fabs(e.vel[k]); };
  for (int j = 1; j <= noise.n; ++j) {
    const double fBG = deltaF * noise.loc[j];
    double lastPeak, lastValley;
    if (e.amp[1] <= 0) {
      lastPeak = 0;
      lastValley = -1;
    } else {
      lastPeak = -1;
      lastValley = 0;
    }
    for (int k = 1; k <= e.n; ++k) {
      const double f = dFg * e.loc[k];
      if (e.amp[k] < 0) {
        if (lastPeak <= fBG && fBG <= f) {
          int back = k - 1;
          while (back > 1 && !(e.amp[back] > 0)) --back;
          reject(back < 1 ? 1 : back);
          break;
        }
        lastValley = f;
      } else if (e.amp[k] > 0) {
        if (lastValley <= fBG && fBG <= f) {
          reject(k);
          break;
        }
        lastPeak = f;
      }
    }
    if (e.amp[e.n] > 0) {
      const double f = dFg * e.loc[e.n];
      if (f <= fBG && fBG <= finalFreq) {
        reject(e.n);
        break;
      }
    }
  }
}

std::vector<int> GridMask(const Extremes& e, const std::vector<double>& peakV, int nF, double threshold) {
  std::vector<int> mask(nF + 1, 0);
  for (int k = 1; k <= e.n; ++k) {
    if (!(e.amp[k] > 0 && e.vel[k] <= 0)) continue;
    int lo = 1, hi = nF - 1;
    for (int q = k - 1; q >= 1; --q) {
      if (e.amp[q] < 0) {
        lo = static_cast<int>(e.loc[q]);
        break;
      }
    }
    for (int q = k + 1; q <= e.n - 1; ++q) {
      if (e.amp[q] < 0) {
        hi = static_cast<int>(e.loc[q]);
        break;
      }
    }
    if (hi > nF) hi = nF;
    if (lo < 1) lo = 1;
    for (int m = lo; m <= hi; ++m)
      if (peakV[m - 1] >= threshold) mask[m] = 1;
  }
  double R = 0;
  int hi = 0;
  for (int k = 1; k <= e.n; ++k) {
    if (!(e.amp[k] < 0 && e.vel[k] > 0)) continue;
    const double vv = std::fabs(e.amp[k]);
    double L = vv;
    int lo = 1;
    for (int q = k - 1; q >= 1; --q) {
      if (e.amp[q] > 0) {
        L = std::fabs(e.amp[q]);
        lo = static_cast<int>(e.loc[q]);
        break;
      }
    }
    for (int q = k + 1; q <= e.n - 1; ++q) {
      if (e.amp[q] > 0) {
        R = std::fabs(e.amp[q]);
        hi = static_cast<int>(e.loc[q]);
        break;
      }
    }
    const double dL = vv + (L - vv) / 3, dR = vv + (R - vv) / 3;
    const int c = static_cast<int>(e.loc[k]);
    if (hi > nF) hi = nF;
    for (int m = lo; m <= hi; ++m) {
      if (m < 1) continue;
      const double limit = m <= c ? dL : dR;
      if (peakV[m - 1] <= 90 || (vv <= peakV[m - 1] && peakV[m - 1] <= limit)) mask[m] = 1;
    }
  }
  for (int m = 0; m <= nF - 1; ++m)
    if (peakV[m] <= threshold) mask[m] = 1;
  return mask;
}

std::vector<int> LineMask(const std::vector<int>& gridMask, int nF, double dFg, double deltaF,
                          const std::vector<double>& hAmp, const std::vector<double>& bbAmp, int nL) {
  std::vector<int> lines(nL, 0);
  const auto set = [&](int from, int to) {
    for (int i = from; i <= to; ++i)
      if (i >= 0 && i < nL) lines[i] = 1;
  };
  for (int m = 0; m <= nL - 1; ++m)
    if (hAmp[m] <= 0) lines[m] = 1;
  double f0 = 0;
  for (int m = 0; m <= nF - 2; ++m) {
    if (gridMask[m] == 0 && gridMask[m + 1] == 1) f0 = m * dFg;
    if (gridMask[m] == 1 && gridMask[m + 1] == 0)
      set(static_cast<int>(f0 / deltaF), static_cast<int>(m * dFg / deltaF));
    if (gridMask[m] == 1 && gridMask[m + 1] == 1 && m == nF - 2)
      set(static_cast<int>(f0 / deltaF), static_cast<int>((nF - 1) * dFg / deltaF));
  }
  lines[nL - 1] = 1;
  set(static_cast<int>(0.8 * (nF - 1) * dFg / deltaF), static_cast<int>((nF - 1) * dFg / deltaF));
  double A = bbAmp[0];
  for (int m = 0; m <= nL - 1; ++m) A = std::max(A, bbAmp[m]);
  for (int m = 1; m <= nL - 1; ++m)
    if (bbAmp[m] < 0.25 * A) lines[m] = 1;
  return lines;
}

std::vector<MaskRange> Masks(const std::vector<int>& lineMask, double deltaF, double bandEnd) {
  const int nL = static_cast<int>(lineMask.size());
  std::vector<MaskRange> masks;
  double f0 = 0;
  const auto add = [&](double f1) {
    masks.push_back(
        {f0, std::min(f1, bandEnd), static_cast<int>(f0 / deltaF), static_cast<int>(f1 / deltaF)});
  };
  for (int i = 0; i <= nL - 2; ++i) {
    if (lineMask[i] == 0 && lineMask[i + 1] == 1) f0 = i * deltaF;
    if (lineMask[i] == 1 && lineMask[i + 1] == 0) add(i * deltaF);
    if (lineMask[i] == 1 && lineMask[i + 1] == 1 && i == nL - 2) add((nL - 1) * deltaF);
  }
  return masks;
}

}  // namespace sondera::plain
