// named_runs.h - the parts of a run in the form for panels: settings from the panels, reasons and texts in
// their boxes. 0, or -1 after a message.
#pragma once

#include <string_view>

#include "inversion/max_likelihood.h"
#include "inversion/sensitivity.h"
#include "panels/forward_run.h"
#include "panels/inversion.h"
#include "panels/run_boxes.h"
#include "run/analytic_profile.h"
#include "run/covariances.h"
#include "run/model_numbers.h"
#include "run/model_setup.h"
#include "run/observations.h"
#include "run/preliminary_profile.h"
#include "run/result_entries.h"
#include "run/result_files.h"
#include "run/result_statistics.h"
#include "run/run_clock.h"
#include "run/run_files.h"
#include "run/run_state.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/dialogs.h"

namespace sondera {

inline int FS_RetrieveSystemPM(int kind, int prePrfType) {
  return ShowRefusal(FS_RetrieveSystemPM(run, kind, prePrfType, GetCtrlVal(hmsetup::PROJID)));
}
inline int FS_GetStartMP() {
  RunBoxes boxes;
  return ShowRefusal(FS_GetStartMP(run, SettingsOfInversion().fixed, boxes));
}
inline int FS_PrelimAnal() {
  RunBoxes boxes;
  return ShowRefusal(FS_PrelimAnal(run, SettingsOfInversion().fixed, boxes));
}
inline int FS_ReadModelParmF() {
  RunBoxes boxes;
  return ShowRefusal(FS_ReadModelParmF(run, SettingsOfInversion().fixed, boxes));
}
inline void NumberModelParameters(int modelParm) {
  RunBoxes boxes;
  NumberModelParameters(run.ground.nLayersCur, run.parameters, modelParm, SettingsOfInversion().fixed, boxes);
}
inline int FS_AnalPrePrf() {
  RunBoxes boxes;
  return ShowRefusal(FS_AnalPrePrf(run, boxes));
}
inline int StripLayers(const std::vector<CurvePoint>& curve, double ratio, LayerStack& found) {
  RunBoxes boxes;
  return ShowRefusal(StripLayers(run, curve, ratio, found, boxes));
}
inline int FS_Gmatrix() {
  RunBoxes boxes;
  return ShowRefusal(FS_Gmatrix(run, SettingsOfInversion(), boxes));
}
inline int FS_MaxLiklihood(const OffsetVector<double>& velocity, const OffsetVector<double>& amplitude) {
  RunBoxes boxes;
  return ShowRefusal(FS_MaxLiklihood(run, velocity, amplitude, boxes));
}

inline Refusal FS_EmpPrePrf() {
  return FS_EmpPrePrf(run);
}
inline void FS_ReadReceiverSetup() {
  FS_ReadReceiverSetup(run.switches, run.receivers);
}
inline Refusal FS_ReadCompDispCurve() {
  return FS_ReadCompDispCurve(run.switches, run.observations);
}
inline Refusal FS_ReadLayerProp() {
  return FS_ReadLayerProp(run.ground);
}
inline LayerColumns RunLayerColumns() {
  return RunLayerColumns(run.ground);
}
inline void FS_PropLayer(double depth, int i, double Vs, const LayerColumns& out) {
  FS_PropLayer(run, depth, i, Vs, out);
}
inline std::vector<CurvePoint> ObservedCurve() {
  return ObservedCurve(run.observations);
}
inline int FS_SetUpObsData(int kind) {
  return FS_SetUpObsData(run, kind);
}
inline void FS_Setup_Cm() {
  FS_Setup_Cm(run);
}
inline void FS_RMSerror(const OffsetVector<double>& velocity, const OffsetVector<double>& amplitude,
                        double& rmsVel, double& rmsAmp) {
  FS_RMSerror(run, velocity, amplitude, rmsVel, rmsAmp);
}
inline void FS_ModelNoToLayerNo(int number, int& layer, int& quantity) {
  FS_ModelNoToLayerNo(run, number, layer, quantity);
}
inline int FS_OpenFiles(int kind) {
  return ShowRefusal(FS_OpenFiles(kind, run.switches));
}
inline void FS_CloseFiles(int kind) {
  RunBoxes boxes;
  FS_CloseFiles(kind, boxes);
}
inline void AddToRunFile(const char* extension, std::string_view block) {
  RunBoxes boxes;
  AddToRunFile(run.switches.baseName, extension, block, boxes);
}
inline int FS_RefreshDspCurve(int index, const OffsetVector<double>& velocity, double rms) {
  return ShowRefusal(FS_RefreshDspCurve(run, index, velocity, rms));
}
inline int FS_RefreshModelPar(int index) {
  return ShowRefusal(FS_RefreshModelPar(run.ground, index));
}
inline void FS_ReportTime(int stage) {
  FS_ReportTime(run.course, stage);
}
inline void FS_SaveDspCurve(int iteration, const OffsetVector<double>& velocity,
                            const OffsetVector<double>& amplitude, double rmsVel, double rmsAmp) {
  RunBoxes boxes;
  FS_SaveDspCurve(run, iteration, velocity, amplitude, rmsVel, rmsAmp, boxes);
}
inline void FS_SaveModelPar(int iteration, double rmsVel, double rmsAmp) {
  RunBoxes boxes;
  FS_SaveModelPar(run, iteration, rmsVel, rmsAmp, boxes);
}
inline void FS_SaveProfile(int iteration, double rmsVel, double rmsAmp) {
  RunBoxes boxes;
  FS_SaveProfile(run, iteration, rmsVel, rmsAmp, boxes);
}
inline void FS_SaveSMPfile(int iteration, double rmsVel, double rmsAmp) {
  RunBoxes boxes;
  FS_SaveSMPfile(run, iteration, rmsVel, rmsAmp, boxes);
}
inline void FS_SavePostMPar(int iteration, double rmsVel) {
  RunBoxes boxes;
  FS_SavePostMPar(run, iteration, rmsVel, boxes);
}
inline void FS_SaveGaussParam(const ColumnMatrix& G, const OffsetVector<double>& velocity) {
  RunBoxes boxes;
  FS_SaveGaussParam(run, G, velocity, boxes);
}

}  // namespace sondera
