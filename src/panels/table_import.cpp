// table_import.cpp - see table_import.h.
#include "panels/table_import.h"

#include <cmath>
#include <functional>
#include <optional>

#include "panels/mainmenu_curves.h"
#include "panels/undo.h"
#include "project/shot.h"
#include "records/selection.h"
#include "records/session.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/dialogs.h"
#include "runtime/paths.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"
#include "runtime/text_reader.h"

namespace sondera {
namespace {

constexpr int kDispersionTab = 2, kResultsTab = 3;
constexpr int kLongestAnswer = 80;
constexpr double kDerived = 0.0;

/// A file that is chosen in a dialog; empty after a message, or when the dialog was cancelled.
std::string ChosenFile(ControlId item) {
  const FileChoice choice =
      FileSelectPopup({ProjectDirectory(), "*.txt;*.csv;*.*", std::string(item->label), false});
  if (choice.answer == FileAnswer::IsNew) Refuse("File does not exist.");
  return choice.answer == FileAnswer::Exists ? choice.path : std::string();
}

int RefuseFile(const std::string& path, const std::string& reason) {
  return Refuse(FileNameOf(path) + ": " + reason + ".");
}

/// The half-space of other programs has no thickness; ours has one, which the point-load solver uses. False: cancelled,
/// or no thickness, after a message.
bool AskForThickness(LayeredModel& model) {
  if (model.thickness.back() > 0.0) return true;
  const auto answer = PromptPopup(session.appTitle,
                                  "The half-space has no thickness there, and needs one here. Enter it, in " +
                                      LengthUnitText(session.lengthUnit) + ":",
                                  kLongestAnswer);
  if (!answer) return false;
  std::size_t used = 0;
  const double thickness = ParseReal(*answer, &used);
  if (used != answer->size() || !std::isfinite(thickness) || !(thickness > 0.0)) {
    Refuse("\"" + *answer + "\" is no thickness above 0.");
    return false;
  }
  model.thickness.back() = thickness * session.lengthUnit;
  return true;
}

}  // namespace

std::string LoadCurveTable(const std::string& path, CurveForm form, const std::string& columns,
                           const std::string& id, std::string& made) {
  std::string bytes;
  CurvePoints curve;
  std::string reason = ReadShotBytes(path, bytes);
  if (reason.empty()) reason = ReadCurvePoints(bytes, form, columns, curve);
  if (!reason.empty()) return reason;
  std::string name = FileNameOf(path);
  name = name.substr(0, name.rfind('.'));
  // The program's own curve format makes the measurement of two channels for it.
  const std::string text = ExdText(curve, id, session.lengthUnit);
  TextReader reader;
  reader.OpenMemory(text);
  reason = ReadExdCurves(reader, name);
  DispCurvPlot(1);
  made = id + "@" + name;
  return reason;
}

std::string ReadLayerTable(const std::string& path, LayerForm form, LayeredModel& model) {
  std::string bytes;
  std::string reason = ReadShotBytes(path, bytes);
  if (reason.empty()) reason = form == LayerForm::Layers ? ReadLayers(bytes, model) : ReadDisba(bytes, model);
  return reason;
}

std::vector<std::vector<double>> LayerRows(const LayeredModel& model) {
  std::vector<std::vector<double>> rows;
  for (std::size_t i = 0; i < model.size(); ++i)
    rows.push_back({model.thickness[i] / session.lengthUnit, model.vp[i] / session.lengthUnit,
                    model.vs[i] / session.lengthUnit, model.density[i], kDerived});
  return rows;
}

void PutLayerRows(const std::vector<std::vector<double>>& rows, const Press& press) {
  press(exdthd::FMODELPARAM, 0);
  std::vector<double> thicknesses;
  for (const std::vector<double>& row : rows) thicknesses.push_back(row.front());
  WriteNewLayers(thicknesses, press);
  for (std::size_t r = 0; r < rows.size(); ++r)
    for (std::size_t c = 1; c < rows[r].size(); ++c)
      SetTableCellVal(fmodeling::SOILPROFILE, static_cast<int>(r) + 1, static_cast<int>(c) + 1, rows[r][c]);
  press(fmodeling::UPDATE, 0);
  press(fmodeling::CLOSE, 0);
}

int LoadCurveTableCallback(Panel, ControlId item, Event event, long) {
  if (event != Event::Commit) return 0;
  const std::string path = ChosenFile(item);
  if (path.empty()) return -1;
  const CurveForm form = item->name == mainmenu::LOAD_DINVER.name ? CurveForm::Dinver : CurveForm::Named;
  std::string made;
  std::string reason = LoadCurveTable(path, form, "", kCurveID, made);
  if (reason == kColumnsNotNamed) {
    const auto columns = PromptPopup(session.appTitle,
                                     FileNameOf(path) +
                                         " names no columns. Name them in their order, with "
                                         "commas (f, v, slowness, wavelength, sd):",
                                     kLongestAnswer);
    if (!columns) return -1;
    reason = LoadCurveTable(path, form, *columns, kCurveID, made);
  }
  if (!reason.empty()) return RefuseFile(path, reason);
  SetActiveTabPage(Panel::PANEL, kDispersionTab);
  DisplayPanel(Panel::DISPCURV);
  return 0;
}

int LoadLayerTableCallback(Panel, ControlId item, Event event, long) {
  if (event != Event::Commit) return 0;
  const std::string path = ChosenFile(item);
  if (path.empty()) return -1;
  const LayerForm form = item->name == mainmenu::LOAD_DISBA.name ? LayerForm::Disba : LayerForm::Layers;
  LayeredModel model;
  if (const std::string reason = ReadLayerTable(path, form, model); !reason.empty())
    return RefuseFile(path, reason);
  if (!AskForThickness(model)) return -1;
  const UndoStep step("Import of layers");
  SetActiveTabPage(Panel::PANEL, kResultsTab);
  Presses press;
  PutLayerRows(LayerRows(model), std::ref(press));
  return press.result();
}

}  // namespace sondera
