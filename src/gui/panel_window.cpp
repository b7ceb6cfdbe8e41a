// panel_window.cpp - see panel_window.h. Owns the existing windows.
#include "gui/panel_window.h"

#include <QCloseEvent>
#include <QDialog>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <map>

#include "gui/binder.h"
#include "gui/dispatch.h"
#include "gui/fields.h"
#include "gui/qt_text.h"
#include "gui/recent.h"
#include "gui/scroll_area.h"
#include "runtime/controls.h"

namespace sondera {
namespace {

/// The form in a scroll area, with scroll bars on a small screen only.
class PanelWindow final : public QDialog {
 public:
  PanelWindow(Panel panel, QWidget* mainWindow) : QDialog(mainWindow), panel_(panel) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowMinMaxButtonsHint, true);
    setModal(false);
    auto* area = new FormArea(this);
    QWidget* form = MakeForm(panel, area);
    new Binder(panel, form);
    area->SetForm(form);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(area);
    // Enter commits a field. It presses the button with the focus, else the one that the form names for it.
    for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
    const QByteArray place = WindowPlace(std::string(PanelName(panel)));
    if (place.isEmpty() || !restoreGeometry(place)) resize(area->FirstSize(Room().size() - QSize(16, 40)));
    KeepOnScreen();
  }

  void KeepPlace() const { NoteWindowPlace(std::string(PanelName(panel_)), saveGeometry()); }

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->ignore();
    DispatchClose(panel_);
  }
  void reject() override { DispatchClose(panel_); }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
      PressEnter();
    else
      QDialog::keyPressEvent(event);
  }
  void hideEvent(QHideEvent* event) override {
    KeepPlace();
    QDialog::hideEvent(event);
  }

 private:
  void PressEnter() {
    const auto* field = qobject_cast<NumberField*>(focusWidget());
    if (field && !field->isReadOnly() && field->text() != ToQt(NumberText(field->Number())))
      return;  // not handled
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    for (QPushButton* other : findChildren<QPushButton*>())
      if (!button && other->isDefault()) button = other;
    if (button && button->isVisible()) button->click();
  }
  QRect Room() const {
    const QScreen* screen = parentWidget() ? parentWidget()->screen() : QGuiApplication::primaryScreen();
    return screen->availableGeometry();
  }
  void KeepOnScreen() {
    const QRect room = Room();
    if (size().width() > room.width() || size().height() > room.height())
      resize(size().boundedTo(room.size() - QSize(16, 40)));
  }

  Panel panel_;
};

std::map<Panel, PanelWindow*> windows;

PanelWindow* WindowIfMade(Panel panel) {
  const auto found = windows.find(panel);
  return found == windows.end() ? nullptr : found->second;
}

}  // namespace

bool IsWindowPanel(Panel panel) {
  return WindowOf(panel) == panel && panel != Panel::PANEL && panel != Panel::MAINMENU && HasForm(panel);
}

void FollowPanel(Panel panel, QWidget* mainWindow) {
  if (!IsWindowPanel(panel)) return;
  PanelWindow* window = WindowIfMade(panel);
  if (!IsPanelShown(panel)) {
    if (window) window->hide();
    return;
  }
  if (!window) {
    window = new PanelWindow(panel, mainWindow);
    windows[panel] = window;
    FollowPanelTitle(panel);
  }
  window->show();
  RaisePanel(panel);
}

void FollowPanelTitle(Panel panel) {
  if (PanelWindow* window = WindowIfMade(panel)) window->setWindowTitle(ToQt(GetPanelTitle(panel)).trimmed());
}

void RaisePanel(Panel panel) {
  PanelWindow* window = WindowIfMade(panel);
  if (!window || !window->isVisible()) return;
  window->raise();
  window->activateWindow();
}

void DropPanelWindows() {
  for (const auto& [panel, window] : windows) {
    if (window->isVisible()) window->KeepPlace();
    delete window;
  }
  windows.clear();
}

}  // namespace sondera
