// exdthd.h - the results page: experimental and theoretical curves, the profile beside them, and the progress
// of a run in two text boxes.
//
// ITERNO lists the results to view: a value at or above 0 is an iteration, a value below 0 a starting
// profile. The page starts for the inversion, with ITERNO and PLOT_INV visible. The curve lists start with
// their fixed item and are filled again for each run.
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

inline constexpr GraphControl CURVES{Panel::EXDTHD,
                                     "CURVES",
                                     "Experimental and theoretical curves",
                                     {.hint = "Experimental and theoretical dispersion curves; a double "
                                              "click opens the axis dialog, a click reads a place."}};
inline constexpr GraphControl RESIDUALS{
    Panel::EXDTHD,
    "RESIDUALS",
    "Residuals",
    {.hint = "Computed less measured velocity of the theoretical curves that are drawn, over the abscissa of "
             "the curves above."}};
inline constexpr TextControl COORD{Panel::EXDTHD,
                                   "COORD",
                                   "Cursor",
                                   {.hint = "Place of the cursor in the units of the axes.",
                                    .spoken = "Cursor, results page",
                                    .role = Role::ReadOut}};
inline constexpr GraphControl PROFILE{Panel::EXDTHD,
                                      "PROFILE",
                                      "Profile",
                                      {.hint = "Profile of shear wave velocity with its band, resolution, or "
                                               "RMS error of the entries, as chosen beside the curves."}};
inline constexpr RingControl FMDORINV{
    Panel::EXDTHD, "FMDORINV", "Analysis",
    kModes,        1,          {.hint = "Work of this page: forward modelling, or inversion."}};
inline constexpr RingControl EXDTYPE{Panel::EXDTHD,
                                     "EXDTYPE",
                                     "Experimental",
                                     kExperimental,
                                     1,
                                     {.hint = "Experimental curves that are drawn: those of the pairs "
                                              "(composite), the global curve, the array curves, or none."}};
inline constexpr RingControl THDTYPE{Panel::EXDTHD,
                                     "THDTYPE",
                                     "Theoretical",
                                     kTheoretical,
                                     {.hint = "Theoretical curves that are drawn: all, one, or none."}};
inline constexpr RingControl ARRAYDISPID{Panel::EXDTHD,
                                         "ARRAYDISPID",
                                         "Array curve",
                                         kArrayCurves,
                                         {.hint = "Array curve that is drawn, or all of them."}};
inline constexpr RingControl MARKER{Panel::EXDTHD,
                                    "MARKER",
                                    "Marker",
                                    panel_items::kMarkers,
                                    {.hint = "Marker of the curve that is chosen, 0 to 18; Redraw shows it.",
                                     .spoken = "Marker, results page"}};
inline constexpr RingControl COLOR{Panel::EXDTHD,
                                   "COLOR",
                                   "Colour",
                                   panel_items::kColors,
                                   {.hint = "Colour of the curve that is chosen, 0 to 17; Redraw shows it.",
                                    .spoken = "Colour, results page"}};
inline constexpr RingControl ITERNO{
    Panel::EXDTHD,
    "ITERNO",
    "Iteration",
    {.hint = "Entry that the page shows: an iteration (0 is the starting model) or a starting profile."}};
inline constexpr RingControl PLOT_INV{Panel::EXDTHD,
                                      "PLOT_INV",
                                      "Beside the curves",
                                      kSideGraphs,
                                      {.hint = "Graph beside the curves: profile, resolution or RMS error."}};
inline constexpr NumericControl RMSERROR{
    Panel::EXDTHD,
    "RMSERROR",
    "RMS error",
    {.hint = "Root mean square of the velocity misfit of the entry that is shown.",
     .role = Role::ReadOut,
     .unit = "length/s",
     .min = 0.0}};
inline constexpr TextControl STATUSMSG{
    Panel::EXDTHD,
    "STATUSMSG",
    "Status",
    {.hint = "What the run is doing, the share done and the time left.", .role = Role::TextBox}};
inline constexpr TextControl PROCESSMSG{
    Panel::EXDTHD,
    "PROCESSMSG",
    "Process",
    {.hint = "Progress of the run point by point.", .role = Role::TextBox}};
inline constexpr ButtonControl FMODELPARAM{
    Panel::EXDTHD,
    "FMODELPARAM",
    "Parameters",
    {.hint = "Opens the panel of layers, receivers and wanted points."}};
inline constexpr ButtonControl RUN_FMODEL{
    Panel::EXDTHD,
    "RUN_FMODEL",
    "Run Forward Modeling",
    {.hint = "Computes the theoretical dispersion curves of the layers in the panel."}};
inline constexpr ButtonControl RUN_INVERSION{
    Panel::EXDTHD, "RUN_INVERSION", "Inversion Analysis", {.hint = "Opens the panel of the inversion."}};
inline constexpr auto HALT = Dimmed(ButtonControl{
    Panel::EXDTHD, "HALT", "Halt", {.hint = "Halts the run after a question; finished iterations stay."}});
inline constexpr ButtonControl RESULTBOX{
    Panel::EXDTHD, "RESULTBOX", "Results", {.hint = "Opens the tables of the entry that is shown."}};
inline constexpr ButtonControl REDRAW{
    Panel::EXDTHD, "REDRAW", "Redraw", {.hint = "Redraws both graphs.", .spoken = "Redraw, results page"}};
inline constexpr ButtonControl CLOSE{Panel::EXDTHD, "CLOSE", "Close", {.hint = "Leaves this page."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &CURVES,     &RESIDUALS,     &COORD,  &PROFILE,   &FMDORINV, &EXDTYPE,   &THDTYPE,    &ARRAYDISPID,
    &MARKER,     &COLOR,         &ITERNO, &PLOT_INV,  &RMSERROR, &STATUSMSG, &PROCESSMSG, &FMODELPARAM,
    &RUN_FMODEL, &RUN_INVERSION, &HALT,   &RESULTBOX, &REDRAW,   &CLOSE};

}  // namespace sondera::exdthd
