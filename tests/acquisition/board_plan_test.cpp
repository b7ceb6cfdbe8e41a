// Tests of the requests for a measurement's plan, with a board that logs them and an independent computation
// of every number.
#include "acquisition/board_plan.h"

#include <gmock/gmock.h>

#include <cmath>

#include "board_fixture.h"
#include "numeric/random_numbers.h"
#include "records/measdb.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

using ::testing::ElementsAre;

/// A board that logs its requests, grants rates from a list (any without one) and refuses one request.
struct LoggingBoard {
  std::vector<std::string> log;
  std::vector<double> rates;  // ascending
  std::string refuse;         // word of the request
  double rate = 0.0;
  int samples = 0, channels = 0;
  double level = 0.0;
  int preTrigger = -99;
  std::vector<DaqChannel> asked;
};
LoggingBoard logging;

int Log(const std::string& word) {
  logging.log.push_back(word);
  return word == logging.refuse ? -77 : 0;
}

DaqDriver LoggingDriver() {
  DaqDriver d = daqNone;
  d.createTask = [](const std::string& name, int& task) {
    EXPECT_EQ(name, "DAQTask");
    const int status = Log("create");
    task = status == 0 ? 3 : 0;
    return status;
  };
  d.addChannel = [](int task, const std::string&, const DaqChannel& channel) {
    EXPECT_EQ(task, 3);
    logging.asked.push_back(channel);
    return Log("channel");
  };
  d.cfgSampClkTiming = [](int, double rate, int samples) {
    logging.rate = rate;
    logging.samples = samples;
    return Log("clock");
  };
  d.sampClkRate = [](int, double& rate) {
    rate = logging.rate;
    for (const double granted : logging.rates)
      if (granted >= logging.rate) {
        rate = granted;
        break;
      }
    return Log("rate");
  };
  d.setFreeRun = [](int) { return Log("free"); };
  d.cfgAnlgEdgeRefTrig = [](int, const std::string& channel, double level, int preTrigger) {
    logging.level = level;
    logging.preTrigger = preTrigger;
    return Log("trigger " + channel);
  };
  d.numChans = [](int, int& channels) {
    channels = logging.channels;
    return Log("count");
  };
  d.stopTask = [](int) { return Log("stop"); };
  d.clearTask = [](int) { return Log("clear"); };
  d.errorString = [](int status) { return FormatText("error %d", status); };
  return d;
}

class BoardPlans : public testing::BoardTest {
 protected:
  void SetUp() override {
    BoardTest::SetUp();
    logging = {};
    logging.channels = 2;
    driver_ = LoggingDriver();
    InstallDaqDriver(&driver_);
  }
  DaqDriver driver_ = daqNone;
};

BoardPlan PlanOf(int channels = 2) {
  BoardPlan plan;
  plan.device = "Dev1";
  plan.category = daq_category::kDynamicSignal;
  for (int c = 0; c < 16; ++c) plan.inputs += FormatText("%sDev1/ai%d", c ? ", " : "", c);
  plan.minRate = 2000.0;
  plan.maxRate = 102400.0;
  plan.channels = channels;
  plan.span = 1000.0;
  plan.coupling.assign(static_cast<std::size_t>(channels), 0);
  plan.inputRange.assign(static_cast<std::size_t>(channels), 10.0);
  return plan;
}

TEST(GetEffectiveDAQParam, LowSpansAreDecimatedAndHighOnesCut) {
  double lines = 0, span = 0, decimation = 0;
  EXPECT_EQ(GetEffectiveDAQParam(512, 100, 2000, 102400, &lines, &span, &decimation), 0);
  EXPECT_EQ(lines, 512.0);
  EXPECT_EQ(span, 100.0);
  EXPECT_EQ(decimation, 10.0);
  GetEffectiveDAQParam(512, -333, 2000, 102400, &lines, &span, &decimation);
  EXPECT_EQ(span, 333.0);
  EXPECT_EQ(decimation, 4.0) << "1000 / 333, rounded up";
  GetEffectiveDAQParam(512, 60000, 2000, 102400, &lines, &span, &decimation);
  EXPECT_EQ(span, 51200.0);
  EXPECT_EQ(decimation, 1.0);
  GetEffectiveDAQParam(512, 1000, 2000, 102400, &lines, &span, &decimation);
  EXPECT_EQ(decimation, 1.0) << "exactly the lowest rate";
  GetEffectiveDAQParam(512, 0.5, 0, 102400, &lines, &span, &decimation);
  EXPECT_EQ(decimation, 1.0) << "any rate";
}

TEST_F(BoardPlans, SpanOf100HzOnABoardFrom2000HzAsksForTenTimesTheSamples) {
  BoardPlan plan = PlanOf();
  plan.span = 100.0;
  plan.trigger = 1;
  plan.level = 200.0;
  int task = 0;
  BoardGrant grant;
  std::string reason;
  ASSERT_TRUE(PrepareTask(plan, task, grant, reason)) << reason;
  EXPECT_EQ(task, 3);
  EXPECT_EQ(logging.rate, 2000.0);
  EXPECT_EQ(logging.samples, 10240);
  EXPECT_EQ(logging.level, 0.2);
  EXPECT_EQ(logging.preTrigger, 1024);
  EXPECT_EQ(grant.decimation, 10);
  EXPECT_EQ(grant.span, 100.0);
  EXPECT_DOUBLE_EQ(grant.deltaT, 0.005);
  EXPECT_DOUBLE_EQ(grant.timeLength, 5.12);
  EXPECT_THAT(logging.log,
              ElementsAre("create", "channel", "channel", "clock", "rate", "trigger 1", "count"));
}

TEST_F(BoardPlans, ARecordOf1024SamplesHas102BeforeItsTrigger) {
  BoardPlan plan = PlanOf();
  plan.trigger = 0;
  BoardSampling sampling;
  ASSERT_TRUE(PlanSampling(plan, sampling));
  EXPECT_EQ(sampling.samplesPerChan, 1024);
  EXPECT_EQ(sampling.preTrigger, 102);
}

/// Fields and requests of random plans against the formulas written out here.
TEST_F(BoardPlans, RandomPlansEqualAnIndependentComputation) {
  RandomNumbers random(11);
  const int categories[] = {daq_category::kDynamicSignal, daq_category::kESeries, daq_category::kMSeries,
                            daq_category::kUSB};
  int decimated = 0;
  for (int n = 0; n < 200; ++n) {
    SCOPED_TRACE(n);
    logging = {};
    const int channels = 1 + static_cast<int>(random.Next() % 8);
    BoardPlan plan = PlanOf(channels);
    logging.channels = channels;
    plan.category = categories[random.Next() % 4];
    plan.lines = 512 << (random.Next() % 5);
    plan.span = 0.5 * std::pow(120000.0, random.Uniform());
    plan.minRate = random.Next() % 3 == 0 ? 0.0 : 2000.0;
    if (random.Next() % 2 == 0) logging.rates = {2000, 2560, 5120, 10240, 25600, 51200, 102400, 204800};
    plan.sensorType = static_cast<int>(random.Next() % 3);
    plan.trigger = static_cast<int>(random.Next() % static_cast<unsigned>(channels + 1)) - 1;
    plan.delay = 100.0 * random.Uniform();
    for (int& c : plan.coupling) c = static_cast<int>(random.Next() % 2);
    for (double& r : plan.inputRange) r = random.Next() % 2 ? 1.0 : 10.0;

    const double span = plan.span > 51200.0 ? 51200.0 : plan.span;
    int decimation = 1;
    while (2.0 * span * decimation < plan.minRate * (1 - 1e-15)) ++decimation;
    const int samples = 2 * plan.lines * decimation;
    double rate = 2.0 * span * decimation;
    for (std::size_t i = logging.rates.size(); i-- > 0;)
      if (logging.rates[i] >= 2.0 * span * decimation) rate = logging.rates[i];

    int task = 0;
    BoardGrant grant;
    std::string reason;
    const bool possible = std::int64_t{samples} * channels <= std::int64_t{1} << 27;
    ASSERT_EQ(PrepareTask(plan, task, grant, reason), possible) << reason;
    if (!possible) continue;
    decimated += decimation > 1;
    EXPECT_EQ(grant.decimation, decimation);
    EXPECT_EQ(grant.samplesPerChan, samples);
    EXPECT_EQ(logging.samples, samples);
    EXPECT_NEAR(logging.rate / (2.0 * span * decimation), 1.0, 1e-12);
    EXPECT_NEAR(grant.span / (rate / 2.0 / decimation), 1.0, 1e-12);
    EXPECT_NEAR(grant.deltaF * plan.lines / grant.span, 1.0, 1e-12);
    EXPECT_NEAR(grant.deltaT * 2.0 * grant.span, 1.0, 1e-12);
    EXPECT_NEAR(2.0 * plan.lines * grant.deltaT * grant.deltaF, 1.0, 1e-12);
    EXPECT_NEAR(grant.timeLength * grant.deltaF, 1.0, 1e-12);
    std::vector<std::string> expected = {"create"};
    expected.insert(expected.end(), static_cast<std::size_t>(channels), "channel");
    expected.insert(expected.end(), {"clock", "rate"});
    expected.push_back(plan.trigger < 0 ? "free" : "trigger " + std::to_string(plan.trigger));
    expected.push_back("count");
    EXPECT_EQ(logging.log, expected);
    if (plan.trigger >= 0) {
      EXPECT_EQ(logging.preTrigger, std::lround(std::floor(plan.delay / 100.0 * (samples - 1) + 0.5)));
    }
    const bool differential = plan.category == 14642 || plan.category == 14643;
    for (int c = 0; c < channels; ++c) {
      const DaqChannel& asked = logging.asked[static_cast<std::size_t>(c)];
      const bool dynamic = plan.category == 14649;
      EXPECT_EQ(asked.physicalName, "Dev1/ai" + std::to_string(c)) << differential;
      EXPECT_EQ(asked.virtualName, std::to_string(c));
      EXPECT_EQ(asked.range, plan.inputRange[static_cast<std::size_t>(c)]);
      EXPECT_EQ(asked.differential, !dynamic);
      EXPECT_EQ(asked.accelerometer, dynamic && plan.sensorType > 0);
      EXPECT_EQ(asked.excitation, !dynamic || plan.sensorType == 0 ? 0.0
                                  : plan.sensorType == 1           ? 0.004
                                                                   : 0.0021);
      EXPECT_EQ(asked.couplingAC, dynamic && plan.coupling[static_cast<std::size_t>(c)] == 0);
    }
  }
  EXPECT_GT(decimated, 20);
}

TEST_F(BoardPlans, DifferentialBoardsMoveTheInputsFromTheEighthOn) {
  BoardPlan plan = PlanOf(10);
  EXPECT_EQ(InputNameOf(plan, 9), "Dev1/ai9");
  plan.category = daq_category::kMSeries;
  EXPECT_EQ(InputNameOf(plan, 7), "Dev1/ai7");
  EXPECT_EQ(InputNameOf(plan, 8), "Dev1/ai16");
  EXPECT_EQ(InputNameOf(plan, 16), "");
  EXPECT_EQ(InputNameOf(plan, -1), "");
}

TEST_F(BoardPlans, ATriedPlanLeavesNoTask) {
  BoardGrant grant;
  std::string reason;
  EXPECT_TRUE(TryPlan(PlanOf(), grant, reason));
  EXPECT_THAT(logging.log, ElementsAre("create", "channel", "channel", "clock", "rate", "stop", "clear"));
}

TEST_F(BoardPlans, EveryRefusalEndsInClearWithTheTextOfTheBoard) {
  for (const char* request : {"create", "channel", "clock", "rate", "trigger 0", "count"}) {
    logging = {};
    logging.refuse = request;
    BoardPlan plan = PlanOf();
    plan.trigger = 0;
    int task = 9;
    BoardGrant grant;
    std::string reason;
    EXPECT_FALSE(PrepareTask(plan, task, grant, reason)) << request;
    EXPECT_EQ(reason, "error -77");
    EXPECT_EQ(task, 0);
    EXPECT_EQ(logging.log.back(), std::string(request) == "create" ? "create" : "clear");
    EXPECT_EQ(grant.samplesPerChan, 0) << "nothing was granted";
  }
}

TEST_F(BoardPlans, PlansThatNoBoardIsAskedFor) {
  const auto refused = [](BoardPlan plan) {
    int task = 0;
    BoardGrant grant;
    std::string reason;
    EXPECT_FALSE(PrepareTask(plan, task, grant, reason));
    EXPECT_EQ(reason, "");
    EXPECT_TRUE(logging.log.empty());
  };
  for (const double span : {0.0, -0.0, std::nan(""), 1e-300, double{INFINITY}}) {
    BoardPlan plan = PlanOf();
    plan.span = span;
    refused(plan);
  }
  BoardPlan plan = PlanOf(4);
  plan.lines = 524288;
  plan.span = 10.0;  // 2^20 samples, decimation 100, 4 channels
  refused(plan);
  plan.lines = 2147483647;
  refused(plan);
  plan = PlanOf();
  plan.inputRange.pop_back();
  refused(plan);
  plan = PlanOf();
  plan.channels = 0;
  refused(plan);
}

TEST_F(BoardPlans, MoreChannelsThanTheBoardHasAreItsToRefuse) {
  ASSERT_EQ(InstallDaqDriver(&daqNone), &driver_);
  BoardGrant grant;
  std::string reason;
  EXPECT_FALSE(TryPlan(PlanOf(9), grant, reason));
  EXPECT_EQ(reason, "no board");
}

/// On a board with fixed rates only, the granted span gives another decimation; a kept one does not.
TEST_F(BoardPlans, SpanAndDecimationStayFromRunToRun) {
  logging.rates = {2000, 2560, 5120};
  BoardPlan plan = PlanOf();
  plan.span = 97.66;
  BoardGrant grant;
  std::string reason;
  ASSERT_TRUE(TryPlan(plan, grant, reason));
  EXPECT_EQ(grant.decimation, 11);
  EXPECT_NEAR(grant.span, 116.3636, 1e-4);
  const BoardGrant first = grant;
  for (int run = 0; run < 3; ++run) {
    plan.span = grant.span;
    plan.decimation = KeptDecimation(grant.span, grant.deltaT, grant.decimation);
    ASSERT_TRUE(TryPlan(plan, grant, reason));
    EXPECT_EQ(grant.decimation, 11);
    EXPECT_EQ(grant.span, first.span);
    EXPECT_EQ(grant.deltaF, first.deltaF);
  }
  EXPECT_EQ(KeptDecimation(50.0, grant.deltaT, 11), 0) << "the span was edited";
  plan.span = 60000.0;
  plan.decimation = 11;
  ASSERT_TRUE(TryPlan(plan, grant, reason));
  EXPECT_EQ(grant.decimation, 1) << "beyond the board's rates nothing is kept";
}

TEST_F(BoardPlans, ARateThatIsNoneIsRefused) {
  for (const double rate : {-5.0, 0.0, std::nan("")}) {
    logging.log.clear();
    driver_.sampClkRate = rate == 0.0 ? [](int, double& r) { r = 0.0; return 0; }
                          : rate < 0  ? [](int, double& r) { r = -5.0; return 0; }
                                      : [](int, double& r) { r = NAN; return 0; };
    BoardGrant grant;
    std::string reason;
    EXPECT_FALSE(TryPlan(PlanOf(), grant, reason));
    EXPECT_EQ(reason, "The board grants no sampling rate.");
    EXPECT_EQ(logging.log.back(), "clear");
  }
}

TEST_F(BoardPlans, SpansThatAreNoTableEntryGetWholePowersOfTwo) {
  BoardPlan plan = PlanOf();
  plan.lines = 500;
  BoardSampling sampling;
  ASSERT_TRUE(PlanSampling(plan, sampling));
  EXPECT_EQ(sampling.samplesPerChan, 2 * FullTimeLines(500));
}

}  // namespace
}  // namespace sondera
