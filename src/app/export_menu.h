// export_menu.h - the items of File, Export that write tables in the forms of other programs. Owned state: none.
#pragma once

#include <string>

#include "app/table_export.h"
#include "runtime/controls.h"

namespace sondera {

/// Asks for a name and writes the form of the menu item; the tables of CSV are NAME_curves.csv and so on. A file that
/// is there already is replaced after a question. @return 0; -1 after a message
int ExportTablesCallback(Panel panel, ControlId item, Event event, long data);

/// What a menu item writes when this name is chosen: the form, and the name with the extension of the item's files
/// or, for the tables of CSV, without it. Another control has no form.
TableExport ExportOfItem(const Control& item, const std::string& name);

}  // namespace sondera
