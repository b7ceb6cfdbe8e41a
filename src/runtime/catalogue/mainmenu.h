// mainmenu.h - the menu bar of the main window, in the order of its menus. Names follow the callbacks.
#pragma once

#include "runtime/controls.h"

namespace sondera::mainmenu {

inline constexpr MenuControl NEW_MEASUREMENT{
    "NEW_MEASUREMENT", "File", "New ", {.hint = "Begins an empty project after a question."}};
inline constexpr MenuControl LOAD_RAW_DATA{
    "LOAD_RAW_DATA", "File", "Open", {.hint = "Opens a project file, .da."}};
inline constexpr MenuControl SAVE_RAW_DATA{
    "SAVE_RAW_DATA", "File", "Save", {.hint = "Saves the project; asks for a name if it has none."}};
inline constexpr MenuControl LOAD_TWO_CHNL_DATA{"LOAD_TWO_CHNL_DATA",
                                                "File/Import",
                                                "ASCII Format Data",
                                                {.hint = "Imports measurements from text and UFF 58 files."}};
inline constexpr MenuControl LOAD_EXD_FILE_MENU{"LOAD_EXD_FILE_MENU",
                                                "File/Import",
                                                "Exp. Dispersion Data [Sondera 1.0]",
                                                {.hint = "Imports dispersion curves from an .exd file."}};
inline constexpr MenuControl LOAD_PREV_RAW_DATA{
    "LOAD_PREV_RAW_DATA",
    "File/Import",
    "Measurements from [Tessera Analyzer]",
    {.hint = "Imports the raw data of an earlier version, .srd."}};
inline constexpr MenuControl LOAD_MHW_SETUP{"LOAD_MHW_SETUP",
                                            "File/Import",
                                            "Measurement and Hardware Setup",
                                            {.hint = "Imports a measurement and hardware setup, .sms."}};
inline constexpr MenuControl LOAD_ANALYSIS{"LOAD_ANALYSIS",
                                           "File/Import",
                                           "Interpretation and Analysis",
                                           {.hint = "Imports the masks and curves of an analysis file."}};
inline constexpr MenuControl LOAD_SHOTS{
    "LOAD_SHOTS",
    "File/Import",
    "Shots of a Line (SEG-2, Columns) ...",
    {.hint = "Imports whole shots after a preview of what the file holds."}};
inline constexpr MenuControl LOAD_CURVE{
    "LOAD_CURVE",
    "File/Import",
    "Curve (CSV, swprepost, gpdc)",
    {.hint = "Imports a dispersion curve of another program as a measurement."}};
inline constexpr MenuControl LOAD_DINVER{"LOAD_DINVER",
                                         "File/Import",
                                         "Curve, dinver",
                                         {.hint = "Imports a dispersion curve as dinver writes it."}};
inline constexpr MenuControl LOAD_LAYERS{
    "LOAD_LAYERS",
    "File/Import",
    "Profile, Layered Model",
    {.hint = "Imports thickness, Vp, Vs and density of layers to the layer table."}};
inline constexpr MenuControl LOAD_DISBA{"LOAD_DISBA",
                                        "File/Import",
                                        "Profile, disba",
                                        {.hint = "Imports layers in km and g/cm3 to the layer table."}};
inline constexpr MenuControl SAVE_TRACE_A{
    "SAVE_TRACE_A", "File/Export", "Trace A", {.hint = "Writes what trace A shows to a text file."}};
inline constexpr MenuControl SAVE_TRACE_B{
    "SAVE_TRACE_B", "File/Export", "Trace B", {.hint = "Writes what trace B shows to a text file."}};
inline constexpr MenuControl EXPORT_EXD_DATA{
    "EXPORT_EXD_DATA",
    "File/Export",
    "Exp. Dispersion Data",
    {.hint = "Writes the dispersion curves of the pairs to an .exd file."}};
inline constexpr MenuControl SAVE_MHW_SETUP{
    "SAVE_MHW_SETUP",
    "File/Export",
    "Measurement and Hardware Setup",
    {.hint = "Writes the measurement and hardware setup to an .sms file."}};
inline constexpr MenuControl SAVE_ANALYSIS{"SAVE_ANALYSIS",
                                           "File/Export",
                                           "Interpretation and Analysis",
                                           {.hint = "Writes the masks and curves to an analysis file."}};
inline constexpr MenuControl EXPORT_CSV{
    "EXPORT_CSV",
    "File/Export",
    "Tables, CSV",
    {.hint = "Writes curves, profile, spectra, masks and figures as .csv tables."}};
inline constexpr MenuControl EXPORT_JSON{
    "EXPORT_JSON",
    "File/Export",
    "All as JSON",
    {.hint = "Writes measurements, curves, profiles and figures as one .json file."}};
inline constexpr MenuControl EXPORT_SWPREPOST{"EXPORT_SWPREPOST",
                                              "File/Export",
                                              "Curve, swprepost",
                                              {.hint = "Writes the global curve as a text of swprepost."}};
inline constexpr MenuControl EXPORT_DINVER{
    "EXPORT_DINVER",
    "File/Export",
    "Curve, dinver",
    {.hint = "Writes the global curve as a text that dinver imports."}};
inline constexpr MenuControl EXPORT_GPDC{
    "EXPORT_GPDC", "File/Export", "Curve, gpdc", {.hint = "Writes the global curve as gpdc prints it."}};
inline constexpr MenuControl EXPORT_LAYERS{
    "EXPORT_LAYERS",
    "File/Export",
    "Profile, Layered Model",
    {.hint = "Writes the profile as a layered model: thickness, Vp, Vs, density."}};
inline constexpr MenuControl EXPORT_DISBA{
    "EXPORT_DISBA",
    "File/Export",
    "Profile, disba",
    {.hint = "Writes the profile as a text for disba, in km and g/cm3."}};
inline constexpr MenuControl PRINT_PS_PHASE{
    "PRINT_PS_PHASE",
    "File/Plot to PostScript File",
    "Phase Spectra",
    {.hint = "Writes the phase spectra with their masks as PostScript pages."}};
inline constexpr MenuControl PRINT_PS_DISP_CURV{
    "PRINT_PS_DISP_CURV",
    "File/Plot to PostScript File",
    "Phase Vel. Dispersion Curves",
    {.hint = "Writes the dispersion curves as PostScript pages."}};
inline constexpr MenuControl PRINT_PS_SWAVE_PRF{
    "PRINT_PS_SWAVE_PRF",
    "File/Plot to PostScript File",
    "Results of Inversion Analysis",
    {.hint = "Writes the results of the inversion as PostScript pages."}};
inline constexpr MenuControl PRINT_REPORT{
    "PRINT_REPORT",
    "File/Plot to PostScript File",
    "Whole Report",
    {.hint = "Writes the whole report: all pages as PostScript (.ps), or the report to hand in (.pdf), by "
             "the ending of the name."}};
inline constexpr MenuControl PRINT_MEAS_DISP_AB{
    "PRINT_MEAS_DISP_AB",
    "File/Print Panel",
    "Measurements",
    {.hint = "Prints graphs A and B of the measurements on a printer, or to a file .pdf, .svg or .png by the "
             "ending of its name."}};
inline constexpr MenuControl PRINT_DC_PANEL{"PRINT_DC_PANEL",
                                            "File/Print Panel",
                                            "Dispersion Curve",
                                            {.hint = "Prints the dispersion page on a printer, or to a file "
                                                     ".pdf, .svg or .png by the ending of its name."}};
inline constexpr MenuControl PRINT_DCPRF_PANEL{
    "PRINT_DCPRF_PANEL",
    "File/Print Panel",
    "Disp. Curve and Profile",
    {.hint = "Prints both graphs of the results page on a printer, or to a file .pdf, .svg or .png by the "
             "ending of its name."}};
inline constexpr MenuControl PRINT_DISP_CURVE{
    "PRINT_DISP_CURVE",
    "File/Print Panel",
    "Exp. Dispersion Curve",
    {.hint = "Prints the graph of the dispersion curves on a printer, or to a file .pdf, .svg or .png by the "
             "ending of its name."}};
inline constexpr MenuControl PRINT_FM_INV{
    "PRINT_FM_INV",
    "File/Print Panel",
    "Exp. and Theo. Disp. Curves",
    {.hint = "Prints the graph of the experimental and theoretical curves on a printer, or to a file .pdf, "
             ".svg or .png by the ending of its name."}};
inline constexpr MenuControl PRINT_PROF_WIN{"PRINT_PROF_WIN",
                                            "File/Print Panel",
                                            "Profile",
                                            {.hint = "Prints the graph of the profile on a printer, or to a "
                                                     "file .pdf, .svg or .png by the ending of its name."}};
inline constexpr MenuControl LOG_BEGIN{
    "LOG_BEGIN",
    "File/Log",
    "Begin",
    {.hint = "Writes each action from now on to a file that can be run again."}};
inline constexpr MenuControl LOG_END{"LOG_END", "File/Log", "End", {.hint = "Ends the log of the session."}};
inline constexpr MenuControl LOG_RUN{"LOG_RUN",
                                     "File/Log",
                                     "Run Log or Script",
                                     {.hint = "Runs a log, or another script, on the project that is open."}};
inline constexpr MenuControl QUIT{"QUIT", "File", "Exit", {.hint = "Ends the program after a question."}};

inline constexpr auto UNDO = Dimmed(MenuControl{
    "UNDO",
    "Edit",
    "Undo",
    {.hint = "Undoes the latest change of masks, of included curves or of the tables of the model."}});
inline constexpr auto REDO =
    Dimmed(MenuControl{"REDO", "Edit", "Redo", {.hint = "Makes the change again that was undone."}});

inline constexpr MenuControl PERFORM_TEST{
    "PERFORM_TEST", "Measurements", "Perform Testing", {.hint = "Shows the page of the measurements."}};
inline constexpr MenuControl SETUP_HDWARE{
    "SETUP_HDWARE", "Measurements", "Hardware Setup", {.hint = "Opens the hardware setup."}};
inline constexpr MenuControl SETUP_MEAS_SETUP{
    "SETUP_MEAS_SETUP",
    "Measurements",
    "Measurement Setup",
    {.hint = "Opens the measurement setup: places of source and receivers."}};
inline constexpr MenuControl SETUP_BOARDS{
    "SETUP_BOARDS", "Measurements", "Boards", {.hint = "Opens the choice of the acquisition board."}};

inline constexpr MenuControl MEAS_MODE{
    "MEAS_MODE", "Masking", "Interactive Masking", {.hint = "Shows the page of masking."}};
inline constexpr MenuControl IRF_SETUP{
    "IRF_SETUP", "Masking", "IR Filteration", {.hint = "Opens the filter of the impulse response."}};
inline constexpr MenuControl GABOR_SETUP{
    "GABOR_SETUP", "Masking", "Gabor Transform", {.hint = "Opens the panel of the time-frequency map."}};
inline constexpr MenuControl ADJUST_SCALE{
    "ADJUST_SCALE", "Masking", "Axis Attributes", {.hint = "Opens the axis dialog of graphs A and B."}};

inline constexpr MenuControl DISPERSION_MODE{"DISPERSION_MODE",
                                             "Dispersion",
                                             "Dispersion Curve",
                                             {.hint = "Shows the page of the dispersion curves."}};
inline constexpr MenuControl MASKING_CALC_DISP_MENU{
    "MASKING_CALC_DISP_MENU",
    "Dispersion",
    "Calculate",
    {.hint = "Calculates the dispersion curve of the pair that is shown."}};
inline constexpr MenuControl CALC_REP_DISP_MENU{"CALC_REP_DISP_MENU",
                                                "Dispersion",
                                                "Representative Disp",
                                                {.hint = "Opens the panel of the representative curves."}};
inline constexpr MenuControl REDRAW_MENU{
    "REDRAW_MENU", "Dispersion", "Redraw", {.hint = "Redraws the dispersion curves."}};
inline constexpr MenuControl DISP_CV_AXIS_ATTR_MENU{
    "DISP_CV_AXIS_ATTR_MENU",
    "Dispersion",
    "Axis Attributes",
    {.hint = "Opens the axis dialog of the dispersion curves."}};
inline constexpr MenuControl DRAW_TOMO_GRAF{
    "DRAW_TOMO_GRAF",
    "Dispersion",
    "Tomographic Image",
    {.hint = "Opens the section of phase velocity along a line of stations."}};

inline constexpr MenuControl OPEN_FMODELING_WIN{"OPEN_FMODELING_WIN",
                                                "F. Modeling",
                                                "Disp. Curve and Profile",
                                                {.hint = "Shows the results page for forward modelling."}};
inline constexpr MenuControl FMODEL_PARAM{
    "FMODEL_PARAM",
    "F. Modeling",
    "Parameters",
    {.hint = "Opens the panel of layers, receivers and wanted points."}};
inline constexpr MenuControl RUN_FMODELING_MENU{"RUN_FMODELING_MENU",
                                                "F. Modeling",
                                                "Run Forward Modeling",
                                                {.hint = "Computes the theoretical dispersion curves."}};
inline constexpr MenuControl READ_FMODEL_PARAM_MENU{
    "READ_FMODEL_PARAM_MENU",
    "F. Modeling",
    "Read Parameters",
    {.hint = "Reads the model parameters from an .fmd file."}};
inline constexpr MenuControl SAVE_FMODEL_PARAM_MENU{"SAVE_FMODEL_PARAM_MENU",
                                                    "F. Modeling",
                                                    "Save Parameters",
                                                    {.hint = "Writes the model parameters to an .fmd file."}};

inline constexpr MenuControl OPEN_INV_ANAL_WIN{"OPEN_INV_ANAL_WIN",
                                               "Inversion Analysis",
                                               "Disp. Curve and Profile",
                                               {.hint = "Shows the results page for the inversion."}};
inline constexpr MenuControl INV_ANALYSIS_PARAM{
    "INV_ANALYSIS_PARAM", "Inversion Analysis", "Parameters", {.hint = "Opens the panel of the inversion."}};
inline constexpr MenuControl DETERMINE_SMP{"DETERMINE_SMP",
                                           "Inversion Analysis",
                                           "Determine Starting Model Parm.",
                                           {.hint = "Computes starting profiles and takes the best."}};
inline constexpr MenuControl RUN_INV_ANAL{
    "RUN_INV_ANAL", "Inversion Analysis", "Inversion Analysis", {.hint = "Runs the inversion."}};

inline constexpr MenuControl PULSE_WAVEFORM_MENU{"PULSE_WAVEFORM_MENU",
                                                 "Full Waveform",
                                                 "Waveform and Parameters",
                                                 {.hint = "Opens the panel of synthetic time histories."}};
inline constexpr MenuControl PULSE_LAYERING_REC_MENU{
    "PULSE_LAYERING_REC_MENU",
    "Full Waveform",
    "Soil Layering and Receivers",
    {.hint = "Opens the layers and receivers of the time histories."}};
inline constexpr MenuControl PULSE_RUN_FULL_WAVE_MENU{"PULSE_RUN_FULL_WAVE_MENU",
                                                      "Full Waveform",
                                                      "Generate Full Waveform",
                                                      {.hint = "Computes the records of all receivers."}};
inline constexpr MenuControl PULSE_SAVE_RESULTS_MENU{"PULSE_SAVE_RESULTS_MENU",
                                                     "Full Waveform",
                                                     "Save Results",
                                                     {.hint = "Saves the computed records in text files."}};

inline constexpr MenuControl HELP{"HELP", "Help", "Contents", {.hint = "Shows the user manual."}};
inline constexpr MenuControl ABOUT_BOX{
    "ABOUT_BOX", "Help", "About Sondera", {.hint = "Shows version and licence."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&NEW_MEASUREMENT,
                                               &LOAD_RAW_DATA,
                                               &SAVE_RAW_DATA,
                                               &LOAD_TWO_CHNL_DATA,
                                               &LOAD_EXD_FILE_MENU,
                                               &LOAD_PREV_RAW_DATA,
                                               &LOAD_MHW_SETUP,
                                               &LOAD_ANALYSIS,
                                               &LOAD_SHOTS,
                                               &LOAD_CURVE,
                                               &LOAD_DINVER,
                                               &LOAD_LAYERS,
                                               &LOAD_DISBA,
                                               &SAVE_TRACE_A,
                                               &SAVE_TRACE_B,
                                               &EXPORT_EXD_DATA,
                                               &SAVE_MHW_SETUP,
                                               &SAVE_ANALYSIS,
                                               &EXPORT_CSV,
                                               &EXPORT_JSON,
                                               &EXPORT_SWPREPOST,
                                               &EXPORT_DINVER,
                                               &EXPORT_GPDC,
                                               &EXPORT_LAYERS,
                                               &EXPORT_DISBA,
                                               &PRINT_PS_PHASE,
                                               &PRINT_PS_DISP_CURV,
                                               &PRINT_PS_SWAVE_PRF,
                                               &PRINT_REPORT,
                                               &PRINT_MEAS_DISP_AB,
                                               &PRINT_DC_PANEL,
                                               &PRINT_DCPRF_PANEL,
                                               &PRINT_DISP_CURVE,
                                               &PRINT_FM_INV,
                                               &PRINT_PROF_WIN,
                                               &LOG_BEGIN,
                                               &LOG_END,
                                               &LOG_RUN,
                                               &QUIT,
                                               &UNDO,
                                               &REDO,
                                               &PERFORM_TEST,
                                               &SETUP_HDWARE,
                                               &SETUP_MEAS_SETUP,
                                               &SETUP_BOARDS,
                                               &MEAS_MODE,
                                               &IRF_SETUP,
                                               &GABOR_SETUP,
                                               &ADJUST_SCALE,
                                               &DISPERSION_MODE,
                                               &MASKING_CALC_DISP_MENU,
                                               &CALC_REP_DISP_MENU,
                                               &REDRAW_MENU,
                                               &DISP_CV_AXIS_ATTR_MENU,
                                               &DRAW_TOMO_GRAF,
                                               &OPEN_FMODELING_WIN,
                                               &FMODEL_PARAM,
                                               &RUN_FMODELING_MENU,
                                               &READ_FMODEL_PARAM_MENU,
                                               &SAVE_FMODEL_PARAM_MENU,
                                               &OPEN_INV_ANAL_WIN,
                                               &INV_ANALYSIS_PARAM,
                                               &DETERMINE_SMP,
                                               &RUN_INV_ANAL,
                                               &PULSE_WAVEFORM_MENU,
                                               &PULSE_LAYERING_REC_MENU,
                                               &PULSE_RUN_FULL_WAVE_MENU,
                                               &PULSE_SAVE_RESULTS_MENU,
                                               &HELP,
                                               &ABOUT_BOX};

}  // namespace sondera::mainmenu
