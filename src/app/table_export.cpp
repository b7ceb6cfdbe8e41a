// table_export.cpp - see table_export.h. Owns no state.
#include "app/table_export.h"

#include <algorithm>
#include <iterator>

#include "panels/table_choices.h"
#include "project/export_tables.h"
#include "project/table_csv.h"
#include "project/table_forms.h"
#include "project/table_json.h"
#include "runtime/atomic_writer.h"

namespace sondera {
namespace {

constexpr const char* kModeRemark =
    "the form names a mode (rayleigh 0), and a velocity of this method is an apparent one of a receiver "
    "pair; only "
    "the global curve is written";

bool IsForm(const std::string& form) {
  const std::string all = "|" + std::string(kTableForms) + "|";
  return !form.empty() && form.find('|') == std::string::npos &&
         all.find("|" + form + "|") != std::string::npos;
}

std::vector<std::string> CsvTablesOf(const TableExport& what) {
  if (!what.only.empty()) return what.only;
  return {std::begin(kCsvTables), std::end(kCsvTables)};
}

std::string WriteText(const std::string& path, const std::string& text) {
  TextWriter file(path);
  file.Put(text);
  return file.Close() ? std::string() : file.Reason();
}

std::string TextOfCurve(const TableExport& what, const ProjectTables& tables, std::string& text) {
  CurvePoints curve;
  if (!GlobalCurveOf(tables, curve))
    return "there is no global curve; condense the curves of the pairs first";
  if (what.form == "dinver")
    return DinverText(curve, what.geopsy210 ? DinverColumn::Geopsy210 : DinverColumn::Geopsy3, text);
  text = what.form == "swprepost" ? SwprepostText(curve) : GpdcText(curve);
  return {};
}

std::string TextOfLayers(const TableExport& what, const ProjectTables& tables, std::string& text) {
  const ProfileTable* profile = FinalProfile(tables);
  if (!profile) return "there is no profile and no layer table";
  LayeredModel model;
  std::string reason = LayeredModelOf(*profile, tables.lengthUnit, model);
  if (reason.empty()) text = what.form == "layers" ? LayersText(model) : DisbaText(model);
  return reason;
}

}  // namespace

ProjectTables OpenProjectTables(bool extend) {
  return CollectTables(ReadTableChoices(extend));
}

std::vector<std::string> FilesOf(const TableExport& what) {
  if (!IsForm(what.form)) return {};
  if (what.form != "csv") return {what.out};
  std::vector<std::string> files;
  for (const std::string& table : CsvTablesOf(what)) {
    if (std::find(std::begin(kCsvTables), std::end(kCsvTables), table) == std::end(kCsvTables)) return {};
    files.push_back(what.out + "_" + table + ".csv");
  }
  return files;
}

std::string WriteTables(const TableExport& what, std::string& remark) {
  remark.clear();
  if (!IsForm(what.form)) return "\"" + what.form + "\" is not one of " + std::string(kTableForms);
  if (!what.only.empty() && what.form != "csv") return "only csv has tables to choose from";
  const std::vector<std::string> files = FilesOf(what);
  if (files.empty()) return "the tables are curves, profile, spectra, masks and figures";
  const ProjectTables tables = OpenProjectTables(what.extend);
  if (what.form == "csv") {
    const std::vector<std::string> names = CsvTablesOf(what);
    for (std::size_t i = 0; i < names.size(); ++i)
      if (std::string reason = WriteText(files[i], CsvText(tables, names[i])); !reason.empty()) return reason;
    return {};
  }
  if (what.form == "json") return WriteText(what.out, JsonText(tables));
  const bool isModel = what.form == "layers" || what.form == "disba";
  std::string text;
  std::string reason = isModel ? TextOfLayers(what, tables, text) : TextOfCurve(what, tables, text);
  if (!reason.empty()) return reason;
  if (!isModel) remark = kModeRemark;
  return WriteText(what.out, text);
}

}  // namespace sondera
