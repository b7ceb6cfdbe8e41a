// words_section.cpp - the words about a line of stations: station, section.
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/script/control_values.h"
#include "app/script/fault.h"
#include "app/script/run.h"
#include "app/script/values.h"
#include "figure/figure_file.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/tmgrafpnl.h"
#include "runtime/files.h"
#include "runtime/graphs.h"

namespace sondera::script {
namespace {

using namespace tmgrafpnl;

constexpr int kStack = 0;

std::string PathOf(const Arguments& a) {
  return JoinUnlessAbsolute(CurrentDirectory(), a.text("FILE"));
}

bool IsTable(const Arguments& a) {
  return a.text("FILE").ends_with(".csv");
}

/// Refuses in front of the work, not behind it.
void Replace(Run& run, const Arguments& a) {
  if (FileExists(PathOf(a)) && !run.mayOverwrite(a))
    throw Fault(Quoted(a.text("FILE")) + " exists; overwrite=yes replaces it");
}

void Save(Run& run, const Arguments& a, const Control& button) {
  run.dialogs().chooseFile(PathOf(a));
  run.dialogs().sayYes();
  run.press(button);
}

void Picture(const Arguments& a) {
  if (const Refusal refusal = WriteFigure(GraphOf(TOMOGRAF), PathOf(a))) throw Fault(refusal.reason());
}

/// The arguments of `section` with their fields.
struct Option {
  std::string_view name;
  const Control& field;
};
constexpr Option kOptions[] = {{"nx", NX},     {"ny", NY},     {"wlmin", WLMIN},     {"wlmax", WLMAX},
                               {"dmin", DMIN}, {"dmax", DMAX}, {"vmin", LOCOLORVAL}, {"vmax", HICOLORVAL}};

/// Opens the section, and puts the settings of the panel back at the end: options hold for one line.
class OpenSection {
 public:
  explicit OpenSection(Run& run) : type_(GetCtrlVal(TOMOGRAFTYPE)), shown_(IsPanelShown(Panel::TMGRAFPNL)) {
    SetCtrlVal(TOMOGRAFTYPE, kStack);  // the image is drawn once, behind the options
    run.press(mainmenu::DRAW_TOMO_GRAF);
    for (const Option& option : kOptions) values_.emplace_back(&option.field, ValueOf(option.field));
    for (const Control* field :
         {static_cast<const Control*>(&FILL), static_cast<const Control*>(&VERTICALAXIS),
          static_cast<const Control*>(&CONTOURS)})
      values_.emplace_back(field, ValueOf(*field));
  }
  ~OpenSection() {
    for (const auto& [field, value] : values_) WriteValue(*field, value);
    SetCtrlVal(TOMOGRAFTYPE, type_);
    if (!values_.empty()) Commit(UPDATE);
    if (!shown_) HidePanel(Panel::TMGRAFPNL);
  }
  OpenSection(const OpenSection&) = delete;
  OpenSection& operator=(const OpenSection&) = delete;

 private:
  int type_;
  bool shown_;
  std::vector<std::pair<const Control*, std::string>> values_;
};

void NeedCurves() {
  if (items::Count(LIST_INCLUDED) == 0)
    throw Fault("no global curve is included; condense makes one, station adds one");
}

// ---- words ----------------------------------------------------------------------------------------------

void Station(Run& run, const Arguments& a) {
  if (!FileExists(PathOf(a))) throw Fault("there is no file " + Quoted(a.text("FILE")));
  run.dialogs().chooseFile(PathOf(a));
  run.dialogs().layOutFirst({Answer::Kind::Text, TextOf(a.number("at"))});
  run.press(ADDSTATION);
}

void CheckSection(const Arguments& a) {
  if (const std::string& file = a.text("FILE"); file == "stacked" || file == "points")
    throw Fault("FILE is missing; usage: section " + file + " FILE");
  if (IsTable(a)) {
    for (const char* name : {"contours", "depth", "vmin", "vmax"})
      if (a.has(name)) throw Fault(std::string(name) + "= is for a picture");
    return;
  }
  if (const std::string fault = FigureNameFault(a.text("FILE")); !fault.empty())
    throw Fault(fault + " A table ends with .csv.");
}

void Section(Run& run, const Arguments& a) {
  Replace(run, a);
  const OpenSection open(run);
  NeedCurves();
  for (const Option& option : kOptions)
    if (a.has(option.name)) run.enter(option.field, a.text(option.name));
  if (a.has("fill")) run.enter(FILL, a.isYes("fill") ? "1" : "0");
  if (a.has("contours")) WriteValue(CONTOURS, a.isYes("contours") ? "1" : "0");
  if (a.has("depth")) WriteValue(VERTICALAXIS, std::to_string(a.choice("depth") + 1));
  run.press(DRAWTOMOGRAF);
  if (IsTable(a))
    Save(run, a, SAVEGRID);
  else
    Picture(a);
}

void CheckStacked(const Arguments& a) {
  if (const std::string fault = FigureNameFault(a.text("FILE")); !fault.empty()) throw Fault(fault);
}

void Stacked(Run& run, const Arguments& a) {
  Replace(run, a);
  const OpenSection open(run);
  NeedCurves();
  if (a.has("depth")) run.enter(VERTICALAXIS, std::to_string(a.choice("depth") + 1));
  Picture(a);
}

void CheckPoints(const Arguments& a) {
  if (!IsTable(a)) throw Fault("the points are a table; name a file that ends with .csv");
}

void Points(Run& run, const Arguments& a) {
  Replace(run, a);
  const OpenSection open(run);
  NeedCurves();
  Save(run, a, SAVEPOINTS);
}

}  // namespace

std::vector<WordForm> SectionForms() {
  constexpr auto kLooks = WordForm::Role::Looks;
  constexpr std::string_view kDepths = "no|half|third";
  const auto number = [](std::string_view name) { return Optional(Named(name, Kind::Number)); };
  return {
      {"station",
       {Fixed("FILE", Kind::Text, "FILE.da|FILE.gcd")},
       {Named("at", Kind::Number, "X")},
       "Adds the global curves of another project, or of a .gcd file, to the line of this project at a "
       "place.",
       Station},
      {"section",
       {Literal("stacked"), Fixed("FILE", Kind::Text)},
       {Optional(Named("depth", Kind::Choice, kDepths)), Flag("overwrite")},
       "Draws the included global curves beside one another at their places, to .svg, .png or .pdf.",
       Stacked,
       CheckStacked,
       kLooks},
      {"section",
       {Literal("points"), Fixed("FILE", Kind::Text, "FILE.csv")},
       {Flag("overwrite")},
       "Writes the points of the included global curves: station, distance, wavelength, velocity.",
       Points,
       CheckPoints,
       kLooks},
      {"section",
       {Fixed("FILE", Kind::Text)},
       {Optional(Named("nx", Kind::Whole)), Optional(Named("ny", Kind::Whole)), number("wlmin"),
        number("wlmax"), number("dmin"), number("dmax"), number("vmin"), number("vmax"), Flag("fill"),
        Optional(Named("contours", Kind::Choice, "no|yes")), Optional(Named("depth", Kind::Choice, kDepths)),
        Flag("overwrite")},
       "Makes the section of phase velocity along the line and writes its nodes (.csv) or draws it (.svg, "
       ".png, "
       ".pdf): intervals, ranges of wavelength and distance, ends of the colours, Fill, contour lines, "
       "pseudo-depth "
       "(half or third of the wavelength). Options hold for this line.",
       Section,
       CheckSection,
       kLooks},
  };
}

}  // namespace sondera::script
