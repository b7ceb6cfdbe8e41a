// process_driver.cpp - the table of functions for a board program. Owns its state, `board`.
#include "acquisition/process_driver.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "acquisition/board_process.h"
#include "acquisition/board_task.h"
#include "runtime/terminal.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::size_t kLongestName = 256;  // of a channel, as a part of a request

struct ProcessState {
  std::vector<std::string> command;
  BoardProcess program;
  std::string fault;   // of the last request that was refused
  int channels = 0;    // of the task
  int samples = 0;     // per channel
  bool ready = false;  // a record is ready
  std::uint64_t overload = 0;
};
ProcessState board;

int Refused(std::string text) {
  board.fault = std::move(text);
  return daq_status::kRefused;
}

/// Sends a request. kDone with the text after "ok"; a refusal of the board has its text and code in `fault`.
int Ask(const std::string& request, std::string& text, double seconds = 0.0) {
  BoardReply reply;
  if (!board.program.Ask(request, reply, seconds)) return Refused(board.program.Dead());
  if (!reply.ok) {
    const std::string said = VisibleText(reply.text);
    return Refused(
        FormatText("%s (board error %d)", said.empty() ? "The board refuses" : said.c_str(), reply.code));
  }
  text = std::move(reply.text);
  return daq_status::kDone;
}

/// A reply of the wrong form: the board program is ended.
int Misunderstood(const std::string& request) {
  board.program.GiveUp("gives no proper answer to \"" + request.substr(0, request.find(' ')) + "\"");
  return Refused(board.program.Dead());
}

/// Sends a request whose answer is "ok" without a value.
int Tell(const std::string& request) {
  std::string text;
  const int status = Ask(request, text);
  return status == daq_status::kDone && !text.empty() ? Misunderstood(request) : status;
}

/// Sends a request and parses the answer; `parse(text, value)` is false for a wrong form.
template <class T, class Parse>
int AskFor(const std::string& request, T& value, Parse parse, double seconds = 0.0) {
  std::string text;
  if (const int status = Ask(request, text, seconds); status < 0) return status;
  return parse(text, value) ? daq_status::kDone : Misunderstood(request);
}

/// An integer of an answer as an int, from `low` upward.
template <int low>
bool IntFrom(const std::string& text, int& value) {
  std::int64_t read = 0;
  if (!ParseWholeField(text, low, std::numeric_limits<int>::max(), read)) return false;
  value = static_cast<int>(read);
  return true;
}
bool FlagFrom(const std::string& text, int& value) {
  return IntFrom<0>(text, value) && value <= 1;
}
bool RateFrom(const std::string& text, double& rate) {
  return ParseRealField(text, rate) && rate >= 0.0;
}

/// A name in the request must not look like two fields, or like another line.
bool IsOneField(const std::string& name) {
  return !name.empty() && name.size() <= kLongestName &&
         std::all_of(name.begin(), name.end(), [](char c) { return c > ' ' && c <= '~'; });
}

/// A short text that gives the same number when read, without an exponent where that is usual.
std::string Number(double x) {
  std::string text;
  for (int digits = 15; digits <= 17; ++digits) {
    text = FormatText("%.*g", digits, x);
    if (ParseReal(text) == x) break;
  }
  return text;
}

template <class T, class Parse>
int BoardFact(const std::string& dev, const char* fact, T& value, Parse parse) {
  if (!IsOneField(dev)) return Refused("There is no such device.");
  return AskFor("fact " + dev + " " + fact, value, parse);
}

std::string JoinNames(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ",") + name;
  return text;
}

/// Starts the program and agrees on the protocol. "" or the reason.
std::string Greet(BoardProcess& program, const std::vector<std::string>& command) {
  std::string reason;
  if (!program.Start(command, reason)) return reason;
  BoardReply reply;
  if (!program.Ask("hello 1", reply)) return program.Dead();
  if (!reply.ok || !(reply.text == "1" || reply.text.starts_with("1 "))) {
    program.GiveUp(reply.ok ? "speaks another version of the protocol"
                            : "refuses to work: " + VisibleText(reply.text));
    return program.Dead();
  }
  return "";
}

/// A program that was ended is started again: its cable may be connected again.
int Revive() {
  if (board.program.Running()) return daq_status::kDone;
  const std::string fault = Greet(board.program, board.command);
  return fault.empty() ? daq_status::kDone : Refused(fault);
}

int Create(const std::string& name, int& task) {
  task = 0;
  board.channels = board.samples = 0;
  board.ready = false;
  if (const int status = Revive(); status < 0) return status;
  if (!IsOneField(name)) return Refused("The name of the task is not possible.");
  return AskFor("task " + name, task, IntFrom<1>);
}

int AddChannel(int task, const DaqChannel& c) {
  if (!IsOneField(c.physicalName) || !IsOneField(c.virtualName))
    return Refused(
        FormatText("There is no input \"%s\".", VisibleText(c.physicalName).substr(0, 80).c_str()));
  const int status = Tell(FormatText("channel %d %s %s %s %s %s %s %s", task, c.physicalName.c_str(),
                                     c.virtualName.c_str(), Number(c.range).c_str(),
                                     c.differential ? "diff" : "pseudo", c.accelerometer ? "accel" : "volts",
                                     Number(c.excitation).c_str(), c.couplingAC ? "ac" : "dc"));
  if (status == daq_status::kDone) ++board.channels;
  return status;
}

int Wait(int task, double seconds, bool& ready) {
  ready = false;
  if (!(seconds >= 0.0)) seconds = 0.0;
  int answer = 0;
  const int status =
      AskFor(FormatText("wait %d %s", task, Number(seconds).c_str()), answer, FlagFrom, seconds);
  ready = board.ready = status == daq_status::kDone && answer == 1;
  return status;
}

int Start(int task) {
  board.ready = false;
  return Tell(FormatText("start %d", task));
}

int Read(int task, double timeoutSeconds, double* buf, int bufLength, int& read) {
  read = 0;
  board.overload = 0;
  if (!board.ready) {
    bool ready = false;
    if (const int status = Wait(task, timeoutSeconds, ready); status < 0) return status;
    if (!ready) return daq_status::kNotYet;
  }
  board.ready = false;
  const std::int64_t total = std::int64_t{board.samples} * board.channels;
  if (bufLength < total) return Refused("The buffer is shorter than the record.");
  const std::string request = FormatText("read %d", task);
  BoardRecordHead head;
  if (const int status = AskFor(request, head, ParseRecordHead); status < 0) return status;
  if (head.samples != board.samples || head.channels != board.channels) {
    board.program.GiveUp(FormatText("sends %lld samples on %lld channels where %d on %d were asked for",
                                    static_cast<long long>(head.samples),
                                    static_cast<long long>(head.channels), board.samples, board.channels));
    return Refused(board.program.Dead());
  }
  if (!board.program.TakeSamples(buf, static_cast<std::size_t>(total))) return Refused(board.program.Dead());
  board.overload = head.overload;
  read = board.samples;
  return daq_status::kDone;
}

}  // namespace

const DaqDriver daqProcess = {
    .name = "process",
    .reset = [] { board = {}; },
    .sysDevNames =
        [](std::string& names) {
          names.clear();
          if (const int status = Revive(); status < 0) return status;
          std::vector<std::string> devices;
          const int status = AskFor("devices", devices, ParseDeviceNames);
          names = JoinNames(devices);
          return status;
        },
    .devProductCategory = [](const std::string& dev,
                             int& category) { return BoardFact(dev, "category", category, IntFrom<0>); },
    .devProductType =
        [](const std::string& dev, std::string& type) {
          return BoardFact(dev, "type", type, [](const std::string& text, std::string& value) {
            value = text;
            return true;
          });
        },
    .devAnlgTrigSupported = [](const std::string& dev,
                               int& supported) { return BoardFact(dev, "trigger", supported, FlagFrom); },
    .devAIPhysicalChans =
        [](const std::string& dev, std::string& channels) {
          std::vector<std::string> inputs;
          const int status = BoardFact(dev, "channels", inputs, ParseInputNames);
          if (status == daq_status::kDone) channels = JoinNames(inputs);
          return status;
        },
    .devAIMaxSingleChanRate = [](const std::string& dev,
                                 double& rate) { return BoardFact(dev, "maxrate", rate, RateFrom); },
    .devAIMinRate = [](const std::string& dev,
                       double& rate) { return BoardFact(dev, "minrate", rate, RateFrom); },
    .devAIVoltageRngs =
        [](const std::string& dev, std::vector<double>& limits) {
          return BoardFact(dev, "ranges", limits, ParseRanges);
        },
    .devAICouplings = [](const std::string& dev,
                         int& couplings) { return BoardFact(dev, "couplings", couplings, IntFrom<0>); },
    .createTask = Create,
    .addChannel = [](int task, const std::string&,
                     const DaqChannel& channel) { return AddChannel(task, channel); },
    .cfgSampClkTiming =
        [](int task, double rate, int samplesPerChan) {
          const std::int64_t channels = std::max(board.channels, 1);
          if (samplesPerChan < 1 || samplesPerChan * channels > kMostRecordSamples)
            return Refused(FormatText("A record of %d samples on %d channels is not possible.",
                                      samplesPerChan, board.channels));
          board.samples = samplesPerChan;
          return Tell(FormatText("clock %d %s %d", task, Number(rate).c_str(), samplesPerChan));
        },
    .sampClkRate = [](int task, double& rate) { return AskFor(FormatText("rate %d", task), rate, RateFrom); },
    .setFreeRun = [](int task) { return Tell(FormatText("free %d", task)); },
    .cfgAnlgEdgeRefTrig =
        [](int task, const std::string& channel, double levelVolts, int preTriggerSamples) {
          if (!IsOneField(channel)) return Refused("The trigger channel is not measured.");
          return Tell(FormatText("trigger %d %s %s %d", task, channel.c_str(), Number(levelVolts).c_str(),
                                 preTriggerSamples));
        },
    .numChans =
        [](int task, int& channels) {
          const int status = AskFor(FormatText("count %d", task), channels, IntFrom<1>);
          if (status == daq_status::kDone) board.channels = channels;
          return status;
        },
    .startTask = Start,
    .waitRecord = Wait,
    .readRecord = Read,
    .recordOverload =
        [](int, std::uint64_t& mask) {
          mask = board.overload;
          return daq_status::kDone;
        },
    .stopTask =
        [](int task) {
          board.ready = false;
          return Tell(FormatText("stop %d", task));
        },
    .clearTask = [](int task) { return Tell(FormatText("clear %d", task)); },
    .errorString =
        [](int status) {
          if (status != daq_status::kRefused || board.fault.empty())
            return TaskErrorText(BoardTask(), status);
          return board.fault;
        },
};

std::string InstallProcessBoard(std::string_view command) {
  std::vector<std::string> words = CommandWords(command);
  if (words.empty()) return "Board driver process needs a program: process:PROGRAM ARGUMENTS.";
  if (Daq().reset == daqProcess.reset) InstallDaqDriver(&daqNone);  // two programs may want one board
  BoardProcess program;
  if (std::string fault = Greet(program, words); !fault.empty()) return fault;
  InstallDaqDriver(&daqProcess);
  board.command = std::move(words);
  board.program = std::move(program);
  return "";
}

std::string ProcessBoardText() {
  return "  whatever boards the program names\n";
}

}  // namespace sondera
