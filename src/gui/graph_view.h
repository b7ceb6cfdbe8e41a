// graph_view.h - draws the model of a graph control, and passes mouse events on (gui/graph_mouse.h).
//
// The widget does not interpret the model. It shows all of it, or a part after a zoom; the model's limits do
// not change. Graphs of one page with the same abscissa zoom along it together, and leave the same room at
// their right, so that graphs one below the other are in line. The traces of both pages do so too. Its
// accessible description is the graph in one line, updated with each change.
#pragma once

#include <QWidget>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "gui/graph_mouse.h"
#include "runtime/graphs.h"

namespace sondera {

class GraphView final : public QWidget, private GraphSurface {
  Q_OBJECT

 public:
  /// For forms: without a control until Bind.
  explicit GraphView(QWidget* parent = nullptr);
  ~GraphView() override;
  /// Connects it with its control and draws it. The binder calls it once.
  void Bind(const GraphControl& control);
  /// Draws the present model.
  void Refresh();

  // For the mouse and for tests.
  const GraphControl* control() const override { return control_; }
  const GraphModel& model() const override;
  QRectF PlotArea() const override;
  QPointF PixelOf(double x, double y) const override;
  QPointF ValueAt(const QPointF& pixel) const override;
  GraphLimits Shown() const override;
  GraphLimits Whole() const override { return whole_; }
  void ShowPart(const std::optional<AxisLimits>& x, const std::optional<AxisLimits>& y) override;
  bool IsZoomed() const { return zoomX_ || zoomY_; }

  // ---- figures ----
  /// Paints the graph as it is shown, on white, in the size of the widget.
  /// @param scale      device pixels for a pixel of the widget
  /// @param vectorial  for a file of lines and texts
  void PaintFigure(QPaintDevice& device, double scale, bool vectorial);
  /// True while it paints itself onto a page for a file: lines and texts instead of pixels.
  void SetPaintsAsFigure(bool figure);

  QSize sizeHint() const override { return {480, 300}; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget& widget() override { return *this; }
  class Plot;  // drawn by the plot library
  std::vector<GraphView*> Partners() const;
  void ZoomTo(const std::optional<AxisLimits>& x, const std::optional<AxisLimits>& y);
  void KeepZoomOfSameAxes();
  void Describe();

  const GraphControl* control_ = nullptr;
  std::unique_ptr<Plot> plot_;
  GraphMouse mouse_{*this};
  std::optional<AxisLimits> zoomX_, zoomY_;
  GraphLimits whole_;       // of the last drawing
  std::string axesOfZoom_;  // names and limits of the axes at the time of the zoom
  bool dirty_ = false, paintsAsFigure_ = false;
};

}  // namespace sondera
