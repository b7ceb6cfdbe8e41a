// dispcurv.cpp - see dispcurv.h. Owns no state.
#include "panels/dispcurv.h"

#include <string>

#include "panels/curve_axes.h"
#include "panels/graph_events.h"
#include "panels/undo.h"
#include "records/curve_labels.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/graphs.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

std::string SelectedLabel(const ListControl& list) {
  return GetLabelFromIndex(list, GetCtrlIndex(list));
}

/// Sets `included` of the curve selected in one list and moves its label to the other.
int MoveSelected(const ListControl& from, const ListControl& to, int included) {
  const int index = GetCtrlIndex(from);
  if (index < 0) return -1;
  const std::string label = GetLabelFromIndex(from, index);
  PMeasInfo* pair = PairOfLabel(label);
  if (!pair) return -1;
  const UndoStep step(included ? "Include" : "Exclude");
  pair->included = included;
  const double value = GetValueFromIndex(from, index);
  DeleteListItem(from, index);
  InsertListItem(to, -1, label, value);
  return 0;
}

int StoreRingIndex(const RingControl& ring, int PMeasInfo::*field) {
  PMeasInfo* pair = PairOfLabel(SelectedLabel(dispcurv::LIST_INCLUDED));
  if (!pair || GetCtrlIndex(ring) < 0) return -1;
  pair->*field = GetCtrlIndex(ring);
  return 0;
}

}  // namespace

// --- lists ---

int IncludeDispCurveCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? MoveSelected(dispcurv::LIST_EXCLUDED, dispcurv::LIST_INCLUDED, 1) : 0;
}

int ExludeDispCurveCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? MoveSelected(dispcurv::LIST_INCLUDED, dispcurv::LIST_EXCLUDED, 0) : 0;
}

int ExcludedDispCurveListCallback(Panel, ControlId, Event event, long) {
  if (event != Event::LeftDoubleClick) return 0;
  return MoveSelected(dispcurv::LIST_EXCLUDED, dispcurv::LIST_INCLUDED, 1);
}

int IncludedDispCurveListCallback(Panel, ControlId, Event event, long) {
  if (event == Event::LeftDoubleClick)
    return MoveSelected(dispcurv::LIST_INCLUDED, dispcurv::LIST_EXCLUDED, 0);
  if (event != Event::ValChanged && event != Event::LeftClick) return 0;
  const PMeasInfo* pair = PairOfLabel(SelectedLabel(dispcurv::LIST_INCLUDED));
  if (!pair) return -1;
  const int colors = GetNumListItems(dispcurv::COLOR);
  if (pair->color >= 0 && colors > 0) SetCtrlIndex(dispcurv::COLOR, pair->color % colors);
  SetCtrlIndex(dispcurv::MARKER, pair->marker);
  return 0;
}

int DispCurveColorCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? StoreRingIndex(dispcurv::COLOR, &PMeasInfo::color) : 0;
}

int DispCurveMarkerCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? StoreRingIndex(dispcurv::MARKER, &PMeasInfo::marker) : 0;
}

// --- graph ---

int SetDispCurveTypeCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? DispCurvPlot(1) : 0;
}

int RedrawDispCurvCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? DispCurvPlot(1) : 0;
}

int SetupDispCurveCallback(Panel, ControlId, Event event, long) {
  if (event == Event::LeftDoubleClick) {
    OpenDispersionAxes();
  } else if (event == Event::Commit) {
    SetCtrlVal(dispcurv::COORD, ClickText(dispcurv::DISPGRAPH));
  }
  return 0;
}

int DispCurveMoveUpCallback(Panel, ControlId, Event, long) {
  return 0;
}
int DispCurveMoveDownCallback(Panel, ControlId, Event, long) {
  return 0;
}
int DispCurveMoveTopCallback(Panel, ControlId, Event, long) {
  return 0;
}
int DispCurveMoveBottomCallback(Panel, ControlId, Event, long) {
  return 0;
}

}  // namespace sondera
