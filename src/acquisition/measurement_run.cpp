// measurement_run.cpp - see measurement_run.h. Owns no state of its own.
#include "acquisition/measurement_run.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <new>
#include <thread>
#include <utility>

#include "acquisition/acquisition_state.h"
#include "acquisition/daq_driver.h"
#include "acquisition/hardware_settings.h"
#include "records/session.h"
#include "runtime/text_format.h"
#include "signal/spectra.h"

namespace sondera {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr double kSlice = 0.05;         // s between two polls
constexpr double kTellsWaiting = 1.0;   // s without a record
constexpr double kTimeoutMargin = 1.0;  // s beyond the length of a record
constexpr int kFailuresToTell = 3;      // in a row
constexpr int kRejectionsWithoutPerson = 3;
constexpr int kMaskBits = 64;

double SecondsSince(Clock::time_point begin) {
  return Seconds(Clock::now() - begin).count();
}
void Sleep(double seconds) {
  if (seconds > 0.0) std::this_thread::sleep_for(Seconds(seconds));
}

HWSetup* FindSetup(int key) {
  MeasRecords records;
  const bool known = GetInfoFromKey(key, records) != -1;
  return known && records.hwPos > 0 && records.rawPos > 0 ? records.hwSetup : nullptr;
}

/// Channels of the record in the buffer that reach the input range, or that the board reports as overloaded.
std::vector<bool> OverloadedChannels(const std::vector<double>& ranges, int samplesPerChan) {
  std::uint64_t mask = 0;
  Daq().recordOverload(measRun.daqTask, mask);
  std::vector<bool> overloaded(ranges.size());
  const double* sample = session.measBuffer.data();
  for (std::size_t c = 0; c < ranges.size(); ++c, sample += samplesPerChan) {
    const double range = ranges[c];
    const bool reported = c < kMaskBits && (mask >> c & 1u) != 0;
    overloaded[c] =
        reported || (range > 0.0 && std::any_of(sample, sample + samplesPerChan,
                                                [range](double x) { return std::fabs(x) >= range; }));
  }
  return overloaded;
}

bool AnyOf(const std::vector<bool>& flags) {
  return std::find(flags.begin(), flags.end(), true) != flags.end();
}

class MeasuringRun {
 public:
  MeasuringRun(int key, MeasListener& listener) : key_(key), listener_(listener) {}
  ~MeasuringRun() { End(); }
  MeasuringRun(const MeasuringRun&) = delete;
  MeasuringRun& operator=(const MeasuringRun&) = delete;

  RunEnd Perform();

 private:
  enum class Got { Record, NotYet, Failed, NoStart, Ended };

  bool Goes();
  bool Arm(RunEnd& end);
  void TakeRecords(RunEnd& end);
  Got TakeRecord();
  Got StartBoard(int failures);
  Got WaitAndRead();
  Got Overdue();
  Got Fail(std::string text);
  void RecoverFrom(int failures);
  bool FoldRecord(RunEnd& end);
  void CountAccepted();
  void ShowNotice(const std::string& text);
  void Disarm();
  void End();
  void RestoreSettings();

  int key_;
  MeasListener& listener_;
  HWSetup before_;  // settings before the board granted others
  bool imported_ = false, heldData_ = false;
  bool triggered_ = false, armed_ = false;
  std::vector<double> ranges_;  // [channel] V
  double timeout_ = 0.0;        // s
  Clock::time_point armedAt_;
  std::string fault_;  // of the latest request that failed
  std::string overloadText_, shown_;
  int accepted_ = 0, rejectedInRow_ = 0, overloadedRecords_ = 0;
  std::vector<bool> overloaded_, everOverloaded_;
};

/// Polls. False once the run has ended: then there is no task any more.
bool MeasuringRun::Goes() {
  if (listener_.Poll()) StopProcedure(0);
  if (measRun.measRunning != 1) armed_ = false;
  return measRun.measRunning == 1;
}

/// The message about the record before stays until the next one.
void MeasuringRun::ShowNotice(const std::string& text) {
  const std::string both = overloadText_ + (overloadText_.empty() || text.empty() ? "" : "\n") + text;
  if (both == shown_) return;
  shown_ = both;
  listener_.Say(both);
}

void MeasuringRun::Disarm() {
  if (armed_ && measRun.daqTask != 0) Daq().stopTask(measRun.daqTask);
  armed_ = false;
}

/// Makes the task and stores the sizes of a record.
bool MeasuringRun::Arm(RunEnd& end) {
  const HWSetup* hw = FindSetup(key_);
  if (!hw) return false;
  before_ = *hw;
  imported_ = hw->freqSpan < 0.0;
  heldData_ = HoldsData(key_);
  std::string reason;
  if (CreateDAQTask(key_, measRun.daqTask, reason) != 0) {
    end.result = 1;
    end.boxes.push_back(reason.empty() ? kInappropriateParameters : reason);
    return false;
  }
  hw = FindSetup(key_);
  triggered_ = hw->triggerChannel >= 0;
  ranges_ = hw->inputRange;
  timeout_ = hw->timeLength + kTimeoutMargin;
  session.avgCount = 0;
  measRun.avgTarget = hw->nAverage;
  measRun.avgOn = hw->averageOn;
  everOverloaded_.assign(ranges_.size(), false);
  return true;
}

RunEnd MeasuringRun::Perform() {
  RunEnd end;
  if (measRun.measPaused == 1 || !Arm(end)) return end;
  if (Goes()) {
    if (measRun.avgOn && measRun.avgTarget < 1)
      listener_.Averages(0);
    else
      TakeRecords(end);
  }
  if (overloadedRecords_ > 0)
    end.boxes.push_back(FormatText("Overload in %d of %d records: %s.", overloadedRecords_, accepted_,
                                   ChannelNames(everOverloaded_).c_str()));
  return end;
}

void MeasuringRun::TakeRecords(RunEnd& end) {
  while (measRun.measRunning == 1 && (session.avgCount < measRun.avgTarget || !measRun.avgOn)) {
    const Got got = TakeRecord();
    if (got == Got::NoStart) {
      end.result = 1;
      end.boxes.push_back("Something wrong with the DSA card...\n" + fault_);
    }
    if (got != Got::Record || !FoldRecord(end)) return;
    listener_.Redraw();
    const bool goes = Goes();
    Disarm();
    if (!goes || end.result != 0) return;
  }
}

/// Until a record is in the buffer, the run has ended, or the board cannot start.
MeasuringRun::Got MeasuringRun::TakeRecord() {
  for (int failures = 0;;) {
    if (!Goes()) return Got::Ended;
    if (!armed_ && measRun.measPaused) {
      ShowNotice("Paused");
      Sleep(kSlice);
      continue;
    }
    Got got = armed_ ? Got::NotYet : StartBoard(failures);
    if (got == Got::NotYet) got = WaitAndRead();
    if (got == Got::Record) return Goes() ? Got::Record : Got::Ended;
    if (got == Got::NoStart || got == Got::Ended) return got;
    if (got == Got::Failed) RecoverFrom(++failures);
  }
}

/// NotYet for a board that is armed now.
MeasuringRun::Got MeasuringRun::StartBoard(int failures) {
  ShowNotice(failures < kFailuresToTell ? "" : fault_);
  const int status = Daq().startTask(measRun.daqTask);
  if (status < 0) {
    fault_ = Daq().errorString(status);
    Daq().stopTask(measRun.daqTask);
    return Got::NoStart;
  }
  armed_ = true;
  armedAt_ = Clock::now();
  return Goes() ? Got::NotYet : Got::Ended;
}

MeasuringRun::Got MeasuringRun::Fail(std::string text) {
  fault_ = std::move(text);
  return Got::Failed;
}

/// A free run gets its record in time; a trigger has no time limit.
MeasuringRun::Got MeasuringRun::Overdue() {
  const double waited = SecondsSince(armedAt_);
  if (!triggered_) return waited > timeout_ ? Fail("The record has not come in time.") : Got::NotYet;
  if (waited >= kTellsWaiting) ShowNotice("Waiting for the trigger ...");
  return Got::NotYet;
}

MeasuringRun::Got MeasuringRun::WaitAndRead() {
  const DaqDriver& daq = Daq();
  bool ready = false;
  if (const int status = daq.waitRecord(measRun.daqTask, kSlice, ready); status != 0)
    return Fail(daq.errorString(status));
  if (!ready) return Overdue();
  std::vector<double>& buffer = session.measBuffer;
  int read = 0;
  const int status =
      daq.readRecord(measRun.daqTask, kTimeoutMargin, buffer.data(), static_cast<int>(buffer.size()), read);
  if (status == daq_status::kNotYet) return Overdue();
  if (status != 0) return Fail(daq.errorString(status));
  if (read != session.samplesPerChan)
    return Fail(FormatText("The record has %d samples instead of %d.", read, session.samplesPerChan));
  if (!std::all_of(buffer.begin(), buffer.end(), [](double x) { return std::isfinite(x); }))
    return Fail("The record has values that are not numbers.");
  return Got::Record;
}

/// After a failed read: the board is stopped, and started again after one slice at the earliest.
void MeasuringRun::RecoverFrom(int failures) {
  const double left = kSlice - SecondsSince(armedAt_);
  Disarm();
  if (failures >= kFailuresToTell) {
    overloadText_.clear();
    ShowNotice(fault_);
  }
  Sleep(left);
}

void MeasuringRun::CountAccepted() {
  ++accepted_;
  rejectedInRow_ = 0;
  if (AnyOf(overloaded_)) {
    ++overloadedRecords_;
    for (std::size_t c = 0; c < overloaded_.size(); ++c)
      if (overloaded_[c]) everOverloaded_[c] = true;
  }
  if (!measRun.avgOn) return;
  listener_.Averages(++session.avgCount);
  if (measRun.avgTarget < 1 || session.avgCount % measRun.avgTarget != 0) return;
  Disarm();
  listener_.Armed(false);
  session.configDone = 0;
}

/// False when every other record would fail too.
bool MeasuringRun::FoldRecord(RunEnd& end) {
  ++measRun.delivered;
  overloaded_ = OverloadedChannels(ranges_, session.samplesPerChan);
  overloadText_ = AnyOf(overloaded_) ? "Overload: " + ChannelNames(overloaded_) : "";
  ShowNotice("");
  if (!measRun.avgOn) session.avgCount = 0;
  const int status = CalcSpectralFns(key_, listener_.Question());
  if (status >= 0) {
    CountAccepted();
  } else if (status == -1) {
    if (++rejectedInRow_ >= kRejectionsWithoutPerson && !listener_.PersonAnswers()) {
      end.result = 1;
      end.boxes.push_back(
          "Three records in a row were rejected without a person to look at them. The run has ended.");
    }
  } else {
    end.result = 1;
    end.boxes.push_back("The record does not fit the measurement. Configure the hardware anew.");
    return false;
  }
  return true;
}

/// Without a record the old data stay, with their settings.
void MeasuringRun::RestoreSettings() {
  HWSetup* const hw = FindSetup(key_);
  if (accepted_ > 0 || imported_ || !hw) return;
  if (hw->nChannels == before_.nChannels && hw->nLines == before_.nLines && heldData_) *hw = before_;
}

/// However the run ends.
void MeasuringRun::End() {
  if (before_.nChannels > 0) RestoreSettings();
  Disarm();
  if (measRun.daqTask != 0) Daq().clearTask(measRun.daqTask);
  measRun.daqTask = 0;
  measRun.measRunning = measRun.measPaused = 0;
  std::vector<double>().swap(session.measBuffer);  // to assign {} would keep the memory
}

}  // namespace

std::string ChannelNames(const std::vector<bool>& channels) {
  std::string names;
  for (std::size_t c = 0; c < channels.size(); ++c)
    if (channels[c]) names += FormatText(names.empty() ? "channel %zu" : ", %zu", c + 1);
  return names;
}

RunEnd PerformMeas(int key, MeasListener& listener) {
  MeasuringRun run(key, listener);
  return run.Perform();
}

namespace {

/// Channels that a record will have, from the board's answer.
int ChannelsOf(const BoardGrant& grant) {
  constexpr int kFixedChannels = 4;
  return HasFourFixedChannels() ? kFixedChannels : grant.channels;
}

/// Sets the measurement to the granted values.
void FollowGrant(HWSetup& hw, const BoardGrant& grant, int channels) {
  const bool imported = hw.freqSpan < 0.0;
  TakeGrant(hw, grant);
  if (channels != hw.nChannels)
    SetChannelCount(hw.key, channels);
  else if (imported)
    RemoveData(hw.key);
  session.curChannels = hw.nChannels;
  FitSizes(hw.key);
  hw.deltaF = hw.freqSpan / hw.nLines;  // FitSizes may have raised the lines
  hw.timeLength = 2.0 * hw.nLines * hw.deltaT;
}

}  // namespace

int CreateDAQTask(int key, int& task, std::string& reason) {
  task = 0;
  reason.clear();
  HWSetup* const hw = FindSetup(key);
  if (!hw) return -1;
  if (!HasBoard()) {
    reason = "There is no acquisition board.";
    return -1;
  }
  BoardGrant grant;
  if (!PrepareTask(PlanOf(*hw), task, grant, reason)) return -1;
  const int channels = ChannelsOf(grant);
  const HWSetup before = *hw;
  try {
    if (!FitsRecord(hw->nLines, channels, grant.decimation))
      reason = FormatText("A record of %d channels is too large.", channels);
    else
      FollowGrant(*hw, grant, channels);
  } catch (const std::bad_alloc&) {
    *hw = before;
    reason = "There is not enough memory for a record of this size.";
  }
  if (reason.empty()) return 0;
  Daq().clearTask(std::exchange(task, 0));
  return -1;
}

void StopProcedure(int mode) {
  if (mode != 0 || measRun.daqTask == 0 || measRun.measRunning != 1) return;
  Daq().stopTask(measRun.daqTask);
  Daq().clearTask(measRun.daqTask);
  measRun.daqTask = 0;
  measRun.measPaused = 0;
  measRun.measStopped = 1;
  measRun.measRunning = 0;
}

int AITimerCallback() {
  return 0;
}
int PreviewAcceptCallback() {
  return 0;
}
int PreviewRejectCallback() {
  return 0;
}

}  // namespace sondera
