// Import of transfer functions and cross power spectra from text files made by hand.
#include "project/import_spectra.h"

#include <cmath>
#include <numbers>

#include "runtime/findings.h"
#include "runtime/text_format.h"
#include "support/import_fixture.h"

namespace sondera::testing {
namespace {

using Complex = std::complex<double>;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

/// Some value of a line and a channel, without symmetry.
Complex Value(int channel, int i) {
  return {0.3 + channel + 0.01 * i, 0.7 * std::sin(0.37 * i + channel)};
}

class SpectrumImport : public ImportTest {
 protected:
  /// File of `count` lines from f0 with Value(channel, index of the line).
  std::string File(int channel, int count, double f0 = 0.0, double df = 0.5) {
    const int first = static_cast<int>(std::lround(f0 / df));
    return Write(FormatText("f%d_%d_%g_%g", channel, count, f0, df),
                 SpectrumText(f0, df, count, [&](int i) { return Value(channel, first + i); }));
  }
};

// --- .Hyx ---

class LoadHyxDataTest : public SpectrumImport {};

TEST_F(LoadHyxDataTest, OneLineMoreThanAPowerOfTwoIsDropped) {
  ASSERT_EQ(Import({.files = {File(1, 1025)}}), 0);
  const HWSetup& hw = Hardware();
  EXPECT_EQ(hw.nLines, 1024);
  EXPECT_EQ(hw.stopFreq, 511.5);
  EXPECT_EQ(Data().crossSpecRe.size(), 2u * 1024u * 2u);
  EXPECT_EQ(Cross(1, 1023), Value(1, 1023));
  EXPECT_EQ(Cross(1, 1024), 0.0) << "the dropped line is not stored between the halves";
  EXPECT_EQ(Cross(1, 1025), std::conj(Value(1, 1023)));
}

TEST_F(LoadHyxDataTest, AFileThatStartsAtFiveHertzLeavesTheLinesBelowZero) {
  ASSERT_EQ(Import({.files = {File(1, 191, 5.0)}}), 0);
  const HWSetup& hw = Hardware();
  EXPECT_EQ(hw.startFreq, 5.0);
  EXPECT_EQ(hw.stopFreq, 100.0);
  EXPECT_EQ(hw.spanKind, 1);
  EXPECT_EQ(hw.nLines, 256);
  for (int i = 0; i < 256; ++i) ASSERT_EQ(Cross(1, i), i >= 10 && i <= 200 ? Value(1, i) : 0.0) << i;
  for (int i = 1; i < 256; ++i) ASSERT_EQ(Cross(1, 512 - i), std::conj(Cross(1, i))) << i;
  for (int i = 0; i < 256; ++i) ASSERT_EQ(Cross(0, i), 1.0) << i;
}

TEST_F(LoadHyxDataTest, RecordFields) {
  ASSERT_EQ(Import({.receivers = 3, .files = {File(1, 16), File(2, 16)}, .locations = {2, 5, 11, 30}}), 0);
  const HWSetup& hw = Hardware();
  EXPECT_EQ(hw.nChannels, 3);
  EXPECT_EQ(hw.nLines, 16);
  EXPECT_EQ(hw.freqSpan, -7.5);
  EXPECT_DOUBLE_EQ(hw.deltaT, 0.5 / 7.5);
  EXPECT_DOUBLE_EQ(hw.timeLength, 31 * 0.5 / 7.5);
  EXPECT_EQ(hw.deltaF, 0.5);
  EXPECT_EQ(hw.decimation, 1);
  EXPECT_THAT(hw.coupling, ElementsAre(0, 0, 0));
  EXPECT_THAT(hw.grounding, ElementsAre(1, 1, 1));
  EXPECT_THAT(hw.inputRange, ElementsAre(5.0, 5.0, 0.0));
  EXPECT_EQ(hw.triggerDelay, 10.0);
  EXPECT_EQ(hw.triggerLevel, 0.05);
  EXPECT_EQ(MeasurementSetup().srcLoc, 2.0);
  EXPECT_THAT(MeasurementSetup().recLoc, ElementsAre(5, 11, 30));
  for (double v : Data().timeHist) ASSERT_EQ(v, 0.0);
  for (double v : Data().powerSpec) ASSERT_EQ(v, 0.0);
}

TEST_F(LoadHyxDataTest, WithAnInstrumentedSourceEveryChannelIsDividedByTheFirst) {
  ASSERT_EQ(Import({.receivers = 3, .source = true, .files = {File(1, 16), File(2, 16), File(3, 16)}}), 0);
  for (int c = 0; c < 3; ++c) {
    for (int i = 0; i < 16; ++i) {
      const Complex wanted = Value(c + 1, i) / Value(1, i);
      ASSERT_NEAR(std::abs(Cross(c, i) - wanted), 0.0, 1e-14) << c << " " << i;
      if (i > 0) {
        ASSERT_EQ(Cross(c, 32 - i), std::conj(Cross(c, i)));
      }
    }
  }
  for (int i = 0; i < 16; ++i) EXPECT_NEAR(std::abs(Cross(0, i) - 1.0), 0.0, 1e-15);
}

TEST_F(LoadHyxDataTest, ALineWhereTheFirstChannelIsZeroIsZeroInAllWithAnInstrumentedSource) {
  const std::string zero = "0 1 1\n1 0 0\n2 3 1\n3 1 1\n";
  const std::string other = "0 1 1\n1 5 5\n2 2 2\n3 4 4\n";
  ASSERT_EQ(Import({.source = true, .files = {Write("h10", zero), Write("h20", other)}}), 0);
  EXPECT_EQ(Cross(0, 1), 0.0);
  EXPECT_EQ(Cross(1, 1), 0.0);
  EXPECT_EQ(Cross(1, 3), 4.0);
}

TEST_F(LoadHyxDataTest, AMissingTokenIsZero) {
  ASSERT_EQ(Import({.files = {Write("h", "0 1 2\n1 3\n2\n3 4 5\n")}}), 0);
  EXPECT_EQ(Cross(1, 0), Complex(1, 2));
  EXPECT_EQ(Cross(1, 1), Complex(3, 0));
  EXPECT_EQ(Cross(1, 2), 0.0);
  EXPECT_EQ(Cross(1, 3), Complex(4, 5));
}

TEST_F(LoadHyxDataTest, AShorterLaterFileLeavesZeros) {
  ASSERT_EQ(Import({.receivers = 3, .files = {File(1, 16), File(2, 5)}}), 0);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(Cross(2, i), i < 5 ? Value(2, i) : 0.0) << i;
}

TEST_F(LoadHyxDataTest, ALongerLaterFileIsReadToTheEndOfTheRecord) {
  ASSERT_EQ(Import({.receivers = 3, .files = {File(1, 12), File(2, 40)}}), 0);
  ASSERT_EQ(Hardware().nLines, 16);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(Cross(2, i), Value(2, i)) << i;
  EXPECT_EQ(Cross(2, 16), 0.0);
}

TEST_F(LoadHyxDataTest, DExponentsCommasTabsAndCrLf) {
  ASSERT_EQ(Import({.files = {Write("h", "0,1.5D-01,0\r\n1\t2d0\t-3D+2\r\n2 , 1 , 1\r\n3 0 0\r\n")}}), 0);
  EXPECT_EQ(Cross(1, 0), 0.15);
  EXPECT_EQ(Cross(1, 1), Complex(2, -300));
}

TEST_F(LoadHyxDataTest, ANegativeFirstFrequencyCountsAsZeroButNotForTheSpacing) {
  ASSERT_EQ(Import({.files = {Write("h", "-1 1 0\n0 2 0\n1 3 0\n2 4 0\n")}}), 0);
  EXPECT_EQ(Hardware().deltaF, 1.0);
  EXPECT_EQ(Hardware().startFreq, 0.0);
  EXPECT_EQ(Hardware().spanKind, 0);
  EXPECT_EQ(Hardware().stopFreq, 2.0);
  EXPECT_EQ(Cross(1, 0), 1.0);
}

TEST_F(LoadHyxDataTest, TheIdMeasIDNeverAsks) {
  ASSERT_EQ(Import({.measID = "measID", .files = {File(1, 16)}}), 0);
  EXPECT_THAT(frontEnd.questions, IsEmpty());
  EXPECT_EQ(Hardware("measID").nLines, 16);
  EXPECT_EQ(Hardware("measID").nChannels, 2);
  EXPECT_EQ(MeasDB.idList.count(), 1);
}

TEST_F(LoadHyxDataTest, AnotherIdThatExistsAsksAndStopsOnNo) {
  ASSERT_EQ(Import({.files = {File(1, 16)}}), 0);
  frontEnd.confirmAnswers = {false};
  EXPECT_EQ(Import({.files = {File(1, 64)}}), -1);
  EXPECT_THAT(frontEnd.questions, ElementsAre("The same measurement ID is in the list. Overwrite it ?"));
  EXPECT_THAT(frontEnd.messages, IsEmpty());
  EXPECT_EQ(Hardware().nLines, 16);
  EXPECT_EQ(Cross(1, 3), Value(1, 3));
}

TEST_F(LoadHyxDataTest, OverwritingKeepsTheFieldsThatNoImportSets) {
  ASSERT_EQ(Import({.files = {File(1, 16)}}), 0);
  MeasRecords records;
  const int key = GetInfoFromKey(GetKeyFromID("ProjID", "new"), records);
  records.hwSetup->sensorType = 2;
  frontEnd.confirmAnswers = {true};
  ASSERT_EQ(Import({.receivers = 3, .files = {File(1, 64), File(2, 64)}}), 0);
  EXPECT_EQ(GetKeyFromID("ProjID", "new"), key);
  EXPECT_EQ(Hardware().sensorType, 2);
  EXPECT_EQ(Hardware().nChannels, 3);
  EXPECT_EQ(Data().crossSpecRe.size(), 2u * 64u * 3u);
  EXPECT_EQ(MeasDB.hwSetupList.count(), 2);
  EXPECT_EQ(MeasDB.rawDataList.count(), 2);
}

TEST_F(LoadHyxDataTest, WhatIsNoSpectrumIsRefusedAndChangesNothing) {
  const char* texts[] = {"",
                         "0 1 2\n",
                         "\n0 1 2\n1 1 2\n",
                         "0 1 2\n1 3 4\n",  // two lines from 0: one would be left
                         "0 1 2\n0 1 2\n0 1 2\n",
                         "2 1 2\n1 1 2\n0 1 2\n",
                         "0 1 2\n1 nan 2\n2 1 2\n3 1 1\n",
                         "0 1 2\n1 1 -inf\n2 1 2\n3 1 1\n",
                         "0 1 2\n1 1 2i\n2 1 2\n3 1 1\n",
                         "f re im\n0 1 2\n1 1 2\n2 1 2\n",
                         "1e9 1 2\n1000000001 1 2\n"};  // a thousand million lines below them
  for (const char* text : texts) {
    frontEnd.messages.clear();
    EXPECT_EQ(Import({.files = {Write("h", text)}}), -1) << text;
    EXPECT_EQ(OnlyMessageHead(), kCannotRead) << text;
    EXPECT_FALSE(Has("new")) << text;
  }
}

TEST_F(LoadHyxDataTest, ANumberThatIsNotUsedDoesNoHarm) {
  std::string text = SpectrumText(0, 1, 5, [](int i) { return Value(1, i); });
  text += "\n";
  text.replace(text.rfind("4 "), std::string::npos, "4 nan nan\n");  // the line that is dropped
  ASSERT_EQ(Import({.files = {Write("h", text)}}), 0);
  EXPECT_EQ(Hardware().nLines, 4);
  EXPECT_EQ(Cross(1, 3), Value(1, 3));
}

TEST_F(LoadHyxDataTest, ALaterFileThatFailsTakesTheMeasurementAway) {
  const std::string texts[] = {
      "",
      "0 1 1\n",
      "0 1 1\n0.5 nan 1\n1 1 1\n",
      "0 1 1\n0.5 1 x\n1 1 1\n",
      SpectrumText(0, 1.0, 16, [](int i) { return Value(2, i); }),     // twice the spacing
      SpectrumText(0, 0.55, 16, [](int i) { return Value(2, i); }),    // one line off at the end
      SpectrumText(2.0, 0.5, 16, [](int i) { return Value(2, i); })};  // a band
  for (const std::string& text : texts) {
    frontEnd.messages.clear();
    EXPECT_EQ(Import({.receivers = 3, .files = {File(1, 16), Write("later", text)}}), -1) << text;
    EXPECT_EQ(OnlyMessageHead(), kCannotRead) << text;
    EXPECT_FALSE(Has("new")) << text;
  }
  EXPECT_EQ(Import({.receivers = 3, .files = {File(1, 16), folder.File("missing")}}), -1);
  EXPECT_FALSE(Has("new"));
}

TEST_F(LoadHyxDataTest, OnOverwriteFollowedByAFailureTheOldMeasurementIsGone) {
  ASSERT_EQ(Import({.files = {File(1, 16)}}), 0);
  frontEnd.confirmAnswers = {true};
  EXPECT_EQ(Import({.receivers = 3, .files = {File(1, 16), folder.File("missing")}}), -1);
  EXPECT_FALSE(Has("new"));
}

TEST_F(LoadHyxDataTest, AFailureOfTheFirstFileLeavesTheOldMeasurementAndDoesNotAsk) {
  ASSERT_EQ(Import({.files = {File(1, 16)}}), 0);
  frontEnd.confirmAnswers = {true};
  EXPECT_EQ(Import({.files = {folder.File("missing")}}), -1);
  EXPECT_EQ(Import({.files = {Write("h", "nothing\n")}}), -1);
  EXPECT_THAT(frontEnd.questions, IsEmpty());
  EXPECT_EQ(Cross(1, 3), Value(1, 3));
}

TEST_F(LoadHyxDataTest, MoreLinesThanAnyFixedTable) {
  ASSERT_EQ(Import({.files = {File(1, 40000, 0.0, 0.25)}}), 0);
  EXPECT_EQ(Hardware().nLines, 65536);
  EXPECT_EQ(Cross(1, 39999), Value(1, 39999));
  EXPECT_EQ(Cross(1, 40000), 0.0);
}

TEST_F(LoadHyxDataTest, ARefusalNamesFileLineAndCause) {
  struct {
    const char *text, *cause;
  } const cases[] = {
      {"0 1 2\n0,5 1,25 2\n1 1 2\n",
       "line 2: more than the 3 fields of the format (commas separate fields; a decimal mark is a point)"},
      {"0 1 2\n0.5 1 2\n1.5 1 2\n2 1 2\n",
       "line 3: the frequencies are not evenly spaced: the mean step is 0.7, and the one to 1.5 is another"},
      {"0 1 2\n0.5 1 2\n0.4 1 2\n", "line 3: the frequencies do not ascend: 0.4 comes after 0.5"},
      {"0 1\n0.5 1\n1 1\n1.5 1\n",
       "line 1: two columns are not a complex spectrum: frequency, real and imaginary part"},
      {"0 1 2\n0.5 1 2\n1 1 2\n1.5 1",
       "line 4: the file breaks off in its last line, which is shorter than the others and has no line end"},
      {"0 1 2\n0.5 nan 2\n1 1 2\n", "line 2: a value is not a finite number"},
      {"0 1 2\n\n", "line 2: the data end here, before two lines"}};
  for (const auto& c : cases) {
    frontEnd.messages.clear();
    EXPECT_EQ(Import({.files = {Write("h", c.text)}}), -1) << c.text;
    EXPECT_EQ(OnlyMessageHead(), kCannotRead);
    EXPECT_EQ(OnlyMessageCause(), folder.File("h") + ", " + c.cause);
    frontEnd.messages.clear();
    EXPECT_EQ(Import({.receivers = 3, .files = {File(1, 16), Write("later", c.text)}}), -1) << c.text;
    EXPECT_EQ(OnlyMessageCause(), folder.File("later") + ", " + c.cause);
    EXPECT_FALSE(Has("new"));
  }
  frontEnd.messages.clear();
  EXPECT_EQ(Import({.files = {folder.File("missing")}}), -1);
  EXPECT_EQ(OnlyMessageCause(), "Cannot read " + folder.File("missing") + ": No such file or directory");
  EXPECT_TRUE(Findings().empty());
}

TEST_F(LoadHyxDataTest, ABandThatBeginsAboveZeroAndLinesWithoutAPlaceAreTold) {
  ASSERT_EQ(Import({.files = {File(1, 189, 6.0)}}), 0);
  ASSERT_EQ(Findings().size(), 1u);
  EXPECT_EQ(Findings()[0].text,
            "new begins at 6 Hz: cycles below 6 Hz cannot be counted; keep the lines from 0 Hz on in the "
            "files, or mask "
            "with the number of cycles");
  ClearFindings();
  ASSERT_EQ(Import({.measID = "whole", .files = {File(1, 17)}}), 0);
  ASSERT_EQ(Findings().size(), 1u);
  EXPECT_EQ(Findings()[0], (Finding{FindingKind::Note,
                                    "whole: a record of 16 lines cannot hold the last 1 of the "
                                    "files, up to 8 Hz"}));
  ClearFindings();
  ASSERT_EQ(Import({.measID = "band", .files = {File(1, 17, 0.5)}}), 0) << "16 lines from 0 Hz on";
  ASSERT_EQ(Findings().size(), 2u);
  EXPECT_EQ(Findings()[0].kind, FindingKind::Doubt);
  EXPECT_EQ(Findings()[0].text,
            "band: a record of 16 lines cannot hold the last 2 of the files, up to 8.5 Hz");
}

TEST_F(LoadHyxDataTest, ZerosAndLengthsAreTold) {
  const std::string zeros = SpectrumText(0, 0.5, 16, [](int) { return Complex(); });
  ASSERT_EQ(Import({.receivers = 4, .files = {File(1, 16), Write("zeros", zeros), File(3, 5)}}), 0);
  ASSERT_EQ(Findings().size(), 2u);
  EXPECT_EQ(Findings()[0],
            (Finding{FindingKind::Doubt, folder.File("zeros") + ": channel 3 holds only zeros"}));
  EXPECT_EQ(Findings()[1].text, File(3, 5) + " has 5 lines, fewer than the 16 of " + File(1, 16) +
                                    "; the rest of its channel is 0");
  ClearFindings();
  ASSERT_EQ(Import({.measID = "longer", .receivers = 3, .files = {File(1, 16), File(2, 40)}}), 0);
  ASSERT_EQ(Findings().size(), 1u);
  EXPECT_EQ(Findings()[0].text, File(1, 16) + " is the first file and has 16 lines, fewer than the 40 of " +
                                    File(2, 40) + "; the first file sets the length of all");
}

// --- .Gyx ---

class LoadGyxDataTest : public SpectrumImport {
 protected:
  int ImportCross(int receivers, bool source, const std::vector<std::string>& files,
                  const std::string& id = "new") {
    return Import({.kind = ImportKind::CrossSpectrum,
                   .measID = id,
                   .receivers = receivers,
                   .source = source,
                   .files = files});
  }
};

/// A line of a cross spectrum as it is stored: real at 0 Hz.
Complex Stored(int channel, int i) {
  return i == 0 ? Complex(Value(channel, 0).real()) : Value(channel, i);
}

TEST_F(LoadGyxDataTest, WithoutASourceEveryRowIsAChannel) {
  ASSERT_EQ(ImportCross(3, false, {File(1, 17), File(2, 17), File(3, 17)}), 0);
  EXPECT_EQ(Hardware().nLines, 16);
  for (int c = 0; c < 3; ++c) {
    for (int i = 0; i < 16; ++i) {
      EXPECT_EQ(Cross(c, i), Stored(c + 1, i)) << c << " " << i;
      if (i > 0) {
        EXPECT_EQ(Cross(c, 32 - i), std::conj(Cross(c, i)));
      }
    }
    EXPECT_EQ(Cross(c, 16), 0.0);
  }
}

TEST_F(LoadGyxDataTest, TheImaginaryPartAtZeroHertzIsNotRead) {
  ASSERT_EQ(ImportCross(1, false, {Write("g", "0 3 what\n1 2 5\n2 1 1\n3 1 1\n")}), 0);
  EXPECT_EQ(Cross(0, 0), 3.0);
  EXPECT_EQ(Cross(0, 1), Complex(2, 5));
  ASSERT_EQ(ImportCross(1, false, {File(1, 21, 4.0)}, "band"), 0);
  EXPECT_EQ(Cross(0, 8, "band"), Value(1, 8)) << "a band's first line is not at 0 Hz";
}

TEST_F(LoadGyxDataTest, AnEmptyFirstRowIsUnityOverTheWholeChannel) {
  ASSERT_EQ(ImportCross(2, false, {"", File(2, 16)}), 0);
  for (int i = 0; i < 32; ++i) EXPECT_EQ(Cross(0, i), 1.0) << i;
  EXPECT_EQ(Cross(1, 5), Value(2, 5));
}

TEST_F(LoadGyxDataTest, APowerSpectrumMayHaveTwoColumnsAndACrossSpectrumNot) {
  const std::string two = "0 1\n0.5 2\n1 3\n1.5 4\n";
  ASSERT_EQ(ImportCross(2, false, {Write("g11", two), File(2, 4)}), 0);
  EXPECT_EQ(Cross(0, 2), 3.0);
  EXPECT_TRUE(Findings().empty());
  EXPECT_EQ(ImportCross(2, false, {File(1, 4), Write("g21", two)}, "other"), -1);
  EXPECT_EQ(OnlyMessageCause(),
            folder.File("g21") +
                ", line 1: two columns are not a complex spectrum: frequency, real and imaginary part");
  EXPECT_FALSE(Has("other"));
}

TEST_F(LoadGyxDataTest, AMissingLaterFileIsRefused) {
  EXPECT_EQ(ImportCross(2, false, {File(1, 16), ""}), -1);
  EXPECT_EQ(OnlyMessageHead(), kCannotRead);
  EXPECT_FALSE(Has("new"));
}

TEST_F(LoadGyxDataTest, AFirstFileThatIsNamedButNotThereIsRefused) {
  EXPECT_EQ(ImportCross(2, false, {folder.File("missing"), File(2, 16)}), -1);
  EXPECT_EQ(OnlyMessageHead(), kCannotRead);
  EXPECT_FALSE(Has("new"));
}

TEST_F(LoadGyxDataTest, NoRowAtAllIsRefused) {
  EXPECT_EQ(ImportCross(2, false, {}), -1);
  EXPECT_EQ(ImportCross(2, true, {}), -1);
  EXPECT_THAT(frontEnd.messages, ElementsAre(StartsWith(kCannotRead), StartsWith(kCannotRead)));
  EXPECT_FALSE(Has("new"));
}

TEST_F(LoadGyxDataTest, WithASourceChannelsAreExpressedAgainstTheFirstReceiver) {
  ASSERT_EQ(ImportCross(3, true, {File(8, 16), File(9, 16), File(1, 16), File(2, 16), File(3, 16)}), 0);
  for (int c = 0; c < 3; ++c) {
    for (int i = 0; i < 16; ++i) {
      const Complex wanted = Stored(c + 1, i) / Stored(1, i);
      ASSERT_NEAR(std::abs(Cross(c, i) - wanted), 0.0, 1e-14) << c << " " << i;
    }
  }
  EXPECT_NEAR(std::abs(Cross(0, 7) - 1.0), 0.0, 1e-15);
}

TEST_F(LoadGyxDataTest, WithASourceThePhaseIsThatOfTheTransferFunctionBetweenReceivers) {
  // Spectra of a source and two receivers at known delays: G10 = X1 conj(X0), G20 = X2 conj(X0).
  const auto at = [](double delay) {
    return SpectrumText(0, 1, 32,
                        [delay](int i) { return 4.0 * std::polar(1.0, -2 * std::numbers::pi * i * delay); });
  };
  ASSERT_EQ(ImportCross(2, true, {"", "", Write("g10", at(0.010)), Write("g20", at(0.025))}), 0);
  for (int i = 1; i < 32; ++i) {
    const Complex wanted = std::polar(1.0, -2 * std::numbers::pi * i * 0.015);
    EXPECT_NEAR(std::abs(Cross(1, i) - wanted), 0.0, 1e-9) << i;
  }
}

TEST_F(LoadGyxDataTest, WithASourceTheAutoSpectraMayBeMissing) {
  ASSERT_EQ(ImportCross(2, true, {"", "", File(1, 16), File(2, 16)}), 0);
  ASSERT_EQ(ImportCross(2, true, {File(8, 16), File(9, 16), File(1, 16), File(2, 16)}, "all"), 0);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(Cross(1, i), Cross(1, i, "all")) << i;
}

TEST_F(LoadGyxDataTest, TheFirstRowThatIsNotEmptyFixesTheLines) {
  ASSERT_EQ(ImportCross(2, true, {"", File(9, 16), File(1, 40), File(2, 40)}), 0);
  EXPECT_EQ(Hardware().nLines, 16);
}

TEST_F(LoadGyxDataTest, WithASourceTheCrossSpectrumOfTheFirstReceiverMustBeThere) {
  EXPECT_EQ(ImportCross(2, true, {File(8, 16), File(9, 16), "", File(2, 16)}), -1);
  EXPECT_EQ(OnlyMessageHead(), kCannotRead);
  EXPECT_FALSE(Has("new"));
  frontEnd.messages.clear();
  EXPECT_EQ(ImportCross(2, true, {"", "", "", File(2, 16)}), -1);
  EXPECT_EQ(OnlyMessageHead(), kCannotRead);
  EXPECT_FALSE(Has("new"));
  frontEnd.messages.clear();
  EXPECT_EQ(ImportCross(2, true, {"", "", File(1, 16), ""}), -1);
  EXPECT_EQ(OnlyMessageHead(), kCannotRead);
  EXPECT_FALSE(Has("new"));
}

TEST_F(LoadGyxDataTest, ALineWithoutPowerAtTheFirstReceiverIsZero) {
  const std::string g10 = "0 1 0\n1 0 0\n2 1 1\n3 2 0\n", g20 = "0 1 0\n1 7 7\n2 1 1\n3 3 4\n";
  ASSERT_EQ(ImportCross(2, true, {"", "", Write("g10", g10), Write("g20", g20)}), 0);
  EXPECT_EQ(Cross(0, 1), 0.0);
  EXPECT_EQ(Cross(1, 1), 0.0);
  EXPECT_EQ(Cross(1, 3), Complex(1.5, 2.0));
}

TEST_F(LoadGyxDataTest, ANameLeftInARowThatIsNotShownIsNotUsed) {
  EXPECT_EQ(ImportCross(2, false, {"", "", File(3, 16)}), -1);
  EXPECT_FALSE(Has("new"));
}

TEST_F(LoadGyxDataTest, TheIdMeasIDIsAskedAbout) {
  EXPECT_EQ(ImportCross(2, false, {File(1, 16), File(2, 16)}, "measID"), -1);
  EXPECT_EQ(frontEnd.questions.size(), 1u);
}

}  // namespace
}  // namespace sondera::testing
