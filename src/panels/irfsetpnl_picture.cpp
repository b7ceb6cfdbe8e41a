// irfsetpnl_picture.cpp - see irfsetpnl_picture.h.
#include "panels/irfsetpnl_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "plot/filter_plot.h"
#include "records/measdb.h"
#include "records/selection.h"
#include "records/session.h"
#include "runtime/catalogue/irfsetpnl.h"
#include "runtime/graphs.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

using namespace irfsetpnl;

using Fields = std::array<const NumericControl*, 5>;  // 1 to 4
constexpr Fields kTimes = {nullptr, &SMIRF_T1, &SMIRF_T2, &SMIRF_T3, &SMIRF_T4};
constexpr Fields kVelocities = {nullptr, &SMIRF_V1, &SMIRF_V2, &SMIRF_V3, &SMIRF_V4};
constexpr Fields kBackbone = {nullptr, &BBIRF_V1, &BBIRF_V2, &BBIRF_V3, &BBIRF_V4};
constexpr double kSameTime =
    1e-3;  // of the last corner: velocities come from times that are rounded to four figures
constexpr double kNoDelay = 250000;  // velocity of a corner at time 0, as Apply shows it

/// The pair that the panel names.
struct NamedPair {
  CurrentPair current;
  IrfGeometry geometry;
  bool found = false;
};

NamedPair PairOfPanel() {
  NamedPair named;
  CurrentPair& c = named.current;
  c.key = GetKeyFromID(session.curProjID, GetCtrlVal(MEASID));
  c.refChan = GetCtrlVal(REFCHNL) - 1;
  c.dspChan = GetCtrlVal(DSPCHNL) - 1;
  if (GetInfoFromKey(c.key, c.records) == -1) return named;
  c.pair = FindPair(c.key, c.refChan, c.dspChan);
  named.found = c.pair && GetIrfGeometry(c, named.geometry);
  return named;
}

WindowFour TimesIn(const Fields& fields) {
  WindowFour times{};
  for (std::size_t k = 1; k <= 4; ++k) times[k] = GetCtrlVal(*fields[k]);
  return times;
}

/// A velocity of 0 or less stands for no delay.
WindowFour DelaysIn(const Fields& fields, double spacing) {
  WindowFour times{};
  for (std::size_t k = 1; k <= 4; ++k) {
    const double velocity = GetCtrlVal(*fields[k]);
    if (velocity > 0.0) times[k] = spacing / velocity;
  }
  return times;
}

bool Differ(const WindowFour& a, const WindowFour& b, int corners) {
  const double size = std::max({a[4], b[4], a[2], b[2]});
  for (int k = 1; k <= corners; ++k)
    if (std::fabs(a[static_cast<std::size_t>(k)] - b[static_cast<std::size_t>(k)]) > kSameTime * size)
      return true;
  return false;
}

FilterPicture PictureOf(const NamedPair& named) {
  FilterPicture p;
  p.response = named.current.pair->irRe;
  p.deltaT = named.current.records.hwSetup->deltaT;
  p.mode = GetCtrlVal(IRFMODE);
  const double spacing = std::fabs(named.geometry.spacing);
  p.enhanced = TimesIn(kTimes);
  p.backbone = DelaysIn(kBackbone, spacing);
  p.other = DelaysIn(kVelocities, spacing);
  p.hasOther = Differ(p.enhanced, p.other, OwnCorners(p.mode));
  return p;
}

double FourFigures(double value) {
  return ParseReal(FormatText("%.4g", value));
}

}  // namespace

void DrawFilterWindows() {
  const NamedPair named = PairOfPanel();
  PlotFilterWindows(WINDOWS, named.found ? PictureOf(named) : FilterPicture{});
}

int FilterWindowsCallback(Panel, ControlId, Event event, long) {
  const std::optional<GraphPlace> place = PlaceOfEvent(WINDOWS);
  if (!place || place->cursor < 1 || (event != Event::ValChanged && event != Event::Commit)) return 0;
  const NamedPair named = PairOfPanel();
  if (!named.found) return 0;
  const FilterPicture picture = PictureOf(named);
  const int corners = OwnCorners(picture.mode);
  if (place->cursor > 2 * corners) return 0;
  const bool enhanced = place->cursor <= corners;
  const auto k = static_cast<std::size_t>(enhanced ? place->cursor : place->cursor - corners);
  const WindowFour& times = enhanced ? picture.enhanced : picture.backbone;
  const double end = picture.mode == kLowPass ? 0.5 * named.geometry.total : named.geometry.total;
  const double low = k > 1 ? times[k - 1] : 0.0;
  const double high = std::max(low, static_cast<int>(k) < corners ? times[k + 1] : end);
  const double time = std::clamp(FourFigures(place->x), low, high),
               spacing = std::fabs(named.geometry.spacing);
  const double velocity = time > 0.0 ? spacing / time : kNoDelay;
  if (enhanced) SetCtrlVal(*kTimes[k], time);
  SetCtrlVal(enhanced ? *kVelocities[k] : *kBackbone[k], velocity);
  DrawFilterWindows();
  return 0;
}

}  // namespace sondera
