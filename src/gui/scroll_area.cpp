// scroll_area.cpp - see scroll_area.h.
#include "gui/scroll_area.h"

#include <QEvent>
#include <QLayout>
#include <QScrollBar>
#include <algorithm>

namespace sondera {
namespace {

class WheelGuard final : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* widget = static_cast<QWidget*>(watched);
    if (event->type() != QEvent::Wheel || widget->hasFocus()) return false;
    event->ignore();  // goes on to the parent
    return true;
  }
};

}  // namespace

FormArea::FormArea(QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
}

void FormArea::SetForm(QWidget* form) {
  setWidget(form);
  form->installEventFilter(this);
  Fit();
}

QSize FormArea::FirstSize(const QSize& room) const {
  const QSize wanted = widget()->sizeHint().expandedTo(widget()->minimumSizeHint());
  int width = std::min(wanted.width(), room.width());
  int height = std::max(wanted.height(), LeastHeight(width));
  // A scroll bar takes its room from the form: the window is larger by it.
  if (widget()->minimumSizeHint().width() > room.width())
    height += horizontalScrollBar()->sizeHint().height();
  if (height > room.height()) width += verticalScrollBar()->sizeHint().width();
  return QSize(width, height).boundedTo(room);
}

/// The toolkit's own fit takes the preferred height of a form in which a text wraps.
int FormArea::LeastHeight(int width) const {
  const int least = widget()->minimumSizeHint().height();
  const QLayout* layout = widget()->layout();
  return layout && layout->hasHeightForWidth() ? std::max(least, layout->minimumHeightForWidth(width))
                                               : least;
}

void FormArea::Fit() {
  if (!widget()) return;
  QSize room = maximumViewportSize();
  const int least = widget()->minimumSizeHint().width();
  if (least > room.width()) room.rheight() -= horizontalScrollBar()->sizeHint().height();
  if (LeastHeight(std::max(least, room.width())) > room.height())
    room.rwidth() -= verticalScrollBar()->sizeHint().width();
  const int width = std::max(least, room.width());
  widget()->resize(width, std::max(LeastHeight(width), room.height()));
}

void FormArea::resizeEvent(QResizeEvent* event) {
  Fit();
  QScrollArea::resizeEvent(event);
}

bool FormArea::eventFilter(QObject* watched, QEvent* event) {
  if (watched == widget() && event->type() == QEvent::LayoutRequest) Fit();
  return QScrollArea::eventFilter(watched, event);
}

void KeepFromWheel(QWidget* widget) {
  widget->setFocusPolicy(Qt::StrongFocus);  // the wheel gives no focus
  widget->installEventFilter(new WheelGuard(widget));
}

}  // namespace sondera
