// tmgrafpnl_draw.cpp - see tmgrafpnl_draw.h.
#include "panels/tmgrafpnl_draw.h"

#include <chrono>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "panels/graph_events.h"
#include "panels/panels_state.h"
#include "panels/section_stations.h"
#include "plot/section_plot.h"
#include "records/selection.h"
#include "records/session.h"
#include "runtime/catalogue/tmgrafpnl.h"
#include "runtime/control_lock.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/files.h"
#include "runtime/findings.h"
#include "runtime/graphs.h"
#include "signal/section.h"

namespace sondera {
namespace {

using namespace tmgrafpnl;

constexpr int kImage = 1;
constexpr const char* kNoCurve = "No curve is included.";
constexpr const char* kOlder = "The image is older than the settings: press Draw.";

SectionLook LookNow() {
  const SectionState& s = panelsState.section;
  return {SectionColorLevels(s.colorLow, s.colorHigh, session.tomoColor), GetCtrlVal(VERTICALAXIS),
          GetCtrlVal(CONTOURS) != 0, LengthUnitText(session.lengthUnit)};
}

GridSettings SettingsNow() {
  const SectionState& s = panelsState.section;
  return {s.limits, s.tmgNx, s.tmgNy, s.fill};
}

void AddSentence(std::string& text, const std::string& sentence) {
  if (!text.empty() && !sentence.empty()) text += ' ';
  text += sentence;
}

/// Shows how far a grid is, lets events in, and hears HALT and an interrupt of the terminal.
class GridListener : public Listener {
 public:
  void Done(double share) override {
    const auto now = std::chrono::steady_clock::now();
    if (now - shown_ < std::chrono::milliseconds(500)) return;
    shown_ = now;
    SetCtrlVal(MESSAGE, FormatText("%d %% done", static_cast<int>(100.0 * share)));
  }
  bool Poll() override {
    ProcessSystemEvents();
    const bool asked = panelsState.section.haltRequested || InterruptRequested();
    if (asked) NoteHalt();
    return asked;
  }

 private:
  std::chrono::steady_clock::time_point shown_ = std::chrono::steady_clock::now();
};

/// Makes the grid of these samples; the former one stays when that is refused or halted.
Refusal MakeGrid(const SectionSamples& samples) {
  const ControlLock lock({&HALT}, session.appTitle, "A section is being calculated. Please halt it first.");
  SectionState& s = panelsState.section;
  s.haltRequested = false;
  ForgetHalt();
  SetWaitCursor(true);
  GridListener listener;
  const GridSettings settings = SettingsNow();
  Refusal refusal = DoKriging(samples, settings, listener, s.grid);
  SetWaitCursor(false);
  s.haltRequested = false;
  if (refusal) return refusal;
  s.gridOf = settings;
  ++s.gridsMade;
  return {};
}

int NothingToDraw() {
  panelsState.section.grid = {};
  DeleteGraphPlot(TOMOGRAF);
  SetCtrlVal(MESSAGE, kNoCurve);
  return -1;
}

/// What there is to say about a new grid: on the panel, and at the end of an unattended run.
std::string TellAboutGrid(const std::vector<SectionStation>& stations, const SectionSamples& samples,
                          const std::vector<int>& owners) {
  const SectionGrid& grid = panelsState.section.grid;
  const std::string empty = EmptyNodeText(grid), same = SameSampleText(grid, stations, samples, owners),
                    left = SectionDataFault(stations);
  if (!empty.empty()) AddNote("Section: " + empty);
  if (!same.empty()) AddDoubt("Section: " + same);
  if (!left.empty()) AddDoubt(left);
  std::string text = empty;
  AddSentence(text, same);
  AddSentence(text, left);
  return text;
}

std::string ContourText(const SectionLook& look) {
  const std::vector<double> levels =
      look.contours ? SectionContourLevels(panelsState.section.grid) : std::vector<double>();
  if (levels.empty()) return "";
  if (levels.size() == 1) return FormatText("Contour line at %g %s/s.", levels[0], look.unit.c_str());
  return FormatText("Contour lines every %g %s/s.", levels[1] - levels[0], look.unit.c_str());
}

/// Writes a table to a file that a person names.
int SaveTable(const char* title, const std::string& text) {
  const FileChoice choice = FileSelectPopup({ProjectDirectory(), "*.csv", title, true});
  if (choice.answer == FileAnswer::Cancelled) return -1;
  if (choice.answer == FileAnswer::Exists &&
      !ConfirmPopup(session.appTitle, "File already exists. Do you want to overwrite it ?"))
    return -1;
  TextWriter file(choice.path);
  file.Put(text);
  if (!file.Ok() || !file.Close()) return Refuse(file.Reason() + ".");
  return 0;
}

}  // namespace

int DrawTomoGraf() {
  return GetCtrlVal(TOMOGRAFTYPE) == kImage ? GenerateGridAndPlot(0) : PlotStackedGD();
}

int GenerateGridAndPlot(int force) {
  SectionState& s = panelsState.section;
  const std::vector<SectionStation> stations = SectionStations();
  std::vector<int> owners;
  SectionSamples samples = CollectSamples(stations, &owners);
  if (samples.x.empty()) return NothingToDraw();
  if (force == 1 || s.grid.Empty()) {
    const Refusal refusal = MakeGrid(samples);
    if (refusal) {
      SetCtrlVal(MESSAGE, refusal.reason().empty() ? "Halted; the former image stays." : refusal.reason());
      return ShowRefusal(refusal);
    }
    s.samples = std::move(samples);
    s.gridText = TellAboutGrid(stations, s.samples, owners);
    samples = s.samples;
  }
  const SectionLook look = LookNow();
  std::string note = s.gridText;
  AddSentence(note, ContourText(look));
  PlotSectionImage(TOMOGRAF, s.grid, stations, look, note);
  const bool older = s.gridOf != SettingsNow() || s.samples != samples;
  std::string message = older ? kOlder : "";
  AddSentence(message, note);
  SetCtrlVal(MESSAGE, message);
  return 0;
}

int PlotStackedGD() {
  SectionState& s = panelsState.section;
  const std::vector<SectionStation> stations = SectionStations();
  const StackedSection stack = StackCurves(stations);
  if (stack.curves.empty()) return NothingToDraw();
  s.limits.tmgDMin = stack.dMin;
  s.limits.tmgDMax = stack.dMax;
  SetCtrlVal(DMIN, stack.dMin);
  SetCtrlVal(DMAX, stack.dMax);
  const std::string note = SectionDataFault(stations);
  PlotSectionStack(TOMOGRAF, stack, stations, LookNow(), note);
  SetCtrlVal(MESSAGE, note);
  return 0;
}

int TomoGrafGraphCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit && event != Event::ValChanged) return 0;
  ClickText(TOMOGRAF);
  const CursorModel cursor = GetGraphCursor(TOMOGRAF, 1);
  const double wavelength = cursor.y * GetCtrlVal(VERTICALAXIS);
  const std::string unit = LengthUnitText(session.lengthUnit);
  std::string text = FormatText("distance %s %s, wavelength %s %s", CoordinateText(cursor.x).c_str(),
                                unit.c_str(), CoordinateText(wavelength).c_str(), unit.c_str());
  if (GraphOf(TOMOGRAF).intensity) {
    const double velocity = GridVelocity(panelsState.section.grid, cursor.x, wavelength);
    text += std::isnan(velocity)
                ? ", no value"
                : FormatText(", velocity %s %s/s", CoordinateText(velocity).c_str(), unit.c_str());
  }
  SetCtrlVal(COORD, text);
  return 0;
}

int SaveSectionGridCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (panelsState.section.grid.Empty()) return Refuse("There is no image yet: press Draw.");
  return SaveTable("Save the grid of the section.", GridCsv(panelsState.section.grid));
}

int SaveSectionPointsCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const std::vector<SectionStation> stations = SectionStations();
  if (CollectSamples(stations).x.empty()) return Refuse(kNoCurve);
  return SaveTable("Save the points of the section.", PointsCsv(stations));
}

}  // namespace sondera
