// Forms compared with the catalogue: each control of a panel that can be opened has its widget and vice
// versa, of the right kind, with a name, a label where it needs one, and a place in the tab order.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <algorithm>
#include <map>
#include <memory>
#include <set>

#include "gui/binder.h"
#include "gui/fields.h"
#include "gui/graph_view.h"
#include "runtime/controls.h"

namespace sondera {
namespace {

/// Panels of the catalogue that nothing opens; their controls exist for scripts.
const std::set<Panel> kUnopened = {Panel::LOAD2CHNL,  Panel::LOADEXD,    Panel::CHANGEID,  Panel::CHANGEID_1,
                                   Panel::CONFIRMPNL, Panel::MESSAGEPNL, Panel::IRFSETPNL2};

std::vector<Panel> PanelsWithForms() {
  std::vector<Panel> panels;
  for (int i = 0; i < kPanelCount; ++i)
    if (HasForm(static_cast<Panel>(i))) panels.push_back(static_cast<Panel>(i));
  return panels;
}

std::string Name(const QObject* object) {
  return object->objectName().toStdString();
}

template <class Widget>
bool Is(const QWidget* widget) {
  return qobject_cast<const Widget*>(widget) != nullptr;
}

/// Whether a widget can show and accept the control's values.
bool Fits(const Control& c, const QWidget* widget) {
  switch (c.kind) {
    case ControlKind::Numeric:
    case ControlKind::Int:
      return c.facts.role == Role::Color ? Is<ColourButton>(widget) : Is<NumberField>(widget);
    case ControlKind::Text:
      if (c.facts.role == Role::TextBox) return Is<QPlainTextEdit>(widget);
      return Is<QLineEdit>(widget) && !Is<NumberField>(widget);
    case ControlKind::Ring:
    case ControlKind::RealRing:
      return Is<QComboBox>(widget);
    case ControlKind::List:
      return Is<QListWidget>(widget);
    case ControlKind::Table:
      return Is<QTableView>(widget);
    case ControlKind::Graph:
      return Is<GraphView>(widget);
    case ControlKind::Button:
      return Is<QPushButton>(widget);
    case ControlKind::Toggle:
      if (c.facts.role == Role::Lamp) return Is<Lamp>(widget);
      return c.facts.role == Role::Latch ? Is<QPushButton>(widget) : Is<QCheckBox>(widget);
    case ControlKind::Label:
      return Is<QLabel>(widget);
    case ControlKind::Menu:
      break;
  }
  return false;
}

/// The form of a panel, bound, in a window of its own; forms of its tab pages are inside.
class BoundForm {
 public:
  explicit BoundForm(Panel panel)
      : form_(MakeForm(panel, nullptr)), binder_(new Binder(panel, form_.get())) {}
  QWidget* form() const { return form_.get(); }
  const Binder& binder() const { return *binder_; }

 private:
  std::unique_ptr<QWidget> form_;
  Binder* binder_;  // deleted with the form
};

class FormTest : public testing::TestWithParam<Panel> {
 protected:
  void SetUp() override { ResetControls(); }
};

std::string PanelText(const testing::TestParamInfo<Panel>& info) {
  return std::string(PanelName(info.param));
}

INSTANTIATE_TEST_SUITE_P(Panels, FormTest, testing::ValuesIn(PanelsWithForms()), PanelText);

TEST(Forms, EachPanelThatCanBeOpenedHasOne) {
  for (int i = 0; i < kPanelCount; ++i) {
    const auto panel = static_cast<Panel>(i);
    const bool opened = !kUnopened.count(panel) && panel != Panel::MAINMENU;
    EXPECT_EQ(HasForm(panel), opened) << PanelName(panel);
  }
  EXPECT_EQ(PanelsWithForms().size(), 24u);
}

TEST_P(FormTest, HasAWidgetOfTheRightKindForEachControl) {
  const BoundForm bound(GetParam());
  EXPECT_EQ(Name(bound.form()), PanelName(GetParam()));
  for (ControlId c : ControlsOf(GetParam())) {
    const QWidget* widget = bound.binder().WidgetOf(*c);
    ASSERT_TRUE(widget) << c->name;
    EXPECT_TRUE(Fits(*c, widget)) << c->name << " is a " << widget->metaObject()->className();
  }
}

TEST_P(FormTest, HasNoWidgetThatTheCatalogueDoesNotKnow) {
  const std::unique_ptr<QWidget> form(MakeForm(GetParam(), nullptr));
  std::map<std::string, int> count;
  for (const QWidget* widget : form->findChildren<QWidget*>()) {
    const std::string name = Name(widget);
    ++count[name];
    const bool takesInput = Is<QLineEdit>(widget) || Is<QPushButton>(widget) || Is<QCheckBox>(widget) ||
                            Is<QComboBox>(widget) || Is<QListWidget>(widget) || Is<QTableView>(widget) ||
                            Is<QPlainTextEdit>(widget) || Is<Lamp>(widget) || Is<GraphView>(widget);
    // Qt's own parts of a widget are named qt_..., or not at all.
    if (!takesInput || name.empty() || name.starts_with("qt_")) continue;
    EXPECT_TRUE(FindControl(GetParam(), name)) << name;
  }
  for (ControlId c : ControlsOf(GetParam())) EXPECT_LE(count[std::string(c->name)], 1) << c->name;
}

TEST_P(FormTest, LabelsNameTheirRingsAndUnitsTheirFields) {
  const BoundForm bound(GetParam());
  std::set<const QWidget*> labelled;
  for (const QLabel* label : bound.form()->findChildren<QLabel*>()) {
    const std::string name = Name(label);
    if (label->buddy()) labelled.insert(label->buddy());
    EXPECT_TRUE(label->buddy() || !name.ends_with("_label")) << name;
    if (!name.ends_with("_unit")) continue;
    const std::string field = name.substr(0, name.size() - 5);
    bool known = false;
    for (int i = 0; i < kPanelCount; ++i)
      known = known || (static_cast<Panel>(i) == GetParam() && FindControl(GetParam(), field)) ||
              (WindowOf(static_cast<Panel>(i)) == GetParam() && FindControl(static_cast<Panel>(i), field));
    EXPECT_TRUE(known) << name;
  }
  for (ControlId c : ControlsOf(GetParam()))
    if (c->kind == ControlKind::Ring || c->kind == ControlKind::RealRing) {
      EXPECT_TRUE(labelled.count(bound.binder().WidgetOf(*c))) << c->name;
    }
}

TEST_P(FormTest, EachNameIsSpokenOnceInAWindow) {
  const BoundForm bound(GetParam());
  std::set<std::string> spoken;
  for (const QWidget* widget : bound.form()->findChildren<QWidget*>()) {
    const std::string name = widget->accessibleName().toStdString();
    if (name.empty() || Is<QLabel>(widget)) continue;  // the label of a ring is its name
    EXPECT_TRUE(spoken.insert(name).second) << name;
  }
  for (ControlId c : ControlsOf(GetParam())) {
    const QWidget* widget = bound.binder().WidgetOf(*c);
    if (!widget) continue;
    // A screen reader reads the text of a label; a name would hide it.
    EXPECT_EQ(widget->accessibleName().toStdString(), c->kind == ControlKind::Label ? "" : SpokenName(*c));
  }
  for (const QGroupBox* group : bound.form()->findChildren<QGroupBox*>())
    EXPECT_FALSE(spoken.count(group->title().toStdString())) << group->title().toStdString();
}

TEST_P(FormTest, TheTabKeyReachesEachControl) {
  const BoundForm bound(GetParam());
  std::set<const QWidget*> reached;
  const QWidget* at = bound.form();
  do {
    reached.insert(at);
    at = at->nextInFocusChain();
  } while (at != bound.form() && !reached.count(at));
  for (ControlId c : ControlsOf(GetParam())) {
    const QWidget* widget = bound.binder().WidgetOf(*c);
    if (!widget || c->kind == ControlKind::Label || c->facts.role == Role::Lamp || Is<GraphView>(widget))
      continue;
    EXPECT_TRUE(widget->focusPolicy() & Qt::TabFocus) << c->name;
    EXPECT_TRUE(reached.count(widget)) << c->name;
  }
}

/// In a group, the widget above or to the left comes first.
TEST_P(FormTest, TheTabKeyGoesInReadingOrder) {
  const BoundForm bound(GetParam());
  bound.form()->resize(bound.form()->sizeHint());
  bound.form()->show();
  for (const QGroupBox* group : bound.form()->findChildren<QGroupBox*>()) {
    std::vector<const QWidget*> order;
    for (const QWidget* at = bound.form()->nextInFocusChain(); at != bound.form();
         at = at->nextInFocusChain())
      if (FindControl(GetParam(), Name(at)) && group->isAncestorOf(at) && at->isVisible() &&
          at->focusPolicy() != Qt::NoFocus)
        order.push_back(at);
    for (std::size_t i = 0; i < order.size(); ++i) {
      for (std::size_t k = i + 1; k < order.size(); ++k) {
        const QRect first(order[i]->mapTo(group, QPoint(0, 0)), order[i]->size());
        const QRect second(order[k]->mapTo(group, QPoint(0, 0)), order[k]->size());
        EXPECT_FALSE(second.bottom() < first.top()) << Name(order[k]) << " above " << Name(order[i]);
        const bool oneRow = second.top() <= first.center().y() && second.bottom() >= first.center().y();
        EXPECT_FALSE(oneRow && second.right() < first.left())
            << Name(order[k]) << " left of " << Name(order[i]);
      }
    }
  }
}

/// A graph of a dialog is reached before what stands below it.
TEST_P(FormTest, TheTabKeyReachesAGraphInItsPlace) {
  if (WindowOf(GetParam()) == Panel::PANEL) return;  // splitters
  const BoundForm bound(GetParam());
  bound.form()->resize(bound.form()->sizeHint());
  bound.form()->show();
  for (const GraphView* graph : bound.form()->findChildren<GraphView*>()) {
    if (Name(graph).empty() || graph->focusPolicy() == Qt::NoFocus || !graph->isVisible()) continue;
    const QRect place(graph->mapTo(bound.form(), QPoint(0, 0)), graph->size());
    bool before = true;
    for (const QWidget* at = bound.form()->nextInFocusChain(); at != bound.form();
         at = at->nextInFocusChain()) {
      if (at == graph) before = false;
      if (!FindControl(GetParam(), Name(at)) || at->focusPolicy() == Qt::NoFocus || !at->isVisible())
        continue;
      const QRect other(at->mapTo(bound.form(), QPoint(0, 0)), at->size());
      const bool oneColumn = other.right() >= place.left() && other.left() <= place.right();
      if (!oneColumn || !before) continue;
      EXPECT_LT(other.top(), place.bottom()) << Name(at) << " below " << Name(graph);
    }
  }
}

/// The Alt letters; a tab page shares those of its window.
TEST_P(FormTest, NoLetterIsTakenTwice) {
  const BoundForm bound(GetParam());
  const auto letters = [](QWidget* form, Panel panel) {
    std::map<char, std::vector<std::string>> found;
    const auto note = [&found](const QString& text, const QObject* owner) {
      const qsizetype at = text.indexOf(u'&');
      if (at >= 0 && at + 1 < text.size() && text[at + 1] != u'&')
        found[text[at + 1].toLower().toLatin1()].push_back(Name(owner));
    };
    const auto own = [panel](const QObject* widget) {
      for (const QObject* at = widget; at; at = at->parent())
        if (Name(at) == PanelName(panel))
          return true;
        else if (Name(at) == "HWSETUP" || Name(at) == "MEASSETUP")
          return false;
      return false;
    };
    for (const QLabel* label : form->findChildren<QLabel*>())
      if (own(label) && label->buddy()) note(label->text(), label);
    for (const QAbstractButton* button : form->findChildren<QAbstractButton*>())
      if (own(button)) note(button->text(), button);
    return found;
  };
  const auto mine = letters(bound.form(), GetParam());
  for (const auto& [letter, owners] : mine)
    EXPECT_EQ(owners.size(), 1u) << letter << ": " << owners[1 % owners.size()];
  if (GetParam() != Panel::HMSETUP) return;
  for (const Panel page : {Panel::HWSETUP, Panel::MEASSETUP})
    for (const auto& [letter, owners] : letters(bound.form(), page))
      EXPECT_FALSE(mine.count(letter)) << letter << " of " << owners[0];
}

/// Dialogs fit a small screen, title bar and panel bar left out.
TEST_P(FormTest, FitsASmallScreen) {
  const BoundForm bound(GetParam());
  const QSize least = bound.form()->minimumSizeHint();
  EXPECT_LE(least.width(), 1000);
  EXPECT_LE(least.height(), 560);
}

/// Pages have the whole width of a screen of 1024; dialogs can be made as small as their forms.
TEST_P(FormTest, NoTextIsCutAtTheSmallestSize) {
  const BoundForm bound(GetParam());
  const QSize page = WindowOf(GetParam()) == Panel::PANEL ? QSize(1000, 430) : QSize();
  bound.form()->resize(bound.form()->minimumSizeHint().expandedTo(page));
  bound.form()->show();
  for (const QLabel* label : bound.form()->findChildren<QLabel*>()) {
    if (!label->isVisible() || label->wordWrap()) continue;
    EXPECT_GE(label->width(), label->sizeHint().width()) << Name(label);
  }
  for (const QAbstractButton* button : bound.form()->findChildren<QAbstractButton*>()) {
    if (!button->isVisible() || button->text().isEmpty() || !FindControl(GetParam(), Name(button))) continue;
    EXPECT_GE(button->width(), button->minimumSizeHint().width()) << Name(button);
  }
}

}  // namespace
}  // namespace sondera
