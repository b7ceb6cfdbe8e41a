// mainmenu.h - the menu bar of the main window, in the order of its menus. Names follow the callbacks.
#pragma once

#include "runtime/controls.h"

namespace sondera::mainmenu {

inline constexpr MenuControl NEW_MEASUREMENT{"NEW_MEASUREMENT", "File", "New "};
inline constexpr MenuControl LOAD_RAW_DATA{"LOAD_RAW_DATA", "File", "Open"};
inline constexpr MenuControl SAVE_RAW_DATA{"SAVE_RAW_DATA", "File", "Save"};
inline constexpr MenuControl LOAD_TWO_CHNL_DATA{"LOAD_TWO_CHNL_DATA", "File/Import", "ASCII Format Data"};
inline constexpr MenuControl LOAD_EXD_FILE_MENU{"LOAD_EXD_FILE_MENU", "File/Import",
                                                "Exp. Dispersion Data [Sondera 1.0]"};
inline constexpr MenuControl LOAD_PREV_RAW_DATA{"LOAD_PREV_RAW_DATA", "File/Import",
                                                "Measurements from [Tessera Analyzer]"};
inline constexpr MenuControl LOAD_MHW_SETUP{"LOAD_MHW_SETUP", "File/Import",
                                            "Measurement and Hardware Setup"};
inline constexpr MenuControl LOAD_ANALYSIS{"LOAD_ANALYSIS", "File/Import", "Interpretation and Analysis"};
inline constexpr MenuControl SAVE_TRACE_A{"SAVE_TRACE_A", "File/Export", "Trace A"};
inline constexpr MenuControl SAVE_TRACE_B{"SAVE_TRACE_B", "File/Export", "Trace B"};
inline constexpr MenuControl EXPORT_EXD_DATA{"EXPORT_EXD_DATA", "File/Export", "Exp. Dispersion Data"};
inline constexpr MenuControl SAVE_MHW_SETUP{"SAVE_MHW_SETUP", "File/Export",
                                            "Measurement and Hardware Setup"};
inline constexpr MenuControl SAVE_ANALYSIS{"SAVE_ANALYSIS", "File/Export", "Interpretation and Analysis"};
inline constexpr MenuControl PRINT_PS_PHASE{"PRINT_PS_PHASE", "File/Plot to PostScript File",
                                            "Phase Spectra"};
inline constexpr MenuControl PRINT_PS_DISP_CURV{"PRINT_PS_DISP_CURV", "File/Plot to PostScript File",
                                                "Phase Vel. Dispersion Curves"};
inline constexpr MenuControl PRINT_PS_SWAVE_PRF{"PRINT_PS_SWAVE_PRF", "File/Plot to PostScript File",
                                                "Results of Inversion Analysis"};
inline constexpr MenuControl PRINT_REPORT{"PRINT_REPORT", "File/Plot to PostScript File", "Whole Report"};
inline constexpr MenuControl PRINT_MEAS_DISP_AB{"PRINT_MEAS_DISP_AB", "File/Print Panel", "Measurements"};
inline constexpr MenuControl PRINT_DC_PANEL{"PRINT_DC_PANEL", "File/Print Panel", "Dispersion Curve"};
inline constexpr MenuControl PRINT_DCPRF_PANEL{"PRINT_DCPRF_PANEL", "File/Print Panel",
                                               "Disp. Curve and Profile"};
inline constexpr MenuControl PRINT_DISP_CURVE{"PRINT_DISP_CURVE", "File/Print Panel",
                                              "Exp. Dispersion Curve"};
inline constexpr MenuControl PRINT_FM_INV{"PRINT_FM_INV", "File/Print Panel", "Exp. and Theo. Disp. Curves"};
inline constexpr MenuControl PRINT_PROF_WIN{"PRINT_PROF_WIN", "File/Print Panel", "Profile"};
inline constexpr MenuControl QUIT{"QUIT", "File", "Exit"};

inline constexpr MenuControl PERFORM_TEST{"PERFORM_TEST", "Measurements", "Perform Testing"};
inline constexpr MenuControl SETUP_HDWARE{"SETUP_HDWARE", "Measurements", "Hardware Setup"};
inline constexpr MenuControl SETUP_MEAS_SETUP{"SETUP_MEAS_SETUP", "Measurements", "Measurement Setup"};

inline constexpr MenuControl MEAS_MODE{"MEAS_MODE", "Masking", "Interactive Masking"};
inline constexpr MenuControl IRF_SETUP{"IRF_SETUP", "Masking", "IR Filteration"};
inline constexpr MenuControl GABOR_SETUP{"GABOR_SETUP", "Masking", "Gabor Transform"};
inline constexpr MenuControl ADJUST_SCALE{"ADJUST_SCALE", "Masking", "Axis Attributes"};

inline constexpr MenuControl DISPERSION_MODE{"DISPERSION_MODE", "Dispersion", "Dispersion Curve"};
inline constexpr MenuControl MASKING_CALC_DISP_MENU{"MASKING_CALC_DISP_MENU", "Dispersion", "Calculate"};
inline constexpr MenuControl CALC_REP_DISP_MENU{"CALC_REP_DISP_MENU", "Dispersion", "Representative Disp"};
inline constexpr MenuControl REDRAW_MENU{"REDRAW_MENU", "Dispersion", "Redraw"};
inline constexpr MenuControl DISP_CV_AXIS_ATTR_MENU{"DISP_CV_AXIS_ATTR_MENU", "Dispersion",
                                                    "Axis Attributes"};
inline constexpr MenuControl DRAW_TOMO_GRAF{"DRAW_TOMO_GRAF", "Dispersion", "Tomographic Image"};

inline constexpr MenuControl OPEN_FMODELING_WIN{"OPEN_FMODELING_WIN", "F. Modeling",
                                                "Disp. Curve and Profile"};
inline constexpr MenuControl FMODEL_PARAM{"FMODEL_PARAM", "F. Modeling", "Parameters"};
inline constexpr MenuControl RUN_FMODELING_MENU{"RUN_FMODELING_MENU", "F. Modeling", "Run Forward Modeling"};
inline constexpr MenuControl READ_FMODEL_PARAM_MENU{"READ_FMODEL_PARAM_MENU", "F. Modeling",
                                                    "Read Parameters"};
inline constexpr MenuControl SAVE_FMODEL_PARAM_MENU{"SAVE_FMODEL_PARAM_MENU", "F. Modeling",
                                                    "Save Parameters"};

inline constexpr MenuControl OPEN_INV_ANAL_WIN{"OPEN_INV_ANAL_WIN", "Inversion Analysis",
                                               "Disp. Curve and Profile"};
inline constexpr MenuControl INV_ANALYSIS_PARAM{"INV_ANALYSIS_PARAM", "Inversion Analysis", "Parameters"};
inline constexpr MenuControl DETERMINE_SMP{"DETERMINE_SMP", "Inversion Analysis",
                                           "Determine Starting Model Parm."};
inline constexpr MenuControl RUN_INV_ANAL{"RUN_INV_ANAL", "Inversion Analysis", "Inversion Analysis"};

inline constexpr MenuControl PULSE_WAVEFORM_MENU{"PULSE_WAVEFORM_MENU", "Full Waveform",
                                                 "Waveform and Parameters"};
inline constexpr MenuControl PULSE_LAYERING_REC_MENU{"PULSE_LAYERING_REC_MENU", "Full Waveform",
                                                     "Soil Layering and Receivers"};
inline constexpr MenuControl PULSE_RUN_FULL_WAVE_MENU{"PULSE_RUN_FULL_WAVE_MENU", "Full Waveform",
                                                      "Generate Full Waveform"};
inline constexpr MenuControl PULSE_SAVE_RESULTS_MENU{"PULSE_SAVE_RESULTS_MENU", "Full Waveform",
                                                     "Save Results"};

inline constexpr MenuControl HELP{"HELP", "Help", "Contents"};
inline constexpr MenuControl ABOUT_BOX{"ABOUT_BOX", "Help", "About Sondera"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&NEW_MEASUREMENT,
                                               &LOAD_RAW_DATA,
                                               &SAVE_RAW_DATA,
                                               &LOAD_TWO_CHNL_DATA,
                                               &LOAD_EXD_FILE_MENU,
                                               &LOAD_PREV_RAW_DATA,
                                               &LOAD_MHW_SETUP,
                                               &LOAD_ANALYSIS,
                                               &SAVE_TRACE_A,
                                               &SAVE_TRACE_B,
                                               &EXPORT_EXD_DATA,
                                               &SAVE_MHW_SETUP,
                                               &SAVE_ANALYSIS,
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
                                               &QUIT,
                                               &PERFORM_TEST,
                                               &SETUP_HDWARE,
                                               &SETUP_MEAS_SETUP,
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
