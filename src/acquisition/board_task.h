// board_task.h - the one task of a driver in this program: its requests, checked one by one.
//
// The drivers that make their records themselves (simulated site, sound card) share it. Every function
// returns a status of daq_driver.h; a refusal puts its text in `fault`.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "acquisition/daq_driver.h"

namespace sondera {

/// Most samples of all channels of a record: 1 GiB of doubles.
inline constexpr std::int64_t kMostRecordSamples = std::int64_t{1} << 27;

struct BoardTask {
  int number = 0;  ///< 0: no task
  std::vector<DaqChannel> channels;
  std::vector<int> inputs;  ///< [channel] number of the physical input, from 0
  double rate = 0.0;        ///< Hz, as granted
  int samples = 0;          ///< per channel
  int triggerChannel = -1;  ///< position in `channels`; -1 free run
  double triggerLevel = 0.0;
  int preTrigger = 0;  ///< samples before the trigger's
  bool started = false;
  std::uint64_t overload = 0;  ///< channels of the last record that exceeded their range
  std::string fault;           ///< why the last request was refused

  std::size_t Channels() const { return channels.size(); }
};

/// Stores the text and returns kRefused.
int RefuseTask(BoardTask& task, std::string_view text);

/// Makes the task; refuses a second one. Numbers increase from 1.
int MakeTask(BoardTask& task, int& number);
/// Refuses any number but the task's.
int CheckTask(BoardTask& task, int number);
/// Adds an input "<dev>/ai<k>" of `dev`, k below nInputs and not in use yet. Its range becomes the smallest
/// of `ranges` (V) at or above the requested one; without such a range it is refused.
int AddTaskChannel(BoardTask& task, int number, std::string_view dev, int nInputs,
                   const std::vector<double>& ranges, const DaqChannel& channel);
/// Checks rate (above 0) and samples (2 or more, at most kMostRecordSamples with all channels); stores the
/// samples in the task. The caller grants the rate.
int SetTaskClock(BoardTask& task, int number, double rate, int samples);
/// Sets a reference trigger on the channel of that virtual name. A trigger outside the record is refused at
/// the start.
int SetTaskTrigger(BoardTask& task, int number, const std::string& virtualName, double levelVolts,
                   int preTriggerSamples);
/// Marks the task started; refuses one without channels or clock, with an unknown trigger channel, or with
/// pre-trigger samples that are not inside the record.
int StartTask(BoardTask& task, int number);
int StopTask(BoardTask& task, int number);
/// Clears the task; 0 also when there is none of that number.
int ClearTask(BoardTask& task, int number);
/// Text of a status: the last refusal's for kRefused.
std::string TaskErrorText(const BoardTask& task, int status);

/// -r, r of every range, as a driver lists them.
std::vector<double> PairsOfRanges(const std::vector<double>& ranges);
/// Names of the inputs, "Sim1/ai0,Sim1/ai1".
std::string InputNames(std::string_view dev, int nInputs);

/// Functions of a driver's table that use only its task.
template <BoardTask& (*taskOf)()>
struct TaskFunctions {
  static int SampClkRate(int number, double& rate) {
    rate = taskOf().rate;
    return CheckTask(taskOf(), number);
  }
  static int SetFreeRun(int number) {
    const int status = CheckTask(taskOf(), number);
    if (status == daq_status::kDone) taskOf().triggerChannel = -1;
    return status;
  }
  static int CfgAnlgEdgeRefTrig(int number, const std::string& channel, double levelVolts,
                                int preTriggerSamples) {
    return SetTaskTrigger(taskOf(), number, channel, levelVolts, preTriggerSamples);
  }
  static int NumChans(int number, int& channels) {
    channels = static_cast<int>(taskOf().Channels());
    return CheckTask(taskOf(), number);
  }
  static int RecordOverload(int number, std::uint64_t& mask) {
    mask = taskOf().overload;
    return CheckTask(taskOf(), number);
  }
  static std::string ErrorString(int status) { return TaskErrorText(taskOf(), status); }
};

}  // namespace sondera
