// measurement_run.h - the measuring run: records from the board into the averages of a measurement.
//
// One thread. The run lets events in at its polls; a Stop, a Pause or a change of the display can come in there and
// nowhere else (acquisition_state.h). Between two polls lie at most 50 ms of waiting, one fold or one drawing.
// Callers: the Start button, behind a MeasListener that fills the page. State: acquisition_state.h, and of the session
// avgCount, samplesPerChan and measBuffer.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "records/measdb.h"

namespace sondera {

/// What a run tells whoever started it, and what it asks. A plain one hears nothing and accepts every record.
class MeasListener {
 public:
  virtual ~MeasListener() = default;
  /// Lets events in. True: end now, as Stop does.
  virtual bool Poll() { return false; }
  /// What the run waits for, or has to say of the record before; "" for nothing.
  virtual void Say(const std::string& text) { (void)text; }
  /// The board waits for a record, or does so no more.
  virtual void Armed(bool on) { (void)on; }
  /// Accepted records so far.
  virtual void Averages(int count) { (void)count; }
  /// The question whether a record is accepted, asked when timeHist has it; empty: each one is.
  virtual std::function<bool()> Question() { return {}; }
  /// A person answers that question, who may reject as often as he likes.
  virtual bool PersonAnswers() { return true; }
  /// Data have changed, or a record was rejected.
  virtual void Redraw() {}
};

/// How a run has ended.
struct RunEnd {
  int result = 0;                  ///< 1: by an error, else 0
  std::vector<std::string> boxes;  ///< what a person has to read now, one box each
};

/// The run: takes records until nAverage are accepted, or with averageOn 0 until Stop, and folds each into the
/// averages (CalcSpectralFns). measRunning is to be 1. A record that the board fails to give is taken again. A
/// triggered board stays armed until its record comes. Without an accepted record the measurement is left as it was,
/// but for a rejected one in timeHist. Whatever happens, at the end no task is left at the board, the flags are 0
/// and the buffer is given back.
RunEnd PerformMeas(int key, MeasListener& listener);

/// Makes the task of a run for the board in use. Span, times and decimation of the measurement follow the rate that it
/// grants, its channels those that a record will have; buffer and blocks are brought in step. Imported data are gone
/// then; on a refusal nothing is changed.
/// @param[out] reason  why there is no task; may be empty
/// @return 0, or -1 and task 0
int CreateDAQTask(int key, int& task, std::string& reason);

/// Ends a run from a callback: mode 0 stops and clears the task and takes the flags back; the run finds that at its
/// poll. Nothing without a task or a run.
void StopProcedure(int mode);

/// "channel 1, 3"; channels from 0.
std::string ChannelNames(const std::vector<bool>& channels);

// Without effect, bound to no control.
int AITimerCallback();
int PreviewAcceptCallback();
int PreviewRejectCallback();

}  // namespace sondera
