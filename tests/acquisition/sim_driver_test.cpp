// Tests of the simulated site: its options, its records, and faults on request.
#include "acquisition/sim_driver.h"

#include <chrono>
#include <cmath>
#include <complex>

#include "acquisition/board_choice.h"
#include "acquisition/simulated_blows.h"
#include "board_fixture.h"
#include "forward/synthetic_site.h"
#include "records/session.h"

namespace sondera {
namespace {

using namespace std::chrono_literals;
using testing::MadeTask;
using testing::MakePlannedTask;
using testing::TakenRecord;
using testing::TakeRecord;
using testing::TaskPlan;

class SimDriver : public testing::BoardTest {
 protected:
  void SetUp() override {
    BoardTest::SetUp();
    measurement_ = testing::AddMeasurement({.nChannels = 4, .spacing = 6.0});
    testing::SelectPair(measurement_, 0, 1);
    session.curProjID = measurement_.projID;
    session.curMeasID = measurement_.measID;
  }

  /// Records of a new task with these options.
  std::vector<TakenRecord> Records(const std::string& options, const TaskPlan& plan, int count) {
    EXPECT_EQ(ChooseBoard("sim:" + options), "");
    const MadeTask made = MakePlannedTask(plan);
    EXPECT_EQ(made.status, 0) << Daq().errorString(made.status);
    std::vector<TakenRecord> records;
    for (int i = 0; i < count; ++i) records.push_back(TakeRecord(made.task, plan));
    return records;
  }

  testing::TestMeasurement measurement_;
};

/// Transfer function of channel 1 against channel 0 at a frequency, over all records.
std::complex<double> Transfer(const std::vector<TakenRecord>& records, double frequency, double rate) {
  std::complex<double> cross, power;
  for (const TakenRecord& record : records) {
    std::complex<double> x, y;
    for (int i = 0; i < record.read; ++i) {
      const std::complex<double> turn = std::polar(1.0, -2.0 * M_PI * frequency * i / rate);
      x += record.At(0, i) * turn;
      y += record.At(1, i) * turn;
    }
    cross += y * std::conj(x);
    power += x * std::conj(x);
  }
  return cross / power;
}

TEST_F(SimDriver, FactsOfTheDevice) {
  ASSERT_EQ(ChooseBoard("sim:channels=3,minrate=2000"), "");
  const DaqDriver& daq = Daq();
  std::string text;
  int number = 0;
  double rate = 0.0;
  std::vector<double> limits;
  EXPECT_EQ(daq.sysDevNames(text), 0);
  EXPECT_EQ(text, "Sim1");
  EXPECT_EQ(daq.devProductCategory("Sim1", number), 0);
  EXPECT_EQ(number, 14649);
  EXPECT_EQ(daq.devAIPhysicalChans("Sim1", text), 0);
  EXPECT_EQ(text, "Sim1/ai0,Sim1/ai1,Sim1/ai2");
  EXPECT_EQ(daq.devAIMinRate("Sim1", rate), 0);
  EXPECT_EQ(rate, 2000.0);
  EXPECT_EQ(daq.devAIMaxSingleChanRate("Sim1", rate), 0);
  EXPECT_EQ(rate, 102400.0);
  EXPECT_EQ(daq.devAIVoltageRngs("Sim1", limits), 0);
  ASSERT_EQ(limits.size(), 14u);
  EXPECT_EQ(limits[0], -10.0);
  EXPECT_EQ(limits[1], 10.0);
  EXPECT_LT(daq.devAIMinRate("Dev9", rate), 0);
  EXPECT_EQ(daq.errorString(daq_status::kRefused), "There is no such device.");
}

TEST_F(SimDriver, SameSeedSameBytes) {
  const TaskPlan plan{.channels = 4, .trigger = 0};
  const auto first = Records("pace=0,seed=7", plan, 3), again = Records("pace=0,seed=7", plan, 3),
             other = Records("pace=0,seed=8", plan, 3);
  for (std::size_t i = 0; i < 3; ++i) {
    ASSERT_EQ(first[i].status, 0);
    EXPECT_EQ(first[i].samples, again[i].samples);
    EXPECT_NE(first[i].samples, other[i].samples);
  }
  EXPECT_NE(first[0].samples, first[1].samples) << "no two blows are alike";
}

TEST_F(SimDriver, HowTheSamplesAreCutIntoPiecesDoesNotMatter) {
  std::string fault;
  const BlowWave wave = MakeBlowWave(2000.0, {6.0, 12.0}, fault);
  ASSERT_EQ(fault, "");
  const BlowRecording recording{
      .inputs = {{0, 10.0}, {1, 10.0}}, .samples = 1000, .trigger = 0, .level = 0.2, .preTrigger = 100};
  BlowRecord whole({}, wave, recording, 5), pieces({}, wave, recording, 5);
  whole.Make(1000);
  for (int step = 1; pieces.Make(step); step = step * 2 + 1) {
  }
  EXPECT_TRUE(whole.Whole());
  EXPECT_EQ(whole.Samples(), pieces.Samples());
}

TEST_F(SimDriver, CrossingStandsAtThePreTriggerSampleInAThousandRecords) {
  for (const int preTrigger : {102, 0, 1000}) {
    const TaskPlan plan{.trigger = 1, .level = 0.2, .preTrigger = preTrigger};
    int late = 0;
    const auto records = Records("pace=0", plan, 1000);
    for (const TakenRecord& record : records) {
      ASSERT_EQ(record.status, 0);
      EXPECT_GE(record.At(1, preTrigger), 0.2);
      if (preTrigger > 0 && !(record.At(1, preTrigger - 1) < 0.2)) ++late;
    }
    EXPECT_EQ(late, 0);
  }
}

/// The phase velocity between two receivers is that of the ground.
TEST_F(SimDriver, PhaseVelocityIsThatOfTheGround) {
  const TaskPlan plan{.rate = 1024.0, .samples = 2048, .trigger = 0};
  const auto records = Records("pace=0,noise=0.0005,hum=0", plan, 20);
  const SiteSimulator site{SyntheticSite()};
  for (const double f : {12.0, 20.0, 35.0, 60.0}) {
    const double velocity = site.PhaseVelocity(f);
    const double expected = -2.0 * M_PI * f * 6.0 / velocity;
    const double found = std::arg(Transfer(records, f, 1024.0));
    EXPECT_NEAR(std::remainder(found - expected, 2.0 * M_PI), 0.0, 0.005)
        << f << " Hz, " << velocity << " m/s";
  }
}

TEST_F(SimDriver, BothReceiversAtOnePlaceGiveATransferFunctionOfOne) {
  measurement_.setup->recLoc[1] = measurement_.setup->recLoc[0];
  const TaskPlan plan{.rate = 1024.0, .samples = 2048, .trigger = 0};
  const auto records = Records("pace=0,noise=0.0005,hum=0", plan, 20);
  for (const double f : {10.0, 30.0, 80.0}) {
    const std::complex<double> h = Transfer(records, f, 1024.0);
    EXPECT_NEAR(std::abs(h), 1.0, 0.005) << f;
    EXPECT_NEAR(std::arg(h) * 180.0 / M_PI, 0.0, 0.2) << f;
  }
}

TEST_F(SimDriver, DistancesFollowTheUnitOfLength) {
  const TaskPlan plan{.trigger = 0};
  const auto metres = Records("pace=0", plan, 1);
  for (double& x : measurement_.setup->recLoc) x *= 100.0;
  measurement_.setup->srcLoc *= 100.0;
  measurement_.setup->lengthUnit = 0.01;
  EXPECT_EQ(Records("pace=0", plan, 1)[0].samples, metres[0].samples);
}

TEST_F(SimDriver, MovedReceiversChangeTheNextRecordOfTheTask) {
  ASSERT_EQ(ChooseBoard("sim:pace=0,noise=0,hum=0,blow=0"), "");
  const TaskPlan plan{.channels = 1, .trigger = 0};
  const MadeTask made = MakePlannedTask(plan);
  const TakenRecord near = TakeRecord(made.task, plan);
  measurement_.setup->recLoc[0] += 10.0;
  EXPECT_NE(TakeRecord(made.task, plan).samples, near.samples);
}

TEST_F(SimDriver, ReceiversBeyondTheSiteAreRefusedAtTheStart) {
  ASSERT_EQ(ChooseBoard("sim:pace=0"), "");
  measurement_.setup->recLoc[1] = 2000.0;
  const MadeTask made = MakePlannedTask({});
  ASSERT_EQ(made.status, 0);
  EXPECT_EQ(Daq().startTask(made.task), daq_status::kRefused);
  EXPECT_EQ(Daq().errorString(daq_status::kRefused),
            "The simulated site has no wave for receivers farther than 1000 m from the source.");
}

TEST_F(SimDriver, SamplesAreStepsOf24BitsWithinTheRange) {
  const TaskPlan plan{.channels = 4, .range = 0.1, .trigger = 0, .level = 0.05};
  for (const TakenRecord& record : Records("pace=0", plan, 3)) {
    const double step = 0.1 / 8388608.0;
    for (const double volts : record.samples) {
      EXPECT_NEAR(volts / step, std::nearbyint(volts / step), 1e-8);
      EXPECT_LE(std::fabs(volts), 0.1);
    }
    EXPECT_EQ(record.overload & 1, 1u) << "a blow of 1 V does not fit";
  }
}

TEST_F(SimDriver, TheRecordsAskedForGoWrong) {
  const TaskPlan plan{.trigger = 0};
  const auto records = Records("pace=0,overload=2,fail=4", plan, 5);
  EXPECT_EQ(records[0].overload, 0u);
  EXPECT_EQ(records[1].overload & 1, 1u);
  EXPECT_EQ(records[2].overload, 0u);
  EXPECT_EQ(records[3].status, daq_status::kRefused);
  EXPECT_EQ(records[3].read, 0);
  EXPECT_EQ(records[4].status, 0);
}

TEST_F(SimDriver, AMissedBlowIsNotYetARecordAndTheNextOneIs) {
  ASSERT_EQ(ChooseBoard("sim:pace=0,miss=1"), "");
  const TaskPlan plan{.trigger = 0};
  const MadeTask made = MakePlannedTask(plan);
  ASSERT_EQ(Daq().startTask(made.task), 0);
  bool ready = true;
  EXPECT_EQ(Daq().waitRecord(made.task, 0.0, ready), 0);
  EXPECT_FALSE(ready);
  std::vector<double> samples(2048);
  int read = 0;
  EXPECT_EQ(Daq().waitRecord(made.task, 5.0, ready), 0);
  EXPECT_TRUE(ready);
  EXPECT_EQ(Daq().readRecord(made.task, 0.0, samples.data(), 2048, read), 0);
  EXPECT_EQ(read, 1024);
}

TEST_F(SimDriver, AFreeRecordOfAMissedBlowHoldsNoiseOnly) {
  const auto records = Records("pace=0,miss=2", {}, 3);
  const auto peak = [](const TakenRecord& record) {
    double most = 0.0;
    for (const double volts : record.samples) most = std::max(most, std::fabs(volts));
    return most;
  };
  EXPECT_GT(peak(records[0]), 0.3);
  EXPECT_LT(peak(records[1]), 0.1);
  EXPECT_GT(peak(records[2]), 0.3);
}

TEST_F(SimDriver, ALevelThatNoBlowReachesNeverTriggers) {
  ASSERT_EQ(ChooseBoard("sim:pace=0"), "");
  const TaskPlan plan{.trigger = 0, .level = 9.0};
  const MadeTask made = MakePlannedTask(plan);
  ASSERT_EQ(Daq().startTask(made.task), 0);
  for (int i = 0; i < 20; ++i) {
    bool ready = true;
    EXPECT_EQ(Daq().waitRecord(made.task, 0.0, ready), 0);
    EXPECT_FALSE(ready);
  }
  std::vector<double> samples(2048);
  int read = 1;
  EXPECT_EQ(Daq().readRecord(made.task, 0.01, samples.data(), 2048, read), daq_status::kNotYet);
  EXPECT_EQ(read, 0);
}

TEST_F(SimDriver, PaceIsTheRealTimeOfTheRecord) {
  ASSERT_EQ(ChooseBoard("sim:pace=1"), "");
  const TaskPlan plan{.rate = 2000.0, .samples = 400};
  const MadeTask made = MakePlannedTask(plan);
  const auto start = std::chrono::steady_clock::now();
  ASSERT_EQ(Daq().startTask(made.task), 0);
  bool ready = true;
  EXPECT_EQ(Daq().waitRecord(made.task, 0.05, ready), 0);
  EXPECT_FALSE(ready);
  EXPECT_EQ(Daq().waitRecord(made.task, 5.0, ready), 0);
  EXPECT_TRUE(ready);
  EXPECT_GE(std::chrono::steady_clock::now() - start, 200ms) << "400 samples at 2000 Hz";
}

TEST_F(SimDriver, RatesBetweenItsLimitsAreGrantedAsTheyAre) {
  for (const auto& [asked, granted] : {std::pair(1500.0, 2000.0), {2001.7, 2001.7}, {1e6, 102400.0}}) {
    ASSERT_EQ(ChooseBoard("sim:minrate=2000"), "");
    EXPECT_EQ(MakePlannedTask({.rate = asked}).rate, granted);
  }
}

TEST_F(SimDriver, RequestsThatNoBoardCanDoAreRefused) {
  struct Case {
    TaskPlan plan;
    const char* text;
  };
  const Case cases[] = {
      {{.channels = 5}, "There is no input \"Sim1/ai4\"."},
      {{.dev = "Sim2"}, "There is no input \"Sim2/ai0\"."},
      {{.range = 99.0}, "The board has no input range of 99 V."},
      {{.range = 0.0}, "The board has no input range of 0 V."},
      {{.rate = 0.0}, "The sampling rate is not above 0."},
      {{.rate = NAN}, "The sampling rate is not above 0."},
      {{.channels = 4, .samples = (1 << 25) + 1},
       "A record of 33554433 samples on 4 channels is not possible."},
      {{.samples = -5}, "A record of -5 samples on 2 channels is not possible."},
  };
  for (const Case& c : cases) {
    ASSERT_EQ(ChooseBoard("sim"), "");
    const MadeTask made = MakePlannedTask(c.plan);
    EXPECT_EQ(made.status, daq_status::kRefused);
    EXPECT_EQ(Daq().errorString(made.status), c.text);
    EXPECT_EQ(Daq().clearTask(made.task), 0);
    EXPECT_EQ(MakePlannedTask({}).status, 0) << "the board is free again";
  }
}

TEST_F(SimDriver, ATriggerOutsideTheRecordOrTheTaskIsRefusedAtTheStart) {
  for (const TaskPlan& plan : {TaskPlan{.trigger = 0, .preTrigger = -1},
                               TaskPlan{.trigger = 0, .preTrigger = 1024}, TaskPlan{.trigger = 3}}) {
    ASSERT_EQ(ChooseBoard("sim"), "");
    const MadeTask made = MakePlannedTask(plan);
    ASSERT_EQ(made.status, 0);
    EXPECT_EQ(Daq().startTask(made.task), daq_status::kRefused);
  }
}

TEST_F(SimDriver, ASecondTaskAndAnUnknownOneAreRefused) {
  ASSERT_EQ(ChooseBoard("sim"), "");
  int first = 0, second = 0;
  bool ready = false;
  EXPECT_EQ(Daq().createTask("DAQTask", first), 0);
  EXPECT_EQ(Daq().createTask("DAQTask", second), daq_status::kRefused);
  EXPECT_EQ(Daq().startTask(first + 1), daq_status::kRefused);
  EXPECT_EQ(Daq().startTask(0), daq_status::kRefused);
  EXPECT_EQ(Daq().waitRecord(first, 0.0, ready), daq_status::kRefused) << "not started";
}

TEST_F(SimDriver, InstallingAgainForgetsTaskAndOptions) {
  ASSERT_EQ(ChooseBoard("sim:channels=2"), "");
  int task = 0;
  ASSERT_EQ(Daq().createTask("DAQTask", task), 0);
  ASSERT_EQ(ChooseBoard("sim"), "");
  std::string channels;
  EXPECT_EQ(Daq().devAIPhysicalChans("Sim1", channels), 0);
  EXPECT_EQ(channels, "Sim1/ai0,Sim1/ai1,Sim1/ai2,Sim1/ai3");
  EXPECT_EQ(Daq().createTask("DAQTask", task), 0);
}

}  // namespace
}  // namespace sondera
