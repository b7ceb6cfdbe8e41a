// table_json.h - the tables of a project as JSON, by docs/sondera-export-1.schema.json: lengths and velocities in m
// and m/s (density as entered), keys in the order of the schema, null for no value, neither date nor path, so that
// two exports are equal bytes. An added key raises 1.x, a changed meaning raises 2. Owned state: none.
#pragma once

#include <string>

#include "project/export_tables.h"

namespace sondera {

std::string JsonText(const ProjectTables& tables);

}  // namespace sondera
