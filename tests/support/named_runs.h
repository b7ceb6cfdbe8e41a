// named_runs.h - the parts of a run as a person's press has them: settings from the panels, reasons and texts in
// their boxes. 0, or -1 after a message.
#pragma once

#include "inversion/max_likelihood.h"
#include "inversion/sensitivity.h"
#include "panels/forward_run.h"
#include "panels/inversion.h"
#include "panels/run_boxes.h"
#include "run/analytic_profile.h"
#include "run/observations.h"
#include "run/preliminary_profile.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/dialogs.h"

namespace sondera {

inline int FS_RetrieveSystemPM(int kind, int prePrfType) {
  return ShowRefusal(FS_RetrieveSystemPM(kind, prePrfType, GetCtrlVal(hmsetup::PROJID)));
}
inline int FS_GetStartMP() {
  RunBoxes boxes;
  return ShowRefusal(FS_GetStartMP(SettingsOfInversion().fixed, boxes));
}
inline int FS_PrelimAnal() {
  RunBoxes boxes;
  return ShowRefusal(FS_PrelimAnal(SettingsOfInversion().fixed, boxes));
}
inline int FS_ReadModelParmF() {
  RunBoxes boxes;
  return ShowRefusal(FS_ReadModelParmF(SettingsOfInversion().fixed, boxes));
}
inline void NumberModelParameters(int modelParm) {
  RunBoxes boxes;
  NumberModelParameters(modelParm, SettingsOfInversion().fixed, boxes);
}
inline int FS_AnalPrePrf() {
  RunBoxes boxes;
  return ShowRefusal(FS_AnalPrePrf(boxes));
}
inline int StripLayers(const std::vector<CurvePoint>& curve, double ratio, LayerStack& found) {
  RunBoxes boxes;
  return ShowRefusal(StripLayers(curve, ratio, found, boxes));
}
inline int FS_Gmatrix() {
  RunBoxes boxes;
  return ShowRefusal(FS_Gmatrix(SettingsOfInversion(), boxes));
}
inline int FS_MaxLiklihood(const OffsetVector<double>& velocity, const OffsetVector<double>& amplitude) {
  RunBoxes boxes;
  return ShowRefusal(FS_MaxLiklihood(velocity, amplitude, boxes));
}

}  // namespace sondera
