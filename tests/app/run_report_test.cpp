// Tests of the report of an unattended run: a computed record of a layered site without doubts, noise with
// many doubts, and the statuses.
#include "app/run_report.h"

#include <functional>
#include <random>
#include <set>
#include <sstream>

#include "app/commands.h"
#include "forward/synthetic_site.h"
#include "panels/measpanel_preview.h"
#include "panels/trace_selection.h"
#include "records/measdb.h"
#include "records/session.h"
#include "run/run_history.h"
#include "runtime/events.h"
#include "runtime/findings.h"
#include "runtime/written_files.h"
#include "signal/spectra.h"
#include "support/app_fixture.h"
#include "support/session_fixture.h"

namespace sondera {
namespace {

using testing::AddMeasurement;
using testing::MeasurementPlan;
using testing::TestMeasurement;

const std::string kRoad =
    "masking site 0 600 400 100 60\ncalcVel\npreInversion 1 0 2 0.5 4 2 3 4 100\ninversion\n";

class RunReport : public testing::AppTest {
 protected:
  static constexpr int kLines = 128, kSamples = 2 * kLines;
  static constexpr double kStep = 0.004;  // s

  void SetUp() override {
    AppTest::SetUp();
    session.projectFileName = folder.File("site.da");
  }
  void TearDown() override {
    SetRunReportOptions({});
    AppTest::TearDown();
  }

  /// A measurement with receivers and source at the given places, on display.
  TestMeasurement AddSite(const std::vector<double>& places, const char* id = "site", double source = 0.0) {
    MeasurementPlan plan;
    plan.measID = id;
    plan.nChannels = static_cast<int>(places.size());
    plan.nLines = kLines;
    plan.deltaT = kStep;
    const TestMeasurement m = AddMeasurement(plan);
    m.setup->recLoc = places;
    m.setup->srcLoc = source;
    FillMeasIDListBox(Panel::SASW, m.projID);
    FillMeasIDListBox(Panel::MEASPANEL, m.projID);
    testing::SelectPair(m, 0, 1);
    return m;
  }

  /// Averages of `blows` records, each made by `record`: kSamples values a channel, channel after channel.
  void Measure(int blows, const std::function<std::vector<double>(int)>& record) {
    for (int b = 0; b < blows; ++b) {
      session.measBuffer = record(b);
      session.avgCount = b;
      ASSERT_EQ(CalcSpectralFns(), 0);
    }
  }

  /// Averages of blows at a synthetic site with noise of 1 %, measured from 0 on.
  void MeasureBlows(int blows, const std::vector<double>& places, double source = 0.0) {
    SiteRecording recording;
    recording.source = source;
    recording.receivers = places;
    recording.deltaT = kStep;
    recording.nSamples = kSamples;
    const SiteSimulator site{SyntheticSite{}};
    Measure(blows, [&](int b) {
      std::vector<double> all;
      for (const std::vector<double>& trace : site.Record(recording, b))
        all.insert(all.end(), trace.begin(), trace.end());
      return all;
    });
  }

  /// Runs a script; returns its status (-1: stopped early) and keeps what it printed.
  int Run(const std::string& text, const RunReportOptions& options = {}) {
    Write("job.txt", text);
    SetRunReportOptions(options);
    ResetEvents();
    ::testing::internal::CaptureStderr();
    const int result = ProcessCommands(0, "job.txt");
    printed = ::testing::internal::GetCapturedStderr();
    return result < 0 ? -1 : RunUserInterface();
  }
  std::vector<std::string> LinesWith(const std::string& beginning) const {
    std::vector<std::string> found;
    std::istringstream in(printed);
    for (std::string line; std::getline(in, line);)
      if (line.starts_with(beginning)) found.push_back(line);
    return found;
  }

  std::string printed;
};

TEST_F(RunReport, AComputedRecordOfALayeredSiteIsNotDoubted) {
  AddSite({8.0, 16.0});
  MeasureBlows(5, {8.0, 16.0});
  EXPECT_EQ(Run(kRoad, {.strict = true}), kAllDone) << printed;
  EXPECT_EQ(LinesWith("doubt:"), std::vector<std::string>{}) << printed;
  ASSERT_EQ(LinesWith("pair site 1 2: ").size(), 1u) << printed;
  EXPECT_EQ(LinesWith("inversion: iteration ").size(), 6u);
  EXPECT_EQ(LinesWith("profile:").size(), 5u) << "a head line and four layers";
  const std::vector<std::string> files = LinesWith("file:");
  for (const char* name : {"site.da", "site_f.results", "ProjID.fdp", "ProjID.fmp"})
    EXPECT_NE(std::find(files.begin(), files.end(), std::string("file: ") + name), files.end())
        << name << printed;
}

TEST_F(RunReport, EveryLineBeginsInOneOfTheDocumentedWays) {
  AddSite({8.0, 16.0});
  MeasureBlows(1, {8.0, 16.0});
  EXPECT_EQ(Run(kRoad), kAllDone);
  std::istringstream in(printed);
  std::set<std::string> seen;
  for (std::string line; std::getline(in, line);) {
    const std::string beginning = line.substr(0, line.find(' '));
    EXPECT_TRUE(beginning == "pair" || beginning == "inversion:" || beginning == "profile:" ||
                beginning == "file:" || beginning == "note:" || beginning == "doubt:")
        << line;
    seen.insert(beginning);
  }
  EXPECT_TRUE(seen.count("pair") && seen.count("inversion:") && seen.count("profile:") &&
              seen.count("file:"));
  EXPECT_EQ(LinesWith("note: site[1:2]: the coherence is unknown").size(), 1u) << "one blow" << printed;
}

TEST_F(RunReport, NoiseDoesNotBecomeAProfileWithoutADoubt) {
  for (unsigned seed = 1; seed <= 2; ++seed) {
    for (const char* window : {"400 180 90 40", "1000 900 20 15"}) {
      StartSession();
      session.projectFileName = folder.File("noise.da");
      std::mt19937 random(seed);
      std::normal_distribution<double> noise;
      std::ostringstream file;
      for (int i = 0; i <= 128; ++i) file << 0.5 * i << ' ' << noise(random) << ' ' << noise(random) << '\n';
      Write("noise.hyx", file.str());
      const int status = Run(std::string("import noise site 20 40\nmasking site 0 ") + window +
                                 "\ncalcVel\npreInversion 1 0 2 0.5 7 1 1 2 2 3 4 100\ninversion\n",
                             {.strict = true});
      EXPECT_TRUE(status == kDoneWithDoubts || status == kNotAllDone) << status << printed;
      EXPECT_FALSE(LinesWith("doubt:").empty()) << seed << ' ' << window << '\n' << printed;
    }
  }
}

TEST_F(RunReport, DoubtsChangeTheStatusOnlyWhenTheyCount) {
  AddDoubt("the ground is a lake");
  EXPECT_EQ(Run("* nothing\n"), kAllDone);
  EXPECT_EQ(printed, "doubt: the ground is a lake\n");
  EXPECT_EQ(ReportFindings(true, true), kDoneWithDoubts) << "a caller for whom they always count";
  EXPECT_EQ(Run("* nothing\n", {.strict = true}), kDoneWithDoubts);
  EXPECT_EQ(Run("import none none 1 2\n", {.strict = true}), kNotAllDone) << "what was not done comes first";
  ClearFindings();
  AddNote("the ground is wet");
  EXPECT_EQ(Run("* nothing\n", {.strict = true}), kAllDone) << "a note does not count";
  EXPECT_EQ(printed, "note: the ground is wet\n");
}

TEST_F(RunReport, QuietLeavesTheDoubtsAndWhatWasNotDone) {
  AddSite({8.0, 16.0});
  MeasureBlows(1, {8.0, 16.0});
  AddNote("the ground is wet");
  AddDoubt("the ground is a lake");
  EXPECT_EQ(Run("masking site 0 600 400 100 60\nimport none none 1 2\n", {.quiet = true}), kNotAllDone);
  EXPECT_EQ(printed, "doubt: the ground is a lake\nsondera: not everything was done: line 2 import.\n");
}

TEST_F(RunReport, AScriptThatStopsEarlyReportsToo) {
  AddDoubt("the ground is a lake");
  EXPECT_EQ(Run("export out ID 1 2 -1\n"), -1);
  EXPECT_EQ(LinesWith("doubt:").size(), 1u);
}

TEST_F(RunReport, ASingleExportJudgesNothing) {
  AddSite({8.0, 16.0});
  MeasureBlows(1, {8.0, 16.0});
  ASSERT_EQ(Run("masking site 0 600 400 100 60\n"), kAllDone);
  ASSERT_FALSE(LinesWith("pair").empty());
  StartSession();
  AddSite({8.0, 16.0});
  MeasureBlows(1, {8.0, 16.0});
  AddDoubt("the file is damaged");
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(ProcessCommands(1, "out site 1 2 3"), 0);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "doubt: the file is damaged\n");
}

TEST_F(RunReport, ALineShotInReverseGivesTheSameProfileToTheDigit) {
  const auto results = [&](double sign) {
    StartSession();
    session.projectFileName = folder.File("site.da");
    const std::vector<double> places = {sign * 8.0, sign * 16.0};
    AddSite(places);
    MeasureBlows(3, places);
    EXPECT_EQ(Run(kRoad), kAllDone) << printed;
    std::string text;
    for (const char* name : {"site_f.results", "ProjID.fdp", "ProjID.fmp"})
      text += test::ReadWhole(folder.File(name));
    return text;
  };
  const std::string forward = results(1.0);
  EXPECT_GT(forward.size(), 1000u);
  EXPECT_EQ(forward, results(-1.0));
}

TEST_F(RunReport, AForwardAndAReverseShotAreInvertedTogether) {
  const auto results = [&](const std::vector<double>& places, double source) {
    StartSession();
    session.projectFileName = folder.File("site.da");
    AddSite({8.0, 16.0}, "forward");
    MeasureBlows(3, {8.0, 16.0});
    AddSite(places, "second", source);
    MeasureBlows(3, places, source);
    EXPECT_EQ(Run("masking forward 0 600 400 100 60\nmasking second\ncalcVel\n"
                  "preInversion 1 0 2 0.5 4 2 3 4 100\ninversion\n"),
              kAllDone)
        << printed;
    EXPECT_EQ(LinesWith("pair ").size(), 2u);
    return test::ReadWhole(folder.File("site_f.results")) + test::ReadWhole(folder.File("ProjID.fdp"));
  };
  const std::string twice = results({8.0, 16.0}, 0.0);
  EXPECT_GT(twice.size(), 1000u);
  EXPECT_EQ(twice, results({16.0, 8.0}, 24.0));
}

TEST_F(RunReport, AnIdFromAFileMakesNoLineOfItsOwn) {
  const TestMeasurement m = AddSite({8.0, 16.0});
  MeasureBlows(1, {8.0, 16.0});
  ASSERT_EQ(Run("masking site 0 600 400 100 60\nexport out site 1 2 -1\n"), -1) << "the session stays";
  MeasDB.idList.at(MeasDB.idList.findKey(m.key))->MeasID = "a\ndoubt: b\x1b[2J";
  ::testing::internal::CaptureStderr();
  ReportRun(true);
  printed = ::testing::internal::GetCapturedStderr();
  EXPECT_EQ(LinesWith("doubt:"), std::vector<std::string>{});
  EXPECT_EQ(LinesWith("pair a\\x0Adoubt: b\\x1B[2J 1 2: ").size(), 1u) << printed;
}

TEST_F(RunReport, ANewSessionBeginsWithNothingToReport) {
  AddSite({8.0, 16.0});
  MeasureBlows(1, {8.0, 16.0});
  ASSERT_EQ(Run(kRoad), kAllDone);
  EXPECT_FALSE(InversionHistories().empty());
  EXPECT_FALSE(WrittenFiles().empty());
  EXPECT_FALSE(Findings().empty());
  StartSession();
  EXPECT_TRUE(InversionHistories().empty());
  EXPECT_TRUE(WrittenFiles().empty());
  EXPECT_TRUE(Findings().empty());
}

}  // namespace
}  // namespace sondera
