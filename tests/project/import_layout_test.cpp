// From the sampling of a file to that of a record.
#include "project/import_layout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <random>

#include "support/odd_numbers.h"

namespace sondera {
namespace {

SpectrumLayout LayOut(double f0, double f1, int count) {
  SpectrumLayout s;
  EXPECT_TRUE(LayOutSpectrum(f0, f1, (f1 - f0) / (count - 1), count, 2, s))
      << f0 << " to " << f1 << ", " << count;
  return s;
}

TEST(LayOutSpectrum, OneLineMoreThanAPowerOfTwoIsDropped) {
  const SpectrumLayout s = LayOut(0, 1024 * 0.5, 1025);
  EXPECT_EQ(s.nLines, 1024);
  EXPECT_EQ(s.spanKind, 0);
  EXPECT_EQ(s.startFreq, 0.0);
  EXPECT_EQ(s.stopFreq, 1023 * 0.5);
  EXPECT_EQ(s.deltaF, 0.5);
  EXPECT_EQ(s.freqSpan, -1023 * 0.5);
  EXPECT_DOUBLE_EQ(s.deltaT, 0.5 / (1023 * 0.5));
  EXPECT_DOUBLE_EQ(s.timeLength, 2047 * s.deltaT);
}

TEST(LayOutSpectrum, APowerOfTwoIsTakenAsItIs) {
  const SpectrumLayout s = LayOut(0, 1023, 1024);
  EXPECT_EQ(s.nLines, 1024);
  EXPECT_EQ(s.stopFreq, 1023.0);
}

TEST(LayOutSpectrum, OtherNumbersGoUpToTheNextPowerOfTwo) {
  EXPECT_EQ(LayOut(0, 600, 601).nLines, 1024);
  EXPECT_EQ(LayOut(0, 600, 601).stopFreq, 600.0);
  EXPECT_EQ(LayOut(0, 1025, 1026).nLines, 2048);
  EXPECT_EQ(LayOut(0, 2, 3).nLines, 2) << "3 = 2 + 1 lines";
  EXPECT_EQ(LayOut(0, 3, 4).nLines, 4);
}

TEST(LayOutSpectrum, AStartAtFiveHertzKeepsTheLinesBelowFree) {
  const SpectrumLayout s = LayOut(5, 100, 191);
  EXPECT_EQ(s.spanKind, 1);
  EXPECT_EQ(s.startFreq, 5.0);
  EXPECT_EQ(s.stopFreq, 100.0);
  EXPECT_EQ(s.deltaF, 0.5);
  EXPECT_EQ(s.firstLine, 10);
  EXPECT_EQ(s.nLines, 256);  // the line at 100 Hz has the index 200
}

TEST(LayOutSpectrum, TheLastLineOfABandIsLostWhereItsIndexIsAPowerOfTwo) {
  const SpectrumLayout s = LayOut(5, 128, 247);  // lines 10 to 256
  EXPECT_EQ(s.nLines, 256);
  EXPECT_EQ(s.stopFreq, 128.0);
}

TEST(LayOutSpectrum, TheDropRuleAlsoHalvesABandOfPowerOfTwoPlusOneLines) {
  const SpectrumLayout s = LayOut(10, 266, 257);  // 512 lines by the last index, and 512 = 2 * 256
  EXPECT_EQ(s.nLines, 256);
  EXPECT_EQ(s.firstLine, 10);
  EXPECT_EQ(s.stopFreq, 255.0);
}

TEST(LayOutSpectrum, ABandOfWhichNothingWouldBeLeftIsRefused) {
  SpectrumLayout s;
  EXPECT_FALSE(LayOutSpectrum(256, 512, 1, 257, 2, s))
      << "512 lines by the rule become 256, all below the band";
}

TEST(LayOutSpectrum, TheSpacingOfANegativeStartIsThatOfTheFile) {
  SpectrumLayout s;
  ASSERT_TRUE(LayOutSpectrum(-1, 6, 1, 8, 2, s));
  EXPECT_EQ(s.startFreq, 0.0);
  EXPECT_EQ(s.spanKind, 0);
  EXPECT_EQ(s.firstLine, 0);
  EXPECT_EQ(s.nLines, 8);
  EXPECT_EQ(s.deltaF, 1.0);
  EXPECT_EQ(s.stopFreq, 6.0);
}

TEST(LayOutSpectrum, WhatGivesNoRecordIsRefusedAndLeavesTheResultAlone) {
  SpectrumLayout s;
  s.nLines = -7;
  EXPECT_FALSE(LayOutSpectrum(0, 10, 10, 1, 2, s)) << "one line";
  EXPECT_FALSE(LayOutSpectrum(0, 10, 10, 0, 2, s));
  EXPECT_FALSE(LayOutSpectrum(0, 10, 10, -3, 2, s));
  EXPECT_FALSE(LayOutSpectrum(0, 10, 10, 2, 2, s)) << "two lines from 0: one would be left, at 0 Hz";
  EXPECT_FALSE(LayOutSpectrum(10, 0, -1, 11, 2, s)) << "falling frequencies";
  EXPECT_FALSE(LayOutSpectrum(5, 5, 0, 10, 2, s)) << "no spacing";
  EXPECT_FALSE(LayOutSpectrum(-10, -1, 1, 10, 2, s)) << "all below zero";
  EXPECT_FALSE(LayOutSpectrum(-10, 0, 1, 11, 2, s));
  EXPECT_FALSE(LayOutSpectrum(0, 10, 1, 11, 0, s)) << "no channel";
  for (double bad : {kInf, -kInf, kNaN}) {
    EXPECT_FALSE(LayOutSpectrum(bad, 10, 1, 11, 2, s));
    EXPECT_FALSE(LayOutSpectrum(0, bad, 1, 11, 2, s));
    EXPECT_FALSE(LayOutSpectrum(0, 10, bad, 11, 2, s));
  }
  EXPECT_FALSE(LayOutSpectrum(0, 1.7e308, 1.7e307, 11, 2, s)) << "the span would be infinite";
  EXPECT_FALSE(LayOutSpectrum(0, 1e-310, 1e-311, 11, 2, s)) << "the interval would be infinite";
  EXPECT_EQ(s.nLines, -7);
}

TEST(LayOutSpectrum, AFewLinesFarAboveZeroDoNotBuyMemory) {
  SpectrumLayout s;
  EXPECT_TRUE(LayOutSpectrum(200000, 200010, 1, 11, 2, s));
  EXPECT_EQ(s.nLines, 262144);
  EXPECT_FALSE(LayOutSpectrum(1e9, 1e9 + 10, 1, 11, 2, s));
  EXPECT_FALSE(LayOutSpectrum(300000, 300010, 1, 11, 2, s));
  EXPECT_FALSE(LayOutSpectrum(1, 1e300, 1e-3, 11, 2, s));
  EXPECT_TRUE(LayOutSpectrum(100000, 599999, 1, 500000, 2, s)) << "a long file may have lines below it";
}

TEST(LayOutSpectrum, ARecordThatIsTooLargeIsRefused) {
  SpectrumLayout s;
  EXPECT_TRUE(LayOutSpectrum(0, (1 << 21) - 1, 1, 1 << 21, 8, s));
  EXPECT_FALSE(LayOutSpectrum(0, 1 << 22, 1, (1 << 22) + 2, 8, s));
  EXPECT_FALSE(LayOutSpectrum(0, 2e9, 1, 2000000000, 1, s));
}

TEST(LayOutTimeRecord, APowerOfTwoOfSamplesHasNoPadding) {
  TimeLayout t;
  ASSERT_TRUE(LayOutTimeRecord(0, 7 * 0.5, 8, 1, t));
  EXPECT_EQ(t.samples, 8);
  EXPECT_EQ(t.deltaT, 0.5);
  EXPECT_EQ(t.timeLength, 3.5);
  EXPECT_EQ(t.freqSpan, 1.0);
  EXPECT_EQ(t.deltaF, 0.25);
  EXPECT_EQ(t.triggerDelay, 0.0);
  EXPECT_FALSE(std::signbit(t.triggerDelay));
}

TEST(LayOutTimeRecord, ANegativeFirstTimeIsAPreTriggerAndAPositiveOneTheOpposite) {
  TimeLayout t;
  ASSERT_TRUE(LayOutTimeRecord(-0.25, 0.75, 11, 1, t));
  EXPECT_EQ(t.samples, 16);
  EXPECT_DOUBLE_EQ(t.triggerDelay, 25.0);
  ASSERT_TRUE(LayOutTimeRecord(0.5, 1.5, 11, 1, t));
  EXPECT_DOUBLE_EQ(t.triggerDelay, -50.0);
}

TEST(LayOutTimeRecord, TwoSamplesAreARecordAndOneIsNone) {
  TimeLayout t;
  ASSERT_TRUE(LayOutTimeRecord(0, 0.5, 2, 1, t));
  EXPECT_EQ(t.samples, 2);
  EXPECT_EQ(t.deltaF, 1.0);
  EXPECT_FALSE(LayOutTimeRecord(0, 0.5, 1, 1, t));
}

TEST(LayOutTimeRecord, TimesThatDoNotGrowAreRefused) {
  TimeLayout t;
  EXPECT_FALSE(LayOutTimeRecord(0, 0, 10, 1, t));
  EXPECT_FALSE(LayOutTimeRecord(1, 0, 10, 1, t));
  EXPECT_FALSE(LayOutTimeRecord(kNaN, 1, 10, 1, t));
  EXPECT_FALSE(LayOutTimeRecord(0, kInf, 10, 1, t));
  EXPECT_FALSE(LayOutTimeRecord(-1e308, 1e308, 10, 1, t));
  EXPECT_FALSE(LayOutTimeRecord(0, 1e-320, 10, 1, t));
  EXPECT_FALSE(LayOutTimeRecord(0, 1, 10, 0, t));
  EXPECT_FALSE(LayOutTimeRecord(0, 1, 2000000000, 1, t));
  EXPECT_TRUE(LayOutTimeRecord(0, 4194.303, 1 << 22, 8, t)) << "70 minutes of eight channels";
  EXPECT_FALSE(LayOutTimeRecord(0, 1, 1 << 23, 8, t));
}

TEST(SpectrumRow, StoresLinesWithTheirConjugatesAndNothingOutside) {
  std::vector<double> re(16, 9.0), im(16, 9.0);
  const SpectrumRow row = RowOf(re, im, 1, 4);
  for (int line = -1; line <= 5; ++line) row.Store(line, line + 10.0, line + 20.0);
  EXPECT_THAT(std::vector<double>(re.begin(), re.begin() + 8), ::testing::Each(9.0)) << "channel 0";
  EXPECT_THAT(std::vector<double>(re.begin() + 8, re.end()),
              ::testing::ElementsAre(10, 11, 12, 13, 9, 13, 12, 11));
  EXPECT_THAT(std::vector<double>(im.begin() + 8, im.end()),
              ::testing::ElementsAre(20, 21, 22, 23, 9, -23, -22, -21));
}

TEST(SpectrumRow, UnityLeavesTheEntryBetweenTheHalves) {
  std::vector<double> re(8, 0.0), im(8, 0.0);
  SetUnity(RowOf(re, im, 0, 4));
  EXPECT_THAT(re, ::testing::ElementsAre(1, 1, 1, 1, 0, 1, 1, 1));
  for (double v : im) EXPECT_EQ(std::fabs(v), 0.0);
}

TEST(DivideByFirstChannel, AgreesWithComplexDivisionAndMakesTheFirstChannelOne) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> mantissa(-1.0, 1.0);
  std::uniform_int_distribution<int> exponent(-280, 280);
  constexpr int kChannels = 3, kLines = 64;
  std::vector<double> re(2 * kLines * kChannels), im(re.size());
  // Numbers of one line are of like size, as spectra are; lines run through nearly the whole range.
  std::vector<std::complex<double>> expected(kChannels * kLines);
  for (int i = 0; i < kLines; ++i) {
    const double scale = std::pow(10.0, exponent(random));
    for (int c = 0; c < kChannels; ++c)
      RowOf(re, im, c, kLines).Store(i, scale * mantissa(random), scale * mantissa(random));
    for (int c = 0; c < kChannels; ++c) {
      using Long = std::complex<long double>;  // its range holds the squares of all doubles
      const std::size_t at = static_cast<std::size_t>(2 * kLines * c + i), ref = static_cast<std::size_t>(i);
      const Long q = Long(re[at], im[at]) / Long(re[ref], im[ref]);
      expected[static_cast<std::size_t>(c * kLines + i)] = {static_cast<double>(q.real()),
                                                            static_cast<double>(q.imag())};
    }
  }
  DivideByFirstChannel(re, im, kChannels, kLines);
  for (int c = 0; c < kChannels; ++c) {
    for (int i = 0; i < kLines; ++i) {
      const std::size_t at = static_cast<std::size_t>(2 * kLines * c + i);
      const std::complex<double> want = expected[static_cast<std::size_t>(c * kLines + i)];
      EXPECT_NEAR(std::abs(std::complex<double>(re[at], im[at]) - want), 0.0, 1e-14 * std::abs(want))
          << c << " " << i;
      if (c == 0) {
        EXPECT_NEAR(re[at], 1.0, 1e-15);
        EXPECT_EQ(im[at], 0.0);
      }
    }
  }
}

TEST(DivideByFirstChannel, ALineWhereTheFirstChannelIsZeroBecomesZeroEverywhere) {
  std::vector<double> re(8, 0.0), im(8, 0.0);  // two channels of two lines
  RowOf(re, im, 0, 2).Store(0, 2.0, 0.0);
  RowOf(re, im, 1, 2).Store(0, 3.0, 4.0);
  RowOf(re, im, 1, 2).Store(1, 5.0, 6.0);
  DivideByFirstChannel(re, im, 2, 2);
  EXPECT_THAT(re, ::testing::ElementsAre(1, 0, 0, 0, 1.5, 0, 0, 0));
  EXPECT_EQ(im[4], 2.0);
  EXPECT_EQ(im[5], 0.0);
}

TEST(DivideByFirstChannel, AQuotientOutOfRangeBecomesZero) {
  std::vector<double> re(4, 0.0), im(4, 0.0);  // two channels of one line
  RowOf(re, im, 0, 1).Store(0, 1e-300, 0.0);
  RowOf(re, im, 1, 1).Store(0, 1e300, 0.0);
  DivideByFirstChannel(re, im, 2, 1);
  EXPECT_EQ(re[0], 1.0);
  EXPECT_EQ(re[2], 0.0);
}

}  // namespace
}  // namespace sondera
