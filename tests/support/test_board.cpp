// test_board.cpp - see test_board.h.
#include "support/test_board.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "runtime/text_format.h"

namespace sondera::testing {

TestBoard testBoard;

namespace {

constexpr int kFailure = -50;
std::chrono::steady_clock::time_point startedAt;
bool armed = false;

/// Logs a request; kFailure when it is to fail.
int Ask(const std::string& request) {
  testBoard.log.push_back(request);
  const std::string word = request.substr(0, request.find(' '));
  const auto fault = testBoard.failAt.find(word);
  if (testBoard.gone) return kFailure;
  return fault != testBoard.failAt.end() && fault->second == testBoard.Count(word) ? kFailure : 0;
}

bool Ready() {
  const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - startedAt;
  const bool never = testBoard.neverFrom >= 0 && testBoard.records >= testBoard.neverFrom;
  return armed && !never && passed.count() >= testBoard.seconds;
}

int Wait(int task, double seconds, bool& ready) {
  ready = false;
  if (const int status = Ask(FormatText("wait %d", task)); status < 0) return status;
  const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
  while (!(ready = Ready()) && std::chrono::steady_clock::now() < end)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  return 0;
}

int Read(int task, double, double* buf, int length, int& read) {
  read = 0;
  if (const int status = Ask(FormatText("read %d", task)); status < 0) return status;
  armed = false;
  const int record = testBoard.records++;
  if (length < testBoard.samples * testBoard.channels) return kFailure;
  for (int c = 0; c < testBoard.channels; ++c)
    for (int i = 0; i < testBoard.samples; ++i) *buf++ = testBoard.volts(record, c, i);
  read = testBoard.samples - (record == testBoard.shortRecord ? 1 : 0);
  return 0;
}

}  // namespace

int TestBoard::Count(const std::string& word) const {
  return static_cast<int>(std::count_if(log.begin(), log.end(), [&](const std::string& line) {
    return line.substr(0, line.find(' ')) == word;
  }));
}

std::string TestBoard::Words() const {
  std::string words;
  for (const std::string& line : log) {
    const std::string word = line.substr(0, line.find(' '));
    if (word != "wait") words += (words.empty() ? "" : " ") + word;
  }
  return words;
}

const DaqDriver daqTestBoard = {
    .name = "test",
    .reset = [] { armed = false; },
    .sysDevNames =
        [](std::string& names) {
          names = testBoard.devices;
          return 0;
        },
    .devProductCategory =
        [](const std::string&, int& category) {
          category = testBoard.category;
          return 0;
        },
    .devProductType =
        [](const std::string&, std::string& type) {
          type = testBoard.type;
          return 0;
        },
    .devAnlgTrigSupported =
        [](const std::string&, int& supported) {
          supported = testBoard.trigger;
          return 0;
        },
    .devAIPhysicalChans =
        [](const std::string& dev, std::string& channels) {
          channels.clear();
          for (int c = 0; c < testBoard.inputs; ++c)
            channels += FormatText("%s%s/ai%d", c > 0 ? "," : "", dev.c_str(), c);
          return 0;
        },
    .devAIMaxSingleChanRate =
        [](const std::string&, double& rate) {
          rate = testBoard.maxRate;
          return 0;
        },
    .devAIMinRate =
        [](const std::string&, double& rate) {
          rate = testBoard.minRate;
          return 0;
        },
    .devAIVoltageRngs =
        [](const std::string&, std::vector<double>& limits) {
          limits.clear();
          for (const double range : testBoard.ranges) limits.insert(limits.end(), {-range, range});
          return 0;
        },
    .devAICouplings =
        [](const std::string&, int& couplings) {
          couplings = 3;
          return 0;
        },
    .createTask =
        [](const std::string& name, int& task) {
          task = 0;
          testBoard.channels = testBoard.samples = 0;
          if (const int status = Ask("task " + name); status < 0) return status;
          task = testBoard.task = 1;
          return 0;
        },
    .addChannel =
        [](int task, const std::string&, const DaqChannel& c) {
          ++testBoard.channels;
          const int status =
              Ask(FormatText("channel %d %s %s %g %s %s %g %s", task, c.physicalName.c_str(),
                             c.virtualName.c_str(), c.range, c.differential ? "diff" : "pseudo",
                             c.accelerometer ? "accel" : "volts", c.excitation, c.couplingAC ? "ac" : "dc"));
          const bool known = std::any_of(testBoard.ranges.begin(), testBoard.ranges.end(),
                                         [&](double range) { return range >= c.range; });
          return status < 0 || (known && !c.physicalName.empty()) ? status : kFailure;
        },
    .cfgSampClkTiming =
        [](int task, double rate, int samples) {
          testBoard.samples = samples;
          testBoard.rate = rate;
          const auto& rates = testBoard.rates;
          const auto next = std::lower_bound(rates.begin(), rates.end(), rate - 1e-9);
          if (!rates.empty()) testBoard.rate = next == rates.end() ? rates.back() : *next;
          return Ask(FormatText("clock %d %.12g %d", task, rate, samples));
        },
    .sampClkRate =
        [](int task, double& rate) {
          rate = testBoard.rate;
          return Ask(FormatText("rate %d", task));
        },
    .setFreeRun = [](int task) { return Ask(FormatText("free %d", task)); },
    .cfgAnlgEdgeRefTrig =
        [](int task, const std::string& channel, double level, int preTrigger) {
          return Ask(FormatText("trigger %d %s %g %d", task, channel.c_str(), level, preTrigger));
        },
    .numChans =
        [](int task, int& channels) {
          if (testBoard.countSaid > 0) testBoard.channels = testBoard.countSaid;
          channels = testBoard.channels;
          return Ask(FormatText("count %d", task));
        },
    .startTask =
        [](int task) {
          if (testBoard.onStart) testBoard.onStart();
          armed = true;
          ++testBoard.starts;
          startedAt = std::chrono::steady_clock::now();
          return Ask(FormatText("start %d", task));
        },
    .waitRecord = Wait,
    .readRecord = Read,
    .recordOverload =
        [](int, std::uint64_t& mask) {
          mask = testBoard.mask;
          return 0;
        },
    .stopTask =
        [](int task) {
          armed = false;
          return Ask(FormatText("stop %d", task));
        },
    .clearTask =
        [](int task) {
          testBoard.task = 0;
          return Ask(FormatText("clear %d", task));
        },
    .errorString = [](int status) { return FormatText("board error %d", status); },
};

}  // namespace sondera::testing
