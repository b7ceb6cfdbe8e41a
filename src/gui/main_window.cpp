// main_window.cpp - see main_window.h. Owns the window.
#include "gui/main_window.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMimeData>
#include <QScreen>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>
#include <QUrl>
#include <memory>

#include "gui/binder.h"
#include "gui/boxes.h"
#include "gui/dispatch.h"
#include "gui/empty_hint.h"
#include "gui/menus.h"
#include "gui/panel_window.h"
#include "gui/project_questions.h"
#include "gui/qt_text.h"
#include "gui/recent.h"
#include "gui/status_line.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/panel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/project_hooks.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

constexpr Panel kPages[] = {Panel::MEASPANEL, Panel::SASW, Panel::DISPCURV, Panel::EXDTHD};

int PageNumber(Panel panel) {
  for (int i = 0; i < 4; ++i)
    if (kPages[i] == panel) return i;
  return -1;
}

struct PageHint {
  const GraphControl* graph;
  const char* text;
};
const PageHint kHints[] = {
    {&measpanel::DISPLAY_A, "No measurement yet: File, Import, or drop a project here."},
    {&sasw::DISPLAY_A, "No measurement yet: File, Import, or drop a project here."},
    {&dispcurv::DISPGRAPH,
     "No dispersion curve yet: choose a pair on the page Interactive Masking and press Calculate."},
    {&exdthd::CURVES,
     "No curve yet: make representative curves, set up the layers under Parameters, then run."},
    {&exdthd::PROFILE, "No profile yet: the first run makes it."}};

class MainWindow final : public QMainWindow {
 public:
  MainWindow() {
    setObjectName(QStringLiteral("mainWindow"));
    setAcceptDrops(true);
    QWidget* form = MakeForm(Panel::PANEL, this);
    binder_ = new Binder(Panel::PANEL, form);
    setCentralWidget(form);
    // The close control is at the end of the tabs.
    if (auto* tabs = form->findChild<QTabWidget*>())
      if (QWidget* close = binder_->WidgetOf(panel::CLOSE)) tabs->setCornerWidget(close);
    // The graphs of the results page get the space; its texts can be enlarged.
    if (auto* whole = form->findChild<QSplitter*>(QStringLiteral("whole"))) whole->setSizes({5000, 1000});
    menus_ = new Menus(this);
    status_ = new StatusLine(this);
    setStatusBar(status_);
    if (const Binder* results = BinderOf(Panel::EXDTHD))
      if (QWidget* halt = results->WidgetOf(exdthd::HALT)) status_->TakeHalt(halt);
    for (const PageHint& hint : kHints) {
      const Binder* page = BinderOf(hint.graph->panel);
      QWidget* view = page ? page->WidgetOf(*hint.graph) : nullptr;
      if (view) hints_.push_back(new EmptyHint(*hint.graph, QLatin1String(hint.text), view));
    }
    ShowTitle(Panel::PANEL);
    Follow();
    PutInPlace();
  }

  /// All parts of the frame that depend on the state of the program.
  void Follow() {
    menus_->Follow();
    status_->Follow();
    for (EmptyHint* hint : hints_) hint->Follow();
    const std::string path = ProjectPath();
    // In the middle of its first save a project has a name and no file yet.
    if (path != lastPath_ && (path.empty() || QFileInfo::exists(ToQt(path)))) {
      lastPath_ = path;
      if (!path.empty()) NoteRecentFile(path);
    }
  }

  /// Title of the main window, or of the page whose title was written last.
  void ShowTitle(Panel panel) { setWindowTitle(ToQt(GetPanelTitle(panel)).trimmed()); }

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->ignore();
    RequestClose();
  }
  void dragEnterEvent(QDragEnterEvent* event) override {
    if (event->mimeData()->hasUrls() && !IsLocked() && !InEvent()) event->acceptProposedAction();
  }
  void dropEvent(QDropEvent* event) override {
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.isEmpty()) return;
    event->acceptProposedAction();
    const std::string path = FromQt(urls.front().toLocalFile());
    // The program that is the source of the file waits until this returns.
    QTimer::singleShot(0, this, [path] { DispatchAction([&] { OpenDropped(path); }); });
  }

 private:
  static void OpenDropped(const std::string& path) {
    if (QFileInfo(ToQt(path)).suffix().compare(QStringLiteral("da"), Qt::CaseInsensitive) == 0)
      OpenAfterQuestion(path);
    else
      ShowNotice("This is not a project file (.da). To read measurements, choose File, Import.");
  }
  void PutInPlace() {
    const QByteArray place = WindowPlace("PANEL");
    const QSize room = QGuiApplication::primaryScreen()->availableSize();
    if (place.isEmpty() || !restoreGeometry(place)) {
      resize(QSize(1180, 760).boundedTo(room - QSize(0, 30)));
      if (room.width() < 1200 || room.height() < 800) setWindowState(Qt::WindowMaximized);
    }
  }

  Binder* binder_ = nullptr;
  Menus* menus_ = nullptr;
  StatusLine* status_ = nullptr;
  std::vector<EmptyHint*> hints_;
  std::string lastPath_;
};

std::unique_ptr<MainWindow> window;

void FollowAllPanels() {
  for (int i = 0; i < kPanelCount; ++i) {
    const auto panel = static_cast<Panel>(i);
    FollowPanel(panel, window.get());
    FollowPanelTitle(panel);
  }
}

void FollowTabs(Panel tabs) {
  if (Binder* binder = BinderOf(tabs)) binder->ShowTab();
}

}  // namespace

QWidget* MainWindowWidget() {
  return window.get();
}

void OpenMainWindow() {
  LookAround([] {
    DoPlotting(kMeasurementPage);
    DoPlotting(kMaskingPage);
    DispCurvPlot(1);
    ExdThdCurvPlot();
  });
  window = std::make_unique<MainWindow>();
  SetBoxOwner(window.get());
  FollowTabs(Panel::PANEL);
  window->show();
  FollowAllPanels();
}

void CloseMainWindow() {
  if (!window) return;
  NoteWindowPlace("PANEL", window->saveGeometry());
  DropPanelWindows();
  window.reset();
}

void ShowWindowChanges(const std::vector<Change>& changes, bool everything, bool answers) {
  if (!window) return;
  if (everything) {
    FollowAllPanels();
    FollowTabs(Panel::PANEL);
    window->ShowTitle(Panel::PANEL);
  }
  for (const Change& change : changes) {
    const int page = PageNumber(change.panel);
    switch (change.kind) {
      case ChangeKind::Title:
        if (page >= 0 || change.panel == Panel::PANEL)
          window->ShowTitle(change.panel);
        else
          FollowPanelTitle(change.panel);
        break;
      case ChangeKind::TabPage:
        FollowTabs(change.panel);
        break;
      case ChangeKind::Shown:
        // A page that is shown comes to the front; one that is hidden stays a tab like the others.
        if (page >= 0 && IsPanelShown(change.panel)) {
          if (GetActiveTabPage(Panel::PANEL) != page) SetActiveTabPage(Panel::PANEL, page);
          FollowTabs(Panel::PANEL);
        } else if (page < 0) {
          FollowPanel(change.panel, window.get());
        }
        break;
      default:
        break;
    }
  }
  (void)answers;
  window->Follow();
}

}  // namespace sondera
