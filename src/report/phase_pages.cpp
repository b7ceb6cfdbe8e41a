// phase_pages.cpp - see phase_pages.h.
#include "report/phase_pages.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "numeric/scale_arithmetic.h"
#include "plot_ps/plot_ps.h"
#include "records/kinds.h"
#include "records/measdb.h"
#include "report/data_text.h"
#include "report/graph_state.h"
#include "report/plot_graf.h"
#include "report/sheet.h"

namespace sondera {
namespace {

constexpr float kWidth = 15.0f, kHeight = 4.0f, kGap = 1.5f, kLeft = 2.0f;
constexpr int kGraphs = 4;  // on a page
constexpr double kHalfTurn = 180.0;

/// Frequencies of a pair from 0 on.
int PointCount(const PMeasInfo& pair, const HWSetup& hw, const std::vector<double>& phase) {
  const double last = std::round(BandEnd(hw) / hw.deltaF);
  const bool usable = std::isfinite(last) && last > 0.0;
  const double wanted = usable ? last + 1.0 : hw.nLines;
  const double held = static_cast<double>(std::min(pair.hPhase.size(), phase.size()));
  return std::max(TruncToInt(std::min(wanted, held)), 0);
}

const std::vector<double>& PhaseInUse(const PMeasInfo& pair) {
  if (pair.phaseOption == kEnhancedPhase) return pair.phaseEn;
  return pair.phaseOption == kBackbonePhase ? pair.phaseBB : pair.phaseOrig;
}

/// Unwrapped phase, which decreases, as wrapped phase.
double Folded(double u) {
  return -u - 2.0 * kHalfTurn * std::ceil((-u - kHalfTurn) / (2.0 * kHalfTurn));
}

struct Masks {
  std::vector<double> from, to;
  std::vector<int> numbers;
};

Masks MasksOf(const PMeasInfo& pair, double bandEnd) {
  Masks masks;
  for (const MaskingInfo& mask : MeasDB.maskingList) {
    if (mask.key != pair.key || mask.refChan != pair.refChan || mask.dspChan != pair.dspChan) continue;
    masks.from.push_back(mask.freqInit);
    masks.to.push_back(bandEnd > 0.0 ? std::min(mask.freqFinal, bandEnd) : mask.freqFinal);
    masks.numbers.push_back(mask.jumpNo);
  }
  return masks;
}

std::string TitleOf(const PMeasInfo& pair, const std::string& projID, const std::string& measID) {
  constexpr float kTitleX = kLeft - 1.7f, kTitleHeight = 0.3f;
  const std::string included = pair.included == 1 ? " [Included in Disp. Curve]" : "";
  return PageText(projID + ":" + measID, LettersToTheEdge(kTitleX, kTitleHeight) - included.size()) +
         included;
}

void DrawGraph(const PMeasInfo& pair, const HWSetup& hw) {
  constexpr float kSmall = 0.15f, kMeasuredWidth = 0.5f, kInUseWidth = 0.1f;
  const std::vector<double>& inUse = PhaseInUse(pair);
  const int n = PointCount(pair, hw, inUse);
  std::vector<double> frequency, folded;
  for (int k = 0; k < n; ++k) {
    frequency.push_back(k * hw.deltaF);
    folded.push_back(Folded(inUse[static_cast<std::size_t>(k)]));
  }
  SetTics(5, 4, 2, 0);
  SetAxRange(0.0, 0.0, -kHalfTurn, kHalfTurn);
  ps_font("Courier", kSmall);
  const Masks masks = MasksOf(pair, BandEnd(hw));
  PlotMaskingBox(frequency.data(), pair.hPhase.data(), n, masks.from, masks.to, masks.numbers, false, true);
  ps_solid_line();
  ps_line_width(kMeasuredWidth);
  ps_gray(0.0f);
  PlotGraf(frequency.data(), pair.hPhase.data(), n, false, true, true, true, true, kNormalGraph);
  ps_line_width(kInUseWidth);
  AddLine(frequency.data(), folded.data(), n, false, true, kNormalGraph);
}

}  // namespace

void PrintPsPhase(const ReportInput& input) {
  PageFooter(input.projectFile);
  int place = 0;  // on the page, from 1
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    std::string projID, measID;
    const HWSetup* hw = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(pair.key));
    if (!hw || !GetIDfromKey(pair.key, projID, measID)) continue;
    if (++place > kGraphs) {
      ps_newpage();
      PageFooter(input.projectFile);
      place = 1;
    }
    PG_Init("Frequency, Hz", "", TitleOf(pair, projID, measID), false);
    SetAxSize(kWidth, kHeight, kLeft, static_cast<float>(kGraphs - place) * (kGap + kHeight) + kGap);
    DrawGraph(pair, *hw);
  }
}

}  // namespace sondera
