// names.h - controls by the names of the catalogue: "SASW.MASKINGNEW", "MAINMENU.LOAD_RAW_DATA".
#pragma once

#include <string>
#include <string_view>

#include "runtime/controls.h"

namespace sondera::script {

/// The control of a name PANEL.CONTROL. Throws Fault for an unknown one, with the nearest existing name.
const Control& ControlOfName(std::string_view name);

/// PANEL.CONTROL.
std::string NameOf(const Control& control);

/// "number", "ring", "button", ...: the kind in a word for messages.
std::string_view KindName(ControlKind kind);

/// Calls f with the control under its own type: NumericControl, RingControl, ...
template <class F>
auto WithType(const Control& c, F f) {
  switch (c.kind) {
    case ControlKind::Numeric:
      return f(static_cast<const NumericControl&>(c));
    case ControlKind::Int:
      return f(static_cast<const IntControl&>(c));
    case ControlKind::Text:
      return f(static_cast<const TextControl&>(c));
    case ControlKind::Ring:
      return f(static_cast<const RingControl&>(c));
    case ControlKind::RealRing:
      return f(static_cast<const RealRingControl&>(c));
    case ControlKind::List:
      return f(static_cast<const ListControl&>(c));
    case ControlKind::Table:
      return f(static_cast<const TableControl&>(c));
    case ControlKind::Graph:
      return f(static_cast<const GraphControl&>(c));
    case ControlKind::Button:
      return f(static_cast<const ButtonControl&>(c));
    case ControlKind::Toggle:
      return f(static_cast<const ToggleControl&>(c));
    case ControlKind::Label:
      return f(static_cast<const LabelControl&>(c));
    case ControlKind::Menu:
      break;
  }
  return f(static_cast<const MenuControl&>(c));
}

}  // namespace sondera::script
