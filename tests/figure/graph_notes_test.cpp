// Notes and hatching of a graph: where they lie, and that a figure has them.
#include "figure/graph_notes.h"

#include <gtest/gtest.h>

#include <cmath>

#include "figure/figure_file.h"
#include "support/temp_folder.h"

namespace sondera {
namespace {

constexpr PixelArea kFrame = {100, 50, 300, 250};
const PixelAxis kX = {0, 10, false, 100, 300};
const PixelAxis kDepth = {0, 20, false, 50, 250};  // downward

double WidthOf(const std::string& text) {
  return 6.0 * static_cast<double>(text.size());
}

std::vector<PlacedNote> Placed(const GraphModel& graph) {
  return PlaceNotes(graph, kX, kDepth, kFrame, WidthOf, 12.0, 4.0);
}

TEST(GraphNotes, StandRightOfTheirPlaceAndWithinTheArea) {
  GraphModel graph;
  graph.sideNotes = {{1, 5, 10, "R 0.76"}, {2, 9.9, 4, "R 0.50"}};
  const std::vector<PlacedNote> placed = Placed(graph);
  ASSERT_EQ(placed.size(), 2u);
  EXPECT_EQ(*placed[0].text, "R 0.50") << "from top to bottom";
  EXPECT_EQ(placed[0].at.x, 300.0 - 4.0 - 36.0) << "moved to the left as far as needed";
  EXPECT_EQ(placed[1].at.x, 200.0 + 4.0);
  EXPECT_EQ(placed[1].at.y, 150.0);
}

TEST(GraphNotes, WhatWouldStandOnAnotherOrOffTheAxesIsLeftOut) {
  GraphModel graph;
  graph.sideNotes = {{1, 5, 10, "a"},   {2, 5, 10.5, "b"},   {3, 5, 12, "c"},    {4, 11, 15, "off"},
                     {5, 5, 30, "off"}, {6, NAN, 15, "off"}, {7, 5, NAN, "off"}, {8, 5, 0.1, "half above"}};
  std::string shown;
  for (const PlacedNote& note : Placed(graph)) shown += *note.text + " ";
  EXPECT_EQ(shown, "a c ");
}

TEST(GraphHatching, LinesFillThePartAndNothingElse) {
  const HatchModel below = {1, 15, 99, ""};
  const PixelArea part = HatchedPart(below, kDepth, kFrame);
  EXPECT_EQ(part.top, 200.0);
  EXPECT_EQ(part.bottom, 250.0);
  const std::vector<PixelLine> lines = HatchLines(below, kDepth, kFrame);
  // One line for each step along the sum of both sides.
  EXPECT_NEAR(static_cast<double>(lines.size()), (200.0 + 50.0) / kHatchStep, 1.0);
  for (const PixelLine& line : lines) {
    ASSERT_EQ(line.size(), 2u);
    for (const PixelPoint& p : line) {
      EXPECT_GE(p.x, part.left - 1e-9);
      EXPECT_LE(p.x, part.right + 1e-9);
      EXPECT_GE(p.y, part.top - 1e-9);
      EXPECT_LE(p.y, part.bottom + 1e-9);
    }
    EXPECT_NEAR(line[0].x + line[0].y, line[1].x + line[1].y, 1e-9) << "slanting";
  }
  EXPECT_TRUE(HatchLines({1, 20, 99, ""}, kDepth, kFrame).empty()) << "below the graph";
  EXPECT_TRUE(HatchLines({1, 5, 5, ""}, kDepth, kFrame).empty());
  EXPECT_LT(HatchLines({1, NAN, INFINITY, ""}, kDepth, kFrame).size(), 60u);
}

TEST(GraphHatching, AFigureHasBoth) {
  test::TempFolder folder;
  GraphModel graph;
  PlotModel line;
  line.x = {0, 10};
  line.y = {0, 20};
  graph.plots.push_back(line);
  const auto countOf = [&](const std::string& what) {
    EXPECT_FALSE(WriteFigure(graph, folder.File("g.svg")));
    const std::string svg = test::ReadWhole(folder.File("g.svg"));
    std::size_t count = 0;
    for (std::size_t at = svg.find(what); at != std::string::npos; at = svg.find(what, at + 1)) ++count;
    return count;
  };
  const std::size_t before = countOf("M");  // each line of a path moves to its beginning
  graph.hatchings.push_back({7, 10, 20, "not seen"});
  graph.sideNotes.push_back({8, 2, 5, "R 0.76"});
  EXPECT_GT(countOf("M"), before + 20);
  EXPECT_EQ(countOf("not seen"), 1u);
  EXPECT_EQ(countOf("R 0.76"), 1u);
}

}  // namespace
}  // namespace sondera
