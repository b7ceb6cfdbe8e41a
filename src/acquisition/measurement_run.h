// measurement_run.h - the measuring run: records from the board into the averages of a measurement.
//
// One thread. The run processes events at its polls; a Stop, a Pause or a change of the display can happen
// only there (acquisition_state.h). Between two polls there are at most 50 ms of waiting, one average or one
// drawing. Callers: the Start button, with a MeasListener that fills the page. State: acquisition_state.h,
// and of the session avgCount, samplesPerChan and measBuffer.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "records/measdb.h"

namespace sondera {

/// Reports and questions of a run. The base class ignores the reports and accepts every record.
class MeasListener {
 public:
  virtual ~MeasListener() = default;
  /// Processes events. True: end now, as Stop does.
  virtual bool Poll() { return false; }
  /// State of waiting, or a message about the record before; "" for nothing.
  virtual void Say(const std::string& text) { (void)text; }
  /// The board waits for a record, or has stopped waiting.
  virtual void Armed(bool on) { (void)on; }
  /// Accepted records so far.
  virtual void Averages(int count) { (void)count; }
  /// Asks whether a record is accepted, when timeHist contains it; empty: each one is.
  virtual std::function<bool()> Question() { return {}; }
  /// A person answers that question, and may reject any number of records.
  virtual bool PersonAnswers() { return true; }
  /// Data have changed, or a record was rejected.
  virtual void Redraw() {}
};

/// How a run has ended.
struct RunEnd {
  int result = 0;                  ///< 1: by an error, else 0
  std::vector<std::string> boxes;  ///< messages that a person must read now, one box each
};

/// The run: reads records until nAverage are accepted, or with averageOn 0 until Stop, and adds each to the
/// averages (CalcSpectralFns). measRunning must be 1. If the board fails to give a record, the record is
/// requested again. A board with trigger stays armed until its record comes. Without an accepted record the
/// measurement does not change, except for a rejected one in timeHist. In all cases, at the end the board has
/// no task, the flags are 0 and the buffer is released.
RunEnd PerformMeas(int key, MeasListener& listener);

/// Makes the task of a run for the board in use. Span, times and decimation of the measurement follow the
/// granted rate, its channels those that a record will have; buffer and blocks are adapted. Imported data are
/// then removed; after a refusal nothing has changed.
/// @param[out] reason  why there is no task; may be empty
/// @return 0, or -1 and task 0
int CreateDAQTask(int key, int& task, std::string& reason);

/// Ends a run from a callback: mode 0 stops and clears the task and resets the flags; the run notices that at
/// its poll. Nothing happens without a task or a run.
void StopProcedure(int mode);

/// "channel 1, 3"; channels from 0.
std::string ChannelNames(const std::vector<bool>& channels);

// Without effect; no control calls it.
int AITimerCallback();
int PreviewAcceptCallback();
int PreviewRejectCallback();

}  // namespace sondera
