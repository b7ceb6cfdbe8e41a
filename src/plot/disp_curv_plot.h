// disp_curv_plot.h - what the dispersion page shows: the two curve lists, the graph with its axes, the
// colours.
//
// Stands behind the redraw notice DispCurvPlot. Fills the controls and the graph model of DISPCURV from the
// pair records, the representative curves and the axis record session.dispAxis; draws nothing itself.
#pragma once

#include <array>

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

/// Fills the page. Included curves with points go to LIST_INCLUDED, excluded ones to LIST_EXCLUDED, included
/// ones without points to neither. A curve that has no colour gets the next one. An axis with automatic scale
/// takes its range from the pair curves, whatever is plotted, and keeps it in the axis record.
/// @param flag  1: labels "id[1:2]"; another: "CSW-id[1:2]"
/// Returns 0. Kept: -1, with the page left as it was, when there are pairs but no included curve with a
/// point, so the last curve stays on the page after it has been excluded.
int DrawDispCurvPage(int flag);

}  // namespace sondera
