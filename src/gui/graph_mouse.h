// graph_mouse.h - effects of the mouse and the keys on a graph: events of runtime/graphs.h for its callback,
// and the zoom of the view.
//
//   left click            LeftClick when pressed, Commit when let go
//   on a marker           ValChanged while it moves, Commit when let go
//   drag beside a marker  Drag at each move and when let go
//   right click           RightClick
//   double click          LeftDoubleClick
//   Ctrl + wheel          zoom round the mouse; beside the graph that axis alone
//   Ctrl + drag           zoom to the rectangle
//   Ctrl + 0, +, -        everything; in; out
//   arrow keys            marker 1, with Shift marker 2, to the next point of its curve; with Ctrl ten points
#pragma once

#include <QPointF>
#include <QRectF>
#include <optional>

#include "runtime/controls.h"
#include "runtime/graphs.h"

class QKeyEvent;
class QMouseEvent;
class QRubberBand;
class QWheelEvent;
class QWidget;

namespace sondera {

/// Data of a graph's view for the mouse. Pixels are those of the widget.
class GraphSurface {
 public:
  virtual ~GraphSurface() = default;
  virtual QWidget& widget() = 0;
  /// Null for a graph without a control.
  virtual const GraphControl* control() const = 0;
  virtual const GraphModel& model() const = 0;
  /// Inside the axes.
  virtual QRectF PlotArea() const = 0;
  virtual QPointF PixelOf(double x, double y) const = 0;
  /// Units of the axes as drawn; a place outside the area counts as its edge.
  virtual QPointF ValueAt(const QPointF& pixel) const = 0;
  /// Limits as drawn, and those of the model.
  virtual GraphLimits Shown() const = 0;
  virtual GraphLimits Whole() const = 0;
  /// Shows a part of the graph. Empty: the whole of that axis.
  virtual void ShowPart(const std::optional<AxisLimits>& x, const std::optional<AxisLimits>& y) = 0;
};

class GraphMouse {
 public:
  explicit GraphMouse(GraphSurface& view) : view_(view) {}
  GraphMouse(const GraphMouse&) = delete;
  GraphMouse& operator=(const GraphMouse&) = delete;

  void Press(QMouseEvent& event);
  void Move(QMouseEvent& event);
  void Release(QMouseEvent& event);
  void DoubleClick(QMouseEvent& event);
  void Wheel(QWheelEvent& event);
  /// False: the key has no meaning here.
  bool Key(QKeyEvent& event);

 private:
  enum class Gesture { None, Click, Drag, Marker, Zoom };

  GraphPlace PlaceAt(const QPointF& pixel, MouseButton button) const;
  void Send(Event event, const GraphPlace& place) const;
  int MarkerAt(const QPointF& pixel) const;  ///< from 1; 0: none
  void ShowPointer(const QPointF& pixel);
  void BeginZoom(const QPointF& pixel);
  void EndZoom(const QPointF& pixel);
  void MoveMarker(Event event, const QPointF& pixel);
  void ZoomBy(double factor, const QPointF& pixel);
  bool StepMarker(int marker, int steps);

  GraphSurface& view_;
  Gesture gesture_ = Gesture::None;
  int marker_ = 0;
  QPointF pressed_, grip_;       // place where the button went down; distance from the mouse to the marker
  QRubberBand* band_ = nullptr;  // a child of the view
};

}  // namespace sondera
