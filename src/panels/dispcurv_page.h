// dispcurv_page.h - fills the DISPCURV page: the two curve lists and the graph. Stands behind the redraw notice
// DispCurvPlot. No state besides the session's axis record and counter of colours.
#pragma once

namespace sondera {

/// Fills the page. Included curves with points go to LIST_INCLUDED, excluded ones to LIST_EXCLUDED, included
/// ones without points to neither; DISPCURVTYPE says what the graph shows (plot/disp_curv_plot.h).
/// @param flag  1: labels "id[1:2]"; another: "CSW-id[1:2]"
/// Returns 0. Kept: -1, with the page left as it was, when there are pairs but no included curve with a
/// point, so the last curve stays on the page after it has been excluded.
int DrawDispCurvPage(int flag);

/// The two lists alone.
/// @param csw  labels "CSW-id[1:2]"
void FillCurveLists(bool csw = false);

}  // namespace sondera
