// panel_pictures.cpp - see panel_pictures.h.
#include "panels/panel_pictures.h"

#include <algorithm>
#include <vector>

#include "panels/irfsetpnl_picture.h"
#include "panels/loadtxdata.h"
#include "panels/panels_state.h"
#include "plot/profile_plot.h"
#include "records/selection.h"
#include "records/session.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/irfsetpnl.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/changes.h"

namespace sondera {
namespace {

bool IsField(ControlId c) {
  return c && (c->kind == ControlKind::Numeric || c->kind == ControlKind::Int ||
               c->kind == ControlKind::Text || c->kind == ControlKind::Ring);
}

void Follow(std::span<const Change> changes) {
  bool layers = false, filter = false, import = false;
  for (const Change& change : changes) {
    const bool everything = change.kind == ChangeKind::Everything, value = change.kind == ChangeKind::Value;
    layers = layers || everything || (value && change.control == &meassetup::LENGTHUNIT) ||
             (change.control == &fmodeling::SOILPROFILE &&
              (change.kind == ChangeKind::Cells || change.kind == ChangeKind::Items));
    filter = filter || (value && change.panel == Panel::IRFSETPNL && IsField(change.control));
    import = import || (value && change.panel == Panel::LOADTXDATA && IsField(change.control) &&
                        change.control != &loadtxdata::PREVIEW);
  }
  if (layers) DrawModelPicture();
  if (filter) DrawFilterWindows();
  if (import && IsPanelShown(Panel::LOADTXDATA)) ShowImportPreview();
}

}  // namespace

void DrawModelPicture() {
  std::vector<double> thickness, Vs;
  for (int row = 1; row <= GetNumTableRows(fmodeling::SOILPROFILE); ++row) {
    thickness.push_back(GetTableCellVal(fmodeling::SOILPROFILE, row, 1));
    Vs.push_back(GetTableCellVal(fmodeling::SOILPROFILE, row, 3));
  }
  PlotModelLayers(fmodeling::PROFILE, thickness, Vs, LengthUnitText(session.lengthUnit));
}

void InstallPanelPictures() {
  if (panelsState.pictureObserver != 0) RemoveObserver(panelsState.pictureObserver);
  panelsState.pictureObserver = AddObserver(Follow);
}

}  // namespace sondera
