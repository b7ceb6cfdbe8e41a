// board_plan.cpp - requests of a measurement in their order. Owns no state.
#include "acquisition/board_plan.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "acquisition/board_task.h"
#include "acquisition/daq_driver.h"
#include "records/measdb.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kVoltsPerMillivolt = 0.001;
constexpr double kSameSpan = 1e-9;
constexpr int kFirstMovedInput = 8, kMovedBy = 8;

double Excitation(int sensorType) {
  constexpr double kAmperes[] = {0.0, 0.004, 0.0021};
  return sensorType >= 0 && sensorType <= 2 ? kAmperes[sensorType] : 0.0;
}

DaqChannel ChannelOf(const BoardPlan& plan, int channel) {
  const auto c = static_cast<std::size_t>(channel);
  const bool dynamicSignal = plan.category == daq_category::kDynamicSignal;
  const bool sensor = dynamicSignal && plan.sensorType > 0;
  return {.physicalName = InputNameOf(plan, channel),
          .virtualName = FormatText("%d", channel),
          .range = plan.inputRange[c],
          .differential = !dynamicSignal,
          .accelerometer = sensor,
          .excitation = sensor ? Excitation(plan.sensorType) : 0.0,
          .couplingAC = dynamicSignal && plan.coupling[c] == 0};
}

/// Task, channels, clock and rate, up to the first refusal.
int RequestSampling(const BoardPlan& plan, const BoardSampling& sampling, int& task, double& rate) {
  const DaqDriver& daq = Daq();
  if (const int status = daq.createTask("DAQTask", task); status != 0) return status;
  for (int c = 0; c < plan.channels; ++c)
    if (const int status = daq.addChannel(task, plan.device, ChannelOf(plan, c)); status != 0) return status;
  if (const int status = daq.cfgSampClkTiming(task, sampling.rate, sampling.samplesPerChan); status != 0)
    return status;
  return daq.sampClkRate(task, rate);
}

/// Free run or trigger, and the number of channels.
int RequestTrigger(const BoardPlan& plan, const BoardSampling& sampling, int task, int& channels) {
  const DaqDriver& daq = Daq();
  const int status = plan.trigger < 0
                         ? daq.setFreeRun(task)
                         : daq.cfgAnlgEdgeRefTrig(task, FormatText("%d", plan.trigger),
                                                  plan.level * kVoltsPerMillivolt, sampling.preTrigger);
  return status != 0 ? status : daq.numChans(task, channels);
}

bool HasEveryChannel(const BoardPlan& plan) {
  const auto n = static_cast<std::size_t>(plan.channels);
  return plan.channels > 0 && plan.coupling.size() >= n && plan.inputRange.size() >= n;
}

/// Makes the task up to the part that `whole` selects, and reads what the board grants. On failure it is
/// cleared.
bool MakeTaskOf(const BoardPlan& plan, bool whole, int& task, BoardGrant& grant, std::string& reason) {
  task = 0;
  reason.clear();
  BoardSampling sampling;
  if (!HasEveryChannel(plan) || !PlanSampling(plan, sampling)) return false;
  double rate = 0.0;
  int channels = plan.channels;
  int status = RequestSampling(plan, sampling, task, rate);
  if (status == 0 && whole) status = RequestTrigger(plan, sampling, task, channels);
  if (status != 0)
    reason = Daq().errorString(status);
  else if (!(rate > 0.0) || !std::isfinite(rate))
    reason = "The board grants no sampling rate.";
  if (!reason.empty()) {
    if (task != 0) Daq().clearTask(task);
    task = 0;
    return false;
  }
  grant = GrantOf(plan, sampling, rate, channels);
  return true;
}

}  // namespace

int GetEffectiveDAQParam(double lines, double span, double minRate, double maxRate, double* linesOut,
                         double* spanOut, double* decimOut) {
  *linesOut = lines;
  *spanOut = std::fmin(std::fabs(span), maxRate * 0.5);
  *decimOut = minRate * 0.5 <= *spanOut ? 1.0 : std::ceil(minRate * 0.5 / *spanOut);
  return 0;
}

int KeptDecimation(double span, double deltaT, int decimation) {
  const bool granted = std::fabs(deltaT * 2.0 * span - 1.0) <= kSameSpan;
  return granted && decimation > 0 ? decimation : 0;
}

bool PlanSampling(const BoardPlan& plan, BoardSampling& sampling) {
  double lines = 0.0, span = 0.0, decimation = 0.0;
  if (!std::isfinite(plan.span) || plan.lines < 1 || plan.lines > kMostRecordSamples) return false;
  GetEffectiveDAQParam(plan.lines, plan.span, plan.minRate, plan.maxRate, &lines, &span, &decimation);
  if (!(span > 0.0) || !std::isfinite(span)) return false;
  const double keptRate = 2.0 * span * plan.decimation;
  if (plan.decimation > 0 && keptRate >= plan.minRate && keptRate <= plan.maxRate)
    decimation = plan.decimation;
  if (!(decimation <= std::numeric_limits<int>::max())) return false;
  const double samples = 2.0 * FullTimeLines(plan.lines) * decimation;
  if (samples * plan.channels > static_cast<double>(kMostRecordSamples)) return false;
  sampling.span = span;
  sampling.decimation = static_cast<int>(decimation);
  sampling.rate = 2.0 * span * decimation;
  sampling.samplesPerChan = static_cast<int>(samples);
  // Share of the record's length from its first to its last sample, rounded to a sample.
  const double before = std::floor(plan.delay * (samples - 1.0) * 0.01 + 0.5);
  constexpr double kMost = std::numeric_limits<int>::max();
  sampling.preTrigger = std::fabs(before) <= kMost ? static_cast<int>(before) : -1;
  return true;
}

BoardGrant GrantOf(const BoardPlan& plan, const BoardSampling& sampling, double rate, int channels) {
  BoardGrant grant;
  grant.rate = rate;
  grant.decimation = sampling.decimation;
  grant.span = rate * 0.5 / sampling.decimation;
  grant.deltaT = 0.5 / grant.span;
  grant.timeLength = 2.0 * plan.lines * grant.deltaT;
  grant.deltaF = grant.span / plan.lines;
  grant.samplesPerChan = sampling.samplesPerChan;
  grant.channels = channels;
  return grant;
}

std::string InputNameOf(const BoardPlan& plan, int channel) {
  const std::vector<std::string> names = SplitDaqNames(plan.inputs);
  if (channel < 0 || channel >= static_cast<int>(names.size())) return "";
  std::string name = names[static_cast<std::size_t>(channel)];
  if (!daq_category::IsDifferential(plan.category)) return name;
  name.erase(name.find_last_not_of("0123456789") + 1);
  return name + FormatText("%d", channel < kFirstMovedInput ? channel : channel + kMovedBy);
}

bool TryPlan(const BoardPlan& plan, BoardGrant& grant, std::string& reason) {
  int task = 0;
  if (!MakeTaskOf(plan, false, task, grant, reason)) return false;
  Daq().stopTask(task);
  Daq().clearTask(task);
  return true;
}

bool PrepareTask(const BoardPlan& plan, int& task, BoardGrant& grant, std::string& reason) {
  return MakeTaskOf(plan, true, task, grant, reason);
}

}  // namespace sondera
