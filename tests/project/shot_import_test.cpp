// Tests of shots that become measurements: averages, records, and refusals.
#include "project/shot_import.h"

#include <gmock/gmock.h>

#include <cmath>
#include <complex>
#include <map>
#include <random>

#include "numeric/pi.h"
#include "panels/loadtxdata_import.h"
#include "project/import_seg2.h"
#include "project/import_time.h"
#include "records/session.h"
#include "runtime/text_format.h"
#include "signal/spectra.h"
#include "support/field_data.h"
#include "support/import_fixture.h"
#include "support/seg2_writer.h"

namespace sondera::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Complex = std::complex<double>;

/// A short wave that begins at 0.
double Pulse(double t) {
  return t <= 0.0 ? 0.0 : t * t * std::exp(-60.0 * t) * std::sin(2 * kPi * 14.0 * t);
}

class ShotImport : public ImportTest {
 protected:
  std::string WriteSeg2(const std::string& name, const test::Seg2Spec& spec) {
    return Write(name, test::Seg2Bytes(spec));
  }
  ShotRequest Request(std::vector<std::string> files, bool pairs = true) {
    ShotRequest request;
    request.projID = "ProjID";
    request.stored = ShowMeasurement;
    request.files = std::move(files);
    request.read = ReadSeg2Shot;
    request.choices.measID = "new";
    request.choices.pairs = pairs;
    return request;
  }
  /// Phase of channel 1 against channel 0 at a line, degrees.
  double Phase(const std::string& id, int line) { return std::arg(Cross(1, line, id)) * 180.0 / kPi; }
  /// Velocity between the two channels of a measurement, from the phase of a line below half a cycle.
  double Velocity(const std::string& id, int line) {
    const MeasSetup& m = MeasurementSetup(id);
    return 360.0 * line * Hardware(id).deltaF * std::fabs(m.recLoc[1] - m.recLoc[0]) / -Phase(id, line);
  }
  std::vector<std::string> FindingTexts(FindingKind kind) {
    std::vector<std::string> texts;
    for (const Finding& f : Findings())
      if (f.kind == kind) texts.push_back(f.text);
    return texts;
  }
  void SetUp() override {
    ImportTest::SetUp();
    ClearFindings();
  }
};

test::Seg2Line Wave(double velocity, std::vector<double> receivers, double source = 0.0) {
  test::Seg2Line line;
  line.source = source;
  line.receivers = std::move(receivers);
  line.samples = 1000;
  line.value = [line, velocity](std::size_t r, double t) {
    return Pulse(t - std::fabs(line.receivers[r] - line.source) / velocity);
  };
  return line;
}

TEST_F(ShotImport, WaveOf200MetresASecondIsFoundAgain) {
  const std::string file = WriteSeg2("shot", test::Seg2OfLine(Wave(200.0, {5, 10, 20})));
  std::vector<std::string> ids;
  ASSERT_EQ(ImportShots(Request({file}), &ids), "");
  EXPECT_THAT(ids, ElementsAre("new_5_10", "new_10_20"));
  for (const std::string& id : ids) {
    EXPECT_EQ(Hardware(id).nChannels, 2);
    EXPECT_EQ(Hardware(id).nAverage, 1);
    for (int line : {2, 3, 5}) EXPECT_NEAR(Velocity(id, line), 200.0, 0.01) << id << line;
  }
  EXPECT_EQ(MeasurementSetup("new_10_20").srcLoc, 0.0);
  EXPECT_THAT(MeasurementSetup("new_10_20").recLoc, ElementsAre(10.0, 20.0));
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

TEST_F(ShotImport, DecimalCommasFeetAndThreeCoordinatesChangeNothing) {
  test::Seg2Line line = Wave(200.0 / 0.3048, {15, 30.5, 60.5});
  line.units = "FEET";
  line.number = [](double x) {
    std::string text = FormatText("%.1f 2,5 -1,0", x);
    text.replace(text.find('.'), 1, ",");
    return text;
  };
  ASSERT_EQ(ImportShots(Request({WriteSeg2("shot", test::Seg2OfLine(line))})), "");
  EXPECT_EQ(MeasurementSetup("new_30.5_60.5").lengthUnit, 0.3048);
  EXPECT_EQ(session.lengthUnit, 0.3048);
  for (int k : {2, 3, 5}) EXPECT_NEAR(Velocity("new_30.5_60.5", k) * 0.3048, 200.0, 0.01);
}

TEST_F(ShotImport, ReversedSpreadGivesTheSameVelocities) {
  ASSERT_EQ(ImportShots(Request({WriteSeg2("a", test::Seg2OfLine(Wave(200.0, {5, 10, 20}, 0)))})), "");
  ShotRequest request = Request({WriteSeg2("b", test::Seg2OfLine(Wave(200.0, {0, 10, 15}, 20)))});
  request.choices.measID = "back";
  ASSERT_EQ(ImportShots(request), "");
  for (int k : {2, 3, 5}) EXPECT_NEAR(Velocity("new_10_20", k), Velocity("back_10_20", k), 1e-9);
}

TEST_F(ShotImport, OneShotGivesTheRecordsOfItsTextFiles) {
  test::Seg2Line line = Wave(150.0, {10, 20, 40});
  const test::Seg2Spec spec = test::Seg2OfLine(line);
  ASSERT_EQ(ImportShots(Request({WriteSeg2("shot", spec)}, false)), "");
  ImportRequest text;
  text.measID = "text";
  text.nChannels = 3;
  text.locations = {0, 10, 20, 40};
  for (std::size_t r = 0; r < 3; ++r) {
    std::vector<double> volts = spec.traces[r].samples;
    for (double& v : volts) v *= 0.001 / 1000;
    text.files.push_back(Write("rec" + std::to_string(r), TimText(line.delay, line.interval, volts)));
  }
  ASSERT_EQ(LoadTimeData(text), 0);
  const HWSetup &a = Hardware("new"), &b = Hardware("text");
  EXPECT_EQ(a.nLines, b.nLines);
  EXPECT_EQ(a.deltaT, line.interval);
  EXPECT_NEAR(a.deltaT, b.deltaT, 1e-15);
  EXPECT_NEAR(a.triggerDelay, b.triggerDelay, 1e-9);
  EXPECT_NEAR(a.freqSpan, b.freqSpan, 1e-9);
  EXPECT_NEAR(a.deltaF, b.deltaF, 1e-12);
  EXPECT_NEAR(a.timeLength, b.timeLength, 1e-12);
  EXPECT_EQ(a.decimation, b.decimation);
  EXPECT_EQ(a.nAverage, 1);
  for (auto block : kRawBlocks) {
    const std::vector<double>&x = Data("new").*block, &y = Data("text").*block;
    ASSERT_EQ(x.size(), y.size());
    double largest = 0.0;
    for (double v : y) largest = std::max(largest, std::fabs(v));
    for (std::size_t i = 0; i < x.size(); ++i) ASSERT_NEAR(x[i], y[i], 1e-14 * largest) << i;
  }
}

/// Plain transform of one line, without the system's own.
Complex Line(const std::vector<double>& x, std::size_t line, std::size_t n) {
  Complex sum = 0.0;
  for (std::size_t i = 0; i < n; ++i)
    sum += (i < x.size() ? x[i] : x.back()) *
           std::polar(1.0, -2.0 * kPi * static_cast<double>(line * i % n) / static_cast<double>(n));
  return sum;
}

TEST_F(ShotImport, SeveralShotsAreMeansOfAutoAndCrossSpectra) {
  std::mt19937 random(11);
  std::normal_distribution<double> noise(0.0, 0.001);
  std::vector<std::string> files;
  std::vector<test::Seg2Spec> shots;
  for (int s = 0; s < 3; ++s) {
    test::Seg2Line line = Wave(200.0, {10, 20, 40});
    line.samples = 200;
    const auto clean = line.value;
    line.value = [&, clean](std::size_t r, double t) { return clean(r, t) + noise(random); };
    shots.push_back(test::Seg2OfLine(line));
    files.push_back(WriteSeg2("shot" + std::to_string(s), shots.back()));
  }
  ASSERT_EQ(ImportShots(Request(files)), "");
  ASSERT_EQ(ImportShots(Request(files, false)), "");
  EXPECT_EQ(Hardware("new").nAverage, 3);
  const std::size_t n = 256, k = 5;
  const double scale = 1e-6;  // V per count
  double power[3] = {};
  Complex cross[3][3] = {};
  for (const test::Seg2Spec& shot : shots) {
    Complex x[3];
    for (std::size_t c = 0; c < 3; ++c) x[c] = Line(shot.traces[c].samples, k, n) * scale;
    for (std::size_t a = 0; a < 3; ++a) {
      power[a] += 2.0 * std::norm(x[a]) / (n * n) / 3.0;
      for (std::size_t b = 0; b < 3; ++b) cross[a][b] += 2.0 * x[b] * std::conj(x[a]) / double(n * n) / 3.0;
    }
  }
  // Spread: all against the nearest receiver. Pairs: each against its own.
  for (std::size_t c = 0; c < 3; ++c) {
    EXPECT_NEAR(Data("new").powerSpec[c * n + k], power[c], 1e-12 * power[c]);
    EXPECT_LT(std::abs(Cross(static_cast<int>(c), 5, "new") - cross[0][c]), 1e-12 * std::abs(cross[0][c]));
  }
  EXPECT_LT(std::abs(Cross(1, 5, "new_20_40") - cross[1][2]), 1e-12 * std::abs(cross[1][2]));
  // The coherence of a pair of its own is the direct one; through channel 0 it is not.
  std::vector<double> direct(n / 2), through(n / 2);
  CalcSpectralData(spectral::kCoherence, "ProjID", "new_20_40", 0, 1, direct.data(), nullptr);
  CalcSpectralData(spectral::kCoherence, "ProjID", "new", 1, 2, through.data(), nullptr);
  const double coherence = std::norm(cross[1][2]) / power[1] / power[2];
  EXPECT_LT(coherence, 0.9999);
  EXPECT_NEAR(direct[k], coherence, 1e-12);
  EXPECT_GT(std::fabs(through[k] - coherence), 1e-6);
}

TEST_F(ShotImport, SkewIsTakenOutOnDemand) {
  test::Seg2Line line = Wave(200.0, {10, 20});
  const double skew = 0.0003;
  line.value = [&](std::size_t r, double t) {
    return Pulse(t + (r == 1 ? skew : 0.0) - line.receivers[r] / 200.0);
  };
  test::Seg2Spec spec = test::Seg2OfLine(line);
  spec.traces[0].strings.push_back("SKEW 0");
  spec.traces[1].strings.push_back("SKEW 0.0003");
  const std::string file = WriteSeg2("shot", spec);
  ShotRequest request = Request({file});
  ASSERT_EQ(ImportShots(request), "");
  const double f = 4 * Hardware("new_10_20").deltaF;
  EXPECT_NEAR(Phase("new_10_20", 4), -360.0 * f * (0.05 - skew), 1e-3);
  EXPECT_THAT(FindingTexts(FindingKind::Doubt), ElementsAre(HasSubstr("SKEW")));
  request.choices.measID = "right";
  request.choices.correctSkew = true;
  ASSERT_EQ(ImportShots(request), "");
  EXPECT_NEAR(Phase("right_10_20", 4), -360.0 * f * 0.05, 1e-3);
  const std::vector<double>& re = Data("right_10_20").crossSpecRe;
  for (std::size_t i = 1; i < 1024; ++i) EXPECT_EQ(re[1024 + i], re[2048 - i]) << "both halves turn";
}

TEST_F(ShotImport, AShotThatDiffersIsRefusedByNameAndNothingChanges) {
  const test::Seg2Line line = Wave(200.0, {10, 20, 40});
  const std::string first = WriteSeg2("first", test::Seg2OfLine(line));
  const auto refusal = [&](const std::function<void(test::Seg2Line&)>& change) {
    test::Seg2Line other = line;
    change(other);
    const std::string reason = ImportShots(Request({first, WriteSeg2("other", test::Seg2OfLine(other))}));
    EXPECT_FALSE(Has("new_10_20"));
    EXPECT_THAT(Findings(), IsEmpty());
    EXPECT_TRUE(reason.starts_with(folder.File("other") + ": ")) << reason;
    return reason.substr(std::min(reason.size(), folder.File("other").size() + 2));
  };
  EXPECT_EQ(refusal([](auto& l) { l.source = 1.0; }), "its source is at 1, and that of the first at 0");
  EXPECT_EQ(refusal([](auto& l) { l.receivers[1] = 21; }),
            "its channel 2 is at 21, and that of the first at 20");
  EXPECT_EQ(refusal([](auto& l) { l.samples = 999; }), "it has 999 samples, and the first 1000");
  EXPECT_EQ(refusal([](auto& l) { l.interval = 0.001; }),
            "it is sampled every 0.001 s, and the first every 0.0005 s");
  EXPECT_EQ(refusal([](auto& l) { l.delay = 0; }), "it begins at 0 s, and the first at -0.01 s");
  EXPECT_EQ(refusal([](auto& l) { l.units = "FEET"; }),
            "its unit of length is 0.3048 m, and that of the first 1 m");
  EXPECT_EQ(refusal([](auto& l) { l.receivers.resize(2); }), "there is no complete trace of channel 3");
  EXPECT_THAT(ImportShots(Request({first, folder.File("none")})), HasSubstr("none: "));
  EXPECT_FALSE(Has("new_10_20"));
}

TEST_F(ShotImport, MeasurementsThatExistAreReplacedOnDemandOnly) {
  const std::string file = WriteSeg2("shot", test::Seg2OfLine(Wave(200.0, {10, 20, 40})));
  AddMeasurement({.measID = "new_20_40", .nChannels = 3});
  ShotRequest request = Request({file});
  EXPECT_EQ(ImportShots(request), "the measurement \"new_20_40\" exists");
  EXPECT_FALSE(Has("new_10_20"));
  EXPECT_EQ(Hardware("new_20_40").nChannels, 3);
  request.choices.overwrite = true;
  EXPECT_EQ(ImportShots(request), "");
  EXPECT_EQ(Hardware("new_20_40").nChannels, 2);
  EXPECT_TRUE(Has("new_10_20"));
}

TEST_F(ShotImport, PairsThatAreTickedOffAreNotMade) {
  ShotRequest request = Request({WriteSeg2("shot", test::Seg2OfLine(Wave(200.0, {10, 20, 40})))});
  ShotPlan plan;
  ASSERT_EQ(PlanShots(request, plan), "");
  ASSERT_EQ(plan.pairs.size(), 2u);
  plan.pairs[0].use = false;
  std::vector<std::string> ids;
  EXPECT_EQ(ImportShots(request, plan, &ids), "");
  EXPECT_THAT(ids, ElementsAre("new_20_40"));
  plan.pairs[1].use = false;
  EXPECT_EQ(ImportShots(request, plan, nullptr), "no pair of the plan is to be used");
}

TEST_F(ShotImport, FileCutAnywhereLeavesTheProjectWholeOrTakesWholeTraces) {
  test::Seg2Line line = Wave(200.0, {10, 20});
  line.samples = 8;
  line.value = [](std::size_t r, double t) { return 0.01 * std::sin(900.0 * t + static_cast<double>(r)); };
  const std::string bytes = test::Seg2Bytes(test::Seg2OfLine(line));
  for (std::size_t n = 0; n < bytes.size(); ++n) {
    const std::string reason = ImportShots(Request({Write("cut", bytes.substr(0, n))}));
    EXPECT_NE(reason, "") << n;
    EXPECT_EQ(reason.find('\n'), std::string::npos);
    EXPECT_EQ(MeasDB.idList.count(), 1) << n;
    EXPECT_EQ(MeasDB.rawDataList.count(), 1) << n;
  }
  EXPECT_EQ(ImportShots(Request({Write("whole", bytes)})), "");
}

// ---- records of others ----------------------------------------------------------------------------------

class ShotRecords : public ShotImport {
 protected:
  void SetUp() override {
    SKIP_WITHOUT_FIELD_DATA("seg2");
    ShotImport::SetUp();
  }
  ShotRequest Recorded(std::vector<std::string> names, bool pairs = true) {
    std::vector<std::string> files;
    for (const std::string& name : names) files.push_back(test::FieldFile("seg2/" + name));
    return Request(files, pairs);
  }
};

TEST_F(ShotRecords, OneShotIsTheMeasurementOfItsTextFiles) {
  ShotRequest request = Recorded({"wghs_11.dat"}, false);
  request.choices.channels = {1, 3, 6, 11, 16, 24};
  ASSERT_EQ(ImportShots(request), "");
  ImportRequest text;
  text.measID = "text";
  text.nChannels = 6;
  text.locations = {-10, 0, 4, 10, 20, 30, 46};
  for (int r = 1; r <= 6; ++r)
    text.files.push_back(test::FieldFile("wghs_src-10m/rec" + std::to_string(r) + ".tim"));
  ASSERT_EQ(LoadTimeData(text), 0);
  const HWSetup &a = Hardware("new"), &b = Hardware("text");
  EXPECT_EQ(a.nLines, 1024);
  EXPECT_EQ(b.nLines, 1024);
  EXPECT_EQ(a.freqSpan, 500.0);
  EXPECT_EQ(a.deltaT, 0.001);
  EXPECT_NEAR(b.deltaT, a.deltaT, 1e-15);
  EXPECT_NEAR(a.triggerDelay, 33.3555704, 1e-7);
  EXPECT_NEAR(a.triggerDelay, b.triggerDelay, 1e-9);
  EXPECT_EQ(MeasurementSetup("new").srcLoc, -10.0);
  EXPECT_EQ(MeasurementSetup("new").recLoc, MeasurementSetup("text").recLoc);
  const double scale = 0.0026974 / 1000;
  const std::vector<double>&x = Data("new").timeHist, &y = Data("text").timeHist;
  ASSERT_EQ(x.size(), y.size());
  for (std::size_t i = 0; i < x.size(); ++i)
    ASSERT_NEAR(x[i] / scale, y[i], 5e-9 * std::max(std::fabs(y[i]), 1.0)) << i;
  // The band that the site is known in; outside it the ninth digit of the texts is in the phase.
  for (int c = 1; c < 6; ++c)
    for (int k = 20; k <= 111; ++k)
      ASSERT_LT(std::fabs(std::arg(Cross(c, k, "new") / Cross(c, k, "text"))) * 180.0 / kPi, 1e-6)
          << "channel " << c << ", line " << k;
}

TEST_F(ShotRecords, TwoShotsGiveTheAveragesOfAnotherProgram) {
  ShotRequest request = Recorded({"wghs_11.dat", "wghs_12.dat"});
  struct Row {
    int a, b, line;
    double autoA, autoB, re, im, coherence, angle;
  };
  const Row rows[] = {
      {1, 6, 20, 9.8269139e+01, 2.4335076e+01, -2.5768261e+01, -4.0735198e+01, 0.971553, -122.3166},
      {1, 6, 40, 5.1240254e+02, 1.5522193e+02, 1.1274617e+02, -2.5354802e+02, 0.968092, -66.0265},
      {1, 6, 80, 6.5451909e+03, 3.7392508e+02, 9.0720513e+02, -1.2703295e+03, 0.995647, -54.4675},
      {11, 16, 20, 2.4352890e+01, 4.1472543e+01, -1.0475062e+01, 3.1514849e+00, 0.118477, 163.2558},
      {11, 16, 40, 4.3662478e+01, 4.5007336e+01, 3.5562273e+01, 2.2694223e+01, 0.905641, 32.5442},
      {11, 16, 80, 1.0879000e+02, 1.4316991e+01, 3.9138611e+01, 4.2760657e+00, 0.995230, 6.2351},
      {16, 24, 40, 4.5007336e+01, 1.6947536e+01, -2.7508693e+01, -4.6459826e-01, 0.992371, -179.0324},
      {16, 24, 80, 1.4316991e+01, 3.8404072e+00, -7.3329679e+00, -9.9933279e-01, 0.996144, -172.2396}};
  const double square = std::pow(0.0026974 / 1000, 2);
  for (const Row& row : rows) {
    request.choices.channels = {row.a, row.b};
    request.choices.overwrite = true;
    std::vector<std::string> ids;
    ASSERT_EQ(ImportShots(request, &ids), "");
    ASSERT_EQ(ids.size(), 1u);
    const std::size_t k = static_cast<std::size_t>(row.line);
    EXPECT_NEAR(Data(ids[0]).powerSpec[k] / square, row.autoA, 1e-6 * row.autoA);
    EXPECT_NEAR(Data(ids[0]).powerSpec[2048 + k] / square, row.autoB, 1e-6 * row.autoB);
    const Complex cross = Cross(1, row.line, ids[0]) / square;
    EXPECT_LT(std::abs(cross - Complex(row.re, row.im)), 1e-6 * std::abs(cross));
    EXPECT_NEAR(std::arg(cross) * 180.0 / kPi, row.angle, 1e-4);
    std::vector<double> coherence(1024);
    CalcSpectralData(spectral::kCoherence, "ProjID", ids[0], 0, 1, coherence.data(), nullptr);
    EXPECT_NEAR(coherence[k], row.coherence, 1e-6);
  }
  EXPECT_EQ(Hardware("new_10_20").nAverage, 2);
}

TEST_F(ShotRecords, PlanOfTheLineIsTheOneOfTheBook) {
  ShotPlan plan;
  ASSERT_EQ(PlanShots(Recorded({"wghs_11.dat"}), plan), "");
  std::vector<std::string> ids;
  for (const ShotPair& pair : plan.pairs) ids.push_back(PairID("new", pair));
  EXPECT_THAT(ids, ElementsAre("new_10_20", "new_14_28", "new_20_40", "new_28_56"));
  EXPECT_EQ(plan.lengthUnit, 1.0);
  EXPECT_FALSE(plan.skewDiffers);
}

TEST_F(ShotRecords, OneChannelMakesNoPair) {
  EXPECT_EQ(ImportShots(Recorded({"smartseis_20bit.seg2"})),
            test::FieldFile("seg2/smartseis_20bit.seg2") +
                ": the file has one complete channel, and a pair takes two");
}

}  // namespace
}  // namespace sondera::testing
