// binder.cpp - see binder.h. Owns the list of existing binders.
#include "gui/binder.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <memory>

#include "gui/dispatch.h"
#include "gui/fields.h"
#include "gui/graph_view.h"
#include "gui/qt_text.h"
#include "gui/scroll_area.h"
#include "gui/table_model.h"
#include "gui/unit_labels.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/tmgrafpnl.h"

namespace sondera {
namespace {

std::vector<Binder*> living;

double NumberOf(const Control& c) {
  if (c.kind == ControlKind::Numeric) return GetCtrlVal(static_cast<const NumericControl&>(c));
  if (c.kind == ControlKind::Toggle) return GetCtrlVal(static_cast<const ToggleControl&>(c));
  return GetCtrlVal(static_cast<const IntControl&>(c));
}

std::string TextOf(const Control& c) {
  if (c.kind == ControlKind::Label) return GetCtrlVal(static_cast<const LabelControl&>(c));
  return GetCtrlVal(static_cast<const TextControl&>(c));
}

bool HasCallback(const Control& c) {
  return CallbackOf(c) != nullptr;
}

/// A button without a callback is dimmed.
bool IsLive(const Control& c) {
  if (&c == &exdthd::HALT || &c == &tmgrafpnl::HALT) return IsLocked() && Answers(c);
  return Answers(c) && !IsDimmed(c) && (c.kind != ControlKind::Button || HasCallback(c));
}

// ---- input of a person
// --------------------------------------------------------------------------------------------

void ConnectLine(const Control& c, QLineEdit& line) {
  line.setAcceptDrops(false);
  if (c.kind != ControlKind::Text || c.facts.role == Role::ReadOut) {
    line.setReadOnly(true);
    if (!line.hasFrame()) {  // it looks like text, and a screen reader still finds it by name
      QPalette palette = line.palette();
      palette.setColor(QPalette::Base, Qt::transparent);
      line.setPalette(palette);
    }
    return;
  }
  if (std::isfinite(c.facts.max)) LimitBytes(line, static_cast<int>(c.facts.max));
  const auto take = [&c, &line] {
    if (!line.isReadOnly()) DispatchText(c, FromQt(line.text()));
  };
  QObject::connect(&line, &QLineEdit::returnPressed, &line, take);
  QObject::connect(&line, &QLineEdit::editingFinished, &line, [take, &c, &line] {
    if (line.isModified() && line.text() != ToQt(TextOf(c))) take();
  });
}

void ConnectTable(const Control& c, QTableView& view) {
  SetUpTableView(view, static_cast<const TableControl&>(c));
}

void ConnectList(const Control& c, QListWidget& list) {
  const auto chosen = std::make_shared<int>(-1);  // by the press of the mouse or key that is at work
  QObject::connect(&list, &QListWidget::currentRowChanged, &list, [&c, &list, chosen](int row) {
    if (row < 0 || list.signalsBlocked()) return;
    *chosen = row;
    QTimer::singleShot(0, &list, [chosen] { *chosen = -1; });
    DispatchIndex(c, row);
  });
  QObject::connect(&list, &QListWidget::itemPressed, &list, [&c, &list, chosen](QListWidgetItem* item) {
    if (*chosen != list.row(item)) DispatchClick(c);
  });
  QObject::connect(&list, &QListWidget::itemDoubleClicked, &list,
                   [&c, &list](QListWidgetItem* item) { DispatchDoubleClick(c, list.row(item)); });
}

void ConnectButton(const Control& c, QAbstractButton& button) {
  if (c.kind == ControlKind::Toggle) {
    button.setCheckable(true);
    QObject::connect(&button, &QAbstractButton::clicked, &button,
                     [&c](bool on) { DispatchNumber(c, on ? 1.0 : 0.0); });
  } else {
    QObject::connect(&button, &QAbstractButton::clicked, &button, [&c] { DispatchPress(c); });
  }
}

/// Connects a widget of any of the classes that binder.h names.
void Connect(const Control& c, QWidget* widget) {
  if (auto* number = qobject_cast<NumberField*>(widget)) {
    number->SetWhole(c.kind == ControlKind::Int);
    number->SetStep(c.facts.step > 0.0 ? c.facts.step : 0.0);
    number->setReadOnly(c.facts.role == Role::ReadOut);
    number->SetShort(c.facts.role == Role::ReadOut);
    QObject::connect(number, &NumberField::Entered, number, [&c](double value) { DispatchNumber(c, value); });
  } else if (auto* colour = qobject_cast<ColourButton*>(widget)) {
    QObject::connect(colour, &ColourButton::Chosen, colour, [&c](int rgb) { DispatchNumber(c, rgb); });
  } else if (auto* line = qobject_cast<QLineEdit*>(widget)) {
    ConnectLine(c, *line);
  } else if (auto* box = qobject_cast<QPlainTextEdit*>(widget)) {
    box->setReadOnly(true);
    box->setTabChangesFocus(true);
    box->setAcceptDrops(false);
    box->viewport()->setAcceptDrops(false);
  } else if (auto* ring = qobject_cast<QComboBox*>(widget)) {
    KeepFromWheel(ring);
    QObject::connect(ring, &QComboBox::activated, ring, [&c](int index) { DispatchIndex(c, index); });
  } else if (auto* list = qobject_cast<QListWidget*>(widget)) {
    ConnectList(c, *list);
  } else if (auto* table = qobject_cast<QTableView*>(widget)) {
    ConnectTable(c, *table);
  } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
    ConnectButton(c, *button);
  }
}

// ---- contents of the store
// ----------------------------------------------------------------------------------------

void ShowItems(const Control& c, QWidget* widget) {
  const int count = items::Count(c);
  if (auto* ring = qobject_cast<QComboBox*>(widget)) {
    const QSignalBlocker quiet(ring);
    bool same = ring->count() == count;
    for (int i = 0; same && i < count; ++i) same = ring->itemText(i) == ToQt(items::Label(c, i));
    if (same) return;
    ring->clear();
    for (int i = 0; i < count; ++i) ring->addItem(ToQt(items::Label(c, i)));
    // The toolkit finds the least width of a ring once, while it is empty.
    if (ring->sizeAdjustPolicy() == QComboBox::AdjustToContents)
      ring->setMinimumWidth(ring->sizeHint().width());
  } else if (auto* list = qobject_cast<QListWidget*>(widget)) {
    const QSignalBlocker quiet(list);
    list->clear();
    for (int i = 0; i < count; ++i) list->addItem(ToQt(items::Label(c, i)));
  } else if (auto* table = qobject_cast<QTableView*>(widget)) {
    static_cast<TableModel*>(table->model())->RowsChanged();
  }
}

/// A box that is scrolled to its end stays at the end when text is added, otherwise it keeps its position.
void ShowTextBox(QPlainTextEdit& box, const QString& text) {
  const QString before = box.toPlainText();
  if (before == text) return;
  QScrollBar* bar = box.verticalScrollBar();
  const bool atEnd = bar->value() >= bar->maximum();
  if (text.startsWith(before) && !before.isEmpty()) {
    QTextCursor end(box.document());
    end.movePosition(QTextCursor::End);
    end.insertText(text.mid(before.size()));
    if (atEnd) bar->setValue(bar->maximum());
  } else {
    box.setPlainText(text);
  }
}

void ShowValue(const Control& c, QWidget* widget) {
  if (auto* number = qobject_cast<NumberField*>(widget)) {
    number->SetNumber(NumberOf(c));
  } else if (auto* colour = qobject_cast<ColourButton*>(widget)) {
    colour->SetColour(static_cast<int>(NumberOf(c)));
  } else if (auto* line = qobject_cast<QLineEdit*>(widget)) {
    const QString text = ToQt(TextOf(c));
    if (line->text() != text) line->setText(text);
    if (line->isReadOnly()) line->setCursorPosition(0);  // a long text is seen from its beginning
    line->setModified(false);
  } else if (auto* box = qobject_cast<QPlainTextEdit*>(widget)) {
    ShowTextBox(*box, ToQt(TextOf(c)));
  } else if (auto* ring = qobject_cast<QComboBox*>(widget)) {
    const QSignalBlocker quiet(ring);
    ring->setCurrentIndex(items::Index(c));
  } else if (auto* list = qobject_cast<QListWidget*>(widget)) {
    const QSignalBlocker quiet(list);
    list->setCurrentRow(items::Index(c));
  } else if (auto* lamp = qobject_cast<Lamp*>(widget)) {
    lamp->SetLit(NumberOf(c) != 0.0);
  } else if (auto* label = qobject_cast<QLabel*>(widget)) {
    if (c.kind == ControlKind::Label || c.kind == ControlKind::Text) label->setText(ToQt(TextOf(c)));
  } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
    const QSignalBlocker quiet(button);
    if (c.kind == ControlKind::Toggle) button->setChecked(NumberOf(c) != 0.0);
  }
}

/// A caption that the program has changed replaces the form's.
void ShowCaption(const Control& c, QWidget* widget, const std::vector<QLabel*>& labels) {
  if (auto* table = qobject_cast<QTableView*>(widget)) {
    static_cast<TableModel*>(table->model())->CellsChanged();
    return;
  }
  const std::string caption = GetCtrlLabel(c);
  if (caption == c.label) return;
  if (auto* button = qobject_cast<QAbstractButton*>(widget)) button->setText(ToQt(caption));
  for (QLabel* label : labels)
    if (label->buddy() == widget) label->setText(ToQt(caption));
}

void Speak(const Control& c, QWidget* widget, const std::vector<QLabel*>& labels) {
  const QString name = ToQt(SpokenName(c)), hint = ToQt(c.facts.hint);
  widget->setToolTip(hint);
  if (qobject_cast<QLabel*>(widget)) return;  // a name would hide its text
  widget->setAccessibleName(name);
  widget->setAccessibleDescription(hint);
  // A ring has no name of its own: it has that of its label.
  if (qobject_cast<QComboBox*>(widget))
    for (QLabel* label : labels)
      if (label->buddy() == widget) label->setAccessibleName(name);
}

}  // namespace

Binder::Binder(Panel panel, QWidget* form) : panel_(panel), form_(form) {
  living.push_back(this);
  QObject::connect(form, &QObject::destroyed, form, [this] { delete this; });
  for (ControlId c : ControlsOf(panel))
    if (QWidget* widget = form->findChild<QWidget*>(ToQt(c->name))) Bind(*c, widget);
  ShowAll();
  FillPages();
}

namespace {

/// The Tab key goes from the tab bar into the pages, then to what stands behind them.
void PutBehindTabs(QTabWidget& tabs, const std::vector<QWidget*>& pages) {
  QWidget* last = tabs.tabBar();
  for (QWidget* page : pages) {
    std::vector<QWidget*> order;
    for (QWidget* at = page->nextInFocusChain(); page->isAncestorOf(at); at = at->nextInFocusChain())
      if (at->focusPolicy() & Qt::TabFocus) order.push_back(at);
    for (QWidget* at : order) {
      QWidget::setTabOrder(last, at);
      last = at;
    }
  }
}

}  // namespace

void Binder::FillPages() {
  std::vector<QWidget*> pages;
  for (int i = 0; i < kPanelCount; ++i) {
    const auto inner = static_cast<Panel>(i);
    if (inner == panel_ || WindowOf(inner) != panel_ || !HasForm(inner)) continue;
    QWidget* place = form_->findChild<QWidget*>(ToQt(PanelName(inner)));
    if (!place) continue;
    // A page of the main window scrolls on a small screen; the pages of a dialog scroll with it.
    FormArea* area = panel_ == Panel::PANEL ? new FormArea(place) : nullptr;
    QWidget* page = MakeForm(inner, area ? area : place);
    if (area) area->SetForm(page);
    auto* layout = new QVBoxLayout(place);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(area ? static_cast<QWidget*>(area) : page);
    new Binder(inner, page);
    pages.push_back(page);
    for (auto* tabs : form_->findChildren<QTabWidget*>())
      if (tabs->indexOf(place) >= 0) tabs_ = tabs;
  }
  if (!tabs_) return;
  if (panel_ != Panel::PANEL)
    PutBehindTabs(*tabs_, pages);  // there the program's close button stands between
  ShowTab();
  QObject::connect(tabs_, &QTabWidget::currentChanged, tabs_, [this](int page) {
    if (!DispatchTab(panel_, page)) ShowTab();
  });
}

void Binder::ShowTab() {
  if (!tabs_) return;
  const QSignalBlocker quiet(tabs_);
  tabs_->setCurrentIndex(GetActiveTabPage(panel_));
}

Binder::~Binder() {
  std::erase(living, this);
}

QWidget* Binder::WidgetOf(const Control& c) const {
  const auto found = bound_.find(&c);
  return found == bound_.end() ? nullptr : found->second.widget;
}

void Binder::Bind(const Control& c, QWidget* widget) {
  Bound bound{&c, widget, {}};
  for (QLabel* label : form_->findChildren<QLabel*>())
    if (label->buddy() == widget || label->objectName() == ToQt(c.name) + QStringLiteral("_unit"))
      bound.labels.push_back(label);
  if (c.kind == ControlKind::Graph) {
    static_cast<GraphView*>(widget)->Bind(static_cast<const GraphControl&>(c));
    widget->setAccessibleName(ToQt(SpokenName(c)));
  } else {
    Connect(c, widget);
    Speak(c, widget, bound.labels);
  }
  bound_.emplace(&c, std::move(bound));
}

void Binder::ShowState(const Bound& bound) {
  const Control& c = *bound.control;
  const bool live = IsLive(c), visible = IsVisible(c);
  const bool graph = c.kind == ControlKind::Graph;
  // During a run displayed text stays readable, and a graph can be viewed.
  const bool shown = c.facts.role == Role::ReadOut || c.facts.role == Role::TextBox ||
                     c.facts.role == Role::Lamp || c.kind == ControlKind::Label || graph;
  const bool enabled = shown ? !IsDimmed(c) : live;
  bound.widget->setEnabled(enabled);
  bound.widget->setVisible(visible);
  for (QLabel* label : bound.labels) {
    label->setEnabled(enabled);
    label->setVisible(visible);
  }
}

void Binder::Show(const Control& c, ChangeKind kind) {
  const auto found = bound_.find(&c);
  if (found == bound_.end()) return;
  const Bound& bound = found->second;
  switch (kind) {
    case ChangeKind::Value:
      ShowValue(c, bound.widget);
      break;
    case ChangeKind::Items:
      ShowItems(c, bound.widget);
      ShowValue(c, bound.widget);
      break;
    case ChangeKind::Cells:
      static_cast<TableModel*>(static_cast<QTableView*>(bound.widget)->model())->CellsChanged();
      break;
    case ChangeKind::Attribute:
      ShowState(bound);
      break;
    case ChangeKind::Label:
      ShowCaption(c, bound.widget, bound.labels);
      break;
    case ChangeKind::Graph:
      static_cast<GraphView*>(bound.widget)->Refresh();
      break;
    default:
      break;
  }
}

void Binder::ShowAll() {
  for (const auto& [control, bound] : bound_) {
    ShowItems(*control, bound.widget);
    ShowValue(*control, bound.widget);
    ShowCaption(*control, bound.widget, bound.labels);
    ShowState(bound);
    if (control->kind == ControlKind::Graph) static_cast<GraphView*>(bound.widget)->Refresh();
  }
  ShowUnits();
}

void Binder::ShowUnits() {
  for (const auto& [control, bound] : bound_) {
    for (QLabel* label : bound.labels)
      if (label->buddy() != bound.widget) label->setText(ToQt(UnitText(*control)));
  }
}

void Binder::ShowAnswers() {
  for (const auto& [control, bound] : bound_) ShowState(bound);
}

const std::vector<Binder*>& LivingBinders() {
  return living;
}

Binder* BinderOf(Panel panel) {
  const auto found =
      std::find_if(living.begin(), living.end(), [&](const Binder* b) { return b->panel() == panel; });
  return found == living.end() ? nullptr : *found;
}

}  // namespace sondera
