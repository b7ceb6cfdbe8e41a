// irfsetpnl.h - the two panels of the impulse response filtration: IRFSETPNL, by velocities and times, and
// IRFSETPNL2, by times only. Shows the windows of a pair and takes them back, with the tests on their order.
//
// OK and the Apply of IRFSETPNL2 work on the pair on display. Apply, Default and the mode of IRFSETPNL work
// on the measurement and channels that the panel itself shows. Whatever stores windows ends with CalcIRF,
// fresh Gabor maps for all three curves and a redraw; whatever complains stores nothing. No state.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Shows the windows of a pair in the panels, and makes the pair when there is none.
/// @param panel  SASW: the pair on display; MEASPANEL: trace A of that page; another: project of the setup
/// dialog,
///               measurement and channels last selected
/// Times that are not set are made from the session's velocities. A velocity is spacing / T, or 50000 /
/// length unit where T is 0. Nothing happens without such a measurement.
void RefreshIRFwindow(Panel panel);

/// Button and trace controls, on commit: shows the panel, unless data is kKeepIRFPanelHidden, and refreshes
/// it.
int CalcIRFCallback(Panel panel, ControlId control, Event event, long data);
inline constexpr long kKeepIRFPanelHidden = 0x7AB;

/// Menu: shows the panel with the pair on display. Kept: the spacing has its sign here, so velocities may be
/// negative, and the record length stands without its label.
int IRFSetupCallback(Panel panel, ControlId control, Event event, long data);

/// OK of IRFSETPNL: takes both windows from their velocities. Equal velocities pass the test on their order.
/// -1 with a message on a wrong order or on times outside the record; 0 without a pair.
int IRFsetupOkCallback(Panel panel, ControlId control, Event event, long data);

/// APPLY of IRFSETPNL2: backbone window from the velocities of IRFSETPNL, enhanced window from the times of
/// this panel, mode from IRFSETPNL. Failures as above.
int IRFApplyCallback(Panel panel, ControlId control, Event event, long data);

/// APPLY of IRFSETPNL: takes mode and enhanced times as they stand, without a test, and shows the velocities.
/// Kept: the fourth velocity is guarded by the third time.
int UpdateIrfParamCallback(Panel panel, ControlId control, Event event, long data);

/// COMMANDBUTTON_3 of IRFSETPNL: shows the default velocities for mode and site as they stand (GetIRFVEL),
/// then turns the panel to low-pass and geotechnical. The record waits for Apply or OK.
int DefaultIRFparmCallback(Panel panel, ControlId control, Event event, long data);

/// Default pseudo velocity of the panel, m/s, by IRFMODE and SITECAT as they stand there.
/// @param n    1 to 4
/// @param set  0 enhanced, 1 backbone
/// Any other combination gives 0.
double GetIRFVEL(int n, int set);

/// Takes the site category of SITECAT: session velocities, all window times of the pair on display, and the
/// panel. The callback does this on commit.
void SetupSiteCategory();
int SetupSiteCatCallback(Panel panel, ControlId control, Event event, long data);

/// IRFMODE: stores it in the pair.
int IRFmodeCallback(Panel panel, ControlId control, Event event, long data);

/// IRFMODE: a low-pass window derives its third and fourth time, so those velocities are dimmed.
int SetIRFModeCallback(Panel panel, ControlId control, Event event, long data);

/// CANCEL of IRFSETPNL and CLOSE of IRFSETPNL2, or closing the window: hides the panel.
int IRFsetupCancelCallback(Panel panel, ControlId control, Event event, long data);
int CloseIRFCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
