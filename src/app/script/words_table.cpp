// words_table.cpp - the words that exchange tables with other programs: write, and the formats of curves
// other than .exd.
#include <algorithm>
#include <vector>

#include "app/script/fault.h"
#include "app/script/run.h"
#include "app/script/tables.h"
#include "app/script/values.h"
#include "app/table_export.h"
#include "panels/table_import.h"
#include "runtime/files.h"
#include "runtime/findings.h"

namespace sondera::script {
namespace {

TableExport ExportOf(const Arguments& a) {
  TableExport what;
  what.form = a.text("FORM");
  what.out = JoinUnlessAbsolute(CurrentDirectory(), a.text("OUT"));
  if (a.has("only")) what.only = a.texts("only");
  what.extend = a.isYes("extend");
  what.geopsy210 = a.text("geopsy", "3") == "2.10";
  return what;
}

void CheckWrite(const Arguments& a) {
  if (a.has("only") && a.text("FORM") != "csv") throw Fault("only= is for csv");
  if (a.has("geopsy") && a.text("FORM") != "dinver") throw Fault("geopsy= is for dinver");
  if (FilesOf(ExportOf(a)).empty()) throw Fault("only= takes curves, profile, spectra, masks and figures");
}

void Write(Run& run, const Arguments& a) {
  const TableExport what = ExportOf(a);
  for (const std::string& file : FilesOf(what))
    if (FileExists(file) && !run.mayOverwrite(a))
      throw Fault(Quoted(FileNameOf(file)) + " exists; overwrite=yes replaces it");
  std::string remark;
  if (const std::string reason = WriteTables(what, remark); !reason.empty()) throw Fault(reason);
  if (!remark.empty()) AddNote(a.text("OUT") + ": " + remark);
}

constexpr CurveForm kForms[] = {CurveForm::Named, CurveForm::Swprepost, CurveForm::Dinver, CurveForm::Gpdc};

}  // namespace

void ReadCurveTable(Run&, const Arguments& a) {
  const std::string path = JoinUnlessAbsolute(CurrentDirectory(), a.text("FILE"));
  const CurveForm form = a.has("form") ? kForms[a.choice("form")] : CurveForm::Named;
  std::string made;
  const std::string reason = LoadCurveTable(path, form, a.text("columns", ""), a.text("id", kCurveID), made);
  if (!reason.empty()) throw Fault(a.text("FILE") + ": " + reason);
  AddNote(a.text("FILE") + ": the curve is that of the measurement " + made);
}

std::vector<WordForm> TableForms() {
  return {
      {"write",
       {Fixed("FORM", Kind::Choice, kTableForms), Fixed("OUT", Kind::Text)},
       {Optional(List("only", Kind::Texts, "TABLE,...")), Flag("extend"),
        Optional(Named("geopsy", Kind::Choice, "3|2.10")), Flag("overwrite")},
       "Writes the contents of the project for other programs: tables (csv: OUT_curves.csv, OUT_profile.csv, "
       "OUT_spectra.csv, OUT_masks.csv and OUT_figures.csv, or only= some; json: all in one file), the "
       "global curve "
       "(swprepost, dinver, gpdc) or the final profile (layers, disba). extend=yes gives Vs30 also where "
       "30 m were "
       "not seen.",
       Write,
       CheckWrite,
       WordForm::Role::Looks}};
}

}  // namespace sondera::script
