// disp_curv_plot.h - the graph of the dispersion page: its curves with their colours, and its axes.
//
// panels/dispcurv_page.h uses it for its page. Fills the graph model and draws nothing itself.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "records/measdb.h"
#include "records/session.h"
#include "runtime/graphs.h"

namespace sondera {

/// Colours of curves by index, 0xRRGGBB, in the order of the COLOR ring.
inline constexpr std::array<int, 18> kCurveColors = {
    0xFF0000, 0xFF00,   0xFF,     0xFFFF,   0xFF00FF, 0xFFFF00, 0x800000, 0x80,     0x8000,
    0x8080,   0x800080, 0x808000, 0xC0C0C0, 0x808080, 0,        0xFFFFFF, 0xC0C0C0, 0xA0A0A0};
/// Colour of an index, taken modulo 18.
int CurveColor(int index);

/// DISPCURVTYPE.
namespace curve_type {
inline constexpr int kComposite = 0;
inline constexpr int kGlobal = 1;
inline constexpr int kArray = 2;
inline constexpr int kCompositeGlobal = 3;
inline constexpr int kCompositeArray = 4;
}  // namespace curve_type

/// A curve prepared for the graph; columns by quantity: velocity, frequency, wavelength.
struct PageCurve {
  std::string label;
  std::array<std::span<const double>, 3> columns;
  int marker = 0, color = 0;
};

/// All curves that can be plotted.
struct PageCurves {
  std::vector<PageCurve> composite, global, array;
};

/// A pair with included = 1 and a curve of at least one point.
bool IsPlotted(const PMeasInfo& pair);
/// Points of all pairs with included = 1.
std::size_t CountIncludedPoints();

/// All curves that can be plotted, from the pair records and the representative curves. A curve of a pair
/// without a colour gets the next one (session.nextCurveColor). Curves whose pairs still have the first marker, a
/// solid circle, are drawn with markers that differ from those of all other pairs; the records keep theirs.
/// @param csw  labels "CSW-id[1:2]" in place of "id[1:2]"
/// The columns are views of the records.
PageCurves GatherCurves(bool csw);

/// Names and scales both axes by their record. An axis with automatic scale gets its range from these curves,
/// with margin and on round numbers, and stores it in the record; without a value its limits are automatic.
void SetUpCurveAxes(const GraphControl& graph, std::span<const PageCurve> curves, AxisRecord& axes);
/// Adds curves by the quantities of the axis record.
/// @param behind  in the colour for curves behind a representative one, instead of their own
void AddPageCurves(const GraphControl& graph, std::span<const PageCurve> curves, const AxisRecord& axes,
                   PlotStyle style, bool behind = false);

/// Replaces the curves of a graph by those that DISPCURVTYPE names, and sets its axes. An axis with automatic
/// scale gets its range from the pair curves, whichever are plotted, and stores it in the axis record.
/// @param type  a number of namespace curve_type
void PlotDispCurves(const GraphControl& graph, const PageCurves& curves, int type, AxisRecord& axes);

/// The curve of one pair alone, by the quantities and scales of the page and with limits of its own. Empties the graph
/// where there is no pair or no curve. @return whether there is one
bool PlotPairCurve(const GraphControl& graph, const PMeasInfo* pair, const std::string& label,
                   const AxisRecord& page);

}  // namespace sondera
