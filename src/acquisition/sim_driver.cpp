// sim_driver.cpp - the table of functions of the simulated site. Owns its state, `sim`.
#include "acquisition/sim_driver.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>
#include <new>
#include <thread>

#include "acquisition/board_options.h"
#include "acquisition/board_task.h"
#include "acquisition/simulated_blows.h"
#include "records/selection.h"
#include "records/session.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr const char* kDevice = "Sim1";
constexpr double kHighestRate = 102400.0;
constexpr double kCrewSeconds = 0.5;      // from arming to the blow
constexpr double kNextBlowSeconds = 2.0;  // from a blow that did not trigger to the next
constexpr auto kNextBlowAtLeast = std::chrono::milliseconds(2);  // at any pace
constexpr double kOverloadOfRange = 2.0;  // by how much an overloading blow exceeds the first input's range
constexpr int kChunk = 4096;              // samples computed between two checks of the clock
constexpr int kACAndDC = 3;
const std::vector<double> kRanges = {10.0, 3.16, 1.0, 0.316, 0.1, 0.0316, 0.01};  // V, largest first

struct SimOptions {
  SimulatedBlow blows;
  int channels = 4;
  int miss = 0, overload = 0, fail = 0;  // numbers of records, from 1; 0 none
  double minRate = 1.0;
  double pace = 1.0;  // of the real time
};

struct SimState {
  SimOptions options;
  BoardTask task;
  BlowWave wave;
  int records = 0, blows = 0;  // armed and struck so far
  BlowRecording recording;     // of the armed record
  std::unique_ptr<BlowRecord> record;
  Clock::time_point readyAt;
};
SimState sim;

BoardTask& TaskOfSim() {
  return sim.task;
}
using Task = TaskFunctions<TaskOfSim>;

bool IsDevice(const std::string& dev) {
  return dev == kDevice;
}
template <class T>
int SimFact(const std::string& dev, T& fact, const T& value) {
  if (!IsDevice(dev)) return RefuseTask(sim.task, "There is no such device.");
  fact = value;
  return daq_status::kDone;
}

Clock::duration AtPace(double seconds) {
  constexpr double kLongest = 1e9;  // longer than any record, within the range of any clock
  return std::chrono::duration_cast<Clock::duration>(Seconds(std::min(seconds * sim.options.pace, kLongest)));
}

/// Distances of the inputs from the source, m; a receiver that the measurement does not have is at 0.
std::vector<double> DistancesOfInputs() {
  std::vector<double> distances(sim.task.Channels(), 0.0);
  MeasRecords records;
  const int found = GetInfoFromKey(GetKeyFromID(session.curProjID, session.curMeasID), records);
  if (found == -1 || records.measPos < 0) return distances;
  const MeasSetup& setup = *records.measSetup;
  for (std::size_t c = 0; c < distances.size(); ++c) {
    const auto at = static_cast<std::size_t>(sim.task.inputs[c]);
    if (at < setup.recLoc.size())
      distances[c] = std::fabs(setup.recLoc[at] - setup.srcLoc) * setup.lengthUnit;
  }
  return distances;
}

/// The wave of the present measurement; computed again only after a change.
int PrepareWave() {
  const std::vector<double> distances = DistancesOfInputs();
  if (sim.wave.rate == sim.task.rate && sim.wave.distances == distances) return daq_status::kDone;
  std::string fault;
  sim.wave = MakeBlowWave(sim.task.rate, distances, fault);
  if (!fault.empty()) return RefuseTask(sim.task, fault);
  sim.wave.distances = distances;  // as requested
  return daq_status::kDone;
}

/// Factor that makes the first input reach twice its range.
double OverloadingForce() {
  double peak = 0.0;
  for (const double volts : sim.wave.volts[0]) peak = std::max(peak, std::fabs(volts));
  return peak > 0.0 ? kOverloadOfRange * sim.task.channels[0].range / peak : 1.0;
}

/// The crew strikes once. A blow that does not trigger gives no record; readyAt is then that of the next
/// blow.
void MakeBlow(bool missed, double secondsFromNow) {
  BlowRecording recording = sim.recording;
  if (missed) recording.force = 0.0;
  ++sim.blows;
  const bool triggered = sim.task.triggerChannel >= 0;
  sim.readyAt = Clock::now() + AtPace(secondsFromNow);
  sim.record.reset();
  if (!triggered || !missed)
    sim.record = std::make_unique<BlowRecord>(sim.options.blows, sim.wave, recording, sim.blows);
  if (sim.record && sim.record->Triggered()) {
    const int left = triggered ? sim.task.samples - sim.task.preTrigger : sim.task.samples;
    sim.readyAt += AtPace(left / sim.task.rate);
    return;
  }
  sim.record.reset();
  sim.readyAt = std::max(sim.readyAt + AtPace(kNextBlowSeconds), Clock::now() + kNextBlowAtLeast);
}

int Strike(bool missed, double secondsFromNow) {
  try {
    MakeBlow(missed, secondsFromNow);
    return daq_status::kDone;
  } catch (const std::bad_alloc&) {
    sim.task.started = false;
    return RefuseTask(sim.task, "There is not enough memory for the record.");
  }
}

int Start(int number) {
  if (const int status = StartTask(sim.task, number); status < 0) return status;
  if (const int status = PrepareWave(); status < 0) {
    sim.task.started = false;
    return status;
  }
  ++sim.records;
  sim.recording = {.samples = sim.task.samples,
                   .trigger = sim.task.triggerChannel,
                   .level = sim.task.triggerLevel,
                   .preTrigger = sim.task.preTrigger};
  for (std::size_t c = 0; c < sim.task.Channels(); ++c)
    sim.recording.inputs.push_back({static_cast<int>(c), sim.task.channels[c].range});
  if (sim.records == sim.options.overload) sim.recording.force = OverloadingForce();
  const bool triggered = sim.task.triggerChannel >= 0;
  const double wait = triggered ? std::max(kCrewSeconds, sim.task.preTrigger / sim.task.rate) : 0.0;
  return Strike(sim.records == sim.options.miss, wait);
}

/// Computes samples until the record is complete or the time is over. False when the time is over.
bool MakeRecordUntil(Clock::time_point end) {
  while (!sim.record->Whole()) {
    sim.record->Make(kChunk);
    if (!sim.record->Whole() && Clock::now() >= end) return false;
  }
  return true;
}

int Wait(int number, double seconds, bool& ready) {
  ready = false;
  if (const int status = CheckTask(sim.task, number); status < 0) return status;
  if (!sim.task.started) return RefuseTask(sim.task, "The task is not started.");
  const Clock::time_point end =
      Clock::now() + std::chrono::duration_cast<Clock::duration>(Seconds(std::clamp(seconds, 0.0, 1e6)));
  while (!sim.record) {  // the last blow did not trigger
    std::this_thread::sleep_until(std::min(end, sim.readyAt));
    if (Clock::now() < sim.readyAt) return daq_status::kDone;
    if (const int status = Strike(false, 0.0); status < 0) return status;
  }
  if (!MakeRecordUntil(end)) return daq_status::kDone;
  std::this_thread::sleep_until(std::min(end, sim.readyAt));
  ready = Clock::now() >= sim.readyAt;
  return daq_status::kDone;
}

int Read(int number, double timeoutSeconds, double* buf, int bufLength, int& read) {
  read = 0;
  bool ready = false;
  if (const int status = Wait(number, timeoutSeconds, ready); status < 0) return status;
  if (!ready) return daq_status::kNotYet;
  sim.task.started = false;
  const std::vector<double>& samples = sim.record->Samples();
  if (bufLength < 0 || static_cast<std::size_t>(bufLength) < samples.size())
    return RefuseTask(sim.task, "The buffer is shorter than the record.");
  if (sim.records == sim.options.fail) return RefuseTask(sim.task, "The simulated board lost this record.");
  std::copy(samples.begin(), samples.end(), buf);
  read = sim.task.samples;
  sim.task.overload = sim.record->Overload();
  return daq_status::kDone;
}

}  // namespace

const DaqDriver daqSimulated = {
    .name = "sim",
    .reset = [] { sim = {}; },
    .sysDevNames =
        [](std::string& names) {
          names = kDevice;
          return daq_status::kDone;
        },
    .devProductCategory = [](const std::string& dev,
                             int& category) { return SimFact(dev, category, daq_category::kDynamicSignal); },
    .devProductType = [](const std::string& dev,
                         std::string& type) { return SimFact(dev, type, std::string("Simulated site")); },
    .devAnlgTrigSupported = [](const std::string& dev, int& supported) { return SimFact(dev, supported, 1); },
    .devAIPhysicalChans =
        [](const std::string& dev, std::string& channels) {
          return SimFact(dev, channels, InputNames(kDevice, sim.options.channels));
        },
    .devAIMaxSingleChanRate = [](const std::string& dev,
                                 double& rate) { return SimFact(dev, rate, kHighestRate); },
    .devAIMinRate = [](const std::string& dev,
                       double& rate) { return SimFact(dev, rate, sim.options.minRate); },
    .devAIVoltageRngs =
        [](const std::string& dev, std::vector<double>& limits) {
          return SimFact(dev, limits, PairsOfRanges(kRanges));
        },
    .devAICouplings = [](const std::string& dev,
                         int& couplings) { return SimFact(dev, couplings, kACAndDC); },
    .createTask = [](const std::string&, int& task) { return MakeTask(sim.task, task); },
    .addChannel =
        [](int task, const std::string&, const DaqChannel& channel) {
          return AddTaskChannel(sim.task, task, kDevice, sim.options.channels, kRanges, channel);
        },
    .cfgSampClkTiming =
        [](int task, double rate, int samplesPerChan) {
          const int status = SetTaskClock(sim.task, task, rate, samplesPerChan);
          if (status == daq_status::kDone)
            sim.task.rate = std::clamp(rate, sim.options.minRate, kHighestRate);
          return status;
        },
    .sampClkRate = Task::SampClkRate,
    .setFreeRun = Task::SetFreeRun,
    .cfgAnlgEdgeRefTrig = Task::CfgAnlgEdgeRefTrig,
    .numChans = Task::NumChans,
    .startTask = Start,
    .waitRecord = Wait,
    .readRecord = Read,
    .recordOverload = Task::RecordOverload,
    .stopTask =
        [](int task) {
          sim.record.reset();
          return StopTask(sim.task, task);
        },
    .clearTask =
        [](int task) {
          sim.record.reset();
          return ClearTask(sim.task, task);
        },
    .errorString = Task::ErrorString,
};

std::string InstallSimulatedBoard(std::string_view options) {
  constexpr double kNever = 0.0, kManyRecords = 1e9, kLargestSeed = 9007199254740991.0;
  SimOptions o;
  double seed = 1.0, channels = o.channels, miss = kNever, overload = kNever, fail = kNever;
  const BoardOption table[] = {
      {"seed", 0.0, kLargestSeed, true, &seed},       {"channels", 1.0, 32.0, true, &channels},
      {"noise", 0.0, 1.0, false, &o.blows.noise},     {"hum", 0.0, 1.0, false, &o.blows.hum},
      {"hum_hz", 1.0, 1000.0, false, &o.blows.humHz}, {"blow", 0.0, 0.39, false, &o.blows.spread},
      {"miss", kNever, kManyRecords, true, &miss},    {"overload", kNever, kManyRecords, true, &overload},
      {"fail", kNever, kManyRecords, true, &fail},    {"minrate", 0.1, kHighestRate, false, &o.minRate},
      {"pace", 0.0, 100.0, false, &o.pace},
  };
  if (std::string fault = ParseBoardOptions("sim", options, table); !fault.empty()) return fault;
  o.blows.seed = static_cast<std::uint64_t>(seed);
  o.channels = static_cast<int>(channels);
  o.miss = static_cast<int>(miss);
  o.overload = static_cast<int>(overload);
  o.fail = static_cast<int>(fail);
  InstallDaqDriver(&daqSimulated);
  sim.options = o;
  return "";
}

std::string SimulatedBoardText() {
  return FormatText("  %s, %d channels (option channels), up to %.10g Hz\n",
                    DeviceListText(kDevice, daq_category::kDynamicSignal).c_str(), SimOptions().channels,
                    kHighestRate);
}

}  // namespace sondera
