// board_task.cpp - checks of the requests for a task. Owns no state.
#include "acquisition/board_task.h"

#include <algorithm>
#include <cmath>

#include "runtime/terminal.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kTriggerChannelUnknown = -2;

/// Number k of "<dev>/ai<k>", -1 for anything else.
int InputNumber(std::string_view dev, std::string_view physical) {
  const std::string prefix = std::string(dev) + "/ai";
  if (!physical.starts_with(prefix)) return -1;
  physical.remove_prefix(prefix.size());
  std::size_t used = 0;
  const int k = ParseInt(physical, &used);
  return used == physical.size() && used > 0 ? k : -1;
}

}  // namespace

int RefuseTask(BoardTask& task, std::string_view text) {
  task.fault = text;
  return daq_status::kRefused;
}

int MakeTask(BoardTask& task, int& number) {
  number = 0;
  if (task.number != 0) return RefuseTask(task, "There is a task already.");
  task = {};
  task.number = 1;
  number = task.number;
  return daq_status::kDone;
}

int CheckTask(BoardTask& task, int number) {
  if (number == 0 || number != task.number) return RefuseTask(task, "There is no such task.");
  return daq_status::kDone;
}

int AddTaskChannel(BoardTask& task, int number, std::string_view dev, int nInputs,
                   const std::vector<double>& ranges, const DaqChannel& channel) {
  if (const int status = CheckTask(task, number); status < 0) return status;
  const int input = InputNumber(dev, channel.physicalName);
  if (input < 0 || input >= nInputs)
    return RefuseTask(task, FormatText("There is no input \"%s\".",
                                       VisibleText(channel.physicalName).substr(0, 80).c_str()));
  if (std::find(task.inputs.begin(), task.inputs.end(), input) != task.inputs.end())
    return RefuseTask(task, FormatText("The input \"%s\" is in use twice.", channel.physicalName.c_str()));
  double granted = 0.0;
  for (const double range : ranges)
    if (range >= channel.range && (granted == 0.0 || range < granted)) granted = range;
  if (!(channel.range > 0.0) || granted == 0.0)
    return RefuseTask(task, FormatText("The board has no input range of %.10g V.", channel.range));
  task.channels.push_back(channel);
  task.channels.back().range = granted;
  task.inputs.push_back(input);
  return daq_status::kDone;
}

namespace {

bool RecordFits(const BoardTask& task, int samples) {
  const auto channels = static_cast<std::int64_t>(std::max<std::size_t>(task.Channels(), 1));
  return samples >= 2 && samples * channels <= kMostRecordSamples;
}

}  // namespace

int SetTaskClock(BoardTask& task, int number, double rate, int samples) {
  if (const int status = CheckTask(task, number); status < 0) return status;
  if (!(rate > 0.0) || !std::isfinite(rate)) return RefuseTask(task, "The sampling rate is not above 0.");
  if (!RecordFits(task, samples))
    return RefuseTask(task, FormatText("A record of %d samples on %zu channels is not possible.", samples,
                                       task.Channels()));
  task.samples = samples;
  return daq_status::kDone;
}

int SetTaskTrigger(BoardTask& task, int number, const std::string& virtualName, double levelVolts,
                   int preTriggerSamples) {
  if (const int status = CheckTask(task, number); status < 0) return status;
  const auto found = std::find_if(task.channels.begin(), task.channels.end(),
                                  [&](const DaqChannel& c) { return c.virtualName == virtualName; });
  task.triggerChannel =
      found == task.channels.end() ? kTriggerChannelUnknown : static_cast<int>(found - task.channels.begin());
  task.triggerLevel = levelVolts;
  task.preTrigger = preTriggerSamples;
  return daq_status::kDone;
}

int StartTask(BoardTask& task, int number) {
  if (const int status = CheckTask(task, number); status < 0) return status;
  if (task.channels.empty()) return RefuseTask(task, "The task has no channels.");
  if (!RecordFits(task, task.samples)) return RefuseTask(task, "The task has no sampling rate.");
  if (task.triggerChannel == kTriggerChannelUnknown)
    return RefuseTask(task, "The trigger channel is not measured.");
  if (task.triggerChannel >= 0 && (task.preTrigger < 0 || task.preTrigger >= task.samples))
    return RefuseTask(task, "The trigger does not lie inside the record.");
  task.started = true;
  return daq_status::kDone;
}

int StopTask(BoardTask& task, int number) {
  if (const int status = CheckTask(task, number); status < 0) return status;
  task.started = false;
  return daq_status::kDone;
}

int ClearTask(BoardTask& task, int number) {
  if (number == 0 || number != task.number) return daq_status::kDone;
  task = {};
  return daq_status::kDone;
}

std::string TaskErrorText(const BoardTask& task, int status) {
  switch (status) {
    case daq_status::kDone:
      return "no error";
    case daq_status::kNoBoard:
      return "no board";
    case daq_status::kNotYet:
      return "the record has not come yet";
    default:
      return task.fault.empty() ? FormatText("error %d", status) : task.fault;
  }
}

std::vector<double> PairsOfRanges(const std::vector<double>& ranges) {
  std::vector<double> limits;
  for (const double range : ranges) limits.insert(limits.end(), {-range, range});
  return limits;
}

std::string InputNames(std::string_view dev, int nInputs) {
  std::string names;
  for (int k = 0; k < nInputs; ++k)
    names += FormatText("%s%s/ai%d", k > 0 ? "," : "", std::string(dev).c_str(), k);
  return names;
}

}  // namespace sondera
