// Graphs as files: the three kinds, their contents, and failures to write them.
#include "figure/figure_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <limits>
#include <memory>
#include <regex>
#include <string>
#include <vector>

#include "figure/canvas.h"
#include "figure/graph_painter.h"
#include "figure/palette.h"
#include "figure/png_bytes.h"
#include "figure/ticks.h"
#include "support/comma_locale.h"
#include "support/failing_file_driver.h"
#include "support/small_disk.h"
#include "support/temp_folder.h"
#include "support/tool_run.h"

namespace sondera {
namespace {

PlotModel Curve(std::vector<double> x, std::vector<double> y, const std::string& legend = {},
                int marker = kNoMarker) {
  PlotModel plot;
  plot.x = std::move(x);
  plot.y = std::move(y);
  plot.legend = legend;
  plot.marker = marker;
  plot.style = marker == kNoMarker ? PlotStyle::Line : PlotStyle::ConnectedPoints;
  return plot;
}

GraphModel PlainGraph() {
  GraphModel graph;
  graph.title = "Site A";
  graph.xAxis.label = "Frequency";
  graph.xAxis.unit = "Hz";
  graph.yAxis.label = "Phase Velocity";
  graph.yAxis.unit = "m/s";
  graph.plots.push_back(Curve({10, 20, 30}, {200, 180, 150}, "A[1:2]", 5));
  return graph;
}

GraphModel LogGraph() {
  GraphModel graph = PlainGraph();
  graph.xAxis.logarithmic = true;
  graph.plots[0].x = {1.0, 12.0, 300.0};
  return graph;
}

GraphModel ReversedGraph() {
  GraphModel graph = PlainGraph();
  graph.yAxis.reversed = true;
  return graph;
}

GraphModel MapGraph() {
  GraphModel graph;
  graph.xAxis.logarithmic = true;
  IntensityModel map;
  map.columns = 3;
  map.rows = 2;
  map.z = {0, 1, 2, 3, 4, std::nan("")};
  map.xMin = 1;
  map.xMax = 100;
  map.yMax = 5;
  map.colorMap = EvenScale(0, 4);
  map.label = "Energy";
  graph.intensity = map;
  return graph;
}

GraphModel MaskedGraph() {
  GraphModel graph = PlainGraph();
  RectangleModel mask;
  mask.x1 = 12;
  mask.x2 = 18;
  mask.y1 = -180;
  mask.y2 = 180;
  mask.label = "3";
  mask.fillColor = 0xFF9933;
  graph.rectangles.push_back(mask);
  return graph;
}

std::vector<GraphModel> AllGraphs() {
  GraphModel empty;
  GraphModel gaps = PlainGraph();
  gaps.plots[0].y[1] = std::nan("");
  gaps.plots.push_back(Curve({1e308, -1e308, std::numeric_limits<double>::infinity()}, {1, 2, 3}));
  return {PlainGraph(), LogGraph(), ReversedGraph(), MapGraph(), MaskedGraph(), empty, gaps};
}

struct SvgText {
  double x = 0.0, y = 0.0;
  std::string text;
};

std::vector<SvgText> TextsOf(const std::string& svg) {
  static const std::regex form("<text x=\"([^\"]*)\" y=\"([^\"]*)\"[^>]*>([^<]*)</text>");
  std::vector<SvgText> texts;
  for (std::sregex_iterator it(svg.begin(), svg.end(), form), none; it != none; ++it)
    texts.push_back({std::atof((*it)[1].str().c_str()), std::atof((*it)[2].str().c_str()), (*it)[3]});
  return texts;
}

class FigureFile : public ::testing::Test {
 protected:
  std::string Svg(const GraphModel& graph) {
    const std::string name = folder.File("graph.svg");
    const Refusal refusal = WriteFigure(graph, name);
    EXPECT_FALSE(refusal) << refusal.reason();
    return test::ReadWhole(name);
  }
  test::TempFolder folder;
};

TEST_F(FigureFile, EveryGraphIsAllThreeKinds) {
  int number = 0;
  for (const GraphModel& graph : AllGraphs()) {
    const std::string stem = folder.File("g" + std::to_string(number++));
    EXPECT_FALSE(WriteFigure(graph, stem + ".svg"));
    EXPECT_EQ(test::ReadWhole(stem + ".svg").find("nan"), std::string::npos);
    if (test::HaveTool("xmllint")) {
      const test::ToolRun said = test::RunTool("xmllint --noout --nonet " + stem + ".svg");
      EXPECT_EQ(said.status, 0) << said.output;
      EXPECT_EQ(said.output, "");
    }
    if (!HavePdfAndPng()) continue;
    EXPECT_FALSE(WriteFigure(graph, stem + ".pdf"));
    EXPECT_FALSE(WriteFigure(graph, stem + ".PNG", {300, 200}));
    const std::string png = test::ReadWhole(stem + ".PNG");
    EXPECT_EQ(png.substr(0, 8), "\x89PNG\r\n\x1a\n");
    EXPECT_EQ(png.substr(16, 8), std::string("\0\0\1\x2c\0\0\0\xc8", 8)) << "300 by 200 pixels";
    if (test::HaveTool("pdfinfo")) {
      const test::ToolRun said = test::RunTool("pdfinfo " + stem + ".pdf");
      EXPECT_EQ(said.status, 0) << said.output;
      EXPECT_NE(said.output.find("720 x 480 pts"), std::string::npos) << said.output;
      EXPECT_EQ(said.output.find("Error"), std::string::npos) << said.output;
    }
  }
}

TEST_F(FigureFile, NumbersAreThoseOfTheTicker) {
  for (const GraphModel& graph : {PlainGraph(), LogGraph(), ReversedGraph()}) {
    const GraphLimits limits = LimitsInForce(graph);
    // Numbers of the x axis share a baseline, those of the y axis an end.
    const std::vector<SvgText> texts = TextsOf(Svg(graph));
    bool across = false, down = false;
    for (int most = 2; most <= 13; ++most) {
      const AxisTicks x = TicksOf(graph.xAxis, limits.x, most), y = TicksOf(graph.yAxis, limits.y, most);
      const auto shown = [&](const AxisTicks& ticks, double SvgText::*shared, double SvgText::*along,
                             bool upward) {
        for (std::size_t i = 0; i + ticks.numbers.size() <= texts.size(); ++i) {
          bool all = !ticks.numbers.empty();
          for (std::size_t k = 0; all && k < ticks.numbers.size(); ++k) {
            all = texts[i + k].text == ticks.numbers[k].text && texts[i + k].*shared == texts[i].*shared;
            if (all && k > 0) all = upward == (texts[i + k].*along > texts[i + k - 1].*along);
          }
          // All of them: the pattern does not match on this axis.
          if (all && (i + ticks.numbers.size() == texts.size() ||
                      texts[i + ticks.numbers.size()].*shared != texts[i].*shared))
            return true;
        }
        return false;
      };
      across = across || shown(x, &SvgText::y, &SvgText::x, true);
      down = down || shown(y, &SvgText::x, &SvgText::y, graph.yAxis.reversed);
    }
    EXPECT_TRUE(across);
    EXPECT_TRUE(down);
  }
}

TEST_F(FigureFile, PointsLieWhereTheAxesSay) {
  GraphModel graph = PlainGraph();
  graph.plots[0] = Curve({0, 10}, {0, 100});
  graph.plots[0].color = 0x123456;
  graph.xAxis.autoScale = graph.yAxis.autoScale = false;
  graph.xAxis.max = 20;
  graph.yAxis.max = 100;
  const std::string svg = Svg(graph);
  std::smatch frame, line;
  ASSERT_TRUE(std::regex_search(
      svg, frame,
      std::regex(
          "<polygon fill=\"none\" stroke=\"#444444\"[^>]* points=\"([0-9.]+),([0-9.]+) ([0-9.]+),([0-9.]+) "
          "([0-9.]+),([0-9.]+)")));
  ASSERT_TRUE(std::regex_search(
      svg, line, std::regex("stroke=\"#123456\"[^>]* points=\"([0-9.]+),([0-9.]+) ([0-9.]+),([0-9.]+)\"")));
  const auto value = [](const std::smatch& match, std::size_t i) {
    return std::atof(match[i].str().c_str());
  };
  EXPECT_NEAR(value(line, 1), value(frame, 1), 0.02);
  EXPECT_NEAR(value(line, 2), value(frame, 6), 0.02);
  EXPECT_NEAR(value(line, 3), 0.5 * (value(frame, 1) + value(frame, 3)), 0.02);
  EXPECT_NEAR(value(line, 4), value(frame, 2), 0.02);
}

TEST_F(FigureFile, GraphsBelowOneAnotherStandInLine) {
  const std::unique_ptr<FileCanvas> canvas = MakeSvgCanvas(folder.File("two.svg"), 600, 400, {});
  GraphStyle style;
  style.leftRoom = 60.0;
  const PixelArea first = DrawGraph(PlainGraph(), *canvas, {10, 10, 590, 190}, style);
  EXPECT_LT(first.right, 540.0) << "the legend stands there";
  GraphModel below = PlainGraph();
  below.plots[0].legend.clear();
  style.rightRoom = 590.0 - first.right;
  const PixelArea second = DrawGraph(below, *canvas, {10, 200, 590, 390}, style);
  EXPECT_DOUBLE_EQ(second.left, first.left);
  EXPECT_DOUBLE_EQ(second.right, first.right);
}

TEST_F(FigureFile, ABandIsShadedBetweenItsCurves) {
  GraphModel graph = PlainGraph();
  graph.plots = {Curve({0, 10}, {0, 0}), Curve({0, 10}, {100, 100})};
  graph.plots[0].handle = 1;
  graph.plots[1].handle = 2;
  const std::string without = Svg(graph);
  graph.plots[0].bandTo = 2;
  const std::string with = Svg(graph);
  const auto areas = [](const std::string& svg) {
    const std::regex area("<polygon fill=\"#[0-9a-f]+\" points");
    return std::distance(std::sregex_iterator(svg.begin(), svg.end(), area), std::sregex_iterator());
  };
  EXPECT_EQ(areas(without), 0);
  EXPECT_EQ(areas(with), 1);
}

TEST_F(FigureFile, HostileTextsStayTexts) {
  GraphModel graph = PlainGraph();
  graph.title = "</text><script>&\"";
  graph.plots[0].legend =
      "Gr\xF6\xDF"
      "e – 5 µm \x01 ]]>";
  const std::string svg = Svg(graph);
  EXPECT_NE(svg.find("&lt;/text&gt;&lt;script&gt;&amp;&quot;"), std::string::npos);
  EXPECT_NE(svg.find("Größe – 5 µm   ]]&gt;"), std::string::npos);
  EXPECT_EQ(svg.find("<script"), std::string::npos);
  if (HavePdfAndPng()) {
    EXPECT_FALSE(WriteFigure(graph, folder.File("hostile.pdf")));
  }
}

TEST_F(FigureFile, ALongLegendIsCut) {
  GraphModel graph = PlainGraph();
  for (int i = 0; i < 300; ++i)
    graph.plots.push_back(Curve({1, 2}, {3, 4}, std::string(300, 'M') + "end", i));
  const std::string svg = Svg(graph);
  EXPECT_EQ(svg.find(std::string(100, 'M')), std::string::npos);
  EXPECT_TRUE(std::regex_search(svg, std::regex("M…M*end")));
  EXPECT_TRUE(std::regex_search(svg, std::regex("… and [0-9]+ more")));
}

TEST_F(FigureFile, AMillionPointsMakeASmallFile) {
  std::vector<double> x, y;
  for (int i = 0; i < 1000000; ++i) {
    x.push_back(i);
    y.push_back(std::sin(0.01 * i) + 1e-3 * (i % 7));
  }
  GraphModel graph = PlainGraph();
  graph.plots = {Curve(x, y, "long"), Curve(x, y, "marked", 12)};
  EXPECT_LT(Svg(graph).size(), 20u << 20);
}

TEST_F(FigureFile, NamesSayTheKind) {
  for (const char* name : {"graph", "graph.", "graph.jpg", "a.svg/graph", ".svgz"}) {
    const std::string path = folder.File(name);
    EXPECT_EQ(WriteFigure(PlainGraph(), path).reason(),
              "A figure is PDF, SVG or PNG; name a file that ends with .pdf, .svg or .png.");
  }
  EXPECT_TRUE(folder.Names().empty());
  EXPECT_EQ(WriteFigure(PlainGraph(), folder.File("g.svg"), {99, 500}).reason(),
            "A figure has 100 to 10000 pixels each way.");
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(FigureFile, AFullDiskLeavesTheFormerFile) {
  for (const char* name : {"g.svg", "g.pdf", "g.png"}) {
    const std::string path = folder.File(name);
    if (!FigureNameFault(path).empty()) continue;
    test::WriteWhole(path, "former");
    {
      test::FilePlan plan;
      plan.failWrite = 1;
      plan.everAfter = true;
      plan.halfWrite = true;
      plan.error = ENOSPC;
      const test::FailingFileDriver driver(plan);
      const Refusal refusal = WriteFigure(PlainGraph(), path);
      EXPECT_TRUE(refusal) << name;
      EXPECT_NE(refusal.reason().find(path), std::string::npos) << refusal.reason();
      EXPECT_NE(refusal.reason().find("No space"), std::string::npos) << refusal.reason();
    }
    EXPECT_EQ(test::ReadWhole(path), "former");
  }
  for (const std::string& name : folder.Names()) EXPECT_EQ(name.find("saving"), std::string::npos) << name;
  EXPECT_TRUE(WriteFigure(PlainGraph(), folder.File("no/such/folder.svg")));
}

TEST_F(FigureFile, ADiskThatFillsUpLeavesTheFormerFile) {
  GraphModel graph = PlainGraph();
  for (int i = 0; i < 3000; ++i) {
    graph.plots[0].x.push_back(i % 701);
    graph.plots[0].y.push_back(i % 503);
  }
  const test::SmallDisk disk(16384);
  for (const char* name : {"g.svg", "g.pdf", "g.png"}) {
    const std::string path = disk.File(name);
    if (!FigureNameFault(path).empty()) continue;
    test::WriteWhole(path, "former");
    const Refusal refusal = WriteFigure(graph, path, {2000, 1600});
    EXPECT_NE(refusal.reason().find(path), std::string::npos) << refusal.reason();
    EXPECT_NE(refusal.reason().find(disk.Reason()), std::string::npos) << refusal.reason();
    EXPECT_EQ(test::ReadWhole(path), "former");
    EXPECT_EQ(disk.Names(), std::vector<std::string>{name});
    std::filesystem::remove(path);
  }
}

TEST_F(FigureFile, ADecimalCommaChangesNoByte) {
  setenv("SOURCE_DATE_EPOCH", "1000000000", 1);
  const auto bytes = [&](const GraphModel& graph, const char* name) {
    if (!FigureNameFault(name).empty()) return std::string();
    EXPECT_FALSE(WriteFigure(graph, folder.File(name)));
    return test::ReadWhole(folder.File(name));
  };
  for (const GraphModel& graph : AllGraphs()) {
    for (const char* name : {"g.svg", "g.pdf", "g.png"}) {
      const std::string point = bytes(graph, name);
      const test::CommaLocale comma;
      if (!comma.Available()) GTEST_SKIP() << "no locale with a decimal comma";
      EXPECT_TRUE(point == bytes(graph, name)) << name;
    }
  }
  unsetenv("SOURCE_DATE_EPOCH");
}

TEST_F(FigureFile, SetTimesGiveEqualBytes) {
  if (!HavePdfAndPng()) GTEST_SKIP() << "built without PDF";
  setenv("SOURCE_DATE_EPOCH", "1000000000", 1);
  EXPECT_EQ(DocumentTime(), "2001-09-09T01:46:40Z");
  for (const char* name : {"g.pdf", "g.png", "g.svg"}) {
    EXPECT_FALSE(WriteFigure(MaskedGraph(), folder.File(name)));
    const std::string first = test::ReadWhole(folder.File(name));
    EXPECT_FALSE(WriteFigure(MaskedGraph(), folder.File(name)));
    EXPECT_TRUE(first == test::ReadWhole(folder.File(name))) << name;
  }
  unsetenv("SOURCE_DATE_EPOCH");
}

TEST(PngBytes, HasTheBytesOfTheFormat) {
  const std::string png = PngBytes({1, 1, {0xFF102030u}});
  EXPECT_EQ(png.substr(0, 16), std::string("\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR", 16));
  // CRCs of the empty last chunk, and of the header of one pixel, by another program.
  EXPECT_EQ(png.substr(png.size() - 12), std::string("\0\0\0\0IEND\xAE\x42\x60\x82", 12));
  EXPECT_EQ(png.substr(29, 4), "\x1F\x15\xC4\x89");
  // One stored block: filter 0, then red, green, blue, alpha; Adler-32 by hand.
  EXPECT_EQ(png.substr(41, 16),
            std::string("\x78\x01\x01\x05\x00\xFA\xFF\x00\x10\x20\x30\xFF\x02\x04\x01\x60", 16));
}

TEST(PngBytes, Base64IsThatOfTheStandard) {
  const std::vector<std::pair<std::string, std::string>> pairs = {
      {"", ""}, {"f", "Zg=="}, {"fo", "Zm8="}, {"foo", "Zm9v"}, {"foob", "Zm9vYg=="}, {"foobar", "Zm9vYmFy"}};
  for (const auto& [bytes, text] : pairs) EXPECT_EQ(Base64(bytes), text);
}

}  // namespace
}  // namespace sondera
