// export_menu.h - the items of File, Export that write tables in the forms of other programs. Owned state: none.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Asks for a name and writes the form of the menu item; the tables of CSV are NAME_curves.csv and so on. A file that
/// is there already is replaced after a question. @return 0; -1 after a message
int ExportTablesCallback(Panel panel, ControlId item, Event event, long data);

}  // namespace sondera
