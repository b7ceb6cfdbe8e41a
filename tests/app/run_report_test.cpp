// Tests of what an unattended run says at its end: a computed record of a layered site, for which nothing is
// doubtful, noise for which much is, and the statuses.
#include "app/run_report.h"

#include <complex>
#include <functional>
#include <random>
#include <set>
#include <sstream>

#include "app/app_fixture.h"
#include "app/commands.h"
#include "forward/plane_wave.h"
#include "inversion/run_history.h"
#include "project/measdb.h"
#include "project/selection.h"
#include "project/session.h"
#include "runtime/events.h"
#include "runtime/findings.h"
#include "runtime/written_files.h"
#include "signal/spectra.h"
#include "support/session_fixture.h"

namespace sondera {
namespace {

using testing::AddMeasurement;
using testing::MeasurementPlan;
using testing::TestMeasurement;

constexpr double kPi = 3.14159265358979323846;
const std::string kRoad =
    "masking site 0 600 400 100 60\ncalcVel\npreInversion 1 0 2 0.5 4 2 3 4 100\ninversion\n";

/// Phase velocity of plane waves over frequency, of a ground of four layers; straight lines between
/// wavelengths that are 2 % apart.
class Ground {
 public:
  Ground() {
    const double h[] = {0, 2, 3, 4, 100}, Vs[] = {0, 150, 200, 260, 330}, rho[] = {0, 1.8, 1.8, 1.8, 1.8},
                 nu[] = {0, 0.3333, 0.3333, 0.3333, 0.3333};
    const int n = 4, one = 1;
    for (double L = 300.0; L > 0.3; L /= 1.02) {
      const double wave[2] = {0.0, L};
      double c[2] = {0.0, 0.0};
      FS_SASW2D(&n, h, Vs, nullptr, nullptr, rho, nullptr, nu, &one, wave, c);
      points_.emplace_back(c[1] / L, c[1]);
    }
  }
  double Velocity(double f) const {
    auto above = std::lower_bound(points_.begin(), points_.end(), std::make_pair(f, 0.0));
    if (above == points_.begin()) return points_.front().second;
    if (above == points_.end()) return points_.back().second;
    const auto below = above - 1;
    return below->second +
           (above->second - below->second) * (f - below->first) / (above->first - below->first);
  }

 private:
  std::vector<std::pair<double, double>> points_;
};

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

  /// A measurement "site" with receivers at the given places and the source at 0, on display.
  TestMeasurement AddSite(const std::vector<double>& places, const char* id = "site") {
    MeasurementPlan plan;
    plan.measID = id;
    plan.nChannels = static_cast<int>(places.size());
    plan.nLines = kLines;
    plan.deltaT = kStep;
    const TestMeasurement m = AddMeasurement(plan);
    m.setup->recLoc = places;
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

  /// A blow on the ground, with every frequency of the band equally strong: the wave arrives with the phase
  /// 2 pi f x / c and decays by 1 / sqrt(x).
  static std::vector<double> Blow(const Ground& ground, const std::vector<double>& places) {
    std::vector<double> all;
    for (const double place : places) {
      const double x = std::fabs(place);
      for (int s = 0; s < kSamples; ++s) {
        double sum = 0.0;
        for (int i = 1; i < kLines; ++i) {
          const double f = i / (kSamples * kStep);
          sum += std::cos(2.0 * kPi * f * (s * kStep - x / ground.Velocity(f)));
        }
        all.push_back(sum / std::sqrt(x));
      }
    }
    return all;
  }
  /// Averages of blows with noise of 1 % of the largest value.
  void MeasureBlows(int blows, const std::vector<double>& places) {
    const std::vector<double> quiet = Blow(Ground(), places);
    std::mt19937 random(11);
    std::normal_distribution<double> noise(0.0, 0.01 * *std::max_element(quiet.begin(), quiet.end()));
    Measure(blows, [&](int) {
      std::vector<double> blow = quiet;
      for (double& v : blow) v += noise(random);
      return blow;
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

}  // namespace
}  // namespace sondera
