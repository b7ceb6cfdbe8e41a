// Graphs and pages as files.
#include "gui/figures.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <memory>

#include "gui/graph_view.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"

namespace sondera {
namespace {

class Figures : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetGraphs();
    PlotXY(kGraph, {1, 50}, {100, 200}, PlotStyle::ConnectedPoints, 12, 0xFF0000, "H21[1:2]");
    SetAxisLabel(kGraph, true, "Wavelength", "m");
    SetAxisLabel(kGraph, false, "Phase Velocity", "m/s");
    SetAxisLogarithmic(kGraph, true, true);
    view.resize(480, 320);
    view.Bind(kGraph);
    view.show();
    QApplication::processEvents();
  }
  void TearDown() override { ResetGraphs(); }
  QString Path(const char* name) const { return folder.filePath(name); }
  QByteArray Bytes(const char* name) const {
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  static constexpr const GraphControl& kGraph = dispcurv::DISPGRAPH;
  QTemporaryDir folder;
  GraphView view;
};

TEST_F(Figures, PngHas300DotsForAnInchAndTheCurve) {
  EXPECT_EQ(SaveFigure(view, Path("g.png")), QString());
  const QImage image(Path("g.png"));
  EXPECT_EQ(image.size(), QSize(1500, 1000));
  EXPECT_NEAR(image.dotsPerMeterX() * 0.0254, 300.0, 0.01);
  int red = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) red += (image.pixel(x, y) & 0xFFFFFF) == 0xFF0000;
  EXPECT_GT(red, 1000);
  EXPECT_EQ(image.pixel(2, 2) & 0xFFFFFF, 0xFFFFFFu);
}

TEST_F(Figures, SvgHasItsTextsAsTexts) {
  EXPECT_EQ(SaveFigure(view, Path("g.svg")), QString());
  const QByteArray svg = Bytes("g.svg");
  for (const char* text : {">Wavelength, m<", ">Phase Velocity, m/s<", ">H21[1:2]<", ">50<", ">200<"})
    EXPECT_TRUE(svg.contains(text)) << text;
  EXPECT_TRUE(svg.contains("<polyline") || svg.contains("<path"));
  EXPECT_FALSE(svg.contains("<image")) << "lines, not pixels";
}

TEST_F(Figures, PdfHasItsTextsAsTexts) {
  EXPECT_EQ(SaveFigure(view, Path("g.pdf")), QString());
  const QByteArray pdf = Bytes("g.pdf");
  EXPECT_TRUE(pdf.startsWith("%PDF"));
  EXPECT_TRUE(pdf.contains("/FontFile"));
  if (QStandardPaths::findExecutable("pdftotext").isEmpty()) GTEST_SKIP() << "pdftotext is not installed";
  QProcess reader;
  reader.start("pdftotext", {Path("g.pdf"), "-"});
  ASSERT_TRUE(reader.waitForFinished());
  const QByteArray texts = reader.readAllStandardOutput();
  for (const char* text : {"Wavelength, m", "Phase Velocity, m/s", "H21[1:2]"})
    EXPECT_TRUE(texts.contains(text)) << text;
}

TEST_F(Figures, APageKeepsTextsAndLinesOfItsGraphs) {
  QWidget page;
  auto* layout = new QVBoxLayout(&page);
  layout->addWidget(new QLabel("Curves of the site"));
  auto* graph = new GraphView;
  layout->addWidget(graph);
  graph->Bind(kGraph);
  page.resize(600, 400);
  page.show();
  QApplication::processEvents();
  EXPECT_EQ(SaveFigure(page, Path("p.svg")), QString());
  const QByteArray svg = Bytes("p.svg");
  for (const char* text : {">Curves of the site<", ">Wavelength, m<", ">H21[1:2]<"})
    EXPECT_TRUE(svg.contains(text)) << text;
  EXPECT_FALSE(svg.contains("<image"));
}

TEST_F(Figures, ASheetHasTheGraphsOfAPrintInLightColours) {
  PlotXY(exdthd::PROFILE, {0, 300}, {0, 20}, PlotStyle::Line, kNoMarker, 0, "Vs");
  SetAxisLabel(exdthd::PROFILE, false, "Depth", "m");
  SetAxisReversed(exdthd::PROFILE, false, true);
  const std::unique_ptr<QWidget> sheet =
      SheetOf({"Disp. Curve and Profile", Panel::EXDTHD, {&kGraph, &exdthd::PROFILE, nullptr}});
  EXPECT_EQ(SaveFigure(*sheet, Path("s.svg")), QString());
  const QByteArray svg = Bytes("s.svg");
  for (const char* text : {">Wavelength, m<", ">Depth, m<", ">H21[1:2]<", "Disp. Curve and Profile"})
    EXPECT_TRUE(svg.contains(text)) << text;
  EXPECT_EQ(SaveFigure(*sheet, Path("s.png")), QString());
  EXPECT_EQ(QImage(Path("s.png")).pixel(20, 20) & 0xFFFFFF, 0xFFFFFFu);
  EXPECT_NE(SheetOf({}), nullptr) << "nothing to print is an empty sheet";
}

TEST_F(Figures, AnUnwritablePlaceIsToldAndTheOldFileStays) {
  EXPECT_NE(SaveFigure(view, Path("no/folder/g.png")), QString());
}

TEST_F(Figures, TheEndingNamesTheKind) {
  EXPECT_EQ(FigureKindOf("a.SVG"), FigureKind::Svg);
  EXPECT_EQ(FigureKindOf("a.b.pdf"), FigureKind::Pdf);
  EXPECT_EQ(FigureKindOf("a"), FigureKind::Png);
}

}  // namespace
}  // namespace sondera
