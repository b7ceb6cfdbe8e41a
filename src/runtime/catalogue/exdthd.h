// exdthd.h - the results page: experimental against theoretical curves, the profile beside them, and the
// progress of a run in two text boxes.
//
// ITERNO lists what can be viewed: a value at or above 0 is an iteration, a value below 0 a starting profile.
// The page starts in the face of the inversion, the one in which ITERNO and PLOT_INV show. The curve lists
// start with their fixed item and are filled anew for each run.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::exdthd {

inline constexpr ListItem kModes[] = {{"F. Modeling", 1}, {"Inversion", 2}};
inline constexpr ListItem kExperimental[] = {{"Not Displayed", 0},       {"Composite", 1},
                                             {"Composite+Global R.", 2}, {"Composite+Array R.", 3},
                                             {"Global R.", 4},           {"Array R.", 5}};
inline constexpr ListItem kTheoretical[] = {{"Not Displayed", -2}, {"Theoretical", -1}};
inline constexpr ListItem kArrayCurves[] = {{"All", -1}};
inline constexpr ListItem kSideGraphs[] = {{"Profile", 0}, {"Resolution", 1}, {"RMS Error", 2}};

inline constexpr GraphControl CURVES{Panel::EXDTHD, "CURVES", "Experimental and theoretical curves"};
inline constexpr TextControl COORD{Panel::EXDTHD, "COORD", "Cursor"};
inline constexpr GraphControl PROFILE{Panel::EXDTHD, "PROFILE", "Profile"};
inline constexpr RingControl FMDORINV{Panel::EXDTHD, "FMDORINV", "Analysis", kModes, 1};
inline constexpr RingControl EXDTYPE{Panel::EXDTHD, "EXDTYPE", "Experimental", kExperimental, 1};
inline constexpr RingControl THDTYPE{Panel::EXDTHD, "THDTYPE", "Theoretical", kTheoretical};
inline constexpr RingControl ARRAYDISPID{Panel::EXDTHD, "ARRAYDISPID", "Array curve", kArrayCurves};
inline constexpr RingControl MARKER{Panel::EXDTHD, "MARKER", "Marker", panel_items::kMarkers};
inline constexpr RingControl COLOR{Panel::EXDTHD, "COLOR", "Colour", panel_items::kColors};
inline constexpr RingControl ITERNO{Panel::EXDTHD, "ITERNO", "Iteration"};
inline constexpr RingControl PLOT_INV{Panel::EXDTHD, "PLOT_INV", "Beside the curves", kSideGraphs};
inline constexpr NumericControl RMSERROR{Panel::EXDTHD, "RMSERROR", "RMS error"};
inline constexpr TextControl STATUSMSG{Panel::EXDTHD, "STATUSMSG", "Status"};
inline constexpr TextControl PROCESSMSG{Panel::EXDTHD, "PROCESSMSG", "Process"};
inline constexpr ButtonControl FMODELPARAM{Panel::EXDTHD, "FMODELPARAM", "Parameters"};
inline constexpr ButtonControl RUN_FMODEL{Panel::EXDTHD, "RUN_FMODEL", "Run Forward Modeling"};
inline constexpr ButtonControl RUN_INVERSION{Panel::EXDTHD, "RUN_INVERSION", "Inversion Analysis"};
inline constexpr ButtonControl HALT{Panel::EXDTHD, "HALT", "Halt"};
inline constexpr ButtonControl RESULTBOX{Panel::EXDTHD, "RESULTBOX", "Results"};
inline constexpr ButtonControl REDRAW{Panel::EXDTHD, "REDRAW", "Redraw"};
inline constexpr ButtonControl CLOSE{Panel::EXDTHD, "CLOSE", "Close"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &CURVES,      &COORD,      &PROFILE,       &FMDORINV, &EXDTYPE,   &THDTYPE,   &ARRAYDISPID,
    &MARKER,      &COLOR,      &ITERNO,        &PLOT_INV, &RMSERROR,  &STATUSMSG, &PROCESSMSG,
    &FMODELPARAM, &RUN_FMODEL, &RUN_INVERSION, &HALT,     &RESULTBOX, &REDRAW,    &CLOSE};

}  // namespace sondera::exdthd
