// irfsetpnl.h - the two panels of the impulse response filtration: IRFSETPNL, by velocities and times, and
// IRFSETPNL2, by times only. Shows the windows of a pair and stores them, with checks of their order.
//
// OK and the Apply of IRFSETPNL2 work on the pair on display. Apply, Default and the mode of IRFSETPNL work
// on the measurement and channels that the panel itself shows. When windows are stored, CalcIRF, new Gabor
// maps for all three curves and a redraw follow; after a message nothing is stored. No state.
#pragma once

#include <cstddef>

#include "runtime/controls.h"

namespace sondera {

/// Shows the windows of a pair in the panels, and creates the pair when there is none.
/// @param panel  SASW: the pair on display; MEASPANEL: trace A of that page; another: project of the setup
///               dialog, measurement and channels last selected
/// Times that are not set are computed from the session's velocities. A velocity is spacing / T, or 50000 /
/// length unit where T is 0. Nothing happens without such a measurement.
void RefreshIRFwindow(Panel panel);

/// Button and trace controls, on commit: shows the panel, unless data is kKeepIRFPanelHidden, and updates it.
int CalcIRFCallback(Panel panel, ControlId control, Event event, long data);
inline constexpr long kKeepIRFPanelHidden = 0x7AB;

/// Menu: shows the panel with the pair on display. Kept: the spacing has its sign here, so velocities may be
/// negative, and the record length has no label.
int IRFSetupCallback(Panel panel, ControlId control, Event event, long data);

/// OK of IRFSETPNL: computes both windows from their velocities. Equal velocities pass the check of their
/// order. -1 with a message on a wrong order or on times outside the record; 0 without a pair.
int IRFsetupOkCallback(Panel panel, ControlId control, Event event, long data);

/// Whether the velocities of a window on IRFSETPNL are those that the button of the masking page shows for the
/// pair on display. False without a pair.
bool ShowsStoredVelocities(std::size_t window);
inline constexpr std::size_t kEnhancedWindow = 0, kBackboneWindow = 1;

/// APPLY of IRFSETPNL2: backbone window from the velocities of IRFSETPNL, enhanced window from the times of
/// this panel, mode from IRFSETPNL. Failures as above.
int IRFApplyCallback(Panel panel, ControlId control, Event event, long data);

/// APPLY of IRFSETPNL: stores the present mode and enhanced times without a check, and shows the velocities.
/// Kept: the third time is checked before the fourth velocity is computed.
int UpdateIrfParamCallback(Panel panel, ControlId control, Event event, long data);

/// COMMANDBUTTON_3 of IRFSETPNL: shows the default velocities for the present mode and site (GetIRFVEL), then
/// sets the panel to low-pass and geotechnical. Apply or OK store it in the record.
int DefaultIRFparmCallback(Panel panel, ControlId control, Event event, long data);

/// Default pseudo velocity of the panel, m/s, for the present IRFMODE and SITECAT.
/// @param n    1 to 4
/// @param set  0 enhanced, 1 backbone
/// Any other combination gives 0.
double GetIRFVEL(int n, int set);

/// Applies the site category of SITECAT: session velocities, all window times of the pair on display, and the
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
