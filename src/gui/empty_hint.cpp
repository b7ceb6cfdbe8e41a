// empty_hint.cpp - see empty_hint.h.
#include "gui/empty_hint.h"

#include <QEvent>
#include <algorithm>

namespace sondera {
namespace {

bool HasContent(const GraphModel* graph) {
  if (!graph) return false;
  if (graph->intensity && !graph->intensity->z.empty()) return true;
  // A measurement without a record is drawn as zeros.
  return std::any_of(graph->plots.begin(), graph->plots.end(), [](const PlotModel& plot) {
    return std::any_of(plot.y.begin(), plot.y.end(), [](double y) { return y != 0.0; });
  });
}

}  // namespace

EmptyHint::EmptyHint(const GraphControl& graph, const QString& text, QWidget* view)
    : QLabel(text, view), graph_(graph) {
  setAlignment(Qt::AlignCenter);
  setWordWrap(true);
  setTextFormat(Qt::PlainText);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setMargin(12);
  setAutoFillBackground(true);
  setFrameShape(QFrame::StyledPanel);
  view->installEventFilter(this);
  Follow();
}

void EmptyHint::Follow() {
  setVisible(!HasContent(FindGraph(graph_)));
  Centre();
}

void EmptyHint::Centre() {
  const QWidget* view = parentWidget();
  const int width = std::min(view->width() - 24, fontMetrics().averageCharWidth() * 52);
  resize(width, std::min(heightForWidth(width), view->height() - 8));
  move((view->width() - this->width()) / 2, (view->height() - height()) / 2);
  raise();
}

bool EmptyHint::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Show) Centre();
  return QLabel::eventFilter(watched, event);
}

}  // namespace sondera
