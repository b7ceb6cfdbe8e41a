// Import of time histories from files made by hand.
#include "project/import_time.h"

#include <cmath>
#include <numbers>

#include "runtime/findings.h"
#include "runtime/text_format.h"
#include "support/import_fixture.h"

namespace sondera::testing {
namespace {

class LoadTimeDataTest : public ImportTest {
 protected:
  int ImportTexts(const std::vector<std::string>& texts) {
    ImportEntries entries{.kind = ImportKind::TimeHistory, .receivers = static_cast<int>(texts.size())};
    for (std::size_t i = 0; i < texts.size(); ++i)
      entries.files.push_back(Write(FormatText("r%zu", i + 1), texts[i]));
    return Import(entries);
  }
  std::vector<double> Samples(int channel) const {
    const std::size_t n = 2 * static_cast<std::size_t>(Hardware().nLines),
                      at = n * static_cast<std::size_t>(channel);
    const std::vector<double>& all = Data().timeHist;
    return {all.begin() + static_cast<std::ptrdiff_t>(at), all.begin() + static_cast<std::ptrdiff_t>(at + n)};
  }
};

using ::testing::ElementsAre;

TEST_F(LoadTimeDataTest, APowerOfTwoOfSamplesHasNoPadding) {
  ASSERT_EQ(ImportTexts({TimText(0, 0.01, {1, 2, 3, 4}), TimText(0, 0.01, {5, 6, 7, 8})}), 0);
  EXPECT_EQ(Hardware().nLines, 2);
  EXPECT_THAT(Samples(0), ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(Samples(1), ElementsAre(5, 6, 7, 8));
  EXPECT_EQ(Data().timeHist.size(), 8u);
}

TEST_F(LoadTimeDataTest, ARecordIsPaddedWithItsLastValueAndNotWithZeros) {
  ASSERT_EQ(ImportTexts({TimText(0, 0.01, {1, 2, 3, 4, 2.385}), TimText(0, 0.01, {5, 6, 7, 8, -9.5})}), 0);
  EXPECT_THAT(Samples(0), ElementsAre(1, 2, 3, 4, 2.385, 2.385, 2.385, 2.385));
  EXPECT_THAT(Samples(1), ElementsAre(5, 6, 7, 8, -9.5, -9.5, -9.5, -9.5));
}

TEST_F(LoadTimeDataTest, RecordFields) {
  ASSERT_EQ(ImportTexts({TimText(-0.02, 0.01, {1, 2, 3, 4, 5}), TimText(-0.02, 0.01, {1, 2, 3, 4, 5}),
                         TimText(-0.02, 0.01, {1, 2, 3, 4, 5})}),
            0);
  const HWSetup& hw = Hardware();
  EXPECT_EQ(hw.nChannels, 3);
  EXPECT_EQ(hw.refChannel, 0);
  EXPECT_EQ(hw.nLines, 4);
  EXPECT_NEAR(hw.deltaT, 0.01, 1e-15);
  EXPECT_NEAR(hw.timeLength, 0.07, 1e-15);
  EXPECT_NEAR(hw.freqSpan, 50.0, 1e-10);
  EXPECT_NEAR(hw.deltaF, 12.5, 1e-10);
  EXPECT_EQ(hw.startFreq, 0.0);
  EXPECT_EQ(hw.stopFreq, hw.freqSpan);
  EXPECT_EQ(hw.spanKind, 0);
  EXPECT_EQ(hw.decimation, 0);
  EXPECT_THAT(hw.coupling, ElementsAre(0, 0, 0));
  EXPECT_THAT(hw.grounding, ElementsAre(1, 1, 1));
  EXPECT_THAT(hw.inputRange, ElementsAre(5.0, 5.0, 0.0));
  EXPECT_EQ(hw.reservedReal, 1.0);
  EXPECT_EQ(hw.triggerChannel, 0);
  EXPECT_EQ(hw.triggerSlope, 1);
  EXPECT_NEAR(hw.triggerDelay, 50.0, 1e-12);
  EXPECT_EQ(hw.triggerLevel, 0.05);
  EXPECT_EQ(hw.averageOn, 1);
  EXPECT_EQ(hw.nAverage, 5);
}

TEST_F(LoadTimeDataTest, APositiveFirstTimeGivesANegativeTriggerDelay) {
  ASSERT_EQ(ImportTexts({TimText(0.02, 0.01, {1, 2, 3, 4, 5})}), 0);
  EXPECT_NEAR(Hardware().triggerDelay, -50.0, 1e-12);
}

TEST_F(LoadTimeDataTest, AShorterLaterFileGoesOnWithItsLastValue) {
  ASSERT_EQ(ImportTexts({TimText(0, 0.01, {1, 2, 3, 4, 5, 6}), TimText(0, 0.01, {7, 8.25})}), 0);
  EXPECT_THAT(Samples(1), ElementsAre(7, 8.25, 8.25, 8.25, 8.25, 8.25, 8.25, 8.25));
}

TEST_F(LoadTimeDataTest, ALongerLaterFileIsReadAsFarAsTheFirst) {
  ASSERT_EQ(ImportTexts({TimText(0, 0.01, {1, 2, 3}), TimText(0, 0.01, {4, 5, 6, 7, 8, 9})}), 0);
  EXPECT_THAT(Samples(1), ElementsAre(4, 5, 6, 6));
}

TEST_F(LoadTimeDataTest, ALineOfALaterFileWithoutAValueGivesZero) {
  ASSERT_EQ(ImportTexts({TimText(0, 0.01, {1, 2, 3, 4, 5}), "0 7\n0.01\n\n0.03 8\n0.04\n"}), 0);
  EXPECT_THAT(Samples(1), ElementsAre(7, 0, 0, 8, 0, 8, 8, 8)) << "padded with the last value that was read";
}

TEST_F(LoadTimeDataTest, SamplesOfTheFirstFileEndWhereALineHasNoTwoTokens) {
  ASSERT_EQ(ImportTexts({"0 1\n0.01 2\n0.02 3\nend\n0.04 9\n", TimText(0, 0.01, {4, 5, 6, 7})}), 0);
  EXPECT_THAT(Samples(0), ElementsAre(1, 2, 3, 3));
  EXPECT_THAT(Samples(1), ElementsAre(4, 5, 6, 6));
}

TEST_F(LoadTimeDataTest, CrLfAndCommasAndTabs) {
  ASSERT_EQ(ImportTexts({"0,1\r\n0.01,2\r\n0.02,3\r\n0.03,4\r\n", "0\t5\n0.01\t6\n0.02\t7\n0.03\t8\n"}), 0);
  EXPECT_THAT(Samples(0), ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(Samples(1), ElementsAre(5, 6, 7, 8));
}

TEST_F(LoadTimeDataTest, SpectraAreThoseOfTheDefiningSums) {
  // An offset, a sine on line 3 and noise without any symmetry.
  std::vector<double> a, b;
  for (int i = 0; i < 16; ++i) {
    a.push_back(0.7 + 2.0 * std::sin(2.0 * std::numbers::pi * 3 * i / 16.0) + 0.1 * ((i * i * 7) % 11));
    b.push_back(-1.3 * std::cos(2.0 * std::numbers::pi * 3 * i / 16.0 + 0.4) + 0.2 * ((i * 5) % 7));
  }
  ASSERT_EQ(ImportTexts({TimText(0, 0.001, a), TimText(0, 0.001, b)}), 0);
  const auto transform = [](const std::vector<double>& x, int k) {
    std::complex<double> sum;
    for (std::size_t i = 0; i < x.size(); ++i)
      sum += x[i] * std::polar(1.0, -2.0 * std::numbers::pi * k * static_cast<double>(i) /
                                        static_cast<double>(x.size()));
    return sum;
  };
  const RawData& raw = Data();
  for (int c = 0; c < 2; ++c) {
    for (int k = 0; k < 16; ++k) {
      const std::complex<double> x = transform(c == 0 ? a : b, k), x0 = transform(a, k);
      const std::size_t at = static_cast<std::size_t>(16 * c + k);
      EXPECT_NEAR(raw.linSpecRe[at], x.real() * std::sqrt(2.0) / 16, 1e-14);
      EXPECT_NEAR(raw.linSpecIm[at], x.imag() * std::sqrt(2.0) / 16, 1e-14);
      EXPECT_NEAR(raw.powerSpec[at], 2.0 * std::norm(x) / 256, 1e-14);
      const std::complex<double> cross = 2.0 * x * std::conj(x0) / 256.0;
      EXPECT_NEAR(raw.crossSpecRe[at], cross.real(), 1e-14);
      EXPECT_NEAR(raw.crossSpecIm[at], cross.imag(), 1e-14);
      if (c == 0) {
        EXPECT_EQ(raw.crossSpecIm[at], 0.0);
      }
    }
  }
}

TEST_F(LoadTimeDataTest, ADelayBetweenReceiversIsALinearPhaseThatFalls) {
  constexpr int kSamples = 64, kDelay = 3;
  std::vector<double> a(kSamples, 0.0), b(kSamples, 0.0);
  for (int i = 0; i < 9; ++i)
    a[static_cast<std::size_t>(5 + i)] = b[static_cast<std::size_t>(5 + kDelay + i)] = (i * i) % 5 + 1;
  ASSERT_EQ(ImportTexts({TimText(0, 0.001, a), TimText(0, 0.001, b)}), 0);
  for (int k = 1; k < 32; ++k) {
    const std::complex<double> h = Cross(1, k) / Cross(0, k);
    const double wanted = -2.0 * std::numbers::pi * k * kDelay / kSamples;
    EXPECT_NEAR(std::abs(h - std::polar(1.0, wanted)), 0.0, 1e-12) << k;
  }
}

TEST_F(LoadTimeDataTest, AFirstFileThatIsNoRecordIsRefusedAndChangesNothing) {
  const char* texts[] = {"",
                         "0 1\n",
                         "0\n1\n2\n",
                         "0 1\n0 2\n0 3\n",    // times are equal
                         "1 1\n0.5 2\n0 3\n",  // times decrease
                         "t v\n0 1\n1 2\n",    // a title
                         "0 1\n0.1 nan\n0.2 3\n",
                         "0 1\n0.1 1e400\n0.2 3\n",
                         "0 1\n0.1 2-103\n0.2 3\n",
                         "0,0 0,1\n0,1 0,2\n0,2 0,3\n"};  // decimal commas: times 0, 0, 0
  for (const char* text : texts) {
    frontEnd.messages.clear();
    EXPECT_EQ(ImportTexts({text, TimText(0, 0.01, {1, 2, 3})}), -1) << text;
    EXPECT_EQ(OnlyMessageHead(), kCannotRead) << text;
    EXPECT_FALSE(Has("new")) << text;
    EXPECT_EQ(MeasDB.idList.count(), 1);
    EXPECT_EQ(MeasDB.hwSetupList.count(), 1);
  }
}

TEST_F(LoadTimeDataTest, ALaterFileThatIsNoRecordTakesTheMeasurementAway) {
  const std::string first = TimText(0, 0.01, {1, 2, 3, 4});
  const std::string texts[] = {"",
                               "\n\n",
                               "0 1\n",
                               "0 1\n0.01 inf\n0.02 3\n0.03 4\n",
                               "0 1\n0.01 volts\n",
                               TimText(0, 0.02, {1, 2, 3, 4}),      // sampled half as often
                               TimText(-0.01, 0.01, {1, 2, 3, 4}),  // started earlier
                               std::string(5000, '7')};
  for (const std::string& text : texts) {
    frontEnd.messages.clear();
    EXPECT_EQ(ImportTexts({first, text}), -1) << text;
    EXPECT_EQ(OnlyMessageHead(), kCannotRead) << text;
    EXPECT_FALSE(Has("new")) << text;
    EXPECT_EQ(MeasDB.hwSetupList.count(), 1);
    EXPECT_EQ(MeasDB.measSetupList.count(), 1);
    EXPECT_EQ(MeasDB.rawDataList.count(), 1);
  }
}

TEST_F(LoadTimeDataTest, ARefusalNamesFileLineAndCause) {
  const std::string good = TimText(0, 0.01, {1, 2, 3, 4});
  struct {
    const char *text, *cause;
  } const cases[] = {
      {"0 1\n0.01 2 9\n0.02 3\n",
       "line 2: more than the 2 fields of the format (commas separate fields; a decimal mark is a point)"},
      {"0 1\n0.01 2\n0.03 3\n0.04 5\n",
       "line 3: the times are not evenly spaced: the mean step is 0.014, and the one to 0.03 is another"},
      {"0 1\n0.01 2\n0.01 3\n", "line 3: the times do not ascend: 0.01 comes after 0.01"},
      {"0 1\n0.01 inf\n0.02 3\n", "line 2: the value is not a finite number"},
      {"0 1\nnothing\n", "line 2: the data end here, before two lines of a time and a value"},
      {"0 1.25\n0.01 2.25\n0.02 3.25\n0.03 4.",
       "line 4: the file breaks off in its last line, which is shorter than the others and has no line end"}};
  for (const auto& c : cases) {
    for (const bool later : {false, true}) {
      frontEnd.messages.clear();
      EXPECT_EQ(later ? ImportTexts({good, c.text}) : ImportTexts({c.text, good}), -1) << c.text;
      // A later file skips lines without a value up to the length of the first.
      if (later && std::string(c.text).find("nothing") != std::string::npos) continue;
      EXPECT_EQ(OnlyMessageCause(), folder.File(later ? "r2" : "r1") + ", " + c.cause);
      EXPECT_FALSE(Has("new"));
    }
  }
  frontEnd.messages.clear();
  EXPECT_EQ(ImportTexts({good, TimText(0.01, 0.01, {1, 2, 3, 4})}), -1);
  EXPECT_EQ(OnlyMessageCause(), folder.File("r2") + ", line 1: another time than in the first file");
}

TEST_F(LoadTimeDataTest, DecimalCommasAreRefused) {
  EXPECT_EQ(ImportTexts({"0,000 1,5\n0,001 2,5\n0,002 3,5\n"}), -1);
  EXPECT_THAT(OnlyMessageCause(), ::testing::HasSubstr(", line 1: more than the 2 fields"));
}

/// Texts of the findings of a kind.
std::vector<std::string> Told(FindingKind kind) {
  std::vector<std::string> texts;
  for (const Finding& f : Findings())
    if (f.kind == kind) texts.push_back(f.text);
  return texts;
}

TEST_F(LoadTimeDataTest, WhatIsTakenThoughItLooksWrongIsTold) {
  ASSERT_EQ(ImportTexts({TimText(0, 0.01, {1, 2, 3, 4}), TimText(0, 0.01, {0, 0, 0, 0}),
                         TimText(0, 0.01, {1, 2, 3, 4, 5, 6}), TimText(0, 0.01, {1, 2, 3})}),
            0);
  const std::string r1 = folder.File("r1");
  EXPECT_THAT(Told(FindingKind::Doubt),
              ElementsAre(folder.File("r2") + ": channel 2 holds only zeros",
                          r1 + " is the first file and has 4 lines, fewer than the 6 of " +
                              folder.File("r3") + "; the first file sets the length of all",
                          folder.File("r4") + " has 3 lines, fewer than the 4 of " + r1 +
                              "; the rest of its channel repeats the last value"));
}

TEST_F(LoadTimeDataTest, LinesBehindTheEndOfTheDataAndWithoutAValueAreTold) {
  ASSERT_EQ(ImportTexts({"0 1\n0.01 2\n0.02 3\n0.03 4\n\n0.05 6\n0.06 7\n", "0 1\n0.01\n0.02 3\n0.03 7"}), 0);
  EXPECT_THAT(
      Told(FindingKind::Doubt),
      ElementsAre(
          folder.File("r1") + ": the data end after line 4, and 2 more lines with numbers are not read",
          folder.File("r2") + ": 1 lines lack a value, which counts as 0; the first is line 2"));
  EXPECT_THAT(
      Told(FindingKind::Note),
      ElementsAre(
          folder.File("r2") +
          ": the last line has no line end; if the file was cut off there, its last number is wrong"));
}

TEST_F(LoadTimeDataTest, AGoodImportAndARefusedOneTellNothing) {
  const std::string good = TimText(0, 0.01, {1, 2, 3, 4});
  ASSERT_EQ(ImportTexts({good, good}), 0);
  EXPECT_TRUE(Findings().empty());
  frontEnd.confirmAnswers = {true};
  ASSERT_EQ(ImportTexts({TimText(0, 0.01, {0, 0, 0, 0}), "0 1 2 3\n"}), -1);
  EXPECT_TRUE(Findings().empty());
}

TEST_F(LoadTimeDataTest, AMissingLaterFileTakesTheMeasurementAway) {
  EXPECT_EQ(Import({.kind = ImportKind::TimeHistory,
                    .files = {Write("a", TimText(0, 0.01, {1, 2})), folder.File("nothing there")}}),
            -1);
  EXPECT_EQ(OnlyMessageHead(), kCannotRead);
  EXPECT_FALSE(Has("new"));
}

TEST_F(LoadTimeDataTest, ValuesWhosePowerLeavesTheRangeAreRefused) {
  EXPECT_EQ(ImportTexts({TimText(0, 0.01, {1, 2e200, 3, 4})}), -1);
  EXPECT_EQ(OnlyMessageHead(), kCannotRead);
  EXPECT_FALSE(Has("new"));
}

TEST_F(LoadTimeDataTest, MoreSamplesThanAnyFixedTable) {
  std::vector<double> values(100000);
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = static_cast<double>(i % 17);
  ASSERT_EQ(ImportTexts({TimText(0, 0.001, values)}), 0);
  EXPECT_EQ(Hardware().nLines, 65536);
  EXPECT_EQ(Samples(0)[99999], values[99999]);
  EXPECT_EQ(Samples(0)[131071], values[99999]);
}

TEST_F(LoadTimeDataTest, OverwritingLeavesNothingOfTheOldRecords) {
  AddMeasurement({.measID = "new", .nChannels = 3, .nLines = 64});
  MeasRecords old;
  GetInfoFromKey(GetKeyFromID("ProjID", "new"), old);
  old.hwSetup->sensorType = 2;
  old.hwSetup->reservedInt = 5;
  old.measSetup->wlenFilter = 9;
  frontEnd.confirmAnswers = {true};
  ASSERT_EQ(ImportTexts({TimText(0, 0.01, {1, 2, 3, 4}), TimText(0, 0.01, {1, 2, 3, 4})}), 0);
  EXPECT_EQ(Hardware().sensorType, 0);
  EXPECT_EQ(Hardware().reservedInt, 0);
  EXPECT_EQ(MeasurementSetup().wlenFilter, 0);
  EXPECT_EQ(Hardware().nChannels, 2);
  EXPECT_EQ(Data().timeHist.size(), 8u);
  EXPECT_EQ(MeasDB.hwSetupList.count(), 2);
}

}  // namespace
}  // namespace sondera::testing
