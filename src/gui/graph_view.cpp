// graph_view.cpp - see graph_view.h. The only file that uses the plot library: it lays out and draws axes and
// grid; gui/graph_paint paints the contents of the graph.
#include "gui/graph_view.h"

#include <qcustomplot.h>

#include <QAccessibleWidget>
#include <QFontInfo>
#include <QMouseEvent>
#include <QStyleOptionFocusRect>
#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

#include "figure/ticks.h"
#include "gui/graph_paint.h"
#include "gui/graph_style.h"
#include "gui/qt_text.h"

namespace sondera {
namespace {

constexpr int kFocusFrame = 2;        // pixels round the plot
constexpr double kNumberFont = 0.92;  // of the widget's font
constexpr int kTickSpace = 16;        // pixels between two numbers on the x axis
constexpr double kTickLines = 2.4;    // heights of a number between two on the y axis
constexpr int kFewNumbers = 3;        // a short axis has its numbers closer together, up to that many
constexpr double kClose = 1.5;        // heights, or widths, of a number between two that are close
constexpr int kTitleMargin = 5;       // pixels between the title of an axis and the edge
constexpr double kSmallTitle = 0.85;  // of the font of a title that is longer than the graph

/// Fonts are set in pixels, so that screen and file have the same layout.
QFont FontOf(const QWidget& widget, double share) {
  QFont font = widget.font();
  font.setPixelSize(std::max(7, static_cast<int>(std::lround(QFontInfo(font).pixelSize() * share))));
  return font;
}

/// Ticks by the common rule of windows and figures.
class ModelTicker final : public QCPAxisTicker {
 public:
  explicit ModelTicker(const QCPAxis* axis) : axis_(axis) {}
  AxisModel model;

  void generate(const QCPRange& range, const QLocale&, QChar, int, QVector<double>& ticks,
                QVector<double>* subTicks, QVector<QString>* labels) override {
    const AxisTicks made = TicksOf(model, {range.lower, range.upper, true}, Room(range));
    ticks.clear();
    if (labels) labels->clear();
    for (const Tick& tick : made.numbers) {
      ticks.push_back(tick.at);
      if (labels) labels->push_back(ToQt(tick.text));
    }
    if (subTicks) *subTicks = QVector<double>(made.between.begin(), made.between.end());
  }

 private:
  /// Number of numbers that fit on the axis.
  int Room(const QCPRange& range) const {
    const QFontMetricsF metrics(axis_->tickLabelFont());
    const QRect rect = axis_->axisRect()->rect();
    const auto count = [](double length, double wide, double close) {
      return std::max(
          {2, static_cast<int>(length / wide), std::min(kFewNumbers, 1 + static_cast<int>(length / close))});
    };
    if (axis_->orientation() == Qt::Vertical)
      return count(rect.height(), kTickLines * metrics.height(), kClose * metrics.height());
    double widest = metrics.horizontalAdvance("000");
    for (const Tick& tick : TicksOf(model, {range.lower, range.upper, true}, 6).numbers)
      widest = std::max(widest, metrics.horizontalAdvance(ToQt(tick.text)));
    return count(rect.width(), widest + kTickSpace, kClose * widest);
  }
  const QCPAxis* axis_;
};

/// Our item on a layer of the plot.
class PaintedLayer final : public QCPLayerable {
 public:
  PaintedLayer(QCustomPlot* plot, const QString& layer, std::function<void(QCPPainter&)> paint)
      : QCPLayerable(plot, layer), paint_(std::move(paint)) {}

 protected:
  void applyDefaultAntialiasingHint(QCPPainter* painter) const override { painter->setAntialiasing(true); }
  void draw(QCPPainter* painter) override { paint_(*painter); }

 private:
  std::function<void(QCPPainter&)> paint_;
};

/// To a screen reader a graph is a chart without parts.
class GraphAccessible final : public QAccessibleWidget {
 public:
  explicit GraphAccessible(QWidget* view) : QAccessibleWidget(view, QAccessible::Chart) {}
  int childCount() const override { return 0; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessibleInterface* focusChild() const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
  auto* view = qobject_cast<GraphView*>(object);
  return view ? new GraphAccessible(view) : nullptr;
}

void InstallAccessible() {
  static const bool installed = [] {
    QAccessible::installFactory(MakeAccessible);
    return true;
  }();
  static_cast<void>(installed);
}

PixelAxis PixelsOfAxis(const QCPAxis& axis) {
  const QCPRange range = axis.range();
  return {range.lower, range.upper, axis.scaleType() == QCPAxis::stLogarithmic,
          axis.coordToPixel(range.lower), axis.coordToPixel(range.upper)};
}

}  // namespace

class GraphView::Plot {
 public:
  explicit Plot(GraphView& view) : view_(view), plot_(new QCustomPlot(&view)) {
    plot_->setAttribute(Qt::WA_TransparentForMouseEvents);
    plot_->setFocusPolicy(Qt::NoFocus);
    plot_->setInteractions(QCP::Interactions());
    plot_->setMinimumSize(0, 0);
    plot_->axisRect()->setupFullAxesBox();
    for (QCPAxis* axis : {plot_->xAxis2, plot_->yAxis2}) {
      QObject::disconnect(plot_->xAxis, nullptr, axis, nullptr);
      QObject::disconnect(plot_->yAxis, nullptr, axis, nullptr);
      axis->setTicks(false);
      axis->setTickLabels(false);
    }
    for (QCPAxis* axis : {plot_->xAxis, plot_->yAxis}) {
      axis->setNumberFormat("g");
      axis->setTicker(QSharedPointer<ModelTicker>::create(axis));
      axis->setTickLengthIn(0);
      axis->setTickLengthOut(5);
      axis->setSubTickLengthIn(0);
      axis->setSubTickLengthOut(3);
    }
    new PaintedLayer(plot_, "main",
                     [this](QCPPainter& painter) { PaintContent(painter, view_.model(), Frame(painter)); });
    new PaintedLayer(plot_, "legend", [this](QCPPainter& painter) {
      PaintTitles(painter);
      PaintOver(painter, view_.model(), Frame(painter));
    });
  }

  void SetModel(const GraphModel& model, const GraphLimits& shown) {
    SetAxis(*plot_->xAxis, model.xAxis, shown.x);
    SetAxis(*plot_->yAxis, model.yAxis, shown.y);
    SetMargins();
  }
  /// An axis without known limits has no numbers, and neither has the abscissa of a strip of colours.
  void SetNumbers(bool x, bool y) {
    const GraphModel& model = view_.model();
    const bool strip = model.intensity && model.intensity->columns <= 2 && model.xAxis.label.empty();
    for (const auto& [axis, shown] : {std::pair(plot_->xAxis, x && !strip), std::pair(plot_->yAxis, y)}) {
      axis->setTicks(shown);
      axis->setTickLabels(shown);
      axis->grid()->setVisible(shown);
    }
  }
  void SetTheme(const GraphTheme& theme) {
    theme_ = theme;
    plot_->setBackground(QBrush(ToColor(theme.background)));
    const QFont numbers = FontOf(view_, kNumberFont), titles = FontOf(view_, 1.0);
    font_ = numbers;
    titles_ = titles;
    for (QCPAxis* axis : {plot_->xAxis, plot_->yAxis, plot_->xAxis2, plot_->yAxis2}) {
      for (const auto set : {&QCPAxis::setBasePen, &QCPAxis::setTickPen, &QCPAxis::setSubTickPen})
        (axis->*set)(QPen(ToColor(theme.frame), 1));
      axis->setTickLabelColor(ToColor(theme.text));
      axis->setLabelColor(ToColor(theme.text));
      axis->setTickLabelFont(numbers);
      axis->setLabelFont(titles);
      axis->grid()->setPen(QPen(ToColor(theme.grid), 1));
      axis->grid()->setZeroLinePen(QPen(ToColor(theme.grid), 1));
    }
  }
  void Resize(const QRect& rect) {
    plot_->setGeometry(rect);
    SetMargins();
  }
  void Replot(bool now) {
    plot_->replot(now ? QCustomPlot::rpImmediateRefresh : QCustomPlot::rpQueuedReplot);
  }
  void SetVisible(bool visible) { plot_->setVisible(visible); }
  QSize size() const { return plot_->size(); }
  QPoint corner() const { return plot_->pos(); }

  PixelAxis x() const { return PixelsOfAxis(*plot_->xAxis); }
  PixelAxis y() const { return PixelsOfAxis(*plot_->yAxis); }
  PixelArea area() const {
    const PixelAxis across = x(), up = y();
    return {std::min(across.from, across.to), std::min(up.from, up.to), std::max(across.from, across.to),
            std::max(up.from, up.to)};
  }

  void Paint(QCPPainter& painter, bool vectorial) {
    painter.setMode(QCPPainter::pmVectorized, vectorial);
    painter.setMode(QCPPainter::pmNoCaching);
    plot_->toPainter(&painter, plot_->width(), plot_->height());
  }

 private:
  void SetAxis(QCPAxis& axis, const AxisModel& model, const AxisLimits& shown) {
    // The range first: a logarithmic axis does not accept one down to 0.
    axis.setScaleType(QCPAxis::stLinear);
    axis.setRange(shown.min, shown.max);
    axis.setScaleType(model.logarithmic ? QCPAxis::stLogarithmic : QCPAxis::stLinear);
    axis.setRange(shown.min, shown.max);
    axis.setRangeReversed(model.reversed);
    // The library keeps the room and would cut a title that is longer than the graph: PaintTitles writes it.
    axis.setLabel(AxisTitle(model).empty() ? QString() : QStringLiteral(" "));
    static_cast<ModelTicker&>(*axis.ticker()).model = model;
  }
  /// The title of an axis in the middle of the axis, moved so that it stays within the graph.
  void PaintTitles(QCPPainter& painter) const {
    painter.save();
    painter.setPen(ToColor(theme_.text));
    const auto paint = [&](const AxisModel& model, double middle, double length) {
      const auto [text, font] = FittedTitle(model, length - 2 * kTitleMargin);
      const QFontMetricsF metrics(font);
      const double half = 0.5 * metrics.horizontalAdvance(text) + kTitleMargin;
      const double at = length > 2 * half ? std::clamp(middle, half, length - half) : 0.5 * length;
      painter.setFont(font);
      painter.drawText(QRectF(at - half, 0, 2 * half, metrics.height()), Qt::AlignCenter, text);
    };
    const QRectF inside = ToRect(area());
    const double height = QFontMetricsF(titles_).height();
    painter.translate(0, plot_->height() - kTitleMargin - height);
    paint(view_.model().xAxis, inside.center().x(), plot_->width());
    painter.restore();
    painter.save();
    painter.setPen(ToColor(theme_.text));
    painter.translate(kTitleMargin, plot_->height());
    painter.rotate(-90);
    paint(view_.model().yAxis, plot_->height() - inside.center().y(), plot_->height());
    painter.restore();
  }
  /// A title that is too long gets a smaller font, then its name is shortened: the unit stays.
  std::pair<QString, QFont> FittedTitle(const AxisModel& model, double room) const {
    const QString whole = ToQt(AxisTitle(model));
    const auto width = [](const QString& text, const QFont& font) {
      return QFontMetricsF(font).horizontalAdvance(text);
    };
    if (width(whole, titles_) <= room) return {whole, titles_};
    const QFont small = FontOf(view_, kSmallTitle);
    if (width(whole, small) <= room) return {whole, small};
    AxisModel nameless = model;
    nameless.label.clear();
    const QString unit = nameless.unit.empty() ? QString() : QStringLiteral(", ") + ToQt(AxisTitle(nameless));
    const double left = room - width(unit, small);
    return {QFontMetricsF(small).elidedText(ToQt(model.label), Qt::ElideRight, left) + unit, small};
  }
  /// Partners of one width get the same margin at their right.
  void SetMargins() {
    if (PlanMargins()) {
      for (GraphView* partner : view_.Partners()) {
        partner->plot_->ApplyMargins();
        partner->plot_->Replot(false);
      }
    }
    ApplyMargins();
  }
  /// Whether it needs another margin at its right than before.
  bool PlanMargins() {
    margins_ = MarginsFor(view_.model(), font_, plot_->size());
    return std::exchange(rightBefore_, margins_.right) != margins_.right;
  }
  void ApplyMargins() {
    const GraphMargins& room = margins_;
    int right = room.right;
    for (const GraphView* partner : view_.Partners())
      if (partner->plot_->plot_->width() == plot_->width())
        right = std::max(right, partner->plot_->margins_.right);
    legendBeside_ = room.legendBeside;
    colorBar_ = room.colorBar;
    // Wide enough for most numbers, so that the axes of graphs above each other are aligned.
    const QFontMetricsF metrics(font_);
    const int left = plot_->width() < 240
                         ? 0
                         : static_cast<int>(metrics.horizontalAdvance("-00000") + 2.4 * metrics.height());
    plot_->axisRect()->setMinimumMargins(QMargins(left, room.top + 8, right + 14, 0));
  }
  GraphFrame Frame(const QCPPainter& painter) const {
    GraphFrame frame;
    frame.x = x();
    frame.y = y();
    frame.area = area();
    frame.theme = theme_;
    frame.size = plot_->size();
    frame.font = font_;
    frame.vectorial = painter.modes().testFlag(QCPPainter::pmVectorized);
    frame.legendBeside = legendBeside_;
    frame.colorBar = colorBar_;
    return frame;
  }

  GraphView& view_;
  QCustomPlot* plot_;  // a child of the view
  GraphTheme theme_;
  QFont font_, titles_;
  GraphMargins margins_;
  int rightBefore_ = 0;
  bool legendBeside_ = false, colorBar_ = false;
};

GraphView::GraphView(QWidget* parent) : QWidget(parent) {
  InstallAccessible();
  setMinimumSize(120, 60);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  plot_ = std::make_unique<Plot>(*this);
  plot_->SetTheme(ThemeOf(palette()));
  Refresh();
}

GraphView::~GraphView() = default;

void GraphView::Bind(const GraphControl& control) {
  control_ = &control;
  Refresh();
}

const GraphModel& GraphView::model() const {
  static const GraphModel none;
  return control_ ? GraphOf(*control_) : none;
}

void GraphView::Refresh() {
  const GraphLimits limits = LimitsInForce(model());
  plot_->SetNumbers(limits.x.known, limits.y.known);
  whole_ = {SafeLimits(limits.x, model().xAxis.logarithmic), SafeLimits(limits.y, model().yAxis.logarithmic)};
  KeepZoomOfSameAxes();
  plot_->SetModel(model(), Shown());
  Describe();
  dirty_ = !isVisible();
  if (!dirty_) plot_->Replot(false);
}

// ---- places -----------------------------------------------------------------------------------------------------

QRectF GraphView::PlotArea() const {
  const PixelArea a = plot_->area();
  return QRectF(QPointF(a.left, a.top), QPointF(a.right, a.bottom)).translated(plot_->corner());
}

QPointF GraphView::PixelOf(double x, double y) const {
  return QPointF(plot_->x().PixelOf(x), plot_->y().PixelOf(y)) + plot_->corner();
}

QPointF GraphView::ValueAt(const QPointF& pixel) const {
  const QRectF area = PlotArea();
  const double x = std::clamp(pixel.x(), area.left(), area.right()) - plot_->corner().x();
  const double y = std::clamp(pixel.y(), area.top(), area.bottom()) - plot_->corner().y();
  const GraphLimits shown = Shown();  // allows for rounding at the edges
  return {std::clamp(plot_->x().ValueAt(x), shown.x.min, shown.x.max),
          std::clamp(plot_->y().ValueAt(y), shown.y.min, shown.y.max)};
}

// ---- zoom -------------------------------------------------------------------------------------------------------

GraphLimits GraphView::Shown() const {
  return {zoomX_.value_or(whole_.x), zoomY_.value_or(whole_.y)};
}

void GraphView::ShowPart(const std::optional<AxisLimits>& x, const std::optional<AxisLimits>& y) {
  ZoomTo(x, y);
  for (GraphView* partner : Partners()) partner->ZoomTo(x, partner->zoomY_);
}

void GraphView::ZoomTo(const std::optional<AxisLimits>& x, const std::optional<AxisLimits>& y) {
  const auto held = [](const std::optional<AxisLimits>& part, const AxisLimits& whole) {
    if (!part) return part;
    const AxisLimits inside = {std::max(part->min, whole.min), std::min(part->max, whole.max), whole.known};
    const bool all = inside.min <= whole.min && inside.max >= whole.max;
    return all || !(inside.min < inside.max) ? std::optional<AxisLimits>() : inside;
  };
  zoomX_ = held(x, whole_.x);
  zoomY_ = held(y, whole_.y);
  Refresh();
}

/// The other graphs of the window with the same abscissa: those of the page, and for a trace those of the other page.
std::vector<GraphView*> GraphView::Partners() const {
  std::vector<GraphView*> partners;
  if (!control_ || model().xAxis.label.empty()) return partners;
  const auto pageOf = [](const GraphControl& c) {
    const bool trace = c.panel == Panel::MEASPANEL && c.name.starts_with("DISPLAY_");
    return trace ? Panel::SASW : c.panel;
  };
  for (GraphView* other : window()->findChildren<GraphView*>()) {
    if (other == this || !other->control_ || pageOf(*other->control_) != pageOf(*control_)) continue;
    const AxisModel &mine = model().xAxis, &its = other->model().xAxis;
    if (mine.label == its.label && mine.unit == its.unit && mine.logarithmic == its.logarithmic)
      partners.push_back(other);
  }
  return partners;
}

/// A zoom ends when the axes have other quantities or limits.
void GraphView::KeepZoomOfSameAxes() {
  std::string axes;
  for (const auto& [axis, limits] :
       {std::pair(&model().xAxis, whole_.x), std::pair(&model().yAxis, whole_.y)})
    axes += axis->label + (axis->logarithmic ? " log " : " ") + ShortNumber(limits.min, 17) + " " +
            ShortNumber(limits.max, 17) + ";";
  if (axes != axesOfZoom_) zoomX_ = zoomY_ = std::nullopt;
  axesOfZoom_ = std::move(axes);
}

void GraphView::Describe() {
  const QString line = ToQt(SpokenLine(model(), Shown()));
  if (line != accessibleDescription()) setAccessibleDescription(line);
}

// ---- figures ----------------------------------------------------------------------------------------------------

void GraphView::PaintFigure(QPaintDevice& device, double scale, bool vectorial) {
  if (dirty_) plot_->Resize(rect().adjusted(kFocusFrame, kFocusFrame, -kFocusFrame, -kFocusFrame));
  plot_->SetTheme(GraphTheme());
  QCPPainter painter;
  painter.begin(&device);
  painter.scale(scale, scale);
  plot_->Paint(painter, vectorial);
  painter.end();
  plot_->SetTheme(ThemeOf(palette()));
}

void GraphView::SetPaintsAsFigure(bool figure) {
  paintsAsFigure_ = figure;
  plot_->SetVisible(!figure);
}

// ---- events -----------------------------------------------------------------------------------------------------

void GraphView::resizeEvent(QResizeEvent*) {
  plot_->Resize(rect().adjusted(kFocusFrame, kFocusFrame, -kFocusFrame, -kFocusFrame));
}

void GraphView::showEvent(QShowEvent*) {
  if (dirty_) plot_->Replot(false);
  dirty_ = false;
}

void GraphView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (!plot_ || (event->type() != QEvent::PaletteChange && event->type() != QEvent::FontChange)) return;
  plot_->SetTheme(ThemeOf(palette()));
  Refresh();
}

void GraphView::paintEvent(QPaintEvent*) {
  QCPPainter painter(this);
  if (paintsAsFigure_) {
    painter.translate(plot_->corner());
    plot_->Paint(painter, true);
    return;
  }
  painter.fillRect(rect(), palette().color(QPalette::Base));
  if (!hasFocus()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), kFocusFrame));
  painter.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
}

void GraphView::mousePressEvent(QMouseEvent* event) {
  mouse_.Press(*event);
}
void GraphView::mouseMoveEvent(QMouseEvent* event) {
  mouse_.Move(*event);
}
void GraphView::mouseReleaseEvent(QMouseEvent* event) {
  mouse_.Release(*event);
}
void GraphView::mouseDoubleClickEvent(QMouseEvent* event) {
  mouse_.DoubleClick(*event);
}
void GraphView::wheelEvent(QWheelEvent* event) {
  mouse_.Wheel(*event);
}
void GraphView::keyPressEvent(QKeyEvent* event) {
  if (!mouse_.Key(*event)) QWidget::keyPressEvent(event);
}

}  // namespace sondera
