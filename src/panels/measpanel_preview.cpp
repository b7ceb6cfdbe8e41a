// measpanel_preview.cpp - see measpanel_preview.h. Owns no state.
#include "panels/measpanel_preview.h"

#include <functional>
#include <iterator>

#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/dialogs.h"
#include "runtime/redraw.h"
#include "signal/spectra.h"

namespace sondera {

bool PreviewAccepted() {
  using namespace measpanel;
  const RingControl* const rings[] = {&DISPA_REFCHNL, &DISPB_REFCHNL, &DISPACHNL,
                                      &DISPBCHNL,     &DISPATYPE,     &DISPBTYPE};
  const int previewValues[] = {0, 0, 0, 1, spectral::kTimeTrace, spectral::kTimeTrace};
  int indices[std::size(rings)];
  for (std::size_t i = 0; i < std::size(rings); ++i) {
    indices[i] = GetCtrlIndex(*rings[i]);
    SetCtrlVal(*rings[i], previewValues[i]);
  }
  DoPreviewPlotting();
  const bool accepted =
      ConfirmOnPage(Panel::MEASPANEL, session.appTitle, "Accept the current measurements ?");
  for (std::size_t i = 0; i < std::size(rings); ++i) SetCtrlIndex(*rings[i], indices[i]);
  return accepted;
}

int CalcSpectralFns() {
  const int key = GetKeyFromID(GetCtrlVal(hmsetup::PROJID), GetCtrlVal(hmsetup::MEASID));
  std::function<bool()> accepts;
  if (session.measOptions.previewOn) accepts = PreviewAccepted;
  return CalcSpectralFns(key, accepts);
}

}  // namespace sondera
