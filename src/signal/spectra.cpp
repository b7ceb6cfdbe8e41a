// spectra.cpp - running averages of spectra, and the quantities of a pair made from them. See spectra.h.
//
// The measurement loop calls CalcSpectralFns; code that creates or updates a pair calls CalcSpectralData. A
// frame length is a power of two, so dividing by it is exact and possible in any order.
#include "signal/spectra.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "numeric/analysis.h"
#include "numeric/pi.h"
#include "records/session.h"
#include "signal/signal_state.h"

namespace sondera {
namespace {

constexpr int kLongestFrame = 1 << 29;

/// Phase in degrees; 0 for the number 0, whatever the signs of its zeros.
double Degrees(double re, double im) {
  return re == 0.0 && im == 0.0 ? 0.0 : std::atan2(im, re) * 180.0 / kPi;
}
double Magnitude(double re, double im) {
  return std::sqrt(re * re + im * im);
}

// --- running averages ---

/// Sizes of one record.
struct FrameSizes {
  int frame = 0;       // N, samples kept per channel
  int decimation = 1;  // every n-th sample of the buffer is kept
  int nChannels = 0;
  std::size_t Samples() const {
    return static_cast<std::size_t>(frame) * static_cast<std::size_t>(nChannels);
  }
};

/// False when the record or the arrays are shorter than these sizes.
bool SizesOf(const HWSetup& hw, const RawData& raw, FrameSizes& sizes) {
  if (hw.nLines <= 0 || hw.nLines > kLongestFrame / 2 || hw.nChannels <= 0) return false;
  sizes.frame = 2 * FullTimeLines(hw.nLines);
  sizes.decimation = std::max(hw.decimation, 1);
  sizes.nChannels = hw.nChannels;
  const std::size_t samples = sizes.Samples();
  for (auto block : kRawBlocks)
    if ((raw.*block).size() < samples) return false;
  const std::size_t buffered = session.measBuffer.size(), step = static_cast<std::size_t>(sizes.decimation);
  return buffered > 0 && (buffered - 1) / step >= samples - 1;
}

void PickSamples(const FrameSizes& sizes, double* timeHist) {
  const std::size_t samples = sizes.Samples(), step = static_cast<std::size_t>(sizes.decimation);
  const double* buffer = session.measBuffer.data();
  if (step == 1) {
    std::copy_n(buffer, samples, timeHist);
    return;
  }
  for (std::size_t i = 0; i < samples; ++i) timeHist[i] = buffer[i * step];
}

/// The five averages of one channel, N values each.
struct ChannelAverages {
  double* __restrict linRe;
  double* __restrict linIm;
  double* __restrict power;
  double* __restrict crossRe;
  double* __restrict crossIm;
};

/// The first record replaces all earlier contents; not even NaN must survive a new run.
struct Replace {
  double operator()(double value, double /*stored*/) const { return value; }
};
struct RunningMean {
  double k;
  double operator()(double value, double stored) const { return (value + stored * k) / (k + 1.0); }
};

/// Adds the spectrum x of a channel to its averages; r is the spectrum of channel 0.
template <class Fold>
void FoldChannel(const double* __restrict xRe, const double* __restrict xIm, const double* __restrict rRe,
                 const double* __restrict rIm, int n, const ChannelAverages& avg, Fold fold) {
  const double perFrame = 1.0 / n, root2 = std::sqrt(2.0);
  const double powerScale = 2.0 * perFrame * perFrame;
  for (int i = 0; i < n; ++i) {
    avg.linRe[i] = fold(xRe[i] * perFrame * root2, avg.linRe[i]);
    avg.linIm[i] = fold(xIm[i] * perFrame * root2, avg.linIm[i]);
    avg.power[i] = fold((xRe[i] * xRe[i] + xIm[i] * xIm[i]) * powerScale, avg.power[i]);
    avg.crossRe[i] = fold((xRe[i] * rRe[i] + xIm[i] * rIm[i]) * powerScale, avg.crossRe[i]);
    avg.crossIm[i] = fold((xIm[i] * rRe[i] - xRe[i] * rIm[i]) * powerScale, avg.crossIm[i]);
  }
}

void FoldRecord(const FrameSizes& sizes, RawData& raw) {
  const int n = sizes.frame;
  const std::size_t length = static_cast<std::size_t>(n);
  for (auto* v : {&signalState.refRe, &signalState.refIm, &signalState.workRe, &signalState.workIm})
    if (v->size() < length) v->resize(length);
  double *refRe = signalState.refRe.data(), *refIm = signalState.refIm.data();
  double *workRe = signalState.workRe.data(), *workIm = signalState.workIm.data();
  RealFFT(raw.timeHist.data(), refRe, refIm, n);
  for (int c = 0; c < sizes.nChannels; ++c) {
    const std::size_t row = static_cast<std::size_t>(c) * length;
    const double *xRe = refRe, *xIm = refIm;  // channel 0 is the reference itself
    if (c > 0) {
      RealFFT(raw.timeHist.data() + row, workRe, workIm, n);
      xRe = workRe;
      xIm = workIm;
    }
    const ChannelAverages avg{raw.linSpecRe.data() + row, raw.linSpecIm.data() + row,
                              raw.powerSpec.data() + row, raw.crossSpecRe.data() + row,
                              raw.crossSpecIm.data() + row};
    if (session.avgCount <= 0)
      FoldChannel(xRe, xIm, refRe, refIm, n, avg, Replace{});
    else
      FoldChannel(xRe, xIm, refRe, refIm, n, avg, RunningMean{static_cast<double>(session.avgCount)});
  }
}

// --- quantities of a pair ---

/// Rows of the two channels of a pair and of channel 0, with a stride of 2 n.
struct PairRows {
  int n = 0;                                                                    // lines
  const double *aRe = nullptr, *aIm = nullptr, *bRe = nullptr, *bIm = nullptr;  // cross spectra
  const double *powerA = nullptr, *powerB = nullptr, *power0 = nullptr;         // auto spectra
  const double *linRe = nullptr, *linIm = nullptr, *timeHist = nullptr;         // of the display channel
  const double* halfRow = nullptr;  // auto spectrum of the display channel with a stride of n
};

/// False without such a measurement, a channel outside it, or data too short.
bool FindRows(const std::string& projID, const std::string& measID, int chanA, int chanB, PairRows& p) {
  MeasRecords records;
  if (GetInfoFromKey(GetKeyFromID(projID, measID), records) == -1) return false;
  if (records.hwPos < 0 || records.rawPos < 0) return false;
  const HWSetup& hw = *records.hwSetup;
  const RawData& raw = *records.rawData;
  if (hw.nLines <= 0 || chanA < 0 || chanB < 0 || chanA >= hw.nChannels || chanB >= hw.nChannels)
    return false;
  const std::size_t n = static_cast<std::size_t>(hw.nLines);
  for (auto block : kRawBlocks)
    if ((raw.*block).size() < 2 * n * static_cast<std::size_t>(hw.nChannels)) return false;
  const std::size_t rowA = 2 * n * static_cast<std::size_t>(chanA),
                    rowB = 2 * n * static_cast<std::size_t>(chanB);
  p.n = hw.nLines;
  p.aRe = raw.crossSpecRe.data() + rowA;
  p.aIm = raw.crossSpecIm.data() + rowA;
  p.bRe = raw.crossSpecRe.data() + rowB;
  p.bIm = raw.crossSpecIm.data() + rowB;
  p.powerA = raw.powerSpec.data() + rowA;
  p.powerB = raw.powerSpec.data() + rowB;
  p.power0 = raw.powerSpec.data();
  p.linRe = raw.linSpecRe.data() + rowB;
  p.linIm = raw.linSpecIm.data() + rowB;
  p.timeHist = raw.timeHist.data() + rowB;
  p.halfRow = raw.powerSpec.data() + rowB / 2;
  return true;
}

struct Line {
  double re = 0.0, im = 0.0;
};

/// Transfer function at a line: 0 where the reference has no cross power, or so little that the quotient is
/// not finite.
Line Transfer(const PairRows& p, int i) {
  Line h;
  if (p.aRe[i] != 0.0 || p.aIm[i] != 0.0) CxDiv(p.bRe[i], p.bIm[i], p.aRe[i], p.aIm[i], &h.re, &h.im);
  if (!std::isfinite(h.re) || !std::isfinite(h.im)) return {};
  return h;
}

/// Cross power of the pair through channel 0: 0 where that has no power.
Line CrossPower(const PairRows& p, int i) {
  Line g;
  if (p.power0[i] == 0.0) return g;
  CxMul(p.bRe[i], p.bIm[i], p.aRe[i], -p.aIm[i], &g.re, &g.im);
  g.re /= p.power0[i];
  g.im /= p.power0[i];
  return g;
}

double Coherence(const PairRows& p, int i) {
  if (p.power0[i] == 0.0) return 0.0;
  const Line ab = CrossPower(p, i);
  Line ba;
  CxMul(p.aRe[i], p.aIm[i], p.bRe[i], -p.bIm[i], &ba.re, &ba.im);
  ba.re /= p.power0[i];
  ba.im /= p.power0[i];
  return Magnitude(ab.re, ab.im) * Magnitude(ba.re, ba.im) / (p.powerB[i] * p.powerA[i]);
}

template <class Value>
void FillLines(int n, double* out, Value value) {
  for (int i = 0; i < n; ++i) out[i] = value(i);
}

void FillTransfer(const PairRows& p, int points, double* outRe, double* outIm) {
  for (int i = 0; i < points; ++i) {
    const Line h = Transfer(p, i);
    outRe[i] = h.re;
    outIm[i] = h.im;
  }
}

}  // namespace

int CalcSpectralFns(int key, const std::function<bool()>& accepts) {
  MeasRecords records;
  if (GetInfoFromKey(key, records) == -1 || records.hwPos < 0 || records.rawPos < 0) return -2;
  FrameSizes sizes;
  if (!SizesOf(*records.hwSetup, *records.rawData, sizes)) return -2;
  session.samplesPerChan = sizes.frame * sizes.decimation;
  SetupAuxiallyArrays(sizes.frame);
  PickSamples(sizes, records.rawData->timeHist.data());
  if (accepts && !accepts()) return -1;
  FoldRecord(sizes, *records.rawData);
  return 0;
}

int CalcSpectralData(int type, const std::string& projID, const std::string& measID, int chanA, int chanB,
                     double* outRe, double* outIm) {
  PairRows p;
  if (!FindRows(projID, measID, chanA, chanB, p)) return -1;
  const int n = p.n;
  const auto phase = [](Line x) { return Degrees(x.re, x.im); };
  const auto size = [](Line x) { return Magnitude(x.re, x.im); };
  switch (type) {
    case spectral::kTimeTrace:
      FillLines(2 * n, outRe, [&](int i) { return p.timeHist[i]; });
      FillLines(2 * n, outIm, [](int) { return 0.0; });
      break;
    case spectral::kLinearPhase:
      FillLines(n, outRe, [&](int i) { return Degrees(p.linRe[i], p.linIm[i]); });
      break;
    case spectral::kLinearAmplitude:
      FillLines(n, outRe, [&](int i) { return Magnitude(p.linRe[i], p.linIm[i]); });
      break;
    case spectral::kTransferPhase:
      FillLines(n, outRe, [&](int i) { return phase(Transfer(p, i)); });
      break;
    case spectral::kTransferAmplitude:
      FillLines(n, outRe, [&](int i) { return size(Transfer(p, i)); });
      break;
    case spectral::kPowerSpectrum:
      FillLines(n, outRe, [&](int i) { return std::sqrt(p.halfRow[i]); });
      break;
    case spectral::kCrossPhase:
      FillLines(n, outRe, [&](int i) { return phase(CrossPower(p, i)); });
      break;
    case spectral::kCrossAmplitude:
      FillLines(n, outRe, [&](int i) { return size(CrossPower(p, i)); });
      break;
    case spectral::kCoherence:
      FillLines(n, outRe, [&](int i) { return Coherence(p, i); });
      break;
    case spectral::kImpulseResponse:
      FillTransfer(p, 2 * n, outRe, outIm);
      InvFFT(outRe, outIm, 2 * n);
      break;
    case spectral::kTransferFunction:
      FillTransfer(p, n, outRe, outIm);
      break;
    default:
      break;
  }
  return 0;
}

std::string ConvertVolts(DisplayType type, VoltUnit unit, double deltaF, std::vector<double>& y) {
  constexpr int kRectangular = 0;
  if (!IsOfVolts(type)) return {};
  const bool power = type == DisplayType::PowerSpectrum || type == DisplayType::CrossAmplitude;
  if (type == DisplayType::CrossAmplitude)
    unit = unit == VoltUnit::Vpk || unit == VoltUnit::Vpk2 ? VoltUnit::Vpk2 : VoltUnit::Vrms2;
  WindowConst window;
  std::string text;
  const int n = static_cast<int>(y.size());
  ScaledWindow(y.data(), n, kRectangular, &window);
  SpectrumUnitConversion(y.data(), n, power ? SpectrumKind::PowerVrms2 : SpectrumKind::AmplitudeVrms, unit,
                         deltaF, window, y.data(), &text);
  return text;
}

}  // namespace sondera
