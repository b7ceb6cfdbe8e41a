// gaborpnl.h - the panel GABORPNL: range, divisions and Gauss filter of the Gabor maps, and their four
// colours. Works on the pair on display (LookupID). No state of its own: settings are in the pair, colours
// and the threshold for new pairs in the session.
#pragma once

#include <vector>

#include "runtime/controls.h"
#include "runtime/graphs.h"

namespace sondera {

/// Shows the settings of the pair on the panel, and sets a final time or frequency that is not set. Kept: the
/// first time and frequency become 0 again. Without a pair nothing happens.
void RefreshGaborSetup();

/// Copies the settings from the panel to the pair and updates the colour scale. Divisions are limited to 0 to
/// 50, in their fields as well. 0; without a pair only the threshold is read, for new pairs, and the result
/// is -1.
int UpdateGaborConfig();

/// Draws the colour strip COLORSCALE and shows the four levels and colours.
void RefreshGaborColorScale();

/// The colours of a map (plot/gabor_plot.h) above the threshold of the pair on display, or above that for new
/// pairs when there is none.
std::vector<ColorLevel> MakeGaborColorMap();

/// Menu: shows the panel with the pair on display.
int GaborSetupCallback(Panel panel, ControlId control, Event event, long data);

/// CALC: reads the panel, makes all three maps and shows them: when neither trace of the masking page is a
/// Gabor display, trace B becomes that of the pair. Kept: the pair ends with the backbone phase. -1 without a
/// pair.
int GaborCalcCallback(Panel panel, ControlId control, Event event, long data);

/// UPDATE: reads the panel and redraws. -1 without a pair.
int GaborSetupUpdateCallback(Panel panel, ControlId control, Event event, long data);

/// DEFAULTVALUE: colours, threshold and settings of the pair as at the start. Kept: width and exponent of the
/// Gauss filter are exchanged compared with those of a new pair, 3 and 0.5; a width above 1 leaves maps
/// empty.
int GaborDefaultCallback(Panel panel, ControlId control, Event event, long data);

/// CLOSE, or closing the window: hides the panel.
int GaborSetupCancelCallback(Panel panel, ControlId control, Event event, long data);

/// The four colours, on each change.
int AdjustIntenseColor(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
