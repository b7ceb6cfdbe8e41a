// words_project.cpp - the words about projects and files: new, open, save, project, read, curves.
#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>

#include "app/script/control_values.h"
#include "app/script/fault.h"
#include "app/script/import_fields.h"
#include "app/script/run.h"
#include "app/script/tables.h"
#include "app/script/values.h"
#include "panels/mainmenu_plot.h"
#include "records/session.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/irfsetpnl.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/findings.h"
#include "runtime/paths.h"
#include "runtime/project_hooks.h"
#include "runtime/text_format.h"

namespace sondera::script {
namespace {

std::string PathOf(const Arguments& a) {
  return JoinUnlessAbsolute(CurrentDirectory(), a.text("FILE"));
}

bool IsSameFile(const std::string& a, const std::string& b) {
  std::error_code error;
  return a == b || std::filesystem::equivalent(a, b, error);
}

// ---- new, open, save ------------------------------------------------------------------------------------

void KeepUnsaved(const Arguments& a) {
  if (HasUnsavedChanges() && !a.isYes("discard"))
    throw Fault("there are changes that are not saved; save them, or drop them with discard=yes");
}

void New(Run& run, const Arguments& a) {
  KeepUnsaved(a);
  run.dialogs().sayYes();
  run.press(mainmenu::NEW_MEASUREMENT);
}

void Open(Run& run, const Arguments& a) {
  KeepUnsaved(a);
  const std::string path = PathOf(a);
  if (!FileExists(path)) throw Fault("there is no file " + Quoted(a.text("FILE")));
  run.dialogs().chooseFile(path);
  const int result = Commit(mainmenu::LOAD_RAW_DATA);
  if (result < 0 && session.readInPart && a.isYes("damaged")) {
    for (const std::string& complaint : run.dialogs().takeComplaints()) AddDoubt(complaint);
    return;
  }
  run.settle();
  if (result < 0) throw Fault("the project was not opened");
}

void SaveAs(Run& run, const Arguments& a, const std::string& path) {
  if (FileExists(path) && !run.mayOverwrite(a))
    throw Fault(Quoted(a.text("FILE")) + " exists; overwrite=yes replaces it");
  run.dialogs().chooseFile(path);
  run.dialogs().sayYes();
  run.press(measpanel::F7);
}

void Save(Run& run, const Arguments& a) {
  const std::string& present = session.projectFileName;
  if (!a.has("FILE") && present.empty()) throw Fault("the project has no file yet; name one");
  if (a.has("FILE") && (present.empty() || !IsSameFile(PathOf(a), present))) {
    SaveAs(run, a, PathOf(a));
    return;
  }
  if (session.readInPart && !a.isYes("force"))
    throw Fault("the project is damaged and was read in part; save it under another name, or with force=yes");
  run.press(measpanel::F6);
}

// ---- project --------------------------------------------------------------------------------------------

constexpr std::string_view kUnits = "m|ft|cm|in", kSites = "geotechnical|concrete|pavement";

/// A setting that the dialog of the import has, too.
void EnterTwice(Run& run, const Control& control, const Control& ofImport, const std::string& value) {
  run.enter(control, value);
  WriteValue(ofImport, value);
}

void Project(Run& run, const Arguments& a) {
  constexpr const char* kLabels[] = {"meter", "ft", "cm", "in"};
  if (a.has("unit"))
    EnterTwice(run, meassetup::LENGTHUNIT, loadtxdata::LENGTHUNIT, kLabels[a.choice("unit")]);
  if (a.has("site"))
    EnterTwice(run, irfsetpnl::SITECAT, loadtxdata::SITECAT, std::to_string(a.choice("site")));
  if (a.has("id")) run.enter(hmsetup::PROJID, a.text("id"));
}

// ---- read -----------------------------------------------------------------------------------------------

void CheckRead(const Arguments& a) {
  const std::size_t receivers = a.numbers("at").size(), files = a.texts("files").size();
  if (receivers > kMostReceivers) throw Fault(FormatText("at= takes up to %zu places", kMostReceivers));
  const int kind = a.choice("KIND");
  const std::size_t wanted = FilesFor(kind, receivers, a.isYes("instrumented"));
  if (files != wanted)
    throw Fault(FormatText("%zu places take %zu %s of this kind, and files= has %zu", receivers, wanted,
                           wanted == 1 ? "file" : "files", files));
  const std::vector<std::string>& names = a.texts("files");
  if (!IsCrossSpectrum(kind) && std::find(names.begin(), names.end(), "") != names.end())
    throw Fault("files= has an empty name");
}

void Read(Run& run, const Arguments& a) {
  using namespace loadtxdata;
  const std::vector<double>& at = a.numbers("at");
  run.press(mainmenu::LOAD_TWO_CHNL_DATA);
  run.enter(DATATYPE, std::to_string(a.choice("KIND")));
  run.enter(SRCINSTRUMENT, a.isYes("instrumented") ? "1" : "0");
  run.enter(NCHANS, std::to_string(at.size()));
  run.enter(MEASID, a.text("id"));
  for (std::size_t i = 0; i < a.texts("files").size(); ++i) {
    const std::string& file = a.texts("files")[i];
    SetCtrlVal(*kFileFields[i], file.empty() ? file : JoinUnlessAbsolute(CurrentDirectory(), file));
  }
  SetCtrlVal(LOC_SRC, a.number("source"));
  for (std::size_t i = 0; i < at.size(); ++i) SetCtrlVal(*kLocations[i], at[i]);
  if (a.isYes("overwrite"))
    run.dialogs().sayYes();
  else
    run.dialogs().sayNo("the measurement " + Quoted(a.text("id")) + " exists; overwrite=yes replaces it");
  run.press(LOAD);
  run.press(CANCEL);
}

// ---- curves ---------------------------------------------------------------------------------------------

std::string ExtensionOf(const std::string& path) {
  const std::string name = FileNameOf(path);
  const std::size_t dot = name.rfind('.');
  std::string extension = dot == std::string::npos ? "" : name.substr(dot);
  for (char& c : extension) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return extension;
}

const Control& WriterOf(const Arguments& a) {
  const std::string extension = ExtensionOf(a.text("FILE"));
  if (extension == ".exd") return mainmenu::EXPORT_EXD_DATA;
  if (extension == ".gcd") return cdisppnl::SAVEGCD;
  if (extension == ".icd") return cdisppnl::SAVEICD;
  if (extension == ".red") return cdisppnl::SAVERED;
  throw Fault("curves are written to .exd, .gcd, .icd and .red");
}

void CheckCurvesRead(const Arguments& a) {
  const std::string extension = ExtensionOf(a.text("FILE"));
  if (extension == ".gcd" || extension == ".icd" || extension == ".red")
    throw Fault("curves are read from .exd");
  if (extension == ".exd" && (a.has("form") || a.has("columns") || a.has("id")))
    throw Fault("form=, columns= and id= are for curves of other programs");
}
void CheckCurvesWrite(const Arguments& a) {
  WriterOf(a);
}

void ReadCurves(Run& run, const Arguments& a) {
  if (!FileExists(PathOf(a))) throw Fault("there is no file " + Quoted(a.text("FILE")));
  if (ExtensionOf(a.text("FILE")) != ".exd") {
    ReadCurveTable(run, a);
    return;
  }
  run.dialogs().chooseFile(PathOf(a));
  run.press(mainmenu::LOAD_EXD_FILE_MENU);
}

void WriteCurves(Run& run, const Arguments& a) {
  if (FileExists(PathOf(a)) && !run.mayOverwrite(a))
    throw Fault(Quoted(a.text("FILE")) + " exists; overwrite=yes replaces it");
  run.dialogs().chooseFile(PathOf(a));
  run.dialogs().sayYes();
  run.press(WriterOf(a));
}

// ---- report ---------------------------------------------------------------------------------------------

void CheckReport(const Arguments& a) {
  const bool pdf = IsPdfName(a.text("FILE"));
  if (!pdf && !a.text("FILE").ends_with(".ps"))
    throw Fault("the report is PostScript or PDF; name a file that ends with .ps or .pdf");
  if (!pdf && (a.has("paper") || a.has("entry"))) throw Fault("paper= and entry= are for a report .pdf");
  if (pdf && !HavePdfAndPng())
    throw Fault("this program was built without PDF; name a file that ends with .ps");
}

/// Pages without contents are not a fault when the others are there.
void Report(Run& run, const Arguments& a) {
  int result = 0;
  if (IsPdfName(a.text("FILE"))) {
    PdfWishes wishes;
    if (a.has("paper")) wishes.paper = static_cast<Paper>(a.choice("paper"));
    if (a.has("entry")) wishes.entry = a.whole("entry");
    result = PrintReport(ReportKind::whole, PathOf(a), wishes);
  } else {
    run.dialogs().chooseFile(PathOf(a));
    result = Commit(mainmenu::PRINT_REPORT);
  }
  if (result < 0) {
    run.settle();
    throw Fault("the report was not written");
  }
  for (const std::string& complaint : run.dialogs().takeComplaints()) AddNote(complaint);
}

}  // namespace

std::vector<WordForm> ProjectForms() {
  constexpr auto kFiles = WordForm::Role::Files;
  const ArgumentSpec file = Fixed("FILE", Kind::Text);
  return {
      {"new",
       {},
       {Flag("discard")},
       "Begins an empty project. Changes that are not saved are dropped only with discard=yes.",
       New,
       nullptr,
       kFiles},
      {"open",
       {file},
       {Flag("damaged"), Flag("discard")},
       "Opens a project. If it cannot be read completely, the script stops; with damaged=yes this is a "
       "doubt.",
       Open,
       nullptr,
       kFiles},
      {"save",
       {Optional(file)},
       {Flag("overwrite"), Flag("force")},
       "Saves the project, from now on under this name if there is one. Another file that exists is replaced "
       "only with "
       "overwrite=yes, a damaged project that was read in part only with force=yes.",
       Save,
       nullptr,
       kFiles},
      {"project",
       {},
       {Optional(Named("id", Kind::Text)), Optional(Named("unit", Kind::Choice, kUnits)),
        Optional(Named("site", Kind::Choice, kSites))},
       "Id of the project, by which the result files are named; unit of length and kind of site, also for "
       "what is "
       "read from now on.",
       Project},
      {"read",
       {Fixed("KIND", Kind::Choice, kDataKinds)},
       {Named("id", Kind::Text, "ID"), List("files", Kind::Texts, "A,B,..."), Named("source", Kind::Number),
        List("at", Kind::Numbers, "X1,X2,..."), Flag("instrumented"), Flag("overwrite")},
       "Reads a measurement: files in the order of the receivers, places of the source and of each receiver. "
       "hyx and "
       "uff-h without an instrumented source take one file less than there are places: the first receiver is "
       "the "
       "reference.",
       Read,
       CheckRead},
      ReadSeg2Form(),
      ReadColumnsForm(),
      {"curves",
       {Literal("read"), file},
       {Optional(Named("form", Kind::Choice, kCurveForms)),
        Optional(Named("columns", Kind::Text, "NAME,...")), Optional(Named("id", Kind::Text, "ID"))},
       "Reads dispersion curves (.exd), or a curve of another program: a text whose columns are named, by "
       "its first "
       "line or by columns=, or one of these forms.",
       ReadCurves,
       CheckCurvesRead},
      {"curves",
       {Literal("write"), file},
       {Flag("overwrite")},
       "Writes the curves of the pairs (.exd), the global curve (.gcd), the array curves (.icd) or both "
       "(.red).",
       WriteCurves,
       CheckCurvesWrite,
       WordForm::Role::Looks},
      {"report",
       {Fixed("FILE", Kind::Text, "FILE.ps|FILE.pdf")},
       {Optional(Named("paper", Kind::Choice, "a4|letter")), Optional(Named("entry", Kind::Whole))},
       "Writes the whole report: phases with their masks, dispersion curves, and every entry of the "
       "inversion "
       "(.ps), or the report to hand in, of one iteration: entry=, or the last (.pdf). A file that exists is "
       "replaced. Pages without contents give a note.",
       Report,
       CheckReport,
       WordForm::Role::Looks},
  };
}

}  // namespace sondera::script
