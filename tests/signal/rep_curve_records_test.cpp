// Representative curves of measured records (support/field_data.h) and of the survey of the examples: import,
// one mask for each pair, pair curves by the button, averaging. And the fits on those curves, compared with
// least-squares solutions by other ways.
#include <algorithm>
#include <cmath>
#include <set>

#include "panels/cdisppnl.h"
#include "panels/sasw_dispersion.h"
#include "panels/sasw_mask_list.h"
#include "panels/sasw_masking.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/sasw.h"
#include "signal/plain_rep_curve.h"
#include "signal/rep_curves.h"
#include "support/field_data.h"
#include "support/import_fixture.h"
#include "support/rep_curve_fixture.h"
#include "support/site_records.h"

namespace sondera::testing {
namespace {

struct MaskedPair {
  int refChan, dspChan;  // counted from 1, as on the page
  double maskTo;         // Hz, from 0
  int jumpNo;
  double bandTo;  // Hz, last line that is then on the right cycle
};

std::vector<std::string> SixRecords(const std::string& folder) {
  std::vector<std::string> files;
  for (int i = 1; i <= 6; ++i) files.push_back(test::FieldFile(folder + "/rec" + std::to_string(i) + ".tim"));
  return files;
}

class RepCurvesOfPairs : public ImportTest {
 protected:
  void PairCurves(const ImportEntries& entries, const std::vector<MaskedPair>& pairs) {
    ASSERT_EQ(Import(entries), 0);
    SetCtrlVal(sasw::DISPCURV_OPTION, 0);
    for (const MaskedPair& p : pairs) {
      SetCtrlIndex(sasw::DISPAID, FindListItem(sasw::DISPAID, entries.measID));
      SetCtrlIndex(sasw::DISPA_REFCHNL, p.refChan - 1);
      SetCtrlIndex(sasw::DISPACHNL, p.dspChan - 1);
      NewMask(0.0, p.maskTo, p.jumpNo);
      if (!onlyLowMasks) NewMask(p.bandTo + 0.2, 500.0, p.jumpNo);
      ASSERT_EQ(MaskingCalcDispCallback(Panel::SASW, &sasw::MASKINGCALCDISP, Event::Commit, 0), 0);
    }
    ASSERT_TRUE(frontEnd.messages.empty()) << frontEnd.messages.front();
  }

  static void NewMask(double from, double to, int jumpNo) {
    SetCtrlVal(sasw::MASKING_FREQINIT, from);
    SetCtrlVal(sasw::MASKING_FREQFINAL, to);
    SetCtrlVal(sasw::MASKING_JUMPNO, jumpNo);
    ASSERT_EQ(MaskingNewCallback(Panel::SASW, &sasw::MASKINGNEW, Event::Commit, 0), 0);
  }

  /// The survey of the examples.
  void Survey() {
    test::WriteSiteRecords(folder.Path());
    ImportEntries entries{.kind = ImportKind::TimeHistory, .receivers = 6, .locations = {0.0}};
    for (int i = 1; i <= 6; ++i) entries.files.push_back(folder.File("rec" + std::to_string(i) + ".tim"));
    for (double x : ExampleRecording().receivers) entries.locations.push_back(x);
    PairCurves(entries, {{1, 2, 14.0, 0, 47.8},
                         {1, 3, 7.0, 0, 47.8},
                         {2, 4, 7.0, 0, 39.8},
                         {3, 5, 7.0, 1, 39.8},
                         {4, 6, 7.0, 1, 39.8}});
  }

  bool onlyLowMasks = false;  ///< leave the lines in that are beyond the right band

  static void ExpectPlainScan();

  static void Average() {
    SetupCompDispCurveCallback(Panel::DISPCURV, nullptr, Event::Commit, 0);
    ASSERT_EQ(CDispCalcCallback(Panel::CDISPPNL, &cdisppnl::CALC, Event::Commit, 0), 0);
  }
};

class RepCurvesOfRecords : public RepCurvesOfPairs {
 protected:
  void SetUp() override {
    RepCurvesOfPairs::SetUp();
    SKIP_WITHOUT_FIELD_DATA("wghs_src-10m");
  }

  void Wghs() {
    PairCurves({.kind = ImportKind::TimeHistory,
                .receivers = 6,
                .files = SixRecords("wghs_src-10m"),
                .locations = {-10, 0, 4, 10, 20, 30, 46}},
               {{1, 3, 9.277, 0, 54.20},
                {2, 4, 16.113, 1, 47.85},
                {3, 5, 16.113, 2, 50.78},
                {4, 6, 9.277, 1, 27.34},
                {5, 6, 10.254, 1, 46.39}});
  }

  void WghsFiveBlows() {
    PairCurves({.receivers = 4,
                .files = {test::FieldFile("wghs_src-10m/H21.Hyx"), test::FieldFile("wghs_src-10m/H31.Hyx"),
                          test::FieldFile("wghs_src-10m/H41.Hyx")},
                .locations = {-10, 0, 10, 20, 30}},
               {{1, 2, 11.719, 1, 54.69}, {2, 4, 16.602, 2, 49.80}, {3, 4, 9.766, 0, 31.25}});
  }

  void Oysand() {
    PairCurves({.kind = ImportKind::TimeHistory,
                .receivers = 6,
                .files = SixRecords("oysand_src20m"),
                .locations = {0, 20, 24, 34, 40, 50, 66}},
               {{1, 4, 7.324, 1, 51.27},
                {1, 5, 9.766, 2, 24.41},
                {2, 5, 9.766, 2, 27.34},
                {3, 6, 8.789, 2, 27.34},
                {4, 6, 7.324, 1, 27.34}});
  }
};

/// One row of a representative curve.
struct Row {
  double freq, wlen, vel, deviation;
};

/// Rows of the global curve in a range of wavelengths.
std::vector<Row> GlobalRows(double wMin, double wMax) {
  std::vector<Row> rows;
  const DispInfo& g = *MeasDB.gDispList.at(1);
  for (int i = 1; i <= g.nPoints; ++i)
    if (g.wlen[i] >= wMin && g.wlen[i] <= wMax) rows.push_back({g.freq[i], g.wlen[i], g.vel[i], g.stat2[i]});
  return rows;
}

struct Law {
  int domain, byRatio;
  double ratio;
};
constexpr Law kLaws[] = {{1, 1, 1.07}, {1, 1, 1.0}, {1, 0, 1.07}, {0, 1, 1.07}, {0, 1, 1.0}, {0, 0, 1.07}};

void UseLaw(const Law& law) {
  SetCtrlVal(cdisppnl::AVGDOMAIN, law.domain);
  SetCtrlVal(cdisppnl::AVG_LINLOG, law.byRatio);
  SetCtrlVal(cdisppnl::GLOBAL_INCRATIO, law.ratio);
}

// ---- sites ------------------------------------------------------------------------------------------

TEST_F(RepCurvesOfRecords, WghsWithTheLowMasksOnlyLiesWithinItsSiteWhereThePairsAreRight) {
  onlyLowMasks = true;
  Wghs();
  Average();
  int rows = 0;
  for (const Row& row : GlobalRows(5, 25)) {
    if (row.freq > 54.2) continue;  // no pair keeps its cycles beyond
    EXPECT_GT(row.vel, 160) << row.wlen;
    EXPECT_LT(row.vel, 260) << row.wlen;
    ++rows;
  }
  EXPECT_GE(rows, 12);
}

TEST_F(RepCurvesOfRecords, WghsLiesWithinItsSiteInBothDomainsAndAllSpacings) {
  // Up to 22 m. Beyond, the pairs themselves leave the range: 4-6 has 271 m/s at 24.1 m, 5-6 has 281 at 25.0
  // m.
  for (const bool fiveBlows : {false, true}) {
    for (const Law& law : kLaws) {
      SCOPED_TRACE(::testing::Message() << fiveBlows << " " << law.domain << law.byRatio << law.ratio);
      SetUp();
      fiveBlows ? WghsFiveBlows() : Wghs();
      UseLaw(law);
      Average();
      const std::vector<Row> rows = GlobalRows(5, 22);
      EXPECT_FALSE(rows.empty());
      for (const Row& row : rows) {
        EXPECT_GT(row.vel, 160) << row.wlen;
        EXPECT_LT(row.vel, 260) << row.wlen;
      }
    }
  }
}

TEST_F(RepCurvesOfRecords, OysandFollowsThePublishedCurve) {
  // Published means, straight between the points; the pairs scatter by some 5 %.
  const std::vector<std::pair<double, double>> site = {
      {2.05, 110.7}, {3.05, 120.7}, {4.20, 130.9},  {5.36, 137.3}, {6.93, 146.0},
      {8.77, 152.6}, {10.4, 156.3}, {13.85, 161.0}, {17.5, 165.0}, {20.0, 167.3}};
  for (const Law& law : kLaws) {
    SCOPED_TRACE(::testing::Message() << law.domain << law.byRatio << law.ratio);
    SetUp();
    Oysand();
    UseLaw(law);
    Average();
    const std::vector<Row> rows = GlobalRows(2.5, 16);
    EXPECT_GE(rows.size(), 12u);
    for (const Row& row : rows) {
      std::size_t i = 1;
      while (site[i].first < row.wlen) ++i;
      const double share = (row.wlen - site[i - 1].first) / (site[i].first - site[i - 1].first);
      const double expected = site[i - 1].second + share * (site[i].second - site[i - 1].second);
      EXPECT_NEAR(row.vel / expected, 1.0, 0.08) << row.wlen;
      EXPECT_GE(row.deviation, 0.0);
    }
  }
}

TEST_F(RepCurvesOfRecords, ArrayCurvesStandOnTheFrequenciesOfTheGlobalOneInOrderOfSpacing) {
  Oysand();
  Average();
  ASSERT_EQ(MeasDB.aDispList.count(), 5);
  std::vector<double> f;
  const DispInfo& g = *MeasDB.gDispList.at(1);
  for (int i = 1; i <= g.nPoints; ++i) f.push_back(g.freq[i]);
  std::sort(f.begin(), f.end());
  const MeasSetup& setup = MeasurementSetup();
  double before = 0.0;
  for (const DispInfo& ad : MeasDB.aDispList) {
    ASSERT_EQ(ad.nPoints, g.nPoints);
    for (int i = 1; i <= ad.nPoints; ++i) EXPECT_EQ(ad.freq[i], f[i - 1]);
    const double spacing = std::fabs(setup.recLoc[ad.dspChan] - setup.recLoc[ad.refChan]);
    EXPECT_GE(spacing, before);
    before = spacing;
  }
}

// ---- fits -------------------------------------------------------------------------------------------

/// Fits over all pairs, and over each by itself, with the windows that the panel starts with and wider ones.
int CompareFits(int& suppressed) {
  int compared = 0;
  for (int curve = 0; curve <= MeasDB.pMeasList.count(); ++curve) {  // 0: all of them
    for (const Law& law : kLaws) {
      for (int nSpan : {40, 10, 2}) {
        test::PlainInput in;
        in.xMin = 1e10;
        in.xMax = -1;
        in.x = in.v = {0.0};
        in.nPts = 50, in.nSpan = nSpan, in.polyOrder = curve == 0 ? 4 : 5;
        in.incRatio = law.byRatio == 1 ? law.ratio : -1.0;
        for (int i = 1; i <= MeasDB.pMeasList.count(); ++i) {
          const PMeasInfo& pair = *MeasDB.pMeasList.at(i);
          for (int k = 0; k < pair.nDispPoints && (curve == 0 || curve == i); ++k) {
            in.x.push_back(law.domain == 1 ? pair.dispFreq[k] : pair.dispWlen[k]);
            in.v.push_back(pair.dispVel[k]);
            in.xMin = std::min(in.xMin, in.x.back());
            in.xMax = std::max(in.xMax, in.x.back());
          }
        }
        const test::PlainResult fit = test::PlainCompact(in, law.domain == 0);
        for (int k = 1; k <= in.nPts; ++k) {
          if (!fit.fitted[k]) continue;
          const std::vector<double>&xs = fit.windowLogX[k], &ys = fit.windowV[k];
          const int terms = std::min<int>(static_cast<int>(xs.size()), in.polyOrder);
          const double at = std::log10(fit.x[k]);
          const test::SuppressedFit other = test::EigenValue(xs, ys, terms, at);
          if (other.margin < 0.01) continue;  // a singular value at the limit: either choice is right
          EXPECT_NEAR(fit.v[k], other.value, 1e-8 * (1 + other.steepness));
          if (other.dropped == 0) {
            EXPECT_NEAR(fit.v[k], test::QrValue(xs, ys, terms, at), 1e-8 * (1 + other.steepness));
          }
          suppressed += other.dropped > 0;
          ++compared;
        }
      }
    }
  }
  return compared;
}

TEST_F(RepCurvesOfRecords, FitsAgreeWithOtherLeastSquaresSolutions) {
  for (int site = 0; site < 3; ++site) {
    SetUp();
    site == 0 ? Wghs() : site == 1 ? WghsFiveBlows() : Oysand();
    int suppressed = 0;
    const int compared = CompareFits(suppressed);
    EXPECT_GT(compared, 800);
    EXPECT_GT(suppressed, compared / 10);
    EXPECT_LT(suppressed, compared * 9 / 10);
  }
}

/// The scan of the button against the plain one, on the pairs in hand.
void RepCurvesOfPairs::ExpectPlainScan() {
  for (const Law& law : kLaws) {
    UseLaw(law);
    Average();
    double fMin = 0, fMax = 0, wMin = 0, wMax = 0;
    GetMinMaxDisp(fMin, fMax, wMin, wMax);
    test::PlainInput in;
    in.xMin = law.domain == 1 ? fMin : wMin;
    in.xMax = law.domain == 1 ? fMax : wMax;
    in.nPts = 50, in.nSpan = 40, in.polyOrder = 4, in.incRatio = law.byRatio == 1 ? law.ratio : -1.0;
    in.x = in.v = {0.0};
    for (const PMeasInfo& pair : MeasDB.pMeasList)
      for (int i = 0; i < pair.nDispPoints; ++i) {
        in.x.push_back(law.domain == 1 ? pair.dispFreq[i] : pair.dispWlen[i]);
        in.v.push_back(pair.dispVel[i]);
      }
    const test::PlainResult plain = test::PlainCompact(in, law.domain == 0);
    std::multiset<double> expected, found;
    for (double v : plain.v)
      if (v > 0) expected.insert(v);
    for (const Row& row : GlobalRows(0, 1e9)) found.insert(row.vel);
    EXPECT_GT(expected.size(), 10u);
    EXPECT_EQ(found, expected);
  }
}

TEST_F(RepCurvesOfRecords, TheFastScanIsThePlainOneToTheBit) {
  Oysand();
  ExpectPlainScan();
}

// ---- the survey of the examples ---------------------------------------------------------------------

TEST_F(RepCurvesOfPairs, SurveyFollowsTheGroundInBothDomainsAndAllSpacings) {
  const SiteSimulator ground(ExampleSite());
  for (const Law& law : kLaws) {
    SCOPED_TRACE(::testing::Message() << law.domain << law.byRatio << law.ratio);
    SetUp();
    Survey();
    UseLaw(law);
    Average();
    const std::vector<Row> rows = GlobalRows(3.5, 25.0);
    EXPECT_GE(rows.size(), 8u);
    for (const Row& row : rows) {
      EXPECT_NEAR(row.vel / ground.PhaseVelocity(row.vel / row.wlen), 1.0, 0.03) << row.wlen;
      EXPECT_GE(row.deviation, 0.0);
    }
  }
}

TEST_F(RepCurvesOfPairs, FitsOfTheSurveyAgreeWithOtherLeastSquaresSolutions) {
  Survey();
  int suppressed = 0;
  EXPECT_GT(CompareFits(suppressed), 800);
}

TEST_F(RepCurvesOfPairs, TheFastScanOfTheSurveyIsThePlainOneToTheBit) {
  Survey();
  ExpectPlainScan();
}

}  // namespace
}  // namespace sondera::testing
