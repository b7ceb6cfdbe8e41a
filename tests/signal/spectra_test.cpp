// Running averages and the quantities of a pair: compared with sums instead of transforms and with pure
// delays, and at the zeros where a quotient has no value.
#include "signal/spectra.h"

#include <cmath>
#include <random>

#include "panels/sasw_pair.h"
#include "plain_signal.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/graphs.h"
#include "runtime/redraw.h"
#include "support/signal_fixture.h"

namespace sondera {
namespace {

using testing::AddMeasurement;
using testing::Fold;
using testing::MeasurementPlan;
using testing::Quantity;
using testing::TestMeasurement;

using Record = std::vector<std::vector<double>>;

Record Noise(int nChannels, int samples, unsigned seed) {
  std::mt19937 random(seed);
  std::normal_distribution<double> normal(0.1, 1.0);
  Record record(nChannels, std::vector<double>(samples));
  for (auto& channel : record)
    for (double& v : channel) v = normal(random);
  return record;
}

std::vector<plain::Cx> PlainSpectrum(const std::vector<double>& x) {
  return plain::Transform(std::vector<plain::Cx>(x.begin(), x.end()));
}

MeasurementPlan Plan(int nChannels, int nLines) {
  MeasurementPlan plan;
  plan.nChannels = nChannels;
  plan.nLines = nLines;
  return plan;
}

class Spectra : public testing::SessionTest {};
using CalcSpectralFnsTest = Spectra;
using CalcSpectralDataTest = Spectra;
using PairDataTest = Spectra;

// --- running averages ---

TEST_F(CalcSpectralFnsTest, FirstRecordReplacesWhateverWasStored) {
  const TestMeasurement m = AddMeasurement(Plan(3, 16));
  const Record record = Noise(3, 32, 11);
  ASSERT_EQ(Fold(record), 0);
  const RawData fresh = *m.raw;
  for (auto block : kRawBlocks) (m.raw->*block).assign((m.raw->*block).size(), std::nan(""));
  ASSERT_EQ(Fold(record), 0);
  for (auto block : kRawBlocks) EXPECT_EQ(m.raw->*block, fresh.*block);
}

TEST_F(CalcSpectralFnsTest, OneRecordEqualsThePlainFormula) {
  const int n = 32;
  const TestMeasurement m = AddMeasurement(Plan(3, n / 2));
  const Record record = Noise(3, n, 4);
  ASSERT_EQ(Fold(record), 0);
  const std::vector<plain::Cx> r = PlainSpectrum(record[0]);
  for (int c = 0; c < 3; ++c) {
    const std::vector<plain::Cx> x = PlainSpectrum(record[c]);
    for (int i = 0; i < n; ++i) {
      const int at = c * n + i;
      EXPECT_EQ(m.raw->timeHist[at], record[c][i]);
      EXPECT_NEAR(m.raw->linSpecRe[at], x[i].real() / n * std::sqrt(2.0), 1e-14);
      EXPECT_NEAR(m.raw->linSpecIm[at], x[i].imag() / n * std::sqrt(2.0), 1e-14);
      EXPECT_NEAR(m.raw->powerSpec[at], std::norm(x[i]) / n / n * 2, 1e-14);
      const plain::Cx cross = x[i] * std::conj(r[i]) / (1.0 * n * n) * 2.0;
      EXPECT_NEAR(m.raw->crossSpecRe[at], cross.real(), 1e-14);
      EXPECT_NEAR(m.raw->crossSpecIm[at], cross.imag(), 1e-14);
    }
  }
}

TEST_F(CalcSpectralFnsTest, AveragesArePlainMeansOfTheRecords) {
  const int n = 64, records = 5;
  const TestMeasurement m = AddMeasurement(Plan(2, n / 2));
  std::vector<double> power(2 * n, 0.0), crossIm(2 * n, 0.0), linRe(2 * n, 0.0);
  for (int k = 0; k < records; ++k) {
    const Record record = Noise(2, n, 100 + k);
    ASSERT_EQ(Fold(record, k), 0);
    const std::vector<plain::Cx> r = PlainSpectrum(record[0]);
    for (int c = 0; c < 2; ++c) {
      const std::vector<plain::Cx> x = PlainSpectrum(record[c]);
      for (int i = 0; i < n; ++i) {
        power[c * n + i] += 2 * std::norm(x[i]) / n / n / records;
        crossIm[c * n + i] += 2 * (x[i] * std::conj(r[i])).imag() / n / n / records;
        linRe[c * n + i] += std::sqrt(2.0) * x[i].real() / n / records;
      }
    }
  }
  for (int i = 0; i < 2 * n; ++i) {
    EXPECT_NEAR(m.raw->powerSpec[i], power[i], 1e-13);
    EXPECT_NEAR(m.raw->crossSpecIm[i], crossIm[i], 1e-13);
    EXPECT_NEAR(m.raw->linSpecRe[i], linRe[i], 1e-13);
  }
}

TEST_F(CalcSpectralFnsTest, CrossSpectrumOfChannelZeroIsItsAutoSpectrum) {
  const TestMeasurement m = AddMeasurement(Plan(2, 64));
  for (int k = 0; k < 3; ++k) ASSERT_EQ(Fold(Noise(2, 128, k), k), 0);
  for (int i = 0; i < 128; ++i) {
    EXPECT_EQ(m.raw->crossSpecRe[i], m.raw->powerSpec[i]);
    EXPECT_EQ(m.raw->crossSpecIm[i], 0.0);
  }
}

TEST_F(CalcSpectralFnsTest, PicksEveryNthSampleWithoutAFilter) {
  const TestMeasurement m = AddMeasurement(Plan(2, 8));
  m.hw->decimation = 3;
  const Record record = Noise(2, 48, 9);
  ASSERT_EQ(Fold(record), 0);
  for (int c = 0; c < 2; ++c)
    for (int i = 0; i < 16; ++i) EXPECT_EQ(m.raw->timeHist[c * 16 + i], record[c][3 * i]);
  EXPECT_EQ(session.samplesPerChan, 48);
}

TEST_F(CalcSpectralFnsTest, DecimationZeroOfAnImportCountsAsOne) {
  const TestMeasurement m = AddMeasurement(Plan(2, 8));
  m.hw->decimation = 0;
  ASSERT_EQ(Fold(Noise(2, 16, 9)), 0);
  EXPECT_EQ(m.raw->timeHist, session.measBuffer);
  EXPECT_EQ(session.samplesPerChan, 16);
}

TEST_F(CalcSpectralFnsTest, OtherLineCountsTakeFramesOfTheNextPowerOfTwo) {
  const TestMeasurement m = AddMeasurement(Plan(2, 10));
  const Record record = Noise(2, 32, 1);
  ASSERT_EQ(Fold(record), 0);
  EXPECT_EQ(m.raw->timeHist[32], record[1][0]);
  const std::vector<plain::Cx> x = PlainSpectrum(record[1]);
  EXPECT_NEAR(m.raw->powerSpec[32 + 5], 2 * std::norm(x[5]) / 32 / 32, 1e-14);
}

TEST_F(CalcSpectralFnsTest, ShortBufferOrUnknownMeasurementChangesNothing) {
  const TestMeasurement m = AddMeasurement(Plan(2, 16));
  ASSERT_EQ(Fold(Noise(2, 32, 1)), 0);
  const RawData before = *m.raw;
  EXPECT_EQ(Fold(Noise(2, 31, 2)), -2);
  EXPECT_EQ(Fold({}), -2);
  m.hw->nChannels = 3;
  EXPECT_EQ(Fold(Noise(3, 32, 2)), -2);
  m.hw->nChannels = 2;
  m.hw->nLines = 0;
  EXPECT_EQ(Fold(Noise(2, 32, 2)), -2);
  m.hw->nLines = 2000000000;
  EXPECT_EQ(Fold(Noise(2, 32, 2)), -2);
  m.hw->nLines = 16;
  SetCtrlVal(hmsetup::MEASID, "nobody");
  EXPECT_EQ(Fold(Noise(2, 32, 2)), -2);
  for (auto block : kRawBlocks) EXPECT_EQ(m.raw->*block, before.*block);
}

class Preview : public testing::SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    m = AddMeasurement(Plan(3, 16));
    SelectPair(m, 1, 2);
    SetCtrlVal(measpanel::DISPB_REFCHNL, 2);
    SetCtrlVal(measpanel::DISPBCHNL, 0);
    SetCtrlVal(measpanel::DISPBTYPE, 8);
    ASSERT_EQ(Fold(Noise(3, 32, 1)), 0);
    session.measOptions.previewOn = 1;
    RedrawHandlers handlers;
    handlers.doPreviewPlotting = [this] { seen.push_back(Selections()); };
    InstallRedrawHandlers(handlers);
  }
  static std::vector<int> Selections() {
    using namespace measpanel;
    return {GetCtrlVal(DISPA_REFCHNL), GetCtrlVal(DISPB_REFCHNL), GetCtrlVal(DISPACHNL),
            GetCtrlVal(DISPBCHNL),     GetCtrlVal(DISPATYPE),     GetCtrlVal(DISPBTYPE)};
  }
  TestMeasurement m;
  std::vector<std::vector<int>> seen;
};

TEST_F(Preview, RejectedRecordLeavesTheAveragesAndKeepsTheTimeHistory) {
  const RawData before = *m.raw;
  const std::vector<int> selections = Selections();
  const Record rejected = Noise(3, 32, 2);
  frontEnd.confirmAnswers = {false};
  EXPECT_EQ(Fold(rejected, 1), -1);
  EXPECT_EQ(frontEnd.questions, std::vector<std::string>{"Accept the current measurements ?"});
  EXPECT_EQ(m.raw->timeHist, session.measBuffer);
  EXPECT_EQ(m.raw->powerSpec, before.powerSpec);
  EXPECT_EQ(m.raw->crossSpecIm, before.crossSpecIm);
  EXPECT_EQ(m.raw->linSpecRe, before.linSpecRe);
  EXPECT_EQ(Selections(), selections);
}

TEST_F(Preview, ShowsTimeTracesOfTheFirstTwoChannelsAndPutsTheSelectionsBack) {
  const std::vector<int> selections = Selections();
  frontEnd.confirmAnswers = {true};
  EXPECT_EQ(Fold(Noise(3, 32, 2), 1), 0);
  ASSERT_EQ(seen.size(), 1u);
  EXPECT_EQ(seen[0], (std::vector<int>{0, 0, 0, 1, 0, 0}));
  EXPECT_EQ(Selections(), selections);
}

TEST_F(Preview, OffAsksNothing) {
  session.measOptions.previewOn = 0;
  EXPECT_EQ(Fold(Noise(3, 32, 2), 1), 0);
  EXPECT_TRUE(frontEnd.questions.empty());
  EXPECT_TRUE(seen.empty());
}

// --- quantities of a pair ---

TEST_F(CalcSpectralDataTest, EveryTypeEqualsItsFormula) {
  const int n = 16, frame = 2 * n;
  const TestMeasurement m = AddMeasurement(Plan(3, n));
  for (int k = 0; k < 4; ++k) ASSERT_EQ(Fold(Noise(3, frame, 40 + k), k), 0);
  const RawData& raw = *m.raw;
  const int a = 1, b = 2;
  const auto degrees = [](plain::Cx x) { return std::arg(x) * 180 / std::acos(-1.0); };
  std::vector<plain::Cx> h(frame);
  const auto phase1 = Quantity(m, 1, a, b, n), amp2 = Quantity(m, 2, a, b, n),
             phase3 = Quantity(m, 3, a, b, n), amp4 = Quantity(m, 4, a, b, n),
             power5 = Quantity(m, 5, a, b, n), phase6 = Quantity(m, 6, a, b, n),
             amp7 = Quantity(m, 7, a, b, n), coherence8 = Quantity(m, 8, a, b, n),
             time0 = Quantity(m, 0, a, b, frame);
  for (int i = 0; i < frame; ++i) {
    const plain::Cx ga(raw.crossSpecRe[a * frame + i], raw.crossSpecIm[a * frame + i]);
    const plain::Cx gb(raw.crossSpecRe[b * frame + i], raw.crossSpecIm[b * frame + i]);
    h[i] = gb / ga;
    EXPECT_EQ(time0[i], raw.timeHist[b * frame + i]);
    if (i >= n) continue;
    const plain::Cx lin(raw.linSpecRe[b * frame + i], raw.linSpecIm[b * frame + i]);
    const plain::Cx gab = gb * std::conj(ga) / raw.powerSpec[i];
    EXPECT_NEAR(phase1[i], degrees(lin), 1e-11);
    EXPECT_NEAR(amp2[i], std::abs(lin), 1e-14);
    EXPECT_NEAR(phase3[i], degrees(h[i]), 1e-10);
    EXPECT_NEAR(amp4[i], std::abs(h[i]), 1e-12 * std::abs(h[i]));
    EXPECT_EQ(power5[i], std::sqrt(raw.powerSpec[n * b + i]));
    EXPECT_NEAR(phase6[i], degrees(gab), 1e-10);
    EXPECT_NEAR(amp7[i], std::abs(gab), 1e-12 * std::abs(gab));
    const double coherence = std::norm(gab) / (raw.powerSpec[a * frame + i] * raw.powerSpec[b * frame + i]);
    EXPECT_NEAR(coherence8[i], coherence, 1e-12 * coherence);
  }
  std::vector<double> re(frame), im(frame);
  ASSERT_EQ(CalcSpectralData(9, m.projID, m.measID, a, b, re.data(), im.data()), 0);
  const std::vector<plain::Cx> response = plain::InverseTransform(h);
  for (int i = 0; i < frame; ++i) {
    EXPECT_NEAR(re[i], response[i].real(), 1e-11);
    EXPECT_NEAR(im[i], response[i].imag(), 1e-11);
  }
  ASSERT_EQ(CalcSpectralData(24, m.projID, m.measID, a, b, re.data(), im.data()), 0);
  for (int i = 0; i < n; ++i)
    EXPECT_NEAR(std::abs(plain::Cx(re[i], im[i]) - h[i]), 0.0, 1e-12 * std::abs(h[i]));
}

TEST_F(CalcSpectralDataTest, PairOfChannelZeroWithItselfIsOne) {
  const int n = 32;
  const TestMeasurement m = AddMeasurement(Plan(2, n));
  ASSERT_EQ(Fold(Noise(2, 2 * n, 3)), 0);
  m.raw->crossSpecRe[7] = 0.0;
  std::vector<double> re(n), im(n);
  ASSERT_EQ(CalcSpectralData(spectral::kTransferFunction, m.projID, m.measID, 0, 0, re.data(), im.data()), 0);
  for (int i = 0; i < n; ++i) {
    EXPECT_EQ(re[i], i == 7 ? 0.0 : 1.0);
    EXPECT_EQ(im[i], 0.0);
  }
}

TEST_F(CalcSpectralDataTest, ZeroCrossPowerGivesAZeroLine) {
  const int n = 16, frame = 2 * n, line = 5;
  const TestMeasurement m = AddMeasurement(Plan(2, n));
  ASSERT_EQ(Fold(Noise(2, frame, 3)), 0);
  for (int i : {line, frame - line}) m.raw->crossSpecRe[i] = m.raw->crossSpecIm[i] = 0.0;
  EXPECT_EQ(Quantity(m, spectral::kTransferPhase, 0, 1, n)[line], 0.0);
  EXPECT_EQ(Quantity(m, spectral::kTransferAmplitude, 0, 1, n)[line], 0.0);
  EXPECT_EQ(Quantity(m, spectral::kTransferFunction, 0, 1, n)[line], 0.0);
  std::vector<double> re(frame), im(frame);
  ASSERT_EQ(CalcSpectralData(spectral::kImpulseResponse, m.projID, m.measID, 0, 1, re.data(), im.data()), 0);
  const auto back = plain::Transform([&] {
    std::vector<plain::Cx> x(frame);
    for (int i = 0; i < frame; ++i) x[i] = {re[i], im[i]};
    return x;
  }());
  EXPECT_NEAR(std::abs(back[line]), 0.0, 1e-12);
  EXPECT_GT(std::abs(back[line + 1]), 1e-3);
}

TEST_F(CalcSpectralDataTest, DeadDisplayChannelHasPhaseZero) {
  const int n = 16;
  const TestMeasurement m = AddMeasurement(Plan(2, n));
  Record record = Noise(2, 2 * n, 3);
  record[1].assign(2 * n, 0.0);
  ASSERT_EQ(Fold(record), 0);
  m.raw->crossSpecRe[3] = -1.0;  // signs under which a quotient of zeros comes out as -0
  m.raw->crossSpecIm[3] = -1.0;
  for (int type : {1, 2, 3, 4, 6, 7})
    for (double v : Quantity(m, type, 0, 1, n)) EXPECT_EQ(v, 0.0) << type;
}

TEST_F(CalcSpectralDataTest, CoherenceIsGuardedByTheReferencePowerAlone) {
  const int n = 16, frame = 2 * n;
  const TestMeasurement m = AddMeasurement(Plan(3, n));
  Record record = Noise(3, frame, 3);
  record[2].assign(frame, 0.0);
  ASSERT_EQ(Fold(record), 0);
  m.raw->powerSpec[4] = 0.0;
  const std::vector<double> coherence = Quantity(m, spectral::kCoherence, 0, 2, n);
  EXPECT_EQ(coherence[4], 0.0);               // no power in the reference
  EXPECT_FALSE(std::isfinite(coherence[5]));  // none in the channel itself: not guarded
  EXPECT_EQ(Quantity(m, spectral::kCrossPhase, 0, 1, n)[4], 0.0);
  EXPECT_EQ(Quantity(m, spectral::kCrossAmplitude, 0, 1, n)[4], 0.0);
}

TEST_F(CalcSpectralDataTest, CoherenceOfOneRecordIsOne) {
  const int n = 32;
  const TestMeasurement m = AddMeasurement(Plan(3, n));
  ASSERT_EQ(Fold(Noise(3, 2 * n, 8)), 0);
  for (double v : Quantity(m, spectral::kCoherence, 1, 2, n)) EXPECT_NEAR(v, 1.0, 1e-10);
}

TEST_F(CalcSpectralDataTest, PowerSpectrumReadsRowsOfNLines) {
  const int n = 16;
  const TestMeasurement m = AddMeasurement(Plan(2, n));
  ASSERT_EQ(Fold(Noise(2, 2 * n, 8)), 0);
  const std::vector<double> amplitude = Quantity(m, spectral::kPowerSpectrum, 0, 1, n);
  for (int i = 0; i < n; ++i) EXPECT_EQ(amplitude[i], std::sqrt(m.raw->powerSpec[n + i]));
}

TEST_F(CalcSpectralDataTest, PureDelayPutsThePulseAtTheDelay) {
  const int n = 128, frame = 2 * n, delay = 17;
  const TestMeasurement m = AddMeasurement(Plan(2, n));
  Record record = Noise(2, frame, 8);
  for (int i = 0; i < frame; ++i) record[1][i] = 0.5 * record[0][(i - delay + frame) % frame];
  ASSERT_EQ(Fold(record), 0);
  std::vector<double> re(frame), im(frame);
  ASSERT_EQ(CalcSpectralData(spectral::kImpulseResponse, m.projID, m.measID, 0, 1, re.data(), im.data()), 0);
  for (int i = 0; i < frame; ++i) {
    EXPECT_NEAR(re[i], i == delay ? 0.5 : 0.0, 1e-12);
    EXPECT_NEAR(im[i], 0.0, 1e-12);
  }
}

TEST_F(CalcSpectralDataTest, UnknownMeasurementOrChannelWritesNothing) {
  const TestMeasurement m = AddMeasurement(Plan(2, 16));
  double re = 5.0, im = 6.0;
  EXPECT_EQ(CalcSpectralData(3, "ProjID", "nobody", 0, 1, &re, &im), -1);
  EXPECT_EQ(CalcSpectralData(3, m.projID, m.measID, 0, 2, &re, &im), -1);
  EXPECT_EQ(CalcSpectralData(3, m.projID, m.measID, -1, 0, &re, &im), -1);
  EXPECT_EQ(CalcSpectralData(77, m.projID, m.measID, 0, 1, &re, &im), 0);
  m.hw->nLines = 1000;  // more than the data hold
  EXPECT_EQ(CalcSpectralData(3, m.projID, m.measID, 0, 1, &re, &im), -1);
  EXPECT_EQ(re, 5.0);
  EXPECT_EQ(im, 6.0);
}

// --- records of a pair ---

TEST_F(PairDataTest, NewPairStartsWithItsStatedValues) {
  const int n = 64;
  const TestMeasurement m = AddMeasurement(Plan(3, n));
  SelectPair(m, 0, 2);
  ASSERT_EQ(Fold(Noise(3, 2 * n, 8)), 0);
  session.gaborThreshold = 61.5;
  SetCtrlVal(sasw::DISPCURV_OPTION, 2);
  PMeasInfo* pair = nullptr;
  SetupPMeasDataNode(m.projID, m.measID, 0, 2, *m.hw, pair);
  ASSERT_NE(pair, nullptr);
  EXPECT_EQ(MeasDB.pMeasList.at(1), pair);
  EXPECT_EQ(pair->key, m.key);
  EXPECT_EQ(pair->refChan, 0);
  EXPECT_EQ(pair->dspChan, 2);
  EXPECT_EQ(pair->gaborTimeStep, 0.015625);
  EXPECT_EQ(pair->gaborFreqStep, 0.0625);
  EXPECT_EQ(pair->irfMode, 0);
  EXPECT_EQ(pair->phaseOption, 2);
  EXPECT_EQ(pair->wlenCrit, 0.25);
  EXPECT_EQ(pair->included, 1);
  EXPECT_EQ(pair->marker, 12);
  EXPECT_EQ(pair->color, -1);
  EXPECT_EQ(pair->band, 0.5);
  EXPECT_EQ(pair->beta, 3.0);
  EXPECT_EQ(pair->timeDiv, 50);
  EXPECT_EQ(pair->freqDiv, 50);
  EXPECT_EQ(pair->nContLevel, 10);
  EXPECT_EQ(pair->cntThreshold, 61.5);
  EXPECT_EQ(pair->finalTime, 0.0);
  EXPECT_EQ(pair->finalFreq, 0.0);
  const std::vector<double> amplitude = Quantity(m, spectral::kTransferAmplitude, 0, 2, n);
  for (int i = 0; i < n; ++i) EXPECT_EQ(pair->hAmp[i], amplitude[i]);
  EXPECT_GT(pair->bbT[4], 0.0);  // it is on display, so it has been filtered and unwrapped
}

TEST_F(PairDataTest, UnknownMeasurementOrChannelMakesNothing) {
  const TestMeasurement m = AddMeasurement(Plan(2, 16));
  PMeasInfo* pair = nullptr;
  SetupPMeasDataNode("ProjID", "nobody", 0, 1, *m.hw, pair);
  SetupPMeasDataNode(m.projID, m.measID, 0, 2, *m.hw, pair);
  SetupPMeasDataNode(m.projID, m.measID, -1, 1, *m.hw, pair);
  m.hw->nLines = 0;
  SetupPMeasDataNode(m.projID, m.measID, 0, 1, *m.hw, pair);
  EXPECT_EQ(pair, nullptr);
  EXPECT_TRUE(MeasDB.pMeasList.empty());
}

TEST_F(PairDataTest, UpdateFollowsTheAveragesAndKeepsWindowsAndCurve) {
  const int n = 64;
  const TestMeasurement m = AddMeasurement(Plan(2, n));
  SelectPair(m, 0, 1);
  ASSERT_EQ(Fold(Noise(2, 2 * n, 8)), 0);
  PMeasInfo* pair = nullptr;
  SetupPMeasDataNode(m.projID, m.measID, 0, 1, *m.hw, pair);
  ASSERT_NE(pair, nullptr);
  pair->enT = {0, 0.001, 0.002, 0.05, 0.06};
  pair->nDispPoints = 1;
  pair->dispVel[0] = 231.0;
  const std::array<double, 5> enT = pair->enT;
  const std::vector<double> phaseBefore = pair->phaseOrig;
  ASSERT_EQ(Fold(Noise(2, 2 * n, 99)), 0);
  UpdatePMeasDataNode(m.projID, m.measID, 0, 1, *m.hw, pair);
  EXPECT_EQ(pair->hAmp[10], Quantity(m, spectral::kTransferAmplitude, 0, 1, n)[10]);
  EXPECT_NE(pair->phaseOrig, phaseBefore);
  EXPECT_EQ(pair->enT, enT);
  EXPECT_EQ(pair->dispVel[0], 231.0);
  EXPECT_EQ(pair->nDispPoints, 1);
}

TEST_F(PairDataTest, UpdateLeavesARecordMadeForFewerLines) {
  const TestMeasurement m = AddMeasurement(Plan(2, 16));
  SelectPair(m, 0, 1);
  ASSERT_EQ(Fold(Noise(2, 32, 8)), 0);
  PMeasInfo* pair = nullptr;
  SetupPMeasDataNode(m.projID, m.measID, 0, 1, *m.hw, pair);
  ASSERT_NE(pair, nullptr);
  const std::vector<double> before = pair->hRe;
  m.hw->nLines = 64;
  SetupRawDataArrays(m.key);
  UpdatePMeasDataNode(m.projID, m.measID, 0, 1, *m.hw, pair);
  UpdatePMeasDataNode(m.projID, m.measID, 0, 1, *m.hw, nullptr);
  EXPECT_EQ(pair->hRe, before);
}

TEST_F(PairDataTest, LookUpFindsThePositionOrMinusOne) {
  const TestMeasurement m = AddMeasurement(Plan(3, 16));
  PMeasInfo* made = nullptr;
  SetupPMeasDataNode(m.projID, m.measID, 0, 1, *m.hw, made);
  SetupPMeasDataNode(m.projID, m.measID, 1, 2, *m.hw, made);
  std::string proj, meas;
  PMeasInfo* found = nullptr;
  int position = 0;
  EXPECT_EQ(GetPairMInfoFromKey(m.key, 1, 2, proj, meas, found, position), m.key);
  EXPECT_EQ(position, 2);
  EXPECT_EQ(found, made);
  EXPECT_EQ(meas, m.measID);
  EXPECT_EQ(GetPairMInfoFromKey(m.key, 2, 1, proj, meas, found, position), m.key);
  EXPECT_EQ(position, -1);
  EXPECT_EQ(GetPairMInfoFromKey(-1, 1, 2, proj, meas, found, position), -1);
  EXPECT_EQ(position, -1);
}

TEST(FullTimeLines, PowerOfTwoReturnsItself) {
  for (int n = 1; n <= 524288; n *= 2) EXPECT_EQ(FullTimeLines(n), n);
  EXPECT_EQ(FullTimeLines(513), 1024);
}

}  // namespace
}  // namespace sondera
