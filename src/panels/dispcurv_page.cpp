// dispcurv_page.cpp - see dispcurv_page.h. Owns no state.
#include "panels/dispcurv_page.h"

#include <string>

#include "plot/disp_curv_plot.h"
#include "records/curve_labels.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/dispcurv.h"

namespace sondera {
namespace {

constexpr int kLastCounterValue = 18;

}  // namespace

void FillCurveLists(bool csw) {
  ClearListCtrl(dispcurv::LIST_INCLUDED);
  ClearListCtrl(dispcurv::LIST_EXCLUDED);
  for (int i = 1; i <= MeasDB.pMeasList.count(); ++i) {
    const PMeasInfo& pair = *MeasDB.pMeasList.at(i);
    std::string projID, measID;
    if (!GetIDfromKey(pair.key, projID, measID)) continue;
    const std::string label = DispCurveLabel(measID, pair.refChan, pair.dspChan, csw);
    if (pair.included != 1) InsertListItem(dispcurv::LIST_EXCLUDED, -1, label, i - 1);
    if (IsPlotted(pair)) InsertListItem(dispcurv::LIST_INCLUDED, -1, label, i - 1);
  }
}

int DrawDispCurvPage(int flag) {
  if (!MeasDB.pMeasList.empty() && CountIncludedPoints() == 0) return -1;
  if (session.nextCurveColor > kLastCounterValue) session.nextCurveColor = 0;
  const bool csw = flag != 1;
  FillCurveLists(csw);
  PlotDispCurves(dispcurv::DISPGRAPH, GatherCurves(csw), GetCtrlVal(dispcurv::DISPCURVTYPE),
                 session.dispAxis);
  return 0;
}

}  // namespace sondera
