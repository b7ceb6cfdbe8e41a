// graph_mouse.cpp - see graph_mouse.h.
#include "gui/graph_mouse.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QRubberBand>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "gui/dispatch.h"
#include "gui/graph_style.h"

namespace sondera {
namespace {

constexpr double kGrip = 6.0;       // pixels on both sides of a marker
constexpr double kMoved = 4.0;      // pixels after which a click becomes a drag
constexpr double kLeastZoom = 8.0;  // smallest rectangle in pixels
constexpr double kZoomStep = 1.25;
constexpr int kLongStep = 10;  // points

MouseButton ButtonOf(const QMouseEvent& event) {
  if (event.button() == Qt::LeftButton) return MouseButton::Left;
  return event.button() == Qt::RightButton ? MouseButton::Right : MouseButton::None;
}

double Distance(const QPointF& a, const QPointF& b) {
  return std::hypot(a.x() - b.x(), a.y() - b.y());
}

}  // namespace

GraphPlace GraphMouse::PlaceAt(const QPointF& pixel, MouseButton button) const {
  const QPointF at = view_.ValueAt(pixel), from = view_.ValueAt(pressed_);
  return {.x = at.x(), .y = at.y(), .button = button, .cursor = 0, .fromX = from.x(), .fromY = from.y()};
}

void GraphMouse::Send(Event event, const GraphPlace& place) const {
  if (view_.control()) DispatchGraph(*view_.control(), event, place);
}

int GraphMouse::MarkerAt(const QPointF& pixel) const {
  int nearest = 0;
  double least = kGrip;
  const std::vector<CursorModel>& cursors = view_.model().cursors;
  for (std::size_t i = 0; i < cursors.size(); ++i) {
    const double distance = std::fabs(view_.PixelOf(cursors[i].x, cursors[i].y).x() - pixel.x());
    if (!(distance <= least)) continue;
    least = distance;
    nearest = static_cast<int>(i) + 1;
  }
  return nearest;
}

void GraphMouse::ShowPointer(const QPointF& pixel) {
  const bool inside = view_.PlotArea().contains(pixel);
  view_.widget().setCursor(!inside ? Qt::ArrowCursor : MarkerAt(pixel) ? Qt::SizeHorCursor : Qt::CrossCursor);
}

void GraphMouse::Press(QMouseEvent& event) {
  const QPointF pixel = event.position();
  if (!view_.PlotArea().contains(pixel)) return;
  if (event.button() == Qt::RightButton && gesture_ == Gesture::None) {
    pressed_ = pixel;
    Send(Event::RightClick, PlaceAt(pixel, MouseButton::Right));
    return;
  }
  if (event.button() != Qt::LeftButton) return;
  pressed_ = pixel;
  if (event.modifiers() & Qt::ControlModifier) {
    BeginZoom(pixel);
    return;
  }
  marker_ = MarkerAt(pixel);
  gesture_ = marker_ ? Gesture::Marker : Gesture::Click;
  if (marker_) {
    const CursorModel cursor = view_.model().cursors[static_cast<std::size_t>(marker_ - 1)];
    const QPointF at = view_.PixelOf(cursor.x, cursor.y);
    grip_ = {at.x() - pixel.x(), std::isfinite(at.y()) ? at.y() - pixel.y() : 0.0};
  }
  Send(Event::LeftClick, PlaceAt(pixel, MouseButton::Left));
}

void GraphMouse::Move(QMouseEvent& event) {
  const QPointF pixel = event.position();
  switch (gesture_) {
    case Gesture::None:
      ShowPointer(pixel);
      return;
    case Gesture::Zoom:
      band_->setGeometry(QRectF(pressed_, pixel).normalized().intersected(view_.PlotArea()).toRect());
      return;
    case Gesture::Marker:
      MoveMarker(Event::ValChanged, pixel);
      return;
    case Gesture::Click:
      if (Distance(pixel, pressed_) < kMoved) return;
      gesture_ = Gesture::Drag;
      break;
    case Gesture::Drag:
      break;
  }
  Send(Event::Drag, PlaceAt(pixel, MouseButton::Left));
}

void GraphMouse::Release(QMouseEvent& event) {
  if (ButtonOf(event) != MouseButton::Left) return;
  const QPointF pixel = event.position();
  const Gesture ended = gesture_;
  gesture_ = Gesture::None;
  if (ended == Gesture::Zoom) EndZoom(pixel);
  if (ended == Gesture::Marker) MoveMarker(Event::Commit, pixel);
  if (ended == Gesture::Drag) Send(Event::Drag, PlaceAt(pixel, MouseButton::Left));
  if (ended == Gesture::Click) Send(Event::Commit, PlaceAt(pixel, MouseButton::Left));
  ShowPointer(pixel);
}

void GraphMouse::DoubleClick(QMouseEvent& event) {
  gesture_ = Gesture::None;  // the release that follows is not a click
  if (event.button() != Qt::LeftButton || (event.modifiers() & Qt::ControlModifier)) return;
  pressed_ = event.position();
  Send(Event::LeftDoubleClick, PlaceAt(pressed_, MouseButton::Left));
}

void GraphMouse::MoveMarker(Event event, const QPointF& pixel) {
  // A reset in between may have removed the marker.
  if (marker_ > static_cast<int>(view_.model().cursors.size())) return;
  GraphPlace place = PlaceAt(pixel + grip_, MouseButton::Left);
  place.cursor = marker_;
  Send(event, place);
}

// ---- zoom -------------------------------------------------------------------------------------------------------

void GraphMouse::BeginZoom(const QPointF& pixel) {
  gesture_ = Gesture::Zoom;
  if (!band_) band_ = new QRubberBand(QRubberBand::Rectangle, &view_.widget());
  band_->setGeometry(QRect(pixel.toPoint(), QSize()));
  band_->show();
}

void GraphMouse::EndZoom(const QPointF& pixel) {
  band_->hide();
  const QRectF rect = QRectF(pressed_, pixel).normalized().intersected(view_.PlotArea());
  const auto part = [](double a, double b) { return AxisLimits{std::min(a, b), std::max(a, b), true}; };
  const QPointF first = view_.ValueAt(rect.topLeft()), second = view_.ValueAt(rect.bottomRight());
  const bool wide = rect.width() >= kLeastZoom, high = rect.height() >= kLeastZoom;
  const GraphLimits shown = view_.Shown();
  if (wide || high)
    view_.ShowPart(wide ? part(first.x(), second.x()) : shown.x,
                   high ? part(first.y(), second.y()) : shown.y);
}

void GraphMouse::ZoomBy(double factor, const QPointF& pixel) {
  const QRectF area = view_.PlotArea();
  const GraphModel& model = view_.model();
  const GraphLimits shown = view_.Shown(), whole = view_.Whole();
  const auto zoomed = [&](const AxisModel& axis, const AxisLimits& part, const AxisLimits& all,
                          double share) {
    return Zoomed(part, all, axis.logarithmic, axis.reversed ? 1.0 - share : share, factor);
  };
  const double across = std::clamp((pixel.x() - area.left()) / area.width(), 0.0, 1.0);
  const double up = std::clamp((area.bottom() - pixel.y()) / area.height(), 0.0, 1.0);
  const bool xAlone = pixel.y() > area.bottom(), yAlone = pixel.x() < area.left();
  view_.ShowPart(yAlone ? shown.x : zoomed(model.xAxis, shown.x, whole.x, across),
                 xAlone ? shown.y : zoomed(model.yAxis, shown.y, whole.y, up));
}

void GraphMouse::Wheel(QWheelEvent& event) {
  const int turned = event.angleDelta().y();
  if (!(event.modifiers() & Qt::ControlModifier) || turned == 0) {
    event.ignore();
    return;
  }
  ZoomBy(std::pow(kZoomStep, -turned / 120.0), event.position());
  event.accept();
}

// ---- keys -------------------------------------------------------------------------------------------------------

bool GraphMouse::StepMarker(int marker, int steps) {
  const GraphModel& model = view_.model();
  if (marker > static_cast<int>(model.cursors.size())) return false;
  const CursorModel cursor = model.cursors[static_cast<std::size_t>(marker - 1)];
  for (const PlotModel& plot : model.plots) {
    const int last = static_cast<int>(std::min(plot.x.size(), plot.y.size())) - 1;
    if (plot.handle != cursor.plot || last < 0) continue;
    const auto point = static_cast<std::size_t>(std::clamp(cursor.index + steps, 0, last));
    Send(Event::Commit,
         {.x = plot.x[point], .y = plot.y[point], .button = MouseButton::None, .cursor = marker});
    return true;
  }
  return false;
}

bool GraphMouse::Key(QKeyEvent& event) {
  const bool ctrl = event.modifiers() & Qt::ControlModifier, shift = event.modifiers() & Qt::ShiftModifier;
  const QPointF middle = view_.PlotArea().center();
  switch (event.key()) {
    case Qt::Key_0:
      if (ctrl) view_.ShowPart({}, {});
      return ctrl;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      if (ctrl) ZoomBy(1.0 / kZoomStep, middle);
      return ctrl;
    case Qt::Key_Minus:
      if (ctrl) ZoomBy(kZoomStep, middle);
      return ctrl;
    case Qt::Key_Left:
    case Qt::Key_Right:
      return StepMarker(shift ? 2 : 1, (event.key() == Qt::Key_Left ? -1 : 1) * (ctrl ? kLongStep : 1));
    default:
      return false;
  }
}

}  // namespace sondera
