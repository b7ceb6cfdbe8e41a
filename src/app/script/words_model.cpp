// words_model.cpp - the words about layers, forward runs and the inversion: layers, layer, load, receivers,
// forward, start, invert, select.
#include <algorithm>
#include <cctype>
#include <string>

#include "app/script/control_values.h"
#include "app/script/fault.h"
#include "app/script/run.h"
#include "app/script/values.h"
#include "inversion/starting_model.h"
#include "panels/forward_run.h"
#include "panels/inversion_start.h"
#include "panels/table_import.h"
#include "records/inv_records.h"
#include "records/session.h"
#include "run/model_numbers.h"
#include "run/preliminary_profile.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/files.h"

namespace sondera::script {
namespace {

constexpr std::size_t kMostLayers = 1000;  // lines of a layer file that are read; the panel accepts fewer
constexpr int kSoilColumns = 6;            // H Vp Vs density nu damping

/// The dialog of the model, open while a word uses it.
template <class Work>
void OnModelPanel(Run& run, Work work) {
  run.press(exdthd::FMODELPARAM);
  work();
  run.press(fmodeling::UPDATE);
  run.press(fmodeling::CLOSE);
}

// ---- layers ---------------------------------------------------------------------------------------------

/// Rows of a layer file: 1 to 6 numbers, in the order of the table; "#" and "*" begin a comment.
std::vector<std::vector<double>> ReadLayerFile(const std::string& name) {
  TextReader file;
  std::string reason, line;
  if (!file.Open(JoinUnlessAbsolute(CurrentDirectory(), name), &reason)) throw Fault(reason);
  std::vector<std::vector<double>> rows;
  for (int number = 1; file.ReadPhysicalLine(line, kLongestLine); ++number) {
    if (line.starts_with('#') || line.starts_with('*')) continue;
    std::vector<double> row;
    Tokenizer tokens(line, " ,\t\r\n");
    while (const auto token = tokens.Next()) {
      const auto value = NumberOf(*token);
      if (!value)
        throw Fault(FormatText("%s:%d: ", name.c_str(), number) + Quoted(*token) + " is not a number");
      row.push_back(*value);
    }
    if (row.empty()) continue;
    if (row.size() > kSoilColumns || rows.size() == kMostLayers)
      throw Fault(FormatText("%s:%d: a file has up to %zu layers of %d numbers", name.c_str(), number,
                             kMostLayers, kSoilColumns));
    rows.push_back(std::move(row));
  }
  if (rows.empty()) throw Fault("there is no layer in " + Quoted(name));
  return rows;
}

/// Rows of a layer table of another program, which is in m, m/s and kg/m3.
std::vector<std::vector<double>> ReadLayersOf(const Arguments& a) {
  const std::string& name = a.text("LIST");
  LayeredModel model;
  const std::string reason =
      ReadLayerTable(JoinUnlessAbsolute(CurrentDirectory(), name),
                     a.choice("form") == 0 ? LayerForm::Layers : LayerForm::Disba, model);
  if (!reason.empty()) throw Fault(name + ": " + reason);
  if (a.has("halfspace")) model.thickness.back() = a.number("halfspace") * session.lengthUnit;
  if (!(model.thickness.back() > 0.0))
    throw Fault("the half-space has no thickness there, and needs one here: halfspace=");
  return LayerRows(model);
}

bool IsNumberList(const std::string& text) {
  const std::vector<std::string> items = ItemsOf(text);
  return std::all_of(items.begin(), items.end(),
                     [](const std::string& i) { return NumberOf(i).has_value(); });
}

void CheckLayers(const Arguments& a) {
  if (!a.has("halfspace")) return;
  if (!a.has("form")) throw Fault("halfspace= is for the tables of other programs");
  if (!(a.number("halfspace") > 0.0)) throw Fault("halfspace= has to be above 0");
}

void Layers(Run& run, const Arguments& a) {
  std::vector<std::vector<double>> rows;
  if (a.has("form")) {
    rows = ReadLayersOf(a);
  } else if (IsNumberList(a.text("LIST"))) {
    for (const std::string& item : ItemsOf(a.text("LIST"))) rows.push_back({*NumberOf(item)});
  } else {
    rows = ReadLayerFile(a.text("LIST"));
  }
  PutLayerRows(rows, [&run](const Control& control, long data) { run.press(control, Event::Commit, data); });
}

/// Named arguments of `layer` in the order of the table's columns.
constexpr std::string_view kProperties[] = {"H", "Vp", "Vs", "density", "nu", "damping"};
constexpr std::string_view kFixes = "none|H|Vs|both";

/// Puts a layer on a list of constrained ones, or removes it.
void Constrain(Run& run, const TextControl& list, int layer, bool fixed) {
  int count = 0;
  std::vector<int> layers = RetrieveLayerNoFromStr(GetCtrlVal(list), count);
  std::erase(layers, layer);
  if (fixed) layers.push_back(layer);
  std::sort(layers.begin(), layers.end());
  std::string text;
  for (const int l : layers) text += (text.empty() ? "" : ",") + std::to_string(l);
  run.enter(list, text);
}

void CheckLayer(const Arguments& a) {
  if (a.whole("N") < 1) throw Fault("layers count from 1");
}

void Layer(Run& run, const Arguments& a) {
  const int layer = a.whole("N");
  OnModelPanel(run, [&] {
    if (layer > GetNumTableRows(fmodeling::SOILPROFILE))
      throw Fault(FormatText("there are %d layers", GetNumTableRows(fmodeling::SOILPROFILE)));
    for (int column = 1; column <= kSoilColumns; ++column)
      if (const std::string_view name = kProperties[column - 1]; a.has(name))
        SetTableCellVal(fmodeling::SOILPROFILE, layer, column, a.number(name));
  });
  if (!a.has("fix")) return;
  const int fix = a.choice("fix");
  Constrain(run, inversion::CONST_MP_H, layer, fix == 1 || fix == 3);
  Constrain(run, inversion::CONST_MP_VS, layer, fix == 2 || fix == 3);
}

// ---- curves and receivers of the model --------------------------------------------------------------------

void Load(Run& run, const Arguments& a) {
  OnModelPanel(run, [&] {
    run.press(fmodeling::LOADDISPCURV);  // sets the array curves, so the choice must follow
    WriteValue(fmodeling::GLOBAL_ARRAY, a.choice("WHICH") == 0 ? "1" : "2");
    run.press(fmodeling::GLOBAL_ARRAY);
  });
}

void Receivers(Run& run, const Arguments& a) {
  const std::vector<double>& at = a.numbers("LIST");
  OnModelPanel(run, [&] {
    run.enter(fmodeling::NRECEIVERS, std::to_string(at.size()));
    for (std::size_t i = 0; i < at.size(); ++i)
      SetTableCellVal(fmodeling::RECEIVERLOC, static_cast<int>(i) + 1, 1, at[i]);
  });
}

void EnterSettings(Run& run, const Arguments& a) {
  for (const auto& [control, value] : a.settings()) run.enter(*control, value);
}

void Forward(Run& run, const Arguments& a) {
  OnModelPanel(run, [&] {
    EnterSettings(run, a);
    if (a.has("type")) run.enter(fmodeling::ANALYSISTYPE, a.text("type"));
  });
  run.press(exdthd::RUN_FMODEL);
}

// ---- starting profiles ------------------------------------------------------------------------------------

void CheckStart(const Arguments& a) {
  if (!a.has("ratios")) return;
  const double n = a.numbers("ratios")[2];
  if (!(n >= 1.0) || n > kMostRatios || n != static_cast<int>(n))
    throw Fault(FormatText("ratios=: the third number, how many, is from 1 to %d", kMostRatios));
}

/// Copies the best of the starting profiles to the table, as the buttons of the panel do.
void TakeBestProfile(Run& run) {
  const int best = BestStartingProfile();
  if (best == 0) throw Fault("none of the starting profiles has a theoretical curve");
  SetCtrlIndex(fmodeling::COPYPRF, best - 1);
  for (const Control* control :
       {static_cast<const Control*>(&fmodeling::NLAYERS),
        static_cast<const Control*>(&fmodeling::COPYFROMPRF),
        static_cast<const Control*>(&fmodeling::UPDATE_PROFILE2),
        static_cast<const Control*>(&fmodeling::UPDATE), static_cast<const Control*>(&fmodeling::CLOSE)})
    run.press(*control);
}

void Start(Run& run, const Arguments& a) {
  run.press(exdthd::RUN_INVERSION);  // the panel shows the contents of the project
  if (a.has("ratios")) {
    run.enter(inversion::ALPHA_FROM, TextOf(a.numbers("ratios")[0]));
    run.enter(inversion::ALPHA_TO, TextOf(a.numbers("ratios")[1]));
    run.enter(inversion::ALPHA_POINT, TextOf(a.numbers("ratios")[2]));
  }
  run.press(mainmenu::DETERMINE_SMP);
  TakeBestProfile(run);
}

/// One profile from the mean velocities over depth (a third of the wavelength), on the layers of the table.
void StartEmpirical(Run& run, const Arguments&) {
  const int result = RunFModel(kEmpiricalProfile, 0);
  run.settle();
  const int n = GetNumTableRows(fmodeling::SOILPROFILE);
  for (int i = 0; i < n; ++i)
    if (n > InvParam.nLayers || !(InvParam.Vs(0, i) > 0.0))
      throw Fault(FormatText("no point of the curve lies at the depth of layer %d, a third of its wavelength",
                             i + 1));
  if (result < 0) throw Fault("the profile has no theoretical curve");
  OnModelPanel(run, [&] {
    constexpr int kVpColumn = 2, kVsColumn = 3;
    for (int i = 0; i < n; ++i) {
      SetTableCellVal(fmodeling::SOILPROFILE, i + 1, kVpColumn, 0.0);  // by Poisson's ratio
      SetTableCellVal(fmodeling::SOILPROFILE, i + 1, kVsColumn, InvParam.Vs(0, i));
    }
  });
}

// ---- inversion --------------------------------------------------------------------------------------------

/// Value of the lists of entries: K of inv:K, -K of smp:K. Throws Fault for another text.
int EntryOf(std::string_view text) {
  if (text == "given") return 0;
  const bool profile = text.starts_with("smp:");
  const auto k = profile || text.starts_with("inv:") ? WholeOf(text.substr(4)) : std::nullopt;
  if (!k || *k < (profile ? 1 : 0)) throw Fault(Quoted(text) + " is not an entry like inv:2 or smp:1");
  return profile ? -*k : *k;
}

void CheckInvert(const Arguments& a) {
  if (a.has("from")) EntryOf(a.text("from"));
  if (a.whole("iterations", 1) < 1) throw Fault("iterations= is 1 or more");
}

void CheckSelect(const Arguments& a) {
  if (a.text("ENTRY") == "given") throw Fault("the entries are named inv:K and smp:K");
  EntryOf(a.text("ENTRY"));
}

void Invert(Run& run, const Arguments& a) {
  if (!IsPanelShown(Panel::INVERSION)) run.press(exdthd::RUN_INVERSION);
  EnterSettings(run, a);
  if (a.has("iterations")) run.enter(inversion::NITER, a.text("iterations"));
  if (a.has("from")) run.enter(inversion::INV_SMP, std::to_string(EntryOf(a.text("from"))));
  run.press(inversion::PERFORMINV);
}

void Select(Run& run, const Arguments& a) {
  run.enter(exdthd::ITERNO, std::to_string(EntryOf(a.text("ENTRY"))));
}

std::vector<ArgumentSpec> WithSettings(std::vector<ArgumentSpec> named, Panel panel) {
  AddSettingsOf(panel, named);
  return named;
}

}  // namespace

std::vector<WordForm> ModelForms() {
  std::vector<ArgumentSpec> properties;
  for (const std::string_view name : {"H", "Vs", "Vp", "density", "nu", "damping"})
    properties.push_back(Optional(Named(name, Kind::Number)));
  properties.push_back(Optional(Named("fix", Kind::Choice, kFixes)));
  return {
      {"layers",
       {Fixed("LIST", Kind::Text, "H1,H2,...|FILE")},
       {Optional(Named("form", Kind::Choice, "layers|disba")),
        Optional(Named("halfspace", Kind::Number, "H"))},
       "The layer table by thicknesses, top to bottom, the last one for the half-space; or from a file with "
       "one layer per line: H Vp Vs density nu damping, as many of these as you like. form= takes the layer "
       "table "
       "of another program, and "
       "halfspace= the thickness of its last layer.",
       Layers,
       CheckLayers},
      {"layer",
       {Fixed("N", Kind::Whole)},
       properties,
       "Properties of one layer. fix= keeps its thickness, its velocity or both through the inversion.",
       Layer,
       CheckLayer},
      {"load",
       {Fixed("WHICH", Kind::Choice, "global|array")},
       {},
       "Loads the representative curves into the model.",
       Load},
      {"receivers",
       {List("LIST", Kind::Numbers, "X1,X2,...")},
       {},
       "Places of the receivers of the model.",
       Receivers},
      {"forward",
       {},
       WithSettings({Optional(Named("type", Kind::Choice, "2|3|4"))}, Panel::FMODELING),
       "Computes the curves of the layer table: plane waves (2), the wave field of a point load (3) or the "
       "enhanced "
       "one (4).",
       Forward},
      {"start",
       {Literal("analytic")},
       {Optional(List("ratios", Kind::Numbers, "FROM,TO,N", 3))},
       "Starting profiles from the global curve, one for each ratio of depth to wavelength; the best goes to "
       "the layer "
       "table.",
       Start,
       CheckStart},
      {"start",
       {Literal("empirical")},
       {},
       "One starting profile: in each layer of the table 1.1 times the mean velocity of the points with a "
       "third of their "
       "wavelength there; it goes to the layer table.",
       StartEmpirical},
      {"invert",
       {},
       WithSettings({Optional(Named("iterations", Kind::Whole)),
                     Optional(Named("from", Kind::Text, "given|smp:K|inv:K"))},
                    Panel::INVERSION),
       "Inverts the curves of the model, from the layer table or from an entry.",
       Invert,
       CheckInvert},
      {"select",
       {Fixed("ENTRY", Kind::Text, "inv:K|smp:K")},
       {},
       "Chooses the entry that the results page shows: an iteration or a starting profile.",
       Select,
       CheckSelect},
  };
}

}  // namespace sondera::script
