// words_first_dialect.cpp - the six words of the first dialect, here with strict arguments: export, import, masking,
// calcVel, preInversion, inversion.

#include "app/commands.h"
#include "app/script/fault.h"
#include "app/script/pairs.h"
#include "app/script/run.h"
#include "app/script/values.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/text_format.h"

namespace sondera::script {
namespace {

constexpr std::string_view kSeparators = " ,\t";  // of the first dialect
constexpr int kLayerList = 2;
constexpr std::size_t kMostLayers = 400;

/// Runs a line of the first dialect. A text with a separator cannot be one word there.
void RunLine(Run& run, const std::string& line) {
  const int result = ProcessCommandLine(line);
  run.settle();
  if (result < 0) throw Fault("the program refused");
}

std::string Word(const Arguments& a, std::string_view name) {
  const std::string& text = a.text(name);
  if (text.empty() || text.find_first_of(kSeparators) != std::string::npos)
    throw Fault(std::string(name) + ": this word takes no text that is empty or has blanks or commas");
  return " " + text;
}

std::string Number(const Arguments& a, std::string_view name) {
  return " " + TextOf(a.number(name));
}

void KnowMeasurement(const std::string& id) {
  if (GetKeyFromID(session.curProjID, id) != -1) return;
  std::vector<std::string> ids;
  for (const IDInfo& known : MeasDB.idList) ids.push_back(known.MeasID);
  throw Fault(UnknownText("measurement", id, ids));
}

void CheckExport(const Arguments& a) {
  Word(a, "FILE"), Word(a, "ID");
  CheckChannels(a);
  const int types = static_cast<int>(sasw::DISPATYPE.items.size());
  if (a.whole("TYPE") < 0 || a.whole("TYPE") >= types)
    throw Fault(FormatText("TYPE is from 0 to %d", types - 1));
}
void Export(Run& run, const Arguments& a) {
  NamedPairOf(a);
  RunLine(run, "export" + Word(a, "FILE") + Word(a, "ID") + Number(a, "REF") + Number(a, "CHANNEL") +
                   Number(a, "TYPE"));
}

void CheckImport(const Arguments& a) {
  Word(a, "BASE"), Word(a, "ID");
}
void Import(Run& run, const Arguments& a) {
  RunLine(run, "import" + Word(a, "BASE") + Word(a, "ID") + Number(a, "R1") + Number(a, "R2"));
}

void CheckMasking(const Arguments& a) {
  Word(a, "ID");
}
void Masking(Run& run, const Arguments& a) {
  KnowMeasurement(a.text("ID"));
  std::string line = "masking" + Word(a, "ID") + " " + std::to_string(a.choice("MODE"));
  for (const char* name : {"T1", "T2", "T3", "T4"}) line += Number(a, name);
  RunLine(run, line);
}

void CalcVel(Run& run, const Arguments&) {
  RunLine(run, "calcVel");
}

void CheckPreInversion(const Arguments& a) {
  const std::size_t given = a.has("LIST") ? a.numbers("LIST").size() : 0;
  if (a.whole("LAYERING") != kLayerList) {
    if (given > 0) throw Fault("only layering 2 takes a list of layers");
    return;
  }
  if (given == 0) throw Fault("layering 2 takes the number of layers and their thicknesses");
  const double n = a.numbers("LIST")[0];
  if (!(n >= 1.0 && n <= kMostLayers) || n != static_cast<double>(given - 1))
    throw Fault(FormatText("the number of layers is %g, and %zu thicknesses follow (up to %zu can)", n,
                           given - 1, kMostLayers));
}
void PreInversion(Run& run, const Arguments& a) {
  std::string line = "preInversion";
  for (const char* name : {"FIRST", "DEPTH", "LAYERING", "RATIO"}) line += Number(a, name);
  if (a.has("LIST"))
    for (const double value : a.numbers("LIST")) line += " " + TextOf(value);
  RunLine(run, line);
}

void Inversion(Run& run, const Arguments&) {
  RunLine(run, "inversion");
}

ArgumentSpec RestOfNumbers(std::string_view name, std::string_view shown) {
  ArgumentSpec spec = Fixed(name, Kind::Numbers, shown);
  spec.rest = true;
  return spec;
}

}  // namespace

std::vector<WordForm> FirstDialectForms() {
  constexpr auto kFiles = WordForm::Role::Files;  // all but export and import end with a save
  const auto text = [](std::string_view name) { return Fixed(name, Kind::Text); };
  const auto number = [](std::string_view name) { return Fixed(name, Kind::Number); };
  const auto whole = [](std::string_view name) { return Fixed(name, Kind::Whole); };
  return {
      {"export",
       {text("FILE"), text("ID"), whole("REF"), whole("CHANNEL"), whole("TYPE")},
       {},
       "The first dialect's export, with every argument given.",
       Export,
       CheckExport,
       WordForm::Role::Looks},
      {"import",
       {text("BASE"), text("ID"), number("R1"), number("R2")},
       {},
       "The first dialect's import of BASE.hyx.",
       Import,
       CheckImport},
      {"masking",
       {text("ID"), Fixed("MODE", Kind::Choice, "0|1"), number("T1"), number("T2"), number("T3"),
        number("T4")},
       {},
       "The first dialect's masking: filter window, dispersion curve, save.",
       Masking,
       CheckMasking,
       kFiles},
      {"calcVel",
       {},
       {},
       "Representative curves, a layer table of their own, save.",
       CalcVel,
       nullptr,
       kFiles},
      {"preInversion",
       {number("FIRST"), number("DEPTH"), Fixed("LAYERING", Kind::Whole, "1|2"), number("RATIO"),
        RestOfNumbers("LIST", "[N H1 H2 ...]")},
       {},
       "Layer table, array curves, starting profiles, the best one, save.",
       PreInversion,
       CheckPreInversion,
       kFiles},
      {"inversion",
       {},
       {},
       "Inversion, save, tables of the last iteration in the file of results.",
       Inversion,
       nullptr,
       kFiles},
  };
}

}  // namespace sondera::script
