// The automatic masks on measured records (support/field_data.h): every pair of both sites, imported in a
// person's steps, masked by the button, the curve calculated by the button, all questions answered No. The
// chapter of the manual on automatic masks has a table of the results; this test reads the table and compares
// it with the run.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>

#include "panels/sasw_auto_masking.h"
#include "panels/sasw_dispersion.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/text_format.h"
#include "signal/site_curves.h"
#include "support/field_data.h"
#include "support/import_fixture.h"
#include "support/percentile.h"

namespace sondera::testing {
namespace {

const std::string kChapter = std::string(SONDERA_SOURCE_DIR) + "/docs/auto-masking.md";
constexpr double kTableTo = 60.0;  // Hz; the table lists the masks that begin below

struct Ratios {
  int points = 0;
  double median = 0.0, low = 0.0, high = 0.0;  // to the site curve; tenth and ninetieth per cent
};

/// Results of one pair: the cells of its row.
struct Outcome {
  std::string site, pair;
  double spacing = 0.0;
  int masks = 0;
  struct Band {
    double from, to;
    int jumps;
  };
  std::vector<Band> bands = {};
  Ratios masked = {}, unmasked = {};
  bool asked = false;
};

// ---- the run

Ratios RatiosOf(const PMeasInfo& pair, const SiteCurve& curve) {
  std::vector<double> ratios;
  for (std::size_t i = 0; i < static_cast<std::size_t>(pair.nDispPoints); ++i) {
    const double v = SiteVelocity(curve, pair.dispFreq[i]);
    if (v > 0.0) ratios.push_back(pair.dispVel[i] / v);
  }
  if (ratios.empty()) return {};
  std::sort(ratios.begin(), ratios.end());
  return {static_cast<int>(ratios.size()), Percentile(ratios, 0.5), Percentile(ratios, 0.1),
          Percentile(ratios, 0.9)};
}

class AutoMasksOfRecords : public ImportTest {
 protected:
  void SetUp() override {
    ImportTest::SetUp();
    SKIP_WITHOUT_FIELD_DATA("wghs_src-10m");
  }
  void ImportSite(const std::string& folder, const std::vector<double>& locations) {
    ImportEntries entries;
    entries.kind = ImportKind::TimeHistory;
    entries.receivers = 6;
    entries.locations = locations;
    for (int c = 1; c <= 6; ++c)
      entries.files.push_back(test::FieldFile(folder + FormatText("/rec%d.tim", c)));
    ASSERT_EQ(Import(entries), 0);
    ASSERT_TRUE(frontEnd.messages.empty()) << frontEnd.messages.front();
  }

  Ratios Calculate(const SiteCurve& curve, int refChan, int dspChan) {
    EXPECT_EQ(MaskingCalcDispCallback(Panel::SASW, &sasw::MASKINGCALCDISP, Event::Commit, 0), 0);
    const PMeasInfo* pair = FindPair(GetKeyFromID("ProjID", "new"), refChan, dspChan);
    return pair ? RatiosOf(*pair, curve) : Ratios{};
  }

  Outcome MaskPair(const std::string& site, const SiteCurve& curve, int refChan, int dspChan) {
    SetCtrlIndex(sasw::DISPAID, FindListItem(sasw::DISPAID, "new"));
    SetCtrlIndex(sasw::DISPA_REFCHNL, refChan);
    SetCtrlIndex(sasw::DISPACHNL, dspChan);
    Outcome o;
    o.site = site;
    o.pair = FormatText("%d-%d", refChan + 1, dspChan + 1);
    const std::vector<double>& recLoc = MeasurementSetup().recLoc;
    o.spacing = recLoc[static_cast<std::size_t>(dspChan)] - recLoc[static_cast<std::size_t>(refChan)];
    o.unmasked = Calculate(curve, refChan, dspChan);
    const std::size_t questions = frontEnd.questions.size();
    EXPECT_EQ(MaskingAutoCallback(Panel::SASW, &sasw::MASKINGAUTO, Event::Commit, 0), 0);
    o.asked = frontEnd.questions.size() > questions;
    for (const MaskingInfo& m : MeasDB.maskingList) {
      if (m.refChan != refChan || m.dspChan != dspChan) continue;
      ++o.masks;
      if (m.freqInit < kTableTo) o.bands.push_back({m.freqInit, m.freqFinal, m.jumpNo});
    }
    o.masked = Calculate(curve, refChan, dspChan);
    return o;
  }

  std::vector<Outcome> Run() {
    struct Site {
      const char *name, *folder;
      std::vector<double> locations;
      const SiteCurve& curve;
    };
    const Site sites[] = {{"Oysand", "oysand_src20m", {0, 20, 24, 34, 40, 50, 66}, kOysandCurve},
                          {"WGHS", "wghs_src-10m", {-10, 0, 4, 10, 20, 30, 46}, kWghsCurve}};
    std::vector<Outcome> outcomes;
    for (const Site& site : sites) {
      SetUp();
      ImportSite(site.folder, site.locations);
      for (int a = 0; a < 6; ++a)
        for (int b = a + 1; b < 6; ++b) outcomes.push_back(MaskPair(site.name, site.curve, a, b));
    }
    return outcomes;
  }
};

// ---- the table

std::string RatioText(const Ratios& r) {
  return r.points == 0 ? "-" : FormatText("%.2f (%.2f to %.2f)", r.median, r.low, r.high);
}

std::string RowOf(const Outcome& o) {
  std::string bands;
  for (const auto& b : o.bands)
    bands += FormatText("%s%.1f to %.1f (%d)", bands.empty() ? "" : ", ", b.from, b.to, b.jumps);
  return FormatText("| %s | %s | %g | %d | %s | %d | %s | %s | %s |", o.site.c_str(), o.pair.c_str(),
                    o.spacing, o.masks, bands.empty() ? "none" : bands.c_str(), o.masked.points,
                    RatioText(o.masked).c_str(), RatioText(o.unmasked).c_str(), o.asked ? "yes" : "no");
}

/// Numbers of a text in their order; a minus sign does not count.
std::vector<double> NumbersIn(const std::string& text) {
  std::vector<double> numbers;
  for (std::size_t i = 0; i < text.size();) {
    std::size_t used = 0;
    const bool digit = text[i] >= '0' && text[i] <= '9';
    if (digit) numbers.push_back(ParseReal(text.substr(i), &used));
    i += std::max<std::size_t>(used, 1);
  }
  return numbers;
}

std::vector<std::string> CellsOf(const std::string& row) {
  std::vector<std::string> cells;
  for (std::size_t at = row.find('|'); at != std::string::npos;) {
    const std::size_t next = row.find('|', at + 1);
    if (next != std::string::npos) cells.push_back(row.substr(at + 1, next - at - 1));
    at = next;
  }
  return cells;
}

std::vector<std::string> ChapterLines(const std::string& beginning) {
  std::vector<std::string> lines;
  std::ifstream in(kChapter);
  EXPECT_TRUE(in) << kChapter;
  for (std::string line; std::getline(in, line);)
    if (line.starts_with(beginning)) lines.push_back(line);
  return lines;
}

void ExpectNumbers(const std::string& cell, const std::vector<double>& expected, double tolerance) {
  const std::vector<double> numbers = NumbersIn(cell);
  ASSERT_EQ(numbers.size(), expected.size()) << cell;
  for (std::size_t i = 0; i < numbers.size(); ++i) EXPECT_NEAR(numbers[i], expected[i], tolerance) << cell;
}

void ExpectRatio(const std::string& cell, const Ratios& r) {
  ExpectNumbers(cell, r.points == 0 ? std::vector<double>{} : std::vector<double>{r.median, r.low, r.high},
                0.0101);
}

TEST_F(AutoMasksOfRecords, TableOfTheManualTellsTheOutcome) {
  std::vector<std::string> rows = ChapterLines("| Oysand");
  for (const std::string& row : ChapterLines("| WGHS")) rows.push_back(row);
  const std::vector<Outcome> outcomes = Run();
  ASSERT_EQ(outcomes.size(), 30u);
  if (rows.size() != outcomes.size())
    for (const Outcome& o : outcomes) std::printf("%s\n", RowOf(o).c_str());
  ASSERT_EQ(rows.size(), outcomes.size()) << "one row per pair; the rows of this run are above";
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const Outcome& o = outcomes[i];
    SCOPED_TRACE("this run: " + RowOf(o) + "\n  the manual: " + rows[i]);
    const std::vector<std::string> cells = CellsOf(rows[i]);
    ASSERT_EQ(cells.size(), 9u);
    EXPECT_EQ(cells[0] + cells[1], " " + o.site + "  " + o.pair + " ");
    ExpectNumbers(cells[2], {o.spacing}, 0.0);
    ExpectNumbers(cells[3], {static_cast<double>(o.masks)}, 0.0);
    std::vector<double> bands;
    for (const auto& b : o.bands) bands.insert(bands.end(), {b.from, b.to, static_cast<double>(b.jumps)});
    ExpectNumbers(cells[4], bands, 0.55);  // a line and the rounding; jumps are whole
    ExpectNumbers(cells[5], {static_cast<double>(o.masked.points)}, 2.0);
    ExpectRatio(cells[6], o.masked);
    ExpectRatio(cells[7], o.unmasked);
    EXPECT_EQ(cells[8], o.asked ? " yes " : " no ");
  }
}

TEST_F(AutoMasksOfRecords, SumOfTheTableIsRight) {
  const auto close = [](const Ratios& r) {  // as the table shows it, in hundredths
    return r.points > 0 && std::labs(std::lround(100.0 * r.median) - 100) <= 10;
  };
  int within = 0, without = 0, none = 0;
  for (const Outcome& o : Run()) {
    none += o.masked.points == 0;
    within += close(o.masked);
    without += close(o.unmasked);
  }
  const std::vector<std::string> line = ChapterLines("Of the 30 pairs");
  ASSERT_EQ(line.size(), 1u);
  ExpectNumbers(
      line[0],
      {30.0, static_cast<double>(within), 10.0, static_cast<double>(none), static_cast<double>(without)},
      0.0);
}

}  // namespace
}  // namespace sondera::testing
