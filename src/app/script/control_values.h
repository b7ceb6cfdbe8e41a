// control_values.h - the value of any control as text, for writing and for printing.
#pragma once

#include <string>
#include <string_view>

#include "runtime/controls.h"

namespace sondera::script {

/// True for kinds that hold a value: not for tables, graphs, buttons and menu items.
bool HasValue(const Control& control);

/// Numbers in their shortest form; of rings and lists the value of the selected item; texts without change.
std::string ValueOf(const Control& control);

/// Throws Fault for a text that cannot be a value of the control: no number, a kind without a value.
void CheckValue(const Control& control, std::string_view text);
/// Writes a value. A ring or a list accepts an item's value or its label; a switch accepts yes, no, on and
/// off besides numbers. Throws Fault as CheckValue does, and for an item that does not exist.
void WriteValue(const Control& control, std::string_view text);
/// Selects an item by its whole label. Throws Fault when there is none.
void SelectItem(const Control& control, std::string_view label);

}  // namespace sondera::script
