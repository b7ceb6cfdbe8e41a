// table_choices.h - what the tables of a project take from the controls. Owned state: none.
#pragma once

#include "project/export_tables.h"

namespace sondera {

/// The iterations that the results page lists, the layers that the inversion keeps, and the run in memory.
TableChoices ReadTableChoices(bool extend);

}  // namespace sondera
