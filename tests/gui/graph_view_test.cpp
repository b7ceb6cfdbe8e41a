// Graphs drawn on a screen in memory.
#include "gui/graph_view.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QPalette>
#include <QTest>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <string>

#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"

namespace sondera {
namespace {

/// Messages of Qt and the plot library.
std::string warnings;
void Listen(QtMsgType, const QMessageLogContext&, const QString& text) {
  // The screen in memory has no window manager and says so.
  if (!text.contains("This plugin does not support")) warnings += text.toStdString() + "\n";
}

class GraphViewTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetGraphs();
    warnings.clear();
    former_ = qInstallMessageHandler(Listen);
    view = std::make_unique<GraphView>();
    view->resize(640, 400);
    view->Bind(kGraph);
    view->show();
    Draw();
  }
  void TearDown() override {
    view.reset();
    qInstallMessageHandler(former_);
    ResetGraphs();
    EXPECT_EQ(warnings, "");
  }
  void Draw() {
    view->Refresh();
    QApplication::processEvents();
  }
  QImage Picture() {
    Draw();
    return view->grab().toImage().convertToFormat(QImage::Format_RGB32);
  }
  std::string Line() const { return view->accessibleDescription().toStdString(); }
  QColor At(double x, double y) {
    const QImage image = Picture();
    const QPointF pixel = view->PixelOf(x, y) * image.devicePixelRatio();
    return image.pixelColor(static_cast<int>(pixel.x()), static_cast<int>(pixel.y()));
  }

  static constexpr const GraphControl& kGraph = sasw::DISPLAY_A;
  std::unique_ptr<GraphView> view;

 private:
  QtMessageHandler former_ = nullptr;
};

int Count(const QImage& image, QRgb color) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if ((image.pixel(x, y) & 0xFFFFFF) == (color & 0xFFFFFF)) ++count;
  return count;
}

IntensityModel Map(std::vector<double> z) {
  IntensityModel map;
  map.z = std::move(z);
  map.columns = map.rows = 2;
  map.xMax = map.yMax = 1;
  return map;
}

TEST_F(GraphViewTest, DrawsACurveInItsColour) {
  PlotXY(kGraph, {0, 10}, {0, 0}, PlotStyle::Line, kNoMarker, 0x0000FF, "Original");
  SetAxisRange(kGraph, false, -1, 1);
  EXPECT_EQ(At(5, 0).rgb() & 0xFFFFFF, 0x0000FFu);
  EXPECT_GT(Count(Picture(), 0x0000FF), 300);
}

TEST_F(GraphViewTest, AnEmptyGraphHasNoNumbers) {
  const auto inkBelow = [&] {
    const QImage image = Picture();
    const int top = static_cast<int>((view->PlotArea().bottom() + 7) * image.devicePixelRatio());
    int ink = 0;
    for (int y = top; y < image.height() - 4; ++y)
      for (int x = 4; x < image.width() - 4; ++x) ink += qGray(image.pixel(x, y)) < 128;
    return ink;
  };
  EXPECT_EQ(inkBelow(), 0);
  PlotXY(kGraph, {0, 1}, {0, 1});
  EXPECT_GT(inkBelow(), 20);
}

/// Ink in a part of the picture, in pixels of the screen.
int Ink(const QImage& image, QRect part) {
  const double scale = image.devicePixelRatio();
  int ink = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      ink += part.contains(QPointF(x / scale, y / scale).toPoint()) && qGray(image.pixel(x, y)) < 128;
  return ink;
}

TEST_F(GraphViewTest, ALowGraphHasItsTitlesWholeAndTwoNumbers) {
  PlotXY(kGraph, {0, 10}, {-30, 30});
  SetAxisLabel(kGraph, false, "Residual", "m/s");
  SetAxisRange(kGraph, false, -40, 40);
  SetAxisLabel(kGraph, true, "Wavelength", "m");
  for (const char* name : {"Residual", "Linear Spectrum of a receiver with a long name"}) {
    SetAxisLabel(kGraph, false, name, "m/s");
    view->resize(420, 96);
    view->clearFocus();  // no frame
    const QImage image = Picture();
    const int height = view->height();
    EXPECT_GT(Ink(image, {0, 0, 24, height}), 60) << name;
    EXPECT_EQ(Ink(image, {0, 0, 24, 4}), 0) << name << " is cut at the top";
    EXPECT_EQ(Ink(image, {0, height - 4, 24, 4}), 0) << name << " is cut at the bottom";
  }
  // Numbers beside the axis: above, at, and below its middle.
  const QImage image = Picture();
  const QRect axis = view->PlotArea().toRect();
  for (const double y : {-40.0, 0.0, 40.0}) {
    const int at = static_cast<int>(view->PixelOf(0, y).y());
    EXPECT_GT(Ink(image, {26, at - 4, axis.left() - 34, 8}), 3) << y;
  }
}

TEST_F(GraphViewTest, TheLegendKeepsOffLinesAndTheNumbersOfMasks) {
  SetAxisRange(kGraph, true, 0, 10);
  SetAxisRange(kGraph, false, 0, 10);
  PlotXY(kGraph, {9, 9}, {0, 10}, PlotStyle::Line, kNoMarker, 0x0000FF, "Original");  // no point in a corner
  const auto legendAt = [&](double x, double y) {  // its background hides the grid
    const QImage image = Picture();
    const QPointF at = view->PixelOf(x, y) * image.devicePixelRatio();
    const QRect part(at.toPoint() - QPoint(40, 10), QSize(80, 20));
    return Count(image.copy(part), 0x000000) > 0;  // its text
  };
  EXPECT_FALSE(legendAt(9.1, 9.5));
  EXPECT_TRUE(legendAt(1.0, 9.5));
  PlotRectangle(kGraph, 0.1, 0, 2, 10, 0xFFFF, 0xFFFF, "");
  EXPECT_FALSE(legendAt(1.0, 9.5));
  EXPECT_TRUE(legendAt(1.0, 0.5));
}

TEST_F(GraphViewTest, NumbersOfCloseMarkersStandBelowEachOther) {
  SetAxisRange(kGraph, true, 0, 10);
  SetAxisRange(kGraph, false, 0, 10);
  SetCursorCount(kGraph, 3);
  for (int i = 0; i < 3; ++i) {
    SetCursorColor(kGraph, i + 1, i == 0 ? 0xFF0000 : i == 1 ? 0x0000FF : 0xFF00FF);
    SetGraphCursor(kGraph, i + 1, 5 + 0.05 * i, -1);
  }
  const QImage image = Picture();
  // A number covers more than its line, which is two pixels wide.
  const auto seen = [&](QRgb color, int row) {
    const double scale = image.devicePixelRatio();
    const QRectF part(view->PixelOf(4.9, 10) + QPointF(0, 2 + 14 * row), QSizeF(24, 8));
    return Count(image.copy(QRectF(part.topLeft() * scale, part.size() * scale).toRect()), color) >
           40 * scale;
  };
  EXPECT_TRUE(seen(0xFF0000, 0));
  EXPECT_TRUE(seen(0x0000FF, 1));
  EXPECT_TRUE(seen(0xFF00FF, 2));
}

TEST_F(GraphViewTest, DrawsMasksBelowTheCurves) {
  PlotXY(kGraph, {0, 10}, {0, 0}, PlotStyle::Line, kNoMarker, 0x0000FF);
  PlotRectangle(kGraph, 2, -1, 4, 1, 0xFFFF, 0xFFFF, "2");
  SetAxisRange(kGraph, false, -1, 1);
  const QColor mask = At(3.3, -0.47), beside = At(6.3, -0.47);
  EXPECT_EQ(beside, QColor(Qt::white));
  EXPECT_LT(mask.red(), 200);
  EXPECT_GT(mask.blue(), 250);
  EXPECT_EQ(At(3, 0).rgb() & 0xFFFFFF, 0x0000FFu);
}

TEST_F(GraphViewTest, DrawsAMapUnderItsMask) {
  IntensityModel map = Map({0, 0, 100, 100});
  map.colorMap = {{0, 0x0000FF}, {100, 0xFF0000}};
  PlotIntensity(kGraph, map);
  EXPECT_GT(At(0.99, 0.5).red(), 240);
  EXPECT_GT(At(0.01, 0.5).blue(), 240);
}

TEST_F(GraphViewTest, ReversedAxesRunDownward) {
  PlotXY(kGraph, {0, 1}, {0, 30});
  SetAxisReversed(kGraph, false, true);
  Draw();
  EXPECT_LT(view->PixelOf(0, 0).y(), view->PixelOf(0, 30).y());
}

TEST_F(GraphViewTest, HostileModelsAreDrawnWithoutAWarning) {
  constexpr double huge = std::numeric_limits<double>::max(),
                   tiny = std::numeric_limits<double>::denorm_min();
  const std::vector<std::vector<double>> columns = {{},
                                                    {1},
                                                    {NAN, NAN},
                                                    {INFINITY, -INFINITY},
                                                    {0, 0, 0},
                                                    {1, NAN, 3},
                                                    {-huge, huge},
                                                    {tiny, 1},
                                                    {1e-300, 1e300},
                                                    {1, std::nextafter(1.0, 2.0)},
                                                    {5, INFINITY, -5, NAN, 7}};
  for (const bool logarithmic : {false, true}) {
    for (const PlotStyle style :
         {PlotStyle::Line, PlotStyle::Scatter, PlotStyle::ConnectedPoints, PlotStyle::Steps}) {
      for (std::size_t a = 0; a < columns.size(); ++a) {
        ResetGraphs();
        PlotXY(kGraph, columns[a], columns[(a + 3) % columns.size()], style, 3, 0xFF0000, "a curve");
        PlotXY(kGraph, columns[a], columns[a],
               {.style = style, .marker = 7, .dash = LineDash::Dashed, .bandTo = 1}, "b");
        PlotRectangle(kGraph, columns[a].empty() ? NAN : columns[a][0], -INFINITY, 3, INFINITY, 0, 0xFFFF);
        SetGraphCursor(kGraph, 1, columns[a].empty() ? NAN : columns[a].back(), huge);
        SetAxisLogarithmic(kGraph, true, logarithmic);
        SetAxisLogarithmic(kGraph, false, logarithmic);
        EXPECT_FALSE(Picture().isNull());
      }
    }
  }
  IntensityModel map = Map({NAN, huge, -huge, 1});
  map.xMax = 0;
  map.yMin = NAN;
  map.colorMap = {{NAN, 0}, {huge, 0xFF}};
  PlotIntensity(kGraph, map);
  EXPECT_FALSE(Picture().isNull());
}

TEST_F(GraphViewTest, AMillionPointsAreDrawn) {
  std::mt19937 random(1);
  std::normal_distribution<double> noise;
  std::vector<double> x(1000000), y(x.size());
  for (std::size_t i = 0; i < x.size(); ++i) x[i] = static_cast<double>(i), y[i] = noise(random);
  PlotXY(kGraph, x, y, PlotStyle::Line, kNoMarker, 0x0000FF);
  PlotXY(kGraph, x, y,
         {.style = PlotStyle::ConnectedPoints, .marker = 0, .color = 0xFF0000, .dash = LineDash::Dashed});
  EXPECT_GT(Count(Picture(), 0xFF0000), 1000);
}

TEST_F(GraphViewTest, AZeroSizeAndALegendOfManyCurvesDoNoHarm) {
  for (int i = 0; i < 60; ++i)
    PlotXY(kGraph, {0, 1}, {0, 1.0 * i}, PlotStyle::Scatter, i, i * 1000,
           "A curve of a long name, number " + std::to_string(i));
  SetGraphTitle(kGraph, "A title");
  EXPECT_FALSE(Picture().isNull());
  for (const QSize size : {QSize(0, 0), QSize(1, 1), QSize(130, 60), QSize(2000, 30)}) {
    view->resize(size);
    EXPECT_NO_FATAL_FAILURE(Picture());
  }
}

TEST_F(GraphViewTest, TheSpokenLineFollowsTheDrawing) {
  SetAxisLabel(kGraph, true, "Frequency", "Hz");
  SetAxisLabel(kGraph, false, "Phase", "degrees");
  PlotXY(kGraph, {0, 100}, {-180, 180}, PlotStyle::Line, kNoMarker, 0, "Original");
  Draw();
  EXPECT_EQ(Line(), "Phase -180 to 180 over Frequency 0 to 100; 1 curve: Original");
  PlotRectangle(kGraph, 20, -180, 30, 180, 0, 0);
  Draw();
  EXPECT_EQ(Line(), "Phase -180 to 180 over Frequency 0 to 100; 1 curve: Original; 1 mask 20 to 30 Hz");
  view->ShowPart(AxisLimits{10, 60, true}, {});
  EXPECT_EQ(Line(), "Phase -180 to 180 over Frequency 10 to 60; 1 curve: Original; 1 mask 20 to 30 Hz");
  view->hide();
  DeleteGraphPlot(kGraph);
  Draw();
  EXPECT_EQ(Line(), "Phase over Frequency; no curves") << "on a page that is not in front, too";
}

TEST_F(GraphViewTest, IsAChartWithoutPartsToAScreenReader) {
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(view.get());
  ASSERT_NE(spoken, nullptr);
  EXPECT_EQ(spoken->role(), QAccessible::Chart);
  EXPECT_EQ(spoken->childCount(), 0);
}

TEST_F(GraphViewTest, AZoomIsOfTheViewAlone) {
  PlotXY(kGraph, {0, 100}, {0, 50});
  Draw();
  view->ShowPart(AxisLimits{20, 40, true}, AxisLimits{10, 20, true});
  EXPECT_TRUE(view->IsZoomed());
  EXPECT_NEAR(view->ValueAt(view->PlotArea().center()).x(), 30.0, 0.2);
  EXPECT_TRUE(GraphOf(kGraph).xAxis.autoScale);
  EXPECT_EQ(LimitsInForce(GraphOf(kGraph)).x.max, 100.0);
  SetGraphCursor(kGraph, 1, 30, 15);
  Draw();
  EXPECT_TRUE(view->IsZoomed()) << "a marker is no reason to leave";
  SetAxisRange(kGraph, true, 0, 200);
  Draw();
  EXPECT_FALSE(view->IsZoomed()) << "other limits are";
}

TEST_F(GraphViewTest, GraphsOfOneAbscissaZoomTogether) {
  QWidget page;
  GraphView a(&page), b(&page), other(&page);
  for (const GraphControl* c : {&sasw::DISPLAY_A, &sasw::DISPLAY_B, &dispcurv::DISPGRAPH}) {
    PlotXY(*c, {0, 100}, {0, 50});
    SetAxisLabel(*c, true, "Frequency", "Hz");
  }
  a.Bind(sasw::DISPLAY_A);
  b.Bind(sasw::DISPLAY_B);
  other.Bind(dispcurv::DISPGRAPH);
  a.ShowPart(AxisLimits{20, 40, true}, AxisLimits{10, 20, true});
  EXPECT_EQ(b.Shown().x.min, 20.0);
  EXPECT_EQ(b.Shown().y.max, 50.0);
  EXPECT_FALSE(other.IsZoomed());
  b.ShowPart({}, {});
  EXPECT_EQ(a.Shown().x.min, 0.0);
}

TEST_F(GraphViewTest, TheTracesOfBothPagesZoomTogether) {
  QWidget pages;
  GraphView a(&pages), b(&pages), measured(&pages);
  for (const GraphControl* c : {&sasw::DISPLAY_A, &measpanel::DISPLAY_A}) {
    PlotXY(*c, {0, 100}, {0, 50});
    SetAxisLabel(*c, true, "Frequency", "Hz");
  }
  PlotXY(sasw::DISPLAY_B, {0, 1}, {0, 1});
  SetAxisLabel(sasw::DISPLAY_B, true, "Time", "s");
  a.Bind(sasw::DISPLAY_A);
  b.Bind(sasw::DISPLAY_B);
  measured.Bind(measpanel::DISPLAY_A);
  a.ShowPart(AxisLimits{20, 40, true}, {});
  EXPECT_EQ(measured.Shown().x.max, 40.0);
  EXPECT_FALSE(b.IsZoomed()) << "another abscissa";
}

TEST_F(GraphViewTest, GraphsBelowOneAnotherStandInLine) {
  QWidget page;
  GraphView curves(&page), residuals(&page);
  for (GraphView* graph : {&curves, &residuals}) graph->resize(640, 300);
  for (const GraphControl* c : {&exdthd::CURVES, &exdthd::RESIDUALS}) {
    SetAxisLabel(*c, true, "Wavelength", "m");
    PlotXY(*c, {1, 100}, {0, 5});
  }
  curves.Bind(exdthd::CURVES);
  residuals.Bind(exdthd::RESIDUALS);
  page.show();
  QApplication::processEvents();
  EXPECT_EQ(curves.PlotArea().right(), residuals.PlotArea().right());
  // Curves with names make room for them, and the graph below follows.
  for (int i = 0; i < 30; ++i)
    PlotXY(exdthd::CURVES, {1, 100}, {0, 1.0 * i}, PlotStyle::Scatter, i % 19, i, "a curve with a long name");
  curves.Refresh();
  QApplication::processEvents();
  EXPECT_LT(curves.PlotArea().right(), 620.0) << "the legend stands beside";
  EXPECT_EQ(curves.PlotArea().right(), residuals.PlotArea().right());
  EXPECT_EQ(curves.PlotArea().left(), residuals.PlotArea().left());
}

TEST_F(GraphViewTest, DrawsHatchingAndNotes) {
  PlotXY(kGraph, {0, 10}, {0, 10}, PlotStyle::Line, kNoMarker, 0x0072B2);
  SetAxisRange(kGraph, true, 0, 10);
  SetAxisRange(kGraph, false, 0, 10);
  const auto inkIn = [&](double y1, double y2) {
    const QImage image = Picture();
    const double scale = image.devicePixelRatio();
    const QPoint from = (view->PixelOf(5.1, y2) * scale).toPoint(),
                 to = (view->PixelOf(9.9, y1) * scale).toPoint();
    int dark = 0;
    for (int y = from.y(); y < to.y(); ++y)
      for (int x = from.x(); x < to.x(); ++x) dark += image.pixelColor(x, y).lightness() < 235 ? 1 : 0;
    return dark;
  };
  const int low = inkIn(0.1, 2), high = inkIn(2.5, 4.5);
  PlotHatching(kGraph, 0, 2, "");
  EXPECT_GT(inkIn(0.1, 2), low + 300);
  EXPECT_EQ(inkIn(2.5, 4.5), high);
  PlotNote(kGraph, 6, 3.5, "R 0.76");
  EXPECT_GT(inkIn(2.5, 4.5), high + 20);
}

TEST_F(GraphViewTest, FollowsADarkTheme) {
  PlotXY(kGraph, {0, 10}, {0, 0}, PlotStyle::Line, kNoMarker, 0x000000);
  SetAxisRange(kGraph, false, -1, 1);
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(0x1E, 0x1E, 0x1E));
  dark.setColor(QPalette::Text, Qt::white);
  view->setPalette(dark);
  EXPECT_LT(At(5, 0.5).lightness(), 60);
  EXPECT_GT(At(5, 0).lightness(), 200) << "a black curve is white there";
}

}  // namespace
}  // namespace sondera
