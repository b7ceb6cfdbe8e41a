#include "signal/gabor.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

#include "numeric/allocation_count.h"
#include "panels/sasw_pair.h"
#include "plain_auto_masking.h"
#include "plain_envelope.h"
#include "plain_signal.h"
#include "records/session.h"
#include "runtime/events.h"
#include "signal/irf.h"
#include "support/odd_numbers.h"
#include "support/pair_fixture.h"

namespace sondera::testing {
namespace {

const double kPi = std::acos(-1.0);

std::vector<double> Filter(double f, double band, double beta, double f1, double f2, double deltaT, int N,
                           int mode = 0) {
  std::vector<double> out(static_cast<std::size_t>(N), -1.0);
  GaussFilter(f, band, beta, f1, f2, deltaT, N, out.data(), mode);
  return out;
}

std::vector<double> Noise(int n, unsigned seed) {
  std::mt19937 random(seed);
  std::normal_distribution<double> normal;
  std::vector<double> values(static_cast<std::size_t>(n));
  for (double& v : values) v = normal(random);
  return values;
}

// ---- GaussFilter

TEST(GaussFilter, IsOneAtItsCentreAndFallsToTheExponentAtItsEdges) {
  const double deltaT = 0.001, step = 1.0 / (1024 * deltaT);  // Hz
  const double f = 100 * step;
  // Half-width: a width parameter that puts the edges exactly 20 lines away.
  const double f1 = 10.0, f2 = 310.0;
  const double r = std::pow(10.0, 2.0 * 20 * step / (f2 - f1) * std::log10(f2 / f1));
  const double band = (r - 1.0) / (r + 1.0);
  const std::vector<double> filter = Filter(f, band, 3.0, f1, f2, deltaT, 1024);
  EXPECT_NEAR(filter[100], 1.0, 1e-12);
  EXPECT_NEAR(filter[81], std::exp(-3.0 * 0.95 * 0.95), 1e-12);
  EXPECT_NEAR(filter[119], std::exp(-3.0 * 0.95 * 0.95), 1e-12);
  EXPECT_EQ(filter[79], 0.0);
  EXPECT_EQ(filter[121], 0.0);
}

TEST(GaussFilter, HasTheSameWidthInAllRows) {
  const auto lines = [](double f) {
    const std::vector<double> filter = Filter(f, 0.5, 3.0, 0.0, 500.0, 0.001, 4096);
    const auto count = std::count_if(filter.begin(), filter.end(), [](double v) { return v > 0.0; });
    return static_cast<double>(count);
  };
  const auto width = lines(100.0);
  EXPECT_GT(width, 100);
  for (double f : {150.0, 250.0, 400.0}) EXPECT_NEAR(lines(f), width, 1.0) << f;
}

TEST(GaussFilter, FirstFrequencyOfZeroCountsAsAHundredthInTheLogarithm) {
  // f2 = 100 over 0.01 are four decades; with the width 0.5 the half-width is 50 log10(3) / 4 Hz.
  const std::vector<double> filter = Filter(50.0, 0.5, 3.0, 0.0, 100.0, 0.001, 8192);
  const double step = 1.0 / 8.192, halfWidth = 50.0 * std::log10(3.0) / 4.0;
  const int first = static_cast<int>(std::ceil((50.0 - halfWidth) / step));
  const int last = static_cast<int>(std::floor((50.0 + halfWidth) / step));
  EXPECT_EQ(filter[static_cast<std::size_t>(first - 1)], 0.0);
  EXPECT_GT(filter[static_cast<std::size_t>(first)], std::exp(-3.0));
  EXPECT_GT(filter[static_cast<std::size_t>(last)], std::exp(-3.0));
  EXPECT_EQ(filter[static_cast<std::size_t>(last + 1)], 0.0);
  EXPECT_EQ(filter, Filter(50.0, 0.5, 3.0, 0.0, 100.0, 0.001, 8192));
}

TEST(GaussFilter, OtherModesAreAsWideAsTheirFrequencySays) {
  const std::vector<double> filter = Filter(100.0, 0.25, 3.0, 10.0, 400.0, 0.001, 1000, 1);
  EXPECT_EQ(filter[74], 0.0);
  EXPECT_GT(filter[76], 0.0);
  EXPECT_GT(filter[124], 0.0);
  EXPECT_EQ(filter[126], 0.0);
}

TEST(GaussFilter, WidthOfOnePassesEverythingAndAboveOneNothing) {
  for (double v : Filter(100.0, 1.0, 3.0, 0.0, 500.0, 0.001, 256)) EXPECT_EQ(v, 1.0);
  for (double band : {3.0, 1.0000001, -0.5, kNaN, kInf})
    for (double v : Filter(100.0, band, 0.5, 0.0, 500.0, 0.001, 256)) EXPECT_EQ(v, 0.0) << band;
}

TEST(GaussFilter, EqualsThePlainFormula) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> part(0.0, 1.0);
  for (int k = 0; k < 300; ++k) {
    const double f2 = 5.0 + 600.0 * part(random), f1 = k % 3 ? f2 * 0.5 * part(random) : 0.0;
    const double f = f1 + (f2 - f1) * part(random), band = 0.05 + 0.9 * part(random);
    const double beta = 5.0 * part(random), deltaT = k % 2 ? 0.001 : 0.00100195695;
    const int N = 64 << (k % 5), mode = k % 7 == 0;
    EXPECT_EQ(Filter(f, band, beta, f1, f2, deltaT, N, mode),
              plain::GaussFilter(f, band, beta, f1, f2, deltaT, N, mode))
        << k;
  }
}

// ---- CalcEnvelope

struct Enveloped {
  std::vector<dcomplex> cx;
  std::vector<double> env;
};

Enveloped Envelope(const std::vector<double>& filter, const std::vector<double>& re,
                   const std::vector<double>& im, int N) {
  EnvelopeWork work(N);
  Enveloped out{std::vector<dcomplex>(static_cast<std::size_t>(N)),
                std::vector<double>(static_cast<std::size_t>(N))};
  CalcEnvelope(filter.data(), re.data(), im.data(), N, work, out.cx.data(), out.env.data());
  return out;
}

TEST(CalcEnvelope, OneTransformGivesWhatTwoGive) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> part(0.0, 1.0);
  for (int k = 0; k < 60; ++k) {
    const int N = k % 4 == 3 ? 1000 : 16 << (k % 8);
    const std::vector<double> re = Noise(N / 2, 2 * k + 1), im = Noise(N / 2, 2 * k + 2);
    const std::vector<double> filter =
        Filter(500.0 * part(random), 0.1 + 0.8 * part(random), 3.0, 0.0, 500.0, 0.001, N);
    const Enveloped fast = Envelope(filter, re, im, N);
    plain::EnvelopeArrays plain(N);
    plain::CalcEnvelope(filter, re.data(), im.data(), N, plain);
    const double largest = *std::max_element(plain.env.begin(), plain.env.end());
    for (std::size_t i = 0; i < plain.env.size(); ++i) {
      EXPECT_NEAR(fast.env[i], plain.env[i], 1e-14 * largest + 1e-300) << N << " " << i;
      EXPECT_NEAR(fast.cx[i].re, plain.cxEnv[i].re, 1e-14 * largest + 1e-300) << N << " " << i;
      EXPECT_NEAR(fast.cx[i].im, plain.cxEnv[i].im, 1e-14 * largest + 1e-300) << N << " " << i;
    }
  }
}

TEST(CalcEnvelope, SignalAndQuadratureAreTheCosineAndSineSumsOfTheBand) {
  const int N = 64;
  const std::vector<double> re = Noise(N / 2, 5), im = Noise(N / 2, 6);
  std::vector<double> filter = Noise(N / 2, 8);
  const Enveloped out = Envelope(filter, re, im, N);
  for (int t = 0; t < N; ++t) {
    double p = 0.0, q = 0.0;
    for (int i = 1; i < N / 2; ++i) {
      const double angle = 2.0 * kPi * i * t / N, a = filter[i] * re[i], b = filter[i] * im[i];
      p += a * std::cos(angle) - b * std::sin(angle);
      q -= a * std::sin(angle) + b * std::cos(angle);
    }
    EXPECT_NEAR(out.cx[t].re, p, 1e-12);
    EXPECT_NEAR(out.cx[t].im, q, 1e-12);
    EXPECT_NEAR(out.env[t], std::hypot(p, q), 1e-12);
  }
}

TEST(CalcEnvelope, SingleLineHasAFlatEnvelopeAndLineZeroPlaysNoPart) {
  const int N = 128;
  std::vector<double> re(N / 2, 0.0), im(N / 2, 0.0);
  const std::vector<double> filter(N / 2, 0.5);
  re[0] = 1e6;
  re[17] = 3.0;
  im[17] = -4.0;
  for (double v : Envelope(filter, re, im, N).env) EXPECT_NEAR(v, 2.5, 1e-12);
}

TEST(CalcEnvelope, NotANumberGivesZeroInsteadOfItself) {
  const int N = 64;
  const std::vector<double> filter(N / 2, 1.0);
  for (int line : {1, 7, 16, 31}) {
    for (int part : {0, 1}) {
      std::vector<double> re = Noise(N / 2, 1), im = Noise(N / 2, 2);
      (part ? im : re)[static_cast<std::size_t>(line)] = kNaN;
      plain::EnvelopeArrays plain(N);
      plain::CalcEnvelope(filter, re.data(), im.data(), N, plain);
      const Enveloped fast = Envelope(filter, re, im, N);
      for (int i = 0; i < N; ++i) {
        EXPECT_EQ(plain.env[i], 0.0);
        EXPECT_EQ(fast.env[i], 0.0);
        EXPECT_EQ(fast.cx[i].re, 0.0);
        EXPECT_EQ(fast.cx[i].im, 0.0);
      }
    }
  }
}

// ---- ScalezArray

TEST(ScalezArray, PutsTheSmallestAtZeroAndTheLargestAtAHundred) {
  std::vector<double> z = {-60.0, -40.0, -20.0, -10.0};
  ScalezArray(z.data(), 2, 2, 10.0);
  EXPECT_THAT(z, ::testing::ElementsAre(10.0, 40.0, 80.0, 100.0));
}

TEST(ScalezArray, CellsWithoutEnergyBecomeTheMinimum) {
  std::vector<double> z = {kNoEnergy, -40.0, -20.0, -150000.0, kNaN, -kInf};
  ScalezArray(z.data(), 3, 2, 0.0);
  EXPECT_THAT(z, ::testing::ElementsAre(0.0, 0.0, 100.0, 0.0, 0.0, 0.0));
}

TEST(ScalezArray, EveryValueLiesBetweenTheThresholdAndAHundred) {
  std::mt19937 random(3);
  for (int k = 0; k < 200; ++k) {
    std::vector<double> z = Noise(50, 100 + k);
    for (double& v : z) v *= std::pow(10.0, k % 9 - 4);
    if (k % 3 == 0) z[static_cast<std::size_t>(k % 50)] = kNoEnergy;
    const double threshold = std::uniform_real_distribution<double>(0.0, 100.0)(random);
    ScalezArray(z.data(), 10, 5, threshold);
    EXPECT_GE(*std::min_element(z.begin(), z.end()), threshold);
    EXPECT_LE(*std::max_element(z.begin(), z.end()), 100.0);
    EXPECT_GT(*std::max_element(z.begin(), z.end()), 99.999);
  }
}

TEST(ScalezArray, FlatMapBecomesTheThresholdEverywhere) {
  for (double flat : {0.0, -37.5, kNoEnergy, kNaN, kInf}) {
    std::vector<double> z(12, flat);
    ScalezArray(z.data(), 4, 3, 61.5);
    EXPECT_THAT(z, ::testing::Each(61.5)) << flat;
  }
  ScalezArray(nullptr, 0, 5, 61.5);
}

// ---- CalcGabor

class CalcGaborOfAPair : public PairTest {
 protected:
  static double Cell(PMeasInfo& pair, int option, int r, int c) {
    return pair.gaborMap(option)[static_cast<std::size_t>(r * kGaborDivisions + c)];
  }
  static int RidgeColumn(PMeasInfo& pair, int option, int r) {
    const double* row = pair.gaborMap(option).data() + r * kGaborDivisions;
    return static_cast<int>(std::max_element(row, row + pair.timeDiv) - row);
  }
  static double ColumnTime(const PMeasInfo& pair, int c) {
    return pair.initTime + c * (pair.finalTime - pair.initTime) / (pair.timeDiv - 1);
  }
};

TEST_F(CalcGaborOfAPair, PureDelayGivesARidgeAtTheDelayInEveryRow) {
  for (double delay : {0.02, 0.06, 0.153}) {
    SetUp();
    PMeasInfo& pair = MakePair([=](double f) { return Delay(f, delay); });
    pair.phaseOption = 0;
    CalcGabor(Panel::SASW);
    const double step = ColumnTime(pair, 1) - ColumnTime(pair, 0);
    for (int r = 0; r < pair.freqDiv; ++r)
      EXPECT_NEAR(ColumnTime(pair, RidgeColumn(pair, 0, r)), delay, 0.5 * step + m.hw->deltaT) << r;
  }
}

TEST_F(CalcGaborOfAPair, HeightOfTheRidgeIsTheSumOfTheFilter) {
  PMeasInfo& pair = MakePair([](double f) { return 0.3 * Delay(f, 0.06); });
  pair.initTime = 0.01;
  pair.finalTime = 0.108;  // 2 ms per column, so that a column meets the delay
  pair.initFreq = 20.0;
  pair.finalFreq = 265.0;
  pair.phaseOption = 0;
  CalcGabor(Panel::SASW);
  for (int r : {0, 11, 30, 49}) {
    const auto filter = plain::GaussFilter(20.0 + 5.0 * r, 0.5, 3.0, 20.0, 265.0, m.hw->deltaT, 1024, 0);
    const double sum = std::accumulate(filter.begin() + 1, filter.begin() + 512, 0.0);
    EXPECT_NEAR(Cell(pair, 0, r, 25), 20.0 * std::log10(0.3 * sum), 1e-9) << r;
  }
}

TEST_F(CalcGaborOfAPair, EqualsThePlainMapOfTheSpectrumOfEachPhaseOption) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03) + 0.4 * Delay(f, 0.07) + 0.01; });
  pair.phaseOption = 1;
  CalcGaborMaps(Panel::SASW);
  EXPECT_EQ(pair.phaseOption, 1);
  const plain::MapSettings settings = {pair.initTime,  pair.finalTime, pair.timeDiv, pair.initFreq,
                                       pair.finalFreq, pair.freqDiv,   pair.band,    pair.beta};
  const std::vector<double>* spectra[3][2] = {
      {&pair.hRe, &pair.hIm}, {&pair.enRe, &pair.enIm}, {&pair.bbRe, &pair.bbIm}};
  for (int option = 0; option <= 2; ++option) {
    const auto plainRows = plain::GaborRows(settings, spectra[option][0]->data(), spectra[option][1]->data(),
                                            m.hw->deltaT, 1024);
    for (int r = 0; r < 50; ++r)
      for (int c = 0; c < 50; ++c)
        EXPECT_NEAR(Cell(pair, option, r, c), plainRows[static_cast<std::size_t>(r * 50 + c)], 1e-6)
            << option << " " << r << " " << c;
  }
  EXPECT_NE(pair.gaborMap(0), pair.gaborMap(1));
  EXPECT_NE(pair.gaborMap(1), pair.gaborMap(2));
}

TEST_F(CalcGaborOfAPair, OptionOutsideTheThreeIsTheOriginal) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  pair.phaseOption = 0;
  CalcGabor(Panel::SASW);
  const GaborMap original = pair.gaborMap(0);
  pair.gaborMap(0).fill(5.0);
  pair.phaseOption = 7;
  CalcGabor(Panel::SASW);
  EXPECT_EQ(pair.gaborMap(0), original);
  EXPECT_EQ(Cell(pair, 2, 3, 3), 0.0);
}

TEST_F(CalcGaborOfAPair, EnvelopeOfZeroGivesNoEnergy) {
  PMeasInfo& pair = MakePair([](double) { return 0.0; });
  pair.phaseOption = 0;
  CalcGabor(Panel::SASW);
  EXPECT_THAT(pair.gaborMap(0), ::testing::Each(kNoEnergy));
  std::vector<double> z(pair.gaborMap(0).begin(), pair.gaborMap(0).end());
  z[7] = -50.0;
  z[8] = -30.0;
  ScalezArray(z.data(), 50, 50, 0.0);
  EXPECT_EQ(z[7], 0.0);
  EXPECT_EQ(z[9], 0.0) << "the minimum of the map";
}

TEST_F(CalcGaborOfAPair, ColumnsOutsideTheRecordStayZeroAndTheOneBehindItsEndHasNoEnergy) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  pair.phaseOption = 0;
  pair.initTime = -0.002;
  pair.finalTime = 1.026;  // the record has 1024 samples of 1 ms
  pair.timeDiv = 50;
  pair.finalFreq = 500.0;
  CalcGabor(Panel::SASW);
  EXPECT_EQ(Cell(pair, 0, 20, 0), 0.0) << "before the record";
  EXPECT_NE(Cell(pair, 0, 20, 1), 0.0);
  EXPECT_EQ(Cell(pair, 0, 20, 49), 0.0) << "beyond the record";
  pair.initTime = 0.0;
  pair.finalTime = 1.024;
  CalcGabor(Panel::SASW);
  EXPECT_EQ(Cell(pair, 0, 20, 49), kNoEnergy) << "just behind the last sample";
}

TEST_F(CalcGaborOfAPair, UnsetRangeComesFromSpacingVelocityAndBand) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); }, {.spacing = 1.5});
  pair.initTime = 0.5;
  CalcGabor(Panel::SASW);
  EXPECT_EQ(pair.initTime, 0.0);
  EXPECT_DOUBLE_EQ(pair.finalTime, 1.5 * 3.0 / 30.0);
  EXPECT_EQ(pair.finalFreq, 500.0);
}

TEST_F(CalcGaborOfAPair, UnsetRangeEndsAtAFifthOfTheRecord) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); }, {.spacing = 40.0});
  CalcGabor(Panel::SASW);
  EXPECT_DOUBLE_EQ(pair.finalTime, 0.2 * 1.023);
}

TEST_F(CalcGaborOfAPair, ReceiversAtOnePlaceGetATenthOfTheRecord) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); }, {.spacing = 0.0});
  CalcGabor(Panel::SASW);
  EXPECT_DOUBLE_EQ(pair.finalTime, 0.1 * 1.023);
}

TEST_F(CalcGaborOfAPair, SpacingCountsWithoutItsSignAndInLengthUnits) {
  MakePair([](double f) { return Delay(f, 0.03); }, {.spacing = 1.5, .lengthUnit = 0.3048});
  SelectPair(m, 1, 0);
  PMeasInfo* pair = nullptr;
  SetupPMeasDataNode(m.projID, m.measID, 1, 0, *m.hw, pair);
  ASSERT_NE(pair, nullptr);
  CalcGabor(Panel::SASW);
  EXPECT_DOUBLE_EQ(pair->finalTime, 1.5 * 3.0 / 30.0);
}

TEST_F(CalcGaborOfAPair, RangeThatIsSetStays) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  pair.initTime = 0.01;
  pair.finalTime = 0.1;
  pair.initFreq = 5.0;
  pair.finalFreq = 60.0;
  CalcGabor(Panel::SASW);
  EXPECT_EQ(pair.initTime, 0.01);
  EXPECT_EQ(pair.finalTime, 0.1);
  EXPECT_EQ(pair.initFreq, 5.0);
  EXPECT_EQ(pair.finalFreq, 60.0);
}

TEST_F(CalcGaborOfAPair, OnlyRowsAndColumnsOfTheDivisionsAreWritten) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  pair.phaseOption = 0;
  pair.gaborMap(0).fill(17.5);
  pair.timeDiv = 8;
  pair.freqDiv = 3;
  CalcGabor(Panel::SASW);
  for (int r = 0; r < 50; ++r)
    for (int c = 0; c < 50; ++c) EXPECT_EQ(Cell(pair, 0, r, c) == 17.5, r >= 3 || c >= 8) << r << " " << c;
}

TEST_F(CalcGaborOfAPair, DivisionsAboveFiftyBecomeFiftyAndZeroOrLessEndQuietly) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  pair.phaseOption = 0;
  pair.timeDiv = 60;
  pair.freqDiv = 2000000000;
  CalcGabor(Panel::SASW);
  EXPECT_EQ(pair.timeDiv, 50);
  EXPECT_EQ(pair.freqDiv, 50);
  pair.gaborMap(0).fill(17.5);
  for (int none : {0, -3}) {
    pair.timeDiv = none;
    CalcGabor(Panel::SASW);
    pair.timeDiv = 50;
    pair.freqDiv = none;
    CalcGabor(Panel::SASW);
    pair.freqDiv = 50;
  }
  EXPECT_THAT(pair.gaborMap(0), ::testing::Each(17.5));
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(CalcGaborOfAPair, SingleDivisionIsTheFirstTimeAndFrequency) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  pair.phaseOption = 0;
  pair.initTime = 0.03;
  pair.finalTime = 0.1;
  pair.initFreq = 100.0;
  pair.finalFreq = 300.0;
  CalcGabor(Panel::SASW);
  const double corner = Cell(pair, 0, 0, 0);
  pair.gaborMap(0).fill(0.0);
  pair.timeDiv = pair.freqDiv = 1;
  CalcGabor(Panel::SASW);
  EXPECT_EQ(Cell(pair, 0, 0, 0), corner);
}

TEST_F(CalcGaborOfAPair, BadSettingsEndWithAMapOfFiniteValues) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  const double bad[] = {kNaN, kInf, -kInf, 0.0, -1.0, 1e300, 1e-300};
  for (double PMeasInfo::*field : {&PMeasInfo::initTime, &PMeasInfo::finalTime, &PMeasInfo::initFreq,
                                   &PMeasInfo::finalFreq, &PMeasInfo::band, &PMeasInfo::beta}) {
    for (double value : bad) {
      pair.initTime = 0.0;
      pair.finalTime = 0.1;
      pair.initFreq = 0.0;
      pair.finalFreq = 100.0;
      pair.band = 0.5;
      pair.beta = 3.0;
      pair.*field = value;
      pair.phaseOption = 0;
      CalcGabor(Panel::SASW);
      for (double v : pair.gaborMap(0)) ASSERT_TRUE(std::isfinite(v)) << value;
    }
  }
}

TEST_F(CalcGaborOfAPair, WidthAboveOneLeavesTheMapWithoutEnergy) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  pair.phaseOption = 0;
  pair.band = 3.0;
  CalcGabor(Panel::SASW);
  EXPECT_THAT(pair.gaborMap(0), ::testing::Each(kNoEnergy));
}

TEST_F(CalcGaborOfAPair, NotANumberInTheSpectrumLeavesTheMapWithoutEnergy) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  pair.phaseOption = 0;
  pair.hRe[3] = kNaN;
  CalcGabor(Panel::SASW);
  EXPECT_THAT(pair.gaborMap(0), ::testing::Each(kNoEnergy));
}

TEST_F(CalcGaborOfAPair, LinesThatAreNoPowerOfTwoGetTheNextTransform) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); }, {.nLines = 300});
  pair.phaseOption = 0;
  CalcGabor(Panel::SASW);
  const plain::MapSettings settings = {
      pair.initTime, pair.finalTime, 50, pair.initFreq, pair.finalFreq, 50, 0.5, 3.0};
  const auto rows = plain::GaborRows(settings, pair.hRe.data(), pair.hIm.data(), m.hw->deltaT, 1024);
  for (int r = 0; r < 50; ++r)
    for (int c = 0; c < 50; ++c)
      EXPECT_NEAR(Cell(pair, 0, r, c), rows[static_cast<std::size_t>(r * 50 + c)], 1e-6) << r << " " << c;
}

TEST_F(CalcGaborOfAPair, WithoutAPairNothingHappens) {
  CalcGabor(Panel::SASW);
  CalcGaborMaps(Panel::SASW);
  LayTransfer([](double f) { return Delay(f, 0.03); });
  CalcGabor(Panel::SASW);
  CalcGaborMaps(Panel::SASW);
  EXPECT_TRUE(MeasDB.pMeasList.empty());
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(CalcGaborOfAPair, OtherPagesUseTheChannelsLastSelected) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  pair.phaseOption = 0;
  SetCtrlVal(sasw::DISPACHNL, 0);  // trace A shows the pair of channel 1 with itself
  session.refChan = 0;
  session.dspChan = 1;
  CalcGabor(Panel::SASW);
  EXPECT_EQ(pair.gabor, nullptr);
  session.refChan = 0;
  session.dspChan = 1;
  CalcGabor(Panel::IRFSETPNL);
  EXPECT_NE(pair.gabor, nullptr);
}

TEST_F(CalcGaborOfAPair, PairTakenAwayWhileEventsAreHandledEndsIt) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  pair.phaseOption = 0;
  bool waiting = false;
  frontEnd.onProcessEvents = [&] {
    waiting = WaitCursorShown();
    FreePMeasInfoList();
  };
  CalcGabor(Panel::SASW);
  EXPECT_TRUE(waiting);
  EXPECT_FALSE(WaitCursorShown());
  EXPECT_TRUE(MeasDB.pMeasList.empty());
  CalcGaborMaps(Panel::SASW);
}

TEST_F(CalcGaborOfAPair, RowsAllocateNothing) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  const auto allocationsFor = [&](int rows) {
    pair.freqDiv = rows;
    CalcGabor(Panel::SASW);
    const long before = test::AllocationCount();
    CalcGabor(Panel::SASW);
    return test::AllocationCount() - before;
  };
  EXPECT_EQ(allocationsFor(2), allocationsFor(50));
}

}  // namespace
}  // namespace sondera::testing
