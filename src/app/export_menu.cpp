// export_menu.cpp - see export_menu.h.
#include "app/export_menu.h"

#include <string>
#include <utility>

#include "app/table_export.h"
#include "records/session.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/dialogs.h"
#include "runtime/paths.h"

namespace sondera {
namespace {

/// Form of a menu item and the extension of its files.
std::pair<std::string, std::string> FormOf(ControlId item) {
  constexpr std::pair<const Control*, std::pair<const char*, const char*>> kForms[] = {
      {&mainmenu::EXPORT_CSV, {"csv", ".csv"}},
      {&mainmenu::EXPORT_JSON, {"json", ".json"}},
      {&mainmenu::EXPORT_SWPREPOST, {"swprepost", ".csv"}},
      {&mainmenu::EXPORT_DINVER, {"dinver", ".txt"}},
      {&mainmenu::EXPORT_GPDC, {"gpdc", ".txt"}},
      {&mainmenu::EXPORT_LAYERS, {"layers", ".txt"}},
      {&mainmenu::EXPORT_DISBA, {"disba", ".txt"}}};
  for (const auto& [control, form] : kForms)
    if (item == control || (item && item->name == control->name)) return {form.first, form.second};
  return {};
}

/// A sentence as a message shows it.
std::string Sentence(std::string text) {
  if (!text.empty() && text.back() != '.' && text.back() != '!') text += '.';
  return text;
}

}  // namespace

TableExport ExportOfItem(const Control& item, const std::string& name) {
  const auto [form, extension] = FormOf(&item);
  TableExport what;
  what.form = form;
  what.out = name;
  const bool named = name.ends_with(extension);
  if (form == "csv") {
    if (named) what.out.erase(name.size() - extension.size());
  } else if (!named && FileNameOf(name).find('.') == std::string::npos) {
    what.out += extension;
  }
  return what;
}

int ExportTablesCallback(Panel, ControlId item, Event event, long) {
  if (event != Event::Commit) return 0;
  const auto [form, extension] = FormOf(item);
  if (form.empty()) return -1;
  const FileChoice choice =
      FileSelectPopup({ProjectDirectory(), "*" + extension, std::string(item->label), true});
  if (choice.answer == FileAnswer::Cancelled || choice.path.empty()) return 0;
  const TableExport what = ExportOfItem(*item, choice.path);
  // The dialog asked about the chosen name alone, and the tables have others.
  if (form == "csv")
    for (const std::string& file : FilesOf(what))
      if (FileExists(file)) {
        if (!ConfirmPopup(session.appTitle, FileNameOf(file) + " exists. Overwrite it ?")) return 0;
        break;
      }
  std::string remark;
  if (const std::string reason = WriteTables(what, remark); !reason.empty()) return Refuse(Sentence(reason));
  if (!remark.empty()) MessagePopup(session.appTitle, Sentence("Note: " + remark));
  return 0;
}

}  // namespace sondera
