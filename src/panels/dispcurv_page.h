// dispcurv_page.h - fills the DISPCURV page: the two curve lists and the graph. The redraw notice
// DispCurvPlot calls it. No state besides the session's axis record and counter of colours.
#pragma once

namespace sondera {

/// Fills the page. Included curves with points are listed in LIST_INCLUDED, excluded ones in LIST_EXCLUDED,
/// included ones without points in neither; DISPCURVTYPE selects the curves of the graph
/// (plot/disp_curv_plot.h).
/// @param flag  1: labels "id[1:2]"; another: "CSW-id[1:2]"
/// Returns 0. Kept: -1, with the page unchanged, when there are pairs but no included curve with a point, so
/// the last curve stays on the page after it has been excluded.
int DrawDispCurvPage(int flag);

/// Only the two lists.
/// @param csw  labels "CSW-id[1:2]"
void FillCurveLists(bool csw = false);

}  // namespace sondera
