// binder.h - connects the widgets of a form with the controls of its panel.
//
// A form is a .ui file named after its panel (ui/<panel>.ui in lower case). The root is a QWidget whose objectName is
// the panel's name; a widget whose objectName is a control's name shows that control:
//
//   Numeric, Int        NumberField (gui/fields.h); ColourButton for Role::Color
//   Text                QLineEdit; QPlainTextEdit for Role::TextBox
//   Ring, RealRing      QComboBox, with a QLabel whose buddy it is
//   List                QListWidget
//   Table               QTableView
//   Graph               GraphView (gui/graph_view.h)
//   Button              QPushButton
//   Toggle              QCheckBox; QPushButton for Role::Latch; Lamp (gui/fields.h) for Role::Lamp
//   Label               QLabel
//   (a panel's name)    a QWidget is filled with that panel's form (tab pages)
//
// The binder sets name, description, tool tip, items, values, dimmed and hidden state, read-only fields and
// check marks; a form gives only captions, layout and tab order. A QLabel with a buddy is hidden and dimmed
// with it. A QLabel named <CONTROL>_unit shows the unit of a number and is hidden and dimmed in the same way.
// Buttons without a callback are dimmed.
#pragma once

#include <unordered_map>
#include <vector>

#include "runtime/changes.h"
#include "runtime/controls.h"

class QLabel;
class QTabWidget;
class QWidget;

namespace sondera {

/// The form of a panel as a new widget; null for a panel that has none.
QWidget* MakeForm(Panel panel, QWidget* parent);
bool HasForm(Panel panel);

/// One form and its panel. Exists as long as the form (it is deleted with it). For a text, the largest value of
/// its facts is the number of bytes that its field accepts.
class Binder {
 public:
  /// Binds all controls of the panel that have a widget in the form, and shows their present state. Forms of
  /// other panels inside (tab pages) are made and bound too.
  Binder(Panel panel, QWidget* form);
  ~Binder();
  Binder(const Binder&) = delete;
  Binder& operator=(const Binder&) = delete;

  Panel panel() const { return panel_; }
  /// The widget of a control of this panel; null when the form has none.
  QWidget* WidgetOf(const Control& c) const;

  /// Updates one control: kind says what has changed.
  void Show(const Control& c, ChangeKind kind);
  /// All controls: values, items, attributes.
  void ShowAll();
  /// The units beside the fields; ShowAll does it too.
  void ShowUnits();
  /// Other controls react now: dims and enables widgets.
  void ShowAnswers();
  /// Brings the active tab page of the store to the front, where the form has tabs.
  void ShowTab();

 private:
  struct Bound {
    ControlId control = nullptr;
    QWidget* widget = nullptr;
    std::vector<QLabel*> labels;  // buddies and units
  };
  void Bind(const Control& c, QWidget* widget);
  void ShowState(const Bound& bound);

  void FillPages();

  Panel panel_;
  QWidget* form_;
  QTabWidget* tabs_ = nullptr;  // with panels for pages
  std::unordered_map<ControlId, Bound> bound_;
};

/// All existing binders, the one of a panel (null without), for code that updates views.
const std::vector<Binder*>& LivingBinders();
Binder* BinderOf(Panel panel);

}  // namespace sondera
