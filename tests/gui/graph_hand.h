// graph_hand.h - a mouse over a graph, for tests: places in units of the axes.
#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QTest>

#include "gui/graph_view.h"

namespace sondera::test {

inline QPoint PixelAt(const GraphView& view, double x, double y) {
  return view.PixelOf(x, y).toPoint();
}

/// Button down, five moves with the button down, button up.
inline void DragOver(GraphView& view, QPoint from, QPoint to, Qt::KeyboardModifiers keys = {}) {
  QTest::mousePress(&view, Qt::LeftButton, keys, from);
  for (int i = 1; i <= 5; ++i) {
    const QPoint at = from + (to - from) * i / 5;
    QMouseEvent move(QEvent::MouseMove, at, view.mapToGlobal(at), Qt::NoButton, Qt::LeftButton, keys);
    QApplication::sendEvent(&view, &move);
  }
  QTest::mouseRelease(&view, Qt::LeftButton, keys, to);
}

/// Draws the present model, as the windows do at the end of an event.
inline void DrawNow(GraphView& view) {
  view.Refresh();
  QApplication::processEvents();
}

}  // namespace sondera::test
