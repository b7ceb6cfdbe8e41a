// board_plan.h - converts the settings of a measurement to the requests of a driver, and reads what the board
// granted.
//
// Callers: the check of the hardware settings, and the measuring run. Plain numbers in and out: no control,
// no record, no message. Owns no state.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sondera {

/// The span that a board can sample, and the decimation of its samples.
/// @param[in]  lines, span       as asked for; the sign of the span does not count. Hz
/// @param[in]  minRate, maxRate  of the board, Hz
/// @param[out] linesOut  lines
/// @param[out] spanOut   |span|, at most half of maxRate
/// @param[out] decimOut  1, or the smallest integer that raises the rate to minRate. Infinity for a span of
///                       0, which the caller refuses
/// @return 0
int GetEffectiveDAQParam(double lines, double span, double minRate, double maxRate, double* linesOut,
                         double* spanOut, double* decimOut);

/// Settings of a measurement for a board. Channels count from 0.
struct BoardPlan {
  std::string device;                        ///< at most four characters
  int category = 0;                          ///< daq_category
  std::string inputs;                        ///< names of the device's inputs, by commas
  double minRate = 0.0, maxRate = 102400.0;  ///< Hz

  int channels = 2;
  int lines = 512;     ///< a record has twice the next power of two, times the decimation
  double span = 0.0;   ///< Hz
  int decimation = 0;  ///< to be kept where the board's rates allow it (KeptDecimation); 0: as the span needs
  std::vector<int> coupling;       ///< [channels] 0 AC, 1 DC
  std::vector<double> inputRange;  ///< [channels] V
  int sensorType = 0;              ///< 0 voltage; 1, 2 sensors with 0.004 and 0.0021 A

  int trigger = -1;     ///< channel; below 0 free run
  double delay = 10.0;  ///< pre-trigger share, per cent of the record
  double level = 10.0;  ///< mV
};

/// Decimation to keep for a record whose span was not edited since a board granted it, 0 for any other: on a
/// board with fixed rates the span would otherwise change from run to run.
int KeptDecimation(double span, double deltaT, int decimation);

/// Sampling of the board for a plan.
struct BoardSampling {
  double span = 0.0;  ///< Hz, at most half the board's highest rate
  int decimation = 1;
  double rate = 0.0;       ///< Hz, to request
  int samplesPerChan = 0;  ///< at that rate
  int preTrigger = 0;      ///< samples at that rate; may lie outside the record, which the board refuses
};
/// False for a span of 0, a NaN, and a record of more than 2^27 samples of all channels.
bool PlanSampling(const BoardPlan& plan, BoardSampling& sampling);

/// Grant of a board for a plan: the record's fields follow the granted rate.
struct BoardGrant {
  double rate = 0.0;                      ///< Hz
  double span = 0.0;                      ///< Hz: rate / 2 / decimation
  double deltaT = 0.0, timeLength = 0.0;  ///< s, of the samples after decimation
  double deltaF = 0.0;                    ///< Hz
  int decimation = 1;
  int samplesPerChan = 0;  ///< at the board's rate
  int channels = 0;        ///< of a record
};

/// The plan with a sampling rate, Hz above 0, and a number of channels.
BoardGrant GrantOf(const BoardPlan& plan, const BoardSampling& sampling, double rate, int channels);

/// Name of the input for a channel: the entry of the list. On boards that measure differentially the number
/// at its end is replaced by channel, from 8 on by channel + 8. "" when the list is too short.
std::string InputNameOf(const BoardPlan& plan, int channel);

/// Asks the board whether it can do the plan: task, channels, clock, rate; then the task is cleared.
/// @param[out] reason  why not: the driver's text; "" for a plan that PlanSampling refuses
bool TryPlan(const BoardPlan& plan, BoardGrant& grant, std::string& reason);

/// Makes the task of a run: task, channels, clock, rate, free run or trigger, count of channels. It is ready
/// to start. On failure there is no task.
bool PrepareTask(const BoardPlan& plan, int& task, BoardGrant& grant, std::string& reason);

}  // namespace sondera
