// gabor.cpp - Gabor maps of a receiver pair. See gabor.h. Owns no state; the maps are in the pair records.
// Odd on purpose: columns outside the record stay 0 dB, which may be the highest value of a map.
#include "signal/gabor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "numeric/pi.h"
#include "numeric/scale_arithmetic.h"
#include "records/kinds.h"
#include "records/session.h"
#include "signal/irf.h"

namespace sondera {
namespace {

constexpr double kLowestFreq = 0.01;        // Hz; replaces a first frequency of 0 in the logarithm
constexpr double kDelayOfSlowest = 3.0;     // a map ends at three times the delay of the slowest wave ...
constexpr double kLongestShare = 0.2;       // ... or at this share of the record
constexpr double kShareWithoutDelay = 0.1;  // share of the record for two receivers at one place
constexpr int kOutside = -1;                // a column that lies outside the record

struct MapSource {
  PMeasInfo* pair = nullptr;
  const HWSetup* hw = nullptr;
  IrfGeometry geometry;
};

/// Pair and records of a map; false when something is missing or has not enough lines.
bool FindSource(const PairFinder& find, MapSource& source) {
  const CurrentPair current = find();
  if (!current.pair || !GetIrfGeometry(current, source.geometry)) return false;
  source.pair = current.pair;
  source.hw = current.records.hwSetup;
  return source.pair->capacity() >= source.hw->nLines;
}

/// Limits the settings of a map to its size, and sets ends that are not set.
void SettleRange(const MapSource& source) {
  PMeasInfo& pair = *source.pair;
  pair.timeDiv = std::min(pair.timeDiv, kGaborDivisions);
  pair.freqDiv = std::min(pair.freqDiv, kGaborDivisions);
  if (pair.finalTime != 0.0) return;
  pair.initTime = 0.0;
  double t = std::fabs(source.geometry.spacing) * kDelayOfSlowest / session.smV[4];
  if (t == 0.0) t = source.geometry.total * kShareWithoutDelay;
  pair.finalTime = std::min(t, source.geometry.total * kLongestShare);
  pair.finalFreq = BandEnd(*source.hw);
}

/// Step between the points of an axis; a single point has none.
double StepOf(double first, double last, int points) {
  return points > 1 ? (last - first) / (points - 1) : 0.0;
}

struct MapSpectrum {
  const double *re, *im;
};

MapSpectrum SpectrumOf(const PMeasInfo& pair) {
  if (pair.phaseOption == kBackbonePhase) return {pair.bbRe.data(), pair.bbIm.data()};
  if (pair.phaseOption == kEnhancedPhase) return {pair.enRe.data(), pair.enIm.data()};
  return {pair.hRe.data(), pair.hIm.data()};
}

/// Sample of each column, N for the place after the last one, kOutside beyond.
std::array<int, kGaborDivisions> SamplesOfColumns(const PMeasInfo& pair, double deltaT, int N) {
  std::array<int, kGaborDivisions> samples{};
  const double step = StepOf(pair.initTime, pair.finalTime, pair.timeDiv);
  for (int c = 0; c < pair.timeDiv; ++c) {
    const int i = TruncToInt((c * step + pair.initTime) / deltaT + 0.5);
    samples[static_cast<std::size_t>(c)] = i < 0 || i > N ? kOutside : i;
  }
  return samples;
}

/// Inverse transform of A + jB into work.signal. On a line i of the band, A is S = filter * spectrum, and B
/// is jS, so A + jB is 0 there; on its mirror N - i both are conjugates, and A + jB is 2 conj(S).
void TransformBand(const double* filter, const double* re, const double* im, int N, EnvelopeWork& work) {
  dcomplex* mirror = work.spectrum.data() + N;
  for (int i = 1; i < N / 2; ++i) mirror[-i] = {2.0 * (re[i] * filter[i]), -2.0 * (im[i] * filter[i])};
  CxInvFFTEx(work.spectrum.data(), work.signal.data(), work.table);
}

/// Signal and quadrature of one sample; both 0 where one is NaN.
dcomplex AnalyticPair(const dcomplex& z, double halfN) {
  if (std::isnan(z.re) || std::isnan(z.im)) return {0.0, 0.0};
  return {halfN * z.re, halfN * z.im};
}

double Magnitude(const dcomplex& z) {
  return std::sqrt(z.re * z.re + z.im * z.im);
}

double Decibels(double envelope) {
  return envelope > 0.0 ? 20.0 * std::log10(envelope) : kNoEnergy;
}

/// All rows of the map of phaseOption.
void FillMap(const MapSource& source, int N, EnvelopeWork& work) {
  PMeasInfo& pair = *source.pair;
  const double deltaT = source.hw->deltaT, halfN = 0.5 * N;
  const double df = StepOf(pair.initFreq, pair.finalFreq, pair.freqDiv);
  const std::array<int, kGaborDivisions> samples = SamplesOfColumns(pair, deltaT, N);
  const MapSpectrum spectrum = SpectrumOf(pair);
  const bool filtered = pair.phaseOption == kEnhancedPhase || pair.phaseOption == kBackbonePhase;
  const int option = filtered ? pair.phaseOption : kOriginalPhase;
  GaborMap& map = pair.gaborMap(option);
  std::vector<double> filter(static_cast<std::size_t>(N));
  for (int r = 0; r < pair.freqDiv; ++r) {
    double* row = map.data() + static_cast<std::size_t>(r) * kGaborDivisions;
    GaussFilter(r * df + pair.initFreq, pair.band, pair.beta, pair.initFreq, pair.finalFreq, deltaT, N,
                filter.data(), 0);
    TransformBand(filter.data(), spectrum.re, spectrum.im, N, work);
    for (int c = 0; c < pair.timeDiv; ++c) {
      const int i = samples[static_cast<std::size_t>(c)];
      if (i == kOutside)
        row[c] = 0.0;
      else
        row[c] = i < N ? Decibels(Magnitude(AnalyticPair(work.signal[static_cast<std::size_t>(i)], halfN)))
                       : kNoEnergy;
    }
  }
}

}  // namespace

EnvelopeWork::EnvelopeWork(int N)
    : table(CreateFFTTable(N)),
      spectrum(static_cast<std::size_t>(std::max(N, 0))),
      signal(static_cast<std::size_t>(std::max(N, 0))) {}

void CalcGabor(const PairFinder& find, Listener& listener) {
  MapSource source;
  if (!FindSource(find, source)) return;
  SettleRange(source);
  if (source.pair->timeDiv <= 0 || source.pair->freqDiv <= 0) return;
  listener.Busy(true);
  const PMeasInfo* before = source.pair;
  listener.Poll();
  // Events of the poll may have removed the pair, or changed its lines.
  if (FindSource(find, source) && source.pair == before) {
    const int N = FullTimeLines(2 * source.hw->nLines);
    EnvelopeWork work(N);
    FillMap(source, N, work);
  }
  listener.Busy(false);
}

void CalcGaborMaps(const PairFinder& find, Listener& listener) {
  const CurrentPair current = find();
  if (!current.pair) return;
  // Found again by its key and channels, since events were handled in between.
  const auto pair = [&] { return FindPair(current.key, current.refChan, current.dspChan); };
  const int option = current.pair->phaseOption;
  for (int k = kOriginalPhase; k <= kBackbonePhase && pair(); ++k) {
    pair()->phaseOption = k;
    CalcGabor(find, listener);
  }
  if (pair()) pair()->phaseOption = option;
}

namespace {

/// First of the lines 0..count-1 that fails a test which holds for all lines before; count when none fails.
template <class Test>
int FirstLineNot(int count, Test holds) {
  int low = 0, high = count;
  while (low < high) {
    const int middle = low + (high - low) / 2;
    if (holds(middle))
      low = middle + 1;
    else
      high = middle;
  }
  return low;
}

}  // namespace

void GaussFilter(double f, double band, double beta, double f1, double f2, double deltaT, int N, double* out,
                 int mode) {
  if (N <= 0) return;
  const double w0 = 2.0 * kPi * f, low = f1 == 0.0 ? kLowestFreq : f1;
  const double dw =
      mode == 0 ? 2.0 * kPi * (f2 - f1) * 0.5 * std::log10((band + 1.0) / (1.0 - band)) / std::log10(f2 / low)
                : w0 * band;
  const double from = w0 - dw, to = w0 + dw, length = N * deltaT;
  const auto w = [length](int i) { return i * 2.0 * kPi / length; };
  const int first = FirstLineNot(N, [&](int i) { return w(i) < from; });
  const int end = FirstLineNot(N, [&](int i) { return w(i) <= to; });
  std::fill_n(out, N, 0.0);
  const double exponent = -(beta / (band * band));
  for (int i = first; i < end; ++i) {
    const double x = band * (w(i) - w0) / dw;
    out[i] = std::exp(exponent * (x * x));
  }
}

void CalcEnvelope(const double* filter, const double* re, const double* im, int N, EnvelopeWork& work,
                  dcomplex* cxEnv, double* env) {
  if (N <= 0 || N != work.table.n()) return;
  TransformBand(filter, re, im, N, work);
  const double halfN = 0.5 * N;
  for (int i = 0; i < N; ++i) {
    const dcomplex z = AnalyticPair(work.signal[static_cast<std::size_t>(i)], halfN);
    if (cxEnv) cxEnv[i] = z;
    env[i] = Magnitude(z);
  }
}

void ScalezArray(double* z, int width, int height, double threshold) {
  if (width <= 0 || height <= 0) return;
  const std::size_t n = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  const auto counts = [](double v) { return std::isfinite(v) && v > kNoEnergy; };
  double min = INFINITY, max = -INFINITY;
  for (std::size_t i = 0; i < n; ++i) {
    if (!counts(z[i])) continue;
    min = std::min(min, z[i]);
    max = std::max(max, z[i]);
  }
  if (!(max > min)) {
    std::fill_n(z, n, threshold);
    return;
  }
  const double factor = 100.0 / (max - min);
  for (std::size_t i = 0; i < n; ++i) {
    const double scaled = counts(z[i]) ? std::min((z[i] - min) * factor, 100.0) : 0.0;
    z[i] = scaled < threshold ? threshold : scaled;
  }
}

}  // namespace sondera
