// Curves of other projects for a line of stations: texts.
#include "project/station_file.h"

#include <gtest/gtest.h>

#include <string>

namespace sondera {
namespace {

std::string ReadText(const std::string& text, StationCurves& station) {
  TextReader reader;
  reader.OpenMemory(text);
  return ReadStationText(reader, station);
}

TEST(StationText, CurvesFollowOneAnotherWithTheirLabels) {
  StationCurves station;
  EXPECT_EQ(ReadText("ProjID:Site, MeasID: x, MeasID: y\n2\n 100.5 50.0 2.01 0.5 1 3 \n 120 40 3 0 1 3\n\n"
                     "ProjID:B, MeasID: \n1\n1 2 3\n",
                     station),
            "");
  ASSERT_EQ(station.curves.size(), 2u);
  EXPECT_EQ(station.curves[0]->label, "Site, MeasID: x");
  EXPECT_EQ(station.curves[0]->nPoints, 2);
  EXPECT_EQ(station.curves[0]->vel[1], 100.5);
  EXPECT_EQ(station.curves[0]->freq[2], 40.0);
  EXPECT_EQ(station.curves[0]->wlen[2], 3.0);
  EXPECT_EQ(station.curves[0]->stat2[1], 0.5);
  EXPECT_EQ(station.curves[1]->label, "B");
  EXPECT_EQ(station.lengthUnit, 0.0);
}

TEST(StationText, FaultsNameTheirLine) {
  const struct {
    const char *text, *fault;
  } kCases[] = {
      {"100 50 2\n", "Line 1: a curve begins with ProjID:."},
      {"ProjID:A, MeasID: B\nmany\n", "Line 2: the number of points is wanted here."},
      {"ProjID:A, MeasID: B\n-1\n", "Line 2: the number of points is wanted here."},
      {"ProjID:A, MeasID: B\n100001\n", "Line 2: the number of points is wanted here."},
      {"ProjID:A, MeasID: B\n2\n1 2 3\n", "Line 3: rows of the curve are missing."},
      {"ProjID:A, MeasID: B\n2\n1 2 3\n1 2\n", "Line 4: velocity, frequency and wavelength are wanted."},
      {"ProjID:A, MeasID: B\n2\n1 2 nan\n1 2 3\n", "Line 3: velocity, frequency and wavelength are wanted."},
      {"ProjID:A, MeasID: B\n1\n1 2 3x\n", "Line 3: velocity, frequency and wavelength are wanted."},
  };
  for (const auto& c : kCases) {
    StationCurves station;
    EXPECT_EQ(ReadText(c.text, station), c.fault);
  }
}

TEST(StationText, ACurveWithoutPointsIsPassedOver) {
  StationCurves station;
  EXPECT_EQ(ReadText("ProjID:A, MeasID: B\n0\nProjID:C, MeasID: D\n1\n1 2 3\n", station), "");
  ASSERT_EQ(station.curves.size(), 1u);
  EXPECT_EQ(station.curves[0]->label, "C");
}

}  // namespace
}  // namespace sondera
