// board_fixture.h - tests of board drivers: a fresh session, no board before and after, and the requests of a
// task in one call.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "acquisition/daq_driver.h"
#include "support/session_fixture.h"

namespace sondera::testing {

/// Settings of a test's task.
struct TaskPlan {
  std::string dev = "Sim1";
  int channels = 2;
  double range = 10.0;
  double rate = 2000.0;
  int samples = 1024;
  int trigger = -1;
  double level = 0.2;
  int preTrigger = 102;
};

/// A task that is ready to start. The first status that is not 0 ends the requests.
struct MadeTask {
  int status = 0;
  int task = 0;
  double rate = 0.0;
};
inline MadeTask MakePlannedTask(const TaskPlan& plan) {
  const DaqDriver& daq = Daq();
  MadeTask made;
  if ((made.status = daq.createTask("DAQTask", made.task)) != 0) return made;
  for (int c = 0; c < plan.channels; ++c) {
    const DaqChannel channel{.physicalName = plan.dev + "/ai" + std::to_string(c),
                             .virtualName = std::to_string(c),
                             .range = plan.range};
    if ((made.status = daq.addChannel(made.task, plan.dev, channel)) != 0) return made;
  }
  if ((made.status = daq.cfgSampClkTiming(made.task, plan.rate, plan.samples)) != 0) return made;
  if ((made.status = daq.sampClkRate(made.task, made.rate)) != 0) return made;
  made.status = plan.trigger < 0 ? daq.setFreeRun(made.task)
                                 : daq.cfgAnlgEdgeRefTrig(made.task, std::to_string(plan.trigger), plan.level,
                                                          plan.preTrigger);
  return made;
}

/// One record of a started task, channel after channel.
struct TakenRecord {
  int status = 0;
  int read = 0;
  std::vector<double> samples;
  std::uint64_t overload = 0;

  double At(int channel, int sample) const {
    return samples[static_cast<std::size_t>(channel) * static_cast<std::size_t>(read) +
                   static_cast<std::size_t>(sample)];
  }
};
/// Starts the task, waits for its record and stops it.
inline TakenRecord TakeRecord(int task, const TaskPlan& plan, double seconds = 10.0) {
  const DaqDriver& daq = Daq();
  TakenRecord record;
  record.samples.resize(static_cast<std::size_t>(plan.channels) * static_cast<std::size_t>(plan.samples));
  if ((record.status = daq.startTask(task)) != 0) return record;
  record.status = daq.readRecord(task, seconds, record.samples.data(),
                                 static_cast<int>(record.samples.size()), record.read);
  if (record.status == 0) daq.recordOverload(task, record.overload);
  daq.stopTask(task);
  return record;
}

class BoardTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    InstallDaqDriver(&daqNone);
  }
  void TearDown() override {
    InstallDaqDriver(&daqNone);
    SessionTest::TearDown();
  }
};

}  // namespace sondera::testing
