// sasw_dispersion.h - the button and the menu entry that make the dispersion curve of the pair on display. No state.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Button MASKINGCALCDISP: computes the curve of the current pair (FindCurrentPair(Panel::SASW)) up to the
/// end of the analysis band, with alphaWlen from HYX_WLENFILTER and the phase of DISPCURV_OPTION, which are
/// stored in the session and the pair. First it updates the pair's spectra and phases, and creates a missing
/// record. Ends with DispCurvPlot(1). A curve without a point is excluded, any other included. -1 on window
/// B, without a measurement, for one whose sampling or positions break the rules (MeasurementFault), or when
/// source or receivers are at the same place, with a message (none without a measurement).
int MaskingCalcDispCallback(Panel panel, ControlId control, Event event, long data);

/// Menu "Calculate": the same with six differences that callers rely on. Without a measurement nothing
/// happens; the window and the distances are not checked; alphaWlen and phase are those last used; all lines
/// are used, and line i is at startFreq + i * deltaF.
int MaskingCalcDispMenuCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
