// table_choices.h - what the tables of a project take from the controls. Owned state: none.
#pragma once

#include "project/export_tables.h"

namespace sondera {

/// The iterations that the results page lists, and the layers that the inversion keeps.
TableChoices ReadTableChoices(bool extend);

}  // namespace sondera
