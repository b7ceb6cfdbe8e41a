// Tests of the words that make receiver pairs of whole shots: read seg2, read columns.
#include <gmock/gmock.h>

#include <cmath>

#include "app/script_fixture.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/text_format.h"
#include "support/field_data.h"
#include "support/seg2_writer.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

double Wave(double t) {
  return t <= 0.0 ? 0.0 : t * t * std::exp(-60.0 * t) * std::sin(88.0 * t);
}

class ScriptShot : public ScriptTest {
 protected:
  test::Seg2Line Line(std::vector<double> receivers, double source = 0.0) {
    test::Seg2Line line;
    line.source = source;
    line.receivers = std::move(receivers);
    line.samples = 4000;  // close lines, so that no cycle is lost
    line.value = [line](std::size_t r, double t) {
      return Wave(t - std::fabs(line.receivers[r] - line.source) / 200.0);
    };
    return line;
  }
  void WriteShot(const std::string& name, const test::Seg2Line& line) {
    test::WriteWhole(folder.File(name), test::Seg2Bytes(test::Seg2OfLine(line)));
  }
  void WriteColumns(const std::string& name, std::vector<double> receivers, bool time) {
    std::string text = time ? "time [s];a;b;c\n" : "";
    for (int i = 0; i < 1000; ++i) {
      if (time) text += FormatText("%.4f;", -0.01 + 0.0005 * i);
      for (std::size_t r = 0; r < receivers.size(); ++r)
        text += FormatText("%s%.9g", r == 0 ? "" : ";", Wave(-0.01 + 0.0005 * i - receivers[r] / 200.0));
      text += "\n";
    }
    std::replace(text.begin(), text.end(), '.', ',');
    test::WriteWhole(folder.File(name), text);
  }
  std::vector<std::string> Measurements() {
    std::vector<std::string> ids;
    for (const IDInfo& id : MeasDB.idList) ids.push_back(id.MeasID);
    return ids;
  }
  const HWSetup& Hardware(const std::string& id) {
    static const HWSetup none;
    MeasRecords records;
    GetInfoFromKey(GetKeyFromID(session.curProjID, id), records);
    EXPECT_GT(records.hwPos, 0) << id;
    return records.hwPos > 0 ? *records.hwSetup : none;
  }
};

TEST_F(ScriptShot, ShotsBecomePairsWithCurves) {
  for (const char* name : {"1.sg2", "2.sg2"}) WriteShot(name, Line({10, 14, 20, 28, 40}));
  ASSERT_EQ(Run("read seg2 id=site files=1.sg2,2.sg2\npair site_20_40 1 2\nphase original\ndisperse\n"), 0)
      << err << report;
  EXPECT_THAT(Measurements(), ::testing::Contains("site_10_20"));
  EXPECT_THAT(Measurements(), ::testing::Contains("site_14_28"));
  EXPECT_EQ(Hardware("site_20_40").nAverage, 2);
  EXPECT_THAT(report, HasSubstr("site: pairs are the measurements site_10_20 site_14_28 site_20_40"));
  const PMeasInfo* pair = FindPair(GetKeyFromID(session.curProjID, "site_20_40"), 0, 1);
  ASSERT_NE(pair, nullptr);
  ASSERT_GT(pair->nDispPoints, 10);
  for (std::size_t i = 2; i < 10; ++i) EXPECT_NEAR(pair->dispVel[i], 200.0, 1.0);
}

TEST_F(ScriptShot, SpreadIsOneMeasurementOfChosenChannels) {
  WriteShot("1", Line({10, 14, 20, 28, 40}));
  ASSERT_EQ(Run("read seg2 id=site files=1 channels=5,1,3 pairs=no"), 0) << err;
  EXPECT_EQ(Hardware("site").nChannels, 3);
  ASSERT_EQ(Run("read seg2 id=near files=1 near=12 pairs=no"), 0) << err;
  EXPECT_EQ(Hardware("near").nChannels, 4);
}

TEST_F(ScriptShot, MissingLocationsEndTheScriptWithTheirKey) {
  test::Seg2Line line = Line({10, 20});
  line.number = [](double) { return "?"; };
  WriteShot("1", line);
  EXPECT_EQ(Run("read seg2 id=site files=1"), 1);
  EXPECT_THAT(err,
              HasSubstr("RECEIVER_LOCATION is missing; give the places of the receivers: source= and at=\n"));
  EXPECT_EQ(GetKeyFromID(session.curProjID, "site_10_20"), -1);
  EXPECT_EQ(Run("read seg2 id=site files=1 source=0 at=10,20"), 0) << err;
  EXPECT_EQ(Hardware("site_10_20").nChannels, 2);
}

TEST_F(ScriptShot, MissingUnitHasToBeGiven) {
  test::Seg2Line line = Line({10, 20});
  line.units = "";
  WriteShot("1", line);
  EXPECT_EQ(Run("read seg2 id=site files=1"), 1);
  EXPECT_THAT(err, HasSubstr("UNITS is missing; say in which unit of length the locations are: unit=\n"));
  EXPECT_EQ(Run("read seg2 id=site files=1 unit=ft"), 0) << err;
  EXPECT_EQ(session.lengthUnit, 0.3048);
}

TEST_F(ScriptShot, SourceInsideTheLineAsksForASide) {
  WriteShot("1", Line({0, 10, 30, 40}, 20));
  EXPECT_EQ(Run("read seg2 id=site files=1"), 1);
  EXPECT_THAT(err, HasSubstr("Invalid source or receiver location !"));
  EXPECT_THAT(err, HasSubstr("choose a side: side="));
  EXPECT_EQ(Run("read seg2 id=l files=1 side=left\nread seg2 id=r files=1 side=right"), 0) << err;
  EXPECT_EQ(Hardware("l_10_20").nChannels, 2);
  EXPECT_EQ(Hardware("r_10_20").nChannels, 2);
}

TEST_F(ScriptShot, MeasurementsAreReplacedOnlyWithOverwrite) {
  WriteShot("1", Line({10, 20}));
  EXPECT_EQ(Run("read seg2 id=site files=1"), 0) << err;
  EXPECT_EQ(Run("read seg2 id=site files=1"), 1);
  EXPECT_THAT(err, HasSubstr("the measurement \"site_10_20\" exists; overwrite=yes replaces it"));
  EXPECT_EQ(Run("read seg2 id=site files=1 overwrite=yes"), 0) << err;
}

TEST_F(ScriptShot, WhatCannotBeIsToldBeforeAnythingRuns) {
  EXPECT_EQ(Check("read seg2 id=a files=1 channels=0,2"), 1);
  EXPECT_THAT(err, HasSubstr("channels= takes whole numbers from 1 on"));
  EXPECT_EQ(Check("read seg2 id=a files=1 at=1,2"), 1);
  EXPECT_THAT(err, HasSubstr("at= takes the place of the source too"));
  EXPECT_EQ(Check("read columns id=a files=1 source=0 at=1,2 dt=0"), 1);
  EXPECT_THAT(err, HasSubstr("dt= has to be above 0"));
  EXPECT_EQ(Check("read columns id=a files=1"), 1);
  EXPECT_THAT(err, HasSubstr("source= is missing"));
}

TEST_F(ScriptShot, NoSeg2FileIsOneSentence) {
  test::WriteWhole(folder.File("1.dat"), "Channels: 24\n");
  EXPECT_EQ(Run("read seg2 id=site files=1.dat"), 1);
  EXPECT_THAT(err, HasSubstr("1.dat: not a SEG-2 file\n"));
  EXPECT_EQ(Run("read seg2 id=site files=none.dat"), 1);
  EXPECT_THAT(err, HasSubstr("none.dat: "));
}

TEST_F(ScriptShot, ColumnsOfTextMakeTheSamePairs) {
  WriteColumns("time.csv", {10, 20, 40}, true);
  WriteColumns("bare.csv", {10, 20, 40}, false);
  ASSERT_EQ(Run("read columns id=t files=time.csv source=0 at=10,20,40"), 0) << err;
  ASSERT_EQ(Run("read columns id=b files=bare.csv source=0 at=10,20,40 dt=0.0005"), 0) << err;
  for (const char* id : {"t_10_20", "t_20_40", "b_20_40"}) EXPECT_EQ(Hardware(id).nLines, 512) << id;
  EXPECT_NEAR(Hardware("t_10_20").deltaT, 0.0005, 1e-12);
  EXPECT_GT(Hardware("t_10_20").triggerDelay, 0.0);
  EXPECT_EQ(Hardware("b_10_20").triggerDelay, 0.0);
  EXPECT_EQ(Run("read columns id=c files=bare.csv source=0 at=10,20,40"), 1);
  EXPECT_THAT(err,
              HasSubstr("the first column is not a time with even steps; give the sampling interval: dt=\n"));
  EXPECT_EQ(Run("read columns id=c files=time.csv source=0 at=10,20"), 1);
  EXPECT_THAT(err, HasSubstr("2 places are given for 3 channels"));
}

TEST_F(ScriptShot, PreviewTellsStructureTextsAndPlanAndImportsNothing) {
  WriteShot("a.dat", Line({10, 14, 20, 28, 40, 56}));
  ASSERT_EQ(Run("read seg2 id=A files=a.dat preview=yes"), 0) << err;
  const std::string& text = out;
  EXPECT_THAT(text, ::testing::StartsWith("a.dat: 6 channels, source at 0"));
  for (const char* part : {"SEG-2, revision 1, little endian", "UNITS METERS", "   1 to 3     10 to 20 ",
                           "one sample each 0.0005 s (2000 Hz), 4000 samples"})
    EXPECT_THAT(text, HasSubstr(part));
  EXPECT_THAT(text, ::testing::Not(HasSubstr("to be answered")));
  EXPECT_THAT(Measurements(), ElementsAre("measID")) << "as in a new session";
}

TEST_F(ScriptShot, PreviewAsksForWhatIsMissingAndNeverGuesses) {
  test::Seg2Line line = Line({10, 14, 20});
  line.receivers = {0, 0, 0};
  WriteShot("none.dat", line);
  WriteColumns("c.txt", {10.0, 14.0, 20.0}, false);
  ASSERT_EQ(Run("read seg2 id=A files=none.dat preview=yes\n"
                "read columns id=B files=c.txt source=0 at=10,14 dt=0.0005 preview=yes"),
            0)
      << err;
  const std::string& text = out;
  EXPECT_THAT(text, HasSubstr("to be answered: "));
  EXPECT_THAT(text, HasSubstr("RECEIVER_LOCATION"));
  EXPECT_THAT(text, ::testing::Not(HasSubstr("near to far")));
  EXPECT_THAT(Measurements(), ElementsAre("measID")) << "as in a new session";
}

TEST_F(ScriptShot, PreviewOfAFileThatIsNoneEndsWithItsSentence) {
  test::WriteWhole(folder.File("a.dat"), "free form of another maker");
  EXPECT_EQ(Run("read seg2 id=A files=a.dat preview=yes"), 1);
  EXPECT_THAT(out, HasSubstr("not a SEG-2 file"));
}

TEST_F(ScriptShot, PublishedShotsGiveTheSiteCurve) {
  SKIP_WITHOUT_FIELD_DATA("seg2");
  ASSERT_NE(Run("read seg2 id=w files=" + test::FieldFile("seg2/wghs_11.dat") + "," +
                test::FieldFile("seg2/wghs_12.dat") +
                "\npair w_20_40 1 2\nphase original\nmask 0 16.113 jumps=2\ndisperse\n"),
            1)
      << err;
  const PMeasInfo* pair = FindPair(GetKeyFromID(session.curProjID, "w_20_40"), 0, 1);
  ASSERT_NE(pair, nullptr);
  int inBand = 0;
  for (int i = 0; i < pair->nDispPoints; ++i) {
    const std::size_t k = static_cast<std::size_t>(i);
    if (pair->dispFreq[k] < 16.6 || pair->dispFreq[k] > 50.0) continue;  // where the wave is clear
    EXPECT_GT(pair->dispVel[k], 150.0);
    EXPECT_LT(pair->dispVel[k], 260.0);
    ++inBand;
  }
  EXPECT_GT(inBand, 20);
}

}  // namespace
}  // namespace sondera::testing
