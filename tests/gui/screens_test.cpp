// Small screens: whatever does not fit is reached by scrolling, and nothing scrolls where there is room. A dark theme: all
// texts and graphs can be read.
#include <QAbstractButton>
#include <QComboBox>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolBar>
#include <QWheelEvent>

#include "app/script/run.h"
#include "figure/palette.h"
#include "gui/dispatch.h"
#include "gui/fields.h"
#include "gui/graph_view.h"
#include "gui/help_window.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/text_format.h"
#include "support/site_records.h"
#include "window_session.h"

namespace sondera {
namespace {

constexpr Panel kPages[] = {Panel::MEASPANEL, Panel::SASW, Panel::DISPCURV, Panel::EXDTHD};

/// Waits until no widget moves any more: a loaded machine lays out late.
void Settle() {
  std::vector<QRect> former;
  for (int round = 0, still = 0; round < 100 && still < 2; ++round) {
    QTest::qWait(8);
    std::vector<QRect> places;
    for (const QWidget* widget : QApplication::allWidgets())
      if (widget->isVisible()) places.push_back(widget->geometry());
    still = places == former ? still + 1 : 0;
    former = std::move(places);
  }
}

class Screens : public test::WindowSession {
 protected:
  static void SizeMain(QSize size) {
    MainWindowWidget()->setWindowState(Qt::WindowNoState);
    MainWindowWidget()->resize(size);
    Settle();
    EXPECT_EQ(MainWindowWidget()->size(), size) << "the frame does not want more";
  }
  /// A screen of 3840 x 2160 dots.
  static QSize Large() { return QSize(3840, 2130) / MainWindowWidget()->devicePixelRatio(); }
  static QScrollArea* AreaOf(const QWidget* widget) {
    for (QWidget* at = widget->parentWidget(); at; at = at->parentWidget())
      if (auto* area = qobject_cast<QScrollArea*>(at)) return area;
    return nullptr;
  }
  /// Each control in sight can be brought into the window completely, a large graph or list as far as there is room.
  static void ExpectReached(Panel panel) {
    for (ControlId c : ControlsOf(panel)) {
      QWidget* widget = WidgetOf(*c);
      if (!widget || !widget->isVisible()) continue;
      QScrollArea* area = AreaOf(widget);
      if (area) {
        const QRect place(widget->mapTo(area->widget(), QPoint(0, 0)), widget->size());
        area->ensureVisible(place.center().x(), place.center().y(), place.width() / 2 + 1,
                            place.height() / 2 + 1);
      }
      QWidget* frame = area ? area->viewport() : widget->window();
      const QSize room = frame->size();
      const QRect seen = frame->rect() & QRect(widget->mapTo(frame, QPoint(0, 0)), widget->size());
      EXPECT_GE(seen.width(), std::min(widget->width(), room.width()) - 2)
          << PanelName(panel) << "." << c->name;
      EXPECT_GE(seen.height(), std::min(widget->height(), room.height()) - 2)
          << PanelName(panel) << "." << c->name;
    }
  }
  static int TextWidth(const QWidget* widget, const QString& text) {
    return widget->fontMetrics().horizontalAdvance(text);
  }
  /// No caption, item of a ring, number, read-out or heading in the window is wider than its place.
  static void ExpectWhole(const QWidget* window, const std::string& where) {
    const auto fits = [&where](int room, int width, const QWidget* owner, const QString& text) {
      EXPECT_GE(room, width) << where << ": " << owner->objectName().toStdString() << " "
                             << text.toStdString();
    };
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
      if (!widget->isVisible()) continue;
      if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        const bool ends = label->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;  // in dots
        if (!label->wordWrap() && !ends)
          fits(label->width(), label->sizeHint().width(), label, label->text());
      } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        if (!button->text().isEmpty())
          fits(button->width(), button->minimumSizeHint().width(), button, button->text());
      } else if (const auto* ring = qobject_cast<const QComboBox*>(widget)) {
        QStyleOptionComboBox option;
        option.initFrom(ring);
        const int room =
            ring->style()
                ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, ring)
                .width();
        for (int i = 0; i < ring->count(); ++i)
          fits(room, TextWidth(ring, ring->itemText(i)), ring, ring->itemText(i));
      } else if (const auto* line = qobject_cast<const QLineEdit*>(widget)) {
        const auto* number = qobject_cast<const NumberField*>(line);
        const QString text = number ? number->Drawn() : line->isReadOnly() ? line->text() : QString();
        if (!text.isEmpty()) fits(line->width() - 8, TextWidth(line, text), line, text);
      } else if (const auto* header = qobject_cast<const QHeaderView*>(widget)) {
        for (int i = 0; i < header->count() && header->orientation() == Qt::Horizontal; ++i) {
          const QString text = header->model()->headerData(i, Qt::Horizontal).toString();
          fits(header->sectionSize(i) - 4, TextWidth(header, text), header->parentWidget(), text);
        }
      }
    }
  }
  static QWidget* Open(Panel panel) {
    DisplayPanel(panel);
    Settle();
    return WindowOf(panel);
  }
};

TEST_F(Screens, PagesAreReachedAndWholeFromSmallToLarge) {
  Run([&] {
    const QSize screen = MainWindowWidget()->screen()->availableSize();  // at scale 2 a very small one
    for (const QSize size : {screen, QSize(800, 450), QSize(1024, 570), Large()}) {
      SizeMain(size);
      for (int page = 0; page < 4; ++page) {
        SetActiveTabPage(Panel::PANEL, page);
        Settle();
        ExpectReached(kPages[page]);
        ExpectWhole(MainWindowWidget(), FormatText("%d wide, page %d", size.width(), page));
      }
    }
  });
}

TEST_F(Screens, PagesDoNotScrollOn1024By600) {
  Run([&] {
    SizeMain({1024, 570});
    for (int page = 0; page < 4; ++page) {
      SetActiveTabPage(Panel::PANEL, page);
      Settle();
      const QScrollArea* area = AreaOf(WidgetOf(*ControlsOf(kPages[page])[0]));
      ASSERT_TRUE(area);
      EXPECT_EQ(area->verticalScrollBar()->maximum(), 0) << page;
      EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << page;
      for (const QLabel* label : area->findChildren<QLabel*>()) {
        if (!label->isVisible() || label->wordWrap() || label->buddy() == nullptr) continue;
        EXPECT_GE(label->width(), label->sizeHint().width()) << label->objectName().toStdString();
      }
    }
  });
}

TEST_F(Screens, DialogsAreReachedAndWholeFromSmallToLarge) {
  Run([&] {
    for (const Panel panel : WindowPanels()) {
      QWidget* window = Open(panel);
      const QSize room = window->screen()->availableSize();
      EXPECT_LE(window->width(), room.width()) << PanelName(panel);
      EXPECT_LE(window->height(), room.height()) << PanelName(panel);
      for (const QSize size : {window->size(), QSize(500, 300), Large()}) {
        window->resize(size);
        Settle();
        EXPECT_EQ(window->size(), size) << PanelName(panel);
        const std::string where = FormatText("%d wide", size.width());
        ExpectReached(panel);
        ExpectWhole(window, where);
        if (panel != Panel::HMSETUP) continue;
        for (const Panel page : {Panel::MEASSETUP, Panel::HWSETUP}) {
          DisplayPanel(page);
          Settle();
          ExpectReached(page);
          ExpectWhole(window, where);
        }
      }
      HidePanel(panel);
      Settle();
    }
  });
}

TEST_F(Screens, TheManualFitsTheScreen) {
  Run([&] {
    DispatchPress(mainmenu::HELP);
    Settle();
    const auto* manual = MainWindowWidget()->findChild<HelpWindow*>();
    ASSERT_TRUE(manual);
    const QSize room = manual->screen()->availableSize();
    EXPECT_LE(manual->width(), room.width());
    EXPECT_LE(manual->height(), room.height());
    EXPECT_LE(manual->minimumSizeHint().width(), manual->width());
    ExpectWhole(manual, "manual");
  });
}

TEST_F(Screens, DialogsOpenWithoutScrollBarsWhereThereIsRoom) {
  Run([&] {
    for (const Panel panel : WindowPanels()) {
      QWidget* window = Open(panel);
      Settle();
      const auto* area = window->findChild<QScrollArea*>();
      ASSERT_TRUE(area) << PanelName(panel);
      QSize least = area->widget()->minimumSizeHint();
      const QSize room = window->screen()->availableSize() - QSize(16, 40);
      // The bar below a form that is too wide needs height, too.
      if (least.width() > room.width()) least.rheight() += area->horizontalScrollBar()->sizeHint().height();
      if (least.width() <= room.width()) {
        EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << PanelName(panel) << " " << window->width();
      }
      if (least.height() <= room.height()) {
        EXPECT_EQ(area->verticalScrollBar()->maximum(), 0) << PanelName(panel) << " " << window->height();
      }
      HidePanel(panel);
      Settle();
    }
  });
}

TEST_F(Screens, TheWheelOverARingScrollsAndChangesNothing) {
  Run([&] {
    SetActiveTabPage(Panel::PANEL, 1);
    Settle();
    auto* ring = The<QComboBox>(sasw::DISPATYPE);
    const auto turn = [&] {
      QWheelEvent wheel(ring->rect().center(), ring->mapToGlobal(ring->rect().center()), {}, {0, -120}, {},
                        {}, Qt::NoScrollPhase, false);
      QApplication::sendEvent(ring, &wheel);
    };
    MainWindowWidget()->setFocus();
    const int before = GetCtrlIndex(sasw::DISPATYPE);
    turn();
    EXPECT_EQ(GetCtrlIndex(sasw::DISPATYPE), before);
    ring->setFocus();
    turn();
    EXPECT_NE(GetCtrlIndex(sasw::DISPATYPE), before) << "with the focus it chooses";
  });
}

// ---- a dark theme

/// Colours of a widely used dark desktop.
QPalette DarkDesktop() {
  QPalette dark;
  const QColor window(0x2D, 0x2D, 0x2D), base(0x1E, 0x1E, 0x1E), text(0xEE, 0xEE, 0xEE);
  for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Button}) dark.setColor(role, window);
  for (const QPalette::ColorRole role : {QPalette::Base, QPalette::AlternateBase, QPalette::ToolTipBase})
    dark.setColor(role, base);
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::ButtonText, QPalette::Text, QPalette::ToolTipText})
    dark.setColor(role, text);
  dark.setColor(QPalette::Highlight, QColor(0x2A, 0x5A, 0x9A));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  return dark;
}

class DarkTheme : public Screens {
 protected:
  DarkTheme() : former_(QApplication::palette()) { QApplication::setPalette(DarkDesktop()); }
  ~DarkTheme() override { QApplication::setPalette(former_); }

  static int Rgb(const QColor& colour) { return static_cast<int>(colour.rgb() & 0xFFFFFF); }
  /// Dimmed controls are left out, as in the rules for contrast.
  static void ExpectLegible(const QWidget* window) {
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
      if (!widget->isVisible()) continue;
      const bool entry =
          qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QAbstractItemView*>(widget) ||
          qobject_cast<const QPlainTextEdit*>(widget) || qobject_cast<const GraphView*>(widget);
      const bool button =
          qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QComboBox*>(widget);
      if (!entry && !button && !qobject_cast<const QLabel*>(widget)) continue;
      const auto colour = [&](QPalette::ColorRole role) {
        return widget->palette().color(QPalette::Active, role);
      };
      QColor back = colour(entry ? QPalette::Base : button ? QPalette::Button : QPalette::Window);
      if (back.alpha() == 0) back = colour(QPalette::Window);
      const QColor front = colour(entry    ? QPalette::Text
                                  : button ? QPalette::ButtonText
                                           : QPalette::WindowText);
      EXPECT_GE(Contrast(Rgb(front), Rgb(back)), 4.5)
          << widget->metaObject()->className() << " " << widget->objectName().toStdString();
    }
  }
  /// Share of the picture that is nearly white.
  static double White(QWidget* window) {
    const QImage image = window->grab().toImage();
    double white = 0.0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x) white += qGray(image.pixel(x, y)) > 200;
    return white / (static_cast<double>(image.width()) * image.height());
  }

 private:
  QPalette former_;
};

TEST_F(DarkTheme, LeavesNoWindowUnreadable) {
  Run([&] {
    SizeMain({1100, 700});
    for (int page = 0; page < 4; ++page) {
      SetActiveTabPage(Panel::PANEL, page);
      Settle();
      ExpectLegible(MainWindowWidget());
      EXPECT_LT(White(MainWindowWidget()), 0.12) << page;
    }
    for (const Panel panel : WindowPanels()) {
      QWidget* window = Open(panel);
      ExpectLegible(window);
      EXPECT_LT(White(window), 0.2) << PanelName(panel);
      HidePanel(panel);
    }
  });
}

}  // namespace
}  // namespace sondera
