// Imports of measured records (support/field_data.h): sampling, spot values to all digits that were computed
// apart from this project, and the universal files as they are accepted or refused.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "runtime/text_format.h"
#include "support/field_data.h"
#include "support/import_fixture.h"

namespace sondera::testing {
namespace {

class ImportOfRecords : public ImportTest {
 protected:
  void SetUp() override {
    ImportTest::SetUp();
    SKIP_WITHOUT_FIELD_DATA("wghs_src-10m");
  }
  static std::vector<std::string> Files(const std::string& folder, const std::vector<std::string>& names) {
    std::vector<std::string> files;
    for (const std::string& n : names) files.push_back(test::FieldFile(folder + "/" + n));
    return files;
  }
};

/// Agreement to the eight printed digits.
void ExpectPrinted(double value, double printed, double scale = 0.0) {
  EXPECT_NEAR(value, printed, 0.51e-7 * std::max(std::fabs(printed), scale));
}
void ExpectPrinted(std::complex<double> value, double re, double im) {
  // Each part has eight digits of its own; one of exactly 0 comes out of a transform within rounding.
  EXPECT_NEAR(value.real(), re, 0.51e-7 * std::pow(10.0, std::floor(std::log10(std::fabs(re))))) << value;
  const double unit =
      im == 0.0 ? 1e-8 * std::fabs(re) : std::pow(10.0, std::floor(std::log10(std::fabs(im))));
  EXPECT_NEAR(value.imag(), im, 0.51e-7 * unit) << value;
}

const std::vector<std::string> kSixReceivers = {"rec1.tim", "rec2.tim", "rec3.tim",
                                                "rec4.tim", "rec5.tim", "rec6.tim"};

struct SpectrumSpot {
  int channel, line;
  double re, im;
  double power = 0.0;
};

TEST_F(ImportOfRecords, HammerShotAtWghsInTimeHistories) {
  ASSERT_EQ(Import({.kind = ImportKind::TimeHistory,
                    .receivers = 6,
                    .files = Files("wghs_src-10m", kSixReceivers),
                    .locations = {-10, 0, 4, 10, 20, 30, 46}}),
            0);
  EXPECT_THAT(frontEnd.messages, ::testing::IsEmpty());
  const HWSetup& hw = Hardware();
  EXPECT_EQ(hw.nChannels, 6);
  EXPECT_EQ(hw.nLines, 1024);
  EXPECT_NEAR(hw.freqSpan, 500.0, 1e-9);
  EXPECT_NEAR(hw.deltaF, 0.48828125, 1e-12);
  EXPECT_NEAR(hw.deltaT, 0.001, 1e-15);
  EXPECT_NEAR(hw.timeLength, 2.047, 1e-12);
  EXPECT_NEAR(hw.triggerDelay, 33.3555704, 0.51e-7);
  EXPECT_EQ(MeasurementSetup().srcLoc, -10.0);
  EXPECT_THAT(MeasurementSetup().recLoc, ::testing::ElementsAre(0, 4, 10, 20, 30, 46));

  const RawData& raw = Data();
  ASSERT_EQ(raw.timeHist.size(), 6u * 2048u);
  EXPECT_EQ(raw.timeHist[0], -3.35371757);
  for (std::size_t i = 1499; i < 2048; ++i) ASSERT_EQ(raw.timeHist[i], -27.2168007) << i;

  for (const SpectrumSpot& s : {SpectrumSpot{0, 0, 6.9217612e+01, 0, 6.9217612e+01},
                                {0, 16, 1.1994882e+01, 0, 1.1994882e+01},
                                {0, 128, 1.0072078e+02, 0, 1.0072078e+02},
                                {0, 512, 4.5509361e-02, 0, 4.5509361e-02},
                                {5, 0, -2.5526172e+02, 0, 9.4135790e+02},
                                {5, 16, -1.4826085e+01, 9.2166097e+00, 2.5407393e+01},
                                {5, 128, -2.5538017e+00, 3.7644573e+00, 2.0544958e-01},
                                {5, 512, -5.8034672e-04, 1.9934548e-02, 8.7393670e-03}}) {
    SCOPED_TRACE(::testing::Message() << "channel " << s.channel << " line " << s.line);
    ExpectPrinted(Cross(s.channel, s.line), s.re, s.im);
    ExpectPrinted(
        raw.powerSpec[2048u * static_cast<std::size_t>(s.channel) + static_cast<std::size_t>(s.line)],
        s.power);
  }
}

TEST_F(ImportOfRecords, HammerShotAtOysandInTimeHistoriesNeedsNoPadding) {
  ASSERT_EQ(Import({.kind = ImportKind::TimeHistory,
                    .receivers = 6,
                    .files = Files("oysand_src20m", kSixReceivers),
                    .locations = {0, 20, 24, 34, 40, 50, 66}}),
            0);
  const HWSetup& hw = Hardware();
  EXPECT_EQ(hw.nLines, 1024);
  EXPECT_NEAR(hw.freqSpan, 500.0, 1e-9);
  EXPECT_NEAR(hw.deltaF, 0.48828125, 1e-12);
  EXPECT_NEAR(hw.deltaT, 0.001, 1e-15);
  EXPECT_NEAR(hw.timeLength, 2.047, 1e-12);
  EXPECT_EQ(hw.triggerDelay, 0.0);
  EXPECT_EQ(Data().timeHist[2047], 0.000108033918);

  for (const SpectrumSpot& s : {SpectrumSpot{0, 0, 3.9822758e-08, 0, 3.9822758e-08},
                                {0, 16, 4.7475072e-10, 0, 4.7475072e-10},
                                {0, 128, 2.6161029e-09, 0, 2.6161029e-09},
                                {0, 512, 1.6043623e-10, 0, 1.6043623e-10},
                                {5, 0, 3.8836990e-08, 0, 3.7875624e-08},
                                {5, 16, 1.0689504e-10, -3.5386046e-10, 2.8782214e-10},
                                {5, 128, -2.6900091e-10, 4.1548167e-10, 9.3645592e-11},
                                {5, 512, 6.7049157e-12, -3.1461528e-11, 6.4498127e-12}}) {
    SCOPED_TRACE(::testing::Message() << "channel " << s.channel << " line " << s.line);
    ExpectPrinted(Cross(s.channel, s.line), s.re, s.im);
    ExpectPrinted(
        Data().powerSpec[2048u * static_cast<std::size_t>(s.channel) + static_cast<std::size_t>(s.line)],
        s.power);
  }
}

void ExpectSpectrumSampling(const HWSetup& hw, int nLines, int spanKind, double startFreq, double stopFreq,
                            double freqSpan, double deltaF, double deltaT, double timeLength) {
  EXPECT_EQ(hw.nLines, nLines);
  EXPECT_EQ(hw.spanKind, spanKind);
  ExpectPrinted(hw.startFreq, startFreq);
  ExpectPrinted(hw.stopFreq, stopFreq, 10.0);
  ExpectPrinted(hw.freqSpan, freqSpan, 10.0);
  ExpectPrinted(hw.deltaF, deltaF);
  EXPECT_NEAR(hw.deltaT, deltaT, 0.51e-8 * deltaT * 10);
  EXPECT_NEAR(hw.timeLength, timeLength, 0.51e-8 * timeLength * 10);
}

TEST_F(ImportOfRecords, TransferFunctionsOfFiveBlowsDropTheLastLine) {
  ASSERT_EQ(Import({.receivers = 4,
                    .files = Files("wghs_src-10m", {"H21.Hyx", "H31.Hyx", "H41.Hyx"}),
                    .locations = {-10, 0, 10, 20, 30}}),
            0);
  ExpectSpectrumSampling(Hardware(), 512, 0, 0, 499.023438, -499.023438, 0.9765625, 0.00100195695,
                         1.02500196);
  for (const SpectrumSpot& s : {SpectrumSpot{0, 0, 1, 0},
                                {0, 40, 1, 0},
                                {0, 511, 1, 0},
                                {1, 0, -6.6285399e-01, 0},
                                {1, 40, 1.3652467e-01, -1.6580437e-01},
                                {1, 511, -4.0514798e-01, -1.0749577e-02},
                                {2, 0, 6.8455932e-01, 0},
                                {2, 40, -9.2728368e-02, -6.4236670e-02},
                                {2, 511, 9.9544995e-02, -1.0486843e-02},
                                {3, 0, -5.6175984e-02, 0},
                                {3, 40, -2.9884388e-02, -2.8906883e-02},
                                {3, 511, -1.1502173e-01, 2.3292679e-02}}) {
    SCOPED_TRACE(::testing::Message() << "channel " << s.channel << " line " << s.line);
    ExpectPrinted(Cross(s.channel, s.line), s.re, s.im);
    if (s.line > 0) {
      EXPECT_EQ(Cross(s.channel, 1024 - s.line), std::conj(Cross(s.channel, s.line)));
    }
  }
  for (int c = 0; c < 4; ++c) EXPECT_EQ(Cross(c, 512), 0.0) << "the entry between the halves stays empty";
}

TEST_F(ImportOfRecords, TransferFunctionsOfOneBlowDropTheLastLine) {
  ASSERT_EQ(Import({.receivers = 3,
                    .files = Files("oysand_src20m", {"H21.Hyx", "H31.Hyx"}),
                    .locations = {0, 20, 40, 50}}),
            0);
  ExpectSpectrumSampling(Hardware(), 1024, 0, 0, 499.511719, -499.511719, 0.48828125, 0.00100097752,
                         2.04900098);
  for (const SpectrumSpot& s : {SpectrumSpot{0, 0, 1, 0},
                                {0, 40, 1, 0},
                                {0, 1023, 1, 0},
                                {1, 0, 1.1342603, 0},
                                {1, 40, -4.4033635e-01, 2.7354340e-01},
                                {1, 1023, 2.1881665e-01, -2.5727518},
                                {2, 0, 1.2616939, 0},
                                {2, 40, 7.3731283e-01, 1.4943661e-01},
                                {2, 1023, -1.9455312, 5.2278415e-02}}) {
    SCOPED_TRACE(::testing::Message() << "channel " << s.channel << " line " << s.line);
    ExpectPrinted(Cross(s.channel, s.line), s.re, s.im);
  }
}

TEST_F(ImportOfRecords, BandOfATransferFunctionKeepsItsPlaceAndTheRestIsZero) {
  ASSERT_EQ(Import({.receivers = 3,
                    .files = Files("oysand_src20m", {"H21_band.Hyx", "H31_band.Hyx"}),
                    .locations = {0, 20, 40, 50}}),
            0);
  ExpectSpectrumSampling(Hardware(), 512, 1, 4.8828125, 200.195312, -249.511719, 0.48828125, 0.00200391389,
                         2.05000391);
  ASSERT_EQ(Import({.measID = "full",
                    .receivers = 3,
                    .files = Files("oysand_src20m", {"H21.Hyx", "H31.Hyx"}),
                    .locations = {0, 20, 40, 50}}),
            0);
  for (int c : {1, 2}) {
    for (int i = 0; i < 512; ++i) {
      const bool inBand = i >= 10 && i <= 410;
      ASSERT_EQ(Cross(c, i), inBand ? Cross(c, i, "full") : 0.0) << "channel " << c << " line " << i;
    }
  }
  for (int i = 0; i < 512; ++i) ASSERT_EQ(Cross(0, i), 1.0) << i;
}

TEST_F(ImportOfRecords, CrossSpectraGiveThePhasesOfTheTransferFunctions) {
  const std::vector<double> at = {-10, 0, 10, 20, 30};
  ASSERT_EQ(Import({.receivers = 4,
                    .files = Files("wghs_src-10m", {"H21.Hyx", "H31.Hyx", "H41.Hyx"}),
                    .locations = at}),
            0);
  ASSERT_EQ(Import({.kind = ImportKind::CrossSpectrum,
                    .measID = "cross",
                    .receivers = 4,
                    .files = Files("wghs_src-10m", {"G11.Gyx", "G21.Gyx", "G31.Gyx", "G41.Gyx"}),
                    .locations = at}),
            0);
  EXPECT_EQ(Hardware("cross").nLines, 512);
  for (int c = 1; c < 4; ++c) {
    for (int i = 0; i < 512; ++i) {
      const std::complex<double> h = Cross(c, i, "cross") / Cross(0, i, "cross");
      ASSERT_NEAR(std::abs(h - Cross(c, i)), 0.0, 3e-8 * std::abs(h)) << "channel " << c << " line " << i;
    }
  }
}

// --- universal files ---

constexpr char kWrongType[] = "Error: The data type is not matched.";
constexpr char kNot58[] = "Error: The file is not in 58 format.";

double PhaseDegrees(std::complex<double> h) {
  return std::arg(h) * 180.0 / std::numbers::pi;
}

TEST_F(ImportOfRecords, UniversalFilesGiveThePhasesOfTheTextFiles) {
  const std::vector<double> at = {-10, 0, 10, 20, 30};
  ASSERT_EQ(Import({.receivers = 4,
                    .files = Files("wghs_src-10m", {"H21.Hyx", "H31.Hyx", "H41.Hyx"}),
                    .locations = at}),
            0);
  ASSERT_EQ(Import({.kind = ImportKind::TransferFunction58,
                    .measID = "uff",
                    .receivers = 4,
                    .files = Files("uff58/from_record",
                                   {"H21_type4_ord5.uff", "H31_type4_ord6.uff", "H41_type3_ord5.uff"}),
                    .locations = at}),
            0);
  ExpectSpectrumSampling(Hardware("uff"), 512, 0, 0, 499.023182, -499.023182, 0.976562, 0.00100195746,
                         1.02500248);
  for (int c = 1; c < 4; ++c) {
    for (int i = 0; i < 512; ++i) {
      double difference = PhaseDegrees(Cross(c, i, "uff")) - PhaseDegrees(Cross(c, i));
      difference -= 360.0 * std::round(difference / 360.0);
      ASSERT_NEAR(difference, 0.0, 1e-3) << "channel " << c << " line " << i;
    }
  }
  for (int i = 0; i < 512; ++i) ASSERT_EQ(Cross(0, i, "uff"), 1.0);
}

TEST_F(ImportOfRecords, ASetOfTheRightTypeIsFoundBehindATimeRecordInALaterFile) {
  const std::vector<double> at = {-10, 0, 10, 20};
  ASSERT_EQ(Import({.kind = ImportKind::TransferFunction58,
                    .receivers = 3,
                    .files = Files("uff58/from_record", {"H21_type4_ord5.uff", "time_then_H31.uff"}),
                    .locations = at}),
            0);
  ASSERT_EQ(Import({.measID = "text",
                    .receivers = 3,
                    .files = Files("wghs_src-10m", {"H21.Hyx", "H31.Hyx"}),
                    .locations = at}),
            0);
  for (int i = 0; i < 512; ++i)
    ASSERT_NEAR(std::abs(Cross(2, i) - Cross(2, i, "text")), 0.0, 1e-5 * std::abs(Cross(2, i))) << i;
}

TEST_F(ImportOfRecords, ATimeRecordInFrontRefusesAFirstFile) {
  for (ImportKind kind : {ImportKind::TransferFunction58, ImportKind::CrossSpectrum58}) {
    frontEnd.messages.clear();
    EXPECT_EQ(Import({.kind = kind,
                      .files = Files("uff58/from_record", {"time_then_H31.uff", "G21_type3_ord5.uff"})}),
              -1);
    EXPECT_EQ(OnlyMessage(), kWrongType);
    EXPECT_FALSE(Has("new"));
  }
}

TEST_F(ImportOfRecords, ALaterFileWithoutACrossSpectrumTakesTheMeasurementAway) {
  EXPECT_EQ(Import({.kind = ImportKind::CrossSpectrum58,
                    .files = Files("uff58/from_record", {"G11_type3_ord2.uff", "time_then_H31.uff"})}),
            -1);
  EXPECT_EQ(OnlyMessage(), kWrongType);
  EXPECT_FALSE(Has("new"));
  EXPECT_TRUE(Has("measID"));
}

TEST_F(ImportOfRecords, RealOrdinatesHaveNoImaginaryPart) {
  for (const char* name : {"G11_type3_ord2.uff", "G11_type3_ord4.uff"}) {
    ASSERT_EQ(Import({.kind = ImportKind::CrossSpectrum58,
                      .measID = name,
                      .files = Files("uff58/from_record", {"G21_type3_ord5.uff", name})}),
              0);
    EXPECT_NEAR(Cross(1, 1, name).real(), 1.30163719e+01, 1e-4);
    for (int i = 0; i < 1024; ++i) ASSERT_EQ(std::fabs(Cross(1, i, name).imag()), 0.0) << i;
    EXPECT_EQ(Cross(0, 40, name), 1.0) << "channel 0 of cross spectra in universal files is 1";
  }
}

struct UffOutcome {
  const char* file;
  const char* transferFunction;  // refusal, or "" for an import
  const char* crossSpectrum;
};

TEST_F(ImportOfRecords, EachUniversalFileIsAcceptedOrRefusedAsAFirstFile) {
  const UffOutcome outcomes[] = {
      {"from_record/H21_type4_ord5.uff", "", kWrongType},
      {"from_record/H31_type4_ord6.uff", "", kWrongType},
      {"from_record/H41_type3_ord5.uff", "", ""},
      {"from_record/G11_type3_ord2.uff", "", ""},
      {"from_record/G11_type3_ord4.uff", "", ""},
      {"from_record/G21_type3_ord5.uff", "", ""},
      {"from_record/G31_type3_ord6.uff", "", ""},
      {"from_record/G11_type2_ord2.uff", kWrongType, kWrongType},
      {"from_record/time_then_H31.uff", kWrongType, kWrongType},
      {"published/non_ascii_header.uff", "", kWrongType},
      {"published/measurement.uff", "", kWrongType},
      {"published/time-history-not-all-columns-filled.uff", kWrongType, kWrongType},
      {"published/sample_dataset58_psd.uff", kWrongType, kWrongType},
      {"published/TestLab_161_164_18_15_82.uff", kNot58, kNot58},
      {"../wghs_src-10m/rec1.tim", kNot58, kNot58},
      {"../wghs_src-10m/H21.Hyx", kNot58, kNot58},
      {"../oysand_src20m/rec1.tim", kNot58, kNot58},
      {"../oysand_src20m/G11.Gyx", kNot58, kNot58},
  };
  int number = 0;
  for (const UffOutcome& o : outcomes) {
    for (ImportKind kind : {ImportKind::TransferFunction58, ImportKind::CrossSpectrum58}) {
      SCOPED_TRACE(::testing::Message() << o.file << " as kind " << static_cast<int>(kind));
      const std::string refusal =
          kind == ImportKind::TransferFunction58 ? o.transferFunction : o.crossSpectrum;
      const std::string id = FormatText("m%d", ++number);
      const std::string file = test::FieldFile(std::string("uff58/") + o.file);
      frontEnd.messages.clear();
      EXPECT_EQ(Import({.kind = kind, .measID = id, .files = {file, file}}), refusal.empty() ? 0 : -1);
      EXPECT_EQ(Has(id), refusal.empty());
      if (refusal.empty()) {
        EXPECT_THAT(frontEnd.messages, ::testing::IsEmpty());
      } else {
        EXPECT_EQ(OnlyMessage(), refusal);
      }
    }
  }
}

TEST_F(ImportOfRecords, EachUniversalFileIsAcceptedOrRefusedAsALaterFile) {
  const UffOutcome outcomes[] = {
      {"from_record/H31_type4_ord6.uff", "", kWrongType},
      {"from_record/H41_type3_ord5.uff", "", ""},
      {"from_record/G31_type3_ord6.uff", "", ""},
      {"from_record/G11_type2_ord2.uff", kWrongType, kWrongType},
      {"from_record/time_then_H31.uff", "", kWrongType},
      {"published/time-history-not-all-columns-filled.uff", kWrongType, kWrongType},
      {"published/sample_dataset58_psd.uff", kWrongType, kWrongType},
      {"published/TestLab_161_164_18_15_82.uff", kNot58, kNot58},
      {"../wghs_src-10m/rec1.tim", kNot58, kNot58},
  };
  const std::string first = test::FieldFile("uff58/from_record/H41_type3_ord5.uff");
  int number = 0;
  for (const UffOutcome& o : outcomes) {
    for (ImportKind kind : {ImportKind::TransferFunction58, ImportKind::CrossSpectrum58}) {
      SCOPED_TRACE(::testing::Message() << o.file << " as kind " << static_cast<int>(kind));
      const std::string refusal =
          kind == ImportKind::TransferFunction58 ? o.transferFunction : o.crossSpectrum;
      const std::string id = FormatText("m%d", ++number);
      const int receivers = kind == ImportKind::TransferFunction58 ? 3 : 2;
      frontEnd.messages.clear();
      EXPECT_EQ(Import({.kind = kind,
                        .measID = id,
                        .receivers = receivers,
                        .files = {first, test::FieldFile(std::string("uff58/") + o.file)}}),
                refusal.empty() ? 0 : -1);
      EXPECT_EQ(Has(id), refusal.empty());
      if (!refusal.empty()) {
        EXPECT_EQ(OnlyMessage(), refusal);
      }
    }
  }
}

TEST_F(ImportOfRecords, AResponseWithANonAsciiHeader) {
  ASSERT_EQ(Import({.kind = ImportKind::TransferFunction58,
                    .files = Files("uff58/published", {"non_ascii_header.uff"})}),
            0);
  ExpectSpectrumSampling(Hardware(), 8, 0, 0, 0.976565, -1.367191, 0.195313, 0.365713349, 5.48570024);
  EXPECT_EQ(Cross(1, 5), std::complex<double>(3.75037, 2.93363));
  EXPECT_EQ(Cross(1, 6), 0.0);
}

TEST_F(ImportOfRecords, OfThreeAccelerancesInOneFileTheFirstIsRead) {
  ASSERT_EQ(Import({.kind = ImportKind::TransferFunction58,
                    .files = Files("uff58/published", {"measurement.uff"})}),
            0);
  ExpectSpectrumSampling(Hardware(), 1024, 0, 0, 1000, -1023, 1, 0.000488758553, 1.00048876);
  EXPECT_EQ(Cross(1, 1), std::complex<double>(-1.75151154918e-01, -1.20423720701e-01));
  EXPECT_EQ(Cross(1, 1001), 0.0);
}

}  // namespace
}  // namespace sondera::testing
