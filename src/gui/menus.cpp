// menus.cpp - see menus.h.
#include "gui/menus.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>
#include <set>

#include "gui/boxes.h"
#include "gui/dispatch.h"
#include "gui/figures.h"
#include "gui/graph_view.h"
#include "gui/measurement_ring.h"
#include "gui/project_questions.h"
#include "gui/qt_text.h"
#include "gui/recent.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/controls.h"
#include "runtime/paths.h"

namespace sondera {
namespace {

struct MenuKey {
  ControlId control;
  const char* keys;
};
constexpr MenuKey kMenuKeys[] = {{&mainmenu::NEW_MEASUREMENT, "Ctrl+N"},
                                 {&mainmenu::LOAD_RAW_DATA, "Ctrl+O"},
                                 {&mainmenu::SAVE_RAW_DATA, "Ctrl+S"},
                                 {&mainmenu::QUIT, "Ctrl+Q"},
                                 {&mainmenu::UNDO, "Ctrl+Z"},
                                 {&mainmenu::REDO, "Ctrl+Y"}};

/// Buttons of the measurement page that are named like keys.
constexpr MenuKey kPageKeys[] = {{&measpanel::F1, "F1"}, {&measpanel::F2, "F2"}, {&measpanel::F6, "F6"},
                                 {&measpanel::F7, "F7"}, {&measpanel::F9, "F9"}, {&measpanel::F10, "F10"}};

bool OnMeasurementPage() {
  return GetActiveTabPage(Panel::PANEL) == 0;
}

void OpenRecent(const std::string& path) {
  DispatchAction([&] {
    if (FileExists(path)) {
      OpenAfterQuestion(path);
    } else {
      ForgetRecentFile(path);
      ShowNotice("The project " + path + " is no longer there. It was removed from the list.");
    }
  });
}

}  // namespace

QString WithMnemonic(const QString& caption, QString& used) {
  QString text = caption.trimmed();
  text.replace(QLatin1Char('&'), QStringLiteral("&&"));
  for (int pass = 0; pass < 2; ++pass) {  // beginnings of words first
    for (qsizetype i = 0; i < text.size(); ++i) {
      const QChar letter = text[i].toLower();
      const bool begins = i == 0 || text[i - 1].isSpace();
      if (!letter.isLetter() || (pass == 0 && !begins) || used.contains(letter)) continue;
      used += letter;
      return text.insert(i, QLatin1Char('&'));
    }
  }
  return text;
}

Menus::Menus(QMainWindow* window) : QObject(window), window_(window) {
  MakeBar();
  MakeToolBar();
  MakeKeys();
  Follow();
  qApp->installEventFilter(this);
}

bool Menus::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::Shortcut:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
      byHand_ = true;
      QMetaObject::invokeMethod(
          this, [this] { byHand_ = false; }, Qt::QueuedConnection);
      break;
    default:
      break;
  }
  return false;
}

void Menus::Perform(const std::function<void()>& work) {
  if (byHand_)
    work();
  else
    QMetaObject::invokeMethod(this, work, Qt::QueuedConnection);
}

QMenu* Menus::MenuOf(const std::string& path) {
  const auto found = menus_.find(path);
  if (found != menus_.end()) return found->second;
  const std::size_t slash = path.rfind('/');
  QMenu* menu = nullptr;
  if (slash == std::string::npos) {
    menu = window_->menuBar()->addMenu(WithMnemonic(ToQt(path), letters_[nullptr]));
  } else {
    QMenu* parent = MenuOf(path.substr(0, slash));
    menu = parent->addMenu(WithMnemonic(ToQt(path.substr(slash + 1)), letters_[parent]));
  }
  menu->setToolTipsVisible(true);
  menus_[path] = menu;
  return menu;
}

QAction* Menus::Add(QMenu* menu, const Control& c, const QString& caption) {
  QAction* action = menu->addAction(WithMnemonic(caption, letters_[menu]));
  action->setToolTip(ToQt(c.facts.hint));
  action->setMenuRole(QAction::NoRole);
  connect(action, &QAction::triggered, this, [this, &c] { Perform([&c] { DispatchPress(c); }); });
  actions_.emplace_back(&c, action);
  return action;
}

void Menus::MakeBar() {
  for (ControlId c : ControlsOf(Panel::MAINMENU)) {
    QMenu* menu = MenuOf(std::string(c->text));
    if (c == &mainmenu::QUIT) menu->addSeparator();
    QAction* action = Add(menu, *c, ToQt(c->label));
    for (const MenuKey& key : kMenuKeys)
      if (key.control == c) action->setShortcut(QKeySequence(QLatin1String(key.keys)));
    if (c == &mainmenu::SAVE_RAW_DATA) {
      Add(menu, measpanel::F7, QStringLiteral("Save As"))
          ->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+S")));
      recent_ = menu->addMenu(WithMnemonic(tr("Recent Projects"), letters_[menu]));
      connect(recent_, &QMenu::aboutToShow, this, &Menus::FillRecent);
      menu->addSeparator();
    }
  }
  FillRecent();
}

void Menus::FillRecent() {
  recent_->clear();
  int number = 0;
  for (const std::string& path : RecentFiles()) {
    ++number;
    QString shown = ToQt(path);
    shown.replace(QLatin1Char('&'), QStringLiteral("&&"));
    QAction* action = recent_->addAction(QStringLiteral("&%1  %2").arg(number).arg(shown));
    connect(action, &QAction::triggered, this, [this, path] { Perform([path] { OpenRecent(path); }); });
  }
  recent_->setEnabled(number > 0);
}

namespace {

/// The toolkit's own is black, on a dark desktop too.
QIcon RunIcon() {
  QPixmap picture(64, 64);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0x00, 0x9E, 0x73));
  painter.drawPolygon(QPolygonF({{12, 6}, {56, 32}, {12, 58}}));
  return QIcon(picture);
}

}  // namespace

QAction* Menus::AddTool(const Control& c, const QString& text, const QIcon& icon) {
  auto* bar = window_->findChild<QToolBar*>();
  auto* action = new QAction(icon, text, this);
  action->setToolTip(ToQt(c.facts.hint));
  connect(action, &QAction::triggered, this, [&c] { DispatchPress(c); });
  bar->addAction(action);
  if (QWidget* button = bar->widgetForAction(action)) {
    button->setAccessibleName(tr("Tool bar, %1").arg(text));
    button->setFocusPolicy(Qt::NoFocus);
  }
  actions_.emplace_back(&c, action);
  return action;
}

void Menus::MakeToolBar() {
  QToolBar* bar = window_->addToolBar(tr("Tool bar"));
  bar->setObjectName(QStringLiteral("toolBar"));
  bar->setMovable(false);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  bar->setIconSize({16, 16});
  // The library's own button, where the window is too narrow for all others.
  if (auto* more = bar->findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button")))
    more->setAccessibleName(tr("Tool bar, more"));
  const auto icon = [this](QStyle::StandardPixmap picture) {
    return window_->style()->standardIcon(picture);
  };
  AddTool(mainmenu::NEW_MEASUREMENT, tr("New"), icon(QStyle::SP_FileIcon));
  AddTool(mainmenu::LOAD_RAW_DATA, tr("Open"), icon(QStyle::SP_DialogOpenButton));
  AddTool(mainmenu::SAVE_RAW_DATA, tr("Save"), icon(QStyle::SP_DialogSaveButton));
  bar->addSeparator();
  AddTool(mainmenu::UNDO, tr("Undo"), icon(QStyle::SP_ArrowBack));
  AddTool(mainmenu::REDO, tr("Redo"), icon(QStyle::SP_ArrowForward));
  bar->addSeparator();
  AddTool(mainmenu::LOAD_TWO_CHNL_DATA, tr("Import"), icon(QStyle::SP_ArrowDown));
  bar->addSeparator();
  AddTool(mainmenu::MASKING_CALC_DISP_MENU, tr("Calculate"), icon(QStyle::SP_CommandLink));
  AddTool(mainmenu::CALC_REP_DISP_MENU, tr("Representative"), icon(QStyle::SP_FileDialogDetailedView));
  AddTool(mainmenu::RUN_INV_ANAL, tr("Inversion"), RunIcon());
  bar->addSeparator();
  measurement_ = new MeasurementRing(bar);
  bar->addWidget(measurement_);
}

namespace {

/// The graph that was clicked or reached by Tab is saved to a file.
void SaveGraphInFocus() {
  if (auto* graph = qobject_cast<GraphView*>(QApplication::focusWidget()))
    AskAndSaveFigure(*graph, graph->accessibleName().simplified());
  else
    ShowNotice("Click on a graph first; then it can be saved as a picture.");
}

}  // namespace

void Menus::MakeKeys() {
  for (const MenuKey& key : kPageKeys) {
    auto* action = new QAction(window_);
    action->setShortcut(QKeySequence(QLatin1String(key.keys)));
    const ControlId button = key.control;
    connect(action, &QAction::triggered, this, [this, button] {
      if (OnMeasurementPage())
        DispatchPress(*button);
      else if (button == &measpanel::F1)
        DispatchPress(mainmenu::HELP);
      else if (button == &measpanel::F10 && !window_->menuBar()->actions().isEmpty()) {
        window_->menuBar()->setFocus(Qt::MenuBarFocusReason);
        window_->menuBar()->setActiveAction(window_->menuBar()->actions().front());
      }
    });
    window_->addAction(action);
    pageKeys_.push_back(action);
  }
  auto* picture = new QAction(window_);
  picture->setShortcut(QKeySequence(QStringLiteral("Ctrl+E")));
  picture->setShortcutContext(Qt::ApplicationShortcut);
  connect(picture, &QAction::triggered, this, [] { DispatchAction(SaveGraphInFocus); });
  window_->addAction(picture);
}

void Menus::Follow() {
  for (const auto& [control, action] : actions_)
    action->setEnabled(Answers(*control) && !IsDimmed(*control) && CallbackOf(*control));
  const bool page = OnMeasurementPage(), locked = IsLocked();
  for (std::size_t i = 0; i < pageKeys_.size(); ++i) {
    const ControlId button = kPageKeys[i].control;
    pageKeys_[i]->setEnabled(!locked && (page || button == &measpanel::F1 || button == &measpanel::F10));
  }
  recent_->setEnabled(!locked && !recent_->actions().isEmpty());
  measurement_->Follow();
}

}  // namespace sondera
