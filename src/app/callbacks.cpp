// callbacks.cpp - the table of the callbacks of all controls, and of the drawing functions of the redraw
// notices. Front ends, scripts and tests all press buttons through this table.
#include "app/callbacks.h"

#include "app/devices.h"
#include "app/export_menu.h"
#include "app/script/log_menu.h"
#include "app/shutdown.h"
#include "panels/analresult.h"
#include "panels/asavedlg.h"
#include "panels/cdisppnl.h"
#include "panels/cdisppnl_files.h"
#include "panels/curve_axes.h"
#include "panels/dispcurv.h"
#include "panels/dispcurv_page.h"
#include "panels/exdthd.h"
#include "panels/exdthd_graphs.h"
#include "panels/fmodeling.h"
#include "panels/forward_run.h"
#include "panels/gaborpnl.h"
#include "panels/graph_events.h"
#include "panels/hmsetup.h"
#include "panels/hwsetup_configure.h"
#include "panels/hwsetup_fields.h"
#include "panels/inversion.h"
#include "panels/inversion_start.h"
#include "panels/irfsetpnl.h"
#include "panels/irfsetpnl_picture.h"
#include "panels/loadshots.h"
#include "panels/loadtxdata.h"
#include "panels/mainmenu.h"
#include "panels/mainmenu_analysis.h"
#include "panels/mainmenu_curves.h"
#include "panels/mainmenu_export.h"
#include "panels/mainmenu_legacy.h"
#include "panels/mainmenu_plot.h"
#include "panels/mainmenu_project.h"
#include "panels/mainmenu_windows.h"
#include "panels/measpanel_run.h"
#include "panels/meassetup.h"
#include "panels/meassetup_places.h"
#include "panels/mscalepnl.h"
#include "panels/one_click.h"
#include "panels/pulse.h"
#include "panels/pulse_display.h"
#include "panels/pulse_run.h"
#include "panels/sasw_auto_masking.h"
#include "panels/sasw_dispersion.h"
#include "panels/sasw_masking.h"
#include "panels/sasw_phases.h"
#include "panels/sasw_traces.h"
#include "panels/table_import.h"
#include "panels/tmgrafpnl.h"
#include "panels/tmgrafpnl_draw.h"
#include "panels/tmgrafpnl_stations.h"
#include "panels/trace_display.h"
#include "panels/undo.h"
#include "runtime/catalogue/aboutpnl.h"
#include "runtime/catalogue/analresult.h"
#include "runtime/catalogue/asavedlg.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/devpanel.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/dsp_mscale.h"
#include "runtime/catalogue/exd_scale.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/gaborpnl.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/hwsetup.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/irfsetpnl.h"
#include "runtime/catalogue/irfsetpnl2.h"
#include "runtime/catalogue/loadshots.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/catalogue/mscalepnl.h"
#include "runtime/catalogue/panel.h"
#include "runtime/catalogue/pulse.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/catalogue/tmgrafpnl.h"
#include "runtime/controls.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

struct CallbackRow {
  ControlId control;
  Callback callback;
};

constexpr CallbackRow kSession[] = {
    {&mainmenu::QUIT, QuitCallback},
    {&mainmenu::LOG_BEGIN, script::LogBeginCallback},
    {&mainmenu::LOG_END, script::LogEndCallback},
    {&mainmenu::LOG_RUN, script::LogRunCallback},
    {&panel::CLOSE, QuitProgCallback},
    {&devpanel::FIND, FindBoardsCallback},
    {&devpanel::OK, DeviceSetupOKCallback},
    {&mainmenu::SETUP_BOARDS, SetupBoardsCallback},
};

constexpr CallbackRow kPages[] = {
    {&mainmenu::MEAS_MODE, MeasModeCallback},
    {&mainmenu::PERFORM_TEST, PerformTestCallback},
    {&mainmenu::DISPERSION_MODE, DispersionModeCallback},
    {&mainmenu::SETUP_HDWARE, SetupHDWareCallback},
    {&mainmenu::SETUP_MEAS_SETUP, SetupMeasSetupCallback},
    {&hmsetup::OK, HWSetupOKCallback},
    {&exdthd::FMDORINV, ChooseAnalysisCallback},
};

constexpr CallbackRow kProject[] = {
    {&mainmenu::NEW_MEASUREMENT, NewMeasurementCallback},
    {&mainmenu::LOAD_RAW_DATA, Load_RawDataCallback},
    {&mainmenu::SAVE_RAW_DATA, Save_RawDataCallback},
    {&mainmenu::LOAD_ANALYSIS, Load_Analysis},
    {&mainmenu::SAVE_ANALYSIS, Save_Analysis},
    {&measpanel::F6, SaveRawDataCallback},
    {&measpanel::F7, SaveAsRawDataCallback},
    {&measpanel::F9, RecallCallback},
};

constexpr CallbackRow kExport[] = {
    {&mainmenu::SAVE_TRACE_A, Save_TraceACallback},
    {&mainmenu::SAVE_TRACE_B, Save_TraceBCallback},
    {&mainmenu::LOAD_EXD_FILE_MENU, LoadExdFileMenuCallback},
    {&mainmenu::EXPORT_EXD_DATA, Export_ExdDataCallback},
    {&mainmenu::LOAD_PREV_RAW_DATA, Load_PrevRawDataCallback},
    {&mainmenu::LOAD_MHW_SETUP, Load_MHWSetupCallback},
    {&mainmenu::SAVE_MHW_SETUP, Save_MHWSetupCallback},
    {&measpanel::F10, AutoSaveDlgCallback},
    {&asavedlg::SAVE, AutoSaveCallback},
    {&asavedlg::CHANGEPATH, ChangePathCallback},
    {&asavedlg::CLOSE, AutoSaveCloseCallback},
};

constexpr CallbackRow kReports[] = {
    {&mainmenu::PRINT_PS_PHASE, PrintPsPhaseCallback},
    {&mainmenu::PRINT_PS_DISP_CURV, PrintPsDispCurvCallback},
    {&mainmenu::PRINT_PS_SWAVE_PRF, PrintPsSwavePrfCallback},
    {&mainmenu::PRINT_REPORT, PrintReportCallback},
};

constexpr CallbackRow kWindows[] = {
    {&mainmenu::PRINT_MEAS_DISP_AB, PrintMeasDispABCallback},
    {&mainmenu::PRINT_DC_PANEL, PrintDCPanelCallback},
    {&mainmenu::PRINT_DCPRF_PANEL, PrintDCPRFPanelCallback},
    {&mainmenu::PRINT_DISP_CURVE, PrintDispCurveCallback},
    {&mainmenu::PRINT_FM_INV, PrintFmInvCallback},
    {&mainmenu::PRINT_PROF_WIN, PrintProfWinCallback},
    {&mainmenu::HELP, HelpCallback},
    {&mainmenu::ABOUT_BOX, AboutBoxCallback},
    {&aboutpnl::OK, AboutOKCallback},
};

constexpr CallbackRow kWaveform[] = {
    {&mainmenu::PULSE_WAVEFORM_MENU, Pulse_WaveformMenuCallback},
    {&mainmenu::PULSE_LAYERING_REC_MENU, Pulse_LayeringRecMenuCallback},
    {&mainmenu::PULSE_RUN_FULL_WAVE_MENU, Pulse_RunFullWaveMenuCallback},
    {&mainmenu::PULSE_SAVE_RESULTS_MENU, Pulse_SaveResultsMenuCallback},
    {&pulse::SHAPE, Pulse_SrcShapeCallback},
    {&pulse::FILE, Pulse_SrcShapeCallback},
    {&pulse::BROWSE, Pulse_SrcFileBrowseCallback},
    {&pulse::CFREQ, Pulse_NPointsCallback},
    {&pulse::FREQSPAN, Pulse_NPointsCallback},
    {&pulse::NPOINTS, Pulse_NPointsCallback},
    {&pulse::PROFILEREC, Pulse_OpenProfileRecCallback},
    {&pulse::FIT, Pulse_FitToSiteCallback},
    {&pulse::RUN, Pulse_RunWaveFormGenCallback},
    {&pulse::HALT, HaltProcessCallback},
    {&pulse::SAVE, Pulse_SaveResultsCallback},
    {&pulse::TOMEAS, Pulse_ToMeasurementCallback},
    {&pulse::DISPACHNL, Pulse_DisplayCallback},
    {&pulse::DISPATYPE, Pulse_DisplayCallback},
    {&pulse::DISPBCHNL, Pulse_DisplayCallback},
    {&pulse::DISPBTYPE, Pulse_DisplayCallback},
    {&pulse::TRACE_ONOFF, Pulse_TraceOnOffCallback},
    {&pulse::VOLT_UNIT, Pulse_TraceSettingCallback},
    {&pulse::LOG_LINEAR, Pulse_TraceSettingCallback},
    {&pulse::MARKERS_ONOFF, Pulse_TraceSettingCallback},
    {&pulse::AUTOSCALE_X, Pulse_TraceSettingCallback},
    {&pulse::AUTOSCALE_Y, Pulse_TraceSettingCallback},
    {&pulse::CLOSE, Pulse_CloseCallback},
};

constexpr CallbackRow kSection[] = {
    {&mainmenu::DRAW_TOMO_GRAF, DrawTomoGrafCallback},
    {&dispcurv::TOMOGRAF, DrawTomoGrafCallback},
    {&tmgrafpnl::TOMOGRAF, TomoGrafGraphCallback},
    {&tmgrafpnl::TOMOGRAFTYPE, SetTomografTypeCallback},
    {&tmgrafpnl::DRAWTOMOGRAF, TMGrafCallback},
    {&tmgrafpnl::HALT, TMGrafHaltCallback},
    {&tmgrafpnl::INCLUDE, IncludeTomoGrafCallback},
    {&tmgrafpnl::EXCLUDE, ExludeTomoGrafCallback},
    {&tmgrafpnl::LIST_INCLUDED, IncludedTomoGrafListCallback},
    {&tmgrafpnl::LIST_EXCLUDED, ExcludedTomoGrafListCallback},
    {&tmgrafpnl::SRCPOS, StationLocationCallback},
    {&tmgrafpnl::ADDSTATION, AddStationCallback},
    {&tmgrafpnl::VERTICALAXIS, TMGrafLookCallback},
    {&tmgrafpnl::CONTOURS, TMGrafLookCallback},
    {&tmgrafpnl::UPDATE, TMGrafSetupUpdateCallback},
    {&tmgrafpnl::SAVEGRID, SaveSectionGridCallback},
    {&tmgrafpnl::SAVEPOINTS, SaveSectionPointsCallback},
    {&tmgrafpnl::CLOSE, TMGrafCloseCallback},
};

constexpr CallbackRow kEdit[] = {
    {&mainmenu::UNDO, UndoCallback},
    {&mainmenu::REDO, RedoCallback},
    {&fmodeling::SOILPROFILE, TableCellCallback},
    {&fmodeling::RECEIVERLOC, TableCellCallback},
    {&fmodeling::DISPCURVINFO, TableCellCallback},
};

constexpr CallbackRow kMeasurements[] = {
    {&hmsetup::PROJID, UpdateProjIDCallback},
    {&hmsetup::MEASID, UpdateMeasIDCallback},
    {&hmsetup::MEASIDLISTBOX, UpdateMeasIDListCallback},
    {&hmsetup::MEASADD, AddMeasIDCallback},
    {&hmsetup::MEASUPDATE, RenameMeasIDCallback},
    {&hmsetup::MEASREMOVE_4, RemoveMeasIDCallback},
    {&measpanel::F1, F1Callback},
    {&measpanel::F2, F2Callback},
};

constexpr CallbackRow kHardware[] = {
    {&measpanel::SASWSTART, SASWStartCallback},
    {&measpanel::SASWPAUSECONT, SASWPauseContCallback},
    {&measpanel::STOPMEAS, SASWstopCallback},
    {&hwsetup::NCHANNELS1, UpdateNChannelsCallback},
    {&hwsetup::NCHANNELS2, UpdateRefChannelCallback},
    {&hwsetup::FREQLINES, UpdateFreqLinesCallback},
    {&hwsetup::FREQSPAN, UpdateFreqSpanCallback},
    {&hwsetup::NCHANNELS4, UpdateInputChnlCallback},
    {&hwsetup::ACDC, UpdateACDCsettingCallback},
    {&hwsetup::GROUNDFLOAT, UpdateGFsettingCallback},
    {&hwsetup::INPUTRANGE, UpdateInputRangeCallback},
    {&hwsetup::INPUTCHNLUPDATE, InputChnlUpdateCallback},
    {&hwsetup::INPUTCHNLLIST, UpdateInputChnlListCallback},
    {&hwsetup::NCHANNELS5, UpdateTriggerChannelCallback},
    {&hwsetup::TRIGGERSLOPE, UpdateTriggerSlopeCallback},
    {&hwsetup::TRIGGERLEVEL, UpdateTriggerLevelCallback},
    {&hwsetup::TRIGGERDELAY, UpdateTriggerDelayCallback},
    {&hwsetup::AVERAGEONOFF, UpdateAverageOnOffCallback},
    {&hwsetup::NAVERAGE, UpdateNoAverageCallback},
    {&hwsetup::PREVIEW_ONOFF, PreviewOnoffCallback},
    {&hwsetup::COFIG_SETUP, ConfigSetupCallback},
    {&meassetup::SRCLOC, UpdateSrcLocCallback},
    {&meassetup::CHNLLOC, UpdateChnlLocCallback},
    {&meassetup::NCHANNELS3, UpdateChnlLocInfoCallback},
    {&meassetup::RECLOCLIST, UpdateRecLocListCallback},
    {&meassetup::EVENSPACING, UpdateSingleChanelLocCallback},
    {&meassetup::LENGTHUNIT, UpdateLengthUnitCallback},
};

constexpr CallbackRow kImport[] = {
    {&mainmenu::LOAD_TWO_CHNL_DATA, Load_TwoChnlDataCallback},
    {&mainmenu::EXPORT_CSV, ExportTablesCallback},
    {&mainmenu::EXPORT_JSON, ExportTablesCallback},
    {&mainmenu::EXPORT_SWPREPOST, ExportTablesCallback},
    {&mainmenu::EXPORT_DINVER, ExportTablesCallback},
    {&mainmenu::EXPORT_GPDC, ExportTablesCallback},
    {&mainmenu::EXPORT_LAYERS, ExportTablesCallback},
    {&mainmenu::EXPORT_DISBA, ExportTablesCallback},
    {&mainmenu::LOAD_SHOTS, LoadShotsCallback},
    {&mainmenu::LOAD_CURVE, LoadCurveTableCallback},
    {&mainmenu::LOAD_DINVER, LoadCurveTableCallback},
    {&mainmenu::LOAD_LAYERS, LoadLayerTableCallback},
    {&mainmenu::LOAD_DISBA, LoadLayerTableCallback},
    {&loadshots::ADDFILE, AddShotFileCallback},
    {&loadshots::FORMAT, PreviewShotsCallback},
    {&loadshots::FILES, PreviewShotsCallback},
    {&loadshots::MEASID, PreviewShotsCallback},
    {&loadshots::PAIRS, PreviewShotsCallback},
    {&loadshots::SIDE, PreviewShotsCallback},
    {&loadshots::NEAREST, PreviewShotsCallback},
    {&loadshots::CHANNELS, PreviewShotsCallback},
    {&loadshots::SOURCE, PreviewShotsCallback},
    {&loadshots::RECEIVERS, PreviewShotsCallback},
    {&loadshots::UNIT, PreviewShotsCallback},
    {&loadshots::INTERVAL, PreviewShotsCallback},
    {&loadshots::WHOLERATE, PreviewShotsCallback},
    {&loadshots::SKEW, PreviewShotsCallback},
    {&loadshots::LOAD, ImportShotsCallback},
    {&loadshots::CLOSE, CloseShotsCallback},
    {&loadtxdata::DATATYPE, DataTypeCallback},
    {&loadtxdata::NCHANS, NoChannelsCallback},
    {&loadtxdata::SRCINSTRUMENT, SRCINSTRUMENTED},
    {&loadtxdata::LOAD, LoadTextDataCallback},
    {&loadtxdata::CANCEL, LoadTxDataCancelCallback},
    {&loadtxdata::FILEOPEN_SRC, FileOpenCallback},
    {&loadtxdata::FILEOPEN_CH1, FileOpenCallback},
    {&loadtxdata::FILEOPEN_CH2, FileOpenCallback},
    {&loadtxdata::FILEOPEN_CH3, FileOpenCallback},
    {&loadtxdata::FILEOPEN_CH4, FileOpenCallback},
    {&loadtxdata::FILEOPEN_CH5, FileOpenCallback},
    {&loadtxdata::FILEOPEN_CH6, FileOpenCallback},
    {&loadtxdata::FILEOPEN_CH7, FileOpenCallback},
    {&loadtxdata::FILEOPEN_CH8, FileOpenCallback},
    {&loadtxdata::FILEOPEN_CH9, FileOpenCallback},
};

constexpr CallbackRow kTraces[] = {
    {&sasw::DISPAID, DisplayAMeasIDCallback},
    {&sasw::DISPBID, DisplayBMeasIDCallback},
    {&sasw::DISPA_REFCHNL, UpdateARefChannelCallback},
    {&sasw::DISPB_REFCHNL, UpdateBRefChannelCallback},
    {&sasw::DISPACHNL, DisplayAChanlCallback},
    {&sasw::DISPBCHNL, DisplayBChanlCallback},
    {&sasw::DISPATYPE, DisplayATypeCallback},
    {&sasw::DISPBTYPE, DisplayBTypeCallback},
    {&sasw::TRACE_ONOFF, TraceOnOffCallback},
    {&sasw::LOG_LINEAR, TraceSettingCallback},
    {&sasw::VOLT_UNIT, TraceSettingCallback},
    {&sasw::MARKERS_ONOFF, MarkersOnOffCallback},
    {&sasw::AUTOSCALE_X, TraceSettingCallback},
    {&sasw::AUTOSCALE_Y, TraceSettingCallback},
    {&sasw::REDRAW, RedrawGraphCallback},
    {&measpanel::DISPAID, DisplayAMeasIDCallback},
    {&measpanel::DISPBID, DisplayBMeasIDCallback},
    {&measpanel::DISPA_REFCHNL, UpdateARefChannelCallback},
    {&measpanel::DISPB_REFCHNL, UpdateBRefChannelCallback},
    {&measpanel::DISPACHNL, DisplayAChanlCallback},
    {&measpanel::DISPBCHNL, DisplayBChanlCallback},
    {&measpanel::DISPATYPE, DisplayATypeCallback},
    {&measpanel::DISPBTYPE, DisplayBTypeCallback},
    {&measpanel::TRACE_ONOFF, TraceOnOffCallback},
    {&measpanel::LOG_LINEAR, TraceSettingCallback},
    {&measpanel::VOLT_UNIT, TraceSettingCallback},
    {&measpanel::MARKERS_ONOFF, MarkersOnOffCallback},
    {&measpanel::AUTOSCALE_X, TraceSettingCallback},
    {&measpanel::AUTOSCALE_Y, TraceSettingCallback},
    {&measpanel::REDRAW, RedrawGraphCallback},
};

constexpr CallbackRow kGraphs[] = {
    {&measpanel::DISPLAY_A, DisplayCallback},
    {&measpanel::DISPLAY_B, DisplayCallback},
    {&sasw::DISPLAY_A, DisplayCallback},
    {&sasw::DISPLAY_B, DisplayCallback},
    {&sasw::PAIRCURVE, PairCurveCallback},
    {&irfsetpnl::WINDOWS, FilterWindowsCallback},
    {&dispcurv::DISPGRAPH, SetupDispCurveCallback},
    {&exdthd::CURVES, SetupEXDTHDCallback},
    {&exdthd::PROFILE, SetupEXDTHDCallback},
};

constexpr CallbackRow kAxes[] = {
    {&mainmenu::ADJUST_SCALE, AdjustScaleCallback},
    {&sasw::ADJUSTSCALE, AdjustScaleCallback},
    {&measpanel::ADJUSTSCALE, AdjustScaleCallback},
    {&mscalepnl::AUTOSCALE_X, AutoScaleCallback},
    {&mscalepnl::AUTOSCALE_Y, AutoScaleCallback},
    {&mscalepnl::OK, ManualScaleCallback},
    {&mscalepnl::CANCEL, ManualScaleCancelCallback},
    {&mainmenu::DISP_CV_AXIS_ATTR_MENU, DispCVAxisAttrMenuCallback},
    {&dsp_mscale::DSP_XTYPE, CurveAxisChoiceCallback},
    {&dsp_mscale::DSP_XAUTO, CurveAxisChoiceCallback},
    {&dsp_mscale::DSP_YTYPE, CurveAxisChoiceCallback},
    {&dsp_mscale::DSP_YAUTO, CurveAxisChoiceCallback},
    {&dsp_mscale::OK, DispCVManualScaleCallback},
    {&dsp_mscale::CANCEL, DispCVManualScaleCancelCallback},
    {&exd_scale::DSP_XTYPE, CurveAxisChoiceCallback},
    {&exd_scale::DSP_XAUTO, CurveAxisChoiceCallback},
    {&exd_scale::DSP_YTYPE, CurveAxisChoiceCallback},
    {&exd_scale::DSP_YAUTO, CurveAxisChoiceCallback},
    {&exd_scale::OK, EXDTHDManualScaleCallback},
    {&exd_scale::CANCEL, EXDTHDManualScaleCancelCallback},
};

constexpr CallbackRow kMasking[] = {
    {&sasw::MASKINGNEW, MaskingNewCallback},           {&sasw::MASKINGUPDATE, MaskingUpdateCallback},
    {&sasw::MASKINGDEL, MaskingDeleteCallback},        {&sasw::MASKINGRESET, MaskingResetCallback},
    {&sasw::MASKINGSHOW, MaskingOnOffCallback},        {&sasw::MASKING_FREQINIT, MaskFreqInitCallback},
    {&sasw::MASKING_FREQFINAL, MaskFreqFinalCallback}, {&sasw::MASKING_JUMPNO, MaskJumpNoCallback},
    {&sasw::PHASE_ORIGINAL, PhaseOptionCallback},      {&sasw::PHASE_ENHANCED, PhaseOptionCallback},
    {&sasw::PHASE_BACKBONE, PhaseOptionCallback},      {&sasw::DISPCURV_OPTION, DispCurveOptionCallback},
};

constexpr CallbackRow kFiltration[] = {
    {&sasw::MASKINGLIST, CalcIRFCallback},        {&mainmenu::IRF_SETUP, IRFSetupCallback},
    {&irfsetpnl::SITECAT, SetupSiteCatCallback},  {&irfsetpnl::IRFMODE, SetIRFModeCallback},
    {&irfsetpnl::APPLY, UpdateIrfParamCallback},  {&irfsetpnl::OK, IRFsetupOkCallback},
    {&irfsetpnl::CANCEL, IRFsetupCancelCallback}, {&irfsetpnl::COMMANDBUTTON_3, DefaultIRFparmCallback},
    {&irfsetpnl2::APPLY, IRFApplyCallback},       {&irfsetpnl2::CLOSE, CloseIRFCallback},
};

constexpr CallbackRow kGabor[] = {
    {&sasw::MASKINGAUTO, MaskingAutoCallback},
    {&mainmenu::GABOR_SETUP, GaborSetupCallback},
    {&gaborpnl::CALC, GaborCalcCallback},
    {&gaborpnl::UPDATE, GaborSetupUpdateCallback},
    {&gaborpnl::DEFAULTVALUE, GaborDefaultCallback},
    {&gaborpnl::CLOSE, GaborSetupCancelCallback},
    {&gaborpnl::LOCOLOR, AdjustIntenseColor},
    {&gaborpnl::INTCOLOR1, AdjustIntenseColor},
    {&gaborpnl::INTCOLOR2, AdjustIntenseColor},
    {&gaborpnl::HICOLOR, AdjustIntenseColor},
};

constexpr CallbackRow kDispersion[] = {
    {&sasw::MASKINGCALCDISP, MaskingCalcDispCallback},
    {&mainmenu::MASKING_CALC_DISP_MENU, MaskingCalcDispMenuCallback},
    {&mainmenu::REDRAW_MENU, RedrawDispCurvCallback},
    {&dispcurv::INCLUDE, IncludeDispCurveCallback},
    {&dispcurv::EXCLUDE, ExludeDispCurveCallback},
    {&dispcurv::LIST_INCLUDED, IncludedDispCurveListCallback},
    {&dispcurv::LIST_EXCLUDED, ExcludedDispCurveListCallback},
    {&dispcurv::COLOR, DispCurveColorCallback},
    {&dispcurv::MARKER, DispCurveMarkerCallback},
    {&dispcurv::DISPCURVTYPE, SetDispCurveTypeCallback},
    {&dispcurv::REDRAW, RedrawDispCurvCallback},
    {&meassetup::HYX_WLENFILTER, UpdateWLenFilterCallback},
    {&meassetup::RSPACING, RSpacingOptionCallback},
};

constexpr CallbackRow kRepresentative[] = {
    {&dispcurv::COMPDISPCURV, SetupCompDispCurveCallback},
    {&mainmenu::CALC_REP_DISP_MENU, CalcRepDispMenuCallback},
    {&cdisppnl::CALC, CDispCalcCallback},
    {&cdisppnl::UPDATE, CDispCalcUpdateCallback},
    {&cdisppnl::CANCEL, CDispCancelCallback},
    {&cdisppnl::ARRAY_DISPCURVELIST, IndDispCurvListCallback},
    {&cdisppnl::ARRAY_POLYORDER, IndPolyOrderCallback},
    {&cdisppnl::AVG_LINLOG, SwitchAvgLinLogCallback},
    {&cdisppnl::SAVEGCD, SaveGCDCallback},
    {&cdisppnl::SAVEICD, SaveICDCallback},
    {&cdisppnl::SAVERED, SaveREDCallback},
};

constexpr CallbackRow kResults[] = {
    {&exdthd::RUN_FMODEL, RunFModelCallback},     {&mainmenu::RUN_FMODELING_MENU, RunFModelingMenuCallback},
    {&exdthd::RUN_INVERSION, RunInvAnalCallback}, {&exdthd::HALT, HaltProcessCallback},
    {&exdthd::ITERNO, InvAnalIterNoCallback},     {&exdthd::PLOT_INV, PlotInvResultCallback},
    {&exdthd::RESULTBOX, ResultBoxCallback},      {&analresult::SEL_RESULT, ResultModelParamCallback},
    {&analresult::SAVE, SaveInvResultCallback},   {&analresult::CLOSE, ResultBoxCloseCallback},
};

constexpr CallbackRow kResultsPage[] = {
    {&mainmenu::OPEN_FMODELING_WIN, OpenFModelingWinCallback},
    {&exdthd::EXDTYPE, SetEXDCurveTypeCallback},
    {&exdthd::THDTYPE, SetTHDCurveTypeCallback},
    {&exdthd::ARRAYDISPID, SetEXDCurveTypeCallback},
    {&exdthd::COLOR, EXDTHDColorCallback},
    {&exdthd::MARKER, EXDTHDMarkerCallback},
    {&exdthd::REDRAW, RedrawEXDTHDCallback},
    {&exdthd::CLOSE, EXDTHDCloseCallback},
};

constexpr CallbackRow kModelParameters[] = {
    {&mainmenu::FMODEL_PARAM, FModelParamCallback},
    {&mainmenu::READ_FMODEL_PARAM_MENU, ReadFModelParamMenuCallback},
    {&mainmenu::SAVE_FMODEL_PARAM_MENU, SaveFModelParamMenuCallback},
    {&exdthd::FMODELPARAM, OpenFModelParamCallback},
    {&fmodeling::NLAYERS, UpdateFModelNLayersCallback},
    {&fmodeling::NRECEIVERS, FM_nReceiversUpdateCallback},
    {&fmodeling::NDISPCURVES, FM_nDispCurvesCallback},
    {&fmodeling::GLOBAL_ARRAY, FM_GlobalArrayDispOption},
    {&fmodeling::UPDATE, FM_DispCurvUpdateCallback},
    {&fmodeling::GLOBAL_REC_TYPE, GlobalRecTypeCallback},
    {&fmodeling::R1_LOC, GlobalRecTypeCallback},
    {&fmodeling::R2_LOC, GlobalRecTypeCallback},
    {&fmodeling::XDOMAIN_TYPE, SetFreqWaveLTextCallback},
    {&fmodeling::XMIN, SetFreqWaveLTextCallback},
    {&fmodeling::XMAX, SetFreqWaveLTextCallback},
    {&fmodeling::UPDATE_PROFILE1, ApplyDefaultVal2ColCallback},
    {&fmodeling::UPDATE_PROFILE2, ApplyDefaultVal2ColCallback},
    {&fmodeling::UPDATE_PROFILE3, ApplyDefaultVal2ColCallback},
    {&fmodeling::UPDATE_PROFILE4, ApplyDefaultVal2ColCallback},
    {&fmodeling::UPDATE_PROFILE5, ApplyDefaultVal2ColCallback},
    {&fmodeling::UPDATE_PROFILE6, ApplyDefaultVal2ColCallback},
    {&fmodeling::INSERTLAYER, InsertLayerCallback},
    {&fmodeling::DELETEROW, DeleteRowCallback},
    {&fmodeling::CLEARROW, ClearRowCallback},
    {&fmodeling::SETUPLAYERING, SetupLayeringCallback},
    {&fmodeling::DISPCURVINFOIN, DispCurveInfoInCallback},
    {&fmodeling::LOADDISPCURV, DispCurveLoadCallback},
    {&fmodeling::SAVE, SaveFModelParamCallback},
    {&fmodeling::READ, ReadFModelParamCallback},
    {&fmodeling::CLOSE, FModelParamCloseCallback},
};

constexpr CallbackRow kStartingModel[] = {
    {&inversion::AUTOSETUPSMP, AutoSetupSMPCallback},
    {&inversion::EVALSMPARAM, EvalSMParamCallback},
    {&mainmenu::DETERMINE_SMP, DetermineSMPCallback},
};

constexpr CallbackRow kInversion[] = {
    {&mainmenu::OPEN_INV_ANAL_WIN, OpenInvAnalWincallback},
    {&mainmenu::INV_ANALYSIS_PARAM, InvAnalysisParamCallback},
    {&mainmenu::RUN_INV_ANAL, Run_InvAnalCallback},
    {&fmodeling::COPYFROMPRF, CopyFromGivenPRFCallback},
    {&inversion::CD_COV, DataCovMatCallback},
    {&inversion::CM_COV, MParmCovMatCallback},
    {&inversion::PERFORMINV, PerformInvAnalCallback},
    {&inversion::CLOSE, InvAnalCloseCallback},
    {&inversion::ONECLICK_RUN, OneClickInversionCallback},
    {&inversion::PERFORMINVSAVE, PerformInvInvSaveCallback},
};

template <std::size_t N>
void Install(const CallbackRow (&rows)[N]) {
  for (const CallbackRow& row : rows) InstallCallback(*row.control, row.callback);
}

}  // namespace

void InstallCallbacks() {
  Install(kSession);
  Install(kPages);
  Install(kProject);
  Install(kExport);
  Install(kReports);
  Install(kWindows);
  Install(kWaveform);
  Install(kSection);
  Install(kEdit);
  Install(kMeasurements);
  Install(kHardware);
  Install(kImport);
  Install(kTraces);
  Install(kGraphs);
  Install(kAxes);
  Install(kMasking);
  Install(kFiltration);
  Install(kGabor);
  Install(kDispersion);
  Install(kRepresentative);
  Install(kModelParameters);
  Install(kResults);
  Install(kResultsPage);
  Install(kStartingModel);
  Install(kInversion);

  RedrawHandlers redraw;
  redraw.doPlotting = [](int page) {
    const int result = DrawTraces(page);
    RenewMarkers(page);
    return result;
  };
  redraw.doPreviewPlotting = DrawPreview;
  redraw.dispCurvPlot = DrawDispCurvPage;
  redraw.exdThdCurvPlot = DrawResultCurves;
  redraw.drawProfile = DrawProfileGraph;
  redraw.drawResolution = DrawResolutionGraph;
  redraw.drawRMSerror = DrawRMSErrorGraph;
  InstallRedrawHandlers(std::move(redraw));
}

}  // namespace sondera
