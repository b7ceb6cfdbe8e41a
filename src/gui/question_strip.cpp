// question_strip.cpp - see question_strip.h.
#include "gui/question_strip.h"

#include <QApplication>
#include <QEventLoop>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include "gui/binder.h"
#include "gui/boxes.h"
#include "gui/qt_text.h"
#include "runtime/controls.h"

namespace sondera {
namespace {

/// Mouse and keys go to the strip alone; a window that is closed stays.
class OnlyTheStrip final : public QObject {
 public:
  OnlyTheStrip(QWidget& strip, QEventLoop& loop) : strip_(strip), loop_(loop) {
    qApp->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    switch (event->type()) {
      case QEvent::KeyPress:
        return object->isWidgetType() && TakeKey(static_cast<QKeyEvent&>(*event), object);
      case QEvent::Close:
        if (!object->isWidgetType()) return false;
        event->ignore();
        return true;
      case QEvent::Shortcut:
        return true;
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
      case QEvent::Wheel:
      case QEvent::ContextMenu:
      case QEvent::DragEnter:
      case QEvent::Drop:
        return object->isWidgetType() && !IsOfStrip(object);
      default:
        return false;
    }
  }

 private:
  bool IsOfStrip(QObject* object) const {
    return object == &strip_ || strip_.isAncestorOf(static_cast<QWidget*>(object));
  }
  bool TakeKey(const QKeyEvent& key, QObject* object) {
    switch (key.key()) {
      case Qt::Key_Return:
      case Qt::Key_Enter:
        // On the button that has the focus, which is Yes at first.
        if (auto* button = qobject_cast<QPushButton*>(object); button && IsOfStrip(object))
          button->click();
        else
          loop_.exit(1);
        return true;
      case Qt::Key_Y:
        loop_.exit(1);
        return true;
      case Qt::Key_Escape:
      case Qt::Key_N:
        loop_.exit(0);
        return true;
      default:
        return !IsOfStrip(object);
    }
  }

  QWidget& strip_;
  QEventLoop& loop_;
};

QPushButton* AddButton(QFrame& strip, const QString& caption, QEventLoop& loop, int answer) {
  auto* button = new QPushButton(caption, &strip);
  button->setAutoDefault(false);
  QObject::connect(button, &QPushButton::clicked, &loop, [&loop, answer] { loop.exit(answer); });
  strip.layout()->addWidget(button);
  return button;
}

}  // namespace

bool AskOnPage(Panel page, std::string_view title, std::string_view text) {
  const Binder* binder = BinderOf(page);
  QFrame* place = nullptr;
  if (binder && !ControlsOf(page).empty()) {
    const QWidget* any = binder->WidgetOf(*ControlsOf(page)[0]);
    if (any) place = any->window()->findChild<QFrame*>(QStringLiteral("questionStrip"));
  }
  if (!place || !place->parentWidget()->isVisible() || QApplication::activeModalWidget())
    return AskYesNo(title, text);

  const bool waiting = QApplication::overrideCursor() != nullptr;
  if (waiting) QApplication::setOverrideCursor(Qt::ArrowCursor);
  const QPointer<QWidget> focusBefore = QApplication::focusWidget();
  QEventLoop loop;
  QPointer<QFrame> strip = new QFrame(place);
  strip->setFrameShape(QFrame::StyledPanel);
  strip->setAccessibleName(ToQt(text));
  auto* row = new QHBoxLayout(strip);
  auto* question = new QLabel(ToQt(text), strip);
  question->setTextFormat(Qt::PlainText);
  row->addWidget(question, 1);
  QPushButton* yes = AddButton(*strip, QStringLiteral("Yes"), loop, 1);
  AddButton(*strip, QStringLiteral("No"), loop, 0);
  place->layout()->addWidget(strip);
  place->show();
  yes->setFocus();
  int answer = 0;
  {
    const OnlyTheStrip filter(*strip, loop);
    answer = loop.exec();
  }
  if (strip) {
    place->hide();
    delete strip;
  }
  if (focusBefore) focusBefore->setFocus();
  if (waiting) QApplication::restoreOverrideCursor();
  return answer == 1;
}

}  // namespace sondera
