// Measured records: spectra, coherence, wrapped and unwrapped phases of two sites against numbers that were
// computed apart from this project. Where the records come from: docs/published-records.md.
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "panels/sasw_pair.h"
#include "signal/irf.h"
#include "support/field_data.h"
#include "support/signal_fixture.h"

namespace sondera {
namespace {

using testing::AddMeasurement;
using testing::Fold;
using testing::MeasurementPlan;
using testing::Quantity;
using testing::ReadColumns;
using testing::TestMeasurement;

/// Half a unit of the eighth figure: how far a number printed with eight figures may be off.
double PrintedTolerance(double printed) {
  return printed == 0.0 ? 1e-300 : 0.5000001e-7 * std::pow(10.0, std::floor(std::log10(std::fabs(printed))));
}

struct SpectrumSpot {
  int channel, line;
  double crossRe, crossIm, power;
};

struct PhaseLine {
  int line;
  double frequency, wrapped, withMask, withoutMask, velocity;
};

/// Six receivers, 1 ms, 2048 points per channel; a shorter record repeats its last sample.
class FieldRecord : public testing::SessionTest {
 protected:
  void Load(const std::string& folder, double source, const std::vector<double>& receivers) {
    MeasurementPlan plan;
    plan.nChannels = static_cast<int>(receivers.size());
    plan.nLines = 1024;
    m = AddMeasurement(plan);
    m.setup->srcLoc = source;
    m.setup->recLoc = receivers;
    std::vector<std::vector<double>> record;
    for (int c = 1; c <= plan.nChannels; ++c) {
      const auto columns = ReadColumns(test::FieldFile(folder + "/rec" + std::to_string(c) + ".tim"));
      ASSERT_EQ(columns.size(), 2u);
      record.push_back(columns[1]);
      ASSERT_GE(record.back().size(), 1500u);
      record.back().resize(2048, record.back().back());
    }
    ASSERT_EQ(Fold(record), 0);
  }

  PMeasInfo* Pair(int refChan, int dspChan) {
    SelectPair(m, refChan, dspChan);
    PMeasInfo* pair = nullptr;
    SetupPMeasDataNode(m.projID, m.measID, refChan, dspChan, *m.hw, pair);
    EXPECT_NE(pair, nullptr);
    return pair;
  }

  void Mask(int refChan, int dspChan, double to, int jumpNo) {
    *MeasDB.maskingList.append() = {m.key, refChan, dspChan, 0.0, to, jumpNo};
    ASSERT_EQ(CalcIRF(0, Panel::SASW), 0);
  }

  void ExpectSpots(const std::vector<SpectrumSpot>& spots) {
    for (const SpectrumSpot& s : spots) {
      const std::size_t at = static_cast<std::size_t>(s.channel) * 2048 + static_cast<std::size_t>(s.line);
      EXPECT_NEAR(m.raw->crossSpecRe[at], s.crossRe, PrintedTolerance(s.crossRe))
          << s.channel << " " << s.line;
      EXPECT_NEAR(m.raw->crossSpecIm[at], s.crossIm, PrintedTolerance(s.crossIm))
          << s.channel << " " << s.line;
      EXPECT_NEAR(m.raw->powerSpec[at], s.power, PrintedTolerance(s.power)) << s.channel << " " << s.line;
    }
  }

  void ExpectPhases(int refChan, int dspChan, double maskTo, int jumpNo,
                    const std::vector<PhaseLine>& lines) {
    const PMeasInfo* pair = Pair(refChan, dspChan);
    for (const PhaseLine& l : lines) {
      EXPECT_NEAR(l.line * m.hw->deltaF, l.frequency, 1e-6);
      EXPECT_NEAR(pair->hPhase[l.line], l.wrapped, 0.00051) << l.line;
      EXPECT_NEAR(pair->phaseOrig[l.line], l.withoutMask, 0.00051) << l.line;
    }
    Mask(refChan, dspChan, maskTo, jumpNo);
    const double spacing = std::fabs(m.setup->recLoc[dspChan] - m.setup->recLoc[refChan]);
    for (const PhaseLine& l : lines) {
      EXPECT_NEAR(pair->hPhase[l.line], l.wrapped, 0.00051) << l.line;
      EXPECT_NEAR(pair->phaseOrig[l.line], l.withMask, 0.00051) << l.line;
      EXPECT_EQ(pair->maskFlag[l.line], 0) << l.line;
      EXPECT_NEAR(spacing * 360.0 / pair->phaseOrig[l.line] * l.frequency, l.velocity, 0.006) << l.line;
    }
  }

  struct VelocityAt {
    double wavelength, velocity;
  };
  /// Median velocity of the lines within 12 % of a wavelength (by the logarithm of the ratio), over the band
  /// that the mask puts right.
  void ExpectVelocities(int refChan, int dspChan, double maskTo, int jumpNo, double bandFrom, double bandTo,
                        const std::vector<VelocityAt>& table) {
    const PMeasInfo* pair = Pair(refChan, dspChan);
    Mask(refChan, dspChan, maskTo, jumpNo);
    const double spacing = std::fabs(m.setup->recLoc[dspChan] - m.setup->recLoc[refChan]);
    for (const VelocityAt& row : table) {
      std::vector<double> velocities;
      for (int i = 1; i < m.hw->nLines; ++i) {
        const double f = i * m.hw->deltaF, wavelength = spacing * 360.0 / pair->phaseOrig[i];
        if (f < bandFrom - 0.01 || f > bandTo + 0.01) continue;
        if (std::fabs(std::log(wavelength / row.wavelength)) <= 0.12) velocities.push_back(wavelength * f);
      }
      ASSERT_FALSE(velocities.empty()) << row.wavelength;
      std::sort(velocities.begin(), velocities.end());
      const std::size_t half = velocities.size() / 2;
      const double median =
          velocities.size() % 2 ? velocities[half] : 0.5 * (velocities[half - 1] + velocities[half]);
      EXPECT_NEAR(median, row.velocity, 0.051)
          << refChan + 1 << "-" << dspChan + 1 << " at " << row.wavelength << " m";
    }
  }

  TestMeasurement m;
};

class WghsRecord : public FieldRecord {
 protected:
  void SetUp() override {
    FieldRecord::SetUp();
    SKIP_WITHOUT_FIELD_DATA("wghs_src-10m");
    Load("wghs_src-10m", -10.0, {0, 4, 10, 20, 30, 46});
  }
};

class OysandRecord : public FieldRecord {
 protected:
  void SetUp() override {
    FieldRecord::SetUp();
    SKIP_WITHOUT_FIELD_DATA("oysand_src20m");
    Load("oysand_src20m", 0.0, {20, 24, 34, 40, 50, 66});
  }
};

TEST_F(WghsRecord, SpectraAreThoseOfTheRecord) {
  EXPECT_EQ(m.raw->timeHist[1500], -27.2168007);
  EXPECT_EQ(m.raw->timeHist[2047], -27.2168007);
  ExpectSpots({{0, 0, 6.9217612e+01, 0.0, 6.9217612e+01},
               {0, 16, 1.1994882e+01, 0.0, 1.1994882e+01},
               {0, 128, 1.0072078e+02, 0.0, 1.0072078e+02},
               {0, 512, 4.5509361e-02, 0.0, 4.5509361e-02},
               {5, 0, -2.5526172e+02, 0.0, 9.4135790e+02},
               {5, 16, -1.4826085e+01, 9.2166097e+00, 2.5407393e+01},
               {5, 128, -2.5538017e+00, 3.7644573e+00, 2.0544958e-01},
               {5, 512, -5.8034672e-04, 1.9934548e-02, 8.7393670e-03}});
}

TEST_F(WghsRecord, PhasesOfPair3To5WithAndWithoutTheMask) {
  ExpectPhases(2, 4, 16.113281, 2,
               {{34, 16.601562, 104.733, 615.267, 255.267, 194.28},
                {48, 23.437500, -139.811, 859.811, 499.811, 196.26},
                {62, 30.273438, -87.473, 1167.473, 807.473, 186.70},
                {76, 37.109375, -32.099, 1472.099, 1112.099, 181.50},
                {90, 43.945312, 168.169, 1631.831, 1271.831, 193.90},
                {104, 50.781250, -104.030, 1904.030, 1544.030, 192.03}});
}

TEST_F(WghsRecord, VelocitiesOfItsPairs) {
  ExpectVelocities(0, 2, 9.277, 0, 9.77, 54.20,
                   {{5, 179}, {6, 189.9}, {8, 179.1}, {10, 172}, {12, 182.4}, {15, 210}, {20, 239.1}});
  ExpectVelocities(1, 3, 16.113, 1, 16.60, 47.85,
                   {{5, 174.3}, {6, 180.4}, {8, 188.8}, {10, 191.2}, {12, 184.1}});
  ExpectVelocities(2, 4, 16.113, 2, 16.60, 50.78,
                   {{5, 187}, {6, 187.2}, {8, 196.3}, {10, 202.4}, {12, 202.7}});
  ExpectVelocities(3, 5, 9.277, 1, 9.77, 27.34,
                   {{8, 203.1}, {10, 209.5}, {12, 216.7}, {15, 215.9}, {20, 205.3}});
  ExpectVelocities(4, 5, 10.254, 1, 10.74, 46.39,
                   {{5, 180.2}, {6, 183.9}, {8, 197.9}, {10, 200.2}, {12, 221.3}, {15, 217.2}, {20, 209.8}});
}

TEST_F(OysandRecord, SpectraAreThoseOfTheRecord) {
  ExpectSpots({{0, 0, 3.9822758e-08, 0.0, 3.9822758e-08},
               {0, 16, 4.7475072e-10, 0.0, 4.7475072e-10},
               {0, 128, 2.6161029e-09, 0.0, 2.6161029e-09},
               {0, 512, 1.6043623e-10, 0.0, 1.6043623e-10},
               {5, 0, 3.8836990e-08, 0.0, 3.7875624e-08},
               {5, 16, 1.0689504e-10, -3.5386046e-10, 2.8782214e-10},
               {5, 128, -2.6900091e-10, 4.1548167e-10, 9.3645592e-11},
               {5, 512, 6.7049157e-12, -3.1461528e-11, 6.4498127e-12}});
}

TEST_F(OysandRecord, PhasesOfPair1To4WithAndWithoutTheMask) {
  ExpectPhases(0, 3, 7.324, 1,
               {{16, 7.812500, 29.740, 330.260, -29.740, 170.32},
                {33, 16.113281, -7.822, 727.822, 367.822, 159.40},
                {51, 24.902344, 157.242, 1282.758, 922.758, 139.78},
                {69, 33.691406, -153.588, 1953.588, 1593.588, 124.17},
                {87, 42.480469, -151.418, 2671.418, 2311.418, 114.49},
                {105, 51.269531, -103.577, 3343.577, 2983.577, 110.40}});
}

TEST_F(OysandRecord, VelocitiesOfItsPairs) {
  ExpectVelocities(
      0, 3, 7.324, 1, 7.81, 51.27,
      {{4, 126.6}, {5, 138.8}, {6, 140.7}, {8, 152.5}, {10, 159.4}, {12, 167.2}, {15, 174.7}, {18, 165.3}});
  ExpectVelocities(0, 4, 9.766, 2, 10.25, 24.41,
                   {{5, 136.4}, {6, 138.6}, {8, 149}, {10, 160.5}, {12, 164}, {15, 166.8}, {18, 173.1}});
  ExpectVelocities(1, 4, 9.766, 2, 10.25, 27.34,
                   {{5, 132.7}, {6, 140.2}, {8, 146.5}, {10, 157.2}, {12, 160.2}, {15, 163.8}, {18, 167.8}});
  ExpectVelocities(2, 5, 8.789, 2, 9.28, 27.34,
                   {{5, 138.1}, {6, 143.9}, {8, 153.5}, {10, 157.1}, {12, 156.7}, {15, 160.8}, {18, 166.9}});
  ExpectVelocities(3, 5, 7.324, 1, 7.81, 27.34,
                   {{5, 137.5}, {6, 142.7}, {8, 152.6}, {10, 159}, {12, 159.8}, {15, 163.1}, {18, 169.7}});
}

/// Five blows of four channels, as the measuring loop would take them.
class WghsBlows : public testing::SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    SKIP_WITHOUT_FIELD_DATA("wghs_src-10m");
    MeasurementPlan plan;
    plan.nChannels = 4;
    m = AddMeasurement(plan);
    m.setup->recLoc = {0, 10, 20, 30};
    for (int shot = 11; shot <= 15; ++shot) {
      auto columns = ReadColumns(test::FieldFile("wghs_src-10m/shot" + std::to_string(shot) + ".txt"));
      ASSERT_EQ(columns.size(), 5u);
      ASSERT_EQ(columns[0].size(), 1024u);
      columns.erase(columns.begin());
      ASSERT_EQ(Fold(columns, shot - 11), 0);
    }
  }
  TestMeasurement m;
};

TEST_F(WghsBlows, RunningAveragesAreThePlainMeans) {
  const double power[4] = {2.7160437e+03, 7.8820648e+02, 1.8333597e+02, 2.0454627e+02};
  const double crossRe[4] = {2.7160437e+03, 5.8091774e+02, 3.0125863e+02, 5.4212911e+02};
  const double crossIm[4] = {0.0, -1.3038297e+03, -6.2080292e+02, -4.8376471e+02};
  for (std::size_t c = 0; c < 4; ++c) {
    const std::size_t at = c * 1024 + 20;
    EXPECT_NEAR(m.raw->powerSpec[at], power[c], PrintedTolerance(power[c])) << c;
    EXPECT_NEAR(m.raw->crossSpecRe[at], crossRe[c], PrintedTolerance(crossRe[c])) << c;
    EXPECT_NEAR(m.raw->crossSpecIm[at], crossIm[c], PrintedTolerance(crossIm[c])) << c;
  }
}

TEST_F(WghsBlows, CoherenceThroughTheReferenceChannel) {
  const int lines[6] = {10, 15, 20, 25, 30, 40};
  const struct {
    int a, b;
    double coherence[6];
  } pairs[] = {{0, 1, {0.87163, 0.59695, 0.95172, 0.82643, 0.81099, 0.9839}},
               {1, 3, {0.59007, 0.50446, 0.90439, 0.72776, 0.79365, 0.97554}},
               {2, 3, {0.21487, 0.54352, 0.90868, 0.72224, 0.78834, 0.97265}}};
  for (const auto& pair : pairs) {
    const std::vector<double> coherence = Quantity(m, spectral::kCoherence, pair.a, pair.b, 512);
    for (int k = 0; k < 6; ++k)
      EXPECT_NEAR(coherence[lines[k]], pair.coherence[k], 0.0000051) << pair.a << " " << k;
  }
}

}  // namespace
}  // namespace sondera
