// control.h - defines controls: panels, kinds, roles, and the typed constants that the catalogue declares.
//
// A control is declared once, in the header of its panel (runtime/catalogue/), as a typed constant:
//
//     namespace sondera::gaborpnl {
//     inline constexpr NumericControl BETA{Panel::GABORPNL, "BETA", "Exponent", 3.0,
//                                          {.hint = "Exponent of the Gauss filter, above 0.", .min = 0.0}};
//     }
//
// Its value and state are in the store (runtime/controls.h). Nothing here changes at run time.
#pragma once

#include <limits>
#include <span>
#include <string>
#include <string_view>

namespace sondera {

/// All panels. MAINMENU holds the menu items of the main window.
enum class Panel : int {
  PANEL,
  MEASPANEL,
  SASW,
  DISPCURV,
  EXDTHD,
  HMSETUP,
  HWSETUP,
  MEASSETUP,
  LOADTXDATA,
  LOAD2CHNL,
  LOADEXD,
  ASAVEDLG,
  DEVPANEL,
  IRFSETPNL,
  IRFSETPNL2,
  GABORPNL,
  CDISPPNL,
  TMGRAFPNL,
  FMODELING,
  INVERSION,
  ANALRESULT,
  PULSE,
  MSCALEPNL,
  DSP_MSCALE,
  EXD_SCALE,
  ABOUTPNL,
  CHANGEID,
  CHANGEID_1,
  CONFIRMPNL,
  MESSAGEPNL,
  MAINMENU,
  LOADSHOTS,
};
inline constexpr int kPanelCount = static_cast<int>(Panel::LOADSHOTS) + 1;

enum class ControlKind : int {
  Numeric,
  Int,
  Text,
  Ring,
  RealRing,
  List,
  Table,
  Graph,
  Button,
  Toggle,
  Label,
  Menu
};

/// Item of a ring or a list. Rings of lengths hold real values, all others integers.
struct ListItem {
  std::string_view label;
  double value;
};

/// The form of a control for a person, where its kind does not determine it.
enum class Role : int {
  Plain,    ///< as its kind: field, ring, button ...
  ReadOut,  ///< shown by the program, not entered
  TextBox,  ///< text of many lines
  Color,    ///< colour 0xRRGGBB
  Lamp,     ///< on or off, shown by the program
  Latch,    ///< button that stays down until it is pressed again
};

/// Information about a control for a person. hint is one sentence with meaning, unit and range: it is the
/// tool tip, the spoken description and the line of docs/controls.md.
struct Facts {
  std::string_view hint = {};
  std::string_view spoken = {};  ///< name of its own for a screen reader, where the caption is not enough
  Role role = Role::Plain;
  std::string_view unit = {};  ///< of a number; "length" for the project's unit of length
  double min = -std::numeric_limits<double>::infinity();  ///< of a useful number; not enforced
  double max = std::numeric_limits<double>::infinity();
  double step = 0.0;  ///< of the arrow keys; 0: the front end chooses
};

/// Kind and initial state of a control. Use the typed forms below to declare one.
struct Control {
  Panel panel;
  ControlKind kind;
  std::string_view name;                 ///< the constant's own name, e.g. "BETA"
  std::string_view label;                ///< caption shown beside it
  double number = 0.0;                   ///< first value of Numeric, Int, Toggle; first index of rings
  std::string_view text = {};            ///< first value of Text and Label; menu path of Menu
  std::span<const ListItem> items = {};  ///< first items of a ring or list
  int rows = 0;                          ///< first number of rows of a Table; its cells start at 0
  std::span<const std::string_view> columns = {};  ///< column titles of a Table
  bool dimmed = false;                             ///< starts dimmed
  bool hidden = false;                             ///< starts hidden
  Facts facts = {};
};
using ControlId = const Control*;

// Each typed form ends with its facts; the arguments between the caption and the facts may be left out.

/// Real number.
struct NumericControl : Control {
  constexpr NumericControl(Panel p, std::string_view n, std::string_view l, double first, const Facts& f = {})
      : Control{
            .panel = p, .kind = ControlKind::Numeric, .name = n, .label = l, .number = first, .facts = f} {}
  constexpr NumericControl(Panel p, std::string_view n, std::string_view l, const Facts& f = {})
      : NumericControl(p, n, l, 0.0, f) {}
};
/// Integer.
struct IntControl : Control {
  constexpr IntControl(Panel p, std::string_view n, std::string_view l, int first, const Facts& f = {})
      : Control{.panel = p,
                .kind = ControlKind::Int,
                .name = n,
                .label = l,
                .number = static_cast<double>(first),
                .facts = f} {}
  constexpr IntControl(Panel p, std::string_view n, std::string_view l, const Facts& f = {})
      : IntControl(p, n, l, 0, f) {}
};
/// Text, of one line or many.
struct TextControl : Control {
  constexpr TextControl(Panel p, std::string_view n, std::string_view l, std::string_view first,
                        const Facts& f = {})
      : Control{.panel = p, .kind = ControlKind::Text, .name = n, .label = l, .text = first, .facts = f} {}
  constexpr TextControl(Panel p, std::string_view n, std::string_view l, const Facts& f = {})
      : TextControl(p, n, l, std::string_view(), f) {}
};
/// One of a list of items, each with an integer value. Read and set by value; SetCtrlIndex sets by position.
struct RingControl : Control {
  constexpr RingControl(Panel p, std::string_view n, std::string_view l, std::span<const ListItem> i,
                        int firstIndex = 0, const Facts& f = {})
      : Control{.panel = p,
                .kind = ControlKind::Ring,
                .name = n,
                .label = l,
                .number = static_cast<double>(firstIndex),
                .items = i,
                .facts = f} {}
  constexpr RingControl(Panel p, std::string_view n, std::string_view l, std::span<const ListItem> i,
                        const Facts& f)
      : RingControl(p, n, l, i, 0, f) {}
  constexpr RingControl(Panel p, std::string_view n, std::string_view l, const Facts& f = {})
      : RingControl(p, n, l, std::span<const ListItem>(), 0, f) {}
};
/// The same with real values (units of length, voltage ranges).
struct RealRingControl : Control {
  constexpr RealRingControl(Panel p, std::string_view n, std::string_view l, std::span<const ListItem> i,
                            int firstIndex = 0, const Facts& f = {})
      : Control{.panel = p,
                .kind = ControlKind::RealRing,
                .name = n,
                .label = l,
                .number = static_cast<double>(firstIndex),
                .items = i,
                .facts = f} {}
  constexpr RealRingControl(Panel p, std::string_view n, std::string_view l, std::span<const ListItem> i,
                            const Facts& f)
      : RealRingControl(p, n, l, i, 0, f) {}
  constexpr RealRingControl(Panel p, std::string_view n, std::string_view l, const Facts& f = {})
      : RealRingControl(p, n, l, std::span<const ListItem>(), 0, f) {}
};
/// List box: items with integer values and a selection.
struct ListControl : Control {
  constexpr ListControl(Panel p, std::string_view n, std::string_view l, std::span<const ListItem> i,
                        const Facts& f = {})
      : Control{.panel = p, .kind = ControlKind::List, .name = n, .label = l, .items = i, .facts = f} {}
  constexpr ListControl(Panel p, std::string_view n, std::string_view l, const Facts& f = {})
      : ListControl(p, n, l, std::span<const ListItem>(), f) {}
};
/// Table of real numbers; rows and columns count from 1.
struct TableControl : Control {
  constexpr TableControl(Panel p, std::string_view n, std::string_view l, int rowCount,
                         std::span<const std::string_view> columnTitles, const Facts& f = {})
      : Control{.panel = p,
                .kind = ControlKind::Table,
                .name = n,
                .label = l,
                .rows = rowCount,
                .columns = columnTitles,
                .facts = f} {}
};
/// Graph; its content is a model of runtime/graphs.h.
struct GraphControl : Control {
  constexpr GraphControl(Panel p, std::string_view n, std::string_view l, const Facts& f = {})
      : Control{.panel = p, .kind = ControlKind::Graph, .name = n, .label = l, .facts = f} {}
};
/// Push button: no value, a callback.
struct ButtonControl : Control {
  constexpr ButtonControl(Panel p, std::string_view n, std::string_view l, const Facts& f = {})
      : Control{.panel = p, .kind = ControlKind::Button, .name = n, .label = l, .facts = f} {}
};
/// On or off (or a small count of states): check box, toggle button, lamp.
struct ToggleControl : Control {
  constexpr ToggleControl(Panel p, std::string_view n, std::string_view l, int first, const Facts& f = {})
      : Control{.panel = p,
                .kind = ControlKind::Toggle,
                .name = n,
                .label = l,
                .number = static_cast<double>(first),
                .facts = f} {}
  constexpr ToggleControl(Panel p, std::string_view n, std::string_view l, const Facts& f = {})
      : ToggleControl(p, n, l, 0, f) {}
};
/// Text on the panel that the program writes (row labels and similar).
struct LabelControl : Control {
  constexpr LabelControl(Panel p, std::string_view n, std::string_view first, const Facts& f = {})
      : Control{
            .panel = p, .kind = ControlKind::Label, .name = n, .label = first, .text = first, .facts = f} {}
};
/// Item of the menu bar; menu is its path ("File/Import").
struct MenuControl : Control {
  constexpr MenuControl(std::string_view n, std::string_view menu, std::string_view caption,
                        const Facts& f = {})
      : Control{.panel = Panel::MAINMENU,
                .kind = ControlKind::Menu,
                .name = n,
                .label = caption,
                .text = menu,
                .facts = f} {}
};

/// Starts hidden or dimmed: `inline constexpr auto X = Hidden(IntControl{...});`
template <class C>
constexpr C Hidden(C control) {
  control.hidden = true;
  return control;
}
template <class C>
constexpr C Dimmed(C control) {
  control.dimmed = true;
  return control;
}

/// All controls of a panel, in the order of declaration; and one by its name. Null when there is none.
std::span<const Control* const> ControlsOf(Panel p);
ControlId FindControl(Panel p, std::string_view name);
std::string_view PanelName(Panel p);
/// Title of a panel before any code writes one, and whether it is shown at the start: the main window with
/// its menu and the tab pages are, dialogs are not. runtime/catalogue/catalogue.cpp implements these and the
/// two above.
std::string_view DefaultPanelTitle(Panel p);
bool PanelStartsShown(Panel p);

/// The panel whose window contains a panel: the main window's for its pages, HMSETUP for its two, else
/// itself. Menu items are separate, since their menus identify them.
Panel WindowOf(Panel p);

/// The name that a screen reader speaks, unique within the window: the declared one, else for a menu item the path
/// and the caption ("File, Import, ASCII Format Data"), else the caption without blanks, dashes and colons around it.
std::string SpokenName(const Control& c);

}  // namespace sondera
